// Members of the grid: the window, its look and the flags.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::Refresh()
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MouseIcon(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MouseIcon(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_MouseIcon(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MousePointer(MousePointerSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MousePointer(MousePointerSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Appearance(AppearanceSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Appearance(AppearanceSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_hWnd(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Enabled(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Enabled(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BorderStyle(BorderStyleSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BorderStyle(BorderStyleSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Version(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Version(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Flags(ControlFlagsSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Flags(ControlFlagsSettings)
{
    return NotBuilt();
}
