// The battery-backed memory card that the play unit reads, in its adapter: three ports latch an address,
// a fourth is the byte at it. A byte that reads back wrong is written again and again, each time after a
// longer wait, and from the twentieth time on the user decides. What is done with the sequence on it
// stands in cardimages.h.
#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

constexpr std::int16_t MemCardPorts = 512; // 200h
constexpr std::int32_t SmallestMemCard = 32768;
constexpr std::int32_t LargestMemCard = 1048576;

std::uint8_t MemRead(std::int32_t address);

// Writes a byte and reads it back. The user interface runs in the waits between the attempts. The user
// may try on, pass the byte over, or give everything up (MemCardAbort). Once that is set, one attempt is
// made and nothing waited for or asked: what was borrowed can still be put back.
void MemWrite(std::int32_t address, std::uint8_t value);

// What is told of the size or code in MemCardSize; a fault, or a size that nobody knows, also by beep and
// box.
std::string MemCardText();

// Finds the size of the card at MemCardBase and tests its address lines; every byte it uses is put back.
// MemCardSize has the result, and what is returned tells it. A card that is larger than the largest known
// one has twice its size.
std::string DetectMemCard();

// Starts anew at the adapter, detects the card and shows the result. False when there is none to work with.
bool SearchMemCard();

// Waits, letting the user interface run. False, at once, when the work is given up.
bool WaitForMemCard(double seconds);

} // namespace quorvane
