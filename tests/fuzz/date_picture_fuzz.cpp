// sources: core/date_picture.cpp
// A date in the first eight bytes, a date format behind them: what is translated fits its buffer and is known
// to the runtime unless the format quotes a percent sign, and a date that splits is put together again.
#include "core/date_picture.h"

#include "core/text_scan.h"
#include "fuzz_text.h"

#include <cstdlib>
#include <cstring>
#include <memory>

static void CheckFormat(const wchar_t* format)
{
    const LocaleDatePictures locale = {L"%A, %d. %B %Y", L"%d.%m.%y"};
    for (const int capacity : {1, 9, MaxDatePicture}) {
        const auto buffer = std::make_unique<wchar_t[]>(static_cast<size_t>(capacity));
        if (!TranslateDateFormat(format, locale, buffer.get(), capacity))
            continue;
        if (TextLength(buffer.get()) >= capacity)
            std::abort();
        if (!FindChar(format, L'%') && !IsKnownDateFormat(buffer.get()))
            std::abort();
    }
}

static void CheckDate(double value)
{
    DateParts parts;
    double back = 0.0;
    if (!DatePartsFromValue(value, &parts))
        return;
    if (parts.YearDay < 1 || parts.YearDay > 366 || parts.Weekday < 1 || parts.Weekday > 7)
        std::abort();
    if (!DateFromParts(parts.Year, parts.Month, parts.Day, parts.Hour, parts.Minute, parts.Second, &back))
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    double value = 0.0;
    if (size < sizeof value)
        return 0;
    std::memcpy(&value, data, sizeof value);
    CheckDate(value);
    CheckFormat(TextOfBytes(data + sizeof value, size - sizeof value).data());
    return 0;
}
