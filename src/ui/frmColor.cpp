#include "ui/frmColor.h"

#include "engine/outputclock.h"
#include "files/filechoice.h"
#include "model/colour.h"
#include "model/screen.h"
#include "model/text.h"
#include "platform/host.h"
#include "ui/colourfields.h"
#include "ui/field.h"
#include "ui/keys.h"
#include "ui/shown.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

namespace quorvane {

namespace {

constexpr std::size_t Preview = 4; // of lblFarbe
constexpr std::size_t Hint = 7;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

bool IsLevel(const QString& text) {
    const std::int32_t number = TypedNumber(text.toStdString());
    return !text.isEmpty() && number >= 0 && number <= 255;
}

} // namespace

void frmColor::ConnectControls() {
    for (int index = 0; index < 4; ++index) {
        connect(ScrFarbe[At(index)], &QSlider::valueChanged, this, [this, index] { ScrFarbe_Change(index); });
        txtFarbe[At(index)]->KeyUp = [this, index](int key, const QString& typed) {
            txtFarbe_KeyUp(index, key, typed);
        };
        txtFarbe[At(index)]->LostFocus = [this, index] { txtFarbe_LostFocus(index); };
        connect(cmdColor[At(index)], &QPushButton::clicked, this, [this, index] { cmdColor_Click(index); });
    }
    fields->Clicked = [this](int index) { txtUserColor_Click(index); };
    txtFarbNr->KeyUp = [this](int key, const QString&) { txtFarbNr_KeyUp(key); };
    txtFarbNr->LostFocus = [this] { ShowNumberAndName(); };
    txtFarbName->LostFocus = [this] { txtFarbName_LostFocus(); };
    connect(txtFarbName, &QLineEdit::returnPressed, this, [this] { txtFarbName_LostFocus(); });
    connect(chkCHange, &QCheckBox::toggled, this, [this] { chkCHange_Click(); });
    connect(chkMindest, &QCheckBox::toggled, this, [this] { chkMindest_Click(); });
}

void frmColor::FillScreen() {
    Screen.ColourStatus = [this](std::string_view text) { lblStatus->setText(Shown(text)); };
    Screen.ColourTableLoaded = [this] {
        ShowCaption();
        for (int number = 1; number <= 20; ++number) ShowUserColour(number);
        ShowNumberAndName();
    };
}

void frmColor::Form_Load() {
    ShowCaption();
    lblFarbe[Hint]->hide();
    chkMindest->setChecked(false);
    ShowInSliders(Show.CurrentColour);
    ShowStatus("Statuszeile");
    const bool atOnce = Show.StatusFlags.Has(Status::ApplyAtOnce);
    {
        const QSignalBlocker quiet(chkCHange);
        chkCHange->setChecked(atOnce);
    }
    if (atOnce) chkCHange_Click(); // gives the selection the colour, on purpose
    ShowTable();
    ShowNumberAndName();
}

void frmColor::ShowCaption() {
    setWindowTitle(ShownAsTitle("Color Fenster " + FileNamePart(Show.ColourTableFile)));
}

// Each colour passes through CurrentColour, which is left at the twentieth on purpose.
void frmColor::ShowTable() {
    for (int number = 1; number <= 20; ++number) {
        Show.CurrentColour = Show.UserColour[number];
        ShowPreview();
        ShowUserColour(number);
    }
}

void frmColor::ShowUserColour(int number) {
    fields->txtUserColor.at(At(number - 1))->Paint(Colormix(Show.UserColour[number]));
    const QString name = Shown(TrimmedRight(Show.UserColourName[number]));
    fields->txtUserColor.at(At(number - 1))->setAccessibleName(QString("Farbe %1: %2").arg(number).arg(name));
}

void frmColor::ShowNumberAndName() {
    const int number = Show.SelectedUserColour;
    txtFarbNr->Put(number == 0 ? QString() : QString::number(number));
    txtFarbName->Put(number == 0 ? QString() : Shown(TrimmedRight(Show.UserColourName[number])));
}

void frmColor::ShowPreview() {
    const ScreenColour mixed = Colormix(Show.CurrentColour);
    QPalette colours = lblFarbe[Preview]->palette();
    colours.setColor(QPalette::Window, QColor(mixed.Red, mixed.Green, mixed.Blue));
    lblFarbe[Preview]->setPalette(colours);
}

void frmColor::ShowStatus(const char* text) { lblStatus->setText(text); }

void frmColor::EndTestMode() {
    const bool wasOn = Show.StatusFlags.Has(Status::TestMode);
    if (wasOn) TestModeOff();
    ShowStatus("");
    SayTestModeEnded(wasOn);
}

// Each slider clears the line that the one before it has written, so a command that moves several says this
// again at its end.
void frmColor::SayTestModeEnded(bool wasOn) {
    if (wasOn && !Show.StatusFlags.Has(Status::TestMode)) ShowStatus("Testmodus wurde abgeschaltet");
}

void frmColor::ScrFarbe_Change(int index) {
    const int level = ScrFarbe[At(index)]->value();
    Show.CurrentColour[index + 1] = static_cast<std::uint8_t>(level);
    txtFarbe[At(index)]->Put(QString::number(level));
    ShowPreview();
    EndTestMode();
    if (Show.StatusFlags.Has(Status::ApplyAtOnce)) ApplyColourToSelection();
}

void frmColor::SetSlider(int index, std::uint8_t level) {
    {
        const QSignalBlocker quiet(ScrFarbe[At(index)]);
        ScrFarbe[At(index)]->setValue(SliderLevel(level, chkMindest->isChecked()));
    }
    ScrFarbe_Change(index);
}

void frmColor::SetSliders(PerChannel<std::uint8_t> colour) {
    for (int index = 0; index < 4; ++index) SetSlider(index, colour[index + 1]);
}

void frmColor::ShowInSliders(const PerChannel<std::uint8_t>& colour) {
    for (int index = 0; index < 4; ++index) {
        const QSignalBlocker quiet(ScrFarbe[At(index)]);
        ScrFarbe[At(index)]->setValue(SliderLevel(colour[index + 1], chkMindest->isChecked()));
        txtFarbe[At(index)]->Put(QString::number(ScrFarbe[At(index)]->value()));
    }
}

// The text is written after the focus has moved, which may clear the line; a fault found then stays.
void frmColor::txtFarbe_KeyUp(int index, int key, const QString& typed) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        const bool valid = !txtFarbe[At(index)]->Edited() || IsLevel(txtFarbe[At(index)]->text());
        QWidget* next = index < 3 ? static_cast<QWidget*>(txtFarbe[At(index + 1)]) : cmdColor[1];
        next->setFocus(Qt::TabFocusReason);
        if (valid) ShowStatus("Bitte mit TAB weitergehen.");
    } else if (!IsNumberText(typed)) {
        txtFarbe[At(index)]->Put(QString::number(ScrFarbe[At(index)]->value()));
        ShowStatus(" Es sind nur Zahlen erlaubt!");
    }
}

void frmColor::txtFarbe_LostFocus(int index) {
    Field& field = *txtFarbe[At(index)];
    if (!field.Edited())
        field.Put(QString::number(ScrFarbe[At(index)]->value()));
    else if (IsLevel(field.text()))
        SetSlider(index, static_cast<std::uint8_t>(TypedNumber(field.text().toStdString())));
    else {
        field.Put("0"); // the slider keeps its value, on purpose
        Host.Beep();
        ShowStatus("Es sind nur Werte zwischen 0 und 255 möglich!");
    }
}

void frmColor::cmdColor_Click(int index) {
    const bool testMode = Show.StatusFlags.Has(Status::TestMode);
    CheckFocusedField();
    EndTestMode();
    switch (index) {
    case 0: FetchColour(); break;
    case 1: ApplyColourToSelection(); break;
    case 2: ChooseColour(); break;
    default: AskForField(); return; // has a text of its own
    }
    SayTestModeEnded(testMode);
}

void frmColor::AskForField() {
    lblFarbe[Hint]->show();
    ShowStatus("Bitte die Farbnr. angeben oder klicken auf eine.");
}

// Fetching never writes back into the scene.
void frmColor::FetchColour() {
    if (Show.SelectedCount == 0) return;
    const bool atOnce = Show.StatusFlags.Has(Status::ApplyAtOnce);
    Show.StatusFlags.Clear(Status::ApplyAtOnce);
    FetchColourFromSelection();
    SetSliders(Show.CurrentColour);
    if (atOnce) Show.StatusFlags.Set(Status::ApplyAtOnce);
}

// White stays as it is.
void frmColor::ChooseColour() {
    const auto& mixed = Show.CurrentColour;
    const auto chosen = Host.AskColour(ScreenColourNumber({mixed[1], mixed[2], mixed[3]}));
    if (!chosen) return;
    const ScreenColour colour = SplitScreenColour(*chosen);
    SetSlider(0, colour.Red);
    SetSlider(1, colour.Green);
    SetSlider(2, colour.Blue);
}

void frmColor::txtUserColor_Click(int index) {
    CheckFocusedField();
    if (lblFarbe[Hint]->isHidden())
        PickColour(index + 1);
    else
        StoreColour(index + 1);
    ShowNumberAndName();
    if (txtFarbName->hasFocus()) txtFarbName->selectAll(); // what is typed now replaces the old name
}

void frmColor::StoreColour(int number) {
    lblFarbe[Hint]->hide();
    ShowPreview();
    StoreUserColour(number);
    ShowUserColour(number);
    txtFarbName->setFocus(Qt::OtherFocusReason);
}

void frmColor::PickColour(int number) {
    const bool testMode = Show.StatusFlags.Has(Status::TestMode);
    Show.SelectedUserColour = static_cast<std::uint8_t>(number);
    SetSliders(Show.UserColour[number]);
    cmdColor[1]->setFocus(Qt::OtherFocusReason);
    SayTestModeEnded(testMode);
}

void frmColor::txtFarbNr_KeyUp(int key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return;
    const std::int32_t number = TypedNumber(txtFarbNr->text().toStdString());
    if (number >= 1 && number <= 20)
        txtUserColor_Click(number - 1);
    else
        ShowNumberAndName();
}

void frmColor::txtFarbName_LostFocus() {
    const int number = TypedNumber(txtFarbNr->text().toStdString());
    if (txtFarbName->text().isEmpty() || number < 1 || number > 20) {
        ShowNumberAndName();
        return;
    }
    RenameUserColour(number, txtFarbName->text().toStdString());
    ShowUserColour(number);
    ShowNumberAndName();
    ShowStatus("Namen der Farbe gespeichert");
}

void frmColor::chkCHange_Click() {
    if (chkCHange->isChecked()) {
        Show.StatusFlags.Set(Status::ApplyAtOnce);
        SetSliders(
            Show.CurrentColour); // one colour for all, and not a mixture of the sliders' and the table's
        ShowStatus(" Änderungen werden sofort übernommen!");
    } else {
        Show.StatusFlags.Clear(Status::ApplyAtOnce);
        ShowStatus("");
    }
}

// A slider that stands below the new bottom moves up and runs its change. Right after opening the colour
// being mixed may be 0 where its slider is not, and is lifted too.
void frmColor::chkMindest_Click() {
    const bool testMode = Show.StatusFlags.Has(Status::TestMode);
    const bool lowest = chkMindest->isChecked();
    for (int index = 0; index < 4; ++index) {
        ScrFarbe[At(index)]->setMinimum(lowest ? 1 : 0);
        if (lowest && Show.CurrentColour[index + 1] == 0) SetSlider(index, 0);
    }
    SayTestModeEnded(testMode);
}

void frmColor::keyPressEvent(QKeyEvent* event) {
    if (!TakeSelectionKey(event)) ChildWindow::keyPressEvent(event);
}

} // namespace quorvane
