#include "platform/promptthread.h"

#include <gtest/gtest.h>

#include <thread>
#include <windows.h>

namespace quorvane {

namespace {

TEST(PromptThread, ComesBeforeTheOrdinaryThreads) {
    std::thread([] {
        MakeThreadPrompt();
        EXPECT_EQ(GetThreadPriority(GetCurrentThread()), THREAD_PRIORITY_HIGHEST);
    }).join();
    EXPECT_EQ(GetThreadPriority(GetCurrentThread()), THREAD_PRIORITY_NORMAL);
}

} // namespace

} // namespace quorvane
