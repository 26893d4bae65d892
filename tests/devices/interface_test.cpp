#include "devices/interface.h"

#include "bench/portbench.h"

namespace quorvane {
namespace {

using TextList = std::vector<std::string>;

class OpenIsaCard : public PortBench {
protected:
    OpenIsaCard() { WriteFirmware(); }

    void Open(std::int16_t type) {
        Show.InterfaceType = type;
        OpenPort(type);
    }

    void ExpectFailure(std::int16_t type) {
        EXPECT_EQ(Captions(), (TextList{Searching, Closed, Failed}));
        EXPECT_EQ(Show.InterfaceOpen[type], 0);
        EXPECT_EQ(Show.CardBase, 0);
        EXPECT_EQ(Show.InterfaceName, "");
        EXPECT_FALSE(Show.AutoXmit.Enabled);
        EXPECT_FALSE(InterfaceReady(type));
    }
};

TEST_F(OpenIsaCard, SevenThreeHundredBTakesTwoUploadsAndTheParameterBlock) {
    PlugIn(CardModel::C7300B, 0x160);
    Show.DmxIni.Fill(9);
    Open(IsaCardB);
    EXPECT_EQ(Captions(), (TextList{Searching, "QUORVANE: HALVENOR 7300B card found at address160h"}));
    EXPECT_EQ(Bus.Cards[0].Boots, 2);
    EXPECT_EQ(Bus.Cards[0].Memory[0], 's'); // the second system lies over the first
    EXPECT_EQ(Show.InterfaceOpen[IsaCardB], 1);
    EXPECT_EQ(Show.CardBase, 0x160);
    EXPECT_EQ(Show.CardState, 1);
    EXPECT_EQ(Show.InterfaceName, "7300B");
    EXPECT_EQ(Show.DmxIniDirty, 1);
    const std::vector<std::int16_t> words(Show.DmxIni.begin(), Show.DmxIni.end());
    EXPECT_EQ(words, (std::vector<std::int16_t>{60, 0, 0, 0, 1, 0, 0, 0, 0, 9, 9, 9, 9, 9, 9, 9}));
    EXPECT_TRUE(InterfaceReady(IsaCardB));
}

TEST_F(OpenIsaCard, CardThatRunsAloneTakesOneUploadAndKeepsTheParameterBlock) {
    for (const CardModel model : {CardModel::C7300A, CardModel::C7300BLC}) {
        Bus.Cards.clear();
        Log.clear();
        PlugIn(model, 0x100);
        Show.DmxIni.Fill(9);
        Open(IsaCardB);
        EXPECT_EQ(Captions(), (TextList{Searching, "7300A / 7300B-LC card found at address 100h"}));
        EXPECT_EQ(Bus.Cards[0].Boots, 1);
        EXPECT_EQ(Show.InterfaceOpen[IsaCardB], 1);
        EXPECT_EQ(Show.ActiveInterface, IsaCardB);
        EXPECT_EQ(Show.CardState, 128);
        EXPECT_EQ(Show.InterfaceName, "7300A / 7300B-LC");
        EXPECT_EQ(Show.DmxIniDirty, 0);
        EXPECT_EQ(Show.DmxIni[0], 9);
    }
}

TEST_F(OpenIsaCard, SevenThreeHundredCIsOpenedByTypeTwo) {
    PlugIn(CardModel::C7300C, 0x120);
    Open(IsaCardC);
    EXPECT_EQ(Captions(), (TextList{Searching, "QUORVANE: HALVENOR 7300C card found at address120h"}));
    EXPECT_EQ(Show.InterfaceOpen[IsaCardC], 1);
    EXPECT_EQ(Show.CardState, 5);
    EXPECT_EQ(Show.InterfaceName, "7300C");
    EXPECT_EQ(Show.DmxIniDirty, 0);
    EXPECT_EQ(Bus.Cards[0].ReadsOfStop, 1);
    EXPECT_EQ(Bus.Cards[0].WritesOfReset, 1);
    EXPECT_EQ(Bus.Cards[0].ReadsOfReset, 0);
}

TEST_F(OpenIsaCard, FailsForEveryOtherCard) {
    struct Case {
        std::int16_t type;
        CardModel model;
        CardFault fault;
    };
    const Case cases[] = {
        {IsaCardB, CardModel::C7300C, CardFault::None},
        {IsaCardB, CardModel::C7300B, CardFault::SecondBootFails},
        {IsaCardB, CardModel::C7300A, CardFault::Dead},
        {IsaCardB, CardModel::C7300B, CardFault::Garbage},
        {IsaCardB, CardModel::C7300A, CardFault::ForgetsProbeCell},
        {IsaCardC, CardModel::C7300A, CardFault::None},
        {IsaCardC, CardModel::C7300BLC, CardFault::None},
        {IsaCardC, CardModel::C7300B, CardFault::None},
        {IsaCardC, CardModel::C7300C, CardFault::Dead},
        {IsaCardC, CardModel::C7300C, CardFault::Garbage},
        {IsaCardC, CardModel::C7300C, CardFault::ForgetsProbeCell},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.type << " " << static_cast<int>(c.model) << " " << static_cast<int>(c.fault));
        Bus.Cards.clear();
        Log.clear();
        PlugIn(c.model, 0x140, c.fault);
        Show.AutoXmit.Enabled = true;
        Show.InterfaceName = "7300A / 7300B-LC";
        Open(c.type);
        ExpectFailure(c.type);
        EXPECT_EQ(Show.InterfaceType, c.type) << "the selected type stays";
    }
}

TEST_F(OpenIsaCard, SecondBootThatFailsLeavesTheParameterBlockAlone) {
    PlugIn(CardModel::C7300B, 0x140, CardFault::SecondBootFails);
    Show.DmxIni.Fill(9);
    Open(IsaCardB);
    EXPECT_EQ(Show.DmxIni[0], 9);
    EXPECT_EQ(Show.DmxIniDirty, 0);
    EXPECT_EQ(Bus.Cards[0].Boots, 2);
}

TEST_F(OpenIsaCard, ForgottenByteOfTheUploadDoesNotMatterWhenTheCardRuns) {
    PlugIn(CardModel::C7300A, 0x140, CardFault::ForgetsByte);
    Open(IsaCardB);
    EXPECT_EQ(Show.InterfaceOpen[IsaCardB], 1);
}

TEST_F(OpenIsaCard, FailsWithoutACardAndLooksForNoFile) {
    std::filesystem::remove(ProgramFolder / "QRADMX12.BIN");
    for (const std::int16_t type : {IsaCardB, IsaCardC}) {
        Log.clear();
        Trace.clear();
        Open(type);
        ExpectFailure(type);
        EXPECT_EQ(Trace.size(), 16u);
        EXPECT_TRUE(Texts("box").empty());
    }
}

TEST_F(OpenIsaCard, LowestOfTwoCardsIsUsedAndTheOtherLeftAlone) {
    PlugIn(CardModel::C7300A, 0x140);
    PlugIn(CardModel::C7300A, 0x120);
    Open(IsaCardB);
    EXPECT_EQ(Show.CardBase, 0x120);
    EXPECT_EQ(Bus.Cards[0].Boots, 0);
    for (const auto& [kind, port, value] : Trace) EXPECT_LT(port, 0x140);
}

TEST_F(OpenIsaCard, MissingFirmwareIsTouchedByNoStrobe) {
    struct Case {
        std::int16_t type;
        CardModel model;
        const char* file;
        int boots;
    };
    for (const Case& c : {Case{IsaCardB, CardModel::C7300A, "QRADMX12.BIN", 0},
                          Case{IsaCardB, CardModel::C7300B, "QRTDMX16.BIN", 1},
                          Case{IsaCardC, CardModel::C7300C, "QRTDMX17.BIN", 0}}) {
        SCOPED_TRACE(c.file);
        Bus.Cards.clear();
        Log.clear();
        Trace.clear();
        WriteFirmware();
        std::filesystem::remove(ProgramFolder / c.file);
        PlugIn(c.model);
        Open(c.type);
        ExpectFailure(c.type);
        EXPECT_EQ(Texts("box"), TextList{"Card OS file " +
                                         (ProgramFolder / c.file).make_preferred().string() + " is missing"});
        EXPECT_EQ(Bus.Cards[0].Boots, c.boots);
        EXPECT_EQ(Accesses('r', 3) + Accesses('w', 3), 0) << "port 3 is a system device";
        EXPECT_EQ(Show.InterfaceType, c.type);
    }
}

TEST_F(OpenIsaCard, UnreadableFirmwareDropsTheTypeForThisRunOnly) {
    struct Case {
        std::int16_t type;
        CardModel model;
        const char* file;
        int boots;
    };
    for (const Case& c : {Case{IsaCardB, CardModel::C7300A, "QRADMX12.BIN", 0},
                          Case{IsaCardB, CardModel::C7300B, "QRTDMX16.BIN", 1},
                          Case{IsaCardC, CardModel::C7300C, "QRTDMX17.BIN", 0}}) {
        SCOPED_TRACE(c.file);
        Bus.Cards.clear();
        Log.clear();
        Trace.clear();
        WriteFirmware();
        std::filesystem::remove(ProgramFolder / c.file);
        std::filesystem::create_directory(ProgramFolder / c.file);
        Settings["Interface/Type"] = std::to_string(c.type);
        PlugIn(c.model);
        Open(c.type);
        ExpectFailure(c.type);
        EXPECT_EQ(Texts("box"), TextList{std::string("Error while reading OS file ") + c.file});
        EXPECT_EQ(Show.InterfaceType, NoInterface);
        EXPECT_EQ(Settings["Interface/Type"], std::to_string(c.type));
        EXPECT_EQ(Bus.Cards[0].Boots, c.boots);
        std::filesystem::remove(ProgramFolder / c.file);
    }
}

TEST_F(OpenIsaCard, StateCellDecidesAfterAnEmptyFirmware) {
    struct Case {
        std::int16_t type;
        CardModel model;
        const char* empty;
        bool opens;
    };
    for (const Case& c :
         {Case{IsaCardB, CardModel::C7300A, "QRADMX12.BIN", true},
          Case{IsaCardB, CardModel::C7300BLC, "QRADMX12.BIN", true},
          Case{IsaCardB, CardModel::C7300B, "QRADMX12.BIN", false},
          Case{IsaCardB, CardModel::C7300B, "QRTDMX16.BIN", true}, // goes on with what the first file left
          Case{IsaCardC, CardModel::C7300C, "QRTDMX17.BIN", false}}) {
        SCOPED_TRACE(std::string(c.empty) + (c.opens ? " opens" : " fails"));
        Bus.Cards.clear();
        Log.clear();
        WriteFirmware();
        Write(c.empty, "");
        PlugIn(c.model);
        Open(c.type);
        if (!c.opens) ExpectFailure(c.type);
        EXPECT_EQ(Show.InterfaceOpen[c.type] == 1, c.opens);
        EXPECT_TRUE(Texts("box").empty());
        if (c.type == IsaCardC) {
            EXPECT_EQ(Bus.Cards[0].WritesOfReset, 1);
        }
    }
}

TEST_F(OpenIsaCard, StandsTheClockStillWhileItBoots) {
    PlugIn(CardModel::C7300B);
    int waits = 0;
    Host.DoEvents = [this, &waits] {
        EXPECT_FALSE(Show.AutoXmit.Enabled);
        ++waits;
        Now += 0.1;
        return true;
    };
    Show.AutoXmit.Enabled = true;
    Open(IsaCardB);
    EXPECT_GE(waits, 2);
    EXPECT_TRUE(Show.AutoXmit.Enabled) << "it was on before";
    Show.AutoXmit.Enabled = false;
    Open(IsaCardB);
    EXPECT_FALSE(Show.AutoXmit.Enabled) << "opening alone starts nothing";
}

TEST_F(OpenIsaCard, CardIsOutOfReachWhileItBootsWhoeverEnablesTheClock) {
    PlugIn(CardModel::C7300A);
    Host.DoEvents = [this] {
        Now += 0.1;
        EnableOutputClock();
        mnuDMXStart_Click();
        mnuDMXStop_Click();
        EXPECT_EQ(Show.CardBase, 0);
        return true;
    };
    Open(IsaCardB);
    EXPECT_EQ(Show.CardBase, 0x140);
    EXPECT_EQ(Bus.Cards[0].ReadsOfReset, 1);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

TEST_F(OpenIsaCard, AddressBelowThoseOfCardsIsPassedOverWithoutAWord) {
    for (const std::int32_t base : {1, 255}) {
        Show.AutoXmit.Enabled = true;
        OpenCardAt(base, IsaCardB);
        EXPECT_EQ(Show.CardBase, base);
        EXPECT_TRUE(Show.AutoXmit.Enabled) << "nothing further happens";
    }
    EXPECT_TRUE(Log.empty());
    EXPECT_TRUE(Trace.empty());
    EXPECT_EQ(Show.InterfaceOpen[IsaCardB], 0);
}

TEST_F(OpenIsaCard, GivesUpWhenTheProgramIsClosedMeanwhile) {
    PlugIn(CardModel::C7300B);
    Host.DoEvents = [] { return false; };
    Open(IsaCardB);
    ExpectFailure(IsaCardB);
    EXPECT_EQ(Bus.Cards[0].Boots, 1);
}

TEST_F(OpenIsaCard, WaitsHalfASecondBeforeItReadsTheState) {
    PlugIn(CardModel::C7300C);
    const double start = Now;
    Open(IsaCardC);
    EXPECT_NEAR(Now - start, 0.5, 0.011);
}

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
