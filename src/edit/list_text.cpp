#include "edit/list_text.h"

#include <algorithm>

namespace
{
constexpr wchar_t Bar[] = L"|";

bool Equals(const wchar_t* list, const wchar_t* other) noexcept
{
    for (; *list && *list == *other; ++list, ++other) {
    }
    return *list == *other;
}

// The `;` in front of any tab; null without one.
const wchar_t* FindKeyEnd(TextSpan item) noexcept
{
    const wchar_t* at = std::find_if(item.Begin, item.End, [](wchar_t c) { return c == L';' || c == L'\t'; });
    return at != item.End && *at == L';' ? at : nullptr;
}

bool HasKey(TextSpan item) noexcept
{
    return !item.Empty() && *item.Begin == L'#' && FindKeyEnd(item);
}

ListItem ReadItem(TextSpan item) noexcept
{
    const wchar_t* end = FindKeyEnd(item);
    if (HasKey(item))
        return {{item.Begin + 1, end}, {end + 1, item.End}};
    // An item that begins otherwise loses what stands in front of the semicolon.
    bool skips = end && *item.Begin != L'#';
    return {{}, {skips ? end + 1 : item.Begin, item.End}};
}
} // namespace

bool IsButtonList(const wchar_t* list) noexcept
{
    return Equals(list, L"...");
}

bool IsEditWithButtonList(const wchar_t* list) noexcept
{
    return Equals(list, L"|...");
}

bool IsEditableList(const wchar_t* list) noexcept
{
    return *list == L'|';
}

ListItems::ListItems(const wchar_t* list) noexcept : parts_(WholeText(list), Bar) {}

bool ListItems::Next(ListItem& item) noexcept
{
    TextSpan part;
    do {
        if (!parts_.Next(part))
            return false;
    } while (part.Empty());
    item = ReadItem(part);
    return true;
}

int CountListItems(const wchar_t* list) noexcept
{
    int count = 0;
    ListItem item;
    for (ListItems items(list); items.Next(item);)
        ++count;
    return count;
}

ListHead ReadListHead(TextSpan key) noexcept
{
    ListHead head;
    head.Key = key;
    const wchar_t* star = std::find(key.Begin, key.End, L'*');
    if (star == key.End)
        return head;
    head.Key.End = star;
    head.KeyColumn = NumberOf({star + 1, key.End});
    head.BoldKeyColumn = head.KeyColumn != 0;
    const wchar_t* colour = std::find(key.Begin, key.End, L'&');
    if (colour != key.End) {
        head.KeyColumnBackColor = static_cast<uint32_t>(NumberOf({colour + 1, key.End}));
        head.BoldKeyColumn = false;
    }
    return head;
}

bool IsComboList(const wchar_t* list) noexcept
{
    int columns = 0, keyColumn = 0;
    bool first = true;
    ListItem item;
    for (ListItems items(list); items.Next(item); first = false) {
        if (first && item.Key.Begin)
            keyColumn = ReadListHead(item.Key).KeyColumn;
        columns = std::max(columns, std::min(CountParts(item.Columns, L"\t"), MaxListColumns));
    }
    return !*list || (keyColumn >= 0 && keyColumn < columns);
}

TextSpan DrawnItemText(const wchar_t* list, int index) noexcept
{
    TextParts parts(WholeText(*list == L'|' ? list + 1 : list), Bar);
    TextSpan item;
    for (int at = 0; at <= index; ++at)
        if (!parts.Next(item))
            return {};
    if (HasKey(item))
        item.Begin = FindKeyEnd(item) + 1;
    return item;
}

void RestoreBars(wchar_t* text) noexcept
{
    for (; *text; ++text)
        if (*text == VerticalTab)
            *text = L'|';
}
