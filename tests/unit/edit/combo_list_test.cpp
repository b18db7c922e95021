#include "edit/combo_list.h"

#include "core/upcalls.h"
#include "platform/gdi.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
class List
{
public:
    explicit List(const wchar_t* text, HDC dc = nullptr, HWND comboBox = nullptr)
    {
        ParseComboList(State, text, dc, comboBox);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() { ReleaseComboState(State); }

    // "key=text" per item, "-" for a null one.
    std::wstring Items() const
    {
        std::wstring text;
        for (int item = 0; item < State.ComboCount; ++item) {
            text += text.empty() ? L"" : L" ";
            text += State.ComboKeys[item] ? State.ComboKeys[item] : L"-";
            text += L"=";
            text += State.ComboTexts[item] ? State.ComboTexts[item] : L"-";
        }
        return text;
    }

    ComboListState State = {};
};

class ComboBox
{
public:
    ComboBox()
        : Window(CreateWindowExW(0, L"COMBOBOX", L"", WS_POPUP | CBS_DROPDOWNLIST | CBS_HASSTRINGS, 0, 0, 100,
                                 100, nullptr, nullptr, nullptr, nullptr))
    {
    }
    ComboBox(const ComboBox&) = delete;
    ComboBox& operator=(const ComboBox&) = delete;
    ~ComboBox() { DestroyWindow(Window); }

    // "text:data" per item.
    std::wstring Items() const
    {
        std::wstring all;
        LRESULT count = SendMessageW(Window, CB_GETCOUNT, 0, 0);
        for (LRESULT item = 0; item < count; ++item) {
            wchar_t text[100] = {};
            auto index = static_cast<WPARAM>(item);
            SendMessageW(Window, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text));
            all += all.empty() ? L"" : L" ";
            all += text + (L":" + std::to_wstring(SendMessageW(Window, CB_GETITEMDATA, index, 0)));
        }
        return all;
    }

    HWND Window;
};

LONG WidthOf(HDC dc, const std::wstring& text)
{
    SIZE size = {};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}
} // namespace

TEST(ComboList, HoldsKeysAndTextsOfItsItems)
{
    HeapBalance balance;
    EXPECT_EQ(List(L"A|B").Items(), L"-=A -=B");
    EXPECT_EQ(List(L"#1;One|Two|#3;Three").Items(), L"1=One -=Two 3=Three");
    EXPECT_EQ(List(L"#;One|x;Two").Items(), L"=One -=Two");
    EXPECT_EQ(List(L"#1*1;a\tb|#2;c\td").Items(), L"1=b 2=d");
    EXPECT_EQ(List(L"#1*1;a\tb|#2*0;c\td").Items(), L"1=b 2*0=d");
    EXPECT_EQ(List(L"a\vb|\v").Items(), L"-=a|b -=|");
    EXPECT_EQ(List(L"").Items(), L"");
}

TEST(ComboList, HoldsNullForAnItemThatDoesNotReachTheKeyColumn)
{
    EXPECT_EQ(List(L"#1*1;a\tb|#2;c").Items(), L"1=b 2=-");
    ComboBox box;
    List list(L"#1*1;a\tb|#2;c|#3;d\te", nullptr, box.Window);
    EXPECT_EQ(box.Items(), L"b:1 :2 e:3");
}

TEST(ComboList, FillsAComboBox)
{
    ComboBox box;
    SendMessageW(box.Window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"old"));
    List list(L"#1;One|#x7;Two|Three|#-5*2;Four|a\vb", nullptr, box.Window);
    EXPECT_EQ(box.Items(), L"One:1 Two:0 Three:0 Four:-5 a|b:0");
    ClearComboList(list.State, box.Window);
    EXPECT_EQ(box.Items(), L"");
    EXPECT_EQ(list.State.ComboCount, 0);
}

TEST(ComboList, MeasuresItsColumns)
{
    ScreenDC dc;
    List list(L"one\tsecond column|three\tx|a\tb\tcc", dc.Get());
    EXPECT_EQ(list.State.ColumnCount, 3);
    EXPECT_EQ(list.State.ColumnWidth[0], WidthOf(dc.Get(), L"three") + 8);
    EXPECT_EQ(list.State.ColumnWidth[1], WidthOf(dc.Get(), L"second column") + 8);
    EXPECT_EQ(list.State.ColumnWidth[2], WidthOf(dc.Get(), L"cc") + 8);
    EXPECT_EQ(list.State.ColumnWidth[3], -1);
    EXPECT_EQ(list.State.TotalWidth,
              list.State.ColumnWidth[0] + list.State.ColumnWidth[1] + list.State.ColumnWidth[2]);
    SIZE height = {};
    GetTextExtentPoint32W(dc.Get(), L"Hj", 2, &height);
    EXPECT_EQ(list.State.ItemHeight, height.cy);
}

TEST(ComboList, MeasuresFirstLines)
{
    ScreenDC dc;
    List list(L"ab\r\na long second line|c\nand another", dc.Get());
    EXPECT_EQ(list.State.ColumnWidth[0], std::max(WidthOf(dc.Get(), L"ab"), WidthOf(dc.Get(), L"c")) + 8);
    EXPECT_EQ(list.Items(), L"-=ab\r\na long second line -=c\nand another");
}

TEST(ComboList, CountsColumnsWithoutADeviceContext)
{
    List list(L"a\tb");
    EXPECT_EQ(list.State.ColumnCount, 2);
    EXPECT_EQ(list.State.ItemHeight, 0);
    EXPECT_EQ(list.State.TotalWidth, 16);
    EXPECT_EQ(list.State.ColumnWidth[1], 8);
}

TEST(ComboList, IgnoresColumnsBeyondTheTwentieth)
{
    std::wstring text = L"1";
    for (int column = 2; column <= 25; ++column)
        text += L"\t" + std::to_wstring(column);
    List list(text.c_str());
    EXPECT_EQ(list.State.ColumnCount, 20);
    EXPECT_EQ(list.State.ColumnWidth[19], 8);
    EXPECT_STREQ(list.State.ListText, text.c_str());
}

TEST(ComboList, TakesItsHeadFromTheFirstItemOnly)
{
    List list(L"#1*1&255;a\tb|#2*0&7;c\td");
    EXPECT_EQ(list.State.KeyColumn, 1);
    EXPECT_EQ(list.State.KeyColumnBackColor, 255u);
    EXPECT_FALSE(list.State.ComboBits & ComboBoldKeyColumn);
    EXPECT_EQ(list.Items(), L"1=b 2*0&7=d");
    EXPECT_EQ(List(L"a\tb|#1*1;c\td").State.KeyColumn, 0);
}

TEST(ComboList, StartsAnewWithEachText)
{
    HeapBalance balance;
    List list(L"#1*1&255;a\tb");
    ParseComboList(list.State, L"x");
    EXPECT_EQ(list.Items(), L"-=x");
    EXPECT_EQ(list.State.KeyColumn, 0);
    EXPECT_EQ(list.State.KeyColumnBackColor, 0u);
    EXPECT_TRUE(list.State.ComboBits & ComboBoldKeyColumn);
    EXPECT_EQ(list.State.ColumnWidth[1], -1);
}

TEST(ComboList, LeavesItemsOutForWhichThereIsNoMemory)
{
    ComboBox box;
    long allocations = WithEachAllocationFailing([&box] {
        List list(L"#1;One|#2;Two", nullptr, box.Window);
        EXPECT_LE(list.State.ComboCount, 2);
        EXPECT_EQ(SendMessageW(box.Window, CB_GETCOUNT, 0, 0), list.State.ComboCount);
    });
    EXPECT_EQ(allocations, 7); // the text, two arrays, a key and a text per item
}

TEST(ComboList, KnowsKeysByIndex)
{
    List list(L"#1;One|Two");
    EXPECT_STREQ(ComboKeyOf(list.State, 0), L"1");
    EXPECT_EQ(ComboKeyOf(list.State, 1), nullptr);
    EXPECT_EQ(ComboKeyOf(list.State, -1), nullptr);
    EXPECT_EQ(ComboKeyOf(list.State, 2), nullptr);
    EXPECT_EQ(ComboKeyOf(ComboListState{}, 0), nullptr);
}
