// The command line of the host.
#pragma once

#include <string>
#include <vector>

struct Options {
    std::wstring script;
    std::wstring shot; // picture to leave behind, empty for none
    std::wstring dll;  // module to load the control from, empty for the registered one
    std::wstring progId = L"LorvGrid8.LorvGridL";
    std::wstring outFolder; // where Host.Screenshot puts relative names, empty for the current folder
    std::vector<std::wstring> arguments; // what follows "--", for the script
    bool keep = false;
    bool design = false; // ambient UserMode false
    bool checkLeaks = false;
    bool classic = false;          // windows without themes
    bool field = false;            // a field of text beneath the control
    unsigned runFor = 0;           // milliseconds of message loop after the script
    unsigned timeout = 0;          // milliseconds after which the process is ended, 0 for never
    int width = 900, height = 560; // client area, pixels
};

// False with `problem` set when the command line cannot be understood.
bool ParseOptions(int count, wchar_t** words, Options& options, std::wstring& problem);

extern const wchar_t usageText[];
