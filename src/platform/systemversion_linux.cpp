#include "platform/systemversion.h"

namespace quorvane {

std::uint32_t GetVersion() { return 10; }

} // namespace quorvane
