// How the system's scheduler deals with the calling thread. The C library has no functions for it yet, and
// the kernel's own header cannot stand beside those of the C library.
#pragma once

#include <cstdint>
#include <sys/syscall.h>
#include <unistd.h>

namespace quorvane {

// As sched_setattr(2) lays it out.
struct ThreadSchedule {
    std::uint32_t Size = sizeof(ThreadSchedule);
    std::uint32_t Policy = 0; // SCHED_OTHER and the like
    std::uint64_t Flags = 0;
    std::int32_t Nice = 0;
    std::uint32_t Priority = 0;
    std::uint64_t Slice = 0; // ns; told and followed by Linux from 6.12 on
    std::uint64_t Deadline = 0;
    std::uint64_t Period = 0;
};

// false when the system refuses.
inline bool Get(ThreadSchedule& schedule) {
    return syscall(SYS_sched_getattr, 0L, &schedule, sizeof schedule, 0U) == 0;
}
inline bool Set(ThreadSchedule& schedule) { return syscall(SYS_sched_setattr, 0L, &schedule, 0U) == 0; }

} // namespace quorvane
