// Parts of the control where a test has to reach inside.

#include "core/events.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "shell/control.h"
#include "support/fakes.h"
#include "support/member_grid.h"

#include "platform/com_ptr.h"

#include <string>

namespace
{
// A control with its parts.
class MadeControl : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(CLorvArrayCtrl::Create(nullptr, IID_ILorvGrid, members_.PutVoid()), S_OK);
        control = static_cast<CLorvArrayCtrl*>(members_.Get());
    }
    void TearDown() override { EXPECT_EQ(members_.Detach()->Release(), 0u); }

    CLorvArrayCtrl* control = nullptr;

private:
    ComPtr<ILorvGrid> members_;
};

// A drop into a container stores what is dragged; the dragged grid must not be copied so.
TEST_F(MadeControl, IsNotStoredWhileItIsDragged)
{
    ComPtr<IStorage> storage;
    ASSERT_EQ(StgCreateDocfile(nullptr,
                               STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE, 0,
                               storage.Put()),
              S_OK);
    control->OleDragRunning = true;
    EXPECT_EQ(control->Storage.Save(storage.Get(), TRUE), E_FAIL);
    ComPtr<IStream> contents;
    EXPECT_EQ(storage->OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, contents.Put()),
              STG_E_FILENOTFOUND);
    control->OleDragRunning = false;
    EXPECT_EQ(control->Storage.Save(storage.Get(), TRUE), S_OK);
}

// A sink whose interface is that of the grid's events.
class GridEventSink : public Fake<IDispatch>
{
public:
    GridEventSink() : Fake(DIID__ILorvGridEvents) {}
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        ++Count;
        return S_OK;
    }
    int Count = 0;
};

TEST_F(MadeControl, RefusesASinkThatItHasNoRoomFor)
{
    GridEventSink sink;
    DWORD cookie = 5;
    {
        FailingAllocation failing;
        EXPECT_EQ(control->Connections.Events.Advise(&sink, &cookie), static_cast<HRESULT>(0x80040201));
    }
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(sink.References, 0);
    event::Click(*control);
    EXPECT_EQ(sink.Count, 0);
    EXPECT_EQ(control->Connections.Events.Advise(&sink, &cookie), S_OK);
    event::Click(*control);
    EXPECT_EQ(sink.Count, 1);
    EXPECT_EQ(control->Connections.Events.Unadvise(cookie), S_OK);
}

TEST_F(MadeControl, ANewPaletteIsAskedForAtTheNextPaint)
{
    for (DISPID ambient : {DISPID_AMBIENT_PALETTE, DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_FONT}) {
        control->OptionWord &= ~OptionGdiStale;
        control->Ole.OnAmbientPropertyChange(ambient);
        EXPECT_EQ(HasOption(*control, OptionGdiStale), ambient == DISPID_AMBIENT_PALETTE) << ambient;
    }
}

// Says that the user interface is dead, alive, or something that is no answer.
class UiDeadHost : public FakeDispatch
{
public:
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override
    {
        if (id != DISPID_AMBIENT_UIDEAD || !Answers)
            return DISP_E_MEMBERNOTFOUND;
        *result = Answer;
        return S_OK;
    }
    bool Answers = true;
    VARIANT Answer = {};
};

TEST_F(MadeControl, TheUserInterfaceIsDeadOnlyWhenTheHostSaysSo)
{
    UiDeadHost host;
    ReplaceReference<IDispatch>(control->AmbientProperties, &host);
    auto ask = [&] {
        control->Ole.OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD);
        return control->Ole.UIDead();
    };
    host.Answer.vt = VT_BOOL, host.Answer.boolVal = VARIANT_TRUE;
    EXPECT_TRUE(ask());
    host.Answer.boolVal = VARIANT_FALSE;
    EXPECT_FALSE(ask());
    host.Answer.boolVal = 1;
    EXPECT_TRUE(ask());
    host.Answer.vt = VT_I4, host.Answer.lVal = 1;
    EXPECT_FALSE(ask()) << "no boolean";
    host.Answer.vt = VT_BOOL;
    EXPECT_TRUE(ask());
    host.Answers = false;
    EXPECT_FALSE(ask());
    ReplaceReference<IDispatch>(control->AmbientProperties, nullptr);
}

// The site of a control without a window.
class WindowlessSite : public Fake<IOleInPlaceSiteWindowless>
{
public:
    WindowlessSite() : Fake(IID_IOleInPlaceSiteWindowless) {}
    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame**, IOleInPlaceUIWindow**, LPRECT, LPRECT,
                                               LPOLEINPLACEFRAMEINFO) override
    {
        return E_FAIL;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL*, DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestUIActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE CanWindowlessActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetCapture() override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE SetCapture(BOOL) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE GetFocus() override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE SetFocus(BOOL) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE GetDC(LPCRECT, DWORD, HDC*) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE ReleaseDC(HDC) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE InvalidateRect(LPCRECT area, BOOL erase) override
    {
        ++Invalidations;
        EXPECT_EQ(area, nullptr);
        EXPECT_EQ(erase, TRUE);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE InvalidateRgn(HRGN, BOOL) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE ScrollRect(INT, INT, LPCRECT, LPCRECT) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE AdjustRect(LPRECT) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE OnDefWindowMessage(UINT, WPARAM, LPARAM, LRESULT*) override { return E_FAIL; }

    int Invalidations = 0;
};

TEST_F(MadeControl, WithoutAWindowItIsTheSiteThatIsRepainted)
{
    WindowlessSite site;
    ReplaceReference<IOleInPlaceSite>(control->InPlaceSite, &site);
    RepaintGrid(*control);
    EXPECT_EQ(site.Invalidations, 1);
    RepaintCell(*control, 1, 1);
    EXPECT_EQ(site.Invalidations, 2);
    control->Redraw = lorvRDNone;
    RepaintCell(*control, 1, 1);
    EXPECT_EQ(site.Invalidations, 2);
    ReplaceReference<IOleInPlaceSite>(control->InPlaceSite, nullptr);
}

// The message box of a reported failure, as the user finds it.
struct SeenBox {
    int Count;
    HWND Owner;
    std::wstring Text;
};
SeenBox seenBox;

BOOL CALLBACK TakeText(HWND child, LPARAM)
{
    wchar_t name[20] = {}, text[200] = {};
    GetClassNameW(child, name, 20);
    if (_wcsicmp(name, L"Static") == 0 && GetWindowTextW(child, text, 200) > 0)
        seenBox.Text = text;
    return TRUE;
}

BOOL CALLBACK CloseBox(HWND window, LPARAM)
{
    wchar_t name[20] = {};
    GetClassNameW(window, name, 20);
    if (std::wcscmp(name, L"#32770") != 0 || !IsWindowVisible(window))
        return TRUE;
    ++seenBox.Count;
    seenBox.Owner = GetWindow(window, GW_OWNER);
    EnumChildWindows(window, TakeText, 0);
    EndDialog(window, IDOK);
    return FALSE;
}

void CALLBACK LookForBox(HWND, UINT, UINT_PTR, DWORD)
{
    EnumThreadWindows(GetCurrentThreadId(), CloseBox, 0);
}

TEST(ReportError, ShowsItsTextUnlessAHandlerForbidsIt)
{
    MemberGrid grid;
    EventSink events;
    Connection connection(grid.EventSinks, &events);
    grid.Window = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                                  nullptr, nullptr, nullptr);
    UINT_PTR timer = SetTimer(nullptr, 0, 20, LookForBox);
    for (HRESULT code : {LORV_E_CANNOTUPDATE, LORV_E_FIELDVALUE}) {
        seenBox = {};
        EXPECT_EQ(ReportError(grid, code), code);
        EXPECT_EQ(seenBox.Count, 1);
        EXPECT_EQ(seenBox.Owner, grid.Window);
        wchar_t text[ErrorTextCapacity];
        EXPECT_EQ(seenBox.Text, LoadErrorText(code, text));
    }
    seenBox = {};
    events.On = [](DISPID, DISPPARAMS& parameters) {
        *EventSink::Argument(parameters, 1).pboolVal = VARIANT_FALSE;
    };
    ReportError(grid, LORV_E_FIELDVALUE);
    EXPECT_EQ(seenBox.Count, 0);
    events.On = nullptr;
    ReportError(grid, LORV_E_BOUND);
    EXPECT_EQ(seenBox.Count, 0) << "the other codes are for the program alone";
    KillTimer(nullptr, timer);
    DestroyWindow(std::exchange(grid.Window, nullptr));
    SetErrorInfo(0, nullptr);
}

} // namespace
