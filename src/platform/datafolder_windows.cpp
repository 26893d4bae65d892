#include "platform/datafolder.h"
#include "platform/programfolder.h"

#include <cstdlib>
#include <windows.h>

namespace quorvane {

// The rights of a folder say little on Windows (inherited, virtual, by group); a file that goes away by
// itself says it for certain.
bool FolderIsWritable(std::string_view folder) {
    const std::filesystem::path probe = PathOf(folder) / L"quorvane.probe";
    const HANDLE file = CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_FILE_EXISTS;
    CloseHandle(file);
    return true;
}

std::string UserDataFolder() {
    const wchar_t* data = _wgetenv(L"LOCALAPPDATA");
    if (data == nullptr || *data == L'\0') return {};
    return TextOf(std::filesystem::path(data) / L"Quorvane");
}

} // namespace quorvane
