#include "core/row_ops.h"

#include "core/cell_store.h"
#include "core/clip_text.h"
#include "core/events.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "core/selection_range.h"
#include "core/upcalls.h"

#include <algorithm>
#include <climits>
#include <cwchar>
#include <type_traits>

namespace
{
// Records are moved as bytes: what they own stays where it is.
template<class Record> void MoveRecord(Record* table, int from, int to) noexcept
{
    static_assert(std::is_trivially_copyable_v<Record>);
    if (from < to)
        std::rotate(table + from, table + from + 1, table + to + 1);
    else
        std::rotate(table + to, table + from, table + from + 1);
}
} // namespace

HRESULT InsertRowRecord(Grid& grid, int row)
{
    int count = grid.Rows;
    if (row < 0 || row > count)
        return LORV_E_INDEX;
    if (count == INT_MAX || FAILED(ResizeRows(grid, count + 1)))
        return LORV_E_MEMORY;
    if (grid.Rows != count + 1) // a handler has resized the table meanwhile
        return LORV_E_INDEX;
    MoveRecord(grid.RowTable, count, row);
    return S_OK;
}

HRESULT RemoveRowRecord(Grid& grid, int row)
{
    if (!IsRow(grid, row))
        return LORV_E_INDEX;
    MoveRecord(grid.RowTable, row, grid.Rows - 1);
    return ResizeRows(grid, grid.Rows - 1);
}

// The row that the texts made an updated one is new all the same.
HRESULT AddItem(Grid& grid, const wchar_t* item, int row)
{
    if (HRESULT result = GuardRowContents(grid); FAILED(result))
        return result;
    KeepAlive alive(grid);
    if (HRESULT result = InsertRowRecord(grid, row); FAILED(result))
        return result;
    HRESULT result = S_OK;
    if (item && *item && grid.Cols > 0)
        result = PutRowText(grid, item, row, 0, grid.Cols - 1, false);
    if (IsRow(grid, row))
        grid.RowTable[row].Status = lorvrsNew;
    RecalculateLayout(grid);
    MarkMergeStale(grid);
    RepaintGrid(grid);
    return result;
}

HRESULT RemoveItem(Grid& grid, int row)
{
    if (!IsRow(grid, row))
        return LORV_E_INDEX;
    if (HRESULT result = GuardRowContents(grid); FAILED(result))
        return result;
    KeepAlive alive(grid);
    if (row < grid.FixedRows)
        --grid.FixedRows;
    HRESULT result = RemoveRowRecord(grid, row);
    RecalculateLayout(grid);
    RepaintGrid(grid);
    return result;
}

namespace
{
// The cells to clear; false for an unknown `where`. The range may be empty or lie outside in part.
bool ClearRange(const Grid& grid, int where, CellRange& range) noexcept
{
    range.Row1 = range.Col1 = 0;
    range.Row2 = grid.Rows - 1;
    range.Col2 = grid.Cols - 1;
    switch (where) {
    case lorvClearEverywhere:
        return true;
    case lorvClearScrollable:
        range.Row1 = grid.FixedRows;
        range.Col1 = grid.FixedCols;
        return true;
    case lorvClearSelection:
        range = SelectionRange(grid);
        return true;
    default:
        return false;
    }
}

// What rows and columns keep beside their cells. Letting go of a value can run foreign code, so it comes
// last, and the counts are read at each step.
void ClearTables(Grid& grid) noexcept
{
    for (int row = 0; row < grid.Rows; ++row) {
        RowRecord& record = grid.RowTable[row];
        record.Status = lorvrsNew;
        record.OutlineLevel = 0;
        record.Flags &= ~(RowFlagSubtotal | RowFlagHidden);
        FreeHeapVariant(record.RowData);
    }
    for (int col = 0; col < grid.Cols; ++col) {
        ColRecord& record = grid.ColTable[col];
        record.SourceCol = -1;
        FreeHeapVariant(record.ColData);
    }
}

void FreeRangeContents(Grid& grid, const CellRange& range, int what) noexcept
{
    for (int row = std::max(range.Row1, 0); row <= range.Row2 && row < grid.Rows; ++row)
        for (int col = std::max(range.Col1, 0); col <= range.Col2; ++col) {
            if (!IsCell(grid, row, col) || !grid.RowTable[row].Cells)
                break;
            FreeCellContents(grid, row, col, what);
        }
}
} // namespace

HRESULT ClearCells(Grid& grid, int where, int what)
{
    KeepAlive alive(grid);
    if (!CommitEdit(grid))
        return S_OK;
    CellRange range(0, 0, 0, 0);
    if (!ClearRange(grid, where, range))
        return LORV_E_VALUE;
    if (where == lorvClearEverywhere && (what == lorvClearEverything || what == lorvClearData))
        ClearTables(grid);
    FreeRangeContents(grid, range, what);
    ReleaseEditorList(grid);
    MarkMergeStale(grid);
    grid.SortIndicatorCol = -1;
    RebuildOutlineLevels(grid);
    RecalculateLayout(grid);
    RepaintGrid(grid);
    return S_OK;
}

HRESULT MoveRow(Grid& grid, int row, int position)
{
    if (HRESULT result = GuardRows(grid); FAILED(result))
        return result;
    KeepAlive alive(grid);
    if (!CommitEdit(grid) || row == position)
        return S_OK;
    if (!IsRow(grid, row) || !IsRow(grid, position))
        return LORV_E_INDEX;
    MoveRecord(grid.RowTable, row, position);
    MarkMergeStale(grid);
    RepaintGrid(grid);
    return S_OK;
}

// A bound grid may move its columns: each keeps the field that it shows.
HRESULT MoveCol(Grid& grid, int col, int position)
{
    KeepAlive alive(grid);
    if (!CommitEdit(grid) || col == position)
        return S_OK;
    if (!IsCol(grid, col) || !IsCol(grid, position))
        return LORV_E_INDEX;
    MoveRecord(grid.ColTable, col, position);
    for (int row = 0; row < grid.Rows; ++row)
        if (CellRecord* cells = grid.RowTable[row].Cells)
            MoveRecord(cells, col, position);
    if (grid.SortIndicatorCol == col)
        grid.SortIndicatorCol = position;
    MarkMergeStale(grid);
    RepaintGrid(grid);
    return S_OK;
}

HRESULT MoveRowBlock(Grid& grid, int first, int last, int destination)
{
    if (!IsRow(grid, first) || !IsRow(grid, last) || first > last || destination < 0 ||
        destination > grid.Rows || (destination > first && destination <= last))
        return LORV_E_INDEX;
    if (destination == first)
        return S_OK;
    RowRecord* table = grid.RowTable;
    if (destination < first)
        std::rotate(table + destination, table + first, table + last + 1);
    else
        std::rotate(table + first, table + last + 1, table + destination);
    MarkMergeStale(grid);
    return S_OK;
}

int FindColKey(const Grid& grid, const wchar_t* key) noexcept
{
    for (int col = 0; col < grid.Cols; ++col) {
        const wchar_t* present = grid.ColTable[col].ColKey;
        if (_wcsicmp(present ? present : L"", key ? key : L"") == 0)
            return col;
    }
    return -1;
}
