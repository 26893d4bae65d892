// The message boxes, file dialogs and the colour dialog behind the Host's questions.
#pragma once

#include <functional>

namespace quorvane {

// Fills Host.MsgBox, AskOpenFile, AskSaveFile, AskColour and Beep. afterTick comes back when a tick of the
// output has just passed, at once when none is due: making, showing and clearing away a file dialog take some
// tens of ms each, and so each has most of a period to itself.
void AskByDialogs(std::function<void()> afterTick = [] {});

} // namespace quorvane
