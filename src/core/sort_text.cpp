#include "core/sort_text.h"

#include "core/cell_store.h"
#include "core/value_format.h"

#include <cwchar>

namespace
{
const wchar_t* ListTextOf(const ColRecord& column, const wchar_t* text) noexcept
{
    const ComboListState& list = column.ComboState;
    for (int item = 0; item < list.ComboCount; ++item)
        if (list.ComboKeys && list.ComboKeys[item] && lstrcmpiW(list.ComboKeys[item], text) == 0)
            return list.ComboTexts && list.ComboTexts[item] ? list.ComboTexts[item] : text;
    return text;
}

int Sign(double difference) noexcept
{
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

int CompareNumbers(double x, double y) noexcept
{
    return x < y ? -1 : x > y ? 1 : 0;
}

int CompareStrings(DWORD flags, const wchar_t* x, const wchar_t* y) noexcept
{
    return CompareStringW(LOCALE_USER_DEFAULT, flags, x, -1, y, -1) - CSTR_EQUAL;
}

double DateValue(const wchar_t* text) noexcept
{
    double value = 0.0;
    return TextToDateOrNumber(text, &value) ? value : 0.0;
}

int CompareDates(const wchar_t* x, const wchar_t* y) noexcept
{
    if (!*x || !*y)
        return Sign((*x != 0) - (*y != 0));
    if (_wcsicmp(x, y) == 0)
        return 0;
    double left = DateValue(x);
    return CompareNumbers(left, DateValue(y));
}

int CompareGeneric(const ColRecord& column, const wchar_t* x, const wchar_t* y) noexcept
{
    if (column.ColDataType == lorvDTDate)
        return CompareDates(x, y);
    if (column.ColDataType != lorvDTString && IsNumericText(x) && IsNumericText(y)) {
        double left = TextToDouble(x);
        return CompareNumbers(left, TextToDouble(y));
    }
    return CompareStrings(NORM_IGNORECASE, x, y);
}

// An empty text comes first in both directions here, unlike in a sort by keys.
int CompareNumeric(int direction, const wchar_t* x, const wchar_t* y) noexcept
{
    if (!*x)
        return -1;
    if (!*y)
        return 1;
    double left = TextToDouble(x);
    return direction * CompareNumbers(left, TextToDouble(y));
}
} // namespace

const wchar_t* SortText(Grid& grid, int row, int col, bool second) noexcept
{
    const wchar_t* text = GetCellText(grid, row, col);
    if (!text || !IsCol(grid, col)) // a text source can take columns away
        return L"";
    text = ListTextOf(grid.ColTable[col], text);
    return second && text == ScratchText() ? CopyToSecondScratch(text) : text;
}

int CompareTexts(const ColRecord& column, int mode, const wchar_t* x, const wchar_t* y) noexcept
{
    if (!*x && !*y)
        return 0;
    int exact = CompareStrings(0, x, y);
    if (exact == 0)
        return 0;
    int direction = DirectionOf(mode);
    switch (mode) {
    case lorvSortNone:
        return 0;
    case lorvSortGenericAscending:
    case lorvSortGenericDescending:
        return direction * CompareGeneric(column, x, y);
    case lorvSortNumericAscending:
    case lorvSortNumericDescending:
        return CompareNumeric(direction, x, y);
    case lorvSortStringNoCaseAscending:
    case lorvSortStringNoCaseDescending:
        return direction * CompareStrings(NORM_IGNORECASE, x, y);
    case lorvSortStringAscending:
    case lorvSortStringDescending:
        return direction * exact;
    default:
        return CompareFailed;
    }
}

bool ComparesAsStrings(const ColRecord& column, int mode, DWORD& flags) noexcept
{
    switch (mode) {
    case lorvSortGenericAscending:
    case lorvSortGenericDescending:
        flags = NORM_IGNORECASE;
        return column.ColDataType == lorvDTString;
    case lorvSortStringNoCaseAscending:
    case lorvSortStringNoCaseDescending:
        flags = NORM_IGNORECASE;
        return true;
    case lorvSortStringAscending:
    case lorvSortStringDescending:
        flags = 0;
        return true;
    default:
        return false;
    }
}
