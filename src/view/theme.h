#pragma once
// Drawing in the look of the system's theme. Every path has a classic one beside it, which is taken while
// no theme is in force.

#include "core/grid_object.h"

enum class ThemeClass { Button, ComboBox, Header, TreeView };

// Parts and states that the grid draws.
enum ThemePart { ButtonPart = 1, CheckBoxPart = 3, DropArrowPart = 1, HeaderItemPart = 1, TreeMarkPart = 2 };
enum ThemeState { StateNormal = 1, StateHot = 2, StatePressed = 3, TreeClosed = 1, TreeOpen = 2 };

// Closes all classes and asks whether themes are in force for `window`. At its creation, and when the
// theme of the system changes.
void ThemeReopen(Grid& grid, HWND window);
// At the destruction of the window.
void CloseThemes(Grid& grid) noexcept;

inline bool IsThemed(const Grid& grid) noexcept
{
    return grid.Theme.ThemeActive != 0;
}

// The open class; null without a theme, or when the theme does not know the class.
HANDLE ThemeOf(Grid& grid, ThemeClass which) noexcept;
// A failure closes all classes, so that the next use opens them anew; nothing is drawn then.
void DrawThemePart(Grid& grid, HANDLE theme, HDC dc, int part, int state, const RECT& rectangle) noexcept;
// A push button. While a theme is in force there is no classic fallback for a failure.
void DrawThemeButton(Grid& grid, HDC dc, RECT rectangle) noexcept;
