#include "platform/tickgrid.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(TickGrid, FirstTickStandsOnePeriodAfterTheStart) {
    TickGrid grid;
    grid.Start(1000.0);
    EXPECT_DOUBLE_EQ(grid.Next(), 1000.05);
}

TEST(TickGrid, LateTickIsFollowedByOneAtItsOwnGridPoint) {
    TickGrid grid;
    grid.Start(1000.0);
    grid.Advance(1000.08); // 30 ms late
    EXPECT_DOUBLE_EQ(grid.Next(), 1000.10);
    grid.Advance(1000.10);
    EXPECT_DOUBLE_EQ(grid.Next(), 1000.15);
}

TEST(TickGrid, TickLaterThanAWholePeriodIsFollowedAtOnceByTheOneThatItDelayed) {
    TickGrid grid;
    grid.Start(1000.0);
    grid.Advance(1000.12); // the tick of .05; that of .10 is due already
    EXPECT_DOUBLE_EQ(grid.Next(), 1000.10);
    grid.Advance(1000.121);
    EXPECT_DOUBLE_EQ(grid.Next(), 1000.15);
}

TEST(TickGrid, StallRestartsTheGridWithoutABurst) {
    TickGrid grid;
    grid.Start(1000.0);
    grid.Advance(1000.151); // the tick after this one is more than a period overdue
    EXPECT_DOUBLE_EQ(grid.Next(), 1000.201);
    grid.Advance(1000.201);
    EXPECT_DOUBLE_EQ(grid.Next(), 1000.251);
}

TEST(TickGrid, NightOfSleepGivesOneTickAndThenTheUsualRate) {
    TickGrid grid;
    grid.Start(1000.0);
    double now = 1000.0 + 8 * 3600.0;
    grid.Advance(now);
    for (int tick = 1; tick <= 20; ++tick) {
        EXPECT_GT(grid.Next(), now);
        now = grid.Next();
        grid.Advance(now);
    }
    EXPECT_NEAR(now, 1000.0 + 8 * 3600.0 + 1.0, 1e-9);
}

TEST(TickGrid, EveryTickLateDoesNotDriftInTwelveHours) {
    TickGrid grid;
    const double start = 345678.9;
    grid.Start(start);
    constexpr int ticks = 12 * 3600 * TickGrid::TicksPerSecond;
    for (int tick = 1; tick < ticks; ++tick) grid.Advance(grid.Next() + 0.003 * (tick % 7));
    EXPECT_NEAR(grid.Next() - start, 12 * 3600.0, 1e-9);
}

TEST(TickGrid, StartForgetsTheFormerGrid) {
    TickGrid grid;
    grid.Start(1000.0);
    grid.Advance(1000.05);
    grid.Start(2000.02);
    EXPECT_DOUBLE_EQ(grid.Next(), 2000.07);
}

} // namespace

} // namespace quorvane
