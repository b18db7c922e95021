#include "core/row_col.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/search.h"
#include "core/upcalls.h"
#include "platform/memory.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <utility>

void InitializeRow(RowRecord& record) noexcept
{
    record = {};
    record.Height = UnsetLength;
}

void InitializeCol(ColRecord& record) noexcept
{
    record = {};
    record.Width = UnsetLength;
    record.Alignment = lorvAlignGeneral;
    record.FixedAlignment = Unset;
    record.SourceCol = -1;
}

namespace
{
// -1 when the table would not fit an index.
int CapacityFor(int count) noexcept
{
    if (count > INT_MAX - RowBlock)
        return -1;
    return (count + RowBlock - 1) / RowBlock * RowBlock;
}

// The parts of a resize that happen even for an unchanged count.
void BeginResize(Grid& grid)
{
    grid.SortIndicatorCol = -1;
    EndAutoSearch(grid);
}

// Frees cells that no row holds any more.
void FreeCells(CellRecord* cells, int first, int end) noexcept
{
    for (int col = first; col < end; ++col) {
        FreeBlock(cells[col].Text);
        if (CellFormat* format = cells[col].Format) {
            ReleaseCellFormat(*format);
            FreeBlock(format);
        }
    }
}

bool SetRowCapacity(Grid& grid, int capacity) noexcept
{
    if (capacity == 0) {
        FreeAndClear(grid.RowTable);
    } else {
        if (static_cast<size_t>(capacity) > SIZE_MAX / sizeof(RowRecord))
            return false;
        void* table = ReallocateBlock(grid.RowTable, capacity * sizeof(RowRecord));
        if (!table)
            return false;
        grid.RowTable = static_cast<RowRecord*>(table);
    }
    grid.RowCapacity = capacity;
    return true;
}

// Releasing what a row holds can run foreign code, so a row leaves the table before it is freed. Rows that
// such code takes away stay away.
void ShrinkRows(Grid& grid, int count) noexcept
{
    while (grid.Rows > count) {
        RowRecord dead = grid.RowTable[--grid.Rows];
        InitializeRow(grid.RowTable[grid.Rows]);
        if (dead.Cells)
            FreeCells(dead.Cells, 0, grid.Cols);
        FreeBlock(dead.Cells);
        FreeHeapVariant(dead.RowData);
    }
    TrimRows(grid);
}

bool EnsureRowCapacity(Grid& grid, int count) noexcept
{
    int capacity = CapacityFor(count);
    if (capacity >= 0 && capacity <= grid.RowCapacity)
        return true;
    if (capacity < 0 || !SetRowCapacity(grid, capacity))
        return false;
    for (int row = grid.Rows; row < capacity; ++row)
        InitializeRow(grid.RowTable[row]);
    return true;
}

HRESULT GrowRows(Grid& grid, int count) noexcept
{
    if (!EnsureRowCapacity(grid, count))
        return LORV_E_MEMORY;
    grid.Rows = count;
    return S_OK;
}

// Brings the positions of one axis back into a table of `count` entries.
void CapPositions(int count, int& fixed, int& frozen, int& first) noexcept
{
    fixed = std::min(fixed, count);
    frozen = std::min(frozen, count - fixed);
    first = std::max(std::min(first, count), fixed + frozen);
}

// In list-box mode the move would select the row alone; the selection is to stay as it is.
void MoveToRow(Grid& grid, int row)
{
    int16_t mode = grid.SelectionMode;
    if (mode == lorvSelectionListBox)
        grid.SelectionMode = lorvSelectionFree;
    SetCurrentRow(grid, row);
    if (mode == lorvSelectionListBox)
        grid.SelectionMode = mode;
}

void BringCurrentRowInside(Grid& grid, int oldCount)
{
    int count = grid.Rows;
    if (grid.RowSel >= count && count > 0)
        grid.RowSel = count - 1;
    if (grid.Row < count || count <= grid.FixedRows)
        return;
    MoveToRow(grid, oldCount == grid.FixedRows ? grid.FixedRows : count - 1);
}
} // namespace

void ReserveRows(Grid& grid, int count) noexcept
{
    EnsureRowCapacity(grid, count);
}

void TrimRows(Grid& grid) noexcept
{
    if (int capacity = CapacityFor(grid.Rows); capacity != grid.RowCapacity)
        SetRowCapacity(grid, capacity); // a failure leaves the larger table, which does no harm
}

HRESULT ResizeRows(Grid& grid, int count)
{
    KeepAlive alive(grid);
    BeginResize(grid);
    int oldCount = grid.Rows;
    if (count == oldCount)
        return S_OK;
    if (count < 0)
        return LORV_E_VALUE;
    MarkMergeStale(grid);
    if (count < oldCount)
        ShrinkRows(grid, count);
    else if (HRESULT result = GrowRows(grid, count); FAILED(result))
        return result;
    CapPositions(grid.Rows, grid.FixedRows, grid.FrozenRows, grid.TopRow);
    BringCurrentRowInside(grid, oldCount);
    RecalculateLayout(grid);
    return S_OK;
}

namespace
{
void FreeColRecord(ColRecord& col) noexcept
{
    FreeAndClear(col.ColFormat);
    FreeAndClear(col.ColEditMask);
    FreeAndClear(col.ColComboList);
    FreeAndClear(col.ColKey);
    ReleaseComboState(col.ComboState);
    FreeHeapVariant(col.ColData);
}

bool SetColTable(Grid& grid, int count) noexcept
{
    if (count == 0) {
        FreeAndClear(grid.ColTable);
        return true;
    }
    if (static_cast<size_t>(count) > SIZE_MAX / sizeof(ColRecord))
        return false;
    void* table = ReallocateBlock(grid.ColTable, count * sizeof(ColRecord));
    if (!table)
        return false;
    grid.ColTable = static_cast<ColRecord*>(table);
    return true;
}

// Cuts a row's cells from `oldCount` to `grid.Cols`. They are off the grid while foreign code may run; if
// that changed the columns, they go altogether. False then.
bool TrimRow(Grid& grid, int row, int oldCount) noexcept
{
    int count = grid.Cols;
    CellRecord* cells = std::exchange(grid.RowTable[row].Cells, nullptr);
    if (!cells)
        return true;
    FreeCells(cells, count, oldCount);
    bool sameShape = grid.Cols == count;
    if (count == 0 || !sameShape || row >= grid.Rows || grid.RowTable[row].Cells) {
        FreeCells(cells, 0, count);
        FreeBlock(cells);
        return sameShape;
    }
    void* smaller = ReallocateBlock(cells, count * sizeof(CellRecord));
    grid.RowTable[row].Cells = smaller ? static_cast<CellRecord*>(smaller) : cells;
    return true;
}

// Releases what the columns from `count` on hold, while the tables still have them: foreign code may run here
// and finds a grid in order.
void EmptyCols(Grid& grid, int count) noexcept
{
    for (int row = 0; row < grid.Rows; ++row)
        for (int col = count; row < grid.Rows && grid.RowTable[row].Cells && col < grid.Cols; ++col)
            FreeCellContents(grid, row, col, lorvClearEverything);
    for (int col = count; col < grid.Cols; ++col)
        FreeHeapVariant(grid.ColTable[col].ColData);
}

void ShrinkCols(Grid& grid, int count) noexcept
{
    EmptyCols(grid, count);
    if (grid.Cols <= count) // such code has taken more columns away
        return;
    int oldCount = std::exchange(grid.Cols, count);
    for (int row = 0; row < grid.Rows; ++row)
        if (!TrimRow(grid, row, oldCount))
            return;
    for (int col = count; col < oldCount && grid.Cols == count; ++col) {
        ColRecord dead = std::exchange(grid.ColTable[col], ColRecord{});
        FreeColRecord(dead);
    }
    if (grid.Cols == count)
        SetColTable(grid, count); // a failure leaves the larger table, which does no harm
}

HRESULT GrowCols(Grid& grid, int count) noexcept
{
    if (!SetColTable(grid, count))
        return LORV_E_MEMORY;
    for (int col = grid.Cols; col < count; ++col)
        InitializeCol(grid.ColTable[col]);
    // A row that was widened before a failure stays so: its extra cells are empty.
    for (int row = 0; row < grid.Rows; ++row) {
        CellRecord*& cells = grid.RowTable[row].Cells;
        if (!cells)
            continue;
        if (static_cast<size_t>(count) > SIZE_MAX / sizeof(CellRecord))
            return LORV_E_MEMORY;
        auto* wider = static_cast<CellRecord*>(ReallocateBlock(cells, count * sizeof(CellRecord)));
        if (!wider)
            return LORV_E_MEMORY;
        std::fill(wider + grid.Cols, wider + count, CellRecord{});
        cells = wider;
    }
    grid.Cols = count;
    return S_OK;
}

void BringCurrentColInside(Grid& grid, int oldCount) noexcept
{
    int count = grid.Cols;
    if (grid.ColSel >= count && count > 0)
        grid.ColSel = count - 1;
    if (grid.Col < count)
        return;
    if (count > grid.FixedCols && oldCount == grid.FixedCols)
        grid.Col = grid.FixedCols;
    if (grid.Col >= count && count >= grid.FixedCols)
        grid.Col = count - 1;
}
} // namespace

HRESULT ResizeCols(Grid& grid, int count)
{
    KeepAlive alive(grid);
    BeginResize(grid);
    int oldCount = grid.Cols;
    if (count == oldCount)
        return S_OK;
    if (count < 0)
        return LORV_E_VALUE;
    MarkMergeStale(grid);
    if (count < oldCount)
        ShrinkCols(grid, count);
    else if (HRESULT result = GrowCols(grid, count); FAILED(result))
        return result;
    CapPositions(grid.Cols, grid.FixedCols, grid.FrozenCols, grid.LeftCol);
    if (grid.OutlineCol >= grid.Cols)
        grid.OutlineCol = 0;
    BringCurrentColInside(grid, oldCount);
    FireSelectionEvents(grid);
    RecalculateLayout(grid);
    return S_OK;
}

HRESULT ResizeBoth(Grid& grid, int rows, int cols)
{
    HRESULT result = rows < grid.Rows ? ResizeRows(grid, rows) : S_OK;
    if (SUCCEEDED(result) && cols < grid.Cols)
        result = ResizeCols(grid, cols);
    if (SUCCEEDED(result) && rows > grid.Rows)
        result = ResizeRows(grid, rows);
    if (SUCCEEDED(result) && cols > grid.Cols)
        result = ResizeCols(grid, cols);
    return result;
}

namespace
{
// One axis of SetFixedCounts.
struct Axis {
    int Count;
    int &Fixed, &Frozen, &First, &Current, &CurrentSel;
};

// The current row or column keeps clear of the fixed part. One that the new boundary swallows goes to the
// old boundary, inside the fixed part: hosts rely on it.
void MoveCurrentWithBoundary(Axis& axis, int fixed) noexcept
{
    if (axis.Current <= -1)
        return;
    if (axis.Current <= axis.Fixed)
        axis.Current = axis.CurrentSel = fixed;
    else if (axis.Current < fixed)
        axis.Current = axis.CurrentSel = axis.Fixed;
    if (axis.Current >= axis.Count)
        axis.Current = axis.CurrentSel = axis.Count - 1;
}

void SetFixedOnAxis(Axis axis, int fixed, int frozen) noexcept
{
    if (fixed >= 0) {
        fixed = std::min(fixed, axis.Count);
        axis.Frozen = std::min(axis.Frozen, axis.Count - fixed);
        axis.First =
            static_cast<int>(std::min(int64_t{axis.First} + fixed - axis.Fixed, int64_t{axis.Count}));
        MoveCurrentWithBoundary(axis, fixed);
        axis.First = std::max(axis.First, fixed + axis.Frozen);
        axis.Fixed = fixed;
        axis.First = std::min(axis.First, axis.Count);
    }
    if (frozen >= 0) {
        axis.Frozen = frozen > axis.Count - axis.Fixed ? 0 : frozen;
        axis.First = std::max(axis.First, axis.Fixed + axis.Frozen);
    }
}
} // namespace

void SetFixedCounts(Grid& grid, int fixedRows, int fixedCols, int frozenRows, int frozenCols)
{
    KeepAlive alive(grid);
    SetFixedOnAxis({grid.Rows, grid.FixedRows, grid.FrozenRows, grid.TopRow, grid.Row, grid.RowSel},
                   fixedRows, frozenRows);
    SetFixedOnAxis({grid.Cols, grid.FixedCols, grid.FrozenCols, grid.LeftCol, grid.Col, grid.ColSel},
                   fixedCols, frozenCols);
    FireSelectionEvents(grid);
    MarkMergeStale(grid);
}
