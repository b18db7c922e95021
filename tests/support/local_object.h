#pragma once
// COM objects that a test keeps on its stack and counts the references to.

#include <unknwn.h>

// Answers for each of `Interfaces`, and for their bases that `FindMore` knows.
template<class... Interfaces> class LocalObject : public Interfaces...
{
public:
    LocalObject() = default;
    LocalObject(const LocalObject&) = delete;
    LocalObject& operator=(const LocalObject&) = delete;
    virtual ~LocalObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        void* found = nullptr;
        ((found = found                                   ? found
                  : IsEqualIID(iid, __uuidof(Interfaces)) ? static_cast<Interfaces*>(this)
                                                          : nullptr),
         ...);
        if (IsEqualIID(iid, IID_IUnknown))
            found = Identity();
        if (!found)
            found = FindMore(iid);
        *out = found;
        if (!found)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++References; }
    ULONG STDMETHODCALLTYPE Release() override { return --References; }

    int References = 0; // held by others

protected:
    virtual void* FindMore(REFIID) { return nullptr; }

private:
    template<class First, class...> static First* FirstOf(LocalObject* object) { return object; }
    IUnknown* Identity() { return FirstOf<Interfaces...>(this); }
};

// A late-bound sink: overrides one call.
class LocalDispatch : public LocalObject<IDispatch>
{
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID dispid, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO*, UINT*) override
    {
        OnInvoke(dispid, *parameters);
        return S_OK;
    }

protected:
    virtual void OnInvoke(DISPID dispid, DISPPARAMS& parameters) = 0;
};
