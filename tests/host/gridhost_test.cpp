// gridhost from outside: what it prints, answers and leaves behind.

#include <gtest/gtest.h>

#include "support/test_data.h"

#include <windows.h>

#include <ole2.h>

#include <sstream>
#include <string>
#include <vector>

namespace
{

struct Outcome {
    DWORD exitCode = ~0u;
    std::string output; // both streams
};

std::wstring ProgramPath()
{
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring program(path);
    return program.substr(0, program.rfind(L'\\') + 1) + L"gridhost.exe";
}

std::wstring ScriptPath(const wchar_t* name)
{
    return SourcePath((std::wstring(L"tests/host/scripts/") + name).c_str());
}

std::wstring TemporaryFile(const wchar_t* name)
{
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + name;
}

std::string ReadAll(HANDLE pipe)
{
    std::string all;
    char buffer[512];
    DWORD read;
    while (ReadFile(pipe, buffer, sizeof(buffer), &read, nullptr) && read > 0)
        all.append(buffer, read);
    return all;
}

Outcome RunHost(std::wstring arguments)
{
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    HANDLE reader, writer;
    CreatePipe(&reader, &writer, &inherited, 0);
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = writer;
    // What follows "--" is for the script.
    std::wstring command = L"\"" + ProgramPath() + L"\" --timeout 300000 " + arguments;
    PROCESS_INFORMATION process = {};
    Outcome outcome;
    const BOOL started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &start, &process);
    CloseHandle(writer);
    if (started) {
        outcome.output = ReadAll(reader);
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &outcome.exitCode);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    CloseHandle(reader);
    return outcome;
}

Outcome RunScript(const wchar_t* name, const wchar_t* options = L"")
{
    return RunHost(L"\"" + ScriptPath(name) + L"\" " + options);
}

unsigned BigEndian(const unsigned char* bytes)
{
    return unsigned(bytes[0]) << 24 | unsigned(bytes[1]) << 16 | unsigned(bytes[2]) << 8 | bytes[3];
}

// Width and height from the header of a PNG file; zeros when it is none.
SIZE PictureSize(const std::wstring& path)
{
    unsigned char head[24] = {};
    DWORD read = 0;
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {0, 0};
    ReadFile(file, head, sizeof(head), &read, nullptr);
    CloseHandle(file);
    static constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    if (read != sizeof(head) || memcmp(head, signature, sizeof(signature)))
        return {0, 0};
    return {LONG(BigEndian(head + 16)), LONG(BigEndian(head + 20))};
}

bool Contains(const std::string& text, const char* part)
{
    return text.find(part) != std::string::npos;
}

class GridHost : public testing::Test
{
protected:
    void SetUp() override
    {
        CLSID classId;
        if (FAILED(CLSIDFromProgID(L"LorvGrid8.LorvGridL", &classId))) {
            GTEST_SKIP() << "the control is not registered";
        }
    }
};

} // namespace

TEST(GridHostCommandLine, AnswersWithUsageWhenItIsNotUnderstood)
{
    for (const wchar_t* arguments :
         {L"", L"--nonsense a.vbs", L"a.vbs --shot", L"a.vbs --size 10", L"a.vbs b.vbs"}) {
        const Outcome outcome = RunHost(arguments);
        EXPECT_EQ(2u, outcome.exitCode);
    }
    EXPECT_TRUE(Contains(RunHost(L"--nonsense").output, "usage: gridhost"));
}

TEST(GridHostCommandLine, NamesAScriptThatIsNotThere)
{
    const Outcome outcome = RunHost(L"no-such-file.vbs");
    EXPECT_EQ(2u, outcome.exitCode);
    EXPECT_TRUE(Contains(outcome.output, "no-such-file.vbs"));
}

TEST(GridHostCommandLine, SaysThatTheControlCannotBeCreated)
{
    EXPECT_EQ(3u, RunScript(L"picture.vbs", L"--progid No.SuchControl").exitCode);
}

TEST_F(GridHost, ReportsAScriptErrorWithFileAndLine)
{
    const Outcome outcome = RunScript(L"error_on_line_3.vbs");
    EXPECT_EQ(1u, outcome.exitCode);
    EXPECT_TRUE(Contains(outcome.output, "error_on_line_3.vbs(3, ")) << outcome.output;
    EXPECT_TRUE(Contains(outcome.output, "before"));
    EXPECT_FALSE(Contains(outcome.output, "not reached"));
}

TEST_F(GridHost, ReportsASyntaxErrorAndRunsNothing)
{
    const Outcome outcome = RunScript(L"syntax_error.vbs");
    EXPECT_EQ(1u, outcome.exitCode);
    EXPECT_TRUE(Contains(outcome.output, "syntax_error.vbs")) << outcome.output;
    EXPECT_FALSE(Contains(outcome.output, "not reached"));
}

TEST_F(GridHost, ReportsAnErrorInAnEventAndGoesOn)
{
    const Outcome outcome = RunScript(L"error_in_event.vbs");
    EXPECT_EQ(1u, outcome.exitCode);
    EXPECT_TRUE(Contains(outcome.output, "error_in_event.vbs(8, ")) << outcome.output;
    EXPECT_TRUE(Contains(outcome.output, "after the event"));
}

TEST_F(GridHost, EndsWithTheCodeGivenToQuit)
{
    const Outcome outcome = RunScript(L"quit_7.vbs");
    EXPECT_EQ(7u, outcome.exitCode);
    EXPECT_EQ("", outcome.output);
}

TEST_F(GridHost, FailsWhenACheckDoesNotHold)
{
    const Outcome outcome = RunScript(L"failed_check.vbs");
    EXPECT_EQ(1u, outcome.exitCode);
    EXPECT_TRUE(Contains(outcome.output, "check failed: one is two"));
    EXPECT_FALSE(Contains(outcome.output, "one is one"));
    EXPECT_TRUE(Contains(outcome.output, "goes on"));
}

TEST_F(GridHost, LeavesAPictureOfTheWholeWindow)
{
    const std::wstring picture = TemporaryFile(L"gridhost_test.png");
    DeleteFileW(picture.c_str());
    EXPECT_EQ(0u, RunScript(L"picture.vbs", (L"--shot \"" + picture + L"\"").c_str()).exitCode);
    RECT window = {0, 0, 320, 240};
    AdjustWindowRect(&window, WS_OVERLAPPEDWINDOW, FALSE);
    const SIZE size = PictureSize(picture);
    EXPECT_EQ(window.right - window.left, size.cx);
    EXPECT_EQ(window.bottom - window.top, size.cy);
    DeleteFileW(picture.c_str());
}

TEST_F(GridHost, LeavesAPictureInTheMiddleOfADrag)
{
    const std::wstring picture = TemporaryFile(L"gridhost_drag.png");
    DeleteFileW(picture.c_str());
    const Outcome outcome =
        RunScript(L"drag_picture.vbs", (L"--size 320x240 -- \"" + picture + L"\"").c_str());
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
    RECT window = {0, 0, 320, 240};
    AdjustWindowRect(&window, WS_OVERLAPPEDWINDOW, FALSE);
    EXPECT_EQ(window.right - window.left, PictureSize(picture).cx);
    EXPECT_EQ(window.bottom - window.top, PictureSize(picture).cy);
    DeleteFileW(picture.c_str());
}

TEST_F(GridHost, SaysThatAnIncludedFileIsNotThere)
{
    const Outcome outcome = RunScript(L"include_nothing.vbs");
    EXPECT_EQ(1u, outcome.exitCode);
    EXPECT_TRUE(Contains(outcome.output, "include_nothing.vbs(2, ")) << outcome.output;
}

TEST_F(GridHost, HandsEventArgumentsOver)
{
    const Outcome outcome = RunScript(L"cell_changed.vbs", L"--check-leaks");
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
}

TEST_F(GridHost, WritesByReferenceArgumentsBack)
{
    for (const wchar_t* script : {L"by_reference.vbs", L"by_reference.js"}) {
        const Outcome outcome = RunScript(script, L"--check-leaks");
        EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
    }
}

// Real input: what a person does to the grid, with a field beside it that Tab can go to.
TEST_F(GridHost, KeysAndTheWheelReachTheGrid)
{
    const Outcome outcome = RunScript(L"tour_keys.vbs", L"--field --check-leaks");
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
}

TEST_F(GridHost, TheMouseDoesAllItsGestures)
{
    const Outcome outcome = RunScript(L"tour_mouse.vbs", L"--field --check-leaks");
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
}

TEST_F(GridHost, KeysLeaveTheEditorOrStayInIt)
{
    const Outcome outcome = RunScript(L"tour_editing.vbs", L"--field --check-leaks");
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
}

TEST_F(GridHost, WhatIsTypedAndPickedArrivesInTheCells)
{
    const Outcome outcome = RunScript(L"tour_edit.vbs", L"--field --check-leaks");
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
}

// Handlers that do their worst in the middle of a gesture.

TEST_F(GridHost, HandlersMayRunTheMessageLoop)
{
    const Outcome outcome = RunScript(L"hostile_events.vbs", L"--field --check-leaks -- pump");
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
}

TEST_F(GridHost, HandlersMayTakeAllRowsAndColumnsAway)
{
    const Outcome outcome = RunScript(L"hostile_events.vbs", L"--field --check-leaks -- empty");
    EXPECT_EQ(0u, outcome.exitCode) << outcome.output;
}

TEST_F(GridHost, HandlersMayTakeTheGridDown)
{
    std::istringstream names(RunScript(L"hostile_events.vbs", L"-- names").output);
    std::string name;
    int count = 0;
    for (; names >> name; ++count) {
        const std::wstring options =
            L"--field --check-leaks -- close " + std::wstring(name.begin(), name.end());
        const Outcome outcome = RunScript(L"hostile_events.vbs", options.c_str());
        EXPECT_EQ(0u, outcome.exitCode) << name << ": " << outcome.output;
    }
    EXPECT_EQ(34, count);
}

TEST_F(GridHost, HandlersMayDoAnythingInsideAPaint)
{
    for (const wchar_t* action : {L"close", L"pump", L"refresh", L"change"})
        for (int ownerDraw = 0; ownerDraw <= 3; ++ownerDraw) {
            const std::wstring options = std::wstring(L"--check-leaks -- ") + action + L" " +
                                         std::to_wstring(ownerDraw) + L" " +
                                         std::to_wstring(1 + ownerDraw % 2);
            const Outcome outcome = RunScript(L"hostile_paint.vbs", options.c_str());
            EXPECT_EQ(0u, outcome.exitCode)
                << std::string(options.begin(), options.end()) << ": " << outcome.output;
        }
}
