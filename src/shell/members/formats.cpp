// Members of the grid: column formats, Clip strings and FormatString.
#include "core/clip_text.h"
#include "core/format_string.h"
#include "core/value_format.h"
#include "platform/memory.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

HRESULT STDMETHODCALLTYPE GridMembers::get_ColFormat(LONG col, BSTR* result)
{
    if (!IsCol(*this, col))
        return result ? LORV_E_INDEX : E_POINTER;
    return ReturnText(result, ColTable[col].ColFormat);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColFormat(LONG col, BSTR value)
{
    HRESULT code = SetColFormat(*this, col, value);
    if (SUCCEEDED(code))
        RepaintGrid(*this);
    return code;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FormatString(BSTR* result)
{
    return ReturnText(result, FormatString);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FormatString(BSTR value)
{
    return SetFormatString(*this, value);
}

// An empty selection's text, and a text that there is no memory for, is a null string.
HRESULT STDMETHODCALLTYPE GridMembers::get_Clip(BSTR* result)
{
    if (HRESULT guard = GuardRunTime(*this, result); FAILED(guard))
        return guard;
    wchar_t* clip = ClipOfSelection(*this, false);
    *result = clip && *clip ? SysAllocString(clip) : nullptr;
    FreeBlock(clip);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Clip(BSTR value)
{
    return SetClip(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ClipSeparators(BSTR* result)
{
    if (HRESULT guard = GuardRunTime(*this, result); FAILED(guard))
        return guard;
    return ReturnText(result, ClipSeparators);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ClipSeparators(BSTR value)
{
    return SetClipSeparators(*this, value);
}
