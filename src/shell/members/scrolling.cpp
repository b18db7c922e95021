// Members of the grid: scrolling.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TopRow(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TopRow(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_LeftCol(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_LeftCol(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ScrollBars(ScrollBarsSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ScrollBars(ScrollBarsSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::ShowCell(LONG, LONG)
{
    return NotBuilt();
}
