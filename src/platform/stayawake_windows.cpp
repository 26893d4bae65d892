#include "platform/stayawake.h"

#include <windows.h>

namespace quorvane {

void KeepAwake(bool on) {
    SetThreadExecutionState(on ? ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED : ES_CONTINUOUS);
}

// The entry is missing on systems before Windows 8, which do not throttle either.
void KeepAtFullSpeed(bool on) {
    using Entry = BOOL(WINAPI*)(HANDLE, int, void*, DWORD);
    const HMODULE system = GetModuleHandleW(L"kernel32.dll");
    if (system == nullptr) return;
    const auto set =
        reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(system, "SetProcessInformation")));
    if (set == nullptr) return;

    PROCESS_POWER_THROTTLING_STATE state{};
    state.Version = PROCESS_POWER_THROTTLING_CURRENT_VERSION;
    constexpr ULONG both =
        PROCESS_POWER_THROTTLING_EXECUTION_SPEED | PROCESS_POWER_THROTTLING_IGNORE_TIMER_RESOLUTION;
    // Under control and not set means never; not under control leaves it to the system.
    state.ControlMask = on ? both : 0;
    state.StateMask = 0;
    set(GetCurrentProcess(), ProcessPowerThrottling, &state, sizeof state);
}

} // namespace quorvane
