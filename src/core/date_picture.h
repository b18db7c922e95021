#pragma once

// Date formats such as "dd-mmm-yyyy h:nn am/pm", and the arithmetic of OLE dates: days since 30 December
// 1899, the time of day in the fraction's size.

// The locale's own date pictures, already translated. Null while they are being translated themselves: a
// locale's picture that names the locale's picture gets nothing for it.
struct LocaleDatePictures {
    const wchar_t* Long = nullptr;
    const wchar_t* Short = nullptr;
};

// A translated picture longer than this names no date that could be shown: a date's text has a limit of 128.
constexpr int MaxDatePicture = 2048;

// Turns a date picture into a format for wcsftime, written to buffer and terminated. False when the picture
// asks for no part of a date, or when the result does not fit.
bool TranslateDateFormat(const wchar_t* format, const LocaleDatePictures& locale, wchar_t* buffer,
                         int capacity);

// False when a wcsftime format has a directive that the runtime does not know. Runtimes end the process for
// those.
bool IsKnownDateFormat(const wchar_t* format);

struct DateParts {
    int Year = 0;  // 0 to 9999
    int Month = 0; // 1 to 12
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    int Weekday = 0; // 1 Sunday to 7 Saturday
    int YearDay = 0; // 1 to 366
};

// Splits a date, rounded to the nearest second. False outside -657434.0 to 2958465.0, limits included in the
// range.
bool DatePartsFromValue(double value, DateParts* parts);

// Builds a date. False, and no date, when a part is out of range for the calendar.
bool DateFromParts(int year, int month, int day, int hour, int minute, int second, double* value);
