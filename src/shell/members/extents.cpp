// Members of the grid: numbers of rows and columns.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Rows(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Rows(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Cols(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Cols(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FixedRows(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FixedRows(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FixedCols(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FixedCols(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FrozenRows(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FrozenRows(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FrozenCols(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FrozenCols(LONG)
{
    return NotBuilt();
}
