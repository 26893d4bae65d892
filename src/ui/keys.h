// Keys in the form in which the rules know them, and the keys that several windows hand on.
#pragma once

#include <Qt>

class QKeyEvent;

namespace quorvane {

// Shift 1, Ctrl 2, Alt 4, added; keypad and group switch do not count.
int ShiftState(Qt::KeyboardModifiers modifiers);

// Takes the event when it is one of F2..F12 and remembers or recalls a selection by it. For the key-down
// handlers of the windows in which those keys act; their text fields let the keys through.
bool TakeSelectionKey(QKeyEvent* event);

} // namespace quorvane
