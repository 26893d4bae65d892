// Packets of streaming ACN (ANSI E1.31), ready for the wire, big-endian throughout. The data packet holds
// one universe of 512 DMX values: its head is written once, each frame then only changes the sequence
// number, the options and the values, in place. The discovery packet tells now and then which universe
// this sender serves.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quorvane {

inline constexpr std::uint16_t SacnPort = 5568;
inline constexpr std::uint16_t SacnLowestUniverse = 1;
inline constexpr std::uint16_t SacnHighestUniverse = 63999;
inline constexpr std::uint8_t SacnHighestPriority = 200;

// Bytes of the source name, without the zero that always ends it.
inline constexpr std::size_t SacnNameLength = 63;
inline constexpr std::size_t SacnPacketSize = 638;

// The component identifier: which sender this is. It never changes on one machine, so that a receiver
// knows the sender again after a restart.
using Cid = std::array<std::uint8_t, 16>;
using SacnPacket = std::array<std::uint8_t, SacnPacketSize>;
using SacnDiscoveryPacket = std::array<std::uint8_t, 122>;

// Writes everything that stays the same from frame to frame; all values are 0 then. A name longer than
// the field is cut between two characters (UTF-8).
void PrepareSacnPacket(SacnPacket& packet, const Cid& cid, std::string_view sourceName, std::uint8_t priority,
                       std::uint16_t universe);

// The values of channels 1 to values.size(); channels beyond keep what they had.
void SetSacnValues(SacnPacket& packet, std::span<const std::uint8_t> values);

// What tells this packet from the one before it. A terminated stream means to receivers that nothing
// follows: they let go of the universe at once, instead of after their time-out of 2.5 seconds.
void StampSacnPacket(SacnPacket& packet, std::uint8_t sequence, bool streamTerminated);

// Announces a sender that serves this one universe.
void PrepareSacnDiscoveryPacket(SacnDiscoveryPacket& packet, const Cid& cid, std::string_view sourceName,
                                std::uint16_t universe);

// The universe in whose multicast group senders are announced.
inline constexpr std::uint16_t SacnDiscoveryUniverse = 64214;

// The multicast group of a universe: 239.255.high.low.
std::uint32_t SacnMulticastGroup(std::uint16_t universe);

// text cut to at most length bytes, never within a character (UTF-8).
std::string_view CutText(std::string_view text, std::size_t length);

} // namespace quorvane
