#include "engine/outputclock.h"

#include "devices/interface.h"
#include "devices/isacard.h"
#include "engine/framebuilder.h"
#include "model/screen.h"
#include "model/selection.h"
#include "model/sequence.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

namespace quorvane {

namespace {

constexpr int ParameterWords = 10; // of DmxIni that the card takes
constexpr int UsbSend = 4;
constexpr int UsbBeforeSend = 5;

void WriteParameters() {
    if (Show.DmxIniDirty == 0) return;
    for (int word = 0; word < ParameterWords; ++word)
        WriteDpr(Show.CardBase, CardParameters + word, static_cast<std::uint8_t>(Show.DmxIni[word]));
    // Not the count that the wall build had divided: its word 4 is rounded, on purpose.
    Show.ChannelCount = static_cast<std::int16_t>(Show.DmxIni[4] * 256 + Show.DmxIni[3]);
    Show.DmxIniDirty = 0;
}

void WriteTestLevels() {
    for (int channel = 1; channel <= DmxChannels; ++channel)
        WriteChannel(channel, Show.TestLevels[channel - 1]);
}

void ProduceFrame() {
    if (Show.StatusFlags.Has(Status::TestMode))
        WriteTestLevels();
    else if (Show.StatusFlags.Has(Status::SequencePlaying))
        MitKarte();
    else
        MitKarteHold();
    if (Show.StatusFlags.Has(Status::Monitor)) ShowMonitor();
}

void IsaTick() {
    if (Show.CardBase <= LastBaseWithoutCard)
        OhneKarte();
    else {
        if (Show.InterfaceType == IsaCardB) WriteParameters();
        ProduceFrame();
    }
    mnuDMXStart_Click(); // the start strobe and the caption at every tick, on purpose
}

void UsbTick() {
    if (Show.InterfaceOpen[UsbInterface] != 1) {
        OhneKarte();
        return;
    }
    ProduceFrame();
    SendFrame();
}

// The number stands right before its word, and that of a hold is one more than is left, on purpose.
void ShowTicks(int ticks, std::string_view phase) {
    TickText text;
    Screen.SequencerStatus(text << ticks << phase);
}

// From CurrentStep, which has stood or was jumped to, into the step after it. The step that is left is held
// only now, when the sequencer shows the next one, and no channel is computed in this tick: both on purpose.
void StartTransition() {
    const int from = Show.CurrentStep;
    Show.BlendSteps = TurboBlendOf(from);
    Show.BlendCounter = Show.BlendSteps + 1;
    Show.HoldCounter = TurboHoldOf(from);
    Show.CurrentStep = static_cast<std::uint8_t>(from < Show.StepCount ? from + 1 : 1);
    BlendeBerechnen();
    --Show.BlendCounter;
    ShowTicks(Show.BlendCounter, "Blend ");
}

// A level that cannot be sent throws before its tick is counted.
void StepTick(void (*hold)(), void (*blend)()) {
    if (Show.HoldCounter > 0) {
        hold();
        --Show.HoldCounter;
        ShowTicks(Show.HoldCounter + 1, "Hold  ");
    } else if (Show.BlendCounter != 0) {
        blend();
        --Show.BlendCounter;
        ShowTicks(Show.BlendCounter, "Blend ");
    } else
        StartTransition();
}

int MonitorLevel(int channel) {
    switch (Show.InterfaceType) {
    case IsaCardB:
    case IsaCardC:
        if (Show.CardBase <= LastBaseWithoutCard) return 0;
        return ReadDpr(Show.CardBase, CardDmx + channel - 1);
    // The byte of the channel after it, and of the frame that types 4 and 5 never fill: both on purpose.
    case UsbInterface:
    case PcmciaCard:
    case PciCard: return InterfaceReady(Show.InterfaceType) ? Show.DmxOutBytes[channel] : 0;
    default: return 0;
    }
}

} // namespace

void AutoXmit_Timer() {
    switch (Show.InterfaceType) {
    case NoInterface: OhneKarte(); break;
    case IsaCardB:
    case IsaCardC: IsaTick(); break;
    case UsbInterface: UsbTick(); break;
    case PcmciaCard:
    case PciCard:
        ProduceFrame();
        SendFrame();
        break;
    default: break;
    }
}

void MitKarte() {
    if (Show.StatusFlags.Has(Status::SequencePlaying)) StepTick(MitKarteHold, MitKarteBlend);
}

// A sequence that plays goes on in test mode, on purpose.
void OhneKarte() {
    if (Show.StatusFlags.Has(Status::SequencePlaying))
        StepTick(OhneKarteHold, OhneKarteBlend);
    else if (!Show.StatusFlags.Has(Status::TestMode))
        OhneKarteHold();
}

void SendFrame() {
    switch (Show.InterfaceType) {
    case UsbInterface: {
        if (Show.InterfaceOpen[UsbInterface] != 1) return;
        std::uint8_t received = 0;
        Host.DasHardCommand(UsbBeforeSend, 0, &received);
        Host.DasHardCommand(UsbSend, DmxChannels, Show.DmxOutBytes.data());
        break;
    }
    case PcmciaCard:
    case PciCard:
        Host.DMXSEND(&Show.DriverHandle, Show.DmxOut.data());
        Host.DMXSEND2(&Show.DriverHandle, Show.DmxOut.data());
        break;
    default: break;
    }
}

void ShowMonitor() {
    for (int row = 0; row <= 7; ++row) Screen.MonitorValue(row, MonitorLevel(Show.MonitorChannel[row]));
}

void JumpToStep() {
    Show.AutoXmit.Enabled = false;
    Screen.MainCaption(Show.CaptionPrefix + ": KMO DMX QUORVANE  ....stopped: Scene change");
    ShowStepFields();
    CopyStepToWall();
    RepaintSelection();
    Screen.SequencerStatus("Auf Szene Nr " + Decimal(Show.CurrentStep) + " gesprungen.");
    Show.BlendCounter = 0;
    Show.HoldCounter = 0;
    EnableOutputClock(); // the caption goes on saying "stopped", on purpose
}

void TestModeOff() {
    Screen.TestModeEnded();
    Show.StatusFlags.Clear(Status::TestMode);
}

} // namespace quorvane
