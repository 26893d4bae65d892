// Worked-out cases of opening an interface, each with every port access or library call in order.
#include "bench/portbench.h"
#include "bench/testdata.h"
#include "devices/interface.h"

#include <nlohmann/json.hpp>

#include <fstream>

namespace quorvane {
namespace {

using nlohmann::json;

// The cases whose folder ends in kind.
std::vector<std::filesystem::path> Cases(const std::string& kind) {
    std::vector<std::filesystem::path> folders;
    for (const auto& entry : std::filesystem::directory_iterator(TestData("samples")))
        if (entry.path().filename().string().ends_with(kind)) folders.push_back(entry.path());
    return folders;
}

json Expected(const std::filesystem::path& folder) {
    std::ifstream file(folder / "expected.json");
    return json::parse(file);
}

std::string BytesOfHex(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

class OpeningSamples : public PortBench {
protected:
    void StartAnew() {
        Bus.Cards.clear();
        Trace.clear();
        Log.clear();
        Show = ShowState{};
        std::filesystem::remove_all(ProgramFolder);
        std::filesystem::create_directory(ProgramFolder);
    }

    // What is called a status text there stands in the main window's caption.
    json NoticedAsJson() const {
        json log = json::array();
        for (const Noticed& noticed : Log) {
            json entry{{"kind", noticed.Kind == "caption" ? "status" : noticed.Kind}, {"text", noticed.Text}};
            if (noticed.Kind == "box") entry["title"] = noticed.Title;
            log.push_back(entry);
        }
        return log;
    }

    json TraceAsJson() const {
        json trace = json::array();
        for (const auto& [kind, port, value] : Trace)
            trace.push_back(kind == 'r' ? json{"r", port} : json{"w", port, value});
        return trace;
    }

    // The faulty ones there belong to no family; here they are of the family that is opened.
    void PlugInNamed(const std::string& card, std::int16_t type, std::uint32_t base) {
        if (card == "none") return;
        const std::string family = type == IsaCardC ? "7300C " : "7300B ";
        const bool faulty = card == "dead" || card == "garbage";
        auto plugged = ParseSimulatedCard(card == "7300B-second-fails" ? "7300B second-boot-fails"
                                          : faulty                     ? family + card
                                                                       : card);
        ASSERT_TRUE(plugged) << card;
        plugged->Base = base;
        Bus.Cards.push_back(*plugged);
    }

    // A file that is null there cannot be read; one that is not named is missing.
    void WriteFirmwareOf(const json& firmware) {
        for (const auto& [name, content] : firmware.items())
            if (content.is_null())
                std::filesystem::create_directory(ProgramFolder / name);
            else
                Write(name, BytesOfHex(content));
    }
};

TEST_F(OpeningSamples, IsaCardsAreAccessedByteByByteAsWorkedOut) {
    const auto cases = Cases("-isa");
    ASSERT_EQ(cases.size(), 14u);
    for (const auto& folder : cases) {
        const json expected = Expected(folder);
        SCOPED_TRACE(folder.filename().string() + " " + expected["what"].get<std::string>());
        StartAnew();
        const auto type = expected["interface_type"].get<std::int16_t>();
        OsName = expected["OsName"];
        Show.InterfaceType = type;
        PlugInNamed(expected["card"], type, expected["base"]);
        WriteFirmwareOf(expected["firmware"]);
        OpenPort(type);
        EXPECT_EQ(TraceAsJson(), expected["trace"]);
        EXPECT_EQ(NoticedAsJson(), expected["log"]);
        EXPECT_EQ(json(std::vector<int>(Show.InterfaceOpen.begin(), Show.InterfaceOpen.end())),
                  expected["InterfaceOpen"]);
        EXPECT_EQ(Show.CardBase, expected["CardBase"]);
        EXPECT_EQ(Show.InterfaceType, expected["InterfaceType_after"]);
        EXPECT_EQ(json(std::vector<int>(Show.DmxIni.begin(), Show.DmxIni.end())), expected["DmxIni"]);
        EXPECT_EQ(Show.DmxIniDirty, expected["DmxIniDirty"]);
        EXPECT_EQ(Show.AutoXmit.Enabled, expected["AutoXmit"]);
    }
}

TEST_F(OpeningSamples, UsbLibraryIsCalledAsWorkedOut) {
    const auto cases = Cases("-usb");
    ASSERT_EQ(cases.size(), 3u);
    for (const auto& folder : cases) {
        const json expected = Expected(folder);
        SCOPED_TRACE(folder.filename().string() + " " + expected["what"].get<std::string>());
        StartAnew();
        OsName = "Windows XP";
        json calls = json::array();
        Host.DasHardCommand = [&](std::int32_t command, std::int32_t parameter, std::uint8_t*) {
            calls.push_back({command, parameter});
            return command == 1 ? expected["result"].get<std::int32_t>() : 0;
        };
        OpenPort(UsbInterface);
        EXPECT_EQ(calls, expected["calls"]);
        EXPECT_EQ(NoticedAsJson(), expected["log"]);
        EXPECT_EQ(json(std::vector<int>(Show.InterfaceOpen.begin(), Show.InterfaceOpen.end())),
                  expected["InterfaceOpen"]);
    }
}

} // namespace
} // namespace quorvane
