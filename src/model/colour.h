// Four-channel colours: how they look on a screen, and what can be done with the colour being mixed.
// A colour is red, green, blue and white, 0..255 each; white lifts the other three alike.
#pragma once

#include "model/screen.h"
#include "model/table.h"

#include <cstdint>
#include <string_view>

namespace quorvane {

// What a colour looks like: each primary with white added, at most 255. Colour correction is not shown.
ScreenColour Colormix(const PerChannel<std::uint8_t>& colour);
// The same as one number: red + 256 green + 65536 blue.
std::uint32_t ScreenColourNumber(ScreenColour colour);
ScreenColour SplitScreenColour(std::uint32_t number);

// Repaints the wall element at index (element - 1) from its levels, without asking whether it is
// selected. Throws std::out_of_range outside 0..254.
void ShowWallColour(int index);

// Copies the colour of the lowest selected element into CurrentColour; nothing without a selection.
void FetchColourFromSelection();
// Marks the scene changed and gives every selected element the CurrentColour.
void ApplyColourToSelection();
// Copies CurrentColour into user colour number (1..20) and marks the colour table changed.
void StoreUserColour(int number);
// Gives user colour number (1..20) a name of 20 characters and marks the colour table changed if that is
// another; an empty name is ignored. A comma or line break in it becomes a blank: the file could not hold it.
void RenameUserColour(int number, std::string_view name);

// Level as the sliders take it: with the minimum rule for lamps that must not be driven at 0, 0 becomes 1.
std::uint8_t SliderLevel(std::uint8_t level, bool minimumRule);

} // namespace quorvane
