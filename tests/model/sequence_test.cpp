#include "bench/bench.h"

#include "model/sequence.h"

#include <stdexcept>

namespace quorvane {

using Sequence = Bench;

TEST_F(Sequence, TimesAbove32767StandInSixteenBitsAndReadUnsigned) {
    for (const int ticks : {0, 1, 32767, 32768, 40000, 65534, 65535}) {
        SetHold(1, ticks);
        SetBlend(255, ticks);
        EXPECT_EQ(HoldOf(1), ticks);
        EXPECT_EQ(BlendOf(255), ticks);
    }
    SetHold(2, 40000);
    EXPECT_EQ(Show.SequenceTimes[2][HoldTime], -25536);
}

TEST_F(Sequence, ThereAre255Steps) {
    EXPECT_THROW(HoldOf(0), std::out_of_range);
    EXPECT_THROW(BlendOf(256), std::out_of_range);
    EXPECT_THROW(SetHold(256, 1), std::out_of_range);
}

TEST_F(Sequence, TurboFactorOneLeavesEveryTimeAsStored) {
    for (const int ticks : {0, 1, 4, 5, 65535}) {
        SetHold(1, ticks);
        SetBlend(1, ticks);
        EXPECT_EQ(TurboHoldOf(1), ticks);
        EXPECT_EQ(TurboBlendOf(1), ticks);
    }
}

TEST_F(Sequence, TurboFactorDividesWholeDownToHoldOneAndBlendFive) {
    struct Case {
        int Factor, Hold, Blend, TurboHold, TurboBlend;
    };
    const std::vector<Case> cases{{2, 9, 25, 4, 12},
                                  {2, 1, 9, 1, 5},
                                  {5, 3, 50, 1, 10},
                                  {50, 100, 5, 2, 5},
                                  {100, 40000, 65534, 400, 655},
                                  {10, 5, 3, 1, 3},
                                  {65534, 65534, 65534, 1, 5}};
    for (const Case& c : cases) {
        Show.TurboFactor = c.Factor;
        SetHold(7, c.Hold);
        SetBlend(7, c.Blend);
        EXPECT_EQ(TurboHoldOf(7), c.TurboHold) << c.Factor << " " << c.Hold;
        EXPECT_EQ(TurboBlendOf(7), c.TurboBlend) << c.Factor << " " << c.Blend;
    }
}

TEST_F(Sequence, StepFieldsShowTheCurrentStepAndItsTimes) {
    std::vector<std::string> shown;
    Screen.SequencerField = [&shown](int field, std::string_view text) {
        shown.push_back(std::to_string(field) + "=" + std::string(text));
    };
    Show.CurrentStep = 12;
    Show.TurboFactor = 3; // the fields show the times as stored
    SetHold(12, 40000);
    SetBlend(12, 60);
    ShowStepFields();
    EXPECT_EQ(shown, (std::vector<std::string>{"0=12", "1=60", "2=40000"}));
    EXPECT_EQ(Show.SequencerField[0], "12");
    EXPECT_EQ(Show.SequencerField[1], "60");
    EXPECT_EQ(Show.SequencerField[2], "40000");
    EXPECT_EQ(Show.SequencerField[3], "100");
}

TEST_F(Sequence, ShownStepReachesTheElementsOfTheWallOnly) {
    MakeWall(2, 1);
    Show.CurrentStep = 3;
    for (int element = 1; element <= 3; ++element)
        Show.SequenceSteps[3][element].Fill(static_cast<std::uint8_t>(element * 10));
    CopyStepToWall();
    EXPECT_EQ(Show.ElementValue[1][4], 10);
    EXPECT_EQ(Show.ElementValue[2][1], 20);
    EXPECT_EQ(Show.ElementValue[3][1], 0);
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1}));
}

} // namespace quorvane
