#include "core/number_picture.h"

#include "locale_samples.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace
{

std::string Format(const LocaleInfo& locale, const wchar_t* format, double value)
{
    wchar_t buffer[1024];
    return FormatNumberFallback(locale, format, value, buffer, 1024) ? Show(buffer) : "(nothing)";
}

struct FormatRow {
    const wchar_t* Format;
    double Value;
    const char* Text;
};

void CheckFormat(const LocaleInfo& locale, const std::vector<FormatRow>& rows)
{
    for (const FormatRow& row : rows)
        EXPECT_EQ(Format(locale, row.Format, row.Value), row.Text) << Show(row.Format) << " of " << row.Value;
}

TEST(FormatNumberFallback, PercentMultipliesAndAppends)
{
    CheckFormat(AmericanLocale(), {
                                      {L"0.00%", 0.5, "50.00%"},
                                      {L"0%", 0.5, "50%"},
                                      {L"%0", 0.5, "50%"},
                                      {L"#,##0%", 12.5, "1,250%"},
                                      {L"(0%)", -0.5, "(50%)"},
                                  });
}

TEST(FormatNumberFallback, CommaBeforeThePointScalesByAThousandOnce)
{
    CheckFormat(AmericanLocale(), {
                                      {L"#,##0,.0", 1234567.0, "1,234.6"},
                                      {L"0,.0", 1500.0, "1.5"},
                                      {L"0,.0,.0", 1500.0, "01.50"},
                                      {L"0,.", 12000.0, "12."},
                                      {L"0.,0", 1500.0, "1,500.0"},
                                  });
}

TEST(FormatNumberFallback, ZerosPadToTheWidthOfTheFormat)
{
    CheckFormat(AmericanLocale(), {
                                      {L"000", 7.0, "007"},
                                      {L"000", -7.0, "-07"},
                                      {L"000", 1234.0, "1234"},
                                      {L"000.00", 7.5, "007.50"},
                                      {L"0#", 7.0, "07"},
                                      {L"0##", 7.0, "007"},
                                      {L"##0", 7.0, "7"},
                                      {L"#", 7.0, "7"},
                                      {L"00.", 7.0, "07."},
                                      {L"00.#", 7.0, "07.0"},
                                      {L"0000,0", 12.0, "00,012"},
                                  });
}

TEST(FormatNumberFallback, DecimalsAreZerosAndHashesBehindThePoint)
{
    CheckFormat(AmericanLocale(), {
                                      {L"0.0", 1.25, "1.3"},
                                      {L"0.00", 1.005, "1.01"},
                                      {L"0.00", -1.005, "-1.01"},
                                      {L"0.##", 1.0, "1.00"},
                                      {L"0.0 0", 1.0, "1.00"},
                                      {L"0.0.0", 1.0, "01.00"},
                                      {L"0.0000000000", 0.5, "0.5000000000"},
                                      {L"0.000000000", 0.1, "0.100000000"},
                                      {L"x0.0y", 1.5, "1.5"},
                                  });
}

TEST(FormatNumberFallback, HalvesAreNudgedOnlyWithAPoint)
{
    CheckFormat(AmericanLocale(), {
                                      {L"0.", 0.5, "1."},
                                      {L"0.", -0.5, "-1."},
                                      {L"000", 0.5, "000"},
                                      {L"000", 2.5, "002"},
                                      {L"0.000000000", 4.995e-10, "0.000000001"},
                                      {L"0.0000000000", 4.95e-11, "0.0000000000"},
                                      {L"0.00", 0.0, "0.00"},
                                  });
}

TEST(FormatNumberFallback, ALeadingZeroIsShownOnlyWhenTheFormatHasOne)
{
    CheckFormat(AmericanLocale(), {
                                      {L"#.00", 0.5, ".50"},
                                      {L".00", 0.5, ".50"},
                                      {L"0.00", 0.5, "0.50"},
                                      {L"#.00", 10.5, "10.50"},
                                      {L"#.00", -0.5, "-0.50"},
                                      {L"#.", 0.2, "0."},
                                      {L"#", 0.2, "0"},
                                      {L"(#.00)", -0.5, "(0.50)"},
                                  });
}

TEST(FormatNumberFallback, ThousandsGoInThreesFromThePoint)
{
    CheckFormat(AmericanLocale(), {
                                      {L"#,#.", 123.0, "123."},
                                      {L"#,#", 1234.0, "1,234"},
                                      {L"#,#", 1234567.0, "1,234,567"},
                                      {L"#,#", 123456.0, "123,456"},
                                      {L"#,#", -123456.0, "-123,456"},
                                      {L"#,#.00", 1234567.25, "1,234,567.25"},
                                      {L"#,#.0000", 1.2345, "1.2345"},
                                      {L"#,000", 12.0, "012"},
                                  });
    LocaleInfo indian;
    indian.DigitGrouping = 2;
    EXPECT_EQ(Format(indian, L"#,#", 1234567.0), "1,234,567");
    LocaleInfo bare;
    bare.ThousandChar = 0;
    EXPECT_EQ(Format(bare, L"#,#", 1234567.0), "1234567");
}

TEST(FormatNumberFallback, ParenthesesStandForTheMinus)
{
    CheckFormat(AmericanLocale(), {
                                      {L"(0.0)", -5.0, "(5.0)"},
                                      {L"(0.0)", 5.0, "5.0"},
                                      {L"0.0)", -5.0, "(5.0)"},
                                      {L"($0.0)", -5.0, "($5.0)"},
                                  });
}

TEST(FormatNumberFallback, TheSymbolGoesOnItsSideOutsideTheMinus)
{
    CheckFormat(AmericanLocale(), {{L"$0.0", 5.0, "$5.0"}, {L"$0.0", -5.0, "$-5.0"}, {L"0.0$", 5.0, "$5.0"}});
    CheckFormat(GermanLocale(), {{L"$0.0", 5.0, "5,0 <20ac>"}, {L"$0.0%", -0.5, "-50,0 <20ac>%"}});
    CheckFormat(NorwegianLocale(), {{L"$#,#.0", 5000.0, "kr 5<00a0>000,0"}, {L"($0.0)", -5.0, "(kr 5,0)"}});
}

TEST(FormatNumberFallback, CurrencyIsAWordForTheWholeFormat)
{
    CheckFormat(AmericanLocale(), {
                                      {L"Currency", 1234.5, "$1,234.50"},
                                      {L"currency", -1234.5, "($1,234.50)"},
                                      {L"CURRENCY", 0.5, "$.50"},
                                  });
    CheckFormat(GermanLocale(), {{L"Currency", -1234.5, "-1.234,50 <20ac>"}});
    // With more around it, it is no word but characters without a meaning.
    CheckFormat(AmericanLocale(), {{L"Currency ", 1234.0, "1234"}});
}

TEST(FormatNumberFallback, WhatIsNoFiniteNumberYieldsNothing)
{
    EXPECT_EQ(Format(AmericanLocale(), L"0.0%", std::numeric_limits<double>::infinity()), "(nothing)");
    EXPECT_EQ(Format(AmericanLocale(), L"0.0%", std::numeric_limits<double>::quiet_NaN()), "(nothing)");
    EXPECT_EQ(Format(AmericanLocale(), L"0.0%", 1e308), "(nothing)");
}

TEST(FormatNumberFallback, LargeWidthsFitOrYieldNothing)
{
    static wchar_t buffer[65536];
    const std::wstring zeros(32000, L'0');
    ASSERT_TRUE(FormatNumberFallback(AmericanLocale(), zeros.c_str(), 7.0, buffer, 65536));
    EXPECT_EQ(TextLength(buffer), 32000);
    EXPECT_EQ(buffer[31999], L'7');
    ASSERT_TRUE(FormatNumberFallback(AmericanLocale(), (L"#." + zeros).c_str(), 0.1, buffer, 65536));
    EXPECT_EQ(TextLength(buffer), 32001);
    EXPECT_EQ(buffer[32000], L'0');
    const std::wstring tooWide = L"#," + zeros + zeros;
    EXPECT_FALSE(FormatNumberFallback(AmericanLocale(), tooWide.c_str(), 7.0, buffer, 65536));
    ASSERT_TRUE(FormatNumberFallback(AmericanLocale(), L"#,#.00", 1.7976931348623157e308, buffer, 65536));
    EXPECT_EQ(TextLength(buffer), 309 + 102 + 3);
}

TEST(ScanNumberPicture, ReadsEachFlag)
{
    const NumberPicture picture = ScanNumberPicture(AmericanLocale(), L"$(00#,.0#%)");
    EXPECT_EQ(picture.Width, 6);
    EXPECT_EQ(picture.Decimals, 2);
    EXPECT_TRUE(picture.HasPoint && picture.HasZero && picture.Thousands && picture.ScaleByThousand);
    EXPECT_TRUE(picture.Percent && picture.Dollar && picture.Parens);
    const NumberPicture plain = ScanNumberPicture(AmericanLocale(), L"#");
    EXPECT_EQ(plain.Width, 0);
    EXPECT_FALSE(plain.HasPoint || plain.HasZero || plain.Thousands || plain.ScaleByThousand);
    EXPECT_FALSE(plain.Percent || plain.Dollar || plain.Parens);
}

TEST(BuildNumberFormat, GivesUpWhatThePlatformCannotDo)
{
    CurrencyPicture picture;
    for (const wchar_t* format :
         {L"0.00%", L"%#", L"#,##0,.0", L"#,.", L"00", L"000", L"0,000", L"00.0", L"0x0"})
        EXPECT_FALSE(BuildNumberFormat(AmericanLocale(), format, &picture)) << Show(format);
    for (const wchar_t* format : {L"0", L"#", L"#,##0", L"0.000", L".00", L"#.,#"})
        EXPECT_TRUE(BuildNumberFormat(AmericanLocale(), format, &picture)) << Show(format);
}

TEST(BuildNumberFormat, CountsTheUnbrokenDecimals)
{
    struct {
        const wchar_t* Format;
        int NumDigits;
    } const rows[] = {{L"0", 0},     {L"0.", 0},   {L"0.0", 1},   {L"#.##", 2},
                      {L"0.0#0", 3}, {L".0 0", 1}, {L"#.x00", 0}, {L"0.00.00", 2}};
    for (const auto& row : rows) {
        CurrencyPicture picture;
        ASSERT_TRUE(BuildNumberFormat(AmericanLocale(), row.Format, &picture)) << Show(row.Format);
        EXPECT_EQ(picture.NumDigits, row.NumDigits) << Show(row.Format);
        EXPECT_EQ(picture.LeadingZero, 1);
    }
}

TEST(BuildNumberFormat, GroupsByTheLocaleOnlyWithAComma)
{
    LocaleInfo locale;
    locale.DigitGrouping = 4;
    CurrencyPicture picture;
    ASSERT_TRUE(BuildNumberFormat(locale, L"#0", &picture));
    EXPECT_EQ(picture.Grouping, 0);
    ASSERT_TRUE(BuildNumberFormat(locale, L"#,#", &picture));
    EXPECT_EQ(picture.Grouping, 4);
}

TEST(BuildNumberFormat, NegativeOrderIsNeverTheParenthesesUnlessAsked)
{
    LocaleInfo locale;
    CurrencyPicture picture;
    locale.NegativeNumberOrder = 0;
    ASSERT_TRUE(BuildNumberFormat(locale, L"0", &picture));
    EXPECT_EQ(picture.NegativeOrder, 1);
    locale.NegativeNumberOrder = 3;
    ASSERT_TRUE(BuildNumberFormat(locale, L"0", &picture));
    EXPECT_EQ(picture.NegativeOrder, 3);
    ASSERT_TRUE(BuildNumberFormat(locale, L"(0)", &picture));
    EXPECT_EQ(picture.NegativeOrder, 0);
    ASSERT_TRUE(BuildNumberFormat(locale, L"0)", &picture));
    EXPECT_EQ(picture.NegativeOrder, 3);
}

TEST(BuildNumberFormat, TheSymbolComesWithADollar)
{
    CurrencyPicture picture;
    ASSERT_TRUE(BuildNumberFormat(GermanLocale(), L"0.00", &picture));
    EXPECT_FALSE(picture.WithSymbol);
    EXPECT_EQ(picture.PositiveOrder, 0);
    ASSERT_TRUE(BuildNumberFormat(GermanLocale(), L"$0.00", &picture));
    EXPECT_TRUE(picture.WithSymbol);
    EXPECT_EQ(picture.PositiveOrder, 3);
}

} // namespace
