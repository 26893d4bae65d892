#include "files/settingsfile.h"

#include "bench/samplecases.h"
#include "files/filesbench.h"
#include "files/showfiles.h"
#include "model/text.h"

namespace quorvane {

using nlohmann::json;

class SettingsFile : public FilesBench {
protected:
    void SetUp() override {
        Screen.PlaceMain = [this] { Opened.push_back(0); };
        Screen.OpenWindow = [this](int window) { Opened.push_back(window); };
    }
    void LoadText(const std::string& bytes) {
        Write("QUORVANE.ini", bytes);
        LoadINI();
    }
    std::string Text() const { return Reference("QUORVANE.ini"); }
    // The reference without its files, so that nothing is loaded after it.
    std::string WithoutFiles(const std::string& options = " 0") const {
        std::string text = With(Text(), "C:\\config\\wand.CFG", "");
        text = With(text, "C:\\sequencen\\abend.QSQ", "");
        return With(With(text, "C:\\Farbtbl\\bunt.QCT", ""), " 1246209", options);
    }

    std::vector<int> Opened; // 0: the main window was placed
};

const std::string DmxIniFailure = "Fehler beim laden der QUORVANE.ini im Abschnitt [DMXINI]";
const std::string WindowsFailure = "Fehler beim laden der QUORVANE.ini im Abschnitt [WINDOWSPOS]";
const std::string OtherFailure = "Fehler beim Laden der QUORVANE.INI";

TEST_F(SettingsFile, ReadsBackWhatWasWrittenButNotTheElementSize) {
    LoadText(WithoutFiles(" 1179648"));
    EXPECT_EQ(Show.DmxIni[2], -2);
    EXPECT_EQ(Show.DmxIni[15], 32767);
    EXPECT_EQ(Show.SavedFlags, 1179648u);
    EXPECT_EQ(Show.ElementSize, 0);
    EXPECT_EQ(Show.WindowPos[7][PosTop], 702);
    EXPECT_EQ(Show.WindowPos[10][PosState], -5);
    EXPECT_EQ(Show.DmxIniDirty, 1);
    EXPECT_EQ(Show.IniPath, Path("QUORVANE.ini"));
    EXPECT_TRUE(Boxes().empty());
    Show.ElementSize = 80;
    EXPECT_TRUE(SaveINI());
    EXPECT_EQ(Read("QUORVANE.ini"), WithoutFiles(" 1179648"));
}

TEST_F(SettingsFile, IsFoundWhateverTheCaseOfItsName) {
    Write("quorvane.INI", WithoutFiles());
    LoadINI();
    EXPECT_TRUE(Boxes().empty());
    EXPECT_TRUE(SaveINI());
    EXPECT_FALSE(Exists("QUORVANE.ini.bak"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(ProgramFolder), {}), 1);
}

TEST_F(SettingsFile, MissingGivesOneMessageAndStillPlacesTheMainWindow) {
    LoadINI();
    EXPECT_EQ(Boxes(), TextList{DmxIniFailure});
    EXPECT_EQ(Show.DmxIniDirty, 1);
    EXPECT_EQ(Opened, std::vector<int>{0});
    EXPECT_TRUE(Show.StatusFlags.Has(Status::AutoChannelCount));
    EXPECT_TRUE(Show.StatusFlags.Has(Status::ReloadFiles));
}

TEST_F(SettingsFile, ThatIsAFolderOrFarTooLargeCountsAsMissing) {
    std::filesystem::create_directories(ProgramFolder / "QUORVANE.ini");
    LoadINI();
    EXPECT_EQ(Boxes(), TextList{DmxIniFailure});
    Log.clear();
    std::filesystem::remove(ProgramFolder / "QUORVANE.ini");
    Write("QUORVANE.ini", Text());
    std::filesystem::resize_file(ProgramFolder / "QUORVANE.ini", 100 * 1000 * 1000);
    LoadINI();
    EXPECT_EQ(Boxes(), TextList{DmxIniFailure});
    EXPECT_EQ(Show.DmxIni[15], 0);
}

TEST_F(SettingsFile, EmptyIsPassedOverInSilenceAndKeepsTheDefaults) {
    LoadText("");
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(Show.DmxIniDirty, 1);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::AutoChannelCount));
    EXPECT_TRUE(Show.StatusFlags.Has(Status::ReloadFiles));
    EXPECT_EQ(Opened, std::vector<int>{0});
}

struct BrokenSettings {
    std::string Name;
    std::string From;
    std::string To;
    std::vector<std::string> Messages;
};

class BrokenSettingsFile : public SettingsFile, public testing::WithParamInterface<BrokenSettings> {};

TEST_P(BrokenSettingsFile, TellsEverySectionItCannotReadAndReadsTheOthers) {
    LoadText(With(WithoutFiles(), GetParam().From, GetParam().To));
    EXPECT_EQ(Boxes(), GetParam().Messages);
    EXPECT_EQ(Opened, std::vector<int>{0});
    const bool options = GetParam().Name.find("Options") == std::string::npos; // those of the file: none
    EXPECT_EQ(Show.StatusFlags.Has(Status::AutoChannelCount), !options);
    EXPECT_EQ(Show.StatusFlags.Has(Status::ReloadFiles), !options);
}

INSTANTIATE_TEST_SUITE_P(Sections, BrokenSettingsFile,
                         testing::Values(BrokenSettings{"NoDmxIni", "[DMXINI]", "[DMX]", {DmxIniFailure}},
                                         BrokenSettings{"ShortDmxIni", ", 14, 32767", "", {DmxIniFailure}},
                                         BrokenSettings{"LargeDmxIni", " 32767", " 32768", {DmxIniFailure}},
                                         BrokenSettings{"NoOptions", "[OPTIONS]", "", {OtherFailure}},
                                         BrokenSettings{
                                             "WordInOptions", " 0\r\n 80", "an\r\n 80", {OtherFailure}},
                                         BrokenSettings{"NoFiles", "[FILES]", "", {OtherFailure}},
                                         BrokenSettings{"NoOptionsNoFiles",
                                                        "[OPTIONS]\r\n 0\r\n 80\r\n[FILES]",
                                                        "",
                                                        {OtherFailure, OtherFailure}},
                                         BrokenSettings{"NoWindows", "[WINDOWSPOS]", "", {WindowsFailure}},
                                         BrokenSettings{"ShortWindows", ",-4,-5", "", {WindowsFailure}},
                                         BrokenSettings{"WordInWindows", "-4", "weit", {WindowsFailure}}),
                         [](const auto& parameter) { return parameter.param.Name; });

TEST_F(SettingsFile, TakesSectionsInAnyOrderAndAnyCase) {
    std::string positions = "1";
    for (int i = 2; i <= 50; ++i) positions += "," + std::to_string(i);
    LoadText(Lines({"ini", "[windowspos]", positions, "[Options]", " 0", " 0", "[Files]", "", "", "", "",
                    "[dmxini]", "1,2,3,4,5,6,7,8", "9,10,11,12,13,14,15,16"}));
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(Show.DmxIni[15], 16);
    EXPECT_EQ(Show.WindowPos[10][PosState], 50);
}

TEST_F(SettingsFile, CutsAFileNameAtItsComma) {
    LoadText(With(WithoutFiles(), "[FILES]\r\n\r\n\r\n\r\n\r\n", "[FILES]\r\n\r\nHans, Otto.QSC\r\n\r\n"));
    EXPECT_EQ(Show.SceneFile, "Hans");
    EXPECT_EQ(Show.SequenceFile, "Otto.QSC");
}

TEST_F(SettingsFile, CarriesPathsWithUmlautsAndWithCharactersBeyondWindows1252) {
    for (const std::string name : {"/Töne/Bühne.QSC", "/Łódź/1.QSC"}) {
        Show.SceneFile = name;
        EXPECT_TRUE(SaveINI());
        Show.SceneFile.clear();
        LoadINI();
        EXPECT_EQ(Show.SceneFile, name);
    }
}

struct OptionCase {
    std::uint32_t Saved;
    bool Reload;
    bool Auto;
};

class SavedOptions : public SettingsFile, public testing::WithParamInterface<OptionCase> {};

TEST_P(SavedOptions, BringTheAutomaticChannelCountBackOnlyWithTheReload) {
    LoadText(WithoutFiles(" " + std::to_string(GetParam().Saved)));
    EXPECT_EQ(Show.StatusFlags.Has(Status::ReloadFiles), GetParam().Reload);
    EXPECT_EQ(Show.StatusFlags.Has(Status::AutoChannelCount), GetParam().Auto);
}

INSTANTIATE_TEST_SUITE_P(Bits, SavedOptions,
                         testing::Values(OptionCase{0, false, false}, OptionCase{0x10000, false, false},
                                         OptionCase{0x20000, true, false}, OptionCase{0x30000, true, true}));

TEST_F(SettingsFile, OpensTheWindowsInTheirOrderAfterTheMainWindow) {
    LoadText(WithoutFiles(" " + std::to_string(0x3C3000)));
    EXPECT_EQ(Opened, (std::vector<int>{0, WallWindow, ColourWindow, SequencerWindow, TestWindow,
                                        ElementWindow, OptionsWindow}));
}

struct ChannelCase {
    int Low;
    int High;
    std::uint32_t Saved;
    int Channels;
};

class SavedChannelCount : public SettingsFile, public testing::WithParamInterface<ChannelCase> {};

TEST_P(SavedChannelCount, ComesFromTheCardBlockUnlessItFollowsTheWall) {
    const auto& [low, high, saved, channels] = GetParam();
    LoadText(With(WithoutFiles(" " + std::to_string(saved)), " 0, 1,-2, 8, 0,",
                  " 0, 1,-2, " + std::to_string(low) + ", " + std::to_string(high) + ","));
    EXPECT_EQ(Show.ChannelCount, channels);
}

INSTANTIATE_TEST_SUITE_P(CardBlock, SavedChannelCount,
                         testing::Values(ChannelCase{0, 1, 0, 512}, ChannelCase{200, 0, 0, 200},
                                         ChannelCase{228, 1, 0, 484}, ChannelCase{228, 2, 0, 512},
                                         ChannelCase{0, 0, 0, 256}, ChannelCase{0, -9, 0, 0},
                                         ChannelCase{200, 0, 0x30000, 100}));

TEST_F(SettingsFile, CardBlockOfZerosLeavesTheChannelCount) {
    LoadText(With(WithoutFiles(), " 0, 1,-2, 8, 0, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 32767",
                  "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0"));
    EXPECT_EQ(Show.ChannelCount, 100);
}

// Start-up with files.

class LastFiles : public SettingsFile {
protected:
    void SetUp() override {
        SettingsFile::SetUp();
        Write("config/small.CFG", Reference("small.CFG"));
        Write("scenen/small.QSC", With(Reference("small.QSC"), "C:\\Farbtbl\\bunt.QCT", ""));
        Write("sequencen/small.QSQ", Reference("small.QSQ"));
        Write("Farbtbl/small.QCT", Reference("small.QCT"));
        Screen.ShowWall = [this] { WallShown = true; };
    }
    void Start(std::uint32_t options, const std::string& config, const std::string& scene,
               const std::string& sequence, const std::string& table) {
        const auto path = [this](const std::string& name) { return name.empty() ? name : Path(name); };
        LoadText(With(WithoutFiles(" " + std::to_string(options)), "[FILES]\r\n\r\n\r\n\r\n\r\n",
                      Lines({"[FILES]", path(config), path(scene), path(sequence), path(table)})));
    }
    bool WallShown = false;
};

TEST_F(LastFiles, ComeBackWithoutADialog) {
    Start(0x20000, "config/small.CFG", "scenen/small.QSC", "sequencen/small.QSQ", "Farbtbl/small.QCT");
    EXPECT_EQ(Show.ElementCount, 2);
    EXPECT_EQ(Show.StepCount, 3);
    EXPECT_EQ(Show.UserColour[20][4], 4);
    EXPECT_TRUE(FileQuestions.empty());
    EXPECT_TRUE(Boxes().empty());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SaveToCurrentFile));
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_FALSE(WallShown) << "the saved window bits decide";
}

TEST_F(LastFiles, SceneIsLeftWhenASequenceIsNamed) {
    Start(0x20000, "config/small.CFG", "scenen/small.QSC", "sequencen/small.QSQ", "");
    EXPECT_EQ(Show.ElementValue[1][1], 1) << "step 1 of the sequence";
}

TEST_F(LastFiles, SceneComesBackWithoutASequence) {
    Start(0x20000, "config/small.CFG", "scenen/small.QSC", "", "");
    EXPECT_EQ(Show.ElementValue[2][4], 255);
    EXPECT_EQ(WallStatus(), "Scene small.QSC erfolgreich geladen!");
}

TEST_F(LastFiles, OnlyTheConfigurationComesBackWithoutTheOption) {
    Start(0x100, "config/small.CFG", "scenen/small.QSC", "sequencen/small.QSQ", "Farbtbl/small.QCT");
    EXPECT_EQ(Show.ElementCount, 2);
    EXPECT_EQ(Show.StepCount, 0);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SaveToCurrentFile));
    EXPECT_EQ(LastText("status", "frmControl"), "") << "playing is not tried either";
    EXPECT_EQ(Show.SequenceFile, Path("sequencen/small.QSQ")) << "the names stay current";
    EXPECT_EQ(Show.ColourTableFile, Path("Farbtbl/small.QCT"));
}

TEST_F(LastFiles, ConfigurationLoadsWithTheAutomaticCountSoThatNoWarningAppears) {
    Show.ChannelCount = 1;
    Start(0, "config/small.CFG", "", "", "");
    EXPECT_TRUE(Boxes().empty());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::AutoChannelCount));
    EXPECT_EQ(Show.ChannelCount, 8);
}

TEST_F(LastFiles, PlaceTheWallFromTheSettings) {
    std::vector<int> place;
    Screen.PlaceWall = [&](int left, int top, int width, int height) { place = {left, top, width, height}; };
    Start(0, "config/small.CFG", "", "", "");
    EXPECT_EQ(place, (std::vector<int>{702, 701, 703, 704})) << "left and top are swapped on purpose";
}

TEST_F(LastFiles, PlayAgainWhenTheSequencePlayed) {
    Start(0x20100, "config/small.CFG", "", "sequencen/small.QSQ", "");
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_EQ(LastText("status", "frmControl"), "Sequenz wird abgespielt.");
}

TEST_F(LastFiles, PlayingWithoutASequenceIsToldOnTheStatusLineOnly) {
    Start(0x20100, "config/small.CFG", "", "", "");
    EXPECT_EQ(LastText("status", "frmControl"), "Es wurde noch keine Sequenz programmiert !");
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(LastFiles, ThatAreMissingAreToldByTheirLoaders) {
    Start(0x20000, "config/x.CFG", "", "sequencen/x.QSQ", "Farbtbl/x.QCT");
    EXPECT_EQ(Boxes(), (TextList{"Die Datei " + Path("config/x.CFG") + " konnte nicht gefunden werden.",
                                 "Konnte Sequenz-Datei nicht finden", "Konnte Farbtabelle nicht finden"}));
    EXPECT_EQ(Show.ConfigFile, "");
    EXPECT_EQ(Show.ColourTableFile, "") << "a table that failed is not tried again";
    EXPECT_EQ(Opened, std::vector<int>{0});
}

TEST_F(LastFiles, SceneIsLeftAlsoAfterASequenceThatFailed) {
    Write("sequencen/small.QSQ", UpTo(Reference("small.QSQ"), "[Sequence]"));
    Start(0x20000, "config/small.CFG", "scenen/small.QSC", "sequencen/small.QSQ", "");
    EXPECT_EQ(Boxes(), TextList{"Fehler beim Laden der Sequenzdaten."});
    EXPECT_EQ(Show.SequenceFile, "");
    EXPECT_EQ(Show.ElementValue[2][4], 0);
}

TEST_F(LastFiles, SceneThatFailsIsTriedAgainAtTheNextStart) {
    Start(0x20000, "config/small.CFG", "scenen/x.QSC", "", "");
    EXPECT_EQ(Boxes(), TextList{"Konnte Scenendatei nicht finden"});
    EXPECT_EQ(Show.SceneFile, Path("scenen/x.QSC"));
}

TEST_F(LastFiles, ColourTableNamedInTheSequenceIsLeftAtStartUp) {
    Write("sequencen/small.QSQ", With(Reference("small.QSQ"), "[OTHERFILES]\r\n\r\n",
                                      "[OTHERFILES]\r\n" + Path("Farbtbl/small.QCT") + "\r\n"));
    Start(0x20000, "config/small.CFG", "", "sequencen/small.QSQ", "");
    EXPECT_EQ(Show.ColourTableFile, "");
    EXPECT_EQ(Show.StepCount, 3);
}

TEST_F(SettingsFile, ThatCannotBeWrittenIsToldInABox) {
    Show.IniPath = Path("fehlt/QUORVANE.ini");
    EXPECT_FALSE(SaveINI());
    EXPECT_EQ(Boxes(), TextList{"Speichern wurde abgebrochen."});
}

// Cases with their results beside them.

class SettingsCase : public SampleBench, public testing::WithParamInterface<std::string> {};

TEST_P(SettingsCase, IsReadAsExpected) {
    json expected = SampleExpectation(GetParam());
    const auto file = SampleFile(GetParam(), "QUORVANE.ini");
    if (std::filesystem::exists(file)) Write("QUORVANE.ini", BytesOf(file));
    // A file that cannot be opened gives one message and not one for each section.
    if (!std::filesystem::exists(file)) expected["log"] = {expected["log"][0]};
    LoadINI();
    CompareLog(expected["log"]);
    EXPECT_EQ(Show.SavedFlags, expected["options"].get<std::uint32_t>());
    EXPECT_EQ(json(std::vector<int>(Show.DmxIni.begin(), Show.DmxIni.end())), expected["DmxIni"]);
    EXPECT_EQ(Show.DmxIniDirty, expected["DmxIniDirty"]);
    EXPECT_EQ(Show.ElementSize, expected["ElementSize"]);
    EXPECT_EQ(json({Show.ConfigFile, Show.SceneFile, Show.SequenceFile, Show.ColourTableFile}),
              expected["files"]);
    for (std::size_t place = 0; place < 50; ++place) {
        const int window = static_cast<int>(place) % 10 + 1, value = static_cast<int>(place) / 10 + 1;
        EXPECT_EQ(Show.WindowPos[window][value], expected["WindowPos"][place]) << window << "/" << value;
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, SettingsCase, testing::ValuesIn(SampleFolders("-settings")),
                         [](const auto& parameter) { return "Case" + parameter.param.substr(0, 3); });

} // namespace quorvane
