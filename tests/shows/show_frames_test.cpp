// Whole shows: the four files loaded as a user loads them, then played on every interface.
#include "bench/samples.h"
#include "bench/stage.h"

#include "files/showfiles.h"
#include "model/wall.h"

#include <tuple>

namespace quorvane {

namespace {

class LoadedShow : public Stage, public testing::WithParamInterface<std::tuple<const char*, int>> {
protected:
    LoadedShow() : Case(Sample(Name())) {
        Load(LoadConfiguration, "show.CFG");
        Load(LoadColourTable, "show.QCT");
        Load(LoadScene, "show.QSC");
    }

    static std::string Name() { return std::get<0>(GetParam()); }

    void Load(void (*command)(), const char* file) {
        ChosenFiles.push_back((SampleFolder(Name()) / file).string());
        command();
    }

    // What the wall and the output held when playback was started.
    void PrepareOutput() {
        const auto& play = Case.at("play");
        int element = 0;
        for (const auto& levels : play.at("live_before")) Show.ElementValue[++element] = LevelsOf(levels);
        ASSERT_EQ(element, Show.ElementCount);
        LastFrame = play.at("frame_before");
        SetFrame(FromHex(LastFrame));
        StartPlaying(play.at("start_step"));
    }

    void CheckTick(const nlohmann::json& expected) {
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

TEST_P(LoadedShow, PaintsTheSceneAndSendsTheFramesListedTickByTick) {
    Load(LoadSequence, "show.QSQ");
    EXPECT_TRUE(Texts("box").empty());
    Use(static_cast<std::int16_t>(std::get<1>(GetParam())));
    PrepareOutput();
    std::vector<ScreenColour> painted(250);
    Screen.PaintElement = [&painted](int index, ScreenColour colour) {
        painted.at(static_cast<std::size_t>(index)) = colour;
    };
    ShowWallColours();
    auto colours = nlohmann::json::array();
    for (int index = 0; index < Show.ElementCount; ++index) {
        const ScreenColour colour = painted[static_cast<std::size_t>(index)];
        colours.push_back({colour.Red, colour.Green, colour.Blue});
    }
    EXPECT_EQ(colours, Case.at("wall_colours_of_scene"));

    int tick = 0;
    for (const auto& expected : Case.at("play").at("ticks")) {
        SCOPED_TRACE("tick " + std::to_string(++tick));
        CheckTick(expected);
        if (HasFailure()) break;
    }
    EXPECT_EQ(tick, 300);
}

INSTANTIATE_TEST_SUITE_P(Files, LoadedShow,
                         testing::Combine(testing::Values("003-show", "004-show", "005-show", "006-show",
                                                          "007-show", "008-show"),
                                          testing::Range(1, 6)));

} // namespace quorvane
