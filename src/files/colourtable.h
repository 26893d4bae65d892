// Loading the colour table where other files call for it.
#pragma once

#include <string>

namespace quorvane {

// What the command LoadColourTable does. False when no table was loaded; the user has been told then.
bool TryLoadColourTable();

// Loads the table that a scene or sequence file names, unless that would lose work: the present table
// has unsaved changes, or is that one already. A table that is not there is silently left.
void LoadNamedColourTable(const std::string& path);

} // namespace quorvane
