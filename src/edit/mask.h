#pragma once
// The edit mask of the cell editors. One mask is compiled at a time, for the whole process: whoever opens,
// changes or ends an edit compiles its own before using it. The calls below work on an edit box.

#include <windows.h>

// Compiles a mask, null for none; the number of its positions. May change the text of the mask.
int CompileMask(wchar_t* mask);
// Rewrites the text of the edit box under the compiled mask. `backspace`: the last key was Backspace.
// `deleteMode`: the user has changed the text, so that a character typed takes the place of the next one.
// Whether nothing was refused.
bool ApplyMask(HWND editBox, bool backspace, bool deleteMode);
// Whether a required position is still open, as ApplyMask left the text. Open positions that need not be
// filled become spaces.
bool MaskIsIncomplete(HWND editBox);
// Whether a mask with any position is compiled.
bool IsMaskActive();
// Positions of the compiled mask in front of the first that can be typed in; 0 without a mask.
int MaskFirstInput();
