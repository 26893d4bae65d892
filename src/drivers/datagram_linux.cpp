#include "drivers/datagram.h"

#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>

namespace quorvane {

Sent SendDatagram(std::intptr_t socket, std::span<const std::uint8_t> packet, std::uint32_t address,
                  std::uint16_t port) {
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(port);
    to.sin_addr.s_addr = htonl(address);
    if (sendto(static_cast<int>(socket), packet.data(), packet.size(), 0,
               reinterpret_cast<const sockaddr*>(&to), sizeof to) >= 0)
        return Sent::Yes;
    return errno == EAGAIN || errno == EINTR ? Sent::Busy : Sent::No;
}

} // namespace quorvane
