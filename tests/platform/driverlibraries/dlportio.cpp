// Ports that keep what was written to them.
#include "driverlibrary.h"

static std::uint8_t ports[0x400];

ENTRY std::uint8_t DlPortReadPortUchar(std::uint32_t port) { return ports[port % 0x400]; }

#ifndef LACKS_ENTRY
ENTRY void DlPortWritePortUchar(std::uint32_t port, std::uint8_t value) { ports[port % 0x400] = value; }
#endif
