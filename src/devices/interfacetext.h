// What stands behind an interface type on this machine, in words for the select dialog.
#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

// A few German sentences, one to a line: who drives the interface, whether it was found, and what to do when
// it was not. For after the search.
std::string InterfaceText(std::int16_t type);

} // namespace quorvane
