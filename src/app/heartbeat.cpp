#include "app/heartbeat.h"

#include "devices/playunit.h"
#include "engine/outputclock.h"
#include "model/afterframe.h"
#include "model/screen.h"
#include "model/show.h"
#include "platform/host.h"
#include "platform/monotonicclock.h"

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

Heartbeat::Heartbeat() {
#ifdef Q_OS_WIN
    auto* notifier = new QWinEventNotifier(reinterpret_cast<Qt::HANDLE>(timer.Handle()), this);
    connect(notifier, &QWinEventNotifier::activated, this, [this] { Beat(); });
#else
    auto* notifier = new QSocketNotifier(static_cast<qintptr>(timer.Handle()), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { Beat(); });
#endif
    grid.Start(Seconds());
    timer.ArmAt(grid.Next());
}

// The next beat is armed first: a message box out of a tick runs the event loop, and the clock goes on behind
// it.
void Heartbeat::Beat() {
    if (!timer.Acknowledge()) return;
    grid.Advance(Seconds());
    timer.ArmAt(grid.Next());
    RunTick(Show.AutoXmit, AutoXmit_Timer, StopOutputClock);
    RunTick(Show.timSendToMerger, timSendToMerger_Timer, AbandonTransfer);
    awake.Follow(Show.AutoXmit.Enabled, Show.StatusFlags.Has(Status::SequencePlaying));
    if (waiting) waiting->quit();
}

void Heartbeat::WaitForBeat() {
    if (!Show.AutoXmit.Enabled && !Show.timSendToMerger.Enabled) return;
    QEventLoop loop;
    QEventLoop* const outer = std::exchange(waiting, &loop);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    waiting = outer;
}

} // namespace quorvane
