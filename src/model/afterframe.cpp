#include "model/afterframe.h"

#include "model/screen.h"

#include <algorithm>
#include <utility>

namespace quorvane {

AfterFrame::AfterFrame(std::function<void()> drawing) : work(std::move(drawing)) {}

AfterFrame::~AfterFrame() { std::erase(Screen.Waiting, this); }

void AfterFrame::Ask() {
    if (Screen.TicksRunning == 0) return work();
    if (std::ranges::find(Screen.Waiting, this) == Screen.Waiting.end()) Screen.Waiting.push_back(this);
}

void FrameFirst(void (*tick)()) {
    const auto after = [] {
        --Screen.TicksRunning;
        while (!Screen.Waiting.empty()) {
            const AfterFrame* next = Screen.Waiting.back();
            Screen.Waiting.pop_back();
            next->work();
        }
    };
    ++Screen.TicksRunning;
    try {
        tick();
    } catch (...) {
        after();
        throw;
    }
    after();
}

} // namespace quorvane
