#include "core/events.h"
#include "core/format_string.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/gdi.h"

namespace
{
constexpr int RowPadding = 4; // pixels between the text and the row's edges, together

int MeasureTextHeight(Grid& grid) noexcept
{
    ScreenDC screen;
    grid.FontHandle = nullptr; // the font object may have been changed by others that share it
    HFONT font = GridFontHandle(grid);
    SelectedObject selected(screen.Get(), font ? static_cast<HGDIOBJ>(font) : GetStockObject(SYSTEM_FONT));
    SIZE size = {};
    GetTextExtentPoint32W(screen.Get(), L"Hj", 2, &size);
    return size.cy;
}
} // namespace

void RecalcDefaultRowHeight(Grid& grid)
{
    KeepAlive alive(grid);
    int before = grid.DefaultRowHeight;
    grid.DefaultRowHeight = MeasureTextHeight(grid) + RowPadding;
    if (IsDesignMode(grid) && grid.FormatString && *grid.FormatString)
        ApplyFormatString(grid); // what a designer shows is made of it, in widths of the font
    if (SpillsText(grid) && grid.DefaultRowHeight != before)
        MarkMergeStale(grid);
    RebuildOutlineLevels(grid);
    RecalculateLayout(grid);
    RepaintGrid(grid);
}
