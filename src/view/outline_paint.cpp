#include "view/outline_paint.h"

int PaintOutlineTree(Grid&, HDC, int, int, const RECT&)
{
    return 0;
}
