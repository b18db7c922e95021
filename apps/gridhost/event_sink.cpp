#include "event_sink.h"

#include "text_io.h"
#include <olectl.h>
#include <vector>

namespace
{
// One argument on its way through the script. By-reference arguments travel as a variant that the
// script may change; the change goes back in the type that the control declared.
class ArgumentRelay
{
public:
    void Take(VARIANT& original, bool byReference)
    {
        original_ = &original;
        CopyVariantIndirect(&local_, original);
        V_VT(&passed_) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&passed_) = &local_;
        passByReference_ = byReference && IsByReference();
    }
    bool IsByReference() const { return V_VT(original_) & VT_BYREF; }
    // What the script receives; stays ours.
    VARIANT Passed() const { return passByReference_ ? passed_ : static_cast<const VARIANT&>(local_); }
    void Replace(const VARIANT& value) { CopyVariantIndirect(&local_, value); }
    HRESULT WriteBack();

private:
    VARIANT* original_ = nullptr;
    Variant local_;
    VARIANT passed_ = {};
    bool passByReference_ = false;
};
} // namespace

template<class T> static void Exchange(T* place, T& value)
{
    std::swap(*place, value);
}

HRESULT ArgumentRelay::WriteBack()
{
    const VARTYPE type = V_VT(original_) & VARTYPE(~VT_BYREF);
    if (!IsByReference())
        return S_OK;
    if (type == VT_VARIANT)
        return CopyVariant(V_VARIANTREF(original_), local_);
    Variant converted;
    const HRESULT hr = VariantChangeType(&converted, &local_, 0, type);
    if (FAILED(hr))
        return hr;
    switch (type) {
    case VT_BOOL:
    case VT_I2:
    case VT_UI2:
        *V_I2REF(original_) = V_I2(&converted);
        break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        *V_I4REF(original_) = V_I4(&converted);
        break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        *V_I8REF(original_) = V_I8(&converted);
        break;
    case VT_BSTR: // the old text or object leaves with `converted`
        Exchange(V_BSTRREF(original_), V_BSTR(&converted));
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        Exchange(V_UNKNOWNREF(original_), V_UNKNOWN(&converted));
        break;
    default:
        return DISP_E_BADVARTYPE;
    }
    return S_OK;
}

// Finds the class's interface that is marked both source and default.
static HRESULT FindDefaultSource(ITypeInfo* classInfo, ComPtr<ITypeInfo>& events)
{
    TYPEATTR* attributes;
    HRESULT hr = classInfo->GetTypeAttr(&attributes);
    if (FAILED(hr))
        return hr;
    hr = TYPE_E_ELEMENTNOTFOUND;
    constexpr INT wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    for (UINT i = 0; i < attributes->cImplTypes && FAILED(hr); ++i) {
        INT flags;
        HREFTYPE reference;
        if (SUCCEEDED(classInfo->GetImplTypeFlags(i, &flags)) && (flags & wanted) == wanted &&
            SUCCEEDED(classInfo->GetRefTypeOfImplType(i, &reference)))
            hr = classInfo->GetRefTypeInfo(reference, events.Put());
    }
    classInfo->ReleaseTypeAttr(attributes);
    return hr;
}

HRESULT EventSink::FindSourceInterface(IUnknown* control, ComPtr<ITypeInfo>& events)
{
    const ComPtr<IUnknown> object(control);
    const auto provider = object.As<IProvideClassInfo>();
    ComPtr<ITypeInfo> classInfo;
    if (!provider)
        return E_NOINTERFACE;
    HRESULT hr = provider->GetClassInfo(classInfo.Put());
    if (SUCCEEDED(hr))
        hr = FindDefaultSource(classInfo.Get(), events);
    if (FAILED(hr))
        return hr;
    TYPEATTR* attributes;
    if (FAILED(hr = events->GetTypeAttr(&attributes)))
        return hr;
    source_ = attributes->guid;
    events->ReleaseTypeAttr(attributes);
    // The control's own word for it, where it has one, must agree with its type library.
    IID named;
    const auto provider2 = object.As<IProvideClassInfo2>();
    if (provider2 && SUCCEEDED(provider2->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &named)) &&
        named != source_)
        return TYPE_E_INCONSISTENTPROPFUNCS;
    return S_OK;
}

void EventSink::ReadEventNames(ITypeInfo* events)
{
    TYPEATTR* attributes;
    if (FAILED(events->GetTypeAttr(&attributes)))
        return;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function;
        if (FAILED(events->GetFuncDesc(i, &function)))
            continue;
        Bstr name;
        UINT count;
        if (SUCCEEDED(events->GetNames(function->memid, name.Put(), 1, &count)))
            procedures_[function->memid] = std::wstring(L"Grid_") + name.Text();
        events->ReleaseFuncDesc(function);
    }
    events->ReleaseTypeAttr(attributes);
    UINT index;
    events->GetContainingTypeLib(library_.Put(), &index);
}

HRESULT EventSink::Connect(IUnknown* control)
{
    ComPtr<ITypeInfo> events;
    HRESULT hr = FindSourceInterface(control, events);
    if (FAILED(hr))
        return hr;
    ReadEventNames(events.Get());
    const auto points = ComPtr<IUnknown>(control).As<IConnectionPointContainer>();
    if (!points)
        return E_NOINTERFACE;
    hr = points->FindConnectionPoint(source_, point_.Put());
    return SUCCEEDED(hr) ? point_->Advise(static_cast<IDispatch*>(this), &cookie_) : hr;
}

void EventSink::Disconnect()
{
    if (point_ && cookie_)
        point_->Unadvise(cookie_);
    cookie_ = 0;
    point_.Reset();
}

void* EventSink::FindInterface(REFIID iid)
{
    return iid == source_ ? static_cast<IDispatch*>(this) : nullptr;
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                               UINT*)
{
    const auto found = procedures_.find(id);
    if (state_.quitting || found == procedures_.end())
        return S_OK;
    const std::wstring name = found->second;
    const DISPID procedure = engine_.FindProcedure(name);
    if (procedure == DISPID_UNKNOWN)
        return S_OK;

    const size_t count = arguments ? arguments->cArgs : 0;
    std::vector<ArgumentRelay> relays(count);
    std::vector<VARIANT> passed(count);
    for (size_t i = 0; i < count; ++i) {
        relays[i].Take(arguments->rgvarg[i], engine_.PassesByReference());
        passed[i] = relays[i].Passed();
    }
    DISPPARAMS call = {passed.data(), nullptr, UINT(count), 0};
    Variant result;
    const HRESULT hr = engine_.Call(procedure, call, result);
    if (FAILED(hr))
        return S_OK; // shown by the engine; the control has no use for it
    if (!engine_.PassesByReference() && V_VT(&result) != VT_EMPTY && count > 0)
        relays[0].Replace(result); // arguments are laid out last first
    for (ArgumentRelay& relay : relays)
        if (FAILED(relay.WriteBack()))
            engine_.ReportError(name,
                                L"a by-reference argument was given a value that does not fit its type");
    return S_OK;
}
