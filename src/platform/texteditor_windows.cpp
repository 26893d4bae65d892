#include "platform/texteditor.h"

#include "platform/programfolder.h"

#include <array>
#include <string>
#include <system_error>
#include <windows.h>

namespace quorvane {

bool StartTextEditor(std::string_view file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(PathOf(file), error)) return false;
    std::array<wchar_t, MAX_PATH> folder{};
    if (GetWindowsDirectoryW(folder.data(), MAX_PATH) == 0) return false;
    std::wstring command =
        L"\"" + std::wstring(folder.data()) + L"\\notepad.exe\" \"" + PathOf(file).wstring() + L"\"";

    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWMAXIMIZED;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &started) == 0)
        return false;
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return true;
}

} // namespace quorvane
