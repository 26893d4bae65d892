// The one DMX interface: choosing, opening, starting, stopping and closing it. Everything that goes
// wrong ends in ReportFailure, which stops the output clock before it releases anything.
#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

// Opens the interface of the given type (0..5) and marks it in InterfaceOpen. Types 4 and 5 need nothing.
// The output clock stands still while an ISA card boots; it goes on afterwards when the card was opened.
// A second instance of the program opens nothing.
void OpenPort(std::int16_t type);
// The part of it for an ISA card that was looked for and found at base, 0 when it was not found.
void OpenCardAt(std::int32_t base, std::int16_t type);
void ClosePort(std::int16_t type);
// Stops the output and clears what belongs to the type. InterfaceType keeps the selected type on purpose.
void ReportFailure(std::int16_t type);
// True when output may run: the type is open, or it is 4 or 5, which are never opened.
bool InterfaceReady(std::int16_t type);

// Enables AutoXmit, except while a transfer to the play unit runs: its end enables it then.
void EnableOutputClock();

// Waits half a second, letting the user interface run. False, at once, when the program is being closed.
bool delay();

// The stored interface type, 0 when it is no number or outside 0..5.
std::int16_t StoredInterfaceType();
// OK of the select dialog: makes type the chosen one, active when it was found, and stores it. An ISA
// card on which the search has meanwhile tried the other type is opened again. Output of types 3 to 5
// begins here, that of ISA cards with DMX Start.
void ChooseInterface(std::int16_t type);

// What drives the lamps.
struct DrivingInterface {
    std::int16_t Type;
    bool Ready;
    bool ClockOn;
};
DrivingInterface PresentInterface();
// Brings back what drove before a search: the search stops the clock, may try the other type on an ISA card,
// may drop the type, and may have been given up in the middle.
void KeepInterface(const DrivingInterface& before);

// Tries every interface in turn; true when the select dialog is to be shown then, false when the program
// was closed meanwhile. In a second instance it tells the user, closes everything and gives false.
bool InitialiseInterfaces();
// The second instance's own part of that, which is also its start: message, menu entries off, ports
// closed, no interface for this run. The stored type is left alone.
void DisableSecondInstance();
void mnuDMXStart_Click(); // ISA cards only: start strobe, clock on
void mnuDMXStop_Click();  // ISA cards only: clock off, stop strobe

} // namespace quorvane
