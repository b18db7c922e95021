#include "core/cell_reading.h"

#include "core/cell_font.h"
#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/clip_text.h"
#include "core/upcalls.h"
#include "core/value_format.h"
#include "platform/com_ptr.h"
#include "platform/dpi.h"
#include "platform/memory.h"
#include "platform/variant.h"

namespace
{
HRESULT GiveWord(VARIANT& result, int value) noexcept
{
    result.vt = VT_I2, result.iVal = static_cast<short>(value);
    return S_OK;
}
HRESULT GiveLong(VARIANT& result, uint32_t value) noexcept
{
    result.vt = VT_I4, result.lVal = static_cast<LONG>(value);
    return S_OK;
}
HRESULT GiveSingle(VARIANT& result, float value) noexcept
{
    result.vt = VT_R4, result.fltVal = value;
    return S_OK;
}
HRESULT GiveDouble(VARIANT& result, double value) noexcept
{
    result.vt = VT_R8, result.dblVal = value;
    return S_OK;
}
HRESULT GiveFlag(VARIANT& result, bool on) noexcept
{
    result.vt = VT_BOOL, result.boolVal = on ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}
HRESULT GiveText(VARIANT& result, const wchar_t* text) noexcept
{
    result.vt = VT_BSTR, result.bstrVal = text ? SysAllocString(text) : nullptr;
    return text && !result.bstrVal ? E_OUTOFMEMORY : S_OK;
}
HRESULT GiveObject(VARIANT& result, IDispatch* counted) noexcept
{
    result.vt = VT_DISPATCH, result.pdispVal = counted;
    return S_OK;
}

// The cell's format, or that of a cell where nothing is set.
const CellFormat& FormatOrUnset(const Grid& grid, int row, int col) noexcept
{
    static constexpr CellFormat unset = [] {
        CellFormat format = {};
        format.Alignment = format.TextStyle = format.PictureAlignment = Unset;
        return format;
    }();
    const CellFormat* format = CellFormatOf(grid, row, col);
    return format ? *format : unset;
}

int OrDefault(uint8_t value, int whenUnset) noexcept
{
    return value == Unset ? whenUnset : value;
}

LOGFONTW FontOf(Grid& grid, int row, int col)
{
    LOGFONTW description;
    DescribeCellFont(grid, row, col, description);
    return description;
}

HRESULT ReadText(Grid& grid, int row1, int col1, int row2, int col2, VARIANT& result)
{
    if (row1 == row2 && col1 == col2)
        return GiveText(result, GetCellText(grid, row1, col1));
    wchar_t* text = ClipOfRange(grid, row1, col1, row2, col2, false);
    HRESULT given = GiveText(result, text);
    FreeBlock(text);
    return given;
}

HRESULT ReadPicture(Grid& grid, int row, int col, VARIANT& result)
{
    IPictureDisp* picture = FormatOrUnset(grid, row, col).Picture;
    if (picture)
        picture->AddRef();
    return GiveObject(result, picture);
}

HRESULT ReadFont(Grid& grid, int row, int col, VARIANT& result)
{
    LOGFONTW font = FontOf(grid, row, col);
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = font.lfFaceName;
    description.cySize.int64 = PixelsToTwipsY(-font.lfHeight) * 500LL; // a twip is 0.05 points
    description.sWeight = static_cast<SHORT>(font.lfWeight);
    description.sCharset = font.lfCharSet;
    description.fItalic = font.lfItalic != 0;
    description.fUnderline = font.lfUnderline != 0;
    description.fStrikethrough = font.lfStrikeOut != 0;
    ComPtr<IDispatch> object;
    HRESULT made = OleCreateFontIndirect(&description, IID_IFontDisp, object.PutVoid());
    return SUCCEEDED(made) ? GiveObject(result, object.Detach()) : made;
}

HRESULT ReadData(Grid& grid, int row, int col, VARIANT& result)
{
    const VARIANT* data = FormatOrUnset(grid, row, col).Data;
    return data ? VariantCopyInd(&result, const_cast<VARIANT*>(&FollowVariant(*data))) : S_OK;
}

// What the cell shows, as a number where it reads as one.
HRESULT ReadVariantValue(Grid& grid, int row, int col, VARIANT& result)
{
    const wchar_t* text = GetDisplayText(grid, row, col);
    return IsNumericText(text) ? GiveDouble(result, TextToDouble(text)) : GiveText(result, text);
}

HRESULT ReadWidth(Grid& grid, int row, int col, VARIANT& result)
{
    RECT cell = CellRect(grid, row, col);
    return GiveLong(result, PixelsToTwipsX(cell.right - cell.left));
}

HRESULT ReadHeight(Grid& grid, int row, int col, VARIANT& result)
{
    RECT cell = CellRect(grid, row, col);
    return GiveLong(result, PixelsToTwipsY(cell.bottom - cell.top));
}

HRESULT Refuse(Grid&, int, int, VARIANT&)
{
    return LORV_E_VALUE;
}

// Reads one cell.
using CellReader = HRESULT (*)(Grid& grid, int row, int col, VARIANT& result);

// By CellPropertySettings.
constexpr CellReader cellReaders[CellSettingCount] = {
    [](Grid& grid, int row, int col, VARIANT& result) { return ReadText(grid, row, col, row, col, result); },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpTextStyle
        return GiveWord(result, OrDefault(FormatOrUnset(grid, row, col).TextStyle, lorvTextFlat));
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpAlignment
        return GiveWord(result, OrDefault(FormatOrUnset(grid, row, col).Alignment, lorvAlignGeneral));
    },
    ReadPicture,
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpPictureAlignment
        uint8_t alignment = FormatOrUnset(grid, row, col).PictureAlignment;
        return GiveWord(result, OrDefault(alignment, lorvPicAlignLeftCenter));
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpChecked
        return GiveWord(result, CheckStateOf(grid, row, col));
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpBackColor
        return GiveLong(result, FormatOrUnset(grid, row, col).BackColor);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpForeColor
        return GiveLong(result, FormatOrUnset(grid, row, col).ForeColor);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFloodPercent
        return GiveWord(result, FormatOrUnset(grid, row, col).FloodPercent);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFloodColor
        return GiveLong(result, FormatOrUnset(grid, row, col).FloodColor);
    },
    ReadFont,
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFontName
        return GiveText(result, FontOf(grid, row, col).lfFaceName);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFontSize
        return GiveSingle(result, FontPoints(FontOf(grid, row, col).lfHeight));
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFontBold
        return GiveFlag(result, FontOf(grid, row, col).lfWeight >= FW_BOLD);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFontItalic
        return GiveFlag(result, FontOf(grid, row, col).lfItalic != 0);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFontUnderline
        return GiveFlag(result, FontOf(grid, row, col).lfUnderline != 0);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFontStrikethru
        return GiveFlag(result, FontOf(grid, row, col).lfStrikeOut != 0);
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpFontWidth
        return GiveSingle(result, FontPoints(FontOf(grid, row, col).lfWidth));
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpValue
        return GiveDouble(result, TextToDouble(GetCellText(grid, row, col)));
    },
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpTextDisplay
        return GiveText(result, GetDisplayText(grid, row, col));
    },
    ReadData,
    [](Grid& grid, int row, int col, VARIANT& result) { // lorvcpCustomFormat
        return GiveFlag(result, CellFormatOf(grid, row, col) != nullptr);
    },
    [](Grid& grid, int, int col, VARIANT& result) { // lorvcpLeft
        return GiveLong(result, PixelsToTwipsX(ColX(grid, col)));
    },
    [](Grid& grid, int row, int, VARIANT& result) { // lorvcpTop
        return GiveLong(result, PixelsToTwipsY(RowY(grid, row)));
    },
    ReadWidth,
    ReadHeight,
    ReadVariantValue,
    Refuse, // lorvcpRefresh
    Refuse, // lorvcpSort
};
} // namespace

HRESULT ReadCell(Grid& grid, int setting, int row1, int col1, int row2, int col2, VARIANT& result)
{
    if (static_cast<unsigned>(setting) >= CellSettingCount)
        return LORV_E_VALUE;
    if (setting == lorvcpText)
        return ReadText(grid, row1, col1, row2, col2, result);
    return cellReaders[setting](grid, row1, col1, result);
}
