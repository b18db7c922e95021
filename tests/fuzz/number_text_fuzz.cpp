// sources: core/number_text.cpp
// Number texts of every shape, under the three shapes of locale: whatever the recogniser accepts the parser
// reads as a number that is no NaN, and neither leaves the text.
#include "core/number_text.h"

#include "../unit/core/locale_samples.h"
#include "fuzz_text.h"

#include <cmath>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::vector<wchar_t> text = TextOfBytes(data, size);
    for (const LocaleInfo& locale : {AmericanLocale(), GermanLocale(), NorwegianLocale()}) {
        IsNumericText(locale, text.data());
        const double number = ParseNumberText(locale, text.data());
        if (std::isnan(number))
            std::abort();
        double plain = 0.0;
        if (ParsePlainDecimal(locale.DecimalChar, text.data(), &plain) &&
            std::abs(plain - number) > std::abs(number) * 1e-15)
            std::abort();
    }
    return 0;
}
