#pragma once
// Fonts to compare with: the system puts another face, size and character set into a font object whose face
// it does not have, and a control's font goes the same way.

#include "platform/bstr.h"
#include "platform/com_ptr.h"

#include <olectl.h>

#include <string>

inline ComPtr<IFont> SystemFont(const wchar_t* face, int points, SHORT charset = DEFAULT_CHARSET)
{
    std::wstring name = face;
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = name.data();
    description.cySize.int64 = points * 10000LL;
    description.sWeight = FW_NORMAL;
    description.sCharset = charset;
    ComPtr<IFont> font;
    OleCreateFontIndirect(&description, IID_IFont, font.PutVoid());
    return font;
}

struct FontLook {
    std::wstring Face;
    LONGLONG Size = 0; // in 1/10,000 point
    SHORT Weight = 0, Charset = 0;
    BOOL Italic = FALSE, Underline = FALSE, Strikethrough = FALSE;

    friend bool operator==(const FontLook&, const FontLook&) = default;
};

inline FontLook LookOf(IFont* font)
{
    FontLook look;
    Bstr face;
    CY size = {};
    font->get_Name(face.Put());
    font->get_Size(&size);
    font->get_Weight(&look.Weight);
    font->get_Charset(&look.Charset);
    font->get_Italic(&look.Italic);
    font->get_Underline(&look.Underline);
    font->get_Strikethrough(&look.Strikethrough);
    look.Face = face.Text();
    look.Size = size.int64;
    return look;
}
