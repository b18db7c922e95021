// The control as any client meets it: its identity, its factory, its sinks, its registration.

#include "automation/random_calls.h"
#include "support/contract.h"
#include "support/control_fixture.h"

#include <objsafe.h>

#include <string>

namespace
{
constexpr IID CategorizeId = {0x4D07FC10, 0xF931, 0x11CE, {0xB0, 0x01, 0x00, 0xAA, 0x00, 0x68, 0x84, 0xE5}};

// Declared here as a property browser declares it.
struct Categorizer : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID dispid, int* category) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(int category, LCID locale, BSTR* name) = 0;
};

const IID* const controlInterfaces[] = {
    &IID_ILorvGrid,
    &IID_IDispatch,
    &IID_IViewObject,
    &IID_IViewObject2,
    &IID_IViewObjectEx,
    &IID_IOleWindow,
    &IID_IOleInPlaceObject,
    &IID_IOleInPlaceObjectWindowless,
    &IID_IOleInPlaceActiveObject,
    &IID_IOleControl,
    &IID_IOleObject,
    &IID_IPersist,
    &IID_IPersistStreamInit,
    &IID_IPersistStorage,
    &IID_IPersistPropertyBag,
    &IID_IQuickActivate,
    &IID_IDataObject,
    &IID_IProvideClassInfo,
    &IID_IProvideClassInfo2,
    &IID_ISupportErrorInfo,
    &IID_IConnectionPointContainer,
    &IID_ISpecifyPropertyPages,
    &IID_IPerPropertyBrowsing,
    &IID_IObjectSafety,
    &CategorizeId,
};

class Factory
{
public:
    Factory()
    {
        EXPECT_EQ(S_OK, CoGetClassObject(CLSID_LorvGridL, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                         factory_.PutVoid()));
    }
    IClassFactory* operator->() const { return factory_.Get(); }

private:
    ComPtr<IClassFactory> factory_;
};

using ControlIdentity = ControlTest;
using ControlFactoryTest = ControlTest;
using ControlConnections = ControlTest;
using ControlInvoke = ControlTest;
using ControlSafety = ControlTest;
using ControlBrowsing = ControlTest;
using ControlClassInfo = ControlTest;
using ControlRegistration = ControlTest;
} // namespace

TEST_F(ControlIdentity, EveryInterfaceLeadsToEveryOtherAndToOneIdentity)
{
    auto identity = As<IUnknown>(IID_IUnknown);
    for (const IID* from : controlInterfaces) {
        auto face = As<IUnknown>(*from);
        ASSERT_TRUE(face);
        EXPECT_EQ(identity.Get(), QueryFor<IUnknown>(face.Get(), IID_IUnknown).Get());
        for (const IID* to : controlInterfaces)
            EXPECT_TRUE(QueryFor<IUnknown>(face.Get(), *to));
    }
}

TEST_F(ControlIdentity, AnUnknownInterfaceGivesNoPointer)
{
    void* out = this;
    EXPECT_EQ(E_NOINTERFACE, grid_->QueryInterface(IID_IStorage, &out));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(E_POINTER, grid_->QueryInterface(IID_IUnknown, nullptr));
    EXPECT_EQ(E_POINTER, grid_->QueryInterface(IID_IOleObject, nullptr));
}

namespace
{
// An object that passes the control's interfaces off as its own.
class OuterObject : public LocalObject<IUnknown>
{
public:
    ComPtr<IUnknown> Inner;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        if (!IsEqualIID(iid, IID_IUnknown))
            return Inner->QueryInterface(iid, out);
        *out = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
};
} // namespace

TEST_F(ControlIdentity, AggregatedItSpeaksInTheNameOfTheOuterObject)
{
    Factory factory;
    OuterObject outer;
    ASSERT_EQ(S_OK, factory->CreateInstance(&outer, IID_IUnknown, outer.Inner.PutVoid()));
    EXPECT_EQ(0, outer.References);
    for (const IID* iid : controlInterfaces) {
        ComPtr<IUnknown> face;
        ASSERT_EQ(S_OK, outer.Inner->QueryInterface(*iid, face.PutVoid()));
        EXPECT_EQ(1, outer.References);
        EXPECT_EQ(static_cast<IUnknown*>(&outer), QueryFor<IUnknown>(face.Get(), IID_IUnknown).Get());
    }
    EXPECT_EQ(0, outer.References);
    EXPECT_EQ(0u, outer.Inner.Detach()->Release());
}

TEST_F(ControlIdentity, AggregationAsksForIUnknownOnly)
{
    Factory factory;
    OuterObject outer;
    void* out = this;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(&outer, IID_ILorvGrid, &out));
    EXPECT_EQ(nullptr, out);
}

TEST_F(ControlFactoryTest, LocksKeepTheModule)
{
    EXPECT_EQ(0u, grid_.Detach()->Release());
    Factory factory;
    factory->LockServer(TRUE);
    EXPECT_EQ(S_FALSE, AskModuleWhetherItCanUnload());
    factory->LockServer(FALSE);
}

TEST_F(ControlFactoryTest, NoOtherClassIsMade)
{
    HMODULE module = GetModuleHandleW(L"lorv8l.dll");
    auto get = reinterpret_cast<decltype(&DllGetClassObject)>(
        reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    ASSERT_TRUE(get);
    void* out = this;
    EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, get(CLSID_LorvNode, IID_IClassFactory, &out));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(E_POINTER, get(CLSID_LorvGridL, IID_IClassFactory, nullptr));
}

TEST_F(ControlConnections, ThereAreTwoPoints)
{
    auto container = As<IConnectionPointContainer>(IID_IConnectionPointContainer);
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(S_OK, container->EnumConnectionPoints(points.Put()));
    const IID* const expected[] = {&IID_IPropertyNotifySink, &DIID__ILorvGridEvents};
    for (const IID* outgoing : expected) {
        ComPtr<IConnectionPoint> point;
        ASSERT_EQ(S_OK, points->Next(1, point.Put(), nullptr));
        IID iid = {};
        EXPECT_EQ(S_OK, point->GetConnectionInterface(&iid));
        EXPECT_TRUE(IsEqualIID(*outgoing, iid));
        ComPtr<IConnectionPointContainer> back;
        EXPECT_EQ(S_OK, point->GetConnectionPointContainer(back.Put()));
        EXPECT_EQ(container.Get(), back.Get());
    }
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(S_FALSE, points->Next(1, none.Put(), nullptr));
    EXPECT_EQ(CONNECT_E_NOCONNECTION, container->FindConnectionPoint(IID_IDispatch, none.Put()));
}

TEST_F(ControlConnections, ASinkWithoutTheInterfaceIsRefused)
{
    EventRecorder events;
    ChangeRecorder changes;
    DWORD cookie = 1;
    EXPECT_EQ(static_cast<HRESULT>(0x80040202), Point(DIID__ILorvGridEvents)->Advise(&changes, &cookie));
    EXPECT_EQ(0u, cookie);
    EXPECT_EQ(static_cast<HRESULT>(0x80040202), Point(IID_IPropertyNotifySink)->Advise(&events, &cookie));
    EXPECT_EQ(E_POINTER, Point(DIID__ILorvGridEvents)->Advise(nullptr, &cookie));
    EXPECT_EQ(E_POINTER, Point(DIID__ILorvGridEvents)->Advise(&events, nullptr));
    EXPECT_EQ(0, events.References);
    EXPECT_EQ(0, changes.References);
}

TEST_F(ControlConnections, UnadviseGivesTheSinkBackOnce)
{
    ChangeRecorder sink;
    auto point = Point(IID_IPropertyNotifySink);
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, point->Advise(&sink, &cookie));
    EXPECT_EQ(1, sink.References);
    EXPECT_EQ(S_OK, point->Unadvise(cookie));
    EXPECT_EQ(0, sink.References);
    EXPECT_EQ(CONNECT_E_NOCONNECTION, point->Unadvise(cookie));
    EXPECT_EQ(CONNECT_E_NOCONNECTION, point->Unadvise(0));
}

TEST_F(ControlConnections, EnumerationIsACopy)
{
    ChangeRecorder first, second;
    auto point = Point(IID_IPropertyNotifySink);
    Connection one(point, &first), two(point, &second);
    ComPtr<IEnumConnections> connections, clone;
    ASSERT_EQ(S_OK, point->EnumConnections(connections.Put()));
    point->Unadvise(std::exchange(one.Cookie, 0));
    CONNECTDATA data[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(S_OK, connections->Skip(1));
    EXPECT_EQ(S_OK, connections->Clone(clone.Put()));
    EXPECT_EQ(S_FALSE, clone->Next(3, data, &fetched));
    ASSERT_EQ(1u, fetched);
    EXPECT_EQ(static_cast<IUnknown*>(&second), data[0].pUnk);
    EXPECT_EQ(two.Cookie, data[0].dwCookie);
    data[0].pUnk->Release();
    EXPECT_EQ(S_OK, connections->Reset());
    EXPECT_EQ(S_OK, connections->Next(2, data, &fetched));
    data[0].pUnk->Release();
    data[1].pUnk->Release();
    EXPECT_EQ(E_POINTER, connections->Next(2, data, nullptr));
}

TEST_F(ControlConnections, ASinkThatLeavesInTheMiddleLeavesAHole)
{
    auto point = Point(IID_IPropertyNotifySink);
    ChangeRecorder first, second, third;
    Connection one(point, &first), two(point, &second), three(point, &third);
    first.Point = point;
    first.LeaveCookie = std::exchange(two.Cookie, 0);
    ASSERT_EQ(S_OK, grid_->put_Rows(20));
    first.Point.Reset();
    EXPECT_EQ(std::vector<DISPID>{7}, first.Changes);
    EXPECT_TRUE(second.Changes.empty());
    EXPECT_EQ(std::vector<DISPID>{7}, third.Changes);
    EXPECT_EQ(0, second.References);
}

TEST_F(ControlConnections, TheControlOutlivesItsOwnEvent)
{
    EventRecorder sink;
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, Point(DIID__ILorvGridEvents)->Advise(static_cast<IDispatch*>(&sink), &cookie));
    sink.ActsOn = 43; // CellChanged
    sink.ActData = grid_.Detach();
    sink.Act = [](EventRecorder& self) {
        static_cast<ILorvGrid*>(std::exchange(self.ActData, nullptr))->Release();
    };
    auto* grid = static_cast<ILorvGrid*>(sink.ActData);
    OwnedVariant text;
    text.Get().vt = VT_BSTR;
    text.Get().bstrVal = SysAllocString(L"last words");
    VARIANT arguments[3] = {};
    arguments[0] = text.Get();
    arguments[1].vt = arguments[2].vt = VT_I4;
    arguments[1].lVal = arguments[2].lVal = 1;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {arguments, &put, 3, 1};
    grid->Invoke(130, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                 nullptr);
    EXPECT_EQ(1, sink.Count(43));
    if (sink.ActData)
        grid->Release();
    EXPECT_EQ(0, sink.References);
}

TEST_F(ControlInvoke, ADoubleSetsALong)
{
    VARIANT seven = {};
    seven.vt = VT_R8;
    seven.dblVal = 7.0;
    EXPECT_EQ(S_OK, Put(7, seven));
    LONG rows = 0;
    EXPECT_EQ(S_OK, grid_->get_Rows(&rows));
    EXPECT_EQ(7, rows);
}

// What fails as a double is tried as a Long, in the caller's own argument.
TEST_F(ControlInvoke, AFailedDoubleIsLeftAsALong)
{
    VARIANT value = {};
    value.vt = VT_R8;
    value.dblVal = -3.0;
    EXPECT_TRUE(FAILED(Put(7, value)));
    EXPECT_EQ(VT_I4, value.vt);
    EXPECT_EQ(-3, value.lVal);
}

// Some systems would call the default member of an object that is not there.
TEST_F(ControlInvoke, MembersThatGiveObjectsTakeNoMoreThanTheirOwnArguments)
{
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(S_OK, grid_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()));
    int tested = 0;
    for (const CallableMember& member : MembersOf(info.Get())) {
        bool givesObject = member.Result == VT_DISPATCH || member.Result == VT_VARIANT;
        if (!givesObject || (member.Kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) ||
            member.Name == L"ArchiveInfo")
            continue;
        VARIANT arguments[16] = {};
        for (VARIANT& argument : arguments)
            argument.vt = VT_I4;
        DISPPARAMS parameters = {arguments, nullptr, static_cast<UINT>(member.Parameters.size()) + 1, 0};
        OwnedVariant result;
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, grid_->Invoke(member.Id, IID_NULL, LOCALE_USER_DEFAULT, member.Kind,
                                                      &parameters, &result.Get(), nullptr, nullptr))
            << std::string(member.Name.begin(), member.Name.end());
        ++tested;
    }
    EXPECT_EQ(16, tested);
}

TEST_F(ControlInvoke, UnsignedResultsAreHandedOutSigned)
{
    OwnedVariant colour;
    ASSERT_EQ(S_OK, Get(DISPID_BACKCOLOR, colour));
    EXPECT_EQ(VT_I4, colour.Type());
    EXPECT_EQ(static_cast<LONG>(0x80000005), colour.Get().lVal);
}

TEST_F(ControlInvoke, NamesAreFoundWithoutRegardToCase)
{
    wchar_t name[] = L"bAcKcOlOr";
    LPOLESTR names[] = {name};
    DISPID dispid = 0;
    EXPECT_EQ(S_OK, grid_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &dispid));
    EXPECT_EQ(DISPID_BACKCOLOR, dispid);
    wchar_t unknown[] = L"NoSuchMember";
    names[0] = unknown;
    EXPECT_EQ(DISP_E_UNKNOWNNAME, grid_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &dispid));
    EXPECT_EQ(DISPID_UNKNOWN, dispid);
    EXPECT_EQ(E_POINTER, grid_->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &dispid));
}

TEST_F(ControlInvoke, TheAboutBoxIsNone)
{
    DISPPARAMS none = {};
    EXPECT_EQ(S_OK, grid_->Invoke(DISPID_ABOUTBOX, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                  nullptr, nullptr, nullptr));
}

TEST_F(ControlClassInfo, NamesClassAndEvents)
{
    auto info = As<IProvideClassInfo2>(IID_IProvideClassInfo2);
    GUID id = {};
    EXPECT_EQ(S_OK, info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id));
    EXPECT_TRUE(IsEqualGUID(DIID__ILorvGridEvents, id));
    EXPECT_EQ(E_INVALIDARG, info->GetGUID(7, &id));
    EXPECT_TRUE(IsEqualGUID(GUID_NULL, id));
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(S_OK, info->GetClassInfo(type.Put()));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, type->GetTypeAttr(&attributes));
    EXPECT_TRUE(IsEqualGUID(CLSID_LorvGridL, attributes->guid));
    type->ReleaseTypeAttr(attributes);
}

TEST_F(ControlClassInfo, OnlyTheMembersReportErrors)
{
    auto errors = As<ISupportErrorInfo>(IID_ISupportErrorInfo);
    EXPECT_EQ(S_OK, errors->InterfaceSupportsErrorInfo(IID_ILorvGrid));
    EXPECT_EQ(S_FALSE, errors->InterfaceSupportsErrorInfo(IID_IOleObject));
}

TEST_F(ControlSafety, OptionsAreTakenByTheMask)
{
    auto safety = As<IObjectSafety>(IID_IObjectSafety);
    constexpr struct {
        DWORD Mask, Options, Enabled;
    } steps[] = {{3, 3, 3}, {1, 0, 2}, {1, 3, 3}, {0, 0, 3}, {2, 0, 1}, {3, 0, 0}};
    for (auto [mask, options, expected] : steps) {
        EXPECT_EQ(S_OK, safety->SetInterfaceSafetyOptions(IID_IDispatch, mask, options));
        DWORD supported = 0, enabled = 9;
        EXPECT_EQ(S_OK, safety->GetInterfaceSafetyOptions(IID_IPersistStreamInit, &supported, &enabled));
        EXPECT_EQ(3u, supported);
        EXPECT_EQ(expected, enabled);
    }
}

TEST_F(ControlSafety, AMaskAboveThreeFails)
{
    auto safety = As<IObjectSafety>(IID_IObjectSafety);
    EXPECT_EQ(E_FAIL, safety->SetInterfaceSafetyOptions(IID_IDispatch, 4, 4));
    EXPECT_EQ(E_FAIL, safety->SetInterfaceSafetyOptions(IID_IDispatch, 7, 3));
    DWORD supported = 0, enabled = 9;
    EXPECT_EQ(S_OK, safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &enabled));
    EXPECT_EQ(0u, enabled);
}

TEST_F(ControlSafety, AnswersForItsOwnInterfacesOnly)
{
    auto safety = As<IObjectSafety>(IID_IObjectSafety);
    DWORD supported = 9, enabled = 9;
    EXPECT_EQ(E_NOINTERFACE, safety->SetInterfaceSafetyOptions(IID_IStorage, 1, 1));
    EXPECT_EQ(E_NOINTERFACE, safety->GetInterfaceSafetyOptions(IID_IStorage, &supported, &enabled));
    EXPECT_EQ(0u, supported);
    EXPECT_EQ(E_POINTER, safety->GetInterfaceSafetyOptions(IID_IDispatch, nullptr, &enabled));
}

TEST_F(ControlSafety, ALockedControlKeepsItsHandsOffFiles)
{
    constexpr HRESULT locked = static_cast<HRESULT>(0x800A03ED);
    ASSERT_EQ(S_OK, As<IObjectSafety>(IID_IObjectSafety)->SetInterfaceSafetyOptions(IID_IDispatch, 1, 1));
    Bstr name(L"safety-test.grid");
    OwnedVariant none, info;
    none.Get().vt = VT_ERROR;
    none.Get().scode = DISP_E_PARAMNOTFOUND;
    HRESULT saved = grid_->SaveGrid(name.Get(), static_cast<SaveLoadSettings>(0), none.Get());
    if (saved == E_NOTIMPL) {
        GTEST_SKIP();
    }
    EXPECT_EQ(locked, saved);
    EXPECT_EQ(locked, grid_->LoadGrid(name.Get(), static_cast<SaveLoadSettings>(0), none.Get()));
    EXPECT_EQ(locked, grid_->Archive(name.Get(), name.Get(), static_cast<ArchiveSettings>(0)));
    EXPECT_EQ(locked, grid_->get_ArchiveInfo(name.Get(), static_cast<ArchiveInfoSettings>(0), none.Get(),
                                             info.Put()));
    EXPECT_NE(locked, grid_->LoadGridURL(name.Get(), static_cast<SaveLoadSettings>(0), none.Get()));
    SetErrorInfo(0, nullptr);
}

TEST_F(ControlBrowsing, FivePagesInOrder)
{
    CAUUID pages = {};
    ASSERT_EQ(S_OK, As<ISpecifyPropertyPages>(IID_ISpecifyPropertyPages)->GetPages(&pages));
    constexpr CLSID standard[] = {
        {0x7EBDAAE1, 0x8120, 0x11CF, {0x89, 0x9F, 0x00, 0xAA, 0x00, 0x68, 0x8B, 0x10}},
        {0x7EBDAAE0, 0x8120, 0x11CF, {0x89, 0x9F, 0x00, 0xAA, 0x00, 0x68, 0x8B, 0x10}},
        {0x7EBDAAE2, 0x8120, 0x11CF, {0x89, 0x9F, 0x00, 0xAA, 0x00, 0x68, 0x8B, 0x10}}};
    ASSERT_EQ(5u, pages.cElems);
    EXPECT_TRUE(IsEqualCLSID(CLSID_LorvGeneralPage, pages.pElems[0]));
    EXPECT_TRUE(IsEqualCLSID(CLSID_LorvStylePage, pages.pElems[1]));
    for (int page = 0; page < 3; ++page)
        EXPECT_TRUE(IsEqualCLSID(standard[page], pages.pElems[2 + page]));
    CoTaskMemFree(pages.pElems);
}

TEST_F(ControlBrowsing, PagesOfProperties)
{
    auto browsing = As<IPerPropertyBrowsing>(IID_IPerPropertyBrowsing);
    CLSID page = CLSID_LorvGridL;
    EXPECT_EQ(E_INVALIDARG, browsing->MapPropertyToPage(9999, &page));
    EXPECT_TRUE(IsEqualCLSID(CLSID_NULL, page));
    EXPECT_EQ(E_INVALIDARG, browsing->MapPropertyToPage(DISPID_UNKNOWN, &page));
    EXPECT_EQ(static_cast<HRESULT>(0x80040200), browsing->MapPropertyToPage(DISPID_ENABLED, &page));
    EXPECT_EQ(S_OK, browsing->MapPropertyToPage(7, &page));
    EXPECT_TRUE(IsEqualCLSID(CLSID_LorvGeneralPage, page));
    EXPECT_EQ(E_NOTIMPL, browsing->GetPredefinedStrings(7, nullptr, nullptr));
    EXPECT_EQ(E_NOTIMPL, browsing->GetPredefinedValue(7, 0, nullptr));
}

TEST_F(ControlBrowsing, OnlyAMarkedFormatHasADisplayString)
{
    auto browsing = As<IPerPropertyBrowsing>(IID_IPerPropertyBrowsing);
    Bstr text;
    EXPECT_EQ(E_NOTIMPL, browsing->GetDisplayString(10, text.Put()));
    EXPECT_EQ(E_NOTIMPL, browsing->GetDisplayString(7, text.Put()));
    Bstr marked(L"(fORMAT)|Name|Price");
    if (grid_->put_FormatString(marked.Get()) == E_NOTIMPL) {
        GTEST_SKIP();
    }
    EXPECT_EQ(S_OK, browsing->GetDisplayString(10, text.Put()));
    EXPECT_STREQ(L"(Format)", text.Text());
    EXPECT_EQ(E_NOTIMPL, browsing->GetDisplayString(11, text.Put()));
}

TEST_F(ControlBrowsing, EachPropertyHasItsCategory)
{
    auto browsing = As<Categorizer>(CategorizeId);
    auto rows = ContractRows(L"categories.tsv");
    EXPECT_EQ(83u, rows.size());
    for (const auto& row : rows) {
        int category = 0;
        EXPECT_EQ(S_OK, browsing->MapPropertyToCategory(std::stoi(row[2]), &category)) << row[1];
        EXPECT_EQ(std::stoi(row[0]), category) << row[1];
    }
    int category = 0;
    EXPECT_EQ(E_FAIL, browsing->MapPropertyToCategory(9999, &category));
    EXPECT_EQ(E_FAIL, browsing->MapPropertyToCategory(218, &category)); // MergeCellsFixed
}

TEST_F(ControlBrowsing, CategoriesHaveNames)
{
    auto browsing = As<Categorizer>(CategorizeId);
    const wchar_t* const names[] = {L"Display", L"Selection", L"Subtotals", L"Layout",
                                    L"Editing", L"Scrolling", L"Merging",   L"Accessibility"};
    Bstr name;
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(S_OK, browsing->GetCategoryName(11 + i, LOCALE_USER_DEFAULT, name.Put()));
        EXPECT_STREQ(names[i], name.Text());
    }
    for (int other : {-5, 0, 10, 19})
        EXPECT_EQ(E_FAIL, browsing->GetCategoryName(other, LOCALE_USER_DEFAULT, name.Put()));
}

namespace
{
std::wstring GuidText(REFGUID id)
{
    wchar_t text[39] = {};
    StringFromGUID2(id, text, 39);
    return text;
}

std::wstring RegistryText(const std::wstring& key, const wchar_t* name = nullptr)
{
    wchar_t text[1024] = {};
    DWORD size = sizeof(text);
    LSTATUS status = RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
    return status == ERROR_SUCCESS ? text : L"<none>";
}

bool HasKey(const std::wstring& name)
{
    HKEY key = nullptr;
    bool found = RegOpenKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS;
    if (found)
        RegCloseKey(key);
    return found;
}
} // namespace

TEST_F(ControlRegistration, EveryRowIsWritten)
{
    wchar_t module[1024] = {};
    GetModuleFileNameW(GetModuleHandleW(L"lorv8l.dll"), module, 1024);
    const std::wstring id = GuidText(CLSID_LorvGridL);
    const std::wstring at = L"CLSID\\" + id;
    const struct {
        std::wstring Key;
        const wchar_t* Name;
        std::wstring Data;
    } rows[] = {
        {L"LorvGrid8.LorvGridL.1", nullptr, L"LorvGrid 8.0 (Light)"},
        {L"LorvGrid8.LorvGridL.1\\CLSID", nullptr, id},
        {L"LorvGrid8.LorvGridL", nullptr, L"LorvGrid 8.0 (Light)"},
        {L"LorvGrid8.LorvGridL\\CLSID", nullptr, id},
        {L"LorvGrid8.LorvGridL\\CurVer", nullptr, L"LorvGrid8.LorvGridL.1"},
        {at, nullptr, L"LorvGrid 8.0 (Light)"},
        {at + L"\\ProgID", nullptr, L"LorvGrid8.LorvGridL.1"},
        {at + L"\\VersionIndependentProgID", nullptr, L"LorvGrid8.LorvGridL"},
        {at + L"\\InprocServer32", nullptr, module},
        {at + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {at + L"\\ToolboxBitmap32", nullptr, std::wstring(module) + L", 1"},
        {at + L"\\MiscStatus", nullptr, L"0"},
        {at + L"\\MiscStatus\\1", nullptr, L"229777"},
        {at + L"\\TypeLib", nullptr, GuidText(LIBID_Lorv8L)},
        {at + L"\\Version", nullptr, L"1.0"},
        {at + L"\\Verb\\0", nullptr, L"&Properties...,0,2"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(0, _wcsicmp(row.Data.c_str(), RegistryText(row.Key, row.Name).c_str()))
            << std::string(row.Key.begin(), row.Key.end());
    for (const wchar_t* alone : {L"\\Programmable", L"\\Control", L"\\Insertable"})
        EXPECT_TRUE(HasKey(at + alone));
}

TEST_F(ControlRegistration, TheTypeLibraryIsRegistered)
{
    ComPtr<ITypeLib> library;
    EXPECT_EQ(S_OK, LoadRegTypeLib(LIBID_Lorv8L, 1, 0, LOCALE_NEUTRAL, library.Put()));
}

// Goes there and back, so that the tests after it find the control.
TEST_F(ControlRegistration, UnregisteringLeavesNothing)
{
    HMODULE module = GetModuleHandleW(L"lorv8l.dll");
    auto call = [&](const char* name) {
        return reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
            reinterpret_cast<void*>(GetProcAddress(module, name)))();
    };
    EXPECT_EQ(S_OK, call("DllUnregisterServer"));
    EXPECT_FALSE(HasKey(L"LorvGrid8.LorvGridL.1"));
    EXPECT_FALSE(HasKey(L"LorvGrid8.LorvGridL"));
    EXPECT_FALSE(HasKey(L"CLSID\\" + GuidText(CLSID_LorvGridL)));
    ComPtr<ITypeLib> library;
    EXPECT_TRUE(FAILED(LoadRegTypeLib(LIBID_Lorv8L, 1, 0, LOCALE_NEUTRAL, library.Put())));
    EXPECT_EQ(S_OK, call("DllUnregisterServer"));
    EXPECT_EQ(S_OK, call("DllRegisterServer"));
    EXPECT_TRUE(HasKey(L"CLSID\\" + GuidText(CLSID_LorvGridL)));
}
