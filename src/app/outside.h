// Fills the Host: the system below, the driver libraries of the program folder or what the program
// brings along in their place. Lives as long as the program.
#pragma once

#include "drivers/network_output.h"
#include "drivers/simulated_card.h"
#include "drivers/simulated_memorycard.h"
#include "platform/instancelock.h"
#include "platform/portaccess.h"
#include "platform/punctualcall.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

class Outside {
public:
    // programFolder as the user gave it on the command line, if he did.
    explicit Outside(const std::optional<std::string>& programFolder);
    ~Outside();
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;

    // German messages about drivers and their settings that could not be used, for when a window is there.
    const std::vector<std::string>& Messages() const { return messages; }

private:
    void FillSystem();
    void FillPorts(const OutputSettings& settings);
    void FillUsb(const OutputSettings& settings);
    void FillMemoryCard(const OutputSettings& settings);

    InstanceLock instance;
    PortAccess ports;
    std::optional<SimulatedCard> simulatedCard;
    std::optional<SimulatedMemoryCard> simulatedMemoryCard;
    std::optional<PunctualCall> sending; // of the network's frames
    std::unique_ptr<NetworkOutput> network;
    std::vector<std::string> messages;
};

} // namespace quorvane
