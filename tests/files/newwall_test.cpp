#include "files/newwall.h"

#include "bench/stage.h"

#include "model/wall.h"

namespace quorvane {

// A sequence that plays while the wall is replaced. It fades to 250 in 50 ticks, then to 10 in 100.
class NewWallWhilePlaying : public Stage {
protected:
    NewWallWhilePlaying() {
        MakeWall(11, 11);
        AddStep(0, 2, 50);
        AddStep(250, 2, 100);
        AddStep(10, 2, 50);
        StartPlaying();
        Tick(1);
    }
    static void Replace(int columns, int rows) { ReplaceWall({"Foyer", columns, rows, 600, 1200, 100}); }
    static void ExpectAll(int level) {
        for (int element = 1; element <= Show.ElementCount; ++element)
            for (int channel = 1; channel <= 4; ++channel)
                ASSERT_EQ(Show.ElementValue[element][channel], level) << element << ", " << channel;
    }
};

TEST_F(NewWallWhilePlaying, SmallerThenLargerWallReachesEveryScene) {
    Tick(2 + 25);
    Replace(10, 10);
    Tick(25);
    ExpectAll(250);
    Tick(1);
    Replace(11, 11);
    Tick(2 + 100);
    ExpectAll(10);
}

TEST_F(NewWallWhilePlaying, LargerWallReachesTheSceneThatIsFadedTo) {
    Replace(2, 2);
    Tick(2 + 25);
    Replace(3, 3);
    Tick(25);
    ExpectAll(250);
}

TEST_F(NewWallWhilePlaying, WallBuiltInAFadeAfterTheOldOneWasRemovedReachesTheScene) {
    Tick(2 + 25);
    RemoveWall();
    Tick(25 + 1 + 2 + 10);
    Replace(11, 11);
    Tick(90);
    ExpectAll(10);
}

TEST_F(NewWallWhilePlaying, WallOfTheSameShapeFadesOnTickByTick) {
    Tick(2 + 25);
    const int level = Level();
    Show.ElementValue[1][1] = 3; // by hand, as the fade overwrites it with the next tick
    Replace(11, 11);
    Tick(1);
    EXPECT_EQ(Level(), level + 5);
    Tick(24);
    EXPECT_EQ(Level(), 250);
}

TEST_F(NewWallWhilePlaying, WallBuiltBetweenTwoTransitionsHasNothingToGoOnWith) {
    Tick(1 + 50 + 1);
    ASSERT_EQ(Show.BlendCounter, 0);
    EXPECT_NO_THROW(Replace(10, 10));
    Show.StatusFlags.Set(Status::SequencePlaying);
    Show.HoldCounter = 0;
    EXPECT_NO_THROW(Replace(11, 11)) << "right after Play";
}

TEST_F(NewWallWhilePlaying, StoppedSequenceKeepsTheLevels) {
    Tick(2 + 25);
    Show.StatusFlags.Clear(Status::SequencePlaying);
    Show.CurrentStep = 0;
    Replace(10, 10);
    Tick(5);
    ExpectAll(125);
}

} // namespace quorvane
