#include "ui/frmControl.h"

#include "engine/sequencer.h"
#include "engine/sequencerfields.h"
#include "files/guard.h"
#include "model/screen.h"
#include "ui/field.h"
#include "ui/keys.h"
#include "ui/shown.h"
#include "ui/statusline.h"
#include "ui/transporticons.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <vector>

namespace quorvane {

namespace {

constexpr int Margin = 12;  // pixels
constexpr int Spacing = 8;  // between controls that belong together
constexpr int Section = 16; // between groups of them

std::size_t At(int index) { return static_cast<std::size_t>(index); }

struct FieldText {
    const char* Caption;
    const char* ToolTip;
    const char* AccessibleName;
};

constexpr std::array<FieldText, 4> fieldTexts{{
    {"SZENE", "Nr. der Szene in der Sequenz ", "Nummer der Szene"}, // trailing blank on purpose
    {"Blendezeit", "Geschwindigkeit in der der Sequenzer überblendet", "Blendezeit"},
    {"Haltezeit", "Wartezeit für eine Szene vor der Überblendung", "Haltezeit"},
    {"Faktor", "Abspielgeschwindigkeit der Sequenz", "Faktor, Zahl"},
}};

struct ButtonText {
    const char* Caption;
    const char* ToolTip;
    Transport Picture;
};

constexpr std::array<ButtonText, 7> buttonTexts{{
    {"Eine Szene zurück", "", Transport::Previous},
    {"REC", "Szene in der Sequenz speichern", Transport::Record},
    {"PLAY", "Sequenz abspielen", Transport::Play},
    {"STOP", "Sequenz stoppen", Transport::Stop},
    {"Eine Szene vor", "", Transport::Next},
    {"CLR ALL", "Komplette Sequenz löschen", Transport::Delete},
    {"ZERO", "Auf Anfang", Transport::Start},
}};

} // namespace

frmControl::frmControl()
    : ChildWindow("frmControl", SequencerWindow, Status::SequencerWindowOpen),
      chkFaktor(new QCheckBox(fieldTexts[FactorField].Caption)),
      status(new StatusLine("Statuszeile des Sequenzers")), showing([this] { ShowWhatIsNew(); }) {
    setWindowTitle("SEQUENZER");
    MakeFields();
    MakeButtons();
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Spacing);
    layout->setSpacing(Spacing);
    layout->addLayout(Arrangement());
    layout->addStretch();
    layout->addWidget(line);
    layout->addWidget(status);
    SetTabOrder();
    ConnectControls();
    FillScreen();
}

void frmControl::MakeFields() {
    for (int index = StepField; index <= FactorField; ++index) {
        const FieldText& text = fieldTexts.at(At(index));
        auto* field = new Field(QString("txtSequence(%1)").arg(index), text.AccessibleName);
        field->setToolTip(text.ToolTip);
        field->setAlignment(Qt::AlignRight);
        txtSequence.at(At(index)) = field;
        if (index == FactorField) continue;
        auto* label = new QLabel(text.Caption);
        label->setObjectName(QString("lblSequence(%1)").arg(index));
        label->setTextFormat(Qt::PlainText);
        label->setBuddy(field);
        lblSequence.at(At(index)) = label;
    }
    chkFaktor->setObjectName("chkFaktor");
    chkFaktor->setAccessibleName("Faktor");
    chkFaktor->setToolTip(fieldTexts[FactorField].ToolTip);
}

void frmControl::MakeButtons() {
    for (int index = 0; index < static_cast<int>(buttonTexts.size()); ++index) {
        const ButtonText& text = buttonTexts.at(At(index));
        auto* button = new QPushButton(TransportIcon(text.Picture), text.Caption);
        button->setObjectName(QString("cmdSequence(%1)").arg(index));
        button->setAccessibleName(text.Caption);
        button->setToolTip(text.ToolTip);
        button->setAutoDefault(true); // Enter presses the button that has the focus
        cmdSequence.at(At(index)) = button;
    }
}

// Four columns: the values above, the transport below, and what takes everything away on its own at the end.
QLayout* frmControl::Arrangement() {
    auto* grid = new QGridLayout;
    grid->setSpacing(Spacing);
    int widest = 0;
    for (const QPushButton* button : cmdSequence) widest = std::max(widest, button->sizeHint().width());
    for (int column = 0; column < 4; ++column) {
        grid->setColumnMinimumWidth(column, widest); // all alike
        if (column < 3) grid->addWidget(lblSequence.at(At(column)), 0, column);
        grid->addWidget(txtSequence.at(At(column)), 1, column);
        grid->setColumnStretch(column, 1);
    }
    grid->addWidget(chkFaktor, 0, 3, Qt::AlignLeft);
    grid->setRowMinimumHeight(2, Section - Spacing);
    grid->addWidget(cmdSequence[0], 3, 0);
    grid->addWidget(cmdSequence[2], 3, 1);
    grid->addWidget(cmdSequence[3], 3, 2);
    grid->addWidget(cmdSequence[4], 3, 3);
    grid->addWidget(cmdSequence[6], 4, 0);
    grid->addWidget(cmdSequence[1], 4, 1);
    grid->addWidget(cmdSequence[5], 4, 3);
    return grid;
}

void frmControl::SetTabOrder() {
    const std::vector<QWidget*> order{txtSequence[0], txtSequence[1], txtSequence[2], chkFaktor,
                                      txtSequence[3], cmdSequence[0], cmdSequence[2], cmdSequence[3],
                                      cmdSequence[4], cmdSequence[6], cmdSequence[1], cmdSequence[5]};
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

void frmControl::ConnectControls() {
    for (int index = StepField; index <= FactorField; ++index) {
        Field* field = txtSequence.at(At(index));
        connect(field, &QLineEdit::textEdited, this, [this, index] { txtSequence_Change(index); });
        connect(field, &QLineEdit::returnPressed, this, [this, index] { TakeField(index); });
        field->KeyUp = [this, index](int key, const QString&) { txtSequence_KeyUp(index, key); };
        field->LostFocus = [this, index] { txtSequence_LostFocus(index); };
    }
    for (int index = 0; index < static_cast<int>(cmdSequence.size()); ++index)
        connect(cmdSequence.at(At(index)), &QPushButton::clicked, this,
                [this, index] { cmdSequence_Click(index); });
    connect(chkFaktor, &QCheckBox::toggled, this, [this] { chkFaktor_Click(); });
}

void frmControl::FillScreen() {
    Screen.SequencerField = [this](int index, std::string_view) {
        staleFields.set(At(index));
        showing.Ask();
    };
    Screen.SequencerStatus = [this](std::string_view text) {
        advised = false;
        statusText = text;
        showing.Ask();
    };
    Screen.SequencerCaption = [this](std::string_view text) { setWindowTitle(ShownAsTitle(text)); };
}

// A field that somebody is typing in is left alone by the playback.
void frmControl::ShowWhatIsNew() {
    for (int index = StepField; index <= FactorField; ++index) {
        Field* field = txtSequence.at(At(index));
        const bool typing = field->hasFocus() && field->Edited();
        if (staleFields.test(At(index)) && !typing) field->Put(Shown(Show.SequencerField[index]));
    }
    staleFields.reset();
    status->lblStatus->setText(Shown(statusText));
}

void frmControl::Form_Load() {
    for (int index = StepField; index <= FactorField; ++index)
        txtSequence.at(At(index))->Put(Shown(Show.SequencerField[index]));
}

// What stands in the fields is known at once: recording and saving take it from there.
void frmControl::txtSequence_Change(int index) {
    Show.SequencerField[index] = txtSequence.at(At(index))->text().toStdString();
}

void frmControl::txtSequence_KeyUp(int index, int key) {
    const Field* field = txtSequence.at(At(index));
    if (key == Qt::Key_Return || key == Qt::Key_Enter || !field->Edited()) return;
    const auto advice = AdviceOnField(index, field->text().toStdString());
    if (advice.empty() && !advised) return;
    Screen.SequencerStatus(advice);
    advised = !advice.empty();
}

void frmControl::txtSequence_LostFocus(int index) {
    if (txtSequence.at(At(index))->Edited())
        TakeField(index);
    else
        WithdrawAdvice();
}

// What was advised against and is taken all the same needs no advice any more.
void frmControl::WithdrawAdvice() {
    if (advised) Screen.SequencerStatus("");
}

void frmControl::TakeField(int index) {
    Field* field = txtSequence.at(At(index));
    const std::string text = field->text().toStdString();
    field->Put(field->text()); // no longer being typed: it takes what is decided
    if (index == FactorField)
        TakeTurboFactor(text, chkFaktor->isChecked());
    else
        TakeSequencerField(index, text);
    WithdrawAdvice();
}

void frmControl::cmdSequence_Click(int index) {
    CheckFocusedField();
    switch (index) {
    case 0: PreviousScene(); break;
    case 1: SceneToSequence(); break;
    case 2: Play(); break;
    case 3: StopSequence(); break;
    case 4: NextScene(); break;
    case 5: DeleteSequence(); break;
    default: BackToStart();
    }
}

void frmControl::chkFaktor_Click() {
    CheckFocusedField();
    if (chkFaktor->isChecked())
        TakeTurboFactor(Show.SequencerField[FactorField], true);
    else
        Show.TurboFactor = 1;
}

void frmControl::DeleteSequence() {
    if (DarkenOutputForDelete() && !UnsavedChangesGuard("sequence")) EmptySequence();
}

void frmControl::EnableForTransfer(bool runs) {
    for (const int index : {BlendField, HoldField}) txtSequence.at(At(index))->setEnabled(!runs);
    for (const int index : {1, 5}) cmdSequence.at(At(index))->setEnabled(!runs);
}

void frmControl::keyPressEvent(QKeyEvent* event) {
    if (!TakeSelectionKey(event)) ChildWindow::keyPressEvent(event);
}

} // namespace quorvane
