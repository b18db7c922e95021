#pragma once
// The press on a header or a button: it is shown pressed while the pointer is over it, and dragging a header
// moves its column or row.

#include "core/grid_object.h"

// Tracks a press at `point`; true when it was released over the rectangle, which is a click. Without the left
// button held there is no press.
bool TrackButtonPress(Grid& grid, POINT point, const RECT& rectangle);
// The same for the header of a column; with `mayMove` a drag moves the column instead, and is no click.
bool TrackHeaderPress(Grid& grid, POINT point, int col, const RECT& header, bool mayMove);
// A drag moves the row; its final position.
int TrackRowMove(Grid& grid, POINT point, int row);
