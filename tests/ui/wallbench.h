// A started program with a wall in its wall window, for tests of what is done with elements.
#pragma once

#include "ui/windowbench.h"

#include "model/wall.h"
#include "ui/frmWand.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace quorvane {

class WallBench : public WindowBench {
protected:
    // Starts the program and opens the wall window with a wall of 40 x 40 pixel fields and no unsaved work.
    void StartWithWall(int columns, int rows) {
        StartProgram();
        MakeWall(columns, rows);
        main->Wand->Open();
    }
    void MakeWall(int columns, int rows, int width = 600, int height = 600, int size = 100) {
        Show.WallColumns = static_cast<std::uint8_t>(columns);
        Show.WallRows = static_cast<std::uint8_t>(rows);
        Show.WallAreaWidth = width;
        Show.WallAreaHeight = height;
        Show.ElementSize = size;
        NeueWandInit();
        Show.ChangeFlags = {};
    }
    QWidget* Element(int element) {
        return Find<QWidget>("frmWand", ("lblElement(" + std::to_string(element - 1) + ")").c_str());
    }
    // The colour of an element's field as it stands on the screen, beside its number.
    QColor ShownColour(int element) { return OnScreen(Element(element)).pixelColor(4, 4); }
    // True when the field's number, or its frame, has a pixel of exactly this colour.
    bool Shows(int element, const QColor& colour) {
        const QImage image = OnScreen(Element(element));
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == colour) return true;
        return false;
    }
    QColor Highlight() { return main->palette().color(QPalette::Highlight); }
    std::string WallStatus() { return main->Wand->lblStatus->text().toStdString(); }
    static std::vector<int> Selected() {
        std::vector<int> elements;
        for (int index = 0; index <= 254; ++index)
            if (Show.ElementSelected[index] == 1) elements.push_back(index + 1);
        return elements;
    }
    // Presses a button over a field of the wall. The menu that opens is modal; act is what is done in it.
    void InPopUp(int element, const std::function<void(QMenu*)>& act,
                 Qt::MouseButton button = Qt::RightButton) {
        bool opened = false;
        QTimer::singleShot(0, main.get(), [&opened, &act] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr) << "No menu opened";
            opened = true;
            act(menu);
            menu->close();
        });
        QTest::mouseClick(Element(element), button, {}, QPoint(3, 4));
        EXPECT_TRUE(opened) << "The press came back while the menu was open";
    }
    // Chooses an entry of the wall's pop-up, or of a menu in it, by mouse.
    void ChooseInPopUp(int element, const char* name) {
        InPopUp(element, [this, name](QMenu* menu) {
            QAction* entry = Entry(name);
            auto* holder = qobject_cast<QMenu*>(entry->parent());
            if (holder != menu)
                QTest::mouseClick(menu, Qt::LeftButton, {},
                                  menu->actionGeometry(holder->menuAction()).center());
            ASSERT_TRUE(QTest::qWaitFor([holder] { return holder->isVisible(); }))
                << "The menu of " << name << " did not open";
            QTest::mouseClick(holder, Qt::LeftButton, {}, holder->actionGeometry(entry).center());
        });
    }
    // A key as it comes from the keyboard: to whatever has the focus.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(main->windowHandle(), key, modifiers);
    }
    void Type(const char* text) {
        for (const char c : std::string(text)) QTest::keyClick(main->windowHandle(), c);
    }

    using Elements = std::vector<int>;
};

} // namespace quorvane
