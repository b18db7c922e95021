#include "view/paint_buffer.h"

#include "core/property_frame.h"
#include "platform/gdi.h"

#include <algorithm>

namespace
{
bool EnsureBitmap(PaintBufferState& buffer, HDC target, const RECT& bounds) noexcept
{
    if (buffer.Bitmap && bounds.right <= buffer.BufferWidth && bounds.bottom <= buffer.BufferHeight)
        return true;
    if (buffer.Bitmap)
        DeleteObject(buffer.Bitmap);
    buffer.BufferWidth = std::max<int>(buffer.BufferWidth, bounds.right);
    buffer.BufferHeight = std::max<int>(buffer.BufferHeight, bounds.bottom);
    buffer.Bitmap = CreateCompatibleBitmap(target, buffer.BufferWidth, buffer.BufferHeight);
    if (!buffer.Bitmap)
        buffer.BufferWidth = buffer.BufferHeight = 0; // a later paint may need less
    return buffer.Bitmap != nullptr;
}

// Regions count device pixels, which start at the bounds' corner.
void ClipTo(HDC memory, RECT clip, const RECT& bounds) noexcept
{
    OffsetRect(&clip, -bounds.left, -bounds.top);
    Region region(CreateRectRgnIndirect(&clip));
    SelectClipRgn(memory, region.Get());
}
} // namespace

bool UsesBuffer(Grid& grid)
{
    if (IsDesignMode(grid) || grid.DrawingForView)
        return false;
    return grid.Redraw == lorvRDBuffered || MergesAtAll(grid) || grid.WallPaper;
}

BufferedPaint::BufferedPaint(Grid& grid, HDC target, const RECT& bounds, const RECT& clip)
    : grid_(grid), target_(target)
{
    PaintBufferState& buffer = grid.PaintBuffer;
    if (buffer.Memory || !UsesBuffer(grid) || !EnsureBitmap(buffer, target, bounds))
        return;
    HDC memory = CreateCompatibleDC(target);
    if (!memory)
        return;
    buffer.Target = target;
    buffer.BufferRect = bounds;
    buffer.Previous = static_cast<HBITMAP>(SelectObject(memory, buffer.Bitmap));
    SetViewportOrgEx(memory, -bounds.left, -bounds.top, nullptr);
    if (!EqualRect(&clip, &bounds))
        ClipTo(memory, clip, bounds);
    buffer.Memory = memory_ = memory;
}

BufferedPaint::~BufferedPaint()
{
    if (!memory_)
        return;
    PaintBufferState& buffer = grid_.PaintBuffer;
    const RECT& bounds = buffer.BufferRect;
    BitBlt(target_, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, memory_,
           bounds.left, bounds.top, SRCCOPY);
    SelectObject(memory_, buffer.Previous);
    DeleteDC(memory_);
    buffer.Memory = nullptr;
}
