#include "ui/colourbench.h"

#include "model/screen.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace quorvane {

using ColourWindowTest = ColourBench;

struct CaptionCase {
    const char* Name;
    const char* Text;
    const char* Tip;
};

TEST_F(ColourWindowTest, ControlsCarryTheirCaptionsAndToolTipsLetterByLetter) {
    StartWithColours();
    for (const CaptionCase& expected : std::initializer_list<CaptionCase>{
             {"cmdColor(0)", "Farbe &holen", "Holt sich die Farbe von einem selektierten Element"},
             {"cmdColor(1)", "Farbe &übernehmen", "Überträgt die Farbe an alle selektierten Elemente"},
             {"cmdColor(2)", "Farbe &wählen", "Überträgt die Farbe an alle selektierten Elemente"},
             {"cmdColor(3)", "Hin&zufügen >", "Speichern der aktuellen Farbe in der Farbtabelle"},
             {"chkCHange", "sofort übernehmen", "Änderungen werden sofort in die Scene übernommen"},
             {"chkMindest", "Mindest-Farbwert \"1\"", "Mindestansteuerung für die EVG"}}) {
        auto* button = Find<QAbstractButton>("frmColor", expected.Name);
        EXPECT_EQ(button->text().toStdString(), expected.Text);
        EXPECT_EQ(button->toolTip().toStdString(), expected.Tip);
    }
    const std::vector<const char*> labels{"Rot", "Grün",           "Blau", "Weiß",
                                          "",    "Name der Farbe", "Nr.:", "Farb-Feld anklicken!"};
    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(Label(index)->text().toStdString(), labels[static_cast<std::size_t>(index)]);
    EXPECT_EQ(Label(4)->toolTip().toStdString(), "Zeigt die aktuelle Farbmischung an");
    for (int index = 0; index < 4; ++index) EXPECT_EQ(Number(index)->toolTip().toStdString(), "Farbwert ");
    EXPECT_EQ(Status(), "Statuszeile");
}

TEST_F(ColourWindowTest, SlidersStandUprightFromZeroTo255InStepsOfOneAndTen) {
    StartWithColours();
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(Slider(index)->orientation(), Qt::Vertical);
        EXPECT_FALSE(Slider(index)->invertedAppearance()); // 255 is at the top
        EXPECT_EQ(Slider(index)->minimum(), 0);
        EXPECT_EQ(Slider(index)->maximum(), 255);
        EXPECT_EQ(Slider(index)->singleStep(), 1);
        EXPECT_EQ(Slider(index)->pageStep(), 10);
    }
}

TEST_F(ColourWindowTest, EveryControlHasAnAccessibleName) {
    StartWithColours();
    for (const QWidget* control : main->Color->findChildren<QWidget*>()) {
        const bool typed = qobject_cast<const QLineEdit*>(control) || qobject_cast<const QSlider*>(control) ||
                           qobject_cast<const QAbstractButton*>(control);
        if (!typed || control->objectName().startsWith("qt_")) continue;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
    }
}

TEST_F(ColourWindowTest, NothingIsCutOffAtTheSmallestSize) {
    StartWithColours();
    QWidget* frame = main->Color->parentWidget();
    frame->resize(frame->minimumSizeHint()); // as far as its edge can be dragged
    for (const QWidget* control : main->Color->findChildren<QWidget*>()) {
        if (!control->isVisible() || control->objectName() == "lblStatus") continue;
        EXPECT_GE(control->width(), control->minimumSizeHint().width())
            << control->objectName().toStdString();
        EXPECT_GE(control->height(), control->minimumSizeHint().height())
            << control->objectName().toStdString();
    }
}

TEST_F(ColourWindowTest, OpensFromBothMenus) {
    StartWithWall(3, 1);
    EXPECT_EQ(Entry("mnuFarbe")->text().toStdString(), "&Farbe");
    EXPECT_EQ(Entry("mnuColorfenster")->text().toStdString(), "Color Fenster");
    for (const char* entry : {"mnuFarbe", "mnuColorfenster"}) {
        Choose(entry);
        EXPECT_TRUE(main->Color->isVisible());
        EXPECT_TRUE(Show.StatusFlags.Has(Status::ColourWindowOpen));
        CloseColours();
        EXPECT_FALSE(main->Color->isVisible());
        EXPECT_FALSE(Show.StatusFlags.Has(Status::ColourWindowOpen));
    }
}

TEST_F(ColourWindowTest, ChoosingItAgainOnlyBringsItToTheFront) {
    StartWithColours();
    Mix({1, 2, 3, 4});
    main->Wand->Open();
    Choose("mnuColorfenster");
    EXPECT_EQ(main->findChild<QMdiArea*>()->activeSubWindow(), main->Color->parentWidget());
    EXPECT_EQ(Current(), (Levels{1, 2, 3, 4})); // not loaded anew
}

TEST_F(ColourWindowTest, CaptionNamesTheColourTableFile) {
    StartWithWall(3, 1);
    OpenColours();
    EXPECT_EQ(main->Color->windowTitle().toStdString(), "Color Fenster ");
    CloseColours();
    Show.ColourTableFile = "C:\\shows\\Farbtbl\\abend & co.QCT";
    OpenColours();
    EXPECT_EQ(main->Color->windowTitle().toStdString(), "Color Fenster abend & co.QCT");
}

TEST_F(ColourWindowTest, OpeningShowsTheTableAndLeavesTheTwentiethColourOnPurpose) {
    StartWithWall(3, 1);
    for (int number = 1; number <= 20; ++number) SetLevels(Show.UserColour[number], {number, 0, 0, 100});
    SetLevels(Show.CurrentColour, {7, 8, 9, 10});
    OpenColours();
    for (int number = 1; number <= 20; ++number)
        EXPECT_EQ(ShownUserColour(number), QColor(100 + number, 100, 100)) << number;
    EXPECT_EQ(Current(), (Levels{20, 0, 0, 100}));
    EXPECT_EQ(Preview(), QColor(120, 100, 100));
    EXPECT_EQ(Sliders(), (Levels{7, 8, 9, 10})); // as it was before
}

TEST_F(ColourWindowTest, CommandsRightAfterOpeningUseTheTwentiethColourAndNotTheSlidersOnPurpose) {
    StartWithWall(3, 1);
    SetLevels(Show.CurrentColour, {7, 8, 9, 10});
    SetLevels(Show.UserColour[20], {1, 2, 3, 4});
    Click(ElementField(2));
    OpenColours();
    Click(Button(1));
    EXPECT_EQ(Element(2), (Levels{1, 2, 3, 4}));
    Click(Button(3));
    Click(Swatch(6));
    EXPECT_EQ(UserColour(6), (Levels{1, 2, 3, 4}));
    EXPECT_EQ(ShownUserColour(6), QColor(5, 6, 7));
    EXPECT_EQ(Sliders(), (Levels{7, 8, 9, 10}));
    Move(1, 50);
    EXPECT_EQ(Current(), (Levels{1, 50, 3, 4})); // the others keep what the table left
}

TEST_F(ColourWindowTest, OpeningMarksNothingUnlessChangesApplyAtOnce) {
    StartWithWall(3, 1);
    Click(ElementField(2));
    SetLevels(Show.ElementValue[2], {1, 1, 1, 1});
    SetLevels(Show.CurrentColour, {7, 8, 9, 10});
    Choose("mnuColorfenster");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Element(2), (Levels{1, 1, 1, 1}));
    EXPECT_FALSE(AtOnce()->isChecked());
}

TEST_F(ColourWindowTest, OpeningAppliesTheFormerColourWhenChangesApplyAtOnceOnPurpose) {
    StartWithWall(3, 1);
    Click(ElementField(2));
    SetLevels(Show.CurrentColour, {7, 8, 9, 10});
    SetLevels(Show.UserColour[20], {1, 2, 3, 4});
    Show.StatusFlags.Set(Status::ApplyAtOnce);
    Choose("mnuColorfenster");
    EXPECT_TRUE(AtOnce()->isChecked());
    EXPECT_EQ(Status(), " Änderungen werden sofort übernommen!");
    EXPECT_EQ(Element(2), (Levels{7, 8, 9, 10}));
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
    EXPECT_EQ(Current(), (Levels{1, 2, 3, 4}));
}

TEST_F(ColourWindowTest, OpeningWithChangesNotAppliedAtOnceLeavesTheStatusLineOnPurpose) {
    StartWithColours();
    EXPECT_EQ(Status(), "Statuszeile");
    Tick(AtOnce());
    Tick(AtOnce());
    EXPECT_EQ(Status(), ""); // clearing the box by hand does empty it
    CloseColours();
    OpenColours();
    EXPECT_EQ(Status(), "Statuszeile");
}

TEST_F(ColourWindowTest, OpeningHidesTheHintAgain) {
    StartWithColours();
    Click(Button(3));
    CloseColours();
    OpenColours();
    EXPECT_FALSE(Label(7)->isVisible());
    EXPECT_EQ(Status(), "Statuszeile");
}

TEST_F(ColourWindowTest, PlaceIsKeptFromCloseToOpen) {
    StartWithColours();
    main->Color->parentWidget()->move(33, 44);
    main->Color->parentWidget()->resize(620, 520);
    const QSize own = main->Color->size();
    CloseColours();
    EXPECT_EQ(Show.WindowPos[ColourWindow][PosLeft], 33 * 15);
    EXPECT_EQ(Show.WindowPos[ColourWindow][PosTop], 44 * 15);
    EXPECT_EQ(Show.WindowPos[ColourWindow][PosWidth], own.width() * 15);
    EXPECT_EQ(Show.WindowPos[ColourWindow][PosHeight], own.height() * 15);
    main->Color->parentWidget()->move(0, 0);
    OpenColours();
    EXPECT_EQ(main->Color->parentWidget()->pos(), QPoint(33, 44));
    EXPECT_EQ(main->Color->size(), own);
}

TEST_F(ColourWindowTest, FirstOpensBesideTheWallAndWithinTheFrame) {
    StartWithWall(3, 1);
    main->Wand->parentWidget()->move(0, 0);
    OpenColours();
    const QRect colours = main->Color->parentWidget()->geometry();
    EXPECT_TRUE(main->Color->parentWidget()->parentWidget()->rect().contains(colours));
    EXPECT_FALSE(colours.intersects(main->Wand->parentWidget()->geometry()));
}

TEST_F(ColourWindowTest, StoredSizeTooSmallForItsControlsIsMadeLarger) {
    StartWithWall(3, 1);
    Show.WindowPos[ColourWindow][PosWidth] = 900; // 60 pixels
    Show.WindowPos[ColourWindow][PosHeight] = 900;
    OpenColours();
    EXPECT_GE(main->Color->width(), main->Color->minimumSizeHint().width());
    EXPECT_GE(main->Color->height(), main->Color->minimumSizeHint().height());
}

TEST_F(ColourWindowTest, ComesBackAtTheNextStartWhenItWasOpen) {
    StartWithColours();
    main->Color->parentWidget()->move(33, 44);
    Show.ChangeFlags = {};
    EXPECT_TRUE(CloseProgram());
    main.reset();
    Show = ShowState{};
    StartProgram();
    EXPECT_TRUE(main->Color->isVisible());
    EXPECT_EQ(main->Color->parentWidget()->pos(), QPoint(33, 44));
}

TEST_F(ColourWindowTest, FunctionKeysGoToTheRememberedSelectionsFromEveryControl) {
    StartWithColours();
    Show.Selections[3][1] = 1; // element 2 on F4
    const std::vector<QWidget*> controls{Slider(0), Number(2),      Button(1),       Swatch(4),
                                         AtOnce(),  NameOfColour(), NumberOfColour()};
    for (QWidget* control : controls) {
        control->setFocus();
        Key(Qt::Key_F4);
        EXPECT_EQ(Selected(), (Elements{2})) << control->objectName().toStdString();
        Key(Qt::Key_F11, Qt::ShiftModifier);
        EXPECT_EQ(Show.Selections[10][1], 1) << control->objectName().toStdString();
        EXPECT_EQ(WallStatus(), "Selectionen gemerkt .");
        Key(Qt::Key_F3);
        EXPECT_EQ(Show.SelectedCount, 0);
        Show.Selections[10].Fill(0);
    }
}

TEST_F(ColourWindowTest, FunctionKeysOneAndThirteenDoNothing) {
    StartWithColours();
    Number(0)->setFocus();
    Click(ElementField(1));
    Number(0)->setFocus();
    for (const auto key : {Qt::Key_F1, Qt::Key_F13}) Key(key, Qt::ShiftModifier);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Selected(), (Elements{1}));
}

TEST_F(ColourWindowTest, FunctionKeyTenIsTheNinthSelectionAndNotTheMenuBar) {
    StartWithColours();
    Show.Selections[9][2] = 1;
    Number(0)->setFocus();
    Key(Qt::Key_F10);
    EXPECT_EQ(Selected(), (Elements{3}));
    EXPECT_TRUE(Number(0)->hasFocus());
}

TEST_F(ColourWindowTest, LoadedTableIsSeenAtOnceWithItsFile) {
    StartWithColours();
    SetLevels(Show.UserColour[3], {0, 200, 0, 0});
    Show.ColourTableFile = "/shows/gruen.QCT";
    Screen.ColourStatus("Farbtabelle erfolgreich geladen!");
    Screen.ColourTableLoaded();
    EXPECT_EQ(ShownUserColour(3), QColor(0, 200, 0));
    EXPECT_EQ(main->Color->windowTitle().toStdString(), "Color Fenster gruen.QCT");
    EXPECT_EQ(Status(), "Farbtabelle erfolgreich geladen!");
}

} // namespace quorvane
