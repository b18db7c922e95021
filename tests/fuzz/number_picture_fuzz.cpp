// sources: core/number_picture.cpp
// A value in the first eight bytes, a number format behind them: the writer stays in its buffer, whatever its
// size.
#include "core/number_picture.h"

#include "../unit/core/locale_samples.h"
#include "fuzz_text.h"

#include <cstdlib>
#include <cstring>
#include <memory>

static void Check(const LocaleInfo& locale, const wchar_t* format, double value)
{
    CurrencyPicture picture;
    BuildNumberFormat(locale, format, &picture);
    for (const int capacity : {1, 7, 65536}) {
        const auto buffer = std::make_unique<wchar_t[]>(static_cast<size_t>(capacity));
        if (FormatNumberFallback(locale, format, value, buffer.get(), capacity) &&
            TextLength(buffer.get()) >= capacity)
            std::abort();
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    double value = 0.0;
    if (size < sizeof value)
        return 0;
    std::memcpy(&value, data, sizeof value);
    const std::vector<wchar_t> format = TextOfBytes(data + sizeof value, size - sizeof value);
    Check(AmericanLocale(), format.data(), value);
    Check(GermanLocale(), format.data(), value);
    return 0;
}
