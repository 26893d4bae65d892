#include "devices/interface.h"

#include "bench/portbench.h"

namespace quorvane {
namespace {

using TextList = std::vector<std::string>;

using OpenOtherTypes = PortBench;

TEST_F(OpenOtherTypes, TypeNoneIsAnErrorBoxAndTouchesNothing) {
    Show.AutoXmit.Enabled = true;
    OpenPort(NoInterface);
    EXPECT_EQ(Captions(), TextList{Searching});
    EXPECT_EQ(Texts("box"), TextList{"INTERFACE SELECT ERROR"});
    EXPECT_EQ(Log.back().Title, "QUORVANE");
    EXPECT_EQ(Log.back().Sign, Icon::Critical);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_TRUE(Trace.empty());
    EXPECT_FALSE(InterfaceReady(NoInterface));
}

TEST_F(OpenOtherTypes, PcmciaAndPciOnlySayThatTheySearch) {
    Host.DMXSEND = [](std::int32_t*, std::int32_t*) {
        ADD_FAILURE() << "library";
        return 0;
    };
    for (const bool ntFamily : {false, true})
        for (const std::int16_t type : {PcmciaCard, PciCard}) {
            Log.clear();
            Show.NtFamily = ntFamily;
            OpenPort(type);
            EXPECT_EQ(Captions(), TextList{Searching});
            EXPECT_EQ(Show.InterfaceOpen[type], 0);
            EXPECT_TRUE(InterfaceReady(type)) << "their library is fed all the same";
        }
    EXPECT_TRUE(Trace.empty());
}

TEST_F(OpenOtherTypes, MainWindowIsRefreshedAtTheEndOfEach) {
    int refreshed = 0;
    Screen.RefreshMain = [&refreshed] { ++refreshed; };
    for (std::int16_t type = NoInterface; type <= PciCard; ++type) OpenPort(type);
    EXPECT_EQ(refreshed, 6);
}

TEST_F(OpenOtherTypes, SecondInstanceOpensNothing) {
    Show.SecondInstance = true;
    PlugIn(CardModel::C7300A);
    for (std::int16_t type = NoInterface; type <= PciCard; ++type) OpenPort(type);
    EXPECT_TRUE(Trace.empty());
    EXPECT_TRUE(Log.empty());
}

class Close : public PortBench {
protected:
    Close() {
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t, std::uint8_t*) {
            Commands.push_back(command);
            return 0;
        };
    }
    std::vector<int> Commands;
};

TEST_F(Close, SendsTheUsbCommandOnlyWhenTheUsbInterfaceIsOpen) {
    ClosePort(UsbInterface);
    EXPECT_TRUE(Commands.empty());
    Show.InterfaceOpen[UsbInterface] = 1;
    Show.InterfaceOpen[IsaCardB] = 1;
    ClosePort(IsaCardB);
    EXPECT_TRUE(Commands.empty());
    ClosePort(UsbInterface);
    EXPECT_EQ(Commands, std::vector<int>{2});
    EXPECT_EQ(Show.InterfaceOpen[UsbInterface], 0);
    EXPECT_EQ(Captions(), (TextList{Closed, Closed, Closed}));
}

TEST_F(Close, FailureStopsTheClockBeforeItReleasesAnything) {
    Show.InterfaceOpen[UsbInterface] = 1;
    Show.AutoXmit.Enabled = true;
    Host.DasHardCommand = [](std::int32_t, std::int32_t, std::uint8_t*) {
        EXPECT_FALSE(Show.AutoXmit.Enabled);
        return 0;
    };
    ReportFailure(UsbInterface);
    EXPECT_EQ(Captions(), (TextList{Closed, Failed}));
}

TEST_F(Close, FailureClearsWhatBelongsToItsTypeAndKeepsTheSelectedOne) {
    for (std::int16_t type = IsaCardB; type <= PciCard; ++type) {
        Show.InterfaceType = type;
        Show.InterfaceOpen.Fill(1);
        Show.CardBase = 0x140;
        Show.DriverHandle = 77;
        Show.InterfaceName = "X";
        Show.ActiveInterface = type;
        ReportFailure(type);
        EXPECT_EQ(Show.CardBase, type <= IsaCardC ? 0 : 0x140) << type;
        EXPECT_EQ(Show.DriverHandle, type >= PcmciaCard ? 0 : 77) << type;
        EXPECT_EQ(Show.InterfaceName, "") << type;
        EXPECT_EQ(Show.ActiveInterface, NoInterface) << type;
        EXPECT_EQ(Show.InterfaceType, type);
        for (std::int16_t other = NoInterface; other <= PciCard; ++other)
            EXPECT_EQ(Show.InterfaceOpen[other], other == type ? 0 : 1);
    }
}

using Waiting = Bench;

TEST_F(Waiting, LastsHalfASecondOfTheMonotonicClock) {
    int events = 0;
    Host.DoEvents = [this, &events] {
        Now += 0.125;
        ++events;
        return true;
    };
    EXPECT_TRUE(delay());
    EXPECT_EQ(events, 4);
}

TEST_F(Waiting, EndsAtOnceWhenTheProgramCloses) {
    int events = 0;
    Host.DoEvents = [&events] {
        ++events;
        return false;
    };
    EXPECT_FALSE(delay());
    EXPECT_EQ(events, 1);
}

TEST_F(Waiting, OutputClockStaysOffDuringATransfer) {
    Show.timSendToMerger.Enabled = true;
    EnableOutputClock();
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    Show.timSendToMerger.Enabled = false;
    EnableOutputClock();
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

} // namespace
} // namespace quorvane
