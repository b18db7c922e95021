#include "shell/property_browsing.h"

#include "platform/bstr.h"
#include "shell/property_table.h"

namespace
{
constexpr DISPID FormatStringDispid = 10;

constexpr PROPCAT AppearanceCategory = -5;
constexpr PROPCAT BehaviorCategory = -6;
constexpr PROPCAT DataCategory = -7;

// Headings of the control's own; the others have names that browsers know.
constexpr PROPCAT FirstOwnCategory = 11;
const wchar_t* const categoryNames[] = {L"Display", L"Selection", L"Subtotals", L"Layout",
                                        L"Editing", L"Scrolling", L"Merging",   L"Accessibility"};
enum : PROPCAT {
    Display = FirstOwnCategory,
    Selection,
    Subtotals,
    Layout,
    Editing,
    Scrolling,
    Merging,
    Accessibility
};

constexpr struct {
    DISPID Dispid;
    PROPCAT Category;
} categories[] = {
    {-520, AppearanceCategory}, // Appearance
    {-504, AppearanceCategory}, // BorderStyle
    {-512, AppearanceCategory}, // Font
    {-501, AppearanceCategory}, // BackColor
    {-513, AppearanceCategory}, // ForeColor
    {20, AppearanceCategory},   // BackColorFixed
    {21, AppearanceCategory},   // ForeColorFixed
    {22, AppearanceCategory},   // BackColorSel
    {23, AppearanceCategory},   // ForeColorSel
    {24, AppearanceCategory},   // BackColorBkg
    {96, AppearanceCategory},   // BackColorAlternate
    {43, AppearanceCategory},   // GridColor
    {44, AppearanceCategory},   // GridColorFixed
    {83, AppearanceCategory},   // TreeColor
    {74, AppearanceCategory},   // FloodColor
    {102, AppearanceCategory},  // SheetBorder
    {191, AppearanceCategory},  // BackColorFrozen
    {192, AppearanceCategory},  // ForeColorFrozen
    {201, AppearanceCategory},  // WallPaper
    {202, AppearanceCategory},  // WallPaperAlignment
    {190, BehaviorCategory},    // AllowUserFreezing
    {66, BehaviorCategory},     // AllowUserResizing
    {180, BehaviorCategory},    // AutoSizeMouse
    {88, BehaviorCategory},     // ExtendLastCol
    {111, BehaviorCategory},    // ExplorerBar
    {101, BehaviorCategory},    // TabBehavior
    {99, BehaviorCategory},     // OLEDragMode
    {100, BehaviorCategory},    // OLEDropMode
    {85, BehaviorCategory},     // AutoResize
    {93, BehaviorCategory},     // AutoSizeMode
    {110, BehaviorCategory},    // AutoSearch
    {199, BehaviorCategory},    // AutoSearchDelay
    {40, BehaviorCategory},     // FillStyle
    {69, DataCategory},
    {98, DataCategory}, // DataMode
    {70, DataCategory}, // VirtualData
    {68, DataCategory},
    {26, Display},        // TextStyle
    {27, Display},        // TextStyleFixed
    {41, Display},        // GridLines
    {42, Display},        // GridLinesFixed
    {84, Display},        // GridLineWidth
    {107, Display},       // Ellipsis
    {104, Display},       // PicturesOver
    {94, Display},        // RightToLeft
    {64, Display},        // PictureType
    {97, Display},        // OwnerDraw
    {25, Display},        // WordWrap
    {29, Selection},      // FocusRect
    {30, Selection},      // HighLight
    {103, Selection},     // AllowSelection
    {65, Selection},      // AllowBigSelection
    {61, Selection},      // SelectionMode
    {95, Subtotals},      // MultiTotals
    {77, Subtotals},      // SubtotalPosition
    {82, Subtotals},      // OutlineBar
    {108, Subtotals},     // OutlineCol
    {196, Subtotals},     // NodeOpenPicture
    {197, Subtotals},     // NodeClosedPicture
    {7, Layout},          // Rows
    {8, Layout},          // Cols
    {11, Layout},         // FixedRows
    {12, Layout},         // FixedCols
    {188, Layout},        // FrozenRows
    {189, Layout},        // FrozenCols
    {10, Layout},         // FormatString
    {39, Layout},         // RowHeightMin
    {109, Layout},        // RowHeightMax
    {173, Layout},        // ColWidthMin
    {174, Layout},        // ColWidthMax
    {71, Editing},        // Editable
    {176, Editing},       // ShowComboButton
    {177, Editing},       // CellButtonPicture
    {178, Editing},       // ComboSearch
    {28, Scrolling},      // ScrollTrack
    {32, Scrolling},      // ScrollBars
    {169, Scrolling},     // ScrollTips
    {62, Merging},        // MergeCells
    {106, Merging},       // MergeCompare
    {212, Accessibility}, // AccessibleName
    {213, Accessibility}, // AccessibleDescription
    {214, Accessibility}, // AccessibleValue
    {215, Accessibility}, // AccessibleRole
};
static_assert(std::size(categories) == 83);
} // namespace

HRESULT PropertyBrowsing::GetPages(CAUUID* pages)
{
    if (!pages)
        return E_POINTER;
    *pages = {};
    ULONG count = 0;
    for (const PropertyRow& row : PropertyTable)
        count += !IsPersisted(row);
    auto* ids = static_cast<GUID*>(CoTaskMemAlloc(count * sizeof(GUID)));
    if (!ids)
        return E_OUTOFMEMORY;
    *pages = {count, ids};
    for (const PropertyRow& row : PropertyTable)
        if (!IsPersisted(row))
            *ids++ = *row.Page;
    return S_OK;
}

// A format that was entered as a whole is too long to show; its marker is not.
HRESULT PropertyBrowsing::GetDisplayString(DISPID dispid, BSTR* text)
{
    if (!text)
        return E_POINTER;
    *text = nullptr;
    constexpr wchar_t marker[] = L"(Format)";
    constexpr size_t length = std::size(marker) - 1;
    if (dispid != FormatStringDispid || !grid_.FormatString ||
        _wcsnicmp(grid_.FormatString, marker, length) != 0)
        return E_NOTIMPL;
    return ReturnText(text, marker);
}

HRESULT PropertyBrowsing::MapPropertyToPage(DISPID dispid, CLSID* page)
{
    if (!page)
        return E_POINTER;
    *page = CLSID_NULL;
    for (const PropertyRow& row : PropertyTable)
        if (IsPersisted(row) && !row.Extent && row.Dispid == dispid) {
            if (!row.Page)
                return PERPROP_E_NOPAGEAVAILABLE;
            *page = *row.Page;
            return S_OK;
        }
    return E_INVALIDARG;
}

HRESULT PropertyBrowsing::MapPropertyToCategory(DISPID dispid, PROPCAT* category)
{
    if (!category)
        return E_POINTER;
    for (const auto& row : categories)
        if (row.Dispid == dispid) {
            *category = row.Category;
            return S_OK;
        }
    return E_FAIL;
}

HRESULT PropertyBrowsing::GetCategoryName(PROPCAT category, LCID, BSTR* name)
{
    if (!name)
        return E_POINTER;
    *name = nullptr;
    if (category < FirstOwnCategory || category > Accessibility)
        return E_FAIL;
    return ReturnText(name, categoryNames[category - FirstOwnCategory]);
}
