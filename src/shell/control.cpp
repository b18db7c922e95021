#include "shell/control.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "platform/com_ptr.h"
#include "shell/script_arguments.h"

#include <objsafe.h>

#include <new>

namespace
{
using Entry = InterfaceEntry<CLorvArrayCtrl>;

template<class Interface, auto Part> IUnknown* PartOf(CLorvArrayCtrl& control)
{
    return static_cast<Interface*>(&(control.*Part));
}

IUnknown* MembersOf(CLorvArrayCtrl& control)
{
    return static_cast<ILorvGrid*>(&control);
}

using C = CLorvArrayCtrl;

// Everything a container can ask the control for.
const Entry interfaceTable[] = {
    {&IID_ILorvGrid, MembersOf},
    {&IID_IDispatch, MembersOf},
    {&IID_IViewObjectEx, PartOf<IViewObjectEx, &C::View>},
    {&IID_IViewObject2, PartOf<IViewObjectEx, &C::View>},
    {&IID_IViewObject, PartOf<IViewObjectEx, &C::View>},
    {&IID_IOleInPlaceObjectWindowless, PartOf<IOleInPlaceObjectWindowless, &C::InPlace>},
    {&IID_IOleInPlaceObject, PartOf<IOleInPlaceObjectWindowless, &C::InPlace>},
    {&IID_IOleWindow, PartOf<IOleInPlaceObjectWindowless, &C::InPlace>},
    {&IID_IOleInPlaceActiveObject, PartOf<IOleInPlaceActiveObject, &C::InPlace>},
    {&IID_IOleControl, PartOf<IOleControl, &C::Ole>},
    {&IID_IOleObject, PartOf<IOleObject, &C::Ole>},
    {&IID_IPersistStreamInit, PartOf<IPersistStreamInit, &C::Stream>},
    {&IID_IPersist, PartOf<IPersistStreamInit, &C::Stream>},
    {&IID_IPersistStorage, PartOf<IPersistStorage, &C::Storage>},
    {&IID_IPersistPropertyBag, PartOf<IPersistPropertyBag, &C::PropertyBag>},
    {&IID_ISupportErrorInfo, PartOf<ISupportErrorInfo, &C::Errors>},
    {&IID_IConnectionPointContainer, PartOf<IConnectionPointContainer, &C::Connections>},
    {&IID_ISpecifyPropertyPages, PartOf<ISpecifyPropertyPages, &C::Browsing>},
    {&IID_IPerPropertyBrowsing, PartOf<IPerPropertyBrowsing, &C::Browsing>},
    {&IID_ICategorizeProperties, PartOf<ICategorizeProperties, &C::Browsing>},
    {&IID_IQuickActivate, PartOf<IQuickActivate, &C::Quick>},
    {&IID_IDataObject, PartOf<IDataObject, &C::Data>},
    {&IID_IProvideClassInfo2, PartOf<IProvideClassInfo2, &C::Class>},
    {&IID_IProvideClassInfo, PartOf<IProvideClassInfo2, &C::Class>},
    {&IID_IObjectSafety, PartOf<IObjectSafety, &C::Safety>},
};

// Keeps the count of an object that is being destroyed from reaching 0 a second time.
constexpr ULONG DyingReferences = 0x40000000;
} // namespace

HRESULT CLorvArrayCtrl::Create(IUnknown* outer, REFIID iid, void** out) noexcept
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (outer && !IsEqualIID(iid, IID_IUnknown))
        return CLASS_E_NOAGGREGATION;
    auto* control = new (std::nothrow) CLorvArrayCtrl(outer);
    if (!control)
        return E_OUTOFMEMORY;
    HRESULT result = control->identity_.QueryInterface(iid, out);
    control->identity_.Release();
    return result;
}

CLorvArrayCtrl::CLorvArrayCtrl(IUnknown* outer) noexcept
{
    Outer = outer ? outer : &identity_;
}

// From here on nobody hears of the grid, and it must not call an outer object that is going away itself.
CLorvArrayCtrl::~CLorvArrayCtrl()
{
    Outer = &identity_;
    Closing = 1;
    CommitEdit(*this, true);
    InPlace.DestroyControlWindow();
    Outer = nullptr;
}

HRESULT CLorvArrayCtrl::Identity::QueryInterface(REFIID iid, void** out)
{
    if (!IsEqualIID(iid, IID_IUnknown))
        return FindInterface(control_, interfaceTable, iid, out);
    if (!out)
        return E_POINTER;
    *out = this;
    AddRef();
    return S_OK;
}

ULONG CLorvArrayCtrl::Identity::Release()
{
    ULONG left = --references_;
    if (left == 0) {
        references_ = DyingReferences;
        delete &control_;
    }
    return left;
}

HRESULT CLorvArrayCtrl::QueryInterface(REFIID iid, void** out)
{
    return Outer->QueryInterface(iid, out);
}

ULONG CLorvArrayCtrl::AddRef()
{
    return Outer->AddRef();
}

ULONG CLorvArrayCtrl::Release()
{
    return Outer->Release();
}

HRESULT CLorvArrayCtrl::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT CLorvArrayCtrl::GetTypeInfo(UINT index, LCID, ITypeInfo** info)
{
    if (!info)
        return E_POINTER;
    *info = nullptr;
    return index == 0 ? GetOwnTypeInfo(IID_ILorvGrid, info) : DISP_E_BADINDEX;
}

HRESULT CLorvArrayCtrl::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* dispids)
{
    if (!names || !dispids)
        return E_POINTER;
    ComPtr<ITypeInfo> info;
    HRESULT result = GetOwnTypeInfo(IID_ILorvGrid, info.Put());
    return SUCCEEDED(result) ? info->GetIDsOfNames(names, count, dispids) : result;
}

namespace
{
// Hosts that hold every number as a double set Long properties with one.
bool MakeLongOfDouble(WORD flags, DISPPARAMS* parameters) noexcept
{
    if (!(flags & DISPATCH_PROPERTYPUT) || !parameters || parameters->cArgs != 1 || !parameters->rgvarg)
        return false;
    VARIANTARG& value = parameters->rgvarg[0];
    return value.vt == VT_R8 && SUCCEEDED(VariantChangeType(&value, &value, 0, VT_I4));
}

// Getters that can answer with an object, and the arguments that they take.
constexpr struct {
    DISPID Dispid;
    UINT Arguments;
} objectGetters[] = {{DISPID_FONT, 0},
                     {DISPID_MOUSEICON, 0},
                     {DISPID_PICTURE, 0},
                     {49, 0},
                     {126, 1},
                     {127, 1},
                     {158, 5},
                     {177, 0},
                     {193, 0},
                     {196, 0},
                     {197, 0},
                     {201, 0},
                     {205, 1},
                     {215, 0},
                     {220, 0},
                     {221, 0}};

// Arguments beyond a getter's own are for the default member of the object that it gives. Wine calls that
// member whether there is an object or not.
bool ReachesThroughAnObject(DISPID dispid, WORD flags, const DISPPARAMS* parameters) noexcept
{
    if (!parameters || parameters->cArgs == 0 || (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)))
        return false;
    for (auto [getter, arguments] : objectGetters)
        if (getter == dispid)
            return parameters->cArgs > arguments;
    return false;
}

// Before a second try the texts of the first failure are given back.
void ClearException(HRESULT outcome, EXCEPINFO* exception) noexcept
{
    if (outcome != DISP_E_EXCEPTION || !exception)
        return;
    for (BSTR text : {exception->bstrSource, exception->bstrDescription, exception->bstrHelpFile})
        SysFreeString(text);
    *exception = {};
}
} // namespace

HRESULT CLorvArrayCtrl::Invoke(DISPID dispid, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* exception, UINT* badArgument)
{
    if (ReachesThroughAnObject(dispid, flags, parameters))
        return DISP_E_BADPARAMCOUNT;
    KeepAlive alive(*this);
    ComPtr<ITypeInfo> info;
    if (HRESULT found = GetOwnTypeInfo(IID_ILorvGrid, info.Put()); FAILED(found))
        return found;
    auto call = [&](DISPPARAMS* arguments) {
        return info->Invoke(static_cast<ILorvGrid*>(this), dispid, flags, arguments, result, exception,
                            badArgument);
    };
    HRESULT outcome = call(parameters);
    if (FAILED(outcome) && MakeLongOfDouble(flags, parameters)) {
        ClearException(outcome, exception);
        outcome = call(parameters);
    }
    // No member ran: the arguments did not fit its parameters.
    if (parameters && (outcome == DISP_E_TYPEMISMATCH || outcome == DISP_E_OVERFLOW)) {
        ScriptArguments adapted(info.Get(), dispid, flags, *parameters);
        if (adapted.Changed()) {
            outcome = call(adapted.Get());
            if (SUCCEEDED(outcome))
                adapted.WriteBack();
        }
    }
    // Script engines know no unsigned Long.
    if (result && result->vt == VT_UI4)
        result->vt = VT_I4;
    return outcome;
}
