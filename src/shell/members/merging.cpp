// Members of the grid: merging.
#include "core/merge.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
constexpr DISPID DispidMergeCells = 62;
constexpr DISPID DispidMergeCompare = 106;
constexpr DISPID DispidMergeCellsFixed = 218;
constexpr DISPID DispidGroupCompare = 219;

// From 100 on a value holds two digits, one for each of two modes, so that a property stream keeps both.
constexpr int CompoundBase = 100;

bool IsCompound(int value) noexcept
{
    return value >= CompoundBase;
}
int UpperDigit(int value) noexcept
{
    return (value - CompoundBase) / 10 % 10;
}
int LowerDigit(int value) noexcept
{
    return (value - CompoundBase) % 10;
}
int Compound(int upper, int lower) noexcept
{
    return CompoundBase + 10 * upper + lower;
}

HRESULT FinishMergeChange(Grid& grid, DISPID dispid)
{
    MarkMergeStale(grid);
    RepaintGrid(grid);
    MarkDirtyAndNotify(grid, dispid);
    return S_OK;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCells(MergeSettings* result)
{
    bool both = Saving && MergeCells != MergeCellsFixed;
    return Return(result, both ? Compound(MergeCellsFixed, MergeCells) : MergeCells);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCells(MergeSettings value)
{
    if (IsCompound(value)) {
        MergeCellsFixed = static_cast<int16_t>(UpperDigit(value));
        MergeCells = static_cast<int16_t>(LowerDigit(value));
    } else if (static_cast<unsigned>(value) <= lorvMergeOutline) {
        MergeCells = MergeCellsFixed = static_cast<int16_t>(value);
    } else {
        return LORV_E_VALUE;
    }
    return FinishMergeChange(*this, DispidMergeCells);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCellsFixed(MergeSettings* result)
{
    return Return(result, MergeCellsFixed);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCellsFixed(MergeSettings value)
{
    if (static_cast<unsigned>(value) > lorvMergeOutline)
        return LORV_E_VALUE;
    MergeCellsFixed = static_cast<int16_t>(value);
    return FinishMergeChange(*this, DispidMergeCellsFixed);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCompare(MergeCompareSettings* result)
{
    bool both = Saving && GroupCompare != 0;
    return Return(result, both ? Compound(GroupCompare, MergeCompare) : MergeCompare);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCompare(MergeCompareSettings value)
{
    if (IsCompound(value)) {
        GroupCompare = static_cast<int16_t>(UpperDigit(value));
        MergeCompare = static_cast<int16_t>(LowerDigit(value));
    } else if (static_cast<unsigned>(value) <= lorvMCIncludeNulls) {
        MergeCompare = static_cast<int16_t>(value);
    } else {
        return LORV_E_VALUE;
    }
    return FinishMergeChange(*this, DispidMergeCompare);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GroupCompare(MergeCompareSettings* result)
{
    return Return(result, GroupCompare);
}

// Grouping is no merging: the links stay as they are.
HRESULT STDMETHODCALLTYPE GridMembers::put_GroupCompare(MergeCompareSettings value)
{
    if (static_cast<unsigned>(value) > lorvMCIncludeNulls)
        return LORV_E_VALUE;
    GroupCompare = static_cast<int16_t>(value);
    RepaintGrid(*this);
    MarkDirtyAndNotify(*this, DispidGroupCompare);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeRow(LONG row, VARIANT_BOOL* result)
{
    if (!IsRow(*this, row))
        return result ? LORV_E_INDEX : E_POINTER;
    return ReturnFlag(result, RowTable[row].MergeRow != 0);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeRow(LONG row, VARIANT_BOOL value)
{
    HRESULT code =
        ForRows(*this, row, [&](int each) { RowTable[each].MergeRow = static_cast<uint8_t>(value); });
    if (FAILED(code))
        return code;
    MarkMergeStale(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCol(LONG col, VARIANT_BOOL* result)
{
    if (!IsCol(*this, col))
        return result ? LORV_E_INDEX : E_POINTER;
    return ReturnFlag(result, ColTable[col].MergeCol != 0);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCol(LONG col, VARIANT_BOOL value)
{
    HRESULT code =
        ForCols(*this, col, [&](int each) { ColTable[each].MergeCol = static_cast<uint8_t>(value); });
    if (FAILED(code))
        return code;
    MarkMergeStale(*this);
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::GetMergedRange(LONG row, LONG col, LONG* r1, LONG* c1, LONG* r2,
                                                      LONG* c2)
{
    if (!r1 || !c1 || !r2 || !c2)
        return E_POINTER;
    if (!IsCell(*this, row, col))
        return LORV_E_INDEX;
    if (HasOption(*this, OptionMergeStale))
        RebuildMergeLinks(*this);
    CellRange range = MergedRangeOf(*this, row, col);
    *r1 = range.Row1, *c1 = range.Col1;
    *r2 = range.Row2, *c2 = range.Col2;
    return S_OK;
}
