// A bench with every kind of interface on it: an ISA card in memory at 120h, and driver libraries that
// keep what they are given.
#pragma once

#include "bench/bench.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

class Stage : public Bench {
protected:
    static constexpr int Base = 0x120;
    static constexpr std::int16_t EveryInterface[] = {IsaCardB, IsaCardC, UsbInterface, PcmciaCard, PciCard};

    Stage();

    // Makes type the interface: the card plugged in, the USB interface open.
    void Use(std::int16_t type);
    // The 512 DMX levels that the interface has: the card's memory, or the frame its library got last.
    std::vector<std::uint8_t> Frame() const;
    // Lets the interface hold these levels already.
    void SetFrame(const std::vector<std::uint8_t>& levels);

    // Gives the sequence one more step with all channels at level, and makes it exist.
    void AddStep(int level, int hold, int blend);
    void StartPlaying(int step = 1);
    void Tick(int times = 1);
    // Wall level of element 1, red.
    static int Level() { return Show.ElementValue[1][1]; }

    std::vector<std::uint8_t> Memory; // of the card, by dual-port address
    int StartReads = 0;               // of base+3
    int StartWrites = 0;
    std::vector<int> Written;       // dual-port addresses, in order
    std::vector<std::string> Calls; // of the libraries: "usb 5 0", "usb 4 512", "send 7", "send2 7"

private:
    std::uint8_t ReadCard(std::uint32_t port);
    void WriteCard(std::uint32_t port, std::uint8_t value);

    unsigned address = 0;
    std::vector<std::uint8_t> handedOver;
};

} // namespace quorvane
