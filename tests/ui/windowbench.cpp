#include "ui/windowbench.h"

#include "engine/outputclock.h"
#include "model/afterframe.h"
#include "model/screen.h"
#include "ui/questions.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace quorvane {

WindowBench::WindowBench() {
    Show = ShowState{};
    Screen = ScreenCalls{};
    Host = HostCalls{};
    Host.ProgramFolder = QDir::toNativeSeparators(Folder.path()).toStdString();
    Write("QUORVANE.ini", ""); // empty settings: nothing to restore, nothing to complain about
    AskByDialogs();
    Host.Beep = [this] { ++Beeps; };
    Host.DoEvents = [this, now = 0.0]() mutable {
        Host.Seconds = [now = now += 0.01] { return now; };
        if (whileWaiting) std::exchange(whileWaiting, nullptr)();
        QCoreApplication::processEvents();
        return !main->ClosePending();
    };
    Host.ServeEvents = [this] {
        QCoreApplication::processEvents();
        return !main->ClosePending();
    };
    Host.ReadSetting = [this](std::string_view section, std::string_view key, std::string_view fallback) {
        const auto found = Settings.find(std::string(section) + "/" + std::string(key));
        return found == Settings.end() ? std::string(fallback) : found->second;
    };
    Host.WriteSetting = [this](std::string_view section, std::string_view key, std::string_view value) {
        Settings[std::string(section) + "/" + std::string(key)] = std::string(value);
    };
    Host.DasHardCommand = [this](std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
        if (command == 4) Frames.emplace_back(buffer, buffer + parameter);
        return command == 1 ? UsbKind : 0;
    };
    WatchForDialogs();
}

WindowBench::~WindowBench() {
    EXPECT_FALSE(whileWaiting) << "The program did not wait";
    EXPECT_TRUE(reactions.empty()) << "A dialog that was expected did not come";
    main.reset();
    Screen = ScreenCalls{};
    Host = HostCalls{};
}

void WindowBench::StartProgram() {
    main = std::make_unique<MDIHaupt>();
    ASSERT_TRUE(main->MDIForm_Load());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(main.get()));
    QApplication::setActiveWindow(main.get());
}

bool WindowBench::CloseProgram() { return main->close(); }

QWidget* WindowBench::Window(const char* name) {
    if (main->objectName() == name) return main.get();
    auto* window = main->findChild<QWidget*>(name);
    EXPECT_NE(window, nullptr) << "There is no window " << name;
    return window;
}

QAction* WindowBench::Entry(const char* name) {
    auto* action = main->findChild<QAction*>(name);
    EXPECT_NE(action, nullptr) << "There is no menu entry " << name;
    return action;
}

void WindowBench::Choose(const char* name) {
    QAction* entry = Entry(name);
    ASSERT_NE(entry, nullptr);
    std::vector<QAction*> path{entry}; // from the entry up to the menu bar
    for (auto* menu = qobject_cast<QMenu*>(entry->parent()); menu;
         menu = qobject_cast<QMenu*>(menu->parentWidget()))
        path.push_back(menu->menuAction());
    QTest::mouseClick(main->menuBar(), Qt::LeftButton, {},
                      main->menuBar()->actionGeometry(path.back()).center());
    for (std::size_t level = path.size() - 1; level > 0; --level) {
        QMenu* menu = path[level]->menu();
        QTest::qWait(0);
        ASSERT_TRUE(menu->isVisible()) << "The menu of " << name << " did not open";
        const QRect place = menu->actionGeometry(path[level - 1]);
        QTest::mouseMove(menu, place.center());
        QTest::mouseClick(menu, Qt::LeftButton, {}, place.center());
    }
    QTest::qWait(0);
}

void WindowBench::Click(QWidget* widget, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
    ASSERT_NE(widget, nullptr);
    QTest::mouseClick(widget, button, modifiers);
}

void WindowBench::WhenAsked(std::function<void(QDialog*)> act) { reactions.push_back(std::move(act)); }

void WindowBench::Answer(QMessageBox::StandardButton button) {
    WhenAsked([button](QDialog* asked) {
        auto* box = qobject_cast<QMessageBox*>(asked);
        ASSERT_NE(box, nullptr) << "A message box was expected";
        ASSERT_NE(box->button(button), nullptr)
            << "The box has no such button: " << box->text().toStdString();
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
}

void WindowBench::ChooseFile(const std::string& name) {
    WhenAsked([name](QDialog* asked) {
        auto* files = qobject_cast<QFileDialog*>(asked);
        ASSERT_NE(files, nullptr) << "A file dialog was expected";
        if (name.empty()) {
            QTest::keyClick(files, Qt::Key_Escape);
            return;
        }
        auto* line = files->findChild<QLineEdit*>("fileNameEdit");
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, QString::fromStdString(name));
        QTest::keyClick(line, Qt::Key_Enter);
    });
}

// A new look is due before each is taken, since a dialog may open another out of what is done with it.
void WindowBench::WatchForDialogs() {
    QTimer::singleShot(0, &watch, [this] {
        WatchForDialogs();
        LookForDialog();
    });
}

void WindowBench::LookForDialog() {
    auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!modal || !modal->isVisible()) return;
    std::erase(dialogs, nullptr);
    if (std::find(dialogs.begin(), dialogs.end(), modal) != dialogs.end()) return;
    dialogs.emplace_back(modal);
    if (auto* box = qobject_cast<QMessageBox*>(modal))
        Boxes.push_back({box->windowTitle().toStdString(), box->text().toStdString(), box->icon()});
    if (reactions.empty()) {
        ADD_FAILURE() << "Nobody answered: " << modal->windowTitle().toStdString() << " "
                      << (Boxes.empty() ? "" : Boxes.back().Text);
        modal->reject();
        return;
    }
    const auto act = reactions.front();
    reactions.pop_front();
    act(modal);
    if (modal == QApplication::activeModalWidget() && modal->isVisible()) {
        ADD_FAILURE() << "The dialog is still open: " << modal->windowTitle().toStdString();
        modal->reject();
    }
    std::erase(dialogs, modal); // some dialogs are kept, and come again
}

QImage WindowBench::OnScreen(const QWidget* widget) {
    QCoreApplication::processEvents(); // what has changed is asked to be drawn
    QCoreApplication::processEvents(); // and drawn
    const QWidget* window = widget->window();
    const QPoint place = widget->mapTo(window, QPoint());
    return window->screen()
        ->grabWindow(window->winId(), place.x(), place.y(), widget->width(), widget->height())
        .toImage();
}

void WindowBench::Ticks(int count) {
    for (int tick = 0; tick < count; ++tick)
        if (Show.AutoXmit.Enabled) FrameFirst(AutoXmit_Timer);
}

void WindowBench::Write(const std::string& name, const std::string& bytes) {
    const QString path = Folder.filePath(QString::fromStdString(name));
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string WindowBench::Read(const std::string& name) {
    QFile file(Folder.filePath(QString::fromStdString(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll().toStdString();
}

} // namespace quorvane
