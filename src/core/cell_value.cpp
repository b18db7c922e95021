#include "core/cell_value.h"

#include "core/cell_store.h"
#include "core/value_format.h"
#include "platform/bstr.h"
#include "platform/variant.h"

namespace
{
bool TextToBool(const wchar_t* text, VARIANT_BOOL& value) noexcept
{
    OwnedVariant variant;
    variant.Get().vt = VT_BSTR;
    variant.Get().bstrVal = Bstr(text).Detach();
    if (FAILED(VariantChangeType(&variant.Get(), &variant.Get(), 0, VT_BOOL)))
        return false;
    value = variant.Get().boolVal;
    return true;
}
} // namespace

double ValueOfCell(Grid& grid, int row, int col) noexcept
{
    const wchar_t* text = GetCellText(grid, row, col);
    if (!text || !*text)
        return 0.0;
    VARIANT_BOOL checked;
    if (grid.ColTable[col].ColDataType == lorvDTBoolean && !IsFixedCell(grid, row, col) &&
        TextToBool(text, checked))
        return checked ? -1.0 : 0.0;
    return TextToDouble(text);
}
