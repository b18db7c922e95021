#pragma once
// Editing in place: the state machine of an edit. What the rest of the control calls is in core/upcalls.h;
// here is what the editors share.

#include "core/cell_pos.h"
#include "core/events.h"
#include "core/grid_object.h"
#include "core/upcalls.h"

// A guard of the process: while it is taken nobody else takes it. Only one editor can hold the keyboard, so
// that one of each kind is enough.
class EditGuard
{
public:
    explicit EditGuard(bool& flag) noexcept : flag_(flag), taken_(!flag) { flag_ = true; }
    EditGuard(const EditGuard&) = delete;
    EditGuard& operator=(const EditGuard&) = delete;
    ~EditGuard()
    {
        if (taken_)
            flag_ = false;
    }
    explicit operator bool() const noexcept { return taken_; }

private:
    bool& flag_;
    bool taken_;
};

struct EditGuards {
    bool MaskGuardEdit = false; // a mask is being applied: its own changes are no changes by the user
    bool CharGuardEdit = false; // WM_CHAR comes for the second time, with the key that KeyPressEdit left
    bool CharGuardCombo = false, CharGuardComboEdit = false;
    bool CloseUpGuard = false; // a commit closes the list
};
EditGuards& TheEditGuards() noexcept;

// Asks BeforeEdit and StartEdit for the current cell; a handler may move it, and what it left is then the
// cell being edited. False when one cancels or there is no such cell any more.
bool AskToEdit(Grid& grid);
// The row of an edit that was stored counts as modified, unless the host has given it a status of its own.
void MarkRowModified(Grid& grid, int row) noexcept;
// The merged range of a cell by links that are up to date.
CellRange CurrentMergedRange(Grid& grid, int row, int col);
// Posts a message to the grid's window unless one is queued.
void PostOnce(const Grid& grid, UINT message, WPARAM wParam) noexcept;

// The mask of the cell being edited: the grid's, or else the column's; null or empty for none.
wchar_t* MaskOfCell(const Grid& grid) noexcept;
// Whether a refused edit under the mask beeps. Only a mask that begins with the semicolon is quiet here; one
// that ends with ";Q" is quiet while typing alone.
bool BeepsWhenRefused(const wchar_t* mask) noexcept;
// Compiles it; the number of its positions.
int CompileCellMask(Grid& grid);
// The mask pass of an edit box, with ChangeEdit after it, unless one is under way. Compiles nothing. Without
// a mask only the event fires.
void ApplyMaskAndNotify(Grid& grid, bool deleteMode);
// The same for the edit box of the drop-down, without the event: it is pending from then on.
void ApplyMaskToCombo(Grid& grid, bool deleteMode);

// The list of a cell: the column's, or else the grid's; empty for none, never null.
const wchar_t* ListOfCell(const Grid& grid, int col) noexcept;
// The font of the cell being edited.
HFONT FontOfCell(Grid& grid, int row, int col);
// Room that the tree takes at the leading edge of the cell being edited, in pixels.
int EditorTreeIndent(const Grid& grid, int row, int col) noexcept;

// What the two editors do alike with a message to their windows.
// Scrolls the cell being edited into view.
void ShowEditedCell(Grid& grid);
// Ends the edit, takes the focus to the grid and gives it the key, 0 for none.
void LeaveEditor(Grid& grid, int key);
// Return or Escape in an editor: ends the edit, by Escape without its text. False when a handler took the
// key.
bool EndEditByKey(Grid& grid, short key);
// A key as an event gave it back, as messages carry it.
inline WPARAM AsKey(short key) noexcept
{
    return static_cast<unsigned short>(key);
}
// Tells KeyDownEdit and the like; what the handler made of the key.
short AskKeyDownEdit(Grid& grid, short key);
short AskKeyUpEdit(Grid& grid, short key);
short AskKeyPressEdit(Grid& grid, short key);
// WM_CONTEXTMENU: whether a handler of BeforeMouseDown takes the menu over.
bool RefusesEditMenu(Grid& grid);
