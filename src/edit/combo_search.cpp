#include "edit/combo_search.h"

#include "edit/combo_list.h"
#include "platform/window_text.h"

#include <algorithm>
#include <cwchar>

namespace
{
constexpr int BufferCapacity = 512;
constexpr int LongestBoxText = 100;
constexpr WPARAM FirstTypedKey = 32;

// One for the process, as the keyboard is.
struct {
    wchar_t SearchBuffer[BufferCapacity + 1];
    int Length;
    ULONGLONG SearchTime; // of the last key, in milliseconds
} search;

void Append(wchar_t c) noexcept
{
    if (search.Length == BufferCapacity)
        return;
    search.SearchBuffer[search.Length++] = c;
    search.SearchBuffer[search.Length] = 0;
}

// What a key types: a lead byte brings its second half along, which waits in the queue.
struct TypedKey {
    wchar_t Characters[3] = {};

    TypedKey(HWND window, WPARAM key) noexcept
    {
        Characters[0] = static_cast<wchar_t>(key);
        MSG trail;
        if (key <= 0xFF && IsDBCSLeadByte(LOBYTE(key)) &&
            PeekMessageW(&trail, window, WM_CHAR, WM_CHAR, PM_REMOVE))
            Characters[1] = static_cast<wchar_t>(trail.wParam);
    }
};

class Items
{
public:
    explicit Items(Grid& grid) noexcept : grid_(grid), box_(grid.ComboWindow) {}

    int Current() const noexcept { return static_cast<int>(SendMessageW(box_, CB_GETCURSEL, 0, 0)); }
    // The item behind `after`, round the end to it, that begins with the text; -1 for none.
    int Find(int after, const wchar_t* text) const noexcept
    {
        return static_cast<int>(
            SendMessageW(box_, CB_FINDSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(text)));
    }
    void Select(int item) const noexcept
    {
        if (item != Current())
            grid_.EditorList.ComboBits |= ComboChangePending;
        SendMessageW(box_, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    }

private:
    Grid& grid_;
    HWND box_;
};

// A first letter that is typed again steps through the items that begin with it.
bool SearchList(Grid& grid, const TypedKey& key)
{
    ULONGLONG now = GetTickCount64();
    if (static_cast<double>(now - search.SearchTime) > grid.AutoSearchDelay * 1000.0)
        EndComboSearch();
    search.SearchTime = now;
    for (const wchar_t* c = key.Characters; *c; ++c)
        Append(*c);

    Items items(grid);
    int current = std::max(items.Current(), 0);
    int found = items.Find(current - 1, search.SearchBuffer);
    if (found < 0)
        found = items.Find(-1, search.SearchBuffer);
    if (found < 0) {
        EndComboSearch();
        for (const wchar_t* c = key.Characters; *c; ++c)
            Append(*c);
        found = items.Find(current, search.SearchBuffer);
    }
    if (found < 0)
        return false;
    items.Select(found);
    return true;
}

bool SearchBox(Grid& grid, const TypedKey& key)
{
    HWND box = grid.ComboWindow;
    wchar_t text[LongestBoxText + 3] = {};
    GetWindowTextW(box, text, LongestBoxText + 1);
    auto bounds = static_cast<DWORD>(SendMessageW(box, CB_GETEDITSEL, 0, 0));
    if (LOWORD(bounds) < HIWORD(bounds) && LOWORD(bounds) < LongestBoxText)
        text[LOWORD(bounds)] = 0;
    std::wcscat(text, key.Characters);

    Items items(grid);
    int found = items.Find(-1, text);
    if (found < 0)
        return false;
    items.Select(found);
    int typed = static_cast<int>(std::wcslen(text));
    int length = std::min(GetWindowTextLengthW(box), BufferCapacity);
    SendMessageW(box, CB_SETEDITSEL, 0, MAKELPARAM(typed, length));
    return true;
}
} // namespace

void EndComboSearch() noexcept
{
    search.Length = 0;
    search.SearchBuffer[0] = 0;
}

bool ComboSearchKey(Grid& grid, HWND window, WPARAM key)
{
    if (key < FirstTypedKey) {
        EndComboSearch();
        return false;
    }
    bool freeText = (grid.EditorList.ComboBits & ComboEditableList) != 0;
    int mine = freeText ? lorvCmbSearchCombos : lorvCmbSearchLists;
    if (grid.ComboSearch != lorvCmbSearchAll && grid.ComboSearch != mine)
        return false;
    TypedKey typed(window, key);
    return freeText ? SearchBox(grid, typed) : SearchList(grid, typed);
}
