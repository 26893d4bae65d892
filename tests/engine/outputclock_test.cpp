#include "bench/stage.h"

#include "devices/usbinterface.h"
#include "engine/outputclock.h"
#include "model/sequence.h"

#include <stdexcept>

namespace quorvane {

using OutputClock = Stage;

namespace {

constexpr std::int16_t IsaTypes[] = {IsaCardB, IsaCardC};
constexpr std::int16_t LibraryTypes[] = {UsbInterface, PcmciaCard, PciCard};

std::vector<std::uint8_t> AllAt(int level) {
    return std::vector<std::uint8_t>(512, static_cast<std::uint8_t>(level));
}

} // namespace

TEST_F(OutputClock, LiveWallGoesOutWhileNothingPlays) {
    for (const std::int16_t type : EveryInterface) {
        MakeWall(1, 1);
        Use(type);
        Show.ElementValue[1].Fill(static_cast<std::uint8_t>(40 + type));
        Tick();
        EXPECT_EQ(Frame()[3], 40 + type);
        EXPECT_EQ(Frame()[4], 0);
    }
    EXPECT_TRUE(PaintedElements.empty());
    EXPECT_EQ(LastText("status", "frmControl"), "");
}

TEST_F(OutputClock, UnknownTypesDoNothingAtAll) {
    MakeWall(1, 1);
    AddStep(9, 1, 5);
    StartPlaying();
    for (const std::int16_t type : {std::int16_t{-1}, std::int16_t{6}, std::int16_t{99}}) {
        Show.InterfaceType = type;
        Tick();
        EXPECT_EQ(Show.HoldCounter, 0);
    }
}

TEST_F(OutputClock, ParameterBlockGoesToTheCardOnce) {
    MakeWall(1, 1);
    Use(IsaCardB);
    for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(1000 + word);
    Show.DmxIni[3] = 200;
    Show.DmxIni[4] = 1;
    Show.DmxIniDirty = 1;
    Tick();
    EXPECT_EQ(Memory[1008], 1000 % 256); // low bytes
    EXPECT_EQ(Memory[1011], 200);
    EXPECT_EQ(Memory[1017], 1009 % 256);
    EXPECT_EQ(Memory[1018], 0); // ten words and no more
    EXPECT_EQ(Show.DmxIniDirty, 0);
    Written.clear();
    Tick();
    EXPECT_EQ(Written, (std::vector<int>{1024, 1025, 1026, 1027}));
}

TEST_F(OutputClock, RebuildsTheChannelCountFromTheRoundedWordsWithoutUndoingTheRounding) {
    for (const auto& [elements, count] : std::vector<std::pair<int, int>>{{10, 40}, {50, 456}, {121, 740}}) {
        MakeWall(elements, 1);
        EXPECT_EQ(Show.ChannelCount, elements * 4);
        Use(IsaCardB);
        Tick();
        EXPECT_EQ(Show.ChannelCount, count);
    }
}

TEST_F(OutputClock, ChannelCountIsRebuiltFromWholeSignedWords) {
    MakeWall(1, 1);
    Use(IsaCardB);
    Show.DmxIni[3] = -5;
    Show.DmxIni[4] = 2;
    Show.DmxIniDirty = 1;
    Tick();
    EXPECT_EQ(Show.ChannelCount, 507);
    Show.DmxIni[3] = 300;
    Show.DmxIniDirty = 1;
    Tick();
    EXPECT_EQ(Show.ChannelCount, 812);
}

TEST_F(OutputClock, OnlyTheFirstCardKindTakesTheParameterBlock) {
    for (const std::int16_t type : {IsaCardC, UsbInterface, PcmciaCard, PciCard}) {
        MakeWall(50, 1);
        Use(type);
        Tick();
        EXPECT_EQ(Show.DmxIniDirty, 1);
        EXPECT_EQ(Show.ChannelCount, 200);
        EXPECT_EQ(Memory[1011], 0);
    }
}

TEST_F(OutputClock, EveryTickStrobesTheCardAndWritesTheCaption) {
    MakeWall(1, 1);
    Use(IsaCardB);
    Tick(3);
    EXPECT_EQ(StartReads, 3);
    EXPECT_EQ(StartWrites, 0);
    EXPECT_EQ(Texts("caption").size(), 3u);
    Use(IsaCardC);
    Tick(2);
    EXPECT_EQ(StartReads, 3);
    EXPECT_EQ(StartWrites, 2);
}

TEST_F(OutputClock, CardGetsItsParametersThenTheFrameAndIsStartedLast) {
    MakeWall(1, 1);
    Use(IsaCardB);
    Show.DmxIniDirty = 1;
    Tick();
    ASSERT_EQ(Written.size(), 10u + 4u);
    EXPECT_EQ(Written.front(), 1008);
    EXPECT_EQ(Written.back(), 1027);
    for (const std::int16_t type : IsaTypes) {
        Use(type);
        std::size_t writtenAtStart = 0;
        const auto start = [&] { writtenAtStart = Written.size(); };
        Host.DlPortReadPortUchar = [start, read = Host.DlPortReadPortUchar](std::uint32_t port) {
            if (port == Base + 3) start();
            return read(port);
        };
        Host.DlPortWritePortUchar = [start, write = Host.DlPortWritePortUchar](std::uint32_t port,
                                                                               std::uint8_t value) {
            if (port == Base + 3) start();
            write(port, value);
        };
        Tick();
        EXPECT_EQ(writtenAtStart, Written.size()) << type;
    }
}

TEST_F(OutputClock, LowestAddressOfACardIsDriven) {
    MakeWall(1, 1);
    Use(IsaCardB);
    Show.CardBase = 0x100;
    int frames = 0;
    Host.DlPortReadPortUchar = [](std::uint32_t) { return std::uint8_t{0}; };
    Host.DlPortWritePortUchar = [&frames](std::uint32_t port, std::uint8_t) { frames += port == 0x102; };
    Tick();
    EXPECT_GT(frames, 0);
}

TEST_F(OutputClock, WithoutAnOpenCardTheShowIsPreviewedAndNoPortTouched) {
    for (const std::int16_t type : IsaTypes)
        for (const int base : {0, 255}) {
            MakeWall(1, 1);
            Use(type);
            Show.CardBase = base;
            Show.StepCount = 0;
            AddStep(80, 1, 5);
            StartPlaying();
            Show.ElementValue[1].Fill(0);
            int ports = 0;
            Host.DlPortReadPortUchar = [&ports](std::uint32_t) { return static_cast<std::uint8_t>(++ports); };
            Host.DlPortWritePortUchar = [&ports](std::uint32_t, std::uint8_t) { ++ports; };
            Show.StatusFlags.Set(Status::Monitor);
            Tick(7);
            EXPECT_EQ(ports, 0);
            EXPECT_EQ(Level(), 80);
            EXPECT_FALSE(Show.AutoXmit.Enabled);
        }
}

TEST_F(OutputClock, UsbFrameGoesOutAsCommandFiveThenFour) {
    MakeWall(1, 1);
    Use(UsbInterface);
    std::uint8_t* received = nullptr;
    std::uint8_t* sent = nullptr;
    Host.DasHardCommand = [&](std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
        Calls.push_back(std::to_string(command) + " " + std::to_string(parameter));
        if (command == 5) received = buffer;
        if (command == 4) sent = buffer;
        return -1; // ignored
    };
    Tick(2);
    EXPECT_EQ(Calls, (std::vector<std::string>{"5 0", "4 512", "5 0", "4 512"}));
    EXPECT_NE(received, nullptr);
    EXPECT_EQ(sent, Show.DmxOutBytes.data());
}

TEST_F(OutputClock, UsbInterfaceThatIsNotOpenIsNeverCalledButTheShowGoesOn) {
    MakeWall(1, 1);
    Use(UsbInterface);
    Show.InterfaceOpen[UsbInterface] = 0;
    AddStep(80, 1, 5);
    StartPlaying();
    Show.Patch[1][1] = 0; // a preview does not look at the patch
    Tick(7);
    EXPECT_TRUE(Calls.empty());
    EXPECT_EQ(Level(), 80);
    EXPECT_EQ(Show.DmxOutBytes, decltype(Show.DmxOutBytes){});
}

TEST_F(OutputClock, CardFrameGoesOutThroughBothSendCallsEveryTick) {
    MakeWall(1, 1);
    Show.DriverHandle = 7;
    for (const std::int16_t type : {PcmciaCard, PciCard}) {
        Calls.clear();
        Use(type);
        Tick(2);
        EXPECT_EQ(Calls, (std::vector<std::string>{"send 7", "send2 7", "send 7", "send2 7"}));
    }
}

TEST_F(OutputClock, CardsThatAreNeverOpenedSendAllTheSame) {
    MakeWall(1, 1);
    Use(PciCard);
    Show.InterfaceOpen[PciCard] = 0;
    Tick();
    EXPECT_EQ(Calls.size(), 2u);
}

TEST_F(OutputClock, DriverHandleIsHandedOverByReference) {
    Use(PciCard);
    Host.DMXSEND = [](std::int32_t* handle, std::int32_t* frame) {
        EXPECT_EQ(frame, Show.DmxOut.data());
        *handle = 42;
        return 0;
    };
    Tick();
    EXPECT_EQ(Show.DriverHandle, 42);
    EXPECT_EQ(Calls, (std::vector<std::string>{"send2 42"}));
}

TEST_F(OutputClock, TestLevelsReplaceTheShowOnEveryInterface) {
    for (const std::int16_t type : EveryInterface) {
        MakeWall(1, 1);
        Use(type);
        Show.StepCount = 0;
        AddStep(80, 1, 5);
        StartPlaying();
        Show.TestLevels.Fill(33);
        Show.TestLevels[0] = 1;
        Show.TestLevels[511] = 2;
        Show.StatusFlags.Set(Status::TestMode);
        Tick(9);
        auto expected = AllAt(33);
        expected.front() = 1;
        expected.back() = 2;
        EXPECT_EQ(Frame(), expected) << type;
        EXPECT_EQ(Show.HoldCounter, 0) << "the sequence advanced";
        EXPECT_EQ(Show.CurrentStep, 1);
    }
}

TEST_F(OutputClock, CardFrameHoldsTheTestLevelsInTestMode) {
    MakeWall(1, 1);
    Use(PcmciaCard);
    Show.ElementValue[1].Fill(200);
    Show.TestLevels[2] = 17;
    Show.StatusFlags.Set(Status::TestMode);
    Tick();
    EXPECT_EQ(Show.DmxOut[2], 17);
    EXPECT_EQ(Show.DmxOut[0], 0);
}

TEST_F(OutputClock, ShowReturnsAfterTestModeAndUnpatchedChannelsKeepTheTestLevel) {
    MakeWall(1, 1);
    Use(UsbInterface);
    Show.ElementValue[1].Fill(200);
    Show.TestLevels.Fill(33);
    Show.StatusFlags.Set(Status::TestMode);
    Tick();
    TestModeOff();
    Tick();
    EXPECT_EQ(Frame()[0], 200);
    EXPECT_EQ(Frame()[4], 33);
}

TEST_F(OutputClock, PreviewPlaysOnInTestModeAlthoughOutputWouldStand) {
    MakeWall(1, 1);
    AddStep(80, 1, 5);
    StartPlaying();
    Show.StatusFlags.Set(Status::TestMode);
    Tick(7);
    EXPECT_EQ(Level(), 80);
}

TEST_F(OutputClock, TestModeOffTellsTheTestWindowAndClearsTheBit) {
    int ended = 0;
    Screen.TestModeEnded = [&ended] { ++ended; };
    Show.StatusFlags.Set(Status::TestMode);
    TestModeOff();
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode));
}

TEST_F(OutputClock, FrameClearedByAnOpeningGoesOutSoOnceWhereATransitionStarts) {
    MakeWall(1, 1);
    Use(UsbInterface);
    AddStep(80, 1, 5);
    AddStep(80, 1, 5);
    Show.ElementValue[1].Fill(80);
    StartPlaying();
    SetFrame(AllAt(80));
    StartUsbInterface();
    Tick();
    EXPECT_EQ(Frame()[0], 80);
    EXPECT_EQ(Frame()[3], 0);
    Tick();
    EXPECT_EQ(Frame()[3], 80);
}

TEST_F(OutputClock, FailingTickLeavesTheErrorToTheCallerAndCountsNothing) {
    for (const std::int16_t type : LibraryTypes) {
        MakeWall(1, 1);
        Use(type);
        Show.StepCount = 0;
        AddStep(80, 2, 5);
        StartPlaying();
        Tick();
        EXPECT_EQ(Show.HoldCounter, 2);
        Show.Patch[1][1] = 0;
        Calls.clear();
        EXPECT_THROW(Tick(), std::out_of_range);
        EXPECT_EQ(Show.HoldCounter, 2); // the routine runs before the counter falls
        EXPECT_TRUE(Calls.empty());
        Show.Patch[1][1] = 1;
        Tick(2);
        Show.Patch[1][1] = 0;
        EXPECT_THROW(Tick(), std::out_of_range);
        EXPECT_EQ(Show.BlendCounter, 5);
    }
}

TEST_F(OutputClock, FadeGoesOnFromWhereItStoodOnceThePatchIsMended) {
    for (const std::int16_t type : LibraryTypes) {
        MakeWall(2, 1);
        Use(type);
        Show.ElementValue.Fill({});
        Show.StepCount = 0;
        AddStep(0, 1, 5);
        AddStep(100, 1, 5);
        StartPlaying();
        Tick(4); // the start, one tick of hold, two of five
        EXPECT_EQ(Level(), 40);
        Show.Patch[2][4] = 0;
        EXPECT_THROW(Tick(), std::out_of_range);
        EXPECT_EQ(Level(), 40) << "elements before the fault would be ahead of the others";
        Show.Patch[2][4] = 8;
        Tick(3);
        EXPECT_EQ(Level(), 100);
        EXPECT_EQ(Show.ElementValue[2][4], 100);
    }
}

} // namespace quorvane
