#include "platform/processors.h"

#include <gtest/gtest.h>

#include <thread>
#include <windows.h>

namespace quorvane {

namespace {

TEST(Processors, ThreadStaysOnTheOneItIsGiven) {
    const std::vector<int> allowed = AllowedProcessors();
    ASSERT_FALSE(allowed.empty());
    for (const int processor : allowed) {
        std::thread([processor] {
            KeepThreadOn(processor);
            // Setting a mask tells the former one.
            const DWORD_PTR mask = DWORD_PTR{1} << processor;
            EXPECT_EQ(SetThreadAffinityMask(GetCurrentThread(), mask), mask);
        }).join();
    }
}

} // namespace

} // namespace quorvane
