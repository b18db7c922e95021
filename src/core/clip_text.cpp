#include "core/clip_text.h"

#include "core/cell_pos.h"
#include "core/cell_store.h"
#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/bstr.h"
#include "platform/memory.h"

#include <cwchar>
#include <utility>

ClipSeparatorPair ClipSeparatorsOf(const Grid& grid, bool fixedSeparators) noexcept
{
    return ClipSeparatorsIn(fixedSeparators ? nullptr : grid.ClipSeparators);
}

namespace
{
// A growing text on the model's heap. After a failure it stays as it was and says so.
class TextBlock
{
public:
    TextBlock() noexcept = default;
    TextBlock(const TextBlock&) = delete;
    TextBlock& operator=(const TextBlock&) = delete;
    ~TextBlock() { FreeBlock(text_); }

    void Append(const wchar_t* text) noexcept { Append(text, text ? std::wcslen(text) : 0); }
    void Append(const wchar_t* text, size_t length) noexcept
    {
        if (!Reserve(length_ + length + 1))
            return;
        if (length)
            std::wmemcpy(text_ + length_, text, length);
        length_ += length;
        text_[length_] = 0;
    }
    // Null after a failure.
    [[nodiscard]] wchar_t* Detach() noexcept
    {
        wchar_t* text = failed_ ? nullptr : text_;
        if (text)
            text_ = nullptr;
        return text;
    }

private:
    bool Reserve(size_t units) noexcept
    {
        if (failed_ || units <= capacity_)
            return !failed_;
        size_t capacity = units + units / 2;
        void* larger = ReallocateBlock(text_, capacity * sizeof(wchar_t));
        failed_ = !larger;
        if (larger) {
            text_ = static_cast<wchar_t*>(larger);
            capacity_ = capacity;
        }
        return !failed_;
    }

    wchar_t* text_ = nullptr;
    size_t length_ = 0;
    size_t capacity_ = 0;
    bool failed_ = false;
};

// False when the range left the grid: a text source can change it at every read.
bool AppendRow(Grid& grid, TextBlock& clip, const CellRange& range, int row, wchar_t separator)
{
    for (int col = range.Col1; col <= range.Col2; ++col) {
        if (!range.Within(grid.Rows, grid.Cols))
            return false;
        if (col > range.Col1)
            clip.Append(&separator, 1);
        clip.Append(GetCellText(grid, row, col));
    }
    return true;
}

void AppendRowSeparator(TextBlock& clip, const ClipSeparatorPair& separators, bool fixedSeparators) noexcept
{
    clip.Append(fixedSeparators ? L"\r\n" : &separators.Row, fixedSeparators ? 2 : 1);
}

wchar_t* ClipOfSelectedRows(Grid& grid, bool fixedSeparators)
{
    ClipSeparatorPair separators = ClipSeparatorsOf(grid, fixedSeparators);
    TextBlock clip;
    bool first = true;
    for (int row = grid.FixedRows; row < grid.Rows; ++row) {
        if (!(grid.RowTable[row].Flags & RowFlagSelected))
            continue;
        if (!std::exchange(first, false))
            AppendRowSeparator(clip, separators, fixedSeparators);
        if (grid.FixedCols < grid.Cols &&
            !AppendRow(grid, clip, {row, grid.FixedCols, row, grid.Cols - 1}, row, separators.Col))
            return nullptr;
    }
    return clip.Detach();
}
} // namespace

wchar_t* ClipOfRange(Grid& grid, int row1, int col1, int row2, int col2, bool fixedSeparators)
{
    CellRange range(row1, col1, row2, col2);
    ClipSeparatorPair separators = ClipSeparatorsOf(grid, fixedSeparators);
    TextBlock clip;
    for (int row = range.Row1; row <= range.Row2; ++row) {
        if (row > range.Row1)
            AppendRowSeparator(clip, separators, fixedSeparators);
        if (!AppendRow(grid, clip, range, row, separators.Col))
            return nullptr;
    }
    return clip.Detach();
}

wchar_t* ClipOfSelection(Grid& grid, bool fixedSeparators)
{
    if (grid.SelectionMode == lorvSelectionListBox)
        return ClipOfSelectedRows(grid, fixedSeparators);
    return ClipOfRange(grid, grid.Row, grid.Col, grid.RowSel, grid.ColSel, fixedSeparators);
}

namespace
{
HRESULT PutRow(Grid& grid, TextSpan text, int row, int col1, int col2, wchar_t separator)
{
    if (!IsRow(grid, row))
        return LORV_E_INDEX;
    if (FAILED(EnsureRowCells(grid, row)))
        return LORV_E_MEMORY;
    ClipCells cells(text, separator);
    TextSpan cell;
    for (int col = col1; col <= col2 && cells.Next(cell); ++col) {
        HRESULT result = SetCellText(grid, row, col, cell.Begin, cell.Length());
        if (FAILED(result))
            return result;
        if (IsCell(grid, row, col))
            RepaintCell(grid, row, col);
    }
    return S_OK;
}
} // namespace

HRESULT PutRowText(Grid& grid, const wchar_t* text, int row, int col1, int col2, bool fixedSeparators)
{
    KeepAlive alive(grid);
    return PutRow(grid, WholeText(text), row, col1, col2, ClipSeparatorsOf(grid, fixedSeparators).Col);
}

HRESULT PutClip(Grid& grid, const wchar_t* text, int row1, int col1, int row2, int col2, bool fixedSeparators)
{
    CellRange range(row1, col1, row2, col2);
    if (!range.Within(grid.Rows, grid.Cols))
        return LORV_E_INDEX;
    KeepAlive alive(grid);
    ClipRows rows(text, ClipSeparatorsOf(grid, fixedSeparators).Row);
    TextSpan line;
    for (int row = range.Row1; row <= range.Row2 && rows.Next(line); ++row) {
        wchar_t separator = ClipSeparatorsOf(grid, fixedSeparators).Col; // a handler may set another
        HRESULT result = PutRow(grid, line, row, range.Col1, range.Col2, separator);
        if (FAILED(result))
            return result;
        if (fixedSeparators && IsRow(grid, row) && grid.RowTable[row].Status < 4)
            grid.RowTable[row].Status = lorvrsModified;
    }
    return S_OK;
}

HRESULT SetClip(Grid& grid, const wchar_t* text)
{
    KeepAlive alive(grid);
    if (!text || !*text) {
        int row = grid.Row, col = grid.Col;
        HRESULT result = SetCellText(grid, row, col, nullptr);
        if (SUCCEEDED(result) && IsCell(grid, row, col))
            RepaintCell(grid, row, col);
        return result;
    }
    wchar_t* copy = DuplicateText(text);
    if (!copy)
        return LORV_E_MEMORY;
    HRESULT result = PutClip(grid, copy, grid.Row, grid.Col, grid.RowSel, grid.ColSel, false);
    FreeBlock(copy);
    return result;
}

HRESULT SetClipSeparators(Grid& grid, BSTR text)
{
    size_t length = text ? std::wcslen(text) : 0; // a terminator cannot separate anything
    if (length != 0) {
        if (length != 2 || text[0] == text[1])
            return LORV_E_VALUE;
        for (size_t i = 0; i < length; ++i)
            if (text[i] <= 0xFF && IsDBCSLeadByte(static_cast<BYTE>(text[i])))
                return LORV_E_VALUE;
    }
    Bstr copy(length ? text : L"");
    if (length && !copy.Get())
        return LORV_E_MEMORY;
    SysFreeString(grid.ClipSeparators);
    grid.ClipSeparators = copy.Detach();
    MarkDirtyAndNotify(grid, 182);
    return S_OK;
}
