#include "host_object.h"

#include "frame_window.h"
#include "input_player.h"
#include "message_pump.h"
#include "screenshot.h"
#include "text_io.h"
#include <algorithm>
#include <iterator>
#include <utility>

// The arguments of one call in the order in which they were written.
class HostObject::Arguments
{
public:
    explicit Arguments(const DISPPARAMS& params) : params_(params) {}
    size_t Count() const { return params_.cArgs; }
    const VARIANT& operator[](size_t i) const { return params_.rgvarg[params_.cArgs - 1 - i]; }
    LONG Number(size_t i, LONG fallback = 0) const
    {
        Variant value;
        if (i >= Count() || FAILED(VariantChangeType(&value, const_cast<VARIANT*>(&(*this)[i]), 0, VT_I4)))
            return fallback;
        return V_I4(&value);
    }
    std::wstring Text(size_t i) const
    {
        Variant value;
        if (i >= Count() || FAILED(VariantChangeType(&value, const_cast<VARIANT*>(&(*this)[i]), 0, VT_BSTR)))
            return L"";
        return std::wstring(V_BSTR(&value), SysStringLen(V_BSTR(&value)));
    }

private:
    const DISPPARAMS& params_;
};

struct HostObject::MemberRow {
    const wchar_t* name;
    WORD kinds;            // how it may be called
    unsigned fewest, most; // arguments
    HRESULT (HostObject::*call)(const Arguments&, Variant&);
    HRESULT (HostObject::*put)(const Arguments&, Variant&) = nullptr;
};

static constexpr WORD method = DISPATCH_METHOD;
static constexpr WORD readOnly = DISPATCH_PROPERTYGET;
static constexpr WORD readWrite = DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT;

// The DISPID of a member is its place in this table, from 1.
const HostObject::MemberRow HostObject::memberRows[] = {
    {L"Pump", method, 0, 1, &HostObject::Pump},
    {L"Screenshot", method, 1, 2, &HostObject::Screenshot},
    {L"Type", method, 1, 1, &HostObject::Type},
    {L"Click", method, 2, 4, &HostObject::Click},
    {L"DoubleClick", method, 2, 4, &HostObject::DoubleClick},
    {L"Drag", method, 4, 6, &HostObject::Drag},
    {L"RestDrag", method, 1, 3, &HostObject::RestDrag},
    {L"MoveMouse", method, 2, 2, &HostObject::MoveMouse},
    {L"Wheel", method, 1, 3, &HostObject::Wheel},
    {L"Title", readWrite, 0, 0, &HostObject::Title, &HostObject::PutTitle},
    {L"Echo", method, 0, 64, &HostObject::Echo},
    {L"Check", method, 1, 2, &HostObject::Check},
    {L"Quit", method, 0, 1, &HostObject::Quit},
    {L"DataFile", method, 1, 1, &HostObject::DataFile},
    {L"Include", method, 1, 1, &HostObject::Include},
    {L"Argument", method, 1, 1, &HostObject::Argument},
    {L"Resize", method, 2, 2, &HostObject::Resize},
    {L"SetAmbient", method, 2, 2, &HostObject::SetAmbient},
    {L"RemoveAmbient", method, 1, 1, &HostObject::RemoveAmbient},
    {L"BlockMessage", method, 1, 2, &HostObject::BlockMessage},
    {L"CloseGrid", method, 0, 0, &HostObject::CloseGrid},
    {L"Unadvise", method, 0, 0, &HostObject::Unadvise},
    {L"Focus", readWrite, 0, 0, &HostObject::Focus, &HostObject::PutFocus},
    {L"FrameWindow", readOnly, 0, 0, &HostObject::FrameWindow},
    {L"GridWindow", readOnly, 0, 0, &HostObject::GridWindow},
    {L"Width", readOnly, 0, 0, &HostObject::Width},
    {L"Height", readOnly, 0, 0, &HostObject::Height},
};

STDMETHODIMP HostObject::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids)
{
    if (!names || !ids)
        return E_POINTER;
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (size_t i = 0; i < std::size(memberRows); ++i)
        if (!_wcsicmp(memberRows[i].name, names[0]))
            ids[0] = DISPID(i + 1);
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

static void Describe(EXCEPINFO* exception, HRESULT code, const wchar_t* member)
{
    if (!exception)
        return;
    *exception = {};
    exception->scode = code;
    exception->bstrSource = SysAllocString(L"Host");
    exception->bstrDescription = SysAllocString((std::wstring(L"Host.") + member + L" failed").c_str());
}

STDMETHODIMP HostObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                EXCEPINFO* exception, UINT*)
{
    if (id < 1 || size_t(id) > std::size(memberRows))
        return DISP_E_MEMBERNOTFOUND;
    const MemberRow& row = memberRows[id - 1];
    // Engines ask for a method's result as if it were a property.
    const WORD allowed = row.kinds == method ? WORD(DISPATCH_METHOD | DISPATCH_PROPERTYGET) : row.kinds;
    if (!(flags & allowed))
        return DISP_E_MEMBERNOTFOUND;
    const bool put = flags & DISPATCH_PROPERTYPUT;
    const unsigned count = params->cArgs - (put ? 1 : 0);
    if (count < row.fewest || count > row.most)
        return DISP_E_BADPARAMCOUNT;

    if (state_.quitting) { // a script that passes over errors gets nothing done after Quit
        Describe(exception, E_ABORT, row.name);
        return DISP_E_EXCEPTION;
    }
    AddRef(); // the call may end the run
    Variant answer;
    HRESULT hr = (this->*(put ? row.put : row.call))(Arguments(*params), answer);
    if (state_.quitting && SUCCEEDED(hr))
        hr = E_ABORT; // stops the script at this call
    if (SUCCEEDED(hr) && result)
        CopyVariant(result, answer);
    if (FAILED(hr)) {
        Describe(exception, hr, row.name);
        hr = DISP_E_EXCEPTION;
    }
    Release();
    return hr;
}

HRESULT HostObject::Pump(const Arguments& arguments, Variant&)
{
    PumpFor(container_, state_, DWORD(std::max(arguments.Number(0), 0L)));
    return S_OK;
}

std::wstring HostObject::PicturePath(const std::wstring& file) const
{
    const bool absolute = file.starts_with(L"\\") || file.starts_with(L"/") || file.find(L':') != file.npos;
    return FullPath(options_.outFolder.empty() || absolute ? file : options_.outFolder + L"\\" + file);
}

HRESULT HostObject::Screenshot(const Arguments& arguments, Variant&)
{
    PumpPending(container_, state_);
    const bool client = !_wcsicmp(arguments.Text(1).c_str(), L"client");
    return SaveScreenshot(container_.Frame(), client ? ShotArea::Client : ShotArea::Window,
                          PicturePath(arguments.Text(0)));
}

HRESULT HostObject::Type(const Arguments& arguments, Variant&)
{
    std::vector<KeyStroke> keys;
    if (!ParseKeyText(arguments.Text(0), keys))
        return E_INVALIDARG;
    InputPlayer player;
    for (const KeyStroke& key : keys)
        player.Key(key);
    return player.Play(container_, state_);
}

// Points are in pixels from the top left corner of the control's window.
POINT HostObject::ToScreen(const Arguments& arguments, size_t first) const
{
    POINT point = {arguments.Number(first), arguments.Number(first + 1)};
    HWND window = container_.ControlWindow();
    ClientToScreen(window ? window : container_.Frame(), &point);
    return point;
}

HRESULT HostObject::ClickTimes(const Arguments& arguments, int times)
{
    const int button = int(arguments.Number(2, 1));
    const unsigned shift = unsigned(arguments.Number(3));
    InputPlayer player;
    player.MoveTo(ToScreen(arguments, 0));
    player.Shift(shift, true);
    for (int i = 0; i < times; ++i) {
        if (i == 0)
            player.FirstPress(button);
        else
            player.Button(button, true);
        player.Button(button, false);
    }
    player.Shift(shift, false);
    return player.Play(container_, state_);
}

HRESULT HostObject::Click(const Arguments& arguments, Variant&)
{
    return ClickTimes(arguments, 1);
}

HRESULT HostObject::DoubleClick(const Arguments& arguments, Variant&)
{
    return ClickTimes(arguments, 2);
}

HRESULT HostObject::Drag(const Arguments& arguments, Variant&)
{
    constexpr int moves = 12;
    const int button = int(arguments.Number(4, 1));
    const unsigned shift = unsigned(arguments.Number(5));
    const POINT from = ToScreen(arguments, 0), to = ToScreen(arguments, 2);
    InputPlayer player;
    player.MoveTo(from);
    player.Shift(shift, true);
    player.FirstPress(button);
    for (int i = 1; i <= moves; ++i)
        player.MoveTo({from.x + MulDiv(to.x - from.x, i, moves), from.y + MulDiv(to.y - from.y, i, moves)});
    const DragRest rest = std::exchange(dragRest_, {});
    player.Rest(rest.milliseconds, rest.picture);
    for (const KeyStroke& key : rest.keys)
        player.Key(key);
    player.Button(button, false);
    player.Shift(shift, false);
    return player.Play(container_, state_);
}

HRESULT HostObject::RestDrag(const Arguments& arguments, Variant&)
{
    DragRest rest;
    rest.milliseconds = DWORD(std::max(arguments.Number(0), 0L));
    if (const std::wstring file = arguments.Text(1); !file.empty())
        rest.picture = PicturePath(file);
    if (!ParseKeyText(arguments.Text(2), rest.keys))
        return E_INVALIDARG;
    dragRest_ = rest;
    return S_OK;
}

HRESULT HostObject::MoveMouse(const Arguments& arguments, Variant&)
{
    InputPlayer player;
    player.MoveTo(ToScreen(arguments, 0));
    return player.Play(container_, state_);
}

HRESULT HostObject::Wheel(const Arguments& arguments, Variant&)
{
    const unsigned shift = unsigned(arguments.Number(1));
    InputPlayer player;
    player.Shift(shift, true);
    player.Wheel(int(arguments.Number(0)) * WHEEL_DELTA, arguments.Number(2) != 0);
    player.Shift(shift, false);
    return player.Play(container_, state_);
}

HRESULT HostObject::Title(const Arguments&, Variant& result)
{
    wchar_t title[512] = L"";
    GetWindowTextW(container_.Frame(), title, 512);
    result = Variant::Text(title);
    return S_OK;
}

HRESULT HostObject::PutTitle(const Arguments& arguments, Variant&)
{
    SetWindowTextW(container_.Frame(), arguments.Text(0).c_str());
    return S_OK;
}

HRESULT HostObject::Echo(const Arguments& arguments, Variant&)
{
    std::wstring line;
    for (size_t i = 0; i < arguments.Count(); ++i)
        line += (i ? L" " : L"") + arguments.Text(i);
    PrintLine(line);
    return S_OK;
}

HRESULT HostObject::Check(const Arguments& arguments, Variant& result)
{
    Variant holds;
    const HRESULT hr = VariantChangeType(&holds, const_cast<VARIANT*>(&arguments[0]), 0, VT_BOOL);
    const bool passed = SUCCEEDED(hr) && V_BOOL(&holds);
    if (!passed) {
        state_.Fail(exitScriptFailed);
        PrintError(L"check failed: " + arguments.Text(1));
    }
    result = Variant::Bool(passed);
    return S_OK;
}

HRESULT HostObject::Quit(const Arguments& arguments, Variant&)
{
    state_.Quit(int(arguments.Number(0)));
    return S_OK;
}

HRESULT HostObject::DataFile(const Arguments& arguments, Variant& result)
{
    const std::wstring folder = FolderOf(FullPath(options_.script));
    result = Variant::Text((folder + L"\\data\\" + arguments.Text(0)).c_str());
    return S_OK;
}

HRESULT HostObject::Include(const Arguments& arguments, Variant&)
{
    const std::wstring file = FolderOf(FullPath(options_.script)) + L"\\" + arguments.Text(0);
    std::wstring text;
    if (!engine_ || !ReadTextFile(file, text))
        return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    return engine_->Run(file, text);
}

HRESULT HostObject::Argument(const Arguments& arguments, Variant& result)
{
    const size_t i = size_t(arguments.Number(0));
    result = Variant::Text(i < options_.arguments.size() ? options_.arguments[i].c_str() : L"");
    return S_OK;
}

HRESULT HostObject::Resize(const Arguments& arguments, Variant&)
{
    ResizeClientArea(container_.Frame(), int(arguments.Number(0)), int(arguments.Number(1)));
    PumpPending(container_, state_);
    return S_OK;
}

static DISPID AmbientId(const std::wstring& name, LONG number)
{
    const DISPID id = AmbientProperties::IdOf(name);
    return id == DISPID_UNKNOWN ? number : id;
}

HRESULT HostObject::SetAmbient(const Arguments& arguments, Variant&)
{
    const DISPID id = AmbientId(arguments.Text(0), arguments.Number(0));
    return id ? container_.SetAmbient(id, &arguments[1]) : E_INVALIDARG;
}

HRESULT HostObject::RemoveAmbient(const Arguments& arguments, Variant&)
{
    const DISPID id = AmbientId(arguments.Text(0), arguments.Number(0));
    return id ? container_.SetAmbient(id, nullptr) : E_INVALIDARG;
}

HRESULT HostObject::BlockMessage(const Arguments& arguments, Variant&)
{
    container_.BlockMessage(UINT(arguments.Number(0)), arguments.Number(1, 1) != 0);
    return S_OK;
}

HRESULT HostObject::CloseGrid(const Arguments&, Variant&)
{
    container_.Close();
    return S_OK;
}

HRESULT HostObject::Unadvise(const Arguments&, Variant&)
{
    if (sink_)
        sink_->Disconnect();
    return S_OK;
}

HRESULT HostObject::Focus(const Arguments&, Variant& result)
{
    HWND focus = ::GetFocus();
    HWND grid = container_.ControlWindow();
    const bool inGrid = grid && (focus == grid || IsChild(grid, focus));
    result = Variant::Text(inGrid ? L"grid" : focus && focus == container_.Field() ? L"field" : L"");
    return S_OK;
}

HRESULT HostObject::PutFocus(const Arguments& arguments, Variant&)
{
    const bool field = !_wcsicmp(arguments.Text(0).c_str(), L"field");
    HWND window = field ? container_.Field() : container_.ControlWindow();
    if (!window)
        return E_INVALIDARG;
    SetFocus(window);
    PumpPending(container_, state_);
    return S_OK;
}

// Window handles have 32 significant bits on every Windows.
static Variant HandleNumber(HWND window)
{
    return Variant::Long(LONG(reinterpret_cast<LONG_PTR>(window)));
}

HRESULT HostObject::FrameWindow(const Arguments&, Variant& result)
{
    result = HandleNumber(container_.Frame());
    return S_OK;
}

HRESULT HostObject::GridWindow(const Arguments&, Variant& result)
{
    result = HandleNumber(container_.ControlWindow());
    return S_OK;
}

HRESULT HostObject::Width(const Arguments&, Variant& result)
{
    result = Variant::Long(container_.ControlRect().right);
    return S_OK;
}

HRESULT HostObject::Height(const Arguments&, Variant& result)
{
    result = Variant::Long(container_.ControlRect().bottom);
    return S_OK;
}
