#pragma once

#include "core/grid_object.h"

// Whether a draw goes through the off-screen bitmap: when asked for, and whenever cells may be painted over
// each other. Never in a form designer and never for a host's own rendering.
bool UsesBuffer(Grid& grid);

// The off-screen bitmap of a grid for the length of a paint. It survives from paint to paint and never
// shrinks. A paint inside a paint, or one without memory, goes to the target itself.
class BufferedPaint
{
public:
    BufferedPaint(Grid& grid, HDC target, const RECT& bounds, const RECT& clip);
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    // Copies what was painted to the target.
    ~BufferedPaint();

    // Where to paint.
    HDC Get() const noexcept { return memory_ ? memory_ : target_; }

private:
    Grid& grid_;
    HDC target_;
    HDC memory_ = nullptr;
};
