// Members of the grid: rows and columns.
#include "core/cell_store.h"
#include "core/events.h"
#include "core/row_ops.h"
#include "platform/dpi.h"
#include "platform/variant.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
bool IsAlignment(int value) noexcept
{
    return value >= lorvAlignLeftTop && value <= lorvAlignGeneralBottom;
}

// The index is looked at before the value.
HRESULT SetAlignment(Grid& grid, LONG col, int8_t ColRecord::*field, int value)
{
    if (col >= grid.Cols)
        return LORV_E_INDEX;
    if (!IsAlignment(value))
        return LORV_E_VALUE;
    ForCols(grid, col, [&](int each) { grid.ColTable[each].*field = static_cast<int8_t>(value); });
    RepaintGrid(grid);
    return S_OK;
}

void SetFlag(uint8_t& flags, uint8_t flag, bool on) noexcept
{
    flags = static_cast<uint8_t>(on ? flags | flag : flags & ~flag);
}

bool MergesByVisibleCols(const Grid& grid) noexcept
{
    return SpillsText(grid) || grid.MergeCells == lorvMergeOutline ||
           grid.MergeCellsFixed == lorvMergeOutline;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_ColAlignment(LONG col, AlignmentSettings* result)
{
    return IsCol(*this, col) ? Return(result, ColTable[col].Alignment) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColAlignment(LONG col, AlignmentSettings value)
{
    return SetAlignment(*this, col, &ColRecord::Alignment, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowPosition(LONG row, LONG position)
{
    return MoveRow(*this, row, position);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColPosition(LONG col, LONG position)
{
    return MoveCol(*this, col, position);
}

HRESULT STDMETHODCALLTYPE GridMembers::AddItem(BSTR item, VARIANT row)
{
    KeepAlive alive(*this);
    long at = VariantToLong(row, Rows);
    return ::AddItem(*this, item, at);
}

HRESULT STDMETHODCALLTYPE GridMembers::RemoveItem(VARIANT row)
{
    KeepAlive alive(*this);
    return ::RemoveItem(*this, VariantToLong(row, Row));
}

HRESULT STDMETHODCALLTYPE GridMembers::Clear(VARIANT where, VARIANT what)
{
    KeepAlive alive(*this);
    long range = VariantToLong(where, lorvClearEverywhere);
    return ClearCells(*this, range, VariantToLong(what, lorvClearEverything));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FixedAlignment(LONG col, AlignmentSettings* result)
{
    if (!IsCol(*this, col))
        return LORV_E_INDEX;
    const ColRecord& record = ColTable[col];
    return Return(result, record.FixedAlignment == Unset ? record.Alignment : record.FixedAlignment);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FixedAlignment(LONG col, AlignmentSettings value)
{
    return SetAlignment(*this, col, &ColRecord::FixedAlignment, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColDataType(LONG col, DataTypeSettings* result)
{
    return IsCol(*this, col) ? Return(result, ColTable[col].ColDataType) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColDataType(LONG col, DataTypeSettings value)
{
    if (HRESULT guard = GuardRows(*this); FAILED(guard))
        return guard;
    HRESULT result =
        ForCols(*this, col, [&](int each) { ColTable[each].ColDataType = static_cast<int16_t>(value); });
    if (FAILED(result))
        return result;
    MarkMergeStale(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHidden(LONG row, VARIANT_BOOL* result)
{
    return IsRow(*this, row) ? ReturnFlag(result, RowTable[row].Flags & RowFlagHidden) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHidden(LONG row, VARIANT_BOOL value)
{
    KeepAlive alive(*this);
    HRESULT result =
        ForRows(*this, row, [&](int each) { SetFlag(RowTable[each].Flags, RowFlagHidden, value & 1); });
    if (FAILED(result))
        return result;
    RecalculateLayout(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColHidden(LONG col, VARIANT_BOOL* result)
{
    return IsCol(*this, col) ? ReturnFlag(result, ColTable[col].ColFlags & ColFlagHidden) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColHidden(LONG col, VARIANT_BOOL value)
{
    KeepAlive alive(*this);
    HRESULT result =
        ForCols(*this, col, [&](int each) { SetFlag(ColTable[each].ColFlags, ColFlagHidden, value & 1); });
    if (FAILED(result))
        return result;
    if (MergesByVisibleCols(*this))
        MarkMergeStale(*this);
    RecalculateLayout(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColKey(LONG col, BSTR* result)
{
    return IsCol(*this, col) ? ReturnText(result, ColTable[col].ColKey) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColKey(LONG col, BSTR value)
{
    return ForCols(*this, col, [&](int each) { return ReplaceText(ColTable[each].ColKey, value); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColIndex(BSTR key, LONG* result)
{
    return Return(result, FindColKey(*this, key));
}

// The gesture runs a message loop of its own; the row stays where it is when an edit cannot be ended.
HRESULT STDMETHODCALLTYPE GridMembers::DragRow(LONG row, LONG* result)
{
    if (!result)
        return E_POINTER;
    if (HRESULT guard = GuardRows(*this); FAILED(guard))
        return guard;
    if (!IsRow(*this, row))
        return LORV_E_INDEX;
    KeepAlive alive(*this);
    *result = row;
    if (CommitEdit(*this) && IsRow(*this, row))
        *result = DragRowWithMouse(*this, row);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColIndent(LONG col, LONG* result)
{
    return IsCol(*this, col) ? Return(result, PixelsToTwipsX(ColTable[col].Indent)) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColIndent(LONG col, LONG value)
{
    if (value < 0)
        return LORV_E_VALUE;
    KeepAlive alive(*this);
    HRESULT result = ForCols(*this, col, [&](int each) { ColTable[each].Indent = TwipsToPixelsX(value); });
    if (FAILED(result))
        return result;
    RecalculateLayout(*this);
    if (SpillsText(*this))
        MarkMergeStale(*this);
    RepaintGrid(*this);
    return S_OK;
}
