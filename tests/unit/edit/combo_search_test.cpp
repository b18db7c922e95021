// Searching as the user types in a drop-down.

#include "support/combo_grid.h"

namespace
{
class ComboSearch : public ComboTest
{
protected:
    // The item, and in a box the text with the completed part in brackets: "2 Th[ree]".
    std::string Where() const
    {
        std::string where = std::to_string(Current());
        if (!grid.ComboEditBox)
            return where;
        std::wstring wide = live.Shown();
        std::string text(wide.begin(), wide.end());
        auto bounds = static_cast<DWORD>(Send(CB_GETEDITSEL));
        if (LOWORD(bounds) < HIWORD(bounds))
            text.insert(HIWORD(bounds), "]").insert(LOWORD(bounds), "[");
        return where + " " + text;
    }
    // Where each key of a text leads.
    std::string Typed(const wchar_t* keys)
    {
        std::string where;
        for (; *keys; ++keys) {
            const wchar_t key[] = {*keys, 0};
            live.Type(key);
            where += (where.empty() ? "" : "|") + Where();
        }
        return where;
    }
};
} // namespace

TEST_F(ComboSearch, ALetterGoesToTheItemThatBeginsWithIt)
{
    Open(L"Ant|Bee|Cat");
    EXPECT_EQ(Typed(L"c"), "2");
    EXPECT_TRUE(IsChangePending());
    EXPECT_EQ(live.Fired(), "KeyPressEdit(99)");
}

TEST_F(ComboSearch, LettersAreCollected)
{
    Open(L"Ant|Ape|Arm|Bee");
    EXPECT_EQ(Typed(L"arm"), "0|2|2");
    live.Type(L"\x1B");
    EXPECT_EQ(Typed(L"ap"), "2|1"); // the current item is tried first
}

TEST_F(ComboSearch, ALetterTypedAgainStepsThroughItsItems)
{
    Open(L"Ant|Bee|Bat|Bug|Cat");
    EXPECT_EQ(Typed(L"bbbb"), "1|2|3|1");
}

TEST_F(ComboSearch, LettersThatFindNothingStartAnewWithTheLast)
{
    Open(L"Ant|Bee|Cat");
    EXPECT_EQ(Typed(L"bc"), "1|2");
    EXPECT_EQ(Typed(L"x"), "2");
}

TEST_F(ComboSearch, LettersAreForgottenAfterTheDelay)
{
    grid.AutoSearchDelay = -1.0f; // every key comes too late
    Open(L"Ant|Ape|Pig");
    EXPECT_EQ(Typed(L"ap"), "0|2");
    grid.AutoSearchDelay = 3600.0f;
    live.Type(L"\x1B");
    EXPECT_EQ(Typed(L"ap"), "0|1");
}

TEST_F(ComboSearch, AControlCharacterForgetsTheLetters)
{
    grid.AutoSearchDelay = 3600.0f;
    Open(L"Ant|Ape|Pig");
    EXPECT_EQ(Typed(L"a"), "0");
    live.Type(L"\b");
    EXPECT_EQ(Typed(L"p"), "2");
}

TEST_F(ComboSearch, ANewEditForgetsTheLetters)
{
    grid.AutoSearchDelay = 3600.0f;
    Open(L"Ant|Ape|Pig");
    EXPECT_EQ(Typed(L"a"), "0");
    CommitEdit(grid, true);
    Open(L"Ant|Ape|Pig");
    EXPECT_EQ(Typed(L"p"), "2");
}

TEST_F(ComboSearch, StayingOnTheItemIsNoChange)
{
    live.Put(1, 1, L"Bee");
    Open(L"Ant|Bee|Cat");
    EXPECT_EQ(Typed(L"b"), "1");
    EXPECT_FALSE(IsChangePending());
}

TEST_F(ComboSearch, TakesMoreLettersThanItKeeps)
{
    grid.AutoSearchDelay = 3600.0f;
    std::wstring item(600, L'a');
    Open((item + L"|b").c_str());
    live.Type(std::wstring(700, L'a').c_str());
    EXPECT_EQ(Where(), "0");
}

TEST_F(ComboSearch, CompletesFreeText)
{
    Open(L"|One|Two|Three");
    EXPECT_EQ(Typed(L"thx"), "1 T[wo]|2 Th[ree]|-1 Thx");
}

TEST_F(ComboSearch, CompletesWithTheCaseOfTheItem)
{
    Open(L"|iPhone|Ink");
    EXPECT_EQ(Typed(L"IN"), "0 i[Phone]|1 In[k]");
}

TEST_F(ComboSearch, ABackspaceTakesTheCompletionAway)
{
    Open(L"|One|Two");
    EXPECT_EQ(Typed(L"o"), "0 O[ne]");
    live.Type(L"\b");
    EXPECT_EQ(live.Shown(), L"O");
}

TEST_F(ComboSearch, IsWhatItsSettingSays)
{
    constexpr struct {
        int Setting;
        const char* List;
        const char* Box;
    } rows[] = {
        {lorvCmbSearchNone, "", "x"},
        {lorvCmbSearchLists, "1", "x"},
        {lorvCmbSearchCombos, "", "0 T[wo]"},
        {lorvCmbSearchAll, "1", "0 T[wo]"},
    };
    for (const auto& row : rows) {
        grid.ComboSearch = row.Setting;
        Open(L"Bee|Tee|Two");
        std::string list = Typed(L"t");
        // Where the grid does not search, the system's own list may.
        EXPECT_EQ(IsChangePending(), *row.List != 0) << row.Setting;
        if (*row.List)
            EXPECT_EQ(list, row.List) << row.Setting;
        CommitEdit(grid, true);
        grid.EditorList.ComboBits &= static_cast<uint8_t>(~ComboChangePending);
        Open(L"|Two|Three");
        std::string box = Typed(L"t");
        EXPECT_EQ(box.find('[') != std::string::npos, *row.Box != 'x') << row.Setting << box;
        if (*row.Box != 'x')
            EXPECT_EQ(box, row.Box) << row.Setting;
        CommitEdit(grid, true);
        grid.EditorList.ComboBits &= static_cast<uint8_t>(~ComboChangePending);
    }
}
