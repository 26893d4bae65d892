#include "platform/monotonicclock.h"

#include <ctime>

namespace quorvane {

double Seconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

} // namespace quorvane
