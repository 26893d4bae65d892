// The options window over a block of known words.
#pragma once

#include "ui/windowbench.h"

#include "model/wall.h"
#include "ui/field.h"
#include "ui/frmOptions.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>

namespace quorvane {

using TextList = std::vector<std::string>;

class OptionsWindowTest : public WindowBench {
protected:
    ~OptionsWindowTest() override { QLocale::setDefault(QLocale::c()); }

    // The program with the interface of that type, the options open.
    void OpenOptions(int type) {
        Settings["Interface/Type"] = std::to_string(type);
        if (type == 0) Answer(QMessageBox::Ok);
        StartProgram();
        Show.DmxIni.Fill(0);
        int word = 0;
        for (const int value : {60, 12, 3, 228, 1, 0, 7})
            Show.DmxIni[word++] = static_cast<std::int16_t>(value);
        Show.StatusFlags.Clear(Status::AutoChannelCount);
        Show.ChannelCount = 484;
        Show.DmxIniDirty = 0;
        Boxes.clear();
        Choose("mnuOptions");
        options = main->Options;
        ASSERT_TRUE(options->isVisible());
    }
    Field* Text(int index) { return options->txtDMX.at(static_cast<std::size_t>(index)); }
    Field* Path(int index) { return options->txtPath.at(static_cast<std::size_t>(index)); }
    static std::string Shown(const QLineEdit* field) { return field->text().toStdString(); }
    TextList Shown() {
        TextList texts;
        for (const Field* field : options->txtDMX) texts.push_back(Shown(field));
        return texts;
    }
    std::vector<bool> Enabled() {
        std::vector<bool> enabled;
        for (int index = 0; index <= 5; ++index) enabled.push_back(Text(index)->isEnabled());
        return enabled;
    }
    void Tab(int position) {
        QTest::mouseClick(options->tbsOptions, Qt::LeftButton, {},
                          options->tbsOptions->tabRect(position).center());
    }
    static void Type(Field* field, const char* text) {
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
    // Types into a field and leaves it by Tab; a message that comes of it is seen before this returns.
    void Enter(int index, const char* text) {
        Type(Text(index), text);
        QTest::keyClick(Text(index), Qt::Key_Tab);
        QTest::qWait(0);
        QTest::qWait(0);
        Return();
    }
    // The main window is the active one again; no window manager does it here.
    void Return() { QApplication::setActiveWindow(main.get()); }
    TextList Messages() {
        TextList texts;
        for (const SeenBox& box : Boxes) texts.push_back(box.Text);
        return texts;
    }
    void MakeWall(int columns, int rows) {
        Show.WallColumns = static_cast<std::uint8_t>(columns);
        Show.WallRows = static_cast<std::uint8_t>(rows);
        Show.WallAreaWidth = 600;
        Show.WallAreaHeight = 1200;
        NeueWandInit();
        Show.ChangeFlags = {};
    }

    frmOptions* options = nullptr;
    const std::string repeatAdvice = " Beim Sende repeat sollte der Wert 50 unbedingt beibehalten werden!";
};

} // namespace quorvane
