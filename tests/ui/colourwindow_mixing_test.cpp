#include "ui/colourbench.h"

namespace quorvane {

using ColourMixing = ColourBench;

TEST_F(ColourMixing, SliderChangeReachesColourNumberAndPreview) {
    StartWithColours();
    Mix({200, 0, 0, 100});
    EXPECT_EQ(Current(), (Levels{200, 0, 0, 100}));
    EXPECT_EQ(Number(0)->text().toStdString(), "200");
    EXPECT_EQ(Number(3)->text().toStdString(), "100");
    EXPECT_EQ(Preview(), QColor(255, 100, 100));
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourMixing, PreviewIsHeldAtWhite) {
    StartWithColours();
    Mix({255, 255, 255, 255});
    EXPECT_EQ(Preview(), QColor(255, 255, 255));
    Mix({0, 0, 0, 0});
    EXPECT_EQ(Preview(), QColor(0, 0, 0));
}

TEST_F(ColourMixing, SlidersMoveByKeys) {
    StartWithColours();
    Slider(1)->setFocus();
    Key(Qt::Key_Up);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Current(), (Levels{0, 11, 0, 0}));
}

TEST_F(ColourMixing, SliderFollowsTheMouseUpwards) {
    StartWithColours();
    QSlider* slider = Slider(0);
    const QPoint bottom(slider->width() / 2, slider->height() - 6);
    QTest::mousePress(slider, Qt::LeftButton, {}, bottom);
    std::vector<int> reds;
    for (const int upwards : {20, 40, slider->height()}) {
        QMouseEvent move(QEvent::MouseMove, QPointF(bottom - QPoint(0, upwards)),
                         slider->mapToGlobal(QPointF(bottom - QPoint(0, upwards))), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(slider, &move);
        reds.push_back(Current()[0]);
    }
    QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(bottom.x(), 0));
    EXPECT_GT(reds[0], 0);
    EXPECT_GT(reds[1], reds[0]);
    EXPECT_EQ(reds[2], 255); // at the top
}

TEST_F(ColourMixing, SliderChangeEndsTestMode) {
    StartWithColours();
    Show.StatusFlags.Set(Status::TestMode);
    Move(2, 1);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode));
    EXPECT_EQ(Status(), "Testmodus wurde abgeschaltet");
    Move(2, 2);
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourMixing, TypedNumberEndsTestMode) {
    StartWithColours();
    Show.StatusFlags.Set(Status::TestMode);
    Enter(Number(1), "128");
    EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode));
    EXPECT_EQ(Status(), "Testmodus wurde abgeschaltet");
}

TEST_F(ColourMixing, ApplyingAtOnceEndsTestModeWithATextOfItsOwn) {
    StartWithColours();
    Show.StatusFlags.Set(Status::TestMode);
    Tick(AtOnce());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode));
    EXPECT_EQ(Status(), " Änderungen werden sofort übernommen!");
}

TEST_F(ColourMixing, EnterEndsTestModeWithATextOfItsOwn) {
    StartWithColours();
    Replace(Number(0), "12");
    Show.StatusFlags.Set(Status::TestMode);
    Key(Qt::Key_Return);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode));
    EXPECT_EQ(Status(), "Bitte mit TAB weitergehen.");
}

TEST_F(ColourMixing, ChangesGoToTheSelectionAtOnceWhenTold) {
    StartWithColours();
    Mix({10, 20, 30, 40});
    Choose("mnuSelectAll");
    Tick(AtOnce());
    EXPECT_EQ(Status(), " Änderungen werden sofort übernommen!");
    EXPECT_TRUE(Show.StatusFlags.Has(Status::ApplyAtOnce));
    for (int element = 1; element <= 3; ++element) EXPECT_EQ(Element(element), (Levels{10, 20, 30, 40}));
    for (const int white : {41, 42, 90}) {
        Show.ChangeFlags = {};
        Move(3, white);
        EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
        for (int element = 1; element <= 3; ++element)
            EXPECT_EQ(Element(element), (Levels{10, 20, 30, white}));
    }
    EXPECT_EQ(ShownColour(1), QColor(100, 110, 120)); // repainted without asking for the selection
}

TEST_F(ColourMixing, ChangesStayInTheWindowOtherwise) {
    StartWithColours();
    Choose("mnuSelectAll");
    Mix({10, 20, 30, 40});
    EXPECT_EQ(Element(1), (Levels{0, 0, 0, 0}));
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(ColourMixing, ClearingTheBoxEmptiesTheStatusLine) {
    StartWithColours();
    Tick(AtOnce());
    Tick(AtOnce());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::ApplyAtOnce));
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourMixing, TickingRightAfterOpeningAppliesTheColourSeenAndNoMixture) {
    StartWithWall(3, 1);
    SetLevels(Show.CurrentColour, {7, 8, 9, 10});
    SetLevels(Show.UserColour[20], {1, 2, 3, 4});
    Click(ElementField(1));
    OpenColours();
    Tick(AtOnce());
    EXPECT_EQ(Element(1), (Levels{1, 2, 3, 4}));
    EXPECT_EQ(Sliders(), (Levels{1, 2, 3, 4}));
}

TEST_F(ColourMixing, NumberLeftByTabMovesItsSlider) {
    StartWithColours();
    Enter(Number(1), "128");
    EXPECT_EQ(Sliders(), (Levels{0, 128, 0, 0}));
    EXPECT_EQ(Current(), (Levels{0, 128, 0, 0}));
    EXPECT_TRUE(Number(2)->hasFocus());
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourMixing, NumberLeftByAClickElsewhereCountsToo) {
    StartWithColours();
    Replace(Number(0), "77");
    Click(ElementField(1));
    EXPECT_EQ(Current(), (Levels{77, 0, 0, 0}));
}

struct NumberCase {
    const char* Typed;
    int Taken; // -1 refused
};

TEST_F(ColourMixing, NumbersFrom0To255AreTaken) {
    StartWithColours();
    for (const NumberCase& tried : std::initializer_list<NumberCase>{
             {"0", 0}, {"255", 255}, {"007", 7}, {"1.5", 2}, {"256", -1}, {"99999999999", -1}, {"", -1}}) {
        SCOPED_TRACE(tried.Typed);
        Move(0, 50);
        const int beeps = Beeps;
        Enter(Number(0), tried.Typed);
        if (tried.Taken >= 0) {
            EXPECT_EQ(Number(0)->text().toStdString(), std::to_string(tried.Taken));
            EXPECT_EQ(Slider(0)->value(), tried.Taken);
            EXPECT_EQ(Beeps, beeps);
        } else {
            EXPECT_EQ(Number(0)->text().toStdString(), "0");
            EXPECT_EQ(Status(), "Es sind nur Werte zwischen 0 und 255 möglich!");
            EXPECT_EQ(Slider(0)->value(), 50); // keeps its value, on purpose
            EXPECT_EQ(Current()[0], 50);
            EXPECT_EQ(Beeps, beeps + 1);
        }
    }
}

TEST_F(ColourMixing, RefusedNumberShowsZeroWhileItsSliderKeepsItsValueOnPurpose) {
    StartWithColours();
    Mix({50, 60, 70, 80});
    for (int index = 0; index < 4; ++index) {
        Enter(Number(index), "256");
        EXPECT_EQ(Number(index)->text(), "0");
        EXPECT_EQ(Sliders(), (Levels{50, 60, 70, 80}));
        EXPECT_EQ(Current(), (Levels{50, 60, 70, 80}));
    }
}

TEST_F(ColourMixing, PastedTextIsCheckedWhenTheFieldIsLeft) {
    StartWithColours();
    Click(Number(0));
    Number(0)->selectAll();
    Number(0)->insert("300"); // as by the mouse's middle button
    EXPECT_EQ(Beeps, 0);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Beeps, 1);
    EXPECT_EQ(Number(0)->text().toStdString(), "0");
}

TEST_F(ColourMixing, ZeroOfARefusedNumberGivesWayToTheSlidersValueWhenTheFieldIsLeftAgainOnPurpose) {
    StartWithColours();
    Move(0, 50);
    Enter(Number(0), "256");
    Click(Number(0));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Slider(0)->value(), 50);
    EXPECT_EQ(Number(0)->text().toStdString(), "50");
}

TEST_F(ColourMixing, WalkingThroughTheFieldsChangesNothing) {
    StartWithWall(3, 1);
    SetLevels(Show.CurrentColour, {7, 8, 9, 10});
    SetLevels(Show.UserColour[20], {1, 2, 3, 4});
    OpenColours();
    Click(Number(0));
    for (int i = 0; i < 4; ++i) Key(Qt::Key_Tab);
    EXPECT_EQ(Current(), (Levels{1, 2, 3, 4}));
    EXPECT_EQ(Status(), "Statuszeile");
    EXPECT_EQ(Beeps, 0);
}

TEST_F(ColourMixing, EnterMovesOnAndItsTextIsWrittenLast) {
    StartWithColours();
    Replace(Number(0), "12");
    for (int index = 0; index < 3; ++index) {
        Key(index % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
        EXPECT_EQ(Status(), "Bitte mit TAB weitergehen.");
        EXPECT_TRUE(Number(index + 1)->hasFocus());
    }
    EXPECT_EQ(Slider(0)->value(), 12);
    Key(Qt::Key_Return);
    EXPECT_TRUE(Button(1)->hasFocus());
    EXPECT_EQ(Status(), "Bitte mit TAB weitergehen.");
}

TEST_F(ColourMixing, EnterOnARefusedNumberLeavesTheReasonInSightOnPurpose) {
    StartWithColours();
    Replace(Number(0), "256");
    Key(Qt::Key_Return);
    EXPECT_TRUE(Number(1)->hasFocus());
    EXPECT_EQ(Number(0)->text().toStdString(), "0");
    EXPECT_EQ(Status(), "Es sind nur Werte zwischen 0 und 255 möglich!");
    EXPECT_EQ(Beeps, 1);
}

TEST_F(ColourMixing, OtherKeysPutTheSlidersValueBack) {
    StartWithColours();
    Move(0, 50);
    for (const char* typed : {"a", "-", ",", " ", "x"}) {
        Replace(Number(0), "7");
        Type(typed);
        EXPECT_EQ(Number(0)->text().toStdString(), "50") << typed;
        EXPECT_EQ(Status(), " Es sind nur Zahlen erlaubt!");
    }
    Key(Qt::Key_Tab);
    EXPECT_EQ(Slider(0)->value(), 50);
}

TEST_F(ColourMixing, KeysThatTypeNothingPutNothingBack) {
    StartWithColours();
    Replace(Number(0), "123");
    for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Insert,
                           Qt::Key_Escape, Qt::Key_Shift, Qt::Key_Control, Qt::Key_F1, Qt::Key_F5})
        Key(key);
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Number(0)->text().toStdString(), "123");
    Key(Qt::Key_End);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Number(0)->text().toStdString(), "12");
    EXPECT_EQ(Status(), "Statuszeile");
}

TEST_F(ColourMixing, PasteByKeysIsNoOtherKeyWhicheverKeyComesUpFirst) {
    StartWithColours();
    Click(Number(0));
    QTest::keyPress(main->windowHandle(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyRelease(main->windowHandle(), Qt::Key_V); // Ctrl came up before
    EXPECT_EQ(Status(), "Statuszeile");
}

TEST_F(ColourMixing, TabIntoAFieldDoesNotResetIt) {
    StartWithColours();
    Replace(Number(0), "9");
    QTest::keyPress(main->windowHandle(), Qt::Key_Tab);
    QTest::keyRelease(main->windowHandle(), Qt::Key_Tab); // comes up in the next field
    EXPECT_TRUE(Number(1)->hasFocus());
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourMixing, KeypadDigitsAreDigits) {
    StartWithColours();
    Click(Number(0));
    Key(Qt::Key_A, Qt::ControlModifier);
    for (const auto key : {Qt::Key_4, Qt::Key_2}) Key(key, Qt::KeypadModifier);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Slider(0)->value(), 42);
}

TEST_F(ColourMixing, OpeningAMenuOrTurningToAnotherProgramIsNoFocusLoss) {
    StartWithColours();
    Replace(Number(0), "300");
    QTest::mouseClick(main->menuWidget(), Qt::LeftButton, {}, QPoint(10, 10));
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    menu->close();
    EXPECT_EQ(Beeps, 0);
    EXPECT_EQ(Number(0)->text().toStdString(), "300");
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(Beeps, 0);
    QApplication::setActiveWindow(main.get());
    EXPECT_EQ(Beeps, 0);
    Number(1)->setFocus();
    EXPECT_EQ(Beeps, 1);
}

TEST_F(ColourMixing, DialogOfTheProgramIsAFocusLoss) {
    StartWithColours();
    Replace(Number(0), "77");
    WhenAsked([](QDialog* asked) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(asked));
        EXPECT_EQ(Current()[0], 77);
        QTest::keyClick(asked, Qt::Key_Escape);
    });
    Answer(QMessageBox::Ok);
    Choose("mnuFarbTblLaden");
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, "Abbruch beim angeben eines Dateinamens");
}

TEST_F(ColourMixing, ClosingTheWindowTakesTheNumberThatWasTypedLast) {
    StartWithColours();
    Replace(Number(2), "66");
    CloseColours();
    EXPECT_EQ(Current()[2], 66);
}

TEST_F(ColourMixing, ClosingTheProgramTakesTheNumberThatWasTypedLast) {
    StartWithColours();
    Tick(AtOnce());
    Click(ElementField(1));
    Replace(Number(2), "66");
    Show.ChangeFlags = {};
    Show.SceneFile = "abend.QSC";
    Answer(QMessageBox::Cancel); // the scene has changed by it
    EXPECT_FALSE(CloseProgram());
    EXPECT_EQ(Element(1)[2], 66);
}

} // namespace quorvane
