// Reads a memory card as the play unit does: 512-byte images from the first byte on, up to the last scene
// image. It knows the layout of an image and the wall's patch, and nothing of how a card is written.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace quorvane {

struct CardStep {
    std::vector<std::array<std::uint8_t, 4>> Levels; // of each element, as the lamps get them
    int Hold = 0;                                    // ticks
    int Blend = 0;                                   // ticks
    bool operator==(const CardStep&) const = default;
};

struct CardContents {
    std::vector<CardStep> Steps;
    CardStep Last;            // the last scene image
    bool HasLast = false;     // the card ends with a scene when it is full
    std::size_t DarkFill = 0; // images behind, without any level or marker
    std::size_t OtherFill = 0;
};

// DMX channels of each element, 1 to 512; 0 for a channel that is on none.
using CardPatch = std::vector<std::array<int, 4>>;

CardContents ReadCard(const std::vector<std::uint8_t>& card, const CardPatch& patch);

} // namespace quorvane
