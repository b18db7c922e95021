// Members of the grid: numbers of rows and columns.
#include "core/events.h"
#include "core/row_col.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

HRESULT STDMETHODCALLTYPE GridMembers::get_Rows(LONG* result)
{
    return Return(result, Rows);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Rows(LONG value)
{
    KeepAlive alive(*this);
    if (HRESULT guard = GuardRows(*this); FAILED(guard))
        return guard;
    if (!CommitEdit(*this))
        return S_OK;
    if (HRESULT result = ResizeRows(*this, value); FAILED(result))
        return result;
    FinishProperty(*this, 7, StepRepaint);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Cols(LONG* result)
{
    return Return(result, Cols);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Cols(LONG value)
{
    KeepAlive alive(*this);
    if (HRESULT guard = GuardCols(*this); FAILED(guard))
        return guard;
    if (!CommitEdit(*this))
        return S_OK;
    if (HRESULT result = ResizeCols(*this, value); FAILED(result))
        return result;
    FinishProperty(*this, 8, StepRepaint);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FixedRows(LONG* result)
{
    return Return(result, FixedRows);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FixedRows(LONG value)
{
    return SetFixedRows(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FixedCols(LONG* result)
{
    return Return(result, FixedCols);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FixedCols(LONG value)
{
    return SetFixedCols(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FrozenRows(LONG* result)
{
    return Return(result, FrozenRows);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FrozenRows(LONG value)
{
    return SetFrozenRows(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FrozenCols(LONG* result)
{
    return Return(result, FrozenCols);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FrozenCols(LONG value)
{
    return SetFrozenCols(*this, value);
}
