// The DMX test window as a window: what stands in it, what its channel fields accept, and its place.
#include "ui/testwindowbench.h"

#include <QApplication>
#include <QClipboard>

namespace quorvane {

using TestWindowTest = TestWindowBench;

// What is there

TEST_F(TestWindowTest, ControlsCarryTheirCaptionsAndToolTipsLetterByLetter) {
    StartWith(UsbInterface);
    EXPECT_EQ(main->Dmx->windowTitle().toStdString(), "DMX Test");
    EXPECT_EQ(Button()->text().toStdString(), "Testmode starten");
    EXPECT_EQ(Button()->toolTip().toStdString(),
              "Startet / Stopt den Testmodus wobei die DMX - Ausgabe nur noch über dieses Fenster erfolgt");
    for (int index = 0; index < 8; ++index) {
        EXPECT_EQ(ChannelField(index)->toolTip().toStdString(),
                  "DMX - Kanal auf den sich der Faderwert und DMX Out bezieht");
        EXPECT_EQ(Output(index)->toolTip().toStdString(), "Wert im RAM der DMX - Karte  ");
        EXPECT_TRUE(Output(index)->isReadOnly());
    }
    EXPECT_EQ(StatusText(), "DMX Out-Werte entsprechen dem Kartenausgang");
    EXPECT_EQ(Find<QLabel>("frmDMX", "lblDMX")->text().toStdString(), "Es wurde kein DMX Interface erkannt");
}

TEST_F(TestWindowTest, FadersStandUprightFromZeroTo255InStepsOfOneAndTen) {
    StartWith(UsbInterface);
    for (int index = 0; index < 8; ++index) {
        EXPECT_EQ(Fader(index)->orientation(), Qt::Vertical);
        EXPECT_FALSE(Fader(index)->invertedAppearance()); // 255 is at the top
        EXPECT_EQ(Fader(index)->minimum(), 0);
        EXPECT_EQ(Fader(index)->maximum(), 255);
        EXPECT_EQ(Fader(index)->singleStep(), 1);
        EXPECT_EQ(Fader(index)->pageStep(), 10);
    }
}

TEST_F(TestWindowTest, EveryControlHasAnAccessibleName) {
    StartWith(UsbInterface);
    for (int index = 0; index < 8; ++index) {
        EXPECT_FALSE(Fader(index)->accessibleName().isEmpty());
        EXPECT_FALSE(ChannelField(index)->accessibleName().isEmpty());
        EXPECT_FALSE(Output(index)->accessibleName().isEmpty());
    }
    EXPECT_FALSE(Button()->accessibleName().isEmpty());
    EXPECT_FALSE(Find<QLabel>("frmDMX", "lblStatus")->accessibleName().isEmpty());
}

TEST_F(TestWindowTest, NothingIsCutOffAtTheSmallestSize) {
    StartWith(NoInterface);
    Frame()->resize(Frame()->minimumSizeHint());
    for (const QWidget* control : main->Dmx->findChildren<QWidget*>()) {
        if (!control->isVisible() || control->objectName() == "lblStatus") continue;
        EXPECT_GE(control->width(), control->minimumSizeHint().width())
            << control->objectName().toStdString();
        EXPECT_GE(control->height(), control->minimumSizeHint().height())
            << control->objectName().toStdString();
    }
}

TEST_F(TestWindowTest, TabGoesThroughChannelsThenFadersThenTheButton) {
    StartWith(UsbInterface);
    Click(ChannelField(0));
    for (int index = 1; index < 8; ++index) {
        Key(Qt::Key_Tab);
        EXPECT_TRUE(ChannelField(index)->hasFocus()) << index;
    }
    for (int index = 0; index < 8; ++index) {
        Key(Qt::Key_Tab);
        EXPECT_TRUE(Fader(index)->hasFocus()) << index;
    }
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Button()->hasFocus());
}

TEST_F(TestWindowTest, OpensFromBothMenus) {
    StartWithWall(3, 1);
    EXPECT_EQ(Entry("mnuDMXTest")->text().toStdString(), "DMX Test");
    EXPECT_EQ(Entry("mnuTestfenster")->text().toStdString(), "DMX Testfenster");
    for (const char* entry : {"mnuDMXTest", "mnuTestfenster"}) {
        Choose(entry);
        EXPECT_TRUE(main->Dmx->isVisible());
        EXPECT_TRUE(Show.StatusFlags.Has(Status::TestWindowOpen));
        EXPECT_TRUE(Show.StatusFlags.Has(Status::Monitor));
        CloseTest();
        EXPECT_FALSE(main->Dmx->isVisible());
        EXPECT_FALSE(Show.StatusFlags.Has(Status::TestWindowOpen));
        EXPECT_FALSE(Show.StatusFlags.Has(Status::Monitor));
    }
}

TEST_F(TestWindowTest, PlaceIsKeptFromCloseToOpenAndToTheNextStart) {
    StartWith(UsbInterface);
    Frame()->move(33, 44);
    Frame()->resize(Frame()->size() + QSize(-10, 40));
    const QSize own = main->Dmx->size();
    CloseTest();
    EXPECT_EQ(Show.WindowPos[TestWindow][PosLeft], 33 * 15);
    EXPECT_EQ(Show.WindowPos[TestWindow][PosTop], 44 * 15);
    EXPECT_EQ(Show.WindowPos[TestWindow][PosWidth], own.width() * 15);
    EXPECT_EQ(Show.WindowPos[TestWindow][PosHeight], own.height() * 15);
    OpenTest();
    EXPECT_TRUE(CloseProgram());
    main.reset();
    Show = ShowState{};
    StartProgram();
    EXPECT_TRUE(main->Dmx->isVisible());
    EXPECT_TRUE(Show.StatusFlags.Has(Status::Monitor));
    EXPECT_EQ(Frame()->pos(), QPoint(33, 44));
    EXPECT_EQ(main->Dmx->size(), own);
}

TEST_F(TestWindowTest, FunctionKeysGoToTheRememberedSelectionsFromEveryControl) {
    StartWith(UsbInterface);
    Show.Selections[3][1] = 1; // element 2 on F4
    const std::vector<QWidget*> controls{Fader(0), ChannelField(5), Button()};
    for (QWidget* control : controls) {
        control->setFocus();
        Key(Qt::Key_F4);
        EXPECT_EQ(Selected(), (Elements{2})) << control->objectName().toStdString();
        Key(Qt::Key_F11, Qt::ShiftModifier);
        EXPECT_EQ(Show.Selections[10][1], 1) << control->objectName().toStdString();
        Key(Qt::Key_F3);
        EXPECT_EQ(Show.SelectedCount, 0);
        Show.Selections[10].Fill(0);
    }
    EXPECT_FALSE(InTestMode());
}

// The notice

TEST_F(TestWindowTest, NoticeIsSeenOnlyWithoutAnInterface) {
    for (const std::int16_t type : {NoInterface, IsaCardB, IsaCardC, UsbInterface, PcmciaCard, PciCard}) {
        StartWith(type);
        EXPECT_EQ(NoticeIsSeen(), type == NoInterface) << type;
        StartAfresh();
    }
}

TEST_F(TestWindowTest, NoticeGoesWhenAnInterfaceWasChosenMeanwhile) {
    StartWith(NoInterface);
    Show.InterfaceType = PciCard;
    Choose("mnuColorfenster");
    Choose("mnuTestfenster");
    EXPECT_FALSE(NoticeIsSeen());
    Show.InterfaceType = NoInterface;
    QApplication::setActiveWindow(nullptr); // as a dialog of the program does
    QApplication::setActiveWindow(main.get());
    EXPECT_TRUE(NoticeIsSeen());
}

// Channels

TEST_F(TestWindowTest, RowsStandOnChannelsOneToEightAndKeepTheirsForTheRun) {
    StartWith(UsbInterface);
    for (int index = 0; index < 8; ++index)
        EXPECT_EQ(ChannelField(index)->text(), QString::number(index + 1));
    SetChannel(2, "300");
    CloseTest();
    OpenTest();
    EXPECT_EQ(ChannelField(2)->text(), "300");
}

TEST_F(TestWindowTest, ChannelIsTakenWhenItsFieldIsLeftOrEntered) {
    StartWith(UsbInterface);
    Replace(2, "512");
    EXPECT_EQ(Show.MonitorChannel[2], 3); // not while it is typed
    Key(Qt::Key_Tab);
    EXPECT_EQ(Show.MonitorChannel[2], 512);
    Replace(2, "007");
    Key(Qt::Key_Return);
    EXPECT_EQ(Show.MonitorChannel[2], 7);
    EXPECT_EQ(ChannelField(2)->text(), "7");
    EXPECT_EQ(Beeps, 0);
}

TEST_F(TestWindowTest, ChannelOutsideTheLineIsRefusedWithABeepAndTheFormerComesBack) {
    StartWith(UsbInterface);
    SetChannel(2, "77");
    for (const char* text : {"0", "513", "", "99999999999"}) {
        Beeps = 0;
        SetChannel(2, text);
        EXPECT_EQ(StatusText(), "Unzulässiger Wert! DMX-Kanal 1 - 512 angeben.") << text;
        EXPECT_EQ(Beeps, 1) << text;
        EXPECT_EQ(ChannelField(2)->text(), "77") << text;
        EXPECT_EQ(Show.MonitorChannel[2], 77) << text;
    }
}

TEST_F(TestWindowTest, LeavingAChannelAsksForFreshValuesWhetherItIsAcceptedOrRefused) {
    StartWith(UsbInterface);
    for (const char* text : {"77", "513"}) {
        Replace(2, text);
        Show.StatusFlags.Clear(Status::Monitor);
        Key(Qt::Key_Tab);
        EXPECT_TRUE(Show.StatusFlags.Has(Status::Monitor)) << text;
    }
}

TEST_F(TestWindowTest, LetterIsKeptOutOfAChannelField) {
    StartWith(UsbInterface);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Minus, Qt::Key_Period, Qt::Key_Space}) {
        Replace(2, "12");
        CloseTest(); // the text of the status line goes with the window
        OpenTest();
        Click(ChannelField(2));
        Key(key);
        EXPECT_EQ(StatusText(), "Nur Zahlen sind erlaubt!") << key;
        EXPECT_EQ(ChannelField(2)->text(), "12");
    }
    EXPECT_EQ(Beeps, 0);
}

TEST_F(TestWindowTest, KeysThatTypeNothingAndTheBackspaceAreAccepted) {
    StartWith(UsbInterface);
    Replace(2, "123");
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Delete, Qt::Key_Shift, Qt::Key_Home,
                              Qt::Key_Return, Qt::Key_Insert})
        Key(key);
    EXPECT_EQ(ChannelField(2)->text(), "1");
    EXPECT_EQ(StatusText(), "DMX Out-Werte entsprechen dem Kartenausgang");
}

TEST_F(TestWindowTest, PastedTextIsDecidedOnWhenTheFieldIsLeft) {
    StartWith(UsbInterface);
    Replace(2, "");
    QApplication::clipboard()->setText("zwei");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(ChannelField(2)->text(), "zwei");
    Key(Qt::Key_Tab);
    EXPECT_EQ(ChannelField(2)->text(), "3");
    EXPECT_EQ(StatusText(), "Unzulässiger Wert! DMX-Kanal 1 - 512 angeben.");
}

TEST_F(TestWindowTest, ClosingChecksTheChannelThatWasTypedLast) {
    StartWith(UsbInterface);
    Replace(2, "44");
    CloseTest();
    EXPECT_EQ(Show.MonitorChannel[2], 44);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::Monitor));
}

} // namespace quorvane
