// What is left of a file when its save fails in the middle, or the program dies there: for all five
// files, through the commands that write them.
#include "files/filesbench.h"

#include "files/settingsfile.h"
#include "files/showfiles.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvane {

namespace {

// While it lives, no file of this process can grow beyond a number of bytes: a disk that fills up in the
// middle of the save.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : before(Limit()), handler(std::signal(SIGXFSZ, SIG_IGN)) {
        rlimit small = before;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    static rlimit Limit() {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        return limit;
    }
    rlimit before;
    void (*handler)(int);
};

} // namespace

struct SavedKind {
    std::string Name;
    std::string File;
    bool (*Save)();
};

class FiveFiles : public FilesBench, public testing::WithParamInterface<SavedKind> {
protected:
    void SetUp() override {
        MakeReferenceWall();
        Show.StatusFlags.Set(Status::SequenceExists);
        Show.StatusFlags.Set(Status::SaveToCurrentFile);
        Show.StepCount = 1;
        Show.ConfigFile = Path("a.CFG");
        Show.ColourTableFile = Path("a.QCT");
        Show.SceneFile = Path("a.QSC");
        Show.SequenceFile = Path("a.QSQ");
        Show.IniPath = Path("a.ini");
        ASSERT_TRUE(GetParam().Save());
        Former = Read(GetParam().File);
        // What is saved next differs from the former work in every kind.
        Show.ElementSize = 222;
        Show.UserColour[1][1] = 222;
        Show.ElementValue[1][1] = 222;
        Show.SequenceSteps[1][1][1] = 222;
        Log.clear();
    }
    std::string Bak() const { return GetParam().File + ".bak"; }
    void ExpectTold() {
        const bool settings = GetParam().File == "a.ini";
        EXPECT_EQ(Texts(settings ? "box" : "status"), TextList{"Speichern wurde abgebrochen."});
    }

    std::string Former;
};

TEST_P(FiveFiles, KeepTheFormerWorkInBakOnAFullDisk) {
    {
        const FullDisk disk(20);
        EXPECT_FALSE(GetParam().Save());
    }
    ExpectTold();
    EXPECT_EQ(Read(Bak()), Former);
    EXPECT_EQ(Read(GetParam().File).size(), 20u) << "left as far as written";
}

TEST_P(FiveFiles, KeepTheFormerWorkWhenTheSaveFailsAgainAndAgain) {
    for (const rlim_t bytes : {0u, 20u, 10u}) {
        const FullDisk disk(bytes);
        EXPECT_FALSE(GetParam().Save());
        EXPECT_EQ(Read(Bak()), Former) << bytes;
    }
    EXPECT_TRUE(GetParam().Save());
    EXPECT_FALSE(Exists(Bak()));
    EXPECT_NE(Read(GetParam().File), Former);
}

TEST_P(FiveFiles, AreLeftWhenTheyAreWriteProtected) {
    const auto file = ProgramFolder / GetParam().File;
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_FALSE(GetParam().Save());
    ExpectTold();
    EXPECT_EQ(Read(GetParam().File), Former);
}

TEST_P(FiveFiles, KeepTheFormerWorkWhenTheProgramIsKilledInTheMiddle) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // The signal of a full disk, not ignored, ends the process inside the write.
        rlimit limit{20, 20};
        setrlimit(RLIMIT_FSIZE, &limit);
        limit = {0, 0};
        setrlimit(RLIMIT_CORE, &limit);
        std::signal(SIGXFSZ, SIG_DFL);
        GetParam().Save();
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ) << status;
    EXPECT_EQ(Read(Bak()), Former);
    EXPECT_TRUE(GetParam().Save()) << "the next start saves as ever";
    EXPECT_FALSE(Exists(Bak()));
}

INSTANTIATE_TEST_SUITE_P(Kinds, FiveFiles,
                         testing::Values(SavedKind{"Configuration", "a.CFG", SaveConfiguration},
                                         SavedKind{"ColourTable", "a.QCT", SaveColourTable},
                                         SavedKind{"Scene", "a.QSC", SaveScene},
                                         SavedKind{"Sequence", "a.QSQ", SaveSequence},
                                         SavedKind{"Settings", "a.ini", SaveINI}),
                         [](const auto& parameter) { return parameter.param.Name; });

} // namespace quorvane
