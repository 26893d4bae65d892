// Work on the windows that waits for the frame: what a tick asks for is done when the tick is through and its
// frame out, once, however often it was asked for. Outside of a tick it is done at once.
#pragma once

#include <functional>

namespace quorvane {

class AfterFrame {
public:
    explicit AfterFrame(std::function<void()> work);
    ~AfterFrame();
    AfterFrame(const AfterFrame&) = delete;
    AfterFrame& operator=(const AfterFrame&) = delete;

    void Ask();

private:
    friend void FrameFirst(void (*tick)());

    std::function<void()> work;
};

// Runs a tick, then what it asked for, also when it fails; its fault goes on to the caller.
void FrameFirst(void (*tick)());

} // namespace quorvane
