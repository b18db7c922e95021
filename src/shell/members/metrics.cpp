// Members of the grid: sizes and positions. Lengths are twips here, pixels inside.
#include "view/metrics.h"
#include "core/cell_pos.h"
#include "core/events.h"
#include "platform/dpi.h"
#include "platform/variant.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"
#include "view/auto_size.h"
#include "view/hit_test.h"
#include "view/scroll.h"

#include <algorithm>

namespace
{
// A limit of heights or widths, kept as it was set and in pixels.
struct LimitProperty {
    DISPID Id;
    int32_t Grid::*Twips;
    int32_t Grid::*Pixels;
    int (*ToPixels)(int twips);
};
constexpr LimitProperty rowHeightMin = {39, &Grid::RowHeightMin, &Grid::RowHeightMinPixels, TwipsToPixelsY};
constexpr LimitProperty rowHeightMax = {109, &Grid::RowHeightMax, &Grid::RowHeightMaxPixels, TwipsToPixelsY};
constexpr LimitProperty colWidthMin = {173, &Grid::ColWidthMin, &Grid::ColWidthMinPixels, TwipsToPixelsX};
constexpr LimitProperty colWidthMax = {174, &Grid::ColWidthMax, &Grid::ColWidthMaxPixels, TwipsToPixelsX};

HRESULT SetLimit(Grid& grid, const LimitProperty& property, LONG twips)
{
    if (twips < 0)
        return LORV_E_VALUE;
    grid.*property.Twips = twips;
    grid.*property.Pixels = property.ToPixels(twips);
    FinishProperty(grid, property.Id, StepLayout | StepRepaint);
    return S_OK;
}

// What a row or column stores for a length that a program gives.
int StoredLength(LONG twips, int (*toPixels)(int twips)) noexcept
{
    return twips < 0 ? UnsetLength : std::min(toPixels(twips), MaxPixels);
}

int HeightAsSet(const Grid& grid, int row) noexcept
{
    if (int height = grid.RowTable[row].Height; height >= 0)
        return height;
    return grid.UniformRowHeight >= 1 ? grid.UniformRowHeight : grid.DefaultRowHeight;
}

int WidthAsSet(const Grid& grid, int col) noexcept
{
    int width = grid.ColTable[col].Width;
    return width >= 0 ? width : 4 * grid.DefaultRowHeight;
}

// Reading where the current cell is brings it into view, on an axis that has a scroll bar.
template<class Measure> HRESULT MeasureCurrentCell(Grid& grid, LONG* result, Measure measure)
{
    if (HRESULT guard = GuardRunTime(grid, result); FAILED(guard))
        return guard;
    KeepAlive alive(grid);
    ScrollToCell(grid, grid.Row, grid.Col, false);
    return Return(result, measure());
}

// The cell under the mouse, -1 and -1 when the mouse is elsewhere.
CellPos CellUnderMouse(Grid& grid)
{
    POINT point = {};
    if (!grid.Window || !GetCursorPos(&point) || !ScreenToClient(grid.Window, &point))
        return {-1, -1};
    RECT client = ClientRectOf(grid);
    if (!PtInRect(&client, point))
        return {-1, -1};
    return HitTest(grid, point, true, false).Cell;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_MouseRow(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return FAILED(guard) ? guard : Return(result, CellUnderMouse(*this).Row);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MouseCol(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return FAILED(guard) ? guard : Return(result, CellUnderMouse(*this).Col);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellLeft(LONG* result)
{
    return MeasureCurrentCell(*this, result, [&] { return PixelsToTwipsX(ColX(*this, Col)); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellTop(LONG* result)
{
    return MeasureCurrentCell(*this, result, [&] { return PixelsToTwipsY(RowY(*this, Row)); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellWidth(LONG* result)
{
    return MeasureCurrentCell(*this, result, [&] {
        RECT cell = CellRect(*this, Row, Col);
        return PixelsToTwipsX(cell.right - cell.left);
    });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellHeight(LONG* result)
{
    return MeasureCurrentCell(*this, result, [&] {
        RECT cell = CellRect(*this, Row, Col);
        return PixelsToTwipsY(cell.bottom - cell.top);
    });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHeightMin(LONG* result)
{
    return Return(result, RowHeightMin);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHeightMin(LONG value)
{
    return SetLimit(*this, rowHeightMin, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BottomRow(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return FAILED(guard) ? guard : Return(result, BottomRowOf(*this));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RightCol(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return FAILED(guard) ? guard : Return(result, RightColOf(*this));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ClientWidth(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return FAILED(guard) ? guard : Return(result, PixelsToTwipsX(ClientRectOf(*this).right));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ClientHeight(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return FAILED(guard) ? guard : Return(result, PixelsToTwipsY(ClientRectOf(*this).bottom));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHeightMax(LONG* result)
{
    return Return(result, RowHeightMax);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHeightMax(LONG value)
{
    return SetLimit(*this, rowHeightMax, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColWidth(LONG col, LONG* result)
{
    return IsCol(*this, col) ? Return(result, PixelsToTwipsX(WidthAsSet(*this, col))) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColWidth(LONG col, LONG value)
{
    KeepAlive alive(*this);
    int width = StoredLength(value, TwipsToPixelsX);
    if (HRESULT result = ForCols(*this, col, [&](int each) { ColTable[each].Width = width; }); FAILED(result))
        return result;
    RecalculateLayout(*this);
    if (SpillsText(*this))
        MarkMergeStale(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHeight(LONG row, LONG* result)
{
    return IsRow(*this, row) ? Return(result, PixelsToTwipsY(HeightAsSet(*this, row))) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHeight(LONG row, LONG value)
{
    KeepAlive alive(*this);
    int height = StoredLength(value, TwipsToPixelsY);
    if (HRESULT result = ForRows(*this, row, [&](int each) { RowTable[each].Height = height; });
        FAILED(result))
        return result;
    RecalculateLayout(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowIsVisible(LONG row, VARIANT_BOOL* result)
{
    return IsRow(*this, row) ? ReturnFlag(result, IsCellVisible(*this, row, -1)) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColIsVisible(LONG col, VARIANT_BOOL* result)
{
    return IsCol(*this, col) ? ReturnFlag(result, IsCellVisible(*this, -1, col)) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowPos(LONG row, LONG* result)
{
    return IsRow(*this, row) ? Return(result, PixelsToTwipsY(RowY(*this, row))) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColPos(LONG col, LONG* result)
{
    return IsCol(*this, col) ? Return(result, PixelsToTwipsX(ColX(*this, col))) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::AutoSize(LONG col1, VARIANT col2, VARIANT equal, VARIANT extraSpace)
{
    KeepAlive alive(*this);
    RecalcDefaultRowHeight(*this);
    long last = VariantToLong(col2, col1);
    long sameForAll = VariantToLong(equal, 0);
    long extra = VariantToLong(extraSpace, 0);
    if (col1 < 0 || col1 >= Cols || last >= Cols)
        return LORV_E_INDEX;
    AutoSizeRange(*this, col1, last, sameForAll != 0, TwipsToPixelsX(extra), AutoSizeByProperty);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColWidthMin(LONG* result)
{
    return Return(result, ColWidthMin);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColWidthMin(LONG value)
{
    return SetLimit(*this, colWidthMin, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColWidthMax(LONG* result)
{
    return Return(result, ColWidthMax);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColWidthMax(LONG value)
{
    return SetLimit(*this, colWidthMax, value);
}
