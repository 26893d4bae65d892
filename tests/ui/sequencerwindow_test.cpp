#include "ui/sequencerwindowbench.h"

namespace quorvane {

using SequencerWindowTest = SequencerWindowBench;

// What is there

TEST_F(SequencerWindowTest, ControlsCarryTheirNamesTextsAndToolTips) {
    struct Expected {
        const char* Name;
        const char* Caption;
        const char* ToolTip;
    };
    Open();
    for (const Expected& e :
         std::initializer_list<Expected>{{"cmdSequence(0)", "Eine Szene zurück", ""},
                                         {"cmdSequence(1)", "REC", "Szene in der Sequenz speichern"},
                                         {"cmdSequence(2)", "PLAY", "Sequenz abspielen"},
                                         {"cmdSequence(3)", "STOP", "Sequenz stoppen"},
                                         {"cmdSequence(4)", "Eine Szene vor", ""},
                                         {"cmdSequence(5)", "CLR ALL", "Komplette Sequenz löschen"},
                                         {"cmdSequence(6)", "ZERO", "Auf Anfang"}}) {
        auto* button = Find<QPushButton>("frmControl", e.Name);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->text().toStdString(), e.Caption);
        EXPECT_EQ(button->toolTip().toStdString(), e.ToolTip);
        EXPECT_EQ(button->accessibleName().toStdString(), e.Caption);
        EXPECT_FALSE(button->icon().isNull());
    }
    for (const Expected& e : std::initializer_list<Expected>{
             {"txtSequence(0)", "", "Nr. der Szene in der Sequenz "},
             {"txtSequence(1)", "50", "Geschwindigkeit in der der Sequenzer überblendet"},
             {"txtSequence(2)", "", "Wartezeit für eine Szene vor der Überblendung"},
             {"txtSequence(3)", "100", "Abspielgeschwindigkeit der Sequenz"}}) {
        auto* field = Find<QLineEdit>("frmControl", e.Name);
        ASSERT_NE(field, nullptr);
        EXPECT_EQ(field->text().toStdString(), e.Caption);
        EXPECT_EQ(field->toolTip().toStdString(), e.ToolTip);
        EXPECT_FALSE(field->accessibleName().isEmpty());
    }
    EXPECT_EQ(main->Control->lblSequence[0]->text(), "SZENE");
    EXPECT_EQ(main->Control->lblSequence[1]->text(), "Blendezeit");
    EXPECT_EQ(main->Control->lblSequence[2]->text(), "Haltezeit");
    EXPECT_EQ(Factor()->text(), "Faktor");
    EXPECT_EQ(Factor()->toolTip(), "Abspielgeschwindigkeit der Sequenz");
    EXPECT_FALSE(Factor()->isChecked());
    EXPECT_EQ(main->Control->windowTitle(), "SEQUENZER");
    EXPECT_EQ(Entry("mnuTransporter")->text(), "Sequenzer");
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequencerWindowOpen));
}

TEST_F(SequencerWindowTest, OpensAgainAtItsStoredPlaceWhenItWasOpen) {
    StartProgram();
    Show.WindowPos[SequencerWindow][PosLeft] = 450;
    Show.WindowPos[SequencerWindow][PosTop] = 300;
    Show.WindowPos[SequencerWindow][PosWidth] = 9000;
    Show.WindowPos[SequencerWindow][PosHeight] = 3000;
    Screen.OpenWindow(SequencerWindow);
    EXPECT_TRUE(main->Control->isVisible());
    EXPECT_EQ(main->Control->parentWidget()->pos(), QPoint(30, 20));
    main->Control->parentWidget()->close();
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequencerWindowOpen));
}

TEST_F(SequencerWindowTest, NoCaptionIsCutOff) {
    Open();
    for (const QPushButton* button : main->Control->cmdSequence)
        EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
}

TEST_F(SequencerWindowTest, ColumnsAreOfOneWidthAndTheirFieldsStandOverTheButtons) {
    Open();
    for (int column = 0; column < 4; ++column) {
        EXPECT_NEAR(Text(column)->width(), Text(0)->width(), 1) << column;
        QPushButton* below = Button(std::array{0, 2, 3, 4}.at(static_cast<std::size_t>(column)));
        EXPECT_EQ(below->x(), Text(column)->x());
        EXPECT_EQ(below->width(), Text(column)->width());
    }
}

TEST_F(SequencerWindowTest, FirstOpensBesideTheWallAndWithinTheFrame) {
    StartProgram();
    MakeWall();
    main->Wand->Open();
    main->Wand->parentWidget()->move(0, 0);
    Choose("mnuTransporter");
    const QRect sequencer = main->Control->parentWidget()->geometry();
    EXPECT_TRUE(main->Control->parentWidget()->parentWidget()->rect().contains(sequencer));
    EXPECT_FALSE(sequencer.intersects(main->Wand->parentWidget()->geometry()));
}

TEST_F(SequencerWindowTest, TabGoesThroughTheFieldsAndThenTheButtons) {
    Open();
    Click(Text(0));
    std::vector<std::string> order;
    for (int stop = 0; stop < 12; ++stop) {
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
        Leave();
    }
    EXPECT_EQ(order, (std::vector<std::string>{"txtSequence(0)", "txtSequence(1)", "txtSequence(2)",
                                               "chkFaktor", "txtSequence(3)", "cmdSequence(0)",
                                               "cmdSequence(2)", "cmdSequence(3)", "cmdSequence(4)",
                                               "cmdSequence(6)", "cmdSequence(1)", "cmdSequence(5)"}));
}

// Buttons

TEST_F(SequencerWindowTest, ScenesAreRecordedWithTheTimesThatStandInTheFields) {
    Open();
    MakeWall();
    Show.ElementValue[1][2] = 77;
    Type(1, "30");
    Type(2, "4");
    Click(Button(1));
    EXPECT_EQ(StatusText(), "Szene in die Sequenz aufgenommen.");
    EXPECT_EQ(Show.StepCount, 1);
    EXPECT_EQ(BlendOf(1), 30);
    EXPECT_EQ(HoldOf(1), 4);
    EXPECT_EQ(Show.SequenceSteps[1][1][2], 77);
    EXPECT_EQ(Shown(0), "1");
}

TEST_F(SequencerWindowTest, TimeTypedBeforeRecordingGoesToTheStepShownAndToTheNewOneOnPurpose) {
    Open();
    MakeSequence(1);
    Type(2, "44");
    Click(Button(1));
    EXPECT_EQ(Show.StepCount, 2);
    EXPECT_EQ(HoldOf(1), 44);
    EXPECT_EQ(HoldOf(2), 44);
    Confirm(2, "7");
    EXPECT_EQ(HoldOf(1), 44);
    EXPECT_EQ(HoldOf(2), 7);
}

TEST_F(SequencerWindowTest, EmptyTimeFieldsRecordTheStartValuesAndShowThem) {
    Open();
    MakeWall();
    Type(1, "2");
    Click(Button(1));
    EXPECT_EQ(BlendOf(1), 50);
    EXPECT_EQ(HoldOf(1), 1);
    EXPECT_EQ(Shown(1), "50");
    EXPECT_EQ(Shown(2), "1");
}

TEST_F(SequencerWindowTest, ButtonsStepThroughTheSequenceAndWrapAtItsEnds) {
    Open();
    MakeSequence(3);
    Click(Button(0));
    EXPECT_EQ(Show.CurrentStep, 3);
    EXPECT_EQ(StatusText(), "Auf Szene Nr 3 gesprungen.");
    EXPECT_EQ(Shown(0), "3");
    EXPECT_EQ(Show.ElementValue[1][1], 30);
    Click(Button(4));
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(StatusText(), "Nächste Scene.");
    Click(Button(4));
    Click(Button(6));
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(StatusText(), "Auf Szene Nr 1 gesprungen.");
}

TEST_F(SequencerWindowTest, ButtonsWorkByKeyToo) {
    Open();
    MakeSequence(3);
    Button(4)->setFocus();
    QTest::keyClick(Button(4), Qt::Key_Space);
    EXPECT_EQ(Show.CurrentStep, 2);
    QTest::keyClick(Button(4), Qt::Key_Return);
    EXPECT_EQ(Show.CurrentStep, 3);
}

TEST_F(SequencerWindowTest, ZeroDoesNothingWhilePlaying) {
    Open();
    MakeSequence(3);
    Click(Button(2));
    Ticks(2);
    EXPECT_EQ(Show.CurrentStep, 2);
    Click(Button(6));
    EXPECT_EQ(Show.CurrentStep, 2);
}

TEST_F(SequencerWindowTest, EachButtonEndsTestMode) {
    Open();
    MakeSequence(2);
    for (const int index : {0, 1, 2, 3, 4, 6, 5}) {
        if (index == 5) Click(Button(3));
        Show.StatusFlags.Set(Status::TestMode);
        if (index == 5) Show.ChangeFlags = {};
        Click(Button(index));
        EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode)) << index;
    }
}

TEST_F(SequencerWindowTest, PlayAndStopTellTheCaptionAndTheStatusLine) {
    Open();
    Click(Button(2));
    EXPECT_EQ(StatusText(), "Es wurde noch keine Sequenz programmiert !");
    MakeSequence(2);
    Click(Button(2));
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_EQ(StatusText(), "Sequenz wird abgespielt.");
    EXPECT_EQ(Caption(), ": KMO DMX QUORVANE  ....running.  Interfacetype= 3");
    Ticks(2);
    EXPECT_EQ(StatusText(), "3Hold  ");
    Ticks(3);
    EXPECT_EQ(StatusText(), "5Blend ");
    Click(Button(3));
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequencePlaying));
    EXPECT_EQ(StatusText(), "Sequenzer gestoppt.");
    EXPECT_EQ(Caption(), ": KMO DMX QUORVANE  ....stopped");
}

TEST_F(SequencerWindowTest, FrameIsOutBeforeTheWindowIsTouched) {
    Open();
    MakeSequence(3);
    Click(Button(2));
    std::vector<std::string> seen; // when a frame leaves, and after its tick
    const auto look = [this, &seen] { seen.push_back(Shown(0) + ", " + StatusText()); };
    Host.DasHardCommand = [&look](std::int32_t command, std::int32_t, std::uint8_t*) {
        if (command == 4) look();
        return 0;
    };
    Ticks(1);
    look();
    EXPECT_EQ(seen, (std::vector<std::string>{"1, Sequenz wird abgespielt.", "2, 6Blend "}));
    seen.clear();
    Ticks(1);
    look();
    EXPECT_EQ(seen, (std::vector<std::string>{"2, 6Blend ", "2, 3Hold  "}));
}

TEST_F(SequencerWindowTest, StatusOfATickMovesNothingElse) {
    struct Layouts : QObject {
        int Count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            Count += event->type() == QEvent::LayoutRequest ? 1 : 0;
            return false;
        }
    } layouts;
    Open();
    QTest::qWait(0);
    main->Control->installEventFilter(&layouts);
    for (const char* text : {"12Hold  ", "3Hold  ",
                             "Ein langer Text, der breiter ist als das ganze Fenster, "
                             "und noch einiges dazu, was niemand mehr lesen kann"}) {
        Screen.SequencerStatus(text);
        QTest::qWait(0);
    }
    EXPECT_EQ(layouts.Count, 0);
}

TEST_F(SequencerWindowTest, DeletingNeedsAStoppedSequence) {
    Open();
    MakeSequence(2);
    Click(Button(2));
    Click(Button(5));
    EXPECT_EQ(StatusText(), "Sie müssen die Sequenz erst anhalten!");
    EXPECT_EQ(Show.StepCount, 2);
}

TEST_F(SequencerWindowTest, CancelledDeletingLeavesTheSequenceAndADarkOutput) {
    Open();
    MakeSequence(2);
    Show.SequenceFile = "show.QSQ";
    Click(Button(4));
    Show.ChangeFlags.bits = 0x28;
    Ticks(1);
    ASSERT_EQ(Frames.back().at(0), 20);
    WhenAsked([this](QDialog* asked) {
        EXPECT_EQ(Frames.back(), std::vector<std::uint8_t>(512, 0)); // dark while the question stands
        Click(qobject_cast<QMessageBox*>(asked)->button(QMessageBox::Cancel));
    });
    Click(Button(5));
    EXPECT_EQ(Show.StepCount, 2);
    EXPECT_EQ(Show.SequenceFile, "show.QSQ");
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
    ASSERT_FALSE(Frames.empty());
    EXPECT_EQ(Frames.back(), std::vector<std::uint8_t>(512, 0));
    Ticks(1);
    EXPECT_EQ(Frames.back().at(0), 20); // lit again
}

TEST_F(SequencerWindowTest, DeletedSequenceLeavesValidTimesAndAnEmptyStepField) {
    Open();
    MakeSequence(2);
    Screen.SequencerCaption("Sequence show.QSQ");
    Type(1, "33");
    QTest::keyClick(Text(1), Qt::Key_Tab);
    Show.ChangeFlags = {};
    Click(Button(5));
    EXPECT_EQ(StatusText(), "Die Sequenz wurde gelöscht.");
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequenceExists));
    EXPECT_EQ(Show.StepCount, 0);
    EXPECT_EQ(Shown(0), "");
    EXPECT_EQ(BlendOf(1), 33);
    EXPECT_EQ(main->Control->windowTitle(), "SEQUENZER");
}

TEST_F(SequencerWindowTest, SequenceIsSavedAndThenDeletedAfterYes) {
    Open();
    MakeWall();
    Show.ElementValue[1][2] = 77;
    Click(Button(1));
    Answer(QMessageBox::Yes);
    ChooseFile("abend");
    Click(Button(5));
    EXPECT_NE(Read("sequencen/abend.QSQ").find(" 77"), std::string::npos);
    EXPECT_EQ(Show.StepCount, 0);
    EXPECT_EQ(Show.SequenceFile, "");
    EXPECT_FALSE(Show.ChangeFlags.Has(Change::SequenceChanged));
    EXPECT_EQ(StatusText(), "Die Sequenz wurde gelöscht.");
}

TEST_F(SequencerWindowTest, SequenceStaysWhenItsSavingIsCancelled) {
    Open();
    MakeWall();
    Click(Button(1));
    const auto marks = Show.ChangeFlags.bits;
    Answer(QMessageBox::Yes);
    ChooseFile("");
    Click(Button(5));
    EXPECT_EQ(Show.StepCount, 1);
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::SequenceExists));
    EXPECT_EQ(Show.ChangeFlags.bits, marks);
}

TEST_F(SequencerWindowTest, NewSequenceIsAskedAboutBeforeItIsDeleted) {
    Open();
    MakeWall();
    Click(Button(1));
    Answer(QMessageBox::No);
    Click(Button(5));
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, "Sie haben eine neue Sequenz erstellt. Wollen Sie sie jetzt abspeichern?");
    EXPECT_EQ(Show.StepCount, 0);
}

// Remembered selections

TEST_F(SequencerWindowTest, FunctionKeysRememberAndRecallSelectionsInFieldsAndButtonsAlike) {
    Open();
    MakeWall();
    Show.ElementSelected[1] = 1;
    Show.SelectedCount = 1;
    QTest::keyClick(Text(1), Qt::Key_F5, Qt::ShiftModifier);
    EXPECT_EQ(Show.Selections[4][1], 1);
    Show.ElementSelected[1] = 0;
    Show.SelectedCount = 0;
    QTest::keyClick(Button(2), Qt::Key_F5);
    EXPECT_EQ(Show.ElementSelected[1], 1);
    for (const auto key : {Qt::Key_F1, Qt::Key_F13}) {
        QTest::keyClick(Text(1), key);
        EXPECT_EQ(Show.SelectedCount, 1);
    }
    QTest::keyClick(Text(2), Qt::Key_F12); // nothing is remembered there
    EXPECT_EQ(Show.SelectedCount, 0);
    EXPECT_EQ(Shown(1), "50");
}

} // namespace quorvane
