#pragma once
// What every property setter is made of: guards, the notification, the report of a failure.

#include "core/errors.h"
#include "core/grid_object.h"

// Sets RequiresSave and tells each property sink, in the order of connection, that `dispid` changed.
void MarkDirtyAndNotify(Grid& grid, DISPID dispid);

// What a setter does once it has stored its value, in this order. The notification comes last: a sink that
// reads TopRow sees the new layout, and the repaint has been asked for.
enum SetterStep : unsigned {
    StepNone = 0,
    StepMergeStale = 1, // the property changes what merges
    StepRestyle = 2,    // the window's border styles
    StepLayout = 4,
    StepRepaint = 8,
    StepRepaintCurrentCell = 16,
};
// For per-row and per-column members, which neither mark the grid nor notify.
void RunSetterSteps(Grid& grid, unsigned steps);
// For properties: the steps, then MarkDirtyAndNotify.
void FinishProperty(Grid& grid, DISPID dispid, unsigned steps);

// Whether the host is a form designer. The answer of the host is cached; a host that cannot be asked
// counts as none, and is asked again.
bool IsDesignMode(Grid& grid);
// Asks the host for an ambient property; false when it does not answer.
bool ReadAmbient(Grid& grid, DISPID dispid, VARIANT& value) noexcept;

// Guards of structural members; each returns 0 or ReportError(LORV_E_BOUND).
// While a custom source is attached, or at design time, a bound grid may still be changed.
HRESULT GuardRows(Grid& grid);
// For `Cols`: a bound grid keeps its columns, at design time too.
HRESULT GuardCols(Grid& grid);
// For members that add, remove or sort rows: neither a bound array nor a custom source bears it.
HRESULT GuardRowContents(Grid& grid);

// Publishes error information for the six codes that have a text, fires `Error` for the two that ask the
// host first, and returns the code. Any other code is handed back as it is.
HRESULT ReportError(Grid& grid, HRESULT code);
// The text of a reported code from the module's string table, "Unknown Error" when it has none.
constexpr int ErrorTextCapacity = 1024;
const wchar_t* LoadErrorText(HRESULT code, wchar_t (&buffer)[ErrorTextCapacity]) noexcept;

// The font of the grid, made from the default description at first need; null when that fails.
IFont* GridFont(Grid& grid) noexcept;
// Its handle, borrowed; the cached one if there is one.
HFONT GridFontHandle(Grid& grid) noexcept;
// What follows from a change of the font: the handle is stale, row heights are measured anew.
void FontChanged(Grid& grid);

// What `FixedRows`, `FixedCols`, `FrozenRows` and `FrozenCols` set.
HRESULT SetFixedRows(Grid& grid, int count);
HRESULT SetFixedCols(Grid& grid, int count);
HRESULT SetFrozenRows(Grid& grid, int count);
HRESULT SetFrozenCols(Grid& grid, int count);
HRESULT SetRedraw(Grid& grid, int value);
