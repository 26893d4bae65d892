#include "model/patch.h"

#include "model/show.h"

namespace quorvane {

namespace {

template<class T> void Store(T& stored, T value) {
    if (stored == value) return;
    stored = value;
    Show.ChangeFlags.Set(Change::ConfigChanged);
}

} // namespace

bool OutputReaches(int dmxChannel) { return dmxChannel <= Show.ChannelCount && dmxChannel <= DmxChannels; }

int ElementOnSameChannel(int element, int channel) {
    const int dmxChannel = Show.Patch[element][channel];
    for (int other = 1; other <= Show.ElementCount; ++other)
        for (int itsChannel = 1; itsChannel <= 4; ++itsChannel) {
            const bool itself = other == element && itsChannel == channel;
            if (!itself && Show.Patch[other][itsChannel] == dmxChannel) return other;
        }
    return 0;
}

void SetPatch(int element, int channel, std::int16_t dmxChannel) {
    Store(Show.Patch[element][channel], dmxChannel);
}

void SetCorrection(int element, int channel, std::uint8_t correction) {
    Store(Show.ColourCorrection[element][channel], correction);
}

} // namespace quorvane
