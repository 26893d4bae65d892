// A timer that goes off at a given point in time, finer than the millisecond to which the usual timers
// of a user interface are rounded. It owns a handle of the system which an event loop can wait on.
#pragma once

#include <cstdint>

namespace quorvane {

class TickTimer {
public:
    // Throws std::system_error when the system has no timer left.
    TickTimer();
    ~TickTimer();
    TickTimer(const TickTimer&) = delete;
    TickTimer& operator=(const TickTimer&) = delete;

    // Goes off once at that point in time of Seconds(); at once when it is past.
    void ArmAt(double seconds);
    // Comes back when the timer has gone off, and acknowledges that.
    void Wait();
    // Takes back what was armed, also when it has gone off already.
    void Disarm();
    // To be called when the timer went off. False when it had not, or was disarmed or armed anew meanwhile.
    bool Acknowledge();

    // Linux: a file descriptor, readable once the timer went off. Windows: a waitable timer's HANDLE.
    std::intptr_t Handle() const { return handle; }

private:
    std::intptr_t handle;
};

} // namespace quorvane
