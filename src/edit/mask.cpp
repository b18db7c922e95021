#include "edit/mask.h"

#include "core/value_format.h"
#include "edit/mask_text.h"

namespace
{
// One for the process: only one editor is live at a time. A notice of change that comes to a grid after
// another grid has compiled its mask is worked off under that one.
MaskState mask;

bool IsLeadByte(unsigned char byte)
{
    return IsDBCSLeadByte(byte) != FALSE;
}
bool IsLetter(wchar_t c)
{
    return IsCharAlphaW(c) != FALSE;
}
wchar_t ToUpper(wchar_t c)
{
    CharUpperBuffW(&c, 1);
    return c;
}
wchar_t ToLower(wchar_t c)
{
    CharLowerBuffW(&c, 1);
    return c;
}

const MaskPlatform& ThePlatform()
{
    static const MaskPlatform platform = {IsLeadByte,
                                          IsLetter,
                                          ToUpper,
                                          ToLower,
                                          TheLocale().ThousandChar,
                                          TheLocale().DecimalChar,
                                          TheLocale().DateChar,
                                          TheLocale().TimeChar};
    return platform;
}
} // namespace

int CompileMask(wchar_t* text)
{
    return CompileMask(mask, ThePlatform(), text);
}

bool ApplyMask(HWND editBox, bool backspace, bool deleteMode)
{
    DWORD start = 0;
    SendMessageW(editBox, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    mask.MaskText[0] = 0;
    GetWindowTextW(editBox, mask.MaskText, MaskCapacity);
    MaskPass pass = {static_cast<int>(start), backspace, deleteMode};
    bool accepted = ApplyMask(mask, ThePlatform(), pass);
    bool beep = mask.MaskBeep && !accepted;
    SetWindowTextW(editBox, mask.MaskText);
    SendMessageW(editBox, EM_SETSEL, static_cast<WPARAM>(pass.Caret), pass.Caret);
    if (beep)
        MessageBeep(MB_ICONHAND);
    return accepted;
}

bool MaskIsIncomplete(HWND editBox)
{
    MaskGaps gaps = FillMaskGaps(mask, ThePlatform());
    if (gaps == MaskGaps::Filled)
        SetWindowTextW(editBox, mask.MaskText);
    return gaps == MaskGaps::Incomplete;
}

bool IsMaskActive()
{
    return mask.CompiledMask[0] != 0;
}

int MaskFirstInput()
{
    return MaskFirstInput(mask);
}
