// Which program a Linux desktop opens plain text with, by the files in which desktops keep that.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// The command and its arguments for a file: that of the user's or the system's choice for plain text, else
// any that says it opens plain text, else xdg-open. Empty when nothing of that is installed.
std::vector<std::string> DesktopTextEditor(std::string_view file);

} // namespace quorvane
