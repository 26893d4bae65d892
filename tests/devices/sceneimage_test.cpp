#include "devices/sceneimage.h"

#include "bench/bench.h"
#include "model/sequence.h"

namespace quorvane {
namespace {

class SceneImages : public Bench {
protected:
    SceneImages() {
        MakeWall(2, 1);
        Show.StepCount = 3;
        for (int step = 1; step <= 3; ++step)
            for (int element = 1; element <= 2; ++element)
                for (int channel = 1; channel <= 4; ++channel)
                    Show.SequenceSteps[step][element][channel] =
                        static_cast<std::uint8_t>(step * 50 + element * 10 + channel);
    }
};

TEST_F(SceneImages, LevelsStandAtTheirPatchedChannelsAndTheRestIsDark) {
    Show.Patch[1][1] = 100;
    const SceneImage image = BuildSceneImage(2);
    EXPECT_EQ(image[99], 111);
    EXPECT_EQ(image[0], 0);
    EXPECT_EQ(image[1], 112);
    EXPECT_EQ(image[7], 124);
    EXPECT_EQ(image[8], 0);
}

TEST_F(SceneImages, CorrectionIsTakenOffAndNeverWraps) {
    Show.ColourCorrection[1][1] = 61;
    Show.ColourCorrection[1][2] = 62;
    Show.ColourCorrection[1][3] = 63;
    Show.ColourCorrection[1][4] = 255;
    const SceneImage image = BuildSceneImage(1);
    EXPECT_EQ(image[0], 0);
    EXPECT_EQ(image[1], 0);
    EXPECT_EQ(image[2], 0);
    EXPECT_EQ(image[3], 0);
    EXPECT_EQ(image[4], 71);
}

TEST_F(SceneImages, TimesStandHighByteFirstAndBlendBeforeHold) {
    SetBlend(2, 0x1234);
    SetHold(2, 0xFEDC);
    const SceneImage image = BuildSceneImage(2);
    EXPECT_EQ(image[506], 0x12);
    EXPECT_EQ(image[507], 0x34);
    EXPECT_EQ(image[508], 0xFE);
    EXPECT_EQ(image[509], 0xDC);
    EXPECT_EQ(image[510], 0);
    EXPECT_EQ(image[511], 128);
}

TEST_F(SceneImages, LastSceneImageShowsStepOneAgainWithTheTimesOfItsOwnNumber) {
    SetBlend(4, 7);
    SetHold(4, 9);
    const SceneImage image = BuildSceneImage(4);
    EXPECT_EQ(image[0], 61);
    EXPECT_EQ(image[507], 7);
    EXPECT_EQ(image[509], 9);
    EXPECT_EQ(image[511], 0);
}

TEST_F(SceneImages, FillImagesAreDarkWithStoredTimesAndNoMarker) {
    SetBlend(5, 300);
    const SceneImage image = BuildSceneImage(5);
    for (int index = 0; index < 506; ++index) EXPECT_EQ(image[index], 0);
    EXPECT_EQ(image[506], 1);
    EXPECT_EQ(image[507], 44);
    EXPECT_EQ(image[509], 1);
    EXPECT_EQ(image[510], 0);
    EXPECT_EQ(image[511], 0);
}

TEST_F(SceneImages, BeyondTheStepsThereCanBeAreAllZero) {
    const SceneImage image = BuildSceneImage(256);
    for (const std::uint8_t byte : image) EXPECT_EQ(byte, 0);
    EXPECT_NE(BuildSceneImage(255), image);
}

TEST_F(SceneImages, LaterElementAndLaterChannelWinASharedDmxChannel) {
    Show.Patch[1][4] = 20;
    Show.Patch[2][1] = 20;
    EXPECT_EQ(BuildSceneImage(1)[19], 71);
    Show.Patch[2][3] = 20;
    EXPECT_EQ(BuildSceneImage(1)[19], 73);
}

TEST_F(SceneImages, StepDataOverwritesLevelsPatchedThere) {
    for (int channel = 1; channel <= 4; ++channel) {
        Show.Patch[1][channel] = static_cast<std::int16_t>(506 + channel);
        Show.Patch[2][channel] = static_cast<std::int16_t>(508 + channel);
    }
    const SceneImage image = BuildSceneImage(1);
    const std::vector<int> stepData(image.begin() + 505, image.end());
    EXPECT_EQ(stepData, (std::vector<int>{0, 0, 50, 0, 1, 0, 128}));
}

TEST_F(SceneImages, ChannelsPatchedOutsideTheFrameAreLeftOut) {
    Show.Patch[1][1] = 0;
    Show.Patch[1][2] = 513;
    Show.Patch[1][3] = -1;
    const SceneImage image = BuildSceneImage(1);
    EXPECT_EQ(image[0], 0);
    EXPECT_EQ(image[1], 0);
    EXPECT_EQ(image[2], 0);
    EXPECT_EQ(image[3], 64);
}

TEST_F(SceneImages, WithoutASequenceTheFirstIsTheLastSceneImage) {
    Show.StepCount = 0;
    EXPECT_TRUE(IsLastSceneImage(1));
    EXPECT_EQ(BuildSceneImage(1)[0], 61);
    EXPECT_EQ(BuildSceneImage(1)[511], 0);
    EXPECT_TRUE(IsFillImage(2));
}

TEST_F(SceneImages, SequenceOfAllStepsHasNoLastSceneImageAmongTheFirstTwoHundredFiftyFive) {
    Show.StepCount = 255;
    EXPECT_EQ(BuildSceneImage(255)[511], 128);
    EXPECT_TRUE(IsLastSceneImage(256));
    EXPECT_EQ(BuildSceneImage(256)[0], 61);
}

} // namespace
} // namespace quorvane
