#include "edit/combo_editor.h"

#include "core/upcalls.h"

bool OpenComboEditor(Grid&, int)
{
    return false;
}

void SettleComboEdit(Grid&) {}

const wchar_t* ComboKeyToStore(const Grid&)
{
    return nullptr;
}

void OnComboCommand(Grid&, int) {}

bool OnEditorDrawItem(Grid&, const DRAWITEMSTRUCT&)
{
    return false;
}

void PlaceComboWindow(Grid&) {}

void ReleaseEditorList(Grid&) {}
