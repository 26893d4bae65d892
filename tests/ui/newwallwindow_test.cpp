#include "ui/newwallbench.h"

#include "ui/frmWand.h"

#include <QGroupBox>
#include <QMenu>
#include <QScreen>

namespace quorvane {

namespace {

constexpr const char* TooMany =
    "Diese Version von DMX-QUORVANE unterstüzt nur bis zu 121 Elemente Maximal. Bitte ändern Sie die Anzahl "
    "Horizontaler und Vertikaler Elemente. ";
constexpr const char* None = "Eine Wand kann nicht aus 0 Elementen bestehen. Bitte ändern Sie die Anzahl "
                             "Horizontaler und Vertikaler Elemente. ";

} // namespace

using NewWallDialog = NewWallBench;

TEST_F(NewWallDialog, ShowsTheDefaultsAndAsksForValuesWithoutAWall) {
    StartProgram();
    EXPECT_EQ(Entry("mnuNeueWand")->text(), "Neue &Wand");
    EXPECT_EQ(main->findChild<QMenu*>("mnuDatei")->actions().constFirst(), Entry("mnuNeueWand"));
    InDialog([this] {
        EXPECT_EQ(dialog->windowTitle(), "Wandeinstellungen ");
        const std::vector<std::string> defaults{"Wandname", "10", "5", "600", "1200", "100", "50"};
        const std::vector<std::string> labels{"Name der Wand :",
                                              "Horizontal :",
                                              "Vertikal :",
                                              "Breite :",
                                              "Höhe :",
                                              " Relative Grösse zum Original :",
                                              " Anzahl der Elemente insgesamt:"};
        for (int index = 0; index <= 6; ++index) {
            EXPECT_EQ(Shown(index), defaults.at(static_cast<std::size_t>(index)));
            EXPECT_EQ(dialog->lbltxtFeld.at(static_cast<std::size_t>(index))->text().toStdString(),
                      labels.at(static_cast<std::size_t>(index)));
            EXPECT_EQ(Text(index)->objectName(), QString("txtfeld(%1)").arg(index));
        }
        std::vector<std::string> groups;
        for (const QGroupBox* group : dialog->findChildren<QGroupBox*>())
            groups.push_back(group->title().toStdString());
        EXPECT_EQ(groups,
                  (std::vector<std::string>{" Verteilung der Elemente", " Größe der Elemente in cm"}));
        EXPECT_EQ(dialog->cmdOK->text(), "&OK");
        EXPECT_EQ(dialog->cmdAbbrechen->text(), "&Abbrechen");
        EXPECT_EQ(Status(), "Bitte geben Sie die entsprechenden Werte ein");
        Leave();
    });
}

TEST_F(NewWallDialog, ShowsThePresentWallAndTheNameOfItsFile) {
    StartProgram();
    HaveWall(4, 3);
    Show.ConfigFile = "C:\\show\\Bühne & Co.CFG";
    InDialog([this] {
        EXPECT_EQ(dialog->windowTitle(), "Wandeinstellungen Bühne & Co.CFG");
        const std::vector<std::string> present{"Bühne", "4", "3", "700", "900", "90", "12"};
        for (int index = 0; index <= 6; ++index)
            EXPECT_EQ(Shown(index), present.at(static_cast<std::size_t>(index)));
        EXPECT_EQ(Status(), "");
        Leave();
    });
}

TEST_F(NewWallDialog, BuildsTheWallShowsItAndSavesTheSettings) {
    StartProgram();
    InDialog([this] {
        Type(0, "Eine Wand mit einem langen Namen");
        Type(1, "4");
        Type(2, "3");
        Ok();
    });
    EXPECT_EQ(Show.ElementCount, 12);
    EXPECT_EQ(Show.WallName, "Eine Wand mit einem ");
    EXPECT_EQ(Show.WallAreaWidth, 600);
    EXPECT_EQ(Show.WallAreaHeight, 1200);
    EXPECT_EQ(Show.ElementSize, 100);
    EXPECT_EQ(Show.ChangeFlags.bits, 0x27);
    EXPECT_TRUE(main->Wand->isVisible());
    EXPECT_TRUE(Show.StatusFlags.Has(Status::WallWindowOpen));
    EXPECT_EQ(Read("QUORVANE.ini").substr(0, 25), "ini-Datei von QUORVANE 98");
}

TEST_F(NewWallDialog, FieldsStandInLineAndNoLabelIsCutOff) {
    StartProgram();
    InDialog([this] {
        const auto right = [this](int index) {
            return Text(index)->mapTo(dialog, QPoint(Text(index)->width(), 0)).x();
        };
        for (const int index : {4, 5, 6}) EXPECT_EQ(right(index), right(2)) << index;
        EXPECT_EQ(right(3), right(1));
        for (const QLabel* label : dialog->lbltxtFeld)
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        Leave();
    });
}

TEST_F(NewWallDialog, TabGoesThroughTheFieldsAndThenTheButtons) {
    StartProgram();
    InDialog([this] {
        std::vector<std::string> order;
        QTest::mouseClick(Text(0), Qt::LeftButton);
        for (int stop = 0; stop < 8; ++stop) {
            order.push_back(dialog->focusWidget()->objectName().toStdString());
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(order, (std::vector<std::string>{"txtfeld(0)", "txtfeld(1)", "txtfeld(2)", "txtfeld(3)",
                                                   "txtfeld(4)", "txtfeld(5)", "cmdOK", "cmdAbbrechen"}));
        Leave();
    });
}

TEST_F(NewWallDialog, OpensWhereItWasLeftUnlessThatIsOffTheScreen) {
    StartProgram();
    InDialog([this] {
        dialog->setGeometry({QPoint(31, 42), dialog->size()});
        Leave();
    });
    EXPECT_EQ(Show.WindowPos[NewWallWindow][PosLeft], 31 * 15);
    EXPECT_EQ(Show.WindowPos[NewWallWindow][PosTop], 42 * 15);
    InDialog([this] {
        EXPECT_EQ(dialog->geometry().topLeft(), QPoint(31, 42));
        Leave();
    });
    Show.WindowPos[NewWallWindow][PosLeft] = 30000 * 15;
    InDialog([this] {
        EXPECT_TRUE(dialog->screen()->availableGeometry().contains(dialog->geometry()));
        Leave();
    });
}

TEST_F(NewWallDialog, CancellingChangesNothing) {
    StartProgram();
    HaveWall(4, 3);
    InDialog([this] {
        Type(1, "9");
        Leave();
    });
    EXPECT_EQ(Show.WallColumns, 4);
    EXPECT_EQ(Show.ElementCount, 12);
    EXPECT_EQ(Read("QUORVANE.ini"), "");
}

TEST_F(NewWallDialog, AHundredAndTwentyOneElementsAreAccepted) {
    StartProgram();
    InDialog([this] {
        Type(1, "11");
        Type(2, "11");
        EXPECT_EQ(Shown(6), "121");
        Ok();
    });
    EXPECT_EQ(Show.ElementCount, 121);
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(NewWallDialog, TooManyOrNoElementsAreRefusedAndTheDialogStays) {
    struct Case {
        const char* Columns;
        const char* Rows;
        const char* Says;
    };
    StartProgram();
    for (const Case& c : std::initializer_list<Case>{{"11", "12", TooMany},
                                                     {"0", "5", None},
                                                     {"5", "0", None},
                                                     {"256", "0", TooMany},
                                                     {"1.5", "80", TooMany}}) {
        Boxes.clear();
        Beeps = 0;
        InDialog([this, &c] {
            Type(1, c.Columns);
            Type(2, c.Rows);
            Answer(QMessageBox::Ok);
            Ok();
            EXPECT_TRUE(dialog->isVisible());
            EXPECT_EQ(dialog->focusWidget(), Text(c.Columns[0] == '5' ? 2 : 1));
            Leave();
        });
        ASSERT_EQ(Boxes.size(), 1u);
        EXPECT_EQ(Boxes[0].Text, c.Says) << c.Columns << " x " << c.Rows;
        EXPECT_EQ(Boxes[0].Title, "QUORVANE");
        EXPECT_EQ(Beeps, 1);
        EXPECT_FALSE(Show.StatusFlags.Has(Status::WallExists));
    }
}

TEST_F(NewWallDialog, PastedTotalIsCountedAnewFromTheNumbersThatAreStored) {
    StartProgram();
    InDialog([this] {
        Paste(1, "120");
        EXPECT_EQ(Shown(6), "600");
        Answer(QMessageBox::Ok);
        Ok();
        Leave();
    });
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, TooMany);
}

TEST_F(NewWallDialog, CountsThatNoWallCanHaveAreTooManyWhateverTheirProduct) {
    struct Case {
        const char* Columns;
        const char* Rows;
    };
    StartProgram();
    for (const Case& c : std::initializer_list<Case>{
             {"-1", "5"}, {"5", "-1"}, {"-1", "-5"}, {"-1", "0"}, {"0", "256"}, {"256", "0"}}) {
        Boxes.clear();
        InDialog([this, &c] {
            Paste(1, c.Columns);
            Paste(2, c.Rows);
            Answer(QMessageBox::Ok);
            Ok();
            EXPECT_TRUE(dialog->isVisible());
            Leave();
        });
        ASSERT_EQ(Boxes.size(), 1u) << c.Columns << " x " << c.Rows;
        EXPECT_EQ(Boxes[0].Text, TooMany) << c.Columns << " x " << c.Rows;
        EXPECT_FALSE(Show.StatusFlags.Has(Status::WallExists));
    }
}

TEST_F(NewWallDialog, RelativeSizeOfNothingBecomesOneAndTheWallIsBuilt) {
    StartProgram();
    InDialog([this] {
        Type(1, "1");
        Type(2, "1");
        Type(5, "0");
        Ok();
    });
    EXPECT_EQ(Beeps, 1);
    EXPECT_EQ(Show.ElementSize, 1);
    EXPECT_EQ(Show.ElementCount, 1);
}

TEST_F(NewWallDialog, RefusedKeyBringsThePresentValueOfTheWallBack) {
    StartProgram();
    HaveWall(4, 3);
    InDialog([this] {
        Type(1, "12");
        EXPECT_EQ(Shown(6), "36");
        QTest::keyClicks(Text(1), "x");
        EXPECT_EQ(Shown(1), "4");
        EXPECT_EQ(Shown(6), "12");
        EXPECT_EQ(Status(), "Es sind nur Zahlen erlaubt!");
        Leave();
    });
}

TEST_F(NewWallDialog, DefaultsSurviveARefusedKeyWithoutAWall) {
    StartProgram();
    InDialog([this] {
        for (int index = 1; index <= 5; ++index) {
            const std::string before = Shown(index);
            Type(index, "x");
            EXPECT_EQ(Shown(index), before);
        }
        Type(1, "7");
        QTest::keyClicks(Text(1), "-");
        EXPECT_EQ(Shown(1), "7");
        Leave();
    });
}

TEST_F(NewWallDialog, RefusedKeyBringsThePresentValueOfEveryNumberBack) {
    StartProgram();
    HaveWall(4, 3);
    InDialog([this] {
        for (int index = 1; index <= 5; ++index) {
            const std::string present = Shown(index);
            Type(index, "12");
            QTest::keyClicks(Text(index), "x");
            EXPECT_EQ(Shown(index), present);
        }
        Leave();
    });
}

TEST_F(NewWallDialog, RefusedKeyThatOverlapsAnAcceptedOneIsUndoneAlone) {
    StartProgram();
    InDialog([this] {
        QTest::mouseClick(Text(1), Qt::LeftButton);
        QTest::keyClick(Text(1), Qt::Key_A, Qt::ControlModifier);
        for (const char key : {'7', '-'}) QTest::keyPress(Text(1), key);
        for (const char key : {'7', '-'}) QTest::keyRelease(Text(1), key);
        EXPECT_EQ(Shown(1), "7");
        Leave();
    });
}

TEST_F(NewWallDialog, NumberWhoseKeyCameUpInTheNextFieldSurvivesALaterRefusedKey) {
    StartProgram();
    InDialog([this] {
        QTest::mouseClick(Text(1), Qt::LeftButton);
        QTest::keyClick(Text(1), Qt::Key_A, Qt::ControlModifier);
        QTest::keyPress(Text(1), '7');
        QTest::keyClick(Text(1), Qt::Key_Tab);
        QTest::keyRelease(Text(2), '7');
        QTest::mouseClick(Text(1), Qt::LeftButton);
        QTest::keyClicks(Text(1), "x");
        EXPECT_EQ(Shown(1), "7");
        Leave();
    });
}

TEST_F(NewWallDialog, PastedNumberSurvivesALaterRefusedKey) {
    StartProgram();
    InDialog([this] {
        Paste(1, "12");
        QTest::keyClicks(Text(1), "x");
        EXPECT_EQ(Shown(1), "12");
        Leave();
    });
}

TEST_F(NewWallDialog, CharacterOfAThirdKeyLevelIsRefusedAlsoWhereThatKeyComesAsCtrlAndAlt) {
    StartProgram();
    InDialog([this] {
        const std::string before = Shown(1);
        QTest::mouseClick(Text(1), Qt::LeftButton);
        QTest::sendKeyEvent(QTest::Click, Text(1), Qt::Key_2, QString("²"),
                            Qt::ControlModifier | Qt::AltModifier);
        EXPECT_EQ(Shown(1), before);
        EXPECT_EQ(Status(), "Es sind nur Zahlen erlaubt!");
        Leave();
    });
}

TEST_F(NewWallDialog, NameIsFreeTextAndPointAndStrokeAreAcceptedInNumbers) {
    StartProgram();
    InDialog([this] {
        Type(0, "Wand Ä-1");
        EXPECT_EQ(Shown(0), "Wand Ä-1");
        Type(3, "6./");
        EXPECT_EQ(Shown(3), "6./");
        QTest::keyClick(Text(3), Qt::Key_Left);
        QTest::keyClick(Text(3), Qt::Key_Backspace);
        EXPECT_EQ(Status(), "Bitte geben Sie die entsprechenden Werte ein");
        Leave();
    });
}

} // namespace quorvane
