#include "drivers/artnet_packet.h"

#include <algorithm>
#include <string_view>

namespace quorvane {

namespace {

constexpr std::size_t OpCode = 8, ProtocolVersion = 10, Sequence = 12, SubUniverse = 14, Net = 15;
constexpr std::size_t DataLength = 16, FirstValue = 18;

} // namespace

void PrepareArtDmxPacket(ArtDmxPacket& packet, std::uint16_t universe) {
    constexpr std::string_view identifier = "Art-Net"; // the zero behind it belongs to it
    packet.fill(0);
    std::transform(identifier.begin(), identifier.end(), packet.begin(),
                   [](char c) { return static_cast<std::uint8_t>(c); });
    packet[OpCode + 1] = 0x50; // 5000h, the low byte first, unlike the rest
    packet[ProtocolVersion + 1] = 14;
    packet[SubUniverse] = static_cast<std::uint8_t>(universe & 0xFF);
    packet[Net] = static_cast<std::uint8_t>((universe >> 8) & 0x7F);
    packet[DataLength] = 2; // 512, the high byte first
}

void SetArtDmxValues(ArtDmxPacket& packet, std::span<const std::uint8_t> values) {
    const auto count = std::min<std::size_t>(values.size(), ArtDmxPacketSize - FirstValue);
    std::copy_n(values.begin(), count, packet.begin() + FirstValue);
}

void StampArtDmxPacket(ArtDmxPacket& packet, std::uint8_t sequence) { packet[Sequence] = sequence; }

std::uint8_t NextArtDmxSequence(std::uint8_t sequence) {
    return sequence == 255 ? std::uint8_t{1} : static_cast<std::uint8_t>(sequence + 1);
}

} // namespace quorvane
