// Members of the grid: sorting and searching.
#include "core/search.h"
#include "core/sort.h"
#include "platform/variant.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

HRESULT STDMETHODCALLTYPE GridMembers::put_Sort(SortSettings value)
{
    return SortSelection(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ColSort(LONG col, SortSettings* result)
{
    if (!IsCol(*this, col))
        return result ? LORV_E_INDEX : E_POINTER;
    return Return(result, ColTable[col].ColSort);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ColSort(LONG col, SortSettings value)
{
    if (col >= Cols)
        return LORV_E_INDEX;
    if (static_cast<unsigned>(value) > lorvSortUseColSort)
        return LORV_E_VALUE;
    return ForCols(*this, col, [&](int each) { ColTable[each].ColSort = static_cast<int16_t>(value); });
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FindRow(VARIANT item, VARIANT row, VARIANT col,
                                                   VARIANT caseSensitive, VARIANT fullMatch, LONG* result)
{
    if (!result)
        return E_POINTER;
    FindOptions options;
    options.Row = VariantToLong(row, 0);
    options.Col = VariantToLong(col, -1);
    options.CaseSensitive = VariantToLong(caseSensitive, 1) != 0;
    options.FullMatch = VariantToLong(fullMatch, 1) != 0;
    int found = -1;
    HRESULT code = ::FindRow(*this, item, options, found);
    *result = found;
    return code;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FindRowRegex(BSTR pattern, LONG row, LONG col, LONG* result)
{
    if (!result)
        return E_POINTER;
    int found = -1;
    HRESULT code = ::FindRowRegex(*this, pattern, row, col, found);
    *result = found;
    return code;
}
