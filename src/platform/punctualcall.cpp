#include "platform/punctualcall.h"

#include "platform/monotonicclock.h"
#include "platform/processors.h"
#include "platform/promptthread.h"

#include <cmath>
#include <set>
#include <utility>

namespace quorvane {

namespace {

constexpr double SameMoment = 1e-6; // seconds

// Two that lie far apart: neighbours may be halves of one. One where there is no other.
std::set<int> ProcessorsToUse() {
    const std::vector<int> allowed = AllowedProcessors();
    if (allowed.empty()) return {0};
    return {allowed.front(), allowed.back()};
}

} // namespace

PunctualCall::PunctualCall(std::function<void()> theCall, double thePeriod)
    : call(std::move(theCall)), period(thePeriod) {
    try {
        for (const int processor : ProcessorsToUse()) {
            TickTimer& timer = timers.emplace_back();
            threads.emplace_back([this, processor, &timer] {
                KeepThreadOn(processor);
                MakeThreadPrompt();
                Serve(timer);
            });
        }
    } catch (...) {
        End();
        throw;
    }
}

PunctualCall::~PunctualCall() { End(); }

// A thread that came for a call and found none told sleeps until it is woken, so one that is told late wakes
// too.
void PunctualCall::At(double theMoment) {
    {
        std::unique_lock lock(guard);
        made.wait(lock, [this] { return !beingMade; });
        const double now = Seconds();
        const bool comingAnyway = Expected() > now && std::abs(theMoment - Expected()) < SameMoment;
        moment = theMoment;
        waits = true;
        if (moment <= now)
            MakeIfWaiting(lock);
        else if (comingAnyway)
            return;
    }
    WakeThreads();
}

void PunctualCall::Now() {
    std::unique_lock lock(guard);
    MakeIfWaiting(lock);
    made.wait(lock, [this] { return !beingMade; });
}

// What the threads wait for.
double PunctualCall::Expected() const { return waits ? moment : moment + period; }

// Each arms its own timer: one that was armed in At would go off on the processor of that thread.
void PunctualCall::Serve(TickTimer& timer) {
    std::unique_lock lock(guard);
    while (!ends) {
        if (waits && moment <= Seconds()) {
            MakeIfWaiting(lock);
            continue;
        }
        if (waits || Expected() > Seconds()) timer.ArmAt(Expected());
        lock.unlock();
        timer.Wait();
        lock.lock();
    }
}

void PunctualCall::MakeIfWaiting(std::unique_lock<std::mutex>& lock) {
    if (!std::exchange(waits, false)) return;
    beingMade = true;
    lock.unlock();
    call();
    lock.lock();
    beingMade = false;
    made.notify_all();
}

// They look again at what there is to do.
void PunctualCall::WakeThreads() {
    for (TickTimer& timer : timers) timer.ArmAt(0.0);
}

void PunctualCall::End() {
    {
        const std::scoped_lock lock(guard);
        ends = true;
    }
    WakeThreads();
}

} // namespace quorvane
