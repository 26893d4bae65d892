// A whole file written to the disk itself, not only into the system's memory.
#pragma once

#include <filesystem>
#include <string_view>

namespace quorvane {

// Creates the file, or empties it, and writes the bytes. Throws std::system_error when any of it fails;
// the file is then left as far as written.
void WriteToDisk(const std::filesystem::path& file, std::string_view bytes);

} // namespace quorvane
