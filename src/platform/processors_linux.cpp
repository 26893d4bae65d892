#include "platform/processors.h"

#include <sched.h>

namespace quorvane {

std::vector<int> AllowedProcessors() {
    std::vector<int> allowed;
    cpu_set_t set;
    if (sched_getaffinity(0, sizeof set, &set) != 0) return allowed;
    for (int processor = 0; processor < CPU_SETSIZE; ++processor)
        if (CPU_ISSET(processor, &set)) allowed.push_back(processor);
    return allowed;
}

void KeepThreadOn(int processor) {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(processor, &set);
    sched_setaffinity(0, sizeof set, &set);
}

} // namespace quorvane
