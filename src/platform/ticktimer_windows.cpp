#include "platform/monotonicclock.h"
#include "platform/ticktimer.h"

#include <algorithm>
#include <system_error>
#include <windows.h>

#ifndef CREATE_WAITABLE_TIMER_HIGH_RESOLUTION
#define CREATE_WAITABLE_TIMER_HIGH_RESOLUTION 0x2
#endif

namespace quorvane {

namespace {

// Stays signalled until it is cleared, so that an event loop which waits for it does not take the signal.
// Systems before Windows 10 1803 know no high resolution; there a plain timer has to do.
HANDLE NewTimer() {
    constexpr DWORD plain = CREATE_WAITABLE_TIMER_MANUAL_RESET;
    constexpr DWORD fine = plain | CREATE_WAITABLE_TIMER_HIGH_RESOLUTION;
    const HANDLE timer = CreateWaitableTimerExW(nullptr, nullptr, fine, TIMER_ALL_ACCESS);
    return timer != nullptr ? timer : CreateWaitableTimerExW(nullptr, nullptr, plain, TIMER_ALL_ACCESS);
}

HANDLE TimerOf(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

} // namespace

TickTimer::TickTimer() : handle(reinterpret_cast<std::intptr_t>(NewTimer())) {
    if (handle == 0)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "timer");
}

TickTimer::~TickTimer() { CloseHandle(TimerOf(handle)); }

// A negative time counts from now, in steps of 100 ns.
void TickTimer::ArmAt(double seconds) {
    LARGE_INTEGER wait{};
    wait.QuadPart = -static_cast<LONGLONG>(std::max(0.0, seconds - Seconds()) * 1e7);
    SetWaitableTimer(TimerOf(handle), &wait, 0, nullptr, nullptr, FALSE);
}

void TickTimer::Wait() {
    WaitForSingleObject(TimerOf(handle), INFINITE);
    Disarm();
}

// Cancelling alone would leave a timer that went off signalled; setting it again clears it.
void TickTimer::Disarm() {
    LARGE_INTEGER nextDay{};
    nextDay.QuadPart = -864000000000LL;
    SetWaitableTimer(TimerOf(handle), &nextDay, 0, nullptr, nullptr, FALSE);
    CancelWaitableTimer(TimerOf(handle));
}

bool TickTimer::Acknowledge() {
    if (WaitForSingleObject(TimerOf(handle), 0) != WAIT_OBJECT_0) return false;
    Disarm();
    return true;
}

} // namespace quorvane
