#include "engine/framebuilder.h"

#include "devices/isacard.h"
#include "model/colour.h"
#include "model/sequence.h"
#include "model/show.h"
#include "model/text.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace quorvane {

namespace {

// "Element 12, Grün: ", for the texts of what cannot go on.
std::string Named(int element, int channel) {
    static constexpr std::array<const char*, 4> colours{"Rot", "Grün", "Blau", "Weiß"};
    return "Element " + Decimal(element) + ", " + colours[static_cast<std::size_t>(channel - 1)] + ": ";
}

[[noreturn]] void RefusePatch(int element, int channel, int dmxChannel) {
    throw std::out_of_range(Named(element, channel) + "Der DMX-Kanal " + Decimal(dmxChannel) +
                            " liegt nicht zwischen 1 und 513.");
}

[[noreturn]] void RefuseLevel(int element, int channel, int level) {
    throw std::overflow_error(Named(element, channel) + "Der Wert " + Decimal(level) +
                              " liegt nicht zwischen 0 und 255.");
}

// A frame has one entry more than DMX has channels, so 513 passes on purpose.
int FrameIndex(int element, int channel) {
    const int dmxChannel = Show.Patch[element][channel];
    if (dmxChannel < 1 || dmxChannel > DmxChannels + 1) RefusePatch(element, channel, dmxChannel);
    return dmxChannel - 1;
}

// Takes the correction off the level and stores the rest where the element channel is patched to. Where two
// are, the later one wins, and a channel that none is patched to keeps what it had: both on purpose.
void StoreLevel(int element, int channel, std::uint8_t level) {
    auto OutLevel = static_cast<std::int16_t>(level - Show.ColourCorrection[element][channel]);
    OutLevel = std::max<std::int16_t>(OutLevel, 0);
    switch (Show.InterfaceType) {
    case IsaCardB:
    case IsaCardC: // any patch goes out unchecked on purpose: 0 lands in front of the first channel
        WriteDpr(Show.CardBase, CardDmx - 1 + Show.Patch[element][channel],
                 static_cast<std::uint8_t>(OutLevel));
        break;
    case UsbInterface:
        Show.DmxOutBytes[FrameIndex(element, channel)] = static_cast<std::uint8_t>(OutLevel);
        break;
    case PcmciaCard:
    case PciCard: Show.DmxOut[FrameIndex(element, channel)] = OutLevel; break;
    default: break;
    }
}

// Before the first level of a blend tick moves: once the patch is mended, the fade goes on from where it
// stood.
void CheckPatch() {
    if (Show.InterfaceType < UsbInterface) return;
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (int channel = 1; channel <= 4; ++channel) FrameIndex(element, channel);
}

void BlendChannel(int element, int channel) {
    float& running = Show.BlendValue[element][channel];
    running += Show.BlendIncrement[element][channel];
    const int level = RoundHalfEven(running);
    if (level < 0 || level > 255) RefuseLevel(element, channel, level);
    Show.ElementValue[element][channel] = static_cast<std::uint8_t>(level);
}

} // namespace

// A colour that is changed by hand while the step is held is not what its fade starts from, on purpose.
void BlendeBerechnen() {
    ShowStepFields();
    if (Show.BlendSteps == 0)
        throw std::domain_error("Szene " + Decimal(Show.CurrentStep) +
                                ": In 0 Schritten kann nicht übergeblendet werden.");
    const auto& scene = Show.SequenceSteps[Show.CurrentStep];
    const auto steps = static_cast<float>(Show.BlendSteps);
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (int channel = 1; channel <= 4; ++channel) {
            const float from = Show.ElementValue[element][channel];
            Show.BlendValue[element][channel] = from;
            Show.BlendIncrement[element][channel] = (scene[element][channel] - from) / steps;
        }
}

// For an element that came onto the wall after the transition began nothing is prepared, or something old.
void ContinueBlend() {
    if (!Show.StatusFlags.Has(Status::SequencePlaying) || Show.BlendCounter == 0) return;
    Show.BlendSteps = Show.BlendCounter;
    BlendeBerechnen();
}

void MitKarteHold() {
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (int channel = 1; channel <= 4; ++channel)
            StoreLevel(element, channel, Show.ElementValue[element][channel]);
}

// The corrected levels would go nowhere and nothing else depends on them.
void OhneKarteHold() {}

void MitKarteBlend() {
    CheckPatch();
    for (int element = 1; element <= Show.ElementCount; ++element) {
        for (int channel = 1; channel <= 4; ++channel) {
            BlendChannel(element, channel);
            StoreLevel(element, channel, Show.ElementValue[element][channel]);
        }
        ShowWallColour(element - 1);
    }
}

void OhneKarteBlend() {
    for (int element = 1; element <= Show.ElementCount; ++element) {
        for (int channel = 1; channel <= 4; ++channel) BlendChannel(element, channel);
        ShowWallColour(element - 1);
    }
}

void WriteChannel(int channel, int value) {
    switch (Show.InterfaceType) {
    case IsaCardB:
    case IsaCardC:
        if (Show.CardBase <= LastBaseWithoutCard) return;
        WriteDpr(Show.CardBase, CardDmx + channel - 1, static_cast<std::uint8_t>(value));
        break;
    case UsbInterface: Show.DmxOutBytes[channel - 1] = static_cast<std::uint8_t>(value); break;
    case PcmciaCard:
    case PciCard: Show.DmxOut[channel - 1] = value; break;
    default: break;
    }
}

} // namespace quorvane
