#pragma once
// The keyboard focus: what the grid does when it comes and goes, and what it tells its host.

#include "core/grid_object.h"

// WM_SETFOCUS and WM_KILLFOCUS; the default procedure follows both.
bool OnSetFocus(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);
bool OnKillFocus(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);
