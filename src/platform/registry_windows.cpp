#include "platform/programfolder.h"
#include "platform/registry.h"

#include <vector>
#include <windows.h>

namespace quorvane {

namespace {

std::wstring Wide(std::string_view text) { return PathOf(text).wstring(); }

std::wstring KeyOf(std::string_view section) {
    return L"Software\\VB and VBA Program Settings\\Quorvane\\" + Wide(section);
}

} // namespace

std::string ReadSetting(std::string_view section, std::string_view key, std::string_view fallback) {
    std::vector<wchar_t> value(1024);
    auto size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    const LSTATUS result = RegGetValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), Wide(key).c_str(),
                                        RRF_RT_REG_SZ, nullptr, value.data(), &size);
    return result == ERROR_SUCCESS ? TextOf(value.data()) : std::string(fallback);
}

void WriteSetting(std::string_view section, std::string_view key, std::string_view value) {
    const std::wstring wide = Wide(value);
    RegSetKeyValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), Wide(key).c_str(), REG_SZ, wide.c_str(),
                    static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t)));
}

} // namespace quorvane
