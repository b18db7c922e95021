#pragma once
// A theme that draws nothing and keeps what it was asked for.

#include "support/cells.h"
#include "view/theme.h"

#include <vector>

struct ThemeCall {
    wchar_t Class; // first letter of its name
    int Part, State;
    RECT Area;
};

struct FakeThemeState {
    std::vector<ThemeCall> Calls;
    HRESULT Result = S_OK;
    int Open = 0;
    bool Known = true;   // whether its classes are there
    bool Windows = true; // whether windows have it
};
inline FakeThemeState fakeTheme;

class Themes : public Cells
{
protected:
    Themes()
    {
        fakeTheme = {};
        grid.Theme.OpenThemeData = Open;
        grid.Theme.CloseThemeData = Close;
        grid.Theme.DrawThemeBackground = Draw_;
        grid.Theme.GetWindowTheme = OfWindow;
        grid.Theme.ThemeActive = 1;
        grid.Theme.ThemeWindow = GetDesktopWindow();
    }
    ~Themes() override { CloseThemes(grid); }

private:
    static HANDLE WINAPI Open(HWND, LPCWSTR name)
    {
        if (!fakeTheme.Known)
            return nullptr;
        ++fakeTheme.Open;
        return reinterpret_cast<HANDLE>(static_cast<intptr_t>(name[0]));
    }
    static HRESULT WINAPI Close(HANDLE)
    {
        --fakeTheme.Open;
        return S_OK;
    }
    static HRESULT WINAPI Draw_(HANDLE theme, HDC, int part, int state, const RECT* area, const RECT* clip)
    {
        EXPECT_TRUE(EqualRect(area, clip));
        auto name = static_cast<wchar_t>(reinterpret_cast<intptr_t>(theme));
        fakeTheme.Calls.push_back({name, part, state, *area});
        return fakeTheme.Result;
    }
    static HANDLE WINAPI OfWindow(HWND) { return fakeTheme.Windows ? INVALID_HANDLE_VALUE : nullptr; }
};
