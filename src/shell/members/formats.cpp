// Members of the grid: formats, clip strings and FormatString.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColFormat(LONG, BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColFormat(LONG, BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FormatString(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FormatString(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Clip(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Clip(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ClipSeparators(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ClipSeparators(BSTR)
{
    return NotBuilt();
}
