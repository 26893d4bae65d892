// Folders and files in any case of letters, on a system that tells them apart.
#include "files/filechoice.h"

#include "files/filesbench.h"
#include "files/showfiles.h"

namespace quorvane {

class AnyCase : public FilesBench {
protected:
    void SetUp() override { MakeReferenceWall(); }
};

struct MovedCase {
    std::string Place;
    std::string Stored;
    void (*Load)();
    std::string ShowState::*Current;
};

class MovedInAnyCase : public AnyCase, public testing::WithParamInterface<MovedCase> {};

TEST_P(MovedInAnyCase, AreFoundAndBecomeCurrentAsTheyAreSpelled) {
    Write(GetParam().Place, Reference("small" + GetParam().Place.substr(GetParam().Place.size() - 4)));
    ChosenFiles.push_back(GetParam().Stored);
    GetParam().Load();
    EXPECT_EQ(Show.*GetParam().Current, Path(GetParam().Place));
    EXPECT_EQ(Boxes().size(), 1u) << "the search path has changed";
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, MovedInAnyCase,
    testing::Values(
        MovedCase{"CONFIG/small.CFG", "C:\\alt\\SMALL.cfg", LoadConfiguration, &ShowState::ConfigFile},
        MovedCase{"FarbTbl/small.QCT", "/alt/Small.Qct", LoadColourTable, &ShowState::ColourTableFile},
        MovedCase{"Scenen/small.QSC", "/alt/SMALL.qsc", LoadScene, &ShowState::SceneFile},
        MovedCase{"SEQUENCE/small.QSQ", "D:\\small.qsq", LoadSequence, &ShowState::SequenceFile}));

TEST_F(AnyCase, DialogsOpenInTheFolderThatIsThere) {
    std::filesystem::create_directories(ProgramFolder / "FARBTBL");
    ChosenFiles = {std::nullopt, std::nullopt};
    SaveColourTable();
    LoadColourTable();
    for (const FileQuestion& question : FileQuestions) EXPECT_EQ(question.Folder, Path("FARBTBL"));
    EXPECT_FALSE(Exists("Farbtbl"));
}

TEST_F(AnyCase, SequencesAreSavedInSequencenAlsoBesideSequence) {
    std::filesystem::create_directories(ProgramFolder / "SEQUENCE");
    ChosenFiles.push_back(std::nullopt);
    Show.StatusFlags.Set(Status::SequenceExists);
    SaveSequence();
    EXPECT_EQ(FileQuestions.front().Folder, Path("sequencen"));
}

} // namespace quorvane
