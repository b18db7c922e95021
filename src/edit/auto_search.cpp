#include "edit/auto_search.h"

#include "core/events.h"
#include "core/search.h"
#include "core/upcalls.h"
#include "core/value_format.h"
#include "view/selection.h"

#include <algorithm>
#include <cwchar>

namespace
{
constexpr int FirstTypedKey = 32;

// The buffer starts over; the search goes on.
void ForgetTypedText(Grid& grid) noexcept
{
    TypedText& typed = TheTypedText();
    typed.SearchText[0] = 0;
    typed.SearchLeadByte = false;
    grid.SearchLength = 0;
}

// In a grid that can be edited a blank opens the editor; a search that runs takes it all the same.
bool StartsSearch(const Grid& grid, int key) noexcept
{
    return !grid.IsSearching && !(key <= FirstTypedKey && grid.Editable);
}

void StartSearch(Grid& grid)
{
    ForgetTypedText(grid);
    grid.IsSearching = 1;
    event::StartAutoSearch(grid);
}

void ForgetAfterDelay(Grid& grid) noexcept
{
    TypedText& typed = TheTypedText();
    DWORD now = GetTickCount();
    DWORD elapsed = now - static_cast<DWORD>(typed.SearchTime);
    if (elapsed > double{grid.AutoSearchDelay} * 1000)
        ForgetTypedText(grid);
    typed.SearchTime = static_cast<int32_t>(now);
}

// The first of two keys that make one character: a pair of UTF-16, or a pair of bytes of a code page that
// has such.
bool IsLeadKey(int key) noexcept
{
    return IS_HIGH_SURROGATE(key) || (key <= 0xFF && IsDBCSLeadByte(static_cast<BYTE>(key)));
}

// False when the other half of the character is still to come.
bool AppendKey(Grid& grid, int key) noexcept
{
    TypedText& typed = TheTypedText();
    bool completes = typed.SearchLeadByte;
    typed.SearchLeadByte = false;
    if (grid.SearchLength < TypedText::Capacity) {
        typed.SearchText[grid.SearchLength++] = static_cast<wchar_t>(key);
        typed.SearchLeadByte = !completes && IsLeadKey(key);
    }
    typed.SearchText[grid.SearchLength] = 0;
    return !typed.SearchLeadByte;
}

bool IsSkipped(const Grid& grid, int row)
{
    return (grid.RowTable[row].Flags & RowFlagHidden) || EffectiveRowHeight(grid, row) == 0;
}

bool BeginsWithTypedText(const Grid& grid, const wchar_t* text) noexcept
{
    int length = grid.SearchLength;
    return wcsnlen(text, length) == static_cast<size_t>(length) &&
           CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, TheTypedText().SearchText, length, text,
                          length) == CSTR_EQUAL;
}

// A key that leads nowhere is taken back without a word, and the current cell stays.
void SeekTypedText(Grid& grid, int keys)
{
    int start = grid.AutoSearch == lorvSearchFromTop ? grid.FixedRows : grid.Row;
    int row = FindPrefix(grid, start, grid.Col);
    if (row < 0) {
        grid.SearchLength = std::max(grid.SearchLength - keys, 0);
        TheTypedText().SearchText[grid.SearchLength] = 0;
        return;
    }
    MoveCursor(grid, row, grid.Col, CursorShowCell);
    RepaintCell(grid, grid.Row, grid.Col);
}
} // namespace

TypedText& TheTypedText() noexcept
{
    static TypedText typed = {};
    return typed;
}

int FindPrefix(Grid& grid, int start, int col)
{
    for (int row = std::max(start, 0); row < grid.Rows; ++row) {
        if (IsSkipped(grid, row))
            continue;
        const wchar_t* text = GetDisplayText(grid, row, col);
        if (text && BeginsWithTypedText(grid, text))
            return row;
    }
    return -1;
}

bool AutoSearchKey(Grid& grid, int key)
{
    if (grid.AutoSearch == lorvSearchNone || key < FirstTypedKey) {
        EndAutoSearch(grid);
        return false;
    }
    if (StartsSearch(grid, key))
        StartSearch(grid);
    if (!grid.IsSearching)
        return false;
    ForgetAfterDelay(grid);
    int keys = TheTypedText().SearchLeadByte ? 2 : 1;
    if (AppendKey(grid, key))
        SeekTypedText(grid, keys);
    return true;
}
