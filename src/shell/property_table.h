#pragma once
// What persists: the shape and look of the grid, neither its cells nor its columns. The order is that of
// the stored stream and never changes.

#include <oaidl.h>
#include <windows.h>

struct PropertyRow {
    const wchar_t* Name; // null: the row only names a property page
    const CLSID* Page;   // null: no page shows the property
    DISPID Dispid;       // DISPID_UNKNOWN for what is no property
    LONG SIZE::*Extent;  // a number of the control's extent, stored as VT_UI4; null: through IDispatch
};

constexpr int PropertyRowCount = 89;
extern const PropertyRow PropertyTable[PropertyRowCount];

inline bool IsPersisted(const PropertyRow& row) noexcept
{
    return row.Name != nullptr;
}
