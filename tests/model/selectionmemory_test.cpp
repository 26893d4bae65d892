#include "model/selectionbench.h"

namespace quorvane {

using SelectionMemory = SelectionBench;

TEST_F(SelectionMemory, ShiftWithAFunctionKeyRemembersAndTheKeyAloneRecalls) {
    MakeWall(4, 2);
    for (int key = KeyF2; key <= KeyF12; ++key) {
        SCOPED_TRACE(key);
        const int element = key - KeyF2 + 1 <= 8 ? key - KeyF2 + 1 : 8;
        Press(element);
        RememberOrRecallSelection(key, ShiftHeld);
        EXPECT_EQ(Statuses().back(), "Selectionen gemerkt .");
        EXPECT_EQ(Show.Selections[key - 112][element - 1], 1);
        SelectAll();
        RememberOrRecallSelection(key, 0);
        EXPECT_EQ(Selected(), (Elements{element}));
        EXPECT_EQ(Show.SelectedCount, 1);
    }
    for (const int unused : {0, 12, 13})
        EXPECT_EQ(Show.Selections[unused], decltype(Show.ElementSelected){}) << unused;
}

TEST_F(SelectionMemory, OtherKeysDoNothing) {
    MakeWall(4, 2);
    Press(1);
    Show.ChangeFlags = {};
    Log.clear();
    for (const int key : {KeyF1, KeyF13, 13, 65})
        for (const int shift : {0, ShiftHeld}) RememberOrRecallSelection(key, shift);
    EXPECT_TRUE(Log.empty());
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Show.Selections, decltype(Show.Selections){});
    EXPECT_EQ(Selected(), (Elements{1}));
}

TEST_F(SelectionMemory, OnlyShiftAloneRemembers) {
    MakeWall(4, 2);
    Press(1);
    for (const int shift : {CtrlHeld, AltHeld, ShiftHeld + CtrlHeld, ShiftHeld + AltHeld}) {
        Press(1);
        RememberOrRecallSelection(KeyF3, shift);
        EXPECT_EQ(Selected(), (Elements{})) << shift; // recalled: nothing was there
    }
    EXPECT_EQ(Show.Selections, decltype(Show.Selections){});
}

TEST_F(SelectionMemory, NoKeyReachesSlotZeroOnPurpose) {
    MakeWall(4, 1);
    Show.Selections[0][2] = 1;
    Press(2);
    for (int key = 0; key <= 255; ++key) {
        RememberOrRecallSelection(key, ShiftHeld);
        RememberOrRecallSelection(key, 0);
        EXPECT_EQ(Selected(), (Elements{2})) << key; // each recalls what it has just remembered
    }
    EXPECT_EQ(Show.Selections[0][1], 0);
    EXPECT_EQ(Show.Selections[0][2], 1);
}

TEST_F(SelectionMemory, RememberingMarksTheSequenceAndTheScene) {
    MakeWall(4, 2);
    Show.ChangeFlags = {};
    RememberOrRecallSelection(KeyF2, ShiftHeld);
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
    Show.ChangeFlags = {};
    RememberOrRecallSelection(KeyF2, 0);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(SelectionMemory, EmptySelectionIsRememberedAndComesBackEmpty) {
    MakeWall(4, 2);
    RememberOrRecallSelection(KeyF5, ShiftHeld);
    SelectAll();
    RememberOrRecallSelection(KeyF5, 0);
    EXPECT_EQ(Selected(), (Elements{}));
    EXPECT_EQ(Show.SelectedCount, 0);
}

TEST_F(SelectionMemory, RememberingKeepsOneFlagPastTheWallAndClearsTheRestOnPurpose) {
    MakeWall(3, 1);
    Show.Selections[1].Fill(1);
    Show.ElementSelected[3] = 1;
    Show.ElementSelected[4] = 1;
    RememberOrRecallSelection(KeyF2, ShiftHeld);
    EXPECT_EQ(Show.Selections[1][2], 0);
    EXPECT_EQ(Show.Selections[1][3], 1);
    for (int index = 4; index <= 254; ++index) EXPECT_EQ(Show.Selections[1][index], 0) << index;
}

TEST_F(SelectionMemory, RecallKeepsTheCountRightForElementsSelectedAlready) {
    MakeWall(4, 1);
    Press(1);
    Press(2, CtrlHeld);
    RememberOrRecallSelection(KeyF2, ShiftHeld);
    Press(2);
    Press(3, CtrlHeld);
    RememberOrRecallSelection(KeyF2, 0);
    EXPECT_EQ(Selected(), (Elements{1, 2}));
    EXPECT_EQ(Show.SelectedCount, 2);
    EXPECT_EQ(Statuses().back(), " Es wurden 2 Elemente ausgewählt");
}

TEST_F(SelectionMemory, RecallOfALargerWallStopsAtTheFirstElementThatIsGone) {
    MakeWall(4, 2);
    for (const int element : {2, 6, 8}) Press(element, CtrlHeld);
    RememberOrRecallSelection(KeyF2, ShiftHeld);
    MakeWall(4, 1);
    Press(1);
    RememberOrRecallSelection(KeyF2, 0);
    EXPECT_EQ(Selected(), (Elements{2}));
    EXPECT_EQ(Show.SelectedCount, 1);
    EXPECT_EQ(Statuses().back(), "Fehler beim Makieren.");
}

} // namespace quorvane
