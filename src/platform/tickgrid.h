// The grid of points in time on which the ticks of the output stand: every 50 ms from the moment at
// which it was started. A late tick is followed by one at its own grid point, so that there are exactly
// 20 a second in the long run and nothing drifts.
#pragma once

#include <cstdint>

namespace quorvane {

class TickGrid {
public:
    static constexpr int TicksPerSecond = 20;
    static constexpr double Period = 1.0 / TicksPerSecond;

    // Begins a new grid at now; its first tick comes one period later.
    void Start(double now) {
        start = now;
        number = 1;
    }

    // The grid point of the tick that comes next. Counted from the start each time, never added up, so
    // that no rounding builds up in a night-long show.
    double Next() const { return start + static_cast<double>(number) / TicksPerSecond; }

    // To be called in each tick. When even the tick after this one is overdue by more than a period,
    // the machine was asleep or held up: the missed ticks are left out, not made up for in a burst, and
    // a new grid begins.
    void Advance(double now) {
        ++number;
        if (now - Next() > Period) Start(now);
    }

private:
    double start = 0.0;
    std::int64_t number = 1;
};

} // namespace quorvane
