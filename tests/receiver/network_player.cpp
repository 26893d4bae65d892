// Plays frames through the built-in output, for the tests with a receiver that is not ours:
//   network_player SETTINGS-FOLDER FRAMES-FILE
// The folder holds an Ausgabe.ini, the file 512 bytes for each tick of 50 ms; "-" plays a slow ramp on
// channel 1 until the process is asked to end. What the output reports is printed line by line.
#include "drivers/network_output.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <array>
#include <csignal>
#include <cstdio>

using namespace quorvane;

namespace {

volatile std::sig_atomic_t asked = 0;

void Print(std::string_view text) {
    std::printf("%.*s\n", static_cast<int>(text.size()), text.data());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 3) return 2;
    const OutputSettingsReading reading = LoadOutputSettings(argv[1]);
    for (const std::string& message : reading.Messages) Print(message);

    QByteArray frames;
    if (QFile file(QString::fromLocal8Bit(argv[2])); file.open(QIODevice::ReadOnly)) frames = file.readAll();

    NetworkOutput output(reading.Settings, Cid{1, 2, 3}, {.Report = Print, .Seconds = {}, .Port = 0});
    std::array<std::uint8_t, 512> frame{};
    output.HardCommand(2, 0, frame.data());
    if (output.HardCommand(1, 0, frame.data()) != NetworkOutput::Kind) return 1;

    std::signal(SIGTERM, [](int) { asked = 1; });
    qsizetype at = 0;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    tick.callOnTimeout([&] {
        if (asked || (!frames.isEmpty() && at >= frames.size())) return QCoreApplication::quit();
        if (frames.isEmpty())
            frame[0] = static_cast<std::uint8_t>(frame[0] + 1);
        else
            std::copy_n(frames.constData() + at, 512, frame.begin());
        at += 512;
        output.HardCommand(5, 0, frame.data());
        output.HardCommand(4, 512, frame.data());
    });
    tick.start(50);
    return QCoreApplication::exec();
}
