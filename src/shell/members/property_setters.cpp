#include "shell/members/property_setters.h"

#include "core/events.h"
#include "platform/com_ptr.h"

HRESULT SetColour(Grid& grid, const ColourProperty& property, OLE_COLOR value)
{
    if (grid.*property.Field == value)
        return S_OK;
    grid.*property.Field = value;
    if (property.DrawingObject != NoDrawingObject)
        RebuildGdi(grid, property.DrawingObject);
    FinishProperty(grid, property.Id, StepRepaint);
    return S_OK;
}

HRESULT SetSwitch(Grid& grid, const SwitchProperty& property, VARIANT_BOOL value)
{
    uint32_t& word = grid.*property.Word;
    word = value & 1 ? word | property.Bit : word & ~property.Bit;
    FinishProperty(grid, property.Id, property.Steps);
    return S_OK;
}

HRESULT SetPicture(Grid& grid, const PictureProperty& property, IPictureDisp* value)
{
    KeepAlive alive(grid); // the old picture may be the last thing that holds the host
    ReplaceReference(grid.*property.Field, value);
    FinishProperty(grid, property.Notified, property.Steps);
    return S_OK;
}
