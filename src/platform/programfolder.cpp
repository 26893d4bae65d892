#include "platform/programfolder.h"

#include <algorithm>
#include <system_error>

namespace quorvane {

namespace {

char SmallLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool SameBesidesCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, [](char a, char b) { return SmallLetter(a) == SmallLetter(b); });
}

} // namespace

std::filesystem::path PathOf(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string TextOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::filesystem::path FindInFolder(const std::filesystem::path& folder, std::string_view name) {
    std::error_code error;
    std::filesystem::path found;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::filesystem::path& path = entry->path();
        const std::string spelling = TextOf(path.filename());
        if (spelling == name) return path;
        if (!SameBesidesCase(spelling, name)) continue;
        if (found.empty() || path < found) found = path;
    }
    return found.empty() ? folder / PathOf(name) : found;
}

} // namespace quorvane
