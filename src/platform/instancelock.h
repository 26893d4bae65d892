// Tells whether the program was already running for this user when it was started again. Only one
// instance may drive the interface; the others are for looking and editing.
#pragma once

#include <cstdint>

namespace quorvane {

// Taken once at the start and kept until the end. The system lets go of it with the process, so that a
// program that died is not counted.
class InstanceLock {
public:
    InstanceLock();
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // True when another instance was running at the moment this one started. Stays so when that one ends.
    // A system that does not let itself be asked counts as having no other instance.
    bool PreviousInstance() const { return previous; }

private:
    std::intptr_t handle = -1;
    bool previous = false;
};

} // namespace quorvane
