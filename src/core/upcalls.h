#pragma once
// Every call that leads up: what the model asks of the layers above it. Each is defined in the layer named
// here, so whoever reads this header has read every way up in the system.

#include <windows.h>

struct Grid;

// view: layout
void RecalculateLayout(Grid& grid);
void RepaintGrid(Grid& grid);
void RepaintCell(Grid& grid, int row, int col);
// Rebuilds the brush or pen with that number (0 to 8), or all with -1.
void RebuildGdi(Grid& grid, int index);
// Deletes brushes, pens and the paint buffer.
void ReleaseDrawingObjects(Grid& grid);
// Invalidates the rectangle of the selection, without events.
void RepaintSelection(Grid& grid);
// Measures DefaultRowHeight anew after a change of font, and what follows from that.
void RecalcDefaultRowHeight(Grid& grid);
int EffectiveColWidth(const Grid& grid, int col);
int EffectiveRowHeight(const Grid& grid, int row);
// The rectangle of a cell in client pixels, widened to its merged range.
RECT CellRect(Grid& grid, int row, int col);
// Left and top of a cell in client pixels, merged range or not.
int ColX(Grid& grid, int col);
int RowY(Grid& grid, int row);
void ApplyBorderStyle(Grid& grid);
// The entries of the theme library, asked for by name; without the library everything is drawn classically.
void LoadThemeLibrary(Grid& grid);
void UnloadThemeLibrary(Grid& grid);
// Lets the user drag a row with the mouse; its final position.
int DragRowWithMouse(Grid& grid, int row);

// view: selection
// Moves the current cell; below -1 keeps a coordinate. 0 or LORV_E_INDEX.
HRESULT MoveCursor(Grid& grid, int row, int col, int mode);
// The `Row` property's setter.
HRESULT SetCurrentRow(Grid& grid, int row);
// Reports the current cell and selection where they differ from what was last reported.
void FireSelectionEvents(Grid& grid);

// edit: the cell editor
// Keys that StartCellEdit tells apart from typed characters.
constexpr int EditByMouse = 0;
constexpr int EditSelectAll = 13;
constexpr int EditPlain = 32; // Space, Enter, or a click on the cell's button
// Edits the current cell: opens an editor, toggles its check box or clicks its button. `key` is one of the
// above or a character that was typed. Whether anything happened.
bool StartCellEdit(Grid& grid, int key);
// The `EditCell` member: opens an editor at once, or by message when one is open.
void EditCell(Grid& grid);
// Ends a running edit; false when it cannot be ended, and then the caller does nothing.
bool CommitEdit(Grid& grid, bool cancel = false);
// A press at `point` on the hit cell: toggles its check box if that is what was hit. True: the press is used
// up.
bool ClickCheckBox(Grid& grid, int row, int col, POINT point);
// Whether the current cell has a list, so that its button can be pressed. Fires BeforeEdit when the column
// has none, since a handler may set the grid's list.
bool HasButtonList(Grid& grid);
// What the grid's window hands to the editor: MessageStartEdit, MessageEditChanged, WM_COMMAND,
// WM_CTLCOLOR... and WM_DRAWITEM. False: not the editor's.
void ReopenEditor(Grid& grid, bool refused);
void OnEditChanged(Grid& grid);
bool OnEditorCommand(Grid& grid, int child, int notification);
bool OnEditorColor(Grid& grid, HDC dc, HWND child, LRESULT& result);
bool OnEditorDrawItem(Grid& grid, const DRAWITEMSTRUCT& item);
// Moves the drop-down to EditRect.
void PlaceComboWindow(Grid& grid);
// Destroys the windows of both editors, for good or until the next edit.
void DestroyEditorWindows(Grid& grid);

// edit: lists and outline
void ReleaseComboState(struct ComboListState& state);
// Drops the list of the cell editor's drop-down and its window.
void ReleaseEditorList(Grid& grid);
// Counts the outline levels anew.
void RebuildOutlineLevels(Grid& grid);

// A press at `point` on the hit cell: opens or closes the node whose mark was hit. True: the press is used
// up.
bool ClickOutline(Grid& grid, int row, int col, POINT point);

// The window of the open cell editor, null while there is none.
HWND OpenEditorWindow(const Grid& grid);

// edit: clipboard, drag and drop
// The clipboard methods, for the keys that call them.
enum class ClipboardCommand { Copy, Cut, Paste, Delete };
void RunClipboardCommand(Grid& grid, ClipboardCommand command);
// The grid's part in drag and drop, for as long as it has a window.
void CreateDropTarget(Grid& grid);
void ReleaseDropTarget(Grid& grid);
// Starts to drag the selection; true when the press became a drag, even if nothing came of it.
bool StartOleDrag(Grid& grid);

// edit: searching by typing, and tips
// What typing a character comes to before anything else sees it; true when the search has taken it.
bool AutoSearchKey(Grid& grid, int key);
// Makes the window of the tips anew; without a window of the grid there is none.
void CreateTipWindow(Grid& grid);
// Destroys the window of the tips and forgets both texts.
void ReleaseTips(Grid& grid);
// Shows a text at the pointer, or nothing. Without a tip window nothing happens.
void ShowTip(Grid& grid, const wchar_t* text);
// Takes any tip away.
void HideTip(Grid& grid);
// What a move of the mouse shows, once its event has fired: ToolTipText in place of a scroll tip.
void ShowToolTip(Grid& grid);
// What a message of the vertical bar shows, once it has scrolled: the tip of the row under the thumb. Fires
// BeforeScrollTip.
void UpdateScrollTip(Grid& grid, int scrollCode);

// shell
// Asks the site of a windowless control, or the view advise sink of an inactive one, for a repaint.
void RepaintThroughSite(Grid& grid);
// WM_GETOBJECT; false leaves it to the system.
bool AnswerAccessibilityRequest(Grid& grid, WPARAM wParam, LPARAM objectId, LRESULT& result);

// files: text sources beside the own store
const wchar_t* ReadCustomSource(Grid& grid, int row, int col);
const wchar_t* ReadBoundArray(Grid& grid, int row, int col);
HRESULT WriteCustomSource(Grid& grid, int row, int col, const wchar_t* text);
HRESULT WriteBoundArray(Grid& grid, int row, int col, const wchar_t* text);
// Assigns the attached custom source again, so that it re-reads its counts.
HRESULT ReassignDataSource(Grid& grid);
