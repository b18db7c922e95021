#pragma once
// The current cell, the selection, and the selected rows of a list box.

#include "core/grid_object.h"

// What MoveCursor and ExtendSelection do beside storing the positions.
enum CursorMode : int {
    CursorSilent = 0,   // nothing is reported
    CursorReport = 1,   // as a program's own move: no scrolling
    CursorShow = 2,     // MoveCursor: the cell comes into view. ExtendSelection: the moving corner does
    CursorShowCell = 3, // from the keyboard. ExtendSelection: the current cell comes into view
    CursorShowRow = 4,  // ExtendSelection: only the row of the moving corner
    CursorShowCol = 5,  // ExtendSelection: only its column
};

// The `Col` property's setter; that of `Row` is SetCurrentRow.
HRESULT SetCurrentCol(Grid& grid, int col);

// Moves the other corner of the selection; a negative coordinate stays. 0 or LORV_E_INDEX.
HRESULT ExtendSelection(Grid& grid, int rowSel, int colSel, int mode);

// Whether the row shows as selected in a list box, a drag that is under way included.
bool IsRowSelected(const Grid& grid, int row) noexcept;
// Sets a row's flag and repaints its band; whether that changed it.
bool SetRowSelected(Grid& grid, int row, bool selected);
// The same for the rows from `first` to `last`, in either order; with `clearOthers` all others are cleared
// first.
bool SetRowsSelected(Grid& grid, int first, int last, bool selected, bool clearOthers);
// Reports a move: at once, or in a list box by the message loop, once for a burst.
void ReportSelection(Grid& grid);
// Notes that the rows of a list box have changed, and has that reported in the same way.
void ReportListChange(Grid& grid, bool changed);

// The rectangle of the selection in client pixels. Without `force` it is that of the current cell while
// nothing is highlighted. Merged ranges that reach out of the selection have the whole scrolled area
// repainted.
RECT SelectionPixelRect(Grid& grid, bool force);
// That of the whole selection, without any repaint.
RECT SelectionOuterRect(Grid& grid);
// The band between two rectangles that share three edges; false when they do not.
bool RectDifference(RECT& band, const RECT& a, const RECT& b) noexcept;
// Repaints the fixed cells, where those of the selection look different.
void RepaintSelectionHeaders(Grid& grid);
