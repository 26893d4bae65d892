#include "platform/portaccess.h"

namespace quorvane {

bool PortAccess::MayTouch(std::uint32_t) { return false; }

std::uint8_t PortAccess::Read(std::uint32_t) { return 255; }

void PortAccess::Write(std::uint32_t, std::uint8_t) {}

} // namespace quorvane
