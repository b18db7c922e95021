#include "view/paint.h"

#include "core/upcalls.h"

void OnDraw(Grid& grid, const DrawInfo& info)
{
    if (HasOption(grid, OptionGdiStale)) {
        RebuildGdi(grid, -1);
        SetOption(grid, OptionGdiStale, false);
    }
    FillRect(info.Context, &info.Bounds, grid.Drawing.Background);
}
