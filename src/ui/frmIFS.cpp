#include "ui/frmIFS.h"

#include "devices/interfacetext.h"
#include "devices/usbinterface.h"
#include "model/show.h"
#include "platform/host.h"
#include "platform/programfolder.h"
#include "ui/geometry.h"
#include "ui/shown.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTabBar>

#include <array>

namespace quorvane {

namespace {

struct Model {
    const char* Tab;
    const char* Name;
    const char* Description;
    const char* Picture; // in the program folder
};

constexpr int Margin = 16; // pixels
constexpr int Spacing = 8;
constexpr int PictureWidth = 360;
constexpr int PictureHeight = 200;
constexpr int TextLines = 6;   // room for what is said of the driver
constexpr int TextWidth = 420; // pixels

constexpr std::array<Model, 5> models{{
    {"7300A/B", "7300A, 7300B-LC, 7300B", "ISA-Karte mit einem DMX-512-Ausgang", "7300b.jpg"},
    {"7300C", "7300C", "ISA-Karte mit einem DMX-512-Ausgang, neuere Bauform", "7300c.jpg"},
    {"USB", "USBLINK1, USBLINK2", "USB-Interface oder eingebaute Netzwerkausgabe (sACN, Art-Net)",
     "usblink1.jpg"},
    {"PCMCIA", "8300A", "PCMCIA-Karte für tragbare Rechner", "8300a.jpg"},
    {"PCI", "7310PCI, 8310PCI", "PCI-Karte", "7310pci.jpg"},
}};

// On the USB tab the picture is that of the model which the library found.
const char* PictureFile(int position) {
    const bool usb = position + 1 == UsbInterface;
    return usb && UsbModelName() == "USBLINK2" ? "usblink2.jpg"
                                               : models.at(static_cast<std::size_t>(position)).Picture;
}

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
    : QDialog(parent), tabs_ifselect(new QTabBar), picModell(NamedLabel("picModell")),
      lblModell(NamedLabel("lblModell")), lblBeschreibung(NamedLabel("lblBeschreibung")),
      lblTreiber(NamedLabel("lblTreiber")), cmdOK(NamedButton("cmdOK", "&OK")),
      cmdAbbrechen(NamedButton("cmdAbbrechen", "&Abbrechen")) {
    setObjectName("frmIFS");
    setWindowTitle("DMX Interface auswählen");
    tabs_ifselect->setObjectName("tabs_ifselect");
    tabs_ifselect->setAccessibleName("DMX Interface");
    for (const Model& model : models) tabs_ifselect->addTab(model.Tab);
    setLayout(Arrangement());
    connect(tabs_ifselect, &QTabBar::currentChanged, this,
            [this](int position) { tabs_ifselect_Click(position); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdAbbrechen, &QPushButton::clicked, this, &QDialog::reject);
    cmdOK->setDefault(true);
    tabs_ifselect->setCurrentIndex(
        Show.InterfaceType >= IsaCardB && Show.InterfaceType <= PciCard ? Show.InterfaceType - 1 : 0);
    tabs_ifselect_Click(tabs_ifselect->currentIndex());
    PlaceDialog(*this, InterfaceSelectWindow);
}

std::int16_t frmIFS::SelectedType() const {
    return static_cast<std::int16_t>(tabs_ifselect->currentIndex() + 1);
}

QLayout* frmIFS::Arrangement() {
    picModell->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    picModell->setAlignment(Qt::AlignCenter);
    picModell->setFixedSize(PictureWidth + 2 * picModell->frameWidth(),
                            PictureHeight + 2 * picModell->frameWidth());
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    lblModell->setFont(large);
    lblBeschreibung->setWordWrap(true);
    lblTreiber->setWordWrap(true);
    lblTreiber->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblTreiber->setMinimumWidth(TextWidth);
    lblTreiber->setMinimumHeight(TextLines * lblTreiber->fontMetrics().lineSpacing());
    lblTreiber->setAccessibleName("Treiber auf diesem Rechner");

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Spacing);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdAbbrechen);
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addWidget(tabs_ifselect);
    layout->addSpacing(Spacing);
    layout->addWidget(picModell, 0, Qt::AlignHCenter);
    layout->addSpacing(Spacing);
    layout->addWidget(lblModell);
    layout->addWidget(lblBeschreibung);
    layout->addSpacing(Spacing);
    layout->addWidget(lblTreiber, 1);
    layout->addSpacing(Spacing);
    layout->addLayout(buttons);
    return layout;
}

void frmIFS::tabs_ifselect_Click(int position) {
    const Model& model = models.at(static_cast<std::size_t>(position));
    lblModell->setText(model.Name);
    lblBeschreibung->setText(model.Description);
    lblTreiber->setText(Shown(InterfaceText(SelectedType())));
    ShowPicture(position);
}

// Pictures of any size fit; one that is missing or broken leaves the frame with the model's name.
void frmIFS::ShowPicture(int position) {
    const char* const name = models.at(static_cast<std::size_t>(position)).Name;
    picModell->setAccessibleName(QString("Bild: ") + name);
    QPixmap picture(Shown(TextOf(FindInFolder(PathOf(Host.ProgramFolder), PictureFile(position)))));
    if (picture.isNull()) {
        picModell->setText(name);
        return;
    }
    const double ratio = devicePixelRatioF();
    picture = picture.scaled(QSizeF(PictureWidth * ratio, PictureHeight * ratio).toSize(),
                             Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    picModell->setPixmap(picture);
}

void frmIFS::done(int result) {
    KeepDialogPlace(*this, InterfaceSelectWindow);
    QDialog::done(result);
}

} // namespace quorvane
