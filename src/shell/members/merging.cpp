// Members of the grid: merging.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCells(MergeSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCells(MergeSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCompare(MergeCompareSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCompare(MergeCompareSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeRow(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeRow(LONG, VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCol(LONG, VARIANT_BOOL*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCol(LONG, VARIANT_BOOL)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::GetMergedRange(LONG, LONG, LONG*, LONG*, LONG*, LONG*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MergeCellsFixed(MergeSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MergeCellsFixed(MergeSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GroupCompare(MergeCompareSettings*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GroupCompare(MergeCompareSettings)
{
    return NotBuilt();
}
