// Members of the grid: printing and pictures of the grid.
#include "core/property_frame.h"
#include "shell/members/members.h"
#include "view/grid_picture.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Picture(IPictureDisp** result)
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    return IsDesignMode(*this) ? LORV_E_DESIGNMODE : MakeGridPicture(*this, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::PrintGrid(VARIANT, VARIANT, VARIANT, VARIANT, VARIANT)
{
    return NotBuilt();
}
