// How the run stands: what the process will answer, and whether it is on its way out.
#pragma once

enum ExitCode {
    exitOk = 0,
    exitScriptFailed = 1, // a script error or a failed Host.Check
    exitUsage = 2,        // command line, or a file that cannot be read or written
    exitNoControl = 3,    // the control could not be created or activated
    exitLeak = 4,         // --check-leaks found references after shutdown
    exitTimeout = 5,      // --timeout ran out
};

struct RunState {
    int exitCode = exitOk;
    bool quitting = false; // no script procedure is called any more

    // The first failure names the exit code.
    void Fail(int code)
    {
        if (exitCode == exitOk)
            exitCode = code;
    }
    void Quit(int code)
    {
        Fail(code);
        quitting = true;
    }
};
