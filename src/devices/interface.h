// The one DMX interface: choosing, opening, starting, stopping and closing it. Everything that goes
// wrong ends in ReportFailure, which stops the output clock before it releases anything.
#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

// Opens the interface of the given type (0..5) and marks it in InterfaceOpen. Types 4 and 5 need nothing.
void OpenPort(std::int16_t type);
void ClosePort(std::int16_t type);
// Stops the output and clears what belongs to the type. InterfaceType keeps the selected type on purpose.
void ReportFailure(std::int16_t type);
// True when output may run: the type is open, or it is 4 or 5, which are never opened.
bool InterfaceReady(std::int16_t type);

// Enables AutoXmit, except while a transfer to the play unit runs: its end enables it then.
void EnableOutputClock();

// Waits half a second, letting the user interface run.
void delay();

// The stored interface type, 0 when it is no number or outside 0..5.
std::int16_t StoredInterfaceType();
// OK of the select dialog: makes type the chosen one, active when it was found, and stores it.
void ChooseInterface(std::int16_t type);

// Tries every interface in turn; true when the select dialog is to be shown then. In a second instance
// it tells the user, closes everything and gives false.
bool InitialiseInterfaces();
// The second instance's own part of that: message, menu entries off, ports closed.
void DisableSecondInstance();
void mnuDMXStart_Click(); // ISA cards only: start strobe, clock on
void mnuDMXStop_Click();  // ISA cards only: clock off, stop strobe

} // namespace quorvane
