#include "bench/stage.h"

#include "engine/outputclock.h"
#include "model/sequence.h"

#include <stdexcept>

namespace quorvane {

namespace {

class Playback : public Stage {
protected:
    Playback() { MakeWall(1, 1); }

    std::string Status() const { return LastText("status", "frmControl"); }
    // The texts of the next ticks.
    std::vector<std::string> Statuses(int ticks) {
        std::vector<std::string> texts;
        for (int tick = 0; tick < ticks; ++tick) {
            Tick();
            texts.push_back(Status());
        }
        return texts;
    }
    std::vector<int> Levels(int ticks) {
        std::vector<int> levels;
        for (int tick = 0; tick < ticks; ++tick) {
            Tick();
            levels.push_back(Level());
        }
        return levels;
    }
};

} // namespace

TEST_F(Playback, StepLastsHoldPlusBlendPlusOneTicks) {
    AddStep(0, 1, 5);
    AddStep(100, 3, 6);
    StartPlaying();
    std::vector<int> starts;
    for (int tick = 1; tick <= 35; ++tick) {
        const int before = Show.CurrentStep;
        Tick();
        if (Show.CurrentStep != before) starts.push_back(tick);
    }
    EXPECT_EQ(starts, (std::vector<int>{1, 8, 18, 25, 35}));
}

TEST_F(Playback, TicksRunStartThenHoldThenBlend) {
    AddStep(0, 2, 5);
    AddStep(50, 1, 5);
    StartPlaying();
    EXPECT_EQ(Statuses(10),
              (std::vector<std::string>{"5Blend ", "2Hold  ", "1Hold  ", "4Blend ", "3Blend ", "2Blend ",
                                        "1Blend ", "0Blend ", "5Blend ", "1Hold  "}));
}

TEST_F(Playback, HoldTextShowsTheTicksBeforeTheDecrementWithTwoTrailingBlanks) {
    AddStep(0, 12, 5);
    StartPlaying();
    Tick(2);
    EXPECT_EQ(Show.HoldCounter, 11);
    EXPECT_EQ(Status(), "12Hold  ");
}

TEST_F(Playback, LevelsStandDuringTheHoldAndReachTheNextStepWithTheLastBlendTick) {
    AddStep(0, 2, 5);
    AddStep(50, 2, 10);
    StartPlaying();
    EXPECT_EQ(Levels(13), (std::vector<int>{0, 0, 0, 10, 20, 30, 40, 50, 50, 50, 50, 45, 40}));
}

TEST_F(Playback, SequencerAlreadyShowsTheNextStepDuringTheHold) {
    AddStep(0, 2, 5);
    AddStep(50, 7, 8);
    StartPlaying();
    Tick(2);
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Show.SequencerField[0], "2");
    EXPECT_EQ(Show.SequencerField[1], "8");
    EXPECT_EQ(Show.SequencerField[2], "7");
}

TEST_F(Playback, StartTickWritesNoChannelButHandsTheFrameOver) {
    AddStep(50, 1, 5);
    for (const std::int16_t type : {IsaCardB, IsaCardC}) {
        Use(type);
        Show.DmxIniDirty = 0;
        StartPlaying();
        Show.ElementValue[1].Fill(200);
        Written.clear();
        Tick();
        EXPECT_TRUE(Written.empty());
        Tick();
        EXPECT_EQ(Written.size(), 4u);
    }
    for (const std::int16_t type : {UsbInterface, PcmciaCard, PciCard}) {
        Use(type);
        SetFrame(std::vector<std::uint8_t>(512, 9));
        StartPlaying();
        Calls.clear();
        Tick();
        EXPECT_EQ(Calls.size(), 2u);
        EXPECT_EQ(Frame(), std::vector<std::uint8_t>(512, 9));
    }
}

TEST_F(Playback, SequenceLoopsForEver) {
    AddStep(0, 1, 5);
    AddStep(10, 1, 5);
    AddStep(20, 1, 5);
    StartPlaying();
    std::vector<int> steps;
    for (int step = 0; step < 8; ++step) {
        Tick(7);
        steps.push_back(Show.CurrentStep);
    }
    EXPECT_EQ(steps, (std::vector<int>{2, 3, 1, 2, 3, 1, 2, 3}));
}

TEST_F(Playback, OneStepLoopsOnItself) {
    AddStep(70, 1, 5);
    Show.ElementValue[1].Fill(70);
    StartPlaying();
    const auto levels = Levels(30);
    EXPECT_EQ(levels, std::vector<int>(30, 70));
    EXPECT_EQ(Show.CurrentStep, 1);
}

TEST_F(Playback, StepsUpTo254FromAFilePlay) {
    for (int step = 1; step <= 254; ++step) AddStep(step, 1, 5);
    StartPlaying(253);
    Tick(7);
    EXPECT_EQ(Show.CurrentStep, 254);
    EXPECT_EQ(Level(), 254);
    Tick(7);
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Level(), 1);
}

TEST_F(Playback, HoldOfZeroGoesStraightIntoTheBlend) {
    AddStep(0, 0, 5);
    AddStep(50, 1, 5);
    StartPlaying();
    EXPECT_EQ(Statuses(2), (std::vector<std::string>{"5Blend ", "4Blend "}));
}

TEST_F(Playback, TimesAbove32767PlayUnsigned) {
    AddStep(0, 40000, 65534);
    StartPlaying();
    Tick();
    EXPECT_EQ(Show.HoldCounter, 40000);
    EXPECT_EQ(Show.BlendCounter, 65534);
    EXPECT_EQ(Show.BlendSteps, 65534);
}

TEST_F(Playback, LongestBlendDoesNotOverflowItsCounter) {
    AddStep(0, 65535, 65535);
    StartPlaying();
    Tick();
    EXPECT_EQ(Show.BlendCounter, 65535);
    EXPECT_EQ(Show.HoldCounter, 65535);
}

TEST_F(Playback, TurboDividesTheTimesWhenATransitionLoadsThem) {
    AddStep(0, 9, 25);
    AddStep(50, 1, 5);
    Show.TurboFactor = 2;
    StartPlaying();
    Tick();
    EXPECT_EQ(Show.HoldCounter, 4);
    EXPECT_EQ(Show.BlendSteps, 12);
    EXPECT_EQ(Show.SequencerField[1], "5"); // fields show stored times
    Show.TurboFactor = 1;                   // what runs goes on as loaded
    Tick(4);
    EXPECT_EQ(Status(), "1Hold  ");
    Tick(12);
    EXPECT_EQ(Level(), 50);
}

TEST_F(Playback, BlendTimeOfZeroIsAnErrorWhenItsTransitionStarts) {
    AddStep(0, 1, 0);
    StartPlaying();
    EXPECT_THROW(Tick(), std::domain_error);
}

TEST_F(Playback, WallPaintedDuringAHoldJumpsBackWhenTheBlendBegins) {
    AddStep(0, 1, 5);
    AddStep(50, 1, 5);
    StartPlaying();
    Tick(2);
    Show.ElementValue[1].Fill(255);
    Tick();
    EXPECT_EQ(Level(), 10);
}

TEST_F(Playback, NothingAdvancesWhileNotPlaying) {
    AddStep(0, 1, 5);
    StartPlaying();
    Tick();
    Show.StatusFlags.Clear(quorvane::Status::SequencePlaying);
    Log.clear();
    Tick(5);
    EXPECT_EQ(Show.HoldCounter, 1);
    EXPECT_TRUE(Log.empty());
}

TEST_F(Playback, WithCardTheStepEngineNeedsThePlayingBit) {
    AddStep(0, 1, 5);
    Show.CurrentStep = 1;
    MitKarte();
    EXPECT_EQ(Show.BlendCounter, 0);
}

namespace {

class Jump : public Stage {
protected:
    Jump() {
        MakeWall(2, 1);
        AddStep(10, 3, 5);
        AddStep(20, 4, 6);
    }
};

} // namespace

TEST_F(Jump, ShowsTheStepAtOnce) {
    Show.CurrentStep = 2;
    JumpToStep();
    EXPECT_EQ(Level(), 20);
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1}));
    EXPECT_EQ(Show.SequencerField[0], "2");
    EXPECT_EQ(Show.SequencerField[1], "6");
    EXPECT_EQ(Show.SequencerField[2], "4");
    EXPECT_EQ(LastText("status", "frmControl"), "Auf Szene Nr 2 gesprungen.");
}

TEST_F(Jump, CaptionKeepsSayingStoppedAlthoughTheClockRuns) {
    Show.CaptionPrefix = "Windows XP";
    Show.CurrentStep = 1;
    JumpToStep();
    EXPECT_EQ(LastText("caption", "MDIHaupt"), "Windows XP: KMO DMX QUORVANE  ....stopped: Scene change");
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

TEST_F(Jump, ClockStandsWhileTheLevelsAreRewritten) {
    Show.AutoXmit.Enabled = true;
    Show.CurrentStep = 1;
    Screen.PaintElement = [](int, ScreenColour) { EXPECT_FALSE(Show.AutoXmit.Enabled); };
    JumpToStep();
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

TEST_F(Jump, LeavesTheClockOffDuringATransferToThePlayUnit) {
    Show.timSendToMerger.Enabled = true;
    Show.CurrentStep = 1;
    JumpToStep();
    EXPECT_FALSE(Show.AutoXmit.Enabled);
}

TEST_F(Jump, LeavesThePlayingBitAndTheNextTickStartsTheTransitionOutOfTheStep) {
    StartPlaying();
    Tick(3);
    Show.CurrentStep = 2;
    JumpToStep();
    EXPECT_TRUE(Show.StatusFlags.Has(quorvane::Status::SequencePlaying));
    EXPECT_EQ(Show.HoldCounter, 0);
    EXPECT_EQ(Show.BlendCounter, 0);
    Tick();
    EXPECT_EQ(Show.HoldCounter, 4);
    EXPECT_EQ(Show.BlendSteps, 6);
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Level(), 20);
}

TEST_F(Jump, SelectedElementsAreMarkedAgainAfterTheScene) {
    Show.ElementSelected[1] = 1;
    std::vector<std::string> order;
    Screen.PaintElement = [&order](int index, ScreenColour) {
        order.push_back("paint " + std::to_string(index));
    };
    Screen.PaintSelected = [&order](int index) { order.push_back("mark " + std::to_string(index)); };
    Show.CurrentStep = 1;
    JumpToStep();
    EXPECT_EQ(order, (std::vector<std::string>{"paint 0", "paint 1", "mark 1"}));
}

} // namespace quorvane
