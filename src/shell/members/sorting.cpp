// Members of the grid: sorting and searching.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Sort(SortSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColSort(LONG, SortSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColSort(LONG, SortSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FindRow(VARIANT, VARIANT, VARIANT, VARIANT, VARIANT, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FindRowRegex(BSTR, LONG, LONG, LONG*)
{
    return NotBuilt();
}
