#include "drivers/artnet_packet.h"

#include <gmock/gmock.h>

#include <vector>

namespace quorvane {
namespace {

using testing::ElementsAre;

std::vector<int> Bytes(const ArtDmxPacket& packet, std::size_t from, std::size_t count) {
    return {packet.begin() + static_cast<std::ptrdiff_t>(from),
            packet.begin() + static_cast<std::ptrdiff_t>(from + count)};
}

TEST(ArtDmxPacketLayout, IsThatOfTheStandard) {
    ArtDmxPacket packet;
    PrepareArtDmxPacket(packet, 0x1234);
    EXPECT_THAT(Bytes(packet, 0, 8), ElementsAre('A', 'r', 't', '-', 'N', 'e', 't', 0));
    EXPECT_THAT(Bytes(packet, 8, 2), ElementsAre(0x00, 0x50)) << "OpDmx, low byte first";
    EXPECT_THAT(Bytes(packet, 10, 2), ElementsAre(0, 14)) << "protocol version";
    EXPECT_THAT(Bytes(packet, 12, 2), ElementsAre(0, 0)) << "sequence, physical port";
    EXPECT_THAT(Bytes(packet, 14, 2), ElementsAre(0x34, 0x12)) << "sub-net and universe, net";
    EXPECT_THAT(Bytes(packet, 16, 2), ElementsAre(0x02, 0x00)) << "length, high byte first";
    EXPECT_THAT(Bytes(packet, 18, 512), testing::Each(0));
    EXPECT_EQ(packet.size(), 530U);
}

TEST(ArtDmxPacketLayout, HighestUniverseFillsAllFifteenBits) {
    ArtDmxPacket packet;
    PrepareArtDmxPacket(packet, ArtNetHighestUniverse);
    EXPECT_THAT(Bytes(packet, 14, 2), ElementsAre(0xFF, 0x7F));
}

TEST(ArtDmxPacketLayout, ChannelNStandsAtByte17PlusN) {
    ArtDmxPacket packet;
    PrepareArtDmxPacket(packet, 0);
    std::vector<std::uint8_t> values(512);
    values[0] = 11;
    values[511] = 22;
    SetArtDmxValues(packet, values);
    StampArtDmxPacket(packet, 99);
    EXPECT_EQ(packet[18], 11);
    EXPECT_EQ(packet[529], 22);
    EXPECT_EQ(packet[12], 99);
}

TEST(ArtDmxPacketLayout, FewerOrMoreThan512ValuesStayWithinThePacket) {
    ArtDmxPacket packet;
    PrepareArtDmxPacket(packet, 0);
    SetArtDmxValues(packet, std::vector<std::uint8_t>(600, 7));
    SetArtDmxValues(packet, std::vector<std::uint8_t>(2, 9));
    EXPECT_THAT(Bytes(packet, 18, 3), ElementsAre(9, 9, 7));
    EXPECT_EQ(packet[529], 7);
}

TEST(ArtDmxSequence, RunsFrom1To255AndNeverTakesThe0ThatSwitchesItOff) {
    EXPECT_EQ(NextArtDmxSequence(0), 1);
    EXPECT_EQ(NextArtDmxSequence(1), 2);
    EXPECT_EQ(NextArtDmxSequence(254), 255);
    EXPECT_EQ(NextArtDmxSequence(255), 1);
}

} // namespace
} // namespace quorvane
