#include <initguid.h>

#include "screenshot.h"

#include "com_owners.h"
#include <algorithm>
#include <vector>
#include <wincodec.h>

namespace
{
// A 32-bit picture in memory with a device context to draw on it; (0, 0) is the top left corner.
class MemoryPicture
{
public:
    MemoryPicture(int width, int height) : width(width), height(height)
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        dc = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        old_ = SelectObject(dc, bitmap_);
    }
    MemoryPicture(const MemoryPicture&) = delete;
    MemoryPicture& operator=(const MemoryPicture&) = delete;
    ~MemoryPicture()
    {
        SelectObject(dc, old_);
        DeleteObject(bitmap_);
        DeleteDC(dc);
    }

    const int width, height;
    HDC dc;
    void* bits = nullptr;

private:
    HBITMAP bitmap_;
    HGDIOBJ old_;
};

struct PopupSearch {
    HWND frame;
    std::vector<HWND> popups; // top first
};
} // namespace

static BOOL CALLBACK NotePopup(HWND window, LPARAM search)
{
    auto& found = *reinterpret_cast<PopupSearch*>(search);
    RECT rect;
    if (window != found.frame && IsWindowVisible(window) && GetWindowRect(window, &rect) &&
        !IsRectEmpty(&rect))
        found.popups.push_back(window);
    return TRUE;
}

static RECT AreaOf(HWND window, ShotArea area)
{
    RECT rect;
    if (area == ShotArea::Window) {
        GetWindowRect(window, &rect);
        return rect;
    }
    GetClientRect(window, &rect);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// Copies a window, children included, to its place in the picture whose corner is `origin` on the screen.
static void CopyWindow(HWND window, ShotArea area, const MemoryPicture& picture, POINT origin)
{
    const RECT rect = AreaOf(window, area);
    RECT whole;
    GetWindowRect(window, &whole);
    HDC source = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
    BitBlt(picture.dc, rect.left - origin.x, rect.top - origin.y, rect.right - rect.left,
           rect.bottom - rect.top, source, rect.left - whole.left, rect.top - whole.top, SRCCOPY);
    ReleaseDC(window, source);
}

static HRESULT WritePng(const MemoryPicture& picture, const wchar_t* file)
{
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    HRESULT hr = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                  __uuidof(IWICImagingFactory), factory.PutVoid());
    if (SUCCEEDED(hr))
        hr = factory->CreateStream(stream.Put());
    if (SUCCEEDED(hr))
        hr = stream->InitializeFromFilename(file, GENERIC_WRITE);
    if (SUCCEEDED(hr))
        hr = factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Put());
    if (SUCCEEDED(hr))
        hr = encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache);
    if (SUCCEEDED(hr))
        hr = encoder->CreateNewFrame(frame.Put(), nullptr);
    if (SUCCEEDED(hr))
        hr = frame->Initialize(nullptr);
    if (SUCCEEDED(hr))
        hr = frame->SetSize(UINT(picture.width), UINT(picture.height));
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    if (SUCCEEDED(hr))
        hr = frame->SetPixelFormat(&format);
    if (FAILED(hr))
        return hr;
    // Drop the fourth byte of each pixel: GDI leaves it undefined.
    const auto* pixel = static_cast<const BYTE*>(picture.bits);
    const UINT stride = UINT(picture.width) * 3;
    std::vector<BYTE> rows;
    rows.reserve(size_t(stride) * size_t(picture.height));
    for (int i = 0; i < picture.width * picture.height; ++i, pixel += 4)
        rows.insert(rows.end(), pixel, pixel + 3);
    hr = frame->WritePixels(UINT(picture.height), stride, UINT(rows.size()), rows.data());
    if (SUCCEEDED(hr))
        hr = frame->Commit();
    return SUCCEEDED(hr) ? encoder->Commit() : hr;
}

static void DrawPointer(const MemoryPicture& picture, POINT origin)
{
    CURSORINFO pointer = {};
    pointer.cbSize = sizeof(pointer);
    ICONINFO shape = {};
    if (!GetCursorInfo(&pointer) || !(pointer.flags & CURSOR_SHOWING) ||
        !GetIconInfo(pointer.hCursor, &shape))
        return;
    DrawIconEx(picture.dc, pointer.ptScreenPos.x - origin.x - int(shape.xHotspot),
               pointer.ptScreenPos.y - origin.y - int(shape.yHotspot), pointer.hCursor, 0, 0, 0, nullptr,
               DI_NORMAL);
    DeleteObject(shape.hbmMask);
    DeleteObject(shape.hbmColor);
}

static HRESULT SavePicture(HWND frame, ShotArea area, bool withPointer, const std::wstring& file)
{
    GdiFlush();
    PopupSearch search = {frame, {}};
    EnumThreadWindows(GetWindowThreadProcessId(frame, nullptr), NotePopup, reinterpret_cast<LPARAM>(&search));

    RECT bounds = AreaOf(frame, area);
    for (HWND popup : search.popups) {
        const RECT rect = AreaOf(popup, ShotArea::Window);
        UnionRect(&bounds, &bounds, &rect);
    }
    if (IsRectEmpty(&bounds))
        return E_INVALIDARG;
    const MemoryPicture picture(bounds.right - bounds.left, bounds.bottom - bounds.top);
    if (!picture.bits)
        return E_OUTOFMEMORY;
    const POINT origin = {bounds.left, bounds.top};
    CopyWindow(frame, area, picture, origin);
    std::for_each(search.popups.rbegin(), search.popups.rend(),
                  [&](HWND popup) { CopyWindow(popup, ShotArea::Window, picture, origin); });
    if (withPointer)
        DrawPointer(picture, origin);
    GdiFlush();
    return WritePng(picture, file.c_str());
}

HRESULT SaveScreenshot(HWND frame, ShotArea area, const std::wstring& file)
{
    RedrawWindow(frame, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return SavePicture(frame, area, false, file);
}

HRESULT SavePictureInPassing(HWND frame, const std::wstring& file)
{
    return SavePicture(frame, ShotArea::Window, true, file);
}
