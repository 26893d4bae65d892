// The text editor of the system: on Windows its own, maximised; on a Linux desktop the program that it uses
// for plain text, whatever the file's ending says.
#pragma once

#include <string_view>

namespace quorvane {

// Opens a text file and returns at once. False when the file or an editor is missing.
bool StartTextEditor(std::string_view file);

} // namespace quorvane
