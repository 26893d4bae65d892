// The message boxes, file dialogs and the colour dialog behind the Host's questions.
#pragma once

#include <functional>

namespace quorvane {

// Fills Host.MsgBox, AskOpenFile, AskSaveFile, AskColour and Beep. afterTick comes back when a tick of the
// output has just passed, at once when none is due: making and showing a dialog take some tens of ms, and so
// each has most of a period to itself. The file dialog and the colour dialog are made for the first question,
// kept, and go with the main window.
void AskByDialogs(const std::function<void()>& afterTick = [] {});

} // namespace quorvane
