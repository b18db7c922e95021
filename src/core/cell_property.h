#pragma once
// Writing one property of a cell, of a range or of the selection. Whatever changes a cell for a program or a
// user comes through here.

#include "core/cell_pos.h"
#include "core/cell_store.h"

#include <cstddef>
#include <type_traits>

// What to write, with the value that it takes. Programs never see these numbers: they say
// CellPropertySettings.
enum class CellSelector : uint8_t {
    Text = 0, // const wchar_t*
    BackColor = 1,
    ForeColor = 2,
    Alignment = 3,
    TextStyle = 4,
    Picture = 5, // IPictureDisp*, null removes
    PictureAlignment = 6,
    FloodPercent = 7,
    FloodColor = 8,
    BorderColor = 9,
    BorderLeft = 10,
    BorderRight = 11,
    BorderTop = 12,
    BorderBottom = 13,
    CheckState = 14, // CellCheckedSettings, or 0xFFFF for lorvChecked
    Font = 15,       // const LOGFONTW*, null goes back to the grid's font
    FontName = 16,   // const wchar_t*
    FontSize = 17,   // float points, 0 goes back to the grid's font
    FontBold = 18,
    FontItalic = 19,
    FontUnderline = 20,
    FontStrikethru = 21,
    FontWidth = 22,  // float points, 0 goes back to the grid's font
    Data = 23,       // const VARIANT*
    CopyFormat = 24, // const CellFormat*, null clears the format
    Refresh = 25,    // none: the cell is repainted
};

// A value for a selector; the selector says which of the forms it is.
class CellValue
{
public:
    constexpr CellValue(std::nullptr_t = nullptr) noexcept : pointer_(nullptr) {}
    template<class Integer>
    requires(std::is_integral_v<Integer> ||
             std::is_enum_v<Integer>) constexpr CellValue(Integer number) noexcept
        : number_(static_cast<uint32_t>(number))
    {
    }
    constexpr CellValue(float points) noexcept : points_(points) {}
    constexpr CellValue(const wchar_t* text) noexcept : pointer_(text) {}
    constexpr CellValue(const LOGFONTW* font) noexcept : pointer_(font) {}
    constexpr CellValue(IPictureDisp* picture) noexcept : pointer_(picture) {}
    constexpr CellValue(const VARIANT* data) noexcept : pointer_(data) {}
    constexpr CellValue(const CellFormat* format) noexcept : pointer_(format) {}

    uint32_t Number() const noexcept { return number_; }
    uint8_t Byte() const noexcept { return static_cast<uint8_t>(number_); }
    float Points() const noexcept { return points_; }
    const wchar_t* Text() const noexcept { return static_cast<const wchar_t*>(pointer_); }
    const LOGFONTW* Font() const noexcept { return static_cast<const LOGFONTW*>(pointer_); }
    IPictureDisp* Picture() const noexcept { return static_cast<IPictureDisp*>(const_cast<void*>(pointer_)); }
    const VARIANT* Data() const noexcept { return static_cast<const VARIANT*>(pointer_); }
    const CellFormat* Format() const noexcept { return static_cast<const CellFormat*>(pointer_); }

private:
    union {
        uint32_t number_;
        float points_;
        const void* pointer_;
    };
};

// Writes the property and repaints the cell. LORV_E_INDEX, LORV_E_MEMORY, LORV_E_VALUE, or what the text
// source or the copying of a variant says.
HRESULT SetCellProperty(Grid& grid, int row, int col, CellSelector selector, CellValue value);
// The same over a range, row by row. The first failure ends it, and what was written before stays.
HRESULT SetCellPropertyRange(Grid& grid, const CellRange& range, CellSelector selector, CellValue value);
// The same for what a program means by the current cell: the cell alone, the whole selection when FillStyle
// says so, or, for a check box, all cells that are merged with the current one.
HRESULT SetCellPropertySelection(Grid& grid, CellSelector selector, CellValue value);
