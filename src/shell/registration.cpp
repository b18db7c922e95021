#include "shell/registration.h"

#include "platform/com_ptr.h"
#include "shell/module.h"

#include "lorv8l.h"

#include <oleauto.h>
#include <shlwapi.h>

#include <cwchar>
#include <iterator>

namespace
{
constexpr wchar_t TooOldTitle[] = L"Lorv8";
constexpr wchar_t TooOldText[] = L"This library cannot be registered on this machine because it takes "
                                 L"advantage of Unicode features only available on Windows NT.";
constexpr HRESULT PlatformTooOld = static_cast<HRESULT>(0x80040201);

// A value below HKEY_CLASSES_ROOT. %CLSID%, %LIBID% and %MODULE% stand for the identifiers and the path of
// the module. A row without data is a key alone.
struct RegistryRow {
    const wchar_t* Key;
    const wchar_t* ValueName; // null: the default value
    const wchar_t* Data;
};

constexpr RegistryRow registryScript[] = {
    {L"LorvGrid8.LorvGridL.1", nullptr, L"LorvGrid 8.0 (Light)"},
    {L"LorvGrid8.LorvGridL.1\\CLSID", nullptr, L"%CLSID%"},
    {L"LorvGrid8.LorvGridL", nullptr, L"LorvGrid 8.0 (Light)"},
    {L"LorvGrid8.LorvGridL\\CLSID", nullptr, L"%CLSID%"},
    {L"LorvGrid8.LorvGridL\\CurVer", nullptr, L"LorvGrid8.LorvGridL.1"},
    {L"CLSID\\%CLSID%", nullptr, L"LorvGrid 8.0 (Light)"},
    {L"CLSID\\%CLSID%\\ProgID", nullptr, L"LorvGrid8.LorvGridL.1"},
    {L"CLSID\\%CLSID%\\VersionIndependentProgID", nullptr, L"LorvGrid8.LorvGridL"},
    {L"CLSID\\%CLSID%\\Programmable", nullptr, nullptr},
    {L"CLSID\\%CLSID%\\InprocServer32", nullptr, L"%MODULE%"},
    {L"CLSID\\%CLSID%\\InprocServer32", L"ThreadingModel", L"Apartment"},
    {L"CLSID\\%CLSID%\\Control", nullptr, nullptr},
    {L"CLSID\\%CLSID%\\Insertable", nullptr, nullptr},
    {L"CLSID\\%CLSID%\\ToolboxBitmap32", nullptr, L"%MODULE%, 1"},
    {L"CLSID\\%CLSID%\\MiscStatus", nullptr, L"0"},
    {L"CLSID\\%CLSID%\\MiscStatus\\1", nullptr, L"229777"},
    {L"CLSID\\%CLSID%\\TypeLib", nullptr, L"%LIBID%"},
    {L"CLSID\\%CLSID%\\Version", nullptr, L"1.0"},
    {L"CLSID\\%CLSID%\\Verb\\0", nullptr, L"&Properties...,0,2"},
};
// Removed with everything below it, whoever wrote there.
constexpr wchar_t ClassKey[] = L"CLSID\\%CLSID%";

constexpr int GuidTextLength = 39;

// What the placeholders stand for.
struct Placeholders {
    ModulePath Module;
    wchar_t Class[GuidTextLength];
    wchar_t Library[GuidTextLength];
};

struct ExpandedText {
    wchar_t Text[1100];
};

Placeholders ReadPlaceholders() noexcept
{
    Placeholders values = {GetModulePath(), {}, {}};
    StringFromGUID2(CLSID_LorvGridL, values.Class, GuidTextLength);
    StringFromGUID2(LIBID_Lorv8L, values.Library, GuidTextLength);
    return values;
}

// The text that a placeholder at `at` stands for; null when none is there.
const wchar_t* PlaceholderAt(const Placeholders& values, const wchar_t* at, size_t& length) noexcept
{
    const struct {
        const wchar_t* Name;
        const wchar_t* Text;
    } known[] = {{L"%MODULE%", values.Module.Text}, {L"%CLSID%", values.Class}, {L"%LIBID%", values.Library}};
    for (const auto& placeholder : known)
        if (length = wcslen(placeholder.Name); wcsncmp(at, placeholder.Name, length) == 0)
            return placeholder.Text;
    return nullptr;
}

ExpandedText Expand(const Placeholders& values, const wchar_t* text) noexcept
{
    ExpandedText expanded = {};
    size_t used = 0;
    constexpr size_t room = std::size(expanded.Text) - 1;
    while (*text && used < room) {
        size_t length = 0;
        const wchar_t* inserted = PlaceholderAt(values, text, length);
        if (!inserted) {
            expanded.Text[used++] = *text++;
            continue;
        }
        while (*inserted && used < room)
            expanded.Text[used++] = *inserted++;
        text += length;
    }
    return expanded;
}

HRESULT WriteRow(const Placeholders& values, const RegistryRow& row) noexcept
{
    ExpandedText key = Expand(values, row.Key);
    HKEY handle = nullptr;
    LSTATUS status =
        RegCreateKeyExW(HKEY_CLASSES_ROOT, key.Text, 0, nullptr, 0, KEY_WRITE, nullptr, &handle, nullptr);
    if (status == ERROR_SUCCESS && row.Data) {
        ExpandedText data = Expand(values, row.Data);
        DWORD size = static_cast<DWORD>((wcslen(data.Text) + 1) * sizeof(wchar_t));
        status =
            RegSetValueExW(handle, row.ValueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(data.Text), size);
    }
    if (handle)
        RegCloseKey(handle);
    return HRESULT_FROM_WIN32(status);
}

// A key with keys of others below it stays.
void RemoveRow(const Placeholders& values, const RegistryRow& row) noexcept
{
    RegDeleteKeyW(HKEY_CLASSES_ROOT, Expand(values, row.Key).Text);
}

bool IsUnicodeSystem() noexcept
{
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof(version);
    return GetVersionExW(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

HRESULT RegisterOwnTypeLibrary() noexcept
{
    ComPtr<ITypeLib> library;
    HRESULT result = LoadOwnTypeLibrary(library.Put());
    ModulePath path = GetModulePath();
    return SUCCEEDED(result) ? RegisterTypeLib(library.Get(), path.Text, nullptr) : result;
}

constexpr SYSKIND LibrarySystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
} // namespace

HRESULT RegisterControl() noexcept
{
    if (!IsUnicodeSystem()) {
        MessageBoxW(nullptr, TooOldText, TooOldTitle, MB_OK);
        return PlatformTooOld;
    }
    Placeholders values = ReadPlaceholders();
    for (const RegistryRow& row : registryScript)
        if (HRESULT result = WriteRow(values, row); FAILED(result))
            return result;
    return RegisterOwnTypeLibrary();
}

HRESULT UnregisterControl() noexcept
{
    Placeholders values = ReadPlaceholders();
    SHDeleteKeyW(HKEY_CLASSES_ROOT, Expand(values, ClassKey).Text);
    for (size_t row = std::size(registryScript); row-- > 0;)
        RemoveRow(values, registryScript[row]);
    // One that is not registered is no failure.
    BSTR path = nullptr;
    if (FAILED(QueryPathOfRegTypeLib(LIBID_Lorv8L, 1, 0, LANG_NEUTRAL, &path)))
        return S_OK;
    SysFreeString(path);
    return UnRegisterTypeLib(LIBID_Lorv8L, 1, 0, LANG_NEUTRAL, LibrarySystem);
}
