#include "ui/wallbench.h"

#include "engine/outputclock.h"
#include "engine/sequencer.h"
#include "model/afterframe.h"
#include "model/colour.h"

#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace quorvane {

// What of a widget is drawn from now on.
class DrawnRegion : public QObject {
public:
    explicit DrawnRegion(QWidget* widget) {
        QCoreApplication::processEvents();
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) Region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion Region;
};

class WallWindowTest : public WallBench {
protected:
    QWidget* Field(int index) {
        return Find<QWidget>("frmWand", ("lblElement(" + std::to_string(index) + ")").c_str());
    }
    // The colour of a field beside its number.
    QColor Shown(int index) { return OnScreen(Field(index)).pixelColor(2, 2); }
    // A picture cut to what is not black in it.
    static QImage Digits(const QImage& picture) {
        QRect digits;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) != QColor(Qt::black)) digits |= QRect(x, y, 1, 1);
        return picture.copy(digits).convertToFormat(QImage::Format_RGB32);
    }
    // A number in white, by the font of the fields.
    QImage Written(int number) {
        QImage picture(100, 60, QImage::Format_RGB32);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        painter.setFont(Field(0)->font());
        painter.setPen(Qt::white);
        painter.drawText(picture.rect(), Qt::AlignCenter, QString::number(number));
        return Digits(picture);
    }
};

TEST_F(WallWindowTest, FieldIsPaintedWithItsUncorrectedMixedColour) {
    StartProgram();
    MakeWall(2, 1);
    main->Wand->Open();
    Show.ElementValue[2][1] = 200;
    Show.ElementValue[2][4] = 100;
    Show.ColourCorrection[2][1] = 200;
    ShowWallColour(1);
    EXPECT_EQ(Shown(1), QColor(255, 100, 100));
    EXPECT_EQ(Shown(0), QColor(0, 0, 0));
}

TEST_F(WallWindowTest, OnlyFieldsOfAnotherColourAreDrawn) {
    StartProgram();
    MakeWall(4, 3);
    main->Wand->Open();
    DrawnRegion drawn(Find<QWidget>("frmWand", "picWand"));
    Show.ElementValue[2][1] = Show.ElementValue[7][1] = 200;
    for (int index = 0; index < 12; ++index) ShowWallColour(index);
    EXPECT_EQ(Shown(1), QColor(200, 0, 0));
    EXPECT_EQ(Shown(6), QColor(200, 0, 0));
    EXPECT_EQ(drawn.Region, QRegion(Field(1)->geometry()) + Field(6)->geometry());
}

TEST_F(WallWindowTest, TickDrawsTheRectangleAroundTheFieldsItChanged) {
    StartProgram();
    MakeWall(4, 3);
    main->Wand->Open();
    DrawnRegion drawn(Find<QWidget>("frmWand", "picWand"));
    Show.ElementValue[2][1] = Show.ElementValue[7][1] = 200;
    FrameFirst([] {
        for (int index = 0; index < 12; ++index) ShowWallColour(index);
    });
    EXPECT_EQ(Shown(1), QColor(200, 0, 0));
    EXPECT_EQ(Shown(6), QColor(200, 0, 0));
    EXPECT_EQ(drawn.Region, QRegion(Field(1)->geometry() | Field(6)->geometry()));
}

TEST_F(WallWindowTest, PressOnThePictureOfTheWallReachesTheFieldBelow) {
    StartProgram();
    MakeWall(4, 3);
    main->Wand->Open();
    QTest::mouseClick(main->windowHandle(), Qt::LeftButton, {},
                      Field(6)->mapTo(main.get(), Field(6)->rect().center()));
    EXPECT_EQ(main->Wand->lblStatus->text().toStdString(), " Es wurde Element Nr 7 ausgewählt. ");
}

TEST_F(WallWindowTest, WindowWithoutAWallIsBare) {
    StartProgram();
    main->Wand->Open();
    const QImage screen = OnScreen(main->Wand);
    EXPECT_EQ(screen.pixelColor(0, 0), main->palette().color(QPalette::Window));
    EXPECT_TRUE(Find<QWidget>("frmWand", "picWand")->isHidden());
}

TEST_F(WallWindowTest, WallThatIsGoneLeavesNothingOfItsPicture) {
    StartProgram();
    MakeWall(2, 2);
    main->Wand->Open();
    ASSERT_EQ(Shown(3), QColor(0, 0, 0));
    const QWidget* picture = Find<QWidget>("frmWand", "picWand");
    const QRect place(picture->mapTo(main.get(), QPoint()), picture->size());
    RemoveWall();
    const QImage after = OnScreen(main.get()).copy(place);
    const QColor bare = main->palette().color(QPalette::Window);
    EXPECT_EQ(after.pixelColor(0, 0), bare);
    EXPECT_EQ(after.pixelColor(after.width() - 1, after.height() - 1), bare);
}

TEST_F(WallWindowTest, EveryFieldCarriesItsElementsNumber) {
    StartProgram();
    MakeWall(11, 11);
    main->Wand->Open();
    std::vector<QImage> seen;
    for (int index = 0; index < 121; ++index) {
        EXPECT_EQ(Field(index)->accessibleName().toStdString(), "Element " + std::to_string(index + 1));
        const QImage image = Field(index)->grab(QRect(0, 0, 40, 40)).toImage();
        EXPECT_EQ(std::count(seen.begin(), seen.end(), image), 0) << index; // no two are drawn alike
        seen.push_back(image);
    }
}

TEST_F(WallWindowTest, DigitsInTheFieldAreThoseOfItsElementsNumber) {
    StartWithWall(4, 3);
    for (int index = 0; index < 12; ++index) {
        const QImage inner = OnScreen(Field(index)).copy(3, 3, 34, 34); // within the frame of the focus
        EXPECT_EQ(Digits(inner), Written(index + 1)) << index;
        EXPECT_NE(Digits(inner), Written(index)) << index;
    }
}

TEST_F(WallWindowTest, NewWallReplacesAllFieldsOfTheOld) {
    StartProgram();
    MakeWall(11, 11);
    MakeWall(2, 2);
    EXPECT_NE(Field(3), nullptr);
    EXPECT_EQ(main->Wand->findChild<QWidget*>("lblElement(4)"), nullptr);
}

TEST_F(WallWindowTest, CaptionIsTheWallNameWithoutItsPadding) {
    StartProgram();
    Show.WallName = "Bühne links         ";
    MakeWall(1, 1);
    EXPECT_EQ(main->Wand->windowTitle().toStdString(), "Bühne links");
}

TEST_F(WallWindowTest, ClosedAndReopenedWallIsAsItWas) {
    StartProgram();
    MakeWall(3, 2);
    Choose("mnuWand");
    EXPECT_TRUE(Show.StatusFlags.Has(Status::WallWindowOpen));
    main->Wand->parentWidget()->move(30, 20);
    const QSize own = main->Wand->size();
    main->Wand->parentWidget()->close();
    EXPECT_FALSE(Show.StatusFlags.Has(Status::WallWindowOpen));
    EXPECT_EQ(Show.WindowPos[WallWindow][PosLeft], 450);
    EXPECT_EQ(Show.WindowPos[WallWindow][PosTop], 300);
    EXPECT_EQ(Show.WindowPos[WallWindow][PosWidth], own.width() * 15);
    EXPECT_EQ(Show.WindowPos[WallWindow][PosHeight], own.height() * 15);
    EXPECT_EQ(Show.ElementCount, 6);
    Choose("mnuWand");
    EXPECT_TRUE(main->Wand->isVisible());
    EXPECT_EQ(main->Wand->parentWidget()->pos(), QPoint(30, 20));
    EXPECT_NE(Field(5), nullptr);
}

TEST_F(WallWindowTest, ResizeIsRecordedUnlessFilesAreBeingRestored) {
    StartProgram();
    MakeWall(3, 2);
    main->Wand->Open();
    main->Wand->parentWidget()->resize(300, 280);
    const auto width = Show.WindowPos[WallWindow][PosWidth];
    const auto height = Show.WindowPos[WallWindow][PosHeight];
    EXPECT_EQ(width, main->Wand->width() * 15);
    EXPECT_EQ(height, main->Wand->height() * 15);
    Show.StatusFlags.Set(Status::SaveToCurrentFile);
    main->Wand->parentWidget()->resize(350, 290);
    EXPECT_EQ(Show.WindowPos[WallWindow][PosWidth], width);
    EXPECT_EQ(Show.WindowPos[WallWindow][PosHeight], height);
    Show.StatusFlags.Clear(Status::SaveToCurrentFile);
}

TEST_F(WallWindowTest, SizeOfTheMaximisedOrMinimisedWindowIsNotRecorded) {
    StartProgram();
    MakeWall(3, 2);
    main->Wand->Open();
    main->Wand->parentWidget()->resize(300, 280);
    const auto place = Show.WindowPos[WallWindow];
    auto* frame = qobject_cast<QMdiSubWindow*>(main->Wand->parentWidget());
    frame->showMaximized();
    EXPECT_EQ(Show.WindowPos[WallWindow], place);
    frame->showMinimized();
    EXPECT_EQ(Show.WindowPos[WallWindow], place);
}

TEST_F(WallWindowTest, NewWallEndsTheMaximisedWindow) {
    StartProgram();
    MakeWall(3, 2);
    main->Wand->Open();
    auto* frame = qobject_cast<QMdiSubWindow*>(main->Wand->parentWidget());
    const QSize size = main->Wand->size();
    frame->showMaximized();
    MakeWall(3, 2);
    EXPECT_FALSE(frame->isMaximized());
    EXPECT_EQ(main->Wand->size(), size);
}

TEST_F(WallWindowTest, PlayingPaintsEveryBlendTickOnTheWall) {
    StartProgram();
    MakeWall(1, 1);
    main->Wand->Open();
    Show.StepCount = 1;
    Show.CurrentStep = 1;
    Show.StatusFlags.Set(Status::SequenceExists);
    Show.SequenceTimes[1][HoldTime] = 1;
    Show.SequenceTimes[1][BlendTime] = 10;
    for (int channel = 1; channel <= 3; ++channel) Show.SequenceSteps[1][1][channel] = 255;
    Play();
    std::vector<int> reds;
    for (int tick = 0; tick < 12; ++tick) {
        Ticks(1);
        reds.push_back(Shown(0).red());
    }
    EXPECT_EQ(reds, (std::vector<int>{0, 0, 26, 51, 76, 102, 128, 153, 178, 204, 230, 255}));
}

} // namespace quorvane
