#include "ui/windowbench.h"

#include "app/quitsignal.h"
#include "model/screen.h"
#include "model/wall.h"
#include "ui/frmWand.h"
#include "ui/geometry.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

#include <csignal>

namespace quorvane {

using MainWindowTest = WindowBench;

struct EntryCase {
    const char* Menu;
    const char* Name;
    const char* Caption;
};

TEST_F(MainWindowTest, MenuCarriesNamesAndCaptionsLetterByLetter) {
    StartProgram();
    for (const EntryCase& expected :
         std::initializer_list<EntryCase>{{"mnuDatei", "mnuKillWand", "Wand löschen"},
                                          {"mnuLaden", "mnuConfigLaden", "Konfiguration"},
                                          {"mnuLaden", "mnuSceneLaden", "Szene"},
                                          {"mnuLaden", "mnuSequenceLaden", "Sequenz"},
                                          {"mnuLaden", "mnuFarbTblLaden", "Farbtabelle"},
                                          {"mnuSpeichern", "mnuConfigSpeichern", "&Konfiguration"},
                                          {"mnuSpeichern", "mnuSceneSpeichern", "&Szene "},
                                          {"mnuSpeichern", "mnuSequenceSpeichern", "Se&quenz"},
                                          {"mnuSpeichern", "mnuFarbtblSpeichern", "&Farbtabelle"},
                                          {"mnuSendSequence", "mnuSequenceToMerger", "zum Merger über DMX"},
                                          {"mnuDatei", "mnuBeenden", "Be&enden"},
                                          {"mnuBearbeiten", "mnuWand", "&Wand"},
                                          {"mnuDMX", "mnuDMXInit", "Karte &initialisieren"},
                                          {"mnuDMX", "mnuDMXStart", "DMX Start"},
                                          {"mnuDMX", "mnuDMXStop", "DMX Stop"}}) {
        QAction* entry = Entry(expected.Name);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->text().toStdString(), expected.Caption);
        EXPECT_EQ(entry->parent()->objectName().toStdString(), expected.Menu);
    }
    EXPECT_EQ(main->findChild<QMenu*>("mnuDatei")->title().toStdString(), "&Datei");
    EXPECT_EQ(main->findChild<QMenu*>("mnuLaden")->title().toStdString(), "Laden");
    EXPECT_EQ(main->findChild<QMenu*>("mnuSpeichern")->title().toStdString(), "Speichern");
    EXPECT_EQ(main->findChild<QMenu*>("mnuBearbeiten")->title().toStdString(), "&Bearbeiten");
    EXPECT_EQ(main->findChild<QMenu*>("mnuDMX")->title().toStdString(), "&DMX");
}

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

TEST_F(MainWindowTest, FirstStartShowsAnEmptyFrameInTheMiddleOfTheScreen) {
    QFile::remove(Folder.filePath("QUORVANE.ini"));
    Answer(QMessageBox::Ok);
    StartProgram();
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, "Fehler beim laden der QUORVANE.ini im Abschnitt [DMXINI]");
    EXPECT_TRUE(main->isVisible());
    EXPECT_GT(main->width(), 400);
    EXPECT_FALSE(main->Wand->isVisible());
    EXPECT_TRUE(main->screen()->availableGeometry().contains(main->geometry().center()));
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

TEST_F(MainWindowTest, CancelAtAQuestionKeepsTheProgramOpenWithTheSnapshotTaken) {
    StartProgram();
    Show.ChangeFlags.Set(Change::ConfigNew);
    Answer(QMessageBox::Cancel);
    EXPECT_FALSE(CloseProgram());
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(Show.SavedFlags, Show.StatusFlags.bits);
    EXPECT_EQ(Read("QUORVANE.ini"), "");
}

TEST_F(MainWindowTest, CloseKeepsTheStateOfTheWindowAndWritesTheSettings) {
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

TEST_F(MainWindowTest, CaptionShowsAMarkOfTheToolkitAsItIs) {
    StartProgram();
    Screen.MainCaption("a [*] b");
    EXPECT_EQ(Caption(), "a [*][*] b"); // shown as "a [*] b"
}

TEST_F(MainWindowTest, SignalToEndClosesOpenDialogsThenTheProgramAndWritesTheSettings) {
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

} // namespace quorvane
