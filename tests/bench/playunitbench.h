// A bench for transfers to the play unit: a card that takes them, a small wall and a sequence of three steps.
#pragma once

#include "bench/portbench.h"
#include "devices/playunit.h"

#include <cstdint>
#include <vector>

namespace quorvane {

class PlayUnitBench : public PortBench {
protected:
    PlayUnitBench() {
        MakeWall(2, 1);
        Show.StepCount = 3;
        Show.InterfaceType = IsaCardB;
        Show.CardBase = 0x140;
        Show.AutoXmit.Enabled = true;
        for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(300 + word);
        PlugIn(CardModel::C7300B);
    }

    void Tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            Trace.clear();
            timSendToMerger_Timer();
        }
    }

    std::vector<int> Words() const { return {Show.DmxIni.begin(), Show.DmxIni.end()}; }
};

} // namespace quorvane
