// The new wall dialog, opened by its menu entry with or without a wall that is already there.
#pragma once

#include "ui/windowbench.h"

#include "model/wall.h"
#include "ui/field.h"
#include "ui/frmNeueWand.h"

#include <QLabel>
#include <QPushButton>

namespace quorvane {

class NewWallBench : public WindowBench {
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
    // In place of what stands there, without a key.
    void Paste(int index, const char* text) {
        Text(index)->selectAll();
        Text(index)->insert(text);
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

} // namespace quorvane
