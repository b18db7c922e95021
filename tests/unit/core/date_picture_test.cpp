#include "core/date_picture.h"

#include "locale_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace
{

const LocaleDatePictures Sample = {L"%A, %d. %B %Y", L"%d.%m.%y"};

std::string Translate(const wchar_t* format, const LocaleDatePictures& locale = Sample)
{
    wchar_t buffer[MaxDatePicture];
    return TranslateDateFormat(format, locale, buffer, MaxDatePicture) ? Show(buffer) : "(null)";
}

struct PictureRow {
    const wchar_t* Format;
    const char* Result;
};

void CheckPictures(const std::vector<PictureRow>& rows)
{
    for (const PictureRow& row : rows)
        EXPECT_EQ(Translate(row.Format), row.Result) << Show(row.Format);
}

TEST(TranslateDateFormat, NamedForms)
{
    CheckPictures({
        {L"Long Time", "%X"},
        {L"Medium Time", "%I:%M %p"},
        {L"Short Time", "%#H:%M"},
        {L"Medium Date", "%d-%b-%y"},
        {L"General Date", "%c"},
        {L"Long Date", "%A, %d. %B %Y"},
        {L"Short Date", "%d.%m.%y"},
        {L"long time", "%X"},
        {L"TIMELONG", "%X"},
        {L"a date that is short", "%d.%m.%y"},
        {L"Long Date and Time", "%X"},
        {L"DateTime Short", "%#H:%M"},
        {L"Medium Short Date", "%d-%b-%y"},
    });
}

TEST(TranslateDateFormat, ANameWithoutItsSecondWordIsReadByTokens)
{
    EXPECT_EQ(Translate(L"Date"), "%#de");
    EXPECT_EQ(Translate(L"Time"), "i%#me");
}

TEST(TranslateDateFormat, Tokens)
{
    CheckPictures({
        {L"c", "%c"},
        {L"C", "%c"},
        {L"dddddd", "%A, %d. %B %Y"},
        {L"ddddd", "%x"},
        {L"dddd", "%A"},
        {L"ddd", "%a"},
        {L"dd", "%d"},
        {L"d", "%#d"},
        {L"D", "%#d"},
        {L"ddddddd", "%A, %d. %B %Y%#d"},
        {L"hh", "%H"},
        {L"h", "%#H"},
        {L"hhh", "%H%#H"},
        {L"mmmm", "%B"},
        {L"mmm", "%b"},
        {L"mm", "%m"},
        {L"m", "%#m"},
        {L"MMMMM", "%B%#m"},
        {L"nn", "%M"},
        {L"n", "%#M"},
        {L"ss", "%S"},
        {L"s", "%#S"},
        {L"ttttt", "%X"},
        {L"tttttt", "%X"},
        {L"d tttt", "%#d "},
        {L"w", "%#w"},
        {L"yyyy", "%Y"},
        {L"yyy", "%y%#j"},
        {L"yy", "%y"},
        {L"y", "%#j"},
        {L"d/m/yy", "%#d/%#m/%y"},
        {L"dd-mmm-yyyy", "%d-%b-%Y"},
    });
}

TEST(TranslateDateFormat, WeekTakesTheNextCharacterWithIt)
{
    CheckPictures(
        {{L"ww", "%#W"}, {L"ww-yy", "%#W%y"}, {L"wwd", "%#W"}, {L"www", "%#W"}, {L"wwww", "%#W%#w"}});
}

TEST(TranslateDateFormat, MinutesFollowAnHour)
{
    CheckPictures({
        {L"h:mm", "%#H:%M"},
        {L"h:m", "%#H:%#M"},
        {L"hh 'and' mm", "%H and %M"},
        {L"h\\mm", "%#Hm%#M"},
        {L"h%t:mm", "%#H:%M"},
        {L"mm:h", "%m:%#H"},
        {L"h:mm:mm", "%#H:%M:%m"},
        {L"h:ss:mm", "%#H:%S:%m"},
        {L"h d mm", "%#H %#d %m"},
        {L"h:mmm", "%#H:%b"},
        {L"h:mmmm mm", "%#H:%B %m"},
    });
}

TEST(TranslateDateFormat, HalfOfTheDayMakesTwelveHours)
{
    CheckPictures({
        {L"h:nn am/pm", "%#I:%M %p"},
        {L"hh:nn AMPM", "%I:%M %p"},
        {L"h a/p h", "%#I %p %#I"},
        {L"am/pm hh", "%p %I"},
        {L"hh", "%H"},
        {L"h a", "%#H "},
        {L"a d", " %#d"},
        {L"h am", "%#H %#M"},
    });
}

TEST(TranslateDateFormat, LiteralCharacters)
{
    CheckPictures({
        {L"'day' d", "day %#d"},
        {L"d ''", "%#d "},
        {L"d 'h", "%#d %#H"},
        {L"'d' 'd", "d %#d"},
        {L"\\d d", "d %#d"},
        {L"d\\", "%#d\\"},
        {L"\\\\d", "\\%#d"},
        {L"%d", "%#d"},
        {L"d%%", "%#d"},
        {L"d.x", "%#d.x"},
        {L"d\x0660", "%#d<0660>"},
    });
}

TEST(TranslateDateFormat, WithoutAnyPartOfADateItIsNoDateFormat)
{
    for (const wchar_t* format : {L"", L"xkz", L"'dd'", L"\\d", L"%", L"t", L"a", L"'"})
        EXPECT_EQ(Translate(format), "(null)") << Show(format);
}

TEST(TranslateDateFormat, TheLocalesOwnPictureDoesNotNameItself)
{
    EXPECT_EQ(Translate(L"dddddd yy", LocaleDatePictures()), " %y");
    EXPECT_EQ(Translate(L"Long Date", LocaleDatePictures()), "Lo%#Mg %#de");
    EXPECT_EQ(Translate(L"dddddd", LocaleDatePictures()), "(null)");
}

TEST(TranslateDateFormat, WhatDoesNotFitIsNoDateFormat)
{
    EXPECT_EQ(Translate(std::wstring(32000, L'd').c_str()), "(null)");
    EXPECT_EQ(Translate((L"d" + std::wstring(32000, L'\'')).c_str()), "%#d");
    wchar_t four[4];
    EXPECT_TRUE(TranslateDateFormat(L"d", Sample, four, 4));
    EXPECT_FALSE(TranslateDateFormat(L"dx", Sample, four, 4));
}

TEST(IsKnownDateFormat, RefusesDirectivesOfNoRuntime)
{
    for (const wchar_t* known : {L"", L"abc", L"%d", L"%#d", L"%%", L"%Y-%m-%d %H:%M:%S %p", L"%#W"})
        EXPECT_TRUE(IsKnownDateFormat(known)) << Show(known);
    for (const wchar_t* unknown : {L"%", L"%q", L"%#", L"%##d", L"%d %", L"% d", L"%\x0444"})
        EXPECT_FALSE(IsKnownDateFormat(unknown)) << Show(unknown);
}

struct DateRow {
    double Value;
    int Year, Month, Day, Hour, Minute, Second, Weekday, YearDay;
};

TEST(DatePartsFromValue, KnownDates)
{
    const DateRow rows[] = {
        {0.0, 1899, 12, 30, 0, 0, 0, 7, 364},     {1.0, 1899, 12, 31, 0, 0, 0, 1, 365},
        {2.0, 1900, 1, 1, 0, 0, 0, 2, 1},         {-1.0, 1899, 12, 29, 0, 0, 0, 6, 363},
        {-1.25, 1899, 12, 29, 6, 0, 0, 6, 363},   {0.5, 1899, 12, 30, 12, 0, 0, 7, 364},
        {-0.5, 1899, 12, 30, 12, 0, 0, 7, 364},   {60.0, 1900, 2, 28, 0, 0, 0, 4, 59},
        {61.0, 1900, 3, 1, 0, 0, 0, 5, 60},       {36525.0, 1999, 12, 31, 0, 0, 0, 6, 365},
        {36526.0, 2000, 1, 1, 0, 0, 0, 7, 1},     {36585.0, 2000, 2, 29, 0, 0, 0, 3, 60},
        {36891.0, 2000, 12, 31, 0, 0, 0, 1, 366}, {73109.75, 2100, 2, 28, 18, 0, 0, 1, 59},
        {73110.0, 2100, 3, 1, 0, 0, 0, 2, 60},    {2958465.0, 9999, 12, 31, 0, 0, 0, 6, 365},
        {-657434.0, 100, 1, 1, 0, 0, 0, 6, 1},
    };
    for (const DateRow& row : rows) {
        DateParts parts;
        ASSERT_TRUE(DatePartsFromValue(row.Value, &parts)) << row.Value;
        EXPECT_EQ(parts.Year, row.Year) << row.Value;
        EXPECT_EQ(parts.Month, row.Month) << row.Value;
        EXPECT_EQ(parts.Day, row.Day) << row.Value;
        EXPECT_EQ(parts.Hour, row.Hour) << row.Value;
        EXPECT_EQ(parts.Minute, row.Minute) << row.Value;
        EXPECT_EQ(parts.Second, row.Second) << row.Value;
        EXPECT_EQ(parts.Weekday, row.Weekday) << row.Value;
        EXPECT_EQ(parts.YearDay, row.YearDay) << row.Value;
    }
}

TEST(DatePartsFromValue, RoundsToTheNearestSecond)
{
    DateParts parts;
    ASSERT_TRUE(DatePartsFromValue(1.0 - 0.4 / 86400, &parts));
    EXPECT_EQ(parts.Day, 31);
    EXPECT_EQ(parts.Second, 0);
    ASSERT_TRUE(DatePartsFromValue(1.0 - 0.6 / 86400, &parts));
    EXPECT_EQ(parts.Day, 30);
    EXPECT_EQ(parts.Second, 59);
    // Below zero the size grows by the half second, so the day before is reached.
    ASSERT_TRUE(DatePartsFromValue(-2.0 + 0.4 / 86400, &parts));
    EXPECT_EQ(parts.Day, 28);
}

TEST(DatePartsFromValue, OutOfRangeFails)
{
    DateParts parts;
    for (const double value :
         {2958465.5, 2958466.0, -657434.5, -657435.0, 1e300, -1e300, std::numeric_limits<double>::quiet_NaN(),
          std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(DatePartsFromValue(value, &parts)) << value;
}

TEST(DateFromParts, RefusesWhatTheCalendarDoesNotHave)
{
    struct {
        int Year, Month, Day, Hour, Minute, Second;
        bool Valid;
    } const rows[] = {
        {2000, 2, 29, 0, 0, 0, true},  {1900, 2, 29, 0, 0, 0, false},    {2004, 2, 30, 0, 0, 0, false},
        {10000, 1, 1, 0, 0, 0, false}, {9999, 12, 31, 23, 59, 59, true}, {2000, 0, 1, 0, 0, 0, false},
        {2000, 13, 1, 0, 0, 0, false}, {2000, 1, 0, 0, 0, 0, false},     {2000, 2, 0, 0, 0, 0, false},
        {2000, 1, 32, 0, 0, 0, false}, {2000, 4, 31, 0, 0, 0, false},    {2000, 1, 1, 24, 0, 0, false},
        {2000, 1, 1, 0, 60, 0, false}, {2000, 1, 1, 0, 0, 60, false},    {-1, 1, 1, 0, 0, 0, false},
        {2000, 1, 1, -1, 0, 0, false}, {0, 1, 1, 0, 0, 0, true},         {2000, 1, -1, 0, 0, 0, false},
    };
    for (const auto& row : rows) {
        double value = 0.0;
        EXPECT_EQ(DateFromParts(row.Year, row.Month, row.Day, row.Hour, row.Minute, row.Second, &value),
                  row.Valid)
            << row.Year << '-' << row.Month << '-' << row.Day << ' ' << row.Hour << ':' << row.Minute;
    }
}

TEST(DateFromParts, TimeGoesAwayFromZero)
{
    double value = 0.0;
    ASSERT_TRUE(DateFromParts(1899, 12, 30, 6, 0, 0, &value));
    EXPECT_DOUBLE_EQ(value, 0.25);
    ASSERT_TRUE(DateFromParts(1899, 12, 29, 6, 0, 0, &value));
    EXPECT_DOUBLE_EQ(value, -1.25);
    ASSERT_TRUE(DateFromParts(2000, 1, 1, 18, 0, 0, &value));
    EXPECT_DOUBLE_EQ(value, 36526.75);
    ASSERT_TRUE(DateFromParts(0, 1, 1, 0, 0, 0, &value));
    EXPECT_DOUBLE_EQ(value, -693959.0);
}

TEST(DateFromParts, UndoesTheSplitOfEveryDay)
{
    // Two cycles of 400 years, day by day, beside a calendar that just counts.
    int year = 1600;
    int month = 1;
    int day = 1;
    for (int value = -109571; value < -109571 + 2 * 146097; ++value) {
        DateParts parts;
        ASSERT_TRUE(DatePartsFromValue(value, &parts)) << value;
        ASSERT_TRUE(parts.Year == year && parts.Month == month && parts.Day == day) << value;
        double back = 0.0;
        if (!DateFromParts(year, month, day + 1, 0, 0, 0, &back)) {
            day = 0;
            month = month % 12 + 1;
            year += month == 1;
        }
        ++day;
        ASSERT_TRUE(DateFromParts(parts.Year, parts.Month, parts.Day, 0, 0, 0, &back)) << value;
        ASSERT_EQ(back, value);
    }
}

} // namespace
