#pragma once

#include "shell/com_base.h"

// What the control tells of its class: its types and its events.
class ClassInfo final : public ControlPart<IProvideClassInfo2>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;
};

// Which interface reports failures with error information.
class ErrorSupport final : public ControlPart<ISupportErrorInfo>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;
};
