#include "view/navigate_key.h"

#include "core/cell_pos.h"
#include "core/events.h"
#include "core/merge.h"
#include "core/search.h"
#include "core/upcalls.h"
#include "platform/key_state.h"
#include "view/scroll.h"
#include "view/selection.h"
#include "view/sheet_axis.h"

#include <algorithm>

namespace
{
constexpr int Keep = -2;                // as MoveCursor takes it
constexpr int BackTab = VK_TAB | 0x100; // Tab with Shift

// Where a key leads; the other coordinate stays.
struct Target {
    int Row = Keep;
    int Col = Keep;
};

int LastOf(const Grid& grid, const SheetAxis& axis) noexcept
{
    return grid.*axis.Count - 1;
}

// The next entry past `first` to `last`, which is what the cell is merged over. A merged range at the edge of
// the sheet is left by no step.
int Next(const Grid& grid, const SheetAxis& axis, int from, int first, int last, int step)
{
    int lowest = grid.*axis.Fixed, highest = LastOf(grid, axis);
    if (highest < lowest)
        return from;
    int target = std::clamp(step > 0 ? last + step : first + step, lowest, highest);
    if (target >= first && target <= last)
        return from;
    while (target >= lowest && target <= highest && axis.LengthOf(grid, target) == 0)
        target += step;
    return target >= lowest && target <= highest ? target : from;
}

int NextRow(const Grid& grid, CellPos from, int step)
{
    CellRange merged = MergedRangeOf(grid, from.Row, from.Col);
    return Next(grid, RowAxis, from.Row, merged.Row1, merged.Row2, step);
}

int NextCol(const Grid& grid, CellPos from, int step)
{
    CellRange merged = MergedRangeOf(grid, from.Row, from.Col);
    return Next(grid, ColAxis, from.Col, merged.Col1, merged.Col2, step);
}

// Through the cells of a row, then on in the next row, from the end where it begins.
Target Through(const Grid& grid, CellPos from, int step, int beginning)
{
    if (int col = NextCol(grid, from, step); col != from.Col)
        return {Keep, col};
    int row = NextRow(grid, from, step);
    return row != from.Row ? Target{row, beginning} : Target{};
}

Target NextCell(const Grid& grid, CellPos from)
{
    return Through(grid, from, 1, grid.FixedCols);
}
Target PreviousCell(const Grid& grid, CellPos from)
{
    return Through(grid, from, -1, grid.Cols);
}
Target RowAbove(const Grid& grid, CellPos from)
{
    return {NextRow(grid, from, -1), Keep};
}
Target RowBelow(const Grid& grid, CellPos from)
{
    return {NextRow(grid, from, 1), Keep};
}
Target ColToTheLeft(const Grid& grid, CellPos from)
{
    return {Keep, NextCol(grid, from, -1)};
}
Target ColToTheRight(const Grid& grid, CellPos from)
{
    return {Keep, NextCol(grid, from, 1)};
}
Target PageAbove(const Grid& grid, CellPos from)
{
    return {PrevPageTop(grid, from.Row), Keep};
}
Target PageBelow(const Grid& grid, CellPos from)
{
    return {NextPageTop(grid, from.Row), Keep};
}
Target FirstRow(const Grid& grid, CellPos)
{
    return {grid.FixedRows, Keep};
}
Target LastRow(const Grid& grid, CellPos)
{
    return {LastOf(grid, RowAxis), Keep};
}
Target FirstCol(const Grid& grid, CellPos)
{
    return {Keep, grid.FixedCols};
}
Target LastCol(const Grid& grid, CellPos)
{
    return {Keep, LastOf(grid, ColAxis)};
}
Target FirstCell(const Grid& grid, CellPos)
{
    return {grid.FixedRows, grid.FixedCols};
}
Target LastCell(const Grid& grid, CellPos)
{
    return {LastOf(grid, RowAxis), LastOf(grid, ColAxis)};
}

using Rule = Target (*)(const Grid& grid, CellPos from);
constexpr struct KeyRule {
    int Key;
    Rule Plain, WithCtrl;
} rules[] = {
    {VK_TAB, NextCell, NextCell},      {BackTab, PreviousCell, PreviousCell},
    {VK_PRIOR, PageAbove, FirstRow},   {VK_NEXT, PageBelow, LastRow},
    {VK_END, LastCol, LastCell},       {VK_HOME, FirstCol, FirstCell},
    {VK_UP, RowAbove, FirstRow},       {VK_DOWN, RowBelow, LastRow},
    {VK_LEFT, ColToTheLeft, FirstCol}, {VK_RIGHT, ColToTheRight, LastCol},
};

const KeyRule* RuleOf(int key) noexcept
{
    for (const KeyRule& rule : rules)
        if (rule.Key == key)
            return &rule;
    return nullptr;
}

// The key as the table knows it.
int TableKey(const Grid& grid, int key) noexcept
{
    if (key == VK_TAB && IsKeyHeld(VK_SHIFT))
        return BackTab;
    if (!HasOption(grid, OptionRightToLeft))
        return key;
    return key == VK_LEFT ? VK_RIGHT : key == VK_RIGHT ? VK_LEFT : key;
}

bool Extends(const Grid& grid, int tableKey) noexcept
{
    return IsKeyHeld(VK_SHIFT) && HasOption(grid, OptionAllowSelection) && tableKey != BackTab;
}

// Over entries without a length, up to the last one of the scrollable part.
int SkipHidden(const Grid& grid, const SheetAxis& axis, int index, int step)
{
    int end = step > 0 ? LastOf(grid, axis) : grid.*axis.Fixed;
    while (index != end && axis.LengthOf(grid, index) == 0)
        index += step;
    return index;
}

// A hidden target gives way to the next visible one in the direction of travel, or else to one behind it.
int Reachable(const Grid& grid, const SheetAxis& axis, int target, int from)
{
    int lowest = grid.*axis.Fixed, highest = LastOf(grid, axis);
    if (target == Keep || highest < lowest)
        return Keep;
    target = std::clamp(target, lowest, highest);
    int step = target < from ? -1 : 1;
    return SkipHidden(grid, axis, SkipHidden(grid, axis, target, step), -step);
}

// In a list box the selected rows follow the cursor.
void SelectRowsAtCursor(Grid& grid, bool extends)
{
    if (grid.SelectionMode == lorvSelectionListBox)
        ReportListChange(grid, SetRowsSelected(grid, grid.Row, extends ? grid.RowSel : grid.Row, true, true));
}
} // namespace

void NavigateKey(Grid& grid, int key)
{
    key = TableKey(grid, key);
    const KeyRule* rule = RuleOf(key);
    if (!rule)
        return;
    KeepAlive alive(grid);
    bool extends = Extends(grid, key);
    CellPos from = extends ? CellPos{grid.RowSel, grid.ColSel} : CellPos{grid.Row, grid.Col};
    Target target = (IsKeyHeld(VK_CONTROL) ? rule->WithCtrl : rule->Plain)(grid, from);
    EndAutoSearch(grid);
    target = {Reachable(grid, RowAxis, target.Row, from.Row), Reachable(grid, ColAxis, target.Col, from.Col)};
    if (extends)
        ExtendSelection(grid, target.Row, target.Col, CursorShow);
    else
        MoveCursor(grid, target.Row, target.Col, CursorShowCell);
    SelectRowsAtCursor(grid, extends);
}
