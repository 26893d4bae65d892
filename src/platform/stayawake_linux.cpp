#include "platform/stayawake.h"

namespace quorvane {

void KeepAwake(bool) {}

void KeepAtFullSpeed(bool) {}

} // namespace quorvane
