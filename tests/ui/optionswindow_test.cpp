#include "ui/windowbench.h"

#include "model/wall.h"
#include "ui/field.h"
#include "ui/frmOptions.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>

namespace quorvane {

using TextList = std::vector<std::string>;

class OptionsWindowTest : public WindowBench {
protected:
    ~OptionsWindowTest() override { QLocale::setDefault(QLocale::c()); }

    // The program with the interface of that type, the options open.
    void OpenOptions(int type) {
        Settings["Interface/Type"] = std::to_string(type);
        if (type == 0) Answer(QMessageBox::Ok);
        StartProgram();
        Show.DmxIni.Fill(0);
        int word = 0;
        for (const int value : {60, 12, 3, 228, 1, 0, 7})
            Show.DmxIni[word++] = static_cast<std::int16_t>(value);
        Show.StatusFlags.Clear(Status::AutoChannelCount);
        Show.ChannelCount = 484;
        Show.DmxIniDirty = 0;
        Boxes.clear();
        Choose("mnuOptions");
        options = main->Options;
        ASSERT_TRUE(options->isVisible());
    }
    Field* Text(int index) { return options->txtDMX.at(static_cast<std::size_t>(index)); }
    Field* Path(int index) { return options->txtPath.at(static_cast<std::size_t>(index)); }
    static std::string Shown(const QLineEdit* field) { return field->text().toStdString(); }
    TextList Shown() {
        TextList texts;
        for (const Field* field : options->txtDMX) texts.push_back(Shown(field));
        return texts;
    }
    std::vector<bool> Enabled() {
        std::vector<bool> enabled;
        for (int index = 0; index <= 5; ++index) enabled.push_back(Text(index)->isEnabled());
        return enabled;
    }
    void Tab(int position) {
        QTest::mouseClick(options->tbsOptions, Qt::LeftButton, {},
                          options->tbsOptions->tabRect(position).center());
    }
    static void Type(Field* field, const char* text) {
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
    // Types into a field and leaves it by Tab; a message that comes of it is seen before this returns.
    void Enter(int index, const char* text) {
        Type(Text(index), text);
        QTest::keyClick(Text(index), Qt::Key_Tab);
        QTest::qWait(0);
        QTest::qWait(0);
        Return();
    }
    // The main window is the active one again; no window manager does it here.
    void Return() { QApplication::setActiveWindow(main.get()); }
    TextList Messages() {
        TextList texts;
        for (const SeenBox& box : Boxes) texts.push_back(box.Text);
        return texts;
    }
    void MakeWall(int columns, int rows) {
        Show.WallColumns = static_cast<std::uint8_t>(columns);
        Show.WallRows = static_cast<std::uint8_t>(rows);
        Show.WallAreaWidth = 600;
        Show.WallAreaHeight = 1200;
        NeueWandInit();
        Show.ChangeFlags = {};
    }

    frmOptions* options = nullptr;
    const std::string repeatAdvice = " Beim Sende repeat sollte der Wert 50 unbedingt beibehalten werden!";
};

TEST_F(OptionsWindowTest, CarriesItsTextsLetterByLetter) {
    OpenOptions(1);
    EXPECT_EQ(Entry("mnuOptions")->text(), "&Optionen");
    EXPECT_EQ(Entry("mnuOptions")->parent(), main->findChild<QMenu*>("mnuBearbeiten"));
    EXPECT_EQ(options->windowTitle(), "Optionen");
    const TextList tabs{"DMX Einstellungen", "Allgemeine Programmeinstellungen", "Beispiel 3", "Beispiel 4"};
    for (int position = 0; position < 4; ++position)
        EXPECT_EQ(options->tbsOptions->tabText(position).toStdString(),
                  tabs.at(static_cast<std::size_t>(position)));
    const TextList labels{"Start Sync Dauer (us) :", "StartByte  (0-255) :", "Leerlaufzeit am Ende (us) :",
                          "InterDigit Zeit (us) :",  "Anzahl Sendekanäle :", "Sende Repeat (ms) :",
                          "Länge der DMX Sendung :"};
    for (int index = 0; index <= 6; ++index) {
        const QString number = QString::number(index);
        EXPECT_EQ(Find<QLabel>("frmOptions", qPrintable("lblDMX(" + number + ")"))->text().toStdString(),
                  labels.at(static_cast<std::size_t>(index)));
        EXPECT_EQ(Text(index), Find<QLineEdit>("frmOptions", qPrintable("txtDMX(" + number + ")")));
    }
    const TextList paths{"Konfiguration :", "Szene :", "Sequenz :", "Farbtabelle :"};
    for (int index = 0; index <= 3; ++index)
        EXPECT_EQ(options->lblPath.at(static_cast<std::size_t>(index))->text().toStdString(),
                  paths.at(static_cast<std::size_t>(index)));
    EXPECT_EQ(options->OptDMXSend[0]->text(), "Hardware Repeat");
    EXPECT_EQ(options->OptDMXSend[1]->text(), "Sofware Repeat");
    EXPECT_EQ(options->cmdDefaultDMX->text(), "Default Einstellungen");
    EXPECT_EQ(options->cckAutoDMXmax->text(), "Auto");
    EXPECT_EQ(options->chkAutoStart->text(), "Auto Load");
    EXPECT_EQ(options->lblAutoStart->text(), "Diese Dateien werden mit Autostart selbständig  geladen: ");
    EXPECT_EQ(options->lblUSITT->text(), "Keine gültige Einstellung nach USITT DMX-512");
    EXPECT_EQ(options->lblLeerlaufzeit->text(), "Keine Leerlaufzeit eingestellt");
    EXPECT_EQ(options->cmdOK->text(), "&OK");
    EXPECT_EQ(options->cmdCancel->text(), "&Abbrechen");
    EXPECT_EQ(options->cmdApply->text(), "Über&nehmen");
}

TEST_F(OptionsWindowTest, EachTabShowsItsPage) {
    OpenOptions(1);
    EXPECT_TRUE(Text(0)->isVisible());
    const TextList frames{"fraSample2", "fraSample1", "fraSample3", "fraSample4"};
    for (int position = 3; position >= 0; --position) {
        Tab(position);
        for (int page = 0; page < 4; ++page)
            EXPECT_EQ(options->picOptions.at(static_cast<std::size_t>(page))->isVisible(), page == position);
        auto* frame = options->findChild<QGroupBox*>(frames.at(static_cast<std::size_t>(position)).c_str());
        EXPECT_TRUE(frame->isVisible());
        EXPECT_EQ(frame->title(), options->tbsOptions->tabText(position));
        const bool empty = frame->findChildren<QWidget*>().isEmpty();
        EXPECT_EQ(empty, position >= 2) << "the last two pages stay empty";
    }
}

TEST_F(OptionsWindowTest, ShowsTheBlockAndTheLengthOfOneTransmission) {
    OpenOptions(1);
    EXPECT_EQ(Shown(), (TextList{"120", "3", "12", "7", "484", "50", "24.8 ms"}));
    EXPECT_EQ(Enabled(), std::vector<bool>(6, true));
    EXPECT_TRUE(options->OptDMXSend[0]->isChecked());
    EXPECT_TRUE(Show.StatusFlags.Has(Status::OptionsWindowOpen));
    EXPECT_TRUE(Text(6)->isReadOnly());
}

TEST_F(OptionsWindowTest, LengthIsWrittenInTheUsersNumberFormat) {
    QLocale::setDefault(QLocale(QLocale::German));
    OpenOptions(1);
    Enter(0, "88");
    Enter(3, "0");
    Enter(4, "512");
    EXPECT_EQ(Shown(Text(6)), "22,6 ms");
    Enter(0, "64");
    Enter(4, "21"); // 996 microseconds: whole milliseconds stand without decimals
    EXPECT_EQ(Shown(Text(6)), "1 ms");
}

TEST_F(OptionsWindowTest, WithoutInterfaceThereIsNoLengthAndEveryFieldIsFree) {
    OpenOptions(0);
    EXPECT_EQ(Shown(), (TextList{"120", "3", "12", "7", "484", "50", "0 ms"}));
    EXPECT_EQ(Enabled(), std::vector<bool>(6, true));
}

TEST_F(OptionsWindowTest, InterfacesThatDecideThemselvesLockTheirFields) {
    OpenOptions(3);
    const TextList library{"Auto", "0", "Auto", "Auto", "512", "Auto", "23.7 ms"};
    EXPECT_EQ(Shown(), library);
    EXPECT_EQ(Enabled(), std::vector<bool>(6, false));
    EXPECT_TRUE(options->lblUSITT->isHidden());
    EXPECT_TRUE(options->lblLeerlaufzeit->isHidden());
    for (const std::int16_t type : {PcmciaCard, PciCard}) {
        Show.InterfaceType = type;
        options->parentWidget()->close();
        Choose("mnuOptions");
        EXPECT_EQ(Shown(), library);
        EXPECT_EQ(Enabled(), std::vector<bool>(6, false));
    }
    Show.InterfaceType = IsaCardC;
    options->parentWidget()->close();
    Choose("mnuOptions");
    EXPECT_EQ(Shown(), (TextList{"Auto", "0", "Auto", "7", "512", "Auto", "27.3 ms"}));
    EXPECT_EQ(Enabled(), (std::vector<bool>{false, false, false, true, false, false}));
}

TEST_F(OptionsWindowTest, FieldsFollowAnInterfaceChosenWhileTheyAreOpen) {
    OpenOptions(1);
    WhenAsked([](QDialog* asked) {
        auto* tabs = asked->findChild<QTabBar*>("tabs_ifselect");
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(2).center());
        QTest::mouseClick(asked->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    Choose("mnuDMXInit");
    Return();
    EXPECT_EQ(Shown(), (TextList{"Auto", "0", "Auto", "Auto", "512", "Auto", "23.7 ms"}));
    EXPECT_FALSE(Text(0)->isEnabled());
}

TEST_F(OptionsWindowTest, LimitsAreAppliedWhenAFieldIsLeft) {
    OpenOptions(1);
    struct Case {
        int index;
        const char* typed;
        const char* left;
    };
    for (const Case& c :
         {Case{0, "63", "64"},   Case{0, "64", "64"},          Case{0, "180", "180"},  Case{0, "181", "180"},
          Case{1, "255", "255"}, Case{1, "256", "255"},        Case{1, "-1", "0"},     Case{2, "255", "255"},
          Case{2, "300", "255"}, Case{2, "-4", "-4"},          Case{3, "44", "44"},    Case{3, "45", "44"},
          Case{3, "0", "0"},     Case{4, "512", "512"},        Case{4, "513", "512"},  Case{4, "0", "0"},
          Case{5, "50", "50"},   Case{0, "abc", "64"},         Case{1, " 1 2 ", "12"}, Case{2, "", "0"},
          Case{3, "12.5", "12"}, Case{4, "99999999999", "512"}}) {
        Type(Text(c.index), c.typed);
        EXPECT_EQ(Shown(Text(c.index)), c.typed) << "nothing is corrected while somebody types";
        QTest::keyClick(Text(c.index), Qt::Key_Tab);
        EXPECT_EQ(Shown(Text(c.index)), c.left) << c.index << ": " << c.typed;
    }
    EXPECT_EQ(Messages(), TextList{});
}

TEST_F(OptionsWindowTest, StartSyncBelowTheStandardIsWarnedOf) {
    OpenOptions(1);
    EXPECT_TRUE(options->lblUSITT->isHidden());
    Enter(0, "70");
    EXPECT_EQ(Shown(Text(0)), "70");
    EXPECT_FALSE(options->lblUSITT->isHidden());
    Enter(0, "88");
    EXPECT_TRUE(options->lblUSITT->isHidden());
    Enter(0, "50");
    EXPECT_EQ(Shown(Text(0)), "64");
    EXPECT_FALSE(options->lblUSITT->isHidden());
}

TEST_F(OptionsWindowTest, MissingIdleTimeIsWarnedOfAndStays) {
    OpenOptions(1);
    EXPECT_TRUE(options->lblLeerlaufzeit->isHidden());
    Enter(2, "0");
    EXPECT_EQ(Shown(Text(2)), "0");
    EXPECT_FALSE(options->lblLeerlaufzeit->isHidden());
    Enter(2, "1");
    EXPECT_TRUE(options->lblLeerlaufzeit->isHidden());
}

TEST_F(OptionsWindowTest, UnusualRepeatIsAdvisedAgainstInABox) {
    OpenOptions(1);
    Answer(QMessageBox::Ok);
    Enter(5, "40");
    EXPECT_EQ(Shown(Text(5)), "40");
    Answer(QMessageBox::Ok);
    Enter(5, "10");
    EXPECT_EQ(Shown(Text(5)), "30");
    EXPECT_EQ(Messages(), (TextList{repeatAdvice, repeatAdvice}));
    EXPECT_EQ(Boxes.at(0).Title, "QUORVANE");
    Enter(5, "50");
    EXPECT_EQ(Boxes.size(), 2u);
}

TEST_F(OptionsWindowTest, TooFewChannelsForTheWallAreToldInABox) {
    OpenOptions(1);
    MakeWall(11, 11);
    Answer(QMessageBox::Ok);
    Enter(4, "483");
    EXPECT_EQ(Shown(Text(4)), "483");
    EXPECT_EQ(Messages(), TextList{"Es werden für 121 Elemente 484 DMX Kanäle benötigt. Ihre Einstellung "
                                   "unterschreitet die Anzahl benötigter DMX Kanäle!"});
    Enter(4, "484");
    EXPECT_EQ(Boxes.size(), 1u);
}

TEST_F(OptionsWindowTest, MessageOfACheckComesAfterTheFocusHasMoved) {
    OpenOptions(1);
    QWidget* focus = nullptr;
    WhenAsked([&](QDialog* asked) {
        focus = options->focusWidget();
        QTest::keyClick(asked, Qt::Key_Escape);
    });
    Enter(5, "40");
    EXPECT_NE(focus, nullptr);
    EXPECT_NE(focus, Text(5));
}

TEST_F(OptionsWindowTest, ApplyWritesTheBlockAndStaysOpen) {
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

TEST_F(OptionsWindowTest, OkTakesTheFieldThatIsStillBeingTyped) {
    OpenOptions(1);
    Type(Text(0), "150");
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIni[0], 75);
    EXPECT_FALSE(options->isVisible());
    EXPECT_FALSE(Show.StatusFlags.Has(Status::OptionsWindowOpen));
}

TEST_F(OptionsWindowTest, EnterInAFieldIsOkAndChecksItFirst) {
    OpenOptions(1);
    Type(Text(0), "300");
    QTest::keyClick(Text(0), Qt::Key_Enter);
    EXPECT_EQ(Show.DmxIni[0], 90);
    EXPECT_FALSE(options->isVisible());
}

TEST_F(OptionsWindowTest, OkShowsTheMessageOfTheLastFieldBeforeItCloses) {
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

TEST_F(OptionsWindowTest, CancelEscapeAndCloseBoxChangeNothing) {
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

TEST_F(OptionsWindowTest, OkWithoutAChangeWritesNothing) {
    OpenOptions(1);
    Show.ConfigFile = "a.CFG";
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIniDirty, 0);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Show.ConfigFile, "a.CFG") << "a file loaded meanwhile stays the current one";
}

TEST_F(OptionsWindowTest, FieldsThatNobodyChangedFollowTheShow) {
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

TEST_F(OptionsWindowTest, WordsOfAnInterfaceThatDecidesItselfStay) {
    OpenOptions(3);
    Click(options->cmdOK);
    const std::vector<int> block(Show.DmxIni.begin(), Show.DmxIni.end());
    EXPECT_EQ(block, (std::vector<int>{60, 12, 0, 0, 1, 0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Show.ChannelCount, 512);
}

TEST_F(OptionsWindowTest, AutomaticCountLocksTheFieldAndShowsTheWall) {
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

TEST_F(OptionsWindowTest, AutomaticCountCanBeSetForInterfacesThatLockTheirFields) {
    OpenOptions(3);
    EXPECT_TRUE(options->cckAutoDMXmax->isEnabled());
    Click(options->cckAutoDMXmax);
    EXPECT_EQ(Shown(Text(4)), "512");
    Click(options->cmdOK);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::AutoChannelCount));
}

TEST_F(OptionsWindowTest, DefaultsFillTheFieldsThatAreFree) {
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

TEST_F(OptionsWindowTest, DefaultsLeaveLockedFieldsAlone) {
    OpenOptions(2);
    Click(options->cmdDefaultDMX);
    EXPECT_EQ(Shown(), (TextList{"Auto", "0", "Auto", "0", "512", "Auto", "23.7 ms"}));
}

TEST_F(OptionsWindowTest, FilesOfTheStartAreThoseOfTheSettings) {
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

TEST_F(OptionsWindowTest, TransferToThePlayUnitRefusesOkAndLeavesTheWindowOpen) {
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

TEST_F(OptionsWindowTest, ValueThatATransferInterruptedIsCheckedAndKept) {
    OpenOptions(1);
    Type(Text(0), "300");
    options->setEnabled(false);
    Return();
    options->setEnabled(true);
    EXPECT_EQ(Shown(Text(0)), "180");
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIni[0], 90);
}

TEST_F(OptionsWindowTest, KeepsItsPlaceAndComesBackWithTheProgram) {
    OpenOptions(1);
    auto* frame = qobject_cast<QMdiSubWindow*>(options->parentWidget());
    frame->move(30, 45);
    EXPECT_TRUE(CloseProgram());
    EXPECT_EQ(Show.WindowPos[OptionsWindow][PosLeft], 450);
    EXPECT_EQ(Show.WindowPos[OptionsWindow][PosTop], 675);
    EXPECT_NE(Show.SavedFlags & 0x200000u, 0u);
    main.reset();
    Show = ShowState{};
    StartProgram();
    EXPECT_TRUE(main->Options->isVisible());
    EXPECT_EQ(main->Options->parentWidget()->pos(), QPoint(30, 45));
}

TEST_F(OptionsWindowTest, EveryControlHasANameForThoseWhoDoNotSeeIt) {
    OpenOptions(1);
    for (const QWidget* control : options->findChildren<QWidget*>()) {
        if (control->focusPolicy() == Qt::NoFocus || control->objectName().startsWith("qt_")) continue;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
    }
}

TEST_F(OptionsWindowTest, TabGoesThroughThePageInTheOrderOfItsLines) {
    OpenOptions(1);
    Text(0)->setFocus();
    TextList order;
    for (int i = 0; i < 7; ++i) {
        QTest::keyClick(options->focusWidget(), Qt::Key_Tab);
        order.push_back(options->focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(order, (TextList{"txtDMX(1)", "txtDMX(2)", "txtDMX(3)", "txtDMX(4)", "cckAutoDMXmax",
                               "txtDMX(5)", "OptDMXSend(0)"}));
}

} // namespace quorvane
