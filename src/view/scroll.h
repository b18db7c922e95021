#pragma once
// What is on screen, and the scroll position.

#include "core/grid_object.h"

// Whether the cell's top left corner is within the client area; -1 leaves the row or the column out. A cell
// that is partly visible counts as visible, and so does a hidden row between visible ones.
bool IsCellVisible(const Grid& grid, int row, int col);

// The TopRow or LeftCol that brings a row or column into view; the present one if it is in view, or negative.
int TopForRow(const Grid& grid, int row);
int LeftForCol(const Grid& grid, int col);

// Where a page up or down from a row leads, and a page left or right from a column. Not all of them are
// alike: a page down always gets past a row that is taller than the page, a page to the right does not.
int PrevPageTop(const Grid& grid, int row);
int NextPageTop(const Grid& grid, int row);
int PrevPageLeft(const Grid& grid, int col);
int NextPageLeft(const Grid& grid, int col);

// The last row and column that are at least partly in view.
int BottomRowOf(const Grid& grid);
int RightColOf(const Grid& grid);

// Scrolls by one of the system's scroll codes, or with ScrollDirect to `position` as the first row or column.
// Fires BeforeScroll and AfterScroll. Unless `force` is set, an axis that ScrollBars gives no bar to stays.
void ScrollVertical(Grid& grid, int code, int position, bool force);
void ScrollHorizontal(Grid& grid, int code, int position, bool force);
// Scrolls down or up, and then sideways, until the cell is in view.
void ScrollToCell(Grid& grid, int row, int col, bool force);
// Moves the open editor to its cell, or out of sight with it.
void PlaceEditorWindow(Grid& grid);
