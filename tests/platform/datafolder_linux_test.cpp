#include "platform/datafolder.h"

#include "bench/bench.h"
#include "bench/environment.h"

#include <sys/wait.h>
#include <unistd.h>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

class ProgramFolderChoice : public Bench {
protected:
    Environment DataHome{"XDG_DATA_HOME", (ProgramFolder / "data").string()};
};

TEST_F(ProgramFolderChoice, GivenOneWinsAndIsMade) {
    const fs::path given = ProgramFolder / "new" / "show";
    EXPECT_EQ(ChooseProgramFolder(given.string(), ProgramFolder.string()), given.string());
    EXPECT_TRUE(fs::is_directory(given));
}

TEST_F(ProgramFolderChoice, RelativeOneIsMadeAbsolute) {
    const std::string chosen = ChooseProgramFolder(".", ProgramFolder.string());
    EXPECT_TRUE(fs::path(chosen).is_absolute());
}

TEST_F(ProgramFolderChoice, FolderOfTheProgramFileIsUsedWhenWritable) {
    EXPECT_EQ(ChooseProgramFolder({}, ProgramFolder.string()), ProgramFolder.string());
    EXPECT_FALSE(fs::exists(ProgramFolder / "data"));
}

TEST_F(ProgramFolderChoice, OtherwiseItIsTheUsersDataFolderMadeWhenMissing) {
    const std::string chosen = ChooseProgramFolder({}, (ProgramFolder / "missing").string());
    EXPECT_EQ(chosen, (ProgramFolder / "data" / "Quorvane").string());
    EXPECT_TRUE(fs::is_directory(chosen));
}

// Nothing is read-only for the administrator, so an ordinary user looks at it.
TEST_F(ProgramFolderChoice, ReadOnlyFolderIsNotWritable) {
    const fs::path folder = ProgramFolder / "system";
    fs::create_directory(folder);
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                fs::perms::others_exec);
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
        _exit(FolderIsWritable(folder.string()) ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(ProgramFolderChoice, DataFolderStandsInTheHomeFolderUnlessNamed) {
    const Environment none("XDG_DATA_HOME", "");
    const Environment home("HOME", "/home/anna");
    EXPECT_EQ(UserDataFolder(), "/home/anna/.local/share/Quorvane");
}

} // namespace

} // namespace quorvane
