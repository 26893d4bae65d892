// Where the wall window and its fields stand, and how large they are.
#include "ui/wallbench.h"

namespace quorvane {

using WallPlacing = WallBench;

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

TEST_F(WallPlacing, RestoredWallIsPlacedWithLeftAndTopSwapped) {
    StartProgram();
    Show.WindowPos[WallWindow][PosLeft] = 300;
    Show.WindowPos[WallWindow][PosTop] = 600;
    Show.WindowPos[WallWindow][PosWidth] = 4500;
    Show.WindowPos[WallWindow][PosHeight] = 3000;
    Show.StatusFlags.Set(Status::SaveToCurrentFile);
    MakeWall(3, 2);
    Show.StatusFlags.Clear(Status::SaveToCurrentFile);
    main->Wand->Open();
    EXPECT_EQ(main->Wand->parentWidget()->pos(), QPoint(40, 20));
    EXPECT_EQ(main->Wand->size(), QSize(300, 200));
}

} // namespace quorvane
