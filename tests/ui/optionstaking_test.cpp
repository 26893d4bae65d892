// What the options window takes over, and when.
#include "ui/optionsbench.h"

namespace quorvane {

using OptionsTakingTest = OptionsWindowTest;

TEST_F(OptionsTakingTest, ApplyWritesTheBlockAndStaysOpen) {
    OpenOptions(1);
    Show.ConfigFile = "wand.CFG";
    Enter(0, "101");
    Enter(1, "5");
    Enter(2, "6");
    Enter(3, "8");
    Enter(4, "512");
    Click(options->OptDMXSend[1]);
    EXPECT_EQ(Show.DmxIni[0], 60) << "nothing before Übernehmen";
    Click(options->cmdApply);
    const std::vector<int> block(Show.DmxIni.begin(), Show.DmxIni.end());
    EXPECT_EQ(block, (std::vector<int>{50, 6, 5, 0, 1, 1, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Show.DmxIniDirty, 1);
    EXPECT_EQ(Show.ChannelCount, 512);
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::ConfigChanged));
    EXPECT_TRUE(options->isVisible());
    EXPECT_EQ(Shown(Text(0)), "100") << "as the block has it";
    Answer(QMessageBox::No); // the configuration is to be saved
    EXPECT_TRUE(CloseProgram());
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_NE(Boxes[0].Text.find("Konfiguration"), std::string::npos);
}

TEST_F(OptionsTakingTest, OkTakesTheFieldThatIsStillBeingTyped) {
    OpenOptions(1);
    Type(Text(0), "150");
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIni[0], 75);
    EXPECT_FALSE(options->isVisible());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::OptionsWindowOpen));
}

TEST_F(OptionsTakingTest, EnterInAFieldIsOkAndChecksItFirst) {
    OpenOptions(1);
    Type(Text(0), "300");
    QTest::keyClick(Text(0), Qt::Key_Enter);
    EXPECT_EQ(Show.DmxIni[0], 90);
    EXPECT_FALSE(options->isVisible());
}

TEST_F(OptionsTakingTest, OkShowsTheMessageOfTheLastFieldBeforeItCloses) {
    OpenOptions(1);
    Type(Text(5), "40");
    WhenAsked([this](QDialog* asked) {
        EXPECT_TRUE(options->isVisible());
        QTest::keyClick(asked, Qt::Key_Escape);
    });
    Click(options->cmdOK);
    EXPECT_EQ(Messages(), TextList{repeatAdvice});
    EXPECT_FALSE(options->isVisible());
    Choose("mnuOptions");
    EXPECT_EQ(Shown(Text(5)), "40") << "kept until the program ends";
}

TEST_F(OptionsTakingTest, CancelEscapeAndCloseBoxChangeNothing) {
    OpenOptions(1);
    const auto block = Show.DmxIni;
    const std::uint32_t flags = Show.StatusFlags.bits & ~0x200000u;
    const std::vector<std::function<void()>> ways{[this] { Click(options->cmdCancel); },
                                                  [this] { QTest::keyClick(Text(5), Qt::Key_Escape); },
                                                  [this] { options->parentWidget()->close(); }};
    for (const auto& leave : ways) {
        Choose("mnuOptions");
        Tab(1);
        Type(Path(0), "anders.CFG");
        Click(options->chkAutoStart);
        Tab(0);
        Click(options->cckAutoDMXmax);
        Enter(0, "100");
        Type(Text(5), "40");
        leave();
        EXPECT_FALSE(options->isVisible());
        QTest::qWait(0);
        EXPECT_EQ(Show.DmxIni, block);
        EXPECT_EQ(Show.StatusFlags.bits, flags);
        EXPECT_EQ(Show.ConfigFile, "");
        EXPECT_EQ(Show.ChangeFlags.bits, 0);
        EXPECT_EQ(Show.DmxIniDirty, 0);
        EXPECT_EQ(Messages(), TextList{}) << "nobody is advised on what he gives up";
    }
    Choose("mnuOptions");
    EXPECT_EQ(Shown(), (TextList{"120", "3", "12", "7", "484", "50", "24.8 ms"}));
    EXPECT_FALSE(options->cckAutoDMXmax->isChecked());
    EXPECT_EQ(Shown(Path(0)), "");
}

TEST_F(OptionsTakingTest, OkWithoutAChangeWritesNothing) {
    OpenOptions(1);
    Show.ConfigFile = "a.CFG";
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIniDirty, 0);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Show.ConfigFile, "a.CFG") << "a file loaded meanwhile stays the current one";
}

TEST_F(OptionsTakingTest, FieldsThatNobodyChangedFollowTheShow) {
    OpenOptions(1);
    Enter(0, "100");
    Show.DmxIni[1] = 44; // a configuration was loaded meanwhile
    Show.DmxIni[5] = 1;
    Click(options->cmdApply);
    EXPECT_EQ(Show.DmxIni[0], 50);
    EXPECT_EQ(Show.DmxIni[1], 44);
    EXPECT_EQ(Show.DmxIni[5], 1);
    EXPECT_EQ(Shown(Text(2)), "44");
    EXPECT_TRUE(options->OptDMXSend[1]->isChecked());
}

TEST_F(OptionsTakingTest, WordsOfAnInterfaceThatDecidesItselfStay) {
    OpenOptions(3);
    Click(options->cmdOK);
    const std::vector<int> block(Show.DmxIni.begin(), Show.DmxIni.end());
    EXPECT_EQ(block, (std::vector<int>{60, 12, 0, 0, 1, 0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Show.ChannelCount, 512);
}

TEST_F(OptionsTakingTest, AutomaticCountLocksTheFieldAndShowsTheWall) {
    OpenOptions(1);
    MakeWall(10, 5);
    Click(options->cckAutoDMXmax);
    EXPECT_EQ(Shown(Text(4)), "200");
    EXPECT_FALSE(Text(4)->isEnabled());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::AutoChannelCount)) << "not before Übernehmen";
    Click(options->cmdApply);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::AutoChannelCount));
    EXPECT_EQ(Show.ChannelCount, 200);
    EXPECT_EQ(Show.DmxIni[3], 200);
    EXPECT_EQ(Show.DmxIni[4], 0);
    Click(options->cckAutoDMXmax);
    EXPECT_TRUE(Text(4)->isEnabled());
    EXPECT_EQ(Shown(Text(4)), "200");
    Enter(4, "300");
    Click(options->cmdOK);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::AutoChannelCount));
    EXPECT_EQ(Show.ChannelCount, 300);
}

TEST_F(OptionsTakingTest, AutomaticCountCanBeSetForInterfacesThatLockTheirFields) {
    OpenOptions(3);
    EXPECT_TRUE(options->cckAutoDMXmax->isEnabled());
    Click(options->cckAutoDMXmax);
    EXPECT_EQ(Shown(Text(4)), "512");
    Click(options->cmdOK);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::AutoChannelCount));
}

TEST_F(OptionsTakingTest, DefaultsFillTheFieldsThatAreFree) {
    OpenOptions(1);
    Click(options->OptDMXSend[1]);
    Type(Text(5), "40");
    Click(options->cmdDefaultDMX);
    QTest::qWait(0);
    EXPECT_EQ(Shown(), (TextList{"120", "0", "0", "0", "512", "50", "22.7 ms"}));
    EXPECT_TRUE(options->OptDMXSend[0]->isChecked());
    EXPECT_FALSE(options->lblLeerlaufzeit->isHidden());
    EXPECT_EQ(Messages(), TextList{}) << "the value that was advised against is gone";
    EXPECT_EQ(Show.DmxIni[1], 12);
    Click(options->cmdApply);
    const std::vector<int> block(Show.DmxIni.begin(), Show.DmxIni.end());
    EXPECT_EQ(block, (std::vector<int>{60, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));

    MakeWall(10, 5);
    Click(options->cckAutoDMXmax);
    Click(options->cmdDefaultDMX);
    EXPECT_EQ(Shown(Text(4)), "200");
}

TEST_F(OptionsTakingTest, DefaultsLeaveLockedFieldsAlone) {
    OpenOptions(2);
    Click(options->cmdDefaultDMX);
    EXPECT_EQ(Shown(), (TextList{"Auto", "0", "Auto", "0", "512", "Auto", "23.7 ms"}));
}

TEST_F(OptionsTakingTest, FilesOfTheStartAreThoseOfTheSettings) {
    Write("eins.CFG", "");
    OpenOptions(1);
    Show.ConfigFile = "eins.CFG";
    Show.SceneFile = "zwei.QSC";
    Show.SequenceFile = "drei.QSQ";
    Show.ColourTableFile = "Bühne & Co.QCT";
    options->parentWidget()->close();
    Choose("mnuOptions");
    Tab(1);
    EXPECT_TRUE(options->chkAutoStart->isChecked());
    EXPECT_EQ(Shown(Path(0)), "eins.CFG");
    EXPECT_EQ(Shown(Path(1)), "zwei.QSC");
    EXPECT_EQ(Shown(Path(2)), "drei.QSQ");
    EXPECT_EQ(Shown(Path(3)), "Bühne & Co.QCT");
    Type(Path(1), " neu.QSC ");
    Type(Path(2), " ");
    Click(options->chkAutoStart);
    Click(options->cmdApply);
    EXPECT_EQ(Show.ConfigFile, "eins.CFG");
    EXPECT_EQ(Show.SceneFile, "neu.QSC");
    EXPECT_EQ(Show.SequenceFile, "");
    EXPECT_FALSE(Show.StatusFlags.Has(Status::ReloadFiles));
    EXPECT_TRUE(CloseProgram());
    EXPECT_NE(Read("QUORVANE.ini").find("\r\neins.CFG\r\nneu.QSC\r\n\r\nB"), std::string::npos);
}

TEST_F(OptionsTakingTest, TransferToThePlayUnitRefusesOkAndLeavesTheWindowOpen) {
    OpenOptions(1);
    Enter(0, "100");
    Show.timSendToMerger.Enabled = true;
    Answer(QMessageBox::Ok);
    Click(options->cmdOK);
    EXPECT_TRUE(options->isVisible());
    EXPECT_EQ(Show.DmxIni[0], 60);
    EXPECT_EQ(Shown(Text(0)), "100");
    Show.timSendToMerger.Enabled = false;
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIni[0], 50);
}

TEST_F(OptionsTakingTest, ValueThatATransferInterruptedIsCheckedAndKept) {
    OpenOptions(1);
    Type(Text(0), "300");
    options->setEnabled(false);
    Return();
    options->setEnabled(true);
    EXPECT_EQ(Shown(Text(0)), "180");
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIni[0], 90);
}

} // namespace quorvane
