#include "bench/samples.h"
#include "bench/testdata.h"

#include "model/sequence.h"
#include "model/text.h"
#include "model/wall.h"

#include <fstream>

namespace quorvane {

std::filesystem::path SampleFolder(const std::string& name) { return TestData("samples") / name; }

nlohmann::json Sample(const std::string& name) {
    std::ifstream file(SampleFolder(name) / "expected.json", std::ios::binary);
    return nlohmann::json::parse(file);
}

std::vector<std::uint8_t> FromHex(const std::string& hex) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 2)
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(at, 2), nullptr, 16)));
    return bytes;
}

std::string ToHex(const std::vector<std::uint8_t>& bytes) {
    constexpr const char* digits = "0123456789abcdef";
    std::string hex;
    for (const std::uint8_t byte : bytes) {
        hex += digits[byte / 16];
        hex += digits[byte % 16];
    }
    return hex;
}

PerChannel<std::uint8_t> LevelsOf(const nlohmann::json& four) {
    PerChannel<std::uint8_t> levels;
    for (int c = 1; c <= 4; ++c) levels[c] = four.at(static_cast<std::size_t>(c - 1)).get<std::uint8_t>();
    return levels;
}

nlohmann::json LiveLevels() {
    auto levels = nlohmann::json::array();
    for (int element = 1; element <= Show.ElementCount; ++element) {
        const auto& live = Show.ElementValue[element];
        levels.push_back({live[1], live[2], live[3], live[4]});
    }
    return levels;
}

void BuildWallOf(const nlohmann::json& config) {
    Show.WallColumns = config.at("columns");
    Show.WallRows = config.at("rows");
    Show.WallName = Padded20(config.at("name").get<std::string>());
    Show.WallAreaWidth = config.at("area_width");
    Show.WallAreaHeight = config.at("area_height");
    Show.ElementSize = config.at("element_size");
    NeueWandLoad();
    for (int word = 0; word <= 15; ++word)
        Show.DmxIni[word] = config.at("dmx_ini").at(static_cast<std::size_t>(word));
    Show.DmxIniDirty = 1;
    for (int element = 1; element <= Show.ElementCount; ++element) {
        const auto row = static_cast<std::size_t>(element - 1);
        Show.ColourCorrection[element] = LevelsOf(config.at("correction").at(row));
        for (int c = 1; c <= 4; ++c)
            Show.Patch[element][c] = config.at("patch").at(row).at(static_cast<std::size_t>(c - 1));
    }
}

void TakeSequenceOf(const nlohmann::json& sequence) {
    int step = 0;
    for (const auto& scene : sequence.at("steps")) {
        const auto& times = sequence.at("times").at(static_cast<std::size_t>(step));
        SetHold(++step, times.at(0));
        SetBlend(step, times.at(1));
        int element = 0;
        for (const auto& four : scene) Show.SequenceSteps[step][++element] = LevelsOf(four);
    }
    Show.StepCount = static_cast<std::uint8_t>(step);
    Show.StatusFlags.Set(Status::SequenceExists);
}

} // namespace quorvane
