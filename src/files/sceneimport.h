// Brings a scene that was made on a wall of another size onto the present wall: every element keeps its
// column and row, what the present wall does not have is dropped, what the source did not have is black.
#pragma once

#include "model/show.h"

namespace quorvane {

using Scene = Table<PerChannel<std::uint8_t>, 1, MaxElements>;

// Maps the live levels, a scene of ImportX by ImportY elements, onto the present wall and repaints it.
// False, with a message, when there is no wall.
bool ImportScene();

// False, with a message, when there is no wall to import to.
bool WallToImportTo();
// A scene of that many columns and rows as the present wall shows it. Elements that the wall does not
// have stay as they are in target. Throws ReadError when no wall can have that size.
void MapScene(const Scene& source, int columns, int rows, Scene& target);
// Throws ReadError when no wall that a scene can come from has that size.
void RequireImportSize(int columns, int rows);

} // namespace quorvane
