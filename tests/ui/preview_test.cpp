// The program without an interface: its first start, and a second one beside a first.
#include "ui/sequencerwindowbench.h"

#include <QScreen>

namespace quorvane {

class Preview : public SequencerWindowBench {
protected:
    QColor ShownColour() { return OnScreen(Find<QWidget>("frmWand", "lblElement(0)")).pixelColor(4, 4); }
    void ExpectPlaysOnTheWall() {
        MakeSequence(2);
        main->Wand->Open();
        Choose("mnuTransporter");
        ASSERT_FALSE(Show.AutoXmit.Enabled);
        Click(Button(2));
        EXPECT_TRUE(Show.AutoXmit.Enabled);
        std::vector<QColor> colours;
        for (int tick = 0; tick < 10; ++tick) {
            Ticks(1);
            if (colours.empty() || colours.back() != ShownColour()) colours.push_back(ShownColour());
        }
        EXPECT_GT(colours.size(), 4u) << "it fades";
        EXPECT_TRUE(Frames.empty());
    }
};

TEST_F(Preview, FirstStartTellsOfTheInterfaceThenOfTheSettingsAndPlaysOnTheWall) {
    Settings.clear();
    QFile::remove(Folder.filePath("QUORVANE.ini"));
    Answer(QMessageBox::Ok);
    Answer(QMessageBox::Ok);
    StartProgram();
    ASSERT_EQ(Boxes.size(), 2u);
    EXPECT_EQ(Boxes[0].Text, "INTERFACE SELECT ERROR");
    EXPECT_EQ(Boxes[0].Sign, QMessageBox::Critical);
    EXPECT_EQ(Boxes[1].Text, "Fehler beim laden der QUORVANE.ini im Abschnitt [DMXINI]");
    EXPECT_TRUE(main->isVisible());
    EXPECT_GT(main->width(), 400);
    EXPECT_TRUE(main->screen()->availableGeometry().contains(main->geometry().center()));
    EXPECT_FALSE(main->Wand->isVisible());
    ExpectPlaysOnTheWall();
}

TEST_F(Preview, SecondProgramPlaysOnTheWallAndItsEntriesStayOff) {
    Settings["Interface/Type"] = "1"; // which switches them on at first
    Host.PreviousInstance = [] { return true; };
    Answer(QMessageBox::Ok);
    StartProgram();
    Answer(QMessageBox::Ok);
    Choose("mnuDMXInit");
    EXPECT_EQ(Boxes.size(), 2u);
    EXPECT_FALSE(Entry("mnuDMXStart")->isEnabled());
    EXPECT_FALSE(Entry("mnuDMXStop")->isEnabled());
    ExpectPlaysOnTheWall();
}

} // namespace quorvane
