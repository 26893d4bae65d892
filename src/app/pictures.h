// The pictures of the interface select dialog, which the program brings along.
#pragma once

#include <string_view>

namespace quorvane {

// Puts those that are missing into the program folder. One that cannot be written is left out: the dialog
// shows the model's name then.
void PlacePictures(std::string_view programFolder);

} // namespace quorvane
