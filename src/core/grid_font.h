#pragma once
// Changing the grid's font. All of it goes to the one font object of the grid, and each change is a change of
// `Font`. A font refuses what it cannot be: its code comes back, and nothing has changed.

#include "core/errors.h"
#include "core/grid_object.h"

struct FontFlagProperty {
    HRESULT (STDMETHODCALLTYPE IFont::*Get)(BOOL*);
    HRESULT (STDMETHODCALLTYPE IFont::*Set)(BOOL);
};
constexpr FontFlagProperty FontBold = {&IFont::get_Bold, &IFont::put_Bold};
constexpr FontFlagProperty FontItalic = {&IFont::get_Italic, &IFont::put_Italic};
constexpr FontFlagProperty FontStrikethru = {&IFont::get_Strikethrough, &IFont::put_Strikethrough};
constexpr FontFlagProperty FontUnderline = {&IFont::get_Underline, &IFont::put_Underline};

// LORV_E_DESIGNMODE: the only one of them that a form designer may not change.
HRESULT SetFontName(Grid& grid, BSTR name);
HRESULT SetFontSize(Grid& grid, float points);
HRESULT SetFontFlag(Grid& grid, const FontFlagProperty& property, bool on);
// Neither marks the grid nor notifies, unlike its neighbours: hosts rely on the silence.
void SetFontWidth(Grid& grid, float points);

// What follows from any change of the font object.
HRESULT FinishFontChange(Grid& grid);

// 0 when the grid has no font.
float FontSizeOf(Grid& grid) noexcept;
