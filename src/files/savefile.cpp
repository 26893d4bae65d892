#include "files/savefile.h"

#include "platform/diskfile.h"

#include <fstream>
#include <system_error>

namespace quorvane {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Refuse(std::errc reason) { throw std::system_error(std::make_error_code(reason)); }

// Setting a file aside needs the right to its folder only, so a write-protected one is asked itself.
void RequireWritable(const fs::path& file) {
    constexpr auto anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (!fs::is_regular_file(file)) Refuse(std::errc::is_a_directory);
    if ((fs::status(file).permissions() & anyWrite) == fs::perms::none) Refuse(std::errc::permission_denied);
    if (!std::fstream(file, std::ios::in | std::ios::out | std::ios::binary))
        Refuse(std::errc::permission_denied);
}

// Every complete file ends with a line end; what a failed save left hardly ever does.
bool IsComplete(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(-1, std::ios::end);
    const int last = stream.get();
    return last == '\n' || last == '\r';
}

} // namespace

void SaveFile(const fs::path& chosen, std::string_view bytes) {
    const fs::path file = fs::is_symlink(chosen) ? fs::weakly_canonical(chosen) : chosen;
    fs::path aside = file;
    aside += ".bak";
    const bool replaces = fs::exists(file);
    if (replaces) {
        RequireWritable(file);
        // Beside the remains of a failed save, .bak holds the last good file and is kept.
        if (IsComplete(file) || !fs::exists(aside)) fs::rename(file, aside);
    }
    WriteToDisk(file, bytes);
    std::error_code leftOver; // a .bak that cannot be removed does no harm
    if (replaces) fs::remove(aside, leftOver);
}

} // namespace quorvane
