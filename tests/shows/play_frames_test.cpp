// Corners of playback, worked out tick by tick: what the interface holds after every tick.
#include "bench/samples.h"
#include "bench/stage.h"

#include "model/sequence.h"

#include <algorithm>
#include <stdexcept>

namespace quorvane {

namespace {

class PlayedFrames : public Stage, public testing::WithParamInterface<const char*> {
protected:
    void SetUpCase() {
        Case = Sample(GetParam());
        BuildWallOf(Case.at("config"));
        TakeSequenceOf(Case.at("sequence"));
        Use(Case.at("interface_type"));
        const auto& options = Case.at("options");
        if (options.contains("card_base")) Show.CardBase = options.at("card_base");
        if (options.contains("factor")) DivideTimes(options.at("factor"));
        if (options.contains("test_levels")) {
            const auto levels = options.at("test_levels").get<std::vector<std::uint8_t>>();
            std::copy(levels.begin(), levels.end(), Show.TestLevels.begin());
            Show.StatusFlags.Set(Status::TestMode);
        }
        StartPlaying(Case.at("start_step"));
        Log.clear();
    }

    // The case divides by the turbo factor without a lower bound. Playback keeps a hold of 1 and a blend
    // of 5 (sequence_test.cpp), so the case's own quotients are put in as the times of the steps.
    static void DivideTimes(int factor) {
        for (int step = 1; step <= Show.StepCount; ++step) {
            SetHold(step, HoldOf(step) / factor);
            SetBlend(step, BlendOf(step) / factor);
        }
    }

    // One tick, and whether everything is as the case says.
    void CheckTick(const nlohmann::json& expected) {
        if (expected.contains("error")) {
            EXPECT_EQ(expected.at("error"), "IndexOutOfRange");
            EXPECT_THROW(Tick(), std::out_of_range);
            return;
        }
        Tick();
        EXPECT_EQ(Show.CurrentStep, expected.at("CurrentStep").get<int>());
        EXPECT_EQ(Show.HoldCounter, expected.at("HoldCounter").get<int>());
        EXPECT_EQ(Show.BlendCounter, expected.at("BlendCounter").get<int>());
        EXPECT_EQ(LastText("status", "frmControl"), expected.at("status").get<std::string>());
        if (!expected.at("frame").is_null()) LastFrame = expected.at("frame");
        EXPECT_EQ(ToHex(Frame()), LastFrame);
    }

    nlohmann::json Case;
    std::string LastFrame; // while unchanged, a tick does not repeat it
};

} // namespace

TEST_P(PlayedFrames, AreTheOnesListedTickByTick) {
    SetUpCase();
    int tick = 0;
    for (const auto& expected : Case.at("ticks")) {
        SCOPED_TRACE("tick " + std::to_string(++tick));
        CheckTick(expected);
        if (HasFailure()) break;
    }
    EXPECT_GE(tick, 2);
    if (Show.InterfaceType == NoInterface || Case.at("options").contains("card_base")) {
        EXPECT_TRUE(Written.empty());
        EXPECT_TRUE(Calls.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Corners, PlayedFrames,
                         testing::Values("009-play", "010-play", "011-play", "012-play", "013-play",
                                         "014-play", "015-play"));

} // namespace quorvane
