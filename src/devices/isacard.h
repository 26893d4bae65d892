// The ISA DMX cards. Four byte-wide ports lead to a dual-port memory on the card: two hold the
// address, one the data, and the fourth resets or starts the card when it is touched. The card's
// operating system is loaded through the same window at every start. The two families take their
// strobes in opposite directions; InterfaceType says which one is meant.
#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

// Dual-port addresses.
constexpr int CardParameters = 1008; // the low bytes of the DmxIni words
constexpr int CardStateCell = 1017;
constexpr int CardProbeCell = 1023;
constexpr int CardDmx = 1024; // DMX channel n at CardDmx + n - 1

// Values of the card state cell after a reset.
constexpr int CardRunsAlone = 128; // 7300A, 7300B-LC
constexpr int Card7300BRuns = 1;
constexpr int Card7300CRuns = 5;

// Finds the first card that keeps a test byte and returns its base, or 0 when none answers.
// The lowest base wins, also when a second card is fitted.
int FindCard();

std::uint8_t ReadPort(int base);  // base+0: stop strobe of the 7300C
void ClearPort(int base);         // base+0: stop strobe of the 7300A/B
std::uint8_t ResetRead(int base); // base+3: reset and start strobe of the 7300A/B
void ResetWrite(int base);        // base+3: reset and start strobe of the 7300C
std::uint8_t ReadDpr(int base, int address);
void WriteDpr(int base, int address, std::uint8_t value);

// Copies an operating system file from the program folder into the card and returns how many bytes it
// had, 65536 when it had more: then, and when the file is missing or cannot be read, the user is told and
// CardBase becomes 0. A byte that reads back wrong is passed over on purpose: the card's state cell tells
// afterwards whether it runs.
int UploadCardOs(std::string_view fileName);

} // namespace quorvane
