#include "ui/elementbench.h"

#include "devices/playunit.h"
#include "model/screen.h"
#include "ui/frmControl.h"
#include "ui/frmOptions.h"

#include <QApplication>

namespace quorvane {

// A transfer to the play unit, as the windows know it.
class TransferWindows : public ElementBench {
protected:
    // Of a started program with a wall.
    void StartTransfer() {
        main->Control->Open();
        Show.InterfaceType = IsaCardB;
        Show.CardBase = 0x120;
        Screen.EnableDmxEntries(true);
        for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(word + 40);
        Choose("mnuSequenceToMerger");
        ASSERT_TRUE(Show.timSendToMerger.Enabled);
        timSendToMerger_Timer();
    }
    static void FinishTransfer() {
        while (Show.timSendToMerger.Enabled) timSendToMerger_Timer();
    }

    void ExpectCommands(bool on) {
        for (const char* name : {"mnuNeueWand", "mnuKillWand", "mnuConfigLaden", "mnuConfigSpeichern",
                                 "mnuSequenceLaden", "mnuElement", "mnuPatchfenster", "mnuOptions",
                                 "mnuDMXInit", "mnuDMXStart", "mnuDMXStop", "mnuSequenceToMerger"})
            EXPECT_EQ(Entry(name)->isEnabled(), on) << name;
        for (const char* name : {"cmdSequence(1)", "cmdSequence(5)"})
            EXPECT_EQ(Find<QPushButton>("frmControl", name)->isEnabled(), on) << name;
        for (const char* name : {"txtSequence(1)", "txtSequence(2)"})
            EXPECT_EQ(Find<QLineEdit>("frmControl", name)->isEnabled(), on) << name;
    }
};

TEST_F(TransferWindows, WhatWouldChangeTheImagesIsOffUntilTheLastOne) {
    StartWithWall(4, 3);
    StartTransfer();
    ExpectCommands(false);
    for (int image = 2; image <= 255; ++image) timSendToMerger_Timer();
    ExpectCommands(true);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

TEST_F(TransferWindows, DmxEntriesComeBackAsTheInterfaceHasThem) {
    StartWithWall(4, 3);
    StartTransfer();
    Screen.EnableDmxEntries(false);
    FinishTransfer();
    EXPECT_FALSE(Entry("mnuDMXStart")->isEnabled());
    EXPECT_FALSE(Entry("mnuDMXStop")->isEnabled());
}

TEST_F(TransferWindows, ElementDialogTakesNothingUntilTheLastImage) {
    StartWithElement(2);
    const Values before = PatchOf(2);
    const Values corrections = CorrectionOf(2);
    StartTransfer();
    EXPECT_FALSE(Find<QWidget>("MDIHaupt", "frmElement")->isEnabled());
    Enter(1, "48");
    Enter(5, "7");
    Click(Transfer());
    EXPECT_EQ(PatchOf(2), before);
    EXPECT_EQ(CorrectionOf(2), corrections);
    FinishTransfer();
    Enter(1, "48");
    EXPECT_EQ(PatchOf(2)[0], 48);
}

TEST_F(TransferWindows, ElementDialogAndOptionsDoNotOpenUntilTheLastImage) {
    StartWithWall(4, 3);
    StartTransfer();
    for (const char* entry : {"mnuElement", "mnuPatchfenster", "mnuOptions"}) {
        Choose(entry);
        while (QWidget* menu = QApplication::activePopupWidget()) menu->close(); // it waits for another entry
    }
    EXPECT_FALSE(main->Element->isVisible());
    EXPECT_FALSE(main->Options->isVisible());
    FinishTransfer();
    Choose("mnuElement");
    EXPECT_TRUE(main->Element->isVisible());
    Choose("mnuOptions");
    EXPECT_TRUE(main->Options->isVisible());
}

TEST_F(TransferWindows, OptionsTakeNothingUntilTheLastImage) {
    StartWithWall(4, 3);
    Show.InterfaceType = IsaCardB;
    Choose("mnuOptions");
    Field* startSync = main->Options->txtDMX[0];
    const auto typeAndLeave = [&] {
        Click(startSync);
        Key(Qt::Key_A, Qt::ControlModifier);
        Type("150");
        Click(main->Options->cmdOK);
    };
    StartTransfer();
    typeAndLeave();
    EXPECT_TRUE(main->Options->isVisible());
    EXPECT_NE(startSync->text(), "150");
    EXPECT_EQ(Show.DmxIni[0], 40);
    EXPECT_EQ(Show.DmxIni[4], 1) << "the transfer's";
    FinishTransfer();
    typeAndLeave();
    EXPECT_FALSE(main->Options->isVisible());
    EXPECT_EQ(Show.DmxIni[0], 75);
}

TEST_F(TransferWindows, ClosingTheProgramRestoresTheParametersBeforeTheyAreSaved) {
    StartWithWall(4, 3);
    StartTransfer();
    EXPECT_TRUE(CloseProgram());
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_NE(
        Read("QUORVANE.ini").find("[DMXINI]\r\n 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 0, 0, 0, 0, 0"),
        std::string::npos)
        << Read("QUORVANE.ini");
}

TEST_F(TransferWindows, ConfigurationSavedOnTheWayOutHasTheUsersParameters) {
    StartWithWall(4, 3);
    StartTransfer();
    Show.ChangeFlags.bits = 0x01;
    Answer(QMessageBox::Yes);
    ChooseFile("wand");
    EXPECT_TRUE(CloseProgram());
    EXPECT_NE(Read("config/wand.CFG")
                  .find("[DMXINI]\r\n 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 0, 0, 0, 0, 0"),
              std::string::npos)
        << Read("config/wand.CFG");
}

TEST_F(TransferWindows, CancelAtTheProgramsEndLetsTheTransferGoOnToItsLastImage) {
    StartWithWall(4, 3);
    StartTransfer();
    Show.ChangeFlags.bits = 0x01;
    Answer(QMessageBox::Cancel);
    EXPECT_FALSE(CloseProgram());
    ExpectCommands(false);
    EXPECT_EQ(Caption(), ": KMO DMX QUORVANE  ....stopped: transferring Sequence to PlayUnit");
    EXPECT_EQ(Show.TransferImage, 2);
    for (int image = 2; image <= 255; ++image) {
        ASSERT_TRUE(Show.timSendToMerger.Enabled) << image;
        timSendToMerger_Timer();
    }
    ExpectCommands(true);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Find<QLabel>("frmControl", "lblStatus")->text(), "Fertig mit Senden.");
    EXPECT_EQ(Show.DmxIni[4], 44);
}

} // namespace quorvane
