#include "platform/datafolder.h"

#include <cstdlib>
#include <unistd.h>

namespace quorvane {

bool FolderIsWritable(std::string_view folder) {
    return access(std::string(folder).c_str(), W_OK | X_OK) == 0;
}

std::string UserDataFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/') return std::string(data) + "/Quorvane";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') return {};
    return std::string(home) + "/.local/share/Quorvane";
}

} // namespace quorvane
