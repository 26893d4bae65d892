#include "platform/promptthread.h"

#include "platform/threadschedule_linux.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sched.h>
#include <sys/utsname.h>
#include <thread>

namespace quorvane {

namespace {

ThreadSchedule Schedule() {
    ThreadSchedule schedule;
    EXPECT_TRUE(Get(schedule));
    return schedule;
}

bool SystemKnowsSlices() {
    utsname system{};
    uname(&system);
    int major = 0;
    int minor = 0;
    EXPECT_EQ(std::sscanf(system.release, "%d.%d", &major, &minor), 2);
    return major > 6 || (major == 6 && minor >= 12);
}

TEST(PromptThread, AsksForShortSlicesAndNothingElse) {
    std::thread([] {
        const ThreadSchedule before = Schedule();
        MakeThreadPrompt();
        const ThreadSchedule after = Schedule();
        EXPECT_EQ(after.Slice, SystemKnowsSlices() ? 100'000U : before.Slice);
        EXPECT_EQ(after.Policy, before.Policy);
        EXPECT_EQ(after.Nice, before.Nice);
    }).join();
}

TEST(PromptThread, NicenessOfTheUserStays) {
    std::thread([] {
        ThreadSchedule nicer = Schedule();
        ++nicer.Nice;
        ASSERT_TRUE(Set(nicer));
        MakeThreadPrompt();
        EXPECT_EQ(Schedule().Nice, nicer.Nice);
    }).join();
}

TEST(PromptThread, PolicyOfTheUserStays) {
    std::thread([] {
        ThreadSchedule batch = Schedule();
        batch.Policy = SCHED_BATCH;
        ASSERT_TRUE(Set(batch));
        MakeThreadPrompt();
        EXPECT_EQ(Schedule().Policy, static_cast<std::uint32_t>(SCHED_BATCH));
        EXPECT_EQ(Schedule().Slice, batch.Slice);
    }).join();
}

TEST(PromptThread, ThreadsStartedLaterAreOrdinary) {
    std::thread([] {
        const ThreadSchedule ordinary = Schedule();
        MakeThreadPrompt();
        std::thread([&ordinary] {
            EXPECT_EQ(Schedule().Slice, ordinary.Slice);
            EXPECT_EQ(Schedule().Policy, ordinary.Policy);
        }).join();
    }).join();
}

} // namespace

} // namespace quorvane
