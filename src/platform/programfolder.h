// Paths and the program folder. Texts of the program are UTF-8 on every system, and a folder that came
// from another machine may spell its entries in capitals or in small letters.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quorvane {

std::filesystem::path PathOf(std::string_view utf8);
std::string TextOf(const std::filesystem::path& path);

// The entry of that name as the disk spells it, whatever the case of its letters A to Z. The exact
// spelling wins, then the first in alphabetical order; folder / name when there is no such entry.
std::filesystem::path FindInFolder(const std::filesystem::path& folder, std::string_view name);

} // namespace quorvane
