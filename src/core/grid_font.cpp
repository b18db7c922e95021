#include "core/grid_font.h"

#include "core/events.h"
#include "core/property_frame.h"
#include "platform/com_ptr.h"

namespace
{
template<class Change> HRESULT ChangeFont(Grid& grid, Change change)
{
    ComPtr<IFont> font(GridFont(grid));
    if (!font)
        return E_OUTOFMEMORY;
    HRESULT changed = change(*font.Get());
    return SUCCEEDED(changed) ? FinishFontChange(grid) : changed;
}
} // namespace

// Sinks hear of the change before the rows are measured anew.
HRESULT FinishFontChange(Grid& grid)
{
    KeepAlive alive(grid);
    grid.FontHandle = nullptr;
    MarkDirtyAndNotify(grid, DISPID_FONT);
    FontChanged(grid);
    return S_OK;
}

HRESULT SetFontName(Grid& grid, BSTR name)
{
    if (IsDesignMode(grid))
        return LORV_E_DESIGNMODE;
    if (!name)
        return LORV_E_VALUE;
    return ChangeFont(grid, [&](IFont& font) { return font.put_Name(name); });
}

HRESULT SetFontSize(Grid& grid, float points)
{
    CY size = {};
    if (!(points > -1e6f && points < 1e6f) || FAILED(VarCyFromR4(points, &size)))
        return LORV_E_VALUE;
    return ChangeFont(grid, [&](IFont& font) { return font.put_Size(size); });
}

HRESULT SetFontFlag(Grid& grid, const FontFlagProperty& property, bool on)
{
    return ChangeFont(grid, [&](IFont& font) { return (font.*property.Set)(on); });
}

void SetFontWidth(Grid& grid, float points)
{
    grid.FontWidth = points;
    RunSetterSteps(grid, StepLayout | StepRepaint);
}

float FontSizeOf(Grid& grid) noexcept
{
    CY size = {};
    float points = 0;
    IFont* font = GridFont(grid);
    if (!font || FAILED(font->get_Size(&size)) || FAILED(VarR4FromCy(size, &points)))
        return 0;
    return points;
}
