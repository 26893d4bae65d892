// The message boxes, file dialogs and the colour dialog behind the Host's questions.
#pragma once

namespace quorvane {

// Fills Host.MsgBox, AskOpenFile, AskSaveFile, AskColour and Beep.
void AskByDialogs();

} // namespace quorvane
