// Turns the levels of the wall's element channels into DMX levels and places them where the active
// interface expects them. The with-card routines write to the interface named by InterfaceType; the
// without-card routines blend alike and send nothing, so that a show can be previewed.
// A level is taken in 16 bits, the colour correction is subtracted, and what falls below 0 becomes 0.
// With types 3 to 5 a patch outside 1..513 throws std::out_of_range with a text that names the element,
// its colour and the channel. Nothing here allocates.
#pragma once

namespace quorvane {

// Prepares the blend from the present levels into the scene of CurrentStep over BlendSteps ticks and
// shows the step in the sequencer's fields. Throws std::domain_error when BlendSteps is 0.
void BlendeBerechnen();
// The wall has other elements now: prepares what is left of a playing blend anew, from the present levels.
void ContinueBlend();

void MitKarteHold();  // every element channel from ElementValue, into the interface's frame
void OhneKarteHold(); // the same, sent nowhere
// One tick of the blend: levels on by BlendIncrement, wall repainted, frame written.
// Throws std::overflow_error when a rounded level leaves 0..255.
void MitKarteBlend();
void OhneKarteBlend();

// Writes value to DMX channel 1..512 of the active interface's frame; types 1 and 2 write it to the card
// at once, and nothing happens there while no card is open.
void WriteChannel(int channel, int value);

} // namespace quorvane
