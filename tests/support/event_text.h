#pragma once
// Events as text, for tests that compare whole sequences: "LeaveCell BeforeRowColChange(3,2,5,2)".

#include <oaidl.h>
#include <windows.h>

#include <cmath>
#include <string>

inline std::string EventName(DISPID id)
{
    static constexpr struct {
        DISPID Id;
        const char* Name;
    } names[] = {
        {-600, "Click"},
        {-601, "DblClick"},
        {-602, "KeyDown"},
        {-603, "KeyPress"},
        {-604, "KeyUp"},
        {-605, "MouseDown"},
        {-606, "MouseMove"},
        {-607, "MouseUp"},
        {1, "SelChange"},
        {2, "RowColChange"},
        {3, "EnterCell"},
        {4, "LeaveCell"},
        {5, "BeforeMouseDown"},
        {6, "BeforeRowColChange"},
        {7, "AfterRowColChange"},
        {8, "BeforeSelChange"},
        {9, "AfterSelChange"},
        {10, "BeforeScroll"},
        {11, "AfterScroll"},
        {12, "Compare"},
        {13, "BeforeSort"},
        {14, "AfterSort"},
        {15, "BeforeMoveColumn"},
        {16, "AfterMoveColumn"},
        {17, "BeforeUserResize"},
        {18, "AfterUserResize"},
        {19, "BeforeCollapse"},
        {20, "AfterCollapse"},
        {21, "BeforeEdit"},
        {22, "StartEdit"},
        {23, "ValidateEdit"},
        {24, "AfterEdit"},
        {25, "KeyPressEdit"},
        {26, "KeyDownEdit"},
        {27, "KeyUpEdit"},
        {28, "ChangeEdit"},
        {29, "BeforePageBreak"},
        {30, "GetHeaderRow"},
        {31, "StartPage"},
        {32, "DrawCell"},
        {33, "Error"},
        {34, "CellButtonClick"},
        {35, "BeforeScrollTip"},
        {36, "AfterUserFreeze"},
        {37, "OLEStartDrag"},
        {38, "OLEGiveFeedback"},
        {39, "OLESetData"},
        {40, "OLECompleteDrag"},
        {41, "OLEDragOver"},
        {42, "OLEDragDrop"},
        {47, "OLESetCustomDataObject"},
        {43, "CellChanged"},
        {44, "BeforeMoveRow"},
        {45, "AfterMoveRow"},
        {46, "SetupEditWindow"},
        {48, "SetupEditStyle"},
        {49, "ComboDropDown"},
        {50, "ComboCloseUp"},
        {51, "StartAutoSearch"},
        {52, "EndAutoSearch"},
        {83, "SetFocus"},
        {84, "KillFocus"},
        {85, "Resize"},
        {86, "ComboDrawItem"},
    };
    for (const auto& entry : names)
        if (entry.Id == id)
            return entry.Name;
    return std::to_string(id);
}

// A number, or nothing for what is neither a number nor points to one.
inline std::string ArgumentText(const VARIANTARG& argument)
{
    switch (argument.vt) {
    case VT_I2:
    case VT_BOOL:
        return std::to_string(argument.iVal);
    case VT_I4:
        return std::to_string(argument.lVal);
    case VT_R4:
        return std::to_string(std::lround(argument.fltVal));
    case VT_BYREF | VT_I2:
        return std::to_string(*argument.piVal);
    case VT_BYREF | VT_I4:
        return std::to_string(*argument.plVal);
    default:
        return "";
    }
}

// The event with its arguments; flags to be answered, such as Cancel, are left out.
inline std::string EventText(DISPID id, const DISPPARAMS& parameters)
{
    std::string text;
    for (UINT slot = parameters.cArgs; slot-- > 0;)
        if (parameters.rgvarg[slot].vt != (VT_BYREF | VT_BOOL))
            text += (text.empty() ? "" : ",") + ArgumentText(parameters.rgvarg[slot]);
    return EventName(id) + (text.empty() ? "" : "(" + text + ")");
}
