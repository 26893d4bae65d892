#include "model/selection.h"

#include "model/screen.h"
#include "model/show.h"

namespace quorvane {

void RepaintSelection() {
    for (int index = 0; index < Show.ElementCount; ++index)
        if (Show.ElementSelected[index] == 1) Screen.PaintSelected(index);
}

} // namespace quorvane
