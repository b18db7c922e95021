// Members of the grid: pictures.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_CellButtonPicture(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellButtonPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_CellButtonPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_WallPaper(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_WallPaper(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_WallPaper(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SortAscendingPicture(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SortAscendingPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_SortAscendingPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SortDescendingPicture(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SortDescendingPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_SortDescendingPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_NodeOpenPicture(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_NodeOpenPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_NodeOpenPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_NodeClosedPicture(IPictureDisp**)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::put_NodeClosedPicture(IPictureDisp*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_NodeClosedPicture(IPictureDisp*)
{
    return NotBuilt();
}
