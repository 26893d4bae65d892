#include "engine/sequencerfields.h"

#include "engine/outputclock.h"
#include "model/changes.h"
#include "model/screen.h"
#include "model/sequence.h"
#include "model/show.h"
#include "model/text.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr int LargestFactor = 65534;
constexpr int LargestAdvisedFactor = 10000; // a larger one is advised against and taken all the same

bool HasSequence() { return Show.StatusFlags.Has(Status::SequenceExists); }

bool IsDigitsOnly(std::string_view text) {
    return Trimmed(text).find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsWithin(std::string_view text, int lowest, int highest) {
    const int number = TypedNumber(text);
    return IsDigitsOnly(text) && number >= lowest && number <= highest;
}

std::string_view Fault(int number, int lowest, int highest, std::string_view below, std::string_view above) {
    if (number < lowest) return below;
    return number > highest ? above : std::string_view{};
}

// The one that the step field names. It follows the playback, so a time that is typed while a sequence
// plays is stored for the step that stands there when the field is left.
int NamedStep() {
    const int named = TypedNumber(Show.SequencerField[StepField]);
    return named >= 1 && named <= Show.StepCount ? named : std::max<int>(Show.CurrentStep, 1);
}

void GoToStep(int step) {
    Show.CurrentStep = static_cast<std::uint8_t>(step);
    JumpToStep();
}

void StoreTime(int field, int ticks) {
    const int step = NamedStep();
    const bool blend = field == BlendField;
    if (ticks == (blend ? BlendOf(step) : HoldOf(step))) return;
    blend ? SetBlend(step, ticks) : SetHold(step, ticks);
    MarkSequenceChanged();
}

void ShowStoredValue(int field) {
    switch (field) {
    case StepField: ShowSequencerField(field, Show.CurrentStep > 0 ? Decimal(Show.CurrentStep) : ""); break;
    case BlendField: ShowSequencerField(field, Decimal(BlendOf(NamedStep()))); break;
    case HoldField: ShowSequencerField(field, Decimal(HoldOf(NamedStep()))); break;
    default: ShowSequencerField(field, Decimal(Show.TurboFactor));
    }
}

} // namespace

std::string_view AdviceOnField(int field, std::string_view text) {
    if (!HasSequence()) return "Keine Sequenz.";
    switch (field) {
    case StepField: return IsWithin(text, 1, Show.StepCount) ? "" : "Scene not contained in Sequence";
    case BlendField:
        return IsWithin(text, ShortestBlend, LongestTime) ? ""
                                                          : "Nur Werte zwischen 5 und 65534 sind erlaubt.";
    case HoldField:
        return IsWithin(text, ShortestHold, LongestTime) ? ""
                                                         : "Nur Werte zwischen 1 und 65534 sind erlaubt.";
    default:
        return IsWithin(text, 1, LargestAdvisedFactor) ? "" : "Turbofaktor darf zwischen 1 und 10.000 liegen";
    }
}

std::string_view FaultOfField(int field, std::string_view text) {
    if (!HasSequence()) return " Es wurde noch keine Sequenz erstellt.";
    if (!IsDigitsOnly(text)) return " Es sind nur Zahlen erlaubt. ";
    const int number = TypedNumber(text);
    switch (field) {
    case StepField:
        return Fault(number, 1, Show.StepCount, " Bitte geben Sie eine vorhandene Szenen-Nr. ein ",
                     "Szene in der Sequenz nicht vorhanden!");
    case BlendField:
        return Fault(number, ShortestBlend, LongestTime, "Blendzeiten unter 5 sind nicht zulässig",
                     "Blendzeiten über 65534 sind nicht zulässig");
    case HoldField:
        return Fault(number, ShortestHold, LongestTime, "Haltezeiten unter 1 sind nicht zulässig",
                     "Haltezeiten über 65534 sind nicht zulässig");
    default:
        return Fault(number, 1, LargestFactor, "Ein Turbofaktor unter 1 ist nicht zulässig",
                     "Ein Turbofaktor über 65534 ist nicht zulässig");
    }
}

void TakeSequencerField(int field, std::string_view text) {
    const auto fault = FaultOfField(field, text);
    if (!fault.empty()) {
        Screen.SequencerStatus(fault);
        if (field == StepField || HasSequence())
            ShowStoredValue(field);
        else
            ShowSequencerField(field, text);
    } else if (field == StepField)
        GoToStep(TypedNumber(text));
    else {
        StoreTime(field, TypedNumber(text));
        ShowStoredValue(field);
    }
}

void TakeTurboFactor(std::string_view text, bool on) {
    const auto fault = FaultOfField(FactorField, text);
    if (!fault.empty()) Screen.SequencerStatus(fault);
    if (!IsWithin(text, 1, LargestFactor)) {
        ShowStoredValue(FactorField);
        return;
    }
    ShowSequencerField(FactorField, Decimal(TypedNumber(text)));
    if (!on) return;
    Show.TurboFactor = TypedNumber(text);
    // Steps that are recorded or shortened later are not checked again, on purpose.
    const auto candidate = TurboCandidate(Show.TurboFactor);
    if (!candidate) return;
    Show.TurboFactor = *candidate;
    ShowStoredValue(FactorField);
    Screen.SequencerStatus("Kleinstmöglichen Turbo-Faktor errechnet.");
}

std::optional<int> TurboCandidate(int factor) {
    std::optional<int> candidate;
    for (int step = 1; step <= Show.StepCount; ++step) {
        if (HoldOf(step) / factor < ShortestHold) candidate = std::max(HoldOf(step), 1);
        if (BlendOf(step) / factor < ShortestBlend) candidate = std::max(BlendOf(step) / ShortestBlend, 1);
    }
    return candidate;
}

} // namespace quorvane
