// Members of the grid: the stock font.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Font(IFontDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Font(IFontDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_Font(IFontDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontName(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontName(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontSize(FLOAT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontSize(FLOAT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontBold(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontBold(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontItalic(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontItalic(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontStrikethru(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontStrikethru(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontUnderline(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontUnderline(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontWidth(FLOAT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontWidth(FLOAT)
{
    return NotBuilt();
}
