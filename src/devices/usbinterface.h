// The USB interface, a black box behind the commands of its driver library; the two that send a frame
// belong to the tick. Only what the open command returns is looked at: an interface that is pulled out
// in mid-show goes unnoticed, on purpose.
#pragma once

#include <string_view>

namespace quorvane {

// Drops a former connection and opens anew; UsbKind says what was found. True for a known model.
bool OpenUsbInterface();
// Makes a freshly opened interface ready to send.
void StartUsbInterface();
void CloseUsbInterface();

// "USBLINK1" or "USBLINK2" by UsbKind, empty when it is no known model.
std::string_view UsbModelName();

} // namespace quorvane
