#include "bench/stage.h"

#include "engine/sequencer.h"
#include "model/sequence.h"

namespace quorvane {

namespace {

class Sequencer : public Stage {
protected:
    Sequencer() {
        MakeWall(2, 1);
        Show.ChangeFlags = {};
    }

    void MakeSequence(int steps, int current) {
        for (int step = 1; step <= steps; ++step) AddStep(step * 10, 3, 6);
        Show.CurrentStep = static_cast<std::uint8_t>(current);
    }
    // Playing, in the transition that has made step the current one.
    void PlayTowards(int step) {
        StartPlaying(step == 1 ? Show.StepCount : step - 1);
        Tick(2);
        EXPECT_EQ(Show.CurrentStep, step);
    }
    void FillFields(const std::string& blend, const std::string& hold) {
        Show.SequencerField[1] = blend;
        Show.SequencerField[2] = hold;
    }
    std::string Status() const { return LastText("status", "frmControl"); }
    std::string Caption() const { return LastText("caption", "MDIHaupt"); }
    static bool Playing() { return Show.StatusFlags.Has(quorvane::Status::SequencePlaying); }
};

constexpr const char* NoSequence = " Es ist noch keine Sequenz erstellt worden!";

} // namespace

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
                   "QUORVANE"}}));
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

// Stepping

TEST_F(Sequencer, NextSceneWrapsFromTheLastStepToTheFirst) {
    MakeSequence(5, 4);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 5);
    EXPECT_EQ(Level(), 50);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Level(), 10);
}

TEST_F(Sequencer, OwnTextOfNextSceneComesAfterTheTextOfTheJump) {
    MakeSequence(5, 1);
    NextScene();
    EXPECT_EQ(Texts("status"), (std::vector<std::string>{"Auf Szene Nr 2 gesprungen.", "Nächste Scene."}));
}

TEST_F(Sequencer, NextSceneWhilePlayingPassesOverOneSceneOnPurpose) {
    MakeSequence(5, 1);
    PlayTowards(2); // step 1 is shown
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 3);
    EXPECT_TRUE(Playing());
}

TEST_F(Sequencer, PreviousSceneGoesBackByOneWhileStopped) {
    MakeSequence(5, 3);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Level(), 20);
    EXPECT_EQ(Status(), "Auf Szene Nr 2 gesprungen.");
}

TEST_F(Sequencer, PreviousSceneBelowStepTwoWrapsToTheLast) {
    for (const int current : {0, 1}) {
        Show.StepCount = 0;
        MakeSequence(5, current);
        PreviousScene();
        EXPECT_EQ(Show.CurrentStep, 5);
    }
}

TEST_F(Sequencer, PreviousSceneWhilePlayingGoesBackByTwoFromTheAnnouncedStep) {
    const std::vector<std::pair<int, int>> cases{{4, 2}, {3, 1}, {2, 5}, {1, 4}};
    for (const auto& [announced, shown] : cases) {
        Show.StepCount = 0;
        MakeSequence(5, 1);
        PlayTowards(announced);
        PreviousScene();
        EXPECT_EQ(Show.CurrentStep, shown) << announced;
        EXPECT_TRUE(Playing());
    }
}

TEST_F(Sequencer, PreviousSceneOfTwoPlayingStepsStaysInRange) {
    for (const int announced : {1, 2}) {
        Show.StepCount = 0;
        MakeSequence(2, 1);
        PlayTowards(announced);
        PreviousScene();
        EXPECT_EQ(Show.CurrentStep, announced);
    }
}

TEST_F(Sequencer, PreviousSceneOfOnePlayingStepShowsItAgain) {
    MakeSequence(1, 1);
    StartPlaying();
    Tick(2);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 1);
}

TEST_F(Sequencer, PreviousSceneRightAfterPlayOrAJumpGoesBackByOne) {
    MakeSequence(5, 4);
    Play();
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 3);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 2);
}

TEST_F(Sequencer, LongSequenceFromAFileCanBeStepped) {
    MakeSequence(254, 253);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 254);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 1);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 254);
}

TEST_F(Sequencer, BackToStartShowsTheFirstStep) {
    MakeSequence(5, 4);
    BackToStart();
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Level(), 10);
    EXPECT_EQ(Status(), "Auf Szene Nr 1 gesprungen.");
}

TEST_F(Sequencer, BackToStartDoesNothingWhilePlaying) {
    MakeSequence(5, 1);
    PlayTowards(4);
    Log.clear();
    BackToStart();
    EXPECT_EQ(Show.CurrentStep, 4);
    EXPECT_TRUE(Log.empty());
}

// Deleting

TEST_F(Sequencer, DeletingIsRefusedWhilePlaying) {
    MakeSequence(2, 1);
    Use(UsbInterface);
    PlayTowards(2);
    Calls.clear();
    EXPECT_FALSE(DarkenOutputForDelete());
    EXPECT_EQ(Status(), "Sie müssen die Sequenz erst anhalten!");
    EXPECT_TRUE(Calls.empty());
}

TEST_F(Sequencer, OutputGoesDarkBeforeDeletingOnEveryInterface) {
    for (const std::int16_t type : {IsaCardB, IsaCardC, UsbInterface, PcmciaCard, PciCard}) {
        Use(type);
        SetFrame(std::vector<std::uint8_t>(512, 99));
        Show.ElementValue[1].Fill(50);
        EXPECT_TRUE(DarkenOutputForDelete());
        EXPECT_EQ(Frame(), std::vector<std::uint8_t>(512, 0)) << type;
        Tick(); // unpatched channels stay dark, the wall lights again
        EXPECT_EQ(Frame()[0], 50);
        EXPECT_EQ(Frame()[100], 0);
    }
}

TEST_F(Sequencer, OneDarkFrameIsHandedOver) {
    Use(UsbInterface);
    DarkenOutputForDelete();
    EXPECT_EQ(Calls, (std::vector<std::string>{"usb 5 0", "usb 4 512"}));
}

TEST_F(Sequencer, NothingIsSentDarkWithoutAnOpenInterface) {
    DarkenOutputForDelete();
    Use(UsbInterface);
    Show.InterfaceOpen[UsbInterface] = 0;
    DarkenOutputForDelete();
    Use(IsaCardB);
    Show.CardBase = 0;
    DarkenOutputForDelete();
    EXPECT_TRUE(Calls.empty());
    EXPECT_TRUE(Written.empty());
}

TEST_F(Sequencer, DarkeningLeavesSequenceClockAndMarks) {
    MakeSequence(3, 2);
    Show.SequenceFile = "abend.QSQ";
    Show.ChangeFlags.Set(Change::SequenceChanged);
    EXPECT_TRUE(DarkenOutputForDelete());
    EXPECT_EQ(Show.StepCount, 3);
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Show.SequenceFile, "abend.QSQ");
    EXPECT_EQ(Show.ChangeFlags.bits, 0x20);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_TRUE(Log.empty());
}

TEST_F(Sequencer, EmptiedSequenceKeepsItsScenesOutOfReach) {
    MakeSequence(3, 2);
    Show.SequenceFile = "abend.QSQ";
    FillFields("60", "7");
    EmptySequence();
    EXPECT_FALSE(Show.StatusFlags.Has(quorvane::Status::SequenceExists));
    EXPECT_EQ(Show.StepCount, 0);
    EXPECT_EQ(Show.CurrentStep, 0);
    EXPECT_EQ(Show.SequenceFile, "");
    EXPECT_EQ(BlendOf(1), 60);
    EXPECT_EQ(HoldOf(1), 7);
    EXPECT_EQ(HoldOf(2), 3);
    EXPECT_EQ(Show.SequenceSteps[3][1][1], 30); // left in place on purpose
    EXPECT_EQ(Status(), "Die Sequenz wurde gelöscht.");
    EXPECT_EQ(LastText("caption", "frmControl"), "SEQUENZER");
    EXPECT_EQ(Show.SequencerField[0], "");
}

TEST_F(Sequencer, EmptyingStoresNoInvalidTime) {
    MakeSequence(1, 1);
    FillFields("0", "");
    EmptySequence();
    EXPECT_EQ(BlendOf(1), 50);
    EXPECT_EQ(HoldOf(1), 1);
}

TEST_F(Sequencer, EmptyingWithoutASequenceIsAllowed) {
    EXPECT_TRUE(DarkenOutputForDelete());
    EmptySequence();
    EXPECT_EQ(Status(), "Die Sequenz wurde gelöscht.");
}

} // namespace quorvane
