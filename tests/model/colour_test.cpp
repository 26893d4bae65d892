#include "bench/bench.h"

#include "model/colour.h"
#include "model/text.h"

#include <array>
#include <stdexcept>

namespace quorvane {

namespace {

PerChannel<std::uint8_t> Rgbw(int red, int green, int blue, int white) {
    PerChannel<std::uint8_t> colour;
    const std::array levels{red, green, blue, white};
    for (int c = 1; c <= 4; ++c)
        colour[c] = static_cast<std::uint8_t>(levels[static_cast<std::size_t>(c - 1)]);
    return colour;
}

} // namespace

using Colour = Bench;

TEST_F(Colour, WhiteLiftsAllThreePrimariesUpTo255) {
    EXPECT_EQ(Colormix(Rgbw(200, 0, 0, 100)), (ScreenColour{255, 100, 100}));
    EXPECT_EQ(Colormix(Rgbw(255, 255, 255, 255)), (ScreenColour{255, 255, 255}));
    EXPECT_EQ(Colormix(Rgbw(0, 0, 0, 0)), (ScreenColour{0, 0, 0}));
    EXPECT_EQ(Colormix(Rgbw(1, 2, 3, 4)), (ScreenColour{5, 6, 7}));
}

TEST_F(Colour, ScreenColourIsRedPlus256GreenPlus65536Blue) {
    EXPECT_EQ(ScreenColourNumber({1, 2, 3}), 1u + 2u * 256u + 3u * 65536u);
    EXPECT_EQ(ScreenColourNumber({255, 255, 255}), 0xFFFFFFu);
    EXPECT_EQ(SplitScreenColour(0x3E68D6), (ScreenColour{0xD6, 0x68, 0x3E}));
    EXPECT_EQ(SplitScreenColour(0xFF000001), (ScreenColour{1, 0, 0}));
}

TEST_F(Colour, WallShowsLevelsBeforeCorrection) {
    MakeWall(2, 1);
    Show.ElementValue[2] = Rgbw(10, 20, 30, 5);
    Show.ColourCorrection[2].Fill(255);
    ScreenColour shown;
    int where = -1;
    Screen.PaintElement = [&](int index, ScreenColour colour) {
        where = index;
        shown = colour;
    };
    ShowWallColour(1);
    EXPECT_EQ(where, 1);
    EXPECT_EQ(shown, (ScreenColour{15, 25, 35}));
}

TEST_F(Colour, ElementsOutsideTheTableCannotBeShown) {
    EXPECT_NO_THROW(ShowWallColour(0));
    EXPECT_NO_THROW(ShowWallColour(254));
    EXPECT_THROW(ShowWallColour(-1), std::out_of_range);
    EXPECT_THROW(ShowWallColour(255), std::out_of_range);
}

TEST_F(Colour, FetchTakesTheLowestSelectedElement) {
    MakeWall(3, 1);
    Show.ElementValue[2] = Rgbw(1, 2, 3, 4);
    Show.ElementValue[3] = Rgbw(9, 9, 9, 9);
    Show.ElementSelected[1] = Show.ElementSelected[2] = 1;
    FetchColourFromSelection();
    EXPECT_EQ(Show.CurrentColour, Rgbw(1, 2, 3, 4));
}

TEST_F(Colour, FetchWithoutASelectionLeavesTheMixedColour) {
    MakeWall(3, 1);
    Show.CurrentColour = Rgbw(5, 6, 7, 8);
    FetchColourFromSelection();
    EXPECT_EQ(Show.CurrentColour, Rgbw(5, 6, 7, 8));
}

TEST_F(Colour, ApplyGivesTheColourToEverySelectedElementAndRepaintsIt) {
    MakeWall(3, 1);
    Show.ChangeFlags = {};
    Show.SceneFile = "abend.QSC";
    Show.CurrentColour = Rgbw(5, 6, 7, 8);
    Show.ElementSelected[0] = Show.ElementSelected[2] = 1;
    ApplyColourToSelection();
    EXPECT_EQ(Show.ElementValue[1], Rgbw(5, 6, 7, 8));
    EXPECT_EQ(Show.ElementValue[2], Rgbw(0, 0, 0, 0));
    EXPECT_EQ(Show.ElementValue[3], Rgbw(5, 6, 7, 8));
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 2}));
    EXPECT_EQ(Show.ChangeFlags.bits, 0x08);
}

TEST_F(Colour, ApplyWithoutASelectionStillMarksTheScene) {
    MakeWall(3, 1);
    Show.ChangeFlags = {};
    Show.CurrentColour = Rgbw(5, 6, 7, 8);
    ApplyColourToSelection();
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
    EXPECT_TRUE(PaintedElements.empty());
    EXPECT_EQ(Show.ElementValue, decltype(Show.ElementValue){});
}

TEST_F(Colour, StoringPutsTheMixedColourIntoTheTable) {
    Show.CurrentColour = Rgbw(5, 6, 7, 8);
    StoreUserColour(20);
    EXPECT_EQ(Show.UserColour[20], Rgbw(5, 6, 7, 8));
    EXPECT_EQ(Show.SelectedUserColour, 20);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::UserColourStored));
    EXPECT_TRUE(Show.StatusFlags.Has(Status::UserColourChanged));
    EXPECT_EQ(Show.ChangeFlags.bits, 0xC0);
}

TEST_F(Colour, StoringIntoATableWithAFileMarksItAsChangedOnly) {
    Show.ColourTableFile = "farben.QCT";
    StoreUserColour(1);
    EXPECT_EQ(Show.ChangeFlags.bits, 0x80);
}

TEST_F(Colour, ThereAreTwentyUserColours) {
    for (const int number : {0, 21}) {
        EXPECT_THROW(StoreUserColour(number), std::out_of_range);
        EXPECT_THROW(RenameUserColour(number, "Rot"), std::out_of_range);
    }
    EXPECT_EQ(Show.SelectedUserColour, 0);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(Colour, RenamingStoresTwentyCharacters) {
    RenameUserColour(3, "Rot");
    EXPECT_EQ(Show.UserColourName[3], "Rot" + std::string(17, ' '));
    RenameUserColour(3, "Ein sehr langes Grün, fürwahr");
    EXPECT_EQ(Show.UserColourName[3], "Ein sehr langes Grün");
    EXPECT_EQ(Show.ChangeFlags.bits, 0xC0);
}

TEST_F(Colour, RenamingMarksATableWithAFileAsChangedOnly) {
    Show.ColourTableFile = "farben.QCT";
    RenameUserColour(3, "Rot");
    EXPECT_EQ(Show.ChangeFlags.bits, 0x80);
}

TEST_F(Colour, SameNameAgainIsNoChange) {
    RenameUserColour(3, "Farbe3");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(Colour, EmptyNameIsIgnored) {
    RenameUserColour(3, "");
    EXPECT_EQ(Show.UserColourName[3], "Farbe3              ");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(Colour, CommasAndLineBreaksInANameBecomeBlanks) {
    RenameUserColour(3, "rot,grün\r\nblau");
    EXPECT_EQ(Show.UserColourName[3], "rot grün  blau      ");
}

TEST_F(Colour, MinimumRuleLiftsZeroToOneAndNothingElse) {
    EXPECT_EQ(SliderLevel(0, true), 1);
    EXPECT_EQ(SliderLevel(1, true), 1);
    EXPECT_EQ(SliderLevel(255, true), 255);
    EXPECT_EQ(SliderLevel(0, false), 0);
}

} // namespace quorvane
