// The end of the program, asked for in whatever way.
#include "ui/testwindowbench.h"

#include "app/quitsignal.h"

#include <QApplication>

#include <csignal>
#include <stdexcept>

namespace quorvane {

class ClosingProgram : public TestWindowBench {};

TEST_F(ClosingProgram, CancelAtAQuestionKeepsTheProgramOpenWithTheSnapshotTaken) {
    StartProgram();
    Show.ChangeFlags.Set(Change::ConfigNew);
    Answer(QMessageBox::Cancel);
    EXPECT_FALSE(CloseProgram());
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(Show.SavedFlags, Show.StatusFlags.bits);
    EXPECT_EQ(Read("QUORVANE.ini"), "");
}

TEST_F(ClosingProgram, CloseKeepsTheStateOfTheWindowAndWritesTheSettings) {
    StartProgram();
    Show.WindowPos[MainWindow][PosState] = 2;
    main->setGeometry(40, 50, 640, 480);
    EXPECT_TRUE(CloseProgram());
    EXPECT_EQ(Show.WindowPos[MainWindow][PosLeft], 600);
    EXPECT_EQ(Show.WindowPos[MainWindow][PosTop], 750);
    EXPECT_EQ(Show.WindowPos[MainWindow][PosWidth], 9600);
    EXPECT_EQ(Show.WindowPos[MainWindow][PosHeight], 7200);
    EXPECT_EQ(Show.WindowPos[MainWindow][PosState], 2);
    EXPECT_EQ(Read("QUORVANE.ini").substr(0, 25), "ini-Datei von QUORVANE 98");
}

TEST_F(ClosingProgram, SignalToEndClosesOpenDialogsThenTheProgramAndWritesTheSettings) {
    StartProgram();
    const QuitSignal quitSignal([this] { main->CloseFromOutside(); });
    WhenAsked([](QDialog*) {
        std::raise(SIGTERM);
        QTest::qWait(0);
    });
    Answer(QMessageBox::Ok); // the cancelled file dialog says so
    Choose("mnuFarbTblLaden");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !main->isVisible(); }));
    EXPECT_EQ(Read("QUORVANE.ini").substr(0, 25), "ini-Datei von QUORVANE 98");
}

TEST_F(ClosingProgram, CloseStoresTheNormalPlaceOfAWindowThatIsMaximisedOrMinimised) {
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowMinimized}) {
        StartProgram();
        main->setGeometry(40, 50, 640, 480);
        QTest::qWait(0);
        main->setWindowState(state);
        QTest::qWait(0);
        EXPECT_TRUE(CloseProgram());
        EXPECT_EQ(Show.WindowPos[MainWindow][PosLeft], 600) << state;
        EXPECT_EQ(Show.WindowPos[MainWindow][PosWidth], 9600) << state;
        EXPECT_EQ(Show.WindowPos[MainWindow][PosHeight], 7200) << state;
        EXPECT_EQ(Show.WindowPos[MainWindow][PosState], 0) << state;
        StartAfresh();
        Write("QUORVANE.ini", "");
    }
}

TEST_F(ClosingProgram, InterfaceIsClosedOnceBetweenThePlacesOfTheWindowsAndTheSettings) {
    StartWith(UsbInterface);
    Show.WindowPos[TestWindow][PosWidth] = 0;
    Show.ChangeFlags.Set(Change::ConfigNew);
    int closings = 0;
    Host.DasHardCommand = [&](std::int32_t command, std::int32_t, std::uint8_t*) {
        if (command != 2) return 0;
        ++closings;
        EXPECT_EQ(Boxes.size(), 1u) << "the questions come first";
        EXPECT_GT(Show.WindowPos[TestWindow][PosWidth], 0);
        EXPECT_EQ(Read("QUORVANE.ini"), "");
        return 0;
    };
    Answer(QMessageBox::No);
    EXPECT_TRUE(CloseProgram());
    EXPECT_EQ(closings, 1);
    EXPECT_NE(Read("QUORVANE.ini"), "");
}

TEST_F(ClosingProgram, ValueTypedLastIsTakenWhenTheProgramIsEndedFromAnother) {
    StartProgram();
    main->Color->Open();
    auto* red = Find<QLineEdit>("frmColor", "txtFarbe(0)");
    Click(red);
    Key(Qt::Key_A, Qt::ControlModifier);
    Type("77");
    QApplication::setActiveWindow(nullptr);
    ASSERT_EQ(QApplication::focusWidget(), nullptr);
    ASSERT_NE(Show.CurrentColour[1], 77);
    main->CloseFromOutside();
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(Show.CurrentColour[1], 77);
}

TEST_F(ClosingProgram, FaultOnTheWayLeavesTheProgramOpenWithItsSettingsUntouched) {
    StartProgram();
    Show.ChangeFlags.Set(Change::ConfigNew);
    const auto ask = Host.MsgBox;
    Host.MsgBox = [ask](std::string_view, Buttons, std::string_view, Icon) -> quorvane::Answer {
        Host.MsgBox = ask;
        throw std::runtime_error("Kein Speicher frei");
    };
    Answer(QMessageBox::Ok);
    EXPECT_FALSE(CloseProgram());
    EXPECT_TRUE(main->isVisible());
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, "Der Befehl konnte nicht ausgeführt werden.\nKein Speicher frei");
    EXPECT_EQ(Read("QUORVANE.ini"), "");
}

TEST_F(ClosingProgram, EndOfTheSessionAsksAndWaitsForTheUserOnly) {
    StartProgram();
    Show.ChangeFlags.Set(Change::ConfigNew);
    Answer(QMessageBox::Cancel);
    EXPECT_FALSE(main->MayEndSession(true));
    Answer(QMessageBox::No);
    EXPECT_TRUE(main->MayEndSession(true));
    EXPECT_EQ(Boxes.size(), 2u);
    EXPECT_TRUE(main->MayEndSession(false)) << "nobody is there to be asked";
    EXPECT_EQ(Boxes.size(), 2u);
    EXPECT_TRUE(main->isVisible());
}

} // namespace quorvane
