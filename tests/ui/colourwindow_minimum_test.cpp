// The rule for lamps that must never be driven at 0.
#include "ui/colourbench.h"

namespace quorvane {

using ColourMinimum = ColourBench;

TEST_F(ColourMinimum, MinimumRuleSaysAtItsEndThatItEndedTestMode) {
    StartWithColours();
    Show.StatusFlags.Set(Status::TestMode);
    Tick(Minimum());
    EXPECT_EQ(Sliders(), (Levels{1, 1, 1, 1}));
    EXPECT_EQ(Status(), "Testmodus wurde abgeschaltet");
}

TEST_F(ColourMinimum, MinimumRuleThatMovesNoSliderLeavesTestModeOn) {
    StartWithColours();
    Mix({5, 6, 7, 8});
    Show.StatusFlags.Set(Status::TestMode);
    Tick(Minimum());
    EXPECT_TRUE(Show.StatusFlags.Has(Status::TestMode));
    EXPECT_EQ(Status(), "");
    Show.StatusFlags.Clear(Status::TestMode);
}

TEST_F(ColourMinimum, MinimumRuleRaisesTheBottomOfAllSliders) {
    StartWithColours();
    Mix({5, 0, 9, 0});
    Tick(Minimum());
    for (int index = 0; index < 4; ++index) EXPECT_EQ(Slider(index)->minimum(), 1);
    EXPECT_EQ(Current(), (Levels{5, 1, 9, 1}));
    EXPECT_EQ(Number(1)->text().toStdString(), "1");
    Tick(Minimum());
    for (int index = 0; index < 4; ++index) EXPECT_EQ(Slider(index)->minimum(), 0);
    EXPECT_EQ(Current(), (Levels{5, 1, 9, 1})); // nothing moves back
}

TEST_F(ColourMinimum, MinimumRuleIsOffAgainAtEachOpening) {
    StartWithColours();
    Tick(Minimum());
    CloseColours();
    OpenColours();
    EXPECT_FALSE(Minimum()->isChecked());
    for (int index = 0; index < 4; ++index) EXPECT_EQ(Slider(index)->minimum(), 0);
    SetLevels(Show.ElementValue[1], {9, 9, 9, 9});
    Click(ElementField(1));
    Click(Button(1)); // the twentieth colour
    EXPECT_EQ(Element(1), (Levels{0, 0, 0, 0}));
}

TEST_F(ColourMinimum, MinimumRuleLiftsTheTwentiethColourRightAfterOpening) {
    StartWithWall(3, 1);
    SetLevels(Show.CurrentColour, {7, 8, 9, 10});
    SetLevels(Show.UserColour[20], {0, 2, 0, 4});
    Click(ElementField(1));
    OpenColours();
    Tick(Minimum());
    EXPECT_EQ(Current(), (Levels{1, 2, 1, 4}));
    Click(Button(1));
    EXPECT_EQ(Element(1), (Levels{1, 2, 1, 4}));
    EXPECT_EQ(UserColour(20), (Levels{0, 2, 0, 4})); // the table keeps its 0
}

TEST_F(ColourMinimum, SliderAtZeroTakesItsOneIntoTheTwentiethColourRightAfterOpeningOnPurpose) {
    StartWithWall(3, 1);
    SetLevels(Show.UserColour[20], {50, 2, 0, 4});
    OpenColours();
    Tick(Minimum());
    EXPECT_EQ(Current(), (Levels{1, 1, 1, 1}));
}

TEST_F(ColourMinimum, ZeroTypedUnderTheMinimumRuleBecomesOne) {
    StartWithColours();
    Tick(Minimum());
    Move(0, 80);
    Enter(Number(0), "0");
    EXPECT_EQ(Slider(0)->value(), 1);
    EXPECT_EQ(Number(0)->text().toStdString(), "1");
    EXPECT_EQ(Current()[0], 1);
    EXPECT_EQ(Beeps, 0);
}

} // namespace quorvane
