// The element dialog as a window: what stands in it, which element it shows when, and how it is left.
#include "ui/elementbench.h"

#include "model/screen.h"
#include "ui/frmControl.h"

#include <QApplication>
#include <QMenu>

namespace quorvane {

using ElementWindowTest = ElementBench;

// What is there

TEST_F(ElementWindowTest, ControlsCarryTheirCaptionsAndToolTipsLetterByLetter) {
    StartWithElement(5);
    EXPECT_EQ(main->Element->windowTitle().toStdString(), "Element");
    EXPECT_EQ(Transfer()->text().toStdString(), "Farbkorrektur auf alle Elemente übertragen");
    EXPECT_EQ(Leave()->text().toStdString(), "Fenster verlassen");
    EXPECT_EQ(Text(0)->toolTip().toStdString(), "Nr. des Elements in der Wand");
    for (int index = 1; index <= 4; ++index)
        EXPECT_EQ(Text(index)->toolTip().toStdString(), "DMX Kanal für die entsprechende Farbe");
    for (int index = 5; index <= 8; ++index)
        EXPECT_EQ(Text(index)->toolTip().toStdString(),
                  "Dieser Wert wird nur am DMX Ausgang vom eigendlichen Ausgangswert abgezogen");
    std::vector<std::string> labels;
    for (int index = 0; index < 9; ++index)
        labels.push_back(Find<QLabel>("frmElement", ("lblTitel(" + std::to_string(index) + ")").c_str())
                             ->text()
                             .toStdString());
    EXPECT_EQ(labels, (std::vector<std::string>{"Element Nr.:", "Farbe", "DMX Kanal", "ROT", "GRÜN", "BLAU",
                                                "WEISS", "Farbkorrektur", "Korrekturfaktor"}));
}

TEST_F(ElementWindowTest, EveryControlHasAnAccessibleName) {
    StartWithElement(5);
    for (int index = 0; index <= 8; ++index) EXPECT_FALSE(Text(index)->accessibleName().isEmpty());
    EXPECT_FALSE(Transfer()->accessibleName().isEmpty());
    EXPECT_FALSE(Leave()->accessibleName().isEmpty());
    EXPECT_FALSE(Find<QLabel>("frmElement", "lblStatus")->accessibleName().isEmpty());
}

TEST_F(ElementWindowTest, NothingIsCutOffAtTheSmallestSize) {
    StartWithElement(5);
    Frame()->resize(Frame()->minimumSizeHint());
    for (const QWidget* control : main->Element->findChildren<QWidget*>()) {
        if (!control->isVisible() || control->objectName() == "lblStatus") continue;
        EXPECT_GE(control->width(), control->minimumSizeHint().width())
            << control->objectName().toStdString();
        EXPECT_GE(control->height(), control->minimumSizeHint().height())
            << control->objectName().toStdString();
    }
}

TEST_F(ElementWindowTest, TabGoesThroughChannelsThenCorrectionsThenButtons) {
    StartWithElement(5);
    Click(Text(0));
    for (int index = 1; index <= 8; ++index) {
        Key(Qt::Key_Tab);
        EXPECT_TRUE(Text(index)->hasFocus()) << index;
    }
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Transfer()->hasFocus());
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Leave()->hasFocus());
    for (int i = 0; i < 2; ++i) Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Text(8)->hasFocus());
}

TEST_F(ElementWindowTest, OpensFromBothMenusAndTheWallsPopUp) {
    StartWithWall(4, 3);
    EXPECT_EQ(Entry("mnuElement")->text().toStdString(), "&Element patchen");
    EXPECT_EQ(Entry("mnuPatchfenster")->text().toStdString(), "Patchfenster");
    const std::vector<std::function<void()>> ways{[this] { Choose("mnuElement"); },
                                                  [this] { Choose("mnuPatchfenster"); },
                                                  [this] { ChooseInPopUp(7, "mnuElement"); }};
    for (const auto& open : ways) {
        open();
        EXPECT_TRUE(main->Element->isVisible());
        EXPECT_TRUE(Show.StatusFlags.Has(Status::ElementWindowOpen));
        ClosePatch();
        EXPECT_FALSE(main->Element->isVisible());
        EXPECT_FALSE(Show.StatusFlags.Has(Status::ElementWindowOpen));
    }
}

TEST_F(ElementWindowTest, EntryForANewElementIsHiddenOnPurpose) {
    StartProgram();
    EXPECT_EQ(Entry("mnuNeuesElement")->text().toStdString(), "Neues &Element");
    EXPECT_FALSE(Entry("mnuNeuesElement")->isVisible());
}

// Which element it shows

TEST_F(ElementWindowTest, ShowsPatchAndCorrectionOfTheOneSelectedElement) {
    StartWithWall(4, 3);
    SetPatchOf(5, {100, 99, 98, 97});
    for (int channel = 1; channel <= 4; ++channel)
        Show.ColourCorrection[5][channel] = static_cast<std::uint8_t>(channel * 10);
    Show.PatchElementNo = 7; // pressed with the right button before
    Click(WallBench::Element(5));
    OpenPatch();
    EXPECT_EQ(AllShown(), (std::vector<std::string>{"5", "100", "99", "98", "97", "10", "20", "30", "40"}));
    EXPECT_EQ(Show.PatchEditElement, 5);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::PatchError)); // set by every check that ran, on purpose
    EXPECT_EQ(StatusText(), "");
}

TEST_F(ElementWindowTest, ShowsTheElementOfTheRightButtonUnlessExactlyOneIsSelected) {
    for (const bool two : {false, true}) {
        StartWithWall(4, 3);
        if (two) {
            Click(WallBench::Element(1));
            Click(WallBench::Element(2), Qt::ControlModifier);
        }
        InPopUp(7, [](QMenu*) {});
        OpenPatch();
        EXPECT_EQ(AllShown()[0], "7");
        EXPECT_EQ(Shown(1), "25");
        EXPECT_EQ(Show.PatchEditElement, 7);
        EXPECT_FALSE(Show.StatusFlags.Has(Status::PatchError));
        main.reset();
        Show = ShowState{};
    }
}

TEST_F(ElementWindowTest, SaysThatThereIsNoElementWhenNoneWasEverChosen) {
    StartWithElement(0);
    EXPECT_EQ(StatusText(), "Element nicht vorhanden!");
    EXPECT_EQ(AllShown(), (std::vector<std::string>{"0", "", "", "", "", "", "", "", ""}));
}

TEST_F(ElementWindowTest, FollowsEveryClickThatLeavesOneElementSelected) {
    StartWithElement(5);
    Click(WallBench::Element(8));
    EXPECT_EQ(Shown(0), "8");
    EXPECT_EQ(Shown(1), "29");
    EXPECT_EQ(WallStatus(), "Zeige Patchdaten des ausgewälten Elements");
    EXPECT_EQ(Front(), main->Wand->parentWidget());
    EXPECT_TRUE(WallBench::Element(8)->hasFocus());
    Click(WallBench::Element(9), Qt::ControlModifier);
    EXPECT_EQ(Shown(0), "8"); // two are selected
    Click(WallBench::Element(8), Qt::ControlModifier);
    EXPECT_EQ(Shown(0), "9");
    Key(Qt::Key_Left);
    Key(Qt::Key_Space);
    EXPECT_EQ(Shown(0), "7");
}

TEST_F(ElementWindowTest, DoesNotFollowWhenItIsClosed) {
    StartWithElement(5);
    ClosePatch();
    Click(WallBench::Element(8));
    EXPECT_EQ(Shown(0), "5");
    EXPECT_EQ(WallStatus(), " Es wurde Element Nr 8 ausgewählt. ");
}

TEST_F(ElementWindowTest, FollowingTellsOfAFaultOnceAndLeavesNoField) {
    StartWithElement(5);
    Show.Patch[8][1] = 3;
    Click(Text(1)); // the field that has the focus whenever the dialog is in front
    Beeps = 0;
    Click(WallBench::Element(8));
    EXPECT_EQ(Beeps, 1);
    EXPECT_TRUE(IsRed(1));
}

TEST_F(ElementWindowTest, WhatWasTypedBeforeAClickOnTheWallIsStoredForTheElementShownTillThen) {
    StartWithElement(5);
    Replace(1, "48");
    Show.ChannelCount = 100;
    Click(WallBench::Element(8));
    EXPECT_EQ(PatchOf(5)[0], 48);
    EXPECT_EQ(PatchOf(8)[0], 29);
}

TEST_F(ElementWindowTest, ShowsTheSelectedElementAgainEachTimeItComesToTheFront) {
    StartWithElement(5);
    Enter(0, "3");
    EXPECT_EQ(Shown(1), "9");
    Choose("mnuColorfenster");
    EXPECT_EQ(Shown(0), "3");
    Choose("mnuPatchfenster");
    EXPECT_EQ(Shown(0), "5");
}

TEST_F(ElementWindowTest, KeepsItsElementWhenTheUserComesBackFromAnotherProgram) {
    StartWithElement(5);
    Enter(0, "3");
    Replace(1, "77");
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(PatchOf(3)[0], 9); // not left
    QApplication::setActiveWindow(main.get());
    EXPECT_EQ(Shown(0), "3");
    EXPECT_EQ(Shown(1), "77");
}

TEST_F(ElementWindowTest, ShowsTheNewPatchWhenTheWallIsMadeAnewOrLoaded) {
    StartWithElement(5);
    Enter(1, "48");
    EXPECT_EQ(Shown(1), "48");
    MakeWall(4, 3); // as the new wall's dialog does it
    EXPECT_EQ(Shown(1), "17");
    Show.Patch[5][1] = 33;
    Screen.PatchLoaded(); // as the configuration's loader does it
    EXPECT_EQ(Shown(1), "33");
    Answer(QMessageBox::Yes);
    Choose("mnuKillWand");
    EXPECT_EQ(Shown(1), "");
    EXPECT_EQ(StatusText(), "Element nicht vorhanden!");
}

// How it is left

TEST_F(ElementWindowTest, ButtonLeavesAtOnceWithoutFaults) {
    StartWithElement(5);
    Click(Leave());
    EXPECT_FALSE(main->Element->isVisible());
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(ElementWindowTest, ButtonAndCloseBoxAskWhileAFieldIsRed) {
    for (const bool closeBox : {false, true}) {
        StartWithElement(5);
        Enter(2, "17"); // red's
        const auto leave = [&] { closeBox ? ClosePatch() : Click(Leave()); };
        Boxes.clear();
        Answer(QMessageBox::Cancel);
        leave();
        EXPECT_TRUE(main->Element->isVisible());
        EXPECT_TRUE(Show.StatusFlags.Has(Status::ElementWindowOpen));
        EXPECT_EQ(main->focusWidget(), Text(2)); // the first red one
        Answer(QMessageBox::Ok);
        leave();
        EXPECT_FALSE(main->Element->isVisible());
        EXPECT_FALSE(Show.StatusFlags.Has(Status::ElementWindowOpen));
        ASSERT_EQ(Boxes.size(), 2u);
        EXPECT_EQ(Boxes[0].Text, "Sie haben noch Fehler in Ihrer Patchtabelle! Wollen Sie das Patchfenster "
                                 "trotzdem verlassen?");
        EXPECT_EQ(Boxes[0].Title, "QUORVANE");
        main.reset();
        Show = ShowState{};
    }
}

TEST_F(ElementWindowTest, LeavingChecksWhatWasTypedLast) {
    StartWithElement(5);
    Replace(2, "17");
    Answer(QMessageBox::Ok);
    ClosePatch();
    EXPECT_EQ(PatchOf(5), (Values{17, 17, 19, 20}));
    EXPECT_EQ(Boxes.size(), 1u);
}

TEST_F(ElementWindowTest, RefusedChannelTypedLastIsPutBackWithABeepAndNothingIsAsked) {
    StartWithElement(5);
    for (const char* channel : {"513", "0"}) {
        Beeps = 0;
        Replace(2, channel);
        Click(Leave());
        EXPECT_EQ(PatchOf(5), (Values{17, 18, 19, 20})) << channel;
        EXPECT_EQ(Beeps, 1);
        EXPECT_TRUE(Boxes.empty());
        EXPECT_FALSE(main->Element->isVisible());
        OpenPatch();
    }
}

TEST_F(ElementWindowTest, EndOfTheProgramAsksNothingAboutRedFields) {
    StartWithElement(5);
    Enter(2, "17");
    Show.ChangeFlags = {};
    EXPECT_TRUE(CloseProgram());
    EXPECT_TRUE(Boxes.empty());
    EXPECT_NE(Show.SavedFlags & 0x1000u, 0u); // open at the next start
}

TEST_F(ElementWindowTest, EmptiedFieldsAreNoFaults) {
    StartWithElement(5);
    Enter(2, "17");
    Enter(0, "99");
    Click(Leave());
    EXPECT_FALSE(main->Element->isVisible());
}

// Where it stands

TEST_F(ElementWindowTest, PlaceIsKeptFromCloseToOpenAndToTheNextStart) {
    StartWithElement(5);
    Frame()->move(33, 44);
    Frame()->resize(Frame()->size() + QSize(50, 40));
    const QSize own = main->Element->size();
    ClosePatch();
    EXPECT_EQ(Show.WindowPos[ElementWindow][PosLeft], 33 * 15);
    EXPECT_EQ(Show.WindowPos[ElementWindow][PosTop], 44 * 15);
    EXPECT_EQ(Show.WindowPos[ElementWindow][PosWidth], own.width() * 15);
    EXPECT_EQ(Show.WindowPos[ElementWindow][PosHeight], own.height() * 15);
    Frame()->move(0, 0);
    OpenPatch();
    EXPECT_EQ(Frame()->pos(), QPoint(33, 44));
    Show.ChangeFlags = {};
    EXPECT_TRUE(CloseProgram());
    main.reset();
    Show = ShowState{};
    StartProgram();
    EXPECT_TRUE(main->Element->isVisible());
    EXPECT_EQ(Frame()->pos(), QPoint(33, 44));
    EXPECT_EQ(main->Element->size(), own);
    EXPECT_EQ(StatusText(), "Element nicht vorhanden!"); // without a wall
}

TEST_F(ElementWindowTest, StoredSizeTooSmallForItsControlsIsMadeLarger) {
    StartWithWall(4, 3);
    Show.WindowPos[ElementWindow][PosWidth] = Show.WindowPos[ElementWindow][PosHeight] = 900; // 60 pixels
    OpenPatch();
    EXPECT_GE(main->Element->width(), main->Element->minimumSizeHint().width());
    EXPECT_GE(main->Element->height(), main->Element->minimumSizeHint().height());
}

TEST_F(ElementWindowTest, HandsTheKeysBackToTheWindowBeforeItWhenItCloses) {
    StartWithElement(5);
    main->Control->Open();
    main->Element->Open();
    ClosePatch();
    EXPECT_EQ(Front(), main->Control->parentWidget());
    EXPECT_TRUE(main->Control->isAncestorOf(main->focusWidget()));
}

} // namespace quorvane
