#include "drivers/sacn_packet.h"

#include <algorithm>

namespace quorvane {

namespace {

// Where the fields stand. Every layer opens with its length: the four upper bits are flags, always 7,
// the rest counts from the length field itself to the end of the packet.
constexpr std::size_t Identifier = 4, RootLength = 16, RootVector = 18, SenderCid = 22;
constexpr std::size_t FramingLength = 38, FramingVector = 40, SourceName = 44, Priority = 108;
constexpr std::size_t Sequence = 111, Options = 112, Universe = 113;
constexpr std::size_t DmpLength = 115, DmpVector = 117, AddressType = 118, AddressIncrement = 121;
constexpr std::size_t PropertyCount = 123, FirstValue = 126; // the start code, 0 for levels, stands before
constexpr std::size_t DiscoveryLength = 112, DiscoveryVector = 114, FirstUniverse = 120;

constexpr std::uint8_t StreamTerminated = 0x40;
constexpr std::string_view AcnIdentifier = "ASC-E1.17";

using Bytes = std::span<std::uint8_t>;

void PutWord(Bytes packet, std::size_t at, std::size_t value) {
    packet[at] = static_cast<std::uint8_t>(value >> 8);
    packet[at + 1] = static_cast<std::uint8_t>(value & 0xFF);
}

void PutLength(Bytes packet, std::size_t at) { PutWord(packet, at, 0x7000 | (packet.size() - at)); }

void PutText(Bytes packet, std::size_t at, std::string_view text) {
    std::transform(text.begin(), text.end(), packet.begin() + static_cast<std::ptrdiff_t>(at),
                   [](char c) { return static_cast<std::uint8_t>(c); });
}

// The two layers that all packets open with; the vectors say what follows.
void PutHead(Bytes packet, const Cid& cid, std::string_view sourceName, std::uint8_t rootVector,
             std::uint8_t framingVector) {
    std::fill(packet.begin(), packet.end(), std::uint8_t{0});
    PutWord(packet, 0, 0x0010); // preamble size
    PutText(packet, Identifier, AcnIdentifier);
    PutLength(packet, RootLength);
    packet[RootVector + 3] = rootVector;
    std::copy(cid.begin(), cid.end(), packet.begin() + SenderCid);

    PutLength(packet, FramingLength);
    packet[FramingVector + 3] = framingVector;
    PutText(packet, SourceName, CutText(sourceName, SacnNameLength));
}

} // namespace

std::string_view CutText(std::string_view text, std::size_t length) {
    if (text.size() <= length) return text;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
    return text.substr(0, length);
}

void PrepareSacnPacket(SacnPacket& packet, const Cid& cid, std::string_view sourceName, std::uint8_t priority,
                       std::uint16_t universe) {
    PutHead(packet, cid, sourceName, 4, 2); // a data packet, holding DMP values
    packet[Priority] = priority;
    PutWord(packet, Universe, universe);

    PutLength(packet, DmpLength);
    packet[DmpVector] = 2; // set property
    packet[AddressType] = 0xA1;
    PutWord(packet, AddressIncrement, 1);
    PutWord(packet, PropertyCount, 513); // the start code and 512 channels
}

void PrepareSacnDiscoveryPacket(SacnDiscoveryPacket& packet, const Cid& cid, std::string_view sourceName,
                                std::uint16_t universe) {
    PutHead(packet, cid, sourceName, 8, 2); // an extended packet, universe discovery
    PutLength(packet, DiscoveryLength);
    packet[DiscoveryVector + 3] = 1; // a list of universes; its first and last page are number 0
    PutWord(packet, FirstUniverse, universe);
}

void SetSacnValues(SacnPacket& packet, std::span<const std::uint8_t> values) {
    const auto count = std::min<std::size_t>(values.size(), SacnPacketSize - FirstValue);
    std::copy_n(values.begin(), count, packet.begin() + FirstValue);
}

void StampSacnPacket(SacnPacket& packet, std::uint8_t sequence, bool streamTerminated) {
    packet[Sequence] = sequence;
    packet[Options] = streamTerminated ? StreamTerminated : 0;
}

std::uint32_t SacnMulticastGroup(std::uint16_t universe) { return 0xEFFF0000U | universe; }

} // namespace quorvane
