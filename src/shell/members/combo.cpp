// Members of the grid: drop-down lists.
#include "core/cell_store.h"
#include "core/events.h"
#include "edit/combo_editor.h"
#include "edit/combo_list.h"
#include "edit/list_text.h"
#include "edit/recordset_list.h"
#include "platform/variant.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
const wchar_t* TextOf(const wchar_t* text) noexcept
{
    return text ? text : L"";
}

// The item that an argument names: the current one when it is no number.
HRESULT FindItem(const Grid& grid, const VARIANT& index, int& item)
{
    OwnedVariant converted;
    const VARIANT& end = FollowVariant(index);
    bool isNumber = !IsNullReference(end) &&
                    SUCCEEDED(VariantChangeType(&converted.Get(), const_cast<VARIANT*>(&end), 0, VT_I4));
    item = isNumber ? converted.Get().lVal : ComboIndexOf(grid);
    return item >= 0 && item < ComboCountOf(grid) ? S_OK : LORV_E_INDEX;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_ComboList(BSTR* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? ReturnText(result, ComboList) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ComboList(BSTR value)
{
    if (!IsComboList(TextOf(value)))
        return LORV_E_VALUE;
    KeepAlive alive(*this);
    if (HRESULT result = ReplaceText(ComboList, value); FAILED(result))
        return result;
    DropStaleComboWindow(*this);
    if (ShowComboButton != lorvSBEditing)
        RepaintCell(*this, Row, Col);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ComboIndex(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? Return(result, ComboIndexOf(*this)) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ComboIndex(LONG value)
{
    if (!ComboWindow)
        return S_OK;
    if (value < 0 || value >= ComboCountOf(*this))
        return LORV_E_INDEX;
    SelectComboItem(*this, static_cast<int>(value));
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ComboCount(LONG* result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? Return(result, ComboCountOf(*this)) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ComboItem(VARIANT index, BSTR* result)
{
    if (HRESULT guard = GuardRunTime(*this, result); FAILED(guard))
        return guard;
    if (!ComboWindow)
        return ReturnText(result, nullptr);
    int item = -1;
    HRESULT found = FindItem(*this, index, item);
    return SUCCEEDED(found) ? ReturnText(result, ComboItemText(ComboWindow, item).Text()) : found;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ComboData(VARIANT index, BSTR* result)
{
    if (HRESULT guard = GuardRunTime(*this, result); FAILED(guard))
        return guard;
    if (!ComboWindow)
        return ReturnText(result, nullptr);
    int item = -1;
    HRESULT found = FindItem(*this, index, item);
    if (SUCCEEDED(found) || item == -1)
        return ReturnText(result, ComboKeyOf(EditorList, item));
    return found;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColComboList(LONG col, BSTR* result)
{
    HRESULT check = CheckCol(*this, col);
    return SUCCEEDED(check) ? ReturnText(result, ColTable[col].ColComboList) : check;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColComboList(LONG col, BSTR value)
{
    bool changed = false;
    HRESULT result =
        ForCols(*this, col, [&](int index) { return SetColumnList(ColTable[index], value, changed); });
    if (changed)
        RepaintCell(*this, Row, Col);
    return result;
}

HRESULT STDMETHODCALLTYPE GridMembers::BuildComboList(IDispatch* rs, BSTR fieldList, VARIANT keyField,
                                                      VARIANT backColor, BSTR* result)
{
    if (!result)
        return E_POINTER;
    KeepAlive alive(*this);
    Bstr list;
    bool built = BuildRecordsetList(rs, TextOf(fieldList), keyField, backColor, list);
    *result = list.Detach();
    return built ? S_OK : LORV_E_VALUE;
}
