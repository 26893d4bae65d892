// Every combination of present and missing interfaces: what a start and "Karte initialisieren" make of it,
// and whether light comes out afterwards where a user expects it.
#include "bench/portbench.h"
#include "devices/interface.h"
#include "engine/outputclock.h"
#include "files/lifecycle.h"
#include "files/settingsfile.h"

#include <optional>

namespace quorvane {
namespace {

// What is plugged into a machine.
struct Machine {
    std::optional<CardModel> Card;
    bool Firmware;
    int UsbKind; // what the USB library answers to its open command

    bool Has(std::int16_t type) const {
        if (type == UsbInterface) return UsbKind == 2 || UsbKind == 12;
        if (!Card || !Firmware) return false;
        return type == (*Card == CardModel::C7300C ? IsaCardC : IsaCardB) && type <= IsaCardC;
    }
    std::string Text() const {
        return "card " + std::to_string(Card ? static_cast<int>(*Card) : -1) +
               (Firmware ? ", firmware" : "") + ", USB " + std::to_string(UsbKind);
    }
};

std::vector<Machine> Machines() {
    std::vector<Machine> machines;
    const std::vector<std::optional<CardModel>> cards{std::nullopt, CardModel::C7300A, CardModel::C7300BLC,
                                                      CardModel::C7300B, CardModel::C7300C};
    for (const auto& card : cards)
        for (const bool firmware : {true, false})
            for (const int usb : {0, 2, 5, 12}) machines.push_back({card, firmware, usb});
    return machines;
}

class Interfaces : public PortBench {
protected:
    // A fresh program on this machine, with a wall of one element, red at 200.
    void PutTogether(const Machine& machine) {
        Bus.Cards.clear();
        if (machine.Card) PlugIn(*machine.Card);
        for (const char* name : {"QRADMX12.BIN", "QRTDMX16.BIN", "QRTDMX17.BIN"})
            std::filesystem::remove(ProgramFolder / name);
        if (machine.Firmware) WriteFirmware();
        Write("QUORVANE.ini", "");
        Show = ShowState{};
        Host.DasHardCommand = [this, kind = machine.UsbKind](std::int32_t command, std::int32_t,
                                                             std::uint8_t* buffer) {
            if (command == 4) usbLevel = buffer[0];
            return command == 1 ? kind : 0;
        };
        Host.DMXSEND = [this](std::int32_t*, std::int32_t* frame) {
            libraryLevel = frame[0];
            return 0;
        };
    }
    void Start(const Machine& machine, std::int16_t stored) {
        PutTogether(machine);
        Settings["Interface/Type"] = std::to_string(stored);
        ASSERT_TRUE(StartProgram());
        MakeWall(1, 1);
        Show.ElementValue[1][1] = 200;
    }
    // The types on whose lines the light stands after a few beats of the heart.
    std::vector<int> Lit() {
        usbLevel = libraryLevel = 0;
        if (!Bus.Cards.empty()) Bus.Cards[0].Memory[1024] = 0;
        for (int beat = 0; beat < 3; ++beat)
            if (Show.AutoXmit.Enabled) AutoXmit_Timer();
        std::vector<int> lit;
        if (!Bus.Cards.empty() && Bus.Cards[0].Level(1) == 200) lit.push_back(Show.InterfaceType);
        if (usbLevel == 200) lit.push_back(UsbInterface);
        if (libraryLevel == 200) lit.push_back(Show.InterfaceType);
        return lit;
    }
    static std::vector<int> Open() { return {Show.InterfaceOpen.begin(), Show.InterfaceOpen.end()}; }
    std::string Caption() const { return LastText("caption", "MDIHaupt"); }

    int usbLevel = 0;
    int libraryLevel = 0;
};

TEST_F(Interfaces, StartOpensTheStoredOneAndNothingElse) {
    for (const Machine& machine : Machines())
        for (std::int16_t stored = NoInterface; stored <= PciCard; ++stored) {
            SCOPED_TRACE(machine.Text() + ", stored " + std::to_string(stored));
            Log.clear();
            Start(machine, stored);
            std::vector<int> open(6);
            if (machine.Has(stored)) open.at(static_cast<std::size_t>(stored)) = 1;
            EXPECT_EQ(Open(), open);
            EXPECT_EQ(Show.InterfaceType, stored);
            EXPECT_EQ(Settings["Interface/Type"], std::to_string(stored));
            EXPECT_EQ(Show.ActiveInterface, machine.Has(stored) ? stored : NoInterface);
            const bool library = stored == PcmciaCard || stored == PciCard;
            EXPECT_EQ(Show.AutoXmit.Enabled, machine.Has(stored) || library);
            const std::vector<int> lit =
                machine.Has(stored) || library ? std::vector<int>{stored} : std::vector<int>{};
            EXPECT_EQ(Lit(), lit);
        }
}

TEST_F(Interfaces, StartSetsDefaultsThenTheEntriesThenOpensTheCardThenReadsItsParameters) {
    PutTogether({CardModel::C7300B, true, 0});
    Settings["Interface/Type"] = "1";
    ASSERT_TRUE(StartProgram());
    for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(30 + word);
    SaveINI();
    Show = ShowState{};
    std::vector<std::string> order;
    Screen.EnableDmxEntries = [&order](bool) {
        EXPECT_EQ(Show.SequenceTimes[1][BlendTime], 50) << "defaults come first";
        order.emplace_back("entries");
    };
    Screen.MainCaption = [&order](std::string_view text) { order.emplace_back(text); };
    Screen.PlaceMain = [&order] { order.emplace_back("settings"); };
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(order,
              (std::vector<std::string>{": KMO DMX QUORVANE  Ver V 1.21", "entries", Searching,
                                        "QUORVANE: HALVENOR 7300B card found at address140h", "settings"}));
    EXPECT_EQ(Show.DmxIni[0], 30) << "not the 60 that opening the card has set";
    EXPECT_EQ(Show.DmxIni[15], 45);
    EXPECT_EQ(Show.DmxIniDirty, 1);
}

TEST_F(Interfaces, StartSaysInTheCaptionWhatBecameOfTheStoredOne) {
    struct Case {
        Machine machine;
        std::int16_t stored;
        std::string caption;
    };
    const std::vector<Case> cases{
        {{CardModel::C7300A, true, 0}, 1, "7300A / 7300B-LC card found at address 140h"},
        {{CardModel::C7300B, true, 0}, 1, "QUORVANE: HALVENOR 7300B card found at address140h"},
        {{CardModel::C7300C, true, 0}, 2, "QUORVANE: HALVENOR 7300C card found at address140h"},
        {{CardModel::C7300C, true, 0}, 1, Failed},
        {{CardModel::C7300B, true, 0}, 2, Failed},
        {{CardModel::C7300B, false, 0}, 1, Failed},
        {{std::nullopt, true, 2}, 3, "QUORVANE: ORBILUX USBLINK1 Interface opened succesfully"},
        {{std::nullopt, true, 12}, 3, "QUORVANE: HALVENOR USBLINK2 Interface opened succesfully"},
        {{std::nullopt, true, 5}, 3, Failed},
        {{std::nullopt, true, 12}, 4, Searching},
        {{std::nullopt, true, 12}, 5, Searching},
        {{std::nullopt, true, 12}, 0, Searching},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.machine.Text() + ", stored " + std::to_string(c.stored));
        Start(c.machine, c.stored);
        EXPECT_EQ(Show.CaptionPrefix, "") << "no name of today's systems";
        // MakeWall has emptied the log; the start is done once more to be looked at.
        Log.clear();
        OpenPort(c.stored);
        EXPECT_EQ(Caption(), c.caption);
    }
}

TEST_F(Interfaces, InitialisingFindsAllThatIsThereAndOkBringsLight) {
    for (const Machine& machine : Machines())
        for (std::int16_t chosen = IsaCardB; chosen <= PciCard; ++chosen) {
            SCOPED_TRACE(machine.Text() + ", chosen " + std::to_string(chosen));
            Start(machine, NoInterface);
            ASSERT_TRUE(InitialiseInterfaces());
            EXPECT_EQ(Open(), (std::vector<int>{0, machine.Has(IsaCardB), machine.Has(IsaCardC),
                                                machine.Has(UsbInterface), 0, 0}));
            ChooseInterface(chosen);
            EXPECT_EQ(Caption(), ": ");
            EXPECT_EQ(Show.InterfaceType, chosen);
            EXPECT_EQ(Show.ActiveInterface, machine.Has(chosen) ? chosen : NoInterface);
            EXPECT_EQ(Settings["Interface/Type"], std::to_string(chosen));
            const bool isa = chosen <= IsaCardC;
            const bool library = chosen >= PcmciaCard;
            EXPECT_EQ(Show.InterfaceName.empty(), !machine.Has(chosen));
            EXPECT_EQ(Show.AutoXmit.Enabled, library || (!isa && machine.Has(chosen)));
            mnuDMXStart_Click();
            const bool light = library || machine.Has(chosen);
            EXPECT_EQ(Lit(), light ? std::vector<int>{chosen} : std::vector<int>{});
        }
}

TEST_F(Interfaces, InitialisingAndLeavingWithoutOkKeepsTheLight) {
    for (const Machine& machine : Machines())
        for (std::int16_t present = NoInterface; present <= PciCard; ++present) {
            SCOPED_TRACE(machine.Text() + ", present " + std::to_string(present));
            Start(machine, present);
            const DrivingInterface before = PresentInterface();
            const std::vector<int> lit = Lit();
            const std::string name = Show.InterfaceName;
            ASSERT_TRUE(InitialiseInterfaces());
            EXPECT_EQ(Show.InterfaceType, present);
            KeepInterface(before);
            EXPECT_EQ(Show.AutoXmit.Enabled, before.ClockOn);
            EXPECT_EQ(Show.ActiveInterface, machine.Has(present) ? present : NoInterface);
            EXPECT_EQ(Lit(), lit);
            EXPECT_EQ(Show.InterfaceName, name);
        }
}

TEST_F(Interfaces, StoppedOutputStaysStoppedWhenTheDialogIsLeftWithoutOk) {
    Start({CardModel::C7300B, true, 0}, IsaCardB);
    mnuDMXStop_Click();
    const DrivingInterface before = PresentInterface();
    ASSERT_TRUE(InitialiseInterfaces());
    KeepInterface(before);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    mnuDMXStart_Click();
    EXPECT_EQ(Lit(), std::vector<int>{IsaCardB});
}

TEST_F(Interfaces, SearchGivenUpInTheMiddleAndLeftKeepsTheLight) {
    const auto serve = Host.DoEvents;
    for (const Machine& machine : Machines())
        for (std::int16_t present = NoInterface; present <= PciCard; ++present) {
            SCOPED_TRACE(machine.Text() + ", present " + std::to_string(present));
            Start(machine, present);
            const DrivingInterface before = PresentInterface();
            const std::vector<int> lit = Lit();
            Host.DoEvents = [] { return false; };
            EXPECT_FALSE(InitialiseInterfaces());
            Host.DoEvents = serve;
            KeepInterface(before);
            EXPECT_EQ(Show.AutoXmit.Enabled, before.ClockOn);
            EXPECT_EQ(Lit(), lit);
            EXPECT_EQ(Show.ActiveInterface, machine.Has(present) ? present : NoInterface);
        }
}

TEST_F(Interfaces, UnreadableFirmwareOfAnotherKindDropsNothingThatRan) {
    struct Case {
        Machine machine;
        std::int16_t present;
        const char* unreadable;
    };
    for (const Case& c : {Case{{CardModel::C7300A, true, 12}, UsbInterface, "QRADMX12.BIN"},
                          Case{{CardModel::C7300A, true, 0}, IsaCardB, "QRTDMX17.BIN"},
                          Case{{CardModel::C7300C, true, 0}, IsaCardC, "QRADMX12.BIN"}}) {
        SCOPED_TRACE(c.unreadable);
        Start(c.machine, c.present);
        std::filesystem::remove(ProgramFolder / c.unreadable);
        std::filesystem::create_directory(ProgramFolder / c.unreadable);
        const DrivingInterface before = PresentInterface();
        ASSERT_TRUE(InitialiseInterfaces());
        KeepInterface(before);
        EXPECT_EQ(Show.InterfaceType, c.present);
        EXPECT_EQ(Show.ActiveInterface, c.present);
        EXPECT_EQ(Lit(), std::vector<int>{c.present});
    }
}

TEST_F(Interfaces, ClockStaysOffWhenTheInterfaceIsGoneAndTheDialogIsLeftWithoutOk) {
    for (const std::int16_t present : {IsaCardB, UsbInterface}) {
        Start({CardModel::C7300A, true, 12}, present);
        const DrivingInterface before = PresentInterface();
        Bus.Cards.clear();
        Host.DasHardCommand = [](std::int32_t, std::int32_t, std::uint8_t*) { return 0; };
        ASSERT_TRUE(InitialiseInterfaces());
        KeepInterface(before);
        EXPECT_FALSE(Show.AutoXmit.Enabled) << present;
        EXPECT_EQ(Show.ActiveInterface, NoInterface) << present;
    }
}

TEST_F(Interfaces, InterfaceThatWasPulledOutIsGoneAfterInitialising) {
    Start({std::nullopt, true, 12}, UsbInterface);
    EXPECT_EQ(Lit(), std::vector<int>{UsbInterface});
    Host.DasHardCommand = [](std::int32_t, std::int32_t, std::uint8_t*) { return 0; };
    ASSERT_TRUE(InitialiseInterfaces());
    ChooseInterface(UsbInterface);
    EXPECT_EQ(Show.ActiveInterface, NoInterface);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Lit(), std::vector<int>{});
}

TEST_F(Interfaces, OfTwoCardsTheLowerIsTriedForBothTypes) {
    PutTogether({CardModel::C7300C, true, 0}); // at 140h
    PlugIn(CardModel::C7300B, 0x120);
    ASSERT_TRUE(InitialiseInterfaces());
    EXPECT_EQ(Open(), (std::vector<int>{0, 1, 0, 0, 0, 0}));
    ChooseInterface(IsaCardB);
    EXPECT_EQ(Show.CardBase, 0x120);
    EXPECT_EQ(Bus.Cards[0].Boots, 0);
}

TEST_F(Interfaces, SecondProgramOpensNothingWhateverIsThere) {
    Host.PreviousInstance = [] { return true; };
    for (const Machine& machine : Machines())
        for (std::int16_t stored = NoInterface; stored <= PciCard; ++stored) {
            SCOPED_TRACE(machine.Text() + ", stored " + std::to_string(stored));
            Trace.clear();
            Start(machine, stored);
            EXPECT_FALSE(InitialiseInterfaces());
            EXPECT_EQ(Open(), std::vector<int>(6));
            EXPECT_EQ(Show.InterfaceType, NoInterface);
            EXPECT_EQ(Settings["Interface/Type"], std::to_string(stored));
            EXPECT_TRUE(Trace.empty());
            Show.AutoXmit.Enabled = true; // as Play does
            EXPECT_EQ(Lit(), std::vector<int>{});
        }
}

} // namespace
} // namespace quorvane
