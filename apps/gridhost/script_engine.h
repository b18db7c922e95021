// Runs one script file in the VBScript or JScript engine of the system.
#pragma once

#include "com_owners.h"
#include "run_state.h"
#include <activscp.h>
#include <string>
#include <vector>

class ScriptSite;

class ScriptEngine
{
public:
    explicit ScriptEngine(RunState& state);
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ~ScriptEngine();

    // Starts the engine that the file's extension asks for, with the two named items.
    HRESULT Open(const std::wstring& file, HWND frame, IDispatch* grid, IDispatch* host);
    // Makes the enumerations of a type library known to the script as constants.
    void AddConstants(ITypeLib* library);
    // Runs the text of a file, the script's own or one that it includes.
    HRESULT Run(const std::wstring& file, const std::wstring& text);
    void Close();

    // DISPID of a procedure of the script; DISPID_UNKNOWN when it has none of that name.
    DISPID FindProcedure(const std::wstring& name);
    HRESULT Call(DISPID procedure, DISPPARAMS& arguments, VARIANT& result);

    // JScript passes no argument by reference: a handler's result takes the place of the last one.
    bool PassesByReference() const { return !isJScript_; }
    void ReportError(const std::wstring& place, const std::wstring& text);

    // For the script site.
    void OnScriptError(IActiveScriptError* error);
    IDispatch* NamedItem(const wchar_t* name) const;
    HWND Frame() const { return frame_; }

private:
    HRESULT Parse(const std::wstring& text, DWORD_PTR context);

    RunState& state_;
    std::vector<std::wstring> files_; // that ran, the script itself first
    HWND frame_ = nullptr;
    bool isJScript_ = false;
    bool reported_ = false; // the failure that is under way has been shown
    ComPtr<IDispatch> grid_, host_;
    ComPtr<IActiveScript> engine_;
    ComPtr<IActiveScriptParse> parser_;
    ComPtr<ScriptSite> site_;
};
