#pragma once
// Every event of the grid, as a typed call. All of them end in `Fire`, the one door out. A handler may
// call any member, drop its sink or destroy the control: after an event, re-read what you need.
// A `Cancel`-like argument comes back as the result.

#include "core/grid_object.h"

// Delivers an event to each sink, the last argument first in `arguments`. Nothing fires while `Closing`.
void Fire(Grid& grid, DISPID dispid, unsigned count, VARIANTARG* arguments);

// Holds the control for the length of a scope in which events fire. One on its way out cannot be held any
// more: nothing fires then.
class KeepAlive
{
public:
    explicit KeepAlive(const Grid& grid) noexcept : outer_(grid.Closing ? nullptr : grid.Outer)
    {
        if (outer_)
            outer_->AddRef();
    }
    KeepAlive(const KeepAlive&) = delete;
    KeepAlive& operator=(const KeepAlive&) = delete;
    ~KeepAlive()
    {
        if (outer_)
            outer_->Release();
    }

private:
    IUnknown* outer_;
};

namespace event
{
namespace detail
{
inline void Set(VARIANTARG& to, int value) noexcept
{
    to.vt = VT_I4, to.lVal = value;
}
inline void Set(VARIANTARG& to, short value) noexcept
{
    to.vt = VT_I2, to.iVal = value;
}
inline void Set(VARIANTARG& to, float value) noexcept
{
    to.vt = VT_R4, to.fltVal = value;
}
inline void Set(VARIANTARG& to, bool value) noexcept
{
    to.vt = VT_BOOL, to.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void Set(VARIANTARG& to, LONG* value) noexcept
{
    to.vt = VT_BYREF | VT_I4, to.plVal = value;
}
inline void Set(VARIANTARG& to, IDispatch** value) noexcept
{
    to.vt = VT_BYREF | VT_DISPATCH, to.ppdispVal = value;
}
inline void Set(VARIANTARG& to, VARIANT* value) noexcept
{
    to.vt = VT_BYREF | VT_VARIANT, to.pvarVal = value;
}

// VARIANT_BOOL and SHORT are one C++ type; which of them a by-reference argument is, the caller says.
struct BoolRef {
    VARIANT_BOOL* Value;
};
struct ShortRef {
    SHORT* Value;
};
inline void Set(VARIANTARG& to, BoolRef ref) noexcept
{
    to.vt = VT_BYREF | VT_BOOL, to.pboolVal = ref.Value;
}
inline void Set(VARIANTARG& to, ShortRef ref) noexcept
{
    to.vt = VT_BYREF | VT_I2, to.piVal = ref.Value;
}

inline bool HasListener(const Grid& grid) noexcept
{
    return grid.EventSinks.Size() != 0 && !grid.Closing;
}

template<class... Arguments> void Send(Grid& grid, DISPID dispid, Arguments... arguments)
{
    if (!HasListener(grid))
        return;
    constexpr unsigned count = sizeof...(Arguments);
    VARIANTARG array[count ? count : 1] = {};
    unsigned slot = count;
    (Set(array[--slot], arguments), ...);
    Fire(grid, dispid, count, array);
}

// Sends with a trailing BOOL* that starts as `flag`; returns what the handlers left in it.
template<class... Arguments> bool Ask(Grid& grid, DISPID dispid, bool flag, Arguments... arguments)
{
    VARIANT_BOOL value = flag ? VARIANT_TRUE : VARIANT_FALSE;
    Send(grid, dispid, arguments..., BoolRef{&value});
    return value != VARIANT_FALSE;
}

// Hosts that asked for it get no selection event that names a cell outside the grid.
inline bool HidesPositions(const Grid& grid, int row1, int col1, int row2, int col2) noexcept
{
    return (grid.Flags & lorvCFV7SelectionEvents) && !(IsCell(grid, row1, col1) && IsCell(grid, row2, col2));
}
} // namespace detail

inline void Click(Grid& grid)
{
    detail::Send(grid, -600);
}
inline void DblClick(Grid& grid)
{
    detail::Send(grid, -601);
}
inline void KeyDown(Grid& grid, short& keyCode, short shift)
{
    detail::Send(grid, -602, detail::ShortRef{&keyCode}, shift);
}
inline void KeyPress(Grid& grid, short& keyAscii)
{
    detail::Send(grid, -603, detail::ShortRef{&keyAscii});
}
inline void KeyUp(Grid& grid, short& keyCode, short shift)
{
    detail::Send(grid, -604, detail::ShortRef{&keyCode}, shift);
}
inline void MouseDown(Grid& grid, short button, short shift, float x, float y)
{
    detail::Send(grid, -605, button, shift, x, y);
}
inline void MouseMove(Grid& grid, short button, short shift, float x, float y)
{
    detail::Send(grid, -606, button, shift, x, y);
}
inline void MouseUp(Grid& grid, short button, short shift, float x, float y)
{
    detail::Send(grid, -607, button, shift, x, y);
}

inline void SelChange(Grid& grid)
{
    detail::Send(grid, 1);
}
inline void RowColChange(Grid& grid)
{
    detail::Send(grid, 2);
}
inline void EnterCell(Grid& grid)
{
    detail::Send(grid, 3);
}
inline void LeaveCell(Grid& grid)
{
    detail::Send(grid, 4);
}
inline bool BeforeMouseDown(Grid& grid, short button, short shift, float x, float y)
{
    return detail::Ask(grid, 5, false, button, shift, x, y);
}
inline bool BeforeRowColChange(Grid& grid, int oldRow, int oldCol, int newRow, int newCol)
{
    return !detail::HidesPositions(grid, oldRow, oldCol, newRow, newCol) &&
           detail::Ask(grid, 6, false, oldRow, oldCol, newRow, newCol);
}
inline void AfterRowColChange(Grid& grid, int oldRow, int oldCol, int newRow, int newCol)
{
    if (!detail::HidesPositions(grid, oldRow, oldCol, newRow, newCol))
        detail::Send(grid, 7, oldRow, oldCol, newRow, newCol);
}
inline bool BeforeSelChange(Grid& grid, int oldRowSel, int oldColSel, int newRowSel, int newColSel)
{
    return !detail::HidesPositions(grid, oldRowSel, oldColSel, newRowSel, newColSel) &&
           detail::Ask(grid, 8, false, oldRowSel, oldColSel, newRowSel, newColSel);
}
inline void AfterSelChange(Grid& grid, int oldRowSel, int oldColSel, int newRowSel, int newColSel)
{
    if (!detail::HidesPositions(grid, oldRowSel, oldColSel, newRowSel, newColSel))
        detail::Send(grid, 9, oldRowSel, oldColSel, newRowSel, newColSel);
}
inline bool BeforeScroll(Grid& grid, int oldTopRow, int oldLeftCol, int newTopRow, int newLeftCol)
{
    return detail::Ask(grid, 10, false, oldTopRow, oldLeftCol, newTopRow, newLeftCol);
}
inline void AfterScroll(Grid& grid, int oldTopRow, int oldLeftCol, int newTopRow, int newLeftCol)
{
    detail::Send(grid, 11, oldTopRow, oldLeftCol, newTopRow, newLeftCol);
}
inline short Compare(Grid& grid, int row1, int row2)
{
    SHORT order = 0;
    detail::Send(grid, 12, row1, row2, detail::ShortRef{&order});
    return order;
}
inline void BeforeSort(Grid& grid, int col, short& order)
{
    detail::Send(grid, 13, col, detail::ShortRef{&order});
}
inline void AfterSort(Grid& grid, int col, short& order)
{
    detail::Send(grid, 14, col, detail::ShortRef{&order});
}
inline void BeforeMoveColumn(Grid& grid, int col, LONG& position)
{
    detail::Send(grid, 15, col, &position);
}
inline void AfterMoveColumn(Grid& grid, int col, LONG& position)
{
    detail::Send(grid, 16, col, &position);
}
inline bool BeforeUserResize(Grid& grid, int row, int col)
{
    return detail::Ask(grid, 17, false, row, col);
}
inline void AfterUserResize(Grid& grid, int row, int col)
{
    detail::Send(grid, 18, row, col);
}
inline bool BeforeCollapse(Grid& grid, int row, short state)
{
    return detail::Ask(grid, 19, false, row, state);
}
inline void AfterCollapse(Grid& grid, int row, short state)
{
    detail::Send(grid, 20, row, state);
}

// The three vetoes of an edit share one flag, which the editor keeps.
inline void BeforeEdit(Grid& grid, int row, int col, VARIANT_BOOL& cancel)
{
    detail::Send(grid, 21, row, col, detail::BoolRef{&cancel});
}
inline void StartEdit(Grid& grid, int row, int col, VARIANT_BOOL& cancel)
{
    detail::Send(grid, 22, row, col, detail::BoolRef{&cancel});
}
inline void ValidateEdit(Grid& grid, int row, int col, VARIANT_BOOL& cancel)
{
    detail::Send(grid, 23, row, col, detail::BoolRef{&cancel});
}
inline void AfterEdit(Grid& grid, int row, int col)
{
    detail::Send(grid, 24, row, col);
}
inline void KeyPressEdit(Grid& grid, int row, int col, short& keyAscii)
{
    detail::Send(grid, 25, row, col, detail::ShortRef{&keyAscii});
}
inline void KeyDownEdit(Grid& grid, int row, int col, short& keyCode, short shift)
{
    detail::Send(grid, 26, row, col, detail::ShortRef{&keyCode}, shift);
}
inline void KeyUpEdit(Grid& grid, int row, int col, short& keyCode, short shift)
{
    detail::Send(grid, 27, row, col, detail::ShortRef{&keyCode}, shift);
}
inline void ChangeEdit(Grid& grid)
{
    detail::Send(grid, 28);
}

// The result is whether the page may break after the row.
inline bool BeforePageBreak(Grid& grid, int row)
{
    return detail::Ask(grid, 29, true, row);
}
inline void GetHeaderRow(Grid& grid, int row, LONG& headerRow)
{
    detail::Send(grid, 30, row, &headerRow);
}
inline void StartPage(Grid& grid, int hdc, int page, VARIANT_BOOL& cancel)
{
    detail::Send(grid, 31, hdc, page, detail::BoolRef{&cancel});
}
// True when the handler has drawn the cell. The rectangle is in pixels.
inline bool DrawCell(Grid& grid, HDC dc, int row, int col, const RECT& area)
{
    return detail::Ask(grid, 32, false, static_cast<int>(reinterpret_cast<intptr_t>(dc)), row, col,
                       static_cast<int>(area.left), static_cast<int>(area.top), static_cast<int>(area.right),
                       static_cast<int>(area.bottom));
}
// True when the message is still to be shown.
inline bool Error(Grid& grid, int errorCode)
{
    return detail::Ask(grid, 33, true, errorCode);
}
inline void CellButtonClick(Grid& grid, int row, int col)
{
    detail::Send(grid, 34, row, col);
}
inline void BeforeScrollTip(Grid& grid, int row)
{
    detail::Send(grid, 35, row);
}
inline void AfterUserFreeze(Grid& grid)
{
    detail::Send(grid, 36);
}

inline void OLEStartDrag(Grid& grid, IDispatch*& data, LONG& allowedEffects)
{
    detail::Send(grid, 37, &data, &allowedEffects);
}
inline void OLEGiveFeedback(Grid& grid, LONG& effect, VARIANT_BOOL& defaultCursors)
{
    detail::Send(grid, 38, &effect, detail::BoolRef{&defaultCursors});
}
inline void OLESetData(Grid& grid, IDispatch*& data, SHORT& dataFormat)
{
    detail::Send(grid, 39, &data, detail::ShortRef{&dataFormat});
}
inline void OLECompleteDrag(Grid& grid, LONG& effect)
{
    detail::Send(grid, 40, &effect);
}
inline void OLEDragOver(Grid& grid, IDispatch*& data, LONG& effect, short button, short shift, float x,
                        float y, SHORT& state)
{
    detail::Send(grid, 41, &data, &effect, button, shift, x, y, detail::ShortRef{&state});
}
inline void OLEDragDrop(Grid& grid, IDispatch*& data, LONG& effect, short button, short shift, float x,
                        float y)
{
    detail::Send(grid, 42, &data, &effect, button, shift, x, y);
}
inline void OLESetCustomDataObject(Grid& grid, VARIANT& customDataObject)
{
    detail::Send(grid, 47, &customDataObject);
}

inline void CellChanged(Grid& grid, int row, int col)
{
    detail::Send(grid, 43, row, col);
}
inline void BeforeMoveRow(Grid& grid, int row, LONG& position)
{
    detail::Send(grid, 44, row, &position);
}
inline void AfterMoveRow(Grid& grid, int row, LONG& position)
{
    detail::Send(grid, 45, row, &position);
}
inline void SetupEditWindow(Grid& grid, int row, int col, HWND editWindow, bool isCombo)
{
    detail::Send(grid, 46, row, col, static_cast<int>(reinterpret_cast<intptr_t>(editWindow)), isCombo);
}
inline void SetupEditStyle(Grid& grid, int row, int col, bool isCombo, LONG& style, LONG& styleEx)
{
    detail::Send(grid, 48, row, col, isCombo, &style, &styleEx);
}
inline void ComboDropDown(Grid& grid, int row, int col)
{
    detail::Send(grid, 49, row, col);
}
inline void ComboCloseUp(Grid& grid, int row, int col, VARIANT_BOOL& finishEdit)
{
    detail::Send(grid, 50, row, col, detail::BoolRef{&finishEdit});
}
inline void StartAutoSearch(Grid& grid)
{
    detail::Send(grid, 51);
}
inline void EndAutoSearch(Grid& grid)
{
    detail::Send(grid, 52);
}
inline void SetFocus(Grid& grid)
{
    detail::Send(grid, 83);
}
inline void KillFocus(Grid& grid)
{
    detail::Send(grid, 84);
}
inline void Resize(Grid& grid)
{
    detail::Send(grid, 85);
}

struct ComboItem {
    int Col, Row, Id, Action, State;
};
// Left, right, top, bottom: the order of this event's own arguments.
inline bool ComboDrawItem(Grid& grid, const ComboItem& item, HDC dc, const RECT& area)
{
    return detail::Ask(grid, 86, false, item.Col, item.Row, item.Id, item.Action, item.State,
                       static_cast<int>(reinterpret_cast<intptr_t>(dc)), static_cast<int>(area.left),
                       static_cast<int>(area.right), static_cast<int>(area.top),
                       static_cast<int>(area.bottom));
}
} // namespace event
