#include "platform/instancelock.h"

#include "bench/bench.h"
#include "bench/environment.h"

#include <sys/wait.h>
#include <unistd.h>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

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

TEST_F(InstanceLockFile, LinkInItsPlaceIsNotFollowed) {
    fs::create_symlink(ProgramFolder / "elsewhere", ProgramFolder / "quorvane.lock");
    const InstanceLock first;
    EXPECT_FALSE(fs::exists(ProgramFolder / "elsewhere"));
    EXPECT_FALSE(first.PreviousInstance());
}

} // namespace

} // namespace quorvane
