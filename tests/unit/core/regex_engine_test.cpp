// What FindRowRegex asks of the script engine, seen by an engine of the tests' own in its place.
#include "core/cell_store.h"
#include "core/row_col.h"
#include "core/search.h"
#include "platform/bstr.h"
#include "support/fakes.h"

#include <climits>
#include <functional>
#include <string>
#include <vector>

namespace
{
constexpr DISPID TestId = 7, PatternId = 9;
constexpr HRESULT Broken = 0x800A1234;

// Matches texts that begin with its pattern, and writes down what it was asked.
class FakeEngine : public FakeDispatch
{
public:
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override
    {
        std::wstring name = *names;
        Asked.push_back(L"id " + name);
        *id = name == L"Test" ? TestId : PatternId;
        return name == UnknownName ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override
    {
        EXPECT_EQ(parameters->cArgs, 1u);
        EXPECT_EQ(parameters->rgvarg[0].vt, VT_BSTR);
        std::wstring text = parameters->rgvarg[0].bstrVal ? parameters->rgvarg[0].bstrVal : L"(null)";
        if (id == PatternId) {
            EXPECT_EQ(flags, DISPATCH_PROPERTYPUT);
            EXPECT_EQ(parameters->cNamedArgs, 1u);
            EXPECT_EQ(parameters->rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
            Asked.push_back(L"pattern " + text);
            if (FAILED(PatternResult))
                return PatternResult;
            pattern_ = text;
            return S_OK;
        }
        EXPECT_EQ(id, TestId);
        EXPECT_EQ(flags, DISPATCH_METHOD);
        Asked.push_back(L"test " + text);
        if (OnTest)
            OnTest();
        if (text == FailsAt)
            return Broken;
        result->vt = AnswerType;
        result->boolVal = text.rfind(pattern_, 0) == 0 ? TrueValue : VARIANT_FALSE;
        return S_OK;
    }

    std::vector<std::wstring> Asked;
    std::wstring UnknownName, FailsAt;
    std::function<void()> OnTest;
    HRESULT PatternResult = S_OK;
    VARTYPE AnswerType = VT_BOOL;
    VARIANT_BOOL TrueValue = VARIANT_TRUE;

private:
    std::wstring pattern_ = L"a";
};

class FakeFactory : public Fake<IClassFactory>
{
public:
    explicit FakeFactory(FakeEngine& engine) : Fake(IID_IClassFactory), engine_(engine) {}
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override
    {
        EXPECT_EQ(outer, nullptr);
        ++Created;
        *out = nullptr;
        return FAILED(Result) ? Result : engine_.QueryInterface(iid, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    int Created = 0;
    HRESULT Result = S_OK;

private:
    FakeEngine& engine_;
};

// Column 1 reads: nothing (fixed), "apple", nothing, "bear", "apricot".
class RegexEngine : public testing::Test
{
protected:
    FakeEngine engine;
    FakeFactory factory{engine};
    Grid grid;

    void SetUp() override
    {
        CLSID id;
        ASSERT_EQ(CLSIDFromString(L"VBScript.RegExp", &id), S_OK);
        ASSERT_EQ(CoRegisterClassObject(id, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
                  S_OK);
        ResizeRows(grid, 5);
        SetCellText(grid, 1, 1, L"apple");
        SetCellText(grid, 3, 1, L"bear");
        SetCellText(grid, 4, 1, L"apricot");
    }
    void TearDown() override { CoRevokeClassObject(cookie_); }

    // The row found, or a failure as its code.
    long Find(const wchar_t* pattern, int row = 0, int col = 1)
    {
        engine.Asked.clear();
        int found = 77;
        Bstr text(pattern);
        HRESULT result = FindRowRegex(grid, text.Get(), row, col, found);
        EXPECT_EQ(engine.References, 0) << "the engine is released";
        if (FAILED(result)) {
            EXPECT_EQ(found, -1);
        }
        return FAILED(result) ? result : found;
    }

private:
    DWORD cookie_ = 0;
};
using Steps = std::vector<std::wstring>;

TEST_F(RegexEngine, IsGivenThePatternAndThenEachTextUntilOneMatches)
{
    EXPECT_EQ(Find(L"b"), 3);
    EXPECT_EQ(engine.Asked, (Steps{L"id Test", L"id Pattern", L"pattern b", L"test apple", L"test bear"}));
    EXPECT_EQ(Find(L"ap", 2), 4);
    EXPECT_EQ(engine.Asked, (Steps{L"id Test", L"id Pattern", L"pattern ap", L"test bear", L"test apricot"}));
    EXPECT_EQ(Find(L"c"), -1);
    EXPECT_EQ(engine.Asked.size(), 6u) << "no cell without a text is tested";
    EXPECT_EQ(factory.Created, 3) << "one engine a search";
}

TEST_F(RegexEngine, IsNotCreatedForAColumnThatIsNone)
{
    for (int col : {-1, INT_MIN, grid.Cols, INT_MAX})
        EXPECT_EQ(Find(L"a", 0, col), LORV_E_INDEX);
    EXPECT_EQ(factory.Created, 0);
}

TEST_F(RegexEngine, ThatCannotBeCreatedFailsTheSearch)
{
    for (HRESULT code : {E_OUTOFMEMORY, Broken}) {
        factory.Result = code;
        EXPECT_EQ(Find(L"a"), code);
        EXPECT_EQ(engine.Asked, Steps{});
    }
}

TEST_F(RegexEngine, WithoutOneOfTheNamesFailsTheSearch)
{
    engine.UnknownName = L"Test";
    EXPECT_EQ(Find(L"a"), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(engine.Asked, Steps{L"id Test"});
    engine.UnknownName = L"Pattern";
    EXPECT_EQ(Find(L"a"), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(engine.Asked, (Steps{L"id Test", L"id Pattern"}));
}

TEST_F(RegexEngine, ThatRefusesThePatternIsTestedAllTheSame)
{
    engine.PatternResult = Broken;
    EXPECT_EQ(Find(L"b", 2), 4) << "by the pattern that it had";
}

TEST_F(RegexEngine, ThatFailsATestEndsTheSearchWithItsCode)
{
    engine.FailsAt = L"bear";
    EXPECT_EQ(Find(L"apr"), Broken);
    EXPECT_EQ(engine.Asked.back(), L"test bear");
    EXPECT_EQ(Find(L"apple"), 1) << "a match before it counts";
}

TEST_F(RegexEngine, MatchesByABooleanThatIsNotZero)
{
    engine.TrueValue = 1;
    EXPECT_EQ(Find(L"b"), 3);
    for (VARTYPE type : {VT_I2, VT_I4, VT_EMPTY}) {
        engine.AnswerType = type;
        EXPECT_EQ(Find(L"b"), -1) << type;
    }
}

TEST_F(RegexEngine, MayTakeRowsAwayInATest)
{
    engine.OnTest = [&] { ResizeRows(grid, 3); };
    EXPECT_EQ(Find(L"apr"), -1);
    EXPECT_EQ(engine.Asked.back(), L"test apple");
    engine.OnTest = [&] { ResizeCols(grid, 1); };
    EXPECT_EQ(Find(L"apr"), -1);
    EXPECT_EQ(grid.Cols, 1);
}
} // namespace
