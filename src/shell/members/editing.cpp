// Members of the grid: the editor and its masks.
#include "core/cell_store.h"
#include "core/events.h"
#include "edit/edit_text.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

#include <algorithm>
#include <climits>

namespace
{
const wchar_t* TextOf(BSTR text) noexcept
{
    return text ? text : L"";
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_EditText(BSTR* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? ReturnText(result, ReadEditText(*this).Get()) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditText(BSTR value)
{
    WriteEditText(*this, TextOf(value));
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditSelStart(LONG* result)
{
    return ReturnAtRunTime(*this, result, ReadEditSelection(*this).Start);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditSelStart(LONG value)
{
    WriteEditSelection(*this, {static_cast<int>(value), static_cast<int>(value)});
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditSelLength(LONG* result)
{
    EditSelection selection = ReadEditSelection(*this);
    return ReturnAtRunTime(*this, result, selection.End - selection.Start);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditSelLength(LONG value)
{
    if (value < 0)
        return LORV_E_VALUE;
    int start = ReadEditSelection(*this).Start;
    WriteEditSelection(
        *this, {start, static_cast<int>(std::min<LONGLONG>(start + static_cast<LONGLONG>(value), INT_MAX))});
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditSelText(BSTR* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? ReturnText(result, ReadSelectedEditText(*this).Get()) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditSelText(BSTR value)
{
    ReplaceSelectedEditText(*this, TextOf(value));
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditMaxLength(LONG* result)
{
    return ReturnAtRunTime(*this, result, EditMaxLength);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditMaxLength(LONG value)
{
    if (value < 0)
        return LORV_E_VALUE;
    EditMaxLength = static_cast<int32_t>(value);
    FinishProperty(*this, 116, StepNone);
    return S_OK;
}

// Whatever the edit does, the call succeeds; it is not for the user alone, so that `Editable` has no say.
HRESULT STDMETHODCALLTYPE GridMembers::EditCell()
{
    ::EditCell(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditWindow(LONG* result)
{
    return Return(result, reinterpret_cast<INT_PTR>(OpenEditorWindow(*this)));
}

HRESULT STDMETHODCALLTYPE GridMembers::FinishEditing(VARIANT_BOOL cancel)
{
    CommitEdit(*this, cancel != VARIANT_FALSE);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_EditMask(BSTR* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? ReturnText(result, EditMask) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_EditMask(BSTR value)
{
    if (HRESULT result = ReplaceText(EditMask, value); FAILED(result))
        return result;
    ApplyNewMask(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColEditMask(LONG col, BSTR* result)
{
    HRESULT check = CheckCol(*this, col);
    return SUCCEEDED(check) ? ReturnText(result, ColTable[col].ColEditMask) : check;
}

// An edit under way keeps the mask that it was opened with.
HRESULT STDMETHODCALLTYPE GridMembers::put_ColEditMask(LONG col, BSTR value)
{
    return ForCols(*this, col, [&](int index) { return ReplaceText(ColTable[index].ColEditMask, value); });
}
