// Members of the grid: the stock font. All of them read and write the one font object of the grid, and each
// change is a change of Font.
#include "core/events.h"
#include "platform/com_ptr.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
struct FontFlagProperty {
    HRESULT (STDMETHODCALLTYPE IFont::*Get)(BOOL*);
    HRESULT (STDMETHODCALLTYPE IFont::*Set)(BOOL);
};
constexpr FontFlagProperty fontBold = {&IFont::get_Bold, &IFont::put_Bold};
constexpr FontFlagProperty fontItalic = {&IFont::get_Italic, &IFont::put_Italic};
constexpr FontFlagProperty fontStrikethru = {&IFont::get_Strikethrough, &IFont::put_Strikethrough};
constexpr FontFlagProperty fontUnderline = {&IFont::get_Underline, &IFont::put_Underline};

// Sinks hear of the change before the rows are measured anew.
HRESULT FinishFontChange(Grid& grid)
{
    KeepAlive alive(grid);
    grid.FontHandle = nullptr;
    MarkDirtyAndNotify(grid, DISPID_FONT);
    FontChanged(grid);
    return S_OK;
}

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

// A font refuses what it cannot be; then nothing has changed.
template<class Change> HRESULT ChangeFont(Grid& grid, Change change)
{
    ComPtr<IFont> font(GridFont(grid));
    if (!font)
        return E_OUTOFMEMORY;
    HRESULT changed = change(*font.Get());
    return SUCCEEDED(changed) ? FinishFontChange(grid) : changed;
}

HRESULT SetFontFlag(Grid& grid, const FontFlagProperty& property, VARIANT_BOOL value)
{
    return ChangeFont(grid, [&](IFont& font) { return (font.*property.Set)(value != VARIANT_FALSE); });
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

// The only one of the font's setters that a form designer may not use.
HRESULT STDMETHODCALLTYPE GridMembers::put_FontName(BSTR value)
{
    if (IsDesignMode(*this))
        return LORV_E_DESIGNMODE;
    if (!value)
        return LORV_E_VALUE;
    return ChangeFont(*this, [&](IFont& font) { return font.put_Name(value); });
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
    CY size = {};
    if (!(value > -1e6f && value < 1e6f) || FAILED(VarCyFromR4(value, &size)))
        return LORV_E_VALUE;
    return ChangeFont(*this, [&](IFont& font) { return font.put_Size(size); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontBold(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, fontBold, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontBold(VARIANT_BOOL value)
{
    return SetFontFlag(*this, fontBold, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontItalic(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, fontItalic, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontItalic(VARIANT_BOOL value)
{
    return SetFontFlag(*this, fontItalic, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontStrikethru(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, fontStrikethru, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontStrikethru(VARIANT_BOOL value)
{
    return SetFontFlag(*this, fontStrikethru, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontUnderline(VARIANT_BOOL* result)
{
    return GetFontFlag(*this, fontUnderline, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FontUnderline(VARIANT_BOOL value)
{
    return SetFontFlag(*this, fontUnderline, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FontWidth(FLOAT* result)
{
    return ReturnAtRunTime(*this, result, FontWidth);
}

// Neither marks the grid nor notifies, unlike its neighbours: hosts rely on the silence.
HRESULT STDMETHODCALLTYPE GridMembers::put_FontWidth(FLOAT value)
{
    FontWidth = value;
    RunSetterSteps(*this, StepLayout | StepRepaint);
    return S_OK;
}
