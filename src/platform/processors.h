// The machine's processors, and which of them a thread runs on.
#pragma once

#include <vector>

namespace quorvane {

// Those that this program may use, by the system's numbers, ascending. Empty where the system does not tell.
std::vector<int> AllowedProcessors();

// From now on the calling thread runs on that one alone, and so do threads that it starts later. Where the
// system refuses, all stays as it was.
void KeepThreadOn(int processor);

} // namespace quorvane
