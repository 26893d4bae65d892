#include "platform/portaccess.h"

namespace quorvane {

bool PortAccess::MayTouch(std::uint32_t) {
    rights = Rights::Refused;
    return false;
}

std::uint8_t PortAccess::Read(std::uint32_t port) {
    MayTouch(port);
    return 255;
}

void PortAccess::Write(std::uint32_t port, std::uint8_t) { MayTouch(port); }

} // namespace quorvane
