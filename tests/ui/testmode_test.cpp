// The test mode: every way in and out of it, the frames that leave meanwhile at the driver seam of each
// interface, and the values that the test window reads back from it.
#include "ui/testwindowbench.h"

#include "model/screen.h"
#include "model/sequence.h"

#include <QApplication>
#include <QWheelEvent>

namespace quorvane {

class TestMode : public TestWindowBench {
protected:
    // Element 1 shines in levels of its own, with a correction on blue.
    void LightTheShow() {
        for (int channel = 1; channel <= 4; ++channel)
            Show.ElementValue[1][channel] = static_cast<std::uint8_t>(channel * 20);
        Show.ColourCorrection[1][3] = 5;
    }
    const std::vector<std::pair<int, int>> ShowLevels{{1, 20}, {2, 40}, {3, 55}, {4, 80}};
    void Wheel(QWidget* slider) {
        const QPointF place = QRectF(slider->rect()).center();
        QWheelEvent turn(place, slider->mapToGlobal(place), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                         false);
        QApplication::sendEvent(slider, &turn);
    }
    static constexpr const char* Active = "Testmodus aktiv, DMX Ausgaben nur in diesem Fenster!";
    static constexpr const char* Ended = "Testmodus aus. DMX-Werte entsprechen den Ausgabewerten.";
};

// In

TEST_F(TestMode, MovingAFaderStartsItAndTurnsTheWindowRed) {
    StartWith(UsbInterface);
    const QColor before = Ground();
    Move(3, 37);
    EXPECT_TRUE(InTestMode());
    EXPECT_EQ(Show.TestLevels[3], 37);
    EXPECT_EQ(StatusText(), Active);
    EXPECT_EQ(Ground(), QColor(255, 80, 80));
    EXPECT_EQ(Button()->text().toStdString(), "Testmode beenden");
    EXPECT_EQ(Find<QLabel>("frmDMX", "lblFader(3)")->text(), "37");
    EXPECT_NE(before, Ground());
}

TEST_F(TestMode, OtherChannelsKeepTheLevelsTheyHad) {
    StartWith(UsbInterface);
    Show.TestLevels.Fill(9);
    Move(0, 200);
    for (int channel = 2; channel <= DmxChannels; ++channel) EXPECT_EQ(Show.TestLevels[channel - 1], 9);
    EXPECT_EQ(Show.TestLevels[0], 200);
}

TEST_F(TestMode, ButtonStartsItWithWhereTheFirstFaderStands) {
    StartWith(UsbInterface);
    Move(0, 50);
    Move(1, 60);
    Click(Button());
    EXPECT_FALSE(InTestMode());
    Show.TestLevels[0] = Show.TestLevels[1] = 0;
    Click(Button());
    EXPECT_TRUE(InTestMode());
    EXPECT_EQ(StatusText(), Active);
    EXPECT_EQ(Ground(), QColor(255, 80, 80));
    EXPECT_EQ(Show.TestLevels[0], 50);
    EXPECT_EQ(Show.TestLevels[1], 0); // the second fader is not asked
}

TEST_F(TestMode, LastMovedWinsWhenTwoFadersHaveOneChannel) {
    StartWith(UsbInterface);
    SetChannel(0, "100");
    SetChannel(1, "100");
    Move(0, 200);
    Move(1, 50);
    EXPECT_EQ(NextFrame(), FrameOf({{100, 50}}));
    Move(0, 201);
    EXPECT_EQ(NextFrame(), FrameOf({{100, 201}}));
}

TEST_F(TestMode, FaderGoesByTheChannelAsItIsTyped) {
    StartWith(UsbInterface);
    Replace(0, "400"); // not left yet: the wheel moves no focus
    Wheel(Fader(0));
    EXPECT_EQ(Show.TestLevels[399], Fader(0)->value());
    EXPECT_GT(Fader(0)->value(), 0);
    EXPECT_EQ(Show.TestLevels[0], 0);
}

TEST_F(TestMode, FaderOfAChannelOutsideTheLineChangesNothing) {
    StartWith(UsbInterface);
    for (const char* text : {"0", "513", ""}) {
        Replace(0, text);
        Wheel(Fader(0));
        EXPECT_FALSE(InTestMode()) << text;
        for (int channel = 1; channel <= DmxChannels; ++channel) EXPECT_EQ(Show.TestLevels[channel - 1], 0);
    }
}

TEST_F(TestMode, FadersComeBackWhereTheirChannelsStand) {
    StartWith(UsbInterface);
    Move(0, 50);
    Move(7, 90);
    CloseTest();
    Show.TestLevels[0] = 30;
    OpenTest();
    EXPECT_EQ(Fader(0)->value(), 30);
    EXPECT_EQ(Fader(7)->value(), 90);
    EXPECT_FALSE(InTestMode()); // showing them moves none
    EXPECT_EQ(StatusText(), "DMX Out-Werte entsprechen dem Kartenausgang");
}

// Out

TEST_F(TestMode, ButtonEndsIt) {
    StartWith(UsbInterface);
    const QColor before = Ground();
    Move(0, 50);
    Click(Button());
    EXPECT_FALSE(InTestMode());
    EXPECT_EQ(StatusText(), Ended);
    EXPECT_EQ(Ground(), before);
    EXPECT_EQ(Button()->text().toStdString(), "Testmode starten");
}

TEST_F(TestMode, ClosingTheWindowEndsIt) {
    StartWith(UsbInterface);
    Move(0, 50);
    CloseTest();
    EXPECT_FALSE(InTestMode());
    OpenTest();
    EXPECT_EQ(Button()->text().toStdString(), "Testmode starten");
    EXPECT_NE(Ground(), QColor(255, 80, 80));
}

TEST_F(TestMode, NextStartIsOutOfItAndTheShowGoesOut) {
    StartWith(UsbInterface);
    Move(0, 200);
    EXPECT_TRUE(CloseProgram());
    StartAfresh();
    StartWithWall(3, 1);
    EXPECT_TRUE(main->Dmx->isVisible());
    EXPECT_FALSE(InTestMode());
    EXPECT_EQ(Button()->text().toStdString(), "Testmode starten");
    LightTheShow();
    EXPECT_EQ(NextFrame(), FrameOf(ShowLevels));
}

TEST_F(TestMode, ColourWindowEndsItBySliderAndByButton) {
    StartWith(UsbInterface);
    Choose("mnuColorfenster");
    for (const bool button : {false, true}) {
        Move(0, Fader(0)->value() + 20);
        ASSERT_TRUE(InTestMode());
        if (button)
            Click(main->Color->cmdColor[0]);
        else {
            main->Color->ScrFarbe[0]->setFocus();
            Key(Qt::Key_Up);
        }
        EXPECT_FALSE(InTestMode());
        EXPECT_EQ(StatusText(), Ended);
        EXPECT_NE(Ground(), QColor(255, 80, 80));
        EXPECT_EQ(main->Color->lblStatus->text().toStdString(), "Testmodus wurde abgeschaltet");
    }
}

TEST_F(TestMode, SequencersButtonsEndIt) {
    StartWith(UsbInterface);
    Show.StepCount = Show.CurrentStep = 1;
    Show.StatusFlags.Set(Status::SequenceExists);
    SetHold(1, 1);
    SetBlend(1, 5);
    Choose("mnuTransporter");
    for (const char* button : {"cmdSequence(0)", "cmdSequence(4)", "cmdSequence(2)", "cmdSequence(3)"}) {
        Move(0, Fader(0)->value() + 20);
        ASSERT_TRUE(InTestMode());
        Click(Find<QPushButton>("frmControl", button));
        EXPECT_FALSE(InTestMode()) << button;
        EXPECT_EQ(StatusText(), Ended) << button;
    }
}

TEST_F(TestMode, OtherWindowsOfTheProgramLeaveItOn) {
    StartWith(UsbInterface);
    Move(0, 50);
    Choose("mnuPatchfenster");
    Click(Element(2));
    EXPECT_TRUE(InTestMode());
    EXPECT_EQ(StatusText(), Active);
}

// At the output

TEST_F(TestMode, OnlyTheTestLevelsLeaveUntilItEndsAndThenTheShowAgain) {
    for (const std::int16_t type : EveryInterface) {
        SCOPED_TRACE(type);
        StartWith(type);
        LightTheShow();
        EXPECT_EQ(NextFrame(), FrameOf(ShowLevels));
        SetChannel(0, "2");
        SetChannel(1, "512");
        Move(0, 200);
        Move(1, 255);
        EXPECT_EQ(NextFrame(), FrameOf({{2, 200}, {512, 255}}));
        EXPECT_EQ(NextFrame(), FrameOf({{2, 200}, {512, 255}}));
        Click(Button());
        auto after = ShowLevels;
        after.emplace_back(512, 255); // nothing is patched there: it keeps its level, on purpose
        EXPECT_EQ(NextFrame(), FrameOf(after));
        Move(0, 100);
        EXPECT_EQ(NextFrame(), FrameOf({{2, 100}, {512, 255}}));
        CloseTest();
        EXPECT_EQ(NextFrame(), FrameOf(after));
        StartAfresh();
    }
}

TEST_F(TestMode, SequenceStandsStillMeanwhileAndGoesOnAfterwards) {
    for (const std::int16_t type : EveryInterface) {
        SCOPED_TRACE(type);
        StartWith(type);
        Show.StepCount = 2;
        Show.CurrentStep = 1;
        Show.StatusFlags.Set(Status::SequenceExists);
        for (int step = 1; step <= 2; ++step) {
            Show.SequenceSteps[step][1].Fill(static_cast<std::uint8_t>(step * 100));
            SetHold(step, 1);
            SetBlend(step, 10);
        }
        Choose("mnuTransporter");
        Click(Find<QPushButton>("frmControl", "cmdSequence(2)"));
        Ticks(6);
        const int blend = Show.BlendCounter;
        const auto before = NextFrame();
        Move(0, 7);
        for (int tick = 0; tick < 5; ++tick) EXPECT_EQ(NextFrame(), FrameOf({{1, 7}}));
        EXPECT_EQ(Show.BlendCounter, blend - 1);
        Click(Button());
        const auto after = NextFrame();
        EXPECT_GT(after[0], before[0]); // one tick further in its blend
        EXPECT_EQ(after[0], after[3]);
        StartAfresh();
    }
}

TEST_F(TestMode, NothingLeavesWithoutAnInterface) {
    StartWith(NoInterface);
    Show.AutoXmit.Enabled = true;
    Move(0, 50);
    EXPECT_TRUE(InTestMode());
    EXPECT_EQ(NextFrame(), std::vector<int>());
    EXPECT_EQ(Outputs(), std::vector<int>(8));
}

TEST_F(TestMode, NothingLeavesByAUsbInterfaceThatFailedToOpenAndItsValuesAreZero) {
    UsbKind = 4;
    StartWith(UsbInterface);
    EXPECT_FALSE(NoticeIsSeen()) << "one is chosen";
    Show.AutoXmit.Enabled = true;
    Show.DmxOutBytes.Fill(77); // left there by a former one
    Move(0, 50);
    EXPECT_EQ(NextFrame(), std::vector<int>());
    SetChannel(1, "100"); // reads the values anew
    EXPECT_EQ(Outputs(), std::vector<int>(8));
}

// Values of the interface

TEST_F(TestMode, ValuesAreThoseOfTheIsaCardsMemory) {
    for (const std::int16_t type : {IsaCardB, IsaCardC}) {
        StartWith(type);
        LightTheShow();
        SetChannel(7, "512");
        Card().Memory.at(1535) = 33;
        Ticks(1);
        EXPECT_EQ(Outputs(), (std::vector<int>{20, 40, 55, 80, 0, 0, 0, 33}));
        Move(1, 99);
        Ticks(1);
        EXPECT_EQ(Outputs(), (std::vector<int>{0, 99, 0, 0, 0, 0, 0, 0}));
        StartAfresh();
    }
}

TEST_F(TestMode, ValuesOfTheUsbInterfaceAreThoseOfTheNextChannelOnPurpose) {
    StartWith(UsbInterface);
    LightTheShow();
    Ticks(1);
    EXPECT_EQ(Outputs(), (std::vector<int>{40, 55, 80, 0, 0, 0, 0, 0}));
    SetChannel(7, "512");
    Move(1, 99);
    Ticks(1);
    EXPECT_EQ(Outputs(), (std::vector<int>{99, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(TestMode, ValuesOfTheDriverLibrarysCardsStayZeroOnPurpose) {
    for (const std::int16_t type : {PcmciaCard, PciCard}) {
        StartWith(type);
        LightTheShow();
        Move(1, 99);
        Ticks(2);
        EXPECT_EQ(Outputs(), std::vector<int>(8));
        StartAfresh();
    }
}

TEST_F(TestMode, ValuesAreReadAnewWithoutAnyTick) {
    StartWith(IsaCardB);
    Show.AutoXmit.Enabled = false;
    Card().Memory.at(1024) = 11;
    Card().Memory.at(1123) = 12;
    SetChannel(1, "100"); // leaving a channel
    EXPECT_EQ(Outputs(), (std::vector<int>{11, 12, 0, 0, 0, 0, 0, 0}));
    Card().Memory.at(1024) = 13;
    Choose("mnuColorfenster");
    Choose("mnuTestfenster"); // coming to the front
    EXPECT_EQ(Outputs()[0], 13);
    CloseTest();
    Card().Memory.at(1024) = 14;
    OpenTest(); // opening
    EXPECT_EQ(Outputs()[0], 14);
}

TEST_F(TestMode, ValuesFollowTheChannelThatWasAcceptedLast) {
    StartWith(IsaCardB);
    LightTheShow();
    SetChannel(0, "4");
    Replace(0, "999999"); // half typed: nothing is read where it points
    Ticks(1);
    EXPECT_EQ(Outputs()[0], 80);
}

TEST_F(TestMode, ClosedWindowReadsNothingBack) {
    StartWith(UsbInterface);
    CloseTest();
    int read = 0;
    Screen.MonitorValue = [&read](int, int) { ++read; };
    Ticks(3);
    EXPECT_EQ(read, 0);
}

} // namespace quorvane
