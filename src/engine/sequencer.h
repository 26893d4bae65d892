// The sequencer's commands as its buttons and the start-up give them. Each first ends test mode.
#pragma once

namespace quorvane {

void PreviousScene();
// Appends the present wall as a new step; only at the end of a sequence and up to 250 steps.
void SceneToSequence();
void Play();
void StopSequence();
void NextScene();
// Step 1 again, when not playing.
void BackToStart();
// The two halves of "delete sequence", around the question about unsaved work: all 512 channels of the
// active interface dark, before anybody is asked, on purpose (false when the sequence is playing, with its
// message), and the emptied sequence.
bool DarkenOutputForDelete();
void EmptySequence();

} // namespace quorvane
