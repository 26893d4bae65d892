#include "bench/cardviewer.h"

#include "bench/cardimagesbench.h"
#include "bench/samplecases.h"
#include "devices/cardimages.h"
#include "files/showfiles.h"

#include <gmock/gmock.h>

#include <map>
#include <sstream>

namespace quorvane {
namespace {

using nlohmann::json;
using TextList = std::vector<std::string>;

// A card as the play unit sees it.
class CardViewer : public CardImagesBench {
protected:
    // Numbers of the list below a line of a show file.
    static std::vector<int> Numbers(const std::string& bytes, const std::string& section) {
        std::istringstream file(bytes);
        std::string line;
        while (std::getline(file, line) && !line.starts_with(section)) {
        }
        std::getline(file, line);
        std::istringstream fields(line);
        std::vector<int> numbers;
        for (std::string field; std::getline(fields, field, ',');) numbers.push_back(std::stoi(field));
        return numbers;
    }

    static CardPatch PatchOf(const std::string& configuration) {
        const auto numbers = Numbers(configuration, "[Patching]");
        CardPatch patch;
        for (std::size_t i = 0; i < numbers.size(); i += 4)
            patch.push_back({numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3]});
        return patch;
    }

    // The steps that a pair of show files describes, as lamps and clock get them. Of element channels that
    // share a DMX channel the last one is seen.
    static std::vector<CardStep> StepsOf(const std::string& configuration, const std::string& sequence) {
        const auto corrections = Numbers(configuration, "[Farbkorrektur]");
        const auto channels = Numbers(configuration, "[Patching]");
        const auto levels = Numbers(sequence, "[Sequence]");
        const auto times = Numbers(sequence, "[HOLDBLEND]");
        std::vector<CardStep> steps(times.size() / 2);
        auto level = levels.begin();
        for (std::size_t step = 0; step < steps.size(); ++step) {
            steps[step].Hold = times[2 * step] & 0xFFFF;
            steps[step].Blend = times[2 * step + 1] & 0xFFFF;
            std::map<int, int> seen; // by DMX channel
            for (std::size_t i = 0; i < channels.size(); ++i)
                seen[channels[i]] = std::max(0, *level++ - corrections[i]);
            for (const auto& element : PatchOf(configuration)) {
                steps[step].Levels.emplace_back();
                for (std::size_t c = 0; c < 4; ++c)
                    steps[step].Levels.back()[c] = static_cast<std::uint8_t>(seen[element[c]]);
            }
        }
        return steps;
    }

    void Load(const std::string& folder) {
        ChosenFiles.emplace_back(SampleFile(folder, "show.CFG").string());
        LoadConfiguration();
        ChosenFiles.emplace_back(SampleFile(folder, "show.QSQ").string());
        LoadSequence();
        Log.clear();
    }
};

TEST_F(CardViewer, FindsTheSequenceThatWasSavedAndNoOther) {
    const TextList shows{"154-transfer", "155-transfer", "178-card-images"};
    for (const std::string& saved : shows) {
        PlugIn(262144);
        Load(saved);
        WriteMemCard();
        const CardContents seen = ReadCard(Bytes(480 * 512), PatchOf(BytesOf(SampleFile(saved, "show.CFG"))));
        for (const std::string& show : shows) {
            const auto steps =
                StepsOf(BytesOf(SampleFile(show, "show.CFG")), BytesOf(SampleFile(show, "show.QSQ")));
            EXPECT_EQ(seen.Steps == steps, show == saved) << saved << " " << show;
        }
        ASSERT_TRUE(seen.HasLast);
        EXPECT_EQ(seen.Last.Levels, seen.Steps.front().Levels) << "the last scene image is the first again";
        EXPECT_EQ(seen.DarkFill, 480 - seen.Steps.size() - 1);
        EXPECT_EQ(seen.OtherFill, 0u);
    }
}

TEST_F(CardViewer, SeesCorrectedLevelsAndTimesAtAnyPatch) {
    PlugIn(32768);
    TakeSteps(2);
    Show.Patch[2][3] = 500;
    Show.Patch[3][1] = 512; // belongs to the step's times
    Show.ColourCorrection[1][1] = 255;
    Show.ColourCorrection[2][3] = 100;
    SetHold(2, 40000);
    WriteMemCard();
    CardPatch patch;
    for (int element = 1; element <= 3; ++element) {
        const auto& channels = Show.Patch[element];
        patch.push_back({channels[1], channels[2], channels[3], channels[4]});
    }
    const CardContents seen = ReadCard(Bytes(60 * 512), patch);
    ASSERT_EQ(seen.Steps.size(), 2u);
    EXPECT_EQ(seen.Steps[1].Levels[0], (std::array<std::uint8_t, 4>{0, 64, 65, 66}));
    EXPECT_EQ(seen.Steps[1].Levels[1], (std::array<std::uint8_t, 4>{123, 124, 25, 126}));
    EXPECT_EQ(seen.Steps[1].Levels[2][0], 0);
    EXPECT_EQ(seen.Steps[1].Hold, 40000);
    EXPECT_EQ(seen.Steps[1].Blend, 10);
}

// Worked-out cards.
class CardSample : public CardViewer, public testing::WithParamInterface<std::string> {};

TEST_P(CardSample, IsWrittenByteByByte) {
    const json expected = SampleExpectation(GetParam());
    Load(GetParam());
    PlugIn(expected["size"]);
    for (const json& answer : expected["answers"]) {
        ASSERT_EQ(answer, "Yes");
        Answers.push_back(Answer::Yes);
    }
    WriteMemCard();
    const std::string bytes = BytesOf(SampleFile(GetParam(), "card.bin"));
    ASSERT_EQ(bytes.size(), std::size_t{512} * expected["images"].get<std::size_t>());
    EXPECT_TRUE(Bytes(bytes.size()) == std::vector<std::uint8_t>(bytes.begin(), bytes.end()));

    // The search tells what it found in the same line; the case leaves that out.
    TextList noticed;
    for (const Noticed& each : Log)
        if (each.Kind == "question" ||
            (each.Kind == "status" && !each.Text.starts_with("Die Memorykarte wird") &&
             !each.Text.ends_with(" grosse Memorykarte gefunden.")))
            noticed.push_back(each.Title + each.Text);
    TextList wanted;
    for (const json& each : expected["log"])
        wanted.push_back(each.value("title", "") + each["text"].get<std::string>());
    EXPECT_EQ(noticed, wanted);
}

std::string NameOf(const testing::TestParamInfo<std::string>& sample) {
    std::string name = sample.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return "Case_" + name;
}

INSTANTIATE_TEST_SUITE_P(Samples, CardSample, testing::ValuesIn(SampleFolders("-card-images")), NameOf);

} // namespace
} // namespace quorvane
