// The selection: the elements that the colour window, the element dialog and the sequencer act on, and
// eleven remembered selections on the function keys F2..F12. index is element - 1.
// What selects or deselects an element tells the wall's status line; on a field that the wall does not have
// it says so there and changes nothing.
#pragma once

namespace quorvane {

// Selects the element and counts it as the only one. Flags of other elements stay: clear them first.
void SelectOnly(int index);
// Selects and counts one element more, even if it was selected already: callers ask first.
void AddToSelection(int index);
// Deselects the element and shows its colour again. The count goes down if it was selected.
void RemoveFromSelection(int index);

void SelectAll();
void InvertSelection();

// Paints every selected element as selected. Showing a scene repaints all elements in their colours
// without asking for the selection; whoever shows one calls this afterwards.
void RepaintSelection();

// The lowest selected element, from 1; ElementCount + 2 when none is selected.
int FirstSelectedElementNo();

// Codes of the keys F2 and F12, and of Shift and Ctrl in a shift state (Alt is 4).
constexpr int KeyF2 = 113;
constexpr int KeyF12 = 123;
constexpr int ShiftHeld = 1;
constexpr int CtrlHeld = 2;

// A function key: with Shift alone the selection is remembered on it, else the one remembered there comes
// back. Keys other than F2..F12 are ignored. A remembered selection of a larger wall comes back as far as
// the first element that this wall lacks.
void RememberOrRecallSelection(int key, int shift);

// A press of a mouse button on the field of an element; nothing without a wall. The left button selects,
// with Ctrl alone it adds or removes; any other button names the element for the element dialog and opens the
// edit menu. An open element dialog then follows when exactly one element is selected.
void lblElement_MouseDown(int index, bool leftButton, int shift);
void lblElement_DblClick();

} // namespace quorvane
