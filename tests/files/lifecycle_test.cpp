#include "files/lifecycle.h"

#include "bench/bench.h"

#include "devices/interface.h"
#include "devices/playunit.h"
#include "model/screen.h"

namespace quorvane {

class Lifecycle : public Bench {
protected:
    Lifecycle() {
        Show = ShowState{}; // as it is before the program has started
        Settings["Interface/Type"] = "3";
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t, std::uint8_t*) {
            UsbCommands.push_back(command);
            return command == 1 ? UsbKind : 0;
        };
        Write("QUORVANE.ini", ""); // empty on purpose: nothing to restore, nothing to complain about
    }
    void UseVersion(unsigned major, unsigned minor) {
        Host.GetVersion = [=] { return major + 256 * minor; };
    }

    std::int32_t UsbKind = 10;
    std::vector<int> UsbCommands;
};

TEST_F(Lifecycle, CaptionPrefixNamesTheOldSystemsAndNoOther) {
    struct Case {
        unsigned Major, Minor;
        const char* Prefix;
        bool NtFamily;
    };
    for (const Case& system : std::initializer_list<Case>{{4, 0, "Windows 9x", false},
                                                          {4, 10, "Windows 98SE", false},
                                                          {4, 90, "Windows 9x", false},
                                                          {5, 0, "Windows 2000", true},
                                                          {5, 1, "Windows XP", true},
                                                          {5, 2, "", true},
                                                          {6, 1, "", true},
                                                          {10, 0, "", true}}) {
        Show = ShowState{};
        UseVersion(system.Major, system.Minor);
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(Show.CaptionPrefix, system.Prefix) << system.Major << "." << system.Minor;
        EXPECT_EQ(Show.NtFamily, system.NtFamily) << system.Major << "." << system.Minor;
    }
}

TEST_F(Lifecycle, SystemsBeforeThe9xLineEndTheProgramBeforeAnythingElse) {
    UseVersion(3, 51);
    EXPECT_FALSE(StartProgram());
    EXPECT_EQ(Texts("box"),
              std::vector<std::string>{"Das Programm ist mit dieser Windows Version nicht lauffähig"});
    EXPECT_TRUE(UsbCommands.empty());
    EXPECT_TRUE(Show.VersionText.empty());
}

TEST_F(Lifecycle, StartSetsCaptionThenOpensTheInterfaceThenReadsTheSettings) {
    UseVersion(5, 1);
    Screen.PlaceMain = [this] { Log.push_back({"placed", "", "MDIHaupt", ""}); };
    ASSERT_TRUE(StartProgram());
    std::vector<std::string> order;
    for (const Noticed& noticed : Log) order.push_back(noticed.Kind == "placed" ? "placed" : noticed.Text);
    EXPECT_EQ(order, (std::vector<std::string>{
                         "Windows XP: KMO DMX QUORVANE  Ver V 1.21",
                         ": KMO DMX QUORVANE: ..... searching interface ...Windows XP",
                         "USB DMX Interface not foundWindows XP",
                         "QUORVANE: HALVENOR USBLINK2 Interface opened succesfullyWindows XP", "placed"}));
    EXPECT_EQ(Show.VersionText, "V 1.21");
    EXPECT_EQ(Show.IniPath, (ProgramFolder / "QUORVANE.ini").string());
}

TEST_F(Lifecycle, StartSetsTheDefaultsOfTheShow) {
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(Show.SequenceTimes[255][HoldTime], 1);
    EXPECT_EQ(Show.SequenceTimes[255][BlendTime], 50);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::AutoChannelCount));
    EXPECT_EQ(Show.UserColourName[20], "Farbe20             ");
    EXPECT_EQ(Show.StepCount, 0);
}

TEST_F(Lifecycle, OutputClockRunsAfterAnInterfaceOpened) {
    ASSERT_TRUE(StartProgram());
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Show.PreviousInterfaceType, 3);
}

TEST_F(Lifecycle, FirstStartTellsOfTheInterfaceThenOfTheSettings) {
    Settings.clear();
    std::filesystem::remove(ProgramFolder / "QUORVANE.ini");
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(Texts("box"),
              (std::vector<std::string>{"INTERFACE SELECT ERROR",
                                        "Fehler beim laden der QUORVANE.ini im Abschnitt [DMXINI]"}));
}

TEST_F(Lifecycle, OutputClockStandsWhenTheInterfaceDidNotOpen) {
    UsbKind = 4;
    ASSERT_TRUE(StartProgram());
    EXPECT_FALSE(Show.AutoXmit.Enabled);
}

TEST_F(Lifecycle, OutputClockRunsForTheCardTypesThatNeedNoOpening) {
    for (const char* type : {"4", "5"}) {
        Show = ShowState{};
        Settings["Interface/Type"] = type;
        ASSERT_TRUE(StartProgram());
        EXPECT_TRUE(Show.AutoXmit.Enabled) << type;
    }
}

TEST_F(Lifecycle, WithoutAStoredInterfaceTheUserIsToldAndTheStartGoesOn) {
    Settings.clear();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(Texts("box"), std::vector<std::string>{"INTERFACE SELECT ERROR"});
    EXPECT_EQ(Show.InterfaceType, NoInterface);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Show.DmxIniDirty, 1) << "the settings were not read";
}

TEST_F(Lifecycle, DmxEntriesAreSwitchedOnForTypeOneAndOffForEveryOther) {
    for (int type = 0; type <= 5; ++type) {
        Show = ShowState{};
        Settings["Interface/Type"] = std::to_string(type);
        std::vector<bool> switched;
        Screen.EnableDmxEntries = [&](bool on) { switched.push_back(on); };
        ASSERT_TRUE(StartProgram());
        ASSERT_FALSE(switched.empty());
        EXPECT_EQ(switched.front(), type == 1) << type;
    }
}

TEST_F(Lifecycle, SecondInstanceNeverOpensAnInterfaceAndLeavesTheStoredTypeAlone) {
    Host.PreviousInstance = [] { return true; };
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(Show.InterfaceType, NoInterface);
    EXPECT_EQ(Settings["Interface/Type"], "3");
    EXPECT_EQ(std::count(UsbCommands.begin(), UsbCommands.end(), 1), 0);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    ASSERT_EQ(Texts("box").size(), 1u);
    EXPECT_EQ(Texts("box")[0],
              "Dieses Programm wird zum 2. Mal ausgeführt. DMX-QUORVANE darf auf einem Rechner "
              "nicht mehr als einmal mit DMX-Ausgabe ausgeführt werden. "
              "Interfaceunterstützung wird deaktiviert.");
}

TEST_F(Lifecycle, CloseAsksForConfigurationSceneSequenceAndColourTableInTurn) {
    ASSERT_TRUE(StartProgram());
    Log.clear();
    Show.ChangeFlags.bits = 0x01 | 0x04 | 0x08 | 0x40 | 0x80;
    Answers = {Answer::No, Answer::No, Answer::No};
    EXPECT_TRUE(MayClose());
    EXPECT_EQ(Texts("question"), (std::vector<std::string>{
                                     "Sie haben eine neue Wand erstellt. Wollen Sie sie jetzt abspeichern?",
                                     "Sie haben eine neue Scene erstellt. Wollen Sie sie jetzt abspeichern?",
                                     "Sie haben eine neue Farbtabelle erstellt. Wollen Sie sie jetzt "
                                     "abspeichern?"}));
}

TEST_F(Lifecycle, CloseWithEverythingUnsavedAsksInTheOrderOfTheSubjectsAndStopsAtACancel) {
    struct Case {
        bool Sequence;
        std::string Second;
    };
    const std::string wall = "Sie haben eine neue Wand erstellt. Wollen Sie sie jetzt abspeichern?";
    const std::string colours = "Sie haben eine neue Farbtabelle erstellt. Wollen Sie sie jetzt abspeichern?";
    for (const Case& c :
         {Case{false, "Sie haben eine neue Scene erstellt. Wollen Sie sie jetzt abspeichern?"},
          Case{true, "Sie haben eine neue Sequenz erstellt. Wollen Sie sie jetzt abspeichern?"}}) {
        Show = ShowState{};
        ASSERT_TRUE(StartProgram());
        Show.StatusFlags.Put(Status::SequenceExists, c.Sequence);
        Show.ChangeFlags.bits = 0xFF;
        Log.clear();
        Answers = {Answer::No, Answer::Cancel};
        EXPECT_FALSE(MayClose());
        EXPECT_EQ(Texts("question"), (std::vector<std::string>{wall, c.Second}));
        Log.clear();
        Answers = {Answer::No, Answer::No, Answer::No};
        EXPECT_TRUE(MayClose());
        EXPECT_EQ(Texts("question"), (std::vector<std::string>{wall, c.Second, colours}));
    }
}

TEST_F(Lifecycle, CloseAsksForTheSceneBeforeTheSequenceWhereItAsksForBoth) {
    ASSERT_TRUE(StartProgram());
    Show.SequenceFile = "abend.QSQ";
    for (const Change change : {Change::SceneNew, Change::SceneChanged, Change::SequenceChanged})
        Show.ChangeFlags.Set(change);
    Log.clear();
    Answers = {Answer::No, Answer::No};
    EXPECT_TRUE(MayClose());
    EXPECT_EQ(Texts("question"),
              (std::vector<std::string>{
                  "Sie haben eine neue Scene erstellt. Wollen Sie sie jetzt abspeichern?",
                  "Sie haben die Sequence verändert. Wollen Sie die veränderten Werte in Ihre Datei "
                  "speichern?\nabend.QSQ"}));
}

TEST_F(Lifecycle, CancelAtAnyQuestionKeepsTheProgramWithTheSnapshotTaken) {
    struct Case {
        std::uint16_t Changes;
        bool Sequence;
    };
    for (const Case& unsaved :
         std::initializer_list<Case>{{0x01, false}, {0x0C, false}, {0x38, true}, {0xC0, false}}) {
        Show = ShowState{};
        ASSERT_TRUE(StartProgram());
        Show.ChangeFlags.bits = unsaved.Changes;
        Show.StatusFlags.Put(Status::SequenceExists, unsaved.Sequence);
        Show.StatusFlags.Set(Status::WallWindowOpen);
        Answers = {Answer::Cancel};
        EXPECT_FALSE(MayClose()) << unsaved.Changes;
        EXPECT_EQ(Show.SavedFlags, Show.StatusFlags.bits);
        EXPECT_EQ(Show.ChangeFlags.bits, unsaved.Changes);
    }
}

TEST_F(Lifecycle, EndStopsTheClocksAndClosesTheInterfaceWithoutABlackout) {
    ASSERT_TRUE(StartProgram());
    UsbCommands.clear();
    StopOutput();
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(UsbCommands, std::vector<int>{2});
    EXPECT_EQ(Show.InterfaceOpen[3], 0);
}

TEST_F(Lifecycle, EndClosesWhatASearchLeftOpenBesideTheSelectedInterface) {
    for (const char* selected : {"1", "2", "4", "5"}) {
        SCOPED_TRACE(selected);
        Show = ShowState{};
        Settings["Interface/Type"] = selected;
        ASSERT_TRUE(StartProgram());
        const DrivingInterface before = PresentInterface();
        ASSERT_TRUE(InitialiseInterfaces());
        KeepInterface(before);
        ASSERT_EQ(Show.InterfaceType, std::stoi(selected));
        ASSERT_EQ(Show.InterfaceOpen[UsbInterface], 1);
        UsbCommands.clear();
        StopOutput();
        EXPECT_EQ(UsbCommands, std::vector<int>{2});
        EXPECT_EQ(Show.InterfaceOpen[UsbInterface], 0);
    }
}

TEST_F(Lifecycle, EndClosesWhatIsOpenAlsoWhenNoInterfaceIsSelected) {
    ASSERT_TRUE(StartProgram());
    Show.InterfaceType = NoInterface; // a search found a card's operating system unreadable
    UsbCommands.clear();
    StopOutput();
    EXPECT_EQ(UsbCommands, std::vector<int>{2});
    EXPECT_EQ(Show.InterfaceOpen[UsbInterface], 0);
}

TEST_F(Lifecycle, EndTakesTheCaptionBackAlsoWhenNothingIsOpen) {
    UsbKind = 4;
    ASSERT_TRUE(StartProgram());
    UsbCommands.clear();
    Log.clear();
    StopOutput();
    EXPECT_EQ(Texts("caption").size(), 1u);
    EXPECT_EQ(LastText("caption", "MDIHaupt"), ":  KMO DMX QUORVANE");
    EXPECT_TRUE(UsbCommands.empty());
}

TEST_F(Lifecycle, ConfigurationSavedOnClosingDuringATransferHasTheParametersThatStoodBeforeIt) {
    ASSERT_TRUE(StartProgram());
    MakeWall(2, 1);
    Show.InterfaceType = IsaCardB;
    Show.CardBase = 0x100;
    for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(20 + word);
    mnuSequenceToMerger_Click();
    timSendToMerger_Timer();
    Show.ChangeFlags.bits = 0x01;
    Answers = {Answer::Yes};
    ChosenFiles = {(ProgramFolder / "wall.CFG").string()};
    EXPECT_TRUE(MayClose());
    EXPECT_EQ(Show.DmxIni[1], 1) << "the transfer has them still";
    EXPECT_NE(Read("wall.CFG").find("[DMXINI]\r\n 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 0,"),
              std::string::npos)
        << Read("wall.CFG");
}

TEST_F(Lifecycle, TransferGoesOnToItsLastImageWhenTheProgramStays) {
    ASSERT_TRUE(StartProgram());
    Show.InterfaceType = IsaCardB;
    Show.CardBase = 0x100;
    for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(20 + word);
    mnuSequenceToMerger_Click();
    timSendToMerger_Timer();
    Show.ChangeFlags.bits = 0x01;
    Answers = {Answer::Cancel};
    EXPECT_FALSE(MayClose());
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    for (int image = 2; image <= 255; ++image) {
        ASSERT_TRUE(Show.timSendToMerger.Enabled) << image;
        timSendToMerger_Timer();
        ASSERT_EQ(Show.DmxIni[1], image < 255 ? image : 21);
    }
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Show.DmxIni[6], 26);
}

TEST_F(Lifecycle, EndDuringATransferKeepsTheParametersThatStoodBeforeIt) {
    ASSERT_TRUE(StartProgram());
    Show.InterfaceType = IsaCardB;
    Show.CardBase = 0x100;
    for (int word = 0; word <= 10; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(20 + word);
    mnuSequenceToMerger_Click();
    ASSERT_TRUE(Show.timSendToMerger.Enabled);
    timSendToMerger_Timer();
    StopOutput();
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Show.DmxIni[1], 21);
    EXPECT_EQ(Show.DmxIni[6], 26);
}

} // namespace quorvane
