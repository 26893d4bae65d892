// Keeps the machine at its work while a show plays: no sleep, no dark screen, and no saving of power on
// the program because its windows are not in front.
#pragma once

namespace quorvane {

// No screen saver and no sleep while on. On Linux this is asked of the desktop over its message bus, which
// is done where the windows are made; here nothing happens.
void KeepAwake(bool on);

// No throttling of the process in the background while on. Linux does not throttle; nothing happens.
void KeepAtFullSpeed(bool on);

} // namespace quorvane
