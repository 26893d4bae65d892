#include "ui/frmDMX.h"

#include "engine/outputclock.h"
#include "model/screen.h"
#include "model/text.h"
#include "platform/host.h"
#include "ui/field.h"
#include "ui/keys.h"
#include "ui/statusline.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include <vector>

namespace quorvane {

namespace {

constexpr int Margin = 12;  // pixels
constexpr int Spacing = 8;  // between controls that belong together
constexpr int Section = 16; // between groups of them

constexpr int Rows = 8;
constexpr unsigned TestModeColour = 0xff5050; // a light red

std::size_t At(int index) { return static_cast<std::size_t>(index); }

QString Named(const char* name, int index) { return QString("%1(%2)").arg(name).arg(index); }

bool IsChannel(int channel) { return channel >= 1 && channel <= DmxChannels; }

void SetWidthForNumber(QLineEdit* field) {
    field->setFixedWidth(field->fontMetrics().horizontalAdvance("0000") + 2 * Margin);
    field->setAlignment(Qt::AlignHCenter);
}

QLabel* PlainLabel(const char* text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

frmDMX::frmDMX()
    : ChildWindow("frmDMX", TestWindow, Status::TestWindowOpen), cmdDMX(new QPushButton("Testmode starten")),
      Frame1(new QFrame), lblDMX(new QLabel("Es wurde kein DMX Interface erkannt")),
      status(new StatusLine("Statuszeile des DMX-Tests")), monitor([this] { ShowLevels(); }) {
    setWindowTitle("DMX Test");
    setAutoFillBackground(true);
    for (int index = 0; index < Rows; ++index) MakeRow(index);
    MakeNotice();
    cmdDMX->setObjectName("cmdDMX");
    cmdDMX->setAccessibleName("Testmode");
    cmdDMX->setToolTip(
        "Startet / Stopt den Testmodus wobei die DMX - Ausgabe nur noch über dieses Fenster erfolgt");
    cmdDMX->setAutoDefault(true); // Enter presses the button that has the focus
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Spacing);
    layout->setSpacing(Spacing);
    layout->addLayout(Faders(), 1);
    layout->addSpacing(Spacing);
    layout->addLayout(Foot());
    layout->addWidget(line);
    layout->addWidget(status);
    SetTabOrder();
    ConnectControls();
    FillScreen();
}

void frmDMX::MakeRow(int index) {
    const QString number = QString::number(index + 1);
    auto* slider = new QSlider(Qt::Vertical);
    slider->setObjectName(Named("ScrDMX", index));
    slider->setAccessibleName("Fader " + number);
    slider->setRange(0, 255);
    slider->setPageStep(10);
    slider->setMinimumHeight(130);
    ScrDMX.at(At(index)) = slider;

    auto* level = PlainLabel("0");
    level->setObjectName(Named("lblFader", index));
    level->setAlignment(Qt::AlignHCenter);
    lblFader.at(At(index)) = level;

    auto* channel = new Field(Named("txtPatch", index), "DMX-Kanal von Fader " + number);
    channel->setToolTip("DMX - Kanal auf den sich der Faderwert und DMX Out bezieht");
    SetWidthForNumber(channel);
    txtPatch.at(At(index)) = channel;

    auto* output = new QLineEdit("0");
    output->setObjectName(Named("txtDMX", index));
    output->setAccessibleName("DMX Out von Fader " + number);
    output->setToolTip("Wert im RAM der DMX - Karte  "); // two trailing blanks on purpose
    output->setReadOnly(true);
    output->setFocusPolicy(Qt::NoFocus);
    SetWidthForNumber(output);
    QPalette colours = output->palette();
    colours.setColor(QPalette::Base, palette().color(QPalette::Window));
    output->setPalette(colours);
    txtDMX.at(At(index)) = output;
}

void frmDMX::MakeNotice() {
    Frame1->setObjectName("Frame1");
    Frame1->setFrameStyle(QFrame::Box | QFrame::Plain);
    lblDMX->setObjectName("lblDMX");
    lblDMX->setAccessibleName("Hinweis");
    lblDMX->setTextFormat(Qt::PlainText);
    auto* layout = new QVBoxLayout(Frame1);
    layout->setContentsMargins(Spacing, Spacing / 2, Spacing, Spacing / 2);
    layout->addWidget(lblDMX);
    QSizePolicy place = Frame1->sizePolicy();
    place.setRetainSizeWhenHidden(true); // nothing moves when the notice goes
    Frame1->setSizePolicy(place);
}

QLayout* frmDMX::Faders() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Spacing);
    grid->setVerticalSpacing(Spacing);
    grid->addWidget(PlainLabel("DMX-Kanal"), 0, 0);
    grid->addWidget(PlainLabel("Fader"), 2, 0);
    grid->addWidget(PlainLabel("DMX Out"), 3, 0);
    for (int index = 0; index < Rows; ++index) {
        grid->addWidget(txtPatch.at(At(index)), 0, index + 1, Qt::AlignHCenter);
        grid->addWidget(ScrDMX.at(At(index)), 1, index + 1, Qt::AlignHCenter);
        grid->addWidget(lblFader.at(At(index)), 2, index + 1);
        grid->addWidget(txtDMX.at(At(index)), 3, index + 1, Qt::AlignHCenter);
        grid->setColumnStretch(index + 1, 1);
    }
    grid->setRowStretch(1, 1);
    return grid;
}

QLayout* frmDMX::Foot() {
    auto* foot = new QHBoxLayout;
    foot->setSpacing(Section);
    foot->addWidget(cmdDMX);
    foot->addWidget(Frame1);
    foot->addStretch();
    return foot;
}

void frmDMX::SetTabOrder() {
    std::vector<QWidget*> order(txtPatch.begin(), txtPatch.end());
    order.insert(order.end(), ScrDMX.begin(), ScrDMX.end());
    order.push_back(cmdDMX);
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

void frmDMX::ConnectControls() {
    for (int index = 0; index < Rows; ++index) {
        Field* channel = txtPatch.at(At(index));
        connect(ScrDMX.at(At(index)), &QSlider::valueChanged, this, [this, index] { ScrDMX_Change(index); });
        channel->KeyPress = [this](const QString& typed) { return txtPatch_KeyPress(typed); };
        channel->LostFocus = [this, index] { txtPatch_LostFocus(index); };
        connect(channel, &QLineEdit::returnPressed, this, [this, index] { txtPatch_LostFocus(index); });
    }
    connect(cmdDMX, &QPushButton::clicked, this, [this] { cmdDMX_Click(); });
}

void frmDMX::FillScreen() {
    Screen.MonitorValue = [this](int row, int value) {
        levels.at(At(row)) = value;
        monitor.Ask();
    };
    Screen.TestModeEnded = [this] {
        ShowTestMode(false);
        ShowStatus("Testmodus aus. DMX-Werte entsprechen den Ausgabewerten.");
    };
}

void frmDMX::ShowLevels() {
    for (int row = 0; row < Rows; ++row) {
        const auto level = levels.at(At(row));
        if (shown.at(At(row)) == level) continue;
        shown.at(At(row)) = level;
        txtDMX.at(At(row))->setText(QString::number(level));
    }
}

// The faders stand where their channels' levels do, so that starting the test mode changes none of them.
void frmDMX::Form_Load() {
    Show.StatusFlags.Set(Status::Monitor);
    for (int index = 0; index < Rows; ++index) {
        const int channel = Show.MonitorChannel[index];
        txtPatch.at(At(index))->Put(QString::number(channel));
        const QSignalBlocker quiet(ScrDMX.at(At(index)));
        const int level = Show.TestLevels[channel - 1];
        ScrDMX.at(At(index))->setValue(level);
        lblFader.at(At(index))->setText(QString::number(level));
    }
    ShowStatus("DMX Out-Werte entsprechen dem Kartenausgang");
    Refresh();
}

void frmDMX::Form_Activate() { Refresh(); }

bool frmDMX::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) Refresh(); // also after a dialog that chose an interface
    return ChildWindow::event(event);
}

void frmDMX::Refresh() {
    Frame1->setVisible(Show.InterfaceType == NoInterface);
    ShowMonitor();
}

void frmDMX::ScrDMX_Change(int index) {
    const int level = ScrDMX.at(At(index))->value();
    lblFader.at(At(index))->setText(QString::number(level));
    const int channel = TypedNumber(txtPatch.at(At(index))->text().toStdString());
    if (!IsChannel(channel)) return; // half typed
    Show.TestLevels[channel - 1] = static_cast<std::uint8_t>(level);
    Show.StatusFlags.Set(Status::TestMode);
    ShowTestMode(true);
    ShowStatus("Testmodus aktiv, DMX Ausgaben nur in diesem Fenster!");
}

void frmDMX::cmdDMX_Click() {
    CheckFocusedField();
    if (Show.StatusFlags.Has(Status::TestMode))
        TestModeOff();
    else
        ScrDMX_Change(0);
}

// What is read on the red stays readable.
void frmDMX::ShowTestMode(bool on) {
    QPalette colours;
    if (on) {
        colours.setColor(QPalette::Window, QColor(TestModeColour));
        colours.setColor(QPalette::WindowText, Qt::black);
    }
    setPalette(colours);
    cmdDMX->setText(on ? "Testmode beenden" : "Testmode starten");
}

bool frmDMX::txtPatch_KeyPress(const QString& typed) {
    if (typed.isEmpty() || (typed.at(0) >= QChar('0') && typed.at(0) <= QChar('9'))) return true;
    ShowStatus("Nur Zahlen sind erlaubt!");
    return false;
}

void frmDMX::txtPatch_LostFocus(int index) {
    if (!Show.StatusFlags.Has(Status::TestWindowOpen)) return; // was checked before it closed
    Field* field = txtPatch.at(At(index));
    const int channel = TypedNumber(field->text().toStdString());
    if (IsChannel(channel))
        Show.MonitorChannel[index] = static_cast<std::int16_t>(channel);
    else {
        Host.Beep();
        ShowStatus("Unzulässiger Wert! DMX-Kanal 1 - 512 angeben.");
    }
    field->Put(QString::number(Show.MonitorChannel[index]));
    Show.StatusFlags.Set(Status::Monitor);
    ShowMonitor();
}

void frmDMX::closeEvent(QCloseEvent* event) {
    ChildWindow::closeEvent(event);
    if (Show.StatusFlags.Has(Status::TestMode)) TestModeOff();
    Show.StatusFlags.Clear(Status::Monitor);
}

void frmDMX::keyPressEvent(QKeyEvent* event) {
    if (!TakeSelectionKey(event)) ChildWindow::keyPressEvent(event);
}

void frmDMX::ShowStatus(const char* text) { status->lblStatus->setText(text); }

} // namespace quorvane
