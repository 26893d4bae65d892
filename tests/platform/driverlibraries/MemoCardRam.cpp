// An adapter at 200h with a card of 1 MB in it.
#include "driverlibrary.h"

#include <cstddef>

static unsigned char memory[1048576];
static std::size_t address;

ENTRY void vbWRAMC(std::int32_t port, std::int32_t value) {
    const int shift = 8 * (port - 0x201);
    if (shift < 0 || shift > 16) return;
    address = (address & ~(std::size_t{0xFF} << shift)) | (static_cast<std::size_t>(value & 0xFF) << shift);
}

ENTRY std::int32_t vbRRAMC(std::int32_t port) {
    return port == 0x200 ? memory[address % sizeof memory] : 255;
}

ENTRY void vbWDRAMC(std::int32_t port, std::int32_t value) {
    if (port == 0x200) memory[address % sizeof memory] = static_cast<unsigned char>(value);
}
