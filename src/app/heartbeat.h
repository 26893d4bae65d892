// The one clock of the program: every 50 ms it asks which of the show's clocks are enabled and runs one
// tick of each. It starts with the program and never stops, so that enabling a clock does not move its grid.
// For an interface that keeps time itself the tick runs a little early, and the frame waits out there.
#pragma once

#include "app/stayawake.h"
#include "platform/tickgrid.h"
#include "platform/ticktimer.h"

#include <QObject>

class QEventLoop;

namespace quorvane {

class Heartbeat : public QObject {
public:
    // The first beat is due at that moment of Seconds(), the others 50 ms after one another. What is overdue
    // is made up for as soon as events are served.
    explicit Heartbeat(double firstBeat);

    // Comes back right after the next beat, at once while no clock is enabled. Input waits meanwhile, so that
    // nothing is begun twice.
    void WaitForBeat();

private:
    void Beat();
    void AwaitTick();

    TickTimer timer;
    TickGrid grid;
    StayAwake awake;
    QEventLoop* waiting = nullptr; // ends with the next beat
};

} // namespace quorvane
