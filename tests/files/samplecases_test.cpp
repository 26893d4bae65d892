// Every case of tests/data/samples, as it was worked out beside the program. Where the program has decided
// a corner otherwise, the expectation is put right here, with the reason.
#include "bench/samplecases.h"
#include "files/showfiles.h"

namespace quorvane {

using nlohmann::json;

namespace {

// Captions and success texts carry the file's name; its path stands in questions and "not found" only.
void ShortenNames(json& expected) {
    for (json& command : expected.at("commands"))
        for (json& entry : command.at("log"))
            for (const std::string kind : {"status", "caption"})
                if (entry.at("kind") == kind &&
                    entry.at("text").get<std::string>().find("APP\\") != std::string::npos) {
                    std::string text = entry.at("text");
                    entry["text"] = text.erase(text.find("APP\\"), 4);
                }
}

// A loaded scene becomes the current scene file, also without its values being as expected by count.
void NameScene(json& expected) {
    bool loaded = false;
    for (json& command : expected.at("commands")) {
        if (command.value("what", "") == "scene")
            for (const json& entry : command.at("log"))
                loaded = loaded || entry.value("text", "").ends_with("erfolgreich geladen!");
        if (loaded && command.contains("state")) command["state"]["SceneFile"] = "APP\\show.QSC";
    }
}

json& LastCommand(json& expected) { return expected.at("commands").back(); }

json Box(const std::string& text) { return {{"kind", "box"}, {"text", text}}; }

// A colour table, scene or sequence is read as a whole before the show takes any of it over.
void LeaveShow(json& expected) { LastCommand(expected)["unchanged_but"] = json::object(); }

// The same; and the blend field shows that the sequence failed.
void LeaveShowButBlendField(json& expected) {
    LastCommand(expected)["unchanged_but"] = {{"Fields", {"", "5", "", "100"}}};
}

// "Xmax = 6" written by hand is 6: what stands up to "=" is not part of the number.
void TakeHandWrittenKey(json& expected) { expected["commands"] = SampleExpectation("019-files")["commands"]; }

// A word in a list is an error and not 0; the patch before it stands.
void RefuseWord(json& expected) {
    json& command = LastCommand(expected);
    command["log"][1] = Box("Fehler beim laden der Patchingtabelle in der Konfigurationsdatei");
    command["state"]["Patch"][0][2] = 3;
    command["state"]["ConfigFile"] = "";
}

// Sizes that are missing are 0 and so differ from the wall.
void AskAboutMissingSizes(json& expected) {
    json& command = LastCommand(expected);
    command["answers"] = {"No"};
    const json question = {{"kind", "ask"},
                           {"title", "V 1.21QUORVANE "},
                           {"text", "Sequenz wurde auf einer Wand mit einer anderen Anzahl an Elementen "
                                    "erstellt. Soll ich Importieren ?"}};
    command["log"] = {{{"kind", "beep"}}, question, command["log"][0], command["log"][1]};
}

// A sequence without steps leaves the show as it was, its selections too.
void AskAndLeaveShow(json& expected) {
    AskAboutMissingSizes(expected);
    LeaveShow(expected);
}

// An imported sequence shows its first step afterwards and not the one that was converted last.
void ShowFirstStep(json& expected) {
    json& state = LastCommand(expected)["state"];
    const std::string step = state["SequenceSteps"][0];
    for (std::size_t element = 0; element < state["ElementValue"].size(); ++element)
        for (std::size_t channel = 0; channel < 4; ++channel)
            state["ElementValue"][element][channel] =
                std::stoi(step.substr(element * 8 + channel * 2, 2), nullptr, 16);
}

// The ten selections are read with the 21 elements of the file, not with the 25 of the wall, and so keep
// their places.
void ReadSelectionsByFile(json& expected) {
    json& selections = LastCommand(expected)["state"]["Selections"];
    std::string flags;
    for (const std::string& selection : selections.get<std::vector<std::string>>()) flags += selection;
    for (std::size_t slot = 0; slot < 10; ++slot) selections[slot] = flags.substr(slot * 21, 21) + "0000";
}

const std::map<std::string, void (*)(json&)> Corrections = {
    {"023-files", TakeHandWrittenKey},
    {"039-files", RefuseWord},
    {"054-files", LeaveShow},
    {"055-files", LeaveShow},
    {"056-files", LeaveShow},
    {"071-files", LeaveShow},
    {"108-files", LeaveShowButBlendField},
    {"112-files", AskAndLeaveShow},
    {"124-files", ShowFirstStep},
    {"128-files", ReadSelectionsByFile},
};

} // namespace

class SampleCase : public SampleBench, public testing::WithParamInterface<std::string> {
protected:
    void PutFiles(const json& expected) {
        for (const auto& [name, place] : expected.at("files").items())
            Write(place, BytesOf(SampleFile(GetParam(), name)));
    }
};

TEST_P(SampleCase, LoadsAndSavesAsExpected) {
    Show.VersionText = "V 1.21";
    json expected = SampleExpectation(GetParam());
    ShortenNames(expected);
    NameScene(expected);
    if (const auto correction = Corrections.find(GetParam()); correction != Corrections.end())
        correction->second(expected);
    PutFiles(expected);
    for (const json& command : expected.at("commands")) RunCommand(command);
}

class SampleShow : public SampleCase {
protected:
    static std::string SpeedOf(const std::string& sequence) {
        const std::string key = "\r\nSpeed =   ";
        const auto begin = sequence.find(key) + key.size();
        return sequence.substr(begin, sequence.find("\r\n", begin) - begin);
    }
    void SaveAgain(const std::string& ending, bool (*save)()) {
        ChosenFiles.push_back(HerePath("APP\\again" + ending));
        ASSERT_TRUE(save());
        EXPECT_EQ(Read("again" + ending), Read("show" + ending)) << ending;
    }
};

TEST_P(SampleShow, LoadsWholeAndSavesTheSameBytes) {
    Show.VersionText = "V 1.21";
    json expected = SampleExpectation(GetParam());
    ShortenNames(expected);
    NameScene(expected);
    for (const std::string name : {"show.CFG", "show.QCT", "show.QSC", "show.QSQ"})
        Write(name, BytesOf(SampleFile(GetParam(), name)));
    expected["commands"][0]["state"].erase("UserColour"); // noted as they are after the next command
    for (const json& command : expected.at("commands")) RunCommand(command);
    // The files name no other files, and the speed is the text of a field that shows the first step now.
    Show.SequencerField[1] = SpeedOf(Read("show.QSQ"));
    Show.ConfigFile.clear();
    Show.ColourTableFile.clear();
    SaveAgain(".QSQ", SaveSequence);
    ChosenFiles.push_back(HerePath("APP\\show.QSC"));
    LoadScene();
    SaveAgain(".QSC", SaveScene);
    SaveAgain(".CFG", SaveConfiguration);
    SaveAgain(".QCT", SaveColourTable);
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleShow, testing::ValuesIn(SampleFolders("-show")),
                         [](const auto& parameter) { return "Case" + parameter.param.substr(0, 3); });

INSTANTIATE_TEST_SUITE_P(Samples, SampleCase, testing::ValuesIn(SampleFolders("-files")),
                         [](const auto& parameter) {
                             std::string name = parameter.param;
                             name[3] = '_';
                             return "Case" + name;
                         });

} // namespace quorvane
