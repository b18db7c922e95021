#pragma once

#include "shell/com_base.h"

// Newer than the headers of some compilers: a property browser asks for the heading of each property.
typedef int PROPCAT;
constexpr IID IID_ICategorizeProperties = {
    0x4D07FC10, 0xF931, 0x11CE, {0xB0, 0x01, 0x00, 0xAA, 0x00, 0x68, 0x84, 0xE5}};
struct ICategorizeProperties : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID dispid, PROPCAT* category) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(PROPCAT category, LCID locale, BSTR* name) = 0;
};

// What property browsers ask: pages, shown texts, headings.
class PropertyBrowsing final
    : public ControlPart<ISpecifyPropertyPages, IPerPropertyBrowsing, ICategorizeProperties>
{
public:
    using ControlPart::ControlPart;

    // ISpecifyPropertyPages
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;

    // IPerPropertyBrowsing
    HRESULT STDMETHODCALLTYPE GetDisplayString(DISPID dispid, BSTR* text) override;
    HRESULT STDMETHODCALLTYPE MapPropertyToPage(DISPID dispid, CLSID* page) override;
    HRESULT STDMETHODCALLTYPE GetPredefinedStrings(DISPID, CALPOLESTR*, CADWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetPredefinedValue(DISPID, DWORD, VARIANT*) override { return E_NOTIMPL; }

    // ICategorizeProperties
    HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID dispid, PROPCAT* category) override;
    HRESULT STDMETHODCALLTYPE GetCategoryName(PROPCAT category, LCID locale, BSTR* name) override;
};
