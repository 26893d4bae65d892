#include "engine/sequencerbench.h"

namespace quorvane {

using SequencerDeleting = SequencerBench;

TEST_F(SequencerDeleting, DeletingIsRefusedWhilePlaying) {
    MakeSequence(2, 1);
    Use(UsbInterface);
    PlayTowards(2);
    Calls.clear();
    EXPECT_FALSE(DarkenOutputForDelete());
    EXPECT_EQ(Status(), "Sie müssen die Sequenz erst anhalten!");
    EXPECT_TRUE(Calls.empty());
}

TEST_F(SequencerDeleting, OutputGoesDarkBeforeDeletingOnEveryInterface) {
    for (const std::int16_t type : {IsaCardB, IsaCardC, UsbInterface, PcmciaCard, PciCard}) {
        Use(type);
        SetFrame(std::vector<std::uint8_t>(512, 99));
        Show.ElementValue[1].Fill(50);
        EXPECT_TRUE(DarkenOutputForDelete());
        EXPECT_EQ(Frame(), std::vector<std::uint8_t>(512, 0)) << type;
        Tick(); // unpatched channels stay dark, the wall lights again
        EXPECT_EQ(Frame()[0], 50);
        EXPECT_EQ(Frame()[100], 0);
    }
}

TEST_F(SequencerDeleting, OneDarkFrameIsHandedOver) {
    Use(UsbInterface);
    DarkenOutputForDelete();
    EXPECT_EQ(Calls, (std::vector<std::string>{"usb 5 0", "usb 4 512"}));
}

TEST_F(SequencerDeleting, NothingIsSentDarkWithoutAnOpenInterface) {
    DarkenOutputForDelete();
    Use(UsbInterface);
    Show.InterfaceOpen[UsbInterface] = 0;
    DarkenOutputForDelete();
    Use(IsaCardB);
    Show.CardBase = 0;
    DarkenOutputForDelete();
    EXPECT_TRUE(Calls.empty());
    EXPECT_TRUE(Written.empty());
}

TEST_F(SequencerDeleting, DarkeningLeavesSequenceClockAndMarks) {
    MakeSequence(3, 2);
    Show.SequenceFile = "abend.QSQ";
    Show.ChangeFlags.Set(Change::SequenceChanged);
    EXPECT_TRUE(DarkenOutputForDelete());
    EXPECT_EQ(Show.StepCount, 3);
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Show.SequenceFile, "abend.QSQ");
    EXPECT_EQ(Show.ChangeFlags.bits, 0x20);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_TRUE(Log.empty());
}

TEST_F(SequencerDeleting, EmptiedSequenceKeepsItsScenesOutOfReach) {
    MakeSequence(3, 2);
    Show.SequenceFile = "abend.QSQ";
    FillFields("60", "7");
    EmptySequence();
    EXPECT_FALSE(Show.StatusFlags.Has(quorvane::Status::SequenceExists));
    EXPECT_EQ(Show.StepCount, 0);
    EXPECT_EQ(Show.CurrentStep, 0);
    EXPECT_EQ(Show.SequenceFile, "");
    EXPECT_EQ(BlendOf(1), 60);
    EXPECT_EQ(HoldOf(1), 7);
    EXPECT_EQ(HoldOf(2), 3);
    EXPECT_EQ(Show.SequenceSteps[3][1][1], 30); // left in place on purpose
    EXPECT_EQ(Status(), "Die Sequenz wurde gelöscht.");
    EXPECT_EQ(LastText("caption", "frmControl"), "SEQUENZER");
    EXPECT_EQ(Show.SequencerField[0], "");
}

TEST_F(SequencerDeleting, EmptyingStoresNoInvalidTime) {
    MakeSequence(1, 1);
    FillFields("0", "");
    EmptySequence();
    EXPECT_EQ(BlendOf(1), 50);
    EXPECT_EQ(HoldOf(1), 1);
}

TEST_F(SequencerDeleting, EmptyingWithoutASequenceIsAllowed) {
    EXPECT_TRUE(DarkenOutputForDelete());
    EmptySequence();
    EXPECT_EQ(Status(), "Die Sequenz wurde gelöscht.");
}

} // namespace quorvane
