// A bench with the memory card adapter: a simulated card behind the library's three calls, every access
// counted, and the waits between a written byte and its reading back.
#pragma once

#include "bench/bench.h"
#include "devices/memorycard.h"
#include "drivers/simulated_memorycard.h"

#include <algorithm>
#include <functional>
#include <tuple>
#include <vector>

namespace quorvane {

class MemoryCardBench : public Bench {
protected:
    // 'a' address or control port, 'd' data written, 'r' read; the port; the byte written (0 for a read).
    using CardAccess = std::tuple<char, int, int>;

    MemoryCardBench() {
        Show.MemCardBase = MemCardPorts;
        Host.vbWRAMC = [this](std::int32_t port, std::int32_t value) {
            Access('a', port, value);
            Card.WritePort(port, value);
        };
        Host.vbWDRAMC = [this](std::int32_t port, std::int32_t value) {
            Access('d', port, value);
            written = Now;
            Card.WriteData(port, value);
        };
        Host.vbRRAMC = [this](std::int32_t port) {
            Access('r', port, 0);
            if (written) Waits.push_back(Now - *written);
            written.reset();
            return Card.ReadPort(port);
        };
    }

    // A card with other bytes in its cells than a fresh one.
    void PlugIn(std::size_t size) {
        Card.Memory.resize(size);
        for (std::size_t cell = 0; cell < size; ++cell)
            Card.Memory[cell] = static_cast<std::uint8_t>(cell * 7 + cell / 256 + 3);
    }

    // The card's bytes from its first one on.
    std::vector<std::uint8_t> Bytes(std::size_t count) const {
        return {Card.Memory.begin(), Card.Memory.begin() + static_cast<std::ptrdiff_t>(count)};
    }

    SimulatedMemoryCard Card;
    bool Tracing = false;
    std::vector<CardAccess> Trace; // while Tracing
    std::vector<double> Waits;     // seconds, one for each written byte that was read back
    double AccessTime = 0;         // seconds that the clock moves on with each access

private:
    void Access(char kind, std::int32_t port, std::int32_t value) {
        Now += AccessTime;
        if (Tracing) Trace.emplace_back(kind, port, value);
    }

    std::optional<double> written; // when the last byte was written
};

} // namespace quorvane
