// One datagram, sent through a socket that somebody else opened, on whichever thread. A socket of the event
// loop's library belongs to the thread that made it; the system's own does not.
#pragma once

#include <cstdint>
#include <span>

namespace quorvane {

enum class Sent {
    Yes,
    Busy, // the system's queue is full; the next one may pass
    No
};

// socket: the descriptor (Linux) or SOCKET (Windows) of an IPv4 UDP socket that does not block. address and
// port in the order of this machine's bytes.
Sent SendDatagram(std::intptr_t socket, std::span<const std::uint8_t> packet, std::uint32_t address,
                  std::uint16_t port);

} // namespace quorvane
