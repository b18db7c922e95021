#pragma once
// Grids as bytes and back, and names of files that go when a test ends.

#include "core/cell_store.h"
#include "core/row_col.h"
#include "files/delimited.h"
#include "files/grid_file.h"
#include "platform/bstr.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

constexpr DISPID CellChangedId = 43;

using Bytes = std::vector<uint8_t>;

inline Bytes Saved(Grid& grid, GridFileKind kind = GridFileAll)
{
    MemoryWriter target;
    EXPECT_EQ(S_OK, SaveBinaryGrid(grid, target, kind));
    return target.Bytes;
}

inline HRESULT Load(Grid& grid, const Bytes& bytes, GridFileKind kind = GridFileAll)
{
    MemoryReader source(bytes.data(), bytes.size());
    return LoadBinaryGrid(grid, source, kind);
}

// The offset of the first byte that differs, -1 when none does. What the system makes of a font (its
// character set and precision) is no matter of the file.
inline ptrdiff_t FirstDifference(const Bytes& one, const Bytes& other)
{
    size_t at = 0;
    auto isFontDetail = [](size_t offset) { return offset >= 35 && offset < 40; };
    while (at < one.size() && at < other.size() && (one[at] == other[at] || isFontDetail(at)))
        ++at;
    return at == one.size() && at == other.size() ? -1 : static_cast<ptrdiff_t>(at);
}

template<class Number> Number At(const Bytes& bytes, size_t offset)
{
    return offset + sizeof(Number) <= bytes.size() ? LoadNumber<Number>(bytes.data() + offset) : Number{};
}
template<class Number> void Patch(Bytes& bytes, size_t offset, Number number)
{
    ASSERT_LE(offset + sizeof(Number), bytes.size());
    StoreNumber<Number>(bytes.data() + offset, number);
}

// A grid of that shape, one fixed row and column included.
struct SmallGrid : Grid {
    SmallGrid(int rows, int cols)
    {
        ResizeRows(*this, rows);
        ResizeCols(*this, cols);
        OptionWord &= ~OptionAutoResize;
    }
    void Set(int row, int col, const wchar_t* text) { EXPECT_EQ(S_OK, SetCellText(*this, row, col, text)); }
    std::wstring Text(int row, int col)
    {
        const wchar_t* text = IsCell(*this, row, col) ? GetCellText(*this, row, col) : nullptr;
        return text ? text : L"";
    }
};

inline std::string SavedText(Grid& grid, int kind, unsigned flags = 0)
{
    MemoryWriter target;
    EXPECT_EQ(S_OK, SaveDelimitedText(grid, target, kind, flags));
    return {target.Bytes.begin(), target.Bytes.end()};
}

inline HRESULT LoadText(Grid& grid, const std::string& text, int kind, unsigned flags = 0)
{
    MemoryReader source(text.data(), text.size());
    return LoadDelimitedText(grid, source, kind, flags);
}

inline std::string Utf16(const std::wstring& text)
{
    std::string bytes;
    for (wchar_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}
