#include "platform/processors.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <thread>

namespace quorvane {

namespace {

TEST(Processors, ThreadStaysOnTheOneItIsGiven) {
    const std::vector<int> allowed = AllowedProcessors();
    ASSERT_FALSE(allowed.empty());
    for (const int processor : allowed) {
        std::thread([processor] {
            KeepThreadOn(processor);
            EXPECT_EQ(AllowedProcessors(), std::vector<int>{processor});
            EXPECT_EQ(sched_getcpu(), processor);
        }).join();
    }
    EXPECT_EQ(AllowedProcessors(), allowed) << "the others stay free";
}

TEST(Processors, OneThatTheMachineDoesNotHaveChangesNothing) {
    const std::vector<int> allowed = AllowedProcessors();
    KeepThreadOn(CPU_SETSIZE - 1);
    EXPECT_EQ(AllowedProcessors(), allowed);
}

} // namespace

} // namespace quorvane
