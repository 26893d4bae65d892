// The patch and the colour correction as they are changed by hand, one element at a time.
#pragma once

#include <cstdint>

namespace quorvane {

// True when the output is set to so many DMX channels, and a line can have them.
bool OutputReaches(int dmxChannel);

// The element of the first entry of the patch, by element and then by channel, that has the DMX channel of
// this one; 0 when no other has it. It is the element itself when two of its colours share a channel.
int ElementOnSameChannel(int element, int channel);

// Both mark the configuration as changed when the value is another than before.
void SetPatch(int element, int channel, std::int16_t dmxChannel);
void SetCorrection(int element, int channel, std::uint8_t correction);

} // namespace quorvane
