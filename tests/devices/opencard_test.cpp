#include "devices/interface.h"

#include "bench/portbench.h"

namespace quorvane {
namespace {

using TextList = std::vector<std::string>;

// A file, a card that needs it, and how often that card has booted by then.
struct Firmware {
    std::int16_t type;
    CardModel model;
    const char* file;
    int boots;
};
constexpr Firmware EveryFirmware[] = {{IsaCardB, CardModel::C7300A, "QRADMX12.BIN", 0},
                                      {IsaCardB, CardModel::C7300B, "QRTDMX16.BIN", 1},
                                      {IsaCardC, CardModel::C7300C, "QRTDMX17.BIN", 0}};

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
    for (const Firmware& c : EveryFirmware) {
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
    for (const Firmware& c : EveryFirmware) {
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

} // namespace
} // namespace quorvane
