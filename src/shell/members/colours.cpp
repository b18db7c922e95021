// Members of the grid: colours.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorFixed(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorFixed(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColorFixed(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColorFixed(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorSel(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorSel(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColorSel(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColorSel(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorBkg(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorBkg(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GridColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GridColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GridColorFixed(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GridColorFixed(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FloodColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FloodColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TreeColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TreeColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorAlternate(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorAlternate(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SheetBorder(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SheetBorder(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BackColorFrozen(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BackColorFrozen(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ForeColorFrozen(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ForeColorFrozen(OLE_COLOR)
{
    return NotBuilt();
}
