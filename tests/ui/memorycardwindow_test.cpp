#include "ui/memorycardwindowbench.h"

#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>

namespace quorvane {

class MemoryCardWindow : public MemoryCardWindowBench {};

TEST_F(MemoryCardWindow, EntriesOpenItAtReadingAndAtWriting) {
    Start(32768);
    EXPECT_EQ(Entry("mnuMemCardLaden")->text(), "Memory Card");
    EXPECT_EQ(Entry("mnuMemCardSpeichern")->text(), "&Memory Card");
    InWindow("mnuMemCardLaden", [this] {
        EXPECT_EQ(window->focusWidget(), Command(frmFiles::ReadBack));
        EXPECT_TRUE(Command(frmFiles::ReadBack)->isDefault());
        EXPECT_EQ(Card.Writes, 0) << "nothing begins by itself";
    });
    InWindow("mnuMemCardSpeichern", [this] {
        EXPECT_EQ(window->focusWidget(), Command(frmFiles::WriteCard));
        EXPECT_EQ(Card.Writes, 0);
    });
}

TEST_F(MemoryCardWindow, ControlsHaveTheirNames) {
    Start(32768);
    InWindow("mnuMemCardLaden", [this] {
        EXPECT_EQ(window->objectName(), "frmFiles");
        const std::vector<const char*> captions{"Karte &erkennen", "Sequenz &schreiben", "Karte &lesen",
                                                "&Abbrechen", "S&chließen"};
        for (int index = 0; index <= 4; ++index) {
            EXPECT_EQ(Command(index)->objectName(), QString("cmdFiles(%1)").arg(index));
            EXPECT_EQ(Command(index)->text(), captions[static_cast<std::size_t>(index)]);
        }
        EXPECT_EQ(window->lblStatus->objectName(), "lblStatus");
        for (QWidget* control : window->findChildren<QWidget*>())
            if (!control->objectName().isEmpty() && !control->objectName().startsWith("qt_")) {
                EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
            }
    });
}

TEST_F(MemoryCardWindow, DetectionTellsTheSizeAndChangesNothing) {
    Start(131072);
    InWindow("mnuMemCardLaden", [this] {
        Press(frmFiles::Detect);
        EXPECT_EQ(Status(), " 128KB grosse Memorykarte gefunden.");
    });
    EXPECT_EQ(Card.Memory, std::vector<std::uint8_t>(131072, 9));
}

TEST_F(MemoryCardWindow, WritingPutsTheSequenceOnTheCard) {
    Start(32768);
    InWindow("mnuMemCardSpeichern", [this] {
        QTest::keyClick(Command(frmFiles::WriteCard), Qt::Key_Return);
        EXPECT_EQ(Status(), "Fertig mit Schreiben. Bis Adresse 30720 geschrieben.");
        EXPECT_EQ(window->focusWidget(), Command(frmFiles::WriteCard));
    });
    ExpectOnCard(60);
}

TEST_F(MemoryCardWindow, WhatWouldBeginAnewIsOffWhileItWorks) {
    Start(32768);
    InWindow("mnuMemCardSpeichern", [this] {
        const auto working = [this](bool expected) {
            for (const int index : {0, 1, 2}) EXPECT_EQ(Command(index)->isEnabled(), !expected) << index;
            EXPECT_EQ(window->cmdVergleichen->isEnabled(), !expected);
            EXPECT_EQ(Command(frmFiles::Abort)->isEnabled(), expected);
            EXPECT_TRUE(Command(frmFiles::Leave)->isEnabled());
        };
        working(false);
        bool looked = false;
        Meanwhile(2000, [&] {
            working(true);
            EXPECT_EQ(RowCount(), 0) << "no row may be read while the card is written";
            Press(frmFiles::WriteCard);
            Press(frmFiles::Detect);
            looked = true;
        });
        Press(frmFiles::WriteCard);
        EXPECT_TRUE(looked);
        working(false);
    });
    ExpectOnCard(60);
}

TEST_F(MemoryCardWindow, ProgressMovesAndTheTimeLeftIsEstimated) {
    Start(1048576);
    accessTime = 2e-6; // 983040 bytes of 5 accesses: 9.8 s
    InWindow("mnuMemCardSpeichern", [this] {
        QString label, left;
        int value = 0;
        Meanwhile(491520, [&] {
            label = window->lblFortschritt->text();
            left = window->lblRestzeit->text();
            value = window->prgFortschritt->value();
            EXPECT_EQ(window->prgFortschritt->maximum(), 983040);
        });
        Press(frmFiles::WriteCard);
        EXPECT_TRUE(label.startsWith("Fülle Lichtbild  mit Null auf  9")) << label.toStdString();
        EXPECT_EQ(left, "noch etwa 5 s");
        EXPECT_NEAR(value, 491520, 12000);
        EXPECT_EQ(window->lblRestzeit->text(), "");
    });
}

TEST_F(MemoryCardWindow, WindowsAnswerWhileAMegabyteIsWritten) {
    Start(1048576);
    InWindow("mnuMemCardSpeichern", [this] {
        int answered = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] { ++answered; });
        timer.start(0);
        Press(frmFiles::WriteCard);
        EXPECT_GE(answered, 9.8 / 0.005);
        EXPECT_EQ(Status(), "Fertig mit Schreiben. Bis Adresse 983040 geschrieben.");
        EXPECT_NEAR(now, 9.83 + 0.6, 0.2) << "nothing but the ports and the two waits";
    });
}

TEST_F(MemoryCardWindow, AbortButtonStopsTheWriting) {
    Start(65536);
    InWindow("mnuMemCardSpeichern", [this] {
        Meanwhile(5000, [this] { Press(frmFiles::Abort); });
        Press(frmFiles::WriteCard);
        EXPECT_TRUE(Status().starts_with("Abbruch beim Schreiben. Bis Adresse ")) << Status();
        EXPECT_LT(Card.Writes, 6000);
        Press(frmFiles::WriteCard);
        EXPECT_EQ(Status(), "Fertig mit Schreiben. Bis Adresse 61440 geschrieben.");
    });
}

TEST_F(MemoryCardWindow, AbortButtonEndsTheSearchForACardThatIsNotThere) {
    Start(0);
    InWindow("mnuMemCardLaden", [this] {
        QString told;
        Meanwhile(0, [&] {
            EXPECT_EQ(Status(), "Die Memorykarte wird gesucht ...");
            told = window->lblFortschritt->text();
            Press(frmFiles::Abort);
        });
        Press(frmFiles::Detect);
        EXPECT_EQ(told, "Adresse 0, Versuch Nr.:1");
        EXPECT_EQ(Status(), "Es Konnte keine Karte angesprochen werden");
        EXPECT_LT(now, 1);
    });
    EXPECT_EQ(Beeps, 1);
}

TEST_F(MemoryCardWindow, RetryIgnoreAndAbortAreAskedFor) {
    Start(32768);
    Card.RefusedWrites = {{100, 21}, {200, 20}, {300, 20}};
    InWindow("mnuMemCardSpeichern", [this] {
        Answer(QMessageBox::Retry);
        Answer(QMessageBox::Retry);
        Answer(QMessageBox::Ignore);
        Answer(QMessageBox::Abort);
        Press(frmFiles::WriteCard);
        EXPECT_EQ(Status(), "Abbruch beim Schreiben. Bis Adresse 300 geschrieben.");
    });
    std::vector<std::string> texts;
    for (const SeenBox& box : Boxes) texts.push_back(box.Text);
    EXPECT_EQ(texts, (std::vector<std::string>{"Fehler beim Schreiben von Adresse 100 Versuch Nr.:19",
                                               "Fehler beim Schreiben von Adresse 100 Versuch Nr.:20",
                                               "Fehler beim Schreiben von Adresse 200 Versuch Nr.:19",
                                               "Fehler beim Schreiben von Adresse 300 Versuch Nr.:19"}));
    EXPECT_EQ(Boxes[0].Title, "QUORVANE");
    EXPECT_EQ(Card.Memory[200], 9);
}

TEST_F(MemoryCardWindow, LongerSequenceIsAskedAboutAndEscapeMeansNo) {
    Start(32768, 61);
    InWindow("mnuMemCardSpeichern", [this] {
        WhenAsked([](QDialog* box) { QTest::keyClick(box, Qt::Key_Escape); });
        Press(frmFiles::WriteCard);
        EXPECT_EQ(Status(), "Schreiben wurde abgebrochen!");
        EXPECT_EQ(Card.Memory, std::vector<std::uint8_t>(32768, 9));
        Answer(QMessageBox::Yes);
        Press(frmFiles::WriteCard);
    });
    EXPECT_EQ(Boxes[0].Title, "SAVE OPTIONS");
    ExpectOnCard(60);
}

TEST_F(MemoryCardWindow, ReadingShowsTheWholeCardInRowsOfTen) {
    Start(32768);
    for (std::size_t cell = 0; cell < 32768; ++cell) Card.Memory[cell] = static_cast<std::uint8_t>(cell);
    InWindow("mnuMemCardLaden", [this] {
        Press(frmFiles::ReadBack);
        EXPECT_EQ(
            window->view->lblKopf->text(),
            "                     0       1       2      3       4       5       6       7      8      9");
        EXPECT_EQ(RowCount(), 3277);
        EXPECT_EQ(Row(0), "Adr      0 :  0 :  1 :  2 :  3 :  4 :  5 :  6 :  7 :  8 :  9");
        EXPECT_EQ(Row(3276), "Adr  32760 :248 :249 :250 :251 :252 :253 :254 :255");
    });
}

TEST_F(MemoryCardWindow, OpensWideEnoughForAllTenBytesOfARow) {
    Start(32768);
    InWindow("mnuMemCardLaden", [this] {
        const QListView* list = window->view->lstKarte;
        const int row = list->fontMetrics().horizontalAdvance(window->view->lblKopf->text());
        EXPECT_GT(list->viewport()->width(), row);
    });
}

TEST_F(MemoryCardWindow, RowsAreReadAsTheyComeIntoView) {
    Start(1048576);
    InWindow("mnuMemCardLaden", [this] {
        Press(frmFiles::ReadBack);
        Reads = 0;
        window->grab();
        const int shown = Reads / 10;
        EXPECT_GT(shown, 5);
        EXPECT_LT(shown, 60);
        window->grab();
        EXPECT_EQ(Reads / 10, shown) << "a row that was read stays";
        window->view->lstKarte->scrollToBottom();
        window->grab();
        EXPECT_GT(Reads / 10, shown);
        EXPECT_LT(Reads / 10, 2 * shown + 5);
    });
}

TEST_F(MemoryCardWindow, ReadingWithoutACardShowsNoRows) {
    Start(0);
    InWindow("mnuMemCardLaden", [this] {
        Answer(QMessageBox::Ignore);
        Press(frmFiles::ReadBack);
        EXPECT_EQ(Status(), "Keine Memorykarte gefunden!");
        EXPECT_EQ(RowCount(), 0);
    });
}

TEST_F(MemoryCardWindow, ComparisonShowsTheRowOfTheFirstDifference) {
    Start(32768);
    InWindow("mnuMemCardSpeichern", [this] {
        Press(frmFiles::WriteCard);
        Click(window->cmdVergleichen);
        EXPECT_EQ(Status(), "Die Memorykarte stimmt mit der Sequenz überein. Bis Adresse 30720 verglichen.");
        EXPECT_EQ(RowCount(), 0);
        Card.Memory[1234] ^= 1;
        Click(window->cmdVergleichen);
        EXPECT_TRUE(Status().starts_with("Erster Unterschied bei Adresse 1234 (")) << Status();
        EXPECT_EQ(window->view->lstKarte->currentIndex().row(), 123);
    });
}

TEST_F(MemoryCardWindow, ComesBackWhereItStood) {
    Start(32768);
    InWindow("mnuMemCardLaden", [this] {
        window->resize(900, 620);
        window->move(40, 30);
    });
    EXPECT_EQ(Show.WindowPos[9][PosWidth], 900 * 15);
    EXPECT_EQ(Show.WindowPos[9][PosTop], 30 * 15);
    Show.WindowPos[9][PosLeft] = 50 * 15;
    InWindow("mnuMemCardLaden", [this] {
        EXPECT_EQ(window->size(), QSize(900, 620).boundedTo(window->screen()->availableSize()));
        EXPECT_EQ(window->pos().y(), 30);
    });
}

TEST_F(MemoryCardWindow, TextsOfAClosedWindowGoNowhere) {
    Start(32768);
    InWindow("mnuMemCardLaden", [] {});
    SearchMemCard();
    WriteMemCard();
    ExpectOnCard(60);
}

} // namespace quorvane
