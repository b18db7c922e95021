// Members of the grid: cells, their properties and data.
#include "core/cell_border.h"
#include "core/cell_property.h"
#include "core/cell_reading.h"
#include "core/cell_value.h"
#include "core/cell_writing.h"
#include "core/events.h"
#include "core/selection_range.h"
#include "platform/com_ptr.h"
#include "platform/variant.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

#include <commctrl.h>

#include <algorithm>

namespace
{
// Takes what a cell was read as out of its variant, which holds the type that the member gives.
void Take(VARIANT& value, OLE_COLOR* result) noexcept
{
    *result = static_cast<OLE_COLOR>(value.lVal);
}
void Take(VARIANT& value, SHORT* result) noexcept // a boolean too
{
    *result = value.iVal;
}
void Take(VARIANT& value, FLOAT* result) noexcept
{
    *result = value.fltVal;
}
void Take(VARIANT& value, BSTR* result) noexcept
{
    *result = std::exchange(value.bstrVal, nullptr);
}
void Take(VARIANT& value, IPictureDisp** result) noexcept
{
    *result = static_cast<IPictureDisp*>(std::exchange(value.pdispVal, nullptr));
}
template<class Enum>
requires std::is_enum_v<Enum>
void Take(VARIANT& value, Enum* result) noexcept
{
    *result = static_cast<Enum>(value.iVal);
}

// Reads a CellPropertySettings of the current cell.
template<class Out> HRESULT ReadCurrentCell(Grid& grid, CellPropertySettings setting, Out* result)
{
    if (HRESULT guard = GuardRunTime(grid, result); FAILED(guard))
        return guard;
    if (!IsCell(grid, grid.Row, grid.Col))
        return LORV_E_INDEX;
    OwnedVariant value;
    HRESULT read = ReadCell(grid, setting, grid.Row, grid.Col, grid.Row, grid.Col, value.Get());
    if (SUCCEEDED(read))
        Take(value.Get(), result);
    return read;
}

// For an enumerated value of the current cell or the selection.
HRESULT WriteCurrentEnum(Grid& grid, CellSelector selector, int value, unsigned largest)
{
    return static_cast<unsigned>(value) > largest ? LORV_E_VALUE
                                                  : SetCellPropertySelection(grid, selector, value);
}

// Back to the grid's font.
HRESULT DropCurrentFont(Grid& grid)
{
    return SetCellPropertySelection(grid, CellSelector::Font, nullptr);
}
} // namespace

// Outside the grid there is no text, which is no error.
HRESULT STDMETHODCALLTYPE GridMembers::get_Text(BSTR* result)
{
    if (HRESULT guard = GuardRunTime(*this, result); FAILED(guard))
        return guard;
    return ReturnText(result, IsCell(*this, Row, Col) ? GetCellText(*this, Row, Col) : nullptr);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Text(BSTR value)
{
    return SetCellPropertySelection(*this, CellSelector::Text, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellBackColor(OLE_COLOR* result)
{
    return ReadCurrentCell(*this, lorvcpBackColor, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellBackColor(OLE_COLOR value)
{
    return SetCellPropertySelection(*this, CellSelector::BackColor, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellForeColor(OLE_COLOR* result)
{
    return ReadCurrentCell(*this, lorvcpForeColor, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellForeColor(OLE_COLOR value)
{
    return SetCellPropertySelection(*this, CellSelector::ForeColor, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellAlignment(AlignmentSettings* result)
{
    return ReadCurrentCell(*this, lorvcpAlignment, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellAlignment(AlignmentSettings value)
{
    return WriteCurrentEnum(*this, CellSelector::Alignment, value, lorvAlignGeneralBottom);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellTextStyle(TextStyleSettings* result)
{
    return ReadCurrentCell(*this, lorvcpTextStyle, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellTextStyle(TextStyleSettings value)
{
    return WriteCurrentEnum(*this, CellSelector::TextStyle, value, lorvTextInsetLight);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellPicture(IPictureDisp** result)
{
    return ReadCurrentCell(*this, lorvcpPicture, result);
}

// A picture object without a picture in it takes the cell's away.
HRESULT STDMETHODCALLTYPE GridMembers::put_CellPicture(IPictureDisp* value)
{
    SHORT type = PICTYPE_NONE;
    if (auto picture = QueryFor<IPicture>(value, IID_IPicture); !picture || FAILED(picture->get_Type(&type)))
        type = PICTYPE_NONE;
    return SetCellPropertySelection(*this, CellSelector::Picture, type > PICTYPE_NONE ? value : nullptr);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_CellPicture(IPictureDisp* value)
{
    return put_CellPicture(value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellPictureAlignment(PictureAlignmentSettings* result)
{
    return ReadCurrentCell(*this, lorvcpPictureAlignment, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellPictureAlignment(PictureAlignmentSettings value)
{
    return WriteCurrentEnum(*this, CellSelector::PictureAlignment, value, lorvPicAlignTile);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontName(BSTR* result)
{
    return ReadCurrentCell(*this, lorvcpFontName, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontName(BSTR value)
{
    if (!value || !*value)
        return DropCurrentFont(*this);
    return SetCellPropertySelection(*this, CellSelector::FontName, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontSize(FLOAT* result)
{
    return ReadCurrentCell(*this, lorvcpFontSize, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontSize(FLOAT value)
{
    return value == 0 ? DropCurrentFont(*this)
                      : SetCellPropertySelection(*this, CellSelector::FontSize, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontBold(VARIANT_BOOL* result)
{
    return ReadCurrentCell(*this, lorvcpFontBold, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontBold(VARIANT_BOOL value)
{
    return SetCellPropertySelection(*this, CellSelector::FontBold, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontItalic(VARIANT_BOOL* result)
{
    return ReadCurrentCell(*this, lorvcpFontItalic, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontItalic(VARIANT_BOOL value)
{
    return SetCellPropertySelection(*this, CellSelector::FontItalic, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontWidth(FLOAT* result)
{
    return ReadCurrentCell(*this, lorvcpFontWidth, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontWidth(FLOAT value)
{
    return SetCellPropertySelection(*this, CellSelector::FontWidth, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontUnderline(VARIANT_BOOL* result)
{
    return ReadCurrentCell(*this, lorvcpFontUnderline, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontUnderline(VARIANT_BOOL value)
{
    return SetCellPropertySelection(*this, CellSelector::FontUnderline, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontStrikethru(VARIANT_BOOL* result)
{
    return ReadCurrentCell(*this, lorvcpFontStrikethru, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontStrikethru(VARIANT_BOOL value)
{
    return SetCellPropertySelection(*this, CellSelector::FontStrikethru, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Value(DOUBLE* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? get_ValueMatrix(Row, Col, result) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFloodPercent(SHORT* result)
{
    return ReadCurrentCell(*this, lorvcpFloodPercent, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFloodPercent(SHORT value)
{
    return SetCellPropertySelection(*this, CellSelector::FloodPercent, std::clamp<int>(value, -100, 100));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFloodColor(OLE_COLOR* result)
{
    return ReadCurrentCell(*this, lorvcpFloodColor, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFloodColor(OLE_COLOR value)
{
    return SetCellPropertySelection(*this, CellSelector::FloodColor, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellChecked(CellCheckedSettings* result)
{
    return ReadCurrentCell(*this, lorvcpChecked, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellChecked(CellCheckedSettings value)
{
    return SetCellPropertySelection(*this, CellSelector::CheckState, value);
}

namespace
{
HRESULT ReturnData(const VARIANT* data, VARIANT* result) noexcept
{
    if (!result)
        return E_POINTER;
    VariantInit(result);
    return data ? VariantCopyInd(result, const_cast<VARIANT*>(data)) : S_OK;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_RowData(LONG row, VARIANT* result)
{
    return IsRow(*this, row) ? ReturnData(RowTable[row].RowData, result) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowData(LONG row, VARIANT value)
{
    KeepAlive alive(*this);
    return ForRows(*this, row, [&](int each) { return StoreHeapVariant(RowTable[each].RowData, value); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColData(LONG col, VARIANT* result)
{
    return IsCol(*this, col) ? ReturnData(ColTable[col].ColData, result) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColData(LONG col, VARIANT value)
{
    KeepAlive alive(*this);
    return ForCols(*this, col, [&](int each) { return StoreHeapVariant(ColTable[each].ColData, value); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TextMatrix(LONG row, LONG col, BSTR* result)
{
    if (!IsCell(*this, row, col))
        return LORV_E_INDEX;
    return ReturnText(result, GetCellText(*this, row, col));
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TextMatrix(LONG row, LONG col, BSTR value)
{
    KeepAlive alive(*this);
    HRESULT result = SetCellText(*this, row, col, value);
    if (IsCell(*this, row, col))
        RepaintCell(*this, row, col);
    return result;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ValueMatrix(LONG row, LONG col, DOUBLE* result)
{
    if (!IsCell(*this, row, col))
        return LORV_E_INDEX;
    return Return(result, ValueOfCell(*this, row, col));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TextArray(LONG index, BSTR* result)
{
    return Cols > 0 ? get_TextMatrix(index / Cols, index % Cols, result) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TextArray(LONG index, BSTR value)
{
    return Cols > 0 ? put_TextMatrix(index / Cols, index % Cols, value) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::CellBorder(OLE_COLOR color, LONG left, LONG top, LONG right,
                                                  LONG bottom, LONG vertical, LONG horizontal)
{
    CellRange range = SelectionRange(*this);
    return CellBorderRange(range.Row1, range.Col1, range.Row2, range.Col2, color, left, top, right, bottom,
                           vertical, horizontal);
}

HRESULT STDMETHODCALLTYPE GridMembers::CellBorderRange(LONG row1, LONG col1, LONG row2, LONG col2,
                                                       OLE_COLOR color, LONG left, LONG top, LONG right,
                                                       LONG bottom, LONG vertical, LONG horizontal)
{
    CellBorders borders = {color, left, top, right, bottom, vertical, horizontal};
    return SetCellBorders(*this, row1, col1, row2, col2, borders);
}

namespace
{
// The range arguments of Cell, as they were given. What was left out, or is no number, is the first cell's,
// and for the first cell the given default.
struct CellArguments {
    int Row1, Col1, Row2, Col2;
    bool Within(const Grid& grid) const noexcept
    {
        return IsCell(grid, Row1, Col1) && IsCell(grid, Row2, Col2);
    }
};
CellArguments ReadCellArguments(CellPos first, const VARIANT& row1, const VARIANT& col1, const VARIANT& row2,
                                const VARIANT& col2) noexcept
{
    CellArguments cells = {};
    cells.Row1 = VariantToLong(row1, first.Row);
    cells.Col1 = VariantToLong(col1, first.Col);
    cells.Row2 = VariantToLong(row2, cells.Row1);
    cells.Col2 = VariantToLong(col2, cells.Col1);
    return cells;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_Cell(CellPropertySettings setting, VARIANT row1, VARIANT col1,
                                                VARIANT row2, VARIANT col2, VARIANT* result)
{
    if (!result)
        return E_POINTER;
    VariantInit(result);
    if (static_cast<unsigned>(setting) >= CellSettingCount)
        return LORV_E_VALUE;
    KeepAlive alive(*this);
    CellArguments cells = ReadCellArguments({Row, Col}, row1, col1, row2, col2);
    if (!cells.Within(*this))
        return LORV_E_INDEX;
    HRESULT read = ReadCell(*this, setting, cells.Row1, cells.Col1, cells.Row2, cells.Col2, *result);
    if (FAILED(read))
        VariantClear(result);
    return read;
}

// Without a current cell, a write with no cell named goes to the first one.
HRESULT STDMETHODCALLTYPE GridMembers::put_Cell(CellPropertySettings setting, VARIANT row1, VARIANT col1,
                                                VARIANT row2, VARIANT col2, VARIANT value)
{
    if (static_cast<unsigned>(setting) >= CellSettingCount)
        return LORV_E_VALUE;
    KeepAlive alive(*this);
    CellArguments cells = ReadCellArguments({std::max(Row, 0), std::max(Col, 0)}, row1, col1, row2, col2);
    if (!cells.Within(*this))
        return LORV_E_INDEX;
    return WriteCell(*this, setting, {cells.Row1, cells.Col1, cells.Row2, cells.Col2}, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_Cell(CellPropertySettings setting, VARIANT row1, VARIANT col1,
                                                   VARIANT row2, VARIANT col2, VARIANT value)
{
    return put_Cell(setting, row1, col1, row2, col2, value);
}

// A row that does not exist counts as deleted: hosts walk past the end with it.
HRESULT STDMETHODCALLTYPE GridMembers::get_RowStatus(LONG row, RowStatusSettings* result)
{
    if (!IsRow(*this, row))
        return Return(result, lorvrsDeleted);
    return Return(result, RowTable[row].Status);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowStatus(LONG row, RowStatusSettings value)
{
    return ForRows(*this, row, [&](int each) { RowTable[each].Status = static_cast<uint8_t>(value); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColImageList(LONG col, LONG* result)
{
    if (!IsCol(*this, col))
        return LORV_E_INDEX;
    return Return(result, reinterpret_cast<LONG_PTR>(ColTable[col].ColImageList));
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColImageList(LONG col, LONG_PTR value)
{
    auto list = reinterpret_cast<HIMAGELIST>(value);
    int width = 0, height = 0;
    if (list && !ImageList_GetIconSize(list, &width, &height))
        return LORV_E_VALUE;
    HRESULT result = ForCols(*this, col, [&](int each) { ColTable[each].ColImageList = list; });
    if (SUCCEEDED(result))
        RepaintGrid(*this);
    return result;
}
