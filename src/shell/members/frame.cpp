// Members of the grid: the window, its look and the flags.
#include "core/events.h"
#include "shell/members/members.h"
#include "shell/members/property_setters.h"
#include "view/mouse_cursor.h"

namespace
{
constexpr LONG GridVersion = 802;

constexpr WordProperty appearance = {DISPID_APPEARANCE, &Grid::Appearance, 3, StepRestyle | StepRepaint};
constexpr WordProperty borderStyle = {DISPID_BORDERSTYLE, &Grid::BorderStyle, 1, StepRestyle | StepRepaint};
constexpr PictureProperty mouseIcon = {DISPID_MOUSEICON, &Grid::MouseIcon, StepNone};

bool IsPointer(int value) noexcept
{
    return (value >= lorvDefault && value <= lorvSizeAll) ||
           (value >= lorvPointerCopy && value <= lorvHand) || value == lorvCustom;
}
} // namespace

HRESULT STDMETHODCALLTYPE GridMembers::Refresh()
{
    RepaintGrid(*this);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MouseIcon(IPictureDisp** result)
{
    return ReturnReference(result, MouseIcon);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MouseIcon(IPictureDisp* value)
{
    return SetPicture(*this, mouseIcon, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::putref_MouseIcon(IPictureDisp* value)
{
    return SetPicture(*this, mouseIcon, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_MousePointer(MousePointerSettings* result)
{
    return Return(result, MousePointer);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_MousePointer(MousePointerSettings value)
{
    if (!IsPointer(value))
        return LORV_E_VALUE;
    SetMousePointer(*this, value);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Appearance(AppearanceSettings* result)
{
    return Return(result, Appearance);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Appearance(AppearanceSettings value)
{
    return SetEnum(*this, appearance, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_BorderStyle(BorderStyleSettings* result)
{
    return Return(result, BorderStyle);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_BorderStyle(BorderStyleSettings value)
{
    return SetEnum(*this, borderStyle, value);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_hWnd(LONG* result)
{
    return Return(result, HandleToLong(Window));
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Enabled(VARIANT_BOOL* result)
{
    return ReturnFlag(result, Enabled);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Enabled(VARIANT_BOOL value)
{
    KeepAlive alive(*this);
    Enabled = value != VARIANT_FALSE;
    if (Window)
        EnableWindow(Window, Enabled);
    FinishProperty(*this, DISPID_ENABLED, StepRepaint);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Version(LONG* result)
{
    return Return(result, GridVersion);
}

// There to be stored and loaded, not to be changed.
HRESULT STDMETHODCALLTYPE GridMembers::put_Version(LONG value)
{
    return value == GridVersion ? S_OK : LORV_E_CANNOTSET;
}

HRESULT STDMETHODCALLTYPE GridMembers::get_Flags(ControlFlagsSettings* result)
{
    return Return(result, Flags);
}

HRESULT STDMETHODCALLTYPE GridMembers::put_Flags(ControlFlagsSettings value)
{
    KeepAlive alive(*this);
    IsDesignMode(*this); // asks the host, if it was never asked
    Flags = static_cast<uint32_t>(value);
    FinishProperty(*this, 217, StepNone);
    return S_OK;
}
