// Byte-wide I/O ports of the machine itself, for the ISA cards. Only those ports are touched at which a
// DMX card or the memory card adapter can stand. A machine that has no such ports, or gives the program
// no right to them, behaves like one with an empty slot: it reads 255, and what is written is lost.
// Windows gives no program this right; there the library dlportio does the work.
#pragma once

#include <cstdint>

namespace quorvane {

// The ISA cards and, with the last four, the adapter.
constexpr std::uint32_t FirstCardPort = 0x100;
constexpr std::uint32_t LastCardPort = 0x163;
constexpr std::uint32_t FirstAdapterPort = 0x200;
constexpr std::uint32_t LastAdapterPort = 0x203;

constexpr bool IsDmxPort(std::uint32_t port) {
    return (port >= FirstCardPort && port <= LastCardPort) ||
           (port >= FirstAdapterPort && port <= LastAdapterPort);
}

// The rights are asked for at the first access, so that a program that looks for no ISA card never does.
class PortAccess {
public:
    std::uint8_t Read(std::uint32_t port);
    void Write(std::uint32_t port, std::uint8_t value);
    // True once the system was asked and gave no access.
    bool Refused() const { return rights == Rights::Refused; }

private:
    enum class Rights { NotAsked, Granted, Refused };

    bool MayTouch(std::uint32_t port);

    Rights rights = Rights::NotAsked;
};

} // namespace quorvane
