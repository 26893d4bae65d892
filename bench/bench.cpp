// Measures what users would notice if it became slow, each as a ratio to the bare limit of the same work,
// taken in turn with it on the same machine: a tick that fades and sends, and the largest sequence file.
// Prints a table; the exit code tells whether every goal was met.

#include "drivers/network_output.h"
#include "engine/outputclock.h"
#include "engine/sequencer.h"
#include "files/showfiles.h"
#include "limits.h"
#include "model/screen.h"
#include "model/sequence.h"
#include "model/show.h"
#include "model/wall.h"
#include "platform/host.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <exception>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvane {

namespace {

constexpr int Rounds = 31;
constexpr int TicksPerRound = 400;

struct Result {
    const char* Name;
    const char* Unit;
    double Ours;
    double Limit;
    double Goal;
};

double WallSeconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Of what never waits the processor's time is taken: other programs then do not lengthen it.
double ProcessorSeconds(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

// Ours and the limit in turn, so that whatever else the machine does meets both.
Result Compare(Result result, double (*seconds)(const std::function<void()>&),
               const std::function<void()>& ours, const std::function<void()>& limit) {
    std::vector<double> oursTook, limitTook;
    for (int round = 0; round < Rounds; ++round) {
        limitTook.push_back(seconds(limit) * 1e3);
        oursTook.push_back(seconds(ours) * 1e3);
    }
    result.Ours = Median(oursTook);
    result.Limit = Median(limitTook);
    return result;
}

// 254 steps on 121 elements, all levels different from those of the step before.
void MakeLargestShow() {
    StartShow();
    Show.WallColumns = Show.WallRows = 11;
    NeueWandInit();
    for (int step = 1; step <= MaxLoadedSteps; ++step)
        for (int element = 1; element <= Show.ElementCount; ++element)
            for (int channel = 1; channel <= 4; ++channel) {
                const int level = (element * 31 + channel * 57 + step * 97) % 256;
                Show.SequenceSteps[step][element][channel] = static_cast<std::uint8_t>(level);
            }
    for (int element = 1; element <= Show.ElementCount; ++element)
        Show.ColourCorrection[element][2] = static_cast<std::uint8_t>(element % 24);
    Show.StepCount = MaxLoadedSteps;
    Show.CurrentStep = 1;
    Show.StatusFlags.Set(Status::SequenceExists);
}

Result MeasureTick() {
    Receiver receiver;
    NetworkOutput::Surroundings surroundings;
    surroundings.Port = receiver.Port();
    NetworkOutput output(OutputSettings{}, Cid{}, surroundings);
    Host.DasHardCommand = [&output](std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
        return output.HardCommand(command, parameter, buffer);
    };
    Show.InterfaceType = UsbInterface;
    Show.InterfaceOpen[UsbInterface] = Host.DasHardCommand(1, 0, nullptr) != 0;
    Play();
    BareTick bare(receiver.Port());

    // The receiver is emptied between the ticks in both: a full one would make sending cheaper. Every
    // step plays its start, its one hold and fifty blend ticks, as users' sequences do.
    const auto ticks = [&receiver](const std::function<void()>& tick) {
        double took = 0;
        for (int i = 0; i < TicksPerRound; i += 50) {
            receiver.Drain();
            took += ProcessorSeconds([&tick] {
                for (int j = 0; j < 50; ++j) tick();
            });
        }
        return took / TicksPerRound * 1e6;
    };
    std::vector<double> ours, limit;
    for (int round = 0; round < Rounds; ++round) {
        limit.push_back(ticks([&bare] { bare.Tick(); }));
        ours.push_back(ticks(AutoXmit_Timer));
    }
    StopSequence();
    Host.DasHardCommand = HostCalls{}.DasHardCommand;
    return {"one tick: blend, frame, hand-over", "us", Median(ours), Median(limit), 3.0};
}

Lists ListsOfShow() {
    Lists lists;
    for (int step = 1; step <= Show.StepCount; ++step) {
        for (int element = 1; element <= Show.ElementCount; ++element)
            for (int channel = 1; channel <= 4; ++channel)
                lists[0].push_back(Show.SequenceSteps[step][element][channel]);
        for (const auto time : Show.SequenceTimes[step]) lists[1].push_back(time);
    }
    for (int slot = 0; slot <= 9; ++slot)
        for (int index = 0; index < Show.ElementCount; ++index)
            lists[2].push_back(Show.Selections[slot][index]);
    return lists;
}

std::vector<Result> MeasureFiles(const std::filesystem::path& folder) {
    Show.StatusFlags.Set(Status::SaveToCurrentFile);
    Show.SequenceFile = (folder / "largest.QSQ").string();
    const std::string bareFile = (folder / "bare.txt").string();
    const Lists lists = ListsOfShow();
    const auto save = Compare(
        {"largest sequence: save, flushed", "ms", 0, 0, 2.5}, WallSeconds,
        [] {
            if (!SaveSequence()) throw std::runtime_error("the save failed");
        },
        [&] { BareWrite(bareFile, BareFormat(lists)); });
    std::size_t numbers = 0;
    const auto load = Compare(
        {"largest sequence: load", "ms", 0, 0, 10.0}, ProcessorSeconds,
        [] {
            Show.StepCount = 0;
            LoadSequence();
            if (Show.StepCount != MaxLoadedSteps) throw std::runtime_error("the load failed");
        },
        [&] { numbers += BareReadAndParse(bareFile).size(); });
    if (numbers != Rounds * (lists[0].size() + lists[1].size() + lists[2].size()))
        throw std::runtime_error("the bare reader lost numbers");
    if (lists != ListsOfShow()) throw std::runtime_error("the file does not give the show back");
    return {load, save};
}

bool Print(const std::vector<Result>& results) {
    bool allMet = true;
    std::printf("%-36s %12s %12s %8s %8s\n", "", "ours", "limit", "ratio", "goal");
    for (const Result& each : results) {
        const double ratio = each.Ours / each.Limit;
        const bool met = ratio <= each.Goal;
        allMet = allMet && met;
        std::printf("%-36s %9.3f %s %9.3f %s %8.2f %8.1f  %s\n", each.Name, each.Ours, each.Unit, each.Limit,
                    each.Unit, ratio, each.Goal, met ? "pass" : "FAIL");
    }
    return allMet;
}

} // namespace

} // namespace quorvane

// The folder for the files should lie on a real disk, else flushing costs nothing.
int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: quorvane_bench FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    try {
        std::filesystem::create_directories(folder);
        quorvane::MakeLargestShow();
        std::vector<quorvane::Result> results{quorvane::MeasureTick()};
        for (const auto& each : quorvane::MeasureFiles(folder)) results.push_back(each);
        return quorvane::Print(results) ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "the measurement failed: %s\n", failure.what());
        return 2;
    }
}
