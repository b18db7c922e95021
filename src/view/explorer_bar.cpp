#include "view/explorer_bar.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/sort.h"
#include "core/upcalls.h"
#include "view/header_press.h"

#include <iterator>

namespace
{
// Bits of ExplorerBar.
constexpr int SortOnClick = 1;
constexpr int MoveColumns = 2;
constexpr int SortAndShow = 4;
constexpr int MoveRows = 8;
constexpr int LeavesBlanks = 0xF000; // blanks at both ends of the column stay where they are

bool IsBound(const Grid& grid) noexcept
{
    return grid.BoundKind != BoundNone || grid.LorvDataSource;
}

// A click turns the order of the column round.
short NextOrder(int order) noexcept
{
    constexpr short next[] = {
        lorvSortGenericAscending,      lorvSortGenericDescending, lorvSortGenericAscending,
        lorvSortNumericDescending,     lorvSortNumericAscending,  lorvSortStringNoCaseDescending,
        lorvSortStringNoCaseAscending, lorvSortStringDescending,  lorvSortStringAscending,
    };
    bool listed = order >= 0 && order < static_cast<int>(std::size(next));
    return listed ? next[order] : static_cast<short>(lorvSortGenericAscending);
}

// A row is known by what moves with its record.
struct RowIdentity {
    const CellRecord* Cells = nullptr;
    const VARIANT* Data = nullptr;

    static RowIdentity Of(const Grid& grid, int row) noexcept
    {
        if (grid.SelectionMode == lorvSelectionListBox || !IsRow(grid, row))
            return {};
        return {grid.RowTable[row].Cells, grid.RowTable[row].RowData};
    }
    int Find(const Grid& grid) const noexcept
    {
        for (int row = 0; row < grid.Rows && (Cells || Data); ++row)
            if (Cells ? grid.RowTable[row].Cells == Cells : grid.RowTable[row].RowData == Data)
                return row;
        return -1;
    }
};

bool IsBlank(Grid& grid, int row, int col)
{
    const wchar_t* text = GetCellText(grid, row, col);
    return !text || !*text;
}

void SortRows(Grid& grid, int order, int col)
{
    int first = grid.FixedRows, last = grid.Rows - 1;
    if (grid.ExplorerBar & LeavesBlanks) {
        while (first <= last && IsBlank(grid, first, col))
            ++first;
        while (first <= last && IsBlank(grid, last, col))
            --last;
    }
    if (first <= last && SUCCEEDED(SortRange(grid, order, first, last, col, col)))
        MarkMergeStale(grid);
}

void SortByHeader(Grid& grid, int col)
{
    short order = NextOrder(grid.ColTable[col].ColSort);
    event::BeforeSort(grid, col, order);
    if (order < lorvSortGenericAscending || order > lorvSortUseColSort || !IsCol(grid, col))
        return;
    grid.ColTable[col].ColSort = order;
    if (IsBound(grid))
        return;
    grid.SortIndicatorCol = col;
    RowIdentity current = RowIdentity::Of(grid, grid.Row);
    SortRows(grid, order, col);
    if (int row = current.Find(grid); row >= 0)
        SetCurrentRow(grid, row);
    event::AfterSort(grid, col, order);
    RepaintGrid(grid);
}

bool PressRowHeader(Grid& grid, POINT point, int row)
{
    if (CommitEdit(grid) && IsRow(grid, row))
        TrackRowMove(grid, point, row);
    return true;
}

bool PressColHeader(Grid& grid, POINT point, CellPos hit)
{
    bool sorts = (grid.ExplorerBar & (SortOnClick | SortAndShow)) != 0;
    bool moves = (grid.ExplorerBar & MoveColumns) != 0;
    if (!sorts && !moves)
        return false;
    if (!CommitEdit(grid) || !IsCell(grid, hit.Row, hit.Col))
        return true;
    RECT header = CellRect(grid, hit.Row, hit.Col);
    if (header.right <= header.left)
        return false;
    if (TrackHeaderPress(grid, point, hit.Col, header, moves) && sorts && IsCol(grid, hit.Col))
        SortByHeader(grid, hit.Col);
    return true;
}
} // namespace

bool ClickExplorerBar(Grid& grid, POINT point, CellPos hit)
{
    if (grid.ExplorerBar == lorvExNone)
        return false;
    KeepAlive alive(grid);
    bool inRows = hit.Row < grid.FixedRows, inCols = hit.Col < grid.FixedCols;
    if ((grid.ExplorerBar & MoveRows) && !IsBound(grid) && inCols && !inRows)
        return PressRowHeader(grid, point, hit.Row);
    return inRows && !inCols && PressColHeader(grid, point, hit);
}
