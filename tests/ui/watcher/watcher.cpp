// A generic plug-in of the toolkit that looks over the shoulder of a program which a test has started: it
// writes down every message box before it presses its default button, and the main window's caption once that
// is shown. One line each, to the file that WATCHER_LOG names.
#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QMessageBox>
#include <QTimer>

namespace {

class Watcher : public QObject {
public:
    Watcher() {
        QObject::connect(&look, &QTimer::timeout, this, [this] { Look(); });
        look.start(10);
    }

private:
    static void Note(const QString& line) {
        QFile log(qEnvironmentVariable("WATCHER_LOG"));
        if (log.open(QIODevice::Append)) log.write((line + "\n").toUtf8());
    }
    void Look() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && !box->buttons().isEmpty()) {
            Note("box " + box->text());
            box->buttons().constFirst()->click();
            return;
        }
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (qobject_cast<const QMainWindow*>(window) && window->isVisible() && !shown) {
                shown = true;
                Note("caption " + window->windowTitle());
            }
    }

    QTimer look;
    bool shown = false;
};

class WatcherPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "watcher.json")

public:
    QObject* create(const QString&, const QString&) override { return new Watcher; }
};

} // namespace

#include "watcher.moc"
