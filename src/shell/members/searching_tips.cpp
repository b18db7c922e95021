// Members of the grid: auto-search, tips and the explorer bar.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AutoSearch(AutoSearchSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AutoSearch(AutoSearchSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ExplorerBar(ExplorerBarSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ExplorerBar(ExplorerBarSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_IsSearching(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ScrollTips(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ScrollTips(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ScrollTipText(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ScrollTipText(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AutoSearchDelay(FLOAT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AutoSearchDelay(FLOAT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ToolTips(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ToolTips(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ToolTipText(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ToolTipText(BSTR)
{
    return NotBuilt();
}
