#include "engine/sequencerbench.h"

namespace quorvane {

using SequencerSteps = SequencerBench;

TEST_F(SequencerSteps, NextSceneWrapsFromTheLastStepToTheFirst) {
    MakeSequence(5, 4);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 5);
    EXPECT_EQ(Level(), 50);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Level(), 10);
}

TEST_F(SequencerSteps, OwnTextOfNextSceneComesAfterTheTextOfTheJump) {
    MakeSequence(5, 1);
    NextScene();
    EXPECT_EQ(Texts("status"), (std::vector<std::string>{"Auf Szene Nr 2 gesprungen.", "Nächste Scene."}));
}

TEST_F(SequencerSteps, NextSceneWhilePlayingPassesOverOneSceneOnPurpose) {
    MakeSequence(5, 1);
    PlayTowards(2); // step 1 is shown
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 3);
    EXPECT_TRUE(Playing());
}

TEST_F(SequencerSteps, PreviousSceneGoesBackByOneWhileStopped) {
    MakeSequence(5, 3);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Level(), 20);
    EXPECT_EQ(Status(), "Auf Szene Nr 2 gesprungen.");
}

TEST_F(SequencerSteps, PreviousSceneBelowStepTwoWrapsToTheLast) {
    for (const int current : {0, 1}) {
        Show.StepCount = 0;
        MakeSequence(5, current);
        PreviousScene();
        EXPECT_EQ(Show.CurrentStep, 5);
    }
}

TEST_F(SequencerSteps, PreviousSceneWhilePlayingGoesBackByTwoFromTheAnnouncedStep) {
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

TEST_F(SequencerSteps, PreviousSceneInTheMiddleOfABlendGoesBackByTwo) {
    MakeSequence(5, 1);
    PlayTowards(4);
    Tick(Show.HoldCounter + 2);
    ASSERT_GT(Show.BlendCounter, 0);
    ASSERT_LT(Level(), 40);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Level(), 20);
}

TEST_F(SequencerSteps, PreviousSceneAfterTheLastTickOfABlendGoesBackByOne) {
    MakeSequence(5, 1);
    PlayTowards(4);
    Tick(Show.HoldCounter + Show.BlendCounter);
    ASSERT_EQ(Level(), 40); // step 4 is shown, and still announced
    ASSERT_EQ(Show.CurrentStep, 4);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 3);
    EXPECT_EQ(Level(), 30);
}

TEST_F(SequencerSteps, PreviousSceneOfTwoPlayingStepsStaysInRange) {
    for (const int announced : {1, 2}) {
        Show.StepCount = 0;
        MakeSequence(2, 1);
        PlayTowards(announced);
        PreviousScene();
        EXPECT_EQ(Show.CurrentStep, announced);
    }
}

TEST_F(SequencerSteps, PreviousSceneOfOnePlayingStepShowsItAgain) {
    MakeSequence(1, 1);
    StartPlaying();
    Tick(2);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 1);
}

TEST_F(SequencerSteps, PreviousSceneRightAfterPlayOrAJumpGoesBackByOne) {
    MakeSequence(5, 4);
    Play();
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 3);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 2);
}

TEST_F(SequencerSteps, LongSequenceFromAFileCanBeStepped) {
    MakeSequence(254, 253);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 254);
    NextScene();
    EXPECT_EQ(Show.CurrentStep, 1);
    PreviousScene();
    EXPECT_EQ(Show.CurrentStep, 254);
}

TEST_F(SequencerSteps, BackToStartShowsTheFirstStep) {
    MakeSequence(5, 4);
    BackToStart();
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Level(), 10);
    EXPECT_EQ(Status(), "Auf Szene Nr 1 gesprungen.");
}

TEST_F(SequencerSteps, BackToStartDoesNothingWhilePlaying) {
    MakeSequence(5, 1);
    PlayTowards(4);
    Log.clear();
    BackToStart();
    EXPECT_EQ(Show.CurrentStep, 4);
    EXPECT_TRUE(Log.empty());
}

} // namespace quorvane
