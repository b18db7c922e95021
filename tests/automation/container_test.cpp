// The control in a container: its site, the ambient properties, activation in place, focus, messages, views.

#include "support/fonts.h"
#include "support/hosted_control.h"

namespace
{
constexpr UINT IdentifyMessage = 0x481;
constexpr UINT PrintMessage = 0x47D;
constexpr HRESULT NotAtDesignTime = static_cast<HRESULT>(0x800A018A);

bool Saw(const std::vector<UINT>& messages, UINT message)
{
    return std::find(messages.begin(), messages.end(), message) != messages.end();
}
} // namespace

TEST_F(HostedControl, TellsWhatKindOfObjectItIs)
{
    DWORD status = 0;
    EXPECT_EQ(S_OK, object_->GetMiscStatus(DVASPECT_CONTENT, &status));
    EXPECT_EQ(229777u, status);
    EXPECT_EQ(S_OK, object_->GetMiscStatus(DVASPECT_ICON, &status));
    EXPECT_EQ(0u, status);
    EXPECT_EQ(E_POINTER, object_->GetMiscStatus(DVASPECT_CONTENT, nullptr));
    CLSID id = {};
    EXPECT_EQ(S_OK, object_->GetUserClassID(&id));
    EXPECT_TRUE(IsEqualCLSID(CLSID_LorvGridL, id));
}

TEST_F(HostedControl, ItsExtentIsHeldInHimetric)
{
    SIZEL extent = {};
    EXPECT_EQ(S_OK, object_->GetExtent(DVASPECT_CONTENT, &extent));
    EXPECT_EQ(5080, extent.cx);
    EXPECT_EQ(5080, extent.cy);
    extent = {6000, 4000};
    EXPECT_EQ(S_OK, object_->SetExtent(DVASPECT_CONTENT, &extent));
    SIZEL view = {};
    EXPECT_EQ(S_OK, As<IViewObject2>(IID_IViewObject2)->GetExtent(DVASPECT_CONTENT, -1, nullptr, &view));
    EXPECT_EQ(6000, view.cx);
    EXPECT_EQ(4000, view.cy);
    EXPECT_EQ(E_FAIL, object_->SetExtent(DVASPECT_ICON, &extent));
    EXPECT_EQ(E_FAIL, object_->GetExtent(DVASPECT_ICON, &extent));
    EXPECT_EQ(E_POINTER, object_->SetExtent(DVASPECT_CONTENT, nullptr));
}

TEST_F(HostedControl, KeepsAndReleasesItsSite)
{
    Site();
    EXPECT_LT(0, site_.References);
    ComPtr<IOleClientSite> held;
    EXPECT_EQ(S_OK, object_->GetClientSite(held.Put()));
    EXPECT_EQ(static_cast<IOleClientSite*>(&site_), held.Get());
    held.Reset();
    EXPECT_EQ(S_OK, object_->SetClientSite(nullptr));
    EXPECT_EQ(0, site_.References);
}

TEST_F(HostedControl, VerbsNeedTheSiteThatIsHeld)
{
    TestSite other;
    EXPECT_EQ(E_UNEXPECTED, object_->DoVerb(OLEIVERB_SHOW, nullptr, &site_, 0, parent_, nullptr));
    Site();
    EXPECT_EQ(E_UNEXPECTED, object_->DoVerb(OLEIVERB_SHOW, nullptr, &other, 0, parent_, nullptr));
    EXPECT_EQ(E_UNEXPECTED, object_->DoVerb(-100, nullptr, nullptr, 0, parent_, nullptr));
}

TEST_F(HostedControl, VerbsBelowPropertiesAreNotThere)
{
    Site();
    for (LONG verb : {-8L, -100L, 1L})
        EXPECT_EQ(E_NOTIMPL, DoVerb(verb));
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_OPEN));
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_DISCARDUNDOSTATE));
    EXPECT_EQ(nullptr, Window());
}

TEST_F(HostedControl, ThePropertiesVerbAsksTheHostFirst)
{
    Site();
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_PROPERTIES));
    EXPECT_EQ(1, site_.Count("ShowPropertyFrame"));
    EXPECT_EQ(nullptr, Window());
}

TEST_F(HostedControl, ThePrimaryVerbDependsOnTheMode)
{
    site_.SetUserMode(false);
    Site();
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_PRIMARY));
    EXPECT_EQ(1, site_.Count("ShowPropertyFrame"));
    EXPECT_EQ(nullptr, Window());
    site_.SetUserMode(true);
    ChangeAmbient(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_PRIMARY));
    EXPECT_NE(nullptr, Window());
}

TEST_F(HostedControl, UserModeIsHeededWhenItChanges)
{
    LONG value = 0;
    site_.SetUserMode(false);
    Site();
    EXPECT_EQ(NotAtDesignTime, grid_->get_TopRow(&value));
    site_.SetUserMode(true);
    EXPECT_EQ(NotAtDesignTime, grid_->get_TopRow(&value)) << "the host has not told of the change";
    ChangeAmbient(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(S_OK, grid_->get_TopRow(&value));
    site_.Ambients.clear();
    ChangeAmbient(DISPID_AMBIENT_USERMODE);
    EXPECT_EQ(S_OK, grid_->get_TopRow(&value)) << "a host that does not answer leaves the mode";
    ChangeAmbient(DISPID_AMBIENT_BACKCOLOR);
    ChangeAmbient(DISPID_AMBIENT_UIDEAD);
}

class HostedFont : public HostedControl
{
protected:
    ComPtr<IFont> GridFont()
    {
        OwnedVariant value;
        EXPECT_EQ(S_OK, Get(DISPID_FONT, value));
        return value.Type() == VT_DISPATCH ? QueryFor<IFont>(value.Get().pdispVal, IID_IFont) : nullptr;
    }
};

TEST_F(HostedFont, AHostsFontIsCloned)
{
    auto font = SystemFont(L"Tahoma", 15);
    auto dispatch = QueryFor<IDispatch>(font.Get(), IID_IDispatch);
    VARIANT ambient = {};
    ambient.vt = VT_DISPATCH;
    ambient.pdispVal = dispatch.Get();
    site_.Ambients[DISPID_AMBIENT_FONT] = ambient;
    Site();
    auto own = GridFont();
    ASSERT_TRUE(own);
    EXPECT_NE(QueryFor<IUnknown>(font.Get(), IID_IUnknown).Get(),
              QueryFor<IUnknown>(own.Get(), IID_IUnknown).Get());
    EXPECT_EQ(LookOf(font.Get()), LookOf(own.Get()));
    site_.Ambients.clear();
}

TEST_F(HostedFont, WithoutAHostsFontItIsEightPoints)
{
    Site();
    auto own = GridFont();
    ASSERT_TRUE(own);
    EXPECT_EQ(LookOf(SystemFont(L"MS Sans Serif", 8).Get()), LookOf(own.Get()));
}

TEST_F(HostedControl, ActivatesInAWindowOfItsOwn)
{
    HWND window = Activate();
    ASSERT_NE(nullptr, window);
    EXPECT_EQ(parent_, GetParent(window));
    EXPECT_EQ(0x56000000, GetWindowLongW(window, GWL_STYLE) & 0x56000000);
    EXPECT_TRUE(GetClassLongW(window, GCL_STYLE) & CS_DBLCLKS);
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_TRUE(EqualRect(&site_.Position, &place));
    EXPECT_EQ(1, site_.Count("OnInPlaceActivate"));
    EXPECT_EQ(1, site_.Count("ShowObject"));
    EXPECT_EQ(0, site_.Count("OnUIActivate"));
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_SHOW));
    EXPECT_EQ(1, site_.Count("OnInPlaceActivate"));
    EXPECT_EQ(window, Window());
}

TEST_F(HostedControl, ARefusalOfTheSiteIsHanded)
{
    Site();
    site_.CanActivate = S_FALSE;
    EXPECT_EQ(E_FAIL, DoVerb(OLEIVERB_SHOW));
    site_.CanActivate = E_ACCESSDENIED;
    EXPECT_EQ(E_ACCESSDENIED, DoVerb(OLEIVERB_SHOW));
    EXPECT_EQ(nullptr, Window());
}

TEST_F(HostedControl, DeactivationDestroysTheWindow)
{
    HWND window = Activate(OLEIVERB_UIACTIVATE);
    EXPECT_EQ(1, site_.Count("OnUIActivate"));
    EXPECT_TRUE(site_.Frame.Active);
    EXPECT_EQ(window, GetFocus());
    auto inPlace = As<IOleInPlaceObject>(IID_IOleInPlaceObject);
    EXPECT_EQ(S_OK, inPlace->InPlaceDeactivate());
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(site_.Frame.Active);
    EXPECT_EQ(1, site_.Count("OnUIDeactivate"));
    EXPECT_EQ(1, site_.Count("OnInPlaceDeactivate"));
    EXPECT_EQ(S_OK, inPlace->InPlaceDeactivate());
    EXPECT_EQ(1, site_.Count("OnInPlaceDeactivate"));
    HWND none = window;
    EXPECT_EQ(E_FAIL, inPlace->GetWindow(&none));
    EXPECT_EQ(E_POINTER, inPlace->GetWindow(nullptr));
}

TEST_F(HostedControl, HidingKeepsItInPlace)
{
    HWND window = Activate();
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_HIDE));
    EXPECT_FALSE(GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE);
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_SHOW));
    EXPECT_TRUE(GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE);
    EXPECT_EQ(0, site_.Count("OnInPlaceDeactivate"));
}

TEST_F(HostedControl, ObjectRectsMoveAndClipTheWindow)
{
    HWND window = Activate();
    auto inPlace = As<IOleInPlaceObject>(IID_IOleInPlaceObject);
    const RECT position = {0, 0, 100, 50}, all = {0, 0, 500, 500}, half = {0, 0, 50, 50};
    EXPECT_EQ(S_OK, inPlace->SetObjectRects(&position, &half));
    RECT box = {};
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_NE(ERROR, GetWindowRgn(window, region));
    GetRgnBox(region, &box);
    EXPECT_EQ(50, box.right);
    EXPECT_EQ(S_OK, inPlace->SetObjectRects(&position, &all));
    EXPECT_EQ(ERROR, GetWindowRgn(window, region));
    DeleteObject(region);
    RECT client = {};
    GetWindowRect(window, &client);
    EXPECT_EQ(100, client.right - client.left);
    EXPECT_EQ(E_POINTER, inPlace->SetObjectRects(nullptr, &all));
    EXPECT_EQ(E_POINTER, inPlace->SetObjectRects(&position, nullptr));
}

TEST_F(HostedControl, ClosingSavesWhatIsDirty)
{
    Activate();
    auto stream = As<IPersistStreamInit>(IID_IPersistStreamInit);
    EXPECT_EQ(S_OK, stream->InitNew());
    EXPECT_EQ(S_OK, object_->Close(OLECLOSE_NOSAVE));
    EXPECT_EQ(0, site_.Count("SaveObject"));
    EXPECT_EQ(S_OK, object_->Close(OLECLOSE_SAVEIFDIRTY));
    EXPECT_EQ(1, site_.Count("SaveObject"));
    EXPECT_EQ(nullptr, Window());
}

TEST_F(HostedControl, AccelerationIsTheSites)
{
    Activate(OLEIVERB_UIACTIVATE);
    MSG message = {};
    message.message = WM_KEYDOWN;
    EXPECT_EQ(S_OK, site_.Frame.Active->TranslateAccelerator(&message));
    EXPECT_EQ(1, site_.Count("TranslateAccelerator"));
}

TEST_F(HostedControl, FreezingDoesNotHoldEventsBack)
{
    EventRecorder events;
    Connection connection(Point(DIID__ILorvGridEvents), static_cast<IDispatch*>(&events));
    auto control = As<IOleControl>(IID_IOleControl);
    EXPECT_EQ(S_OK, control->FreezeEvents(TRUE));
    Activate();
    EXPECT_TRUE(events.Has(85));
    EXPECT_EQ(S_OK, control->FreezeEvents(FALSE));
}

TEST_F(HostedControl, ResizingFiresItsEvent)
{
    HWND window = Activate();
    EventRecorder events;
    Connection connection(Point(DIID__ILorvGridEvents), static_cast<IDispatch*>(&events));
    SetWindowPos(window, nullptr, 0, 0, 120, 80, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(1, events.Count(85));
}

TEST_F(HostedControl, FocusComesAndGoesWithTheHostTold)
{
    HWND window = Activate();
    EventRecorder events;
    Connection connection(Point(DIID__ILorvGridEvents), static_cast<IDispatch*>(&events));
    SetFocus(window);
    EXPECT_EQ(1, site_.Count("OnUIActivate"));
    EXPECT_EQ(1, site_.Count("GotFocus"));
    EXPECT_EQ(std::vector<DISPID>{83}, events.Events);
    SetFocus(parent_);
    EXPECT_EQ(1, site_.Count("LostFocus"));
    EXPECT_EQ((std::vector<DISPID>{83, 84}), events.Events);
}

TEST_F(HostedControl, APressTakesTheFocus)
{
    HWND window = Activate();
    SetFocus(parent_);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(200, 150));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(200, 150));
    EXPECT_EQ(window, GetFocus());
}

TEST_F(HostedControl, PrivateMessagesAnswer)
{
    HWND window = Activate();
    EXPECT_EQ(456654, SendMessageW(window, PrintMessage, 1, 0));
    EXPECT_NE(0, SendMessageW(window, IdentifyMessage, 802, 0));
    EXPECT_EQ(0, SendMessageW(window, IdentifyMessage, 801, 0));
    EXPECT_EQ(0, SendMessageW(window, 0x480, 1, 1));
    EXPECT_EQ(1, SendMessageW(window, WM_ERASEBKGND, 0, 0));
    EXPECT_EQ(MA_ACTIVATE, SendMessageW(window, WM_MOUSEACTIVATE, 0, 0));
}

TEST_F(HostedControl, DialogCodesFollowTabAndEnter)
{
    HWND window = Activate();
    MSG enter = {window, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    MSG released = {window, WM_KEYUP, VK_RETURN, 0, 0, {}};
    MSG tab = {window, WM_KEYDOWN, VK_TAB, 0, 0, {}};
    auto code = [&](const MSG* message) {
        return SendMessageW(window, WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(message));
    };
    EXPECT_EQ(129, code(nullptr));
    EXPECT_EQ(129, code(&enter));
    ASSERT_EQ(S_OK, grid_->put_Editable(static_cast<EditableSettings>(1)));
    EXPECT_EQ(4, code(&enter));
    EXPECT_EQ(129, code(&released));
    EXPECT_EQ(129, code(&tab));
    EXPECT_EQ(129, code(nullptr));
    ASSERT_EQ(S_OK, grid_->put_TabBehavior(lorvTabCells));
    EXPECT_EQ(4, code(&tab));
    EXPECT_EQ(4, code(nullptr));
}

TEST_F(HostedControl, TheHostsFilterSeesMessagesFirstAndLast)
{
    site_.FiltersMessages = true;
    HWND window = Activate();
    EXPECT_EQ(456654, SendMessageW(window, PrintMessage, 1, 0));
    EXPECT_TRUE(Saw(site_.Before, PrintMessage));
    EXPECT_TRUE(Saw(site_.After, PrintMessage));
    site_.After.clear();
    site_.Blocked = {PrintMessage};
    EXPECT_EQ(77, SendMessageW(window, PrintMessage, 1, 0));
    EXPECT_FALSE(Saw(site_.After, PrintMessage));
}

TEST_F(HostedControl, TypingBypassesTheHostButNavigationDoesNot)
{
    site_.FiltersMessages = true;
    HWND window = Activate();
    constexpr struct {
        UINT Message;
        WPARAM Key;
        bool Seen;
    } rows[] = {
        {WM_KEYDOWN, 'A', false},  {WM_KEYDOWN, 32, false},    {WM_KEYDOWN, 33, true},
        {WM_KEYDOWN, 40, true},    {WM_KEYDOWN, 41, false},    {WM_KEYUP, 37, true},
        {WM_KEYUP, 'A', false},    {WM_CHAR, 'A', false},      {WM_CHAR, 38, true},
        {WM_SYSKEYDOWN, 39, true}, {WM_SYSKEYUP, 'A', false},  {WM_SYSCHAR, 'A', true},
        {WM_ERASEBKGND, 0, false}, {WM_NCLBUTTONUP, 0, false}, {WM_GETDLGCODE, 0, true},
    };
    for (const auto& row : rows) {
        site_.Before.clear();
        SendMessageW(window, row.Message, row.Key, 0);
        EXPECT_EQ(row.Seen, Saw(site_.Before, row.Message)) << row.Message << " " << row.Key;
    }
}

TEST_F(HostedControl, ADesignerSeesErasingAndFrameClicks)
{
    site_.FiltersMessages = true;
    site_.SetUserMode(false);
    HWND window = Activate();
    for (UINT message : {WM_ERASEBKGND, WM_NCLBUTTONUP}) {
        site_.Before.clear();
        SendMessageW(window, message, 0, 0);
        EXPECT_TRUE(Saw(site_.Before, message));
    }
}

TEST_F(HostedControl, SurvivesTheEndOfItsWindow)
{
    HWND window = Activate();
    DestroyWindow(window);
    EXPECT_EQ(nullptr, Window());
    EXPECT_EQ(S_OK, grid_->put_Rows(5));
    EXPECT_EQ(S_OK, DoVerb(OLEIVERB_SHOW));
    EXPECT_NE(nullptr, Window());
}

namespace
{
class ViewSink : public LocalObject<IAdviseSink>
{
public:
    int Views = 0;
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG index) override
    {
        Views += aspect == DVASPECT_CONTENT && index == -1;
    }
    void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
    void STDMETHODCALLTYPE OnSave() override {}
    void STDMETHODCALLTYPE OnClose() override {}
};
} // namespace

TEST_F(HostedControl, ItsViewTellsOfChangesWhileThereIsNoWindow)
{
    ViewSink sink;
    auto view = As<IViewObjectEx>(IID_IViewObjectEx);
    EXPECT_EQ(S_OK, view->SetAdvise(DVASPECT_CONTENT, 0, &sink));
    ComPtr<IAdviseSink> held;
    DWORD aspects = 0;
    EXPECT_EQ(S_OK, view->GetAdvise(&aspects, nullptr, held.Put()));
    EXPECT_EQ(static_cast<IAdviseSink*>(&sink), held.Get());
    EXPECT_EQ(static_cast<DWORD>(DVASPECT_CONTENT), aspects);
    held.Reset();
    ASSERT_EQ(S_OK, grid_->put_Rows(12));
    EXPECT_LE(1, sink.Views);
    EXPECT_EQ(S_OK, view->SetAdvise(DVASPECT_CONTENT, 0, nullptr));
    EXPECT_EQ(0, sink.References);
}

TEST_F(HostedControl, DrawsItselfForTheContainer)
{
    Site();
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 100);
    HGDIOBJ old = SelectObject(memory, bitmap);
    const COLORREF untouched = RGB(255, 0, 255);
    HBRUSH brush = CreateSolidBrush(untouched);
    const RECT all = {0, 0, 100, 100};
    FillRect(memory, &all, brush);
    const RECTL bounds = {10, 10, 90, 90};
    auto view = As<IViewObjectEx>(IID_IViewObjectEx);
    EXPECT_EQ(S_OK, view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr,
                               nullptr, 0));
    EXPECT_NE(untouched, GetPixel(memory, 50, 50));
    EXPECT_EQ(untouched, GetPixel(memory, 5, 5));
    EXPECT_EQ(DV_E_DVASPECT,
              view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, memory, &bounds, nullptr, nullptr, 0));
    EXPECT_EQ(E_INVALIDARG, view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds,
                                       nullptr, nullptr, 0));
    DeleteObject(brush);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

TEST_F(HostedControl, ItsViewIsOpaqueAndHitInsideItsBounds)
{
    auto view = As<IViewObjectEx>(IID_IViewObjectEx);
    DWORD status = 0, hit = 9;
    EXPECT_EQ(S_OK, view->GetViewStatus(&status));
    EXPECT_TRUE(status & VIEWSTATUS_OPAQUE);
    const RECT bounds = {0, 0, 10, 10};
    EXPECT_EQ(S_OK, view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {5, 5}, 0, &hit));
    EXPECT_EQ(static_cast<DWORD>(HITRESULT_HIT), hit);
    EXPECT_EQ(S_OK, view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {10, 5}, 0, &hit));
    EXPECT_EQ(static_cast<DWORD>(HITRESULT_OUTSIDE), hit);
    EXPECT_EQ(E_FAIL, view->QueryHitPoint(DVASPECT_ICON, &bounds, {5, 5}, 0, &hit));
}

TEST_F(HostedControl, GivesItsPictureAsAMetafile)
{
    Site();
    auto data = As<IDataObject>(IID_IDataObject);
    FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    STGMEDIUM medium = {};
    ASSERT_EQ(S_OK, data->GetData(&format, &medium));
    EXPECT_EQ(static_cast<DWORD>(TYMED_MFPICT), medium.tymed);
    auto* picture = static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
    EXPECT_EQ(5080, picture->xExt);
    EXPECT_NE(nullptr, picture->hMF);
    GlobalUnlock(medium.hMetaFilePict);
    ReleaseStgMedium(&medium);
    format.tymed = TYMED_HGLOBAL;
    EXPECT_EQ(DATA_E_FORMATETC, data->GetData(&format, &medium));
}

TEST_F(HostedControl, QuickActivationDoesAllAtOnce)
{
    ChangeRecorder changes;
    EventRecorder events;
    QACONTAINER container = {};
    container.cbSize = sizeof(container);
    container.pClientSite = &site_;
    container.pPropertyNotifySink = &changes;
    container.pUnkEventSink = static_cast<IDispatch*>(&events);
    container.colorFore = 0x00112233;
    container.colorBack = 0x00445566;
    QACONTROL control = {};
    control.cbSize = sizeof(control);
    auto quick = As<IQuickActivate>(IID_IQuickActivate);
    EXPECT_EQ(E_POINTER, quick->QuickActivate(&container, nullptr));
    ASSERT_EQ(S_OK, quick->QuickActivate(&container, &control));
    EXPECT_EQ(229777u, control.dwMiscStatus);
    EXPECT_TRUE(control.dwViewStatus & VIEWSTATUS_OPAQUE);
    EXPECT_EQ(1, changes.References);
    EXPECT_EQ(1, events.References);
    EXPECT_TRUE(changes.Changes.empty()) << "the colours came before the sink";
    OLE_COLOR colour = 0;
    EXPECT_EQ(S_OK, grid_->get_ForeColor(&colour));
    EXPECT_EQ(0x00112233u, colour);
    EXPECT_EQ(S_OK, grid_->get_BackColor(&colour));
    EXPECT_EQ(0x00445566u, colour);
    EXPECT_EQ(S_OK, Point(IID_IPropertyNotifySink)->Unadvise(control.dwPropNotifyCookie));
    EXPECT_EQ(S_OK, Point(DIID__ILorvGridEvents)->Unadvise(control.dwEventCookie));
    SIZEL extent = {};
    EXPECT_EQ(S_OK, quick->GetContentExtent(&extent));
    EXPECT_EQ(5080, extent.cx);
}
