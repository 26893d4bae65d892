// Program entry.
#include "app/application.h"
#include "app/heartbeat.h"
#include "app/outside.h"
#include "app/pictures.h"
#include "app/quitsignal.h"
#include "platform/host.h"
#include "platform/monotonicclock.h"
#include "ui/MDIHaupt.h"
#include "ui/icons.h"
#include "ui/questions.h"
#include "ui/theme.h"

#include <QCommandLineParser>
#include <QEventLoop>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

using namespace quorvane;

namespace {

std::optional<std::string> GivenProgramFolder(const QCoreApplication& application) {
    const QCommandLineOption folder("program-folder", "Ordner mit Einstellungen, Treibern und Show-Dateien.",
                                    "Ordner");
    QCommandLineParser parser;
    parser.setApplicationDescription("Quorvane steuert eine Wand aus Farbelementen über DMX-512.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption(folder);
    parser.process(application);
    if (!parser.isSet(folder)) return std::nullopt;
    return parser.value(folder).toStdString();
}

// Waits a moment for events instead of polling at full speed.
void RunEvents() {
    constexpr int momentMs = 5;
    QEventLoop loop;
    QTimer::singleShot(momentMs, &loop, &QEventLoop::quit);
    loop.exec();
}

// A fault in what is restored ends no program: it goes on with what stood before.
bool Start(MDIHaupt& window) {
    try {
        return window.MDIForm_Load();
    } catch (const std::exception& fault) {
        ShowFault(fault);
        window.show();
        return true;
    }
}

} // namespace

int main(int argc, char** argv) {
    const double begin = Seconds();
    BlockQuitSignals();
    Application application(argc, argv);
    QCoreApplication::setApplicationName("Quorvane");
    QCoreApplication::setApplicationVersion("1.21");
    const auto programFolder = GivenProgramFolder(application);
    Heartbeat heartbeat(begin); // so its first beat comes as soon as the show is there, the second soon after

    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QTranslator german;
    if (german.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&german);
    UseDarkTheme(application);
    QApplication::setWindowIcon(ProgramIcon());

    Outside outside(programFolder);
    AskByDialogs([&heartbeat] { heartbeat.WaitForBeat(); });
    MDIHaupt window;
    Host.DoEvents = [&window] {
        RunEvents();
        return !window.ClosePending();
    };
    Host.ServeEvents = [&window] {
        QCoreApplication::processEvents();
        return !window.ClosePending();
    };
    if (!Start(window)) return 1;
    // Not before: what has not been read yet must not be written.
    const QuitSignal quitSignal([&window] { window.CloseFromOutside(); });
    QTimer::singleShot(0, &window, [&outside] {
        PlacePictures(Host.ProgramFolder);
        for (const std::string& message : outside.Messages()) ShowMessage(message);
    });
    return QApplication::exec();
}
