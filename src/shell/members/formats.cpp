// Members of the grid: formats, clip strings and FormatString.
#include "shell/members/members.h"

#include "core/errors.h"
#include "core/upcalls.h"
#include "core/value_format.h"
#include "platform/bstr.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColFormat(LONG col, BSTR* result)
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    return IsCol(*this, col) ? ReturnText(result, ColTable[col].ColFormat) : LORV_E_INDEX;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColFormat(LONG col, BSTR value)
{
    const HRESULT result = SetColFormat(*this, col, value);
    if (SUCCEEDED(result))
        RepaintGrid(*this);
    return result;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FormatString(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FormatString(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Clip(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Clip(BSTR)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ClipSeparators(BSTR*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ClipSeparators(BSTR)
{
    return NotBuilt();
}
