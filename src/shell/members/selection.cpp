// Members of the grid: the current cell and the selection.
#include "core/events.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowSel(LONG* result)
{
    return ReturnAtRunTime(*this, result, RowSel);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowSel(LONG value)
{
    EditFlags &= ~EditFlagSelectionLocked;
    if (value < 0 || value >= Rows)
        return LORV_E_INDEX;
    KeepAlive alive(*this);
    RowSel = value;
    RepaintGrid(*this);
    FireSelectionEvents(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColSel(LONG* result)
{
    return ReturnAtRunTime(*this, result, ColSel);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColSel(LONG value)
{
    EditFlags &= ~EditFlagSelectionLocked;
    if (value < 0 || value >= Cols)
        return LORV_E_INDEX;
    KeepAlive alive(*this);
    ColSel = value;
    RepaintGrid(*this);
    FireSelectionEvents(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Row(LONG* result)
{
    return ReturnAtRunTime(*this, result, Row);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Row(LONG value)
{
    EditFlags &= ~EditFlagSelectionLocked;
    if (value < -1 || value >= Rows)
        return LORV_E_INDEX;
    return MoveCursor(*this, value, -2, 1);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Col(LONG* result)
{
    return ReturnAtRunTime(*this, result, Col);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Col(LONG value)
{
    EditFlags &= ~EditFlagSelectionLocked;
    if (value < -1 || value >= Cols)
        return LORV_E_INDEX;
    return MoveCursor(*this, -2, value, 1);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SelectionMode(SelModeSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SelectionMode(SelModeSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_IsSelected(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_IsSelected(LONG, VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Select(LONG, LONG, VARIANT, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SelectedRows(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SelectedRow(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::GetSelection(LONG*, LONG*, LONG*, LONG*)
{
    return NotBuilt();
}
