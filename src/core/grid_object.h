#pragma once
// The state of a grid: plain fields, named as the properties are named. Behaviour is in free functions
// that take a `Grid&` first. Rows and columns count from 0; lengths are device pixels unless a field says
// twips; colours are OLE_COLOR as the host gave them, translated at use.

#include "core/sink_list.h"
#include "lorv8l.h"

#include <ocidl.h>
#include <olectl.h>
#include <windows.h>

#include <cstdint>

// In a byte of a CellFormat, and in a column's FixedAlignment: no value of its own.
constexpr uint8_t Unset = 100;
// In a stored row height or column width: the default.
constexpr int UnsetLength = -1;
// Ceiling of stored heights and widths and of coordinates given to GDI, in pixels.
constexpr int MaxPixels = 32000;
// The scroll code that names a row or column outright.
constexpr int ScrollDirect = 666;

// What a cell looks like where it differs from its grid. Exists only for a cell that has a format or data.
struct CellFormat {
    uint32_t BackColor;
    uint8_t BackColorSet; // 1 after any write of BackColor, since 0 is a colour
    uint32_t ForeColor;   // 0: not set
    uint32_t FloodColor;  // 0: not set
    int8_t FloodPercent;  // -100 to 100
    uint8_t Alignment;
    uint8_t TextStyle;
    uint8_t PictureAlignment;
    uint32_t BorderColor;
    uint8_t BorderLeft, BorderTop, BorderRight, BorderBottom; // pixels
    HFONT Font;                                               // one use of the font pool; null: the grid's
    VARIANT* Data;                                            // owned
    IPictureDisp* Picture;                                    // counted
};

struct CellRecord {
    wchar_t* Text; // owned, null when empty
    uint8_t State; // low half: merge links, high half: check state
    CellFormat* Format;
};

// Merge links in the low half of CellRecord::State.
enum MergeLink : uint8_t { LinkAbove = 1, LinkBelow = 2, LinkLeft = 4, LinkRight = 8 };
constexpr uint8_t MergeLinkMask = 0x0F;
constexpr uint8_t CheckStateMask = 0xF0;
constexpr int CheckStateShift = 4;

enum RowFlag : uint8_t {
    RowFlagSelected = 0x01,
    RowFlagSubtotal = 0x04,
    RowFlagHidden = 0x08,
    RowFlagCollapsed = 0x30, // a CollapsedSettings value, shifted by CollapsedShift
};
constexpr int CollapsedShift = 4;

// A row is moved by moving this record: its cells, data and height travel with it.
struct RowRecord {
    CellRecord* Cells; // `Cols` records, or null while no cell of the row was written
    VARIANT* RowData;  // owned
    int32_t Height;    // pixels, UnsetLength: the default
    uint8_t Status;    // RowStatusSettings
    int8_t OutlineLevel;
    uint8_t MergeRow;
    uint8_t Flags; // RowFlag
};
#ifdef _WIN64
static_assert(sizeof(RowRecord) == 24);
#endif

constexpr int RowBlock = 100; // the row table grows and shrinks in blocks of this many records

constexpr int MaxComboColumns = 20;

// A parsed drop-down list. One is embedded in each column, so that a cell's stored key shows as its text.
struct ComboListState {
    int32_t TotalWidth;
    int32_t ItemHeight;
    int32_t ColumnCount;
    int32_t KeyColumn;
    int32_t ColumnWidth[MaxComboColumns]; // pixels, -1 where no column is
    OLE_COLOR KeyColumnBackColor;
    int32_t ComboCount; // entries of the two arrays
    wchar_t* ListText;
    wchar_t** ComboKeys;  // a key, or null, per item
    wchar_t** ComboTexts; // the shown text, or null, per item
    uint8_t ComboBits;
};

enum ColFlag : uint8_t {
    ColFlagHidden = 0x01,
    ColFlagParenFormat = 0x02, // ColFormat has a `$`, a `(` or the word "Currency"
};

struct ColRecord {
    int32_t Width;    // pixels, UnsetLength: the default
    int32_t Indent;   // pixels
    VARIANT* ColData; // owned
    int8_t Alignment; // AlignmentSettings
    int8_t FixedAlignment;
    uint8_t MergeCol;
    int32_t SourceCol; // field of the bound array or custom source, -1: none
    int16_t ColSort;
    int16_t ColDataType;
    wchar_t* ColFormat;
    wchar_t* ColEditMask;
    wchar_t* ColComboList;
    ComboListState ComboState;
    uint16_t LastSort;
    HANDLE ColImageList; // not owned
    wchar_t* ColKey;
    uint8_t ColFlags; // ColFlag
};

// Bits of Grid::OptionWord.
enum Option : uint32_t {
    OptionScrollTrack = 1 << 0,
    OptionAutoResize = 1 << 1,
    OptionExtendLastCol = 1 << 2,
    OptionMultiTotals = 1 << 3,
    OptionWordWrap = 1 << 4,
    OptionAllowBigSelection = 1 << 5,
    OptionRightToLeft = 1 << 6,
    OptionAllowSelection = 1 << 7,
    OptionPicturesOver = 1 << 8,
    OptionMergeStale = 1 << 9, // the merge links are out of date
    OptionGdiStale = 1 << 10,  // the next paint rebuilds every drawing object
};
enum DataOption : uint32_t { DataOptionVirtualData = 1 };
enum TipOption : uint32_t { TipOptionScrollTips = 1, TipOptionToolTips = 2 };
enum MouseOption : uint32_t { MouseOptionAutoSizeMouse = 1 };

// Values of Grid::ActiveEditor; also the identifiers of the child windows.
enum EditorKind : int32_t { EditorNone = 0, EditorText = 666, EditorCombo = 667 };

// Bits of Grid::EditFlags.
enum EditFlag : uint32_t {
    // Set while ValidateEdit is out and while a gesture has taken the selection over: nothing moves the
    // cursor until the next key, press or setter clears it.
    EditFlagSelectionLocked = 1,
    // The next key that goes to the open editor is posted instead of sent.
    EditFlagPostNextKey = 2,
};

// Bits of Grid::PaintMode, shared by the painter and the mouse.
enum PaintModeBit : uint32_t {
    PaintListDragAdds = 1,
    PaintPrinting = 2,
    PaintHasFocus = 4,
    PaintMouseHeld = 8,
    PaintListChanged = 16,
    PaintTogglingCheck = 32,
};

// Brushes and pens made from the colours, see RebuildGdi. Null where the colour says "none".
struct DrawingObjects {
    HBRUSH Back, Alternate, Fixed, Selection, Background, Frozen, Scratch;
    HPEN GridPen, GridPenFixed, SheetPen;
    HPEN DarkPen, ShadowPen, HilitePen;
};

// The off-screen picture that flicker-free paints go through. The bitmap only ever grows.
struct PaintBufferState {
    HDC Memory, Target;
    HBITMAP Bitmap, Previous;
    int32_t BufferWidth, BufferHeight;
    RECT BufferRect;
};

// What draws in the look of the system's theme: the entries of the theme library, loaded by name so that
// the control works where there is none, and the open classes. Handles are null until first used.
struct ThemeWrapper {
    HWND ThemeWindow; // the window that themes apply to, null when closed
    HANDLE ButtonTheme, ComboTheme, HeaderTheme, TreeTheme;
    int32_t ThemeActive; // themes are in force for the window
    HMODULE ThemeLibrary;
    HANDLE(WINAPI* OpenThemeData)(HWND, LPCWSTR);
    HRESULT(WINAPI* CloseThemeData)(HANDLE);
    HRESULT(WINAPI* DrawThemeBackground)(HANDLE, HDC, int, int, const RECT*, const RECT*);
    HRESULT(WINAPI* DrawThemeParentBackground)(HWND, HDC, const RECT*);
    BOOL(WINAPI* IsThemeBackgroundPartiallyTransparent)(HANDLE, int, int);
    HANDLE(WINAPI* GetWindowTheme)(HWND);
};

constexpr int MaxOutlineLevels = 128;

// What BoundKind says besides the variant type of a bound array.
enum BoundKindValue : uint16_t { BoundNone = 0, BoundToGrid = 3 };

struct Grid {
    Grid();
    ~Grid();
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;

    // Extents and positions
    int32_t Rows = 0, Cols = 0;
    int32_t FixedRows = 0, FixedCols = 0;
    int32_t TopRow = 0, LeftCol = 0;
    int32_t Row = 0, Col = 0, RowSel = 0, ColSel = 0;

    uint32_t OptionWord = 0; // Option

    // Colours
    OLE_COLOR BackColor = 0, BackColorAlternate = 0, BackColorFixed = 0;
    OLE_COLOR ForeColor = 0, ForeColorFixed = 0;
    OLE_COLOR BackColorSel = 0, ForeColorSel = 0;
    OLE_COLOR BackColorBkg = 0, TreeColor = 0, SheetBorder = 0;
    OLE_COLOR GridColor = 0, GridColorFixed = 0, FloodColor = 0;

    // Enumerated words
    int16_t TextStyle = 0, TextStyleFixed = 0, GridLines = 0, GridLinesFixed = 0;
    int16_t FocusRect = 0, HighLight = 0, ScrollBars = 0, FillStyle = 0, SelectionMode = 0;
    int16_t MergeCells = 0, MergeCellsFixed = 0, AllowUserResizing = 0, AutoSizeMode = 0;
    int16_t SubtotalPosition = 0, OutlineBar = 0, PictureType = 0;
    uint16_t GridLineWidth = 0; // pixels
    int16_t OwnerDraw = 0, TabBehavior = 0;

    uint32_t DataOptions = 0;  // DataOption
    uint32_t TipOptions = 0;   // TipOption
    uint32_t MouseOptions = 0; // MouseOption

    int16_t DataMode = 0, OLEDragMode = 0, OLEDropMode = 0;
    int32_t Editable = 0, ShowComboButton = 0, ComboSearch = 0, AllowUserFreezing = 0;
    int32_t FrozenRows = 0, FrozenCols = 0;
    OLE_COLOR BackColorFrozen = 0, ForeColorFrozen = 0; // 0: as other cells
    int32_t Redraw = 0;                                 // RedrawSettings
    int32_t OutlineCol = 0;
    float FontWidth = 0;       // points, 0: the font's own
    float AutoSearchDelay = 0; // seconds
    int16_t WallPaperAlignment = 0, Ellipsis = 0, MergeCompare = 0, GroupCompare = 0;
    int16_t AutoSearch = 0, ExplorerBar = 0;
    int16_t Appearance = 0, BorderStyle = 0, MousePointer = 0;
    uint32_t Flags = 0; // ControlFlagsSettings
    bool Enabled = true;

    // Owned texts and objects
    wchar_t* FormatString = nullptr;
    BSTR ClipSeparators = nullptr;
    IFont* Font = nullptr;      // made on first need, see GridFont
    HFONT FontHandle = nullptr; // borrowed from Font; null: ask it again
    IPictureDisp* MouseIcon = nullptr;
    IPictureDisp* WallPaper = nullptr;
    IPictureDisp* CellButtonPicture = nullptr;
    IPictureDisp* NodeOpenPicture = nullptr;
    IPictureDisp* NodeClosedPicture = nullptr;
    IPictureDisp* SortAscendingPicture = nullptr;
    IPictureDisp* SortDescendingPicture = nullptr;

    // Control frame
    int32_t DesignModeCache = -1; // -1 unknown, 0 user mode, 1 design mode
    bool RequiresSave = false;
    bool Saving = false; // the shell is reading the properties to store them
    bool OleDragRunning = false;
    uint32_t SafetyOptions = 0; // what IObjectSafety was asked for; any option locks the members of files
    uint32_t RotCookie = 0;     // registration in the running object table, 0: none
    int32_t SortIndicatorCol = -1;
    int32_t IsSearching = 0;
    uint32_t InEvent = 0; // events being fired, nested
    uint32_t Closing = 0; // set on the way out: nothing fires any more
    SinkList EventSinks;
    SinkList PropertySinks;
    IUnknown* Outer = nullptr;              // the control's identity; null for a grid without a control
    IDispatch* AmbientProperties = nullptr; // of the client site
    IOleInPlaceSite* InPlaceSite = nullptr;
    HWND Window = nullptr;
    SIZE Extent = {}; // HIMETRIC, while there is no window

    // The tables
    RowRecord* RowTable = nullptr; // RowCapacity records
    int32_t RowCapacity = 0;
    ColRecord* ColTable = nullptr; // Cols records

    // Text sources beside the own store
    uint16_t BoundKind = BoundNone;  // BoundToGrid, or the variant type of BoundArray
    SAFEARRAY* BoundArray = nullptr; // the caller's
    Grid* BoundGrid = nullptr;
    uint32_t BoundDims = 0;
    int32_t RowDim = 0, ColDim = 0, PageDim = 0, CurrentPage = 0;
    ILorvDataSource* LorvDataSource = nullptr;

    // Metrics and layout
    int32_t DefaultRowHeight = 0; // pixels
    int32_t UniformRowHeight = 0; // pixels, not in force below 1
    int32_t RowHeightMin = 0, RowHeightMax = 0, ColWidthMin = 0, ColWidthMax = 0; // twips, 0: no limit
    int32_t RowHeightMinPixels = 0, RowHeightMaxPixels = 0;
    int32_t ColWidthMinPixels = 0, ColWidthMaxPixels = 0;
    int32_t MaxTopRow = 0, MaxLeftCol = 0;

    // Selection as last reported
    int32_t LastRow = 0, LastCol = 0, LastRowSel = 0, LastColSel = 0;

    // Painting
    uint32_t PaintMode = 0; // PaintModeBit
    int32_t HoverRow = -1, HoverCol = -1;
    bool TracksMouse = false; // WM_MOUSELEAVE has been asked for
    DrawingObjects Drawing = {};
    PaintBufferState PaintBuffer = {};
    HPALETTE Palette = nullptr;  // the host's, as last asked for; not owned
    bool DrawingForView = false; // the host renders the control through its view interface
    ThemeWrapper Theme = {};

    // Printing: where the next page starts, and where the last band of rows stopped
    int32_t PrintStartRow = 0, PrintStartCol = 0;
    int32_t PrintNextRow = 0, PrintNextCol = 0;

    // Editing
    int32_t EditRow = 0, EditCol = 0, EditRowSel = 0, EditColSel = 0;
    RECT EditRect = {};       // client pixels
    int32_t ActiveEditor = 0; // EditorKind
    uint32_t EditFlags = 0;   // EditFlag
    int32_t EditMaxLength = 0;
    VARIANT_BOOL EditCancel = VARIANT_FALSE; // the Cancel of BeforeEdit, StartEdit and ValidateEdit
    OLE_COLOR EditTextColor = 0;             // as last given to the editor
    wchar_t* EditMask = nullptr;             // owned; the mask of every cell
    wchar_t* ComboList = nullptr;            // owned; the list of cells whose column has none
    // The editors' windows. After an edit they stay, hidden, until the next one.
    HWND EditBoxWindow = nullptr;
    bool LastKeyWasBackspace = false;
    bool LineBreakTyped = false; // Ctrl+Enter has made a line break: its character is to make none
    HWND ComboWindow = nullptr;
    HWND ComboEditBox = nullptr;    // the edit box in the drop-down, null when only its items can be chosen
    ComboListState EditorList = {}; // the items of the drop-down

    // Outline
    int32_t OutlineLevelCount = 0;
    int8_t OutlineLevels[MaxOutlineLevels] = {}; // ascending, without the grand total
    int16_t LastOutlineLevel = 0;

    // Searching and tips
    int32_t SearchLength = 0; // characters typed so far
    HWND TipWindow = nullptr;
    wchar_t* ScrollTipText = nullptr; // owned
    wchar_t* ToolTipText = nullptr;   // owned
    int32_t LastTipRow = -1;          // the row whose scroll tip is shown, -1: none
};

// Writes the default of every property. The constructor alone calls it, on a cleared grid.
void ResetProperties(Grid& grid) noexcept;

inline bool HasOption(const Grid& grid, Option option) noexcept
{
    return (grid.OptionWord & option) != 0;
}

inline void SetOption(Grid& grid, Option option, bool on) noexcept
{
    grid.OptionWord = on ? grid.OptionWord | option : grid.OptionWord & ~static_cast<uint32_t>(option);
}

inline void MarkMergeStale(Grid& grid) noexcept
{
    grid.OptionWord |= OptionMergeStale;
}

inline bool IsRow(const Grid& grid, int row) noexcept
{
    return row >= 0 && row < grid.Rows;
}
inline bool IsCol(const Grid& grid, int col) noexcept
{
    return col >= 0 && col < grid.Cols;
}
inline bool IsCell(const Grid& grid, int row, int col) noexcept
{
    return IsRow(grid, row) && IsCol(grid, col);
}
inline bool IsFixedCell(const Grid& grid, int row, int col) noexcept
{
    return row < grid.FixedRows || col < grid.FixedCols;
}
inline int FrozenEndRow(const Grid& grid) noexcept
{
    return grid.FixedRows + grid.FrozenRows;
}
inline int FrozenEndCol(const Grid& grid) noexcept
{
    return grid.FixedCols + grid.FrozenCols;
}
inline bool MergesAtAll(const Grid& grid) noexcept
{
    return grid.MergeCells != 0 || grid.MergeCellsFixed != 0;
}
inline bool SpillsText(const Grid& grid) noexcept
{
    return grid.MergeCells == lorvMergeSpill || grid.MergeCellsFixed == lorvMergeSpill;
}

// A visible outline: the bar is on and some row has a level.
inline bool ShowsOutline(const Grid& grid) noexcept
{
    return grid.OutlineBar != 0 && grid.OutlineLevelCount != 0;
}
