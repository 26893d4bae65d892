#include "platform/diskfile.h"

#include <windows.h>

#include <system_error>

namespace quorvane {

namespace {

[[noreturn]] void Fail(HANDLE handle) {
    const std::error_code reason(static_cast<int>(GetLastError()), std::system_category());
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    throw std::system_error(reason);
}

} // namespace

void WriteToDisk(const std::filesystem::path& file, std::string_view bytes) {
    HANDLE handle =
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) Fail(handle);
    while (!bytes.empty()) {
        DWORD written = 0;
        if (!WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
            Fail(handle);
        bytes.remove_prefix(written);
    }
    if (!FlushFileBuffers(handle)) Fail(handle);
    if (!CloseHandle(handle)) Fail(INVALID_HANDLE_VALUE);
}

} // namespace quorvane
