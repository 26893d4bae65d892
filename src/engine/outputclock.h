// The output clock: what happens at every beat of 50 ms while AutoXmit is enabled, and the step engine
// that plays a sequence through its hold and blend ticks. A step lasts hold + blend + 1 ticks.
#pragma once

namespace quorvane {

// One tick, by InterfaceType: parameter block, test levels or show, monitor, and the hand-over of the frame.
void AutoXmit_Timer();

void MitKarte();  // one tick of the step engine with an interface
void OhneKarte(); // the same without; holds the wall when nothing plays and test mode is off

// Hands the frame of types 3 to 5 to the interface; ISA cards have it in their memory already. Type 3 is
// not called while it is not open.
void SendFrame();
// Shows in the DMX test window what the interface holds for its eight channels; 0 without an interface.
void ShowMonitor();

// Shows the scene of CurrentStep at once; the next tick starts the transition out of it.
void JumpToStep();

// Ends test mode: the show's own levels go out again from the next tick.
void TestModeOff();

} // namespace quorvane
