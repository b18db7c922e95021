// sources: edit/list_text.cpp core/format_text.cpp
// Lists of every shape: each part lies in the text, entries have texts without separators, and the walk by
// index shows nothing that is not there.
#include "edit/list_text.h"

#include "fuzz_text.h"

#include <algorithm>
#include <cstdlib>

namespace
{
void Require(bool holds)
{
    if (!holds)
        std::abort();
}

void RequireWithin(TextSpan part, TextSpan whole)
{
    Require(part.Begin >= whole.Begin && part.Begin <= part.End && part.End <= whole.End);
}

bool Has(TextSpan text, wchar_t c)
{
    return std::find(text.Begin, text.End, c) != text.End;
}

void CheckKey(TextSpan key, TextSpan whole)
{
    RequireWithin(key, whole);
    Require(key.Begin[-1] == L'#');
    Require(!Has(key, L';') && !Has(key, L'|') && !Has(key, L'\t'));
    ListHead head = ReadListHead(key);
    RequireWithin(head.Key, key);
    Require(!Has(head.Key, L'*'));
    Require(head.KeyColumn == 0 || head.BoldKeyColumn || head.KeyColumnBackColor || Has(key, L'&'));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::vector<wchar_t> text = TextOfBytes(data, size);
    TextSpan whole = {text.data(), text.data()};
    while (*whole.End)
        ++whole.End;

    int count = 0;
    ListItem item;
    for (ListItems items(text.data()); items.Next(item); ++count) {
        if (item.Key.Begin)
            CheckKey(item.Key, whole);
        RequireWithin(item.Columns, whole);
        Require(!Has(item.Columns, L'|'));
    }
    Require(count == CountListItems(text.data()));
    Require(count <= CountParts(whole, L"|"));
    IsComboList(text.data());

    const int drawn = CountParts(whole, L"|") - (*text.data() == L'|');
    for (int index = 0; index < std::min(drawn, 50); ++index)
        RequireWithin(DrawnItemText(text.data(), index), whole);
    Require(!DrawnItemText(text.data(), drawn).Begin);
    if (IsButtonList(text.data()) || IsEditWithButtonList(text.data()))
        Require(count == 1);

    RestoreBars(text.data());
    Require(std::find(text.begin(), text.end(), VerticalTab) == text.end() ||
            std::find(text.begin(), text.end(), L'\0') < std::find(text.begin(), text.end(), VerticalTab));
    return 0;
}
