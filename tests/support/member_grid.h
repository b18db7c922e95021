#pragma once
// The members of the grid without a control around them, and variants to call them with.

#include "core/cell_store.h"
#include "platform/variant.h"
#include "shell/members/members.h"

#include <cmath>
#include <string>

// The members over a grid on the stack, without a control around them.
class MemberGrid : public GridMembers
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override
    {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }
};

// A variant of a test, owned; converts to the by-value argument that members take.
class Value
{
public:
    Value() noexcept {}
    Value(int number) noexcept { v_.Get().vt = VT_I4, v_.Get().lVal = number; }
    Value(double number) noexcept { v_.Get().vt = VT_R8, v_.Get().dblVal = number; }
    Value(bool on) noexcept { v_.Get().vt = VT_BOOL, v_.Get().boolVal = on ? VARIANT_TRUE : VARIANT_FALSE; }
    Value(const wchar_t* text) noexcept { v_.Get().vt = VT_BSTR, v_.Get().bstrVal = SysAllocString(text); }
    Value(IDispatch* object) noexcept
    {
        v_.Get().vt = VT_DISPATCH, v_.Get().pdispVal = object;
        if (object)
            object->AddRef();
    }
    static Value OfType(VARTYPE type) noexcept
    {
        Value value;
        value.v_.Get().vt = type;
        if (type == VT_ERROR)
            value.v_.Get().scode = DISP_E_PARAMNOTFOUND;
        return value;
    }
    static Value Missing() noexcept { return OfType(VT_ERROR); }
    // A reference to another variant, which has to live on.
    static Value To(VARIANT& target) noexcept
    {
        Value value;
        value.v_.Get().vt = VT_BYREF | VT_VARIANT, value.v_.Get().pvarVal = &target;
        return value;
    }
    Value(const Value& other) noexcept { VariantCopy(&v_.Get(), const_cast<VARIANT*>(&other.v_.Get())); }
    Value& operator=(const Value&) = delete;

    operator VARIANT() const noexcept { return v_.Get(); }
    VARIANT& Get() noexcept { return v_.Get(); }
    VARTYPE Type() const noexcept { return v_.Type(); }

private:
    OwnedVariant v_;
};

inline const Value missing = Value::Missing();

// Type and value as one text: "I4 5", "BSTR abc", "EMPTY".
inline std::wstring Describe(const VARIANT& value)
{
    switch (value.vt) {
    case VT_EMPTY:
        return L"EMPTY";
    case VT_I2:
        return L"I2 " + std::to_wstring(value.iVal);
    case VT_I4:
        return L"I4 " + std::to_wstring(value.lVal);
    case VT_R4:
        return L"R4 " + std::to_wstring(std::lround(value.fltVal * 100));
    case VT_R8:
        return L"R8 " + std::to_wstring(std::lround(value.dblVal * 100));
    case VT_BOOL:
        return value.boolVal ? L"BOOL true" : L"BOOL false";
    case VT_BSTR:
        return std::wstring(L"BSTR ") + (value.bstrVal ? value.bstrVal : L"(null)");
    case VT_DISPATCH:
        return value.pdispVal ? L"DISPATCH object" : L"DISPATCH nothing";
    default:
        return L"type " + std::to_wstring(value.vt);
    }
}
