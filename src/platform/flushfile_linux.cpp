#include "platform/flushfile.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorvane {

bool FlushFile(const std::filesystem::path& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool flushed = fsync(file) == 0;
    close(file);
    return flushed;
}

} // namespace quorvane
