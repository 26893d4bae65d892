// A small call that has to be made on time. Two threads on two processors come to make it, and the first of
// them does: a processor that rests, or serves somebody else, now and then gets going a millisecond late and
// more, but seldom both at once.
#pragma once

#include "platform/ticktimer.h"

#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

namespace quorvane {

// At and Now are for one thread.
class PunctualCall {
public:
    // The call is made on a thread of its own or out of At and Now. It must not throw, nor use this object.
    // Calls that follow one another at that period, in seconds, cost least: the threads then set out for the
    // next before its moment is told. Throws std::system_error when the system has no threads or timers left.
    PunctualCall(std::function<void()> call, double period);
    // A call that waits is left out, one that is being made is waited for.
    ~PunctualCall();
    PunctualCall(const PunctualCall&) = delete;
    PunctualCall& operator=(const PunctualCall&) = delete;

    // The call is to be made at that moment of Seconds(), not before; at once when it is past. Takes the
    // place of a call that waits.
    void At(double moment);
    // Makes the call that waits, if there is one. No call is being made any more when it comes back, and what
    // the last one did can be seen.
    void Now();

private:
    double Expected() const;
    void Serve(TickTimer& timer);
    void MakeIfWaiting(std::unique_lock<std::mutex>& lock);
    void WakeThreads();
    void End();

    const std::function<void()> call;
    const double period; // seconds
    std::mutex guard;    // of what follows
    std::condition_variable made;
    double moment = 0.0; // of the call that waits or was the last
    bool waits = false, beingMade = false, ends = false;

    std::list<TickTimer> timers; // one for each thread
    std::list<std::jthread> threads;
};

} // namespace quorvane
