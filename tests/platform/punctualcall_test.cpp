#include "platform/punctualcall.h"

#include "platform/monotonicclock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace quorvane {

namespace {

class PunctualCallTest : public testing::Test {
protected:
    // Gives up after some seconds.
    void WaitForCalls(int count) const {
        for (const double end = Seconds() + 10.0; calls < count && Seconds() < end;)
            std::this_thread::yield();
    }

    void Make() {
        last = Seconds();
        maker = std::this_thread::get_id();
        ++calls;
    }

    static constexpr double Period = 0.020;
    std::atomic<int> calls = 0;
    double last = 0.0; // when the last call was made
    std::thread::id maker;
    std::optional<PunctualCall> punctual{std::in_place, [this] { Make(); }, Period};
};

TEST_F(PunctualCallTest, CallIsMadeOnceAndNotBeforeItsMoment) {
    constexpr int count = 50;
    for (int call = 1; call <= count; ++call) {
        const double moment = Seconds() + 0.002;
        punctual->At(moment);
        WaitForCalls(call);
        punctual->Now();
        ASSERT_EQ(calls, call);
        ASSERT_GE(last, moment);
    }
    punctual.reset(); // whoever comes late has come
    EXPECT_EQ(calls, count);
}

TEST_F(PunctualCallTest, CallIsMadeWhileTheCallerIsBusy) {
    punctual->At(Seconds() + 0.002);
    WaitForCalls(1);
    EXPECT_EQ(calls, 1);
    punctual->Now();
    EXPECT_NE(maker, std::this_thread::get_id());
}

TEST_F(PunctualCallTest, MomentThatIsPastMeansAtOnce) {
    for (const double past : {Seconds(), Seconds() - 100.0, 0.0}) {
        const int before = calls;
        punctual->At(past);
        EXPECT_EQ(calls, before + 1);
        EXPECT_EQ(maker, std::this_thread::get_id());
    }
    punctual.reset();
    EXPECT_EQ(calls, 3);
}

TEST_F(PunctualCallTest, NowMakesTheCallThatWaits) {
    punctual->At(Seconds() + 3600.0);
    punctual->Now();
    EXPECT_EQ(calls, 1);
    punctual->Now();
    EXPECT_EQ(calls, 1) << "it is made once";
}

TEST_F(PunctualCallTest, NowWithoutACallMakesNone) {
    punctual->Now();
    EXPECT_EQ(calls, 0);
}

TEST_F(PunctualCallTest, NewAppointmentTakesThePlaceOfTheOneThatWaits) {
    punctual->At(Seconds() + 3600.0);
    std::this_thread::sleep_for(std::chrono::milliseconds(10)); // both wait for it
    const double moment = Seconds() + 0.010;
    punctual->At(moment);
    WaitForCalls(1);
    punctual.reset();
    EXPECT_EQ(calls, 1);
    EXPECT_GE(last, moment);
}

TEST_F(PunctualCallTest, WhoeverComesForACallThatWasMadeDoesNotMakeTheNext) {
    for (int round = 0; round < 10; ++round) {
        punctual->At(Seconds() + 0.003);
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // both are on their way
        punctual->Now();
        const double moment = Seconds() + 0.010;
        punctual->At(moment);
        WaitForCalls(2 * round + 2);
        punctual->Now();
        ASSERT_GE(last, moment);
    }
}

TEST_F(PunctualCallTest, CallThatWaitsIsLeftOutAtTheEndAndNotWaitedFor) {
    punctual->At(Seconds() + 3600.0);
    const double before = Seconds();
    punctual.reset();
    EXPECT_EQ(calls, 0);
    EXPECT_LT(Seconds(), before + 60.0);
}

TEST_F(PunctualCallTest, EndComesAtAnyTime) {
    for (int round = 0; round < 200; ++round) {
        std::atomic<int> made = 0;
        std::optional<PunctualCall> each(
            std::in_place, [&made] { ++made; }, 0.0001);
        each->At(Seconds() + 0.0001 * (round % 5));
        if (round % 2 == 0) std::this_thread::yield();
        each.reset();
        ASSERT_LE(made, 1);
    }
}

// Each is told well before its moment, as frames are.
TEST_F(PunctualCallTest, CallsAtThePeriodAreMadeAtTheirMoments) {
    double moment = Seconds() + Period;
    for (int call = 1; call <= 20; ++call, moment += Period) {
        punctual->At(moment);
        WaitForCalls(call);
        punctual->Now();
        ASSERT_EQ(calls, call);
        ASSERT_GE(last, moment);
    }
}

// Nobody has to wake the threads for a moment that they are under way to; for any other somebody has to.
TEST_F(PunctualCallTest, CallsOffThePeriodAreMadeToo) {
    for (const double period : {0.0, 0.003, 3600.0}) {
        std::atomic<int> made = 0;
        PunctualCall each([&made] { ++made; }, period);
        for (int call = 1; call <= 10; ++call) {
            each.At(Seconds() + 0.002);
            for (const double end = Seconds() + 10.0; made < call && Seconds() < end;)
                std::this_thread::yield();
            ASSERT_EQ(made, call) << "period " << period;
        }
    }
}

TEST_F(PunctualCallTest, CallsGoOnAfterSomeWereLeftOut) {
    double moment = Seconds() + 0.001;
    for (int call = 1; call <= 3; ++call) {
        punctual->At(moment);
        WaitForCalls(call);
        std::this_thread::sleep_for(std::chrono::duration<double>(2.5 * Period)); // they come in vain
        moment += 3.0 * Period;
    }
    EXPECT_EQ(calls, 3);
}

// Both have come and found nothing to do, when it is told at last. The next is due one period after it.
TEST_F(PunctualCallTest, CallAfterOneThatWasToldTooLateIsMade) {
    for (int round = 1; round <= 3; ++round) {
        const double moment = Seconds() + 0.001;
        punctual->At(moment);
        WaitForCalls(3 * round - 2);
        std::this_thread::sleep_for(std::chrono::duration<double>(1.5 * Period));
        punctual->At(moment + Period);
        ASSERT_EQ(calls, 3 * round - 1);
        punctual->At(moment + 2 * Period);
        WaitForCalls(3 * round);
        ASSERT_EQ(calls, 3 * round);
    }
}

// A call that takes its time.
class SlowCall : public testing::Test {
protected:
    void WaitUntilItHasBegun() const {
        while (!begun) std::this_thread::yield();
    }

    void Make() {
        begun = true;
        if (busy.exchange(true)) twoAtOnce = true;
        for (const double end = Seconds() + 0.020; Seconds() < end;) std::this_thread::yield();
        busy = false;
        ++made;
    }

    std::atomic<bool> begun = false, busy = false, twoAtOnce = false;
    int made = 0; // unguarded: Now promises that it can be seen
    std::optional<PunctualCall> punctual{std::in_place, [this] { Make(); }, 0.050};
};

TEST_F(SlowCall, NowWaitsForTheCallThatIsBeingMade) {
    punctual->At(Seconds() + 0.001);
    WaitUntilItHasBegun();
    punctual->Now();
    EXPECT_EQ(made, 1);
}

TEST_F(SlowCall, NextAppointmentWaitsForItToo) {
    punctual->At(Seconds() + 0.001);
    WaitUntilItHasBegun();
    punctual->At(Seconds());
    EXPECT_EQ(made, 2);
    EXPECT_FALSE(twoAtOnce);
}

TEST_F(SlowCall, EndWaitsForIt) {
    punctual->At(Seconds() + 0.001);
    WaitUntilItHasBegun();
    punctual.reset();
    EXPECT_EQ(made, 1);
}

} // namespace

} // namespace quorvane
