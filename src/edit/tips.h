#pragma once
// The one tip window that scroll tips and tool tips share.

#include "core/grid_object.h"

// Takes the window away, and with it the tips of both kinds.
void DestroyTipWindow(Grid& grid);
