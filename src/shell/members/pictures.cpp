// Members of the grid: pictures.
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
constexpr PictureProperty cellButtonPicture = {177, &Grid::CellButtonPicture};
constexpr PictureProperty wallPaper = {201, &Grid::WallPaper};
// The sort pictures are announced as WallPaper: sinks rely on that number.
constexpr PictureProperty sortAscendingPicture = {201, &Grid::SortAscendingPicture};
constexpr PictureProperty sortDescendingPicture = {201, &Grid::SortDescendingPicture};
constexpr PictureProperty nodeOpenPicture = {196, &Grid::NodeOpenPicture};
constexpr PictureProperty nodeClosedPicture = {197, &Grid::NodeClosedPicture};
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_CellButtonPicture(IPictureDisp** result)
{
    return ReturnReference(result, CellButtonPicture);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_CellButtonPicture(IPictureDisp* value)
{
    return SetPicture(*this, cellButtonPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_CellButtonPicture(IPictureDisp* value)
{
    return SetPicture(*this, cellButtonPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_WallPaper(IPictureDisp** result)
{
    return ReturnReference(result, WallPaper);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_WallPaper(IPictureDisp* value)
{
    return SetPicture(*this, wallPaper, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_WallPaper(IPictureDisp* value)
{
    return SetPicture(*this, wallPaper, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SortAscendingPicture(IPictureDisp** result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? ReturnReference(result, SortAscendingPicture) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SortAscendingPicture(IPictureDisp* value)
{
    return SetPicture(*this, sortAscendingPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_SortAscendingPicture(IPictureDisp* value)
{
    return SetPicture(*this, sortAscendingPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_SortDescendingPicture(IPictureDisp** result)
{
    HRESULT guard = GuardRunTime(*this, result);
    return SUCCEEDED(guard) ? ReturnReference(result, SortDescendingPicture) : guard;
}

HRESULT STDMETHODCALLTYPE GridMembers::put_SortDescendingPicture(IPictureDisp* value)
{
    return SetPicture(*this, sortDescendingPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_SortDescendingPicture(IPictureDisp* value)
{
    return SetPicture(*this, sortDescendingPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_NodeOpenPicture(IPictureDisp** result)
{
    return ReturnReference(result, NodeOpenPicture);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_NodeOpenPicture(IPictureDisp* value)
{
    return SetPicture(*this, nodeOpenPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_NodeOpenPicture(IPictureDisp* value)
{
    return SetPicture(*this, nodeOpenPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_NodeClosedPicture(IPictureDisp** result)
{
    return ReturnReference(result, NodeClosedPicture);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_NodeClosedPicture(IPictureDisp* value)
{
    return SetPicture(*this, nodeClosedPicture, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_NodeClosedPicture(IPictureDisp* value)
{
    return SetPicture(*this, nodeClosedPicture, value);
}
