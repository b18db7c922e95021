#pragma once

#include "shell/com_base.h"

#include <objsafe.h>

// What a host that runs foreign scripts asks the control to promise. With any option set the control is
// locked: see IsSafetyLocked.
class ObjectSafety : public ControlPart<IObjectSafety>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE GetInterfaceSafetyOptions(REFIID iid, DWORD* supported,
                                                        DWORD* enabled) override;
    HRESULT STDMETHODCALLTYPE SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD options) override;

protected:
    // Asked before every change; a no refuses it.
    virtual bool AllowSafetyChange() const noexcept { return true; }
};

// Members that read or write files named by a script report LORV_E_SAFETY in a locked control.
inline bool IsSafetyLocked(const Grid& grid) noexcept
{
    return grid.SafetyOptions != 0;
}
