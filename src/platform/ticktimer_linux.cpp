#include "platform/ticktimer.h"

#include <cerrno>
#include <cmath>
#include <poll.h>
#include <sys/timerfd.h>
#include <system_error>
#include <unistd.h>

namespace quorvane {

namespace {

void Set(std::intptr_t handle, const timespec& when) {
    itimerspec once{};
    once.it_value = when;
    timerfd_settime(static_cast<int>(handle), TFD_TIMER_ABSTIME, &once, nullptr);
}

} // namespace

TickTimer::TickTimer() : handle(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (handle < 0) throw std::system_error(errno, std::generic_category(), "timerfd");
}

TickTimer::~TickTimer() { close(static_cast<int>(handle)); }

void TickTimer::ArmAt(double seconds) {
    const double whole = std::floor(seconds);
    timespec when{static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
    // Zero and less would be no time at all to the system.
    if (seconds < 1e-9) when = {0, 1};
    Set(handle, when);
}

void TickTimer::Wait() {
    do {
        pollfd timer{static_cast<int>(handle), POLLIN, 0};
        poll(&timer, 1, -1);
    } while (!Acknowledge());
}

void TickTimer::Disarm() { Set(handle, timespec{}); }

bool TickTimer::Acknowledge() {
    std::uint64_t times = 0;
    return read(static_cast<int>(handle), &times, sizeof times) == sizeof times;
}

} // namespace quorvane
