// The version query of the operating system, in the form in which the start of the program reads it.
#pragma once

#include <cstdint>

namespace quorvane {

// Major version in the lowest byte, minor version in the second. Linux always gives 10.0: the number of
// its kernel would be read as that of an old Windows, and some of those end the program at once.
std::uint32_t GetVersion();

} // namespace quorvane
