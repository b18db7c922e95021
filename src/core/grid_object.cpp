#include "core/grid_object.h"

#include "core/cell_store.h"
#include "core/font_pool.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "platform/com_ptr.h"
#include "platform/memory.h"

#include <algorithm>

namespace
{
constexpr uint32_t DefaultOptions = OptionScrollTrack | OptionAutoResize | OptionMultiTotals |
                                    OptionAllowBigSelection | OptionAllowSelection | OptionGdiStale;
constexpr int DefaultRows = 50;
constexpr int DefaultCols = 10;
constexpr int DefaultExtent = 5080; // HIMETRIC

void ResetColours(Grid& grid) noexcept
{
    grid.BackColor = 0x80000005;
    grid.BackColorAlternate = 0; // as BackColor
    grid.BackColorFixed = 0x8000000F;
    grid.ForeColor = 0x80000008;
    grid.ForeColorFixed = 0x80000012;
    grid.BackColorSel = 0x8000000D;
    grid.ForeColorSel = 0x8000000E;
    grid.BackColorBkg = 0x8000000C;
    grid.TreeColor = 0x80000010;
    grid.SheetBorder = 0x80000006;
    grid.GridColor = 0x8000000F;
    grid.GridColorFixed = 0x80000010;
    grid.FloodColor = 0x000000C0;
    grid.BackColorFrozen = grid.ForeColorFrozen = 0;
}

// Without memory for the tables the counts say so, and every position stays inside them.
void ResetExtents(Grid& grid) noexcept
{
    ResizeRows(grid, DefaultRows);
    ResizeCols(grid, DefaultCols);
    grid.FixedRows = grid.TopRow = std::min(1, grid.Rows);
    grid.FixedCols = grid.LeftCol = std::min(1, grid.Cols);
    grid.Row = grid.RowSel = std::min(1, grid.Rows - 1);
    grid.Col = grid.ColSel = std::min(1, grid.Cols - 1);
    grid.LastRow = grid.Row, grid.LastCol = grid.Col;
    grid.LastRowSel = grid.RowSel, grid.LastColSel = grid.ColSel;
}
} // namespace

void ResetProperties(Grid& grid) noexcept
{
    ResetColours(grid);
    grid.OptionWord = DefaultOptions;
    grid.DataOptions = DataOptionVirtualData;
    grid.MouseOptions = MouseOptionAutoSizeMouse;
    grid.GridLines = lorvGridFlat;
    grid.GridLinesFixed = lorvGridInset;
    grid.FocusRect = lorvFocusLight;
    grid.HighLight = lorvHighlightAlways;
    grid.ScrollBars = lorvScrollBarBoth;
    grid.SubtotalPosition = lorvSTAbove;
    grid.GridLineWidth = 1;
    grid.Redraw = lorvRDDirect;
    grid.ShowComboButton = lorvSBFocus;
    grid.ComboSearch = lorvCmbSearchAll;
    grid.WallPaperAlignment = lorvPicAlignStretch;
    grid.AutoSearchDelay = 2.0f;
    grid.Appearance = lorvXPThemes;
    grid.BorderStyle = lorvBorderFlat;
    grid.Extent = {DefaultExtent, DefaultExtent};
    ResetExtents(grid);
}

Grid::Grid()
{
    LoadThemeLibrary(*this);
    ResetProperties(*this);
}

Grid::~Grid()
{
    Closing = 1;
    IsSearching = 0;
    Redraw = lorvRDNone; // nothing is to be laid out or painted any more
    ResizeRows(*this, 0);
    ResizeCols(*this, 0);
    ReleaseTips(*this);
    ReleaseDrawingObjects(*this);
    UnloadThemeLibrary(*this);
    FreeAndClear(ComboList);
    FreeAndClear(EditMask);
    ReleaseComboState(EditorList);
    FreeAndClear(FormatString);
    SysFreeString(ClipSeparators);
    for (IPictureDisp** picture : {&MouseIcon, &WallPaper, &CellButtonPicture, &NodeOpenPicture,
                                   &NodeClosedPicture, &SortAscendingPicture, &SortDescendingPicture})
        ReplaceReference<IPictureDisp>(*picture, nullptr);
    ReplaceReference<IFont>(Font, nullptr);
    ReplaceReference<ILorvDataSource>(LorvDataSource, nullptr);
    ReplaceReference<IDispatch>(AmbientProperties, nullptr);
    ReplaceReference<IOleInPlaceSite>(InPlaceSite, nullptr);
    PurgeFontPool();
}
