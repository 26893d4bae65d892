#include "limits.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <charconv>
#include <cmath>
#include <stdexcept>

namespace quorvane {

namespace {

constexpr int BlendTicks = 50;

sockaddr_in Loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

void Require(bool success, const char* what) {
    if (!success) throw std::runtime_error(what);
}

int OpenUdpSocket() {
    const int handle = ::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK, 0);
    Require(handle >= 0, "no socket");
    const sockaddr_in address = Loopback(0);
    Require(::bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0, "no port");
    return handle;
}

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

} // namespace

Receiver::Receiver() : socket(OpenUdpSocket()) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    Require(::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) == 0, "no port");
    port = ntohs(address.sin_port);
}

Receiver::~Receiver() { ::close(socket); }

void Receiver::Drain() {
    std::array<char, 2048> packet;
    while (::recv(socket, packet.data(), packet.size(), 0) >= 0) {
    }
}

BareTick::BareTick(std::uint16_t port) : receiver(port), socket(OpenUdpSocket()) {
    for (std::size_t i = 0; i < Channels; ++i) {
        level[i] = static_cast<std::uint8_t>(i * 7);
        value[i] = level[i];
        increment[i] = (static_cast<float>(i * 13 % 256) - value[i]) / BlendTicks;
        correction[i] = static_cast<std::uint8_t>(i % 24);
        place[i] = PacketHead + (i / 4 * 4 + 480 - i / 4 * 8 % 484) % 484 + i % 4;
    }
}

BareTick::~BareTick() { ::close(socket); }

void BareTick::Tick() {
    for (std::size_t i = 0; i < Channels; ++i) {
        value[i] += increment[i];
        const auto rounded = static_cast<int>(std::lrintf(value[i]));
        level[i] = static_cast<std::uint8_t>(rounded);
        const int corrected = rounded - correction[i];
        packet[place[i]] = static_cast<std::uint8_t>(corrected < 0 ? 0 : corrected);
    }
    if (++ticks % BlendTicks == 0) // back again, so that the levels stay in 0..255
        for (float& each : increment) each = -each;
    const sockaddr_in address = Loopback(receiver);
    static_cast<void>(::sendto(socket, packet.data(), packet.size(), 0,
                               reinterpret_cast<const sockaddr*>(&address), sizeof address));
}

std::string BareFormat(const Lists& lists) {
    std::size_t numbers = 0;
    for (const auto& list : lists) numbers += list.size();
    std::string text;
    text.reserve(numbers * 7);
    std::array<char, 12> digits;
    for (const auto& list : lists) {
        for (const int number : list) {
            const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
            text += ' ';
            text.append(digits.data(), end);
            text += ',';
        }
        text.back() = '\n';
    }
    return text;
}

void BareWrite(const std::string& path, const std::string& text) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    Require(file >= 0, "cannot write");
    const bool written = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    const bool flushed = ::fsync(file) == 0;
    ::close(file);
    Require(written && flushed, "cannot write");
}

std::vector<int> BareReadAndParse(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY);
    Require(file >= 0, "cannot read");
    std::string text(static_cast<std::size_t>(::lseek(file, 0, SEEK_END)), '\0');
    const bool whole = ::pread(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
    ::close(file);
    Require(whole, "cannot read");
    std::vector<int> numbers;
    numbers.reserve(text.size() / 3);
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at < end; ++at)
        if (IsDigit(*at)) at = std::from_chars(at, end, numbers.emplace_back()).ptr;
    return numbers;
}

} // namespace quorvane
