#include "core/sort.h"

#include "core/cell_store.h"
#include "core/events.h"
#include "core/property_frame.h"
#include "core/sort_keys.h"
#include "core/sort_text.h"
#include "core/upcalls.h"
#include "platform/memory.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int ExplorerBarShowsOrder = 4;

// One run of a sort: rows First to Last, keyed on FirstCol to LastCol.
struct SortContext {
    Grid& Sorted;
    int Order;
    int First, Last;
    int FirstCol, LastCol;
    RowKeys Keys;
};

int ModeOf(const SortContext& context, int col) noexcept
{
    return context.Order == lorvSortUseColSort ? context.Sorted.ColTable[col].ColSort : context.Order;
}

// The order that the rows had settles a tie, in both directions.
int BreakTie(const SortContext& context, int a, int b) noexcept
{
    const int* original = context.Keys.OriginalIndex;
    if (!original)
        return 0;
    return original[a - context.First] > original[b - context.First] ? 1 : -1;
}

int CompareByHost(SortContext& context, int a, int b)
{
    Grid& grid = context.Sorted;
    int rows = grid.Rows;
    int order = event::Compare(grid, a, b);
    return grid.Rows == rows ? order : CompareFailed; // the handler took rows away
}

int CompareByTexts(SortContext& context, int a, int b) noexcept
{
    Grid& grid = context.Sorted;
    for (int col = context.FirstCol; col <= context.LastCol; ++col) {
        const wchar_t* x = SortText(grid, a, col, true);
        const wchar_t* y = IsCell(grid, b, col) ? SortText(grid, b, col) : x;
        if (!IsCell(grid, a, context.LastCol) || !IsCell(grid, b, context.LastCol))
            return CompareFailed; // a text source took rows or columns away
        int order = CompareTexts(grid.ColTable[col], ModeOf(context, col), x, y);
        if (order != 0)
            return order;
    }
    return BreakTie(context, a, b);
}

int CompareRows(SortContext& context, int a, int b)
{
    if (a == b || context.Order == lorvSortNone)
        return 0;
    int first = context.First;
    if (const double* numbers = context.Keys.Numbers) {
        double x = numbers[a - first], y = numbers[b - first];
        int order = x < y ? -1 : x > y ? 1 : 0;
        return order ? order * DirectionOf(context.Order) : BreakTie(context, a, b);
    }
    if (context.Keys.Texts) {
        int order = CompareCollationKeys(context.Keys, a - first, b - first);
        if (order == 0)
            return BreakTie(context, a, b);
        return (order < 0 ? -1 : 1) * DirectionOf(ModeOf(context, context.FirstCol));
    }
    if (context.Order == lorvSortCustom)
        return CompareByHost(context, a, b);
    return CompareByTexts(context, a, b);
}

void SwapRows(SortContext& context, int a, int b) noexcept
{
    if (a == b)
        return;
    std::swap(context.Sorted.RowTable[a], context.Sorted.RowTable[b]);
    context.Keys.Swap(a - context.First, b - context.First);
}

bool Failed(int order) noexcept
{
    return order >= CompareFailed;
}

// Quicksort with the median of three as its pivot. Hosts that answer `Compare` see the order of the
// comparisons, so it stays as it is. False when a comparison failed.
class RowSorter
{
public:
    explicit RowSorter(SortContext& context) noexcept : context_(context) {}

    bool Sort(int lo, int hi)
    {
        while (hi > lo) {
            int mid = (lo + hi) / 2;
            if (!Order(lo, mid) || !Order(lo, hi) || !Order(mid, hi))
                return false;
            SwapRows(context_, mid, hi - 1);
            int split = 0;
            if (!Partition(lo, hi, split))
                return false;
            SwapRows(context_, split, hi - 1);
            // The recursion takes the smaller part, which bounds its depth.
            if (split - lo > hi - split) {
                if (!Sort(split + 1, hi))
                    return false;
                hi = split - 1;
            } else {
                if (!Sort(lo, split - 1))
                    return false;
                lo = split + 1;
            }
        }
        return true;
    }

private:
    bool Order(int a, int b)
    {
        int order = CompareRows(context_, a, b);
        if (Failed(order))
            return false;
        if (order > 0)
            SwapRows(context_, a, b);
        return true;
    }

    // The pivot is row hi - 1. The walks stay inside the range, whatever the comparisons say.
    bool Partition(int lo, int hi, int& split)
    {
        int pivot = hi - 1, i = lo, j = hi - 1;
        while (lo < hi - 1) {
            int order = -1;
            while (order < 0 && i < hi)
                if (Failed(order = CompareRows(context_, ++i, pivot)))
                    return false;
            order = 1;
            while (order > 0 && j > lo)
                if (Failed(order = CompareRows(context_, --j, pivot)))
                    return false;
            if (i >= j)
                break;
            SwapRows(context_, i, j);
        }
        split = std::min(i, hi - 1);
        return true;
    }

    SortContext& context_;
};

bool HasNumberKeys(const ColRecord& column, int order, bool& dates) noexcept
{
    dates = false;
    if (order == lorvSortNumericAscending || order == lorvSortNumericDescending)
        return true;
    if (order != lorvSortGenericAscending && order != lorvSortGenericDescending)
        return false;
    if (column.ColComboList)
        return false;
    switch (column.ColDataType) {
    case lorvDTShort:
    case lorvDTLong:
    case lorvDTSingle:
    case lorvDTDouble:
    case lorvDTCurrency:
    case lorvDTBoolean:
        return true;
    case lorvDTDate:
        dates = true;
        return true;
    default:
        return false;
    }
}

// Bound texts stay in place while the rows move, so that no key of a row may stand for them.
bool KeepsOwnTexts(const Grid& grid) noexcept
{
    return grid.BoundKind == BoundNone && !grid.LorvDataSource;
}

void MakeKeys(SortContext& context) noexcept
{
    if (context.FirstCol != context.LastCol)
        return;
    Grid& grid = context.Sorted;
    int col = context.FirstCol;
    bool dates = false;
    DWORD flags = 0;
    if (HasNumberKeys(grid.ColTable[col], context.Order, dates))
        MakeNumberKeys(context.Keys, grid, context.First, context.Last, col, dates);
    else if (KeepsOwnTexts(grid) && ComparesAsStrings(grid.ColTable[col], ModeOf(context, col), flags))
        MakeCollationKeys(context.Keys, grid, context.First, context.Last, col, flags);
}

// With keys nobody sees the comparisons, and ties keep the present order, so that there is one result: any
// algorithm may find it. False without keys or memory, and then nothing was moved.
bool ReorderByKeys(SortContext& context) noexcept
{
    if (!context.Keys.OriginalIndex)
        return false;
    int count = context.Last - context.First + 1;
    int direction = DirectionOf(context.Keys.Numbers ? context.Order : ModeOf(context, context.FirstCol));
    int* places = OrderByKeys(context.Keys, count, direction);
    auto* moved = static_cast<RowRecord*>(places ? AllocateZeroed(count, sizeof(RowRecord)) : nullptr);
    if (moved) {
        RowRecord* rows = context.Sorted.RowTable + context.First;
        for (int place = 0; place < count; ++place)
            moved[place] = rows[places[place]];
        std::copy_n(moved, count, rows);
    }
    FreeBlock(places);
    FreeBlock(moved);
    return moved != nullptr;
}

bool IsSorted(SortContext& context)
{
    for (int row = context.First; row < context.Last; ++row)
        if (CompareRows(context, row, row + 1) > 0)
            return false;
    return true;
}

HRESULT SortRun(Grid& grid, int order, int first, int last, int col1, int col2)
{
    grid.ColTable[col1].LastSort = static_cast<uint16_t>(order);
    grid.SortIndicatorCol = col1;
    if (grid.ExplorerBar & ExplorerBarShowsOrder)
        RepaintGrid(grid);
    SortContext context{grid, order, first, last, col1, col2, {}};
    int rows = grid.Rows;
    MakeKeys(context);
    if (grid.Rows != rows || !IsCol(grid, col2)) // a text source took cells away
        return LORV_E_VALUE;
    if (IsSorted(context))
        return S_OK;
    if (grid.Rows != rows)
        return LORV_E_VALUE;
    MarkMergeStale(grid);
    MakeOriginalIndex(context.Keys, first, last);
    if (ReorderByKeys(context))
        return S_OK;
    return RowSorter(context).Sort(first, last) ? S_OK : LORV_E_VALUE;
}

bool IsSubtotalRow(const Grid& grid, int row) noexcept
{
    return (grid.RowTable[row].Flags & RowFlagSubtotal) != 0;
}
} // namespace

HRESULT SortRange(Grid& grid, int order, int row1, int row2, int col1, int col2)
{
    if (order < 0 || order > lorvSortUseColSort)
        return LORV_E_VALUE;
    if (row1 > row2)
        std::swap(row1, row2);
    if (col1 > col2)
        std::swap(col1, col2);
    if (!IsCell(grid, row1, col1) || !IsCell(grid, row2, col2))
        return LORV_E_INDEX;
    KeepAlive alive(grid);
    // Subtotal rows are fixed points: what lies between two of them is sorted by itself.
    for (int first = row1; first < row2 && row1 != row2;) {
        if (IsSubtotalRow(grid, first)) {
            ++first;
            continue;
        }
        int last = first;
        while (last < row2 && !IsSubtotalRow(grid, last + 1))
            ++last;
        if (last > first)
            if (HRESULT result = SortRun(grid, order, first, last, col1, col2); FAILED(result))
                return result;
        first = last + 1;
        if (!IsCell(grid, row2, col2)) // a handler took rows away
            return LORV_E_VALUE;
    }
    RecalculateLayout(grid);
    return S_OK;
}

HRESULT SortSelection(Grid& grid, int order)
{
    if (static_cast<unsigned>(order) > lorvSortUseColSort)
        return LORV_E_VALUE;
    if (order == lorvSortNone)
        return S_OK;
    if (HRESULT result = GuardRowContents(grid); FAILED(result))
        return result;
    KeepAlive alive(grid);
    if (!CommitEdit(grid))
        return S_OK;
    int row1 = std::min(grid.Row, grid.RowSel);
    int row2 = std::max(grid.Row, grid.RowSel);
    if (row1 == row2) {
        row1 = grid.FixedRows;
        row2 = grid.Rows - 1;
    }
    if (row1 > row2)
        return S_OK;
    grid.SortIndicatorCol = -1;
    HRESULT result = SortRange(grid, order, row1, row2, grid.Col, grid.ColSel);
    if (SUCCEEDED(result)) {
        MarkMergeStale(grid);
        RepaintGrid(grid);
    }
    return result;
}
