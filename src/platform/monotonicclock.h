// The clock by which the program waits and counts its ticks. It never goes back and knows nothing of
// midnight, summer time or a corrected system clock.
#pragma once

namespace quorvane {

// Seconds since some start that holds for the life of the process, on the scale that TickTimer takes.
double Seconds();

} // namespace quorvane
