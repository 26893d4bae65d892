// What the windows inside the main window have in common, on each of them.
#include "ui/wallbench.h"

#include "model/screen.h"
#include "ui/frmColor.h"
#include "ui/frmControl.h"
#include "ui/frmDMX.h"
#include "ui/frmElement.h"
#include "ui/frmOptions.h"
#include "ui/geometry.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace quorvane {

class ChildWindowTest : public WallBench {
protected:
    // Within an area that holds every window a little larger than it opens.
    void Start() {
        StartWithWall(3, 2);
        main->resize(1200, 900);
    }
    struct Child {
        WindowNumber Number;
        ChildWindow* Window;
        QMdiSubWindow* Frame() const { return qobject_cast<QMdiSubWindow*>(Window->parentWidget()); }
    };

    std::vector<Child> Children() {
        return {{WallWindow, main->Wand},       {ColourWindow, main->Color}, {SequencerWindow, main->Control},
                {ElementWindow, main->Element}, {TestWindow, main->Dmx},     {OptionsWindow, main->Options}};
    }
    // Opens the window and moves it, so that its place is none that it had before.
    static void OpenAndMove(const Child& child) {
        Screen.OpenWindow(child.Number);
        child.Frame()->move(33, 44);
        child.Frame()->resize(child.Frame()->size() + QSize(9, 7));
    }
    static std::vector<int> Stored(const Child& child) {
        const auto& place = Show.WindowPos[child.Number];
        return {place[PosLeft], place[PosTop], place[PosWidth], place[PosHeight]};
    }
    static std::vector<int> Place(const Child& child) {
        return {33 * 15, 44 * 15, child.Window->width() * 15, child.Window->height() * 15};
    }
};

TEST_F(ChildWindowTest, ClosingStoresTheWholePlace) {
    Start();
    for (const Child& child : Children()) {
        SCOPED_TRACE(child.Window->objectName().toStdString());
        OpenAndMove(child);
        const auto place = Place(child);
        child.Frame()->close();
        EXPECT_EQ(Stored(child), place);
    }
}

TEST_F(ChildWindowTest, WindowClosedWhileMaximisedComesBackInItsNormalPlace) {
    Start();
    for (const Child& child : Children()) {
        SCOPED_TRACE(child.Window->objectName().toStdString());
        OpenAndMove(child);
        const auto place = Place(child);
        const QSize size = child.Window->size();
        child.Frame()->showMaximized();
        ASSERT_NE(child.Window->size(), size);
        child.Frame()->close();
        EXPECT_EQ(Stored(child), place);
        Screen.OpenWindow(child.Number);
        EXPECT_FALSE(child.Frame()->isMaximized());
        EXPECT_EQ(child.Frame()->pos(), QPoint(33, 44));
        EXPECT_EQ(child.Window->size(), size);
        child.Frame()->close();
    }
}

TEST_F(ChildWindowTest, WindowClosedWhileMinimisedComesBackInItsNormalPlace) {
    Start();
    for (const Child& child : Children()) {
        SCOPED_TRACE(child.Window->objectName().toStdString());
        OpenAndMove(child);
        const auto place = Place(child);
        const QSize size = child.Window->size();
        child.Frame()->showMinimized();
        child.Frame()->close();
        EXPECT_EQ(Stored(child), place);
        Screen.OpenWindow(child.Number);
        EXPECT_TRUE(child.Window->isVisible());
        EXPECT_EQ(child.Frame()->pos(), QPoint(33, 44));
        EXPECT_EQ(child.Window->size(), size);
        child.Frame()->close();
    }
}

TEST_F(ChildWindowTest, StoredPlaceIsKeptWhereItIsSeenAndMovedIntoViewWhereItIsNot) {
    struct Case {
        QPoint Stored;
        bool Kept;
    };
    Start();
    for (const Child& child : Children()) {
        Screen.OpenWindow(child.Number);
        const QSize size = child.Window->size();
        for (const Case& c : {Case{{33, 44}, true}, Case{{-100, 44}, true}, // partly outside, as it was left
                              Case{{5000, 44}, false}, Case{{-5000, 44}, false}, Case{{33, 5000}, false},
                              Case{{33, -5000}, false}}) {
            SCOPED_TRACE(child.Window->objectName().toStdString() + " " + std::to_string(c.Stored.x()) + " " +
                         std::to_string(c.Stored.y()));
            child.Frame()->close();
            StorePlace(child.Number, {c.Stored, size});
            Screen.OpenWindow(child.Number);
            const QRect area = child.Frame()->mdiArea()->viewport()->rect();
            EXPECT_EQ(child.Frame()->pos() == c.Stored, c.Kept);
            EXPECT_TRUE(c.Kept || area.contains(child.Frame()->geometry()));
            EXPECT_EQ(child.Window->size(), size);
        }
        child.Frame()->close();
    }
}

TEST_F(ChildWindowTest, EndOfTheProgramStoresTheNormalPlaceOfEveryWindow) {
    for (const bool minimised : {false, true}) {
        Start();
        std::vector<std::vector<int>> places;
        for (const Child& child : Children()) {
            OpenAndMove(child);
            places.push_back(Place(child));
            minimised ? child.Frame()->showMinimized() : child.Frame()->showMaximized();
            child.Frame()->mdiArea()->setActiveSubWindow(nullptr);
        }
        Show.ChangeFlags = {};
        EXPECT_TRUE(CloseProgram());
        std::size_t at = 0;
        for (const Child& child : Children()) EXPECT_EQ(Stored(child), places[at++]) << minimised;
        main.reset();
        Show = ShowState{};
        Write("QUORVANE.ini", "");
    }
}

} // namespace quorvane
