#include "devices/playunit.h"

#include "bench/playunitbench.h"
#include "devices/interface.h"
#include "devices/sceneimage.h"
#include "model/sequence.h"

namespace quorvane {
namespace {

using TextList = std::vector<std::string>;

class PlayUnit : public PlayUnitBench {};

TEST_F(PlayUnit, TransferIsRefusedWithoutACard) {
    for (const int base : {0, 255}) {
        Log.clear();
        PaintedElements.clear();
        Show.CardBase = base;
        Show.CurrentStep = 2;
        mnuSequenceToMerger_Click();
        EXPECT_EQ(Log,
                  (std::vector<Noticed>{{"beep", "", "", ""},
                                        {"box",
                                         "Ohne Karte kann nicht gesendet werden.\nBitte installieren Sie "
                                         "eine DMX-Interfacekarte 7300B",
                                         "", "QUORVANE", Icon::Exclamation}}));
        EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1}));
        EXPECT_EQ(Show.CurrentStep, 2) << "a sequence on another interface is not moved on";
        EXPECT_FALSE(Show.timSendToMerger.Enabled);
        EXPECT_TRUE(Show.AutoXmit.Enabled);
    }
    EXPECT_TRUE(Trace.empty());
}

TEST_F(PlayUnit, TransferIsRefusedWhileASequencePlays) {
    Show.StatusFlags.Set(Status::SequencePlaying);
    mnuSequenceToMerger_Click();
    EXPECT_EQ(Texts("box"), TextList{"Während eine Sequenz abgespielt wird, kann nicht gesendet werden!"});
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Show.DmxIni[3], 303);
}

TEST_F(PlayUnit, TransferStopsTheClockAndTakesTheParameterBlock) {
    Show.SequencerField[1] = "515";
    mnuSequenceToMerger_Click();
    EXPECT_TRUE(Show.timSendToMerger.Enabled);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(LastText("caption", "MDIHaupt"),
              ": KMO DMX QUORVANE  ....stopped: transferring Sequence to PlayUnit");
    EXPECT_EQ(Words(), (std::vector<int>{300, 301, 302, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Show.SavedDmxIni[10], 310 & 255);
    EXPECT_EQ(Show.SavedDmxIni[11], 0);
    EXPECT_EQ(Show.SavedDmxIni[16], 515 & 255);
    EXPECT_TRUE(Trace.empty());
}

TEST_F(PlayUnit, SecondStartDuringATransferKeepsTheSavedParameters) {
    mnuSequenceToMerger_Click();
    Tick(2);
    mnuSequenceToMerger_Click();
    EXPECT_EQ(Show.TransferImage, 3);
    EXPECT_EQ(Show.SavedDmxIni[3], 303 & 255);
}

TEST_F(PlayUnit, TickStrobesThenWritesParametersThenTheImage) {
    for (const std::int16_t type : {IsaCardB, IsaCardC}) {
        Show.InterfaceType = type;
        Show.timSendToMerger.Enabled = false;
        mnuSequenceToMerger_Click();
        Tick();
        ASSERT_EQ(Trace.size(), 1u + 3 * 16 + 3 * 512);
        EXPECT_EQ(Trace[0], (type == IsaCardB ? PortAccess{'w', 0x140, 0} : PortAccess{'r', 0x140, 0}));
        EXPECT_EQ(Trace[1], (PortAccess{'w', 0x140, 1008 & 255}));
        EXPECT_EQ(Trace[2], (PortAccess{'w', 0x141, 3}));
        EXPECT_EQ(Trace[6], (PortAccess{'w', 0x142, 1})); // word 1: the image's number
        EXPECT_EQ(Trace[49], (PortAccess{'w', 0x140, 0}));
        EXPECT_EQ(Trace[50], (PortAccess{'w', 0x141, 4}));
        EXPECT_EQ(Bus.Cards[0].Level(512), 128);
    }
}

TEST_F(PlayUnit, ThreeStepsAreFollowedByTheLastSceneImageAndFillImages) {
    mnuSequenceToMerger_Click();
    for (int image = 1; image <= 255; ++image) {
        Tick();
        const SceneImage expected = BuildSceneImage(image);
        for (int channel = 1; channel <= 512; ++channel)
            ASSERT_EQ(Bus.Cards[0].Level(channel), expected[channel - 1]) << image << " " << channel;
        ASSERT_EQ(Bus.Cards[0].Memory[1009], image);
    }
    const TextList progress = Texts("status");
    ASSERT_EQ(progress.size(), 256u);
    EXPECT_EQ(progress[0], "Schreibe Scene (Lichtbild) Nr.: 0");
    EXPECT_EQ(progress[2], "Schreibe Scene (Lichtbild) Nr.: 2");
    EXPECT_EQ(progress[3], "Schreibe letzte Scene (Lichtbild) 3");
    EXPECT_EQ(progress[4], "Fülle Lichtbild  mit Null auf  4");
    EXPECT_EQ(progress[254], "Fülle Lichtbild  mit Null auf  254");
    EXPECT_EQ(progress[255], "Fertig mit Senden.");
}

TEST_F(PlayUnit, EveryImageCarriesItsOwnTimesAndTheFourthTheSceneOfStepOne) {
    for (int step = 1; step <= 255; ++step) {
        SetBlend(step, 2 * 256 + step);
        SetHold(step, step % 100 * 256 + 7);
    }
    for (int step = 1; step <= 3; ++step)
        for (int channel = 1; channel <= 4; ++channel) {
            Show.SequenceSteps[step][1][channel] = static_cast<std::uint8_t>(10 * step + channel);
            Show.SequenceSteps[step][2][channel] = static_cast<std::uint8_t>(100 + 10 * step + channel);
        }
    Show.SequenceSteps[4][1].Fill(250); // left over from a longer sequence
    mnuSequenceToMerger_Click();
    for (int image = 1; image <= 255; ++image) {
        Tick();
        std::vector<int> expected(512);
        if (image <= 4) {
            const int tens = image == 4 ? 10 : 10 * image;
            for (int channel = 1; channel <= 4; ++channel) {
                expected[static_cast<std::size_t>(channel - 1)] = tens + channel;
                expected[static_cast<std::size_t>(channel + 3)] = 100 + tens + channel;
            }
        }
        expected[506] = 2;
        expected[507] = image;
        expected[508] = image % 100;
        expected[509] = 7;
        expected[511] = image <= 3 ? 128 : 0;
        for (int channel = 1; channel <= 512; ++channel)
            ASSERT_EQ(Bus.Cards[0].Level(channel), expected[static_cast<std::size_t>(channel - 1)])
                << image << " " << channel;
    }
}

TEST_F(PlayUnit, WordsOfTheParameterBlockReachTheCardByTheirLowBytes) {
    Show.DmxIni[0] = 300;
    Show.DmxIni[2] = -2;
    Show.DmxIni[7] = -3;
    mnuSequenceToMerger_Click();
    Tick();
    EXPECT_EQ(Bus.Cards[0].Memory[1008], 44);
    EXPECT_EQ(Bus.Cards[0].Memory[1010], 254);
    Tick(254);
    EXPECT_EQ(Show.DmxIni[0], 300) << "the transfer does not touch it";
    EXPECT_EQ(Show.DmxIni[2], 254);
    EXPECT_EQ(Show.DmxIni[7], 253);
}

TEST_F(PlayUnit, CardIsNotStrobedWhileAnotherInterfaceIsChosen) {
    for (const std::int16_t type : {NoInterface, UsbInterface, PcmciaCard, PciCard}) {
        Show.InterfaceType = type;
        Show.timSendToMerger.Enabled = false;
        mnuSequenceToMerger_Click();
        Tick();
        ASSERT_EQ(Trace.size(), 3u * (16 + 512)) << type;
        EXPECT_EQ(Trace[0], (PortAccess{'w', 0x140, 1008 & 255}));
        EXPECT_EQ(Accesses('r', 0x140), 0);
        EXPECT_EQ(Bus.Cards[0].Level(512), 128);
        Bus.Cards[0].Memory.at(1535) = 0;
    }
}

TEST_F(PlayUnit, EndRestoresLowBytesOnlyAndWordsElevenToFifteenBecomeZero) {
    Show.AutoXmit.Enabled = false;
    mnuSequenceToMerger_Click();
    Tick(254);
    EXPECT_TRUE(Show.timSendToMerger.Enabled);
    EnableOutputClock();
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    Tick();
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_TRUE(Show.AutoXmit.Enabled) << "whether it was on before or not";
    EXPECT_EQ(Words(), (std::vector<int>{300, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Show.DmxIniDirty, 1);
    EXPECT_EQ(LastText("caption", "MDIHaupt"), ": KMO DMX QUORVANE  ....Transfer complete");
}

TEST_F(PlayUnit, AbandonedTransferLeavesTheParameterBlockAsItWas) {
    mnuSequenceToMerger_Click();
    Tick(10);
    AbandonTransfer();
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
    EXPECT_EQ(Words(), (std::vector<int>{300, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54, 0, 0, 0, 0, 0}));
    Show.DmxIni[1] = 99;
    AbandonTransfer();
    EXPECT_EQ(Show.DmxIni[1], 99) << "there is none any more";
}

TEST_F(PlayUnit, FilesStoreTheParametersThatStoodBeforeTheTransfer) {
    const auto kept = [] {
        const auto block = ParametersToKeep();
        return std::vector<int>(block.begin(), block.end());
    };
    EXPECT_EQ(kept(), Words());
    mnuSequenceToMerger_Click();
    Tick(10);
    EXPECT_EQ(kept(), (std::vector<int>{300, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Show.DmxIni[1], 10);
    Tick(245);
    Show.DmxIni[1] = 99;
    EXPECT_EQ(kept(), Words()) << "what was saved for the transfer is old now";
}

TEST_F(PlayUnit, CaptionTellsThatAnAbandonedTransferStopped) {
    mnuSequenceToMerger_Click();
    AbandonTransfer();
    EXPECT_EQ(LastText("caption", "MDIHaupt"), ": KMO DMX QUORVANE  ....stopped");
    mnuSequenceToMerger_Click();
    ReportFailure(IsaCardB);
    Tick();
    EXPECT_EQ(LastText("caption", "MDIHaupt"), Failed + "Windows XP") << "the cause stays in sight";
}

TEST_F(PlayUnit, WindowsLearnWhenATransferRuns) {
    std::vector<bool> told;
    Screen.TransferRuns = [&](bool runs) { told.push_back(runs); };
    mnuSequenceToMerger_Click();
    EXPECT_EQ(told, std::vector<bool>{true});
    Tick(255);
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
    mnuSequenceToMerger_Click();
    AbandonTransfer();
    EXPECT_EQ(told, (std::vector<bool>{true, false, true, false}));
    EXPECT_EQ(LastText("status", "frmControl"), "Das Senden wurde abgebrochen.");
}

TEST_F(PlayUnit, TransferIsAbandonedWhenTheCardIsGone) {
    mnuSequenceToMerger_Click();
    Tick(3);
    ReportFailure(IsaCardB);
    Tick();
    EXPECT_TRUE(Trace.empty());
    EXPECT_FALSE(Show.timSendToMerger.Enabled);
    EXPECT_EQ(Show.DmxIni[3], 47);
}

TEST_F(PlayUnit, EmptySequenceSendsStepOneAsTheLastSceneImage) {
    Show.StepCount = 0;
    Show.SequenceSteps[1][1][1] = 77;
    mnuSequenceToMerger_Click();
    Tick();
    EXPECT_EQ(Bus.Cards[0].Level(1), 77);
    EXPECT_EQ(Bus.Cards[0].Level(512), 0);
    EXPECT_EQ(Texts("status"), TextList{"Schreibe letzte Scene (Lichtbild) 0"});
}

} // namespace
} // namespace quorvane
