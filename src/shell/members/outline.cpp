// Members of the grid: totals, outline and nodes.
#include "shell/members/members.h"

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

HRESULT STDMETHODCALLTYPE GridMembers::get_IsSubtotal(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_IsSubtotal(LONG, VARIANT_BOOL)
{
    return NotBuilt();
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

HRESULT STDMETHODCALLTYPE GridMembers::get_RowOutlineLevel(LONG, SHORT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowOutlineLevel(LONG, SHORT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::GetNodeRow(LONG, NodeTypeSettings, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::GetNode(VARIANT, ILorvNode**)
{
    return NotBuilt();
}
