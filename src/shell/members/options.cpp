// Members of the grid: switches and enumerated words.
#include "core/events.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"

namespace
{
constexpr SwitchProperty scrollTrack = {28, &Grid::OptionWord, OptionScrollTrack};
constexpr SwitchProperty allowBigSelection = {65, &Grid::OptionWord, OptionAllowBigSelection};
constexpr SwitchProperty allowSelection = {103, &Grid::OptionWord, OptionAllowSelection};
constexpr SwitchProperty autoResize = {85, &Grid::OptionWord, OptionAutoResize};
constexpr SwitchProperty multiTotals = {95, &Grid::OptionWord, OptionMultiTotals};
constexpr SwitchProperty virtualData = {70, &Grid::DataOptions, DataOptionVirtualData};
constexpr SwitchProperty autoSizeMouse = {180, &Grid::MouseOptions, MouseOptionAutoSizeMouse};
constexpr SwitchProperty wordWrap = {25, &Grid::OptionWord, OptionWordWrap, StepRepaint};
constexpr SwitchProperty extendLastCol = {88, &Grid::OptionWord, OptionExtendLastCol, StepRepaint};
constexpr SwitchProperty picturesOver = {104, &Grid::OptionWord, OptionPicturesOver, StepRepaint};
constexpr SwitchProperty rightToLeft = {94, &Grid::OptionWord, OptionRightToLeft,
                                        StepRestyle | StepLayout | StepRepaint};

constexpr WordProperty textStyle = {26, &Grid::TextStyle, 4, StepRepaint};
constexpr WordProperty textStyleFixed = {27, &Grid::TextStyleFixed, 4, StepRepaint};
constexpr WordProperty focusRect = {29, &Grid::FocusRect, 5, StepRepaintCurrentCell};
constexpr WordProperty highLight = {30, &Grid::HighLight, 2, StepRepaint, MinusOne::IsOne};
constexpr WordProperty fillStyle = {40, &Grid::FillStyle, 1};
constexpr WordProperty gridLines = {41, &Grid::GridLines, 14, StepRepaint, MinusOne::IsOne};
constexpr WordProperty gridLinesFixed = {42, &Grid::GridLinesFixed, 14, StepRepaint};
constexpr WordProperty pictureType = {64, &Grid::PictureType, 2};
constexpr WordProperty allowUserResizing = {66, &Grid::AllowUserResizing, 4};
constexpr WordProperty autoSizeMode = {93, &Grid::AutoSizeMode, 1};
constexpr WordProperty ownerDraw = {97, &Grid::OwnerDraw, 6, StepRepaint};
constexpr WordProperty dataMode = {98, &Grid::DataMode, 4, StepRepaint};
constexpr WordProperty oleDragMode = {99, &Grid::OLEDragMode, 1};
constexpr WordProperty tabBehavior = {101, &Grid::TabBehavior, 1};
constexpr WordProperty ellipsis = {107, &Grid::Ellipsis, 2, StepRepaint};
constexpr LongProperty showComboButton = {176, &Grid::ShowComboButton, 2, StepRepaint, MinusOne::IsOne};
constexpr LongProperty comboSearch = {178, &Grid::ComboSearch, 3};
constexpr LongProperty allowUserFreezing = {190, &Grid::AllowUserFreezing, 3, StepRepaint};
constexpr WordProperty wallPaperAlignment = {202, &Grid::WallPaperAlignment, 10, StepRepaint};
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::get_ScrollTrack(VARIANT_BOOL* result)
{
    return GetSwitch(*this, scrollTrack, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ScrollTrack(VARIANT_BOOL value)
{
    return SetSwitch(*this, scrollTrack, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AllowBigSelection(VARIANT_BOOL* result)
{
    return GetSwitch(*this, allowBigSelection, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AllowBigSelection(VARIANT_BOOL value)
{
    return SetSwitch(*this, allowBigSelection, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AllowSelection(VARIANT_BOOL* result)
{
    return GetSwitch(*this, allowSelection, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AllowSelection(VARIANT_BOOL value)
{
    return SetSwitch(*this, allowSelection, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AutoResize(VARIANT_BOOL* result)
{
    return GetSwitch(*this, autoResize, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AutoResize(VARIANT_BOOL value)
{
    return SetSwitch(*this, autoResize, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MultiTotals(VARIANT_BOOL* result)
{
    return GetSwitch(*this, multiTotals, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MultiTotals(VARIANT_BOOL value)
{
    return SetSwitch(*this, multiTotals, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_VirtualData(VARIANT_BOOL* result)
{
    return GetSwitch(*this, virtualData, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_VirtualData(VARIANT_BOOL value)
{
    return SetSwitch(*this, virtualData, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AutoSizeMouse(VARIANT_BOOL* result)
{
    return GetSwitch(*this, autoSizeMouse, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AutoSizeMouse(VARIANT_BOOL value)
{
    return SetSwitch(*this, autoSizeMouse, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_WordWrap(VARIANT_BOOL* result)
{
    return GetSwitch(*this, wordWrap, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_WordWrap(VARIANT_BOOL value)
{
    return SetSwitch(*this, wordWrap, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ExtendLastCol(VARIANT_BOOL* result)
{
    return GetSwitch(*this, extendLastCol, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ExtendLastCol(VARIANT_BOOL value)
{
    return SetSwitch(*this, extendLastCol, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_PicturesOver(VARIANT_BOOL* result)
{
    return GetSwitch(*this, picturesOver, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_PicturesOver(VARIANT_BOOL value)
{
    return SetSwitch(*this, picturesOver, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_RightToLeft(VARIANT_BOOL* result)
{
    return GetSwitch(*this, rightToLeft, result);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_RightToLeft(VARIANT_BOOL value)
{
    return SetSwitch(*this, rightToLeft, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TextStyle(TextStyleSettings* result)
{
    return Return(result, TextStyle);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TextStyle(TextStyleSettings value)
{
    return SetEnum(*this, textStyle, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TextStyleFixed(TextStyleSettings* result)
{
    return Return(result, TextStyleFixed);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TextStyleFixed(TextStyleSettings value)
{
    return SetEnum(*this, textStyleFixed, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FocusRect(FocusRectSettings* result)
{
    return Return(result, FocusRect);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FocusRect(FocusRectSettings value)
{
    return SetEnum(*this, focusRect, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_HighLight(ShowSelSettings* result)
{
    return Return(result, HighLight);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_HighLight(ShowSelSettings value)
{
    return SetEnum(*this, highLight, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_FillStyle(FillStyleSettings* result)
{
    return Return(result, FillStyle);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_FillStyle(FillStyleSettings value)
{
    return SetEnum(*this, fillStyle, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GridLines(GridStyleSettings* result)
{
    return Return(result, GridLines);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GridLines(GridStyleSettings value)
{
    return SetEnum(*this, gridLines, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GridLinesFixed(GridStyleSettings* result)
{
    return Return(result, GridLinesFixed);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GridLinesFixed(GridStyleSettings value)
{
    return SetEnum(*this, gridLinesFixed, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_PictureType(PictureTypeSettings* result)
{
    return Return(result, PictureType);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_PictureType(PictureTypeSettings value)
{
    return SetEnum(*this, pictureType, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AllowUserResizing(AllowUserResizeSettings* result)
{
    return Return(result, AllowUserResizing);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AllowUserResizing(AllowUserResizeSettings value)
{
    return SetEnum(*this, allowUserResizing, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AutoSizeMode(AutoSizeSettings* result)
{
    return Return(result, AutoSizeMode);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AutoSizeMode(AutoSizeSettings value)
{
    return SetEnum(*this, autoSizeMode, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_OwnerDraw(OwnerDrawSettings* result)
{
    return Return(result, OwnerDraw);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_OwnerDraw(OwnerDrawSettings value)
{
    return SetEnum(*this, ownerDraw, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_DataMode(DataModeSettings* result)
{
    return Return(result, DataMode);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_DataMode(DataModeSettings value)
{
    KeepAlive alive(*this);
    IsDesignMode(*this); // asks the host, if it was never asked
    return SetEnum(*this, dataMode, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_OLEDragMode(OLEDragModeSettings* result)
{
    return Return(result, OLEDragMode);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_OLEDragMode(OLEDragModeSettings value)
{
    return SetEnum(*this, oleDragMode, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_TabBehavior(TabBehaviorSettings* result)
{
    return Return(result, TabBehavior);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_TabBehavior(TabBehaviorSettings value)
{
    return SetEnum(*this, tabBehavior, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Ellipsis(EllipsisSettings* result)
{
    return Return(result, Ellipsis);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Ellipsis(EllipsisSettings value)
{
    return SetEnum(*this, ellipsis, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ShowComboButton(ShowButtonSettings* result)
{
    return Return(result, ShowComboButton);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ShowComboButton(ShowButtonSettings value)
{
    return SetEnum(*this, showComboButton, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ComboSearch(ComboSearchSettings* result)
{
    return Return(result, ComboSearch);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_ComboSearch(ComboSearchSettings value)
{
    return SetEnum(*this, comboSearch, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_AllowUserFreezing(AllowUserFreezeSettings* result)
{
    return Return(result, AllowUserFreezing);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_AllowUserFreezing(AllowUserFreezeSettings value)
{
    return SetEnum(*this, allowUserFreezing, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_WallPaperAlignment(PictureAlignmentSettings* result)
{
    return Return(result, WallPaperAlignment);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_WallPaperAlignment(PictureAlignmentSettings value)
{
    return SetEnum(*this, wallPaperAlignment, value);
}

// A run-time member: a form designer always sees the grid painted.
HRESULT STDMETHODCALLTYPE GridMembers::get_Redraw(RedrawSettings* result)
{
    return ReturnAtRunTime(*this, result, Redraw);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Redraw(RedrawSettings value)
{
    return SetRedraw(*this, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Editable(EditableSettings* result)
{
    return Return(result, Editable);
}

// Never refuses: an automation True and every value above the last one are lorvEDKbd.
HRESULT STDMETHODCALLTYPE GridMembers::put_Editable(EditableSettings value)
{
    Editable = static_cast<unsigned>(value) > lorvEDKbdMouse ? lorvEDKbd : value;
    FinishProperty(*this, 71, StepNone);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_GridLineWidth(SHORT* result)
{
    return Return(result, GridLineWidth);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_GridLineWidth(SHORT value)
{
    if (value < 0)
        return LORV_E_VALUE;
    GridLineWidth = static_cast<uint16_t>(value);
    RebuildGdi(*this, 5);
    RebuildGdi(*this, 6);
    FinishProperty(*this, 84, StepRepaint);
    return S_OK;
}
