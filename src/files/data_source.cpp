#include "core/upcalls.h"

const wchar_t* ReadCustomSource(Grid&, int, int)
{
    return nullptr;
}
const wchar_t* ReadBoundArray(Grid&, int, int)
{
    return nullptr;
}
HRESULT WriteCustomSource(Grid&, int, int, const wchar_t*)
{
    return E_NOTIMPL;
}
HRESULT WriteBoundArray(Grid&, int, int, const wchar_t*)
{
    return E_NOTIMPL;
}
HRESULT ReassignDataSource(Grid&)
{
    return E_NOTIMPL;
}
