// More than one program at once: real processes beside the program under test, or beside each other.
#include "ui/windowbench.h"

#include "bench/environment.h"
#include "platform/instancelock.h"

#include <QProcess>
#include <QPushButton>
#include <QTabBar>

#include <optional>

namespace quorvane {

namespace {

const std::string SecondTime =
    "Dieses Programm wird zum 2. Mal ausgeführt. DMX-QUORVANE darf auf einem Rechner "
    "nicht mehr als einmal mit DMX-Ausgabe ausgeführt werden. "
    "Interfaceunterstützung wird deaktiviert.";
const std::string Opened = "caption QUORVANE: HALVENOR USBLINK2 Interface opened succesfully";

// A program of its own, with a program folder and settings of its own, in the user's session of the test.
class RealProgram {
public:
    RealProgram() {
        Write("program/QUORVANE.ini", "");
        Write("program/Ausgabe.ini", "[Ausgabe]\nUniversum = 63999\n");
        Write("config/Quorvane/Quorvane.conf", "[Interface]\nType=3\n");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("QT_PLUGIN_PATH", WATCHER_PLUGINS);
        environment.insert("QT_QPA_GENERIC_PLUGINS", "watcher");
        environment.insert("WATCHER_LOG", folder.filePath("log"));
        environment.insert("XDG_CONFIG_HOME", folder.filePath("config"));
        environment.insert("HOME", folder.path());
        environment.insert("ASAN_OPTIONS", "detect_leaks=0"); // of the toolkit at its end
        process.setProcessEnvironment(environment);
        process.start(QUORVANE_PROGRAM, {"--program-folder", folder.filePath("program")});
    }
    ~RealProgram() { End(); }

    void End() {
        if (process.state() == QProcess::NotRunning) return;
        process.terminate();
        if (!process.waitForFinished(10000)) process.kill();
        process.waitForFinished();
    }
    // What its user has seen until its main window was there.
    std::vector<std::string> Seen() {
        std::vector<std::string> lines;
        const bool shown = QTest::qWaitFor(
            [&] {
                lines.clear();
                QFile log(folder.filePath("log"));
                if (log.open(QIODevice::ReadOnly))
                    for (const QByteArray& line : log.readAll().split('\n'))
                        if (!line.isEmpty()) lines.push_back(line.toStdString());
                return !lines.empty() && lines.back().starts_with("caption ");
            },
            30000);
        EXPECT_TRUE(shown) << "The program did not come: " << process.readAllStandardError().toStdString();
        return lines;
    }
    QString ProgramFolder() const { return folder.filePath("program"); }

private:
    void Write(const QString& name, const char* text) {
        const QString path = folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) >= 0);
    }

    QTemporaryDir folder;
    QProcess process;
};

using Lines = std::vector<std::string>;

} // namespace

class SecondProgram : public WindowBench {
protected:
    SecondProgram() {
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t, std::uint8_t*) {
            commands.push_back(command);
            return command == 1 ? 10 : 0;
        };
    }
    // The program under test, started after or before others.
    void StartHere() {
        lock.emplace();
        Host.PreviousInstance = [this] { return lock->PreviousInstance(); };
        StartProgram();
    }

    QTemporaryDir session;
    Environment runtime{"XDG_RUNTIME_DIR", session.path().toStdString()};
    std::optional<InstanceLock> lock;
    std::vector<int> commands; // to the USB library
};

TEST_F(SecondProgram, OnlyTheFirstOfSeveralOpensItsInterface) {
    std::optional<RealProgram> first(std::in_place);
    EXPECT_EQ(first->Seen(), Lines{Opened});
    EXPECT_EQ(QDir(first->ProgramFolder()).entryList({"*.jpg"}, QDir::Files).size(), 6)
        << "a fresh program folder has the pictures";
    RealProgram second;
    EXPECT_EQ(second.Seen(), (Lines{"box " + SecondTime, "caption :  KMO DMX QUORVANE"}));
    first.reset();
    RealProgram third;
    EXPECT_EQ(third.Seen().front(), "box " + SecondTime) << "the second one is still there";
    second.End();
    third.End();
    RealProgram fourth;
    EXPECT_EQ(fourth.Seen(), Lines{Opened});
}

TEST_F(SecondProgram, ProgramBesideThisOneOpensNothing) {
    StartHere();
    RealProgram other;
    EXPECT_EQ(other.Seen(), (Lines{"box " + SecondTime, "caption :  KMO DMX QUORVANE"}));
    EXPECT_EQ(Show.InterfaceOpen[UsbInterface], 1);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
}

TEST_F(SecondProgram, ThisOneBesideARealOneOpensNothingAndSaysSo) {
    RealProgram other;
    ASSERT_EQ(other.Seen(), Lines{Opened});
    Answer(QMessageBox::Ok);
    StartHere();
    EXPECT_EQ(Boxes.size(), 1u);
    EXPECT_EQ(Boxes.at(0).Text, SecondTime);
    EXPECT_EQ(Boxes.at(0).Title, "DMX QUORVANE");
    EXPECT_EQ(Beeps, 1);
    EXPECT_FALSE(Entry("mnuDMXStart")->isEnabled());
    EXPECT_FALSE(Entry("mnuDMXStop")->isEnabled());
    EXPECT_EQ(Caption(), ":  KMO DMX QUORVANE");
    Answer(QMessageBox::Ok);
    Choose("mnuDMXInit");
    EXPECT_EQ(Boxes.size(), 2u) << "and no dialog to choose an interface";
    other.End();
    Answer(QMessageBox::Ok);
    Choose("mnuDMXInit");
    EXPECT_EQ(Boxes.size(), 3u) << "a second program stays one when the first has gone";
    Show.AutoXmit.Enabled = true; // as Play does
    Ticks(3);
    EXPECT_EQ(commands, std::vector<int>{});
    EXPECT_EQ(Settings["Interface/Type"], "3") << "the choice is the other program's too";
}

} // namespace quorvane
