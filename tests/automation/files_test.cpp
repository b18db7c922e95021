// SaveGrid and LoadGrid as a client meets them.
#include "support/control_fixture.h"

#include <objsafe.h>

#include <string>

namespace
{
constexpr DISPID SaveGridId = 151, LoadGridId = 152, CellChangedId = 43;

class ControlFiles : public ControlTest
{
protected:
    void SetUp() override
    {
        ControlTest::SetUp();
        wchar_t folder[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, folder);
        file_ = Bstr(
            (std::wstring(folder) + L"lorv_automation_" + std::to_wstring(GetCurrentProcessId())).c_str());
        missing_.vt = VT_ERROR;
        missing_.scode = DISP_E_PARAMNOTFOUND;
        grid_->put_Rows(3);
        grid_->put_Cols(3);
        Bstr text(L"kept");
        grid_->put_TextMatrix(2, 2, text.Get());
    }
    void TearDown() override
    {
        DeleteFileW(file_.Text());
        ControlTest::TearDown();
    }

    std::wstring TextAt(LONG row, LONG col)
    {
        Bstr text;
        grid_->get_TextMatrix(row, col, text.Put());
        return text.Text();
    }

    // Calls a method late-bound, with the optional argument left out.
    HRESULT Invoke(DISPID method, int kind, EXCEPINFO* exception = nullptr)
    {
        VARIANTARG arguments[2] = {};
        arguments[1].vt = VT_BSTR;
        arguments[1].bstrVal = file_.Get();
        arguments[0].vt = VT_I4;
        arguments[0].lVal = kind;
        DISPPARAMS parameters = {arguments, nullptr, 2, 0};
        return grid_->Invoke(method, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                             exception, nullptr);
    }

    static void LetGo(EventRecorder& recorder)
    {
        recorder.ActsOn = DISPID_UNKNOWN;
        static_cast<ControlFiles*>(recorder.ActData)->grid_.Detach()->Release();
    }

    Bstr file_;
    VARIANT missing_ = {};
};

TEST_F(ControlFiles, GoAndComeBackLateBoundWithoutOptions)
{
    ASSERT_EQ(S_OK, Invoke(SaveGridId, lorvFileAll));
    ASSERT_EQ(S_OK, grid_->put_Rows(1));
    ASSERT_EQ(S_OK, Invoke(LoadGridId, lorvFileAll));
    EXPECT_EQ(TextAt(2, 2), L"kept");
}

TEST_F(ControlFiles, AreClosedToUntrustedScriptsWithAWord)
{
    auto safety = As<IObjectSafety>(IID_IObjectSafety);
    ASSERT_EQ(S_OK, safety->SetInterfaceSafetyOptions(IID_IDispatch, INTERFACESAFE_FOR_UNTRUSTED_DATA,
                                                      INTERFACESAFE_FOR_UNTRUSTED_DATA));
    for (DISPID method : {SaveGridId, LoadGridId}) {
        EXCEPINFO exception = {};
        EXPECT_EQ(DISP_E_EXCEPTION, Invoke(method, lorvFileAll, &exception));
        EXPECT_EQ(static_cast<HRESULT>(0x800A03ED), exception.scode);
        EXPECT_STREQ(exception.bstrDescription, L"Disabled by browser safety settings");
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
    }
    EXPECT_EQ(GetFileAttributesW(file_.Text()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ControlFiles, CodesAreThoseOfTheInterface)
{
    EXPECT_EQ(static_cast<HRESULT>(0x800A017C),
              grid_->SaveGrid(file_.Get(), static_cast<SaveLoadSettings>(8), missing_));
    EXPECT_EQ(static_cast<HRESULT>(0x800A017C),
              grid_->LoadGrid(file_.Get(), static_cast<SaveLoadSettings>(8), missing_));
    EXPECT_EQ(static_cast<HRESULT>(0x800A0035), grid_->LoadGrid(file_.Get(), lorvFileAll, missing_));
    EXPECT_EQ(static_cast<HRESULT>(0x800A0046), grid_->SaveGrid(nullptr, lorvFileAll, missing_));
    ASSERT_EQ(S_OK, grid_->SaveGrid(file_.Get(), lorvFileTabText, missing_));
    EXPECT_EQ(static_cast<HRESULT>(0x800A0141), grid_->LoadGrid(file_.Get(), lorvFileAll, missing_));
    EXPECT_EQ(TextAt(2, 2), L"kept");
}

TEST_F(ControlFiles, LoadingMarksTheFontsOwnerButTellsOfNoSelection)
{
    ASSERT_EQ(S_OK, grid_->SaveGrid(file_.Get(), lorvFileFormat, missing_));
    grid_->put_Row(2);
    EventRecorder events;
    ChangeRecorder changes;
    Connection eventConnection(Point(DIID__ILorvGridEvents), &events);
    Connection changeConnection(Point(IID_IPropertyNotifySink), &changes);
    ASSERT_EQ(S_OK, grid_->LoadGrid(file_.Get(), lorvFileFormat, missing_));
    LONG row = 0;
    grid_->get_Row(&row);
    EXPECT_EQ(row, 1);
    EXPECT_TRUE(events.Events.empty());
    EXPECT_FALSE(changes.Changes.empty());
    for (DISPID changed : changes.Changes)
        EXPECT_EQ(changed, DISPID_FONT) << "the font goes through its own setters, the rest does not";
}

// The host lets go of the control in the middle of a load.
TEST_F(ControlFiles, ALoadOutlivesItsHostsReference)
{
    ASSERT_EQ(S_OK, grid_->SaveGrid(file_.Get(), lorvFileAll, missing_));
    ILorvGrid* grid = grid_.Get();
    EventRecorder events;
    {
        Connection connection(Point(DIID__ILorvGridEvents), &events);
        connection.Cookie = 0; // the control gives the sink back when it goes
        events.ActsOn = CellChangedId;
        events.ActData = this;
        events.Act = LetGo;
    }
    EXPECT_EQ(S_OK, grid->LoadGrid(file_.Get(), lorvFileAll, missing_));
    EXPECT_EQ(events.Count(CellChangedId), 1);
    EXPECT_EQ(0, events.References);
}
} // namespace
