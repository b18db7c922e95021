// Members of the grid: the stock font. All of them read and write the one font object of the grid, and each
// change is a change of Font.
#include "core/events.h"
#include "core/grid_font.h"
#include "platform/com_ptr.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
HRESULT GetFontFlag(Grid& grid, const FontFlagProperty& property, VARIANT_BOOL* result)
{
    if (HRESULT guard = GuardRunTime(grid, result); FAILED(guard))
        return guard;
    ComPtr<IFont> font(GridFont(grid));
    if (!font)
        return E_OUTOFMEMORY;
    BOOL on = FALSE;
    HRESULT read = (font.Get()->*property.Get)(&on);
    return SUCCEEDED(read) ? ReturnFlag(result, on != FALSE) : read;
}

// No font at all means the default one, which is made when it is needed.
HRESULT SetFont(Grid& grid, IFontDisp* value)
{
    auto font = QueryFor<IFont>(value, IID_IFont);
    if (value && !font)
        return LORV_E_VALUE;
    KeepAlive alive(grid);
    ReplaceReference(grid.Font, font.Get());
    return FinishFontChange(grid);
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_Font(IFontDisp** result)
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    IFont* font = GridFont(*this);
    return font ? font->QueryInterface(IID_IFontDisp, reinterpret_cast<void**>(result)) : E_OUTOFMEMORY;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Font(IFontDisp* value)
{
    return SetFont(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_Font(IFontDisp* value)
{
    return SetFont(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontName(BSTR* result)
{
    if (HRESULT guard = GuardRunTime(*this, result); FAILED(guard))
        return guard;
    *result = nullptr;
    IFont* font = GridFont(*this);
    return font ? font->get_Name(result) : E_OUTOFMEMORY;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontName(BSTR value)
{
    return SetFontName(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontSize(FLOAT* result)
{
    if (HRESULT guard = GuardRunTime(*this, result); FAILED(guard))
        return guard;
    IFont* font = GridFont(*this);
    if (!font)
        return E_OUTOFMEMORY;
    CY size = {};
    HRESULT read = font->get_Size(&size);
    return SUCCEEDED(read) ? VarR4FromCy(size, result) : read;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontSize(FLOAT value)
{
    return SetFontSize(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontBold(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, ::FontBold, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontBold(VARIANT_BOOL value)
{
    return SetFontFlag(*this, ::FontBold, value != VARIANT_FALSE);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontItalic(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, ::FontItalic, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontItalic(VARIANT_BOOL value)
{
    return SetFontFlag(*this, ::FontItalic, value != VARIANT_FALSE);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontStrikethru(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, ::FontStrikethru, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontStrikethru(VARIANT_BOOL value)
{
    return SetFontFlag(*this, ::FontStrikethru, value != VARIANT_FALSE);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontUnderline(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, ::FontUnderline, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontUnderline(VARIANT_BOOL value)
{
    return SetFontFlag(*this, ::FontUnderline, value != VARIANT_FALSE);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontWidth(FLOAT* result)
{
    return ReturnAtRunTime(*this, result, FontWidth);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontWidth(FLOAT value)
{
    SetFontWidth(*this, value);
    return S_OK;
}
