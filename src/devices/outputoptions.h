// The output options: the timing of the DMX line as a user sets it, in microseconds and channels, and its
// way into the card parameter block and back. Only ISA cards receive the block; an interface that fixes a
// value by itself shows a text in its place. The length of one transmission is reckoned from them.
#pragma once

#include "model/table.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

// The fields, in the order in which they are shown.
enum OptionField : int {
    StartSync,
    StartByte,
    IdleTime,
    InterdigitTime,
    SendChannels,
    SendRepeat,
    LengthField
};

struct OutputOptions {
    // Nothing where the interface decides by itself and the field shows "Auto".
    Table<std::optional<std::int32_t>, StartSync, SendRepeat> Fields;
    bool SoftwareRepeat = false;
};

// What the interface type fixes a field to: "Auto", "0" or "512"; empty where the user decides.
std::string_view FixedOption(std::int16_t type, int field);

// Whether the channel count follows the wall: with automatic, and once there is one.
bool WallSetsCount(bool automatic);
// A field's value as the show has it now. The channel count follows the wall with automatic.
std::int32_t StoredOption(int field, bool automatic);
// A field's value by default.
std::int32_t DefaultOption(int field, bool automatic);

// What becomes of a value that somebody typed.
struct OptionCheck {
    std::int32_t Value = 0;
    std::string Message; // empty when there is nothing to tell
};
OptionCheck CheckOption(int field, std::int32_t value);
// True when the field's warning stands beside this value: below the shortest start sync of the standard,
// without idle time.
bool OptionWarning(int field, std::int32_t value);

// True when the options call for other words than those in the block.
bool ChangedConfig(const OutputOptions& options);
// Writes the options into the block, for the card and for the configuration file. A word whose field shows
// "Auto" keeps its value.
void SaveConfig(const OutputOptions& options);
// Takes over whatever is new. False, with a message, while a transfer to the play unit has the block for
// itself.
bool TakeOptions(const OutputOptions& options);

// Reckons how long one transmission takes with these options, into SendLength.
void BerechneSendelänge(const OutputOptions& options);
// SendLength in tenths of a millisecond, rounded.
std::int64_t SendLengthTenths();

} // namespace quorvane
