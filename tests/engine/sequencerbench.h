// Sequences of two elements for the tests of the sequencer's commands.
#pragma once

#include "bench/stage.h"

#include "engine/sequencer.h"
#include "model/sequence.h"

#include <string>

namespace quorvane {

class SequencerBench : public Stage {
protected:
    static constexpr const char* NoSequence = " Es ist noch keine Sequenz erstellt worden!";

    SequencerBench() {
        MakeWall(2, 1);
        Show.ChangeFlags = {};
    }

    void MakeSequence(int steps, int current) {
        for (int step = 1; step <= steps; ++step) AddStep(step * 10, 3, 6);
        Show.CurrentStep = static_cast<std::uint8_t>(current);
    }
    // Playing, in the transition that has made step the current one.
    void PlayTowards(int step) {
        StartPlaying(step == 1 ? Show.StepCount : step - 1);
        Tick(2);
        EXPECT_EQ(Show.CurrentStep, step);
    }
    void FillFields(const std::string& blend, const std::string& hold) {
        Show.SequencerField[1] = blend;
        Show.SequencerField[2] = hold;
    }
    std::string Status() const { return LastText("status", "frmControl"); }
    std::string Caption() const { return LastText("caption", "MDIHaupt"); }
    static bool Playing() { return Show.StatusFlags.Has(quorvane::Status::SequencePlaying); }
};

} // namespace quorvane
