// Members of the grid: clipboard and drag and drop.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_OLEDropMode(OLEDropModeSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_OLEDropMode(OLEDropModeSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::OLEDrag()
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Cut()
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Copy()
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Paste()
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Delete()
{
    return NotBuilt();
}
