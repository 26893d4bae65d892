// How each kind of file is asked for and looked for.
#include "files/filechoice.h"

#include "files/filesbench.h"
#include "files/showfiles.h"

namespace quorvane {

struct DialogCase {
    std::string Name;
    const FileKind* Kind;
    void (*Load)();
    bool (*Save)();
    std::string LoadTitle, SaveTitle, Filter, Extension, Folder, LoadName, SaveName, Missing;
};

class Dialogs : public FilesBench, public testing::WithParamInterface<DialogCase> {
protected:
    void SetUp() override {
        MakeReferenceWall();
        Show.StatusFlags.Set(Status::SequenceExists);
        Show.StepCount = 1;
        ChosenFiles.push_back(std::nullopt);
    }
    void ExpectQuestion(const std::string& title, const std::string& folder, const std::string& name) {
        ASSERT_EQ(FileQuestions.size(), 1u);
        const FileQuestion& question = FileQuestions.front();
        EXPECT_EQ(question.Title, title);
        EXPECT_EQ(question.Filter, GetParam().Filter);
        EXPECT_EQ(question.Extension, GetParam().Extension);
        EXPECT_EQ(question.Folder, folder);
        EXPECT_EQ(question.Name, name);
    }
};

TEST_P(Dialogs, OpenInTheKindsOwnFolderWhichIsMade) {
    GetParam().Load();
    ExpectQuestion(GetParam().LoadTitle, Path(GetParam().Folder), GetParam().LoadName);
    EXPECT_TRUE(std::filesystem::is_directory(ProgramFolder / GetParam().Folder));
}

TEST_P(Dialogs, SaveInTheKindsOwnFolder) {
    GetParam().Save();
    ExpectQuestion(GetParam().SaveTitle, Path(GetParam().Folder), GetParam().SaveName);
}

TEST_P(Dialogs, LoadFromTheFolderOfTheCurrentFile) {
    std::filesystem::create_directories(ProgramFolder / "woanders");
    Show.*GetParam().Kind->CurrentFile = Path("woanders/abend.X");
    GetParam().Load();
    const std::string name = GetParam().LoadName.empty() ? "abend.X" : GetParam().LoadName;
    ExpectQuestion(GetParam().LoadTitle, Path("woanders"), name);
}

TEST_P(Dialogs, ProposeTheNameOfTheCurrentFileForSaving) {
    Show.*GetParam().Kind->CurrentFile = "C:\\alt\\abend.X";
    GetParam().Save();
    const std::string name = GetParam().SaveName == "*.qsc" ? "*.qsc" : "abend.X";
    ExpectQuestion(GetParam().SaveTitle, Path(GetParam().Folder), name);
}

TEST_P(Dialogs, AreSkippedWhileTheCurrentFileIsMeant) {
    ChosenFiles.clear();
    Show.*GetParam().Kind->CurrentFile = Path("jetzt.X");
    {
        const CurrentFileOnly current;
        EXPECT_TRUE(GetParam().Save());
        Write("jetzt.X", Reference("small." + GetParam().Extension));
        GetParam().Load();
    }
    EXPECT_TRUE(FileQuestions.empty());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SaveToCurrentFile));
}

TEST_P(Dialogs, FolderInPlaceOfTheChosenFileCountsAsMissing) {
    std::filesystem::create_directories(ProgramFolder / "ordner.X");
    ChosenFiles = {Path("ordner.X")};
    GetParam().Load();
    ASSERT_EQ(Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0], GetParam().Missing.empty()
                              ? "Die Datei " + Path("ordner.X") + " konnte nicht gefunden werden."
                              : GetParam().Missing);
    EXPECT_EQ(WallStatus(), "");
}

TEST_P(Dialogs, NameWithAWildcardChoosesNothing) {
    ChosenFiles = {Path("*.abc"), Path("a?c")};
    EXPECT_FALSE(GetParam().Save());
    GetParam().Load();
    EXPECT_EQ(Boxes().size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Dialogs,
    testing::Values(DialogCase{"Configuration", &ConfigurationKind, LoadConfiguration, SaveConfiguration,
                               "Configuration Laden", "Configuration Speichern", "*.CFG", "CFG", "config",
                               "QUORVANE.CFG", "QUORVANE.CFG", ""},
                    DialogCase{"ColourTable", &ColourTableKind, LoadColourTable, SaveColourTable,
                               "Farbtabelle Laden", "Farbtabelle Speichern", "*.QCT", "QCT", "Farbtbl",
                               "*.QCT", "", "Konnte Farbtabelle nicht finden"},
                    DialogCase{"Scene", &SceneKind, LoadScene, SaveScene, "Scene Laden", "Scene Speichern",
                               "*.QSC", "QSC", "scenen", "*.QSC", "*.qsc", "Konnte Scenendatei nicht finden"},
                    DialogCase{"Sequence", &SequenceKind, LoadSequence, SaveSequence, "Sequence Laden",
                               "Sequence Speichern", "*.QSQ", "QSQ", "sequencen", "", "",
                               "Konnte Sequenz-Datei nicht finden"}),
    [](const auto& parameter) { return parameter.param.Name; });

class MovedFiles : public FilesBench {
protected:
    void SetUp() override { MakeReferenceWall(); }
    void LoadMoved(const std::string& place, const std::string& stored, void (*load)()) {
        Write(place, Reference("small" + place.substr(place.size() - 4)));
        ChosenFiles.push_back(stored);
        load();
    }
};

TEST_F(MovedFiles, FolderOfTheSearchIsMadeTogetherWithThatOfTheKind) {
    ChosenFiles = {std::nullopt, std::nullopt};
    LoadSequence();
    EXPECT_TRUE(std::filesystem::is_directory(ProgramFolder / "sequencen"));
    EXPECT_TRUE(std::filesystem::is_directory(ProgramFolder / "sequence"));
    LoadColourTable();
    EXPECT_TRUE(std::filesystem::is_directory(ProgramFolder / "Farbtbl"));
    // One folder serves both where letters' case is all that tells them apart.
    int folders = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ProgramFolder))
        folders += entry.is_directory() ? 1 : 0;
    EXPECT_EQ(folders, 3);
}

TEST_F(MovedFiles, AreFoundInTheFolderOfTheirKindAndToldBeforeTheSuccess) {
    LoadMoved("config/small.CFG", "C:\\alt\\small.CFG", LoadConfiguration);
    EXPECT_EQ(Boxes(), TextList{"Suchpfad der Configurationsdatei hat sich verändert"});
    EXPECT_EQ(Log.back().Text, "Configuration erfolgreich geladen!");
    EXPECT_EQ(Show.ConfigFile, Path("config/small.CFG"));
}

TEST_F(MovedFiles, ScenesAreFoundByTheNameBehindEitherSlash) {
    LoadMoved("scenen/small.QSC", "/alt/small.QSC", LoadScene);
    EXPECT_EQ(Boxes(), TextList{"Suchpfad der Scene hat sich verändert."});
    EXPECT_EQ(WallStatus(), "Scene small.QSC erfolgreich geladen!");
    EXPECT_EQ(Show.SceneFile, Path("scenen/small.QSC"));
}

TEST_F(MovedFiles, SequencesAreFoundInSequence) {
    LoadMoved("sequence/small.QSQ", "D:\\small.QSQ", LoadSequence);
    EXPECT_EQ(Boxes(), TextList{"Suchpfad der Sequenz hat sich verändert."});
    EXPECT_EQ(Show.SequenceFile, Path("sequence/small.QSQ"));
}

TEST_F(MovedFiles, SequencesAreNotFoundInSequencenWhereTheyAreSaved) {
    LoadMoved("sequencen/small.QSQ", "D:\\small.QSQ", LoadSequence);
    EXPECT_EQ(Boxes(), TextList{"Konnte Sequenz-Datei nicht finden"});
}

TEST_F(MovedFiles, ColourTableMakesTheSceneThatNamesItStale) {
    LoadMoved("farbtbl/small.QCT", "D:\\small.QCT", LoadColourTable);
    EXPECT_EQ(Boxes(),
              TextList{"Der Suchpfad  der Farbtabelle hat sich verändert. Bitte speichern Sie die Szene "
                       "neu ab."});
    EXPECT_EQ(Show.ChangeFlags.bits, static_cast<std::uint16_t>(Change::SceneChanged));
}

TEST_F(MovedFiles, ColourTableMakesTheSequenceThatNamesItStale) {
    Show.StatusFlags.Set(Status::SequenceExists);
    LoadMoved("farbtbl/small.QCT", "D:\\small.QCT", LoadColourTable);
    EXPECT_EQ(Boxes(),
              TextList{"Der Suchpfad  der Farbtabelle hat sich verändert. Bitte speichern Sie die Sequenz "
                       "neu ab."});
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SequenceChanged));
}

TEST(FileNames, AreWhatFollowsTheLastSlashOrBackslash) {
    EXPECT_EQ(FileNamePart("C:\\a\\b.CFG"), "b.CFG");
    EXPECT_EQ(FileNamePart("/a/b.CFG"), "b.CFG");
    EXPECT_EQ(FileNamePart("/a\\b.CFG"), "b.CFG");
    EXPECT_EQ(FileNamePart("b.CFG"), "b.CFG");
    EXPECT_EQ(FileNamePart("a/"), "");
    EXPECT_EQ(FileNamePart(""), "");
}

} // namespace quorvane
