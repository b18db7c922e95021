// Members of the grid: bound arrays, grids and data sources.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::BindToArray(VARIANT, VARIANT, VARIANT, VARIANT, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::LoadArray(VARIANT, VARIANT, VARIANT, VARIANT, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_LorvDataSource(ILorvDataSource**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_LorvDataSource(ILorvDataSource*)
{
    return NotBuilt();
}
