#include "platform/punctualcall.h"

#include "platform/monotonicclock.h"
#include "platform/processors.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace quorvane {

namespace {

TEST(PunctualCallThreads, StayEachOnAProcessorOfItsOwn) {
    const std::vector<int> allowed = AllowedProcessors();
    std::atomic<int> calls = 0;
    std::vector<int> makers;
    PunctualCall punctual(
        [&] {
            makers = AllowedProcessors();
            ++calls;
        },
        0.050);
    for (int call = 1; call <= 10; ++call) {
        punctual.At(Seconds() + 0.050);
        for (const double end = Seconds() + 10.0; calls < call && Seconds() < end;) std::this_thread::yield();
        punctual.Now();
        ASSERT_EQ(makers.size(), 1U);
        EXPECT_TRUE(makers[0] == allowed.front() || makers[0] == allowed.back()) << makers[0];
    }
    EXPECT_EQ(AllowedProcessors(), allowed) << "whoever appoints the calls stays free";
}

} // namespace

} // namespace quorvane
