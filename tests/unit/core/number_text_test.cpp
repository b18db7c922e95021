#include "core/number_text.h"

#include "locale_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace
{

struct NumericRow {
    const wchar_t* Text;
    bool Numeric;
};

void CheckNumeric(const LocaleInfo& locale, const std::vector<NumericRow>& rows)
{
    for (const NumericRow& row : rows)
        EXPECT_EQ(IsNumericText(locale, row.Text), row.Numeric) << Show(row.Text);
}

TEST(IsNumericText, NullAndEmptyAreNoNumbers)
{
    EXPECT_FALSE(IsNumericText(AmericanLocale(), nullptr));
    EXPECT_FALSE(IsNumericText(AmericanLocale(), L""));
}

TEST(IsNumericText, DigitsAndSeparators)
{
    CheckNumeric(AmericanLocale(), {
                                       {L"0", true},
                                       {L"1234", true},
                                       {L"1,234", true},
                                       {L"1,2,3", true},
                                       {L"1,", true},
                                       {L",1", false},
                                       {L"1.5", true},
                                       {L".5", true},
                                       {L"5.", true},
                                       {L".,5", true},
                                       {L".", false},
                                       {L"1.2.3", false},
                                       {L"abc", false},
                                       {L"12a", false},
                                       {L"1;2", false},
                                       {L"\x0661", false},
                                   });
}

TEST(IsNumericText, OneSignStandsBeforeTheDigits)
{
    CheckNumeric(AmericanLocale(), {
                                       {L"-1", true},
                                       {L"+1", true},
                                       {L"-.5", true},
                                       {L"--1", false},
                                       {L"+-1", false},
                                       {L"-", false},
                                       {L"+", false},
                                       {L"1-", false},
                                       {L".-1", false},
                                       {L"-(1)", false},
                                       {L"(-1)", false},
                                   });
}

TEST(IsNumericText, ParenthesesWrapTheWholeNumber)
{
    CheckNumeric(AmericanLocale(), {
                                       {L"(1)", true},
                                       {L"(1,234.50)", true},
                                       {L"( 1)", true},
                                       {L"(1", false},
                                       {L"1)", false},
                                       {L"()", false},
                                       {L"(1))", false},
                                       {L"((1))", false},
                                       {L"(1)2", false},
                                       {L"(1),", false},
                                       {L"(1).", false},
                                       {L"(1)-", false},
                                       {L"(1)(2)", false},
                                       {L"(1)e5", false},
                                   });
}

TEST(IsNumericText, BlanksStandOnlyInFront)
{
    CheckNumeric(AmericanLocale(), {
                                       {L"  1", true},
                                       {L"\t1", true},
                                       {L"- 1", true},
                                       {L"$ 1", true},
                                       {L"1 ", false},
                                       {L"1 2", false},
                                       {L" ", false},
                                   });
}

TEST(IsNumericText, ExponentsUpTo400)
{
    CheckNumeric(AmericanLocale(), {
                                       {L"1e5", true},
                                       {L"1E5", true},
                                       {L"1e+5", true},
                                       {L"1e-5", true},
                                       {L"1.5e5", true},
                                       {L"1e", true},
                                       {L".e5", true},
                                       {L"1e400", true},
                                       {L"1e-400", true},
                                       {L"1e401", false},
                                       {L"1e-401", false},
                                       {L"1e500", false},
                                       {L"1e99999999999999999999", false},
                                       {L"1e4294967296", false},
                                       {L"e5", false},
                                       {L"-e5", false},
                                       {L"1e5e5", false},
                                       {L"1e5.5", false},
                                       {L"1e+-5", false},
                                   });
}

TEST(IsNumericText, PercentIsTheLastCharacter)
{
    CheckNumeric(AmericanLocale(), {
                                       {L"50%", true},
                                       {L"(50%)", true},
                                       {L"(50)%", true},
                                       {L"%", false},
                                       {L"%50", false},
                                       {L"5%0", false},
                                       {L"50%%", false},
                                       {L"(50%) ", false},
                                   });
}

TEST(IsNumericText, LeadingCurrencySymbol)
{
    CheckNumeric(AmericanLocale(), {
                                       {L"$1", true},
                                       {L"$1,234.50", true},
                                       {L"-$1", true},
                                       {L"$-1", true},
                                       {L"($1)", true},
                                       {L"$(1)", true},
                                       {L"$50%", true},
                                       {L"$$1", false},
                                       {L"1$", false},
                                       {L"1 $", false},
                                       {L"$", false},
                                   });
    CheckNumeric(NorwegianLocale(), {
                                        {L"kr 5,50", true},
                                        {L"KR 5", true},
                                        {L"kr", false},
                                        {L"k 5", false},
                                        {L"5 kr", false},
                                        {L"1\xA0"
                                         L"234,5",
                                         true},
                                    });
}

TEST(IsNumericText, TrailingCurrencySymbolEndsTheNumber)
{
    CheckNumeric(GermanLocale(), {
                                     {L"5 \x20AC", true},
                                     {L"5\x20AC", true},
                                     {L"1.234,50 \x20AC", true},
                                     {L"(5 \x20AC)", true},
                                     {L"(5)\x20AC", true},
                                     {L"5 \x20AC%", true},
                                     {L"\x20AC 5", false},
                                     {L"5 \x20AC 5", false},
                                     {L"5\x20AC"
                                      L"5",
                                      false},
                                     {L"5\x20AC\x20AC", false},
                                     {L"1.5.5", true},
                                     {L"1,5,5", false},
                                 });
}

TEST(IsNumericText, AnEmptyCurrencySymbolMatchesNothing)
{
    LocaleInfo locale;
    SetCurrency(locale, L"", L"", 0);
    CheckNumeric(locale, {{L"x1", false}, {L"1 ", false}, {L"1", true}});
}

struct ParseRow {
    const wchar_t* Text;
    double Value;
};

void CheckParse(const LocaleInfo& locale, const std::vector<ParseRow>& rows)
{
    for (const ParseRow& row : rows)
        EXPECT_DOUBLE_EQ(ParseNumberText(locale, row.Text), row.Value) << Show(row.Text);
}

TEST(ParseNumberText, WhatIsNoNumberGivesZero)
{
    CheckParse(AmericanLocale(), {
                                     {nullptr, 0.0},
                                     {L"", 0.0},
                                     {L"abc", 0.0},
                                     {L"-", 0.0},
                                     {L"-abc", 0.0},
                                     {L",5", 0.0},
                                     {L"%5", 0.0},
                                     {L".", 0.0},
                                 });
}

TEST(ParseNumberText, ReadsAsFarAsTheNumberGoes)
{
    CheckParse(AmericanLocale(), {
                                     {L"12", 12.0},
                                     {L"  12", 12.0},
                                     {L"12abc", 12.0},
                                     {L"1,234.5", 1234.5},
                                     {L"1,,2,", 12.0},
                                     {L"0.25", 0.25},
                                     {L".25", 0.25},
                                     {L"1.5,5", 1.5},
                                     {L"12 34", 12.0},
                                 });
}

TEST(ParseNumberText, SignsAndParentheses)
{
    CheckParse(AmericanLocale(), {
                                     {L"-5", -5.0},
                                     {L"+5", 5.0},
                                     {L"(5)", -5.0},
                                     {L"(5", -5.0},
                                     {L"- 5", -5.0},
                                     {L"--5", 0.0},
                                     {L"(-5)", 0.0},
                                 });
    EXPECT_TRUE(std::signbit(ParseNumberText(AmericanLocale(), L"-0")));
}

TEST(ParseNumberText, CurrencySymbolOnEitherSideOfTheSign)
{
    CheckParse(AmericanLocale(), {
                                     {L"$5", 5.0},
                                     {L" $ 5", 5.0},
                                     {L"$-5", -5.0},
                                     {L"-$5", -5.0},
                                     {L"- $ 5", -5.0},
                                     {L"($5.25)", -5.25},
                                     {L"$$5", 0.0},
                                 });
    CheckParse(GermanLocale(), {{L"1.234,50 \x20AC", 1234.5}, {L"\x20AC 5", 5.0}, {L"(5 \x20AC)", -5.0}});
    CheckParse(NorwegianLocale(), {{L"kr 5,5", 5.5}, {L"Kr5", 5.0}});
}

TEST(ParseNumberText, ExponentOrPercentEndsTheNumber)
{
    CheckParse(AmericanLocale(), {
                                     {L"1e3", 1000.0},
                                     {L"1E+3", 1000.0},
                                     {L"25e-2", 0.25},
                                     {L"1e", 1.0},
                                     {L"50%", 0.5},
                                     {L"(50%)", -0.5},
                                     {L"-1.5e2", -150.0},
                                     {L"1e2%", 100.0},
                                     {L"0e999999999", 0.0},
                                     {L"1e-999999999999", 0.0},
                                 });
    EXPECT_TRUE(std::isinf(ParseNumberText(AmericanLocale(), L"1e400")));
    std::wstring digits(400, L'1');
    EXPECT_TRUE(std::isinf(ParseNumberText(AmericanLocale(), (digits + L"e-400").c_str()))) << "not NaN";
}

TEST(ParseNumberText, LongDigitRunsKeepTheirValue)
{
    const std::wstring ones(400, L'1');
    EXPECT_NEAR(ParseNumberText(AmericanLocale(), (L"0." + ones).c_str()), 1.0 / 9.0, 1e-12);
    EXPECT_TRUE(std::isinf(ParseNumberText(AmericanLocale(), ones.c_str())));
    const std::wstring zeros(40000, L'0');
    EXPECT_DOUBLE_EQ(ParseNumberText(AmericanLocale(), (zeros + L"7." + zeros + L"1").c_str()), 7.0);
}

} // namespace
