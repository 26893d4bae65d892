#include "platform/promptthread.h"

#include <windows.h>

namespace quorvane {

void MakeThreadPrompt() { SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_HIGHEST); }

} // namespace quorvane
