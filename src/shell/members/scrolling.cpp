// Members of the grid: scrolling.
#include "core/events.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"
#include "view/scroll.h"
#include "view/sheet_axis.h"

namespace
{
constexpr WordProperty scrollBars = {32, &Grid::ScrollBars, lorvScrollBarBoth, StepLayout | StepRepaint};

// The first row or column on screen: the stored one may be hidden.
HRESULT ReturnFirst(Grid& grid, const SheetAxis& axis, LONG* result)
{
    int first = NextShown(grid, axis, grid.*axis.First, grid.*axis.Count - 1);
    return ReturnAtRunTime(grid, result, first);
}

// There is no layout without Redraw, so it is on while the sheet scrolls.
HRESULT SetFirst(Grid& grid, const SheetAxis& axis, LONG value)
{
    if (value < 0)
        return LORV_E_INDEX;
    if (!grid.Window) {
        grid.*axis.First = value;
        return S_OK;
    }
    KeepAlive alive(grid);
    bool redrawOff = grid.Redraw == lorvRDNone;
    if (redrawOff)
        SetRedraw(grid, lorvRDDirect);
    (axis.Bar == SB_VERT ? ScrollVertical : ScrollHorizontal)(grid, ScrollDirect, value, true);
    if (redrawOff)
        SetRedraw(grid, lorvRDNone);
    return S_OK;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_TopRow(LONG* result)
{
    return ReturnFirst(*this, RowAxis, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TopRow(LONG value)
{
    return SetFirst(*this, RowAxis, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_LeftCol(LONG* result)
{
    return ReturnFirst(*this, ColAxis, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_LeftCol(LONG value)
{
    return SetFirst(*this, ColAxis, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ScrollBars(ScrollBarsSettings* result)
{
    return Return(result, ScrollBars);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ScrollBars(ScrollBarsSettings value)
{
    return SetEnum(*this, scrollBars, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::ShowCell(LONG row, LONG col)
{
    if (!IsCell(*this, row, col))
        return LORV_E_INDEX;
    ScrollToCell(*this, row, col, true);
    return S_OK;
}
