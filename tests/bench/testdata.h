// Where the files stand that tests compare with.
#pragma once

#include <filesystem>
#include <string_view>

namespace quorvane {

std::filesystem::path TestData(std::string_view name);

} // namespace quorvane
