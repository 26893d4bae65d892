#include "platform/instancelock.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvane {

namespace {

std::string LockPath() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && *runtime == '/') return std::string(runtime) + "/quorvane.lock";
    return "/tmp/quorvane-" + std::to_string(getuid()) + ".lock";
}

// Takes the lock unless another holds it; false then. A system that keeps no such locks tells otherwise and
// counts as having nobody who holds one. The lock belongs to the open file, not to the process, so that it
// also keeps apart two of one process.
bool Lock(int file, short kind) {
    struct flock lock {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    return fcntl(file, F_OFD_SETLK, &lock) == 0 || (errno != EAGAIN && errno != EACCES);
}

bool IsOurs(int file) {
    struct stat about {};
    return fstat(file, &about) == 0 && about.st_uid == getuid() && S_ISREG(about.st_mode);
}

} // namespace

// The first instance gets the lock alone and then shares it, as all later ones do: so each later one
// counts for those that follow, also when the first has ended.
InstanceLock::InstanceLock() {
    const int file = open(LockPath().c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    handle = file;
    if (file < 0 || !IsOurs(file)) return;
    previous = !Lock(file, F_WRLCK);
    Lock(file, F_RDLCK);
}

InstanceLock::~InstanceLock() {
    if (handle >= 0) close(static_cast<int>(handle));
}

} // namespace quorvane
