#include "bench/portbench.h"
#include "devices/interface.h"

namespace quorvane {
namespace {

using TextList = std::vector<std::string>;

const std::string Started = ": KMO DMX QUORVANE  ....running. DMX started. Interface = ";
const std::string Stopped = ": KMO DMX QUORVANE  ....stopped: DMX STOP";
const std::string SecondTime = "Dieses Programm wird zum 2. Mal ausgeführt. DMX-QUORVANE darf auf einem "
                               "Rechner nicht mehr als einmal mit "
                               "DMX-Ausgabe ausgeführt werden. Interfaceunterstützung wird deaktiviert.";

class DmxMenu : public PortBench {
protected:
    DmxMenu() {
        WriteFirmware();
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t, std::uint8_t*) {
            UsbCommands.push_back(command);
            return command == 1 ? UsbKindFound : 0;
        };
        Screen.EnableDmxEntries = [this](bool on) { Entries.push_back(on ? "on" : "off"); };
        Screen.ShowDmxEntries = [this](bool shown) { Entries.push_back(shown ? "shown" : "hidden"); };
        Screen.CheckDmxStop = [this](bool stopped) { Entries.push_back(stopped ? "stopped" : "running"); };
    }

    // The whole command, with the type chosen in its dialog.
    void InitialiseAndChoose(std::int16_t type) {
        ASSERT_TRUE(InitialiseInterfaces());
        Log.clear();
        Entries.clear();
        ChooseInterface(type);
    }

    // What a command does, in order, each with the clock as it is then.
    void NoteTheOrder() {
        Show.CaptionPrefix.clear();
        const auto note = [this](std::string_view what) {
            Entries.push_back(std::string(what) + (Show.AutoXmit.Enabled ? ", clock on" : ", clock off"));
        };
        Host.DlPortReadPortUchar = [note](std::uint32_t) {
            note("strobe");
            return std::uint8_t{0};
        };
        Screen.MainCaption = note;
        Screen.CheckDmxStop = [note](bool stopped) { note(stopped ? "stopped" : "running"); };
    }

    int UsbKindFound = 0;
    std::vector<int> UsbCommands;
    TextList Entries;
};

TEST_F(DmxMenu, InitialiseTriesEveryTypeInTurn) {
    for (const bool ntFamily : {true, false}) {
        Log.clear();
        Show.NtFamily = ntFamily;
        EXPECT_TRUE(InitialiseInterfaces());
        TextList captions{Searching, Closed, Failed,    Searching,
                          Closed,    Failed, Searching, "USB DMX Interface not found",
                          Closed,    Failed};
        if (!ntFamily) captions.insert(captions.end(), {Searching, Searching});
        EXPECT_EQ(Captions(), captions);
        EXPECT_TRUE(Texts("box").empty());
    }
}

TEST_F(DmxMenu, InitialiseMarksEveryInterfaceFound) {
    PlugIn(CardModel::C7300C);
    UsbKindFound = 10;
    EXPECT_TRUE(InitialiseInterfaces());
    const std::vector<int> open(Show.InterfaceOpen.begin(), Show.InterfaceOpen.end());
    EXPECT_EQ(open, (std::vector<int>{0, 0, 1, 1, 0, 0}));
}

TEST_F(DmxMenu, InitialiseEndsWithoutADialogWhenTheProgramIsClosed) {
    PlugIn(CardModel::C7300A);
    Host.DoEvents = [] { return false; };
    EXPECT_FALSE(InitialiseInterfaces());
    EXPECT_TRUE(UsbCommands.empty()) << "nothing is opened that nobody would close";
}

TEST_F(DmxMenu, ChosenCardOnWhichTheOtherTypeWasTriedIsOpenedAgain) {
    for (const CardModel model : {CardModel::C7300A, CardModel::C7300B}) {
        Bus.Cards.clear();
        PlugIn(model);
        InitialiseAndChoose(IsaCardB);
        EXPECT_EQ(Show.CardBase, 0x140);
        EXPECT_EQ(Show.InterfaceOpen[IsaCardB], 1);
        EXPECT_EQ(Show.ActiveInterface, IsaCardB);
        EXPECT_EQ(Captions().back(), ": ");
        EXPECT_FALSE(Show.AutoXmit.Enabled) << "ISA cards wait for DMX Start";
        mnuDMXStart_Click();
        EXPECT_TRUE(Show.AutoXmit.Enabled);
        EXPECT_TRUE(Bus.Cards[0].Started);
    }
}

TEST_F(DmxMenu, ChosenCardThatStillRunsIsNotOpenedAgain) {
    PlugIn(CardModel::C7300C);
    InitialiseAndChoose(IsaCardC);
    EXPECT_EQ(Captions(), TextList{": "});
    EXPECT_EQ(Bus.Cards[0].Boots, 1);
    EXPECT_EQ(Show.CardBase, 0x140);
    EXPECT_EQ(Show.InterfaceName, "7300C");
}

TEST_F(DmxMenu, ChosenCardThatFailsToOpenAgainSaysSo) {
    PlugIn(CardModel::C7300A);
    ASSERT_TRUE(InitialiseInterfaces());
    Bus.Cards.clear();
    Log.clear();
    ChooseInterface(IsaCardB);
    EXPECT_EQ(Captions(), (TextList{Searching, Closed, Failed}));
    EXPECT_EQ(Show.ActiveInterface, NoInterface);
    EXPECT_EQ(Show.InterfaceType, IsaCardB);
    EXPECT_EQ(Settings["Interface/Type"], "1");
}

TEST_F(DmxMenu, UnreadableFirmwareAtTheReopeningStillStoresTheChoice) {
    PlugIn(CardModel::C7300A);
    ASSERT_TRUE(InitialiseInterfaces());
    std::filesystem::remove(ProgramFolder / "QRADMX12.BIN");
    std::filesystem::create_directory(ProgramFolder / "QRADMX12.BIN");
    ChooseInterface(IsaCardB);
    EXPECT_EQ(Show.InterfaceType, NoInterface);
    EXPECT_EQ(Settings["Interface/Type"], "1");
}

TEST_F(DmxMenu, ChosenTypeThatWasNotFoundIsStoredButNotActive) {
    for (std::int16_t type = IsaCardB; type <= UsbInterface; ++type) {
        Show.ActiveInterface = PciCard;
        InitialiseAndChoose(type);
        EXPECT_EQ(Show.InterfaceType, type);
        EXPECT_EQ(Show.ActiveInterface, NoInterface);
        EXPECT_EQ(Settings["Interface/Type"], std::to_string(type));
        EXPECT_EQ(Captions(), TextList{": "});
        EXPECT_EQ(Show.InterfaceName, "");
        EXPECT_FALSE(Show.AutoXmit.Enabled);
    }
}

TEST_F(DmxMenu, OutputOfTheChosenLibraryInterfaceBeginsAtOnce) {
    UsbKindFound = 2;
    for (std::int16_t type = UsbInterface; type <= PciCard; ++type) {
        InitialiseAndChoose(type);
        EXPECT_TRUE(Show.AutoXmit.Enabled) << type;
        EXPECT_EQ(Show.ActiveInterface, type == UsbInterface ? UsbInterface : NoInterface);
    }
    Show.timSendToMerger.Enabled = true;
    InitialiseAndChoose(UsbInterface);
    EXPECT_FALSE(Show.AutoXmit.Enabled) << "a transfer runs";
}

TEST_F(DmxMenu, ActiveInterfaceIsNamed) {
    UsbKindFound = 13;
    InitialiseAndChoose(UsbInterface);
    EXPECT_EQ(Show.InterfaceName, "USBLINK2");
    InitialiseAndChoose(PciCard);
    EXPECT_EQ(Show.InterfaceName, "") << "never opened";
    PlugIn(CardModel::C7300BLC);
    InitialiseAndChoose(IsaCardB);
    EXPECT_EQ(Show.InterfaceName, "7300A / 7300B-LC");
}

TEST_F(DmxMenu, EntriesAreShownAndOnForIsaCardsAndHiddenForTheOthers) {
    for (std::int16_t type = IsaCardB; type <= PciCard; ++type) {
        InitialiseAndChoose(type);
        EXPECT_EQ(Entries, type <= IsaCardC ? (TextList{"shown", "on"}) : TextList{"hidden"}) << type;
    }
}

TEST_F(DmxMenu, StartTakesEachFamilysOwnDirection) {
    PlugIn(CardModel::C7300B);
    Show.InterfaceType = IsaCardB;
    Show.CardBase = 0x140;
    Show.InterfaceName = "7300B";
    mnuDMXStart_Click();
    EXPECT_EQ(Trace, (std::vector<PortAccess>{{'r', 0x143, 0}}));
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Captions(), TextList{Started + "7300B"});
    EXPECT_EQ(Entries, TextList{"running"});
    Trace.clear();
    Show.InterfaceType = IsaCardC;
    mnuDMXStart_Click();
    EXPECT_EQ(Trace, (std::vector<PortAccess>{{'w', 0x143, 0}}));
}

TEST_F(DmxMenu, StopTakesTheOppositeDirectionsOfStart) {
    Show.InterfaceType = IsaCardB;
    Show.CardBase = 0x160;
    Show.AutoXmit.Enabled = true;
    mnuDMXStop_Click();
    EXPECT_EQ(Trace, (std::vector<PortAccess>{{'w', 0x160, 0}}));
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Captions(), TextList{Stopped});
    EXPECT_EQ(Entries, TextList{"stopped"});
    Trace.clear();
    Show.InterfaceType = IsaCardC;
    mnuDMXStop_Click();
    EXPECT_EQ(Trace, (std::vector<PortAccess>{{'r', 0x160, 0}}));
}

TEST_F(DmxMenu, StartStrobesThenTurnsTheClockOnThenSaysSo) {
    Show.InterfaceType = IsaCardB;
    Show.CardBase = 0x140;
    NoteTheOrder();
    mnuDMXStart_Click();
    EXPECT_EQ(Entries, (TextList{"strobe, clock off", "running, clock on", Started + ", clock on"}));
}

TEST_F(DmxMenu, StopTurnsTheClockOffAndSaysSoThenStrobesThenTicksTheEntry) {
    Show.InterfaceType = IsaCardC;
    Show.CardBase = 0x160;
    Show.AutoXmit.Enabled = true;
    NoteTheOrder();
    mnuDMXStop_Click();
    EXPECT_EQ(Entries, (TextList{Stopped + ", clock off", "strobe, clock off", "stopped, clock off"}));
}

TEST_F(DmxMenu, StartAndStopChangeNothingWithoutAnIsaCard) {
    struct Case {
        std::int16_t type;
        int base;
    };
    for (const Case& c : {Case{IsaCardB, 0}, Case{IsaCardC, 255}, Case{UsbInterface, 0}, Case{PcmciaCard, 0},
                          Case{PciCard, 0}, Case{NoInterface, 0}, Case{UsbInterface, 0x140}}) {
        Show.InterfaceType = c.type;
        Show.InterfaceOpen[c.type] = 1;
        Show.CardBase = c.base;
        Show.AutoXmit.Enabled = false;
        mnuDMXStart_Click();
        EXPECT_FALSE(Show.AutoXmit.Enabled) << c.type;
        Show.AutoXmit.Enabled = true;
        mnuDMXStop_Click();
        EXPECT_TRUE(Show.AutoXmit.Enabled) << c.type;
    }
    EXPECT_TRUE(Trace.empty());
    EXPECT_TRUE(Log.empty());
    EXPECT_TRUE(Entries.empty());
    EXPECT_TRUE(UsbCommands.empty());
}

TEST_F(DmxMenu, StartDuringATransferStrobesButLeavesTheClockOff) {
    Show.InterfaceType = IsaCardB;
    Show.CardBase = 0x140;
    Show.timSendToMerger.Enabled = true;
    mnuDMXStart_Click();
    EXPECT_EQ(Trace.size(), 1u);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
}

TEST_F(DmxMenu, SecondInstanceIsToldAndOpensNothing) {
    PlugIn(CardModel::C7300A);
    Show.InterfaceType = IsaCardB;
    Show.InterfaceOpen[UsbInterface] = 1;
    Settings["Interface/Type"] = "1";
    Host.PreviousInstance = [] { return true; };
    EXPECT_FALSE(InitialiseInterfaces());
    ASSERT_GE(Log.size(), 2u);
    EXPECT_EQ(Log[0].Kind, "beep");
    EXPECT_EQ(Log[1], (Noticed{"box", SecondTime, "", "DMX QUORVANE", Icon::Exclamation}));
    EXPECT_EQ(Entries, TextList{"off"});
    EXPECT_EQ(UsbCommands, std::vector<int>{2});
    EXPECT_TRUE(Trace.empty());
    EXPECT_TRUE(Show.SecondInstance);
    EXPECT_EQ(Show.InterfaceType, NoInterface);
    EXPECT_EQ(Settings["Interface/Type"], "1");
}

TEST_F(DmxMenu, SecondInstanceClosesThreeOrFiveTypes) {
    for (const bool ntFamily : {true, false}) {
        Log.clear();
        Show.NtFamily = ntFamily;
        DisableSecondInstance();
        EXPECT_EQ(Captions(), TextList(ntFamily ? 3 : 5, Closed));
    }
}

TEST_F(DmxMenu, SecondInstanceStaysOneWhenTheFirstHasGone) {
    DisableSecondInstance();
    Log.clear();
    EXPECT_FALSE(InitialiseInterfaces());
    EXPECT_EQ(Texts("box"), TextList{SecondTime});
}

using StoredType = Bench;

TEST_F(StoredType, IsTakenFromZeroToFiveOnly) {
    struct Case {
        const char* stored;
        int type;
    };
    for (const Case& c :
         {Case{"0", 0}, Case{"1", 1}, Case{"5", 5}, Case{" 3 ", 3}, Case{"6", 0}, Case{"-1", 0}, Case{"", 0},
          Case{"USB", 0}, Case{"3x", 0}, Case{"99999999999", 0}, Case{"65539", 0}, Case{"2.5", 0}}) {
        Settings["Interface/Type"] = c.stored;
        EXPECT_EQ(StoredInterfaceType(), c.type) << c.stored;
    }
    Settings.clear();
    EXPECT_EQ(StoredInterfaceType(), 0);
}

} // namespace
} // namespace quorvane
