#pragma once
// Edit masks as text work: what a mask says, how a typed text is brought into its shape, and whether all of
// it is filled. No window here: a text, a caret, and what the platform knows of characters.

// Room for positions and for text, the terminator included.
constexpr int MaskCapacity = 1024;

// What masks ask of the platform; plain functions and characters, so that tests can try locales that the
// machine does not have.
struct MaskPlatform {
    bool (*IsLeadByte)(unsigned char byte);
    bool (*IsLetter)(wchar_t c);
    wchar_t (*ToUpper)(wchar_t c);
    wchar_t (*ToLower)(wchar_t c);
    wchar_t ThousandChar, DecimalChar, DateChar, TimeChar;
};

// A compiled mask and the text that it was last applied to.
struct MaskState {
    wchar_t CompiledMask[MaskCapacity]; // per position the code of a placeholder, 1 to 8, or a literal
    wchar_t MaskCaseMode;               // 0: as typed, '<' or '>'
    bool MaskBeep;
    wchar_t MaskPlaceholder; // what stands in an unfilled position
    wchar_t MaskText[MaskCapacity];
};

// Compiles a mask and returns the number of its positions; null clears the state. Rewrites the mask itself: a
// "C" in it becomes "&", so that hosts read that back.
int CompileMask(MaskState& state, const MaskPlatform& platform, wchar_t* mask);

struct MaskPass {
    int Caret;       // in: where the selection starts; out: where the caret belongs
    bool Backspace;  // the last key was Backspace: the caret stays before literals
    bool DeleteMode; // a change by the user: what went in pushes a character out
};
// Brings `MaskText` into the shape of the compiled mask. True when nothing was refused.
bool ApplyMask(MaskState& state, const MaskPlatform& platform, MaskPass& pass);

enum class MaskGaps {
    None,
    Filled,    // unfilled optional positions of `MaskText` became blanks
    Incomplete // a required position is unfilled
};
MaskGaps FillMaskGaps(MaskState& state, const MaskPlatform& platform);

// The count of literal positions that the mask begins with: typing starts behind them.
int MaskFirstInput(const MaskState& state);
