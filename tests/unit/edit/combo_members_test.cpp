// ComboList, ColComboList and what programs ask of the drop-down; EditMask and ColEditMask.

#include "support/combo_grid.h"

#include "core/value_format.h"

namespace
{
using ComboMembers = ComboTest;

HRESULT PutList(GridMembers& grid, const wchar_t* list)
{
    return grid.put_ComboList(Bstr(list).Get());
}
HRESULT PutColList(GridMembers& grid, LONG col, const wchar_t* list)
{
    return grid.put_ColComboList(col, Bstr(list).Get());
}
} // namespace

TEST_F(ComboMembers, ListIsStoredOrRefused)
{
    auto list = [this] { return Read([this](BSTR* text) { return grid.get_ComboList(text); }); };
    EXPECT_EQ(list(), L"");
    EXPECT_EQ(PutList(grid, L"#1*1;a\tb"), S_OK);
    EXPECT_EQ(list(), L"#1*1;a\tb");
    EXPECT_EQ(PutList(grid, L"#1*5;a\tb"), LORV_E_VALUE);
    EXPECT_EQ(PutList(grid, L"#1*-1;a"), LORV_E_VALUE);
    EXPECT_EQ(PutList(grid, L"|"), LORV_E_VALUE);
    EXPECT_EQ(list(), L"#1*1;a\tb");
    EXPECT_EQ(PutList(grid, L"..."), S_OK);
    EXPECT_EQ(PutList(grid, nullptr), S_OK);
    EXPECT_EQ(list(), L"");
    EXPECT_EQ(grid.ComboList, nullptr);
    EXPECT_EQ(grid.get_ComboList(nullptr), E_POINTER);
}

TEST_F(ComboMembers, AreNotReadInDesignMode)
{
    grid.DesignModeCache = 1;
    BSTR text = nullptr;
    LONG number = 0;
    EXPECT_EQ(grid.get_ComboList(&text), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_EditMask(&text), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_ComboIndex(&number), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_ComboCount(&number), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_ComboItem(missing, &text), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_ComboData(missing, &text), LORV_E_DESIGNMODE);
    EXPECT_EQ(grid.get_ColComboList(1, &text), S_OK);
    EXPECT_EQ(grid.get_ColEditMask(1, &text), S_OK);
}

TEST_F(ComboMembers, ListTakesAStaleWindowAway)
{
    Open(L"A|B");
    CommitEdit(grid, true);
    EXPECT_TRUE(grid.ComboWindow);
    SetList(L"C");
    EXPECT_EQ(grid.ComboWindow, nullptr);
    EXPECT_EQ(grid.EditorList.ComboCount, 0);
}

TEST_F(ComboMembers, ListLeavesTheOldItemsToAnEditUnderWay)
{
    Open(L"A|B");
    HWND window = grid.ComboWindow;
    SetList(L"C|D|E");
    EXPECT_EQ(grid.ComboWindow, window);
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Read([this](BSTR* text) { return grid.get_ComboList(text); }), L"C|D|E");
}

TEST_F(ComboMembers, ListRepaintsTheCurrentCellForItsButton)
{
    grid.ShowComboButton = lorvSBFocus;
    UpdateWindow(grid.Window);
    ValidateRect(grid.Window, nullptr);
    SetList(L"A");
    RECT update = {};
    EXPECT_TRUE(GetUpdateRect(grid.Window, &update, FALSE));
    EXPECT_GE(update.left, 49);
    grid.ShowComboButton = lorvSBEditing;
    ValidateRect(grid.Window, nullptr);
    SetList(L"B");
    EXPECT_FALSE(GetUpdateRect(grid.Window, &update, FALSE));
}

TEST_F(ComboMembers, ColListHasItsIndices)
{
    BSTR text = nullptr;
    EXPECT_EQ(grid.get_ColComboList(-1, &text), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColComboList(5, &text), LORV_E_INDEX);
    EXPECT_EQ(PutColList(grid, 5, L"A"), LORV_E_INDEX);
    EXPECT_EQ(PutColList(grid, -7, L"A|B"), S_OK);
    for (int col = 0; col < 5; ++col)
        EXPECT_STREQ(grid.ColTable[col].ColComboList, L"A|B");
}

TEST_F(ComboMembers, ColListIsRefusedWithTheOldOneKept)
{
    EXPECT_EQ(PutColList(grid, 1, L"#1;One"), S_OK);
    EXPECT_EQ(PutColList(grid, 1, L"#1*3;a"), LORV_E_VALUE);
    EXPECT_STREQ(grid.ColTable[1].ColComboList, L"#1;One");
    live.Put(1, 1, L"1");
    EXPECT_STREQ(GetDisplayText(grid, 1, 1), L"One");
    EXPECT_EQ(PutColList(grid, 1, L""), S_OK);
    EXPECT_STREQ(GetDisplayText(grid, 1, 1), L"1");
    EXPECT_EQ(grid.ColTable[1].ComboState.ComboCount, 0);
}

TEST_F(ComboMembers, ColListThatIsTheSameIsNotReadAgain)
{
    EXPECT_EQ(PutColList(grid, 1, L"#1;One|#2;Two"), S_OK);
    TheAllocationProbe().Count = 0;
    EXPECT_EQ(PutColList(grid, 1, L"#1;One|#2;Two"), S_OK);
    EXPECT_EQ(TheAllocationProbe().Count, 0);
    EXPECT_EQ(PutColList(grid, 1, L"#1;One|#3;Two"), S_OK);
    EXPECT_GT(TheAllocationProbe().Count, 0);
}

TEST_F(ComboMembers, ColListRepaintsTheCurrentCellWhenItChanges)
{
    UpdateWindow(grid.Window);
    ValidateRect(grid.Window, nullptr);
    PutColList(grid, 3, L"A");
    EXPECT_TRUE(GetUpdateRect(grid.Window, nullptr, FALSE));
    ValidateRect(grid.Window, nullptr);
    PutColList(grid, 3, L"A");
    EXPECT_FALSE(GetUpdateRect(grid.Window, nullptr, FALSE));
}

TEST_F(ComboMembers, ColListTranslatesWithoutRegardToCase)
{
    PutColList(grid, 1, L"#B;Bee|#c;Cat|Dog|#e*1;x");
    live.Put(1, 1, L"b");
    EXPECT_STREQ(GetDisplayText(grid, 1, 1), L"Bee");
    live.Put(1, 1, L"C");
    EXPECT_STREQ(GetDisplayText(grid, 1, 1), L"Cat");
    live.Put(1, 1, L"Dog");
    EXPECT_STREQ(GetDisplayText(grid, 1, 1), L"Dog");
    live.Put(1, 1, L"e*1"); // the star is special in the first item alone
    EXPECT_STREQ(GetDisplayText(grid, 1, 1), L"x");
    live.Put(1, 2, L"b");
    EXPECT_STREQ(GetDisplayText(grid, 1, 2), L"b");
}

TEST_F(ComboMembers, TheGridsListTranslatesNothing)
{
    SetList(L"#B;Bee");
    live.Put(1, 1, L"B");
    EXPECT_STREQ(GetDisplayText(grid, 1, 1), L"B");
}

TEST_F(ComboMembers, AnswerWithoutAWindow)
{
    LONG number = 0;
    EXPECT_EQ(ComboIndex(), -1);
    EXPECT_EQ(grid.put_ComboIndex(7), S_OK);
    EXPECT_EQ(grid.get_ComboCount(&number), S_OK);
    EXPECT_EQ(number, -1);
    EXPECT_EQ(Read([&](BSTR* text) { return grid.get_ComboItem(Value(0), text); }), L"");
    EXPECT_EQ(Read([&](BSTR* text) { return grid.get_ComboData(Value(0), text); }), L"");
}

TEST_F(ComboMembers, AnswerFromTheListOfTheEdit)
{
    Open(L"#1;One|Two|#3;Three");
    LONG number = 0;
    EXPECT_EQ(grid.get_ComboCount(&number), S_OK);
    EXPECT_EQ(number, 3);
    auto item = [this](const Value& index) {
        return Read([&](BSTR* text) { return grid.get_ComboItem(index, text); });
    };
    auto data = [this](const Value& index) {
        return Read([&](BSTR* text) { return grid.get_ComboData(index, text); });
    };
    EXPECT_EQ(item(0), L"One");
    EXPECT_EQ(item(L"2"), L"Three");
    EXPECT_EQ(item(1.0), L"Two");
    EXPECT_EQ(data(0), L"1");
    EXPECT_EQ(data(1), L"");
    EXPECT_EQ(data(2), L"3");
    EXPECT_EQ(data(-1), L"");
    EXPECT_EQ(data(missing), L""); // no current item

    BSTR text = nullptr;
    EXPECT_EQ(grid.get_ComboItem(Value(3), &text), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ComboItem(Value(-1), &text), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ComboItem(missing, &text), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ComboData(Value(3), &text), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ComboData(Value(-2), &text), LORV_E_INDEX);

    EXPECT_EQ(grid.put_ComboIndex(2), S_OK);
    EXPECT_EQ(ComboIndex(), 2);
    EXPECT_EQ(item(missing), L"Three");
    EXPECT_EQ(item(L"no number"), L"Three");
    EXPECT_EQ(data(missing), L"3");
    EXPECT_EQ(grid.put_ComboIndex(3), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ComboIndex(-1), LORV_E_INDEX);
    EXPECT_EQ(ComboIndex(), 2);

    CommitEdit(grid);
    EXPECT_EQ(item(missing), L"Three");
    EXPECT_EQ(ComboIndex(), 2);
}

TEST_F(ComboMembers, IndexIsShownInAnOpenList)
{
    Open(L"One|Two", EditPlain);
    EXPECT_EQ(grid.put_ComboIndex(1), S_OK);
    EXPECT_TRUE(IsDropped());
    EXPECT_EQ(ComboIndex(), 1);
    EXPECT_EQ(live.Fired(), "ComboCloseUp(1,1) ComboDropDown(1,1)");
}

TEST_F(ComboMembers, ItemsHoldBarsForVerticalTabs)
{
    Open(L"a\vb|c");
    EXPECT_EQ(Read([&](BSTR* text) { return grid.get_ComboItem(Value(0), text); }), L"a|b");
}

TEST_F(ComboMembers, MaskIsStored)
{
    auto mask = [this] { return Read([this](BSTR* text) { return grid.get_EditMask(text); }); };
    EXPECT_EQ(mask(), L"");
    SetMask(L"CC-00");
    EXPECT_EQ(mask(), L"CC-00");
    EXPECT_EQ(grid.put_EditMask(nullptr), S_OK);
    EXPECT_EQ(mask(), L"");
    EXPECT_EQ(grid.EditMask, nullptr);
}

TEST_F(ComboMembers, MaskChangesAtItsFirstUse)
{
    SetMask(L"CC-C");
    live.Open();
    EXPECT_EQ(Read([this](BSTR* text) { return grid.get_EditMask(text); }), L"&&-&");
    CommitEdit(grid, true);
    SetMask(L"");
    EXPECT_EQ(grid.put_ColEditMask(1, Bstr(L"C").Get()), S_OK);
    live.Open();
    EXPECT_EQ(Read([this](BSTR* text) { return grid.get_ColEditMask(1, text); }), L"&");
}

TEST_F(ComboMembers, ColMaskHasItsIndices)
{
    BSTR text = nullptr;
    EXPECT_EQ(grid.get_ColEditMask(-1, &text), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColEditMask(5, &text), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColEditMask(5, Bstr(L"0").Get()), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColEditMask(-1, Bstr(L"0").Get()), S_OK);
    for (int col = 0; col < 5; ++col)
        EXPECT_EQ(Read([&](BSTR* mask) { return grid.get_ColEditMask(col, mask); }), L"0");
}

TEST_F(ComboMembers, NewMaskChangesAnOpenEditTwice)
{
    live.Put(1, 1, L"ab");
    live.Open();
    live.Fired();
    SetMask(L">LLL");
    EXPECT_EQ(live.Fired(), "ChangeEdit ChangeEdit");
    EXPECT_EQ(live.Shown(), L"AB_");
    SetMask(L"");
    EXPECT_EQ(live.Fired(), "ChangeEdit");
    EXPECT_EQ(live.Shown(), L"AB_");
    grid.put_ColEditMask(1, Bstr(L"00").Get());
    EXPECT_EQ(live.Fired(), "");
    EXPECT_EQ(live.Shown(), L"AB_");
}

TEST_F(ComboMembers, AListMovesWithItsColumn)
{
    ASSERT_EQ(PutColList(grid, 2, L"#1;One|#2;Two"), S_OK);
    live.Put(1, 2, L"1");
    EXPECT_STREQ(GetDisplayText(grid, 1, 2), L"One");
    for (auto [from, to] : {std::pair{2, 4}, std::pair{4, 1}}) {
        ASSERT_EQ(grid.put_ColPosition(from, to), S_OK);
        for (int col = 0; col < grid.Cols; ++col)
            EXPECT_EQ(grid.ColTable[col].ComboState.ComboCount, col == to ? 2 : 0) << col;
        EXPECT_STREQ(GetDisplayText(grid, 1, to), L"One");
    }
}

TEST_F(ComboMembers, ClearTakesTheListOfTheEditorAndItsWindowAway)
{
    Open(L"A|B");
    EXPECT_EQ(grid.Clear(missing, Value(lorvClearFormatting)), S_OK);
    EXPECT_EQ(grid.ComboWindow, nullptr);
    EXPECT_EQ(grid.EditorList.ComboCount, 0);
}
