#include "model/sequence.h"

#include "model/colour.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"

#include <algorithm>

namespace quorvane {

int HoldOf(int step) { return static_cast<std::uint16_t>(Show.SequenceTimes[step][HoldTime]); }

int BlendOf(int step) { return static_cast<std::uint16_t>(Show.SequenceTimes[step][BlendTime]); }

void SetHold(int step, int ticks) { Show.SequenceTimes[step][HoldTime] = static_cast<std::int16_t>(ticks); }

void SetBlend(int step, int ticks) { Show.SequenceTimes[step][BlendTime] = static_cast<std::int16_t>(ticks); }

int TurboHoldOf(int step) {
    const int hold = HoldOf(step);
    return Show.TurboFactor == 1 ? hold : std::max(1, hold / Show.TurboFactor);
}

int TurboBlendOf(int step) {
    const int blend = BlendOf(step);
    return std::max(std::min(ShortestBlend, blend), blend / Show.TurboFactor);
}

void ShowSequencerField(int field, std::string_view text) {
    Show.SequencerField[field] = text;
    Screen.SequencerField(field, Show.SequencerField[field]);
}

void ShowStepFields() {
    ShowSequencerField(0, TickText{} << Show.CurrentStep);
    ShowSequencerField(1, TickText{} << BlendOf(Show.CurrentStep));
    ShowSequencerField(2, TickText{} << HoldOf(Show.CurrentStep));
}

void CopyStepToWall() {
    const auto& scene = Show.SequenceSteps[Show.CurrentStep];
    for (int element = 1; element <= Show.ElementCount; ++element) {
        Show.ElementValue[element] = scene[element];
        ShowWallColour(element - 1);
    }
}

} // namespace quorvane
