#include "platform/processors.h"

#include <windows.h>

namespace quorvane {

// Of machines with more than 64 processors, those of the group that the program was started in.
std::vector<int> AllowedProcessors() {
    std::vector<int> allowed;
    DWORD_PTR ofProgram = 0;
    DWORD_PTR ofMachine = 0;
    if (!GetProcessAffinityMask(GetCurrentProcess(), &ofProgram, &ofMachine)) return allowed;
    for (int processor = 0; ofProgram != 0; ++processor, ofProgram >>= 1)
        if ((ofProgram & 1) != 0) allowed.push_back(processor);
    return allowed;
}

void KeepThreadOn(int processor) { SetThreadAffinityMask(GetCurrentThread(), DWORD_PTR{1} << processor); }

} // namespace quorvane
