#pragma once
// What comes and goes with the grid's window.

#include "core/grid_object.h"

bool OnCreate(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);  // WM_CREATE
bool OnDestroy(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result); // WM_DESTROY
