#include "edit/mask_text.h"

#include "support/mask_rows.h"

#include <gtest/gtest.h>

#include <cwctype>

namespace
{
bool NoLeadByte(unsigned char)
{
    return false;
}
bool JapaneseLeadByte(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
bool IsLetter(wchar_t c)
{
    return std::iswalpha(c) != 0;
}
wchar_t Upper(wchar_t c)
{
    return static_cast<wchar_t>(std::towupper(c));
}
wchar_t Lower(wchar_t c)
{
    return static_cast<wchar_t>(std::towlower(c));
}

constexpr MaskPlatform english = {NoLeadByte, IsLetter, Upper, Lower, L',', L'.', L'/', L':'};
constexpr MaskPlatform german = {NoLeadByte, IsLetter, Upper, Lower, L'.', L',', L'.', L':'};
constexpr MaskPlatform japanese = {JapaneseLeadByte, IsLetter, Upper, Lower, L',', L'.', L'/', L':'};

// The text under a mask after one pass.
std::wstring Masked(const MaskPlatform& platform, std::wstring mask, const std::wstring& text,
                    MaskPass pass = {0, false, false})
{
    MaskState state = {};
    CompileMask(state, platform, mask.data());
    text.copy(state.MaskText, MaskCapacity - 1);
    ApplyMask(state, platform, pass);
    return state.MaskText;
}

bool IsRefused(std::wstring mask, const std::wstring& text)
{
    MaskState state = {};
    CompileMask(state, english, mask.data());
    text.copy(state.MaskText, MaskCapacity - 1);
    MaskPass pass = {0, false, false};
    return !ApplyMask(state, english, pass);
}

std::wstring Compiled(std::wstring mask, const MaskPlatform& platform = english)
{
    MaskState state = {};
    int positions = CompileMask(state, platform, mask.data());
    EXPECT_EQ(positions, static_cast<int>(std::wcslen(state.CompiledMask)));
    return state.CompiledMask;
}
} // namespace

TEST(MaskText, ShapesWhatIsTyped)
{
    for (const MaskRow& row : maskRows) {
        std::string stored;
        EXPECT_EQ(ShownWhileTyping(english, row.Mask, row.Start, row.Keys, stored), row.Shown) << row.Mask;
        EXPECT_EQ(stored, row.Stored) << row.Mask << " " << row.Shown;
    }
}

TEST(MaskText, CompilesPlaceholdersToTheirPlaceInTheSet)
{
    EXPECT_EQ(Compiled(L"09#L?Aa&"), L"\x1\x2\x3\x4\x5\x6\x7\x8");
    EXPECT_EQ(Compiled(L"(l) \t"), L"(l) \t");
}

TEST(MaskText, CompilesSeparatorsOfTheLocale)
{
    EXPECT_EQ(Compiled(L",./:"), L",./:");
    EXPECT_EQ(Compiled(L",./:", german), L".,.:");
    EXPECT_EQ(Masked(german, L"00/00/00", L""), L"__.__.__");
    // A locale that has none for it.
    MaskPlatform none = english;
    none.ThousandChar = 0;
    EXPECT_EQ(Compiled(L"0,0", none), L"\x1,\x1");
}

TEST(MaskText, RewritesTheMaskThatItReads)
{
    EXPECT_EQ(MaskSession(english, "CcC-C").Source, "&c&-&");
    EXPECT_EQ(MaskSession(english, "\\C0").Source, "\\C0");
    EXPECT_EQ(MaskSession(english, "0;C").Source, "0;C");
}

TEST(MaskText, TakesTheLastCharacterOfTheTailForThePlaceholder)
{
    constexpr struct {
        const char* Mask;
        wchar_t Placeholder;
        bool Beep;
        int Positions;
    } rows[] = {
        {"00", L'_', true, 2},     {"00;", L'_', true, 2},   {"00;*", L'*', true, 2},
        {"00;Q", L'Q', false, 2},  {"00;q", L'q', false, 2}, {"00;*Q", L'Q', false, 2},
        {"00;Q*", L'*', false, 2}, {"00;*;", L';', true, 2}, {"00;0>L", L'L', true, 2},
        {";*", L'*', true, 0},     {";Q00", L'0', false, 0}, {"0\\;0", L'_', true, 3},
    };
    for (const auto& row : rows) {
        MaskSession session(english, row.Mask);
        EXPECT_EQ(session.State().MaskPlaceholder, row.Placeholder) << row.Mask;
        EXPECT_EQ(session.State().MaskBeep, row.Beep) << row.Mask;
        EXPECT_EQ(session.Positions, row.Positions) << row.Mask;
    }
}

TEST(MaskText, TakesTheLastCaseSignWhereverItStands)
{
    EXPECT_EQ(MaskSession(english, "LL<L").State().MaskCaseMode, L'<');
    EXPECT_EQ(MaskSession(english, "<L>").State().MaskCaseMode, L'>');
    EXPECT_EQ(MaskSession(english, "L\\>").State().MaskCaseMode, L'\0');
    // Literals keep their case, whatever is typed there.
    EXPECT_EQ(Masked(english, L">&-&", L"a-b"), L"A-B");
    EXPECT_EQ(Masked(english, L">x&", L"xa"), L"xA");
}

TEST(MaskText, EndsAtABackslashThatEndsTheMask)
{
    EXPECT_EQ(Compiled(L"0\\"), L"\x1");
}

TEST(MaskText, StartsAnewWithEachMask)
{
    MaskState state = {};
    std::wstring first = L">00;Q";
    CompileMask(state, english, first.data());
    EXPECT_EQ(CompileMask(state, english, nullptr), 0);
    EXPECT_EQ(state.CompiledMask[0], 0);
    EXPECT_EQ(state.CompiledMask[1], 0);
    EXPECT_EQ(state.MaskCaseMode, 0);
    EXPECT_TRUE(state.MaskBeep);
    EXPECT_EQ(state.MaskPlaceholder, L'_');
}

TEST(MaskText, CompilesAThousandAndTwentyThreePositions)
{
    EXPECT_EQ(Compiled(std::wstring(2000, L'0')).size(), 1023u);
    std::wstring shown = Masked(english, std::wstring(2000, L'0'), std::wstring(1023, L'7'));
    EXPECT_EQ(shown, std::wstring(1023, L'7'));
    EXPECT_EQ(Masked(english, std::wstring(1500, L'-'), L"").size(), 1023u);
}

TEST(MaskText, CutsWhatIsLongerThanTheMask)
{
    EXPECT_EQ(Masked(english, L"00", L"1234"), L"12");
    EXPECT_TRUE(IsRefused(L"00", L"1234"));
    EXPECT_FALSE(IsRefused(L"00", L"12"));
    EXPECT_FALSE(IsRefused(L"00", L"1"));
}

TEST(MaskText, TellsDigitsByTheLowByte)
{
    EXPECT_EQ(Masked(english, L"00", L"\x0130\x0139"), L"\x0130\x0139");
    EXPECT_EQ(Masked(english, L"00", L"\x0141\x0661"), L"__");
}

TEST(MaskText, TellsLettersByTheWholeCharacter)
{
    EXPECT_EQ(Masked(english, L"LL", L"\x00C4\x0414"), L"\x00C4\x0414");
    EXPECT_EQ(Masked(english, L"LL", L"\x20AC_"), L"__");
}

TEST(MaskText, ShowsCharactersWithALowByteBelowNineAsPlaceholders)
{
    EXPECT_EQ(Masked(english, L"&&&", L"\x0100\x0108\x0109"), L"__\x0109");
    EXPECT_EQ(Masked(english, L"",
                     L"a\x0101"
                     L"b"),
              L"a_b");
}

TEST(MaskText, DeletesACharacterUnderAnEmptyMaskToo)
{
    EXPECT_EQ(Masked(english, L"", L"abc", {1, false, true}), L"ac");
    EXPECT_EQ(Masked(english, L"", L"abc", {3, false, true}), L"abc");
    EXPECT_EQ(Masked(english, L"", L"abc", {1, false, false}), L"abc");
}

TEST(MaskText, KeepsTheCaretBeforeLiteralsAfterABackspace)
{
    std::wstring mask = L"00-00";
    MaskState state = {};
    CompileMask(state, english, mask.data());
    std::wstring(L"12-34").copy(state.MaskText, 5);
    MaskPass pass = {2, true, false};
    ApplyMask(state, english, pass);
    EXPECT_EQ(pass.Caret, 2);
    pass.Backspace = false;
    ApplyMask(state, english, pass);
    EXPECT_EQ(pass.Caret, 3);
}

TEST(MaskText, LeavesTheCaretBeforeALiteralThatIsLast)
{
    std::wstring mask = L"0--";
    MaskState state = {};
    CompileMask(state, english, mask.data());
    MaskPass pass = {1, false, false};
    ApplyMask(state, english, pass);
    EXPECT_EQ(pass.Caret, 2);
}

TEST(MaskText, AlignsANumberOnlyBehindPlaceholders)
{
    // Half of the digits arrive: what is moved is counted in bytes.
    EXPECT_EQ(Masked(english, L"#####.#", L"1234._.", {5, false, false}), L"0124.._");
    // A literal in front.
    EXPECT_EQ(Masked(english, L"$###.#", L"$1.__.", {3, false, false}), L"$1__._");
    // The point is not what was typed last.
    EXPECT_EQ(Masked(english, L"###.#", L"1._._", {4, false, false}), L"1__._");
}

TEST(MaskText, AlignsATextThatEndsBeforeThePoint)
{
    EXPECT_EQ(Masked(english, L"####.##", L"1.", {2, false, false}), L"0001.__");
}

TEST(MaskText, JumpsToALiteralOnlyInATextSetAsAWhole)
{
    EXPECT_EQ(Masked(english, L"##/##", L"1/2"), L"1_/2_");
    EXPECT_EQ(Masked(english, L"##/##", L"1/2", {3, false, false}), L"1_/__");
    // An "x" typed over "12" takes the caret back to the start, but it was typed.
    EXPECT_EQ(Masked(english, L"##/##", L"x/34", {1, false, true}), L"__/4_");
}

TEST(MaskText, JumpsWithHalfTheTextOfALongOne)
{
    // Ten characters and the terminator are eleven bytes: five characters and the low byte of the next.
    EXPECT_EQ(Masked(english, L"##/##/####", L"1/2/200345"), L"1_/2_/2004");
}

TEST(MaskText, JumpsNoFurtherThanItsRoom)
{
    std::wstring mask = std::wstring(1000, L'#') + L"/" + std::wstring(100, L'#');
    std::wstring text = L"1/" + std::wstring(1020, L'2');
    std::wstring shown = Masked(english, mask, text);
    EXPECT_EQ(shown.size(), 1023u);
    EXPECT_EQ(shown.substr(0, 3), L"1__");
    EXPECT_EQ(shown[1000], L'/');
    EXPECT_EQ(shown[1022], L'2');
}

TEST(MaskText, TellsWhatIsUnfilled)
{
    constexpr struct {
        const char* Mask;
        const char* Text;
        const char* Stored;
    } rows[] = {
        {"0", "_", "refused"}, {"9", "_", " "},       {"#", "_", " "},         {"L", "_", "refused"},
        {"?", "_", " "},       {"A", "_", "refused"}, {"a", "_", " "},         {"&", "_", " "},
        {"9-9", "_-_", " - "}, {"90", "_1", " 1"},    {"90", "1_", "refused"}, {"_9", "__", "_ "},
        {"_0", "_1", "_1"},    {"9;*", "*", " "},     {"0;*", "_", "refused"}, {"", "a_", "a_"},
    };
    for (const auto& row : rows) {
        MaskSession session(english, row.Mask);
        session.Open(row.Text);
        EXPECT_EQ(session.Commit(), row.Stored) << row.Mask;
    }
}

TEST(MaskText, LeavesATextThatIsIncompleteAsItIs)
{
    std::wstring mask = L"000";
    MaskState state = {};
    CompileMask(state, english, mask.data());
    std::wstring(L"12_").copy(state.MaskText, 3);
    EXPECT_EQ(FillMaskGaps(state, english), MaskGaps::Incomplete);
    EXPECT_STREQ(state.MaskText, L"12_");
}

TEST(MaskText, TellsWhenNothingWasFilled)
{
    MaskSession session(english, "99");
    session.Open("12");
    MaskState state = session.State();
    EXPECT_EQ(FillMaskGaps(state, english), MaskGaps::None);
    session.Open("1");
    state = session.State();
    EXPECT_EQ(FillMaskGaps(state, english), MaskGaps::Filled);
    EXPECT_STREQ(state.MaskText, L"1 ");
}

TEST(MaskText, FindsTheFirstInputPosition)
{
    constexpr struct {
        const char* Mask;
        int First;
    } rows[] = {{"", 0}, {"00", 0}, {"(##", 1}, {"+1 (##", 4}, {"--", 2}, {">L", 0}, {"\\0\\9x#", 3}};
    for (const auto& row : rows)
        EXPECT_EQ(MaskFirstInput(MaskSession(english, row.Mask).State()), row.First) << row.Mask;
}

// Where the code page has double bytes, a character with the low byte of a first half takes two positions.
TEST(MaskText, GivesDoubleBytesTwoPositions)
{
    EXPECT_EQ(Compiled(L"\x0083"
                       L"A0",
                       japanese),
              L"\x0083"
              L"A\x1");
    EXPECT_EQ(Compiled(L"\x0083", japanese), L"\x0083");
    EXPECT_EQ(Masked(japanese, L"&&0",
                     L"\x0083\x0041"
                     L"1"),
              L"\x0083\x0041"
              L"1");
    // Neither a digit nor a letter, nor where the other half has no room.
    EXPECT_EQ(Masked(japanese, L"LL", L"\x00E9\x0041"), L"__");
    EXPECT_EQ(Masked(japanese, L"&0",
                     L"\x0083"
                     L"1"),
              L"__");
    EXPECT_EQ(Masked(japanese, L"0&", L"1\x0083"), L"1_");
}
