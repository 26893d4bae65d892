#include "ui/windowbench.h"

#include "model/wall.h"
#include "ui/field.h"
#include "ui/frmNeueWand.h"
#include "ui/frmWand.h"

#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>

namespace quorvane {

namespace {

constexpr const char* TooMany =
    "Diese Version von DMX-QUORVANE unterstüzt nur bis zu 121 Elemente Maximal. Bitte ändern Sie die Anzahl "
    "Horizontaler und Vertikaler Elemente. ";
constexpr const char* None = "Eine Wand kann nicht aus 0 Elementen bestehen. Bitte ändern Sie die Anzahl "
                             "Horizontaler und Vertikaler Elemente. ";

} // namespace

class NewWallDialog : public WindowBench {
protected:
    // Opens the dialog by its menu entry; act is what the user does in it before he leaves it.
    void InDialog(const std::function<void()>& act) {
        WhenAsked([this, act](QDialog* asked) {
            dialog = dynamic_cast<frmNeueWand*>(asked);
            ASSERT_NE(dialog, nullptr);
            act();
        });
        Choose("mnuNeueWand");
    }
    Field* Text(int index) { return dialog->txtfeld.at(static_cast<std::size_t>(index)); }
    std::string Shown(int index) { return Text(index)->text().toStdString(); }
    std::string Status() { return dialog->lblStatus->text().toStdString(); }
    void Type(int index, const char* text) {
        QTest::mouseClick(Text(index), Qt::LeftButton);
        QTest::keyClick(Text(index), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(Text(index), text);
    }
    void Ok() { QTest::mouseClick(dialog->cmdOK, Qt::LeftButton); }
    void Leave() { QTest::mouseClick(dialog->cmdAbbrechen, Qt::LeftButton); }
    void HaveWall(int columns, int rows) {
        Show.WallName = "Bühne               ";
        Show.WallColumns = static_cast<std::uint8_t>(columns);
        Show.WallRows = static_cast<std::uint8_t>(rows);
        Show.WallAreaWidth = 700;
        Show.WallAreaHeight = 900;
        Show.ElementSize = 90;
        NeueWandInit();
        Show.ChangeFlags = {};
    }

    frmNeueWand* dialog = nullptr;
};

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
        Text(1)->selectAll();
        Text(1)->insert("120"); // pasted: no key was released
        EXPECT_EQ(Shown(6), "600");
        Answer(QMessageBox::Ok);
        Ok();
        Leave();
    });
    ASSERT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes[0].Text, TooMany);
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

TEST_F(NewWallDialog, SceneKeepsItsColumnsAndRowsOnTheNewWallWhileASequenceExists) {
    StartProgram();
    HaveWall(2, 2);
    for (int element = 1; element <= 4; ++element)
        Show.ElementValue[element].Fill(static_cast<std::uint8_t>(element));
    Show.StepCount = 1;
    Show.SequenceSteps[1][1].Fill(99);
    Show.StatusFlags.Set(Status::SequenceExists);
    InDialog([this] {
        Type(1, "3");
        Ok();
    });
    std::vector<int> reds;
    for (int element = 1; element <= 6; ++element) reds.push_back(Show.ElementValue[element][1]);
    EXPECT_EQ(reds, (std::vector<int>{1, 2, 0, 3, 4, 0}));
    EXPECT_EQ(Show.SequenceSteps[1][1][1], 99);
    EXPECT_EQ(Show.StepCount, 1);
}

TEST_F(NewWallDialog, SceneStaysElementByElementWithoutASequenceOrOnTheSameShape) {
    for (const bool sequence : {false, true}) {
        StartProgram();
        HaveWall(2, 2);
        for (int element = 1; element <= 6; ++element)
            Show.ElementValue[element].Fill(static_cast<std::uint8_t>(element));
        Show.StatusFlags.Put(Status::SequenceExists, sequence);
        InDialog([this, sequence] {
            if (!sequence) Type(1, "3");
            Ok();
        });
        EXPECT_EQ(Show.ElementValue[3][1], 3);
        EXPECT_EQ(Show.ElementValue[4][1], 4);
        Show.StatusFlags.Clear(Status::SequenceExists);
        Show.ChangeFlags = {};
        main.reset();
        Show = ShowState{};
    }
}

TEST_F(NewWallDialog, NothingIsAskedAboutUnsavedWork) {
    StartProgram();
    HaveWall(2, 2);
    Show.ChangeFlags.bits = 0xff;
    InDialog([this] { Ok(); });
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(NewWallDialog, OutputRestsWhileItIsOpenAndGoesOnAsItWas) {
    StartProgram();
    for (const bool running : {true, false}) {
        Show.AutoXmit.Enabled = running;
        Show.StatusFlags.Set(Status::SequencePlaying);
        InDialog([this] {
            EXPECT_FALSE(Show.AutoXmit.Enabled);
            Leave();
        });
        EXPECT_EQ(Show.AutoXmit.Enabled, running);
        EXPECT_TRUE(Show.StatusFlags.Has(Status::SequencePlaying));
    }
}

} // namespace quorvane
