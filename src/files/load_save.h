#pragma once
// Grids to files and back: the files are opened here, and a grid is put in order after a load.

#include "core/errors.h"
#include "core/grid_object.h"

constexpr unsigned LastFileKind = 7; // the largest SaveLoadSettings, and one that has no name

// `kind`: a SaveLoadSettings. 7, which has no name, is text with the grid's own separators in UTF-16.
// LORV_E_VALUE, LORV_E_CANNOTWRITE, E_OUTOFMEMORY, E_NOTIMPL for workbooks.
HRESULT SaveGridFile(Grid& grid, const wchar_t* name, int kind, const VARIANT& options);

// Kind 7 is read as text with tabs: hosts load with the separators what was saved with them.
// LORV_E_VALUE, LORV_E_NOTFOUND, LORV_E_BADFORMAT, LORV_E_MEMORY, E_OUTOFMEMORY, E_NOTIMPL for workbooks.
// After LORV_E_NOTFOUND the grid is as it was.
HRESULT LoadGridFile(Grid& grid, const wchar_t* name, int kind, const VARIANT& options);

// Whether data may be loaded: LORV_E_VALUE for an unknown kind, ReportError(LORV_E_BOUND) while the grid
// shows the data of others and its host runs.
HRESULT GuardLoad(Grid& grid, int kind);
