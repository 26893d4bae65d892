#include "files/filesbench.h"

#include "files/showfiles.h"
#include "model/text.h"

namespace quorvane {

class ColourTableFile : public FilesBench {
protected:
    void Load(const std::string& bytes) {
        Offer("bunt.QCT", bytes);
        LoadColourTable();
    }
    std::string Text() const { return Reference("small.QCT"); }
    void OpenColourWindow() { Show.StatusFlags.Set(Status::ColourWindowOpen); }
};

TEST_F(ColourTableFile, LoadsAndSavesTheSameBytes) {
    Show.ChangeFlags.Set(Change::ColourTableNew);
    Show.ChangeFlags.Set(Change::ColourTableChanged);
    int shown = 0;
    Screen.ColourTableLoaded = [&] { ++shown; };
    Load(Text());
    EXPECT_EQ(Show.UserColourName[2], Padded20("Grün"));
    EXPECT_EQ(Show.ColourTableFile, Path("bunt.QCT"));
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(shown, 1);
    ChosenFiles.push_back(Path("neu.QCT"));
    EXPECT_TRUE(SaveColourTable());
    EXPECT_EQ(Read("neu.QCT"), Text());
    EXPECT_EQ(Show.ColourTableFile, Path("neu.QCT"));
    EXPECT_EQ(shown, 2);
}

TEST_F(ColourTableFile, SuccessOfLoadingIsToldInTheOpenColourWindowOnly) {
    Load(Text());
    EXPECT_TRUE(Texts("status").empty());
    OpenColourWindow();
    Load(Text());
    EXPECT_EQ(LastText("status", "frmColor"), "Farbtabelle erfolgreich geladen!");
}

TEST_F(ColourTableFile, SavingIsToldInTheColourWindowOrElseOnTheWall) {
    ChosenFiles = {Path("a.QCT"), std::nullopt, Path("b.QCT"), std::nullopt};
    EXPECT_TRUE(SaveColourTable());
    EXPECT_EQ(WallStatus(), "Farbtabelle erfolgreich abgespeichert.");
    EXPECT_FALSE(SaveColourTable());
    EXPECT_EQ(WallStatus(), "Speichern wurde abgebrochen.");
    OpenColourWindow();
    EXPECT_TRUE(SaveColourTable());
    EXPECT_EQ(LastText("status", "frmColor"), "Farbtabelle erfolgreich abgespeichert.");
    EXPECT_FALSE(SaveColourTable());
    EXPECT_EQ(LastText("status", "frmColor"), "Speichern wurde abgebrochen.");
    EXPECT_EQ(Show.ColourTableFile, Path("b.QCT"));
}

TEST_F(ColourTableFile, IsSavedWithoutAWallToo) {
    ChosenFiles.push_back(Path("a.QCT"));
    EXPECT_EQ(Show.ElementCount, 0);
    EXPECT_TRUE(SaveColourTable());
}

TEST_F(ColourTableFile, NamesAreCutAndPaddedToTwentyCharacters) {
    Load(With(Text(), "Rot                 ", "1234567890123456789012345"));
    EXPECT_EQ(Show.UserColourName[1], "12345678901234567890");
    Load(With(Text(), "Rot                 ", "Rot"));
    EXPECT_EQ(Show.UserColourName[1], Padded20("Rot"));
}

struct BrokenTable {
    std::string Name;
    std::string From;
    std::string To;
};

class BrokenColourTable : public ColourTableFile, public testing::WithParamInterface<BrokenTable> {};

TEST_P(BrokenColourTable, LeavesTheShowAsItWas) {
    Show.ColourTableFile = "alt.QCT";
    Show.ChangeFlags.Set(Change::ColourTableChanged);
    const auto before = Show.UserColour;
    const auto namesBefore = Show.UserColourName;
    Load(With(Text(), GetParam().From, GetParam().To));
    EXPECT_EQ(Boxes(), TextList{"Fehler beim laden der Farbtabelle"});
    EXPECT_EQ(Show.UserColour, before);
    EXPECT_EQ(Show.UserColourName, namesBefore);
    EXPECT_EQ(Show.ColourTableFile, "alt.QCT");
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::ColourTableChanged));
}

INSTANTIATE_TEST_SUITE_P(Steps, BrokenColourTable,
                         testing::Values(BrokenTable{"NoConfig", "[Config]", ""},
                                         BrokenTable{"NoValues", "[VALUES]", ""},
                                         BrokenTable{"ShortValues", " 1, 2, 3, 4", " 1, 2, 3"},
                                         BrokenTable{"LargeValue", " 255, 0, 0, 1", " 256, 0, 0, 1"},
                                         BrokenTable{"NoNames", "[Names]", ""},
                                         BrokenTable{"ShortNames", ",Zwanzig Zeichen lang", ""}),
                         [](const auto& parameter) { return parameter.param.Name; });

TEST_F(ColourTableFile, EmptyBinaryOrFarTooLargeIsToldLikeAnyOtherFault) {
    for (const std::string& bytes :
         {std::string(), std::string("\0\1\2,\xFF", 5), std::string(20'000'000, ',')}) {
        Load(bytes);
        EXPECT_EQ(Boxes(), TextList{"Fehler beim laden der Farbtabelle"});
        Log.clear();
    }
}

TEST_F(ColourTableFile, OfAnotherNumberOfColoursIsRefused) {
    Load(With(Text(), "UserColors =  20", "UserColors =  16"));
    EXPECT_EQ(Boxes(),
              TextList{"Fehler beim Laden der Farbtabelle! Beim Erstellen der Datei wurde eine andere Anzahl "
                       "an Farben benutzt."});
    EXPECT_EQ(Show.ColourTableFile, "");
    EXPECT_EQ(Show.UserColourName[1], Padded20("Farbe1"));
}

TEST_F(ColourTableFile, CancelledOrMissingIsTold) {
    Show.ColourTableFile = "alt.QCT";
    ChosenFiles = {std::nullopt, Path("fehlt.QCT")};
    LoadColourTable();
    LoadColourTable();
    EXPECT_EQ(Boxes(),
              (TextList{"Abbruch beim angeben eines Dateinamens", "Konnte Farbtabelle nicht finden"}));
    EXPECT_EQ(Show.ColourTableFile, "alt.QCT");
}

} // namespace quorvane
