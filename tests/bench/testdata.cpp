#include "bench/testdata.h"

namespace quorvane {

std::filesystem::path TestData(std::string_view name) { return std::filesystem::path(TEST_DATA) / name; }

} // namespace quorvane
