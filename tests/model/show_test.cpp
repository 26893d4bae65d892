#include "bench/bench.h"

#include "model/sequence.h"
#include "model/wall.h"

#include <utility>

namespace quorvane {

using StartValues = Bench;

TEST_F(StartValues, EveryStepHoldsOneTickAndBlendsFifty) {
    for (int step = 1; step <= 255; ++step) {
        EXPECT_EQ(HoldOf(step), 1);
        EXPECT_EQ(BlendOf(step), 50);
    }
}

TEST_F(StartValues, LevelsAndCorrectionsAreDark) {
    Show.TestLevels.Fill(9);
    Show.ColourCorrection[250][4] = 9;
    Show.ElementValue[255][4] = 9;
    StartShow();
    for (const auto level : Show.TestLevels) EXPECT_EQ(level, 0);
    EXPECT_EQ(Show.ColourCorrection, decltype(Show.ColourCorrection){});
    EXPECT_EQ(Show.ElementValue, decltype(Show.ElementValue){});
}

TEST_F(StartValues, ChannelCountFollowsTheWallAndFilesComeBack) {
    EXPECT_EQ(Show.StatusFlags.bits, 0x30000u);
    EXPECT_EQ(Show.ChannelCount, 100);
    EXPECT_EQ(Show.StepCount, 0);
    EXPECT_EQ(Show.TurboFactor, 1);
}

TEST_F(StartValues, ColourTableHoldsTwentyBlackColoursNamedByNumber) {
    EXPECT_EQ(Show.UserColourName[1], "Farbe1              ");
    EXPECT_EQ(Show.UserColourName[20], "Farbe20             ");
    EXPECT_EQ(Show.UserColour, decltype(Show.UserColour){});
    EXPECT_EQ(Show.SelectedUserColour, 0);
    EXPECT_EQ(Show.SelectedCount, 0);
}

TEST_F(StartValues, SequencerFieldsShowBlendFiftyAndFactorHundred) {
    EXPECT_EQ(Show.SequencerField[0], "");
    EXPECT_EQ(Show.SequencerField[1], "50");
    EXPECT_EQ(Show.SequencerField[2], "");
    EXPECT_EQ(Show.SequencerField[3], "100");
}

TEST_F(StartValues, FreshShowHasNoFilesAndNothingUnsaved) {
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Show.ConfigFile + Show.SceneFile + Show.SequenceFile + Show.ColourTableFile, "");
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Show.InterfaceType, NoInterface);
}

TEST_F(StartValues, OsNameAndCaptionPrefixAreOneTextAlsoAfterAReset) {
    Show = ShowState{};
    Show.CaptionPrefix = "Windows XP";
    EXPECT_EQ(OsName, "Windows XP");
    OsName = "";
    EXPECT_EQ(Show.CaptionPrefix, "");
}

} // namespace quorvane
