#include "view/running_object.h"

#include "platform/com_ptr.h"

#include <utility>

namespace
{
constexpr wchar_t SwitchKey[] = L"SOFTWARE\\GUIAutoTest\\";
constexpr wchar_t SwitchValue[] = L"Test";
constexpr wchar_t NameFormat[] = L"LORV_GRID_HWND_%d";

bool HasSwitchKey() noexcept
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, SwitchKey, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

bool IsSwitchedOn() noexcept
{
    DWORD on = 0;
    DWORD size = sizeof(on);
    return RegGetValueW(HKEY_LOCAL_MACHINE, SwitchKey, SwitchValue, RRF_RT_REG_DWORD, nullptr, &on, &size) ==
               ERROR_SUCCESS &&
           on == 1;
}

ComPtr<IMoniker> MonikerOf(HWND window) noexcept
{
    wchar_t name[40];
    wsprintfW(name, NameFormat, static_cast<int>(reinterpret_cast<intptr_t>(window)));
    ComPtr<IMoniker> moniker;
    CreateItemMoniker(L"!", name, moniker.Put());
    return moniker;
}
} // namespace

void RegisterRunningObject(Grid& grid)
{
    if (!HasSwitchKey() || !IsSwitchedOn())
        return;
    auto members = QueryFor<ILorvGrid>(grid.Outer, IID_ILorvGrid);
    auto moniker = MonikerOf(grid.Window);
    ComPtr<IRunningObjectTable> table;
    if (!members || !moniker || FAILED(GetRunningObjectTable(0, table.Put())))
        return;
    DWORD cookie = 0;
    table->Register(ROTFLAGS_REGISTRATIONKEEPSALIVE, members.Get(), moniker.Get(), &cookie);
    grid.RotCookie = cookie;
}

void RevokeRunningObject(Grid& grid)
{
    if (!grid.RotCookie || !HasSwitchKey())
        return;
    ComPtr<IRunningObjectTable> table;
    if (SUCCEEDED(GetRunningObjectTable(0, table.Put())))
        table->Revoke(std::exchange(grid.RotCookie, 0));
}
