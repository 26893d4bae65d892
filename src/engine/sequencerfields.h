// What is typed into the sequencer window's fields: 0 step, 1 blend time, 2 hold time, 3 turbo factor.
// While somebody types there is advice only; when a field is left or confirmed, it is decided.
#pragma once

#include <optional>
#include <string_view>

namespace quorvane {

constexpr int StepField = 0;
constexpr int BlendField = 1;
constexpr int HoldField = 2;
constexpr int FactorField = 3;

// A remark on a text that is still being typed; empty when it would do.
std::string_view AdviceOnField(int field, std::string_view text);
// Why the text cannot be taken; empty when it can.
std::string_view FaultOfField(int field, std::string_view text);

// Decides on the text of the step or of a time. A step is jumped to, a time is stored for the step that the
// step field names; what cannot be taken is told on the status line, and the stored value comes back.
// Without a sequence a time stays in its field, for the first scene that is recorded.
void TakeSequencerField(int field, std::string_view text);

// Decides on the text of the turbo factor; it takes effect while the factor is switched on.
void TakeTurboFactor(std::string_view text, bool on);
// A smaller factor where a step cannot bear this one: its hold time would fall below 1 or its blend time
// below 5. The last such step has the say, even where an earlier one cannot bear that either.
std::optional<int> TurboCandidate(int factor);

} // namespace quorvane
