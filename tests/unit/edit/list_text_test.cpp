#include "edit/list_text.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
std::wstring Text(TextSpan span)
{
    return {span.Begin, span.End};
}

// The items of a list as "[key]columns", with "." between columns; the key's parts only where it has them.
std::wstring Items(const wchar_t* list)
{
    std::wstring text;
    ListItem item;
    for (ListItems items(list); items.Next(item);) {
        text += text.empty() ? L"" : L" ";
        if (item.Key.Begin)
            text += L"[" + Text(item.Key) + L"]";
        for (wchar_t c : Text(item.Columns))
            text += c == L'\t' ? L'.' : c;
    }
    return text;
}
} // namespace

TEST(ListText, TakesItemsApart)
{
    constexpr struct {
        const wchar_t* List;
        const wchar_t* Items;
        bool IsList;
    } rows[] = {
        {L"", L"", true},
        {L"A", L"A", true},
        {L"A|B|C", L"A B C", true},
        {L"|A|B", L"A B", true},
        {L"A|", L"A", true},
        {L"A||B", L"A B", true},
        {L"||A|||B||", L"A B", true},
        {L"|", L"", false},
        {L"|||", L"", false},
        {L"...", L"...", true},
        {L"|...", L"...", true},
        {L" A | B ", L" A   B ", true},
        {L"#1;One|#2;Two", L"[1]One [2]Two", true},
        {L"|#1;One", L"[1]One", true},
        {L"#1;", L"[1]", true},
        {L"#;One", L"[]One", true},
        {L"#;", L"[]", true},
        {L"#One", L"#One", true},
        {L"#", L"#", true},
        {L"#1;a;b", L"[1]a;b", true},
        {L"##1;a", L"[#1]a", true},
        {L" #1;a", L"a", true},
        {L"x;a", L"a", true},
        {L";a", L"a", true},
        {L"x;", L"", true},
        {L"x;y;a", L"y;a", true},
        {L"x;#1;a", L"#1;a", true},
        {L"a\tb", L"a.b", true},
        {L"a\tb;c", L"a.b;c", true},
        {L"a;b\tc", L"b.c", true},
        {L"#1;a\tb", L"[1]a.b", true},
        {L"#1\t;a", L"#1.;a", true},
        {L"#1|2;a", L"#1 a", true},
        {L"\ta", L".a", true},
        {L"\t", L".", true},
        {L"#1*1;a\tb|#2;c\td", L"[1*1]a.b [2]c.d", true},
        {L"#1*1;a", L"[1*1]a", false},
        {L"#1*1;a|#2;b\tc", L"[1*1]a [2]b.c", true},
        {L"#1*5;a\tb", L"[1*5]a.b", false},
        {L"#1*2;a\tb", L"[1*2]a.b", false},
        {L"#1*-1;a\tb", L"[1*-1]a.b", false},
        {L"#1;a|#2*7;b", L"[1]a [2*7]b", true},
        {L"#*;a", L"[*]a", true},
        {L"#*19;1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12\t13\t14\t15\t16\t17\t18\t19\t20",
         L"[*19]1.2.3.4.5.6.7.8.9.10.11.12.13.14.15.16.17.18.19.20", true},
        // Columns beyond the twentieth are not there.
        {L"#*20;1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12\t13\t14\t15\t16\t17\t18\t19\t20\t21",
         L"[*20]1.2.3.4.5.6.7.8.9.10.11.12.13.14.15.16.17.18.19.20.21", false},
        {L"#9999999999*9999999999;a", L"[9999999999*9999999999]a", false},
        {L"a\vb|c", L"a\vb c", true},
        {L"a\r\nb|c", L"a\r\nb c", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Items(row.List), row.Items) << row.List;
        EXPECT_EQ(IsComboList(row.List), row.IsList) << row.List;
    }
}

TEST(ListText, ReadsTheHeadFromTheFirstKey)
{
    constexpr struct {
        const wchar_t* Key;
        const wchar_t* Text;
        int KeyColumn;
        bool Bold;
        uint32_t BackColor;
    } rows[] = {
        {L"", L"", 0, true, 0},
        {L"7", L"7", 0, true, 0},
        {L"7*2", L"7", 2, true, 0},
        {L"7*0", L"7", 0, false, 0},
        {L"7*", L"7", 0, false, 0},
        {L"7*x", L"7", 0, false, 0},
        {L"7* 1", L"7", 1, true, 0},
        {L"7*2&16777215", L"7", 2, false, 16777215},
        {L"7*&255", L"7", 0, false, 255},
        {L"7*2&", L"7", 2, false, 0},
        {L"*1", L"", 1, true, 0},
        // Without a star the ampersand is part of the key.
        {L"7&255", L"7&255", 0, true, 0},
        {L"a&1*1", L"a&1", 1, false, 1},
        {L"7*-2147483633&-2147483633", L"7", -2147483633, false, 0x8000000F},
        {L"a*b*3", L"a", 0, false, 0},
        {L"7*1&1&2", L"7", 1, false, 1},
    };
    for (const auto& row : rows) {
        ListHead head = ReadListHead({row.Key, row.Key + std::wcslen(row.Key)});
        EXPECT_EQ(Text(head.Key), row.Text) << row.Key;
        EXPECT_EQ(head.KeyColumn, row.KeyColumn) << row.Key;
        EXPECT_EQ(head.BoldKeyColumn, row.Bold) << row.Key;
        EXPECT_EQ(head.KeyColumnBackColor, row.BackColor) << row.Key;
    }
}

TEST(ListText, TellsWholeLists)
{
    constexpr struct {
        const wchar_t* List;
        bool Button, EditWithButton, Editable;
    } rows[] = {
        {L"...", true, false, false}, {L"|...", false, true, true}, {L"....", false, false, false},
        {L"..", false, false, false}, {L"", false, false, false},   {L"|A", false, false, true},
        {L"A|", false, false, false}, {L"||", false, false, true},  {L"...|A", false, false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsButtonList(row.List), row.Button) << row.List;
        EXPECT_EQ(IsEditWithButtonList(row.List), row.EditWithButton) << row.List;
        EXPECT_EQ(IsEditableList(row.List), row.Editable) << row.List;
    }
}

TEST(ListText, WalksDrawnTextsByIndex)
{
    constexpr struct {
        const wchar_t* List;
        int Index;
        const wchar_t* Text; // null: no such item
    } rows[] = {
        {L"A|B|C", 0, L"A"},
        {L"A|B|C", 2, L"C"},
        {L"A|B|C", 3, nullptr},
        {L"|A|B", 0, L"A"},
        {L"|A|B", 1, L"B"},
        // Empty items count here, though they make no entries.
        {L"A||B", 1, L""},
        {L"A||B", 2, L"B"},
        {L"||A", 0, L""},
        {L"#1;One\tEins|#2;Two\tZwei", 1, L"Two\tZwei"},
        {L"#1*1&255;a\tb", 0, L"a\tb"},
        // What an entry leaves out in front of a semicolon is drawn.
        {L"x;a\tb", 0, L"x;a\tb"},
        {L"#\t;a", 0, L"#\t;a"},
        {L"", 0, L""},
        {L"a\vb", 0, L"a\vb"},
    };
    for (const auto& row : rows) {
        TextSpan text = DrawnItemText(row.List, row.Index);
        EXPECT_EQ(text.Begin != nullptr, row.Text != nullptr) << row.List << row.Index;
        if (row.Text)
            EXPECT_EQ(Text(text), row.Text) << row.List << row.Index;
    }
}

TEST(ListText, PutsBarsBackForVerticalTabs)
{
    wchar_t text[] = L"a\vb|c\v";
    RestoreBars(text);
    EXPECT_STREQ(text, L"a|b|c|");
}
