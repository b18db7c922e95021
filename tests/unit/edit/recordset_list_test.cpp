#include "edit/recordset_list.h"

#include "support/fakes.h"
#include "support/member_grid.h"

#include <map>
#include <string>
#include <vector>

namespace
{
// An object with members by name, as a script would make it.
class NamedObject : public FakeDispatch
{
public:
    using Member = std::function<HRESULT(WORD flags, DISPPARAMS& parameters, VARIANT* result)>;
    std::map<std::wstring, Member> Members;
    Member Default;

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override
    {
        auto found = Members.find(names[0]);
        if (found == Members.end())
            return DISP_E_UNKNOWNNAME;
        *id = 1 + static_cast<DISPID>(std::distance(Members.begin(), found));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override
    {
        if (id == DISPID_VALUE)
            return Default ? Default(flags, *parameters, result) : DISP_E_MEMBERNOTFOUND;
        return std::next(Members.begin(), id - 1)->second(flags, *parameters, result);
    }
};

HRESULT Answer(VARIANT* result, IDispatch* object)
{
    object->AddRef();
    result->vt = VT_DISPATCH;
    result->pdispVal = object;
    return S_OK;
}

const std::wstring null = L"(null)";

// A number comes as a number.
void SetValue(const std::wstring& text, VARIANT* value)
{
    VariantInit(value);
    if (text == null) {
        value->vt = VT_NULL;
    } else if (!text.empty() && text.find_first_not_of(L"0123456789") == std::wstring::npos) {
        value->vt = VT_I4;
        value->lVal = std::stol(text);
    } else {
        value->vt = VT_BSTR;
        value->bstrVal = SysAllocString(text.c_str());
    }
}

// Records under the names of its fields.
class Recordset : public NamedObject
{
public:
    Recordset(std::vector<std::wstring> names, std::vector<std::vector<std::wstring>> records)
        : Names(std::move(names)), Records(std::move(records)), fields_(Names.size())
    {
        Members[L"Fields"] = [this](WORD flags, DISPPARAMS&, VARIANT* result) {
            EXPECT_EQ(flags, DISPATCH_PROPERTYGET);
            return Answer(result, &list_);
        };
        Members[L"EOF"] = [this](WORD, DISPPARAMS&, VARIANT* result) {
            result->vt = VT_BOOL;
            result->boolVal = At >= Records.size() ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        };
        Members[L"MoveFirst"] = [this](WORD flags, DISPPARAMS&, VARIANT*) {
            EXPECT_EQ(flags, DISPATCH_METHOD);
            At = 0;
            return S_OK;
        };
        Members[L"MoveNext"] = [this](WORD, DISPPARAMS&, VARIANT*) {
            ++At;
            return S_OK;
        };
        Members[L"Bookmark"] = [this](WORD flags, DISPPARAMS& parameters, VARIANT* result) {
            if (flags == DISPATCH_PROPERTYPUT) {
                At = static_cast<size_t>(parameters.rgvarg[0].lVal);
                ++BookmarksSet;
            } else {
                result->vt = VT_I4;
                result->lVal = static_cast<LONG>(At);
            }
            return S_OK;
        };
        list_.Members[L"Item"] = [this](WORD flags, DISPPARAMS& parameters, VARIANT* result) -> HRESULT {
            EXPECT_EQ(flags, DISPATCH_PROPERTYGET);
            for (size_t field = 0; field < Names.size(); ++field)
                if (Names[field] == parameters.rgvarg[0].bstrVal)
                    return Answer(result, &fields_[field]);
            return DISP_E_BADINDEX;
        };
        for (size_t field = 0; field < Names.size(); ++field)
            fields_[field].Default = [this, field](WORD, DISPPARAMS&, VARIANT* result) {
                SetValue(Records[At][field], result);
                return S_OK;
            };
    }

    std::vector<std::wstring> Names;
    std::vector<std::vector<std::wstring>> Records;
    size_t At = 0;
    int BookmarksSet = 0;

private:
    NamedObject list_;
    std::vector<NamedObject> fields_;
};

std::wstring Built(IDispatch* records, const wchar_t* fields, const Value& key = missing,
                   const Value& color = missing)
{
    Bstr list;
    bool built = BuildRecordsetList(records, fields, key, color, list);
    EXPECT_TRUE(built || list.Empty());
    return built ? list.Text() : L"(refused)";
}

class RecordsetList : public testing::Test
{
protected:
    Recordset people{{L"id", L"name", L"city"}, {{L"1", L"Ann", L"Rome"}, {L"2", L"Bob", L"Paris"}}};
};
} // namespace

TEST_F(RecordsetList, JoinsFieldsAndRecords)
{
    EXPECT_EQ(Built(&people, L"name"), L"Ann|Bob");
    EXPECT_EQ(Built(&people, L"name,city"), L"Ann\tRome|Bob\tParis");
    EXPECT_EQ(Built(&people, L" city | name \t id "), L"Rome\tAnn\t1|Paris\tBob\t2");
    EXPECT_EQ(Built(&people, L"name\r\ncity"), L"Ann\tRome|Bob\tParis");
    EXPECT_EQ(Built(&people, L",,name,"), L"Ann|Bob");
}

TEST_F(RecordsetList, CarriesKeysAndTheHeadInTheFirst)
{
    EXPECT_EQ(Built(&people, L"name", L"id"), L"#1;Ann|#2;Bob");
    EXPECT_EQ(Built(&people, L"name,*city", L"id"), L"#1*1;Ann\tRome|#2;Bob\tParis");
    EXPECT_EQ(Built(&people, L"*name,city"), L"#*0;Ann\tRome|Bob\tParis");
    EXPECT_EQ(Built(&people, L"name,*city", L"id", 255), L"#1*1&255;Ann\tRome|#2;Bob\tParis");
    EXPECT_EQ(Built(&people, L"name", L"id", 255), L"#1*&255;Ann|#2;Bob");
    EXPECT_EQ(Built(&people, L"name", missing, -5), L"#*&-5;Ann|Bob");
    EXPECT_EQ(Built(&people, L"name", missing, L"no colour"), L"Ann|Bob");
    EXPECT_EQ(Built(&people, L"name", L"", 0), L"Ann|Bob");
}

TEST_F(RecordsetList, LeavesFieldsOutThatAreNotThere)
{
    EXPECT_EQ(Built(&people, L"nobody,name"), L"Ann|Bob");
    EXPECT_EQ(Built(&people, L"nobody,*name", L"id"), L"#1*0;Ann|#2;Bob");
    EXPECT_EQ(Built(&people, L"*nobody,name", L"id"), L"#1;Ann|#2;Bob");
    EXPECT_EQ(Built(&people, L"nobody"), L"(refused)");
    EXPECT_EQ(Built(&people, L"name", L"nobody"), L"(refused)");
}

TEST_F(RecordsetList, RefusesAKeyFieldThatIsNoName)
{
    VARIANT nothing = {}, noName = {};
    noName.vt = VT_UNKNOWN;
    Bstr list;
    EXPECT_FALSE(BuildRecordsetList(&people, L"name", noName, missing, list));
    EXPECT_TRUE(list.Empty());
    EXPECT_TRUE(BuildRecordsetList(&people, L"name", nothing, missing, list));
    EXPECT_STREQ(list.Text(), L"Ann|Bob");
}

TEST_F(RecordsetList, TakesTwentyFields)
{
    std::wstring fields = L"id";
    for (int field = 1; field < 25; ++field)
        fields += L",id";
    std::wstring list = Built(&people, fields.c_str());
    EXPECT_EQ(std::count(list.begin(), list.end(), L'\t'), 2 * 19);
}

TEST_F(RecordsetList, LeavesEmptyKeysOut)
{
    people.Records[0][0] = L"";
    people.Records[1][0] = null;
    EXPECT_EQ(Built(&people, L"name", L"id"), L"Ann|Bob");
    EXPECT_EQ(Built(&people, L"*name", L"id"), L"#*0;Ann|Bob");
}

TEST_F(RecordsetList, RefusesTabsInValues)
{
    people.Records[1][1] = L"B\tb";
    EXPECT_EQ(Built(&people, L"name"), L"(refused)");
    EXPECT_EQ(Built(&people, L"city", L"name"), L"(refused)");
    EXPECT_EQ(Built(&people, L"city"), L"Rome|Paris");
}

TEST_F(RecordsetList, PutsTheBookmarkBack)
{
    people.At = 1;
    EXPECT_EQ(Built(&people, L"name"), L"Ann|Bob");
    EXPECT_EQ(people.At, 1u);
    EXPECT_EQ(people.BookmarksSet, 1);
    people.Members.erase(L"Bookmark");
    EXPECT_EQ(Built(&people, L"name"), L"Ann|Bob");
    EXPECT_EQ(people.At, 2u);
}

TEST_F(RecordsetList, AnEmptyRecordsetIsAnEmptyList)
{
    people.Records.clear();
    EXPECT_EQ(Built(&people, L"name", L"id"), L"");
}

TEST_F(RecordsetList, RefusesWhatIsNoRecordset)
{
    FakeDispatch nothing;
    EXPECT_EQ(Built(nullptr, L"name"), L"(refused)");
    EXPECT_EQ(Built(&nothing, L"name"), L"(refused)");
    EXPECT_EQ(Built(&people, L""), L"(refused)");
    EXPECT_EQ(Built(&people, L" , "), L"(refused)");
    for (const wchar_t* name : {L"Fields", L"EOF", L"MoveFirst", L"MoveNext"}) {
        Recordset lame({L"name"}, {{L"Ann"}});
        lame.Members.erase(name);
        EXPECT_EQ(Built(&lame, L"name"), L"(refused)") << name;
    }
}

TEST_F(RecordsetList, RefusesWhenAMemberFails)
{
    for (const wchar_t* name : {L"Fields", L"EOF", L"MoveFirst", L"MoveNext"}) {
        Recordset lame({L"name"}, {{L"Ann"}});
        lame.Members[name] = [](WORD, DISPPARAMS&, VARIANT*) { return E_FAIL; };
        EXPECT_EQ(Built(&lame, L"name"), L"(refused)") << name;
    }
    Recordset numbers({L"name"}, {{L"Ann"}});
    numbers.Members[L"Fields"] = [](WORD, DISPPARAMS&, VARIANT* result) {
        result->vt = VT_I4;
        return S_OK;
    };
    EXPECT_EQ(Built(&numbers, L"name"), L"(refused)");
}

TEST_F(RecordsetList, KeepsLongLists)
{
    people.Records.assign(2000, {L"1", L"A name", L"x"});
    std::wstring list = Built(&people, L"name", L"id");
    EXPECT_EQ(list.size(), 2000 * std::wcslen(L"#1;A name") + 1999);
    EXPECT_EQ(list.substr(list.size() - 10), L"|#1;A name");
}

TEST_F(RecordsetList, IsAMember)
{
    MemberGrid grid;
    BSTR list = nullptr;
    EXPECT_EQ(grid.BuildComboList(&people, Bstr(L"name").Get(), missing, missing, &list), S_OK);
    EXPECT_STREQ(list, L"Ann|Bob");
    SysFreeString(list);
    EXPECT_EQ(grid.BuildComboList(nullptr, Bstr(L"name").Get(), missing, missing, &list), LORV_E_VALUE);
    EXPECT_EQ(SysStringLen(list), 0u);
    SysFreeString(list);
    EXPECT_EQ(grid.BuildComboList(&people, Bstr(L"name").Get(), missing, missing, nullptr), E_POINTER);
}
