// Members of the grid: the editor and its masks.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditText(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditText(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditSelStart(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditSelStart(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditSelLength(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditSelLength(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditSelText(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditSelText(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditMaxLength(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditMaxLength(LONG)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::EditCell()
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditWindow(LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::FinishEditing(VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditMask(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditMask(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColEditMask(LONG, BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColEditMask(LONG, BSTR)
{
    return NotBuilt();
}
