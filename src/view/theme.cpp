#include "view/theme.h"

#include "core/upcalls.h"
#include "platform/module.h"

namespace
{
template<class Function> void LoadEntry(HMODULE library, const char* name, Function& entry) noexcept
{
    entry = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

HANDLE& HandleOf(ThemeWrapper& theme, ThemeClass which) noexcept
{
    switch (which) {
    case ThemeClass::Button:
        return theme.ButtonTheme;
    case ThemeClass::ComboBox:
        return theme.ComboTheme;
    case ThemeClass::Header:
        return theme.HeaderTheme;
    default:
        return theme.TreeTheme;
    }
}

constexpr const wchar_t* ClassNames[] = {L"BUTTON", L"COMBOBOX", L"HEADER", L"TREEVIEW"};

void CloseHandles(ThemeWrapper& theme) noexcept
{
    for (HANDLE* handle : {&theme.ButtonTheme, &theme.ComboTheme, &theme.HeaderTheme, &theme.TreeTheme}) {
        if (*handle)
            theme.CloseThemeData(*handle);
        *handle = nullptr;
    }
}

// The grid's own window has no class theme, so a window of a themed class is asked in its place.
bool ChildrenAreThemed(const ThemeWrapper& theme, HWND parent) noexcept
{
    HWND probe = CreateWindowExW(0, L"COMBOBOX", nullptr, WS_CHILD, 0, 0, 0, 0, parent, nullptr,
                                 ModuleInstance(), nullptr);
    if (!probe)
        return false;
    bool themed = theme.GetWindowTheme(probe) != nullptr;
    DestroyWindow(probe);
    return themed;
}
} // namespace

void LoadThemeLibrary(Grid& grid)
{
    ThemeWrapper& theme = grid.Theme;
    theme.ThemeLibrary = LoadLibraryW(L"UxTheme.dll");
    if (!theme.ThemeLibrary)
        return;
    LoadEntry(theme.ThemeLibrary, "OpenThemeData", theme.OpenThemeData);
    LoadEntry(theme.ThemeLibrary, "CloseThemeData", theme.CloseThemeData);
    LoadEntry(theme.ThemeLibrary, "DrawThemeBackground", theme.DrawThemeBackground);
    LoadEntry(theme.ThemeLibrary, "DrawThemeParentBackground", theme.DrawThemeParentBackground);
    LoadEntry(theme.ThemeLibrary, "IsThemeBackgroundPartiallyTransparent",
              theme.IsThemeBackgroundPartiallyTransparent);
    LoadEntry(theme.ThemeLibrary, "GetWindowTheme", theme.GetWindowTheme);
}

void UnloadThemeLibrary(Grid& grid)
{
    CloseThemes(grid);
    if (grid.Theme.ThemeLibrary)
        FreeLibrary(grid.Theme.ThemeLibrary);
    grid.Theme = {};
}

void ThemeReopen(Grid& grid, HWND window)
{
    ThemeWrapper& theme = grid.Theme;
    CloseHandles(theme);
    theme.ThemeWindow = window;
    theme.ThemeActive = 0;
    if (theme.GetWindowTheme && window)
        theme.ThemeActive = ChildrenAreThemed(theme, window);
}

void CloseThemes(Grid& grid) noexcept
{
    CloseHandles(grid.Theme);
    grid.Theme.ThemeWindow = nullptr;
    grid.Theme.ThemeActive = 0;
}

HANDLE ThemeOf(Grid& grid, ThemeClass which) noexcept
{
    ThemeWrapper& theme = grid.Theme;
    if (!theme.ThemeActive || !theme.ThemeWindow)
        return nullptr;
    HANDLE& handle = HandleOf(theme, which);
    if (!handle)
        handle = theme.OpenThemeData(theme.ThemeWindow, ClassNames[static_cast<int>(which)]);
    return handle;
}

void DrawThemePart(Grid& grid, HANDLE theme, HDC dc, int part, int state, const RECT& rectangle) noexcept
{
    if (FAILED(grid.Theme.DrawThemeBackground(theme, dc, part, state, &rectangle, &rectangle)))
        CloseHandles(grid.Theme);
}

void DrawThemeButton(Grid& grid, HDC dc, RECT rectangle) noexcept
{
    if (!grid.Theme.ThemeActive || !grid.Theme.ThemeWindow) {
        DrawFrameControl(dc, &rectangle, DFC_BUTTON, DFCS_BUTTONPUSH);
        return;
    }
    if (HANDLE theme = ThemeOf(grid, ThemeClass::Button))
        DrawThemePart(grid, theme, dc, ButtonPart, StateNormal, rectangle);
    else
        CloseHandles(grid.Theme);
}
