// Members of the grid: printing and pictures of the grid.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Picture(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::PrintGrid(VARIANT, VARIANT, VARIANT, VARIANT, VARIANT)
{
    return NotBuilt();
}
