// The settings file QUORVANE.ini in the program folder: card parameter block, options, names of the last
// four files, positions of ten windows. Read once at start-up, written at shutdown and
// when a wall has been built in the dialog.
#pragma once

namespace quorvane {

// Reads the file into the show, then loads the last files and opens the windows that were open.
// Whatever cannot be read is told to the user, and reading goes on with the next section.
void LoadINI();
// Writes the whole file anew. False when it could not be written; the user has been told then.
bool SaveINI();

} // namespace quorvane
