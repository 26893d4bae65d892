// Saving without losing what was saved before.
#pragma once

#include <filesystem>
#include <string_view>

namespace quorvane {

// Writes the whole file to the disk. The file that it replaces is set aside as NAME.bak before; that goes
// when the new file is complete, and stays when it is not. Throws when the file could not be written
// whole; it is then left as far as written.
void SaveFile(const std::filesystem::path& file, std::string_view bytes);

} // namespace quorvane
