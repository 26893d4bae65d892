#include "platform/promptthread.h"

#include "platform/threadschedule_linux.h"

#include <sched.h>

namespace quorvane {

// Who asks for short slices of time gets them early, in the midst of another one's longer slice. Otherwise a
// thread that wakes on a busy processor may wait for the system's next look at its clock, up to 4 ms. A
// policy other than the ordinary one was chosen by the user, and stays.
void MakeThreadPrompt() {
    constexpr std::uint64_t shortestSlice = 100'000; // ns
    constexpr std::uint64_t notInherited = 1;        // SCHED_FLAG_RESET_ON_FORK
    ThreadSchedule schedule;
    if (!Get(schedule) || schedule.Policy != SCHED_OTHER) return;
    schedule.Slice = shortestSlice;
    schedule.Flags = notInherited;
    Set(schedule);
}

} // namespace quorvane
