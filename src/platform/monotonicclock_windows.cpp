#include "platform/monotonicclock.h"

#include <windows.h>

namespace quorvane {

double Seconds() {
    LARGE_INTEGER counts{};
    LARGE_INTEGER countsPerSecond{};
    QueryPerformanceCounter(&counts);
    QueryPerformanceFrequency(&countsPerSecond);
    return static_cast<double>(counts.QuadPart) / static_cast<double>(countsPerSecond.QuadPart);
}

} // namespace quorvane
