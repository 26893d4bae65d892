#include "app/heartbeat.h"

#include "model/show.h"
#include "platform/host.h"

#include <gtest/gtest.h>

namespace quorvane {

class HeartbeatTest : public testing::Test {
protected:
    HeartbeatTest() {
        Show = ShowState{};
        Show.InterfaceType = UsbInterface;
        Show.InterfaceOpen[UsbInterface] = 1;
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t, std::uint8_t*) {
            if (command == 4) ++sent;
            return 0;
        };
    }
    ~HeartbeatTest() override { Host = HostCalls{}; }

    Heartbeat heartbeat;
    int sent = 0;
};

TEST_F(HeartbeatTest, WaitEndsRightAfterATick) {
    Show.AutoXmit.Enabled = true;
    heartbeat.WaitForBeat();
    EXPECT_EQ(sent, 1);
    heartbeat.WaitForBeat();
    EXPECT_EQ(sent, 2);
}

TEST_F(HeartbeatTest, NothingIsWaitedForWhileNoClockIsEnabled) {
    heartbeat.WaitForBeat();
    EXPECT_EQ(sent, 0);
}

} // namespace quorvane
