// The main menu as a whole, and its way by the keys.
#include "ui/windowbench.h"

#include "ui/frmColor.h"
#include "ui/frmElement.h"
#include "ui/frmOptions.h"
#include "ui/frmWand.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>

namespace quorvane {

class MainMenu : public WindowBench {
protected:
    using Lines = std::vector<std::string>;

    // All entries of a menu, in order, each with all that is seen of it; submenus follow their entry.
    Lines Listed(const QMenu* menu) {
        Lines lines;
        for (const QAction* entry : menu->actions()) {
            const QString name = entry->menu() ? entry->menu()->objectName() : entry->objectName();
            QString line = menu->objectName() + " / " + name + " \"" + entry->text() + "\"";
            if (entry->isSeparator()) line = menu->objectName() + " / line";
            if (!entry->isVisible()) line += " hidden";
            if (entry->isCheckable()) line += " checkable";
            if (!entry->shortcut().isEmpty()) line += " " + entry->shortcut().toString();
            lines.push_back(line.toStdString());
            if (!entry->menu()) continue;
            const Lines below = Listed(entry->menu());
            lines.insert(lines.end(), below.begin(), below.end());
        }
        return lines;
    }
    Lines ListedBar() {
        Lines lines;
        for (const QAction* entry : main->menuBar()->actions())
            lines.push_back((entry->menu()->objectName() + " \"" + entry->text() + "\"").toStdString());
        return lines;
    }
    Lines Listed(const char* menu) { return Listed(main->findChild<QMenu*>(menu)); }

    void Alt(Qt::Key letter) { QTest::keyClick(main->windowHandle(), letter, Qt::AltModifier); }
    static QString OpenMenu() {
        const QWidget* open = QApplication::activePopupWidget();
        return open ? open->objectName() : QString();
    }
    static void Press(Qt::Key key) {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), key);
    }
    // Chooses an entry by the access keys of its menu and of its own.
    void Choose(Qt::Key menu, const char* opened, Qt::Key entry) {
        Alt(menu);
        ASSERT_EQ(OpenMenu(), opened);
        Press(entry);
        QTest::qWait(0);
        EXPECT_EQ(OpenMenu(), "");
    }
};

TEST_F(MainMenu, BarHasItsMenusInOrder) {
    StartProgram();
    EXPECT_EQ(ListedBar(), (Lines{"mnuDatei \"&Datei\"", "mnuBearbeiten \"&Bearbeiten\"", "mnuDMX \"&DMX\"",
                                  "mnuFenster \"Fenster\"", "mnuHelp \"&Hilfe\""}));
}

TEST_F(MainMenu, FileMenuHasTheseEntriesAndNoOthers) {
    StartProgram();
    EXPECT_EQ(Listed("mnuDatei"), (Lines{
                                      R"(mnuDatei / mnuNeueWand "Neue &Wand")",
                                      R"(mnuDatei / mnuNeuesElement "Neues &Element" hidden)",
                                      R"(mnuDatei / mnuKillWand "Wand löschen")",
                                      R"(mnuDatei / mnuLaden "Laden")",
                                      R"(mnuLaden / mnuConfigLaden "Konfiguration")",
                                      R"(mnuLaden / mnuSceneLaden "Szene")",
                                      R"(mnuLaden / mnuSequenceLaden "Sequenz")",
                                      R"(mnuLaden / mnuFarbTblLaden "Farbtabelle")",
                                      R"(mnuLaden / mnuMemCardLaden "Memory Card")",
                                      R"(mnuDatei / mnuSpeichern "Speichern")",
                                      R"(mnuSpeichern / mnuConfigSpeichern "&Konfiguration")",
                                      R"(mnuSpeichern / mnuSceneSpeichern "&Szene ")",
                                      R"(mnuSpeichern / mnuSequenceSpeichern "Se&quenz")",
                                      R"(mnuSpeichern / mnuFarbtblSpeichern "&Farbtabelle")",
                                      R"(mnuSpeichern / mnuMemCardSpeichern "&Memory Card")",
                                      R"(mnuDatei / mnuSendSequence "Sequenz senden")",
                                      R"(mnuSendSequence / mnuSequenceToMerger "zum Merger über DMX")",
                                      "mnuDatei / line",
                                      R"(mnuDatei / mnuBeenden "Be&enden")",
                                  }));
}

// It is the pop-up menu too.
TEST_F(MainMenu, EditMenuHasTheseEntriesAndNoOthers) {
    StartProgram();
    Lines expected{R"(mnuBearbeiten / mnuFarbe "&Farbe")", R"(mnuBearbeiten / mnuWand "&Wand")",
                   R"(mnuBearbeiten / mnuElement "&Element patchen")", "mnuBearbeiten / line",
                   R"(mnuBearbeiten / mnuMusterHinzu "&Muster hinzufügen")"};
    const auto addKeys = [&expected](const std::string& menu) {
        for (int key = 2; key <= 12; ++key)
            expected.push_back(menu + " / " + menu + "(" + std::to_string(key - 2) + ") \"F" +
                               std::to_string(key) + "\"");
    };
    addKeys("mnuMusterHinzu");
    expected.emplace_back(R"(mnuBearbeiten / mnuMusterAusw "Muster &auswählen")");
    addKeys("mnuMusterAusw");
    expected.insert(expected.end(), {R"(mnuBearbeiten / mnuSelectAll "Alles markieren")",
                                     R"(mnuBearbeiten / mnuInvertSelection "Markierung &umkehren")",
                                     "mnuBearbeiten / line", R"(mnuBearbeiten / mnuOptions "&Optionen")"});
    EXPECT_EQ(Listed("mnuBearbeiten"), expected);
}

TEST_F(MainMenu, OtherMenusHaveTheseEntriesAndNoOthers) {
    StartProgram();
    EXPECT_EQ(Listed("mnuDMX"), (Lines{
                                    R"(mnuDMX / mnuDMXInit "Karte &initialisieren")",
                                    R"(mnuDMX / mnuDMXStart "DMX Start")",
                                    R"(mnuDMX / mnuDMXStop "DMX Stop" checkable)",
                                    R"(mnuDMX / mnuDMXTest "DMX Test")",
                                }));
    EXPECT_EQ(Listed("mnuFenster"), (Lines{
                                        R"(mnuFenster / mnuPatchfenster "Patchfenster")",
                                        R"(mnuFenster / mnuTransporter "Sequenzer")",
                                        R"(mnuFenster / mnuColorfenster "Color Fenster")",
                                        R"(mnuFenster / mnuTestfenster "DMX Testfenster")",
                                    }));
    EXPECT_EQ(Listed("mnuHelp"), (Lines{
                                     R"(mnuHelp / mnuInfo "&Info")",
                                     R"(mnuHelp / mnuHilfe "&Hilfe")",
                                 }));
}

TEST_F(MainMenu, WindowsAreOpenedByAccessKeys) {
    StartProgram();
    Choose(Qt::Key_B, "mnuBearbeiten", Qt::Key_F);
    EXPECT_TRUE(main->Color->isVisible());
    Choose(Qt::Key_B, "mnuBearbeiten", Qt::Key_W);
    EXPECT_TRUE(main->Wand->isVisible());
    Choose(Qt::Key_B, "mnuBearbeiten", Qt::Key_E);
    EXPECT_TRUE(main->Element->isVisible());
    Choose(Qt::Key_B, "mnuBearbeiten", Qt::Key_O);
    EXPECT_TRUE(main->Options->isVisible());
}

TEST_F(MainMenu, DialogsAreOpenedByAccessKeys) {
    StartProgram();
    std::vector<QString> opened;
    const auto note = [&opened](QDialog* asked) {
        opened.push_back(asked->objectName());
        asked->close();
    };
    WhenAsked(note);
    Choose(Qt::Key_H, "mnuHelp", Qt::Key_I);
    WhenAsked(note);
    Choose(Qt::Key_D, "mnuDatei", Qt::Key_W);
    EXPECT_EQ(opened, (std::vector<QString>{"frmInfo", "frmNeueWand"}));
}

TEST_F(MainMenu, LetterOfTwoMenusOpensOneAfterTheOther) {
    StartProgram();
    Alt(Qt::Key_D);
    EXPECT_EQ(OpenMenu(), "mnuDatei");
    Press(Qt::Key_Escape);
    WhenAsked([](QDialog* asked) {
        EXPECT_EQ(asked->objectName(), "frmIFS");
        asked->close();
    });
    Choose(Qt::Key_D, "mnuDMX", Qt::Key_I);
}

TEST_F(MainMenu, MenuWithoutAnAccessKeyIsReachedByArrows) {
    StartProgram();
    Alt(Qt::Key_H);
    ASSERT_EQ(OpenMenu(), "mnuHelp");
    Press(Qt::Key_Left);
    ASSERT_EQ(OpenMenu(), "mnuFenster");
    Press(Qt::Key_Down); // from the first entry
    Press(Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_TRUE(Window("frmControl")->isVisible());
}

TEST_F(MainMenu, ProgramIsEndedByAccessKeys) {
    StartProgram();
    Choose(Qt::Key_D, "mnuDatei", Qt::Key_E);
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(Read("QUORVANE.ini").substr(0, 25), "ini-Datei von QUORVANE 98");
}

TEST_F(MainMenu, ProgramIsEndedByTheMouse) {
    StartProgram();
    WindowBench::Choose("mnuBeenden");
    EXPECT_FALSE(main->isVisible());
}

} // namespace quorvane
