// The main window's menu: names and captions, letter by letter.
#include "devices/interface.h"
#include "devices/playunit.h"
#include "files/showfiles.h"
#include "model/selection.h"
#include "ui/MDIHaupt.h"
#include "ui/frmColor.h"
#include "ui/frmControl.h"
#include "ui/frmDMX.h"
#include "ui/frmElement.h"
#include "ui/frmFiles.h"
#include "ui/frmInfo.h"
#include "ui/frmOptions.h"
#include "ui/frmWand.h"

#include <QMenuBar>

#include <utility>

namespace quorvane {

QMenu* MDIHaupt::Submenu(QMenu* parent, const char* name, const char* caption) {
    QMenu* menu = parent ? parent->addMenu(caption) : menuBar()->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

QAction* MDIHaupt::Entry(QMenu* menu, const char* name, const char* caption, std::function<void()> chosen) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, std::move(chosen));
    return action;
}

void MDIHaupt::BuildMenus() {
    BuildFileMenu();
    BuildEditMenu();
    BuildDmxMenu();
    BuildWindowMenu();
    BuildHelpMenu();
}

void MDIHaupt::BuildFileMenu() {
    QMenu* mnuDatei = Submenu(nullptr, "mnuDatei", "&Datei");
    Entry(mnuDatei, "mnuNeueWand", "Neue &Wand", [this] { mnuNeueWand_Click(); });
    // A place kept for a command that was never settled, on purpose.
    Entry(mnuDatei, "mnuNeuesElement", "Neues &Element", [] {})->setVisible(false);
    Entry(mnuDatei, "mnuKillWand", "Wand löschen", [this] { mnuKillWand_Click(); });

    QMenu* mnuLaden = Submenu(mnuDatei, "mnuLaden", "Laden");
    Entry(mnuLaden, "mnuConfigLaden", "Konfiguration", LoadConfiguration);
    Entry(mnuLaden, "mnuSceneLaden", "Szene", LoadScene);
    Entry(mnuLaden, "mnuSequenceLaden", "Sequenz", LoadSequence);
    Entry(mnuLaden, "mnuFarbTblLaden", "Farbtabelle", LoadColourTable);
    Entry(mnuLaden, "mnuMemCardLaden", "Memory Card", [this] { ShowMemoryCard(frmFiles::ReadBack); });

    QMenu* mnuSpeichern = Submenu(mnuDatei, "mnuSpeichern", "Speichern");
    Entry(mnuSpeichern, "mnuConfigSpeichern", "&Konfiguration", SaveConfiguration);
    Entry(mnuSpeichern, "mnuSceneSpeichern", "&Szene ", SaveScene); // trailing blank on purpose
    Entry(mnuSpeichern, "mnuSequenceSpeichern", "Se&quenz", SaveSequence);
    Entry(mnuSpeichern, "mnuFarbtblSpeichern", "&Farbtabelle", SaveColourTable);
    Entry(mnuSpeichern, "mnuMemCardSpeichern", "&Memory Card",
          [this] { ShowMemoryCard(frmFiles::WriteCard); });

    QMenu* mnuSendSequence = Submenu(mnuDatei, "mnuSendSequence", "Sequenz senden");
    Entry(mnuSendSequence, "mnuSequenceToMerger", "zum Merger über DMX", mnuSequenceToMerger_Click);

    mnuDatei->addSeparator();
    Entry(mnuDatei, "mnuBeenden", "Be&enden", [this] { close(); });
}

void MDIHaupt::BuildEditMenu() {
    mnuBearbeiten = Submenu(nullptr, "mnuBearbeiten", "&Bearbeiten");
    Entry(mnuBearbeiten, "mnuFarbe", "&Farbe", [this] { Color->Open(); });
    Entry(mnuBearbeiten, "mnuWand", "&Wand", [this] { Wand->Open(); });
    Entry(mnuBearbeiten, "mnuElement", "&Element patchen", [this] { Element->Open(); });
    mnuBearbeiten->addSeparator();
    BuildSelectionMenu("mnuMusterHinzu", "&Muster hinzufügen", ShiftHeld);
    BuildSelectionMenu("mnuMusterAusw", "Muster &auswählen", 0);
    Entry(mnuBearbeiten, "mnuSelectAll", "Alles markieren", SelectAll);
    Entry(mnuBearbeiten, "mnuInvertSelection", "Markierung &umkehren", InvertSelection);
    mnuBearbeiten->addSeparator();
    Entry(mnuBearbeiten, "mnuOptions", "&Optionen", [this] { Options->Open(); });
}

// The eleven keys as entries, for whoever works with the mouse; the entry of F2 has the index 0.
void MDIHaupt::BuildSelectionMenu(const char* name, const char* caption, int shift) {
    QMenu* menu = Submenu(mnuBearbeiten, name, caption);
    for (int key = KeyF2; key <= KeyF12; ++key) {
        const QString number = QString::number(key - KeyF2);
        Entry(menu, qPrintable(QString("%1(%2)").arg(name, number)),
              qPrintable(QString("F%1").arg(key - KeyF2 + 2)),
              [key, shift] { RememberOrRecallSelection(key, shift); });
    }
}

void MDIHaupt::BuildWindowMenu() {
    QMenu* mnuFenster = Submenu(nullptr, "mnuFenster", "Fenster");
    Entry(mnuFenster, "mnuPatchfenster", "Patchfenster", [this] { Element->Open(); });
    Entry(mnuFenster, "mnuTransporter", "Sequenzer", [this] { Control->Open(); });
    Entry(mnuFenster, "mnuColorfenster", "Color Fenster", [this] { Color->Open(); });
    Entry(mnuFenster, "mnuTestfenster", "DMX Testfenster", [this] { Dmx->Open(); });
}

void MDIHaupt::BuildDmxMenu() {
    QMenu* mnuDMX = Submenu(nullptr, "mnuDMX", "&DMX");
    Entry(mnuDMX, "mnuDMXInit", "Karte &initialisieren", [this] { mnuDMXInit_Click(); });
    mnuDMXStart = Entry(mnuDMX, "mnuDMXStart", "DMX Start", mnuDMXStart_Click);
    mnuDMXStop = Entry(mnuDMX, "mnuDMXStop", "DMX Stop", [this] {
        mnuDMXStop->toggle(); // the check mark is set by the command, not by the choice of the entry
        mnuDMXStop_Click();
    });
    mnuDMXStop->setCheckable(true);
    Entry(mnuDMX, "mnuDMXTest", "DMX Test", [this] { Dmx->Open(); });
}

void MDIHaupt::BuildHelpMenu() {
    QMenu* mnuHelp = Submenu(nullptr, "mnuHelp", "&Hilfe");
    Entry(mnuHelp, "mnuInfo", "&Info", [this] { frmInfo(this).exec(); });
    Entry(mnuHelp, "mnuHilfe", "&Hilfe", [this] { mnuHilfe_Click(); });
}

} // namespace quorvane
