#include "ui/windowbench.h"

#include "devices/playunit.h"
#include "ui/frmControl.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quorvane {

// A transfer to the play unit, as the windows know it.
class TransferWindows : public WindowBench {
protected:
    void StartTransfer() {
        StartProgram();
        main->Control->Open();
        Show.InterfaceType = IsaCardB;
        Show.CardBase = 0x120;
        for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(word + 40);
        Choose("mnuSequenceToMerger");
        ASSERT_TRUE(Show.timSendToMerger.Enabled);
        timSendToMerger_Timer();
    }

    void ExpectCommands(bool on) {
        for (const char* name : {"mnuNeueWand", "mnuKillWand", "mnuConfigLaden", "mnuConfigSpeichern",
                                 "mnuSequenceLaden", "mnuDMXInit", "mnuSequenceToMerger"})
            EXPECT_EQ(Entry(name)->isEnabled(), on) << name;
        for (const char* name : {"cmdSequence(1)", "cmdSequence(5)"})
            EXPECT_EQ(Find<QPushButton>("frmControl", name)->isEnabled(), on) << name;
        for (const char* name : {"txtSequence(1)", "txtSequence(2)"})
            EXPECT_EQ(Find<QLineEdit>("frmControl", name)->isEnabled(), on) << name;
    }
};

TEST_F(TransferWindows, WhatWouldChangeTheImagesIsOffUntilTheLastOne) {
    StartTransfer();
    ExpectCommands(false);
    for (int image = 2; image <= 255; ++image) timSendToMerger_Timer();
    ExpectCommands(true);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

TEST_F(TransferWindows, ClosingTheProgramRestoresTheParametersBeforeTheyAreSaved) {
    StartTransfer();
    EXPECT_TRUE(CloseProgram());
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_NE(
        Read("QUORVANE.ini").find("[DMXINI]\r\n 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 0, 0, 0, 0, 0"),
        std::string::npos)
        << Read("QUORVANE.ini");
}

TEST_F(TransferWindows, ProgramThatStaysGoesOnSendingAndTellsThatTheTransferIsOver) {
    StartTransfer();
    Show.ChangeFlags.bits = 0x01;
    Answer(QMessageBox::Cancel);
    EXPECT_FALSE(CloseProgram());
    ExpectCommands(true);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Find<QLabel>("frmControl", "lblStatus")->text(), "Das Senden wurde abgebrochen.");
}

} // namespace quorvane
