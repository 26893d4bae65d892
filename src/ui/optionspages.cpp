// The controls of the options: the pages and what stands on them.
#include "devices/outputoptions.h"
#include "ui/field.h"
#include "ui/frmOptions.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>

namespace quorvane {

namespace {

constexpr int Margin = 12;  // pixels
constexpr int Spacing = 8;  // between controls that belong together
constexpr int Section = 16; // between groups of them

std::size_t At(int index) { return static_cast<std::size_t>(index); }

struct FieldText {
    const char* Label;
    const char* AccessibleName;
};

constexpr std::array<FieldText, 7> dmxTexts{{
    {"Start Sync Dauer (us) :", "Start Sync Dauer in Mikrosekunden"},
    {"StartByte  (0-255) :", "StartByte"},
    {"Leerlaufzeit am Ende (us) :", "Leerlaufzeit am Ende in Mikrosekunden"},
    {"InterDigit Zeit (us) :", "InterDigit Zeit in Mikrosekunden"},
    {"Anzahl Sendekanäle :", "Anzahl Sendekanäle"},
    {"Sende Repeat (ms) :", "Sende Repeat in Millisekunden"},
    {"Länge der DMX Sendung :", "Länge der DMX Sendung"},
}};

constexpr std::array<FieldText, 4> pathTexts{{
    {"Konfiguration :", "Datei der Konfiguration"},
    {"Szene :", "Datei der Szene"},
    {"Sequenz :", "Datei der Sequenz"},
    {"Farbtabelle :", "Datei der Farbtabelle"},
}};

constexpr std::array<const char*, 4> pageTitles{"DMX Einstellungen", "Allgemeine Programmeinstellungen",
                                                "Beispiel 3", "Beispiel 4"};

template<class Button> Button* NamedButton(const QString& name, const char* caption) {
    auto* button = new Button(caption);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove('&'));
    return button;
}

QPushButton* PushButton(const char* name, const char* caption) {
    auto* button = NamedButton<QPushButton>(name, caption);
    button->setAutoDefault(true); // Enter presses the button that has the focus
    return button;
}

QLabel* NamedLabel(const QString& name, const char* text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

// Comes and goes beside a field without moving anything.
QLabel* WarningLabel(const char* name, const char* text) {
    auto* label = NamedLabel(name, text);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(0xe8, 0xb0, 0x4a));
    label->setPalette(palette);
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    return label;
}

} // namespace

frmOptions::frmOptions()
    : ChildWindow("frmOptions", OptionsWindow, Status::OptionsWindowOpen), tbsOptions(new QTabBar),
      lblUSITT(WarningLabel("lblUSITT", "Keine gültige Einstellung nach USITT DMX-512")),
      lblLeerlaufzeit(WarningLabel("lblLeerlaufzeit", "Keine Leerlaufzeit eingestellt")),
      cckAutoDMXmax(NamedButton<QCheckBox>("cckAutoDMXmax", "Auto")),
      cmdDefaultDMX(PushButton("cmdDefaultDMX", "Default Einstellungen")),
      chkAutoStart(NamedButton<QCheckBox>("chkAutoStart", "Auto Load")),
      lblAutoStart(NamedLabel("lblAutoStart", "Diese Dateien werden mit Autostart selbständig  geladen: ")),
      cmdOK(PushButton("cmdOK", "&OK")), cmdCancel(PushButton("cmdCancel", "&Abbrechen")),
      cmdApply(PushButton("cmdApply", "Über&nehmen")), pages(new QStackedWidget) {
    setWindowTitle("Optionen");
    tbsOptions->setObjectName("tbsOptions");
    tbsOptions->setAccessibleName("Seiten der Optionen");
    cckAutoDMXmax->setAccessibleName("Anzahl Sendekanäle automatisch der Wand anpassen");
    cckAutoDMXmax->setToolTip("Anzahl der Sendekanäle automatisch der Wand anpassen");
    MakeDmxFields();
    MakePathFields();
    Arrange();
    ConnectControls();
}

void frmOptions::MakeDmxFields() {
    for (int index = StartSync; index <= LengthField; ++index) {
        const FieldText& text = dmxTexts.at(At(index));
        auto* field = new Field(QString("txtDMX(%1)").arg(index), text.AccessibleName);
        field->setAlignment(Qt::AlignRight);
        field->setFixedWidth(field->fontMetrics().horizontalAdvance("0000000000"));
        txtDMX.at(At(index)) = field;
        lblDMX.at(At(index)) = NamedLabel(QString("lblDMX(%1)").arg(index), text.Label);
        lblDMX.at(At(index))->setBuddy(field);
    }
    txtDMX[LengthField]->setReadOnly(true);
    txtDMX[LengthField]->setFocusPolicy(Qt::NoFocus);
    QPalette shown = txtDMX[LengthField]->palette();
    shown.setColor(QPalette::Base, palette().color(QPalette::Window));
    txtDMX[LengthField]->setPalette(shown);
    OptDMXSend[0] = NamedButton<QRadioButton>("OptDMXSend(0)", "Hardware Repeat");
    OptDMXSend[1] = NamedButton<QRadioButton>("OptDMXSend(1)", "Sofware Repeat"); // spelt so
}

void frmOptions::MakePathFields() {
    for (int index = 0; index < 4; ++index) {
        const FieldText& text = pathTexts.at(At(index));
        txtPath.at(At(index)) = new Field(QString("txtPath(%1)").arg(index), text.AccessibleName);
        lblPath.at(At(index)) = NamedLabel(QString("lblPath(%1)").arg(index), text.Label);
        lblPath.at(At(index))->setBuddy(txtPath.at(At(index)));
    }
}

QLayout* frmOptions::DmxGrid() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Spacing);
    grid->setVerticalSpacing(Spacing);
    for (int index = StartSync; index <= LengthField; ++index) {
        grid->addWidget(lblDMX.at(At(index)), index, 0);
        grid->addWidget(txtDMX.at(At(index)), index, 1);
    }
    grid->addWidget(lblUSITT, StartSync, 2);
    grid->addWidget(lblLeerlaufzeit, IdleTime, 2);
    grid->addWidget(cckAutoDMXmax, SendChannels, 2, Qt::AlignLeft);
    grid->setColumnStretch(2, 1);
    return grid;
}

QWidget* frmOptions::RepeatGroup() {
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins({});
    layout->setSpacing(Section);
    layout->addWidget(OptDMXSend[0]);
    layout->addWidget(OptDMXSend[1]);
    layout->addStretch();
    layout->addWidget(cmdDefaultDMX);
    return line;
}

QWidget* frmOptions::DmxPage() {
    auto* frame = new QGroupBox(pageTitles[0]);
    frame->setObjectName("fraSample2");
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->addLayout(DmxGrid());
    layout->addSpacing(Spacing);
    layout->addWidget(RepeatGroup());
    layout->addStretch();
    return frame;
}

QWidget* frmOptions::FilesPage() {
    auto* frame = new QGroupBox(pageTitles[1]);
    frame->setObjectName("fraSample1");
    auto* grid = new QGridLayout;
    grid->setSpacing(Spacing);
    for (int index = 0; index < 4; ++index) {
        grid->addWidget(lblPath.at(At(index)), index, 0);
        grid->addWidget(txtPath.at(At(index)), index, 1);
    }
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addWidget(chkAutoStart, 0, Qt::AlignLeft);
    layout->addSpacing(Spacing);
    layout->addWidget(lblAutoStart);
    layout->addLayout(grid);
    layout->addStretch();
    return frame;
}

// The last two pages are empty, on purpose.
void frmOptions::Arrange() {
    const std::array<QWidget*, 4> frames{DmxPage(), FilesPage(), new QGroupBox(pageTitles[2]),
                                         new QGroupBox(pageTitles[3])};
    frames[2]->setObjectName("fraSample3");
    frames[3]->setObjectName("fraSample4");
    for (int position = 0; position < 4; ++position) {
        auto* page = new QWidget;
        page->setObjectName(QString("picOptions(%1)").arg(position));
        page->setAccessibleName(pageTitles.at(At(position)));
        auto* filled = new QVBoxLayout(page);
        filled->setContentsMargins({});
        filled->addWidget(frames.at(At(position)));
        picOptions.at(At(position)) = page;
        pages->addWidget(page);
        tbsOptions->addTab(pageTitles.at(At(position)));
    }
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Spacing);
    buttons->addStretch();
    for (QPushButton* button : {cmdOK, cmdCancel, cmdApply}) buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addWidget(tbsOptions);
    layout->addWidget(pages, 1);
    layout->addLayout(buttons);
    setTabOrder(txtDMX[SendChannels], cckAutoDMXmax); // which stands in the same line
    setTabOrder(cckAutoDMXmax, txtDMX[SendRepeat]);
}

void frmOptions::ConnectControls() {
    for (int index = StartSync; index <= SendRepeat; ++index) {
        Field* field = txtDMX.at(At(index));
        field->LostFocus = [this, index] { txtDMX_LostFocus(index); };
        connect(field, &QLineEdit::textChanged, this, [this] { ShowLength(); });
    }
    connect(tbsOptions, &QTabBar::currentChanged, this, [this](int position) { tbsOptions_Click(position); });
    connect(cckAutoDMXmax, &QCheckBox::clicked, this, [this] { cckAutoDMXmax_Click(); });
    connect(cmdDefaultDMX, &QPushButton::clicked, this, [this] { cmdDefaultDMX_Click(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
    connect(cmdApply, &QPushButton::clicked, this, [this] { cmdApply_Click(); });
}

} // namespace quorvane
