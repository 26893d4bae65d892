// A plug-in for the running program, for scripts that work in it from outside: it tells where a window, a
// control or a menu entry stands on the screen, and takes pictures of windows. Asked on standard input, a
// line each, it answers on standard output, a line each, and does nothing unasked:
//
//     where WINDOW [CONTROL]    X Y WIDTH HEIGHT in pixels of the screen, or none while it is not seen
//     picture WINDOW FILE       WIDTH HEIGHT of the window with its frame, or none
//
// The names are the object names. Menus and their entries stand alone, a dialog of the toolkit goes by its
// class, and a button or a tab also by its caption behind "=".
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGenericPlugin>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QSocketNotifier>
#include <QTabBar>
#include <QTextStream>
#include <QWidget>

#include <iostream>
#include <optional>
#include <string>

namespace {

QWidget* WidgetNamed(const QString& name) {
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->isVisible() &&
            (widget->objectName() == name || name == widget->metaObject()->className()))
            return widget;
    return nullptr;
}

QRect OnScreen(const QWidget* widget, const QRect& part) {
    return {widget->mapToGlobal(part.topLeft()), part.size()};
}

// The entry where a menu or the menu bar shows it now.
std::optional<QRect> PlaceOfEntry(const QString& name) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible()) continue;
        for (QAction* action : widget->actions()) {
            const bool named =
                action->objectName() == name || (action->menu() && action->menu()->objectName() == name);
            if (!named) continue;
            if (auto* menu = qobject_cast<QMenu*>(widget))
                return OnScreen(menu, menu->actionGeometry(action));
            if (auto* bar = qobject_cast<QMenuBar*>(widget))
                return OnScreen(bar, bar->actionGeometry(action));
        }
    }
    return std::nullopt;
}

// A control by its name, or a button by its caption behind "=".
QWidget* ControlOf(QWidget* window, const QString& name) {
    for (auto* control : window->findChildren<QWidget*>()) {
        if (!control->isVisible()) continue;
        const auto* button = qobject_cast<QAbstractButton*>(control);
        if (control->objectName() == name) return control;
        if (button && '=' + button->text().remove('&') == name) return control;
    }
    return nullptr;
}

std::optional<QRect> PlaceOfTab(const QWidget* window, const QString& name) {
    for (const auto* tabs : window->findChildren<QTabBar*>())
        for (int tab = 0; tabs->isVisible() && tab < tabs->count(); ++tab)
            if ('=' + tabs->tabText(tab).remove('&') == name) return OnScreen(tabs, tabs->tabRect(tab));
    return std::nullopt;
}

std::optional<QRect> PlaceOf(const QString& window, const QString& control) {
    if (control.isEmpty())
        if (const auto entry = PlaceOfEntry(window)) return entry;
    QWidget* widget = WidgetNamed(window);
    if (widget && !control.isEmpty()) {
        if (const auto tab = PlaceOfTab(widget, control)) return tab;
        widget = ControlOf(widget, control);
    }
    if (!widget) return std::nullopt;
    return OnScreen(widget, widget->rect());
}

QWidget* Framed(QWidget* window) {
    auto* frame = qobject_cast<QMdiSubWindow*>(window->parentWidget());
    return frame ? frame : window;
}

class Eye : public QObject {
public:
    Eye() : lines(stdin) {
        auto* notifier = new QSocketNotifier(0, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
            const QString line = lines.readLine();
            if (line.isNull())
                notifier->setEnabled(false); // nobody asks any more
            else
                Answer(line.split(' '));
        });
    }

private:
    static void Answer(const QStringList& words) {
        if (words.value(0) == "where") {
            const auto place = PlaceOf(words.value(1), QStringList(words.mid(2)).join(' '));
            const qreal scale = qApp->devicePixelRatio();
            if (place)
                std::cout << place->x() * scale << ' ' << place->y() * scale << ' ' << place->width() * scale
                          << ' ' << place->height() * scale << std::endl;
            else
                std::cout << "none" << std::endl;
        } else if (QWidget* window = WidgetNamed(words.value(1))) {
            const QPixmap picture = Framed(window)->grab();
            picture.save(words.value(2));
            std::cout << picture.width() << ' ' << picture.height() << std::endl;
        } else
            std::cout << "none" << std::endl;
    }

    QTextStream lines;
};

} // namespace

class EyePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "eye.json")
public:
    QObject* create(const QString&, const QString&) override { return new Eye; }
};

#include "eye.moc"
