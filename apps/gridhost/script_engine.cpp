#include "script_engine.h"

#include "text_io.h"

// What the engine sees of its host.
class ScriptSite : public ComObject<IActiveScriptSite, IActiveScriptSiteWindow>
{
public:
    explicit ScriptSite(ScriptEngine* owner) : owner_(owner) {}
    void Disconnect() { owner_ = nullptr; }

    STDMETHODIMP GetLCID(LCID* lcid) override
    {
        *lcid = GetUserDefaultLCID();
        return S_OK;
    }
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** type) override;
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override
    {
        if (owner_)
            owner_->OnScriptError(error);
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

    STDMETHODIMP GetWindow(HWND* window) override
    {
        *window = owner_ ? owner_->Frame() : nullptr;
        return S_OK;
    }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

private:
    ScriptEngine* owner_;
};

STDMETHODIMP ScriptSite::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** type)
{
    IDispatch* object = owner_ ? owner_->NamedItem(name) : nullptr;
    if (type)
        *type = nullptr;
    if (item)
        *item = nullptr;
    if (!object)
        return TYPE_E_ELEMENTNOTFOUND;
    if (mask & SCRIPTINFO_IUNKNOWN) {
        object->AddRef();
        *item = object;
    }
    if (mask & SCRIPTINFO_ITYPEINFO)
        return object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type);
    return S_OK;
}

ScriptEngine::ScriptEngine(RunState& state) : state_(state) {}

ScriptEngine::~ScriptEngine()
{
    Close();
}

IDispatch* ScriptEngine::NamedItem(const wchar_t* name) const
{
    if (!_wcsicmp(name, L"Grid"))
        return grid_.Get();
    return !_wcsicmp(name, L"Host") ? host_.Get() : nullptr;
}

HRESULT ScriptEngine::Open(const std::wstring& file, HWND frame, IDispatch* grid, IDispatch* host)
{
    frame_ = frame;
    grid_ = ComPtr<IDispatch>(grid);
    host_ = ComPtr<IDispatch>(host);
    isJScript_ = EndsWithNoCase(file, L".js");
    CLSID classId;
    HRESULT hr = CLSIDFromProgID(isJScript_ ? L"JScript" : L"VBScript", &classId);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                              engine_.PutVoid());
    if (FAILED(hr))
        return hr;
    parser_ = engine_.As<IActiveScriptParse>();
    site_ = ComPtr<ScriptSite>::Adopt(new ScriptSite(this));
    if (!parser_ || FAILED(hr = engine_->SetScriptSite(site_.Get())) || FAILED(hr = parser_->InitNew()))
        return FAILED(hr) ? hr : E_NOINTERFACE;
    for (const wchar_t* name : {L"Grid", L"Host"})
        if (FAILED(hr = engine_->AddNamedItem(name, SCRIPTITEM_ISVISIBLE)))
            return hr;
    return engine_->SetScriptState(SCRIPTSTATE_STARTED);
}

static std::wstring EnumerationConstants(ITypeInfo* type, bool jScript)
{
    std::wstring text;
    TYPEATTR* attributes;
    if (FAILED(type->GetTypeAttr(&attributes)))
        return text;
    for (UINT i = 0; i < attributes->cVars; ++i) {
        VARDESC* variable;
        if (FAILED(type->GetVarDesc(i, &variable)))
            continue;
        Bstr name;
        UINT count;
        if (variable->varkind == VAR_CONST &&
            SUCCEEDED(type->GetNames(variable->memid, name.Put(), 1, &count)))
            text += (jScript ? L"var " : L"Const ") + std::wstring(name.Text()) + L" = " +
                    std::to_wstring(V_I4(variable->lpvarValue)) + (jScript ? L";\n" : L"\n");
        type->ReleaseVarDesc(variable);
    }
    type->ReleaseTypeAttr(attributes);
    return text;
}

void ScriptEngine::AddConstants(ITypeLib* library)
{
    std::wstring text;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        ComPtr<ITypeInfo> type;
        if (SUCCEEDED(library->GetTypeInfoType(i, &kind)) && kind == TKIND_ENUM &&
            SUCCEEDED(library->GetTypeInfo(i, type.Put())))
            text += EnumerationConstants(type.Get(), isJScript_);
    }
    Parse(text, 0);
}

HRESULT ScriptEngine::Parse(const std::wstring& text, DWORD_PTR context)
{
    EXCEPINFO exception = {};
    return parser_->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, context, 0, SCRIPTTEXT_ISVISIBLE,
                                    nullptr, &exception);
}

// Texts are known to the engine by the number of their file, from 1.
HRESULT ScriptEngine::Run(const std::wstring& file, const std::wstring& text)
{
    reported_ = false;
    files_.push_back(file);
    const HRESULT hr = Parse(text, files_.size());
    if (FAILED(hr) && !reported_ && !state_.quitting)
        ReportError(file, DescribeCode(hr));
    return hr;
}

DISPID ScriptEngine::FindProcedure(const std::wstring& name)
{
    ComPtr<IDispatch> procedures;
    if (!engine_ || FAILED(engine_->GetScriptDispatch(nullptr, procedures.Put())))
        return DISPID_UNKNOWN;
    DISPID id = DISPID_UNKNOWN;
    auto* text = const_cast<LPOLESTR>(name.c_str());
    if (FAILED(procedures->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id)))
        return DISPID_UNKNOWN;
    return id;
}

HRESULT ScriptEngine::Call(DISPID procedure, DISPPARAMS& arguments, VARIANT& result)
{
    ComPtr<IDispatch> procedures;
    HRESULT hr = engine_ ? engine_->GetScriptDispatch(nullptr, procedures.Put()) : E_UNEXPECTED;
    if (FAILED(hr))
        return hr;
    EXCEPINFO exception = {};
    reported_ = false;
    hr = procedures->Invoke(procedure, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, &result,
                            &exception, nullptr);
    if (FAILED(hr) && !reported_ && !state_.quitting) {
        if (hr == DISP_E_EXCEPTION && exception.scode)
            hr = exception.scode;
        const bool described = exception.bstrDescription && *exception.bstrDescription;
        ReportError(files_.front(), described ? exception.bstrDescription : DescribeCode(hr));
    }
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return hr;
}

void ScriptEngine::OnScriptError(IActiveScriptError* error)
{
    if (state_.quitting)
        return; // Host.Quit ends the script by failing
    EXCEPINFO exception = {};
    DWORD_PTR context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(&exception);
    DWORD shortContext = 0;
    if (SUCCEEDED(error->GetSourcePosition(&shortContext, &line, &column)))
        context = shortContext;
    const bool ours = context >= 1 && context <= files_.size();
    std::wstring place = ours ? files_[context - 1] : L"constants of the type library";
    place += L"(" + std::to_wstring(line + 1) + L", " + std::to_wstring(column + 1) + L")";
    std::wstring text =
        exception.bstrDescription && *exception.bstrDescription ? exception.bstrDescription : L"";
    const std::wstring code = DescribeCode(exception.scode ? exception.scode : LONG(exception.wCode));
    ReportError(place, text.empty() ? code : text + L" [" + code + L"]");
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

void ScriptEngine::ReportError(const std::wstring& place, const std::wstring& text)
{
    reported_ = true;
    state_.Fail(exitScriptFailed);
    PrintError(place + L": " + text);
}

void ScriptEngine::Close()
{
    if (engine_)
        engine_->Close();
    if (site_)
        site_->Disconnect();
    parser_.Reset();
    engine_.Reset();
    site_.Reset();
    grid_.Reset();
    host_.Reset();
}
