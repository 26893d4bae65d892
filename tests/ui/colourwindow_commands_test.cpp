#include "ui/colourbench.h"

#include <QColorDialog>

#include <stdexcept>

namespace quorvane {

using ColourCommands = ColourBench;

TEST_F(ColourCommands, FetchTakesTheLowestSelectedElement) {
    StartWithColours();
    SetLevels(Show.ElementValue[2], {1, 2, 3, 4});
    SetLevels(Show.ElementValue[3], {9, 9, 9, 9});
    Click(ElementField(3));
    Click(ElementField(2), Qt::ControlModifier);
    Click(Button(0));
    EXPECT_EQ(Current(), (Levels{1, 2, 3, 4}));
    EXPECT_EQ(Sliders(), (Levels{1, 2, 3, 4}));
    EXPECT_EQ(Preview(), QColor(5, 6, 7));
}

TEST_F(ColourCommands, FetchWithoutASelectionDoesNothingMore) {
    StartWithColours();
    Mix({5, 6, 7, 8});
    Show.StatusFlags.Set(Status::TestMode);
    Click(Button(0));
    EXPECT_EQ(Current(), (Levels{5, 6, 7, 8}));
    EXPECT_EQ(Status(), "Testmodus wurde abgeschaltet");
}

TEST_F(ColourCommands, FetchNeverWritesBackIntoTheScene) {
    StartWithColours();
    Tick(AtOnce());
    SetLevels(Show.ElementValue[2], {0, 2, 3, 4});
    SetLevels(Show.ElementValue[3], {9, 9, 9, 9});
    Tick(Minimum());
    Click(ElementField(2));
    Click(ElementField(3), Qt::ControlModifier);
    Show.ChangeFlags = {};
    Click(Button(0));
    EXPECT_EQ(Current(), (Levels{1, 2, 3, 4}));
    EXPECT_EQ(Element(2), (Levels{0, 2, 3, 4}));
    EXPECT_EQ(Element(3), (Levels{9, 9, 9, 9}));
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::ApplyAtOnce));
    EXPECT_TRUE(AtOnce()->isChecked());
}

TEST_F(ColourCommands, FetchOfBlackUnderTheMinimumRuleGivesOnesAlthoughNoSliderMoves) {
    StartWithColours();
    Tick(Minimum());
    ASSERT_EQ(Sliders(), (Levels{1, 1, 1, 1}));
    Click(ElementField(1));
    Click(Button(0));
    EXPECT_EQ(Current(), (Levels{1, 1, 1, 1}));
    EXPECT_EQ(Element(1), (Levels{0, 0, 0, 0}));
}

TEST_F(ColourCommands, ApplyGivesTheColourToAllSelectedElements) {
    StartWithColours();
    Mix({5, 6, 7, 8});
    Click(ElementField(1));
    Click(ElementField(3), Qt::ControlModifier);
    Click(Button(1));
    EXPECT_EQ(Element(1), (Levels{5, 6, 7, 8}));
    EXPECT_EQ(Element(2), (Levels{0, 0, 0, 0}));
    EXPECT_EQ(Element(3), (Levels{5, 6, 7, 8}));
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
    EXPECT_EQ(ShownColour(1), QColor(13, 14, 15)); // not as selected, on purpose
    EXPECT_TRUE(Shows(1, Qt::red));
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourCommands, ApplyWithoutASelectionStillMarksTheSceneOnPurpose) {
    StartWithColours();
    Click(Button(1));
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::SceneChanged));
}

TEST_F(ColourCommands, EveryButtonEndsTestModeFirst) {
    StartWithColours();
    for (int index = 0; index < 4; ++index) {
        Show.StatusFlags.Set(Status::TestMode);
        if (index == 2) WhenAsked([](QDialog* asked) { asked->reject(); });
        Click(Button(index));
        EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode)) << index;
        const char* expected =
            index < 3 ? "Testmodus wurde abgeschaltet" : "Bitte die Farbnr. angeben oder klicken auf eine.";
        EXPECT_EQ(Status(), expected) << index;
    }
}

TEST_F(ColourCommands, FetchSaysAtItsEndThatItEndedTestMode) {
    StartWithColours();
    SetLevels(Show.ElementValue[2], {1, 2, 3, 4});
    Click(ElementField(2));
    Show.StatusFlags.Set(Status::TestMode);
    Click(Button(0));
    EXPECT_EQ(Sliders(), (Levels{1, 2, 3, 4}));
    EXPECT_EQ(Status(), "Testmodus wurde abgeschaltet");
    Click(Button(0));
    EXPECT_EQ(Status(), "");
}

TEST_F(ColourCommands, ChoosingAColourSaysAtItsEndThatItEndedTestMode) {
    StartWithColours();
    for (const char* text : {"Testmodus wurde abgeschaltet", ""}) {
        WhenAsked([](QDialog* asked) {
            qobject_cast<QColorDialog*>(asked)->setCurrentColor(QColor(1, 2, 3));
            asked->accept();
        });
        Show.StatusFlags.Put(Status::TestMode, *text != '\0');
        Click(Button(2));
        EXPECT_EQ(Current(), (Levels{1, 2, 3, 0}));
        EXPECT_EQ(Status(), text);
    }
}

TEST_F(ColourCommands, AccessKeyOutOfANumberSaysThatTestModeEnded) {
    StartWithColours();
    Click(ElementField(1));
    Replace(Number(0), "99");
    Show.StatusFlags.Set(Status::TestMode);
    Key(Qt::Key_Udiaeresis, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return Element(1)[0] == 99; }));
    EXPECT_EQ(Status(), "Testmodus wurde abgeschaltet");
}

TEST_F(ColourCommands, EveryButtonClearsTheStatusLine) {
    StartWithColours();
    for (const int index : {0, 1, 2}) {
        Find<QLabel>("frmColor", "lblStatus")->setText("alt");
        if (index == 2) WhenAsked([](QDialog* asked) { asked->reject(); });
        Click(Button(index));
        EXPECT_EQ(Status(), "") << index;
    }
}

TEST_F(ColourCommands, AccessKeyTakesTheNumberThatIsBeingTyped) {
    StartWithColours();
    Click(ElementField(1));
    Replace(Number(0), "99");
    Key(Qt::Key_Udiaeresis, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return Element(1)[0] == 99; }));
    EXPECT_EQ(Element(1), (Levels{99, 0, 0, 0}));
}

TEST_F(ColourCommands, EnterPressesTheButtonWithTheFocus) {
    StartWithColours();
    Mix({5, 6, 7, 8});
    Click(ElementField(1));
    Button(1)->setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(Element(1), (Levels{5, 6, 7, 8}));
}

TEST_F(ColourCommands, ChosenColourGoesIntoThreeSlidersAndWhiteStays) {
    StartWithColours();
    Mix({5, 6, 7, 8});
    WhenAsked([](QDialog* asked) {
        auto* colours = qobject_cast<QColorDialog*>(asked);
        ASSERT_NE(colours, nullptr);
        EXPECT_EQ(colours->currentColor(), QColor(5, 6, 7)); // starts from the mix, without its white
        colours->setCurrentColor(QColor(0, 120, 250));
        QTest::keyClick(colours, Qt::Key_Return);
    });
    Click(Button(2));
    EXPECT_EQ(Sliders(), (Levels{0, 120, 250, 8}));
    EXPECT_EQ(Current(), (Levels{0, 120, 250, 8}));
}

TEST_F(ColourCommands, ChosenColourIsLiftedByTheMinimumRule) {
    StartWithColours();
    Tick(Minimum());
    WhenAsked([](QDialog* asked) {
        qobject_cast<QColorDialog*>(asked)->setCurrentColor(QColor(0, 120, 0));
        asked->accept();
    });
    Click(Button(2));
    EXPECT_EQ(Current(), (Levels{1, 120, 1, 1}));
}

TEST_F(ColourCommands, CancelledColourDialogChangesNothing) {
    StartWithColours();
    Mix({5, 6, 7, 8});
    WhenAsked([](QDialog* asked) {
        qobject_cast<QColorDialog*>(asked)->setCurrentColor(QColor(0, 120, 0));
        QTest::keyClick(asked, Qt::Key_Escape);
    });
    Click(Button(2));
    EXPECT_EQ(Current(), (Levels{5, 6, 7, 8}));
    EXPECT_EQ(Sliders(), (Levels{5, 6, 7, 8}));
}

TEST_F(ColourCommands, ErrorInTheColourDialogEndsTheCommandAndNothingElse) {
    StartWithColours();
    Mix({5, 6, 7, 8});
    const auto ask = Host.AskColour;
    Host.AskColour = [](std::uint32_t) -> std::optional<std::uint32_t> {
        throw std::runtime_error("Farbdialog");
    };
    Answer(QMessageBox::Ok);
    // Not by a click: an error that passes through the toolkit's own button leaks there.
    QMetaObject::invokeMethod(
        Button(2), [button = Button(2)] { emit button->clicked(); }, Qt::QueuedConnection);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Boxes.empty(); }));
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_NE(Boxes[0].Text.find("Farbdialog"), std::string::npos);
    EXPECT_EQ(Current(), (Levels{5, 6, 7, 8}));
    EXPECT_EQ(Sliders(), (Levels{5, 6, 7, 8}));
    Host.AskColour = ask;
    Move(0, 9); // the program runs on
    EXPECT_EQ(Current(), (Levels{9, 6, 7, 8}));
}

TEST_F(ColourCommands, ChosenColourGoesToTheSelectionAtOnceWhenTold) {
    StartWithColours();
    Click(ElementField(2));
    Tick(AtOnce());
    WhenAsked([](QDialog* asked) {
        qobject_cast<QColorDialog*>(asked)->setCurrentColor(QColor(1, 2, 3));
        asked->accept();
    });
    Click(Button(2));
    EXPECT_EQ(Element(2), (Levels{1, 2, 3, 0}));
}

} // namespace quorvane
