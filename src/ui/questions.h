// The message boxes and file dialogs behind the Host's questions.
#pragma once

namespace quorvane {

// Fills Host.MsgBox, AskOpenFile, AskSaveFile and Beep.
void AskByDialogs();

} // namespace quorvane
