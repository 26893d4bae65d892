// "Karte initialisieren" with cards that take their time, and what a user does meanwhile.
#include "ui/testwindowbench.h"

#include <QMenuBar>
#include <QTabBar>

namespace quorvane {

class InterfaceOpening : public TestWindowBench {
protected:
    void StartWithLight(std::int16_t type) {
        PlugIn(type);
        StartWithWall(3, 1);
        Show.ElementValue[1][1] = 200;
        ASSERT_EQ(NextFrame(), Light);
    }
    // The select dialog is left by this button, on the tab of the type that drives or of the one chosen.
    void LeaveDialogBy(const char* button, std::function<void()> meanwhile = nullptr,
                       std::int16_t chosen = NoInterface) {
        WhenAsked([this, button, meanwhile = std::move(meanwhile), chosen](QDialog* asked) {
            ASSERT_EQ(asked->objectName(), "frmIFS");
            dialog = asked;
            auto* tabs = asked->findChild<QTabBar*>("tabs_ifselect");
            if (chosen != NoInterface)
                QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(chosen - 1).center());
            if (meanwhile) WhileWaiting(meanwhile);
            Click(asked->findChild<QPushButton*>(button));
        });
    }
    // The user ends the program while it waits for a card.
    void Close() {
        EXPECT_FALSE(main->close());
        EXPECT_TRUE(main->isVisible()) << "the wait is ended first";
    }
    void ExpectEnded() {
        EXPECT_FALSE(main->isVisible());
        EXPECT_EQ(Show.InterfaceOpen[Show.InterfaceType], 0);
        EXPECT_FALSE(Show.AutoXmit.Enabled);
        EXPECT_EQ(Read("QUORVANE.ini").substr(0, 25), "ini-Datei von QUORVANE 98");
    }
    void ExpectStays() {
        EXPECT_TRUE(main->isVisible());
        EXPECT_FALSE(main->ClosePending());
        EXPECT_TRUE(main->menuBar()->isEnabled());
    }

    QPointer<QDialog> dialog;
    const std::vector<int> Light = FrameOf({{1, 200}});
};

TEST_F(InterfaceOpening, CardIsOpenedAgainOnceWhateverIsPressedMeanwhile) {
    StartWithLight(IsaCardB);
    int boots = 0;
    LeaveDialogBy("cmdOK", [&] {
        boots = Card().Boots;
        EXPECT_FALSE(dialog && dialog->isVisible());
        EXPECT_FALSE(main->menuBar()->isEnabled());
        QTest::mouseClick(main->windowHandle(), Qt::LeftButton, {}, main->rect().center());
        Key(Qt::Key_Escape);
        Key(Qt::Key_Return);
    });
    Choose("mnuDMXInit");
    EXPECT_EQ(Card().Boots, boots);
    EXPECT_EQ(Show.InterfaceOpen[IsaCardB], 1);
    EXPECT_EQ(Settings["Interface/Type"], "1");
    EXPECT_EQ(Caption(), ": ");
    ExpectStays();
    Choose("mnuDMXStart");
    EXPECT_EQ(NextFrame(), Light);
}

TEST_F(InterfaceOpening, EndDuringTheReopeningEndsItFirst) {
    StartWithLight(IsaCardB);
    LeaveDialogBy("cmdOK", [this] { Close(); });
    Choose("mnuDMXInit");
    ExpectEnded();
}

TEST_F(InterfaceOpening, EndFromOutsideDuringTheReopeningEndsItFirst) {
    StartWithLight(IsaCardB);
    LeaveDialogBy("cmdOK", [this] {
        main->CloseFromOutside();
        EXPECT_TRUE(main->isVisible());
    });
    Choose("mnuDMXInit");
    ExpectEnded();
}

TEST_F(InterfaceOpening, EndWhileTheCardComesBackAfterCancelEndsThatFirst) {
    StartWithLight(IsaCardB);
    LeaveDialogBy("cmdAbbrechen", [this] { Close(); });
    Choose("mnuDMXInit");
    ExpectEnded();
}

TEST_F(InterfaceOpening, UserWhoStaysAfterAllHasTheChosenCardThatWaitsForItsStart) {
    for (const std::int16_t before : {IsaCardB, UsbInterface}) {
        SCOPED_TRACE(before);
        StartWithLight(before);
        if (before == UsbInterface) PlugInCard(IsaCardB);
        Show.ChangeFlags.Set(Change::ConfigNew);
        LeaveDialogBy(
            "cmdOK", [this] { Close(); }, IsaCardB);
        Answer(QMessageBox::Cancel);
        Choose("mnuDMXInit");
        ExpectStays();
        EXPECT_EQ(Show.InterfaceType, IsaCardB);
        EXPECT_EQ(Show.InterfaceOpen[IsaCardB], 1);
        EXPECT_FALSE(Show.AutoXmit.Enabled);
        Choose("mnuDMXStart");
        EXPECT_EQ(NextFrame(), Light);
        StartAfresh();
    }
}

TEST_F(InterfaceOpening, UserWhoStaysAfterAllKeepsTheLightThatTheSearchPutOut) {
    for (const std::int16_t type : {IsaCardB, IsaCardC, UsbInterface}) {
        SCOPED_TRACE(type);
        StartWithLight(type);
        if (type == UsbInterface) PlugInCard(IsaCardB);
        Show.ChangeFlags.Set(Change::ConfigNew);
        WhileWaiting([this] { Close(); });
        Answer(QMessageBox::Cancel);
        Choose("mnuDMXInit");
        ExpectStays();
        EXPECT_EQ(NextFrame(), Light);
        WhileWaiting([this] { Close(); });
        Answer(QMessageBox::No);
        Choose("mnuDMXInit");
        ExpectEnded();
        StartAfresh();
        Write("QUORVANE.ini", "");
    }
}

TEST_F(InterfaceOpening, EndIsTakenWhileTheCardComesBackToo) {
    StartWithLight(IsaCardB);
    Show.ChangeFlags.Set(Change::ConfigNew);
    WhileWaiting([this] { Close(); });
    WhenAsked([this](QDialog* question) {
        WhileWaiting([this] { Close(); });
        Click(qobject_cast<QMessageBox*>(question)->button(QMessageBox::Cancel));
    });
    Answer(QMessageBox::No);
    Choose("mnuDMXInit");
    ExpectEnded();
}

TEST_F(InterfaceOpening, UnreadableFirmwareOfAnotherCardChangesNothingWithoutOk) {
    StartWithLight(IsaCardC);
    QFile::remove(Folder.filePath("QRADMX12.BIN"));
    QDir(Folder.path()).mkdir("QRADMX12.BIN");
    Answer(QMessageBox::Ok);
    WhenAsked([this](QDialog* asked) {
        EXPECT_EQ(asked->findChild<QTabBar*>("tabs_ifselect")->currentIndex(), 0) << "none is selected";
        Click(asked->findChild<QPushButton*>("cmdAbbrechen"));
    });
    Choose("mnuDMXInit");
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, "Error while reading OS file QRADMX12.BIN");
    EXPECT_EQ(Boxes[0].Sign, QMessageBox::Critical);
    EXPECT_EQ(Show.InterfaceType, IsaCardC);
    EXPECT_EQ(NextFrame(), Light);
}

TEST_F(InterfaceOpening, StopEntryIsTickedWhileTheOutputIsStopped) {
    StartWithLight(IsaCardB);
    EXPECT_FALSE(Entry("mnuDMXStop")->isChecked());
    Choose("mnuDMXStop");
    EXPECT_TRUE(Entry("mnuDMXStop")->isChecked());
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    Choose("mnuDMXStop");
    EXPECT_TRUE(Entry("mnuDMXStop")->isChecked());
    Choose("mnuDMXStart");
    EXPECT_FALSE(Entry("mnuDMXStop")->isChecked());
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

} // namespace quorvane
