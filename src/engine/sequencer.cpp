#include "engine/sequencer.h"

#include "devices/interface.h"
#include "engine/framebuilder.h"
#include "engine/outputclock.h"
#include "model/changes.h"
#include "model/screen.h"
#include "model/selection.h"
#include "model/sequence.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

#include <algorithm>

namespace quorvane {

namespace {

void EndTestMode() {
    if (!Show.StatusFlags.Has(Status::TestMode)) return;
    TestModeOff();
    Screen.SequencerStatus("Testmodus wurde abgeschaltet");
}

bool IsPlaying() { return Show.StatusFlags.Has(Status::SequencePlaying); }

bool HasSequence() {
    if (Show.StatusFlags.Has(Status::SequenceExists)) return true;
    Screen.SequencerStatus(" Es ist noch keine Sequenz erstellt worden!");
    return false;
}

void JumpTo(int step) {
    Show.CurrentStep = static_cast<std::uint8_t>(step);
    JumpToStep();
}

// While a transition runs, CurrentStep already names the step after the one shown.
bool TransitionRuns() { return IsPlaying() && (Show.HoldCounter > 0 || Show.BlendCounter != 0); }

// The time in a field, or usual when the field holds no valid one.
int FieldTime(int field, int shortest, int usual) {
    const auto text = Trimmed(Show.SequencerField[field]);
    if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos) return usual;
    const int time = TypedNumber(text);
    return time < shortest || time > LongestTime ? usual : time;
}

void TakeTimesFromFields(int step) {
    SetBlend(step, FieldTime(1, ShortestBlend, DefaultBlend));
    SetHold(step, FieldTime(2, ShortestHold, DefaultHold));
}

void AppendStep() {
    ++Show.StepCount;
    MarkSequenceChanged();
    if (!Show.StatusFlags.Has(Status::SequenceExists)) Show.ChangeFlags.Set(Change::SequenceNew);
    Show.StatusFlags.Set(Status::SequenceExists);
    const int step = ++Show.CurrentStep;
    // All elements there can be, so that a wall enlarged later finds its levels too.
    for (int element = 1; element <= MaxElements; ++element)
        Show.SequenceSteps[step][element] = Show.ElementValue[element];
    TakeTimesFromFields(step);
    ShowStepFields();
}

} // namespace

void PreviousScene() {
    EndTestMode();
    if (!HasSequence()) return;
    const int back = TransitionRuns() && Show.StepCount > 1 ? 2 : 1;
    const int step = std::max<int>(Show.CurrentStep, 1) - back;
    JumpTo(step < 1 ? step + Show.StepCount : step);
}

// At the end only, also while the sequence plays; and it is the current step that is held against the limit,
// so a longer sequence from a file gets no further one: all on purpose.
void SceneToSequence() {
    EndTestMode();
    if (Show.StatusFlags.Has(Status::SequenceExists) && Show.CurrentStep != Show.StepCount) {
        Screen.SequencerStatus("Nur am Ende einer Sequenz möglich.");
        return;
    }
    if (Show.CurrentStep >= MaxRecordedSteps) {
        ShowMessage("In dieser Programmversion sind maximal 250 Schritte in einer Sequenz möglich.");
        return;
    }
    Screen.SequencerStatus("Szene in die Sequenz aufgenommen.");
    AppendStep();
    RepaintSelection();
}

void Play() {
    EndTestMode();
    if (!Show.StatusFlags.Has(Status::SequenceExists)) {
        Screen.SequencerStatus("Es wurde noch keine Sequenz programmiert !");
        return;
    }
    if (!IsPlaying()) {
        Show.StatusFlags.Set(Status::SequencePlaying);
        Show.CurrentStep = std::max<std::uint8_t>(Show.CurrentStep, 1);
        Show.HoldCounter = 0; // a stopped fade is not taken up again
        Show.BlendCounter = 0;
    }
    Screen.SequencerStatus("Sequenz wird abgespielt.");
    Screen.MainCaption(Show.CaptionPrefix +
                       ": KMO DMX QUORVANE  ....running.  Interfacetype= " + Decimal(Show.InterfaceType));
    RepaintSelection();
    EnableOutputClock();
}

void StopSequence() {
    EndTestMode();
    Show.StatusFlags.Clear(Status::SequencePlaying);
    Screen.SequencerStatus("Sequenzer gestoppt.");
    Screen.MainCaption(Show.CaptionPrefix + ": KMO DMX QUORVANE  ....stopped");
    RepaintSelection(); // a fade painted over it
}

// While playing, CurrentStep is ahead of the step shown already, so one step is passed over on purpose.
void NextScene() {
    EndTestMode();
    if (!HasSequence()) return;
    JumpTo(Show.CurrentStep < Show.StepCount ? Show.CurrentStep + 1 : 1);
    Screen.SequencerStatus("Nächste Scene.");
}

void BackToStart() {
    EndTestMode();
    if (HasSequence() && !IsPlaying()) JumpTo(1);
}

bool DarkenOutputForDelete() {
    EndTestMode();
    if (IsPlaying()) {
        Screen.SequencerStatus("Sie müssen die Sequenz erst anhalten!");
        return false;
    }
    for (int channel = 1; channel <= DmxChannels; ++channel) WriteChannel(channel, 0);
    SendFrame();
    return true;
}

// The scenes of the steps stay where they are on purpose: without a length nothing reaches them.
void EmptySequence() {
    Show.StatusFlags.Clear(Status::SequenceExists);
    Show.StepCount = 0;
    Show.CurrentStep = 0;
    TakeTimesFromFields(1);
    ShowSequencerField(0, "");
    ShowSequencerField(1, Decimal(BlendOf(1)));
    ShowSequencerField(2, Decimal(HoldOf(1)));
    Show.SequenceFile.clear();
    RepaintSelection();
    Screen.SequencerCaption("SEQUENZER");
    Screen.SequencerStatus("Die Sequenz wurde gelöscht.");
}

} // namespace quorvane
