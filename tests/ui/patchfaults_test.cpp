// Patch values that no interface can take, from a damaged file, in the running program: the real heartbeat
// meets them, tells of them once and stops; nothing is lost, and the patch dialog puts them right.
#include "ui/testwindowbench.h"

#include "app/heartbeat.h"
#include "platform/monotonicclock.h"
#include "ui/frmElement.h"

#include <QApplication>

namespace quorvane {

class PatchFaults : public TestWindowBench {
protected:
    // A wall of three elements whose file says that red of element 1 goes out on this channel, loaded by
    // hand.
    void StartWithDamagedFile(std::int16_t type, const std::string& channel) {
        PlugIn(type);
        Write("config/wand.CFG",
              "Configuration von QUORVANE 99\r\n[NAME]\r\nBuehne              \r\n[Config]\r\n"
              "ElementeMax =  3\r\nXmax =  3\r\nYmax =  1\r\n 600 \r\n 600 \r\n 100 \r\n"
              "[DMXINI]\r\n 60 , 0 , 0 , 12 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 ,"
              "\r\n[Patching]\r\n " +
                  channel +
                  " , 2 , 3 , 4 , 5 , 6 , 7 , 8 , 9 , 10 , 11 , 12 ,\r\n[Farbkorrektur]\r\n"
                  " 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 ,\r\n");
        StartProgram();
        Show.ElementValue[1].Fill(77);
        ChooseFile("wand.CFG");
        Choose("mnuConfigLaden");
        ASSERT_EQ(Show.ElementCount, 3);
        ASSERT_EQ(Show.Patch[1][1], std::stoi(channel));
    }
    // Lets events run until the heartbeat has done so much.
    static bool Until(const std::function<bool()>& reached) { return QTest::qWaitFor(reached, 10000); }
    static constexpr const char* Stopped =
        "Die DMX-Ausgabe wurde angehalten.\nElement 1, Rot: Der DMX-Kanal ";
};

TEST_F(PatchFaults, ImpossibleChannelStopsTheClockWithOneMessageAndKeepsTheWork) {
    for (const std::int16_t type : {UsbInterface, PcmciaCard, PciCard})
        for (const char* channel : {"0", "-1", "514", "32767"}) {
            SCOPED_TRACE(std::to_string(type) + ": " + channel);
            StartWithDamagedFile(type, channel);
            const auto patch = Show.Patch;
            const auto values = Show.ElementValue;
            Boxes.clear();
            Answer(QMessageBox::Ok);
            {
                Heartbeat heartbeat(Seconds());
                EXPECT_TRUE(Until([this] { return !Boxes.empty() && !QApplication::activeModalWidget(); }));
                EXPECT_FALSE(Show.AutoXmit.Enabled);
                QTest::qWait(0);
            }
            ASSERT_EQ(Boxes.size(), 1u);
            EXPECT_EQ(Boxes[0].Text, Stopped + std::string(channel) + " liegt nicht zwischen 1 und 513.");
            EXPECT_EQ(Boxes[0].Title, "QUORVANE");
            EXPECT_TRUE(Show.Patch == patch);
            EXPECT_TRUE(Show.ElementValue == values);
            EXPECT_TRUE(main->isVisible());
            StartAfresh();
        }
}

TEST_F(PatchFaults, ChannelOneBeyondTheLineGoesNowhereAndStopsNothingOnPurpose) {
    for (const std::int16_t type : {UsbInterface, PcmciaCard, PciCard}) {
        StartWithDamagedFile(type, "513");
        Boxes.clear();
        Heartbeat heartbeat(Seconds());
        EXPECT_TRUE(Until([this] { return Frames.size() + CardFrames.size() > 2; }));
        EXPECT_TRUE(Boxes.empty());
        EXPECT_TRUE(Show.AutoXmit.Enabled);
        EXPECT_EQ(NextFrame(), FrameOf({{2, 77}, {3, 77}, {4, 77}}));
        StartAfresh();
    }
}

TEST_F(PatchFaults, IsaCardsTakeAnyChannelUncheckedOnPurpose) {
    for (const std::int16_t type : {IsaCardB, IsaCardC})
        for (const char* channel : {"0", "513", "-32768", "32767"}) {
            SCOPED_TRACE(std::to_string(type) + ": " + channel);
            StartWithDamagedFile(type, channel);
            Boxes.clear();
            Heartbeat heartbeat(Seconds());
            EXPECT_TRUE(Until([this] { return Card().Level(4) == 77; }));
            EXPECT_TRUE(Boxes.empty());
            EXPECT_TRUE(Show.AutoXmit.Enabled);
            EXPECT_EQ(Card().Level(1), 0);
            StartAfresh();
        }
}

TEST_F(PatchFaults, PatchDialogPutsItRightAndPlayGoesOn) {
    StartWithDamagedFile(UsbInterface, "0");
    Answer(QMessageBox::Ok);
    Heartbeat heartbeat(Seconds());
    ASSERT_TRUE(Until([] { return !Show.AutoXmit.Enabled && !QApplication::activeModalWidget(); }));
    QApplication::setActiveWindow(main.get());
    Click(Element(1));
    Choose("mnuElement");
    auto* red = Find<QLineEdit>("frmElement", "txtElement(1)");
    EXPECT_EQ(red->text(), "0");
    Click(red);
    Key(Qt::Key_A, Qt::ControlModifier);
    Type("100");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Show.Patch[1][1], 0); // a wall of 12 channels
    Click(red);
    Key(Qt::Key_A, Qt::ControlModifier);
    Type("1");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Show.Patch[1][1], 1);
    Show.StepCount = Show.CurrentStep = 1;
    Show.SequenceTimes[1][HoldTime] = 1;
    Show.SequenceTimes[1][BlendTime] = 5;
    Show.SequenceSteps[1][1].Fill(77);
    Show.StatusFlags.Set(Status::SequenceExists);
    Choose("mnuTransporter");
    Frames.clear();
    Click(Find<QPushButton>("frmControl", "cmdSequence(2)"));
    EXPECT_TRUE(Until([this] { return !Frames.empty() && Frames.back().at(0) == 77; }));
}

TEST_F(PatchFaults, LoadedPatchIsSeenInTheOpenDialogAndFaultsOfAPatchAreRed) {
    StartWithDamagedFile(UsbInterface, "4"); // white's channel
    Click(Element(1));
    Show.AutoXmit.Enabled = false;
    Choose("mnuElement");
    auto* red = Find<QLineEdit>("frmElement", "txtElement(1)");
    EXPECT_EQ(red->palette().color(QPalette::Text), QColor(255, 0, 0));
    ChooseFile("wand.CFG");
    Show.Patch[1][1] = 1;
    Choose("mnuConfigLaden");
    EXPECT_EQ(red->text(), "4");
}

} // namespace quorvane
