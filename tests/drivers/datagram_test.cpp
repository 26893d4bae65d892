#include "drivers/datagram.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#ifdef _WIN32
#include <winsock2.h>
#else
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace quorvane {

namespace {

constexpr std::uint32_t Loopback = 0x7F000001;

// A UDP socket of the system at some port of this machine.
class Socket {
public:
    Socket() {
#ifdef _WIN32
        WSADATA library;
        EXPECT_EQ(WSAStartup(MAKEWORD(2, 2), &library), 0);
        handle = static_cast<std::intptr_t>(socket(AF_INET, SOCK_DGRAM, 0));
        constexpr DWORD patience = 5000; // ms
        setsockopt(Native(), SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&patience),
                   sizeof patience);
#else
        handle = socket(AF_INET, SOCK_DGRAM, 0);
        constexpr timeval patience{5, 0};
        setsockopt(Native(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
#endif
        sockaddr_in own{};
        own.sin_family = AF_INET;
        own.sin_addr.s_addr = htonl(Loopback);
        EXPECT_EQ(bind(Native(), reinterpret_cast<const sockaddr*>(&own), sizeof own), 0);
        SocketSize size = sizeof own;
        EXPECT_EQ(getsockname(Native(), reinterpret_cast<sockaddr*>(&own), &size), 0);
        port = ntohs(own.sin_port);
    }
    ~Socket() {
#ifdef _WIN32
        closesocket(Native());
        WSACleanup();
#else
        close(Native());
#endif
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    std::intptr_t Handle() const { return handle; }
    std::uint16_t Port() const { return port; }

    std::vector<std::uint8_t> Receive() const {
        std::array<char, 1000> buffer{};
        const auto length = recv(Native(), buffer.data(), buffer.size(), 0);
        return {buffer.begin(), buffer.begin() + (length < 0 ? 0 : length)};
    }

private:
#ifdef _WIN32
    using SocketSize = int;
    SOCKET Native() const { return static_cast<SOCKET>(handle); }
#else
    using SocketSize = socklen_t;
    int Native() const { return static_cast<int>(handle); }
#endif
    std::intptr_t handle = -1;
    std::uint16_t port = 0;
};

const std::vector<std::uint8_t> Packet = {1, 0, 255, 128, 7};

TEST(Datagram, ArrivesAsItWasSent) {
    const Socket sender, receiver;
    EXPECT_EQ(SendDatagram(sender.Handle(), Packet, Loopback, receiver.Port()), Sent::Yes);
    EXPECT_EQ(receiver.Receive(), Packet);
}

TEST(Datagram, SocketThatIsNoneSendsNothing) {
    const Socket receiver;
    EXPECT_EQ(SendDatagram(-1, Packet, Loopback, receiver.Port()), Sent::No);
}

TEST(Datagram, PacketThatIsTooLargeForOneIsNotSent) {
    const Socket sender, receiver;
    EXPECT_EQ(SendDatagram(sender.Handle(), std::vector<std::uint8_t>(100'000), Loopback, receiver.Port()),
              Sent::No);
}

} // namespace

} // namespace quorvane
