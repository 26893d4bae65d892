#include "bench/samplecases.h"
#include "bench/testdata.h"

#include "files/filechoice.h"
#include "files/showfiles.h"
#include "platform/programfolder.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace quorvane {

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

template<class T> json Channels(const PerChannel<T>& channels) {
    return {channels[1], channels[2], channels[3], channels[4]};
}

std::string Hex(const PerChannel<std::uint8_t>& colour) {
    std::string text;
    for (const std::uint8_t level : colour) {
        text += "0123456789abcdef"[level >> 4];
        text += "0123456789abcdef"[level & 15];
    }
    return text;
}

json ElementLists() {
    json state;
    for (const char* name : {"Patch", "ColourCorrection", "ElementValue"}) state[name] = json::array();
    for (int element = 1; element <= Show.ElementCount; ++element) {
        state["Patch"].push_back(Channels(Show.Patch[element]));
        state["ColourCorrection"].push_back(Channels(Show.ColourCorrection[element]));
        state["ElementValue"].push_back(Channels(Show.ElementValue[element]));
    }
    state["Selections"] = json::array();
    for (int slot = 0; slot <= 9; ++slot) {
        std::string flags;
        for (int index = 0; index < Show.ElementCount; ++index)
            flags += std::to_string(Show.Selections[slot][index]);
        state["Selections"].push_back(flags);
    }
    return state;
}

json StepLists() {
    json state;
    for (const char* name : {"SequenceTimes", "SequenceSteps"}) state[name] = json::array();
    for (int step = 1; step <= Show.StepCount; ++step) {
        const auto& times = Show.SequenceTimes[step];
        state["SequenceTimes"].push_back({times[HoldTime], times[BlendTime]});
        std::string levels;
        for (int element = 1; element <= Show.ElementCount; ++element)
            levels += Hex(Show.SequenceSteps[step][element]);
        state["SequenceSteps"].push_back(levels);
    }
    return state;
}

json ColourLists() {
    json state;
    for (int number = 1; number <= 20; ++number) {
        state["UserColour"].push_back(Channels(Show.UserColour[number]));
        state["UserColourName"].push_back(Show.UserColourName[number]);
    }
    return state;
}

json PlainFields() {
    json state;
    state["WallName"] = Show.WallName;
    state["WallColumns"] = Show.WallColumns;
    state["WallRows"] = Show.WallRows;
    state["ElementCount"] = Show.ElementCount;
    state["WallAreaWidth"] = Show.WallAreaWidth;
    state["WallAreaHeight"] = Show.WallAreaHeight;
    state["ElementSize"] = Show.ElementSize;
    state["DmxIni"] = std::vector<int>(Show.DmxIni.begin(), Show.DmxIni.end());
    state["DmxIniDirty"] = Show.DmxIniDirty;
    state["ChannelCount"] = Show.ChannelCount;
    state["StepCount"] = Show.StepCount;
    state["CurrentStep"] = Show.CurrentStep;
    state["StatusFlags"] = Show.StatusFlags.bits;
    state["ChangeFlags"] = Show.ChangeFlags.bits;
    state["ConfigFile"] = Show.ConfigFile;
    state["SceneFile"] = Show.SceneFile;
    state["SequenceFile"] = Show.SequenceFile;
    state["ColourTableFile"] = Show.ColourTableFile;
    state["Fields"] = std::vector<std::string>(Show.SequencerField.begin(), Show.SequencerField.end());
    return state;
}

json ShowAsJson() {
    json state = PlainFields();
    state.update(ElementLists());
    state.update(StepLists());
    state.update(ColourLists());
    return state;
}

Answer AnswerOf(const std::string& name) {
    if (name == "Yes") return Answer::Yes;
    if (name == "No") return Answer::No;
    return Answer::Cancel;
}

void Load(const std::string& what) {
    if (what == "config") LoadConfiguration();
    if (what == "table") LoadColourTable();
    if (what == "scene") LoadScene();
    if (what == "sequence") LoadSequence();
}

void Save(const std::string& what) {
    if (what == "config") SaveConfiguration();
    if (what == "table") SaveColourTable();
    if (what == "scene") SaveScene();
    if (what == "sequence") SaveSequence();
}

} // namespace

std::vector<std::string> SampleFolders(const std::string& ending) {
    std::vector<std::string> folders;
    for (const auto& entry : fs::directory_iterator(TestData("samples")))
        if (const auto name = entry.path().filename().string(); name.ends_with(ending))
            folders.push_back(name);
    std::sort(folders.begin(), folders.end());
    return folders;
}

fs::path SampleFile(const std::string& folder, const std::string& file) {
    return TestData("samples") / folder / file;
}

json SampleExpectation(const std::string& folder) {
    return json::parse(BytesOf(SampleFile(folder, "expected.json")));
}

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

std::string SampleBench::HerePath(std::string path) const {
    if (!path.starts_with("APP\\")) return path;
    std::replace(path.begin(), path.end(), '\\', '/');
    return TextOf((ProgramFolder / PathOf(path.substr(4))).make_preferred());
}

void SampleBench::OpenColourWindow() {
    Show.StatusFlags.Set(Status::ColourWindowOpen);
    Screen.ColourTableLoaded = [this] {
        Log.push_back({"caption", "Color Fenster " + FileNamePart(Show.ColourTableFile), "frmColor", ""});
    };
}

void SampleBench::RunCommand(const json& command) {
    Log.clear();
    const std::string action = command.at("do");
    if (action == "colour-window") return OpenColourWindow();
    const std::string what = command.at("what");
    if (command.contains("file") && !(action == "save" && what == "sequence" && Show.StepCount == 0))
        ChosenFiles.push_back(HerePath("APP\\" + command.at("file").get<std::string>()));
    for (const auto& answer : command.value("answers", json::array())) Answers.push_back(AnswerOf(answer));
    json before = ShowAsJson();
    action == "save" ? Save(what) : Load(what);
    CompareLog(command.at("log"));
    if (command.contains("unchanged_but")) {
        before.update(command.at("unchanged_but"));
        CompareState(before);
    } else if (command.contains("state")) {
        CompareState(command.at("state"));
    }
}

void SampleBench::CompareLog(const json& expected) {
    json noticed = json::array(), wanted = json::array();
    for (const Noticed& entry : Log)
        if (entry.Kind != "open" && entry.Kind != "save")
            noticed.push_back({entry.Kind, entry.Text, entry.Window, entry.Kind == "box" ? "" : entry.Title});
    for (const auto& entry : expected) {
        const std::string kind = entry.at("kind") == "ask" ? "question" : entry.at("kind");
        const std::string window = entry.value("window", kind == "status" ? "frmWand" : "");
        wanted.push_back({kind, entry.value("text", ""), window, entry.value("title", "")});
    }
    EXPECT_EQ(noticed, wanted);
}

void SampleBench::CompareState(const json& expected) {
    const json state = ShowAsJson();
    for (const auto& [name, value] : expected.items()) {
        ASSERT_TRUE(state.contains(name)) << name;
        const json wanted = value.is_string() ? json(HerePath(value)) : value;
        EXPECT_EQ(state[name], wanted) << name;
    }
}

} // namespace quorvane
