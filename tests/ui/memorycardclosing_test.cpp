#include "ui/memorycardwindowbench.h"

namespace quorvane {

class MemoryCardClosing : public MemoryCardWindowBench {};

TEST_F(MemoryCardClosing, EscapeGivesTheWorkUpFirstAndLeavesThen) {
    Start(65536);
    InWindow("mnuMemCardSpeichern", [this] {
        Meanwhile(5000, [this] { QTest::keyClick(window, Qt::Key_Escape); });
        Press(frmFiles::WriteCard);
        EXPECT_TRUE(Status().starts_with("Abbruch beim Schreiben.")) << Status();
        EXPECT_TRUE(window->isVisible());
        QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    });
}

TEST_F(MemoryCardClosing, ClosingTheWindowGivesTheWorkUpAndLeaves) {
    Start(65536);
    InWindow("mnuMemCardSpeichern", [this] {
        Meanwhile(5000, [this] { Press(frmFiles::Leave); });
        Press(frmFiles::WriteCard);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_LT(Card.Writes, 6000);
    EXPECT_TRUE(main->isVisible());
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(MemoryCardClosing, ClosingTheProgramDuringAWriteEndsBothCleanly) {
    Start(65536);
    InWindow("mnuMemCardSpeichern", [this] {
        Meanwhile(5000, [this] { main->CloseFromOutside(); });
        Press(frmFiles::WriteCard);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_LT(Card.Writes, 6000);
    for (int i = 0; i < 20 && main->isVisible(); ++i) QTest::qWait(1);
    EXPECT_FALSE(main->isVisible());
    EXPECT_NE(Read("QUORVANE.ini").find("[WINDOWSPOS]"), std::string::npos);
}

TEST_F(MemoryCardClosing, ClosingTheProgramAtTheRetryBoxEndsAllThree) {
    Start(32768);
    Card.RefusedWrites[100] = 1000;
    InWindow("mnuMemCardSpeichern", [this] {
        WhenAsked([this](QDialog*) { main->CloseFromOutside(); });
        Press(frmFiles::WriteCard);
    });
    for (int i = 0; i < 20 && main->isVisible(); ++i) QTest::qWait(1);
    EXPECT_FALSE(main->isVisible());
}

TEST_F(MemoryCardClosing, ClosingTheMainWindowWithTheCardWindowOpenClosesBoth) {
    Start(65536);
    InWindow("mnuMemCardSpeichern", [this] {
        main->close();
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_FALSE(main->isVisible());
}

TEST_F(MemoryCardClosing, ClosingTheMainWindowDuringAWriteClosesBoth) {
    Start(65536);
    InWindow("mnuMemCardSpeichern", [this] {
        Meanwhile(5000, [this] { main->close(); });
        Press(frmFiles::WriteCard);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_FALSE(main->isVisible());
    EXPECT_LT(Card.Writes, 6000);
}

TEST_F(MemoryCardClosing, CancelWhenClosingDuringAWriteKeepsTheProgram) {
    Start(65536);
    Show.ChangeFlags.bits = 0x01;
    InWindow("mnuMemCardSpeichern", [this] {
        Answer(QMessageBox::Cancel);
        Meanwhile(5000, [this] { main->close(); });
        Press(frmFiles::WriteCard);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_TRUE(main->isVisible());
    EXPECT_FALSE(main->ClosePending());
}

} // namespace quorvane
