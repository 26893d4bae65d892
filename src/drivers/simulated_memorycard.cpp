#include "drivers/simulated_memorycard.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

namespace quorvane {

namespace {

constexpr std::int32_t NoData = 255;
constexpr int HighestLine = 23;

std::size_t CellOf(const SimulatedMemoryCard& card) {
    return ((card.Latch | card.StuckHigh) & ~card.StuckLow) % card.Memory.size();
}

// Whether the cell behind this address loses the write.
bool Loses(SimulatedMemoryCard& card, std::size_t cell) {
    const auto refused = card.RefusedWrites.find(static_cast<std::uint32_t>(cell));
    return refused != card.RefusedWrites.end() && refused->second-- > 0;
}

bool IsOut(const SimulatedMemoryCard& card) { return card.Memory.empty() || card.WritesUntilPulled == 0; }

} // namespace

void SimulatedMemoryCard::WritePort(std::int32_t port, std::int32_t value) {
    const std::uint32_t line = static_cast<std::uint32_t>(port) - Base - 1;
    if (line > 2) return;
    const std::uint32_t shift = 8 * line;
    Latch = (Latch & ~(0xFFu << shift)) | ((static_cast<std::uint32_t>(value) & 0xFF) << shift);
}

std::int32_t SimulatedMemoryCard::ReadPort(std::int32_t port) {
    const std::uint32_t offset = static_cast<std::uint32_t>(port) - Base;
    if (offset == 3) return static_cast<std::int32_t>(Latch >> 16);
    if (offset != 0 || IsOut(*this)) return NoData;
    return Memory[CellOf(*this)];
}

void SimulatedMemoryCard::WriteData(std::int32_t port, std::int32_t value) {
    if (static_cast<std::uint32_t>(port) != Base || IsOut(*this)) return;
    ++Writes;
    if (WritesUntilPulled > 0) --WritesUntilPulled;
    const std::size_t cell = CellOf(*this);
    if (!Loses(*this, cell)) Memory[cell] = static_cast<std::uint8_t>(value);
}

namespace {

constexpr std::array<std::pair<std::string_view, std::size_t>, 8> Sizes{{
    {"32kb", 32768},
    {"64kb", 65536},
    {"128kb", 131072},
    {"256kb", 262144},
    {"512kb", 524288},
    {"1mb", 1048576},
    {"2mb", 2097152},
    {"4mb", 4194304},
}};

std::string SmallLetters(std::string_view text) {
    std::string small(text);
    for (char& c : small)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return small;
}

// The number that text is, when it is one from 0 up to limit.
std::optional<std::uint32_t> NumberUpTo(std::uint32_t limit, std::string_view text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number > limit) return std::nullopt;
    return number;
}

// What stands behind the name in "name:rest".
std::optional<std::string_view> Behind(std::string_view name, std::string_view word) {
    if (!word.starts_with(name)) return std::nullopt;
    return word.substr(name.size());
}

bool TakeSize(std::string_view word, SimulatedMemoryCard& card) {
    for (const auto& [name, bytes] : Sizes)
        if (name == word && card.Memory.empty()) {
            card.Memory.resize(bytes);
            return true;
        }
    return false;
}

bool TakeFault(std::string_view word, SimulatedMemoryCard& card) {
    constexpr std::uint32_t most = 0xFFFFFF;
    if (const auto rest = Behind("leitung:", word)) {
        const auto line = NumberUpTo(HighestLine, *rest);
        if (line) card.StuckLow |= 1u << *line;
        return line.has_value();
    }
    if (const auto rest = Behind("ziehen:", word)) {
        const auto writes = NumberUpTo(most, *rest);
        if (writes) card.WritesUntilPulled = *writes;
        return writes.has_value();
    }
    const auto rest = Behind("zelle:", word);
    if (!rest) return false;
    const std::size_t colon = std::min(rest->find(':'), rest->size() - 1);
    const auto address = NumberUpTo(most, rest->substr(0, colon));
    const auto writes = NumberUpTo(most, rest->substr(colon + 1));
    if (!address || !writes) return false;
    card.RefusedWrites[*address] = static_cast<int>(*writes);
    return true;
}

} // namespace

std::optional<SimulatedMemoryCard> ParseSimulatedMemoryCard(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    SimulatedMemoryCard card;
    const std::string words = SmallLetters(text);
    for (std::size_t start = words.find_first_not_of(blanks); start != std::string::npos;) {
        const std::size_t end = std::min(words.find_first_of(blanks, start), words.size());
        const std::string_view word = std::string_view(words).substr(start, end - start);
        if (!TakeSize(word, card) && !TakeFault(word, card)) return std::nullopt;
        start = words.find_first_not_of(blanks, end);
    }
    if (card.Memory.empty()) return std::nullopt;
    return card;
}

} // namespace quorvane
