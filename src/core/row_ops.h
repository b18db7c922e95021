#pragma once
// Adding, removing and moving rows and columns, and clearing cells. A row moves by its record, so that its
// cells, data and height go with it. None of this changes the numbers of the current row and column but for
// what a shrinking table does: after a move another row is the current one.

#include "core/errors.h"
#include "core/grid_object.h"

// Makes room for a row before `row` (`Rows` adds at the end), without layout or repaint. LORV_E_INDEX,
// LORV_E_MEMORY with the table as it was.
HRESULT InsertRowRecord(Grid& grid, int row);
// Frees a row of the table, without layout or repaint.
HRESULT RemoveRowRecord(Grid& grid, int row);

// Inserts a row and writes the parts of `item` across it from column 0 on; a null or empty item writes
// nothing. LORV_E_BOUND, LORV_E_INDEX, LORV_E_MEMORY, or the code of the first text that failed.
HRESULT AddItem(Grid& grid, const wchar_t* item, int row);
// Removes a row; a fixed one takes the fixed part down by one. LORV_E_INDEX, LORV_E_BOUND.
HRESULT RemoveItem(Grid& grid, int row);

// Clears what a ClearWhatSettings names of the cells that a ClearWhereSettings names. Sizes stay. A bound
// text is not touched. LORV_E_INDEX for an unknown `where`.
HRESULT ClearCells(Grid& grid, int where, int what);

// Move a row or a column to a position; to its own, even outside the table, is nothing. LORV_E_INDEX; rows
// of a bound grid give LORV_E_BOUND, but its columns may move.
HRESULT MoveRow(Grid& grid, int row, int position);
HRESULT MoveCol(Grid& grid, int col, int position);
// Moves rows `first` to `last` before `destination`, 0 to `Rows`, without layout or repaint. LORV_E_INDEX,
// also for a destination inside the block.
HRESULT MoveRowBlock(Grid& grid, int first, int last, int destination);

// The first column with that key, in any case; -1 when there is none. An empty or null key names the first
// column without one.
int FindColKey(const Grid& grid, const wchar_t* key) noexcept;
