#include "ui/frmIFS.h"

#include "devices/interface.h"
#include "model/screen.h"
#include "model/show.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

#include <array>

namespace quorvane {

namespace {

struct Model {
    const char* Tab;
    const char* Name;
    const char* Description;
};

constexpr std::array<Model, 5> models{{
    {"7300A/B", "7300A, 7300B-LC, 7300B", "ISA-Karte mit einem DMX-512-Ausgang"},
    {"7300C", "7300C", "ISA-Karte mit einem DMX-512-Ausgang, neuere Bauform"},
    {"USB", "USBLINK1, USBLINK2", "USB-Interface oder eingebaute Netzwerkausgabe (sACN, Art-Net)"},
    {"PCMCIA", "8300A", "PCMCIA-Karte für tragbare Rechner"},
    {"PCI", "7310PCI, 8310PCI", "PCI-Karte"},
}};

QLabel* NamedLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* NamedButton(const char* name, const char* caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove('&'));
    return button;
}

} // namespace

frmIFS::frmIFS(QWidget* parent)
    : QDialog(parent), tabs_ifselect(new QTabBar), lblModell(NamedLabel("lblModell")),
      lblBeschreibung(NamedLabel("lblBeschreibung")), cmdOK(NamedButton("cmdOK", "&OK")),
      cmdAbbrechen(NamedButton("cmdAbbrechen", "&Abbrechen")) {
    setObjectName("frmIFS");
    setWindowTitle("DMX Interface auswählen");
    tabs_ifselect->setObjectName("tabs_ifselect");
    tabs_ifselect->setAccessibleName("DMX Interface");
    for (const Model& model : models) tabs_ifselect->addTab(model.Tab);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    lblModell->setFont(large);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdAbbrechen);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_ifselect);
    layout->addSpacing(12);
    layout->addWidget(lblModell);
    layout->addWidget(lblBeschreibung);
    layout->addStretch();
    layout->addLayout(buttons);
    resize(460, 220);

    connect(tabs_ifselect, &QTabBar::currentChanged, this,
            [this](int position) { tabs_ifselect_Click(position); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdAbbrechen, &QPushButton::clicked, this, &QDialog::reject);
    cmdOK->setDefault(true);
    tabs_ifselect->setCurrentIndex(
        Show.InterfaceType >= IsaCardB && Show.InterfaceType <= PciCard ? Show.InterfaceType - 1 : 0);
    tabs_ifselect_Click(tabs_ifselect->currentIndex());
}

void frmIFS::tabs_ifselect_Click(int position) {
    const Model& model = models.at(static_cast<std::size_t>(position));
    lblModell->setText(model.Name);
    lblBeschreibung->setText(model.Description);
}

void frmIFS::cmdOK_Click() {
    ChooseInterface(static_cast<std::int16_t>(tabs_ifselect->currentIndex() + 1));
    accept();
}

} // namespace quorvane
