// Makes sure that a file which was just written survives a loss of power.
#pragma once

#include <filesystem>

namespace quorvane {

// Returns when the bytes of the closed file are on the disk. False when the system could not say so.
bool FlushFile(const std::filesystem::path& path);

} // namespace quorvane
