#pragma once
// The grammar of `ComboList` and `ColComboList`: plain text work, no grid and no system.
//
//   list   item|item|...      empty items make no entries; a "|" in front asks for free text
//   item   #key;columns       a key that is stored in place of the text
//          ...;columns        what stands in front of the `;` is left out
//          columns            texts with tabs between them
// In the first item's key, "*n" names the column whose text is the item's, and "&n" behind it gives that
// column a colour. A VT in a text stands for a "|".

#include "core/format_text.h"

#include <cstdint>

// Whole lists that mean no drop-down: a button, an edit box with a button, an edit box in the drop-down.
bool IsButtonList(const wchar_t* list) noexcept;         // "..."
bool IsEditWithButtonList(const wchar_t* list) noexcept; // "|..."
bool IsEditableList(const wchar_t* list) noexcept;       // "|...", too

struct ListItem {
    TextSpan Key;     // Begin null without a key
    TextSpan Columns; // with the tabs between them
};

// The items of a list, the empty ones left out.
class ListItems
{
public:
    explicit ListItems(const wchar_t* list) noexcept;
    bool Next(ListItem& item) noexcept;

private:
    TextParts parts_;
};
// Their count.
int CountListItems(const wchar_t* list) noexcept;

// What the key of the first item says beside the key.
struct ListHead {
    TextSpan Key;
    int KeyColumn = 0;
    bool BoldKeyColumn = true;
    uint32_t KeyColumnBackColor = 0;
};
ListHead ReadListHead(TextSpan key) noexcept;

constexpr int MaxListColumns = 20; // what an item has beyond them is left out
// Whether the text is a list: its key column is one of its columns, or it is empty.
bool IsComboList(const wchar_t* list) noexcept;

// The text of an item as it is drawn, by index. This walk counts empty items, and it shows what stands in
// front of a `;`, unlike the entries of the list: lists that have either show it.
TextSpan DrawnItemText(const wchar_t* list, int index) noexcept;

// Turns each VT of a copied text into the "|" that it stands for.
void RestoreBars(wchar_t* text) noexcept;
