#include "bench/playunitbench.h"
#include "bench/sha256.h"
#include "bench/testdata.h"
#include "devices/interface.h"
#include "model/sequence.h"
#include "model/wall.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <sstream>

namespace quorvane {
namespace {

using nlohmann::json;
using TextList = std::vector<std::string>;

// Worked-out transfers, every port access of all 255 ticks.
class TransferSamples : public PlayUnitBench {
protected:
    // The numbers of the line behind the line that is the section's name.
    static std::vector<int> Numbers(const std::filesystem::path& path, const std::string& section) {
        std::ifstream file(path);
        std::string line;
        while (std::getline(file, line) && !line.starts_with(section)) {
        }
        std::getline(file, line);
        std::istringstream fields(line);
        std::vector<int> numbers;
        for (std::string field; std::getline(fields, field, ',');) numbers.push_back(std::stoi(field));
        return numbers;
    }

    static void LoadWall(const json& config) {
        Show.ElementCount = static_cast<std::uint8_t>(config["patch"].size());
        for (int element = 1; element <= Show.ElementCount; ++element)
            for (int channel = 1; channel <= 4; ++channel) {
                const auto e = static_cast<std::size_t>(element - 1);
                const auto c = static_cast<std::size_t>(channel - 1);
                Show.Patch[element][channel] = config["patch"][e][c];
                Show.ColourCorrection[element][channel] = config["correction"][e][c];
            }
    }

    static void LoadSteps(const std::filesystem::path& path) {
        const std::vector<int> levels = Numbers(path, "[Sequence]");
        const std::vector<int> times = Numbers(path, "[HOLDBLEND]");
        Show.StepCount = static_cast<std::uint8_t>(times.size() / 2);
        ASSERT_EQ(levels.size(), std::size_t{4} * Show.StepCount * Show.ElementCount);
        auto level = levels.begin();
        auto time = times.begin();
        for (int step = 1; step <= Show.StepCount; ++step) {
            for (int element = 1; element <= Show.ElementCount; ++element)
                for (int channel = 1; channel <= 4; ++channel)
                    Show.SequenceSteps[step][element][channel] = static_cast<std::uint8_t>(*level++);
            SetHold(step, *time++);
            SetBlend(step, *time++);
        }
    }

    json TraceAsJson() const {
        json trace = json::array();
        for (const auto& [kind, port, value] : Trace)
            trace.push_back(kind == 'r' ? json{"r", port} : json{"w", port, value});
        return trace;
    }

    void Play(const std::filesystem::path& folder) {
        std::ifstream file(folder / "expected.json");
        const json expected = json::parse(file);
        LoadWall(expected["config"]);
        LoadSteps(folder / "show.QSQ");
        Show.InterfaceType = expected["interface_type"];
        Show.CardBase = expected["CardBase"];
        for (int word = 0; word <= 15; ++word)
            Show.DmxIni[word] = expected["DmxIni_before"][static_cast<std::size_t>(word)];
        Log.clear();
        mnuSequenceToMerger_Click();
        std::string images;
        for (std::size_t tick = 0; tick < 255; ++tick) {
            Trace.clear();
            timSendToMerger_Timer();
            const json& wanted = expected["ticks"][tick];
            ASSERT_EQ(Trace.size(), wanted["accesses"]) << tick;
            ASSERT_EQ(Sha256(TraceAsJson().dump()), wanted["sha256"]) << tick;
            const json& number = wanted["progress"][1];
            ASSERT_EQ(Texts("status").back(), wanted["progress"][0].get<std::string>() +
                                                  (number.is_null() ? "" : number.get<std::string>()))
                << tick;
            for (int channel = 1; channel <= 512; ++channel)
                images += static_cast<char>(Bus.Cards[0].Level(channel));
        }
        std::ifstream imagesFile(folder / "images.bin", std::ios::binary);
        EXPECT_TRUE(images == std::string(std::istreambuf_iterator<char>(imagesFile), {}));
        TextList captions;
        for (const json& entry : expected["log"]) captions.push_back(entry["text"]);
        EXPECT_EQ(Texts("caption"), captions);
        EXPECT_EQ(json(Words()), expected["DmxIni_after"]);
        EXPECT_EQ(Show.DmxIniDirty, expected["DmxIniDirty"]);
        EXPECT_EQ(Show.timSendToMerger.Enabled, expected["running"]);
    }
};

TEST_F(TransferSamples, FiveStepsGoOutAsWorkedOut) { Play(TestData("samples/154-transfer")); }

TEST_F(TransferSamples, TwoHundredFiftyFourStepsGoOutAsWorkedOut) { Play(TestData("samples/155-transfer")); }

// What a card of each kind has in its memory when an image is complete, taken out of the accesses to its
// ports in their order.
class CardKinds : public TransferSamples {
protected:
    // Follows the accesses of one tick. The strobe comes first, then every byte behind its two address bytes.
    void FollowTick(CardModel model) {
        ASSERT_EQ(Trace.size(), 1u + 3 * (16 + 512));
        const bool familyC = model == CardModel::C7300C;
        EXPECT_EQ(Trace[0], (PortAccess{familyC ? 'r' : 'w', base, 0}));
        received.clear();
        for (std::size_t i = 1; i < Trace.size(); i += 3) {
            const auto& [lowKind, lowPort, low] = Trace[i];
            const auto& [highKind, highPort, high] = Trace[i + 1];
            const auto& [kind, port, value] = Trace[i + 2];
            ASSERT_EQ((std::vector<int>{lowPort, highPort, port}),
                      (std::vector<int>{base, base + 1, base + 2}));
            ASSERT_EQ(std::string({lowKind, highKind, kind}), "www");
            received.emplace_back(high * 256 + low, value);
        }
    }

    void ExpectImage(int image, const std::string& images, const json& before) {
        for (int word = 0; word <= 15; ++word) {
            const int kept = before[static_cast<std::size_t>(word)].get<int>() & 255;
            const int expected = word == 1 ? image : word == 0 || word == 2 ? kept : word == 4 ? 1 : 0;
            ASSERT_EQ(received[static_cast<std::size_t>(word)], std::pair(1008 + word, expected)) << image;
        }
        for (int index = 0; index < 512; ++index) {
            const auto at = static_cast<std::size_t>(512 * (image - 1) + index);
            const int expected = static_cast<std::uint8_t>(images[at]);
            ASSERT_EQ(received[static_cast<std::size_t>(16 + index)], std::pair(1024 + index, expected))
                << image;
            ASSERT_EQ(Bus.Cards[0].Level(index + 1), expected) << image;
        }
    }

    void Play(const std::filesystem::path& folder, CardModel model) {
        std::ifstream file(folder / "expected.json");
        const json expected = json::parse(file);
        std::ifstream imagesFile(folder / "images.bin", std::ios::binary);
        const std::string images(std::istreambuf_iterator<char>(imagesFile), {});
        ASSERT_EQ(images.size(), 255u * 512);
        StartShow(); // steps of the last one are not seen behind a shorter one
        LoadWall(expected["config"]);
        LoadSteps(folder / "show.QSQ");
        Bus.Cards.clear();
        PlugIn(model, static_cast<std::uint32_t>(base));
        WriteFirmware();
        Show.InterfaceType = model == CardModel::C7300C ? IsaCardC : IsaCardB;
        OpenPort(Show.InterfaceType);
        ASSERT_EQ(Show.CardBase, base);
        const json& before = expected["DmxIni_before"];
        for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = before[static_cast<std::size_t>(word)];
        mnuSequenceToMerger_Click();
        for (int image = 1; image <= 255; ++image) {
            Tick();
            FollowTick(model);
            ExpectImage(image, images, before);
            if (HasFatalFailure()) return;
        }
        EXPECT_FALSE(Show.timSendToMerger.Enabled);
        for (int word = 1; word <= 15; ++word)
            EXPECT_EQ(Show.DmxIni[word],
                      word <= 10 ? before[static_cast<std::size_t>(word)].get<int>() & 255 : 0);
        EXPECT_EQ(Show.DmxIni[0], before[0]);
    }

    static constexpr int base = 0x120;
    std::vector<std::pair<int, int>> received; // dual-port address and byte
};

TEST_F(CardKinds, EveryKindReceivesAllImagesAndParametersInOrder) {
    for (const CardModel model :
         {CardModel::C7300A, CardModel::C7300BLC, CardModel::C7300B, CardModel::C7300C})
        for (const char* sample : {"samples/154-transfer", "samples/155-transfer"}) {
            SCOPED_TRACE(sample + std::string(" model ") + std::to_string(static_cast<int>(model)));
            Play(TestData(sample), model);
        }
}

TEST_F(TransferSamples, DigestIsTheKnownOne) {
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

} // namespace
} // namespace quorvane
