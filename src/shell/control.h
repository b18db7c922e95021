#pragma once
// The control as a COM object: its members, its type information and the parts that speak to a container.

#include "shell/class_info.h"
#include "shell/com_base.h"
#include "shell/connection.h"
#include "shell/data_object.h"
#include "shell/in_place.h"
#include "shell/members/members.h"
#include "shell/module.h"
#include "shell/ole_object.h"
#include "shell/persist.h"
#include "shell/property_browsing.h"
#include "shell/quick_activate.h"
#include "shell/safety.h"
#include "shell/view_object.h"

class CLorvArrayCtrl final : public GridMembers
{
public:
    // What the class factory calls. With an outer object only IUnknown may be asked for.
    static HRESULT Create(IUnknown* outer, REFIID iid, void** out) noexcept;

    // The interfaces' IUnknown is that of the controlling object.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* dispids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID dispid, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) override;

    OleObject Ole{*this};
    InPlaceObject InPlace{*this};
    ViewObject View{*this};
    DataObject Data{*this};
    PersistStream Stream{*this};
    PersistStorage Storage{*this};
    PersistPropertyBag PropertyBag{*this};
    ConnectionPoints Connections{*this};
    ClassInfo Class{*this};
    ErrorSupport Errors{*this};
    QuickActivation Quick{*this};
    ObjectSafety Safety{*this};
    PropertyBrowsing Browsing{*this};

private:
    // The object's own IUnknown: what counts its references and walks its interface table. Without an
    // outer object it is the controlling one.
    class Identity final : public IUnknown
    {
    public:
        explicit Identity(CLorvArrayCtrl& control) noexcept : control_(control) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
        ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
        ULONG STDMETHODCALLTYPE Release() override;

    private:
        CLorvArrayCtrl& control_;
        ULONG references_ = 1;
    };

    explicit CLorvArrayCtrl(IUnknown* outer) noexcept;
    ~CLorvArrayCtrl();

    ModuleLock moduleLock_;
    Identity identity_{*this};
};

// The control that a part of it belongs to.
inline CLorvArrayCtrl& ControlOf(Grid& grid) noexcept
{
    return static_cast<CLorvArrayCtrl&>(grid);
}
