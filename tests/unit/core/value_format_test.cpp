#include "core/value_format.h"

#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/date_picture.h"
#include "core/number_picture.h"
#include "core/number_text.h"
#include "core/row_col.h"
#include "locale_samples.h"
#include "platform/memory.h"
#include "platform/variant.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

// These run on machines of any locale: texts with separators are written by the locale, and what the platform
// formats is compared with the platform's own answer.

namespace
{

std::wstring Number(const wchar_t* whole, const wchar_t* decimals = nullptr)
{
    std::wstring text = whole;
    if (decimals)
        text += TheLocale().DecimalChar + std::wstring(decimals);
    return text;
}

std::wstring SystemDate(const wchar_t* format, double date)
{
    const wchar_t* text = FormatDate(format, date);
    return text ? text : L"(null)";
}

CURRENCYFMTW Description(LocaleInfo& locale, UINT digits, UINT grouping)
{
    CURRENCYFMTW description = {};
    description.NumDigits = digits;
    description.LeadingZero = 1;
    description.Grouping = grouping;
    description.lpDecimalSep = locale.DecimalText;
    description.lpThousandSep = locale.ThousandText;
    description.NegativeOrder = locale.NegativeNumberOrder ? locale.NegativeNumberOrder : 1;
    description.lpCurrencySymbol = locale.CurrencyAffix;
    return description;
}

std::wstring PlatformText(const wchar_t* number, const CURRENCYFMTW* description)
{
    wchar_t text[256];
    return GetCurrencyFormatW(LOCALE_USER_DEFAULT, 0, number, description, text, 256) ? text : L"(failed)";
}

std::string Formatted(const wchar_t* format, const std::wstring& text)
{
    return Show(FormatText(format, text.c_str()));
}

class GridTexts : public testing::Test
{
protected:
    GridTexts()
    {
        ResizeBoth(grid, 4, 3);
        SetFixedCounts(grid, 1, 0, 0, 0);
    }
    std::string Shown(int row, int col) { return Show(GetDisplayText(grid, row, col)); }

    Grid grid;
};

TEST(LocaleBlock, HoldsWhatThePlatformSays)
{
    const LocaleInfo& locale = TheLocale();
    const auto text = [](LCTYPE type) {
        wchar_t buffer[64] = L"";
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer, 64);
        return std::wstring(buffer);
    };
    EXPECT_EQ(locale.DecimalChar, text(LOCALE_SDECIMAL)[0]);
    EXPECT_EQ(locale.ThousandChar, text(LOCALE_STHOUSAND)[0]);
    EXPECT_EQ(locale.DateChar, text(LOCALE_SDATE)[0]);
    EXPECT_EQ(locale.TimeChar, text(LOCALE_STIME)[0]);
    EXPECT_EQ(locale.CurrencyText, text(LOCALE_SCURRENCY));
    EXPECT_EQ(locale.CurrencyLength, static_cast<int>(text(LOCALE_SCURRENCY).size()));
    const int order = _wtoi(text(LOCALE_ICURRENCY).c_str());
    EXPECT_EQ(locale.CurrencyOrder, order);
    EXPECT_EQ(locale.SymbolAfter, order == 1 || order == 3);
    const std::wstring affix = (order == 3 ? L" " : L"") + text(LOCALE_SCURRENCY) + (order == 2 ? L" " : L"");
    EXPECT_EQ(locale.CurrencyAffix, affix);
    EXPECT_EQ(locale.CurrencyAffixLength, static_cast<int>(affix.size()));
    const int negative = _wtoi(text(LOCALE_INEGCURR).c_str());
    EXPECT_EQ(locale.NegParens, negative == 0 || negative == 4 || negative == 14 || negative == 15);
    EXPECT_EQ(locale.NegativeNumberOrder, _wtoi(text(LOCALE_INEGNUMBER).c_str()));
    EXPECT_EQ(locale.DigitGrouping, _wtoi(text(LOCALE_SGROUPING).c_str()));
    EXPECT_TRUE(locale.PlatformIsNT);
}

TEST(LocaleFormatText, GroupedNumbersGoThroughThePlatform)
{
    LocaleInfo locale = TheLocale();
    locale.CurrencyAffix[0] = 0;
    const CURRENCYFMTW whole = Description(locale, 0, locale.DigitGrouping);
    EXPECT_EQ(Formatted(L"#,##0", Number(L"1234", L"5")), Show(PlatformText(L"1234.5", &whole).c_str()));
    const CURRENCYFMTW decimals = Description(locale, 2, 0);
    EXPECT_EQ(Formatted(L"0.00", Number(L"1234567", L"5")),
              Show(PlatformText(L"1234567.5", &decimals).c_str()));
    EXPECT_EQ(Formatted(L"0.00", Number(L"-1234", L"5")), Show(PlatformText(L"-1234.5", &decimals).c_str()));
}

TEST(LocaleFormatText, ADollarPutsTheLocalesSymbol)
{
    LocaleInfo locale = TheLocale();
    CURRENCYFMTW description = Description(locale, 2, locale.DigitGrouping);
    description.PositiveOrder = static_cast<UINT>(locale.CurrencyOrder);
    EXPECT_EQ(Formatted(L"$#,##0.00", Number(L"1234", L"5")),
              Show(PlatformText(L"1234.5", &description).c_str()));
    description.NegativeOrder = 0;
    EXPECT_EQ(Formatted(L"($#,##0.00)", Number(L"-1234", L"5")),
              Show(PlatformText(L"-1234.5", &description).c_str()));
}

TEST(LocaleFormatText, CurrencyIsThePlatformsOwnFormat)
{
    const std::string expected = Show(PlatformText(L"1234.5", nullptr).c_str());
    EXPECT_EQ(Formatted(L"Currency", Number(L"1234", L"5")), expected);
    EXPECT_EQ(Formatted(L"currency", Number(L"1234", L"5")), expected);
    EXPECT_EQ(Formatted(L"my CURRENCY please", Number(L"1234", L"5")), expected);
    EXPECT_EQ(Formatted(L"Currency", L"abc"), "abc");
}

TEST(LocaleFormatText, ANumberThatThePlatformRefusesIsRewrittenForIt)
{
    EXPECT_EQ(Formatted(L"Currency", L"5e2"), Show(PlatformText(L"500.000000", nullptr).c_str()));
    EXPECT_EQ(Formatted(L"Currency", L"(5)"), Show(PlatformText(L"-5.000000", nullptr).c_str()));
}

TEST(LocaleFormatText, WhatTheGridFormatsReadsBack)
{
    // The grid shows a number, and takes what it showed for the same number.
    for (const wchar_t* format : {L"000.00", L"#,##0.00%", L"00.0", L"0,000.00"}) {
        const std::wstring shown = FormatText(format, Number(L"-1234", L"5").c_str());
        EXPECT_TRUE(IsNumericText(shown.c_str())) << Show(shown.c_str());
        EXPECT_DOUBLE_EQ(ParseNumberText(TheLocale(), shown.c_str()), -1234.5) << Show(shown.c_str());
    }
}

TEST(LocaleFormatText, TheFallbackFormatsWithTheLocalesSeparators)
{
    struct {
        const wchar_t* Format;
        std::wstring Text;
        double Value;
    } const rows[] = {
        {L"0.00%", Number(L"0", L"5"), 0.5},
        {L"#,##0,.0", L"1234567", 1234567.0},
        {L"000", L"7", 7.0},
        {L"000.0", Number(L"7", L"25"), 7.25},
        {L"$00.00", L"-5", -5.0},
        {L"($00.00)", L"-5", -5.0},
        {L"#,##0.00%", Number(L"-12", L"5"), -12.5},
        {L"#.0%", Number(L"0", L"001"), 0.001},
    };
    for (const auto& row : rows) {
        wchar_t expected[128];
        ASSERT_TRUE(FormatNumberFallback(TheLocale(), row.Format, row.Value, expected, 128));
        EXPECT_EQ(Formatted(row.Format, row.Text), Show(expected)) << Show(row.Format);
    }
    EXPECT_EQ(Formatted(L"0.00%", Number(L"0", L"5")), Show((Number(L"50", L"00") + L"%").c_str()));
    EXPECT_EQ(Formatted(L"000", L"7"), "007");
}

TEST(FormatText, LongNumbersAreWrittenByTheGrid)
{
    const std::wstring ones(300, L'1');
    const std::string shown = Formatted(L"#,##0", ones);
    EXPECT_EQ(shown.size(), 300u + 99u);
    const std::wstring manyDecimals = L"0." + std::wstring(100, L'0');
    EXPECT_EQ(Formatted(manyDecimals.c_str(), L"1").size(), 102u);
    EXPECT_EQ(Formatted(L"Currency", ones), Show(ones.c_str()));
}

TEST(FormatText, ATextThatIsNoNumberStaysAsItIs)
{
    for (const wchar_t* format : {L"#,##0", L"0.00%", L"000", L"Currency", L"$#,##0.00"})
        for (const wchar_t* text : {L"abc", L"12 apples", L"--1", L"-", L"1e500"})
            EXPECT_EQ(FormatText(format, text), text) << Show(format) << Show(text);
}

TEST(FormatText, NoFormatNoChange)
{
    const wchar_t* text = L"12";
    EXPECT_EQ(FormatText(nullptr, text), text);
    EXPECT_EQ(FormatText(L"", text), text);
    EXPECT_EQ(FormatText(L"xkz", text), text);
    EXPECT_EQ(FormatText(L"[red]", text), text);
    EXPECT_EQ(FormatText(L"0", nullptr), nullptr);
}

TEST(FormatText, ABracketedBeginningIsSkipped)
{
    EXPECT_EQ(Formatted(L"[#,0]000", L"7"), "007");
    EXPECT_EQ(Formatted(L"[]000", L"7"), "007");
    EXPECT_EQ(Formatted(L"x[0]00", L"7"), "007");
    EXPECT_EQ(Formatted(L"[000", L"7"), "007");
}

TEST(FormatText, TheTextMayLieInTheScratchBuffer)
{
    for (const wchar_t* format : {L"000", L"0.0%", L"#,##0", L"Currency", L"yyyy"}) {
        const std::string expected = Formatted(format, L"7");
        EXPECT_EQ(Show(FormatText(format, CopyToScratch(L"7"))), expected) << Show(format);
        EXPECT_STREQ(FormatText(format, CopyToScratch(L"no number")), L"no number");
    }
    const std::wstring tooWide(70000, L'0');
    EXPECT_STREQ(FormatText(tooWide.c_str(), CopyToScratch(L"7")), L"7");
}

TEST(LocaleFormatText, DatesThroughTheRuntime)
{
    // 36526 is 1 January 2000.
    struct {
        const wchar_t* Format;
        const wchar_t* RuntimeFormat;
    } const rows[] = {
        {L"yyyy", L"%Y"},
        {L"dd/mm/yyyy", L"%d/%m/%Y"},
        {L"ddddd", L"%x"},
        {L"ttttt", L"%X"},
        {L"dddd", L"%A"},
        {L"mmmm", L"%B"},
        {L"h:nn am/pm", L"%#I:%M %p"},
        {L"h:mm", L"%#H:%M"},
        {L"mm", L"%m"},
        {L"General Date", L"%c"},
        {L"Medium Date", L"%d-%b-%y"},
        {L"Long Time", L"%X"},
        {L"y", L"%#j"},
        {L"d mmm", L"%#d %b"},
        {L"w", L"%#w"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Formatted(row.Format, L"36526"), Show(SystemDate(row.RuntimeFormat, 36526.0).c_str()))
            << Show(row.Format);
}

TEST(LocaleFormatText, TheLocalesLongAndShortDates)
{
    struct {
        LCTYPE Type;
        const wchar_t* Format;
    } const rows[] = {
        {LOCALE_SLONGDATE, L"dddddd"}, {LOCALE_SLONGDATE, L"Long Date"}, {LOCALE_SSHORTDATE, L"Short Date"}};
    for (const auto& row : rows) {
        wchar_t picture[128];
        wchar_t translated[MaxDatePicture];
        ASSERT_TRUE(GetLocaleInfoW(LOCALE_USER_DEFAULT, row.Type, picture, 128));
        ASSERT_TRUE(TranslateDateFormat(picture, LocaleDatePictures(), translated, MaxDatePicture));
        EXPECT_EQ(Formatted(row.Format, L"36526"), Show(SystemDate(translated, 36526.0).c_str()));
    }
}

TEST(FormatText, DatesOutOfRangeShowTheText)
{
    EXPECT_EQ(Formatted(L"yyyy", L"-657435"), "-657435");
    EXPECT_EQ(Formatted(L"yyyy", L"2958466"), "2958466");
    EXPECT_EQ(Formatted(L"yyyy", L"no date"), "no date");
}

TEST(FormatDate, NeedsATextThatFits)
{
    EXPECT_EQ(FormatDate(L"", 36526.0), nullptr);
    EXPECT_NE(FormatDate((L"%d" + std::wstring(125, L'x')).c_str(), 36526.0), nullptr);
    EXPECT_EQ(FormatDate((L"%d" + std::wstring(126, L'x')).c_str(), 36526.0), nullptr);
    EXPECT_EQ(FormatDate((L"%d" + std::wstring(500, L'x')).c_str(), 36526.0), nullptr);
    EXPECT_EQ(FormatDate(L"%q", 36526.0), nullptr);
    EXPECT_EQ(FormatDate(L"%d%", 36526.0), nullptr);
}

TEST(FormatDate, TwoDigitYearsBefore1900)
{
    double date = 0.0;
    ASSERT_TRUE(DateFromParts(1850, 7, 4, 0, 0, 0, &date));
    EXPECT_STREQ(FormatDate(L"%y", date), L"50");
    ASSERT_TRUE(DateFromParts(1800, 7, 4, 0, 0, 0, &date));
    EXPECT_STREQ(FormatDate(L"%y", date), L"00");
    ASSERT_TRUE(DateFromParts(100, 7, 4, 0, 0, 0, &date));
    EXPECT_STREQ(FormatDate(L"%y", date), L"00");
}

TEST(FormatDate, KnowsTheDayOfTheYear)
{
    double date = 0.0;
    ASSERT_TRUE(DateFromParts(2000, 12, 31, 0, 0, 0, &date));
    EXPECT_STREQ(FormatDate(L"%j", date), L"366");
    ASSERT_TRUE(DateFromParts(2001, 2, 1, 0, 0, 0, &date));
    EXPECT_STREQ(FormatDate(L"%#j", date), L"32");
}

TEST(LocaleTextToDouble, ReadsLocaleNumbersAndPercent)
{
    struct {
        std::wstring Text;
        double Value;
    } const rows[] = {
        {Number(L"1234", L"5"), 1234.5},
        {Number(L"-1234", L"5"), -1234.5},
        {L"(5)", -5.0},
        {Number(L"(5", L"25)"), -5.25},
        {L"50%", 0.5},
        {L"%50", 0.5},
        {Number(L"12", L"5%"), 0.125},
        {L"(50%)", -0.5},
        {L"abc", 0.0},
        {L"", 0.0},
        {L"1e3", 1000.0},
        {L"12abc", 12.0},
        {std::wstring(L"1") + TheLocale().ThousandChar + L"234", 1234.0},
    };
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(TextToDouble(row.Text.c_str()), row.Value) << Show(row.Text.c_str());
    EXPECT_EQ(TextToDouble(nullptr), 0.0);
}

TEST(LocaleTextToDouble, ReadsShortNumbersAsThePlatformDoes)
{
    std::mt19937 random(11);
    for (int i = 0; i < 20000; ++i) {
        std::wstring text = random() % 3 ? L"" : L"-";
        for (unsigned digits = 1 + random() % 8; digits > 0; --digits)
            text += static_cast<wchar_t>(L'0' + random() % 10);
        if (unsigned decimals = random() % 10) {
            text += TheLocale().DecimalChar;
            for (; decimals > 0; --decimals)
                text += static_cast<wchar_t>(L'0' + random() % 10);
        }
        double expected = 0.0;
        ASSERT_EQ(VarR8FromStr(text.data(), LOCALE_USER_DEFAULT, 0, &expected), S_OK);
        ASSERT_EQ(TextToDouble(text.c_str()), expected) << std::string(text.begin(), text.end());
    }
}

TEST(PlainDecimal, IsNothingButAShortNumber)
{
    const struct {
        const wchar_t* Text;
        bool Plain;
        double Value;
    } cases[] = {{L"0", true, 0.0},    {L"7", true, 7.0},      {L"-12.5", true, -12.5},
                 {L"007", true, 7.0},  {L"0.001", true, 1e-3}, {L"123456789012345", true, 123456789012345.0},
                 {L"", false, 0},      {L"-", false, 0},       {L".5", false, 0},
                 {L"5.", false, 0},    {L"-0", false, 0},      {L"1e3", false, 0},
                 {L" 1", false, 0},    {L"1 ", false, 0},      {L"+1", false, 0},
                 {L"1,000", false, 0}, {L"1.2.3", false, 0},   {L"1234567890123456", false, 0},
                 {L"5%", false, 0},    {L"(5)", false, 0},     {L"1.234567890123456", false, 0}};
    for (const auto& c : cases) {
        double value = 0.0;
        EXPECT_EQ(ParsePlainDecimal(L'.', c.Text, &value), c.Plain)
            << std::string(c.Text, c.Text + wcslen(c.Text));
        if (c.Plain) {
            EXPECT_EQ(value, c.Value);
        }
    }
}

TEST(TextToDouble, LeavesTheTextAlone)
{
    wchar_t text[] = L"50%";
    EXPECT_DOUBLE_EQ(TextToDouble(text), 0.5);
    EXPECT_STREQ(text, L"50%");
}

TEST(LocaleIsNumericText, UsesTheLocalesCharacters)
{
    const LocaleInfo& locale = TheLocale();
    EXPECT_TRUE(IsNumericText(Number(L"1", L"5").c_str()));
    EXPECT_FALSE(IsNumericText((Number(L"1", L"5") + locale.DecimalChar).c_str()));
    EXPECT_TRUE(IsNumericText((std::wstring(L"1") + locale.ThousandChar + L"000").c_str()));
    const std::wstring behind = std::wstring(L"5 ") + locale.CurrencyText;
    const std::wstring inFront = std::wstring(locale.CurrencyText) + L" 5";
    EXPECT_EQ(IsNumericText(behind.c_str()), locale.SymbolAfter);
    EXPECT_EQ(IsNumericText(inFront.c_str()), !locale.SymbolAfter);
    EXPECT_FALSE(IsNumericText(nullptr));
}

TEST(TextToDateOrNumber, ADateFirstThenANumber)
{
    double value = 1.0;
    ASSERT_TRUE(TextToDateOrNumber(L"1/1/2000", &value));
    EXPECT_EQ(value, 36526.0);
    ASSERT_TRUE(TextToDateOrNumber(L"36526", &value));
    EXPECT_EQ(value, 36526.0);
    ASSERT_TRUE(TextToDateOrNumber(L"50%", &value));
    EXPECT_EQ(value, 0.5);
    EXPECT_FALSE(TextToDateOrNumber(L"neither", &value));
    EXPECT_EQ(value, 0.0);
    EXPECT_FALSE(TextToDateOrNumber(L"", &value));
    EXPECT_FALSE(TextToDateOrNumber(nullptr, &value));
}

TEST(TextToDateOrNumber, BearsTextsOfAnyLength)
{
    const std::wstring digits(40000, L'1');
    std::wstring slashes;
    for (int i = 0; i < 20000; ++i)
        slashes += L"1/";
    for (const std::wstring& text : {digits, slashes, L"(" + digits + L")", std::wstring(40000, L'(')}) {
        double value = 0.0;
        TextToDateOrNumber(text.c_str(), &value);
        TextToDouble(text.c_str());
        for (const wchar_t* format : {L"#,##0.00", L"000", L"Currency", L"yyyy"})
            EXPECT_NE(FormatText(format, text.c_str()), nullptr);
    }
}

TEST(TextToVariant, ConvertsToTheTypeOfTheColumn)
{
    struct {
        int DataType;
        VARTYPE Expected;
    } const rows[] = {{2, VT_I2},   {3, VT_I4},    {4, VT_R4},  {5, VT_R8}, {6, VT_CY},
                      {7, VT_DATE}, {11, VT_BOOL}, {20, VT_I8}, {14, VT_R8}};
    for (const auto& row : rows) {
        const wchar_t* text = row.Expected == VT_DATE ? L"1/1/2000" : L"1";
        OwnedVariant value;
        EXPECT_EQ(TextToVariant(text, value.Put(), row.DataType), S_OK) << row.DataType;
        EXPECT_EQ(value.Type(), row.Expected) << row.DataType;
        OwnedVariant bad;
        EXPECT_EQ(TextToVariant(L"xyz", bad.Put(), row.DataType), DISP_E_TYPEMISMATCH) << row.DataType;
        OwnedVariant empty;
        OwnedVariant null;
        null.Get().vt = VT_NULL;
        OwnedVariant converted;
        const HRESULT expected = VariantChangeType(&converted.Get(), &null.Get(), 0, row.Expected);
        EXPECT_EQ(TextToVariant(L"", empty.Put(), row.DataType), expected) << row.DataType;
    }
}

TEST(TextToVariant, OtherTypesStayText)
{
    for (const int type : {0, 1, 8, 12, 30, 31, 130, -1}) {
        OwnedVariant value;
        EXPECT_EQ(TextToVariant(L"12", value.Put(), type), S_OK);
        ASSERT_EQ(value.Type(), VT_BSTR);
        EXPECT_STREQ(value.Get().bstrVal, L"12");
        EXPECT_EQ(TextToVariant(nullptr, value.Put(), type), S_OK);
        ASSERT_EQ(value.Type(), VT_BSTR);
        EXPECT_EQ(SysStringLen(value.Get().bstrVal), 0u);
    }
}

TEST_F(GridTexts, ShowsNothingOutsideTheGrid)
{
    EXPECT_EQ(GetDisplayText(grid, -1, 0), nullptr);
    EXPECT_EQ(GetDisplayText(grid, 4, 0), nullptr);
    EXPECT_EQ(GetDisplayText(grid, 0, -1), nullptr);
    EXPECT_EQ(GetDisplayText(grid, 0, 3), nullptr);
}

TEST_F(GridTexts, AStoredTextIsShownWithoutACopy)
{
    SetCellText(grid, 1, 1, L"abc");
    EXPECT_EQ(GetDisplayText(grid, 1, 1), grid.RowTable[1].Cells[1].Text);
    EXPECT_EQ(GetDisplayText(grid, 1, 2), nullptr);
    EXPECT_EQ(GetDisplayText(grid, 2, 1), nullptr);
}

TEST_F(GridTexts, TheFormatChangesWhatIsShownOnly)
{
    SetCellText(grid, 1, 1, L"7");
    ASSERT_EQ(SetColFormat(grid, 1, L"000"), S_OK);
    EXPECT_EQ(Shown(1, 1), "007");
    EXPECT_STREQ(GetCellText(grid, 1, 1), L"7");
    EXPECT_EQ(GetDisplayText(grid, 2, 1), nullptr);
}

TEST_F(GridTexts, ABooleanColumnShowsOneOfTwoWords)
{
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    SetColFormat(grid, 1, L"Yes;No");
    SetCellText(grid, 1, 1, L"-1");
    SetCellText(grid, 2, 1, L"0");
    EXPECT_EQ(Shown(1, 1), "Yes");
    EXPECT_EQ(Shown(2, 1), "No");
    EXPECT_EQ(Shown(3, 1), "No");
    SetColFormat(grid, 1, L"Yes");
    EXPECT_EQ(Shown(1, 1), "Yes");
    EXPECT_EQ(GetDisplayText(grid, 2, 1), nullptr);
    SetColFormat(grid, 1, L"Yes;No;Perhaps");
    EXPECT_EQ(Shown(2, 1), "No;Perhaps");
}

TEST_F(GridTexts, AStoredCheckBoxShowsOneOfTwoWordsToo)
{
    SetColFormat(grid, 1, L"on;off");
    SetCellText(grid, 1, 1, L"text");
    grid.RowTable[1].Cells[1].State = lorvChecked << CheckStateShift;
    EXPECT_EQ(Shown(1, 1), "on");
    grid.RowTable[1].Cells[1].State = lorvTSChecked << CheckStateShift;
    EXPECT_EQ(Shown(1, 1), "off");
}

TEST_F(GridTexts, CheckStatesOfABooleanColumnLiveInTheText)
{
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    EXPECT_EQ(CheckStateOf(grid, 1, 1), lorvUnchecked);
    EXPECT_EQ(CheckStateOf(grid, 0, 1), 0);
    SetCellText(grid, 1, 1, L"True");
    EXPECT_EQ(CheckStateOf(grid, 1, 1), lorvChecked);
    SetCellText(grid, 1, 1, L"what?");
    EXPECT_EQ(CheckStateOf(grid, 1, 1), lorvUnchecked);
    SetCellText(grid, 1, 1, L"");
    grid.RowTable[1].Flags |= RowFlagSubtotal;
    EXPECT_EQ(CheckStateOf(grid, 1, 1), 0);
}

TEST_F(GridTexts, AStoredKeyShowsTheTextOfTheList)
{
    ComboListState& list = grid.ColTable[1].ComboState;
    list.ComboCount = 3;
    list.ComboKeys = static_cast<wchar_t**>(AllocateZeroed(3, sizeof(wchar_t*)));
    list.ComboTexts = static_cast<wchar_t**>(AllocateZeroed(3, sizeof(wchar_t*)));
    list.ComboKeys[1] = DuplicateText(L"k1");
    list.ComboTexts[1] = DuplicateText(L"One");
    list.ComboKeys[2] = DuplicateText(L"7");

    SetCellText(grid, 1, 1, L"K1");
    EXPECT_EQ(GetDisplayText(grid, 1, 1), list.ComboTexts[1]);
    SetCellText(grid, 1, 1, L"other");
    EXPECT_EQ(Shown(1, 1), "other");
    // A key without a text is shown as any text of the column.
    SetColFormat(grid, 1, L"000");
    SetCellText(grid, 1, 1, L"7");
    EXPECT_EQ(Shown(1, 1), "007");

    for (int i = 0; i < 3; ++i) {
        FreeBlock(list.ComboKeys[i]);
        FreeBlock(list.ComboTexts[i]);
    }
    FreeAndClear(list.ComboKeys);
    FreeAndClear(list.ComboTexts);
    list.ComboCount = 0;
}

// The words of a check box come before what the column's list shows.
TEST_F(GridTexts, ACheckBoxShowsItsWordWhateverTheListSays)
{
    ComboListState& list = grid.ColTable[1].ComboState;
    wchar_t key[] = L"-1", text[] = L"One";
    wchar_t *keys[] = {key}, *texts[] = {text};
    list.ComboCount = 1, list.ComboKeys = keys, list.ComboTexts = texts;
    SetCellText(grid, 1, 1, L"-1");
    SetColFormat(grid, 1, L"Yes;No");
    EXPECT_EQ(Shown(1, 1), "One");
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    EXPECT_EQ(Shown(1, 1), "Yes");
    SetColFormat(grid, 1, nullptr);
    EXPECT_EQ(Shown(1, 1), "One");
    list.ComboCount = 0, list.ComboKeys = list.ComboTexts = nullptr;
}

TEST_F(GridTexts, SettingAFormatNotesParentheses)
{
    struct {
        const wchar_t* Format;
        bool Parens;
    } const rows[] = {{L"$0", true},        {L"(0)", true}, {L"Currency", true}, {L"a currency", true},
                      {L"#,##0.00", false}, {L"0)", false}, {L"", false},        {nullptr, false}};
    for (const auto& row : rows) {
        grid.ColTable[1].ColFlags = ColFlagHidden;
        ASSERT_EQ(SetColFormat(grid, 1, row.Format), S_OK);
        EXPECT_EQ((grid.ColTable[1].ColFlags & ColFlagParenFormat) != 0, row.Parens);
        EXPECT_NE(grid.ColTable[1].ColFlags & ColFlagHidden, 0);
    }
    EXPECT_EQ(grid.ColTable[1].ColFormat, nullptr);
}

TEST_F(GridTexts, ANegativeColumnSetsTheFormatOfAll)
{
    SetOption(grid, OptionMergeStale, false);
    ASSERT_EQ(SetColFormat(grid, -1, L"000"), S_OK);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    for (int col = 0; col < 3; ++col)
        EXPECT_STREQ(grid.ColTable[col].ColFormat, L"000");
    EXPECT_EQ(SetColFormat(grid, 3, L"0"), LORV_E_INDEX);
    ASSERT_EQ(SetColFormat(grid, -7, nullptr), S_OK);
    EXPECT_EQ(grid.ColTable[0].ColFormat, nullptr);
}

TEST_F(GridTexts, AFormatThatFindsNoMemoryLeavesNone)
{
    SetColFormat(grid, 1, L"$0");
    AllocationProbe& probe = TheAllocationProbe();
    probe.FailAt = probe.Count + 1;
    EXPECT_EQ(SetColFormat(grid, 1, L"$00"), LORV_E_MEMORY);
    probe.FailAt = 0;
    EXPECT_EQ(grid.ColTable[1].ColFormat, nullptr);
    EXPECT_EQ(grid.ColTable[1].ColFlags & ColFlagParenFormat, 0);
}

} // namespace
