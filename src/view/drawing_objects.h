#pragma once
// Colours as the screen has them. The brushes and pens made from them are in Grid::Drawing, see RebuildGdi.

#include "core/grid_object.h"

// A system colour index is looked up; a palette index goes through the host's palette.
COLORREF TranslatedColor(const Grid& grid, OLE_COLOR colour) noexcept;
// The brush of a cell's own colour: good until the next one is asked for.
HBRUSH ScratchBrush(Grid& grid, OLE_COLOR colour) noexcept;
