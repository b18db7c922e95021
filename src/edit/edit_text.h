#pragma once
// The text of the open editor, as programs read and write it. Without an editor there is none, and nothing
// happens.

#include "core/grid_object.h"
#include "platform/bstr.h"

// While a check box is being toggled: its new state as a digit.
Bstr ReadEditText(Grid& grid);
void WriteEditText(Grid& grid, const wchar_t* text);

struct EditSelection {
    int Start, End; // characters
};
EditSelection ReadEditSelection(const Grid& grid);
void WriteEditSelection(const Grid& grid, EditSelection selection);
Bstr ReadSelectedEditText(const Grid& grid);
void ReplaceSelectedEditText(Grid& grid, const wchar_t* text);

// After a change of `EditMask`: what is being edited takes its shape.
void ApplyNewMask(Grid& grid);
