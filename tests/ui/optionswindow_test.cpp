// What the options window shows, and what it says to what is typed.
#include "ui/optionsbench.h"

namespace quorvane {

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
