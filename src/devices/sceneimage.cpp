#include "devices/sceneimage.h"

#include "model/sequence.h"
#include "model/show.h"

#include <algorithm>

namespace quorvane {

namespace {

void PutScene(SceneImage& bytes, int step) {
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (int channel = 1; channel <= 4; ++channel) {
            const int dmxChannel = Show.Patch[element][channel];
            if (dmxChannel < 1 || dmxChannel > DmxChannels) continue;
            const int level = Show.SequenceSteps[step][element][channel];
            const int corrected = level - Show.ColourCorrection[element][channel];
            bytes[dmxChannel - 1] = static_cast<std::uint8_t>(std::max(corrected, 0));
        }
}

void PutTime(SceneImage& bytes, int index, int ticks) {
    bytes[index] = static_cast<std::uint8_t>(ticks / 256);
    bytes[index + 1] = static_cast<std::uint8_t>(ticks & 255);
}

} // namespace

bool IsLastSceneImage(int image) { return image == Show.StepCount + 1; }

bool IsFillImage(int image) { return image > Show.StepCount + 1; }

SceneImage BuildSceneImage(int image) {
    SceneImage bytes;
    if (!IsFillImage(image)) PutScene(bytes, IsLastSceneImage(image) ? 1 : image);
    const bool stored = image <= MaxSteps;
    PutTime(bytes, ImageBlendTime, stored ? BlendOf(image) : 0);
    PutTime(bytes, ImageHoldTime, stored ? HoldOf(image) : 0);
    bytes[ImageMarker - 1] = 0;
    bytes[ImageMarker] = IsFillImage(image) || IsLastSceneImage(image) ? 0 : OrdinaryImage;
    return bytes;
}

} // namespace quorvane
