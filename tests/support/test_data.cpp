#include "support/test_data.h"

// The build writes the root of the source tree into a file of its own.
extern const wchar_t g_testDataRoot[];

std::wstring SourcePath(const wchar_t* name)
{
    return std::wstring(g_testDataRoot) + L"/" + name;
}

std::wstring TestDataPath(const wchar_t* name)
{
    return SourcePath((std::wstring(L"tests/data/") + name).c_str());
}
