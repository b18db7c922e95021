#pragma once
// The three ways a host stores the control. All of them go through the property table.

#include "shell/com_base.h"

class PersistStream final : public ControlPart<IPersistStreamInit>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
    HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitNew() override;
};

// A stream named "Contents" in the host's storage.
class PersistStorage final : public ControlPart<IPersistStorage>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE InitNew(IStorage*) override;
    HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
    HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) override;
    HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE HandsOffStorage() override { return S_OK; }
};

// Name by name, as form files have it.
class PersistPropertyBag final : public ControlPart<IPersistPropertyBag>
{
public:
    using ControlPart::ControlPart;

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* errors) override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;
};
