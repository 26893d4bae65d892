#include "ui/frmElement.h"

#include "model/patch.h"
#include "model/screen.h"
#include "model/selection.h"
#include "model/text.h"
#include "platform/host.h"
#include "ui/field.h"
#include "ui/shown.h"
#include "ui/statusline.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace quorvane {

namespace {

constexpr int Margin = 12;  // pixels
constexpr int Spacing = 8;  // between controls that belong together
constexpr int Section = 16; // between groups of them

// Of txtElement: a channel's field has the channel's number, its correction stands four further on.
constexpr int Number = 0;
constexpr int White = 4;
constexpr int LastCorrection = 8;

constexpr std::string_view CorrectionRange = "Werte zwischen 0 und 255 .";

std::size_t At(int index) { return static_cast<std::size_t>(index); }

struct FieldText {
    const char* AccessibleName;
    const char* ToolTip;
};

constexpr const char* ChannelTip = "DMX Kanal für die entsprechende Farbe";
constexpr const char* CorrectionTip =
    "Dieser Wert wird nur am DMX Ausgang vom eigendlichen Ausgangswert abgezogen"; // spelt so on purpose

constexpr std::array<FieldText, 9> fieldTexts{{
    {"Nummer des Elements", "Nr. des Elements in der Wand"},
    {"DMX-Kanal Rot", ChannelTip},
    {"DMX-Kanal Grün", ChannelTip},
    {"DMX-Kanal Blau", ChannelTip},
    {"DMX-Kanal Weiß", ChannelTip},
    {"Korrekturfaktor Rot", CorrectionTip},
    {"Korrekturfaktor Grün", CorrectionTip},
    {"Korrekturfaktor Blau", CorrectionTip},
    {"Korrekturfaktor Weiß", CorrectionTip},
}};

// Of lblTitel.
enum Title : int {
    ElementTitle,
    ColourTitle,
    ChannelTitle,
    Red,
    Green,
    Blue,
    WhiteTitle,
    Correction,
    Factor
};

QLabel* TitleLabel(Title title) {
    constexpr std::array<const char*, 9> texts{"Element Nr.:", "Farbe",         "DMX Kanal",
                                               "ROT",          "GRÜN",          "BLAU",
                                               "WEISS",        "Farbkorrektur", "Korrekturfaktor"};
    auto* label = new QLabel(texts.at(At(title)));
    label->setObjectName(QString("lblTitel(%1)").arg(static_cast<int>(title)));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* Button(const char* name, const char* caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAccessibleName(caption);
    button->setAutoDefault(true); // Enter presses the button that has the focus
    return button;
}

} // namespace

frmElement::frmElement()
    : ChildWindow("frmElement", ElementWindow, Status::ElementWindowOpen),
      cmdColorCorrektion(Button("cmdColorCorrektion", "Farbkorrektur auf alle Elemente übertragen")),
      cmdOK(Button("cmdOK", "Fenster verlassen")), status(new StatusLine("Statuszeile des Patchfensters")) {
    setWindowTitle("Element");
    MakeFields();
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    auto* layout = new QVBoxLayout(this); // the order of the Tab key is that of the fields' making
    layout->setContentsMargins(Margin, Margin, Margin, Spacing);
    layout->setSpacing(Spacing);
    layout->addLayout(Arrangement());
    layout->addStretch();
    layout->addWidget(line);
    layout->addWidget(status);
    for (int index = Number; index < LastCorrection; ++index)
        setTabOrder(txtElement.at(At(index)), txtElement.at(At(index + 1)));
    setTabOrder(txtElement[LastCorrection], cmdColorCorrektion);
    setTabOrder(cmdColorCorrektion, cmdOK);
    connect(cmdColorCorrektion, &QPushButton::clicked, this, [this] { cmdColorCorrektion_Click(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { Frame()->close(); });
    FillScreen();
}

void frmElement::MakeFields() {
    for (int index = Number; index <= LastCorrection; ++index) {
        const FieldText& text = fieldTexts.at(At(index));
        auto* field = new Field(QString("txtElement(%1)").arg(index), text.AccessibleName);
        field->setToolTip(text.ToolTip);
        field->setAlignment(Qt::AlignRight);
        field->setMinimumWidth(field->fontMetrics().horizontalAdvance("000000") + 2 * Margin);
        field->KeyUp = [this, index](int key, const QString& typed) { txtElement_KeyUp(index, key, typed); };
        field->LostFocus = [this, index] { txtElement_LostFocus(index); };
        txtElement.at(At(index)) = field;
    }
}

// A line for each colour, with its channel and its correction beside it.
QLayout* frmElement::Arrangement() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Section);
    grid->setVerticalSpacing(Spacing);
    grid->addWidget(TitleLabel(ElementTitle), 0, 0);
    grid->addWidget(txtElement[Number], 0, 1);
    grid->setRowMinimumHeight(1, Section - Spacing);
    grid->addWidget(TitleLabel(Correction), 2, 2);
    grid->addWidget(TitleLabel(ColourTitle), 3, 0);
    grid->addWidget(TitleLabel(ChannelTitle), 3, 1);
    grid->addWidget(TitleLabel(Factor), 3, 2);
    for (int channel = 1; channel <= 4; ++channel) {
        QLabel* colour = TitleLabel(static_cast<Title>(Red + channel - 1));
        colour->setBuddy(txtElement.at(At(channel)));
        grid->addWidget(colour, 3 + channel, 0);
        grid->addWidget(txtElement.at(At(channel)), 3 + channel, 1);
        grid->addWidget(txtElement.at(At(White + channel)), 3 + channel, 2);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Spacing);
    buttons->addWidget(cmdColorCorrektion);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout;
    layout->setSpacing(Section);
    layout->addLayout(grid);
    layout->addLayout(buttons);
    return layout;
}

void frmElement::FillScreen() {
    Screen.ActivateElementWindow = [this] { Follow(); };
    Screen.PatchLoaded = [this] {
        if (isVisible()) TakeElementNumber();
    };
}

// To the front, which shows the selected element, and back again. The field that has the focus here meanwhile
// is none that the user leaves.
void frmElement::Follow() {
    QMdiArea* area = Frame()->mdiArea();
    QMdiSubWindow* before = area->activeSubWindow();
    QWidget* focus = QApplication::focusWidget();
    following = true;
    area->setActiveSubWindow(Frame());
    if (before == Frame())
        Form_Activate();
    else
        area->setActiveSubWindow(before);
    if (focus) focus->setFocus(Qt::ActiveWindowFocusReason); // the area may have chosen an earlier one
    following = false;
}

void frmElement::Form_Activate() {
    Show.StatusFlags.Set(Status::ElementWindowOpen);
    const bool one = Show.SelectedCount == 1;
    if (!one) Show.StatusFlags.Set(Status::PatchError);
    txtElement[Number]->Put(QString::number(one ? FirstSelectedElementNo() : Show.PatchElementNo));
    TakeElementNumber();
    if (!one) Show.StatusFlags.Clear(Status::PatchError);
    txtElement[Number]->selectAll();
}

void frmElement::txtElement_KeyUp(int index, int key, const QString& typed) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        ShowStatus("Mit TAB und Shift+TAB Felder wechseln");
    else if (!typed.isEmpty() && (typed.at(0) < QChar('0') || typed.at(0) > QChar('9')))
        ShowStatus("Es sind nur Zahlen erlaubt!");
    else if (index == Number)
        ShowStatus("Elementenr. eingeben und weiter mit TAB "); // trailing blank on purpose
    else if (index <= White)
        ShowStatus("Werte zwischen 1 und " + Decimal(Show.ChannelCount));
    else
        ShowStatus(CorrectionRange);
}

void frmElement::txtElement_LostFocus(int index) {
    if (following) return;
    refusedByTransfer = false;
    if (index == Number)
        TakeElementNumber();
    else if (ElementIsShown()) {
        const bool taken = index <= White ? TakeChannel(index) : TakeCorrection(index - White);
        refusedByTransfer = !taken && TransferIsPressed(index);
    }
}

// By the mouse, which has just taken the focus there, or while the field has the focus still. A key that only
// moves the focus on to the button does not press it.
bool frmElement::TransferIsPressed(int index) const {
    const bool byMouse = cmdColorCorrektion->hasFocus() && QApplication::mouseButtons() != Qt::NoButton;
    return byMouse || txtElement.at(At(index))->hasFocus();
}

// Another number in the first field than that of the element shown: what the other fields hold is not its
// own.
bool frmElement::ElementIsShown() const {
    const int element = NumberIn(Number);
    return element == Show.PatchEditElement && element >= 1 && element <= Show.ElementCount;
}

void frmElement::TakeElementNumber() {
    const int element = NumberIn(Number);
    if (element < 1 || element > Show.ElementCount) {
        ShowStatus("Element nicht vorhanden!");
        for (int index = 1; index <= LastCorrection; ++index) txtElement.at(At(index))->Put({});
        for (int channel = 1; channel <= 4; ++channel) ShowFault(channel, false);
        Show.StatusFlags.Clear(Status::PatchError);
        return;
    }
    Show.PatchEditElement = static_cast<std::uint8_t>(element);
    for (int channel = 1; channel <= 4; ++channel) {
        txtElement.at(At(channel))->Put(QString::number(Show.Patch[element][channel]));
        txtElement.at(At(White + channel))->Put(QString::number(Show.ColourCorrection[element][channel]));
    }
    for (int channel = 1; channel <= 4; ++channel) CheckForDuplicates(channel);
    Show.StatusFlags.Set(Status::PatchError); // also when there is no fault, on purpose
}

bool frmElement::TakeChannel(int channel) {
    const int wanted = NumberIn(channel);
    const bool taken = OutputReaches(wanted) && wanted > 0;
    if (taken) SetPatch(Show.PatchEditElement, channel, static_cast<std::int16_t>(wanted));
    txtElement.at(At(channel))->Put(QString::number(Show.Patch[Show.PatchEditElement][channel]));
    if (taken) {
        CheckForDuplicates(channel);
        return true;
    }
    Host.Beep();
    if (OutputReaches(wanted))
        ShowStatus(" Es gibt keinen DMX Kanal 0!");
    else
        ShowStatus("Die Karte ist auf " + Decimal(Show.ChannelCount) + " DMX-Kanäle eingestellt");
    return false;
}

bool frmElement::TakeCorrection(int channel) {
    const int wanted = NumberIn(White + channel);
    const bool taken = wanted >= 0 && wanted <= 255;
    if (taken)
        SetCorrection(Show.PatchEditElement, channel, static_cast<std::uint8_t>(wanted));
    else
        ShowStatus(CorrectionRange);
    txtElement.at(At(White + channel))
        ->Put(QString::number(Show.ColourCorrection[Show.PatchEditElement][channel]));
    return taken;
}

void frmElement::CheckForDuplicates(int channel) {
    const int other = ElementOnSameChannel(Show.PatchEditElement, channel);
    ShowFault(channel, other != 0);
    if (other == 0)
        ShowStatus("");
    else if (other == Show.PatchEditElement)
        ShowStatus("Kanal ist bereits von diesem Element belegt!");
    else {
        Host.Beep();
        ShowStatus("Kanal ist bereits von Element " + Decimal(other) + " belegt!");
    }
}

void frmElement::ShowFault(int channel, bool fault) {
    Field* field = txtElement.at(At(channel));
    QPalette colours = field->palette();
    colours.setColor(QPalette::Text, fault ? QColor(Qt::red) : palette().color(QPalette::WindowText));
    field->setPalette(colours);
    faulty.at(At(channel)) = fault;
}

// The channel of the first red field, 0 when there is none.
int frmElement::FirstFault() const {
    const auto* first = std::find(faulty.begin(), faulty.end(), true);
    return first == faulty.end() ? 0 : static_cast<int>(first - faulty.begin());
}

// Without an element there is nothing to transfer, unless somebody has typed it. When the click itself had a
// number refused, what has come back in its place is not what somebody means to give to all.
void frmElement::cmdColorCorrektion_Click() {
    CheckFocusedField();
    if (std::exchange(refusedByTransfer, false)) return;
    PerChannel<std::uint8_t> corrections;
    bool nothingStands = true;
    for (int channel = 1; channel <= 4; ++channel) {
        const int value = NumberIn(White + channel);
        if (value < 0 || value > 255) return ShowStatus(CorrectionRange);
        corrections[channel] = static_cast<std::uint8_t>(value);
        nothingStands = nothingStands && txtElement.at(At(White + channel))->text().isEmpty();
    }
    if (nothingStands && !ElementIsShown()) return ShowStatus("Element nicht vorhanden!");
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (int channel = 1; channel <= 4; ++channel) SetCorrection(element, channel, corrections[channel]);
    ShowStatus("Farbanpassung auf alle Elemente übertragen.");
}

void frmElement::closeEvent(QCloseEvent* event) {
    cmdOK->setFocus(Qt::OtherFocusReason); // what was typed last is checked first
    const int fault = FirstFault();
    if (fault != 0 && Host.MsgBox("Sie haben noch Fehler in Ihrer Patchtabelle! Wollen Sie das Patchfenster "
                                  "trotzdem verlassen?",
                                  Buttons::OkCancel, ApplicationTitle, Icon::Question) != Answer::Ok) {
        txtElement.at(At(fault))->setFocus(Qt::OtherFocusReason);
        event->ignore();
        return;
    }
    ChildWindow::closeEvent(event);
}

int frmElement::NumberIn(int index) const {
    return TypedNumber(txtElement.at(At(index))->text().toStdString());
}

void frmElement::ShowStatus(std::string_view text) { status->lblStatus->setText(Shown(text)); }

} // namespace quorvane
