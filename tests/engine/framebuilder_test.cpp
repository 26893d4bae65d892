#include "bench/stage.h"

#include "engine/framebuilder.h"
#include "engine/outputclock.h"
#include "model/sequence.h"

#include <stdexcept>

namespace quorvane {

namespace {

class FrameBuilder : public Stage {
protected:
    // What the interface has after the frame went out.
    int Sent(int channel) {
        SendFrame();
        return Frame().at(static_cast<std::size_t>(channel - 1));
    }

    static std::string Refusal(void (*routine)()) {
        try {
            routine();
        } catch (const std::out_of_range& error) {
            return error.what();
        }
        return "nothing was refused";
    }
};

} // namespace

TEST_F(FrameBuilder, HoldSendsEveryChannelWhereItIsPatched) {
    for (const std::int16_t type : EveryInterface) {
        MakeWall(2, 1);
        Use(type);
        Show.Patch[2][3] = 512;
        for (int c = 1; c <= 4; ++c) {
            Show.ElementValue[1][c] = static_cast<std::uint8_t>(10 + c);
            Show.ElementValue[2][c] = static_cast<std::uint8_t>(20 + c);
        }
        MitKarteHold();
        EXPECT_EQ(Sent(1), 11) << type;
        EXPECT_EQ(Sent(4), 14) << type;
        EXPECT_EQ(Sent(6), 22) << type;
        EXPECT_EQ(Sent(7), 0) << type;
        EXPECT_EQ(Sent(512), 23) << type;
        EXPECT_TRUE(PaintedElements.empty());
    }
}

TEST_F(FrameBuilder, CorrectionLargerThanTheLevelSendsZeroAndTheWallShowsTheLevel) {
    MakeWall(1, 1);
    Use(UsbInterface);
    Show.ElementValue[1][1] = 100;
    Show.ElementValue[1][2] = 100;
    Show.ElementValue[1][3] = 255;
    Show.ColourCorrection[1][1] = 101;
    Show.ColourCorrection[1][2] = 99;
    Show.ColourCorrection[1][3] = 255;
    MitKarteHold();
    EXPECT_EQ(Sent(1), 0);
    EXPECT_EQ(Sent(2), 1);
    EXPECT_EQ(Sent(3), 0);
    EXPECT_EQ(Show.ElementValue[1][1], 100);
}

TEST_F(FrameBuilder, LaterElementWinsWhenTwoShareADmxChannel) {
    MakeWall(2, 1);
    Use(PciCard);
    Show.Patch[1][4] = 9;
    Show.Patch[2][1] = 9;
    Show.ElementValue[1][4] = 40;
    Show.ElementValue[2][1] = 50;
    MitKarteHold();
    EXPECT_EQ(Sent(9), 50);
}

TEST_F(FrameBuilder, UnpatchedDmxChannelsKeepTheirLastLevel) {
    for (const std::int16_t type : EveryInterface) {
        MakeWall(1, 1);
        Use(type);
        SetFrame(std::vector<std::uint8_t>(512, 77));
        MitKarteHold();
        EXPECT_EQ(Sent(4), 0) << type;
        EXPECT_EQ(Sent(5), 77) << type;
        EXPECT_EQ(Sent(512), 77) << type;
    }
}

TEST_F(FrameBuilder, PatchOutside1To513IsRefusedByNameForLibraryInterfaces) {
    MakeWall(3, 1);
    for (const std::int16_t type : {UsbInterface, PcmciaCard, PciCard}) {
        Use(type);
        Show.Patch[3][2] = 0;
        EXPECT_EQ(Refusal(MitKarteHold), "Element 3, Grün: Der DMX-Kanal 0 liegt nicht zwischen 1 und 513.");
        EXPECT_EQ(Refusal(MitKarteBlend), "Element 3, Grün: Der DMX-Kanal 0 liegt nicht zwischen 1 und 513.");
        Show.Patch[3][2] = 514;
        EXPECT_EQ(Refusal(MitKarteHold),
                  "Element 3, Grün: Der DMX-Kanal 514 liegt nicht zwischen 1 und 513.");
        Show.Patch[3][2] = -1;
        EXPECT_EQ(Refusal(MitKarteHold), "Element 3, Grün: Der DMX-Kanal -1 liegt nicht zwischen 1 und 513.");
        Show.Patch[3][2] = 6;
        EXPECT_NO_THROW(MitKarteHold());
    }
}

TEST_F(FrameBuilder, EveryColourIsNamedInARefusal) {
    Use(UsbInterface);
    const std::vector<std::string> colours{"Rot", "Grün", "Blau", "Weiß"};
    for (int c = 1; c <= 4; ++c) {
        MakeWall(1, 1);
        Show.Patch[1][c] = 600;
        EXPECT_EQ(Refusal(MitKarteHold), "Element 1, " + colours[static_cast<std::size_t>(c - 1)] +
                                             ": Der DMX-Kanal 600 liegt nicht zwischen 1 und 513.");
    }
}

TEST_F(FrameBuilder, Channel513PassesAlthoughDmxHasOnly512) {
    MakeWall(1, 1);
    Show.Patch[1][1] = 513;
    Show.ElementValue[1][1] = 66;
    Use(UsbInterface);
    MitKarteHold();
    EXPECT_EQ(Show.DmxOutBytes[512], 66);
    Use(PciCard);
    MitKarteHold();
    EXPECT_EQ(Show.DmxOut[512], 66);
}

TEST_F(FrameBuilder, IsaCardsTakeAnyPatchUncheckedAndZeroLandsInFrontOfTheFirstChannel) {
    MakeWall(1, 1);
    for (const std::int16_t type : {IsaCardB, IsaCardC}) {
        Use(type);
        Show.ElementValue[1][1] = 31;
        Show.ElementValue[1][2] = 32;
        Show.Patch[1][1] = 0;
        Show.Patch[1][2] = 2000;
        Memory[1023] = Memory[3023] = 0;
        MitKarteHold();
        EXPECT_EQ(Memory[1023], 31);
        EXPECT_EQ(Memory[3023], 32);
    }
}

TEST_F(FrameBuilder, WithoutACardFramesAndCardStayUntouched) {
    MakeWall(1, 1);
    AddStep(255, 1, 5);
    Show.CurrentStep = 1;
    Show.BlendSteps = 5;
    Show.ElementValue[1].Fill(10);
    for (const std::int16_t type : EveryInterface) {
        Use(type);
        Show.Patch[1][1] = 0; // not even looked at
        OhneKarteHold();
        EXPECT_TRUE(PaintedElements.empty());
        BlendeBerechnen();
        OhneKarteBlend();
        PaintedElements.clear();
    }
    EXPECT_EQ(Show.DmxOut, decltype(Show.DmxOut){});
    EXPECT_EQ(Show.DmxOutBytes, decltype(Show.DmxOutBytes){});
    EXPECT_TRUE(Written.empty());
    EXPECT_TRUE(Calls.empty());
}

TEST_F(FrameBuilder, NoInterfaceTakesNoLevels) {
    MakeWall(1, 1);
    Show.ElementValue[1].Fill(10);
    for (const std::int16_t type : {std::int16_t{0}, std::int16_t{6}, std::int16_t{-1}}) {
        Show.InterfaceType = type;
        Show.CardBase = Base;
        MitKarteHold();
        WriteChannel(1, 9);
    }
    EXPECT_EQ(Show.DmxOut, decltype(Show.DmxOut){});
    EXPECT_EQ(Show.DmxOutBytes, decltype(Show.DmxOutBytes){});
    EXPECT_TRUE(Written.empty());
}

TEST_F(FrameBuilder, BlendOfTenTicksReaches255OnTheTenthWithHalvesToEven) {
    const std::vector<int> values{26, 51, 76, 102, 128, 153, 178, 204, 230, 255};
    for (const bool withCard : {true, false}) {
        MakeWall(1, 1);
        Use(UsbInterface);
        Show.ElementValue[1].Fill(0);
        Show.StepCount = 0;
        AddStep(255, 1, 10);
        Show.CurrentStep = 1;
        Show.BlendSteps = 10;
        BlendeBerechnen();
        EXPECT_EQ(Level(), 0);
        for (const int value : values) {
            withCard ? MitKarteBlend() : OhneKarteBlend();
            EXPECT_EQ(Level(), value);
            EXPECT_EQ(Sent(1), withCard ? value : 255); // without a card what the first round left
        }
    }
}

TEST_F(FrameBuilder, BlendReachesItsTargetFromAnywhereAtAnyLength) {
    MakeWall(1, 1);
    AddStep(0, 1, 5);
    Show.CurrentStep = 1;
    for (const int steps : {1, 3, 5, 7, 49, 1000, 65535})
        for (const auto& [from, to] :
             std::vector<std::pair<int, int>>{{0, 255}, {255, 0}, {1, 254}, {77, 78}, {9, 9}}) {
            Show.ElementValue[1].Fill(static_cast<std::uint8_t>(from));
            Show.SequenceSteps[1][1].Fill(static_cast<std::uint8_t>(to));
            Show.BlendSteps = steps;
            BlendeBerechnen();
            for (int tick = 0; tick < steps; ++tick) OhneKarteBlend();
            EXPECT_EQ(Level(), to) << from << " in " << steps;
        }
}

TEST_F(FrameBuilder, BlendTickRepaintsEveryElementOnceInOrder) {
    MakeWall(3, 1);
    AddStep(90, 1, 5);
    Show.CurrentStep = 1;
    Show.BlendSteps = 5;
    BlendeBerechnen();
    EXPECT_TRUE(PaintedElements.empty());
    OhneKarteBlend();
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1, 2}));
    PaintedElements.clear();
    Use(PciCard);
    MitKarteBlend();
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1, 2}));
}

TEST_F(FrameBuilder, BlendIsCorrectedAtTheOutputOnly) {
    MakeWall(1, 1);
    Use(PcmciaCard);
    AddStep(100, 1, 2);
    Show.CurrentStep = 1;
    Show.BlendSteps = 2;
    Show.ColourCorrection[1].Fill(60);
    BlendeBerechnen();
    MitKarteBlend();
    EXPECT_EQ(Level(), 50);
    EXPECT_EQ(Sent(1), 0);
    MitKarteBlend();
    EXPECT_EQ(Level(), 100);
    EXPECT_EQ(Sent(1), 40);
}

TEST_F(FrameBuilder, PreparationShowsTheStepInTheSequencersFields) {
    MakeWall(1, 1);
    AddStep(100, 11, 12);
    Show.CurrentStep = 1;
    Show.BlendSteps = 3; // of the step before
    BlendeBerechnen();
    EXPECT_EQ(Show.SequencerField[0], "1");
    EXPECT_EQ(Show.SequencerField[1], "12");
    EXPECT_EQ(Show.SequencerField[2], "11");
}

TEST_F(FrameBuilder, BlendOfNoTicksIsADivisionByZero) {
    MakeWall(1, 1);
    AddStep(100, 1, 0);
    Show.CurrentStep = 1;
    Show.BlendSteps = 0;
    try {
        BlendeBerechnen();
        FAIL() << "nothing was thrown";
    } catch (const std::domain_error& error) {
        EXPECT_STREQ(error.what(), "Szene 1: In 0 Schritten kann nicht übergeblendet werden.");
    }
}

TEST_F(FrameBuilder, RoundedLevelOutside0To255IsAnOverflow) {
    MakeWall(1, 1);
    for (const auto& [increment, level] :
         std::vector<std::pair<float, std::string>>{{255.6f, "256"}, {-0.6f, "-1"}}) {
        Show.BlendValue[1].Fill(0);
        Show.BlendIncrement[1].Fill(increment);
        Show.ElementValue[1].Fill(7);
        try {
            OhneKarteBlend();
            FAIL() << "nothing was thrown";
        } catch (const std::overflow_error& error) {
            EXPECT_EQ(error.what(), "Element 1, Rot: Der Wert " + level + " liegt nicht zwischen 0 und 255.");
        }
        EXPECT_EQ(Level(), 7);
    }
}

TEST_F(FrameBuilder, LargestWallFromAFileFillsTheFrame) {
    Show.StatusFlags.Set(Status::AutoChannelCount);
    MakeWall(25, 10);
    for (int element = 1; element <= 250; ++element) {
        Show.ElementValue[element].Fill(static_cast<std::uint8_t>(element));
        for (int c = 1; c <= 4; ++c)
            Show.Patch[element][c] = static_cast<std::int16_t>((4 * (element - 1) + c - 1) % 512 + 1);
    }
    Use(UsbInterface);
    MitKarteHold();
    EXPECT_EQ(Sent(1), 129); // elements 1 and 129 share the channel
    EXPECT_EQ(Sent(488), 250);
    EXPECT_EQ(Sent(489), 123);
}

TEST_F(FrameBuilder, SingleChannelsAreWrittenToTheActiveInterface) {
    for (const std::int16_t type : EveryInterface) {
        Use(type);
        WriteChannel(1, 5);
        WriteChannel(512, 6);
        EXPECT_EQ(Sent(1), 5);
        EXPECT_EQ(Sent(512), 6);
    }
    for (const std::int16_t type : {UsbInterface, PciCard}) {
        Use(type);
        EXPECT_THROW(WriteChannel(0, 1), std::out_of_range);
    }
}

TEST_F(FrameBuilder, SingleChannelsGoNowhereWhileNoCardIsOpen) {
    for (const std::int16_t type : {IsaCardB, IsaCardC})
        for (const int base : {0, 1, 255}) {
            Use(type);
            Show.CardBase = base;
            WriteChannel(1, 5);
        }
    EXPECT_TRUE(Written.empty());
}

} // namespace quorvane
