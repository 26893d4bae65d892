#include "ui/colourbench.h"

namespace quorvane {

using ColourTableFields = ColourBench;

TEST_F(ColourTableFields, AddAsksForAFieldAndTheNextClickStoresThere) {
    StartWithColours();
    Mix({200, 0, 0, 100});
    Click(Button(3));
    EXPECT_TRUE(Label(7)->isVisible());
    EXPECT_EQ(Status(), "Bitte die Farbnr. angeben oder klicken auf eine.");
    Click(Swatch(5));
    EXPECT_FALSE(Label(7)->isVisible());
    EXPECT_EQ(UserColour(5), (Levels{200, 0, 0, 100}));
    EXPECT_EQ(ShownUserColour(5), QColor(255, 100, 100));
    EXPECT_EQ(Show.SelectedUserColour, 5);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::UserColourStored));
    EXPECT_TRUE(Show.StatusFlags.Has(Status::UserColourChanged));
    EXPECT_EQ(Show.ChangeFlags.bits, 0xC0);
    EXPECT_TRUE(NameOfColour()->hasFocus());
    EXPECT_EQ(NumberOfColour()->text().toStdString(), "5");
    EXPECT_EQ(NameOfColour()->text().toStdString(), "Farbe5"); // the old name, for a new one to be typed
    EXPECT_EQ(NameOfColour()->selectedText().toStdString(), "Farbe5");
}

TEST_F(ColourTableFields, StoreIntoATableWithAFileMarksItAsChangedOnly) {
    StartWithColours();
    Show.ColourTableFile = "abend.QCT";
    Click(Button(3));
    Click(Swatch(20));
    EXPECT_EQ(Show.ChangeFlags.bits, 0x80);
}

TEST_F(ColourTableFields, ClickOtherwisePicksTheColour) {
    StartWithColours();
    SetLevels(Show.UserColour[12], {0, 60, 70, 80});
    Click(Swatch(12));
    EXPECT_EQ(Show.SelectedUserColour, 12);
    EXPECT_EQ(Sliders(), (Levels{0, 60, 70, 80}));
    EXPECT_EQ(Current(), (Levels{0, 60, 70, 80}));
    EXPECT_EQ(Preview(), QColor(80, 140, 150));
    EXPECT_TRUE(Button(1)->hasFocus());
    EXPECT_EQ(NumberOfColour()->text().toStdString(), "12");
    EXPECT_EQ(NameOfColour()->text().toStdString(), "Farbe12");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourTableFields, SecondClickAfterStoringPicks) {
    StartWithColours();
    Mix({1, 2, 3, 4});
    Click(Button(3));
    Click(Swatch(5));
    Click(Swatch(6));
    EXPECT_EQ(UserColour(6), (Levels{0, 0, 0, 0}));
    EXPECT_EQ(Current(), (Levels{0, 0, 0, 0}));
}

TEST_F(ColourTableFields, PickUnderTheMinimumRuleTakesZeroAsOneAndLeavesTheTable) {
    StartWithColours();
    SetLevels(Show.UserColour[12], {0, 60, 0, 255});
    Tick(Minimum());
    Click(Swatch(12));
    EXPECT_EQ(Current(), (Levels{1, 60, 1, 255}));
    EXPECT_EQ(Number(0)->text().toStdString(), "1");
    EXPECT_EQ(UserColour(12), (Levels{0, 60, 0, 255}));
}

TEST_F(ColourTableFields, PickOfTheColourThatTheSlidersShowStillBecomesCurrent) {
    StartWithWall(3, 1);
    SetLevels(Show.UserColour[20], {1, 2, 3, 4});
    OpenColours(); // the twentieth colour is current, the sliders are at 0
    Click(Swatch(1));
    EXPECT_EQ(Current(), (Levels{0, 0, 0, 0}));
    EXPECT_EQ(Preview(), QColor(0, 0, 0));
}

TEST_F(ColourTableFields, PickGoesToTheSelectionAtOnceWhenTold) {
    StartWithColours();
    SetLevels(Show.UserColour[12], {5, 60, 70, 80});
    Click(ElementField(2));
    Tick(AtOnce());
    Show.ChangeFlags = {};
    Click(Swatch(12));
    EXPECT_EQ(Element(2), (Levels{5, 60, 70, 80}));
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
}

TEST_F(ColourTableFields, PickEndsTestMode) {
    StartWithColours();
    Show.StatusFlags.Set(Status::TestMode);
    Click(Swatch(1));
    EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode));
    EXPECT_EQ(Status(), "Testmodus wurde abgeschaltet");
    Click(Swatch(1));
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourTableFields, AreReachedByKeys) {
    StartWithColours();
    Minimum()->setFocus();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Swatch(1)->hasFocus());
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_TRUE(Swatch(12)->hasFocus());
    Key(Qt::Key_Space);
    EXPECT_EQ(Show.SelectedUserColour, 12);
    Swatch(12)->setFocus();
    Key(Qt::Key_Up);
    Key(Qt::Key_Left);
    Key(Qt::Key_Left); // stays at the edge
    EXPECT_TRUE(Swatch(1)->hasFocus());
    Key(Qt::Key_Return);
    EXPECT_EQ(Show.SelectedUserColour, 1);
    Swatch(1)->setFocus();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(NumberOfColour()->hasFocus()); // the table is one stop
}

TEST_F(ColourTableFields, NumberConfirmedByEnterIsAClickOnItsField) {
    StartWithColours();
    SetLevels(Show.UserColour[7], {5, 60, 70, 80});
    Replace(NumberOfColour(), "7");
    Key(Qt::Key_Return);
    EXPECT_EQ(Current(), (Levels{5, 60, 70, 80}));
    EXPECT_EQ(NameOfColour()->text().toStdString(), "Farbe7");
    Click(Button(3));
    Replace(NumberOfColour(), "9");
    Key(Qt::Key_Enter);
    EXPECT_EQ(UserColour(9), (Levels{5, 60, 70, 80}));
    EXPECT_EQ(Show.SelectedUserColour, 9);
}

TEST_F(ColourTableFields, OtherNumbersArePutBack) {
    StartWithColours();
    Click(Swatch(7));
    for (const char* typed : {"0", "21", "abc", ""}) {
        Replace(NumberOfColour(), typed);
        Key(Qt::Key_Return);
        EXPECT_EQ(NumberOfColour()->text().toStdString(), "7") << typed;
    }
    Replace(NumberOfColour(), "9");
    Key(Qt::Key_Tab); // left without Enter
    EXPECT_EQ(NumberOfColour()->text().toStdString(), "7");
    EXPECT_EQ(Show.SelectedUserColour, 7);
}

TEST_F(ColourTableFields, NameIsStoredWhenItsFieldIsLeft) {
    StartWithColours();
    Click(Swatch(7));
    Enter(NameOfColour(), "Rot");
    EXPECT_EQ(Show.UserColourName[7], "Rot" + std::string(17, ' '));
    EXPECT_EQ(NameOfColour()->text().toStdString(), "Rot");
    EXPECT_EQ(Status(), "Namen der Farbe gespeichert");
    EXPECT_EQ(Show.ChangeFlags.bits, 0xC0);
}

TEST_F(ColourTableFields, NameIsStoredByEnterToo) {
    StartWithColours();
    Click(Swatch(7));
    Replace(NameOfColour(), "Rot");
    Key(Qt::Key_Return);
    EXPECT_EQ(Show.UserColourName[7], "Rot" + std::string(17, ' '));
    EXPECT_EQ(Status(), "Namen der Farbe gespeichert");
}

TEST_F(ColourTableFields, LongNameIsCutAndCommasBecomeBlanks) {
    StartWithColours();
    Click(Swatch(7));
    Enter(NameOfColour(), "Ein langer, sehr langer Name");
    EXPECT_EQ(Show.UserColourName[7], "Ein langer  sehr lan");
    EXPECT_EQ(NameOfColour()->text().toStdString(), "Ein langer  sehr lan");
}

TEST_F(ColourTableFields, EmptyNameIsIgnored) {
    StartWithColours();
    Click(Swatch(7));
    Enter(NameOfColour(), "");
    EXPECT_EQ(Show.UserColourName[7], "Farbe7              ");
    EXPECT_EQ(NameOfColour()->text().toStdString(), "Farbe7");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourTableFields, UnchangedNameIsConfirmedButMarksNothing) {
    StartWithColours();
    Click(Swatch(7));
    Click(NameOfColour());
    Key(Qt::Key_Tab);
    EXPECT_EQ(Status(), "Namen der Farbe gespeichert");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(ColourTableFields, WithoutANumberNoNameIsStored) {
    StartWithColours();
    Enter(NameOfColour(), "Rot");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Status(), "Statuszeile");
    EXPECT_EQ(NameOfColour()->text().toStdString(), "");
}

TEST_F(ColourTableFields, NameTypedBeforeAnotherFieldIsClickedBelongsToTheOldOne) {
    StartWithColours();
    Click(Swatch(7));
    Replace(NameOfColour(), "Rot");
    Click(Swatch(9));
    EXPECT_EQ(Show.UserColourName[7], "Rot" + std::string(17, ' '));
    EXPECT_EQ(Show.UserColourName[9], "Farbe9              ");
    EXPECT_EQ(NameOfColour()->text().toStdString(), "Farbe9");
}

TEST_F(ColourTableFields, ClosingTheWindowStoresTheNameThatWasTypedLast) {
    StartWithColours();
    Click(Swatch(7));
    Replace(NameOfColour(), "Rot");
    CloseColours();
    EXPECT_EQ(Show.UserColourName[7], "Rot" + std::string(17, ' '));
}

} // namespace quorvane
