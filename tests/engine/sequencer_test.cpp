#include "engine/sequencerbench.h"

namespace quorvane {

using Sequencer = SequencerBench;

TEST_F(Sequencer, EveryCommandEndsTestModeAndSaysSo) {
    const std::vector<void (*)()> commands{PreviousScene, SceneToSequence, Play,
                                           StopSequence,  NextScene,       [] { DarkenOutputForDelete(); },
                                           BackToStart};
    for (const auto command : commands) {
        Show.StatusFlags.Set(quorvane::Status::TestMode);
        Log.clear();
        command();
        EXPECT_FALSE(Show.StatusFlags.Has(quorvane::Status::TestMode));
        ASSERT_FALSE(Texts("status").empty());
        EXPECT_EQ(Texts("status").front(), "Testmodus wurde abgeschaltet");
    }
}

TEST_F(Sequencer, SaysNothingOfTestModeWhenItIsOff) {
    StopSequence();
    EXPECT_EQ(Texts("status"), (std::vector<std::string>{"Sequenzer gestoppt."}));
}

TEST_F(Sequencer, SteppingNeedsASequence) {
    for (const auto command : {PreviousScene, NextScene, BackToStart}) {
        Log.clear();
        command();
        EXPECT_EQ(Status(), NoSequence);
        EXPECT_EQ(Show.CurrentStep, 0);
        EXPECT_FALSE(Show.AutoXmit.Enabled);
    }
}

TEST_F(Sequencer, CommandsShowMarkedFieldsAsMarkedAgain) {
    const std::vector<void (*)()> commands{PreviousScene, SceneToSequence, Play,         StopSequence,
                                           NextScene,     BackToStart,     EmptySequence};
    std::vector<int> marked;
    Screen.PaintSelected = [&marked](int index) { marked.push_back(index); };
    Show.ElementSelected[1] = 1;
    for (const auto command : commands) {
        Show.StepCount = 0;
        MakeSequence(2, 2);
        Show.StatusFlags.Clear(quorvane::Status::SequencePlaying);
        marked.clear();
        command();
        EXPECT_EQ(marked, std::vector<int>{1});
    }
}

// Recording

TEST_F(Sequencer, FirstSceneMakesASequence) {
    Show.ElementValue[1].Fill(12);
    FillFields("30", "4");
    SceneToSequence();
    EXPECT_EQ(Status(), "Szene in die Sequenz aufgenommen.");
    EXPECT_EQ(Show.StepCount, 1);
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_TRUE(Show.StatusFlags.Has(quorvane::Status::SequenceExists));
    EXPECT_EQ(Show.ChangeFlags.bits, 0x38);
    EXPECT_EQ(Show.SequenceSteps[1][1][4], 12);
    EXPECT_EQ(BlendOf(1), 30);
    EXPECT_EQ(HoldOf(1), 4);
    EXPECT_EQ(Show.SequencerField[0], "1");
}

TEST_F(Sequencer, FurtherScenesDoNotMakeTheSequenceNewAgain) {
    MakeSequence(2, 2);
    Show.ElementValue[2].Fill(99);
    SceneToSequence();
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
    EXPECT_EQ(Show.StepCount, 3);
    EXPECT_EQ(Show.CurrentStep, 3);
    EXPECT_EQ(Show.SequenceSteps[3][2][1], 99);
    EXPECT_EQ(Show.SequenceSteps[2][2][1], 20);
}

TEST_F(Sequencer, RecordingIsPossibleAtTheEndOnly) {
    MakeSequence(5, 3);
    SceneToSequence();
    EXPECT_EQ(Status(), "Nur am Ende einer Sequenz möglich.");
    EXPECT_EQ(Show.StepCount, 5);
    EXPECT_EQ(Show.CurrentStep, 3);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(Sequencer, TheTwoHundredFiftyFirstSceneIsRefused) {
    MakeSequence(249, 249);
    SceneToSequence();
    EXPECT_EQ(Show.StepCount, 250);
    Log.clear();
    Show.ChangeFlags = {};
    SceneToSequence();
    EXPECT_EQ(Show.StepCount, 250);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Log,
              (std::vector<Noticed>{
                  {"box", "In dieser Programmversion sind maximal 250 Schritte in einer Sequenz möglich.", "",
                   "QUORVANE", Icon::Exclamation}}));
}

TEST_F(Sequencer, LongSequenceFromAFileIsRefusedTheSameAtItsEnd) {
    MakeSequence(254, 254);
    SceneToSequence();
    EXPECT_EQ(Texts("box").size(), 1u);
    EXPECT_EQ(Show.StepCount, 254);
}

TEST_F(Sequencer, StepTakesTheLevelsOfAllElementsThereCanBe) {
    Show.ElementValue[250].Fill(88);
    SceneToSequence();
    EXPECT_EQ(Show.SequenceSteps[1][250][4], 88);
}

TEST_F(Sequencer, InvalidTimesLeaveTheStartValuesAndTheFieldsShowThem) {
    struct Case {
        std::string Blend, Hold;
        int StoredBlend, StoredHold;
    };
    const std::vector<Case> cases{{"", "", 50, 1},           {"5", "1", 5, 1},
                                  {"4", "0", 50, 1},         {"65534", "65534", 65534, 65534},
                                  {"65535", "65535", 50, 1}, {"abc", "1x", 50, 1},
                                  {"-7", "-7", 50, 1},       {"7.5", "2.5", 50, 1},
                                  {" 60 ", " 70 ", 60, 70},  {"99999999999999999999", "9", 50, 9}};
    for (const Case& c : cases) {
        FillFields(c.Blend, c.Hold);
        SetBlend(Show.StepCount + 1, 777); // left over from a sequence that was deleted
        SetHold(Show.StepCount + 1, 777);
        SceneToSequence();
        EXPECT_EQ(BlendOf(Show.StepCount), c.StoredBlend) << c.Blend;
        EXPECT_EQ(HoldOf(Show.StepCount), c.StoredHold) << c.Hold;
        EXPECT_EQ(Show.SequencerField[1], std::to_string(c.StoredBlend));
        EXPECT_EQ(Show.SequencerField[2], std::to_string(c.StoredHold));
    }
}

TEST_F(Sequencer, RecordingWhilePlayingTakesTheHalfBlendedWall) {
    MakeSequence(2, 1);
    PlayTowards(2);
    Tick(3); // one hold, two of six blend ticks
    Tick(1);
    const int level = Level();
    EXPECT_GT(level, 0);
    EXPECT_LT(level, 20);
    SceneToSequence();
    EXPECT_EQ(Show.StepCount, 3);
    EXPECT_EQ(Show.SequenceSteps[3][1][1], level);
}

// Playing

TEST_F(Sequencer, PlayNeedsAProgrammedSequence) {
    Play();
    EXPECT_EQ(Status(), "Es wurde noch keine Sequenz programmiert !");
    EXPECT_EQ(Caption(), "");
    EXPECT_FALSE(Playing());
    EXPECT_FALSE(Show.AutoXmit.Enabled);
}

TEST_F(Sequencer, PlayStartsTheTransitionOutOfTheCurrentStep) {
    MakeSequence(3, 2);
    Show.HoldCounter = 9;
    Show.BlendCounter = 9;
    Play();
    EXPECT_TRUE(Playing());
    EXPECT_EQ(Status(), "Sequenz wird abgespielt.");
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Show.HoldCounter, 0);
    EXPECT_EQ(Show.BlendCounter, 0);
    Show.ElementValue[1].Fill(255); // what the wall shows now is held
    Tick(2);
    EXPECT_EQ(Level(), 255);
    EXPECT_EQ(Show.CurrentStep, 3);
}

TEST_F(Sequencer, PlayWithoutACurrentStepBeginsWithTheFirst) {
    MakeSequence(3, 0);
    Play();
    EXPECT_EQ(Show.CurrentStep, 1);
}

TEST_F(Sequencer, PlayEnablesTheClockForEveryInterface) {
    MakeSequence(1, 1);
    for (const std::int16_t type : {NoInterface, IsaCardB, IsaCardC, UsbInterface, PcmciaCard, PciCard}) {
        Show.AutoXmit.Enabled = false;
        Show.InterfaceType = type;
        Play();
        EXPECT_TRUE(Show.AutoXmit.Enabled);
    }
}

TEST_F(Sequencer, PlayLeavesTheClockOffDuringATransferToThePlayUnit) {
    MakeSequence(1, 1);
    Show.timSendToMerger.Enabled = true;
    Play();
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_TRUE(Playing());
}

TEST_F(Sequencer, PlayCaptionNamesTheInterfaceType) {
    MakeSequence(1, 1);
    Show.CaptionPrefix = "Windows XP";
    Show.InterfaceType = PcmciaCard;
    Play();
    EXPECT_EQ(Caption(), "Windows XP: KMO DMX QUORVANE  ....running.  Interfacetype= 4");
}

TEST_F(Sequencer, PlayWhilePlayingChangesNothingButTheTexts) {
    MakeSequence(3, 1);
    PlayTowards(2);
    Log.clear();
    Play();
    EXPECT_EQ(Show.HoldCounter, 2);
    EXPECT_EQ(Show.BlendCounter, 6);
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Status(), "Sequenz wird abgespielt.");
    EXPECT_FALSE(Caption().empty());
}

TEST_F(Sequencer, StopEndsPlaybackOnlyAndTheClockRunsOn) {
    MakeSequence(3, 1);
    PlayTowards(2);
    Show.AutoXmit.Enabled = true;
    StopSequence();
    EXPECT_FALSE(Playing());
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Show.HoldCounter, 2);
    EXPECT_EQ(Status(), "Sequenzer gestoppt.");
    EXPECT_EQ(Caption(), ": KMO DMX QUORVANE  ....stopped");
}

TEST_F(Sequencer, StopCaptionBeginsWithTheSystemsName) {
    Show.CaptionPrefix = "Windows XP";
    StopSequence();
    EXPECT_EQ(Caption(), "Windows XP: KMO DMX QUORVANE  ....stopped");
}

TEST_F(Sequencer, StopNeedsNoSequence) {
    StopSequence();
    EXPECT_EQ(Status(), "Sequenzer gestoppt.");
}

TEST_F(Sequencer, PlayAfterStopStartsAnewAndDoesNotTakeUpTheFade) {
    MakeSequence(3, 1);
    PlayTowards(2);
    Tick(4);
    StopSequence();
    const int level = Level();
    Play();
    Tick();
    EXPECT_EQ(Level(), level);
    EXPECT_EQ(Show.HoldCounter, 3);
    EXPECT_EQ(Show.CurrentStep, 3);
}

} // namespace quorvane
