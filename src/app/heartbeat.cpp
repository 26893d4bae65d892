#include "app/heartbeat.h"

#include "devices/interface.h"
#include "devices/playunit.h"
#include "engine/outputclock.h"
#include "model/afterframe.h"
#include "model/screen.h"
#include "model/show.h"
#include "platform/host.h"
#include "platform/monotonicclock.h"
#include "platform/promptthread.h"

#include <QEventLoop>
#include <QtGlobal>

#ifdef Q_OS_WIN
#include <QWinEventNotifier>
#else
#include <QSocketNotifier>
#endif

#include <string>
#include <utility>

namespace quorvane {

namespace {

// A processor that has rested long gets going late: seldom, but then by a millisecond and more. So the
// program is roused twice. A first call well before the tick takes that lateness; the second comes after so
// short a rest that it is punctual within a tenth of a millisecond, and what is left is waited for awake, at
// the cost of a four-hundredth of a processor. Two milliseconds of each tick are nobody else's: what a user
// does then waits.
constexpr double FirstCall = 0.002;    // seconds before the tick
constexpr double SecondCall = 0.00015; // seconds before the tick

// An interface that keeps time itself gets each frame so early that this thread may be late without anybody
// seeing it. No tick is waited for then.
constexpr double EarlyFrame = 0.010; // seconds before the tick

bool InterfaceKeepsTime() { return Show.InterfaceType == UsbInterface && Host.DateNextFrame; }

double Head() { return InterfaceKeepsTime() ? EarlyFrame : FirstCall; }

bool AnyClockRuns() { return Show.AutoXmit.Enabled || Show.timSendToMerger.Enabled; }

// A tick that fails stops its clock before anything is shown: one box, and not twenty a second.
void RunTick(const Clock& clock, void (*tick)(), void (*stop)()) {
    if (!clock.Enabled) return;
    try {
        FrameFirst(tick);
    } catch (const std::exception& fault) {
        stop();
        ShowMessage(std::string("Die DMX-Ausgabe wurde angehalten.\n") + fault.what(), Icon::Critical);
    }
}

void StopOutputClock() { Show.AutoXmit.Enabled = false; }

} // namespace

Heartbeat::Heartbeat(double firstBeat) {
    MakeThreadPrompt();
#ifdef Q_OS_WIN
    auto* notifier = new QWinEventNotifier(reinterpret_cast<Qt::HANDLE>(timer.Handle()), this);
    connect(notifier, &QWinEventNotifier::activated, this, [this] { Beat(); });
#else
    auto* notifier = new QSocketNotifier(static_cast<qintptr>(timer.Handle()), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { Beat(); });
#endif
    grid.Start(firstBeat - TickGrid::Period);
    timer.ArmAt(grid.Next() - Head());
}

void Heartbeat::AwaitTick() {
    if (InterfaceKeepsTime()) return Host.DateNextFrame(grid.Next()); // it waits in our stead
    timer.ArmAt(grid.Next() - SecondCall);
    timer.Wait();
    while (Seconds() < grid.Next()) continue;
}

// The next beat is armed first: a message box out of a tick runs the event loop, and the clock goes on behind
// it.
void Heartbeat::Beat() {
    if (!timer.Acknowledge()) return;
    if (AnyClockRuns()) AwaitTick();
    grid.Advance(Seconds());
    timer.ArmAt(grid.Next() - Head());
    RunTick(Show.AutoXmit, AutoXmit_Timer, StopOutputClock);
    RunTick(Show.timSendToMerger, timSendToMerger_Timer, AbandonTransfer);
    awake.Follow(Show.AutoXmit.Enabled, Show.StatusFlags.Has(Status::SequencePlaying));
    if (waiting) waiting->quit();
}

void Heartbeat::WaitForBeat() {
    if (!AnyClockRuns()) return;
    QEventLoop loop;
    QEventLoop* const outer = std::exchange(waiting, &loop);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    waiting = outer;
}

} // namespace quorvane
