#include "shell/view_object.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "view/paint.h"

namespace
{
bool IsMetafile(HDC context) noexcept
{
    return GetDeviceCaps(context, TECHNOLOGY) == DT_METAFILE;
}

bool ShowsContent(DWORD aspect) noexcept
{
    return aspect == DVASPECT_CONTENT || aspect == DVASPECT_OPAQUE;
}

// The container's mapping is undone for the length of the drawing: the grid counts pixels.
void DrawInPixels(Grid& grid, HDC context, HDC target, RECT bounds)
{
    LPtoDP(context, reinterpret_cast<POINT*>(&bounds), 2);
    int saved = SaveDC(context);
    SetMapMode(context, MM_TEXT);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetViewportOrgEx(context, 0, 0, nullptr);
    OnDraw(grid, {context, target, bounds});
    RestoreDC(context, saved);
}
} // namespace

void DrawGridInto(Grid& grid, HDC context, HDC target, const RECTL& bounds)
{
    KeepAlive alive(grid);
    RECT area = {bounds.left, bounds.top, bounds.right, bounds.bottom};
    if (!target)
        target = context;
    bool nested = grid.DrawingForView;
    grid.DrawingForView = true;
    if (IsMetafile(context))
        OnDraw(grid, {context, target, area});
    else
        DrawInPixels(grid, context, target, area);
    grid.DrawingForView = nested;
}

HRESULT ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC target, HDC context, LPCRECTL bounds,
                         LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR)
{
    if (!ShowsContent(aspect))
        return DV_E_DVASPECT;
    if (!context || !bounds)
        return E_INVALIDARG;
    DrawGridInto(grid_, context, target, *bounds);
    return S_OK;
}

HRESULT ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink)
{
    sink_ = ComPtr<IAdviseSink>(sink);
    aspects_ = aspects;
    flags_ = flags;
    return S_OK;
}

HRESULT ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink)
{
    if (aspects)
        *aspects = aspects_;
    if (flags)
        *flags = flags_;
    if (sink)
        *sink = ComPtr<IAdviseSink>(sink_).Detach();
    return S_OK;
}

HRESULT ViewObject::GetExtent(DWORD, LONG, DVTARGETDEVICE*, LPSIZEL extent)
{
    if (!extent)
        return E_POINTER;
    *extent = grid_.Extent;
    return S_OK;
}

// The grid paints every pixel of its rectangle.
HRESULT ViewObject::GetViewStatus(DWORD* status)
{
    if (!status)
        return E_POINTER;
    *status = VIEWSTATUS_OPAQUE | VIEWSTATUS_SOLIDBKGND;
    return S_OK;
}

HRESULT ViewObject::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* result)
{
    if (!bounds || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    *result = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

HRESULT ViewObject::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG, DWORD* result)
{
    if (!bounds || !area || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    RECT shared = {};
    *result = IntersectRect(&shared, bounds, area) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

void RepaintThroughSite(Grid& grid)
{
    if (grid.InPlaceSite) {
        auto site = QueryFor<IOleInPlaceSiteWindowless>(grid.InPlaceSite, IID_IOleInPlaceSiteWindowless);
        if (site)
            site->InvalidateRect(nullptr, TRUE);
        return;
    }
    ComPtr<IAdviseSink> sink;
    if (auto view = QueryFor<IViewObject>(grid.Outer, IID_IViewObject))
        view->GetAdvise(nullptr, nullptr, sink.Put());
    if (sink)
        sink->OnViewChange(DVASPECT_CONTENT, -1);
}
