#include "drivers/simulated_card.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace quorvane {

namespace {

// Dual-port addresses.
constexpr std::uint16_t ForgottenByte = 5;
constexpr std::uint16_t Parameters = 1008; // here the operating system ends
constexpr std::uint16_t State = 1017;
constexpr std::uint16_t ProbeCell = 1023;

constexpr std::uint8_t NoState = 0;
constexpr std::uint8_t GarbageState = 77;

bool RunsByItself(CardModel model) { return model == CardModel::C7300A || model == CardModel::C7300BLC; }

std::uint8_t RunningState(CardModel model) {
    switch (model) {
    case CardModel::C7300B: return 1;
    case CardModel::C7300C: return 5;
    default: return 128;
    }
}

std::uint8_t StateAfterBoot(const SimulatedCard& card) {
    switch (card.Fault) {
    case CardFault::Dead: return NoState;
    case CardFault::Garbage: return GarbageState;
    case CardFault::SecondBootFails: return card.Boots % 2 == 0 ? NoState : RunningState(card.Model);
    default: return RunningState(card.Model);
    }
}

void Store(SimulatedCard& card, std::uint8_t value) {
    const bool forgets = (card.Fault == CardFault::ForgetsByte && card.Address == ForgottenByte) ||
                         (card.Fault == CardFault::ForgetsProbeCell && card.Address == ProbeCell);
    card.Memory[card.Address] = forgets ? static_cast<std::uint8_t>(~value) : value;
    if (card.Address < Parameters) card.Loaded = true;
}

void Start(SimulatedCard& card) {
    if (card.Loaded || (RunsByItself(card.Model) && card.Boots == 0)) {
        card.Loaded = false;
        ++card.Boots;
        card.Memory[State] = StateAfterBoot(card);
    }
    card.Started = true;
}

} // namespace

std::uint8_t SimulatedCard::ReadPort(std::uint32_t port) {
    const bool familyC = Model == CardModel::C7300C;
    switch (port - Base) {
    case 0:
        ++ReadsOfStop;
        if (familyC) Started = false;
        return 255;
    case 2: return Memory[Address];
    case 3:
        ++ReadsOfReset;
        if (!familyC) Start(*this);
        return 255;
    default: return 255;
    }
}

void SimulatedCard::WritePort(std::uint32_t port, std::uint8_t value) {
    const bool familyC = Model == CardModel::C7300C;
    switch (port - Base) {
    case 0:
        // A 7300A/B takes every 0 for the stop strobe, also one that addresses: a tick starts it again.
        if (!familyC && value == 0) Started = false;
        Address = static_cast<std::uint16_t>((Address & 0xFF00) | value);
        break;
    case 1: Address = static_cast<std::uint16_t>((Address & 0x00FF) | (value << 8)); break;
    case 2: Store(*this, value); break;
    case 3:
        ++WritesOfReset;
        if (familyC && value == 0) Start(*this);
        break;
    default: break;
    }
}

std::uint8_t SimulatedBus::ReadPort(std::uint32_t port) {
    for (SimulatedCard& card : Cards)
        if (card.Answers(port)) return card.ReadPort(port);
    return 255;
}

void SimulatedBus::WritePort(std::uint32_t port, std::uint8_t value) {
    for (SimulatedCard& card : Cards)
        if (card.Answers(port)) return card.WritePort(port, value);
}

namespace {

constexpr std::array<std::pair<std::string_view, CardModel>, 4> Models{{
    {"7300a", CardModel::C7300A},
    {"7300b-lc", CardModel::C7300BLC},
    {"7300b", CardModel::C7300B},
    {"7300c", CardModel::C7300C},
}};
constexpr std::array<std::pair<std::string_view, CardFault>, 5> Faults{{
    {"dead", CardFault::Dead},
    {"garbage", CardFault::Garbage},
    {"second-boot-fails", CardFault::SecondBootFails},
    {"forgets-byte", CardFault::ForgetsByte},
    {"forgets-probe-cell", CardFault::ForgetsProbeCell},
}};
constexpr std::array<std::pair<std::string_view, std::uint32_t>, 4> Bases{{
    {"100", 0x100},
    {"120", 0x120},
    {"140", 0x140},
    {"160", 0x160},
}};

// Takes what word stands for into found. False when it is not in the list, or found is taken already.
template<class Words, class Value>
bool Take(const Words& words, std::string_view word, std::optional<Value>& found) {
    for (const auto& [name, value] : words) {
        if (name != word || found) continue;
        found = value;
        return true;
    }
    return false;
}

std::string SmallLetters(std::string_view text) {
    std::string small(text);
    for (char& c : small)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return small;
}

} // namespace

std::optional<SimulatedCard> ParseSimulatedCard(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    std::optional<CardModel> model;
    std::optional<CardFault> fault;
    std::optional<std::uint32_t> base;
    const std::string words = SmallLetters(text);
    for (std::size_t start = words.find_first_not_of(blanks); start != std::string::npos;) {
        const std::size_t end = std::min(words.find_first_of(blanks, start), words.size());
        const std::string_view word = std::string_view(words).substr(start, end - start);
        if (!Take(Models, word, model) && !Take(Faults, word, fault) && !Take(Bases, word, base))
            return std::nullopt;
        start = words.find_first_not_of(blanks, end);
    }
    if (!model) return std::nullopt;
    SimulatedCard card;
    card.Model = *model;
    card.Fault = fault.value_or(CardFault::None);
    card.Base = base.value_or(card.Base);
    return card;
}

} // namespace quorvane
