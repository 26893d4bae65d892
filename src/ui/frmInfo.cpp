#include "ui/frmInfo.h"

#include "model/show.h"
#include "platform/host.h"
#include "ui/icons.h"
#include "ui/shown.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

namespace quorvane {

frmInfo::frmInfo(QWidget* parent)
    : QDialog(parent), lblInfo(new QLabel(Shown("DMX QUORVANE " + Show.VersionText))),
      cmdInfo(new QPushButton("&OK")) {
    setObjectName("frmInfo");
    setWindowTitle("Info");
    lblInfo->setObjectName("lblInfo");
    lblInfo->setAccessibleName("Programm und Version");
    lblInfo->setTextFormat(Qt::PlainText);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    lblInfo->setFont(large);
    cmdInfo->setObjectName("cmdInfo");
    cmdInfo->setAccessibleName("OK");
    cmdInfo->setDefault(true);
    auto* picture = new QLabel;
    picture->setPixmap(ProgramIcon().pixmap(64));

    auto* text = new QHBoxLayout;
    text->setSpacing(20);
    text->addWidget(picture);
    text->addWidget(lblInfo, 1);
    auto* button = new QHBoxLayout;
    button->addStretch();
    button->addWidget(cmdInfo);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 16);
    layout->setSpacing(20);
    layout->addLayout(text);
    layout->addLayout(button);
    connect(cmdInfo, &QPushButton::clicked, this, &QDialog::accept);
}

void frmInfo::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    QRect place = frameGeometry();
    place.moveCenter(screen()->geometry().center());
    move(place.topLeft());
}

void frmInfo::AutoUnload() {
    constexpr double seconds = 5;
    show();
    const double opened = Host.Seconds();
    while (isVisible() && Host.Seconds() - opened < seconds && Host.DoEvents()) {
    }
    close();
}

} // namespace quorvane
