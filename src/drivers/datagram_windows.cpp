#include "drivers/datagram.h"

#include <winsock2.h>

namespace quorvane {

Sent SendDatagram(std::intptr_t socket, std::span<const std::uint8_t> packet, std::uint32_t address,
                  std::uint16_t port) {
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(port);
    to.sin_addr.s_addr = htonl(address);
    if (sendto(static_cast<SOCKET>(socket), reinterpret_cast<const char*>(packet.data()),
               static_cast<int>(packet.size()), 0, reinterpret_cast<const sockaddr*>(&to),
               sizeof to) != SOCKET_ERROR)
        return Sent::Yes;
    return WSAGetLastError() == WSAEWOULDBLOCK ? Sent::Busy : Sent::No;
}

} // namespace quorvane
