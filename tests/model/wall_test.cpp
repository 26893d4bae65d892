#include "bench/bench.h"

#include "model/sequence.h"
#include "model/wall.h"

#include <stdexcept>

namespace quorvane {

namespace {

// Every call that the wall window gets, in order: "add 0 (1,1)", "remove 3", "paint 0" ...
class WallBuild : public Bench {
protected:
    WallBuild() {
        Screen.AddElement = [this](int index, int column, int row) {
            Calls.push_back("add " + std::to_string(index) + " (" + std::to_string(column) + "," +
                            std::to_string(row) + ")");
        };
        Screen.RemoveElement = [this](int index) { Calls.push_back("remove " + std::to_string(index)); };
        Screen.PaintElement = [this](int index, ScreenColour) {
            Calls.push_back("paint " + std::to_string(index));
        };
        Screen.WallCaption = [this](std::string_view text) {
            Calls.push_back("caption " + std::string(text));
        };
        Screen.SizeWall = [this](double width, double height, double labelWidth, double labelHeight) {
            Calls.push_back("size");
            Sizes = {width, height, labelWidth, labelHeight};
        };
        Screen.PlaceWall = [this](int left, int top, int width, int height) {
            Calls.push_back("place");
            Place = {left, top, width, height};
        };
    }

    void Ask(int columns, int rows) {
        Show.WallColumns = static_cast<std::uint8_t>(columns);
        Show.WallRows = static_cast<std::uint8_t>(rows);
        Show.WallAreaWidth = 600;
        Show.WallAreaHeight = 1200;
        Show.ElementSize = 100;
        Show.WallName = "Foyer               ";
    }

    std::vector<std::string> Calls;
    std::vector<double> Sizes;
    std::vector<int> Place;
};

} // namespace

TEST_F(WallBuild, OneByOneWallIsOneElementOnChannelsOneToFour) {
    MakeWall(1, 1);
    EXPECT_EQ(Show.ElementCount, 1);
    for (int c = 1; c <= 4; ++c) EXPECT_EQ(Show.Patch[1][c], c);
    EXPECT_EQ(Show.ElementPos[1], (GridPosition{1, 1}));
}

TEST_F(WallBuild, ElevenByElevenWallIsPatchedUpTo484RowByRow) {
    MakeWall(11, 11);
    EXPECT_EQ(Show.ElementCount, 121);
    for (int element = 1; element <= 121; ++element)
        for (int c = 1; c <= 4; ++c) EXPECT_EQ(Show.Patch[element][c], 4 * (element - 1) + c);
    EXPECT_EQ(Show.ElementPos[12], (GridPosition{1, 2}));
    EXPECT_EQ(Show.ElementPos[11], (GridPosition{11, 1}));
}

TEST_F(WallBuild, RemovesOldLabelsFromTheLastToTheFirstBeforeNewOnesCome) {
    Ask(2, 1);
    NeueWandInit();
    Calls.clear();
    Ask(1, 2);
    NeueWandInit();
    EXPECT_EQ(Calls, (std::vector<std::string>{"remove 1", "remove 0", "caption Foyer               ", "size",
                                               "add 0 (1,1)", "add 1 (1,2)", "paint 0", "paint 1"}));
}

TEST_F(WallBuild, ElementCountFallsWithEachLabelThatGoes) {
    MakeWall(3, 1);
    std::vector<int> counts;
    Screen.RemoveElement = [&counts](int) { counts.push_back(Show.ElementCount); };
    RemoveWall();
    EXPECT_EQ(counts, (std::vector<int>{3, 2, 1}));
    EXPECT_EQ(Show.ElementCount, 0);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::WallExists));
}

TEST_F(WallBuild, SizesTheWindowWithOffsets100And104ThatDiffer) {
    Ask(10, 5);
    NeueWandInit();
    ASSERT_EQ(Sizes.size(), 4u);
    EXPECT_DOUBLE_EQ(Sizes[0], 6600);
    EXPECT_DOUBLE_EQ(Sizes[1], 6540);
    EXPECT_DOUBLE_EQ(Sizes[2], 600);
    EXPECT_DOUBLE_EQ(Sizes[3], 1200);
}

TEST_F(WallBuild, SizeZeroBecomes80) {
    Ask(1, 1);
    Show.ElementSize = 0;
    NeueWandInit();
    EXPECT_EQ(Show.ElementSize, 80);
    EXPECT_DOUBLE_EQ(Sizes[2], 750);
}

TEST_F(WallBuild, NewWallIsMarkedAsUnsaved) {
    Ask(1, 1);
    NeueWandInit();
    EXPECT_EQ(Show.ChangeFlags.bits, 0x27);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::WallExists));
}

TEST_F(WallBuild, WallFromAFileIsNotMarkedButBuiltTheSame) {
    Ask(3, 2);
    Show.ElementSize = 0;
    NeueWandLoad();
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Show.ElementCount, 6);
    EXPECT_EQ(Show.ElementSize, 80);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::WallExists));
}

TEST_F(WallBuild, PlacesTheWindowWithLeftAndTopSwappedWhenFilesAreRestored) {
    Ask(1, 1);
    for (int value = PosLeft; value <= PosState; ++value) Show.WindowPos[WallWindow][value] = value * 10;
    Show.StatusFlags.Set(Status::SaveToCurrentFile);
    NeueWandLoad();
    EXPECT_EQ(Place, (std::vector<int>{20, 10, 30, 40}));
}

TEST_F(WallBuild, LeavesTheWindowWhereItIsOtherwise) {
    Ask(1, 1);
    NeueWandInit();
    EXPECT_TRUE(Place.empty());
}

TEST_F(WallBuild, ChannelCountFollowsTheWall) {
    MakeWall(11, 11);
    EXPECT_EQ(Show.ChannelCount, 484);
    EXPECT_EQ(Show.DmxIni[3], 228);
    EXPECT_EQ(Show.DmxIniDirty, 1);
}

TEST_F(WallBuild, RoundsTheHighPartOfTheChannelCountInsteadOfTruncating) {
    const std::vector<std::pair<int, int>> cases{{1, 0},  {32, 0}, {33, 1}, {50, 1},
                                                 {96, 1}, {97, 2}, {121, 2}};
    for (const auto& [elements, high] : cases) {
        MakeWall(elements, 1);
        EXPECT_EQ(Show.DmxIni[4], high) << elements;
    }
}

TEST_F(WallBuild, ChannelCountThatDoesNotFollowStaysAsItIs) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    Show.ChannelCount = 512;
    MakeWall(5, 5);
    EXPECT_EQ(Show.ChannelCount, 512);
    EXPECT_EQ(Show.DmxIniDirty, 0);
    EXPECT_EQ(Show.DmxIni[3], 0);
}

TEST_F(WallBuild, WarnsByElementCountAndNotByChannelTotal) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    Show.ChannelCount = 40;
    Ask(12, 1); // 48 channels, and yet no warning
    NeueWandInit();
    EXPECT_TRUE(Texts("box").empty());
    Ask(40, 1);
    NeueWandInit();
    EXPECT_TRUE(Texts("box").empty());
    Ask(41, 1);
    NeueWandInit();
    ASSERT_EQ(Texts("box").size(), 1u);
    EXPECT_EQ(Texts("box")[0],
              "ACHTUNG! Sie haben 41 die jeweils 4 und insgesamt 164 Kanäle belegen."); // no noun, on purpose
    EXPECT_EQ(Log.back().Title, "QUORVANE");
    EXPECT_EQ(Log.back().Sign, Icon::Exclamation);
}

TEST_F(WallBuild, WarnsAlsoWhenTheWallComesFromAFile) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    Show.ChannelCount = 10;
    Ask(11, 1);
    NeueWandLoad();
    EXPECT_EQ(Texts("box").size(), 1u);
}

TEST_F(WallBuild, TwoHundredFiftyElementsAreBuilt) {
    Ask(25, 10);
    NeueWandLoad();
    EXPECT_EQ(Show.ElementCount, 250);
    EXPECT_EQ(Show.Patch[250][4], 1000);
    EXPECT_EQ(Show.ChannelCount, 1000);
}

TEST_F(WallBuild, MoreThan250ElementsAreRefusedBeforeAnythingChanges) {
    Ask(2, 2);
    NeueWandInit();
    Calls.clear();
    const Flags<Change> changes = Show.ChangeFlags = {};
    for (const auto& [columns, rows] : std::vector<std::pair<int, int>>{{20, 13}, {251, 1}, {255, 255}}) {
        Ask(columns, rows);
        EXPECT_THROW(NeueWandInit(), std::out_of_range);
        EXPECT_THROW(NeueWandLoad(), std::out_of_range);
    }
    EXPECT_TRUE(Calls.empty());
    EXPECT_EQ(Show.ElementCount, 4);
    EXPECT_EQ(Show.ChangeFlags, changes);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::WallExists));
}

TEST_F(WallBuild, EmptiesTheSelection) {
    MakeWall(3, 1);
    Show.ElementSelected[0] = Show.ElementSelected[2] = 1;
    Show.SelectedCount = 2;
    MakeWall(3, 1);
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_EQ(Show.ElementSelected, decltype(Show.ElementSelected){});
}

TEST_F(WallBuild, KeepsLevelsCorrectionsAndTheSequence) {
    Show.ElementValue[2][1] = 99;
    Show.ColourCorrection[2][1] = 7;
    Show.StatusFlags.Set(Status::SequenceExists);
    Show.StepCount = 3;
    Show.SequenceSteps[3][2][1] = 55;
    SetHold(3, 12);
    MakeWall(2, 2);
    EXPECT_EQ(Show.ElementValue[2][1], 99);
    EXPECT_EQ(Show.ColourCorrection[2][1], 7);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequenceExists));
    EXPECT_EQ(Show.StepCount, 3);
    EXPECT_EQ(Show.SequenceSteps[3][2][1], 55);
    EXPECT_EQ(HoldOf(3), 12);
}

TEST_F(WallBuild, ResetsAHandMadePatch) {
    MakeWall(2, 1);
    Show.Patch[2][1] = 300;
    MakeWall(2, 1);
    EXPECT_EQ(Show.Patch[2][1], 5);
}

TEST_F(WallBuild, RemovedWallKeepsPatchLevelsNamesAndMarks) {
    MakeWall(2, 1);
    Show.ElementValue[2][3] = 44;
    const auto marks = Show.ChangeFlags;
    RemoveWall();
    EXPECT_EQ(Show.Patch[2][4], 8);
    EXPECT_EQ(Show.ElementValue[2][3], 44);
    EXPECT_EQ(Show.WallColumns, 2);
    EXPECT_EQ(Show.ChangeFlags, marks);
}

} // namespace quorvane
