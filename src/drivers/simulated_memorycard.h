// A simulated memory card in its adapter, for a machine without the real ones. Four byte-wide ports:
//   base+0  data at the latched address (read, and write through the data write operation)
//   base+1  address, bits 0 to 7 (write)
//   base+2  address, bits 8 to 15 (write)
//   base+3  address, bits 16 to 23; the control register (write and read)
// A card begins again from its first byte behind its last. Without a card, all data read 255.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace quorvane {

struct SimulatedMemoryCard {
    std::uint32_t Base = 0x200;
    std::vector<std::uint8_t> Memory; // as large as the card; empty: none is plugged in

    std::uint32_t StuckLow = 0;                 // address lines, one bit each
    std::uint32_t StuckHigh = 0;                // the same
    std::map<std::uint32_t, int> RefusedWrites; // by address: how many writes a cell still loses
    std::int64_t WritesUntilPulled = -1;        // then the card is out; -1: it stays

    std::uint32_t Latch = 0; // the address
    std::int64_t Writes = 0; // of data

    void WritePort(std::int32_t port, std::int32_t value);
    std::int32_t ReadPort(std::int32_t port);
    void WriteData(std::int32_t port, std::int32_t value);
};

// The card that a setting describes, in words in any order, in capitals or small letters: its size ("32KB",
// "64KB", "128KB", "256KB", "512KB", "1MB", "2MB", "4MB") and faults: "Leitung:13" (address line 13 is
// stuck), "Zelle:1000:25" (the cell at 1000 loses 25 writes), "Ziehen:20000" (pulled out after 20000 writes).
// Nothing when a word is unknown or the size is missing.
std::optional<SimulatedMemoryCard> ParseSimulatedMemoryCard(std::string_view text);

} // namespace quorvane
