// The bench on which the windows are tested: the real main window with all it holds, driven by real
// clicks, keys and focus changes, on a machine with nothing attached. Message boxes and file dialogs are
// the real ones too; what a user would do with the next one is queued before the step that opens it.
// Nothing ticks by itself: Ticks() is the heartbeat.
#pragma once

#include "model/show.h"
#include "platform/host.h"
#include "ui/MDIHaupt.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quorvane {

// A message box as it was seen.
struct SeenBox {
    std::string Title;
    std::string Text;
    QMessageBox::Icon Sign;
};

class WindowBench : public testing::Test {
protected:
    WindowBench();
    ~WindowBench() override;

    // Starts the program with what stands in Settings and in the program folder, and shows it.
    void StartProgram();
    // Asks for the program's end as a user does. False when the window is still there.
    bool CloseProgram();

    // The control of that object name below a window, visible or not; its absence fails the test.
    template<class Control> Control* Find(const char* window, const char* name) {
        QWidget* in = Window(window);
        auto* control = in ? in->findChild<Control*>(name) : nullptr;
        EXPECT_NE(control, nullptr) << window << " has no " << name;
        return control;
    }
    QWidget* Window(const char* name); // MDIHaupt itself or a window inside it
    QAction* Entry(const char* name);
    // Chooses a menu entry by opening its menus one after the other with the mouse.
    void Choose(const char* name);
    void Click(QWidget* widget, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton);

    // What the user will do with the next modal dialog. It must end that dialog.
    void WhenAsked(std::function<void(QDialog*)> act);
    // The next message box is left by this button.
    void Answer(QMessageBox::StandardButton button);
    // The next file dialog is given this name, or is cancelled when it is empty.
    void ChooseFile(const std::string& name);

    // What happens once, when the program waits and lets events run.
    void WhileWaiting(std::function<void()> act) { whileWaiting = std::move(act); }

    // What stands on the screen of a widget: nothing is painted for the question.
    QImage OnScreen(const QWidget* widget);

    void Ticks(int count);
    void Write(const std::string& name, const std::string& bytes);
    std::string Read(const std::string& name);
    std::string Caption() { return main->windowTitle().toStdString(); }

    QTemporaryDir Folder; // the program folder
    std::map<std::string, std::string> Settings{{"Interface/Type", "3"}};
    std::int32_t UsbKind = 10;                     // what the USB library answers to its open command
    std::vector<std::vector<std::uint8_t>> Frames; // handed to the USB library
    std::vector<SeenBox> Boxes;                    // all message boxes, in order
    int Beeps = 0;
    std::unique_ptr<MDIHaupt> main;

private:
    void WatchForDialogs();
    void LookForDialog();

    QObject watch;                          // while it lives, dialogs are looked for
    std::vector<QPointer<QWidget>> dialogs; // already dealt with; one may stand before another
    std::deque<std::function<void(QDialog*)>> reactions;
    std::function<void()> whileWaiting;
};

} // namespace quorvane
