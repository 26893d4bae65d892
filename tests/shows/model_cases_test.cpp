// Walls, colours and sequencer commands, worked out case by case.
#include "bench/samples.h"
#include "bench/stage.h"

#include "engine/sequencer.h"
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

// What the colour window does with a command: its sliders follow the minimum rule.
void RunColourCommand(const nlohmann::json& command) {
    const std::string what = command.at("do");
    const bool minimum = command.at("minimum");
    const auto slide = [minimum](int channel, int level) {
        Show.CurrentColour[channel] = SliderLevel(static_cast<std::uint8_t>(level), minimum);
    };
    const auto slideAll = [&slide](const PerChannel<std::uint8_t>& colour) {
        for (int c = 1; c <= 4; ++c) slide(c, colour[c]);
    };
    if (what == "apply") ApplyColourToSelection();
    if (what == "store") StoreUserColour(command.at("n"));
    if (what == "rename") RenameUserColour(command.at("n"), command.at("name").get<std::string>());
    if (what == "slider") slide(command.at("index").get<int>() + 1, command.at("value"));
    if (what == "fetch") {
        const auto selected = std::count(Show.ElementSelected.begin(), Show.ElementSelected.end(), 1);
        FetchColourFromSelection();
        if (selected > 0) slideAll(Show.CurrentColour);
    }
    if (what == "pick") {
        Show.SelectedUserColour = command.at("n");
        slideAll(Show.UserColour[command.at("n")]);
    }
    if (what == "dialog") {
        const auto screen = SplitScreenColour(command.at("screen"));
        slide(1, screen.Red);
        slide(2, screen.Green);
        slide(3, screen.Blue);
    }
    if (what == "select") {
        Show.ElementSelected.Fill(0);
        for (const int element : command.at("selected")) Show.ElementSelected[element - 1] = 1;
    }
}

} // namespace

TEST_F(ModelCases, ColourTableOperations) {
    const auto sample = Sample("002-colour");
    MakeWall(static_cast<int>(sample.at("script").at(0).at("values").size()), 1);
    Show.ChangeFlags = {};
    int number = 0;
    for (const auto& command : sample.at("script")) {
        SCOPED_TRACE("command " + std::to_string(++number) + " " + command.dump());
        RunColourCommand(command);
        EXPECT_EQ(Show.CurrentColour, LevelsOf(command.at("CurrentColour")));
        EXPECT_EQ(Show.SelectedUserColour, command.at("SelectedUserColour").get<int>());
        EXPECT_EQ(LiveLevels(), command.at("values"));
        // The case leaves a scene without a file unmarked as new; here it is marked, so that its loss is
        // asked about.
        int marks = command.at("ChangeFlags");
        if ((marks & 0x08) != 0) marks |= 0x04;
        EXPECT_EQ(Show.ChangeFlags.bits, marks);
        if (HasFailure()) break;
    }
    for (int colour = 1; colour <= 20; ++colour) {
        const auto index = static_cast<std::size_t>(colour - 1);
        EXPECT_EQ(Show.UserColour[colour], LevelsOf(sample.at("UserColour").at(index)));
        EXPECT_EQ(Show.UserColourName[colour], sample.at("UserColourName").at(index).get<std::string>());
    }
}

namespace {

// Stands for the question about unsaved work when a sequence is deleted: answered No, it clears the marks.
void DeleteSequenceWithoutSaving(const nlohmann::json& command) {
    if (!DarkenOutputForDelete()) return;
    if (command.contains("answers") && !command.at("answers").empty()) {
        ASSERT_EQ(command.at("answers"), nlohmann::json::array({"No"}));
        Show.ChangeFlags.Clear(Change::SceneChanged);
        Show.ChangeFlags.Clear(Change::SequenceNew);
        Show.ChangeFlags.Clear(Change::SequenceChanged);
    }
    EmptySequence();
}

void RunSequencerCommand(const nlohmann::json& command) {
    const std::string what = command.at("do");
    if (what == "add") SceneToSequence();
    if (what == "previous") PreviousScene();
    if (what == "next") NextScene();
    if (what == "stop") StopSequence();
    if (what == "zero") BackToStart();
    if (what == "delete") DeleteSequenceWithoutSaving(command);
    if (what == "times") {
        ShowSequencerField(1, command.at("blend").get<std::string>());
        ShowSequencerField(2, command.at("hold").get<std::string>());
    }
    if (what == "paint") {
        int element = 0;
        for (const auto& four : command.at("scene")) Show.ElementValue[++element] = LevelsOf(four);
    }
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
        RunSequencerCommand(command);
        auto texts = nlohmann::json::array();
        for (const auto& shown : command.at("log"))
            if (shown.at("kind") != "ask") texts.push_back(shown.at("text"));
        auto noticed = nlohmann::json::array();
        for (const Noticed& shown : Log)
            if (shown.Text != "SEQUENZER") noticed.push_back(shown.Text); // the case leaves this caption out
        EXPECT_EQ(noticed, texts);
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
