// What every driver library of the tests needs: entries that can be looked up by their plain name.
// Compiled with LACKS_ENTRY, each library leaves out its last entry.
#pragma once

#include <cstdint>

#ifdef _WIN32
#define ENTRY extern "C" __declspec(dllexport)
#else
#define ENTRY extern "C" __attribute__((visibility("default")))
#endif
