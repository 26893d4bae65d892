// The element patch dialog: for one element at a time, the four DMX channels on which its colours go out and
// what is taken off each of them at the output. A channel that two colours share is shown in red and stored
// all the same.
#pragma once

#include "ui/childwindow.h"

#include <array>
#include <string_view>

class QLayout;
class QPushButton;

namespace quorvane {

class Field;
class StatusLine;

class frmElement : public ChildWindow {
public:
    frmElement();

    std::array<Field*, 9> txtElement{}; // element, its four DMX channels, its four corrections
    QPushButton* cmdColorCorrektion;
    QPushButton* cmdOK;

protected:
    void Form_Activate() override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeFields();
    QLayout* Arrangement();
    void FillScreen();
    void Follow();

    void txtElement_KeyUp(int index, int key, const QString& typed);
    void txtElement_LostFocus(int index);
    void cmdColorCorrektion_Click();

    void TakeElementNumber();
    bool TakeChannel(int channel);    // false when what was typed
    bool TakeCorrection(int channel); // is put back
    bool TransferIsPressed(int index) const;
    void CheckForDuplicates(int channel);
    void ShowFault(int channel, bool fault);
    int FirstFault() const;
    int NumberIn(int index) const;
    bool ElementIsShown() const;
    void ShowStatus(std::string_view text);

    StatusLine* status;
    std::array<bool, 5> faulty{};   // by channel: its field is red
    bool following = false;         // comes to the front for a moment, without the user
    bool refusedByTransfer = false; // pressing the transfer button had a number refused
};

} // namespace quorvane
