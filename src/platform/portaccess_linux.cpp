#include "platform/portaccess.h"

#if defined(__x86_64__) || defined(__i386__)
#include <sys/io.h>
#endif

namespace quorvane {

#if defined(__x86_64__) || defined(__i386__)

namespace {

bool AskForRange(std::uint32_t first, std::uint32_t last) { return ioperm(first, last - first + 1, 1) == 0; }

} // namespace

bool PortAccess::MayTouch(std::uint32_t port) {
    if (!IsDmxPort(port)) return false;
    if (rights == Rights::NotAsked) {
        const bool granted =
            AskForRange(FirstCardPort, LastCardPort) && AskForRange(FirstAdapterPort, LastAdapterPort);
        rights = granted ? Rights::Granted : Rights::Refused;
    }
    return rights == Rights::Granted;
}

std::uint8_t PortAccess::Read(std::uint32_t port) {
    return MayTouch(port) ? inb(static_cast<unsigned short>(port)) : std::uint8_t{255};
}

void PortAccess::Write(std::uint32_t port, std::uint8_t value) {
    if (MayTouch(port)) outb(value, static_cast<unsigned short>(port));
}

#else

bool PortAccess::MayTouch(std::uint32_t) {
    rights = Rights::Refused;
    return false;
}

std::uint8_t PortAccess::Read(std::uint32_t port) {
    MayTouch(port);
    return 255;
}

void PortAccess::Write(std::uint32_t port, std::uint8_t) { MayTouch(port); }

#endif

} // namespace quorvane
