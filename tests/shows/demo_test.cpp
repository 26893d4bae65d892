// The demo show as ./run plays it.
#include "bench/bench.h"

#include "engine/outputclock.h"
#include "engine/sequencer.h"
#include "files/showfiles.h"
#include "model/text.h"
#include "model/wall.h"

namespace quorvane {

namespace {

class DemoShow : public Bench {
protected:
    DemoShow() {
        const std::string folder = DEMO_SHOW "/";
        StartShow();
        Show.StatusFlags.Set(Status::SaveToCurrentFile);
        Show.ConfigFile = folder + "config/demo.CFG";
        Show.SceneFile = folder + "scenen/demo.QSC";
        Show.SequenceFile = folder + "sequencen/demo.QSQ";
        Show.ColourTableFile = folder + "Farbtbl/demo.QCT";
        LoadConfiguration();
        LoadScene();
        LoadSequence();
        LoadColourTable();
        Show.StatusFlags.Clear(Status::SaveToCurrentFile);
    }

    // Boxes of any kind: a demo must show none.
    std::vector<std::string> Boxes() const {
        auto boxes = Texts("box");
        for (const auto& question : Texts("question")) boxes.push_back(question);
        return boxes;
    }
};

TEST_F(DemoShow, LoadsWithoutABox) {
    EXPECT_EQ(Boxes(), std::vector<std::string>{});
    EXPECT_EQ(Show.ElementCount, 121);
    EXPECT_EQ(Show.StepCount, 247);
    EXPECT_EQ(Show.UserColourName[12], Padded20("Grün"));
}

TEST_F(DemoShow, IsPatchedInOneChainFromTheBottomLeft) {
    EXPECT_EQ(Show.Patch[111][1], 1);  // bottom left
    EXPECT_EQ(Show.Patch[121][1], 41); // bottom right
    EXPECT_EQ(Show.Patch[110][1], 45); // above it
    EXPECT_EQ(Show.Patch[1][4], 444);  // top left
    EXPECT_EQ(Show.Patch[11][4], 484); // top right
}

TEST_F(DemoShow, PlaysOnceRoundInLessThanTwoMinutesAndBeginsAgain) {
    int ticks = 0;
    for (int step = 1; step <= Show.StepCount; ++step)
        ticks += Show.SequenceTimes[step][HoldTime] + Show.SequenceTimes[step][BlendTime] + 1;
    EXPECT_LE(ticks, 120 * 20);
    Play();
    for (int tick = 0; tick < ticks; ++tick) AutoXmit_Timer();
    EXPECT_EQ(Show.CurrentStep, 1);
    EXPECT_EQ(Show.BlendCounter, 0);
    for (int element = 1; element <= Show.ElementCount; ++element)
        EXPECT_EQ(Show.ElementValue[element], Show.SequenceSteps[1][element]) << element;
    EXPECT_EQ(Boxes(), std::vector<std::string>{});
}

} // namespace

} // namespace quorvane
