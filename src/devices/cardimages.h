// The sequence on the memory card: one scene image after the other from address 0 on, as many as the card
// holds, filled up with dark ones. Work on the ports is cut into slices of a few milliseconds with the events
// of the user interface and the heartbeat between them, so that a show goes on playing meanwhile.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvane {

// How many images a card of that size takes, 0 when it is none.
int MemCardImages(std::int32_t size);

// Looks for a card and writes the sequence to all of it. Asks first when the sequence is longer than the
// card, and tells at the end, also after an abort, up to which address was written.
void WriteMemCard();

// Looks for a card and compares it with what WriteMemCard would write. Tells the first difference, also by
// its address, or that there is none.
std::optional<std::int32_t> CompareMemCard();

constexpr int MemCardRowBytes = 10;

// The line above the rows of the read-back view.
inline constexpr const char* MemCardHeader =
    "                     0       1       2      3       4       5       6       7      8      9";

// Reads the bytes of a row of the view from the card; address is a multiple of ten. The text is "Adr" with
// the address in seven characters, then " :" and three characters for each byte there is.
std::string ReadMemCardRow(std::int32_t address);

} // namespace quorvane
