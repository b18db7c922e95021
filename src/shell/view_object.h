#pragma once

#include "platform/com_ptr.h"
#include "shell/com_base.h"

// The control's picture for a container that draws it: on a screen, a printer or into a metafile.
class ViewObject final : public ControlPart<IViewObjectEx>
{
public:
    using ControlPart::ControlPart;

    // IViewObject
    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                                   HDC target, HDC context, LPCRECTL bounds, LPCRECTL windowBounds,
                                   BOOL(STDMETHODCALLTYPE* proceed)(ULONG_PTR), ULONG_PTR cookie) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;

    // IViewObject2
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                        LPSIZEL extent) override;

    // IViewObjectEx
    HRESULT STDMETHODCALLTYPE GetRect(DWORD, LPRECTL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* status) override;
    HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeHint,
                                            DWORD* result) override;
    HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG closeHint,
                                           DWORD* result) override;
    HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*,
                                               LPSIZEL) override
    {
        return E_NOTIMPL;
    }

private:
    ComPtr<IAdviseSink> sink_;
    DWORD aspects_ = 0;
    DWORD flags_ = 0;
};

// Draws the grid into `bounds`, which are logical units of `context`. A context that is no metafile is
// drawn on in device pixels.
void DrawGridInto(Grid& grid, HDC context, HDC target, const RECTL& bounds);
