// Members of the grid: cells, their properties and data.
#include "core/cell_store.h"
#include "core/events.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Text(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Text(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellBackColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellBackColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellForeColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellForeColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellAlignment(AlignmentSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellAlignment(AlignmentSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellTextStyle(TextStyleSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellTextStyle(TextStyleSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellPicture(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_CellPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellPictureAlignment(PictureAlignmentSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellPictureAlignment(PictureAlignmentSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontName(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontName(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontSize(FLOAT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontSize(FLOAT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontBold(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontBold(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontItalic(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontItalic(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontWidth(FLOAT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontWidth(FLOAT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontUnderline(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontUnderline(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFontStrikethru(VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFontStrikethru(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Value(DOUBLE*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFloodPercent(SHORT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFloodPercent(SHORT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellFloodColor(OLE_COLOR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellFloodColor(OLE_COLOR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellChecked(CellCheckedSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellChecked(CellCheckedSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowData(LONG, VARIANT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowData(LONG, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColData(LONG, VARIANT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColData(LONG, VARIANT)
{
    return NotBuilt();
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
    if (SUCCEEDED(result))
        RepaintCell(*this, row, col);
    return result;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ValueMatrix(LONG, LONG, DOUBLE*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TextArray(LONG, BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TextArray(LONG, BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::CellBorder(OLE_COLOR, LONG, LONG, LONG, LONG, LONG, LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Cell(CellPropertySettings, VARIANT, VARIANT, VARIANT, VARIANT,
                                                VARIANT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Cell(CellPropertySettings, VARIANT, VARIANT, VARIANT, VARIANT,
                                                VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_Cell(CellPropertySettings, VARIANT, VARIANT, VARIANT, VARIANT,
                                                   VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowStatus(LONG, RowStatusSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowStatus(LONG, RowStatusSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColImageList(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColImageList(LONG, LONG_PTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::CellBorderRange(LONG, LONG, LONG, LONG, OLE_COLOR, LONG, LONG, LONG,
                                                       LONG, LONG, LONG)
{
    return NotBuilt();
}
