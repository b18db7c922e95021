#include "edit/cell_editor.h"

#include "edit/combo_list.h"

bool StartCellEdit(Grid&, int)
{
    return false;
}

void EditCell(Grid&) {}

bool CommitEdit(Grid&, bool)
{
    return true;
}

bool ClickCheckBox(Grid&, int, int, POINT)
{
    return false;
}

bool HasButtonList(Grid&)
{
    return false;
}

void ReopenEditor(Grid&, bool) {}

void OnEditChanged(Grid&) {}

bool OnEditorCommand(Grid&, int, int)
{
    return false;
}

bool OnEditorColor(Grid&, HDC, HWND, LRESULT&)
{
    return false;
}

void DestroyEditorWindows(Grid&) {}

HWND OpenEditorWindow(const Grid& grid)
{
    if (grid.ActiveEditor == EditorText)
        return grid.EditBoxWindow;
    return grid.ActiveEditor == EditorCombo ? grid.ComboWindow : nullptr;
}
