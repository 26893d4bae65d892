#include "drivers/sacn_packet.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace quorvane {
namespace {

using testing::ElementsAreArray;

class SacnPacketLayout : public testing::Test {
protected:
    SacnPacketLayout() { PrepareSacnPacket(packet, cid, "Bühne", 117, 0x1234); }

    std::vector<int> Bytes(std::size_t from, std::size_t count) const {
        return {packet.begin() + static_cast<std::ptrdiff_t>(from),
                packet.begin() + static_cast<std::ptrdiff_t>(from + count)};
    }

    Cid cid = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    SacnPacket packet;
};

// Byte by byte as the tables of the standard list them; the name and the values have tests of their own.
TEST_F(SacnPacketLayout, HasTheThreeLayersOfTheStandard) {
    struct Field {
        const char* Name;
        std::size_t At;
        std::vector<int> Bytes;
    };
    const Field fields[] = {
        {"preamble size", 0, {0x00, 0x10}},
        {"postamble size", 2, {0x00, 0x00}},
        {"packet identifier", 4, {0x41, 0x53, 0x43, 0x2D, 0x45, 0x31, 0x2E, 0x31, 0x37, 0x00, 0x00, 0x00}},
        {"root flags and length", 16, {0x72, 0x6E}},
        {"root vector", 18, {0x00, 0x00, 0x00, 0x04}},
        {"CID", 22, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}},
        {"framing flags and length", 38, {0x72, 0x58}},
        {"framing vector", 40, {0x00, 0x00, 0x00, 0x02}},
        {"priority", 108, {117}},
        {"synchronization address", 109, {0x00, 0x00}},
        {"sequence number", 111, {0x00}},
        {"options", 112, {0x00}},
        {"universe", 113, {0x12, 0x34}},
        {"DMP flags and length", 115, {0x72, 0x0B}},
        {"DMP vector", 117, {0x02}},
        {"address and data type", 118, {0xA1}},
        {"first property address", 119, {0x00, 0x00}},
        {"address increment", 121, {0x00, 0x01}},
        {"property value count", 123, {0x02, 0x01}},
        {"start code", 125, {0x00}},
    };
    for (const Field& field : fields)
        EXPECT_THAT(Bytes(field.At, field.Bytes.size()), ElementsAreArray(field.Bytes)) << field.Name;
    EXPECT_EQ(packet.size(), 638U);
}

TEST_F(SacnPacketLayout, SourceNameIsUtf8AndFilledUpWithZeros) {
    std::vector<int> expected(64, 0);
    const std::string name = "B\xC3\xBChne";
    for (std::size_t index = 0; index < name.size(); ++index)
        expected[index] = static_cast<unsigned char>(name[index]);
    EXPECT_EQ(Bytes(44, 64), expected);
}

TEST_F(SacnPacketLayout, LongSourceNameIsCutBetweenCharactersAndKeepsItsZero) {
    PrepareSacnPacket(packet, cid, std::string(62, 'x') + "üy", 100, 1);
    EXPECT_EQ(packet[44 + 61], 'x');
    EXPECT_EQ(Bytes(44 + 62, 2), (std::vector<int>{0, 0}));

    PrepareSacnPacket(packet, cid, std::string(64, 'x'), 100, 1);
    EXPECT_EQ(Bytes(44 + 62, 2), (std::vector<int>{'x', 0}));
}

TEST_F(SacnPacketLayout, ChannelNStandsAtByte125PlusN) {
    std::vector<std::uint8_t> values(512);
    values[0] = 11;
    values[511] = 22;
    SetSacnValues(packet, values);
    EXPECT_EQ(packet[126], 11);
    EXPECT_EQ(packet[637], 22);
}

TEST_F(SacnPacketLayout, FewerOrMoreThan512ValuesStayWithinThePacket) {
    SetSacnValues(packet, std::vector<std::uint8_t>(512, 7));
    SetSacnValues(packet, std::vector<std::uint8_t>(3, 9));
    EXPECT_EQ(Bytes(126, 4), (std::vector<int>{9, 9, 9, 7}));
    SetSacnValues(packet, std::vector<std::uint8_t>(600, 5));
    EXPECT_EQ(packet[637], 5);
}

TEST_F(SacnPacketLayout, StampChangesSequenceAndTerminationOnly) {
    const SacnPacket before = packet;
    StampSacnPacket(packet, 255, true);
    EXPECT_EQ(packet[111], 255);
    EXPECT_EQ(packet[112], 0x40);
    StampSacnPacket(packet, 0, false);
    EXPECT_EQ(packet, before);
}

TEST(SacnDiscovery, PacketHasTheLayersOfTheStandard) {
    const Cid cid = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    SacnDiscoveryPacket packet;
    PrepareSacnDiscoveryPacket(packet, cid, "Pult", 0x1234);
    std::vector<int> expected = {0x00, 0x10, 0x00, 0x00, 'A', 'S',  'C',  '-',  'E',  '1',  '.',
                                 '1',  '7',  0,    0,    0,   0x70, 0x6A, 0x00, 0x00, 0x00, 0x08};
    for (const std::uint8_t byte : cid) expected.push_back(byte);
    for (const int byte : {0x70, 0x54, 0x00, 0x00, 0x00, 0x02, int{'P'}, int{'u'}, int{'l'}, int{'t'}})
        expected.push_back(byte);
    expected.resize(112); // the rest of the name and four reserved bytes
    for (const int byte : {0x70, 0x0A, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x12, 0x34})
        expected.push_back(byte);
    EXPECT_EQ(std::vector<int>(packet.begin(), packet.end()), expected);
}

TEST(SacnMulticast, GroupHoldsTheUniverseInItsLastTwoBytes) {
    EXPECT_EQ(SacnMulticastGroup(1), 0xEFFF0001U);                     // 239.255.0.1
    EXPECT_EQ(SacnMulticastGroup(63999), 0xEFFFF9FFU);                 // 239.255.249.255
    EXPECT_EQ(SacnMulticastGroup(SacnDiscoveryUniverse), 0xEFFFFAD6U); // 239.255.250.214
}

} // namespace
} // namespace quorvane
