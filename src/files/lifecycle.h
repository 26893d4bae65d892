// Start and end of the program, as far as they do not need the windows.
#pragma once

namespace quorvane {

// Everything from the check of the operating system to the restored last state: version and caption,
// start values, stored interface opened, output clock enabled when that worked, settings and last files.
// False when the program cannot run on this system; the user has been told then.
bool StartProgram();

// Takes the snapshot of the status word for the settings and asks about unsaved work of all four kinds.
// False when the user cancelled; the snapshot has been taken all the same. A transfer to the play unit goes
// on meanwhile.
bool MayClose();

// Clocks off, a transfer abandoned, every open interface closed. What the lamps show last, they keep.
void StopOutput();

} // namespace quorvane
