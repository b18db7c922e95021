#include "core/date_picture.h"

#include "core/text_scan.h"
#include "core/text_writer.h"

#include <cmath>

namespace
{

struct NamedForm {
    const wchar_t* First;
    const wchar_t* Second;
    const wchar_t* Result;
};

constexpr NamedForm NamedForms[] = {
    {L"Time", L"Long", L"%X"},         {L"Time", L"Medium", L"%I:%M %p"}, {L"Time", L"Short", L"%#H:%M"},
    {L"Date", L"Medium", L"%d-%b-%y"}, {L"Date", L"General", L"%c"},
};

// What a token is, besides its output.
enum class TokenKind {
    Date,      // some part of a date or time
    Hour,      // a minute may follow
    Month,     // a minute after an hour
    LongDate,  // the locale's long date
    SkipsNext, // takes one further character with it
    Dropped,   // no output, and no part of a date
};

struct Token {
    const wchar_t* Text;
    const wchar_t* Output;
    TokenKind Kind;
};

// Tried in order, so the longer of two tokens stands first.
constexpr Token Tokens[] = {
    {L"am/pm", L"%p", TokenKind::Date}, {L"ampm", L"%p", TokenKind::Date},
    {L"a/p", L"%p", TokenKind::Date},   {L"a", L"", TokenKind::Dropped},
    {L"c", L"%c", TokenKind::Date},     {L"dddddd", L"", TokenKind::LongDate},
    {L"ddddd", L"%x", TokenKind::Date}, {L"dddd", L"%A", TokenKind::Date},
    {L"ddd", L"%a", TokenKind::Date},   {L"dd", L"%d", TokenKind::Date},
    {L"d", L"%#d", TokenKind::Date},    {L"hh", L"%H", TokenKind::Hour},
    {L"h", L"%#H", TokenKind::Hour},    {L"mmmm", L"%B", TokenKind::Date},
    {L"mmm", L"%b", TokenKind::Date},   {L"mm", L"%m", TokenKind::Month},
    {L"m", L"%#m", TokenKind::Month},   {L"nn", L"%M", TokenKind::Date},
    {L"n", L"%#M", TokenKind::Date},    {L"ss", L"%S", TokenKind::Date},
    {L"s", L"%#S", TokenKind::Date},    {L"ttttt", L"%X", TokenKind::Date},
    {L"t", L"", TokenKind::Dropped},    {L"ww", L"%#W", TokenKind::SkipsNext},
    {L"w", L"%#w", TokenKind::Date},    {L"yyyy", L"%Y", TokenKind::Date},
    {L"yy", L"%y", TokenKind::Date},    {L"y", L"%#j", TokenKind::Date},
    {L"%", L"", TokenKind::Dropped},
};

// The whole result of a format that names a form, or null.
const wchar_t* NamedFormResult(const wchar_t* format, const LocaleDatePictures& locale)
{
    for (const NamedForm& form : NamedForms)
        if (ContainsNoCase(format, form.First) && ContainsNoCase(format, form.Second))
            return form.Result;
    if (!ContainsNoCase(format, L"Date"))
        return nullptr;
    if (locale.Long && ContainsNoCase(format, L"Long"))
        return locale.Long;
    return locale.Short && ContainsNoCase(format, L"Short") ? locale.Short : nullptr;
}

class PictureReader
{
public:
    PictureReader(TextWriter& output, const LocaleDatePictures& pictures) : writer(output), locale(pictures)
    {
    }

    void Read(const wchar_t* at)
    {
        while (*at && !writer.Overflowed()) {
            if (*at == L'\'') {
                at = ReadQuoted(at);
            } else if (*at == L'\\') {
                writer.Put(at[1] ? at[1] : at[0]);
                at += at[1] ? 2 : 1;
            } else {
                at = ReadToken(at);
            }
        }
    }

private:
    const wchar_t* ReadQuoted(const wchar_t* at)
    {
        if (noClosingQuote)
            return at + 1;
        const wchar_t* end = FindChar(at + 1, L'\'');
        if (!end) {
            noClosingQuote = true;
            return at + 1;
        }
        writer.Put(at + 1, static_cast<int>(end - at - 1));
        return end + 1;
    }

    const wchar_t* ReadToken(const wchar_t* at)
    {
        for (const Token& token : Tokens) {
            if (BeginsWithNoCase(at, token.Text)) {
                at += TextLength(token.Text);
                Apply(token);
                return token.Kind == TokenKind::SkipsNext && *at ? at + 1 : at;
            }
        }
        writer.Put(*at);
        return at + 1;
    }

    void Apply(const Token& token)
    {
        if (token.Kind == TokenKind::Dropped)
            return;
        if (token.Kind == TokenKind::LongDate)
            writer.Put(locale.Long ? locale.Long : L"");
        else if (token.Kind == TokenKind::Month && afterHour)
            writer.Put(token.Text[1] ? L"%M" : L"%#M");
        else
            writer.Put(token.Output);
        afterHour = token.Kind == TokenKind::Hour;
    }

    TextWriter& writer;
    const LocaleDatePictures& locale;
    bool afterHour = false;
    bool noClosingQuote = false;
};

// With a mark for the half of the day, hours count to twelve.
void UseTwelveHours(wchar_t* format)
{
    for (wchar_t* at = format; *at; ++at) {
        if (at[0] != L'%')
            continue;
        wchar_t* directive = at[1] == L'#' ? at + 2 : at + 1;
        if (*directive == L'H')
            *directive = L'I';
    }
}

bool HasHalfOfDay(const wchar_t* format)
{
    for (; *format; ++format)
        if (format[0] == L'%' && format[1] == L'p')
            return true;
    return false;
}

constexpr int DaysPer400Years = 146097;
constexpr int DaysPer100Years = 36524;
constexpr int DaysPer4Years = 1461;
constexpr int DaysPerYear = 365;
// From 1 January of the year 0 to 30 December 1899.
constexpr int DaysToDateZero = 693959;
constexpr int SecondsPerDay = 86400;

constexpr double LargestDate = 2958465.0;
constexpr double SmallestDate = -657434.0;
constexpr double HalfSecond = 5.787037037037037e-6;

constexpr int DaysBeforeMonth[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

bool IsLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysBefore(int month, bool leap)
{
    return DaysBeforeMonth[month - 1] + (leap && month > 2 ? 1 : 0);
}

int DaysIn(int month, bool leap)
{
    return DaysBeforeMonth[month] - DaysBeforeMonth[month - 1] + (leap && month == 2 ? 1 : 0);
}

// Takes the year out of a day count from the year 0 on, and leaves the day of that year, counted from 0. The
// first century of a cycle, and the first four years of any other century, differ by the leap day that opens
// or is missed.
int TakeYear(int& day)
{
    int year = day / DaysPer400Years * 400;
    day %= DaysPer400Years;

    bool opensWithLeapYear = true;
    if (day > DaysPer100Years) {
        --day;
        year += day / DaysPer100Years * 100;
        day %= DaysPer100Years;
        opensWithLeapYear = false;
    }
    if (!opensWithLeapYear && day >= DaysPer4Years - 1) {
        ++day;
        opensWithLeapYear = true;
    }
    if (opensWithLeapYear) {
        year += day / DaysPer4Years * 4;
        day %= DaysPer4Years;
        if (day > DaysPerYear) {
            --day;
            year += day / DaysPerYear;
            day %= DaysPerYear;
        }
        return year;
    }
    year += day / DaysPerYear;
    day %= DaysPerYear;
    return year;
}

} // namespace

bool TranslateDateFormat(const wchar_t* format, const LocaleDatePictures& locale, wchar_t* buffer,
                         int capacity)
{
    TextWriter writer(buffer, capacity);
    if (const wchar_t* named = NamedFormResult(format, locale))
        writer.Put(named);
    else
        PictureReader(writer, locale).Read(format);
    if (writer.Overflowed() || !FindChar(buffer, L'%'))
        return false;
    if (HasHalfOfDay(buffer))
        UseTwelveHours(buffer);
    return true;
}

bool IsKnownDateFormat(const wchar_t* format)
{
    while (*format) {
        if (*format++ != L'%')
            continue;
        if (*format == L'#')
            ++format;
        if (!*format || !FindChar(L"aAbBcdHIjmMpSUwWxXyYzZ%", *format))
            return false;
        ++format;
    }
    return true;
}

bool DatePartsFromValue(double value, DateParts* parts)
{
    if (!(value >= SmallestDate && value <= LargestDate))
        return false;
    value += value < 0.0 ? -HalfSecond : HalfSecond;
    int day = static_cast<int>(value) + DaysToDateZero;
    const double size = std::fabs(value);
    const int seconds = static_cast<int>((size - std::floor(size)) * SecondsPerDay);

    parts->Weekday = (day + 6) % 7 + 1;
    parts->Year = TakeYear(day);
    parts->YearDay = day + 1;
    const bool leap = IsLeapYear(parts->Year);
    parts->Month = 1;
    while (day >= DaysIn(parts->Month, leap)) {
        day -= DaysIn(parts->Month, leap);
        ++parts->Month;
    }
    parts->Day = day + 1;
    parts->Hour = seconds / 3600;
    parts->Minute = seconds / 60 % 60;
    parts->Second = seconds % 60;
    return true;
}

bool DateFromParts(int year, int month, int day, int hour, int minute, int second, double* value)
{
    if (year < 0 || year > 9999 || month < 1 || month > 12)
        return false;
    const bool leap = IsLeapYear(year);
    if (day < 1 || day > DaysIn(month, leap))
        return false;
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return false;
    // The years before this one, and a leap day for each fourth of them; the year 0 is one.
    const int before = year - 1;
    int days = year * DaysPerYear;
    if (year > 0)
        days += before / 4 - before / 100 + before / 400 + 1;
    days += DaysBefore(month, leap) + day - 1 - DaysToDateZero;

    const double time = (hour * 3600 + minute * 60 + second) / static_cast<double>(SecondsPerDay);
    *value = days < 0 ? days - time : days + time;
    return true;
}
