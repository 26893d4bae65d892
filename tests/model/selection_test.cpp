#include "model/selectionbench.h"

namespace quorvane {

using Selection = SelectionBench;

TEST_F(Selection, SelectingOnlyOneNamesIt) {
    MakeWall(4, 2);
    SelectOnly(6);
    EXPECT_EQ(Selected(), (Elements{7}));
    EXPECT_EQ(Show.SelectedCount, 1);
    EXPECT_EQ(Painted, (std::vector<int>{6}));
    EXPECT_EQ(Statuses(), (Text{" Es wurde Element Nr 7 ausgewählt. "}));
}

TEST_F(Selection, SelectingOnlyOneClearsNoOtherFlagAndCountsOneOnPurpose) {
    MakeWall(4, 2);
    AddToSelection(0);
    AddToSelection(1);
    SelectOnly(2);
    EXPECT_EQ(Selected(), (Elements{1, 2, 3}));
    EXPECT_EQ(Show.SelectedCount, 1);
}

TEST_F(Selection, AddingTellsHowManyThereAre) {
    MakeWall(4, 2);
    AddToSelection(1);
    AddToSelection(4);
    EXPECT_EQ(Selected(), (Elements{2, 5}));
    EXPECT_EQ(Painted, (std::vector<int>{1, 4}));
    EXPECT_EQ(Statuses(), (Text{" Es wurden 1 Elemente ausgewählt", " Es wurden 2 Elemente ausgewählt"}));
}

TEST_F(Selection, AddingASelectedElementCountsItTwiceOnPurpose) {
    MakeWall(2, 1);
    AddToSelection(0);
    AddToSelection(0);
    EXPECT_EQ(Show.SelectedCount, 2);
}

TEST_F(Selection, RemovingShowsTheColourAgain) {
    MakeWall(2, 1);
    Show.ElementValue[1][1] = 200;
    Show.ElementValue[1][4] = 100;
    AddToSelection(0);
    RemoveFromSelection(0);
    EXPECT_EQ(Unpainted, (std::vector<int>{0}));
    EXPECT_EQ(shownAgain, (ScreenColour{255, 100, 100}));
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_EQ(Statuses().back(), " Es wurden 0 Elemente ausgewählt");
}

TEST_F(Selection, RemovingDownToOneNamesTheRemovedElementOnPurpose) {
    MakeWall(3, 1);
    AddToSelection(0);
    AddToSelection(2);
    RemoveFromSelection(0);
    EXPECT_EQ(Selected(), (Elements{3}));
    EXPECT_EQ(Statuses().back(), " Es wurde Element Nr 1 ausgewählt. ");
}

TEST_F(Selection, RemovingAnElementThatIsNotSelectedRepaintsItAndTellsTheCount) {
    MakeWall(3, 1);
    RemoveFromSelection(1);
    EXPECT_EQ(Unpainted, (std::vector<int>{1}));
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_EQ(Statuses(), (Text{" Es wurden 0 Elemente ausgewählt"}));
}

TEST_F(Selection, FieldThatDoesNotExistIsRefused) {
    MakeWall(3, 1);
    for (const auto operation : {SelectOnly, AddToSelection, RemoveFromSelection})
        for (const int index : {-1, 3, 254, 255}) {
            Log.clear();
            operation(index);
            EXPECT_EQ(Statuses(), (Text{"Fehler beim Makieren."})) << index;
        }
    EXPECT_EQ(Selected(), (Elements{}));
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_TRUE(Painted.empty());
}

TEST_F(Selection, EverythingIsSelectedOneByOne) {
    MakeWall(3, 1);
    AddToSelection(1);
    Log.clear();
    SelectAll();
    EXPECT_EQ(Selected(), (Elements{1, 2, 3}));
    EXPECT_EQ(Statuses(), (Text{" Es wurden 2 Elemente ausgewählt", " Es wurden 3 Elemente ausgewählt"}));
}

TEST_F(Selection, SelectingEverythingOnAFullySelectedWallWritesNothing) {
    MakeWall(3, 1);
    SelectAll();
    Log.clear();
    Painted.clear();
    SelectAll();
    EXPECT_TRUE(Statuses().empty());
    EXPECT_TRUE(Painted.empty());
    EXPECT_EQ(Show.SelectedCount, 3);
}

TEST_F(Selection, LargestWallIsSelectedWhole) {
    MakeWall(25, 10);
    SelectAll();
    EXPECT_EQ(Show.SelectedCount, 250);
    InvertSelection();
    EXPECT_EQ(Show.SelectedCount, 0);
}

TEST_F(Selection, InvertingTurnsEveryElement) {
    MakeWall(3, 1);
    AddToSelection(1);
    InvertSelection();
    EXPECT_EQ(Selected(), (Elements{1, 3}));
    EXPECT_EQ(Show.SelectedCount, 2);
}

TEST_F(Selection, RepaintingPaintsTheSelectedElementsOnly) {
    MakeWall(4, 1);
    Show.ElementSelected[0] = 1;
    Show.ElementSelected[3] = 1;
    Show.ElementSelected[4] = 1; // beyond the wall
    RepaintSelection();
    EXPECT_EQ(Painted, (std::vector<int>{0, 3}));
    EXPECT_TRUE(PaintedElements.empty());
}

TEST_F(Selection, FirstSelectedElementIsTheLowest) {
    MakeWall(4, 1);
    AddToSelection(3);
    AddToSelection(1);
    EXPECT_EQ(FirstSelectedElementNo(), 2);
}

TEST_F(Selection, FirstSelectedElementWithoutASelectionIsTwoBeyondTheWallOnPurpose) {
    EXPECT_EQ(FirstSelectedElementNo(), 2);
    MakeWall(25, 10);
    EXPECT_EQ(FirstSelectedElementNo(), 252);
}

TEST_F(Selection, PressSelectsTheElementAloneWhateverElseIsHeld) {
    MakeWall(3, 1);
    for (const int shift : {0, ShiftHeld, AltHeld, CtrlHeld + ShiftHeld, CtrlHeld + AltHeld}) {
        Press(1);
        Press(2, CtrlHeld);
        Press(3, shift);
        EXPECT_EQ(Selected(), (Elements{3})) << shift;
        EXPECT_EQ(Show.SelectedCount, 1);
    }
}

TEST_F(Selection, PressOnTheOnlySelectedElementTakesItOffAndSelectsItAgain) {
    MakeWall(3, 1);
    Press(2);
    Log.clear();
    Press(2);
    EXPECT_EQ(Statuses(), (Text{" Es wurden 0 Elemente ausgewählt", " Es wurde Element Nr 2 ausgewählt. "}));
    EXPECT_EQ(Selected(), (Elements{2}));
    EXPECT_EQ(Show.SelectedCount, 1);
}

TEST_F(Selection, CtrlPressWithNothingSelectedTellsTheSingleElement) {
    MakeWall(4, 2);
    Press(7, CtrlHeld);
    EXPECT_EQ(Statuses(), (Text{" Es wurde Element Nr 7 ausgewählt. "}));
}

TEST_F(Selection, CtrlPressAddsAndRemoves) {
    MakeWall(4, 2);
    Press(7);
    Press(2, CtrlHeld);
    EXPECT_EQ(Selected(), (Elements{2, 7}));
    Press(7, CtrlHeld);
    EXPECT_EQ(Selected(), (Elements{2}));
}

TEST_F(Selection, CtrlPressOnTheOnlySelectedElementLeavesNone) {
    MakeWall(4, 2);
    Press(7);
    Press(7, CtrlHeld);
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_EQ(Statuses().back(), " Es wurden 0 Elemente ausgewählt");
}

TEST_F(Selection, OtherButtonNamesTheElementAndSelectsNothing) {
    MakeWall(4, 2);
    Press(2);
    Log.clear();
    lblElement_MouseDown(6, false, CtrlHeld);
    EXPECT_EQ(Show.PatchElementNo, 7);
    EXPECT_EQ(Selected(), (Elements{2}));
    EXPECT_TRUE(Statuses().empty());
}

TEST_F(Selection, PressesAreIgnoredWithoutAWall) {
    Press(1);
    lblElement_MouseDown(0, false, 0);
    EXPECT_TRUE(Log.empty());
    EXPECT_EQ(Show.PatchElementNo, 0);
    EXPECT_EQ(Selected(), (Elements{}));
}

TEST_F(Selection, OpenElementWindowFollowsASingleSelectedElement) {
    MakeWall(4, 1);
    Show.StatusFlags.Set(Status::ElementWindowOpen);
    Press(3);
    EXPECT_EQ(Activations, 1);
    EXPECT_EQ(Statuses().back(), "Zeige Patchdaten des ausgewälten Elements");
    Press(4, CtrlHeld); // two are selected now
    EXPECT_EQ(Activations, 1);
    EXPECT_EQ(Statuses().back(), " Es wurden 2 Elemente ausgewählt");
    Press(4, CtrlHeld);
    EXPECT_EQ(Activations, 2);
    lblElement_MouseDown(0, false, 0); // after a press of any other button too
    EXPECT_EQ(Activations, 3);
}

TEST_F(Selection, ElementWindowFollowsWhatTheEditMenuLeftSelected) {
    MakeWall(4, 1);
    Show.StatusFlags.Set(Status::ElementWindowOpen);
    int menus = 0;
    Screen.OpenEditMenu = [&] {
        ++menus;
        EXPECT_EQ(Show.PatchElementNo, 2);
        EXPECT_EQ(Activations, 0);
        SelectOnly(3);
    };
    lblElement_MouseDown(1, false, 0);
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(Activations, 1);
    EXPECT_EQ(Statuses().back(), "Zeige Patchdaten des ausgewälten Elements");
}

TEST_F(Selection, OnlyOtherButtonsThanTheLeftOpenTheEditMenu) {
    MakeWall(4, 1);
    int menus = 0;
    Screen.OpenEditMenu = [&] { ++menus; };
    Press(1);
    Press(1, CtrlHeld);
    EXPECT_EQ(menus, 0);
}

TEST_F(Selection, WallIsInFrontAgainAfterTheElementWindow) {
    MakeWall(4, 1);
    Show.StatusFlags.Set(Status::ElementWindowOpen);
    int broughtBack = 0;
    Screen.ActivateWall = [&] { broughtBack = Activations; };
    Press(3);
    EXPECT_EQ(broughtBack, 1);
}

TEST_F(Selection, ClosedElementWindowIsNotActivated) {
    MakeWall(4, 1);
    Press(3);
    EXPECT_EQ(Activations, 0);
    EXPECT_EQ(Statuses(), (Text{" Es wurde Element Nr 3 ausgewählt. "}));
}

TEST_F(Selection, DoubleClickSaysItsPlaceholderAndNothingElseOnPurpose) {
    MakeWall(4, 1);
    lblElement_DblClick();
    EXPECT_EQ(Statuses(), (Text{" Wassollas?"}));
    EXPECT_EQ(Selected(), (Elements{}));
}

TEST_F(Selection, NewWallStartsWithoutASelection) {
    MakeWall(4, 2);
    SelectAll();
    MakeWall(4, 2);
    EXPECT_EQ(Selected(), (Elements{}));
    EXPECT_EQ(Show.SelectedCount, 0);
}

TEST_F(Selection, GoesThroughRandomClicksAndKeysAsWorkedOut) {
    using nlohmann::json;
    const json expected = SampleExpectation("257-selection");
    MakeWall(expected["columns"], expected["rows"]);
    Show.ChangeFlags = {};
    int number = 0;
    for (const json& step : expected["script"]) {
        const std::string what = step["do"];
        SCOPED_TRACE(std::to_string(++number) + " " + what);
        Log.clear();
        const int element = step.value("element", 0);
        if (what == "click") Press(element);
        if (what == "ctrl") Press(element, CtrlHeld);
        if (what == "shift-click") Press(element, ShiftHeld);
        if (what == "right") lblElement_MouseDown(element - 1, false, 0);
        if (what == "double") lblElement_DblClick();
        if (what == "all") SelectAll();
        if (what == "invert") InvertSelection();
        if (what == "key") RememberOrRecallSelection(step["key"], 0);
        if (what == "store") RememberOrRecallSelection(step["key"], ShiftHeld);
        EXPECT_EQ(json(Statuses()), step["statuses"]);
        EXPECT_EQ(FirstSelectedElementNo(), step["first"]);
        EXPECT_EQ(json(Selected()), step["selected"]);
        EXPECT_EQ(Show.SelectedCount, step["SelectedCount"]);
        EXPECT_EQ(Show.PatchElementNo, step["PatchElementNo"]);
    }
    EXPECT_EQ(Show.ChangeFlags.bits, expected["ChangeFlags"]);
}

} // namespace quorvane
