#include "ui/wallbench.h"

#include "app/heartbeat.h"
#include "engine/sequencer.h"
#include "model/colour.h"
#include "model/screen.h"
#include "model/selection.h"
#include "platform/monotonicclock.h"
#include "ui/frmColor.h"
#include "ui/frmElement.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

#include <utility>

namespace quorvane {

class WallSelection : public WallBench {
protected:
    QMenu* EditMenu() { return main->findChild<QMenu*>("mnuBearbeiten"); }
};

TEST_F(WallSelection, ClickSelectsTheElementAlone) {
    StartWithWall(4, 3);
    Click(Element(5));
    EXPECT_EQ(Selected(), (Elements{5}));
    EXPECT_EQ(WallStatus(), " Es wurde Element Nr 5 ausgewählt. ");
    Click(Element(7));
    EXPECT_EQ(Selected(), (Elements{7}));
    EXPECT_EQ(Show.SelectedCount, 1);
}

TEST_F(WallSelection, SelectedFieldHasTheHighlightColourAndARedNumber) {
    StartWithWall(4, 3);
    Show.ElementValue[5][2] = 80;
    ShowWallColour(4);
    EXPECT_TRUE(Shows(5, Qt::white));
    Click(Element(5));
    EXPECT_EQ(ShownColour(5), Highlight());
    EXPECT_TRUE(Shows(5, Qt::red));
    EXPECT_FALSE(Shows(5, Qt::white));
}

TEST_F(WallSelection, DeselectedFieldShowsItsColourAndAWhiteNumberAgain) {
    StartWithWall(4, 3);
    Show.ElementValue[5][2] = 80;
    ShowWallColour(4);
    Click(Element(5));
    Click(Element(6));
    EXPECT_EQ(ShownColour(5), QColor(0, 80, 0));
    EXPECT_TRUE(Shows(5, Qt::white));
}

TEST_F(WallSelection, RepaintedSelectedFieldShowsItsNewColourUnderARedNumberOnPurpose) {
    StartWithWall(4, 3);
    Click(Element(5));
    Show.ElementValue[5][3] = 90;
    ShowWallColour(4);
    EXPECT_EQ(ShownColour(5), QColor(0, 0, 90));
    EXPECT_TRUE(Shows(5, Qt::red));
    RepaintSelection();
    EXPECT_EQ(ShownColour(5), Highlight());
}

TEST_F(WallSelection, CtrlClickAddsAndRemoves) {
    StartWithWall(4, 3);
    Click(Element(5), Qt::ControlModifier);
    EXPECT_EQ(WallStatus(), " Es wurde Element Nr 5 ausgewählt. ");
    Click(Element(2), Qt::ControlModifier);
    EXPECT_EQ(WallStatus(), " Es wurden 2 Elemente ausgewählt");
    EXPECT_EQ(Selected(), (Elements{2, 5}));
    Click(Element(5), Qt::ControlModifier);
    EXPECT_EQ(Selected(), (Elements{2}));
    EXPECT_EQ(WallStatus(), " Es wurde Element Nr 5 ausgewählt. "); // the removed one, on purpose
    Click(Element(2), Qt::ControlModifier);
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_EQ(WallStatus(), " Es wurden 0 Elemente ausgewählt");
}

TEST_F(WallSelection, ClickWithAnyOtherKeysHeldSelectsAlone) {
    StartWithWall(4, 3);
    for (const auto held : {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::AltModifier),
                            Qt::ControlModifier | Qt::ShiftModifier}) {
        Click(Element(5));
        Click(Element(2), Qt::ControlModifier);
        Click(Element(9), held);
        EXPECT_EQ(Selected(), (Elements{9}));
    }
}

TEST_F(WallSelection, KeypadFlagDoesNotCountAsHeld) {
    StartWithWall(4, 3);
    Click(Element(5));
    Click(Element(2), Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(Selected(), (Elements{2, 5}));
}

TEST_F(WallSelection, RightAndMiddleButtonOpenTheEditMenuAtThePointerAndSelectNothing) {
    StartWithWall(4, 3);
    Click(Element(5));
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        const int element = button == Qt::RightButton ? 7 : 9;
        const QPoint place = Element(element)->mapToGlobal(QPoint(3, 4));
        InPopUp(
            element,
            [&](QMenu* menu) {
                EXPECT_EQ(menu, EditMenu());
                EXPECT_EQ(menu->pos(), place);
                EXPECT_EQ(Show.PatchElementNo, element);
                EXPECT_EQ(Selected(), (Elements{5}));
                QTest::keyClick(menu, Qt::Key_Escape);
            },
            button);
        EXPECT_FALSE(EditMenu()->isVisible());
    }
}

TEST_F(WallSelection, PopUpIsTheWholeEditMenu) {
    using Entries = std::vector<std::pair<std::string, std::string>>;
    StartWithWall(4, 3);
    Entries seen;
    InPopUp(7, [&seen](QMenu* menu) {
        for (const QAction* entry : menu->actions()) {
            if (entry->isSeparator() || !entry->isVisible()) continue;
            const QObject* named = entry->menu() ? static_cast<const QObject*>(entry->menu()) : entry;
            seen.emplace_back(named->objectName().toStdString(), entry->text().toStdString());
        }
    });
    EXPECT_EQ(seen, (Entries{{"mnuFarbe", "&Farbe"},
                             {"mnuWand", "&Wand"},
                             {"mnuElement", "&Element patchen"},
                             {"mnuMusterHinzu", "&Muster hinzufügen"},
                             {"mnuMusterAusw", "Muster &auswählen"},
                             {"mnuSelectAll", "Alles markieren"},
                             {"mnuInvertSelection", "Markierung &umkehren"},
                             {"mnuOptions", "&Optionen"}}));
}

TEST_F(WallSelection, PopUpIsDoneBeforeTheElementWindowIsHandedTheElement) {
    StartWithWall(3, 1);
    std::vector<Elements> handedOver;
    Screen.ActivateElementWindow = [&] { handedOver.push_back(Selected()); };
    Show.StatusFlags.Set(Status::ElementWindowOpen);
    Show.Selections[4][1] = 1; // element 2 on F5
    Click(Element(1));
    handedOver.clear();
    for (const char* entry : {"mnuSelectAll", "mnuInvertSelection"}) ChooseInPopUp(3, entry);
    EXPECT_EQ(handedOver, (std::vector<Elements>{})); // three, and then none
    ChooseInPopUp(3, "mnuMusterAusw(3)");
    EXPECT_EQ(handedOver, (std::vector<Elements>{{2}}));
    EXPECT_EQ(WallStatus(), "Zeige Patchdaten des ausgewälten Elements");
    Click(Element(3), Qt::ControlModifier);
    ChooseInPopUp(3, "mnuInvertSelection");
    EXPECT_EQ(handedOver, (std::vector<Elements>{{2}, {1}}));
}

TEST_F(WallSelection, PopUpThatIsLeftHandsTheElementOverToo) {
    StartWithWall(3, 1);
    Click(Element(1));
    int activations = 0;
    Screen.ActivateElementWindow = [&] { ++activations; };
    Show.StatusFlags.Set(Status::ElementWindowOpen);
    InPopUp(3, [&](QMenu* menu) {
        EXPECT_EQ(activations, 0);
        QTest::keyClick(menu, Qt::Key_Escape);
    });
    EXPECT_EQ(activations, 1);
}

TEST_F(WallSelection, WindowOpenedFromThePopUpStaysInFront) {
    StartWithWall(3, 1);
    Click(Element(1));
    ChooseInPopUp(3, "mnuFarbe");
    EXPECT_EQ(main->Color->parentWidget(), main->findChild<QMdiArea*>()->activeSubWindow());
}

TEST_F(WallSelection, WallComesBackInFrontOfTheElementWindowOpenedFromThePopUpOnPurpose) {
    StartWithWall(3, 1);
    Click(Element(2));
    ChooseInPopUp(3, "mnuElement");
    EXPECT_TRUE(main->Element->isVisible());
    EXPECT_EQ(Find<QLineEdit>("frmElement", "txtElement(0)")->text(), "2");
    EXPECT_EQ(main->Wand->parentWidget(), main->findChild<QMdiArea*>()->activeSubWindow());
}

TEST_F(WallSelection, OutputGoesOnWhileThePopUpIsOpen) {
    StartWithWall(3, 1);
    const Heartbeat heartbeat(Seconds());
    int sent = 0;
    Host.DasHardCommand = [&](std::int32_t command, std::int32_t, std::uint8_t*) {
        if (command == 4 && ++sent == 2) EditMenu()->close();
        return 0;
    };
    Show.AutoXmit.Enabled = true;
    QTimer::singleShot(5000, EditMenu(), &QMenu::close); // were it to stand still
    QTest::mouseClick(Element(2), Qt::RightButton);
    EXPECT_EQ(sent, 2);
}

TEST_F(WallSelection, DoubleClickIsTwoPressesAndThenItsPlaceholder) {
    StartWithWall(4, 3);
    Click(Element(5));
    QTest::mouseDClick(Element(6), Qt::LeftButton);
    EXPECT_EQ(Selected(), (Elements{6}));
    EXPECT_EQ(WallStatus(), " Wassollas?");
}

TEST_F(WallSelection, SecondPressOfADoubleClickTogglesBackWithCtrl) {
    StartWithWall(4, 3);
    Click(Element(5));
    QTest::mousePress(Element(6), Qt::LeftButton, Qt::ControlModifier);
    QTest::mouseRelease(Element(6), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(Selected(), (Elements{5, 6}));
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(5, 5), Element(6)->mapToGlobal(QPointF(5, 5)),
                       Qt::LeftButton, Qt::LeftButton, Qt::ControlModifier);
    QApplication::sendEvent(Element(6), &second);
    EXPECT_EQ(Selected(), (Elements{5}));
    EXPECT_EQ(WallStatus(), " Wassollas?");
}

TEST_F(WallSelection, OpenElementWindowIsHandedTheElementAndTheWallStaysInFront) {
    StartWithWall(4, 3);
    int activations = 0;
    Screen.ActivateElementWindow = [&] {
        ++activations;
        main->Color->Open(); // some other window comes to the front
    };
    Show.StatusFlags.Set(Status::ElementWindowOpen);
    Click(Element(5));
    EXPECT_EQ(activations, 1);
    EXPECT_EQ(WallStatus(), "Zeige Patchdaten des ausgewälten Elements");
    EXPECT_EQ(main->Wand->parentWidget(), main->findChild<QMdiArea*>()->activeSubWindow());
    EXPECT_TRUE(Element(5)->hasFocus());
}

TEST_F(WallSelection, MenuSelectsAllAndInverts) {
    StartWithWall(3, 1);
    Choose("mnuSelectAll");
    EXPECT_EQ(Selected(), (Elements{1, 2, 3}));
    Click(Element(2), Qt::ControlModifier);
    Choose("mnuInvertSelection");
    EXPECT_EQ(Selected(), (Elements{2}));
}

TEST_F(WallSelection, FunctionKeysRememberWithShiftAndRecallWithout) {
    StartWithWall(4, 3);
    for (int number = 2; number <= 12; ++number) {
        const auto key = static_cast<Qt::Key>(Qt::Key_F1 + number - 1);
        Click(Element(number));
        Key(key, Qt::ShiftModifier);
        EXPECT_EQ(WallStatus(), "Selectionen gemerkt .") << number;
        EXPECT_EQ(Show.Selections[number - 1][number - 1], 1);
    }
    for (int number = 2; number <= 12; ++number) {
        Key(static_cast<Qt::Key>(Qt::Key_F1 + number - 1));
        EXPECT_EQ(Selected(), (Elements{number}));
        EXPECT_EQ(ShownColour(number), Highlight());
    }
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
}

TEST_F(WallSelection, FunctionKeysOneAndThirteenDoNothing) {
    StartWithWall(4, 3);
    Click(Element(3));
    for (const auto key : {Qt::Key_F1, Qt::Key_F13})
        for (const auto held : {Qt::NoModifier, Qt::ShiftModifier}) Key(key, held);
    EXPECT_EQ(Selected(), (Elements{3}));
    EXPECT_EQ(WallStatus(), " Es wurde Element Nr 3 ausgewählt. ");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(WallSelection, FunctionKeysActRightAfterTheWallWasOpened) {
    StartWithWall(4, 3);
    Show.Selections[4][1] = 1;
    Key(Qt::Key_F5);
    EXPECT_EQ(Selected(), (Elements{2}));
}

TEST_F(WallSelection, PatternMenusRememberAndRecallLikeTheKeys) {
    StartWithWall(4, 3);
    Click(Element(8));
    Choose("mnuMusterHinzu(3)");
    EXPECT_EQ(Entry("mnuMusterHinzu(3)")->text().toStdString(), "F5");
    EXPECT_EQ(Show.Selections[4][7], 1);
    Click(Element(1));
    Choose("mnuMusterAusw(3)");
    EXPECT_EQ(Selected(), (Elements{8}));
    EXPECT_NE(Entry("mnuMusterHinzu(10)"), nullptr);
    EXPECT_NE(Entry("mnuMusterAusw(10)"), nullptr);
}

TEST_F(WallSelection, RecallForALargerWallSelectsWhatThereIs) {
    StartWithWall(4, 3);
    Show.Selections[1][0] = Show.Selections[1][20] = 1;
    Key(Qt::Key_F2);
    EXPECT_EQ(Selected(), (Elements{1}));
    EXPECT_EQ(WallStatus(), "Fehler beim Makieren.");
}

TEST_F(WallSelection, ArrowsMoveAFrameAndTheBlankSelectsLikeAClick) {
    StartWithWall(4, 3);
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_TRUE(Element(6)->hasFocus());
    EXPECT_EQ(Selected(), (Elements{})); // moving selects nothing
    EXPECT_EQ(OnScreen(Element(6)).pixelColor(1, 1), QColor(Qt::white));
    Key(Qt::Key_Space);
    EXPECT_EQ(Selected(), (Elements{6}));
    Key(Qt::Key_Left);
    Key(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Selected(), (Elements{5, 6}));
    Key(Qt::Key_Up);
    Key(Qt::Key_Space);
    EXPECT_EQ(Selected(), (Elements{1}));
}

TEST_F(WallSelection, ArrowsStopAtTheEdges) {
    StartWithWall(4, 3);
    for (const auto key : {Qt::Key_Left, Qt::Key_Up}) Key(key);
    EXPECT_TRUE(Element(1)->hasFocus());
    Key(Qt::Key_End);
    for (const auto key : {Qt::Key_Right, Qt::Key_Down}) Key(key);
    EXPECT_TRUE(Element(12)->hasFocus());
    Key(Qt::Key_Home);
    EXPECT_TRUE(Element(1)->hasFocus());
    for (int i = 0; i < 5; ++i) Key(Qt::Key_Right);
    EXPECT_TRUE(Element(4)->hasFocus());
}

TEST_F(WallSelection, ClickShowsNoFrame) {
    StartWithWall(4, 3);
    Click(Element(6));
    EXPECT_TRUE(Element(6)->hasFocus());
    EXPECT_EQ(OnScreen(Element(6)).pixelColor(1, 1), Highlight());
}

TEST_F(WallSelection, MenuKeyIsARightClickOnTheFieldWithTheFocus) {
    StartWithWall(4, 3);
    Key(Qt::Key_Right);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(5, 5),
                              Element(2)->mapToGlobal(QPoint(5, 5)));
    QPoint place;
    QTimer::singleShot(0, main.get(), [&] {
        place = EditMenu()->pos();
        EditMenu()->close();
    });
    QApplication::sendEvent(Element(2), &menuKey);
    EXPECT_EQ(place, Element(2)->mapToGlobal(Element(2)->rect().center()));
    EXPECT_EQ(Show.PatchElementNo, 2);
}

TEST_F(WallSelection, WallWithoutElementsTakesKeysInItsStride) {
    StartProgram();
    main->Wand->Open();
    for (const auto key : {Qt::Key_Right, Qt::Key_Space, Qt::Key_F2}) Key(key);
    EXPECT_EQ(Show.SelectedCount, 0);
}

TEST_F(WallSelection, SurvivesSceneChangesAndPlayback) {
    StartWithWall(2, 1);
    Show.StepCount = 2;
    Show.CurrentStep = 1;
    Show.StatusFlags.Set(Status::SequenceExists);
    for (int step = 1; step <= 2; ++step) {
        Show.SequenceTimes[step][HoldTime] = 1;
        Show.SequenceTimes[step][BlendTime] = 5;
        Show.SequenceSteps[step][1][1] = 50;
    }
    Click(Element(1));
    NextScene();
    EXPECT_EQ(ShownColour(1), Highlight());
    Play();
    Ticks(20);
    EXPECT_EQ(Selected(), (Elements{1}));
    EXPECT_EQ(Show.SelectedCount, 1);
}

TEST_F(WallSelection, IsEmptiedWhenTheWallIsDeleted) {
    StartWithWall(2, 1);
    Choose("mnuSelectAll");
    Answer(QMessageBox::Yes);
    Choose("mnuKillWand");
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_EQ(Selected(), (Elements{}));
}

TEST_F(WallSelection, RightPressOutsideTheFieldsOpensNoMenuInTheWallWindow) {
    StartWithWall(2, 1);
    QContextMenuEvent press(QContextMenuEvent::Mouse, QPoint(2, 2),
                            main->Wand->lblStatus->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(main->Wand->lblStatus, &press);
    EXPECT_FALSE(EditMenu()->isVisible());
}

} // namespace quorvane
