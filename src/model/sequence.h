// The recorded sequence: up to 254 steps, each a full scene with its hold and blend time.
#pragma once

#include <string_view>

namespace quorvane {

constexpr int MaxRecordedSteps = 250; // the editor's limit
constexpr int MaxLoadedSteps = 254;   // a file's limit
constexpr int DefaultHold = 1;        // ticks
constexpr int DefaultBlend = 50;      // ticks
// What may be typed, in ticks.
constexpr int ShortestHold = 1;
constexpr int ShortestBlend = 5;
constexpr int LongestTime = 65534;

// Times of a step in ticks of 50 ms, 0..65535: the signed store is read as unsigned.
int HoldOf(int step);
int BlendOf(int step);
void SetHold(int step, int ticks); // stored modulo 65536
void SetBlend(int step, int ticks);

// The same as a transition uses them: divided by the turbo factor, hold at least 1 and blend at least 5
// or the blend time itself when that is shorter. Factor 1 gives the times as they stand.
int TurboHoldOf(int step);
int TurboBlendOf(int step);

// A field of the sequencer window (0 step, 1 blend time, 2 hold time, 3 turbo factor) takes a text.
void ShowSequencerField(int field, std::string_view text);
// The sequencer window's step, blend and hold field take the values of CurrentStep.
void ShowStepFields();
// Copies the values of CurrentStep into the live levels of elements 1..ElementCount and repaints them.
void CopyStepToWall();

} // namespace quorvane
