#include "edit/mask.h"

int CompileMask(wchar_t*)
{
    return 0;
}

bool ApplyMask(HWND, bool, bool)
{
    return true;
}

bool MaskIsIncomplete(HWND)
{
    return false;
}

int MaskFirstInput()
{
    return 0;
}
