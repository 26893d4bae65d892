// A wall as it is made by hand, in place of the present one.
#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

constexpr int MaxHandmadeElements = 121;

struct WallMeasures {
    std::string_view Name;
    std::int32_t Columns = 0;
    std::int32_t Rows = 0;
    std::int32_t AreaWidth = 0;
    std::int32_t AreaHeight = 0;
    std::int32_t Size = 0; // per cent
};

// The elements of such a wall; a number that no wall can have counts as too many.
std::int64_t ElementsOf(const WallMeasures& wall);

// Replaces the wall and saves the settings. Nothing is asked about unsaved work, on purpose. While a sequence
// exists, the scene on a wall of another shape keeps its columns and rows; the sequence itself stays as it
// is, and when it plays, a blend in progress goes on from that scene.
void ReplaceWall(const WallMeasures& wall);

} // namespace quorvane
