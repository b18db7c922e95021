#include "core/sort.h"

HRESULT SortRange(Grid&, int, int, int, int, int)
{
    return E_NOTIMPL;
}
