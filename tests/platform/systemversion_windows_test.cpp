#include "platform/systemversion.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(SystemVersion, MajorStandsInTheLowestByteAndMinorInTheSecond) {
    EXPECT_GE(GetVersion() & 0xFFU, 5U);
    EXPECT_LE(GetVersion() & 0xFFU, 20U);
    EXPECT_LE(GetVersion() >> 8U, 3U);
}

} // namespace

} // namespace quorvane
