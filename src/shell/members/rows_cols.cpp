// Members of the grid: rows and columns.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColAlignment(LONG, AlignmentSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColAlignment(LONG, AlignmentSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowPosition(LONG, LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColPosition(LONG, LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::AddItem(BSTR, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::RemoveItem(VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Clear(VARIANT, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FixedAlignment(LONG, AlignmentSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FixedAlignment(LONG, AlignmentSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColDataType(LONG, DataTypeSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColDataType(LONG, DataTypeSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RowHidden(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RowHidden(LONG, VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColHidden(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColHidden(LONG, VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColKey(LONG, BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColKey(LONG, BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColIndex(BSTR, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::DragRow(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColIndent(LONG, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColIndent(LONG, LONG)
{
    return NotBuilt();
}
