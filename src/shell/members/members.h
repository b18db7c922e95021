// The members of ILorvGrid over the state of a grid, grouped by subject: each group stands in the file named
// with it.
//
// A member is thin: it checks its arguments, runs the guards, calls the routine that does the work and
// finishes with layout, repaint and notification. IUnknown and IDispatch are the control's. Parameters are in
// camelCase, since the names of the interface are those of the grid's fields here. Where a member bears the
// name of an inner routine, the routine is called with a leading ::.
#pragma once

#include "core/grid_object.h"
#include "lorv8l.h"

class GridMembers : public Grid, public ILorvGrid
{
public:
    GridMembers() = default;
    GridMembers(const GridMembers&) = delete;
    GridMembers& operator=(const GridMembers&) = delete;

    // frame.cpp: the window, its look and the flags
    HRESULT STDMETHODCALLTYPE Refresh() override;
    HRESULT STDMETHODCALLTYPE get_MouseIcon(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_MouseIcon(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_MouseIcon(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_MousePointer(MousePointerSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_MousePointer(MousePointerSettings value) override;
    HRESULT STDMETHODCALLTYPE get_Appearance(AppearanceSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_Appearance(AppearanceSettings value) override;
    HRESULT STDMETHODCALLTYPE get_hWnd(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_BorderStyle(BorderStyleSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_BorderStyle(BorderStyleSettings value) override;
    HRESULT STDMETHODCALLTYPE get_Version(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_Version(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_Flags(ControlFlagsSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_Flags(ControlFlagsSettings value) override;

    // colours.cpp: colours
    HRESULT STDMETHODCALLTYPE get_ForeColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_ForeColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BackColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_BackColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BackColorFixed(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_BackColorFixed(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_ForeColorFixed(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_ForeColorFixed(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BackColorSel(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_BackColorSel(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_ForeColorSel(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_ForeColorSel(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BackColorBkg(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_BackColorBkg(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_GridColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_GridColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_GridColorFixed(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_GridColorFixed(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_FloodColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_FloodColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_TreeColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_TreeColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BackColorAlternate(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_BackColorAlternate(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_SheetBorder(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_SheetBorder(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BackColorFrozen(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_BackColorFrozen(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_ForeColorFrozen(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_ForeColorFrozen(OLE_COLOR value) override;

    // options.cpp: switches and enumerated words
    HRESULT STDMETHODCALLTYPE get_WordWrap(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_WordWrap(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_TextStyle(TextStyleSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_TextStyle(TextStyleSettings value) override;
    HRESULT STDMETHODCALLTYPE get_TextStyleFixed(TextStyleSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_TextStyleFixed(TextStyleSettings value) override;
    HRESULT STDMETHODCALLTYPE get_ScrollTrack(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_ScrollTrack(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_FocusRect(FocusRectSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_FocusRect(FocusRectSettings value) override;
    HRESULT STDMETHODCALLTYPE get_HighLight(ShowSelSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_HighLight(ShowSelSettings value) override;
    HRESULT STDMETHODCALLTYPE get_Redraw(RedrawSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_Redraw(RedrawSettings value) override;
    HRESULT STDMETHODCALLTYPE get_FillStyle(FillStyleSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_FillStyle(FillStyleSettings value) override;
    HRESULT STDMETHODCALLTYPE get_GridLines(GridStyleSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_GridLines(GridStyleSettings value) override;
    HRESULT STDMETHODCALLTYPE get_GridLinesFixed(GridStyleSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_GridLinesFixed(GridStyleSettings value) override;
    HRESULT STDMETHODCALLTYPE get_PictureType(PictureTypeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_PictureType(PictureTypeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_AllowBigSelection(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_AllowBigSelection(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_AllowUserResizing(AllowUserResizeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_AllowUserResizing(AllowUserResizeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_VirtualData(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_VirtualData(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_Editable(EditableSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_Editable(EditableSettings value) override;
    HRESULT STDMETHODCALLTYPE get_GridLineWidth(SHORT* result) override;
    HRESULT STDMETHODCALLTYPE put_GridLineWidth(SHORT value) override;
    HRESULT STDMETHODCALLTYPE get_AutoResize(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_AutoResize(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_ExtendLastCol(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_ExtendLastCol(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_AutoSizeMode(AutoSizeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_AutoSizeMode(AutoSizeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_RightToLeft(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_RightToLeft(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_MultiTotals(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_MultiTotals(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_OwnerDraw(OwnerDrawSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_OwnerDraw(OwnerDrawSettings value) override;
    HRESULT STDMETHODCALLTYPE get_DataMode(DataModeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_DataMode(DataModeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_OLEDragMode(OLEDragModeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_OLEDragMode(OLEDragModeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_TabBehavior(TabBehaviorSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_TabBehavior(TabBehaviorSettings value) override;
    HRESULT STDMETHODCALLTYPE get_AllowSelection(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_AllowSelection(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_PicturesOver(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_PicturesOver(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_Ellipsis(EllipsisSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_Ellipsis(EllipsisSettings value) override;
    HRESULT STDMETHODCALLTYPE get_ShowComboButton(ShowButtonSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_ShowComboButton(ShowButtonSettings value) override;
    HRESULT STDMETHODCALLTYPE get_ComboSearch(ComboSearchSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_ComboSearch(ComboSearchSettings value) override;
    HRESULT STDMETHODCALLTYPE get_AutoSizeMouse(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_AutoSizeMouse(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_AllowUserFreezing(AllowUserFreezeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_AllowUserFreezing(AllowUserFreezeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_WallPaperAlignment(PictureAlignmentSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_WallPaperAlignment(PictureAlignmentSettings value) override;

    // pictures.cpp: pictures
    HRESULT STDMETHODCALLTYPE get_CellButtonPicture(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_CellButtonPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_CellButtonPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_WallPaper(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_WallPaper(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_WallPaper(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_SortAscendingPicture(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_SortAscendingPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_SortAscendingPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_SortDescendingPicture(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_SortDescendingPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_SortDescendingPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_NodeOpenPicture(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_NodeOpenPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_NodeOpenPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_NodeClosedPicture(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_NodeClosedPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_NodeClosedPicture(IPictureDisp* value) override;

    // stock_font.cpp: the stock font
    HRESULT STDMETHODCALLTYPE get_Font(IFontDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_Font(IFontDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_Font(IFontDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_FontName(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_FontName(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_FontSize(FLOAT* result) override;
    HRESULT STDMETHODCALLTYPE put_FontSize(FLOAT value) override;
    HRESULT STDMETHODCALLTYPE get_FontBold(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_FontBold(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_FontItalic(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_FontItalic(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_FontStrikethru(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_FontStrikethru(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_FontUnderline(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_FontUnderline(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_FontWidth(FLOAT* result) override;
    HRESULT STDMETHODCALLTYPE put_FontWidth(FLOAT value) override;

    // extents.cpp: numbers of rows and columns
    HRESULT STDMETHODCALLTYPE get_Rows(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_Rows(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_Cols(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_Cols(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_FixedRows(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_FixedRows(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_FixedCols(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_FixedCols(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_FrozenRows(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_FrozenRows(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_FrozenCols(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_FrozenCols(LONG value) override;

    // cells.cpp: cells, their properties and data
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_Text(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_CellBackColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_CellBackColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_CellForeColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_CellForeColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_CellAlignment(AlignmentSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_CellAlignment(AlignmentSettings value) override;
    HRESULT STDMETHODCALLTYPE get_CellTextStyle(TextStyleSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_CellTextStyle(TextStyleSettings value) override;
    HRESULT STDMETHODCALLTYPE get_CellPicture(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE put_CellPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE putref_CellPicture(IPictureDisp* value) override;
    HRESULT STDMETHODCALLTYPE get_CellPictureAlignment(PictureAlignmentSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_CellPictureAlignment(PictureAlignmentSettings value) override;
    HRESULT STDMETHODCALLTYPE get_CellFontName(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFontName(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_CellFontSize(FLOAT* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFontSize(FLOAT value) override;
    HRESULT STDMETHODCALLTYPE get_CellFontBold(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFontBold(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_CellFontItalic(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFontItalic(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_CellFontWidth(FLOAT* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFontWidth(FLOAT value) override;
    HRESULT STDMETHODCALLTYPE get_CellFontUnderline(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFontUnderline(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_CellFontStrikethru(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFontStrikethru(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_Value(DOUBLE* result) override;
    HRESULT STDMETHODCALLTYPE get_CellFloodPercent(SHORT* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFloodPercent(SHORT value) override;
    HRESULT STDMETHODCALLTYPE get_CellFloodColor(OLE_COLOR* result) override;
    HRESULT STDMETHODCALLTYPE put_CellFloodColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_CellChecked(CellCheckedSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_CellChecked(CellCheckedSettings value) override;
    HRESULT STDMETHODCALLTYPE get_RowData(LONG row, VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE put_RowData(LONG row, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE get_ColData(LONG col, VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE put_ColData(LONG col, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE get_TextMatrix(LONG row, LONG col, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_TextMatrix(LONG row, LONG col, BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_ValueMatrix(LONG row, LONG col, DOUBLE* result) override;
    HRESULT STDMETHODCALLTYPE get_TextArray(LONG index, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_TextArray(LONG index, BSTR value) override;
    HRESULT STDMETHODCALLTYPE CellBorder(OLE_COLOR color, LONG left, LONG top, LONG right, LONG bottom,
                                         LONG vertical, LONG horizontal) override;
    HRESULT STDMETHODCALLTYPE get_Cell(CellPropertySettings setting, VARIANT row1, VARIANT col1, VARIANT row2,
                                       VARIANT col2, VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE put_Cell(CellPropertySettings setting, VARIANT row1, VARIANT col1, VARIANT row2,
                                       VARIANT col2, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE putref_Cell(CellPropertySettings setting, VARIANT row1, VARIANT col1,
                                          VARIANT row2, VARIANT col2, VARIANT value) override;
    HRESULT STDMETHODCALLTYPE get_RowStatus(LONG row, RowStatusSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_RowStatus(LONG row, RowStatusSettings value) override;
    HRESULT STDMETHODCALLTYPE get_ColImageList(LONG col, LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_ColImageList(LONG col, LONG_PTR value) override;
    HRESULT STDMETHODCALLTYPE CellBorderRange(LONG row1, LONG col1, LONG row2, LONG col2, OLE_COLOR color,
                                              LONG left, LONG top, LONG right, LONG bottom, LONG vertical,
                                              LONG horizontal) override;

    // rows_cols.cpp: rows and columns
    HRESULT STDMETHODCALLTYPE get_ColAlignment(LONG col, AlignmentSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_ColAlignment(LONG col, AlignmentSettings value) override;
    HRESULT STDMETHODCALLTYPE put_RowPosition(LONG row, LONG value) override;
    HRESULT STDMETHODCALLTYPE put_ColPosition(LONG col, LONG value) override;
    HRESULT STDMETHODCALLTYPE AddItem(BSTR item, VARIANT row) override;
    HRESULT STDMETHODCALLTYPE RemoveItem(VARIANT row) override;
    HRESULT STDMETHODCALLTYPE Clear(VARIANT where, VARIANT what) override;
    HRESULT STDMETHODCALLTYPE get_FixedAlignment(LONG col, AlignmentSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_FixedAlignment(LONG col, AlignmentSettings value) override;
    HRESULT STDMETHODCALLTYPE get_ColDataType(LONG col, DataTypeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_ColDataType(LONG col, DataTypeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_RowHidden(LONG row, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_RowHidden(LONG row, VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_ColHidden(LONG col, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_ColHidden(LONG col, VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_ColKey(LONG col, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ColKey(LONG col, BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_ColIndex(BSTR key, LONG* result) override;
    HRESULT STDMETHODCALLTYPE DragRow(LONG row, LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_ColIndent(LONG col, LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_ColIndent(LONG col, LONG value) override;

    // formats.cpp: formats, clip strings and FormatString
    HRESULT STDMETHODCALLTYPE get_ColFormat(LONG col, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ColFormat(LONG col, BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_FormatString(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_FormatString(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_Clip(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_Clip(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_ClipSeparators(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ClipSeparators(BSTR value) override;

    // sorting.cpp: sorting and searching
    HRESULT STDMETHODCALLTYPE put_Sort(SortSettings value) override;
    HRESULT STDMETHODCALLTYPE get_ColSort(LONG col, SortSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_ColSort(LONG col, SortSettings value) override;
    HRESULT STDMETHODCALLTYPE get_FindRow(VARIANT item, VARIANT row, VARIANT col, VARIANT caseSensitive,
                                          VARIANT fullMatch, LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_FindRowRegex(BSTR pattern, LONG row, LONG col, LONG* result) override;

    // merging.cpp: merging
    HRESULT STDMETHODCALLTYPE get_MergeCells(MergeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_MergeCells(MergeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_MergeCompare(MergeCompareSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_MergeCompare(MergeCompareSettings value) override;
    HRESULT STDMETHODCALLTYPE get_MergeRow(LONG row, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_MergeRow(LONG row, VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_MergeCol(LONG col, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_MergeCol(LONG col, VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE GetMergedRange(LONG row, LONG col, LONG* r1, LONG* c1, LONG* r2,
                                             LONG* c2) override;
    HRESULT STDMETHODCALLTYPE get_MergeCellsFixed(MergeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_MergeCellsFixed(MergeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_GroupCompare(MergeCompareSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_GroupCompare(MergeCompareSettings value) override;

    // metrics.cpp: sizes and positions
    HRESULT STDMETHODCALLTYPE get_MouseRow(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_MouseCol(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_CellLeft(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_CellTop(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_CellWidth(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_CellHeight(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_RowHeightMin(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_RowHeightMin(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_BottomRow(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_RightCol(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_ClientWidth(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_ClientHeight(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_RowHeightMax(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_RowHeightMax(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_ColWidth(LONG col, LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_ColWidth(LONG col, LONG value) override;
    HRESULT STDMETHODCALLTYPE get_RowHeight(LONG row, LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_RowHeight(LONG row, LONG value) override;
    HRESULT STDMETHODCALLTYPE get_RowIsVisible(LONG row, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE get_ColIsVisible(LONG col, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE get_RowPos(LONG row, LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_ColPos(LONG col, LONG* result) override;
    HRESULT STDMETHODCALLTYPE AutoSize(LONG col1, VARIANT col2, VARIANT equal, VARIANT extraSpace) override;
    HRESULT STDMETHODCALLTYPE get_ColWidthMin(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_ColWidthMin(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_ColWidthMax(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_ColWidthMax(LONG value) override;

    // scrolling.cpp: scrolling
    HRESULT STDMETHODCALLTYPE get_TopRow(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_TopRow(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_LeftCol(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_LeftCol(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_ScrollBars(ScrollBarsSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_ScrollBars(ScrollBarsSettings value) override;
    HRESULT STDMETHODCALLTYPE ShowCell(LONG row, LONG col) override;

    // selection.cpp: the current cell and the selection
    HRESULT STDMETHODCALLTYPE get_RowSel(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_RowSel(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_ColSel(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_ColSel(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_Row(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_Row(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_Col(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_Col(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_SelectionMode(SelModeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_SelectionMode(SelModeSettings value) override;
    HRESULT STDMETHODCALLTYPE get_IsSelected(LONG row, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_IsSelected(LONG row, VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE Select(LONG row, LONG col, VARIANT rowSel, VARIANT colSel) override;
    HRESULT STDMETHODCALLTYPE get_SelectedRows(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_SelectedRow(LONG index, LONG* result) override;
    HRESULT STDMETHODCALLTYPE GetSelection(LONG* row1, LONG* col1, LONG* row2, LONG* col2) override;

    // printing.cpp: printing and pictures of the grid
    HRESULT STDMETHODCALLTYPE get_Picture(IPictureDisp** result) override;
    HRESULT STDMETHODCALLTYPE PrintGrid(VARIANT docName, VARIANT showDialog, VARIANT orientation,
                                        VARIANT marginLR, VARIANT marginTB) override;

    // editing.cpp: the editor and its masks
    HRESULT STDMETHODCALLTYPE get_EditText(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_EditText(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_EditSelStart(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_EditSelStart(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_EditSelLength(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_EditSelLength(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_EditSelText(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_EditSelText(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_EditMaxLength(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_EditMaxLength(LONG value) override;
    HRESULT STDMETHODCALLTYPE EditCell() override;
    HRESULT STDMETHODCALLTYPE get_EditWindow(LONG* result) override;
    HRESULT STDMETHODCALLTYPE FinishEditing(VARIANT_BOOL cancel) override;
    HRESULT STDMETHODCALLTYPE get_EditMask(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_EditMask(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_ColEditMask(LONG col, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ColEditMask(LONG col, BSTR value) override;

    // combo.cpp: drop-down lists
    HRESULT STDMETHODCALLTYPE get_ComboList(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ComboList(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_ComboIndex(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_ComboIndex(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_ComboCount(LONG* result) override;
    HRESULT STDMETHODCALLTYPE get_ComboItem(VARIANT index, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE get_ComboData(VARIANT index, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE get_ColComboList(LONG col, BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ColComboList(LONG col, BSTR value) override;
    HRESULT STDMETHODCALLTYPE BuildComboList(IDispatch* rs, BSTR fieldList, VARIANT keyField,
                                             VARIANT backColor, BSTR* result) override;

    // outline.cpp: totals, outline and nodes
    HRESULT STDMETHODCALLTYPE get_SubtotalPosition(SubtotalPositionSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_SubtotalPosition(SubtotalPositionSettings value) override;
    HRESULT STDMETHODCALLTYPE get_IsSubtotal(LONG row, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_IsSubtotal(LONG row, VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE Subtotal(SubtotalSettings function, VARIANT groupOn, VARIANT totalOn,
                                       VARIANT format, VARIANT backColor, VARIANT foreColor, VARIANT fontBold,
                                       VARIANT caption, VARIANT matchFrom, VARIANT totalOnly) override;
    HRESULT STDMETHODCALLTYPE get_Aggregate(SubtotalSettings aggregate, LONG row1, LONG col1, LONG row2,
                                            LONG col2, DOUBLE* result) override;
    HRESULT STDMETHODCALLTYPE get_OutlineBar(OutlineBarSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_OutlineBar(OutlineBarSettings value) override;
    HRESULT STDMETHODCALLTYPE get_OutlineCol(LONG* result) override;
    HRESULT STDMETHODCALLTYPE put_OutlineCol(LONG value) override;
    HRESULT STDMETHODCALLTYPE Outline(SHORT level) override;
    HRESULT STDMETHODCALLTYPE get_IsCollapsed(LONG row, CollapsedSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_IsCollapsed(LONG row, CollapsedSettings value) override;
    HRESULT STDMETHODCALLTYPE get_RowOutlineLevel(LONG row, SHORT* result) override;
    HRESULT STDMETHODCALLTYPE put_RowOutlineLevel(LONG row, SHORT value) override;
    HRESULT STDMETHODCALLTYPE GetNodeRow(LONG row, NodeTypeSettings which, LONG* result) override;
    HRESULT STDMETHODCALLTYPE GetNode(VARIANT row, ILorvNode** result) override;

    // searching_tips.cpp: auto-search, tips and the explorer bar
    HRESULT STDMETHODCALLTYPE get_AutoSearch(AutoSearchSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_AutoSearch(AutoSearchSettings value) override;
    HRESULT STDMETHODCALLTYPE get_ExplorerBar(ExplorerBarSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_ExplorerBar(ExplorerBarSettings value) override;
    HRESULT STDMETHODCALLTYPE get_IsSearching(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE get_ScrollTips(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_ScrollTips(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_ScrollTipText(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ScrollTipText(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_AutoSearchDelay(FLOAT* result) override;
    HRESULT STDMETHODCALLTYPE put_AutoSearchDelay(FLOAT value) override;
    HRESULT STDMETHODCALLTYPE get_ToolTips(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_ToolTips(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_ToolTipText(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_ToolTipText(BSTR value) override;

    // transfer.cpp: clipboard and drag and drop
    HRESULT STDMETHODCALLTYPE get_OLEDropMode(OLEDropModeSettings* result) override;
    HRESULT STDMETHODCALLTYPE put_OLEDropMode(OLEDropModeSettings value) override;
    HRESULT STDMETHODCALLTYPE OLEDrag() override;
    HRESULT STDMETHODCALLTYPE Cut() override;
    HRESULT STDMETHODCALLTYPE Copy() override;
    HRESULT STDMETHODCALLTYPE Paste() override;
    HRESULT STDMETHODCALLTYPE Delete() override;

    // files.cpp: files, archives and loading from a URL
    HRESULT STDMETHODCALLTYPE SaveGrid(BSTR fileName, SaveLoadSettings saveWhat, VARIANT options) override;
    HRESULT STDMETHODCALLTYPE LoadGrid(BSTR fileName, SaveLoadSettings loadWhat, VARIANT options) override;
    HRESULT STDMETHODCALLTYPE Archive(BSTR arcFileName, BSTR fileName, ArchiveSettings action) override;
    HRESULT STDMETHODCALLTYPE get_ArchiveInfo(BSTR arcFileName, ArchiveInfoSettings infoType, VARIANT index,
                                              VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE LoadGridURL(BSTR url, SaveLoadSettings loadWhat, VARIANT options) override;

    // data_sources.cpp: bound arrays, grids and data sources
    HRESULT STDMETHODCALLTYPE BindToArray(VARIANT variantArray, VARIANT rowDim, VARIANT colDim,
                                          VARIANT pageDim, VARIANT currentPage) override;
    HRESULT STDMETHODCALLTYPE LoadArray(VARIANT variantArray, VARIANT rowDim, VARIANT colDim, VARIANT pageDim,
                                        VARIANT currentPage) override;
    HRESULT STDMETHODCALLTYPE get_LorvDataSource(ILorvDataSource** result) override;
    HRESULT STDMETHODCALLTYPE put_LorvDataSource(ILorvDataSource* value) override;

    // shell.cpp: the control as such and accessibility
    HRESULT STDMETHODCALLTYPE About() override;
    HRESULT STDMETHODCALLTYPE get_AccessibleName(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_AccessibleName(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_AccessibleDescription(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_AccessibleDescription(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_AccessibleValue(BSTR* result) override;
    HRESULT STDMETHODCALLTYPE put_AccessibleValue(BSTR value) override;
    HRESULT STDMETHODCALLTYPE get_AccessibleRole(VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE put_AccessibleRole(VARIANT value) override;

protected:
    ~GridMembers() = default;
};
