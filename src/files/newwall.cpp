#include "files/newwall.h"

#include "engine/framebuilder.h"
#include "files/sceneimport.h"
#include "files/settingsfile.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"
#include "model/wall.h"

namespace quorvane {

std::int64_t ElementsOf(const WallMeasures& wall) {
    constexpr int largest = 255; // of a count
    if (wall.Columns < 0 || wall.Columns > largest || wall.Rows < 0 || wall.Rows > largest)
        return MaxHandmadeElements + 1;
    return static_cast<std::int64_t>(wall.Columns) * wall.Rows;
}

void ReplaceWall(const WallMeasures& wall) {
    const bool hasElements = Show.ElementCount > 0; // a damaged file may have brought a wall without any
    const bool sameShape = hasElements && Show.WallColumns == wall.Columns && Show.WallRows == wall.Rows;
    const bool import = hasElements && !sameShape && Show.StatusFlags.Has(Status::SequenceExists);
    if (import) {
        Show.ImportX = Show.WallColumns;
        Show.ImportY = Show.WallRows;
    }
    RemoveWall();
    Show.WallName = Padded20(wall.Name);
    Show.WallColumns = static_cast<std::uint8_t>(wall.Columns);
    Show.WallRows = static_cast<std::uint8_t>(wall.Rows);
    Show.WallAreaWidth = wall.AreaWidth;
    Show.WallAreaHeight = wall.AreaHeight;
    Show.ElementSize = wall.Size;
    NeueWandInit();
    if (import) ImportScene();
    if (!sameShape) ContinueBlend();
    ShowWallColours();
    Screen.ShowWall();
    SaveINI();
}

} // namespace quorvane
