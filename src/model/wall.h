// The wall: a grid of elements, numbered row by row, each with four channels on the DMX line.
#pragma once

namespace quorvane {

// Gives the show its start-up values, before the settings file is read.
void StartShow();

// Builds a new wall from WallColumns, WallRows, WallName and the sizes: labels, positions, the
// consecutive patch from DMX channel 1, and the channel count when it follows the wall. Marks the
// wall as unsaved, empties the selection, and warns when the channels do not suffice. Levels, corrections and
// the sequence stay as they are.
// Throws std::out_of_range for more than 250 elements, before anything has changed.
void NeueWandInit();
// The same for a wall that comes from a file: not marked as unsaved.
void NeueWandLoad();
// Removes the element labels from the last to the first and empties the selection. Patch, levels,
// sequence, names and marks stay.
void RemoveWall();

// Repaints every element of the wall in its colour.
void ShowWallColours();

} // namespace quorvane
