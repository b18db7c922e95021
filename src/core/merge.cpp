#include "core/merge.h"

#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/events.h"
#include "core/merge_links.h"
#include "core/outline_level.h"
#include "core/upcalls.h"

#include <algorithm>
#include <cwchar>

namespace
{
struct MergeStatistics {
    long Rebuilds;
};
MergeStatistics mergeStatistics;

// Links go into cells without a text of their own in these cases, so that every row needs its cells.
bool NeedsAllCells(const Grid& grid) noexcept
{
    return grid.BoundKind != BoundNone || grid.LorvDataSource || grid.MergeCompare == lorvMCIncludeNulls;
}

void ClearLinks(Grid& grid, bool needCells) noexcept
{
    for (int row = 0; row < grid.Rows; ++row) {
        if (needCells && FAILED(EnsureRowCells(grid, row)))
            continue; // a row without cells has no links
        CellRecord* cells = grid.RowTable[row].Cells;
        for (int col = 0; cells && col < grid.Cols; ++col)
            cells[col].State &= CheckStateMask;
    }
}

void BuildMergeLinks(Grid& grid, int mode, MergePass pass)
{
    if (mode == lorvMergeSpill)
        BuildSpillLinks(grid, pass);
    else if (mode == lorvMergeOutline)
        BuildOutlineLinks(grid, pass);
    else
        BuildEqualLinks(grid, mode, pass);
}
} // namespace

long MergeRebuilds() noexcept
{
    return mergeStatistics.Rebuilds;
}

// Both passes always run: a region whose own mode is "never" merges freely while the other region has one.
void RebuildMergeLinks(Grid& grid)
{
    if (!MergesAtAll(grid) || grid.Redraw == lorvRDNone)
        return;
    KeepAlive alive(grid); // a text source runs foreign code
    SetOption(grid, OptionMergeStale, false);
    ++mergeStatistics.Rebuilds;
    ClearLinks(grid, NeedsAllCells(grid));
    int16_t scrollableMode = grid.MergeCells, fixedMode = grid.MergeCellsFixed;
    grid.MergeCells = grid.MergeCellsFixed = fixedMode;
    BuildMergeLinks(grid, fixedMode, MergePass::FixedCells);
    grid.MergeCells = grid.MergeCellsFixed = scrollableMode;
    BuildMergeLinks(grid, scrollableMode, MergePass::ScrollableCells);
    grid.MergeCells = scrollableMode;
    grid.MergeCellsFixed = fixedMode;
}

bool RowMerges(const Grid& grid, int row) noexcept
{
    bool outline = grid.MergeCells == lorvMergeOutline || grid.MergeCellsFixed == lorvMergeOutline;
    return grid.RowTable[row].MergeRow != 0 || SpillsText(grid) || (outline && IsSubtotalRow(grid, row));
}

CellRange MergedRangeOf(const Grid& grid, int row, int col) noexcept
{
    CellRange range(row, col, row, col);
    if (!MergesAtAll(grid) || !IsCell(grid, row, col))
        return range;
    if (grid.ColTable[col].MergeCol) {
        while (range.Row1 > 0 && (MergeLinksOf(grid, range.Row1, col) & LinkAbove))
            --range.Row1;
        while (range.Row2 < grid.Rows - 1 && (MergeLinksOf(grid, range.Row2, col) & LinkBelow))
            ++range.Row2;
    }
    if (RowMerges(grid, row)) {
        while (range.Col1 > 0 && (MergeLinksOf(grid, row, range.Col1) & LinkLeft))
            --range.Col1;
        while (range.Col2 < grid.Cols - 1 && (MergeLinksOf(grid, row, range.Col2) & LinkRight))
            ++range.Col2;
    }
    return range;
}

bool MergedPaintRect(Grid& grid, int row, int col, RECT& rectangle, const RECT& client)
{
    CellRange range = MergedRangeOf(grid, row, col);
    if (range.IsSingleCell())
        return false;
    if (range.Row1 < grid.TopRow && range.Row2 >= grid.TopRow)
        range.Row1 = grid.TopRow;
    if (range.Col1 < grid.LeftCol && range.Col2 >= grid.LeftCol)
        range.Col1 = grid.LeftCol;
    int firstCol = std::min(range.Col1, col), lastCol = std::max(range.Col2, col);
    bool mirrored = HasOption(grid, OptionRightToLeft);
    int leftCol = mirrored ? lastCol : firstCol;
    int rightCol = mirrored ? firstCol : lastCol;
    int shift = rectangle.left - ColX(grid, col); // a mirrored picture is not as wide as the window
    if (range.Row1 < row)
        rectangle.top = RowY(grid, range.Row1);
    if (range.Row2 > row)
        rectangle.bottom = RowY(grid, range.Row2) + EffectiveRowHeight(grid, range.Row2);
    if (leftCol != col)
        rectangle.left = ColX(grid, leftCol) + shift;
    if (rightCol != col)
        rectangle.right = ColX(grid, rightCol) + EffectiveColWidth(grid, rightCol) + shift;
    if (rectangle.right > client.right)
        rectangle.right = client.right + 1;
    if (rectangle.bottom > client.bottom)
        rectangle.bottom = client.bottom + 1;
    return true;
}

namespace
{
bool OnSameSide(int a, int b, int boundary) noexcept
{
    return (a < boundary) == (b < boundary);
}

bool CrossesBoundary(const Grid& grid, CellPos a, CellPos b) noexcept
{
    return !OnSameSide(a.Col, b.Col, grid.FixedCols) || !OnSameSide(a.Row, b.Row, grid.FixedRows) ||
           !OnSameSide(a.Col, b.Col, FrozenEndCol(grid)) || !OnSameSide(a.Row, b.Row, FrozenEndRow(grid));
}

size_t LengthWithoutTrailingBlanks(const wchar_t* text) noexcept
{
    size_t length = std::wcslen(text);
    while (length > 0 && text[length - 1] == L' ')
        --length;
    return length;
}

bool SameForMerging(int compare, const wchar_t* x, const wchar_t* y) noexcept
{
    if (compare == lorvMCNoCase)
        return _wcsicmp(x, y) == 0;
    if (compare == lorvMCTrimNoCase) {
        size_t length = LengthWithoutTrailingBlanks(x);
        return length == LengthWithoutTrailingBlanks(y) && _wcsnicmp(x, y, length) == 0;
    }
    return std::wcscmp(x, y) == 0;
}

// The texts of both cells, of which the first may have to move out of the scratch buffer.
const wchar_t* FirstText(Grid& grid, CellPos cell) noexcept
{
    const wchar_t* text = GetCellText(grid, cell.Row, cell.Col);
    return text == ScratchText() ? CopyToSecondScratch(text) : text;
}

bool AreCells(const Grid& grid, CellPos a, CellPos b) noexcept
{
    return IsCell(grid, a.Row, a.Col) && IsCell(grid, b.Row, b.Col);
}

// Reads both check states. False when they differ, or when a text source took one of the cells away.
bool HaveSameCheckState(Grid& grid, CellPos first, CellPos second, int& state)
{
    state = CheckStateOf(grid, first.Row, first.Col);
    return AreCells(grid, first, second) && state == CheckStateOf(grid, second.Row, second.Col) &&
           AreCells(grid, first, second);
}

bool TextsMerge(Grid& grid, CellPos first, CellPos second, int checked)
{
    const wchar_t* x = FirstText(grid, first);
    if (!AreCells(grid, first, second))
        return false;
    const wchar_t* y = GetCellText(grid, second.Row, second.Col);
    if (!x)
        x = L"";
    if (!y)
        y = L"";
    if (grid.MergeCompare != lorvMCIncludeNulls && !*x && !*y)
        return checked != lorvNoCheckbox;
    return SameForMerging(grid.MergeCompare, x, y);
}
} // namespace

bool CanMerge(Grid& grid, CellPos first, CellPos second)
{
    if (CrossesBoundary(grid, first, second))
        return false;
    int checked = lorvNoCheckbox;
    if (!HaveSameCheckState(grid, first, second, checked))
        return false;
    if (ShowsOutline(grid) && first.Col == grid.OutlineCol && second.Col == grid.OutlineCol &&
        (IsSubtotalRow(grid, first.Row) || IsSubtotalRow(grid, second.Row)))
        return false;
    return TextsMerge(grid, first, second, checked);
}
