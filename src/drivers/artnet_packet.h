// The ArtDmx packet of Art-Net 4: one universe of 512 DMX values, ready for the wire. The head is written
// once, each frame then only changes the sequence number and the values, in place.
// Art-Net(TM) Designed by and Copyright Artistic Licence Engineering Ltd.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvane {

inline constexpr std::uint16_t ArtNetPort = 6454;
// The 15 bits of net, sub-net and universe, read as one number counting from 0.
inline constexpr std::uint16_t ArtNetHighestUniverse = 32767;
inline constexpr std::size_t ArtDmxPacketSize = 530;

using ArtDmxPacket = std::array<std::uint8_t, ArtDmxPacketSize>;

// Writes everything that stays the same from frame to frame; all values are 0 then.
void PrepareArtDmxPacket(ArtDmxPacket& packet, std::uint16_t universe);

// The values of channels 1 to values.size(); channels beyond keep what they had.
void SetArtDmxValues(ArtDmxPacket& packet, std::span<const std::uint8_t> values);

void StampArtDmxPacket(ArtDmxPacket& packet, std::uint8_t sequence);

// The sequence number after this one. It runs from 1 to 255; 0 would tell receivers not to look at it.
std::uint8_t NextArtDmxSequence(std::uint8_t sequence);

} // namespace quorvane
