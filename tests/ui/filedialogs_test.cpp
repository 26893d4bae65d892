#include "ui/windowbench.h"

#include "engine/sequencer.h"
#include "model/wall.h"
#include "ui/frmWand.h"
#include "ui/questions.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QUrl>

#include <algorithm>

namespace quorvane {

class FileDialogTest : public WindowBench {
protected:
    FileDialogTest() { Write("config/vorhanden.CFG", "nicht leer\r\n"); }

    void StartWithWall() {
        StartProgram();
        Show.WallColumns = 3;
        Show.WallRows = 2;
        Show.WallAreaWidth = Show.WallAreaHeight = 600;
        NeueWandInit();
    }
    // Looks at the file dialog that the entry opens, then cancels it.
    struct SeenDialog {
        std::string Title, Folder, Name, Filters, Suffix;
        QFileDialog::AcceptMode Mode = QFileDialog::AcceptOpen;
    };
    SeenDialog LookAt(const char* entry, bool message) {
        SeenDialog seen;
        WhenAsked([&seen](QDialog* asked) {
            auto* files = qobject_cast<QFileDialog*>(asked);
            ASSERT_NE(files, nullptr);
            seen = {files->windowTitle().toStdString(),
                    files->directory().path().toStdString(),
                    files->findChild<QLineEdit*>("fileNameEdit")->text().toStdString(),
                    files->nameFilters().join('|').toStdString(),
                    files->defaultSuffix().toStdString(),
                    files->acceptMode()};
            QTest::keyClick(files, Qt::Key_Escape);
        });
        if (message) Answer(QMessageBox::Ok);
        Choose(entry);
        return seen;
    }
    std::string InFolder(const char* name) { return Folder.filePath(name).toStdString(); }
    std::string StatusLine() { return main->lblStatus->text().toStdString(); }
};

TEST_F(FileDialogTest, EachKindOpensWithItsTitleFolderFilterExtensionAndName) {
    StartWithWall();
    Show.StepCount = Show.CurrentStep = 1;
    Show.StatusFlags.Set(Status::SequenceExists);
    struct Case {
        const char *Entry, *Title, *Folder, *Name, *Filter, *Suffix;
        bool Load;
    };
    for (const Case& kind : std::initializer_list<Case>{
             {"mnuConfigLaden", "Configuration Laden", "config", "QUORVANE.CFG", "*.CFG *.cfg", "CFG", true},
             {"mnuFarbTblLaden", "Farbtabelle Laden", "Farbtbl", "*.QCT", "*.QCT *.qct", "QCT", true},
             {"mnuSceneLaden", "Scene Laden", "scenen", "*.QSC", "*.QSC *.qsc", "QSC", true},
             {"mnuSequenceLaden", "Sequence Laden", "sequencen", "", "*.QSQ *.qsq", "QSQ", true},
             {"mnuConfigSpeichern", "Configuration Speichern", "config", "QUORVANE.CFG", "*.CFG *.cfg", "CFG",
              false},
             {"mnuFarbtblSpeichern", "Farbtabelle Speichern", "Farbtbl", "", "*.QCT *.qct", "QCT", false},
             {"mnuSceneSpeichern", "Scene Speichern", "scenen", "*.qsc", "*.QSC *.qsc", "QSC", false},
             {"mnuSequenceSpeichern", "Sequence Speichern", "sequencen", "", "*.QSQ *.qsq", "QSQ", false}}) {
        const SeenDialog seen = LookAt(kind.Entry, kind.Load);
        EXPECT_EQ(seen.Title, kind.Title);
        EXPECT_EQ(seen.Folder, InFolder(kind.Folder)) << kind.Entry;
        EXPECT_EQ(seen.Name, kind.Name) << kind.Entry;
        EXPECT_EQ(seen.Filters, kind.Filter);
        EXPECT_EQ(seen.Suffix, kind.Suffix);
        EXPECT_EQ(seen.Mode, kind.Load ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave) << kind.Entry;
        EXPECT_TRUE(QDir(Folder.filePath(kind.Folder)).exists()) << kind.Folder;
    }
}

TEST_F(FileDialogTest, MakingAndShowingEachWaitForATickToPass) {
    int waits = 0;
    const auto afterTick = [&waits] {
        const auto windows = QApplication::topLevelWidgets();
        EXPECT_FALSE(std::ranges::any_of(windows, [](const QWidget* window) {
            return window->inherits("QFileDialog") && window->isVisible();
        }));
        ++waits;
    };
    AskByDialogs(afterTick);
    StartProgram();
    LookAt("mnuFarbTblLaden", true);
    EXPECT_EQ(waits, 2);
    LookAt("mnuFarbTblLaden", true);
    EXPECT_EQ(waits, 3) << "the dialog was made once more";
}

TEST_F(FileDialogTest, QuestionBeforeIsForgotten) {
    StartWithWall();
    WhenAsked([](QDialog* asked) {
        asked->resize(900, 600);
        auto* name = asked->findChild<QLineEdit*>("fileNameEdit");
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, "abend");
        QTest::keyClick(name, Qt::Key_Enter);
    });
    Choose("mnuConfigSpeichern");
    WhenAsked([](QDialog* asked) {
        auto* files = qobject_cast<QFileDialog*>(asked);
        EXPECT_EQ(files->findChild<QLineEdit*>("fileNameEdit")->text().toStdString(), "");
        EXPECT_EQ(files->size(), QSize(760, 480));
        for (const QString& folder : files->history())
            EXPECT_EQ(QUrl(folder).fileName().toStdString(), "Farbtbl");
        QTest::keyClick(files, Qt::Key_Escape);
    });
    Choose("mnuFarbtblSpeichern");
}

TEST_F(FileDialogTest, CancelledLoadSaysSoAndKeepsTheCurrentFile) {
    StartWithWall();
    Show.ConfigFile = InFolder("config/vorhanden.CFG");
    LookAt("mnuConfigLaden", true);
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, "Fehler beim auswählen der Datei.");
    EXPECT_EQ(Show.ConfigFile, InFolder("config/vorhanden.CFG"));
}

TEST_F(FileDialogTest, CancelledSaveSaysSoOnBothStatusLines) {
    StartWithWall();
    LookAt("mnuConfigSpeichern", false);
    EXPECT_EQ(StatusLine(), "Speichern wurde abgebrochen.");
    EXPECT_EQ(main->Wand->lblStatus->text().toStdString(), "Speichern wurde abgebrochen.");
}

TEST_F(FileDialogTest, NameTypedWithoutExtensionGetsIt) {
    StartWithWall();
    ChooseFile("abend");
    Choose("mnuConfigSpeichern");
    EXPECT_EQ(Read("config/abend.CFG").substr(0, 29), "Configuration von QUORVANE 99");
    EXPECT_EQ(StatusLine(), "Konfiguration erfolgreich abgespeichert.");
    EXPECT_EQ(Show.ConfigFile, InFolder("config/abend.CFG"));
}

TEST_F(FileDialogTest, OverwritingIsAskedForAndNoKeepsTheOldFile) {
    StartWithWall();
    WhenAsked([](QDialog* asked) {
        auto* name = asked->findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(name, nullptr);
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, "vorhanden.CFG");
        QTest::keyClick(name, Qt::Key_Enter); // opens the question
        QTest::keyClick(asked, Qt::Key_Escape);
    });
    Answer(QMessageBox::No);
    Choose("mnuConfigSpeichern");
    EXPECT_EQ(Read("config/vorhanden.CFG"), "nicht leer\r\n");
    EXPECT_EQ(StatusLine(), "Speichern wurde abgebrochen.");
}

TEST_F(FileDialogTest, OverwritingAfterYesReplacesTheFile) {
    StartWithWall();
    ChooseFile("vorhanden.CFG");
    Answer(QMessageBox::Yes);
    Choose("mnuConfigSpeichern");
    EXPECT_EQ(Read("config/vorhanden.CFG").substr(0, 29), "Configuration von QUORVANE 99");
    EXPECT_FALSE(QFile::exists(Folder.filePath("config/vorhanden.CFG.bak")));
}

TEST_F(FileDialogTest, ProposedPatternIsNoFile) {
    StartWithWall();
    WhenAsked([](QDialog* asked) {
        auto* files = qobject_cast<QFileDialog*>(asked);
        auto* name = files->findChild<QLineEdit*>("fileNameEdit");
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, "*.QSC");
        QTest::keyClick(name, Qt::Key_Enter);
        EXPECT_TRUE(files->isVisible()) << "a pattern was taken for a name";
        QTest::keyClick(files, Qt::Key_Escape);
    });
    Choose("mnuSceneSpeichern");
    EXPECT_TRUE(QDir(Folder.filePath("scenen")).isEmpty());
}

TEST_F(FileDialogTest, LoadOpensInTheFolderOfTheCurrentFileAndSaveInTheKindsOwn) {
    StartWithWall();
    QDir(Folder.path()).mkpath("anderswo");
    Show.ConfigFile = InFolder("anderswo/abend.CFG");
    EXPECT_EQ(LookAt("mnuConfigLaden", true).Folder, InFolder("anderswo"));
    const SeenDialog save = LookAt("mnuConfigSpeichern", false);
    EXPECT_EQ(save.Folder, InFolder("config"));
    EXPECT_EQ(save.Name, "abend.CFG");
}

TEST_F(FileDialogTest, SavedWallSceneAndSequenceComeBackThroughTheDialogs) {
    StartWithWall();
    Show.Patch[6][4] = 500;
    ChooseFile("wand");
    Choose("mnuConfigSpeichern");
    Show.ElementValue[2][3] = 77;
    ChooseFile("bild");
    Choose("mnuSceneSpeichern");
    SceneToSequence();
    Show.ElementValue[2][3] = 11;
    SceneToSequence();
    ChooseFile("ablauf");
    Choose("mnuSequenceSpeichern");

    Show.Patch[6][4] = 1;
    Show.ElementValue[2][3] = 0;
    Show.SequenceSteps[1][2][3] = 0;
    ChooseFile("wand.CFG");
    Choose("mnuConfigLaden");
    ChooseFile("bild.QSC");
    Choose("mnuSceneLaden");
    EXPECT_EQ(Show.Patch[6][4], 500);
    EXPECT_EQ(Show.ElementValue[2][3], 77);
    ChooseFile("ablauf.QSQ");
    Choose("mnuSequenceLaden");
    EXPECT_EQ(Show.StepCount, 2);
    EXPECT_EQ(Show.SequenceSteps[1][2][3], 77);
    EXPECT_EQ(Show.SequenceSteps[2][2][3], 11);
    EXPECT_EQ(StatusLine(), "Sequenz erfolgreich geladen!");
}

TEST_F(FileDialogTest, GuardsYesOpensTheSaveDialogAndItsCancelKeepsTheProgramOpen) {
    StartWithWall();
    Answer(QMessageBox::Yes); // a new wall: save it?
    ChooseFile("");           // the dialog is cancelled
    EXPECT_FALSE(CloseProgram());
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(Boxes[0].Title, "Security");
    EXPECT_EQ(Boxes[0].Text, "Sie haben eine neue Wand erstellt. Wollen Sie sie jetzt abspeichern?");
}

} // namespace quorvane
