// Owners for what COM hands out, and the reference counting of the host's own objects.
#pragma once

#include <windows.h>

#include <oleauto.h>
#include <unknwn.h>
#include <utility>

// Holds one reference to an interface.
template<class T> class ComPtr
{
public:
    ComPtr() = default;
    explicit ComPtr(T* shared) : p_(shared)
    {
        if (p_)
            p_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.p_) {}
    ComPtr(ComPtr&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
    ~ComPtr() { Reset(); }
    ComPtr& operator=(ComPtr other) noexcept
    {
        std::swap(p_, other.p_);
        return *this;
    }

    // Takes over a reference that the caller already holds.
    static ComPtr Adopt(T* owned)
    {
        ComPtr result;
        result.p_ = owned;
        return result;
    }
    void Reset()
    {
        if (T* old = std::exchange(p_, nullptr))
            old->Release();
    }
    // The place for an out argument; what was held is released first.
    T** Put()
    {
        Reset();
        return &p_;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }
    T* Detach() { return std::exchange(p_, nullptr); }
    T* Get() const { return p_; }
    T* operator->() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }

    // The same object's other interface; empty when it has none.
    template<class U> ComPtr<U> As() const
    {
        ComPtr<U> other;
        if (p_)
            p_->QueryInterface(__uuidof(U), other.PutVoid());
        return other;
    }

private:
    T* p_ = nullptr;
};

class Bstr
{
public:
    Bstr() = default;
    explicit Bstr(const wchar_t* text) : s_(SysAllocString(text)) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(s_); }
    BSTR* Put()
    {
        SysFreeString(std::exchange(s_, nullptr));
        return &s_;
    }
    BSTR Get() const { return s_; }
    const wchar_t* Text() const { return s_ ? s_ : L""; }

private:
    BSTR s_ = nullptr;
};

// VariantCopy and VariantCopyInd for sources that stay as they are, which the system's declarations do not
// say.
inline HRESULT CopyVariant(VARIANT* target, const VARIANT& source)
{
    return VariantCopy(target, const_cast<VARIANT*>(&source));
}
inline HRESULT CopyVariantIndirect(VARIANT* target, const VARIANT& source)
{
    return VariantCopyInd(target, const_cast<VARIANT*>(&source));
}

// A VARIANT that clears itself.
class Variant : public VARIANT
{
public:
    Variant() { VariantInit(this); }
    explicit Variant(const VARIANT& other) : Variant() { CopyVariant(this, other); }
    Variant(const Variant& other) : Variant(static_cast<const VARIANT&>(other)) {}
    Variant& operator=(const Variant& other)
    {
        CopyVariant(this, other);
        return *this;
    }
    ~Variant() { VariantClear(this); }

    static Variant Long(LONG value)
    {
        Variant v;
        V_VT(&v) = VT_I4;
        V_I4(&v) = value;
        return v;
    }
    static Variant Bool(bool value)
    {
        Variant v;
        V_VT(&v) = VT_BOOL;
        V_BOOL(&v) = value ? VARIANT_TRUE : VARIANT_FALSE;
        return v;
    }
    static Variant Text(const wchar_t* value)
    {
        Variant v;
        V_VT(&v) = VT_BSTR;
        V_BSTR(&v) = SysAllocString(value);
        return v;
    }
    // Takes over the reference.
    static Variant Object(IDispatch* owned)
    {
        Variant v;
        V_VT(&v) = VT_DISPATCH;
        V_DISPATCH(&v) = owned;
        return v;
    }
};

// Reference counting and QueryInterface over a fixed list of interfaces. Objects start with one reference.
template<class First, class... Rest> class ComObject : public First, public Rest...
{
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        if (!out)
            return E_POINTER;
        *out = iid == __uuidof(IUnknown) ? static_cast<First*>(this) : FindInterface(iid);
        if (!*out)
            Offer<First, Rest...>(iid, out);
        if (!*out)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return InterlockedIncrement(&references_); }
    STDMETHODIMP_(ULONG) Release() override
    {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0)
            delete this;
        return left;
    }

protected:
    // Interfaces under further names: bases of those listed, or one known only at run time.
    virtual void* FindInterface(REFIID) { return nullptr; }

private:
    template<class... All> void Offer(REFIID iid, void** out)
    {
        ((iid == __uuidof(All) ? void(*out = static_cast<All*>(this)) : void()), ...);
    }
    LONG references_ = 1;
};
