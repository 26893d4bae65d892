#include "files/filesbench.h"

#include "files/showfiles.h"
#include "model/changes.h"
#include "model/wall.h"

namespace quorvane {

class SceneFile : public FilesBench {
protected:
    void SetUp() override {
        MakeReferenceWall();
        Show.VersionText = "V 1.21";
    }
    void Load(const std::string& bytes) {
        Offer("abend.QSC", bytes);
        LoadScene();
    }
    // Without the colour table that it names.
    std::string Text() const { return With(Reference("small.QSC"), "C:\\Farbtbl\\bunt.QCT", ""); }
    // A scene of that size whose element e has the red level e.
    std::string TextOfSize(int columns, int rows) const {
        std::string text =
            Lines({"Scene von QUORVANE 99", "[Config]", "ElementeMax =  " + std::to_string(columns * rows),
                   "[WALL]", "Xmax =  " + std::to_string(columns), "Ymax =  " + std::to_string(rows),
                   "[OTHERFILES]", "", "", "[VALUES]"});
        for (int element = 1; element <= columns * rows; ++element)
            text += (element > 1 ? "," : "") + std::to_string(element) + ",0,0,0";
        return text + "\r\n";
    }
    void ExpectUnchanged() {
        EXPECT_EQ(Show.ElementValue[1], (PerChannel<std::uint8_t>{}));
        EXPECT_EQ(Show.SceneFile, "alt.QSC");
        EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneNew));
        EXPECT_EQ(WallStatus(), "");
    }
    void HaveUnsavedScene() {
        Show.SceneFile = "alt.QSC";
        Show.ChangeFlags.Set(Change::SceneNew);
        Show.ChangeFlags.Set(Change::SceneChanged);
    }
};

TEST_F(SceneFile, LoadsAndSavesTheSameBytes) {
    HaveUnsavedScene();
    Load(Text());
    EXPECT_EQ(Show.ElementValue[2][4], 255);
    EXPECT_EQ(WallStatus(), "Scene abend.QSC erfolgreich geladen!");
    EXPECT_EQ(Show.SceneFile, Path("abend.QSC"));
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1}));
    ChosenFiles.push_back(Path("neu.QSC"));
    EXPECT_TRUE(SaveScene());
    EXPECT_EQ(Read("neu.QSC"), Text());
    EXPECT_EQ(WallStatus(), "Scene erfolgreich abgespeichert.");
    EXPECT_EQ(Show.SceneFile, Path("neu.QSC"));
}

TEST_F(SceneFile, SelectedElementsAreSelectedAgainAfterTheRepaint) {
    std::vector<int> selected;
    Screen.PaintSelected = [&](int index) { selected.push_back(index); };
    Show.ElementSelected[1] = 1;
    Show.SelectedCount = 1;
    Load(Text());
    EXPECT_EQ(selected, std::vector<int>{1});
}

TEST_F(SceneFile, SavingClearsItsMarksOnly) {
    Show.ChangeFlags.bits = 0xFF;
    ChosenFiles.push_back(Path("neu.QSC"));
    EXPECT_TRUE(SaveScene());
    EXPECT_EQ(Show.ChangeFlags.bits, 0xF3);
}

TEST_F(SceneFile, MarkOfTheSceneStaysWhileAnUnsavedSequenceNeedsIt) {
    Show.StatusFlags.Set(Status::SequenceExists);
    Show.ChangeFlags.bits = 0x2C;
    ChosenFiles.push_back(Path("neu.QSC"));
    EXPECT_TRUE(SaveScene());
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
    Load(Text());
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
    Show.ChangeFlags.bits = 0x08; // the sequence is saved
    Load(Text());
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

const std::string Question3x1 =
    "Scene wurde auf einer Wand mit X= 3 und Y= 1 Elementen erstellt. Soll ich Importieren ?";

TEST_F(SceneFile, OfAnotherWallIsImportedAfterYesAndMarkedAsUnsaved) {
    Answers = {Answer::Yes};
    Load(TextOfSize(3, 1));
    EXPECT_EQ(Questions(), TextList{Question3x1});
    EXPECT_EQ(Log[2].Title, "V 1.21QUORVANE ");
    EXPECT_EQ(Beeps(), 1u);
    EXPECT_EQ(Show.ElementValue[2][1], 2);
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneNew));
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
    EXPECT_EQ(Show.SceneFile, Path("abend.QSC"));
    EXPECT_EQ(WallStatus(), "Scene abend.QSC erfolgreich geladen!");
}

TEST_F(SceneFile, OfAnotherWallIsReadElementByElementAfterNo) {
    Answers = {Answer::No};
    Load(TextOfSize(1, 3));
    EXPECT_EQ(Show.ElementValue[2][1], 2);
    EXPECT_EQ(Show.ElementValue[3][1], 3);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(SceneFile, OfAnotherWallIsLeftAfterCancel) {
    HaveUnsavedScene();
    Answers = {Answer::Cancel};
    Load(TextOfSize(3, 1));
    ExpectUnchanged();
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(SceneFile, SameCountInAnotherShapeIsAskedFor) {
    Answers = {Answer::Yes};
    Load(TextOfSize(1, 2));
    EXPECT_EQ(Questions().size(), 1u);
    EXPECT_EQ(Show.ElementValue[1][1], 1);
    EXPECT_EQ(Show.ElementValue[2][1], 0);
}

TEST_F(SceneFile, ImportOfASizeNoWallCanHaveIsAnErrorBeforeAnythingChanges) {
    HaveUnsavedScene();
    for (const auto& [columns, rows] :
         {std::pair{"1000", " 2"}, std::pair{" 2", "1000"}, std::pair{" 16", " 16"}}) {
        Answers = {Answer::Yes};
        Load(With(With(TextOfSize(2, 1), "Xmax =  2", std::string("Xmax = ") + columns), "Ymax =  1",
                  std::string("Ymax = ") + rows));
        EXPECT_EQ(Boxes(), TextList{"Fehler beim laden der Scene!"});
        ExpectUnchanged();
        Log.clear();
    }
}

TEST_F(SceneFile, ImportWithoutAWallIsToldAndTheValuesStayAsRead) {
    RemoveWall();
    Answers = {Answer::Yes};
    Load(TextOfSize(2, 1));
    EXPECT_EQ(Boxes(), TextList{"Keine Wand vorhanden. Auf eine  leere Wand kann nicht importiert werden!"});
    EXPECT_EQ(Show.ElementValue[2][1], 2);
    EXPECT_FALSE(Show.ChangeFlags.Has(Change::SceneNew));
}

struct BrokenScene {
    std::string Name;
    std::string From;
    std::string To;
    std::string Message;
};

class BrokenSceneFile : public SceneFile, public testing::WithParamInterface<BrokenScene> {};

TEST_P(BrokenSceneFile, LeavesTheShowAsItWas) {
    HaveUnsavedScene();
    Load(With(Text(), GetParam().From, GetParam().To));
    EXPECT_EQ(Boxes(), TextList{GetParam().Message});
    ExpectUnchanged();
}

const std::string ValuesFailure = "Fehler beim laden der Scenenwerte.";
const std::string SceneFailure = "Fehler beim laden der Scene!";

INSTANTIATE_TEST_SUITE_P(Steps, BrokenSceneFile,
                         testing::Values(BrokenScene{"NoWall", "[WALL]", "", SceneFailure},
                                         BrokenScene{"LargeWall", "Xmax =  2", "Xmax = 256", SceneFailure},
                                         BrokenScene{"NoOtherFiles", "[OTHERFILES]", "", SceneFailure},
                                         BrokenScene{"NoConfig", "[Config]", "", SceneFailure},
                                         BrokenScene{"LargeCount", "ElementeMax =  2", "ElementeMax = 300",
                                                     SceneFailure},
                                         BrokenScene{"NoValues", "[VALUES]", "", ValuesFailure},
                                         BrokenScene{"ShortValues", ", 254, 255", "", ValuesFailure},
                                         BrokenScene{"LargeValue", " 254", " 256", ValuesFailure},
                                         BrokenScene{"NegativeValue", " 254", "-1", ValuesFailure},
                                         BrokenScene{"WordInValues", " 254", "rot", ValuesFailure}),
                         [](const auto& parameter) { return parameter.param.Name; });

TEST_F(SceneFile, EmptyBinaryOrFarTooLargeIsTold) {
    HaveUnsavedScene();
    for (const std::string& bytes : {std::string(), std::string("Scene"), std::string("\0\1\2,\xFF\r\n", 7),
                                     std::string(20'000'000, '\n')}) {
        Load(bytes);
        EXPECT_EQ(Boxes(), TextList{SceneFailure});
        ExpectUnchanged();
        Log.clear();
    }
}

TEST_F(SceneFile, CancelledOrMissingIsTold) {
    HaveUnsavedScene();
    ChosenFiles = {std::nullopt, Path("fehlt.QSC")};
    LoadScene();
    LoadScene();
    EXPECT_EQ(Boxes(), (TextList{"Fehler beim auswählen der Datei.", "Konnte Scenendatei nicht finden"}));
    ExpectUnchanged();
}

TEST_F(SceneFile, StopsThePlayingSequenceAfterYesBeforeTheDialog) {
    Show.StatusFlags.Set(Status::SequenceExists);
    Show.StatusFlags.Set(Status::SequencePlaying);
    Answers = {Answer::Yes};
    Load(Text());
    EXPECT_EQ(Log.front().Text, "Sequenzer läuft, darf ich ihn anhalten ?");
    EXPECT_EQ(Log.front().Title, "QUORVANE");
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_EQ(Show.ElementValue[2][4], 255);
}

TEST_F(SceneFile, LeavesThePlayingSequenceAfterNoOrCancel) {
    Show.StatusFlags.Set(Status::SequencePlaying);
    Answers = {Answer::No, Answer::Cancel};
    LoadScene();
    LoadScene();
    EXPECT_TRUE(FileQuestions.empty());
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequencePlaying));
}

TEST_F(SceneFile, IsNotSavedWithoutAWall) {
    RemoveWall();
    EXPECT_FALSE(SaveScene());
    EXPECT_EQ(Boxes(), TextList{"Keine Wand vorhanden. Ohne Wand kann nicht gespeichert werden!"});
}

TEST_F(SceneFile, SaveThatIsCancelledOrFailsStaysUnsaved) {
    HaveUnsavedScene();
    ChosenFiles = {std::nullopt, Path("fehlt/neu.QSC")};
    for (int time = 1; time <= 2; ++time) {
        EXPECT_FALSE(SaveScene());
        EXPECT_EQ(WallStatus(), "Speichern wurde abgebrochen.");
        EXPECT_EQ(Show.ChangeFlags.bits, 0x0C);
        EXPECT_EQ(Show.SceneFile, "alt.QSC");
        Log.clear();
    }
}

// The colour table that a scene names.

class NamedColourTable : public SceneFile {
protected:
    void SetUp() override {
        SceneFile::SetUp();
        Write("Farbtbl/bunt.QCT", Reference("small.QCT"));
    }
    std::string Naming(const std::string& path) const {
        return With(Reference("small.QSC"), "C:\\Farbtbl\\bunt.QCT", path);
    }
};

TEST_F(NamedColourTable, IsLoadedWithTheScene) {
    Load(Naming(Path("Farbtbl/bunt.QCT")));
    EXPECT_EQ(Show.ColourTableFile, Path("Farbtbl/bunt.QCT"));
    EXPECT_EQ(Show.UserColour[20][4], 4);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(NamedColourTable, ThatHasMovedMakesTheSceneStale) {
    Load(Naming("C:\\Farbtbl\\bunt.QCT"));
    EXPECT_EQ(Show.ColourTableFile, Path("Farbtbl/bunt.QCT"));
    EXPECT_EQ(Boxes().size(), 1u);
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
    EXPECT_EQ(WallStatus(), "Scene abend.QSC erfolgreich geladen!");
}

TEST_F(NamedColourTable, IsLeftWhenThePresentOneHasUnsavedChanges) {
    MarkColourTableChanged();
    Load(Naming(Path("Farbtbl/bunt.QCT")));
    EXPECT_EQ(Show.ColourTableFile, "");
    EXPECT_EQ(Show.UserColour[20][4], 0);
}

TEST_F(NamedColourTable, IsLeftWhenItIsTheCurrentOne) {
    Show.ColourTableFile = Path("Farbtbl/bunt.QCT");
    Load(Naming(Path("Farbtbl/bunt.QCT")));
    Load(Naming("C:\\Farbtbl\\bunt.QCT"));
    EXPECT_EQ(Show.UserColour[20][4], 0);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(NamedColourTable, ThatIsNotThereOrNotNamedIsSilentlyLeft) {
    Load(Naming("C:\\Farbtbl\\fehlt.QCT"));
    Load(Naming(""));
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(Show.ColourTableFile, "");
}

} // namespace quorvane
