#include "platform/diskfile.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace quorvane {

namespace {

[[noreturn]] void Fail(int handle) {
    const std::error_code reason(errno, std::generic_category());
    if (handle >= 0) close(handle);
    throw std::system_error(reason);
}

} // namespace

void WriteToDisk(const std::filesystem::path& file, std::string_view bytes) {
    const int handle = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (handle < 0) Fail(handle);
    while (!bytes.empty()) {
        const ssize_t written = write(handle, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) Fail(handle);
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    if (fsync(handle) != 0) Fail(handle);
    if (close(handle) != 0) Fail(-1);
}

} // namespace quorvane
