#include "platform/registry.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

// Empty when the user has no home.
fs::path StorePath() {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/') return fs::path(config) / "Quorvane" / "Quorvane.conf";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') return {};
    return fs::path(home) / ".config" / "Quorvane" / "Quorvane.conf";
}

Lines ReadLines(const fs::path& path) {
    Lines lines;
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

bool IsSection(std::string_view line) { return line.starts_with('['); }

// The lines of one section without its title: first and one past the last. Nothing when it is missing.
struct Range {
    std::size_t First;
    std::size_t End;
};

std::optional<Range> FindSection(const Lines& lines, std::string_view section) {
    const auto title = std::find(lines.begin(), lines.end(), "[" + std::string(section) + "]");
    if (title == lines.end()) return {};
    const auto end = std::find_if(title + 1, lines.end(), IsSection);
    return Range{static_cast<std::size_t>(title - lines.begin()) + 1,
                 static_cast<std::size_t>(end - lines.begin())};
}

// The line of a key; range.End when it is missing.
std::size_t FindKey(const Lines& lines, Range range, std::string_view key) {
    const std::string start = std::string(key) + "=";
    for (std::size_t line = range.First; line < range.End; ++line)
        if (lines[line].starts_with(start)) return line;
    return range.End;
}

void Put(Lines& lines, std::string_view section, std::string_view key, std::string_view value) {
    auto range = FindSection(lines, section);
    if (!range) {
        lines.push_back("[" + std::string(section) + "]");
        range = Range{lines.size(), lines.size()};
    }
    const std::string entry = std::string(key) + "=" + std::string(value);
    const std::size_t line = FindKey(lines, *range, key);
    if (line < range->End)
        lines[line] = entry;
    else
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(range->First), entry);
}

// Written beside the store first and put in its place when whole, so that a full disk costs nothing.
void Store(const fs::path& path, const Lines& lines) {
    std::error_code failed;
    fs::create_directories(path.parent_path(), failed);
    const fs::path fresh = path.string() + ".new";
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    for (const std::string& line : lines) file << line << '\n';
    file.close();
    if (file)
        fs::rename(fresh, path, failed);
    else
        fs::remove(fresh, failed);
}

} // namespace

std::string ReadSetting(std::string_view section, std::string_view key, std::string_view fallback) {
    const Lines lines = ReadLines(StorePath());
    const auto range = FindSection(lines, section);
    if (!range) return std::string(fallback);
    const std::size_t line = FindKey(lines, *range, key);
    if (line == range->End) return std::string(fallback);
    return lines[line].substr(key.size() + 1);
}

void WriteSetting(std::string_view section, std::string_view key, std::string_view value) {
    const fs::path path = StorePath();
    if (path.empty()) return;
    Lines lines = ReadLines(path);
    Put(lines, section, key, value);
    Store(path, lines);
}

} // namespace quorvane
