#include "platform/ticktimer.h"

#include "platform/monotonicclock.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <poll.h>
#endif

namespace quorvane {

namespace {

// Waits as an event loop does, and gives up after some seconds.
bool GoesOff(const TickTimer& timer) {
#ifdef _WIN32
    return WaitForSingleObject(reinterpret_cast<HANDLE>(timer.Handle()), 5000) == WAIT_OBJECT_0;
#else
    pollfd handle{static_cast<int>(timer.Handle()), POLLIN, 0};
    return poll(&handle, 1, 5000) == 1;
#endif
}

TEST(TickTimer, IsQuietUntilItIsArmed) {
    TickTimer timer;
    EXPECT_FALSE(timer.Acknowledge());
}

TEST(TickTimer, GoesOffAtOnceForATimeThatIsPast) {
    TickTimer timer;
    for (const double past : {Seconds() - 1.0, Seconds(), 0.0, -5.0}) {
        SCOPED_TRACE(past);
        timer.ArmAt(past);
        EXPECT_TRUE(GoesOff(timer));
        EXPECT_TRUE(timer.Acknowledge());
        EXPECT_FALSE(timer.Acknowledge());
    }
}

// The earliest that Seconds() may tell at the time given.
double Earliest(double when) {
#ifdef _WIN32
    return when - 0.001; // there it counts from now, on another clock
#else
    return when;
#endif
}

TEST(TickTimer, GoesOffNotBeforeItsTime) {
    TickTimer timer;
    const double when = Seconds() + 0.01;
    timer.ArmAt(when);
    EXPECT_TRUE(GoesOff(timer));
    EXPECT_GE(Seconds(), Earliest(when));
}

TEST(TickTimer, WaitEndsNotBeforeItsTimeAndLeavesTheTimerQuiet) {
    TickTimer timer;
    for (const double wait : {-1.0, 0.0, 0.01}) {
        SCOPED_TRACE(wait);
        const double when = Seconds() + wait;
        timer.ArmAt(when);
        timer.Wait();
        EXPECT_GE(Seconds(), Earliest(when));
        EXPECT_FALSE(timer.Acknowledge());
    }
}

TEST(TickTimer, ArmedForLaterIsStillQuiet) {
    TickTimer timer;
    timer.ArmAt(Seconds() + 3600.0);
    EXPECT_FALSE(timer.Acknowledge());
}

TEST(TickTimer, DisarmTakesBackWhatHasGoneOff) {
    TickTimer timer;
    timer.ArmAt(0.0);
    ASSERT_TRUE(GoesOff(timer));
    timer.Disarm();
    EXPECT_FALSE(timer.Acknowledge());
}

TEST(TickTimer, ArmingAnewReplacesWhatHasGoneOff) {
    TickTimer timer;
    timer.ArmAt(0.0);
    ASSERT_TRUE(GoesOff(timer));
    timer.ArmAt(Seconds() + 3600.0);
    EXPECT_FALSE(timer.Acknowledge());
}

TEST(MonotonicClock, NeverGoesBack) {
    double before = Seconds();
    for (int i = 0; i < 1000; ++i) {
        const double now = Seconds();
        ASSERT_GE(now, before);
        before = now;
    }
}

} // namespace

} // namespace quorvane
