#include "platform/sharedlibrary.h"

#include <windows.h>

namespace quorvane {

const char* const SharedLibrary::Ending = ".dll";

// Without the error mode a damaged file would make the system ask the user.
SharedLibrary::SharedLibrary(const std::filesystem::path& path) {
    DWORD former = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &former);
    handle = LoadLibraryExW(std::filesystem::absolute(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    SetThreadErrorMode(former, nullptr);
}

SharedLibrary::~SharedLibrary() {
    if (handle != nullptr) FreeLibrary(static_cast<HMODULE>(handle));
}

void* SharedLibrary::Entry(const char* name) const {
    if (handle == nullptr) return nullptr;
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle), name));
}

} // namespace quorvane
