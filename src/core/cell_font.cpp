#include "core/cell_font.h"

#include "core/font_pool.h"
#include "core/property_frame.h"
#include "platform/dpi.h"

#include <cmath>
#include <utility>

HFONT CellFontHandle(Grid& grid, int row, int col)
{
    const CellFormat* format = CellFormatOf(grid, row, col);
    return format && format->Font ? format->Font : GridFontHandle(grid);
}

bool DescribeCellFont(Grid& grid, int row, int col, LOGFONTW& description)
{
    description = {};
    HFONT font = CellFontHandle(grid, row, col);
    return font && GetObjectW(font, sizeof(description), &description) != 0;
}

HFONT AcquireFontLike(HFONT font) noexcept
{
    LOGFONTW description = {};
    if (!font || !GetObjectW(font, sizeof(description), &description))
        return nullptr;
    return AcquirePooledFont(description);
}

int FontPixels(float points) noexcept
{
    constexpr float MostTwips = 1e9f;
    float twips = points * 20;
    if (!(twips > -MostTwips && twips < MostTwips)) // no number at all fails this too
        return 0;
    return -TwipsToPixelsY(static_cast<int>(std::lround(twips)));
}

float FontPoints(int pixels) noexcept
{
    return static_cast<float>(PixelsToTwipsY(-pixels)) / 20;
}

namespace
{
// Changes one trait of a font. False when the cell is to have the grid's font again.
bool ChangeTrait(LOGFONTW& font, CellSelector selector, CellValue value) noexcept
{
    switch (selector) {
    case CellSelector::Font:
        if (value.Font())
            font = *value.Font();
        return value.Font() != nullptr;
    case CellSelector::FontName:
        lstrcpynW(font.lfFaceName, value.Text() ? value.Text() : L"", LF_FACESIZE);
        font.lfCharSet = DEFAULT_CHARSET;
        return true;
    case CellSelector::FontSize:
        font.lfHeight = FontPixels(value.Points());
        return value.Points() != 0;
    case CellSelector::FontBold:
        font.lfWeight = value.Number() ? FW_BOLD : FW_NORMAL;
        return true;
    case CellSelector::FontItalic:
        font.lfItalic = value.Byte();
        return true;
    case CellSelector::FontUnderline:
        font.lfUnderline = value.Byte();
        return true;
    case CellSelector::FontStrikethru:
        font.lfStrikeOut = value.Byte();
        return true;
    default:
        font.lfWidth = FontPixels(value.Points());
        return value.Points() != 0;
    }
}
} // namespace

// The old font is given up before the new one is asked for, so that a full pool has room for it.
HRESULT SetCellFont(Grid& grid, int row, int col, CellSelector selector, CellValue value)
{
    LOGFONTW description;
    DescribeCellFont(grid, row, col, description);
    if (!IsCell(grid, row, col)) // the host's font object was asked
        return LORV_E_INDEX;
    CellFormat* format = EnsureCellFormat(grid, row, col);
    if (!format)
        return LORV_E_MEMORY;
    ReleasePooledFont(std::exchange(format->Font, nullptr));
    if (ChangeTrait(description, selector, value))
        format->Font = AcquirePooledFont(description);
    return S_OK;
}
