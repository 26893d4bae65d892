// The one clock of the program: every 50 ms it asks which of the show's clocks are enabled and runs one
// tick of each. It starts with the program and never stops, so that enabling a clock does not move its grid.
#pragma once

#include "app/stayawake.h"
#include "platform/tickgrid.h"
#include "platform/ticktimer.h"

#include <QObject>

namespace quorvane {

class Heartbeat : public QObject {
public:
    Heartbeat();

private:
    void Beat();

    TickTimer timer;
    TickGrid grid;
    StayAwake awake;
};

} // namespace quorvane
