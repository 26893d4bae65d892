#include "devices/usbinterface.h"

#include "model/show.h"
#include "platform/host.h"

#include <algorithm>
#include <limits>

namespace quorvane {

namespace {

constexpr std::int32_t Open = 1;
constexpr std::int32_t Close = 2;
constexpr std::int32_t Ready = 3;

std::int32_t Command(std::int32_t command) {
    std::uint8_t buffer = 0;
    return Host.DasHardCommand(command, 0, &buffer);
}

} // namespace

bool OpenUsbInterface() {
    Command(Close);
    constexpr std::int32_t least = std::numeric_limits<std::int16_t>::min();
    constexpr std::int32_t most = std::numeric_limits<std::int16_t>::max();
    Show.UsbKind = static_cast<std::int16_t>(std::clamp(Command(Open), least, most));
    return !UsbModelName().empty();
}

void StartUsbInterface() {
    // DMX channel 1 keeps its level, on purpose.
    for (int index = 1; index < DmxChannels; ++index) Show.DmxOutBytes[index] = 0;
    Command(Ready);
}

void CloseUsbInterface() { Command(Close); }

std::string_view UsbModelName() {
    if (Show.UsbKind >= 1 && Show.UsbKind <= 3) return "USBLINK1";
    if (Show.UsbKind >= 10 && Show.UsbKind <= 13) return "USBLINK2";
    return "";
}

} // namespace quorvane
