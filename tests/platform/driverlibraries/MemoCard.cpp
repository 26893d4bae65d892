// Gives back the sum of what was last written through each of its two ways.
#include "driverlibrary.h"

static std::int32_t byAddress;
static std::int32_t byData;

ENTRY void vbWRAMC(std::int32_t port, std::int32_t value) { byAddress = 10 * port + value; }

ENTRY std::int32_t vbRRAMC(std::int32_t port) { return byAddress + byData + port; }

#ifndef LACKS_ENTRY
ENTRY void vbWDRAMC(std::int32_t port, std::int32_t value) { byData = 1000 * port + value; }
#endif
