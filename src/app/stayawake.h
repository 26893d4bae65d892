// Keeps screen saver and sleep away while a sequence plays, and the process at full speed while the
// output runs.
#pragma once

#include <cstdint>

namespace quorvane {

class StayAwake {
public:
    ~StayAwake();
    // Called at every beat; does something only when one of the two has changed.
    void Follow(bool outputRuns, bool sequencePlays);

private:
    bool output = false;
    bool playing = false;
};

} // namespace quorvane
