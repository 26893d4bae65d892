// The message boxes, file dialogs and the colour dialog behind the Host's questions.
#pragma once

#include <functional>

namespace quorvane {

// Fills Host.MsgBox, AskOpenFile, AskSaveFile, AskColour and Beep. afterTick comes back when a tick of the
// output has just passed, at once when none is due: it is called before anything that takes some tens of ms.
void AskByDialogs(const std::function<void()>& afterTick = [] {});

// Makes the file dialog and the colour dialog ahead of the first question, each right after a tick. They are
// kept for all questions and go with the main window: making one anew takes longer than a tick may be late.
void MakeDialogs(const std::function<void()>& afterTick);

} // namespace quorvane
