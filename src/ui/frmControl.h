// The sequencer window: scenes are recorded into the sequence, stepped through and played, and the times of
// the step now shown and the speed of the whole are typed in.
#pragma once

#include "model/afterframe.h"
#include "ui/childwindow.h"

#include <array>
#include <bitset>
#include <string>

class QCheckBox;
class QLabel;
class QLayout;
class QPushButton;

namespace quorvane {

class Field;
class StatusLine;

class frmControl : public ChildWindow {
public:
    frmControl();

    std::array<Field*, 4> txtSequence{}; // step, blend time, hold time, turbo factor
    std::array<QLabel*, 3> lblSequence{};
    QCheckBox* chkFaktor;
    // Previous scene, add scene, play, stop, next scene, delete sequence, back to the start.
    std::array<QPushButton*, 7> cmdSequence{};

    // What changes the sequence is off while it goes out to the play unit.
    void EnableForTransfer(bool runs);

protected:
    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeFields();
    void MakeButtons();
    QLayout* Arrangement();
    void SetTabOrder();
    void ConnectControls();
    void FillScreen();
    void ShowWhatIsNew();

    void txtSequence_Change(int index);
    void txtSequence_KeyUp(int index, int key);
    void txtSequence_LostFocus(int index);
    void TakeField(int index);
    void WithdrawAdvice();
    void cmdSequence_Click(int index);
    void chkFaktor_Click();
    void DeleteSequence();

    StatusLine* status;
    bool advised = false; // the status line shows advice on what is being typed
    AfterFrame showing;   // of what follows
    std::bitset<4> staleFields;
    std::string statusText;
};

} // namespace quorvane
