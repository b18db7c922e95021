// Masks over real edit boxes.

#include "edit/mask.h"

#include "core/value_format.h"
#include "support/mask_rows.h"

#include <gtest/gtest.h>

namespace
{
bool HasEnglishSeparators()
{
    const LocaleInfo& locale = TheLocale();
    return locale.ThousandChar == L',' && locale.DecimalChar == L'.' && locale.DateChar == L'/' &&
           locale.TimeChar == L':';
}

class MaskedBox : public testing::TestWithParam<DWORD>
{
protected:
    HWND box_ = nullptr;

    void SetUp() override
    {
        box_ = CreateWindowExW(0, L"EDIT", L"", WS_POPUP | GetParam(), 0, 0, 200, 20, nullptr, nullptr,
                               nullptr, nullptr);
        ASSERT_TRUE(box_);
    }
    void TearDown() override
    {
        CompileMask(nullptr);
        DestroyWindow(box_);
    }

    static int Compile(const std::string& mask)
    {
        std::wstring source(mask.begin(), mask.end());
        return CompileMask(source.data());
    }
    void SetText(const std::wstring& text) { SetWindowTextW(box_, text.c_str()); }
    std::wstring Text() const
    {
        wchar_t text[2000];
        return {text, static_cast<size_t>(GetWindowTextW(box_, text, 2000))};
    }
    std::string Show(bool accepted) const
    {
        DWORD start = 0, end = 0;
        SendMessageW(box_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, end);
        std::wstring wide = Text();
        std::string text(wide.begin(), wide.end());
        text.insert(start, 1, '^');
        return accepted ? text : text + '!';
    }
    std::string Type(char key)
    {
        static constexpr struct {
            char Key;
            WPARAM Code;
        } moves[] = {{Left, VK_LEFT}, {Right, VK_RIGHT}, {Home, VK_HOME}, {End, VK_END}};
        for (const auto& move : moves) {
            if (move.Key == key) {
                SendMessageW(box_, WM_KEYDOWN, move.Code, 0);
                return Show(true);
            }
        }
        SendMessageW(box_, WM_CHAR, static_cast<WPARAM>(key), 0);
        return Show(ApplyMask(box_, key == Backspace, true));
    }
};

TEST_P(MaskedBox, ShapesWhatIsTyped)
{
    if (!HasEnglishSeparators())
        GTEST_SKIP() << "the rows are those of English separators";
    for (const MaskRow& row : maskRows) {
        Compile(row.Mask);
        std::string start = row.Start;
        SetText({start.begin(), start.end()});
        std::string shown = Show(ApplyMask(box_, false, false));
        for (const char* key = row.Keys; *key; ++key)
            shown += "|" + Type(*key);
        EXPECT_EQ(shown, row.Shown) << row.Mask;
        ApplyMask(box_, false, false);
        std::wstring stored = MaskIsIncomplete(box_) ? L"refused" : Text();
        EXPECT_EQ(std::string(stored.begin(), stored.end()), row.Stored) << row.Mask;
    }
}

TEST_P(MaskedBox, FillsTheWindowOnlyWhenTheMaskIsComplete)
{
    Compile("90");
    SetText(L"_1");
    ApplyMask(box_, false, false);
    EXPECT_FALSE(MaskIsIncomplete(box_));
    EXPECT_EQ(Text(), L" 1");
    SetText(L"__");
    ApplyMask(box_, false, false);
    EXPECT_TRUE(MaskIsIncomplete(box_));
    EXPECT_EQ(Text(), L"__");
}

TEST_P(MaskedBox, ReadsTheTextThatItLastApplied)
{
    Compile("0");
    SetText(L"1");
    ApplyMask(box_, false, false);
    SetText(L"_");
    EXPECT_FALSE(MaskIsIncomplete(box_));
}

TEST_P(MaskedBox, UpperCasesLettersOfEveryAlphabet)
{
    Compile(">&&&");
    SetText(L"\x00E4\x0434z");
    ApplyMask(box_, false, false);
    EXPECT_EQ(Text(), L"\x00C4\x0414Z");
}

TEST_P(MaskedBox, CutsATextOfAnyLength)
{
    Compile("&&&");
    SetText(std::wstring(1500, L'x'));
    EXPECT_FALSE(ApplyMask(box_, false, false));
    EXPECT_EQ(Text(), L"xxx");
}

INSTANTIATE_TEST_SUITE_P(Lines, MaskedBox,
                         testing::Values<DWORD>(ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL,
                                                ES_AUTOHSCROLL));
} // namespace

TEST(Mask, IsActiveWithAPosition)
{
    wchar_t mask[] = L"C0", tail[] = L";*";
    EXPECT_EQ(CompileMask(mask), 2);
    EXPECT_STREQ(mask, L"&0");
    EXPECT_TRUE(IsMaskActive());
    EXPECT_EQ(MaskFirstInput(), 0);
    EXPECT_EQ(CompileMask(tail), 0);
    EXPECT_FALSE(IsMaskActive());
    EXPECT_EQ(CompileMask(nullptr), 0);
    EXPECT_FALSE(IsMaskActive());
}

// Locale: separators of the user's.
TEST(MaskLocale, CompilesTheSeparatorsOfTheUser)
{
    wchar_t mask[] = L"0/0:0,0.0";
    HWND box = CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    CompileMask(mask);
    ApplyMask(box, false, false);
    wchar_t text[20] = {};
    GetWindowTextW(box, text, 20);
    const LocaleInfo& locale = TheLocale();
    const wchar_t expected[] = {L'_', locale.DateChar,
                                L'_', locale.TimeChar,
                                L'_', locale.ThousandChar,
                                L'_', locale.DecimalChar,
                                L'_', 0};
    EXPECT_STREQ(text, expected);
    DestroyWindow(box);
    CompileMask(nullptr);
}
