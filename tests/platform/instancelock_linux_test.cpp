#include "platform/instancelock.h"

#include "bench/bench.h"
#include "bench/environment.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <iterator>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <string>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

// What comes back from a process of its own that does this; it ends with the value given.
int InAnotherProcess(int (*act)()) {
    const pid_t child = fork();
    if (child == 0) _exit(act());
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// From now on this process is told by the system that it keeps no locks of open files.
bool HaveNoLocks() {
    const auto argument = static_cast<std::uint32_t>(offsetof(seccomp_data, args) + sizeof(std::uint64_t));
    sock_filter steps[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_fcntl, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, argument), // of fcntl: what it is to do
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, F_OFD_SETLK, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOLCK),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog filter{static_cast<unsigned short>(std::size(steps)), steps};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

bool IsLocked(const fs::path& path) {
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    const bool locked = fcntl(file, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    close(file);
    return locked;
}

class InstanceLockFile : public Bench {
protected:
    Environment RuntimeFolder{"XDG_RUNTIME_DIR", ProgramFolder.string()};
};

TEST_F(InstanceLockFile, StaleLockOfADeadProcessDoesNotCount) {
    const pid_t child = fork();
    if (child == 0) {
        const InstanceLock dying;
        _exit(dying.PreviousInstance() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(fs::exists(ProgramFolder / "quorvane.lock"));
    const InstanceLock next;
    EXPECT_FALSE(next.PreviousInstance());
}

TEST_F(InstanceLockFile, OtherProcessIsFound) {
    const InstanceLock first;
    const pid_t child = fork();
    if (child == 0) {
        const InstanceLock second;
        _exit(second.PreviousInstance() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 1);
}

TEST_F(InstanceLockFile, FolderThatTakesNoLockCountsAsNoOtherInstance) {
    const Environment missing("XDG_RUNTIME_DIR", (ProgramFolder / "missing").string());
    const InstanceLock first;
    const InstanceLock second;
    EXPECT_FALSE(second.PreviousInstance());
}

TEST_F(InstanceLockFile, SystemWithoutLocksCountsAsNoOtherInstance) {
    const InstanceLock first;
    const auto alone = [] {
        if (!HaveNoLocks()) return 2;
        const InstanceLock second;
        return second.PreviousInstance() ? 1 : 0;
    };
    EXPECT_EQ(InAnotherProcess(alone), 0);
}

TEST_F(InstanceLockFile, WithoutARuntimeFolderItStandsInTheTemporaryFolderUnderTheUsersNumber) {
    const fs::path file = "/tmp/quorvane-" + std::to_string(getuid()) + ".lock";
    for (const char* folder : {static_cast<const char*>(nullptr), "", "relative"}) {
        SCOPED_TRACE(folder != nullptr ? folder : "none");
        const Environment without("XDG_RUNTIME_DIR", folder != nullptr ? folder : "");
        if (folder == nullptr) unsetenv("XDG_RUNTIME_DIR");
        // A program of the user may be running there, so what the first finds is not this test's to say.
        const InstanceLock first;
        EXPECT_TRUE(IsLocked(file));
        const InstanceLock second;
        EXPECT_TRUE(second.PreviousInstance());
    }
}

TEST_F(InstanceLockFile, PipeInItsPlaceCountsAsNoOtherInstance) {
    ASSERT_EQ(mkfifo((ProgramFolder / "quorvane.lock").c_str(), 0600), 0);
    const InstanceLock first;
    const InstanceLock second;
    EXPECT_FALSE(second.PreviousInstance());
}

TEST_F(InstanceLockFile, OneOfAnotherUserCountsAsNoOtherInstance) {
    Write("quorvane.lock", "");
    const bool foreign =
        chown((ProgramFolder / "quorvane.lock").c_str(), getuid() + 1, getgid()) == 0; // root may
    const InstanceLock first;
    const InstanceLock second;
    EXPECT_EQ(second.PreviousInstance(), !foreign);
}

TEST_F(InstanceLockFile, LinkInItsPlaceIsNotFollowed) {
    fs::create_symlink(ProgramFolder / "elsewhere", ProgramFolder / "quorvane.lock");
    const InstanceLock first;
    EXPECT_FALSE(fs::exists(ProgramFolder / "elsewhere"));
    EXPECT_FALSE(first.PreviousInstance());
}

} // namespace

} // namespace quorvane
