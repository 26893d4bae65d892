// Where the wall window and its fields stand, and how large they are.
#include "ui/wallbench.h"

#include "ui/geometry.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QScrollBar>

#include <limits>

namespace quorvane {

class WallPlacing : public WallBench {
protected:
    // Within an area that holds an ordinary wall whole.
    void StartWithRoom() {
        StartProgram();
        main->resize(1300, 1300);
    }
    // A wall of 11 x 11 fields of 100 pixels in an area of about 600.
    void StartWithHugeWall() {
        StartProgram();
        MakeWall(11, 11, 1500, 1500);
        main->Wand->Open();
        QCoreApplication::processEvents();
    }
    // As at the start of the program, when the last files come back.
    void RestoreWall(int columns, int rows, int width, int height) {
        Show.StatusFlags.Set(Status::SaveToCurrentFile);
        MakeWall(columns, rows, width, height);
        Show.StatusFlags.Clear(Status::SaveToCurrentFile);
    }
    QSize WallSize() { return Find<QWidget>("frmWand", "picWand")->size(); }
    QMdiSubWindow* Frame() { return qobject_cast<QMdiSubWindow*>(main->Wand->parentWidget()); }
    QRect FreeArea() { return Frame()->mdiArea()->viewport()->rect(); }
    QScrollArea* Scrolled() { return main->Wand->findChild<QScrollArea*>(); }
    // True when nothing of the field lies outside the window's view.
    bool InView(int element) {
        const QWidget* view = Scrolled()->viewport();
        return view->rect().contains(
            QRect(Element(element)->mapTo(view, QPoint()), Element(element)->size()));
    }
    // Clicks on the lower or right end of a scroll bar until it stands there.
    static void ScrollToEnd(QScrollBar* bar) {
        ASSERT_TRUE(bar->isVisible());
        const QPoint end = bar->rect().bottomRight() - QPoint(3, 3);
        for (int click = 0; click < 200 && bar->value() < bar->maximum(); ++click)
            QTest::mouseClick(bar, Qt::LeftButton, {}, end);
        EXPECT_EQ(bar->value(), bar->maximum());
    }
};

TEST_F(WallPlacing, DefaultWallHasFieldsOf40x80PixelsInAWindowOf440x436) {
    StartWithRoom();
    MakeWall(10, 5, 600, 1200);
    main->Wand->Open();
    for (int element = 1; element <= 50; ++element) EXPECT_EQ(Element(element)->size(), QSize(40, 80));
    EXPECT_EQ(WallSize(), QSize(400, 400));
    EXPECT_EQ(main->Wand->size(), QSize(440, 436));
}

TEST_F(WallPlacing, ElevenByElevenWallHasAWindowOf488x1012) {
    StartWithRoom();
    MakeWall(11, 11, 600, 1200);
    main->Wand->Open();
    EXPECT_EQ(Element(121)->geometry(), QRect(400, 800, 40, 80));
    EXPECT_EQ(WallSize(), QSize(440, 880));
    EXPECT_EQ(main->Wand->size(), QSize(488, 1012)); // 488.4
}

TEST_F(WallPlacing, OneByOneWallIsAsHighAsItsFieldAndStatusLine) {
    StartWithRoom();
    MakeWall(1, 1, 600, 1200);
    main->Wand->Open();
    EXPECT_EQ(Element(1)->geometry(), QRect(0, 0, 40, 80));
    EXPECT_EQ(WallSize(), QSize(40, 80));
    EXPECT_EQ(main->Wand->height(), 80 + main->Wand->lblStatus->height()); // by the formula only 84
}

TEST_F(WallPlacing, EdgesOfTheFieldsAreRoundedHalvesToEven) {
    StartWithRoom();
    MakeWall(4, 4, 615, 610, 200); // 20.5 x 20.33 pixels
    EXPECT_EQ(Element(16)->geometry(), QRect(QPoint(62, 61), QPoint(81, 80)));
    for (const auto& [element, edge] : std::vector<std::pair<int, int>>{{2, 20}, {3, 41}, {4, 62}})
        EXPECT_EQ(Element(element)->x(), edge);
    for (const auto& [element, edge] : std::vector<std::pair<int, int>>{{5, 20}, {9, 41}, {13, 61}})
        EXPECT_EQ(Element(element)->y(), edge);
    EXPECT_EQ(WallSize(), QSize(82, 81));
}

TEST_F(WallPlacing, WallIsNoPixelShortWhereItsLengthHasNoExactNumber) {
    StartWithRoom();
    MakeWall(11, 11, 600, 600, 110); // 36.36 pixels, of which 11 are 399.99999999999994
    EXPECT_EQ(WallSize(), QSize(400, 400));
    EXPECT_EQ(Element(121)->geometry().bottomRight(), QPoint(399, 399));
}

TEST_F(WallPlacing, FieldsLieGaplessRowByRowFromTheTopLeft) {
    StartProgram();
    MakeWall(4, 3, 610, 605); // 40.67 x 40.33 pixels
    main->Wand->Open();
    for (int element = 1; element <= 12; ++element) {
        QWidget* field = Element(element);
        ASSERT_NE(field, nullptr);
        const bool first = element % 4 == 1;
        EXPECT_EQ(field->x(), first ? 0 : Element(element - 1)->geometry().right() + 1);
        EXPECT_EQ(field->y(), element <= 4 ? 0 : Element(element - 4)->geometry().bottom() + 1);
    }
}

TEST_F(WallPlacing, FieldIsNeverTooSmallToSeeWhateverTheFileSays) {
    StartProgram();
    MakeWall(3, 3, 0, -500);
    main->Wand->Open();
    EXPECT_EQ(Element(9)->size(), QSize(8, 8));
    EXPECT_EQ(Show.WallAreaHeight, -500);
}

TEST_F(WallPlacing, FieldOfNegativeSizeIsDrawnAsTheSmallest) {
    StartWithRoom();
    MakeWall(3, 2, 600, 1200, -100);
    main->Wand->Open();
    EXPECT_EQ(Element(6)->geometry(), QRect(16, 8, 8, 8));
    EXPECT_EQ(Show.ElementSize, -100);
}

TEST_F(WallPlacing, WholeWallIsNeverMoreThanAWidgetCanHold) {
    constexpr int huge = std::numeric_limits<std::int32_t>::max();
    StartWithRoom();
    MakeWall(11, 11, huge, huge, 1);
    main->Wand->Open();
    EXPECT_EQ(WallSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    for (const int element : {1, 61, 121}) {
        EXPECT_NEAR(Element(element)->width(), QWIDGETSIZE_MAX / 11, 1) << element;
        EXPECT_NEAR(Element(element)->height(), QWIDGETSIZE_MAX / 11, 1) << element;
    }
    EXPECT_EQ(Element(121)->geometry().bottomRight(), QPoint(QWIDGETSIZE_MAX - 1, QWIDGETSIZE_MAX - 1));
}

TEST_F(WallPlacing, SmallWallStillShowsItsStatusLine) {
    StartProgram();
    MakeWall(1, 1, 600, 1200);
    main->Wand->Open();
    EXPECT_GE(main->Wand->lblStatus->y(), Element(1)->height());
    EXPECT_GE(main->Wand->height(), Element(1)->height() + main->Wand->lblStatus->height());
}

TEST_F(WallPlacing, HugeWallStaysWithinTheMainWindow) {
    StartProgram();
    MakeWall(11, 11, 30000, 30000);
    main->Wand->Open();
    const QWidget* frame = main->Wand->parentWidget();
    EXPECT_LE(frame->width(), frame->parentWidget()->width());
    EXPECT_LE(frame->height(), frame->parentWidget()->height());
}

TEST_F(WallPlacing, EveryFieldOfAHugeWallIsReachedByTheScrollBars) {
    StartWithHugeWall();
    ASSERT_FALSE(InView(121));
    ScrollToEnd(Scrolled()->verticalScrollBar());
    ScrollToEnd(Scrolled()->horizontalScrollBar());
    EXPECT_TRUE(InView(121));
    QTest::mouseClick(main->windowHandle(), Qt::LeftButton, {},
                      Element(121)->mapTo(main.get(), Element(121)->rect().center()));
    EXPECT_EQ(Selected(), (Elements{121}));
}

TEST_F(WallPlacing, FieldThatTheFrameMovesToIsScrolledIntoView) {
    StartWithHugeWall();
    Key(Qt::Key_Home);
    for (int field = 0; field < 10; ++field) Key(Qt::Key_Right);
    EXPECT_TRUE(InView(11));
    for (int field = 0; field < 10; ++field) Key(Qt::Key_Down);
    EXPECT_TRUE(InView(121));
    EXPECT_FALSE(InView(1));
    Key(Qt::Key_Home);
    EXPECT_TRUE(InView(1));
    Key(Qt::Key_End);
    EXPECT_TRUE(InView(121));
}

TEST_F(WallPlacing, WallThatIsOnlyTooHighHasAScrollBarBesideItAndNoneBelow) {
    StartWithWall(5, 30);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Scrolled()->verticalScrollBar()->isVisible());
    EXPECT_FALSE(Scrolled()->horizontalScrollBar()->isVisible());
    EXPECT_TRUE(InView(5));
}

TEST_F(WallPlacing, RestoredWallIsPlacedWithLeftAndTopSwapped) {
    StartProgram();
    Show.WindowPos[WallWindow][PosLeft] = 300;
    Show.WindowPos[WallWindow][PosTop] = 600;
    Show.WindowPos[WallWindow][PosWidth] = 4500;
    Show.WindowPos[WallWindow][PosHeight] = 3000;
    RestoreWall(3, 2, 600, 600);
    main->Wand->Open();
    EXPECT_EQ(main->Wand->parentWidget()->pos(), QPoint(40, 20));
    EXPECT_EQ(main->Wand->size(), QSize(300, 200));
}

TEST_F(WallPlacing, RestoredWallWithoutAStoredSizeHasThatOfTheFormula) {
    StartWithRoom();
    for (const QSize& stored : {QSize(0, 0), QSize(0, 200), QSize(300, 0), QSize(-1, 200), QSize(300, -1)})
        for (const bool open : {false, true}) {
            Frame()->close();
            if (open) main->Wand->Open();
            StorePlace(WallWindow, QRect(QPoint(20, 40), stored));
            RestoreWall(10, 5, 600, 1200);
            main->Wand->Open();
            EXPECT_EQ(Frame()->pos(), QPoint(40, 20)) << stored.width() << " " << stored.height();
            EXPECT_EQ(main->Wand->size(), QSize(440, 436)) << stored.width() << " " << stored.height();
        }
}

TEST_F(WallPlacing, RestoredWallThatWouldLieOutsideIsMovedIntoView) {
    StartWithRoom();
    main->Wand->Open();
    for (const QPoint& stored : {QPoint(5000, 50), QPoint(-5000, 50), QPoint(50, 5000), QPoint(50, -5000)}) {
        StorePlace(WallWindow, QRect(stored, QSize(300, 200)));
        RestoreWall(3, 2, 600, 600);
        EXPECT_TRUE(FreeArea().contains(Frame()->geometry())) << stored.x() << " " << stored.y();
        EXPECT_EQ(main->Wand->size(), QSize(300, 200));
    }
}

} // namespace quorvane
