// A bench with I/O ports: simulated cards in the port space, every access recorded in its order.
#pragma once

#include "bench/bench.h"
#include "drivers/simulated_card.h"

#include <tuple>
#include <vector>

namespace quorvane {

// 'r' or 'w', the port, and the byte written (0 for a read).
using PortAccess = std::tuple<char, int, int>;

class PortBench : public Bench {
protected:
    PortBench() {
        Host.DlPortReadPortUchar = [this](std::uint32_t port) {
            Trace.emplace_back('r', static_cast<int>(port), 0);
            return Bus.ReadPort(port);
        };
        Host.DlPortWritePortUchar = [this](std::uint32_t port, std::uint8_t value) {
            Trace.emplace_back('w', static_cast<int>(port), value);
            Bus.WritePort(port, value);
        };
        Show.CaptionPrefix = "Windows XP"; // seen behind every status text
    }

    // A card in the port space. Valid until the next one is plugged in.
    SimulatedCard& PlugIn(CardModel model, std::uint32_t base = 0x140, CardFault fault = CardFault::None) {
        SimulatedCard card;
        card.Model = model;
        card.Base = base;
        card.Fault = fault;
        Bus.Cards.push_back(card);
        return Bus.Cards.back();
    }

    // The three operating systems, short and each with its own bytes.
    void WriteFirmware() {
        Write("QRADMX12.BIN", "first");
        Write("QRTDMX16.BIN", "second one");
        Write("QRTDMX17.BIN", "system C");
    }

    // The main window's captions so far, each without the system's name behind it.
    std::vector<std::string> Captions() const {
        const std::string systemName = "Windows XP";
        std::vector<std::string> texts;
        for (const std::string& text : Texts("caption")) {
            EXPECT_TRUE(text.ends_with(systemName)) << text;
            texts.push_back(text.substr(0, text.size() - systemName.size()));
        }
        return texts;
    }

    int Accesses(char kind, int port) const {
        int count = 0;
        for (const auto& [k, p, value] : Trace) count += k == kind && p == port;
        return count;
    }

    SimulatedBus Bus;
    std::vector<PortAccess> Trace;
};

// The texts of the lifecycle, whole.
inline const std::string Searching = ": KMO DMX QUORVANE: ..... searching interface ...";
inline const std::string Closed = ":  KMO DMX QUORVANE";
inline const std::string Failed = ": KMO DMX QUORVANE:  Interface Initialization failed";

} // namespace quorvane
