#pragma once
// Which cell a point of the client area is on.

#include "core/cell_pos.h"
#include "core/grid_object.h"

struct CellHit {
    CellPos Cell;
    bool OnCell;
};

// Past the last row or column a strict test gives -1, another one the last. A test that is not strict also
// finds the rows and columns that are scrolled away under the fixed ones, which lets a drag scroll back.
// `resolveMerge` gives the first cell with a size in the merged range that was hit.
CellHit HitTest(const Grid& grid, POINT point, bool strict, bool resolveMerge);
