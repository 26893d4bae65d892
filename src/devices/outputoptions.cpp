#include "devices/outputoptions.h"

#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quorvane {

namespace {

constexpr int ShortestSync = 64;      // microseconds
constexpr int LongestSync = 180;      // microseconds
constexpr int StandardSync = 88;      // microseconds, the least that receivers may expect
constexpr int LongestInterdigit = 44; // microseconds
constexpr int UsualRepeat = 50;       // milliseconds
constexpr int LastUsedWord = 6;

// Word 0 counts in steps of 2 microseconds on all cards.
constexpr float ClockScale = 1.0F;

using OptionWords = Table<std::optional<std::int16_t>, 0, LastUsedWord>;

std::int16_t Word(std::int64_t number) {
    constexpr std::int64_t least = std::numeric_limits<std::int16_t>::min();
    constexpr std::int64_t most = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(number, least, most));
}

std::optional<std::int16_t> Word(std::optional<std::int32_t> number) {
    return number ? std::optional(Word(std::int64_t{*number})) : std::nullopt;
}

// The low byte is that of the count and the high part that of the count less one, on purpose: 512 is 0 and
// 1, 256 is 0 and 0.
OptionWords WordsOf(const OutputOptions& options) {
    const auto& fields = options.Fields;
    OptionWords words;
    if (fields[StartSync])
        words[0] = Word(RoundHalfEven(static_cast<double>(*fields[StartSync]) * ClockScale / 2));
    words[1] = Word(fields[IdleTime]);
    words[2] = Word(fields[StartByte]);
    if (fields[SendChannels]) {
        const std::int64_t channels = *fields[SendChannels];
        words[3] = Word(channels & 255);
        words[4] = Word((channels - 1) / 256);
    }
    words[5] = options.SoftwareRepeat ? std::int16_t{1} : std::int16_t{0};
    words[6] = Word(fields[InterdigitTime]);
    return words;
}

std::int32_t ChannelsOfWall() { return std::min(Show.ElementCount * 4, DmxChannels); }

// The count as SaveConfig splits it. Under the automatic count the wall build has split it otherwise.
std::int32_t StoredChannels(bool automatic) {
    if (WallSetsCount(automatic || Show.StatusFlags.Has(Status::AutoChannelCount))) return ChannelsOfWall();
    const bool neverSet = std::ranges::all_of(Show.DmxIni, [](std::int16_t word) { return word == 0; });
    if (neverSet) return std::min<std::int32_t>(Show.ChannelCount, DmxChannels);
    const int low = Show.DmxIni[3] == 0 ? 256 : Show.DmxIni[3];
    return std::clamp(Show.DmxIni[4] * 256 + low, 0, DmxChannels);
}

OptionCheck CheckChannels(std::int32_t value) {
    OptionCheck check{std::clamp(value, 0, DmxChannels), ""};
    const int needed = Show.ElementCount * 4;
    if (check.Value < needed)
        check.Message = "Es werden für " + Decimal(Show.ElementCount) + " Elemente " + Decimal(needed) +
                        " DMX Kanäle benötigt. Ihre Einstellung unterschreitet die Anzahl benötigter DMX "
                        "Kanäle!";
    return check;
}

OptionCheck CheckRepeat(std::int32_t value) {
    if (value == UsualRepeat) return {value, ""};
    return {std::clamp(value, 30, 1000),
            " Beim Sende repeat sollte der Wert 50 unbedingt beibehalten werden!"};
}

} // namespace

std::string_view FixedOption(std::int16_t type, int field) {
    using Fixed = std::array<std::string_view, 6>;
    static constexpr Fixed cardC{"Auto", "0", "Auto", "", "512", "Auto"};
    static constexpr Fixed library{"Auto", "0", "Auto", "Auto", "512", "Auto"};
    const auto position = static_cast<std::size_t>(field);
    switch (type) {
    case IsaCardC: return cardC.at(position);
    case UsbInterface:
    case PcmciaCard:
    case PciCard: return library.at(position);
    default: return "";
    }
}

bool WallSetsCount(bool automatic) { return automatic && Show.ElementCount > 0; }

std::int32_t StoredOption(int field, bool automatic) {
    switch (field) {
    case StartSync: return static_cast<std::int32_t>(RoundHalfEven(Show.DmxIni[0] * 2.0 / ClockScale));
    case StartByte: return Show.DmxIni[2];
    case IdleTime: return Show.DmxIni[1];
    case InterdigitTime: return Show.DmxIni[6];
    case SendChannels: return StoredChannels(automatic);
    default: return Show.SendRepeatTime;
    }
}

std::int32_t DefaultOption(int field, bool automatic) {
    switch (field) {
    case StartSync: return 120;
    case SendChannels: return WallSetsCount(automatic) ? ChannelsOfWall() : DmxChannels;
    case SendRepeat: return UsualRepeat;
    default: return 0;
    }
}

// The idle time alone may be negative: it is warned of and stays.
OptionCheck CheckOption(int field, std::int32_t value) {
    switch (field) {
    case StartSync: return {std::clamp(value, ShortestSync, LongestSync), ""};
    case StartByte: return {std::clamp(value, 0, 255), ""};
    case IdleTime: return {std::min(value, 255), ""};
    case InterdigitTime: return {std::clamp(value, 0, LongestInterdigit), ""};
    case SendChannels: return CheckChannels(value);
    default: return CheckRepeat(value);
    }
}

bool OptionWarning(int field, std::int32_t value) {
    if (field == StartSync) return value < StandardSync;
    return field == IdleTime && value <= 0;
}

bool ChangedConfig(const OutputOptions& options) {
    const OptionWords words = WordsOf(options);
    for (int word = 0; word <= LastUsedWord; ++word)
        if (words[word] && *words[word] != Show.DmxIni[word]) return true;
    return false;
}

void SaveConfig(const OutputOptions& options) {
    const auto before = Show.DmxIni;
    const OptionWords words = WordsOf(options);
    for (int word = 0; word <= LastUsedWord; ++word)
        if (words[word]) Show.DmxIni[word] = *words[word];
    for (int word = LastUsedWord + 1; word <= 15; ++word) Show.DmxIni[word] = 0;
    Show.DmxIniDirty = 1;
    if (options.Fields[SendChannels]) Show.ChannelCount = Word(std::int64_t{*options.Fields[SendChannels]});
    // The next start reads the configuration's block after this one: it has to be saved there too.
    if (Show.DmxIni != before) Show.ChangeFlags.Set(Change::ConfigChanged);
}

bool TakeOptions(const OutputOptions& options) {
    const auto& fields = options.Fields;
    if (ChangedConfig(options)) {
        if (Show.timSendToMerger.Enabled) {
            ShowMessage("Während eine Sequenz gesendet wird, können die DMX Einstellungen nicht geändert "
                        "werden!");
            return false;
        }
        SaveConfig(options);
    } else if (fields[SendChannels] &&
               Show.InterfaceType != IsaCardB) // which rebuilds it by a rule of its own
        Show.ChannelCount = Word(std::int64_t{*fields[SendChannels]});
    if (fields[SendRepeat]) Show.SendRepeatTime = *fields[SendRepeat];
    return true;
}

void BerechneSendelänge(const OutputOptions& options) {
    const auto value = [&](int field) { return static_cast<float>(options.Fields[field].value_or(0)); };
    switch (Show.InterfaceType) {
    case IsaCardB:
        Show.SendLength = value(StartSync) + 8 + (value(InterdigitTime) + 44) * value(SendChannels);
        break;
    case IsaCardC: Show.SendLength = (value(InterdigitTime) + 46) * value(SendChannels) + 128; break;
    // These always send full frames, whatever the field says.
    case UsbInterface:
    case PcmciaCard:
    case PciCard: Show.SendLength = (value(InterdigitTime) + 46) * DmxChannels + 128; break;
    default: Show.SendLength = 0;
    }
    Show.SendLengthFives = Word(static_cast<std::int64_t>(Show.SendLength / 3600 + 2) * 5);
}

std::int64_t SendLengthTenths() {
    return static_cast<std::int64_t>(std::floor(Show.SendLength / 100 + 0.5F));
}

} // namespace quorvane
