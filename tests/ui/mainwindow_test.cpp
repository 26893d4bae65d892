#include "ui/windowbench.h"

#include "model/screen.h"
#include "model/wall.h"
#include "ui/frmColor.h"
#include "ui/frmWand.h"
#include "ui/geometry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

namespace quorvane {

using MainWindowTest = WindowBench;

TEST_F(MainWindowTest, DmxEntriesAreOnForTypeOneOnlyAtTheStart) {
    Settings["Interface/Type"] = "3";
    StartProgram();
    EXPECT_FALSE(Entry("mnuDMXStart")->isEnabled());
    EXPECT_FALSE(Entry("mnuDMXStop")->isEnabled());
}

TEST_F(MainWindowTest, DmxEntriesAreOnWithTypeOneAlthoughNoCardAnswers) {
    Settings["Interface/Type"] = "1";
    StartProgram();
    EXPECT_TRUE(Entry("mnuDMXStart")->isEnabled());
    EXPECT_TRUE(Entry("mnuDMXStop")->isEnabled());
    EXPECT_EQ(Caption(), ": KMO DMX QUORVANE:  Interface Initialization failed");
}

TEST_F(MainWindowTest, StopEntryIsNotTickedWithoutACard) {
    Settings["Interface/Type"] = "1";
    StartProgram();
    Choose("mnuDMXStop");
    EXPECT_FALSE(Entry("mnuDMXStop")->isChecked());
}

TEST_F(MainWindowTest, WallIsRemovedUnlessTheAnswerIsNo) {
    StartProgram();
    Show.WallColumns = Show.WallRows = 2;
    NeueWandInit();
    Answer(QMessageBox::No);
    Choose("mnuKillWand");
    EXPECT_EQ(Show.ElementCount, 4);
    Answer(QMessageBox::Yes);
    Choose("mnuKillWand");
    EXPECT_EQ(Show.ElementCount, 0);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::WallExists));
    ASSERT_EQ(Boxes.size(), 2u);
    EXPECT_EQ(Boxes[0].Text, "Soll ich die Wand wirklich löschen?");
    EXPECT_EQ(Boxes[0].Title, "QUORVANE");
}

TEST_F(MainWindowTest, QuestionAboutTheWallIsLeftWithNoByEscapeAndByItsCloseBox) {
    StartProgram();
    Show.WallColumns = Show.WallRows = 2;
    NeueWandInit();
    WhenAsked([](QDialog* asked) {
        QStringList buttons;
        for (const QAbstractButton* button : qobject_cast<QMessageBox*>(asked)->buttons())
            buttons.append(button->text().remove('&'));
        buttons.sort();
        EXPECT_EQ(buttons, (QStringList{"Ja", "Nein"}));
        QTest::keyClick(asked, Qt::Key_Escape);
    });
    Choose("mnuKillWand");
    WhenAsked([](QDialog* asked) { asked->close(); });
    Choose("mnuKillWand");
    EXPECT_EQ(Boxes.size(), 2u);
    EXPECT_EQ(Show.ElementCount, 4);
}

TEST_F(MainWindowTest, SequenceIsNotSentToThePlayUnitWithoutACard) {
    StartProgram();
    Answer(QMessageBox::Ok);
    Choose("mnuSequenceToMerger");
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, "Ohne Karte kann nicht gesendet werden.\n"
                             "Bitte installieren Sie eine DMX-Interfacekarte 7300B");
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

TEST_F(MainWindowTest, RemovingTheWallAsksNothingWithoutOne) {
    StartProgram();
    Choose("mnuKillWand");
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(MainWindowTest, StoredPlaceIsKeptWhereItIsSeenAndCutToTheScreenWhereItIsLarger) {
    struct Case {
        QRect Stored;
        bool Kept;
    };
    StartProgram();
    const QRect screen = main->screen()->availableGeometry();
    for (const Case& c :
         {Case{{40, 50, 640, 480}, true}, Case{{-100, 50, 640, 480}, true}, // partly outside, as it was left
          Case{{5000, 50, 640, 480}, false}, Case{{40, -900, 640, 480}, false},
          Case{{0, 0, 5000, 480}, false}, Case{{0, 0, 640, 5000}, false}}) {
        StorePlace(MainWindow, c.Stored);
        Screen.PlaceMain();
        if (c.Kept)
            EXPECT_EQ(main->geometry(), c.Stored);
        else
            EXPECT_TRUE(screen.contains(main->geometry())) << c.Stored.x() << " " << c.Stored.width();
    }
}

TEST_F(MainWindowTest, StoredStateComesBack) {
    struct Case {
        int Stored;
        Qt::WindowStates Shown;
    };
    for (const Case& c : {Case{0, Qt::WindowNoState}, Case{1, Qt::WindowMinimized},
                          Case{2, Qt::WindowMaximized}, Case{7, Qt::WindowNoState}}) {
        StartProgram();
        Show.WindowPos[MainWindow][PosState] = c.Stored;
        EXPECT_TRUE(CloseProgram());
        Show = ShowState{};
        main = std::make_unique<MDIHaupt>();
        ASSERT_TRUE(main->MDIForm_Load());
        EXPECT_TRUE(main->isVisible());
        EXPECT_EQ(main->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized), c.Shown) << c.Stored;
        Write("QUORVANE.ini", "");
    }
}

// The press goes the way of a real one, through the window system.
TEST_F(MainWindowTest, RightPressOnTheFreeAreaOpensTheEditMenuAtThePointer) {
    StartProgram();
    auto* menu = main->findChild<QMenu*>("mnuBearbeiten");
    const QPoint place = main->rect().center();
    for (const Qt::MouseButton other : {Qt::LeftButton, Qt::MiddleButton, Qt::BackButton}) {
        QTest::mouseClick(main->windowHandle(), other, {}, place);
        EXPECT_FALSE(menu->isVisible());
    }
    QTest::mousePress(main->windowHandle(), Qt::RightButton, {}, place);
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(menu->pos(), main->mapToGlobal(place));
    menu->close();
    QTest::mouseRelease(main->windowHandle(), Qt::RightButton, {}, place);
}

TEST_F(MainWindowTest, RightPressBesideTheFreeAreaOpensNothing) {
    StartProgram();
    auto* menu = main->findChild<QMenu*>("mnuBearbeiten");
    for (const QWidget* beside :
         {static_cast<QWidget*>(main->menuBar()), static_cast<QWidget*>(main->lblStatus)}) {
        const QPoint place = beside->mapTo(main.get(), beside->rect().center());
        QTest::mouseClick(main->windowHandle(), Qt::RightButton, {}, place);
        EXPECT_FALSE(menu->isVisible());
    }
}

TEST_F(MainWindowTest, RightPressOnAWindowsFrameOrGroundOpensNothingOfTheMainWindow) {
    StartProgram();
    main->Color->Open();
    QTest::qWait(0);
    auto* menu = main->findChild<QMenu*>("mnuBearbeiten");
    const QWidget* frame = main->Color->parentWidget();
    for (const QPoint& place : {QPoint(1, frame->height() / 2), QPoint(frame->width() / 2, 6),
                                main->Color->mapTo(frame, QPoint(2, 2))}) {
        // The title bar has a menu of its own, which runs until it is left.
        QTimer::singleShot(0, frame, [menu] {
            EXPECT_FALSE(menu->isVisible());
            if (QWidget* own = QApplication::activePopupWidget()) own->close();
        });
        QTest::mouseClick(main->windowHandle(), Qt::RightButton, {}, frame->mapTo(main.get(), place));
        QTest::qWait(0);
        EXPECT_FALSE(menu->isVisible()) << place.x() << " " << place.y();
    }
}

TEST_F(MainWindowTest, CaptionShowsAMarkOfTheToolkitAsItIs) {
    StartProgram();
    Screen.MainCaption("a [*] b");
    EXPECT_EQ(Caption(), "a [*][*] b"); // shown as "a [*] b"
}

} // namespace quorvane
