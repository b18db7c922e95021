#pragma once

#include "core/grid_object.h"

// A picture of the sheet from its scroll position on, as PictureType says; the caller owns it. Null when the
// system has no room for it. The code of the failure otherwise.
HRESULT MakeGridPicture(Grid& grid, IPictureDisp** picture);
