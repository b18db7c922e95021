// Members of the grid: totals, outline and nodes.
#include "core/events.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SubtotalPosition(SubtotalPositionSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SubtotalPosition(SubtotalPositionSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_IsSubtotal(LONG row, VARIANT_BOOL* result)
{
    return IsRow(*this, row) ? ReturnFlag(result, RowTable[row].Flags & RowFlagSubtotal) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_IsSubtotal(LONG row, VARIANT_BOOL value)
{
    KeepAlive alive(*this);
    HRESULT result = ForRows(*this, row, [&](int each) {
        uint8_t& flags = RowTable[each].Flags;
        flags = static_cast<uint8_t>(value & 1 ? flags | RowFlagSubtotal : flags & ~RowFlagSubtotal);
    });
    if (FAILED(result))
        return result;
    MarkMergeStale(*this);
    RebuildOutlineLevels(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::Subtotal(SubtotalSettings, VARIANT, VARIANT, VARIANT, VARIANT, VARIANT,
                                                VARIANT, VARIANT, VARIANT, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Aggregate(SubtotalSettings, LONG, LONG, LONG, LONG, DOUBLE*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_OutlineBar(OutlineBarSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_OutlineBar(OutlineBarSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_OutlineCol(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_OutlineCol(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Outline(SHORT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_IsCollapsed(LONG, CollapsedSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_IsCollapsed(LONG, CollapsedSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowOutlineLevel(LONG row, SHORT* result)
{
    return IsRow(*this, row) ? Return(result, RowTable[row].OutlineLevel) : LORV_E_INDEX;
}

// The level of a data row is kept too, but shows only once the row is a total.
HRESULT STDMETHODCALLTYPE GridMembers::put_RowOutlineLevel(LONG row, SHORT value)
{
    KeepAlive alive(*this);
    bool total = false;
    HRESULT result = ForRows(*this, row, [&](int each) {
        RowTable[each].OutlineLevel = static_cast<int8_t>(value);
        total = total || (RowTable[each].Flags & RowFlagSubtotal);
    });
    if (FAILED(result) || !total)
        return result;
    RebuildOutlineLevels(*this);
    MarkMergeStale(*this);
    RecalculateLayout(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::GetNodeRow(LONG, NodeTypeSettings, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::GetNode(VARIANT, ILorvNode**)
{
    return NotBuilt();
}
