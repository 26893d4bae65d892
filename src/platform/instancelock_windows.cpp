#include "platform/instancelock.h"

#include <windows.h>

namespace quorvane {

// The name exists as long as any instance of this user's session holds it open.
InstanceLock::InstanceLock() {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Local\\Quorvane");
    previous = mutex != nullptr && GetLastError() == ERROR_ALREADY_EXISTS;
    handle = reinterpret_cast<std::intptr_t>(mutex);
}

InstanceLock::~InstanceLock() {
    if (handle != 0) CloseHandle(reinterpret_cast<HANDLE>(handle));
}

} // namespace quorvane
