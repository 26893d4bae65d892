#include "app/heartbeat.h"

#include "devices/interface.h"
#include "devices/playunit.h"
#include "model/screen.h"
#include "model/show.h"
#include "platform/host.h"
#include "platform/monotonicclock.h"
#include "platform/threadschedule_linux.h"
#include "platform/tickgrid.h"

#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvane {

class HeartbeatTest : public testing::Test {
protected:
    HeartbeatTest() {
        Show = ShowState{};
        Screen = ScreenCalls{};
        Show.InterfaceType = UsbInterface;
        Show.InterfaceOpen[UsbInterface] = 1;
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t, std::uint8_t*) {
            if (command == 4) ++sent;
            return 0;
        };
    }
    ~HeartbeatTest() override {
        Host = HostCalls{};
        Screen = ScreenCalls{};
    }
    // A transfer to an ISA card, beside the USB interface that the show goes out by.
    void StartTransfer(int image) {
        Show.CardBase = 0x140;
        Show.AutoXmit.Enabled = true;
        for (int word = 0; word <= 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(20 + word);
        mnuSequenceToMerger_Click();
        Show.TransferImage = static_cast<std::uint8_t>(image);
    }

    static void ServeEventsFor(int milliseconds) {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }
    // Where in a period the beats stand, by the most punctual of some frames.
    double PhaseOfBeats() {
        phases.clear();
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t, std::uint8_t*) {
            if (command == 4) phases.push_back(std::fmod(Seconds() - firstBeat, TickGrid::Period));
            return 0;
        };
        while (phases.size() < 5) heartbeat.WaitForBeat();
        return *std::ranges::min_element(phases);
    }
    // By how much what is done between two beats moves those that follow, at most half a period.
    double Shift(const std::function<void()>& act) {
        double shift = TickGrid::Period;
        for (int tries = 0; tries < 20 && shift >= 0.010; ++tries) { // a busy machine may need some
            const double before = PhaseOfBeats();
            act();
            const double after = PhaseOfBeats();
            shift = std::abs(std::remainder(after - before, TickGrid::Period));
        }
        return shift;
    }

    const double firstBeat = Seconds() + 0.050;
    Heartbeat heartbeat{firstBeat};
    int sent = 0;
    std::vector<double> phases;
};

TEST_F(HeartbeatTest, WaitEndsRightAfterATick) {
    Show.AutoXmit.Enabled = true;
    heartbeat.WaitForBeat();
    EXPECT_EQ(sent, 1);
    heartbeat.WaitForBeat();
    EXPECT_EQ(sent, 2);
}

TEST_F(HeartbeatTest, NoFrameLeavesBeforeItsTime) {
    constexpr int frames = 20;
    std::vector<double> times;
    Host.DasHardCommand = [&times](std::int32_t command, std::int32_t, std::uint8_t*) {
        if (command == 4) times.push_back(Seconds());
        return 0;
    };
    Show.AutoXmit.Enabled = true;
    while (times.size() < frames) heartbeat.WaitForBeat();
    for (int frame = 0; frame < frames; ++frame)
        EXPECT_GE(times.at(static_cast<std::size_t>(frame)) - firstBeat, 0.050 * frame) << frame;
}

TEST_F(HeartbeatTest, InterfaceThatKeepsTimeIsToldTheMomentOfEachFrameAndGetsItEarly) {
    std::vector<double> moments;
    double earliest = 0.0;
    bool onGrid = false;
    int frames = 0;
    Host.DateNextFrame = [&](double moment) {
        onGrid |= !moments.empty() && std::abs(moment - moments.back() - TickGrid::Period) < 1e-6;
        moments.push_back(moment);
    };
    Host.DasHardCommand = [&](std::int32_t command, std::int32_t, std::uint8_t*) {
        if (command == 4) {
            ++frames;
            EXPECT_EQ(moments.size(), static_cast<std::size_t>(frames)) << "told right before it";
            earliest = std::max(earliest, moments.back() - Seconds());
        }
        return 0;
    };
    Show.AutoXmit.Enabled = true;
    for (int tries = 0; tries < 40 && (earliest < 0.005 || !onGrid); ++tries) // a busy machine may need some
        heartbeat.WaitForBeat();
    EXPECT_TRUE(onGrid);
    EXPECT_GE(earliest, 0.005);
    EXPECT_LE(earliest, 0.010);
}

TEST_F(HeartbeatTest, InterfaceThatKeepsTimeIsNoneOfTheOthers) {
    constexpr int frames = 10;
    std::vector<double> times;
    Host.DateNextFrame = [](double) { ADD_FAILURE() << "for the USB interface alone"; };
    Host.DMXSEND = [&times](std::int32_t*, std::int32_t*) {
        times.push_back(Seconds());
        return 0;
    };
    Show.InterfaceType = PciCard;
    Show.AutoXmit.Enabled = true;
    while (times.size() < frames) heartbeat.WaitForBeat();
    for (int frame = 0; frame < frames; ++frame)
        EXPECT_GE(times.at(static_cast<std::size_t>(frame)) - firstBeat, 0.050 * frame) << frame;
}

TEST_F(HeartbeatTest, FirstBeatComesNotBeforeTheMomentGiven) {
    const double moment = Seconds() + 0.2;
    Heartbeat later{moment};
    Show.AutoXmit.Enabled = true;
    later.WaitForBeat();
    EXPECT_GE(Seconds(), moment);
}

TEST_F(HeartbeatTest, FirstBeatThatIsDueDoesNotWaitForAPeriod) {
    Show.AutoXmit.Enabled = true;
    double waited = 1.0;
    for (int tries = 0; tries < 40 && waited >= 0.049; ++tries) { // a busy machine may need some
        const double start = Seconds();
        Heartbeat due{start};
        due.WaitForBeat();
        waited = Seconds() - start;
    }
    EXPECT_LT(waited, 0.049);
}

TEST_F(HeartbeatTest, OverdueFirstBeatIsMadeUpForAndTheSecondComesAtItsOwnTime) {
    const double moment = Seconds() - 0.040;
    Heartbeat overdue{moment};
    Show.AutoXmit.Enabled = true;
    overdue.WaitForBeat();
    overdue.WaitForBeat();
    EXPECT_GE(Seconds(), moment + 0.050);
}

TEST_F(HeartbeatTest, EnablingTheEnabledClockBetweenTwoBeatsMovesNone) {
    Show.AutoXmit.Enabled = true;
    EXPECT_LT(Shift([] {
                  ServeEventsFor(25);
                  EnableOutputClock();
              }),
              0.010);
}

TEST_F(HeartbeatTest, ClockThatIsEnabledAgainFindsTheBeatsWhereTheyWere) {
    Show.AutoXmit.Enabled = true;
    for (const int pause : {15, 65}) { // without a beat meanwhile and with one
        EXPECT_LT(Shift([pause] {
                      ServeEventsFor(10);
                      Show.AutoXmit.Enabled = false;
                      ServeEventsFor(pause);
                      EnableOutputClock();
                  }),
                  0.010)
            << pause;
    }
}

TEST_F(HeartbeatTest, ThreadIsPromptAndThoseItStartsAreNot) {
    ThreadSchedule schedule;
    ASSERT_TRUE(Get(schedule));
    EXPECT_EQ(schedule.Flags, 1U); // not inherited; how prompt it is, systems tell differently
}

TEST_F(HeartbeatTest, NothingIsWaitedForWhileNoClockIsEnabled) {
    heartbeat.WaitForBeat();
    EXPECT_EQ(sent, 0);
}

TEST_F(HeartbeatTest, TransferSendsOneImageABeatAndTheOutputGoesOnRightAfterTheLast) {
    StartTransfer(252);
    for (int image = 252; image <= 255; ++image) {
        EXPECT_EQ(Show.TransferImage, image);
        EXPECT_TRUE(Show.timSendToMerger.Enabled);
        heartbeat.WaitForBeat();
        EXPECT_EQ(sent, 0) << "no tick of the output meanwhile, not even at the last image";
    }
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    heartbeat.WaitForBeat();
    EXPECT_EQ(sent, 1);
}

TEST_F(HeartbeatTest, TransferThatFailsGivesTheParametersAndTheCommandsBackBeforeItTells) {
    std::vector<std::string> boxes;
    std::vector<bool> transferRuns;
    Host.DlPortWritePortUchar = [](std::uint32_t, std::uint8_t) {
        throw std::runtime_error("Der Port ist weg.");
    };
    Host.MsgBox = [&](std::string_view text, Buttons, std::string_view, Icon) {
        boxes.emplace_back(text);
        EXPECT_FALSE(Show.timSendToMerger.Enabled);
        EXPECT_EQ(Show.DmxIni[1], 21);
        EXPECT_EQ(transferRuns, (std::vector<bool>{true, false}));
        return Answer::Ok;
    };
    Screen.TransferRuns = [&](bool runs) { transferRuns.push_back(runs); };
    StartTransfer(1);
    heartbeat.WaitForBeat();
    EXPECT_EQ(boxes, std::vector<std::string>{"Die DMX-Ausgabe wurde angehalten.\nDer Port ist weg."});
    for (int word = 0; word <= 10; ++word) EXPECT_EQ(Show.DmxIni[word], 20 + word);
    EXPECT_FALSE(Show.AutoXmit.Enabled) << "its next tick could fail just so";
}

} // namespace quorvane
