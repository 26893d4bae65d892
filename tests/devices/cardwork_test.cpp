#include "devices/cardimages.h"

#include "bench/cardimagesbench.h"
#include "engine/outputclock.h"

#include <gmock/gmock.h>

namespace quorvane {
namespace {

// Beside the writing and reading of a card the show goes on.
class CardWork : public CardImagesBench {};

TEST_F(CardWork, EventsRunAfterAtMostFiveMillisecondsOfPortWork) {
    PlugIn(131072);
    AccessTime = 2e-6; // a slow bus
    double last = 0;
    double longest = 0;
    Host.DoEvents = [&] {
        Now += 0.01;
        last = Now;
        return true;
    };
    Host.ServeEvents = [&] {
        longest = std::max(longest, Now - last);
        last = Now;
        return true;
    };
    WriteMemCard();
    EXPECT_LE(longest, 0.005);
    EXPECT_GT(longest, 0.003);
    longest = 0;
    last = Now;
    CompareMemCard();
    EXPECT_LE(longest, 0.005);
}

TEST_F(CardWork, PlayingShowKeepsItsTicksWhileTheCardIsWritten) {
    PlugIn(131072);
    Show.StatusFlags.Set(Status::SequencePlaying);
    Show.CurrentStep = 1;
    AccessTime = 2e-6;
    double due = Now + 0.05;
    double latest = 0;
    int ticks = 0;
    const auto heartbeat = [&] {
        for (; Now >= due; due += 0.05, ++ticks) {
            latest = std::max(latest, Now - due);
            AutoXmit_Timer();
        }
        return true;
    };
    Host.DoEvents = [&] {
        Now += 0.005;
        return heartbeat();
    };
    Host.ServeEvents = heartbeat;
    const double start = Now;
    WriteMemCard();
    EXPECT_LE(latest, 0.0051);
    EXPECT_NEAR(ticks, (Now - start) / 0.05, 1);
    EXPECT_GT(ticks, 25);
    EXPECT_LT(Show.HoldCounter, 1000 + 1) << "the step's hold runs down";
    ExpectImages(240);
}

TEST_F(CardWork, ProgressMovesFromNothingToAll) {
    PlugIn(32768);
    AccessTime = 1e-5;
    WriteMemCard();
    EXPECT_EQ(Progress.front(), std::pair(0, 30720));
    EXPECT_EQ(Progress.back(), std::pair(30720, 30720));
    EXPECT_GT(Progress.size(), 100u);
    EXPECT_TRUE(std::is_sorted(Progress.begin(), Progress.end()));
}

} // namespace
} // namespace quorvane
