#include "platform/systemversion.h"

#include <windows.h>

namespace quorvane {

// The query of the same name in the Windows interface gives 6.2 to every program without a manifest that
// names later systems; this one gives what is there.
std::uint32_t GetVersion() {
    using RtlGetVersionEntry = LONG(WINAPI*)(OSVERSIONINFOW*);
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    if (system == nullptr) return 10;
    const auto query = reinterpret_cast<RtlGetVersionEntry>(
        reinterpret_cast<void*>(GetProcAddress(system, "RtlGetVersion")));
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (query == nullptr || query(&version) != 0) return 10;
    return (version.dwMajorVersion & 0xFFU) | (version.dwMinorVersion & 0xFFU) << 8U;
}

} // namespace quorvane
