// Loads a file into the registered control and saves it as another: convert KIND IN OPTIONS KIND OUT OPTIONS
// ... Options are letters, or "-" for none; when loading, F stands for True. Any number of conversions.
#include "lorv8l.h"

#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{
BSTR TextOf(const char* argument)
{
    std::wstring text;
    for (; *argument; ++argument)
        text += static_cast<wchar_t>(static_cast<unsigned char>(*argument));
    return SysAllocString(text.c_str());
}

VARIANT Missing()
{
    VARIANT value = {};
    value.vt = VT_ERROR;
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
}

HRESULT Load(ILorvGrid* grid, const char* kind, const char* name, const char* options)
{
    VARIANT value = Missing();
    if (*options == 'F') {
        value.vt = VT_BOOL;
        value.boolVal = VARIANT_TRUE;
    }
    BSTR file = TextOf(name);
    HRESULT result = grid->LoadGrid(file, static_cast<SaveLoadSettings>(std::atoi(kind)), value);
    SysFreeString(file);
    return result;
}

HRESULT Save(ILorvGrid* grid, const char* kind, const char* name, const char* options)
{
    VARIANT value = Missing();
    if (*options != '-') {
        value.vt = VT_BSTR;
        value.bstrVal = TextOf(options);
    }
    BSTR file = TextOf(name);
    HRESULT result = grid->SaveGrid(file, static_cast<SaveLoadSettings>(std::atoi(kind)), value);
    SysFreeString(file);
    VariantClear(&value);
    return result;
}

HRESULT Convert(char** arguments)
{
    ILorvGrid* grid = nullptr;
    HRESULT result = CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER, IID_ILorvGrid,
                                      reinterpret_cast<void**>(&grid));
    if (FAILED(result))
        return result;
    grid->put_AutoResize(VARIANT_FALSE);
    grid->put_Rows(0);
    grid->put_Cols(0);
    result = Load(grid, arguments[0], arguments[1], arguments[2]);
    if (SUCCEEDED(result))
        result = Save(grid, arguments[3], arguments[4], arguments[5]);
    grid->Release();
    return result;
}
} // namespace

int main(int argc, char** argv)
{
    int failures = 0;
    OleInitialize(nullptr);
    for (int at = 1; at + 6 <= argc; at += 6)
        if (HRESULT result = Convert(argv + at); FAILED(result)) {
            std::printf("%s to %s: %08lX\n", argv[at + 1], argv[at + 4], static_cast<unsigned long>(result));
            ++failures;
        }
    OleUninitialize();
    return failures != 0;
}
