// What the built-in output is to do, from the file "Ausgabe.ini" in the program folder. Users write it by
// hand, so every line counts for itself: a value that cannot be used is named in a German message
// together with what is used instead, and everything else holds. A missing file is made with every
// setting explained in it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

enum class OutputProtocol { None, Sacn, ArtNet };
enum class OutputDelivery { Unicast, Multicast, Broadcast };

// The start values are those of a folder without the file.
struct OutputSettings {
    OutputProtocol Protocol = OutputProtocol::Sacn;
    std::uint16_t Universe = 1; // sACN 1..63999, Art-Net 0..32767
    OutputDelivery Delivery = OutputDelivery::Unicast;
    std::string Address = "127.0.0.1";   // of the receiver, for Unicast
    std::string NetworkCard;             // its name in the system; empty: the system chooses
    std::uint8_t Priority = 100;         // sACN only, 0..200
    std::string SourceName = "Quorvane"; // sACN only, at most 63 bytes of UTF-8

    // For trying the program out without a card: its model as printed on it, or empty for none.
    std::string SimulatedCard;
    std::uint16_t SimulatedCardBase = 0x100;
    std::string SimulatedMemoryCard; // as ParseSimulatedMemoryCard takes it, or empty for none
    bool operator==(const OutputSettings&) const = default;
};

// Where the output goes, as a phrase for the user: "sACN, Universum 1, an 127.0.0.1". Empty when there is
// none.
std::string OutputDestination(const OutputSettings& settings);

struct OutputSettingsReading {
    OutputSettings Settings;
    std::vector<std::string> Messages; // for the user, in the order of the settings
};

// The settings in the text of such a file.
OutputSettingsReading ParseOutputSettings(std::string_view text);

// The settings of a program folder. The file is found regardless of upper and lower case and made when
// it is missing.
OutputSettingsReading LoadOutputSettings(const std::filesystem::path& programFolder);

} // namespace quorvane
