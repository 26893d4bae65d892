// The selected elements, as far as every floor needs them.
#pragma once

namespace quorvane {

// Paints every selected element as selected. Showing a scene repaints all elements in their colours
// without asking for the selection; whoever shows one calls this afterwards.
void RepaintSelection();

} // namespace quorvane
