// Members of the grid: colours.
#include "core/events.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
constexpr ColourProperty foreColor = {DISPID_FORECOLOR, &Grid::ForeColor};
constexpr ColourProperty backColorFixed = {20, &Grid::BackColorFixed, 2};
constexpr ColourProperty foreColorFixed = {21, &Grid::ForeColorFixed};
constexpr ColourProperty backColorSel = {22, &Grid::BackColorSel, 3};
constexpr ColourProperty foreColorSel = {23, &Grid::ForeColorSel};
constexpr ColourProperty backColorBkg = {24, &Grid::BackColorBkg, 4};
constexpr ColourProperty gridColor = {43, &Grid::GridColor, 5};
constexpr ColourProperty gridColorFixed = {44, &Grid::GridColorFixed, 6};
constexpr ColourProperty floodColor = {74, &Grid::FloodColor};
constexpr ColourProperty treeColor = {83, &Grid::TreeColor};
constexpr ColourProperty backColorAlternate = {96, &Grid::BackColorAlternate, 1};
constexpr ColourProperty sheetBorder = {102, &Grid::SheetBorder, 7};
constexpr ColourProperty backColorFrozen = {191, &Grid::BackColorFrozen, 8};
constexpr ColourProperty foreColorFrozen = {192, &Grid::ForeColorFrozen};
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColor(OLE_COLOR* result)
{
    return Return(result, BackColor);
}

// A new back colour is that of every row: it clears the alternate colour, and hosts rely on being told of
// both, this one first.
HRESULT STDMETHODCALLTYPE GridMembers::put_BackColor(OLE_COLOR value)
{
    if (value == BackColor)
        return S_OK;
    KeepAlive alive(*this);
    BackColor = value;
    RebuildGdi(*this, 0);
    BackColorAlternate = 0;
    RebuildGdi(*this, 1);
    FinishProperty(*this, DISPID_BACKCOLOR, StepRepaint);
    MarkDirtyAndNotify(*this, backColorAlternate.Id);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColor(OLE_COLOR* result)
{
    return Return(result, ForeColor);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColor(OLE_COLOR value)
{
    return SetColour(*this, foreColor, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorFixed(OLE_COLOR* result)
{
    return Return(result, BackColorFixed);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorFixed(OLE_COLOR value)
{
    return SetColour(*this, backColorFixed, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColorFixed(OLE_COLOR* result)
{
    return Return(result, ForeColorFixed);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColorFixed(OLE_COLOR value)
{
    return SetColour(*this, foreColorFixed, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorSel(OLE_COLOR* result)
{
    return Return(result, BackColorSel);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorSel(OLE_COLOR value)
{
    return SetColour(*this, backColorSel, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColorSel(OLE_COLOR* result)
{
    return Return(result, ForeColorSel);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColorSel(OLE_COLOR value)
{
    return SetColour(*this, foreColorSel, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorBkg(OLE_COLOR* result)
{
    return Return(result, BackColorBkg);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorBkg(OLE_COLOR value)
{
    return SetColour(*this, backColorBkg, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GridColor(OLE_COLOR* result)
{
    return Return(result, GridColor);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GridColor(OLE_COLOR value)
{
    return SetColour(*this, gridColor, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GridColorFixed(OLE_COLOR* result)
{
    return Return(result, GridColorFixed);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GridColorFixed(OLE_COLOR value)
{
    return SetColour(*this, gridColorFixed, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FloodColor(OLE_COLOR* result)
{
    return Return(result, FloodColor);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FloodColor(OLE_COLOR value)
{
    return SetColour(*this, floodColor, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TreeColor(OLE_COLOR* result)
{
    return Return(result, TreeColor);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TreeColor(OLE_COLOR value)
{
    return SetColour(*this, treeColor, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorAlternate(OLE_COLOR* result)
{
    return Return(result, BackColorAlternate != 0 ? BackColorAlternate : BackColor);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorAlternate(OLE_COLOR value)
{
    return SetColour(*this, backColorAlternate, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SheetBorder(OLE_COLOR* result)
{
    return Return(result, SheetBorder);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SheetBorder(OLE_COLOR value)
{
    return SetColour(*this, sheetBorder, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorFrozen(OLE_COLOR* result)
{
    return Return(result, BackColorFrozen);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorFrozen(OLE_COLOR value)
{
    return SetColour(*this, backColorFrozen, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColorFrozen(OLE_COLOR* result)
{
    return Return(result, ForeColorFrozen);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColorFrozen(OLE_COLOR value)
{
    return SetColour(*this, foreColorFrozen, value);
}
