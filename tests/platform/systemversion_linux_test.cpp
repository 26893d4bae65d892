#include "platform/systemversion.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(SystemVersion, LinuxIsTenPointZeroWhateverItsKernel) { EXPECT_EQ(GetVersion(), 0x000AU); }

} // namespace

} // namespace quorvane
