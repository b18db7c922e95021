// Rules that hold for members as a whole: what a form designer may read, how rows and columns are named, and
// what happens to callers that take no result.

#include "automation/random_calls.h"
#include "support/control_fixture.h"
#include "support/test_container.h"

#include <set>
#include <string>

namespace
{
constexpr HRESULT NotAtDesignTime = static_cast<HRESULT>(0x800A018A);
constexpr HRESULT BadIndex = static_cast<HRESULT>(0x800A017D);

std::string Narrow(const std::wstring& text)
{
    return std::string(text.begin(), text.end());
}

// Not called here: they reach for files.
bool ReachesForFiles(const std::wstring& name)
{
    return name == L"ArchiveInfo" || name == L"Archive" || name == L"SaveGrid" || name == L"LoadGrid" ||
           name == L"LoadGridURL" || name == L"PrintGrid" || name == L"DragRow" || name == L"OLEDrag";
}

class MemberRules : public ControlTest
{
protected:
    std::vector<CallableMember> Members()
    {
        ComPtr<ITypeInfo> info;
        EXPECT_EQ(S_OK, grid_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()));
        return MembersOf(info.Get());
    }

    // The member's own code, whether Invoke hands it out as it is or as an exception.
    HRESULT Call(DISPID id, WORD kind, DISPPARAMS& parameters, VARIANT* result = nullptr)
    {
        EXCEPINFO exception = {};
        HRESULT outcome =
            grid_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, &exception, nullptr);
        for (BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile})
            SysFreeString(text);
        return outcome == DISP_E_EXCEPTION ? exception.scode : outcome;
    }

    HRESULT GetAt(DISPID id, LONG index, OwnedVariant& result)
    {
        VARIANT argument = {};
        argument.vt = VT_I4, argument.lVal = index;
        DISPPARAMS parameters = {&argument, nullptr, 1, 0};
        return Call(id, DISPATCH_PROPERTYGET, parameters, result.Put());
    }

    HRESULT PutAt(DISPID id, LONG index, const VARIANT& value)
    {
        VARIANT arguments[2] = {value, {}};
        arguments[1].vt = VT_I4, arguments[1].lVal = index;
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {arguments, &put, 2, 1};
        return Call(id, DISPATCH_PROPERTYPUT, parameters);
    }
};

class ChangeCounter final : public LocalObject<IPropertyNotifySink>
{
public:
    int Changes = 0;
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override
    {
        ++Changes;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }
};
} // namespace

TEST_F(MemberRules, AFormDesignerIsRefusedTheseGettersAndNoOthers)
{
    const std::set<std::wstring> refused = {L"FontName",
                                            L"FontSize",
                                            L"FontBold",
                                            L"FontItalic",
                                            L"FontStrikethru",
                                            L"FontUnderline",
                                            L"FontWidth",
                                            L"TopRow",
                                            L"LeftCol",
                                            L"Row",
                                            L"Col",
                                            L"RowSel",
                                            L"ColSel",
                                            L"Text",
                                            L"Redraw",
                                            L"MouseRow",
                                            L"MouseCol",
                                            L"CellLeft",
                                            L"CellTop",
                                            L"CellWidth",
                                            L"CellHeight",
                                            L"CellBackColor",
                                            L"CellForeColor",
                                            L"CellAlignment",
                                            L"CellTextStyle",
                                            L"CellPicture",
                                            L"CellPictureAlignment",
                                            L"CellFontName",
                                            L"CellFontSize",
                                            L"CellFontBold",
                                            L"CellFontItalic",
                                            L"CellFontWidth",
                                            L"CellFontUnderline",
                                            L"CellFontStrikethru",
                                            L"CellFloodPercent",
                                            L"CellFloodColor",
                                            L"CellChecked",
                                            L"Clip",
                                            L"Picture",
                                            L"ComboList",
                                            L"Value",
                                            L"BottomRow",
                                            L"RightCol",
                                            L"ClientWidth",
                                            L"ClientHeight",
                                            L"EditText",
                                            L"EditMask",
                                            L"EditSelStart",
                                            L"EditSelLength",
                                            L"EditSelText",
                                            L"EditMaxLength",
                                            L"ComboIndex",
                                            L"ComboCount",
                                            L"ComboItem",
                                            L"ComboData",
                                            L"ScrollTipText",
                                            L"ClipSeparators",
                                            L"LorvDataSource",
                                            L"SortAscendingPicture",
                                            L"SortDescendingPicture",
                                            L"ToolTipText"};
    EXPECT_EQ(61u, refused.size());
    TestSite site;
    site.SetUserMode(false);
    ASSERT_EQ(S_OK, As<IOleObject>(IID_IOleObject)->SetClientSite(&site));
    for (const CallableMember& member : Members()) {
        if (member.Kind != DISPATCH_PROPERTYGET || ReachesForFiles(member.Name))
            continue;
        VARIANT arguments[16] = {};
        UINT count = static_cast<UINT>(member.Parameters.size());
        for (UINT i = 0; i < count; ++i)
            arguments[i].vt = VT_I4, arguments[i].lVal = 1;
        DISPPARAMS parameters = {arguments, nullptr, count, 0};
        OwnedVariant result;
        HRESULT code = Call(member.Id, DISPATCH_PROPERTYGET, parameters, &result.Get());
        if (code != E_NOTIMPL) {
            EXPECT_EQ(refused.count(member.Name) != 0, code == NotAtDesignTime)
                << Narrow(member.Name) << " " << std::hex << code;
        }
    }
    As<IOleObject>(IID_IOleObject)->SetClientSite(nullptr);
}

namespace
{
// Members with an index of a row or column and the value that the test sets.
struct IndexedMember {
    const char* Name;
    DISPID Id;
    bool OfRows;
    LONG Value;
};
constexpr IndexedMember indexedMembers[] = {
    {"ColAlignment", 119, false, 4}, {"ColWidth", 120, false, 900},   {"RowHeight", 121, true, 900},
    {"MergeRow", 122, true, -1},     {"MergeCol", 123, false, -1},    {"RowData", 126, true, 7},
    {"ColData", 127, false, 7},      {"IsSubtotal", 134, true, -1},   {"FixedAlignment", 138, false, 4},
    {"ColSort", 155, false, 1},      {"ColFormat", 156, false, 5},    {"ColDataType", 157, false, 3},
    {"ColEditMask", 164, false, 9},  {"ColComboList", 165, false, 1}, {"RowOutlineLevel", 166, true, 2},
    {"RowHidden", 171, true, -1},    {"ColHidden", 172, false, -1},   {"ColImageList", 184, false, 0},
    {"ColKey", 185, false, 5},       {"ColIndent", 207, false, 300},
};
} // namespace

TEST_F(MemberRules, ANegativeIndexIsAllRowsOrColumnsForSettersAndNoneForGetters)
{
    ChangeCounter sink;
    auto point = Point(IID_IPropertyNotifySink);
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, point->Advise(&sink, &cookie));
    for (const IndexedMember& member : indexedMembers) {
        SCOPED_TRACE(member.Name);
        LONG count = member.OfRows ? 50 : 10;
        VARIANT value = {};
        value.vt = VT_I4, value.lVal = member.Value;
        OwnedVariant read;
        if (GetAt(member.Id, 0, read) == E_NOTIMPL)
            continue;
        for (LONG all : {-1, -2, -1000}) {
            EXPECT_EQ(S_OK, PutAt(member.Id, all, value)) << all;
            EXPECT_EQ(BadIndex, GetAt(member.Id, all, read)) << all;
        }
        EXPECT_EQ(BadIndex, PutAt(member.Id, count, value));
        EXPECT_EQ(BadIndex, GetAt(member.Id, count, read));
        EXPECT_EQ(BadIndex, PutAt(member.Id, 0x7FFFFFFF, value));
        for (LONG index : {LONG(0), count / 2, count - 1}) {
            EXPECT_EQ(S_OK, GetAt(member.Id, index, read));
            EXPECT_EQ(S_OK, VariantChangeType(&read.Get(), &read.Get(), 0, VT_I4));
            EXPECT_EQ(member.Value, read.Get().lVal) << index;
        }
    }
    EXPECT_EQ(0, sink.Changes) << "rows and columns are not properties of the control";
    EXPECT_EQ(S_FALSE, As<IPersistStreamInit>(IID_IPersistStreamInit)->IsDirty());
    point->Unadvise(cookie);
}

namespace
{
// The interface of the vtable behind a dual one.
ComPtr<ITypeInfo> VtableOf(ITypeInfo* dispatch)
{
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> vtable;
    if (SUCCEEDED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        dispatch->GetRefTypeInfo(reference, vtable.Put());
    return vtable;
}

bool IsResult(const ELEMDESC& parameter)
{
    return (parameter.paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0;
}

bool HasResults(const FUNCDESC& function)
{
    return std::any_of(function.lprgelemdescParam, function.lprgelemdescParam + function.cParams, IsResult);
}

// Calls a member with ones and missing values, and null for every result.
HRESULT CallWithoutResults(IUnknown* object, const FUNCDESC& function)
{
    VARTYPE types[16] = {};
    VARIANT values[16] = {};
    VARIANT* arguments[16] = {};
    for (int i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        arguments[i] = &values[i];
        VARTYPE type = parameter.tdesc.vt;
        if (IsResult(parameter))
            types[i] = VT_BYREF | VT_I4;
        else if (type == VT_USERDEFINED)
            types[i] = VT_I4;
        else
            types[i] = type == VT_PTR ? static_cast<VARTYPE>(VT_DISPATCH) : type;
        values[i].vt = types[i];
        if (types[i] == VT_I4)
            values[i].lVal = 1;
        else if (types[i] == VT_VARIANT)
            values[i].vt = VT_ERROR, values[i].scode = DISP_E_PARAMNOTFOUND;
    }
    OwnedVariant code;
    HRESULT called = DispCallFunc(object, function.oVft, CC_STDCALL, VT_ERROR,
                                  static_cast<UINT>(function.cParams), types, arguments, &code.Get());
    return FAILED(called) ? called : code.Get().scode;
}
} // namespace

// The results of GetSelection may be left out one by one.
TEST_F(MemberRules, AResultThatNobodyTakesIsAPointerMissing)
{
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(S_OK, grid_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put()));
    ComPtr<ITypeInfo> vtable = VtableOf(info.Get());
    ASSERT_TRUE(vtable);
    int tested = 0;
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(vtable->GetFuncDesc(index, &function)); ++index) {
        BSTR text = nullptr;
        vtable->GetDocumentation(function->memid, &text, nullptr, nullptr, nullptr);
        std::wstring name = text ? text : L"";
        SysFreeString(text);
        if (function->memid < 0x60000000 && HasResults(*function) && !ReachesForFiles(name)) {
            HRESULT code = CallWithoutResults(grid_.Get(), *function);
            if (code != E_NOTIMPL) {
                EXPECT_EQ(name == L"GetSelection" ? S_OK : E_POINTER, code) << Narrow(name);
                ++tested;
            }
        }
        vtable->ReleaseFuncDesc(function);
    }
    EXPECT_GT(tested, 150);
}
