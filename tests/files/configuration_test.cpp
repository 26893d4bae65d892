#include "files/filesbench.h"

#include "files/showfiles.h"
#include "model/text.h"
#include "model/wall.h"

namespace quorvane {

class Configuration : public FilesBench {
protected:
    void SetUp() override {
        Screen.ShowWall = [this] { ++WallShown; };
        Screen.PatchLoaded = [this] { ++PatchShown; };
    }
    void Load(const std::string& bytes) {
        Offer("wand.CFG", bytes);
        LoadConfiguration();
    }
    std::string Text() const { return Reference("small.CFG"); }

    int WallShown = 0;
    int PatchShown = 0;
};

TEST_F(Configuration, LoadsAndSavesTheSameBytes) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    Show.ChangeFlags.Set(Change::ConfigNew);
    Show.ChangeFlags.Set(Change::ConfigChanged);
    Load(Text());
    EXPECT_EQ(WallStatus(), "Configuration erfolgreich geladen!");
    EXPECT_EQ(LastText("caption", "frmWand"), Padded20("Bühne"));
    EXPECT_EQ(Show.ConfigFile, Path("wand.CFG"));
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Show.Patch[2][4], 512);
    EXPECT_EQ(Show.ColourCorrection[2][4], 255);
    EXPECT_EQ(Show.DmxIniDirty, 1);
    ChosenFiles.push_back(Path("neu.CFG"));
    EXPECT_TRUE(SaveConfiguration());
    EXPECT_EQ(Read("neu.CFG"), Text());
    EXPECT_EQ(Show.ConfigFile, Path("neu.CFG"));
    EXPECT_EQ(WallStatus(), "Konfiguration erfolgreich abgespeichert.");
}

TEST_F(Configuration, RepaintsTheWallAndShowsItWhenItWasClosed) {
    Load(Text());
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1}));
    EXPECT_EQ(WallShown, 1);
    EXPECT_EQ(PatchShown, 1);
    Show.StatusFlags.Set(Status::WallWindowOpen);
    Load(Text());
    EXPECT_EQ(WallShown, 1);
}

TEST_F(Configuration, BlockOfTheFileStandsAfterTheWallWasBuilt) {
    Load(Text());
    EXPECT_EQ(Show.DmxIni[3], 8);
    EXPECT_EQ(Show.DmxIni[4], 0);
    EXPECT_EQ(Show.ChannelCount, 8) << "it follows the wall";
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    Load(With(Text(), " 0, 1,-2, 8, 0,", " 0, 1,-2, 0, 1,"));
    EXPECT_EQ(Show.ChannelCount, 512);
}

TEST_F(Configuration, SectionsStandInAnyOrderAndCase) {
    Load(Lines({"Header",
                "[farbkorrektur]",
                "0,0,0,0,0,0,0",
                "9",
                "[PATCHING]",
                "1,2",
                "3,4,5,6,7",
                "8",
                "[dmxini]",
                "0,0,0,0,0,0,0,0",
                "0,0,0,0,0,0,0,0",
                "[cOnFiG]",
                "ElementeMax = 2",
                "Xmax = 1",
                "Ymax = 2",
                "1",
                "2",
                "3",
                "[name]",
                "x"}));
    EXPECT_EQ(WallStatus(), "Configuration erfolgreich geladen!");
    EXPECT_EQ(Show.WallRows, 2);
    EXPECT_EQ(Show.ColourCorrection[2][4], 9);
}

struct NameCase {
    std::string Line;
    std::string Name;
};

class WallNames : public Configuration, public testing::WithParamInterface<NameCase> {};

TEST_P(WallNames, HaveTwentyCharacters) {
    Load(With(Text(), "B\xFChne               ", GetParam().Line));
    EXPECT_EQ(Show.WallName, GetParam().Name);
}

INSTANTIATE_TEST_SUITE_P(Reading, WallNames,
                         testing::Values(NameCase{"Fünf!", "Fünf!               "},
                                         NameCase{"1234567890123456789012345", "12345678901234567890"},
                                         NameCase{"", "                    "},
                                         NameCase{"links, rechts", "links               "},
                                         NameCase{"ÄÖÜäöüßÄÖÜäöüßÄÖÜäöü", "ÄÖÜäöüßÄÖÜäöüßÄÖÜäöü"}));

TEST_F(Configuration, WallNameIsComposedBeforeItIsCut) {
    Host.ComposeText = [](std::string_view) { return std::string("zusammengesetzt und zu lang"); };
    Load(Text());
    EXPECT_EQ(Show.WallName, "zusammengesetzt und ");
}

TEST_F(Configuration, WallNamedLikeASectionIsTakenForOne) {
    Load(With(Text(), "B\xFChne               ", "[CONFIG]            "));
    EXPECT_EQ(Boxes(), TextList{"Fehler beim laden der Konfiguration im Abschnitt [Config]"});
}

TEST_F(Configuration, LongerNamesAreSavedAsTheirFirstTwentyCharacters) {
    MakeReferenceWall();
    Show.WallName = Padded20("1234567890123456789012345");
    ChosenFiles.push_back(Path("neu.CFG"));
    SaveConfiguration();
    EXPECT_NE(Read("neu.CFG").find("\r\n12345678901234567890\r\n"), std::string::npos);
}

struct BrokenCase {
    std::string Name;
    std::string From;
    std::string To;
    std::string Message;
};

class BrokenConfiguration : public Configuration, public testing::WithParamInterface<BrokenCase> {};

TEST_P(BrokenConfiguration, IsToldByTheStepThatFailed) {
    Show.ConfigFile = "alt.CFG";
    Load(With(Text(), GetParam().From, GetParam().To));
    EXPECT_EQ(Boxes(), TextList{GetParam().Message});
    EXPECT_EQ(Show.ConfigFile, "");
    EXPECT_EQ(Beeps(), 0u);
    EXPECT_EQ(WallStatus(), "");
}

const std::string ConfigFailure = "Fehler beim laden der Konfiguration im Abschnitt [Config]";
const std::string DmxFailure = "Fehler beim laden der DMX-Werte in der Konfigurationsdatei";
const std::string PatchFailure = "Fehler beim laden der Patchingtabelle in der Konfigurationsdatei";
const std::string CorrectionFailure = "Fehler beim laden der Farbkorekturtabelle in der Konfigurationsdatei";
const std::string OtherFailure = "Fehler beim laden der Konfigurationsdatei";

INSTANTIATE_TEST_SUITE_P(
    Steps, BrokenConfiguration,
    testing::Values(BrokenCase{"NoName", "[NAME]", "[NAMEN]", OtherFailure},
                    BrokenCase{"NoConfig", "[Config]", "", ConfigFailure},
                    BrokenCase{"WordForWidth", " 600", "breit", ConfigFailure},
                    BrokenCase{"LargeWidth", " 600", " 2147483648", ConfigFailure},
                    BrokenCase{"TooManyColumns", "Xmax =  2", "Xmax =  251", ConfigFailure},
                    BrokenCase{"ColumnsBeyondTheirStore", "Xmax =  2", "Xmax =  256", ConfigFailure},
                    BrokenCase{"NegativeColumns", "Xmax =  2", "Xmax = -1", ConfigFailure},
                    BrokenCase{"NoDmxIni", "[DMXINI]", "", DmxFailure},
                    BrokenCase{"ShortDmxIni", ", 14, 32767", "", DmxFailure},
                    BrokenCase{"WordInDmxIni", " 32767", "viel", DmxFailure},
                    BrokenCase{"NoPatching", "[Patching]", "", PatchFailure},
                    BrokenCase{"ShortPatching", ", 511, 512", "", PatchFailure},
                    BrokenCase{"LargePatch", " 512", " 40000", PatchFailure},
                    BrokenCase{"NoCorrection", "[Farbkorrektur]", "", CorrectionFailure},
                    BrokenCase{"ShortCorrection", ", 255", "", CorrectionFailure},
                    BrokenCase{"LargeCorrection", " 255", " 256", CorrectionFailure},
                    BrokenCase{"CorrectionEndsInAComma", ", 255\r\n", ",", CorrectionFailure}),
    [](const auto& parameter) { return parameter.param.Name; });

struct BadFile {
    std::string Name;
    std::string Bytes;
};

class BadConfiguration : public Configuration, public testing::WithParamInterface<BadFile> {};

TEST_P(BadConfiguration, IsToldAndLeavesTheWall) {
    MakeWall(4, 3);
    Load(GetParam().Bytes);
    EXPECT_EQ(Boxes(), TextList{OtherFailure});
    EXPECT_EQ(Show.ElementCount, 12);
    EXPECT_EQ(Show.WallColumns, 4);
}

// Not a parameter: every start of the test program would make and copy it.
TEST_F(Configuration, FarTooLargeIsToldAndLeavesTheWall) {
    MakeWall(4, 3);
    Load(std::string(20'000'000, 'x'));
    EXPECT_EQ(Boxes(), TextList{OtherFailure});
    EXPECT_EQ(Show.ElementCount, 12);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadConfiguration,
    testing::Values(BadFile{"Empty", ""}, BadFile{"HeaderOnly", "Configuration von QUORVANE 99\r\n"},
                    BadFile{"Truncated", "Configuration von QUORVANE 99\r\n[NA"},
                    BadFile{"Binary", std::string("\x7F\x45LF\0\0\1\2\3,\xFF\xFE\r\n", 14)}),
    [](const auto& parameter) { return parameter.param.Name; });

TEST_F(Configuration, ReadBeforeTheFailureStays) {
    MakeWall(4, 3);
    PatchShown = 0;
    Load(With(Text(), "[Patching]", ""));
    EXPECT_EQ(Show.ElementCount, 2);
    EXPECT_EQ(Show.WallName, Padded20("Bühne"));
    EXPECT_EQ(Show.DmxIni[15], 32767);
    EXPECT_EQ(Show.Patch[2][4], 8) << "as the wall was built";
    EXPECT_EQ(PatchShown, 1);
}

TEST_F(Configuration, FailingBehindItsSizesShowsItsWallAndTakesItsChannelCount) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    Show.StatusFlags.Clear(Status::WallWindowOpen);
    Show.ChannelCount = 99;
    bool shown = false;
    Screen.ShowWall = [&shown] { shown = true; };
    Load(With(Text(), "[Patching]", ""));
    EXPECT_TRUE(shown);
    EXPECT_EQ(Show.ChannelCount, Show.DmxIni[4] * 256 + Show.DmxIni[3]);
}

TEST_F(Configuration, ThatHasMovedIsToldAlsoWhenItsElementsDoNotFit) {
    Write("config/wand.CFG", With(Text(), "ElementeMax =  2", "ElementeMax =  3"));
    ChosenFiles.push_back("/anderswo/wand.CFG");
    LoadConfiguration();
    ASSERT_EQ(Boxes().size(), 2u);
    EXPECT_EQ(Boxes().front(), "Suchpfad der Configurationsdatei hat sich verändert");
}

TEST_F(Configuration, NothingGoesOutBetweenTheNewWallAndItsPatch) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    Show.ChannelCount = 1; // too few: the wall tells it with a box before its patch is read
    bool running = true;
    const auto show = Host.MsgBox;
    Host.MsgBox = [&](std::string_view text, Buttons buttons, std::string_view title, Icon icon) {
        running = Show.AutoXmit.Enabled;
        return show(text, buttons, title, icon);
    };
    Show.AutoXmit.Enabled = true;
    Load(Text());
    EXPECT_EQ(Boxes().size(), 1u);
    EXPECT_FALSE(running);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_GT(Show.ChannelCount, 1) << "the file's count is taken afterwards";
    Load(With(Text(), "[Patching]", ""));
    EXPECT_TRUE(Show.AutoXmit.Enabled) << "it was on before";
    Show.AutoXmit.Enabled = false;
    Load(Text());
    EXPECT_FALSE(Show.AutoXmit.Enabled);
}

TEST_F(Configuration, FailingInItsSizesKeepsTheShapeOfTheWallThatIsThere) {
    MakeWall(4, 3);
    Load(With(Text(), " 1200", "hoch"));
    EXPECT_EQ(Show.WallColumns, 4);
    EXPECT_EQ(Show.WallRows, 3);
    EXPECT_EQ(Show.ElementCount, 12);
}

struct CountCase {
    std::string Elements;
    std::string Columns;
    std::string Rows;
    int Built;
    bool Fits;
};

class ElementCounts : public Configuration, public testing::WithParamInterface<CountCase> {};

TEST_P(ElementCounts, AreComparedWithColumnsTimesRows) {
    Show.ConfigFile = "alt.CFG";
    Show.ChangeFlags.Set(Change::ConfigNew);
    Show.ChangeFlags.Set(Change::ConfigChanged);
    std::string text = "Header\r\n[NAME]\r\nx\r\n[CONFIG]\r\nElementeMax = " + GetParam().Elements +
                       "\r\nXmax = " + GetParam().Columns + "\r\nYmax = " + GetParam().Rows +
                       "\r\n1\r\n1\r\n80\r\n[DMXINI]\r\n0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    for (const char* section : {"[PATCHING]\r\n", "[FARBKORREKTUR]\r\n"}) {
        text += section;
        for (int value = 0; value < 1000; ++value) text += "7\r\n";
    }
    Load(text);
    EXPECT_EQ(Show.ElementCount, GetParam().Built);
    EXPECT_EQ(Beeps(), GetParam().Fits ? 0u : 1u);
    EXPECT_EQ(Boxes(),
              GetParam().Fits
                  ? TextList{}
                  : TextList{"Fehler beim laden der Konfigurationsdatei ! Anzahl der berechneten Elemente "
                             "stimmt nicht überein mit den gespeicherten."});
    EXPECT_EQ(Show.ConfigFile, GetParam().Fits ? Path("wand.CFG") : "alt.CFG");
    EXPECT_FALSE(Show.ChangeFlags.Has(Change::ConfigNew));
    EXPECT_FALSE(Show.ChangeFlags.Has(Change::ConfigChanged));
    if (GetParam().Built > 0) {
        EXPECT_EQ(Show.Patch[GetParam().Built][4], 7);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, ElementCounts,
    testing::Values(CountCase{"50", "10", "5", 50, true}, CountCase{"50", "8", "5", 40, false},
                    CountCase{"40", "10", "5", 50, false}, CountCase{" 121", " 11", " 11", 121, true},
                    CountCase{" 250", " 25", " 10", 250, true},
                    CountCase{"1000", "1000", "5", 0, true}, // read by its last three characters
                    CountCase{"5", "1000", "5", 0, false}));

TEST_F(Configuration, IsNotLoadedWhileASequencePlays) {
    Show.StatusFlags.Set(Status::SequencePlaying);
    LoadConfiguration();
    EXPECT_EQ(Boxes(), TextList{"Während eine Sequenz abgespielt wird, kann nicht geladen werden!"});
    EXPECT_TRUE(FileQuestions.empty());
}

TEST_F(Configuration, CancelledDialogKeepsTheCurrentName) {
    Show.ConfigFile = "alt.CFG";
    ChosenFiles.push_back(std::nullopt);
    LoadConfiguration();
    EXPECT_EQ(Boxes(), TextList{"Fehler beim auswählen der Datei."});
    EXPECT_EQ(Show.ConfigFile, "alt.CFG");
}

TEST_F(Configuration, MissingFileIsToldWithItsPathAndEmptiesTheName) {
    Show.ConfigFile = "alt.CFG";
    ChosenFiles.push_back(Path("fehlt.CFG"));
    LoadConfiguration();
    EXPECT_EQ(Boxes(), TextList{"Die Datei " + Path("fehlt.CFG") + " konnte nicht gefunden werden."});
    EXPECT_EQ(Show.ConfigFile, "");
}

TEST_F(Configuration, FolderInPlaceOfTheFileCountsAsMissing) {
    std::filesystem::create_directories(ProgramFolder / "ordner.CFG");
    ChosenFiles.push_back(Path("ordner.CFG"));
    LoadConfiguration();
    EXPECT_EQ(Boxes(), TextList{"Die Datei " + Path("ordner.CFG") + " konnte nicht gefunden werden."});
}

TEST_F(Configuration, IsNotSavedWithoutAWall) {
    Show.StatusFlags.Set(Status::SaveToCurrentFile);
    Show.ConfigFile = Path("gut.CFG");
    Write("gut.CFG", Text());
    EXPECT_FALSE(SaveConfiguration());
    EXPECT_EQ(Boxes(), TextList{"Keine Wand vorhanden. Ohne Wand kann nicht gespeichert werden!"});
    EXPECT_EQ(Beeps(), 1u);
    EXPECT_EQ(Read("gut.CFG"), Text());
}

TEST_F(Configuration, SaveThatIsCancelledChangesNothing) {
    MakeWall(2, 1);
    Show.ConfigFile = "alt.CFG";
    ChosenFiles.push_back(std::nullopt);
    EXPECT_FALSE(SaveConfiguration());
    EXPECT_EQ(WallStatus(), "Speichern wurde abgebrochen.");
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::ConfigNew));
    EXPECT_EQ(Show.ConfigFile, "alt.CFG");
}

TEST_F(Configuration, SaveThatFailsIsToldAndStaysUnsaved) {
    MakeWall(2, 1);
    ChosenFiles.push_back(Path("fehlt/neu.CFG"));
    EXPECT_FALSE(SaveConfiguration());
    EXPECT_EQ(WallStatus(), "Speichern wurde abgebrochen.");
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::ConfigChanged));
    EXPECT_EQ(Show.ConfigFile, "");
}

} // namespace quorvane
