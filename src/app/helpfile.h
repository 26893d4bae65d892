// The help file that the program brings along.
#pragma once

#include <string_view>

namespace quorvane {

// Puts quorvane.doc into the program folder unless it stands there, in whatever letters. A folder that cannot
// be written stays as it is.
void PlaceHelpFile(std::string_view programFolder);

} // namespace quorvane
