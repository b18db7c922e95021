// A script host: puts the control on a window and runs a VBScript or JScript file against it.

#include "container.h"
#include "control_factory.h"
#include "event_sink.h"
#include "frame_window.h"
#include "host_object.h"
#include "message_pump.h"
#include "options.h"
#include "screenshot.h"
#include "script_engine.h"
#include "text_io.h"
#include "themes.h"
#include <ole2.h>
#include <shellapi.h>

namespace
{
constexpr DWORD settleMilliseconds = 50; // for painting and posted messages before the run ends

// What lives while the script runs, in the order in which it is built.
struct Run {
    explicit Run(const Options& options) : options(options), container(options.design), engine(state) {}

    const Options& options;
    RunState state;
    Container container;
    ScriptEngine engine;
    ComPtr<HostObject> host;
    ComPtr<EventSink> sink;
};
} // namespace

static void Explain(const wchar_t* what, HRESULT code)
{
    PrintError(std::wstring(L"gridhost: ") + what + L": " + DescribeCode(code));
}

static HWND OpenFrame(Run& run)
{
    const Options& options = run.options;
    HWND frame = CreateFrameWindow((L"gridhost - " + options.script).c_str(), options.width, options.height,
                                   run.container, run.state);
    if (!frame)
        Explain(L"no window", HRESULT_FROM_WIN32(GetLastError()));
    return frame;
}

// Creates the control and puts it on the frame; the caller holds the one reference in `control`.
static bool OpenControl(Run& run, HWND frame, ComPtr<IUnknown>& control)
{
    HRESULT hr = CreateControl(run.options, control);
    if (FAILED(hr)) {
        Explain(L"the control could not be created", hr);
        return false;
    }
    hr = run.container.Open(frame, control.Get());
    if (FAILED(hr)) {
        Explain(L"the control could not be activated", hr);
        return false;
    }
    if (run.options.field)
        run.container.AddField();
    ShowWindow(frame, SW_SHOW);
    SetForegroundWindow(frame);
    run.container.UIActivate();
    return true;
}

static void RunScript(Run& run, HWND frame, IUnknown* control, const std::wstring& text)
{
    run.host = ComPtr<HostObject>::Adopt(new HostObject(run.options, run.container, run.state));
    run.sink = ComPtr<EventSink>::Adopt(new EventSink(run.engine, run.state));
    run.host->SetEventSink(run.sink.Get());
    run.host->SetEngine(&run.engine);
    const auto grid = ComPtr<IUnknown>(control).As<IDispatch>();
    HRESULT hr = run.engine.Open(run.options.script, frame, grid.Get(), run.host.Get());
    if (FAILED(hr)) {
        Explain(L"the script engine could not be started", hr);
        run.state.Fail(exitScriptFailed);
        return;
    }
    hr = run.sink->Connect(control);
    if (FAILED(hr))
        Explain(L"no events", hr);
    if (ITypeLib* library = run.sink->Library())
        run.engine.AddConstants(library);
    run.engine.Run(run.options.script, text);
}

static void TakeShot(Run& run, HWND frame)
{
    if (run.options.shot.empty() || !IsWindow(frame))
        return;
    const HRESULT hr = SaveScreenshot(frame, ShotArea::Window, FullPath(run.options.shot));
    if (SUCCEEDED(hr))
        return;
    Explain(L"the picture could not be written", hr);
    run.state.Fail(exitUsage);
}

// Everything that may hold the control lets go of it, then the control goes, then the window.
static void ShutDown(Run& run, HWND frame, ComPtr<IUnknown>& control)
{
    run.state.quitting = true;
    if (run.sink)
        run.sink->Disconnect();
    run.engine.Close();
    if (run.host) {
        run.host->SetEventSink(nullptr);
        run.host->SetEngine(nullptr);
    }
    run.container.Close();
    if (IsWindow(frame))
        DestroyWindow(frame);
    const ULONG left = control ? control.Detach()->Release() : 0;
    if (left > 0 && run.options.checkLeaks) {
        PrintError(L"gridhost: the control still has " + std::to_wstring(left) + L" references");
        run.state.Fail(exitLeak);
    }
}

static int RunHost(const Options& options, const std::wstring& text)
{
    Run run(options);
    HWND frame = OpenFrame(run);
    ComPtr<IUnknown> control;
    if (!frame || !OpenControl(run, frame, control)) {
        ShutDown(run, frame, control);
        return exitNoControl;
    }
    PumpPending(run.container, run.state);
    RunScript(run, frame, control.Get(), text);
    PumpFor(run.container, run.state, options.runFor ? options.runFor : settleMilliseconds);
    TakeShot(run, frame);
    if (options.keep)
        PumpUntilQuit(run.container, run.state);
    ShutDown(run, frame, control);
    return run.state.exitCode;
}

static DWORD WINAPI EndAfterTimeout(void* milliseconds)
{
    Sleep(DWORD(reinterpret_cast<UINT_PTR>(milliseconds)));
    PrintError(L"gridhost: the time is up");
    ExitProcess(exitTimeout);
}

static void StartTimeout(unsigned milliseconds)
{
    auto* parameter = reinterpret_cast<void*>(UINT_PTR(milliseconds));
    if (HANDLE thread = CreateThread(nullptr, 0, EndAfterTimeout, parameter, 0, nullptr))
        CloseHandle(thread);
}

static bool ReadCommandLine(Options& options)
{
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::wstring problem = L"no command line";
    const bool understood = words && (problem.clear(), ParseOptions(count, words, options, problem));
    LocalFree(words);
    if (!understood)
        PrintError(L"gridhost: " + problem + L"\n" + usageText);
    return understood;
}

int main()
{
    Options options;
    if (!ReadCommandLine(options))
        return exitUsage;
    std::wstring text;
    if (!ReadTextFile(options.script, text)) {
        PrintError(L"gridhost: " + options.script + L" cannot be read");
        return exitUsage;
    }
    if (!options.classic)
        UseThemes();
    if (options.timeout)
        StartTimeout(options.timeout);
    const HRESULT hr = OleInitialize(nullptr);
    if (FAILED(hr)) {
        Explain(L"COM could not be started", hr);
        return exitNoControl;
    }
    const int exitCode = RunHost(options, text);
    OleUninitialize();
    return exitCode;
}
