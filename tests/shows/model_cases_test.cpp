// Walls, colour mixes and sequencer commands, worked out case by case.
#include "bench/samples.h"
#include "bench/stage.h"

#include "engine/sequencer.h"
#include "files/guard.h"
#include "model/colour.h"
#include "model/sequence.h"
#include "model/text.h"
#include "model/wall.h"

namespace quorvane {

using ModelCases = Stage;

TEST_F(ModelCases, NewWalls) {
    std::vector<double> size;
    Screen.SizeWall = [&size](double width, double height, double, double) { size = {width, height}; };
    const auto cases = Sample("001-walls").at("cases");
    ASSERT_EQ(cases.size(), 81u);
    for (const auto& wall : cases) {
        SCOPED_TRACE(wall.dump());
        Show = ShowState{};
        StartShow();
        Log.clear();
        Show.WallColumns = wall.at("columns");
        Show.WallRows = wall.at("rows");
        Show.WallAreaWidth = 600;
        Show.WallAreaHeight = 1200;
        // Three cases of a wall differ in what they begin with: automatic count and two counts by hand.
        Show.StatusFlags.Put(Status::AutoChannelCount, wall.at("auto"));
        Show.ChannelCount = wall.at("ChannelCount_before");
        Show.ElementSize = wall.at("ElementSize") == 80 ? 0 : wall.at("ElementSize").get<int>();
        NeueWandInit();
        EXPECT_EQ(Show.ElementCount, wall.at("ElementCount").get<int>());
        EXPECT_EQ(Show.ChannelCount, wall.at("ChannelCount").get<int>());
        EXPECT_EQ(Show.DmxIni[3], wall.at("word3").get<int>());
        EXPECT_EQ(Show.DmxIni[4], wall.at("word4").get<int>());
        EXPECT_EQ(Show.DmxIniDirty, wall.at("DmxIniDirty").get<int>());
        EXPECT_EQ(Show.ElementSize, wall.at("ElementSize").get<int>());
        EXPECT_EQ(Show.ChangeFlags.bits, wall.at("ChangeFlags").get<int>());
        EXPECT_NEAR(size.at(0), wall.at("window_size").at(0).get<double>(), 0.001);
        EXPECT_NEAR(size.at(1), wall.at("window_size").at(1).get<double>(), 0.001);
        for (int c = 1; c <= 4; ++c)
            EXPECT_EQ(Show.Patch[Show.ElementCount][c],
                      wall.at("last_patch").at(static_cast<std::size_t>(c - 1)).get<int>());
        const GridPosition last{wall.at("last_position").at(0), wall.at("last_position").at(1)};
        EXPECT_EQ(Show.ElementPos[Show.ElementCount], last);
        EXPECT_EQ(nlohmann::json(Texts("box")), wall.at("boxes"));
    }
}

TEST_F(ModelCases, ColourMixes) {
    const auto mixes = Sample("002-colour").at("mixes");
    ASSERT_EQ(mixes.size(), 100u);
    for (const auto& mix : mixes) {
        const auto screen = Colormix(LevelsOf(mix.at("colour")));
        EXPECT_EQ((nlohmann::json{screen.Red, screen.Green, screen.Blue}), mix.at("screen"));
        EXPECT_EQ(ScreenColourNumber(screen), mix.at("value").get<std::uint32_t>());
    }
}

namespace {

void DeleteSequence() {
    if (DarkenOutputForDelete() && !UnsavedChangesGuard("sequence")) EmptySequence();
}

void RunSequencerCommand(const nlohmann::json& command) {
    const std::string what = command.at("do");
    if (what == "add") SceneToSequence();
    if (what == "previous") PreviousScene();
    if (what == "next") NextScene();
    if (what == "stop") StopSequence();
    if (what == "zero") BackToStart();
    if (what == "delete") DeleteSequence();
    if (what == "times") {
        ShowSequencerField(1, command.at("blend").get<std::string>());
        ShowSequencerField(2, command.at("hold").get<std::string>());
    }
    if (what == "paint") {
        int element = 0;
        for (const auto& four : command.at("scene")) Show.ElementValue[++element] = LevelsOf(four);
    }
}

nlohmann::json LogEntry(const std::string& kind, const std::string& text, const std::string& window,
                        const std::string& title) {
    return {{"kind", kind}, {"text", text}, {"window", window}, {"title", title}};
}

nlohmann::json ExpectedLog(const nlohmann::json& log) {
    auto entries = nlohmann::json::array();
    for (const auto& shown : log) {
        const std::string kind = shown.at("kind");
        entries.push_back(LogEntry(kind == "ask" ? "question" : kind, shown.at("text"),
                                   shown.value("window", ""), shown.value("title", "")));
    }
    return entries;
}

nlohmann::json SeenLog(const std::vector<Noticed>& log) {
    auto entries = nlohmann::json::array();
    for (const Noticed& shown : log)
        if (shown.Text != "SEQUENZER") // the case leaves this caption out
            entries.push_back(LogEntry(shown.Kind, shown.Text, shown.Window, shown.Title));
    return entries;
}

} // namespace

TEST_F(ModelCases, SequencerCommands) {
    const auto sample = Sample("258-sequencer");
    MakeWall(sample.at("columns"), sample.at("rows"));
    Show.ChangeFlags = {};
    int number = 0;
    for (const auto& command : sample.at("script")) {
        SCOPED_TRACE("command " + std::to_string(++number) + " " + command.dump());
        Log.clear();
        for (const auto& answer : command.value("answers", nlohmann::json::array())) {
            ASSERT_EQ(answer, "No");
            Answers.push_back(Answer::No);
        }
        RunSequencerCommand(command);
        EXPECT_EQ(SeenLog(Log), ExpectedLog(command.at("log")));
        EXPECT_EQ(Show.StepCount, command.at("StepCount").get<int>());
        EXPECT_EQ(Show.CurrentStep, command.at("CurrentStep").get<int>());
        auto times = nlohmann::json::array();
        for (int step = 1; step <= Show.StepCount; ++step) times.push_back({HoldOf(step), BlendOf(step)});
        EXPECT_EQ(times, command.at("times"));
        EXPECT_EQ(Show.ChangeFlags.bits, command.at("ChangeFlags").get<int>());
        std::vector<std::uint8_t> live;
        for (int element = 1; element <= Show.ElementCount; ++element)
            live.insert(live.end(), Show.ElementValue[element].begin(), Show.ElementValue[element].end());
        EXPECT_EQ(ToHex(live), command.at("live").get<std::string>());
        if (HasFailure()) break;
    }
    EXPECT_EQ(number, 80);
}

} // namespace quorvane
