#pragma once
// Searching by typing: the characters typed in a row seek the row of the current column that begins with
// them.

#include "core/grid_object.h"

// What was typed last, in whichever grid: there is one keyboard.
struct TypedText {
    static constexpr int Capacity = 99;
    wchar_t SearchText[Capacity + 1]; // its length is the SearchLength of the grid that is typed into
    int32_t SearchTime;               // of the last key, in the system's milliseconds
    bool SearchLeadByte;              // the first half of a character has come, the other one is due
};
TypedText& TheTypedText() noexcept;

// The first shown row from `start` on whose shown text in the column begins with the text typed, whatever
// its case; -1 when there is none.
int FindPrefix(Grid& grid, int start, int col);
