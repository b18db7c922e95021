#pragma once

#include <windows.h>

#include <utility>

// Owner of a pen, brush, font, bitmap, palette or region.
template<class Handle> class GdiObject
{
public:
    GdiObject() noexcept = default;
    explicit GdiObject(Handle handle) noexcept : handle_(handle) {}
    GdiObject(const GdiObject&) = delete;
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    ~GdiObject() { Reset(); }
    GdiObject& operator=(GdiObject other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }

    Handle Get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != nullptr; }
    void Reset(Handle handle = nullptr) noexcept
    {
        if (Handle old = std::exchange(handle_, handle))
            DeleteObject(old);
    }

private:
    Handle handle_ = nullptr;
};
using Pen = GdiObject<HPEN>;
using Brush = GdiObject<HBRUSH>;
using Font = GdiObject<HFONT>;
using Bitmap = GdiObject<HBITMAP>;
using Region = GdiObject<HRGN>;

// A device context of the whole screen, for measuring.
class ScreenDC
{
public:
    ScreenDC() noexcept : dc_(GetDC(nullptr)) {}
    ScreenDC(const ScreenDC&) = delete;
    ScreenDC& operator=(const ScreenDC&) = delete;
    ~ScreenDC()
    {
        if (dc_)
            ReleaseDC(nullptr, dc_);
    }
    HDC Get() const noexcept { return dc_; }

private:
    HDC dc_;
};

// A device context of a window's client area.
class ClientDC
{
public:
    explicit ClientDC(HWND window) noexcept : window_(window), dc_(GetDC(window)) {}
    ClientDC(const ClientDC&) = delete;
    ClientDC& operator=(const ClientDC&) = delete;
    ~ClientDC()
    {
        if (dc_)
            ReleaseDC(window_, dc_);
    }
    HDC Get() const noexcept { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

// Selects an object for the length of a scope. A null object selects nothing.
class SelectedObject
{
public:
    SelectedObject(HDC dc, HGDIOBJ object) noexcept
        : dc_(dc), previous_(object ? SelectObject(dc, object) : nullptr)
    {
    }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject()
    {
        if (previous_)
            SelectObject(dc_, previous_);
    }

private:
    HDC dc_;
    HGDIOBJ previous_;
};
