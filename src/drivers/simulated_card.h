// Simulated ISA DMX cards, for a machine without the real ones. Each takes four byte-wide ports from its
// base on and has a dual-port memory behind them:
//   base+0  address, low byte (write); stop strobe: 7300A/B a write of 0, 7300C a read
//   base+1  address, high byte (write)
//   base+2  data at that address (read and write)
//   base+3  reset and start strobe: 7300A/B a read, 7300C a write of 0
// A start strobe after something was loaded below 1008 boots the card: it runs what was loaded and puts
// its state into 1017. Any further strobe only starts the output, so parameters may stand there then.
// A 7300A or 7300B-LC runs by itself and boots with nothing loaded too. All else reads 255.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quorvane {

enum class CardModel { C7300A, C7300BLC, C7300B, C7300C };

enum class CardFault {
    None,
    Dead,             // keeps its memory, never reports a state
    Garbage,          // reports a state that no card has
    SecondBootFails,  // a 7300B that runs its first operating system and not the second
    ForgetsByte,      // address 5 reads back inverted
    ForgetsProbeCell, // address 1023 reads back inverted, so that the card is never found
};

struct SimulatedCard {
    std::uint32_t Base = 0x100; // 100h, 120h, 140h or 160h
    CardModel Model = CardModel::C7300A;
    CardFault Fault = CardFault::None;

    std::vector<std::uint8_t> Memory = std::vector<std::uint8_t>(65536);
    std::uint16_t Address = 0; // latched
    bool Loaded = false;       // something new stands below 1008
    bool Started = false;      // DMX leaves the card
    int Boots = 0;
    // Touches of the strobe ports, also those that mean something to the other family only.
    int ReadsOfReset = 0;
    int WritesOfReset = 0;
    int ReadsOfStop = 0;

    bool Answers(std::uint32_t port) const { return port >= Base && port < Base + 4; }
    std::uint8_t ReadPort(std::uint32_t port);
    void WritePort(std::uint32_t port, std::uint8_t value);

    // The level of DMX channel 1..512 in the card.
    std::uint8_t Level(int channel) const { return Memory.at(static_cast<std::size_t>(1023 + channel)); }
};

// The port space with any number of cards in it; the first in the list wins where two share a base.
struct SimulatedBus {
    std::vector<SimulatedCard> Cards;

    std::uint8_t ReadPort(std::uint32_t port); // 255 where no card answers
    void WritePort(std::uint32_t port, std::uint8_t value);
};

// The card that a setting describes, in words in any order, in capitals or small letters: a model
// ("7300A", "7300B-LC", "7300B", "7300C"), a base ("100", "120", "140", "160", hexadecimal; without one
// 100) and a fault ("dead", "garbage", "second-boot-fails", "forgets-byte", "forgets-probe-cell").
// Nothing when a word is unknown or of a kind already given, or the model is missing.
std::optional<SimulatedCard> ParseSimulatedCard(std::string_view text);

} // namespace quorvane
