#pragma once
// Selecting cells by dragging, with the timer that goes on scrolling while the pointer rests outside.

#include "core/grid_object.h"

// While the button is held: moves the corner of the selection, or the current cell where AllowSelection is
// off, to what lies under the point. Beside the cells it scrolls by one call each time.
void DragSelectionTo(Grid& grid, POINT point);

// Takes notice of a button that was released where no message told of it.
void NoticeMissedRelease(Grid& grid);

// At the release of the left button: applies a drag over the rows of a list box, and shows the moved corner.
// False when a modal gesture or an OLE drag took the press over.
bool EndDragSelection(Grid& grid);
