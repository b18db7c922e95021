#pragma once

#include "shell/com_base.h"

// One call that sites the control, connects the host's sinks and tells the control's status.
class QuickActivation final : public ControlPart<IQuickActivate>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL extent) override;
    HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL extent) override;

    LCID HostLocale() const noexcept { return locale_; }

private:
    LCID locale_ = LOCALE_USER_DEFAULT;
};
