#include "shell/data_object.h"

#include "platform/dpi.h"
#include "shell/view_object.h"

namespace
{
// The picture at the size of the control, scalable.
HMETAFILE DrawMetafile(Grid& grid)
{
    HDC context = CreateMetaFileW(nullptr);
    if (!context)
        return nullptr;
    RECTL bounds = {0, 0, HimetricToPixelsX(grid.Extent.cx), HimetricToPixelsY(grid.Extent.cy)};
    SaveDC(context);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetWindowExtEx(context, bounds.right, bounds.bottom, nullptr);
    DrawGridInto(grid, context, context, bounds);
    RestoreDC(context, -1);
    return CloseMetaFile(context);
}

HGLOBAL MakeMetafilePicture(const Grid& grid, HMETAFILE metafile) noexcept
{
    HGLOBAL block = GlobalAlloc(GMEM_SHARE | GMEM_MOVEABLE, sizeof(METAFILEPICT));
    if (!block)
        return nullptr;
    auto* picture = static_cast<METAFILEPICT*>(GlobalLock(block));
    *picture = {MM_ANISOTROPIC, grid.Extent.cx, grid.Extent.cy, metafile};
    GlobalUnlock(block);
    return block;
}
} // namespace

HRESULT DataObject::GetData(FORMATETC* format, STGMEDIUM* medium)
{
    if (!format || !medium)
        return E_POINTER;
    *medium = {};
    if (!(format->tymed & TYMED_MFPICT) || format->dwAspect != DVASPECT_CONTENT)
        return DATA_E_FORMATETC;
    HMETAFILE metafile = DrawMetafile(grid_);
    if (!metafile)
        return E_UNEXPECTED;
    medium->hMetaFilePict = MakeMetafilePicture(grid_, metafile);
    if (!medium->hMetaFilePict) {
        DeleteMetaFile(metafile);
        return E_OUTOFMEMORY;
    }
    medium->tymed = TYMED_MFPICT;
    return S_OK;
}

HRESULT DataObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie)
{
    if (!format || !cookie)
        return E_POINTER;
    if (!advise_)
        if (HRESULT result = CreateDataAdviseHolder(advise_.Put()); FAILED(result))
            return result;
    return advise_->Advise(this, format, flags, sink, cookie);
}

HRESULT DataObject::DUnadvise(DWORD cookie)
{
    return advise_ ? advise_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT DataObject::EnumDAdvise(IEnumSTATDATA** enumerator)
{
    if (!enumerator)
        return E_POINTER;
    *enumerator = nullptr;
    return advise_ ? advise_->EnumAdvise(enumerator) : E_FAIL;
}

void DataObject::SendDataChange()
{
    if (ComPtr<IDataAdviseHolder> holder(advise_); holder)
        holder->SendOnDataChange(this, 0, 0);
}
