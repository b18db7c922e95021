// Members of the grid: the control as such and accessibility.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::About()
{
    return S_OK; // there is no box: hosts call it for the grid's sake and expect nothing to happen
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AccessibleName(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AccessibleName(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AccessibleDescription(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AccessibleDescription(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AccessibleValue(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AccessibleValue(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AccessibleRole(VARIANT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AccessibleRole(VARIANT)
{
    return NotBuilt();
}
