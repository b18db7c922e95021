// Members of the grid: sizes and positions.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MouseRow(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MouseCol(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellLeft(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellTop(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellWidth(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellHeight(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHeightMin(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHeightMin(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BottomRow(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RightCol(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ClientWidth(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ClientHeight(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHeightMax(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHeightMax(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColWidth(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColWidth(LONG, LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHeight(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHeight(LONG, LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowIsVisible(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColIsVisible(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowPos(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColPos(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::AutoSize(LONG, VARIANT, VARIANT, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColWidthMin(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColWidthMin(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColWidthMax(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColWidthMax(LONG)
{
    return NotBuilt();
}
