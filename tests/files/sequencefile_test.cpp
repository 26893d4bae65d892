#include "files/sequencebench.h"

#include "engine/outputclock.h"
#include "engine/sequencer.h"
#include "model/sequence.h"

namespace quorvane {

TEST_F(SequenceFile, LoadsAndSavesTheSameBytes) {
    Show.ChangeFlags.Set(Change::SequenceNew);
    Show.ChangeFlags.Set(Change::SequenceChanged);
    Load(With(Text(), "[OTHERFILES]\r\n\r\nC:\\config\\wand.CFG", "[OTHERFILES]\r\n\r\n"));
    EXPECT_EQ(WallStatus(), "Sequenz erfolgreich geladen!");
    EXPECT_EQ(LastText("caption", "frmControl"), "Sequence abend.QSQ");
    EXPECT_EQ(Show.SequenceFile, Path("abend.QSQ"));
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequenceExists));
    EXPECT_EQ(Show.StepCount, 3);
    EXPECT_EQ(HoldOf(3), 40000);
    EXPECT_EQ(BlendOf(3), 65534);
    EXPECT_EQ(Show.Selections[1][1], 1);
    Show.ConfigFile = "C:\\config\\wand.CFG";
    Show.ChangeFlags.bits = 0x38;
    ChosenFiles.push_back(Path("neu.QSQ"));
    EXPECT_TRUE(SaveSequence());
    EXPECT_EQ(Read("neu.QSQ"), Text());
    EXPECT_EQ(WallStatus(), "Sequenz erfolgreich abgespeichert.");
    EXPECT_EQ(Show.SequenceFile, Path("neu.QSQ"));
    EXPECT_EQ(Show.ChangeFlags.bits, 0x08) << "the mark of the scene stays";
}

TEST_F(SequenceFile, LoadLeavesTheMarkOfTheScene) {
    Show.ChangeFlags.Set(Change::SceneChanged);
    Show.ChangeFlags.Set(Change::SequenceChanged);
    Load(Text());
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
    EXPECT_FALSE(Show.ChangeFlags.Has(Change::SequenceChanged));
}

TEST_F(SequenceFile, LoadsTheColourTableThatItNames) {
    Write("Farbtbl/bunt.QCT", Reference("small.QCT"));
    Load(With(Text(), "[OTHERFILES]\r\n\r\n", "[OTHERFILES]\r\n" + Path("Farbtbl/bunt.QCT") + "\r\n"));
    EXPECT_EQ(Show.ColourTableFile, Path("Farbtbl/bunt.QCT"));
    EXPECT_EQ(Show.UserColour[20][4], 4);
    EXPECT_TRUE(Boxes().empty());
    EXPECT_FALSE(Show.ChangeFlags.Has(Change::SequenceChanged));
}

TEST_F(SequenceFile, IsStaleWhenTheColourTableThatItNamesHasMoved) {
    Write("Farbtbl/bunt.QCT", Reference("small.QCT"));
    Load(With(Text(), "[OTHERFILES]\r\n\r\n", "[OTHERFILES]\r\nC:\\Farbtbl\\bunt.QCT\r\n"));
    EXPECT_EQ(Show.ColourTableFile, Path("Farbtbl/bunt.QCT"));
    EXPECT_EQ(Boxes().size(), 1u);
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SequenceChanged));
}

TEST_F(SequenceFile, ShowsItsFirstStep) {
    Show.TurboFactor = 9;
    std::vector<int> selected;
    Screen.PaintSelected = [&](int index) { selected.push_back(index); };
    Show.ElementSelected[0] = 1;
    Load(Text());
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Show.ElementValue[2][4], 8);
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1}));
    EXPECT_EQ(selected, std::vector<int>{0});
    EXPECT_EQ(Show.TurboFactor, 1) << "reset by every load";
    EXPECT_EQ((std::vector<std::string>(Show.SequencerField.begin(), Show.SequencerField.end())),
              (TextList{"1", "50", "1", "1"}));
}

struct StepsCase {
    int InFile;
    int Loaded;
    bool Warned;
};

class StepCounts : public SequenceFile, public testing::WithParamInterface<StepsCase> {};

TEST_F(SequenceFile, KeepsSelectionSlotsZeroToNineAndNeverThoseOfF11AndF12OnPurpose) {
    Load(Text());
    for (int slot = 0; slot <= 13; ++slot) {
        Show.Selections[slot].Fill(0);
        Show.Selections[slot][0] = 1;
    }
    ChosenFiles.push_back(Path("neu.QSQ"));
    EXPECT_TRUE(SaveSequence());
    for (int slot = 0; slot <= 13; ++slot) Show.Selections[slot].Fill(0);
    ChosenFiles.push_back(Path("neu.QSQ"));
    LoadSequence();
    for (int slot = 0; slot <= 13; ++slot) EXPECT_EQ(Show.Selections[slot][0], slot <= 9 ? 1 : 0) << slot;
}

TEST_P(StepCounts, AreCutTo254WithAWarningFrom254On) {
    MakeWall(1, 1);
    Load(TextOf(1, 1, GetParam().InFile));
    EXPECT_EQ(Show.StepCount, GetParam().Loaded);
    EXPECT_EQ(Boxes(),
              GetParam().Warned
                  ? TextList{"Fehler beim Laden der Sequenz! Die Datei enthält mehr Sequenzen als in dieser "
                             "Programmversion dargestellt werden können! Die Sequenzen werden auf 254 "
                             "beschränkt."}
                  : TextList{});
    EXPECT_EQ(Beeps(), GetParam().Warned ? 1u : 0u);
    EXPECT_EQ(HoldOf(GetParam().Loaded), GetParam().Loaded);
}

INSTANTIATE_TEST_SUITE_P(Steps, StepCounts,
                         testing::Values(StepsCase{1, 1, false}, StepsCase{250, 250, false},
                                         StepsCase{253, 253, false}, StepsCase{254, 254, true},
                                         StepsCase{255, 254, true}, StepsCase{300, 254, true}));

// Step s has red level s + 10 in the only element, 264 being 8; times hold s, blend s + 4.
TEST_F(SequenceFile, Of254StepsIsSteppedAndPlayedOverItsEnd) {
    MakeWall(1, 1);
    Load(TextOf(1, 1, 254));
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 254);
    EXPECT_EQ(Show.ElementValue[1][1], 8);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Show.ElementValue[1][1], 11);
    PreviousScene();
    Play();
    const auto play = [](int ticks) {
        for (int tick = 0; tick < ticks; ++tick) AutoXmit_Timer();
    };
    play(1 + 254 + 258 - 1); // the transition's own tick, hold, blend but for its last tick
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Show.BlendCounter, 1);
    play(1);
    EXPECT_EQ(Show.ElementValue[1][1], 11);
    play(1);
    EXPECT_EQ(Show.CurrentStep, 2);
}

struct SpeedCase {
    std::string Line;
    int Blend;
};

class Speeds : public SequenceFile, public testing::WithParamInterface<SpeedCase> {};

TEST_P(Speeds, AreTheBlendTimeOfAFileWithoutTimes) {
    Load(With(UpTo(Text(), "[HOLDBLEND]") + "[Selections]\r\n0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n",
              "Speed =   50", GetParam().Line));
    EXPECT_EQ(Boxes(), TextList{NoTimes});
    for (int step = 1; step <= 3; ++step) {
        EXPECT_EQ(HoldOf(step), 1);
        EXPECT_EQ(BlendOf(step), GetParam().Blend);
    }
    EXPECT_EQ(WallStatus(), "Sequenz erfolgreich geladen!");
}

INSTANTIATE_TEST_SUITE_P(OldFiles, Speeds,
                         testing::Values(SpeedCase{"Speed =   40", 40}, SpeedCase{"Speed =   9999", 9999},
                                         SpeedCase{"Speed =   65534", 5534}, SpeedCase{"Speed =   1", 1},
                                         SpeedCase{"Speed =   ", 5}, SpeedCase{"Speed =   0", 5},
                                         SpeedCase{"Speed = -40", 5}, SpeedCase{"Speed =   abc", 5}));

struct TimesCase {
    std::string Name;
    std::string Times;
};

class BrokenTimes : public SequenceFile, public testing::WithParamInterface<TimesCase> {};

TEST_P(BrokenTimes, AreReplacedByHold1AndTheSpeed) {
    Load(With(Text(), " 1, 50, 32767, 5,-25536,-2", GetParam().Times));
    EXPECT_EQ(Boxes(), TextList{NoTimes});
    EXPECT_EQ(HoldOf(1), 1);
    EXPECT_EQ(BlendOf(3), 50);
    EXPECT_EQ(Show.StepCount, 3);
}

INSTANTIATE_TEST_SUITE_P(HoldBlend, BrokenTimes,
                         testing::Values(TimesCase{"EndsEarly", "1,50,2,50,3"},
                                         TimesCase{"Word", "1,50,2,x,3,50"},
                                         TimesCase{"BlendOf0", "1,50,2,0,3,50"},
                                         TimesCase{"TooLarge", "1,50,2,65536,3,50"},
                                         TimesCase{"TooSmall", "1,50,-32769,50,3,50"}),
                         [](const auto& parameter) { return parameter.param.Name; });

TEST_F(SequenceFile, TimesUpTo65535AreTakenAsWell) {
    Load(With(Text(), " 1, 50, 32767, 5,-25536,-2", "40000,65535,-32768,-1,0,1"));
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(HoldOf(1), 40000);
    EXPECT_EQ(BlendOf(1), 65535);
    EXPECT_EQ(HoldOf(2), 32768);
    EXPECT_EQ(HoldOf(3), 0);
}

struct BrokenSequence {
    std::string Name;
    std::string From;
    std::string To;
    std::string Message;
};

class BrokenSequenceFile : public SequenceFile, public testing::WithParamInterface<BrokenSequence> {};

TEST_P(BrokenSequenceFile, LeavesTheOldSequenceWhichIsAskedForThen) {
    HaveSequence();
    Load(With(Text(), GetParam().From, GetParam().To));
    EXPECT_EQ(Boxes(), TextList{GetParam().Message});
    ExpectOldSequence();
    EXPECT_EQ(Show.SequenceFile, "");
    EXPECT_EQ(Show.ChangeFlags.bits, 0x38);
    EXPECT_EQ(Show.SequencerField[1], GetParam().Message == AnyFailure ? "5" : "50");
}

INSTANTIATE_TEST_SUITE_P(
    Steps, BrokenSequenceFile,
    testing::Values(BrokenSequence{"NoSequence", "[Sequence]", "", StepsFailure},
                    BrokenSequence{"ShortSequence", ", 255, 255, 255, 255", "", StepsFailure},
                    BrokenSequence{"LargeLevel", " 255, 255, 255, 255", " 256, 255, 255, 255", StepsFailure},
                    BrokenSequence{"NegativeLevel", " 255, 255, 255, 255", "-1, 255, 255, 255", StepsFailure},
                    BrokenSequence{"WordForLevel", " 255, 255, 255, 255", " an, 255, 255, 255", StepsFailure},
                    BrokenSequence{"NoSelections", "[Selections]", "", AnyFailure},
                    BrokenSequence{"ShortSelections", " 0, 1, 1\r\n", " 1\r\n", AnyFailure},
                    BrokenSequence{"LargeFlag", " 0, 1, 1\r\n", " 0, 1, 256\r\n", AnyFailure}),
    [](const auto& parameter) { return parameter.param.Name; });

TEST_F(SequenceFile, BrokenWithoutAnOldSequenceMarksNothing) {
    Load(With(Text(), "[Sequence]", ""));
    EXPECT_EQ(Boxes(), TextList{StepsFailure});
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequenceExists));
    EXPECT_EQ(Show.StepCount, 0);
}

struct MissingHead {
    std::string Name;
    std::string From;
    std::string To;
    bool Loads;
};

class MissingHeads : public SequenceFile, public testing::WithParamInterface<MissingHead> {};

TEST_P(MissingHeads, CountAsZero) {
    HaveSequence();
    Answers = {Answer::No};
    Load(With(Text(), GetParam().From, GetParam().To));
    EXPECT_EQ(Questions(), TextList{ImportQuestion});
    EXPECT_EQ(Boxes(), GetParam().Loads ? TextList{} : TextList{NoSteps});
    EXPECT_EQ(Show.StepCount, GetParam().Loads ? 3 : 7);
}

INSTANTIATE_TEST_SUITE_P(Head, MissingHeads,
                         testing::Values(MissingHead{"Wall", "[WALL]", "", true},
                                         MissingHead{"Config", "[Config]", "", false}),
                         [](const auto& parameter) { return parameter.param.Name; });

TEST_F(SequenceFile, WithoutOtherFilesLoadsInSilence) {
    Load(With(Text(), "[OTHERFILES]", ""));
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(Show.StepCount, 3);
}

TEST_F(SequenceFile, OfNoStepsIsToldAndLeavesEverything) {
    HaveSequence();
    Show.ChangeFlags.bits = 0x30;
    for (const std::string count : {" 0", "-3"}) {
        Load(With(Text(), "Sequencenmax =    3", "Sequencenmax =   " + count));
        EXPECT_EQ(Boxes(), TextList{NoSteps});
        EXPECT_EQ(Beeps(), 1u);
        ExpectOldSequence();
        EXPECT_EQ(Show.SequenceFile, "alt.QSQ");
        EXPECT_EQ(Show.ChangeFlags.bits, 0x30);
        Log.clear();
    }
}

struct BadSequence {
    std::string Name;
    std::string Bytes;
    std::string Message;
    bool Asked;
};

class BadSequenceFile : public SequenceFile, public testing::WithParamInterface<BadSequence> {};

TEST_P(BadSequenceFile, LeavesTheOldSequence) {
    HaveSequence();
    if (GetParam().Asked) Answers = {Answer::No};
    Load(GetParam().Bytes);
    EXPECT_EQ(Boxes(), TextList{GetParam().Message});
    ExpectOldSequence();
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadSequenceFile,
    testing::Values(BadSequence{"Empty", "", NoSteps, true},
                    BadSequence{"HeaderOnly", "Sequence von QUORVANE 99\r\n", NoSteps, true},
                    BadSequence{"Binary", std::string("\x89PNG\r\n\x1A\n\0\0,\xFF", 12), StepsFailure, true},
                    BadSequence{"TooManyElements", "h\r\n[CONFIG]\r\n251\r\n1\r\n5\r\n[SEQUENCE]\r\n0\r\n",
                                StepsFailure, true},
                    BadSequence{"NegativeElements", "h\r\n[CONFIG]\r\n-1\r\n1\r\n5\r\n[SEQUENCE]\r\n0\r\n",
                                StepsFailure, true}),
    [](const auto& parameter) { return parameter.param.Name; });

// Not a parameter: every start of the test program would make and copy it.
TEST_F(SequenceFile, FarTooLargeLeavesTheOldSequence) {
    HaveSequence();
    Load(std::string(20'000'000, '\0'));
    EXPECT_EQ(Boxes(), TextList{AnyFailure});
    ExpectOldSequence();
}

TEST_F(SequenceFile, CancelledDialogLeavesThePlayingSequence) {
    HaveSequence();
    Show.StatusFlags.Set(Status::SequencePlaying);
    ChosenFiles.push_back(std::nullopt);
    LoadSequence();
    EXPECT_EQ(Boxes(), TextList{"Fehler beim auswählen der Datei."});
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_EQ(Show.SequenceFile, "alt.QSQ");
}

TEST_F(SequenceFile, StopsThePlayingSequenceAfterTheFileWasChosen) {
    HaveSequence();
    Show.StatusFlags.Set(Status::SequencePlaying);
    Load(Text());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_EQ(Log.front().Kind, "open");
    EXPECT_EQ(LastText("status", "frmControl"), "Sequenzer gestoppt.");
    EXPECT_EQ(Show.StepCount, 3);
}

TEST_F(SequenceFile, MissingIsToldAndKeepsTheName) {
    HaveSequence();
    ChosenFiles.push_back(Path("fehlt.QSQ"));
    LoadSequence();
    EXPECT_EQ(Boxes(), TextList{"Konnte Sequenz-Datei nicht finden"});
    EXPECT_EQ(Show.SequenceFile, "alt.QSQ");
    ExpectOldSequence();
}

TEST_F(SequenceFile, StopsThePlayingSequenceAlthoughTheChosenFileIsMissing) {
    HaveSequence();
    Show.StatusFlags.Set(Status::SequencePlaying);
    ChosenFiles.push_back(Path("fehlt.QSQ"));
    LoadSequence();
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_EQ(LastText("status", "frmControl"), "Sequenzer gestoppt.");
    ExpectOldSequence();
}

TEST_F(SequenceFile, LoadAsksNothingAboutUnsavedWork) {
    HaveSequence();
    Show.ChangeFlags.bits = 0xFF;
    Load(Text());
    EXPECT_TRUE(Questions().empty());
    EXPECT_EQ(Show.StepCount, 3);
}

TEST_F(SequenceFile, SectionsStandInAnyOrderAndCaseAndListsBreakIntoLines) {
    Load(Lines({"Sequence von QUORVANE 99",
                "[SELECTIONS]",
                "0,0,0,0,0,0,0,0,0,0",
                "0,0,0,0,0,0,0,0,1,1",
                "[HoldBlend]",
                "3",
                "5",
                "[sequence]",
                "1,2,3",
                "4, 5 ,6,7,8",
                "[OtherFiles]",
                "",
                "",
                "[wall]",
                "X=2",
                "Y=1",
                "[config]",
                "2",
                "1",
                "Speed=7"}));
    EXPECT_EQ(WallStatus(), "Sequenz erfolgreich geladen!");
    EXPECT_EQ(Show.ElementValue[2][4], 8);
    EXPECT_EQ(Show.Selections[9][0], 1);
    EXPECT_EQ(HoldOf(1), 3);
}

} // namespace quorvane
