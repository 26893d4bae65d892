// The colour window's controls: what they are called, what they say, and where they stand.
#include "model/show.h"
#include "ui/colourfields.h"
#include "ui/field.h"
#include "ui/frmColor.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include <vector>

namespace quorvane {

namespace {

constexpr int Margin = 12;  // pixels
constexpr int Spacing = 8;  // between controls that belong together
constexpr int Section = 16; // between groups of them

constexpr std::size_t Preview = 4; // of lblFarbe
constexpr std::size_t NameCaption = 5;
constexpr std::size_t NumberCaption = 6;
constexpr std::size_t Hint = 7;

constexpr std::array<const char*, 4> Channels{"Rot", "Grün", "Blau", "Weiß"};
// The filled part of each slider, muted, so that it never outshines the colours themselves.
constexpr std::array<unsigned, 4> SliderTints{0xa84848u, 0x4c9058u, 0x4a74b8u, 0xa8acb2u};

QLabel* Caption(std::size_t index, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(QString("lblFarbe(%1)").arg(index));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* Button(int index, const char* caption, const char* tip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QString("cmdColor(%1)").arg(index));
    button->setAccessibleName(QString(caption).remove('&'));
    button->setAutoDefault(true); // Enter presses the button that has the focus
    button->setToolTip(tip);
    return button;
}

QCheckBox* Box(const char* name, const char* caption, const char* tip) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setAccessibleName(caption);
    box->setToolTip(tip);
    return box;
}

void SetWidthFor(Field* field, const char* widest) {
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(widest) + 2 * Margin);
    field->setAlignment(Qt::AlignHCenter);
}

} // namespace

frmColor::frmColor()
    : ChildWindow("frmColor", ColourWindow, Status::ColourWindowOpen), fields(new ColourFields),
      lblStatus(new QLabel("Statuszeile")) {
    MakeSliders();
    MakeButtons();
    MakeTable();
    lblStatus->setObjectName("lblStatus");
    lblStatus->setAccessibleName("Statuszeile der Farben");
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);

    auto* above = new QHBoxLayout;
    above->setSpacing(Section);
    above->addLayout(SliderLayout());
    above->addLayout(MixLayout(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Spacing);
    layout->setSpacing(Spacing);
    layout->addLayout(above, 1);
    layout->addSpacing(Spacing);
    layout->addLayout(TableLayout());
    layout->addWidget(line);
    layout->addWidget(lblStatus);
    SetTabOrder();
    ConnectControls();
    FillScreen();
}

void frmColor::MakeSliders() {
    for (std::size_t index = 0; index < Channels.size(); ++index) {
        const QString channel = Channels[index];
        auto* slider = new QSlider(Qt::Vertical);
        slider->setObjectName(QString("ScrFarbe(%1)").arg(index));
        slider->setAccessibleName(channel);
        slider->setRange(0, 255);
        slider->setPageStep(10);
        slider->setMinimumHeight(130);
        QPalette tinted = slider->palette();
        tinted.setColor(QPalette::Highlight, QColor(SliderTints[index]));
        slider->setPalette(tinted);
        ScrFarbe[index] = slider;

        txtFarbe[index] = new Field(QString("txtFarbe(%1)").arg(index), channel + ", Zahl");
        txtFarbe[index]->setToolTip("Farbwert "); // trailing blank on purpose
        SetWidthFor(txtFarbe[index], "0000");
        lblFarbe[index] = Caption(index, channel);
        lblFarbe[index]->setBuddy(txtFarbe[index]);
    }
    lblFarbe[Preview] = Caption(Preview, {});
    lblFarbe[Preview]->setAccessibleName("Vorschau der Farbe");
    lblFarbe[Preview]->setToolTip("Zeigt die aktuelle Farbmischung an");
    lblFarbe[Preview]->setAutoFillBackground(true);
    lblFarbe[Preview]->setMinimumSize(160, 60);
    lblFarbe[Preview]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void frmColor::MakeButtons() {
    cmdColor = {
        Button(0, "Farbe &holen", "Holt sich die Farbe von einem selektierten Element"),
        Button(1, "Farbe &übernehmen", "Überträgt die Farbe an alle selektierten Elemente"),
        Button(2, "Farbe &wählen", "Überträgt die Farbe an alle selektierten Elemente"), // as meant
        Button(3, "Hin&zufügen >", "Speichern der aktuellen Farbe in der Farbtabelle"),
    };
    chkCHange = Box("chkCHange", "sofort übernehmen", "Änderungen werden sofort in die Scene übernommen");
    chkMindest = Box("chkMindest", "Mindest-Farbwert \"1\"", "Mindestansteuerung für die EVG");
}

void frmColor::MakeTable() {
    lblFarbe[NameCaption] = Caption(NameCaption, "Name der Farbe");
    lblFarbe[NumberCaption] = Caption(NumberCaption, "Nr.:");
    lblFarbe[Hint] = Caption(Hint, "Farb-Feld anklicken!");
    lblFarbe[Hint]->setAccessibleName("Hinweis");
    QSizePolicy place = lblFarbe[Hint]->sizePolicy();
    place.setRetainSizeWhenHidden(true); // nothing moves when the hint comes
    lblFarbe[Hint]->setSizePolicy(place);
    QPalette marked = lblFarbe[Hint]->palette();
    marked.setColor(QPalette::WindowText, marked.color(QPalette::Link));
    lblFarbe[Hint]->setPalette(marked);
    lblFarbe[Hint]->hide();

    txtFarbNr = new Field("txtFarbNr", "Nummer der Farbe");
    SetWidthFor(txtFarbNr, "000");
    lblFarbe[NumberCaption]->setBuddy(txtFarbNr);
    txtFarbName = new Field("txtFarbName", "Name der Farbe");
    lblFarbe[NameCaption]->setBuddy(txtFarbName);
    fields->setAccessibleName("Farbtabelle");
}

QLayout* frmColor::SliderLayout() {
    auto* sliders = new QGridLayout;
    sliders->setSpacing(Spacing);
    for (int column = 0; column < 4; ++column) {
        const auto index = static_cast<std::size_t>(column);
        sliders->addWidget(lblFarbe[index], 0, column, Qt::AlignHCenter);
        sliders->addWidget(ScrFarbe[index], 1, column, Qt::AlignHCenter);
        sliders->addWidget(txtFarbe[index], 2, column);
    }
    sliders->setRowStretch(1, 1);
    return sliders;
}

QLayout* frmColor::MixLayout() {
    auto* mix = new QGridLayout;
    mix->setSpacing(Spacing);
    mix->addWidget(lblFarbe[Preview], 0, 0, 1, 2);
    mix->addWidget(cmdColor[0], 1, 0);
    mix->addWidget(cmdColor[1], 1, 1);
    mix->addWidget(cmdColor[2], 2, 0);
    mix->addWidget(cmdColor[3], 2, 1);
    mix->addWidget(chkCHange, 3, 0);
    mix->addWidget(chkMindest, 3, 1);
    mix->setRowStretch(0, 1);
    mix->setColumnStretch(0, 1);
    mix->setColumnStretch(1, 1);
    return mix;
}

QLayout* frmColor::TableLayout() {
    auto* entry = new QHBoxLayout;
    entry->setSpacing(Spacing);
    entry->addWidget(lblFarbe[NumberCaption]);
    entry->addWidget(txtFarbNr);
    entry->addSpacing(Spacing);
    entry->addWidget(lblFarbe[NameCaption]);
    entry->addWidget(txtFarbName, 1);
    entry->addSpacing(Spacing);
    entry->addWidget(lblFarbe[Hint]);
    auto* table = new QVBoxLayout;
    table->setSpacing(Spacing);
    table->addWidget(fields);
    table->addLayout(entry);
    return table;
}

void frmColor::SetTabOrder() {
    std::vector<QWidget*> order(ScrFarbe.begin(), ScrFarbe.end());
    order.insert(order.end(), txtFarbe.begin(), txtFarbe.end());
    order.insert(order.end(), {cmdColor[1], cmdColor[0], cmdColor[2], cmdColor[3], chkCHange, chkMindest});
    order.insert(order.end(), fields->txtUserColor.begin(), fields->txtUserColor.end());
    order.insert(order.end(), {txtFarbNr, txtFarbName});
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

} // namespace quorvane
