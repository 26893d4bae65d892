// The 512-byte image of one step of the sequence, as the play unit records it over DMX and the memory
// card holds it: byte i is DMX channel i + 1. The last six channels carry the step's times and a marker,
// also when an element is patched there.
#pragma once

#include "model/table.h"

#include <cstdint>

namespace quorvane {

constexpr int ImageBytes = 512;
using SceneImage = Table<std::uint8_t, 0, ImageBytes - 1>;

// The step data, high byte first.
constexpr int ImageBlendTime = 506;
constexpr int ImageHoldTime = 508;
constexpr int ImageMarker = 511;
constexpr std::uint8_t OrdinaryImage = 128; // at ImageMarker; the last scene image and fill images have 0

// Images 1..StepCount are scenes, StepCount + 1 is the last scene image, all behind it are fill images.
bool IsLastSceneImage(int image);
bool IsFillImage(int image);

// The image of that number, 1 and up. The last scene image shows step 1 again, on purpose; fill images
// are dark. Each carries the stored times of its own number, 0 beyond the 255 steps there can be. An
// element channel patched to no DMX channel 1..512 is left out; where two share one, the later wins.
SceneImage BuildSceneImage(int image);

} // namespace quorvane
