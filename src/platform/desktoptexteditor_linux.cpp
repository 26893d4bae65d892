#include "platform/desktoptexteditor.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

std::string Variable(const char* name, std::string_view fallback = {}) {
    const char* value = std::getenv(name);
    return value == nullptr || *value == '\0' ? std::string(fallback) : value;
}

Words Parts(const std::string& text, char separator) {
    Words parts;
    std::istringstream rest(text);
    for (std::string part; std::getline(rest, part, separator);)
        if (!part.empty()) parts.push_back(part);
    return parts;
}

// The values of a key in one group of a desktop's file.
std::string Value(const fs::path& path, std::string_view group, std::string_view key) {
    std::ifstream file(path);
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('[')) inside = line == group;
        if (!inside || !line.starts_with(key)) continue;
        const auto rest = line.substr(key.size());
        const auto start = rest.find_first_not_of(' ');
        if (start == std::string::npos || rest[start] != '=') continue;
        const auto value = rest.find_first_not_of("= ");
        return value == std::string::npos ? std::string() : rest.substr(value);
    }
    return {};
}

std::vector<fs::path> ApplicationFolders() {
    const std::string own = Variable("XDG_DATA_HOME", Variable("HOME") + "/.local/share");
    std::vector<fs::path> folders{fs::path(own) / "applications"};
    for (const std::string& folder : Parts(Variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"), ':'))
        folders.push_back(fs::path(folder) / "applications");
    return folders;
}

// The user's choice stands before that of the desktop, and this before the system's.
Words Chosen() {
    std::vector<fs::path> folders{Variable("XDG_CONFIG_HOME", Variable("HOME") + "/.config")};
    for (const std::string& folder : Parts(Variable("XDG_CONFIG_DIRS", "/etc/xdg"), ':'))
        folders.emplace_back(folder);
    const auto applications = ApplicationFolders();
    folders.insert(folders.end(), applications.begin(), applications.end());

    std::string desktops = Variable("XDG_CURRENT_DESKTOP");
    std::ranges::transform(desktops, desktops.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    Words lists;
    for (const std::string& desktop : Parts(desktops, ':')) lists.push_back(desktop + "-mimeapps.list");
    lists.insert(lists.end(), {"mimeapps.list", "defaults.list"});

    Words entries;
    for (const fs::path& folder : folders)
        for (const std::string& list : lists)
            for (const std::string& entry :
                 Parts(Value(folder / list, "[Default Applications]", "text/plain"), ';'))
                entries.push_back(entry);
    for (const fs::path& folder : applications)
        for (const std::string& entry :
             Parts(Value(folder / "mimeinfo.cache", "[MIME Cache]", "text/plain"), ';'))
            entries.push_back(entry);
    return entries;
}

bool IsInstalled(const std::string& program) {
    if (program.starts_with('/')) return access(program.c_str(), X_OK) == 0;
    return std::ranges::any_of(Parts(Variable("PATH"), ':'), [&](const std::string& folder) {
        return access((folder + "/" + program).c_str(), X_OK) == 0;
    });
}

// Blanks part the words, except between quotation marks; a backslash takes the next character as it is.
Words CommandWords(const std::string& line) {
    Words words;
    bool quoted = false;
    bool inWord = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == ' ' && !quoted) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (c == '"')
            quoted = !quoted;
        else
            words.back() += c == '\\' && i + 1 < line.size() ? line[++i] : c;
    }
    return words;
}

// The fields of a command that stand for the file take it; the others are left out.
Words CommandFor(const fs::path& entry, std::string_view file) {
    constexpr std::string_view group = "[Desktop Entry]";
    if (Value(entry, group, "Terminal") == "true") return {};
    Words command;
    bool named = false;
    for (const std::string& word : CommandWords(Value(entry, group, "Exec"))) {
        if (word.size() != 2 || word[0] != '%') {
            command.push_back(word);
            continue;
        }
        if (std::string_view("fFuU").find(word[1]) == std::string_view::npos) continue;
        command.emplace_back(file);
        named = true;
    }
    if (command.empty() || !IsInstalled(command.front())) return {};
    if (!named) command.emplace_back(file);
    return command;
}

} // namespace

Words DesktopTextEditor(std::string_view file) {
    for (const std::string& entry : Chosen())
        for (const fs::path& folder : ApplicationFolders()) {
            const Words command = CommandFor(folder / entry, file);
            if (!command.empty()) return command;
        }
    if (IsInstalled("xdg-open")) return {"xdg-open", std::string(file)};
    return {};
}

} // namespace quorvane
