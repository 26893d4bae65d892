// The bare limits that the benchmarks are put beside: the same work with nothing around it. No checks, no
// show, no driver; what is left is arithmetic, the system call and the disk.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

// A socket on loopback that takes packets and throws them away, so that a send never meets a closed port.
class Receiver {
public:
    Receiver();
    ~Receiver();
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    std::uint16_t Port() const { return port; }
    void Drain(); // takes what has come

private:
    int socket = -1;
    std::uint16_t port = 0;
};

// One tick of a cross-fade on 121 elements: every channel on by its increment, rounded, corrected and put
// into the packet, and the packet sent.
class BareTick {
public:
    explicit BareTick(std::uint16_t port);
    ~BareTick();
    BareTick(const BareTick&) = delete;
    BareTick& operator=(const BareTick&) = delete;

    void Tick();

private:
    static constexpr std::size_t Channels = 484;
    static constexpr std::size_t PacketHead = 126; // of an sACN packet; its levels follow
    std::array<float, Channels> value{};
    std::array<float, Channels> increment{};
    std::array<std::uint8_t, Channels> level{};
    std::array<std::uint8_t, Channels> correction{};
    std::array<std::size_t, Channels> place{};
    std::array<std::uint8_t, PacketHead + 512> packet{};
    int ticks = 0;
    std::uint16_t receiver = 0;
    int socket = -1;
};

// The lists of a sequence file: levels, times, selection flags.
using Lists = std::array<std::vector<int>, 3>;

// The lists as text, a blank before and a comma after each number.
std::string BareFormat(const Lists& lists);
// Writes the text to a new file and waits until the disk has it.
void BareWrite(const std::string& path, const std::string& text);
// Reads the whole file and gives every number in it.
std::vector<int> BareReadAndParse(const std::string& path);

} // namespace quorvane
