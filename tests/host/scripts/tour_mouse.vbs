' Real mouse input: every gesture from its press to its release, and some that end before.
Option Explicit

Const twipsPerPixel = 15
Const colWidth = 80, rowHeight = 20 ' pixels

Dim log, moves, row, col
log = ""

Grid.Redraw = lorvRDNone
Grid.Cols = 9
Grid.Rows = 300
Grid.FixedRows = 1
Grid.FixedCols = 1
For col = 0 To 8
    Grid.ColWidth(col) = colWidth * twipsPerPixel
    Grid.TextMatrix(0, col) = "Head " & col
Next
For row = 0 To 299
    Grid.RowHeight(row) = rowHeight * twipsPerPixel
    Grid.TextMatrix(row, 1) = "Row " & (1000 - row)
Next
Grid.TextMatrix(0, 1) = "Head 1"
Grid.Redraw = lorvRDBuffered
Host.Pump 50

SelectCells
SelectHeaders
RightButton
Resize
FitColumn
Freeze
MoveColumn
SortByHeader
MoveRow
ToolTip
ScrollTip
TakeFocus

' Middle of a cell of the unscrolled grid, and the right edge of a column, in pixels.
Function X(col)
    X = col * colWidth + colWidth / 2
End Function

Function Y(row)
    Y = row * rowHeight + rowHeight / 2
End Function

Function Edge(col)
    Edge = (col + 1) * colWidth
End Function

Sub Expect(text, condition)
    Host.Check condition, text & "; log: " & log & "; cell " & Grid.Row & "," & Grid.Col & " to " & Grid.RowSel & _
        "," & Grid.ColSel & " top " & Grid.TopRow
    log = ""
End Sub

' Back to the start, so that no gesture sees what another left.
Sub Begin
    Grid.TopRow = 1
    Grid.LeftCol = 1
    Grid.Select 1, 1
    Host.Pump 20
    log = ""
End Sub

Sub SelectCells
    Begin
    Host.Click X(3), Y(5)
    Expect "a click moves the cell", Grid.Row = 5 And Grid.Col = 3 And log = "down:1 up:1 click "
    Host.Click X(5), Y(8), 1, 1
    Expect "with Shift it extends", Grid.Row = 5 And Grid.RowSel = 8 And Grid.ColSel = 5
    Host.Drag X(2), Y(3), X(4), Y(7)
    Expect "a drag selects", Grid.Row = 3 And Grid.Col = 2 And Grid.RowSel = 7 And Grid.ColSel = 4
    Begin
    Host.RestDrag 600
    Host.Drag X(2), Y(10), X(3), Host.Height + 25
    Expect "held below the window it scrolls", Grid.Row = 10 And Grid.TopRow > 1 And Grid.RowSel > Host.Height / rowHeight
    Begin
    Grid.TopRow = 100
    Grid.Select 105, 2
    Host.RestDrag 600
    Host.Drag X(2), Y(6), X(2), -25
    Expect "held above it scrolls back", Grid.Row = 105 And Grid.TopRow < 100 And Grid.RowSel < 100
    Begin
    Grid.AllowSelection = False
    Host.Drag X(2), Y(3), X(4), Y(7)
    Expect "without AllowSelection the drag moves the cell", Grid.Row = 7 And Grid.RowSel = 7 And Grid.Col = 4
    Grid.AllowSelection = True
End Sub

Sub SelectHeaders
    Begin
    Host.Click X(3), Y(0)
    Expect "a column header selects the column", Grid.Row = 1 And Grid.RowSel = 299 And Grid.Col = 3 And Grid.ColSel = 3
    Host.Drag X(2), Y(0), X(4), Y(0)
    Expect "dragged on, more of them", Grid.Col = 2 And Grid.ColSel = 4 And Grid.RowSel = 299
    Host.Click X(0), Y(4)
    Expect "a row header selects the row", Grid.Row = 4 And Grid.RowSel = 4 And Grid.Col = 1 And Grid.ColSel = 8
    Host.Click X(0), Y(0)
    Expect "the corner selects everything", Grid.Row = 1 And Grid.RowSel = 299 And Grid.Col = 1 And Grid.ColSel = 8
End Sub

Sub RightButton
    Begin
    Grid.Select 3, 2, 6, 4
    Host.Click X(3), Y(4), 2
    Expect "a right click inside keeps the selection", Grid.Row = 3 And Grid.RowSel = 6
    Host.Click X(5), Y(9), 2
    Expect "outside it moves the cell", Grid.Row = 9 And Grid.Col = 5
    Host.Click X(5), Y(9), 4
    Expect "the middle button clicks too", log = "down:4 up:4 click "
End Sub

Sub Resize
    Begin
    Grid.AllowUserResizing = lorvResizeBoth
    Host.Drag Edge(2) - 3, Y(0), Edge(2) - 3 + 40, Y(0)
    Expect "a column's edge follows the pointer", Grid.ColWidth(2) = (colWidth + 37) * twipsPerPixel
    Grid.ColWidth(2) = colWidth * twipsPerPixel
    Host.RestDrag 30, "", "{ESC}"
    Host.Drag Edge(2) - 3, Y(0), Edge(2) + 40, Y(0)
    Expect "Escape leaves the width", Grid.ColWidth(2) = colWidth * twipsPerPixel And InStr(log, "resized") = 0
    Host.Drag Edge(2) + 3, Y(0), Edge(2) + 40, Y(0)
    Expect "beyond the edge there is nothing to drag", Grid.ColWidth(2) = colWidth * twipsPerPixel And Grid.ColWidth(3) = colWidth * twipsPerPixel
    Host.Drag Edge(2) - 3, Y(0), 5, Y(0)
    Expect "a width is a pixel at least", Grid.ColWidth(2) = twipsPerPixel And InStr(log, "resized:-1,2") > 0
    Grid.ColWidth(2) = colWidth * twipsPerPixel
    Host.Drag X(0), (4 + 1) * rowHeight - 2, X(0), (4 + 1) * rowHeight - 2 + 15
    Expect "a row's edge too", Grid.RowHeight(4) = (rowHeight + 13) * twipsPerPixel
    Grid.RowHeight(4) = rowHeight * twipsPerPixel
    Grid.AllowUserResizing = lorvResizeNone
    Host.Drag Edge(2) - 3, Y(0), Edge(2) + 40, Y(0)
    Expect "not when it is off", Grid.ColWidth(2) = colWidth * twipsPerPixel
End Sub

Sub FitColumn
    Dim fitted
    Begin
    Grid.AllowUserResizing = lorvResizeColumns
    Host.DoubleClick Edge(1) - 3, Y(0)
    fitted = Grid.ColWidth(1)
    Expect "a double click tells", InStr(log, "double") > 0 And InStr(log, "resized:-1,1") > 0
    Grid.ColWidth(1) = 3000
    Grid.AutoSize 1
    Expect "and fits the column", Grid.ColWidth(1) = fitted
    Grid.ColWidth(1) = colWidth * twipsPerPixel
    Grid.AutoSizeMouse = False
    Host.DoubleClick Edge(1) - 3, Y(0)
    Expect "only with AutoSizeMouse", Grid.ColWidth(1) = colWidth * twipsPerPixel
    Grid.AllowUserResizing = lorvResizeNone
End Sub

Sub Freeze
    Begin
    Grid.AllowUserFreezing = lorvFreezeBoth
    Host.Drag Edge(0) - 2, Y(5), X(3) + 10, Y(5)
    Expect "past the middle the column freezes", Grid.FrozenCols = 3 And InStr(log, "frozen") > 0
    Host.RestDrag 30, "", "{ESC}"
    Host.Drag Edge(3) - 2, Y(5), X(5) + 10, Y(5)
    Expect "Escape freezes nothing new", InStr(log, "frozen") = 0
    Grid.FrozenCols = 0
    Host.Drag X(3), rowHeight - 2, X(3), Y(4) - 5
    Expect "rows freeze too", Grid.FrozenRows = 3 And InStr(log, "frozen") > 0
    Grid.FrozenRows = 0
    Grid.AllowUserFreezing = lorvFreezeNone
End Sub

Sub MoveColumn
    Begin
    Grid.ExplorerBar = lorvExMove
    Host.Drag X(2), Y(0), X(5) + 10, Y(0)
    Expect "a header moves its column", InStr(log, "moving:2,6 moved:2,6") > 0
    For col = 1 To 8
        If Grid.TextMatrix(0, col) = "Head 2" Then Exit For
    Next
    Expect "to the gap under the pointer, not " & col, col = 6
    Grid.ColPosition(col) = 2
    Host.RestDrag 30, "", "{ESC}"
    Host.Drag X(2), Y(0), X(5), Y(0)
    Expect "Escape leaves it", Grid.TextMatrix(0, 2) = "Head 2" And InStr(log, "mov") = 0
    Grid.ExplorerBar = lorvExNone
End Sub

Sub SortByHeader
    Begin
    Grid.ExplorerBar = lorvExSortShow
    Host.Click X(1), Y(0)
    Expect "a header sorts its column", Grid.TextMatrix(1, 1) = "Row 701" And InStr(log, "sorting:1,1 sorted:1,1") > 0
    Host.Click X(1), Y(0)
    Expect "and the other way round", Grid.TextMatrix(1, 1) = "Row 999" And InStr(log, "sorting:1,2 sorted:1,2") > 0
    Host.Drag X(1), Y(0), X(1), Y(6)
    Expect "not when it is released elsewhere", log = "before:1 " Or InStr(log, "sort") = 0
    Grid.ExplorerBar = lorvExNone
End Sub

Sub MoveRow
    Begin
    Grid.ExplorerBar = lorvExMoveRows
    Grid.TextMatrix(3, 2) = "moves"
    Host.Drag X(0), Y(3), X(0), Y(7) + 5
    Expect "a row header moves its row", InStr(log, "movedrow:3,8") > 0 And Grid.TextMatrix(8, 2) = "moves"
    Grid.ExplorerBar = lorvExNone
End Sub

Sub ToolTip
    Begin
    moves = 0
    Grid.ToolTips = True
    Host.MoveMouse X(3), Y(3)
    Host.MoveMouse X(4), Y(3)
    Expect "the pointer tells where it is", moves >= 2 And Grid.ToolTipText = "cell 3,4"
End Sub

' The thumb of the vertical bar stands at the top, behind the arrow.
Sub ScrollTip
    Begin
    Grid.ScrollTips = True
    Host.Drag Host.Width - 8, 24, Host.Width - 8, 120
    Expect "a drag of the thumb names its rows", InStr(log, "tip:") > 0
    Expect "and scrolls", Grid.TopRow > 1
    Grid.ScrollTips = False
End Sub

Sub TakeFocus
    Begin
    Host.Focus = "field"
    Host.Click X(3), Y(3)
    Expect "a click takes the focus", Host.Focus = "grid" And Grid.Row = 3
End Sub

Sub Note(text)
    log = log & text & " "
End Sub

Sub Grid_MouseDown(Button, Shift, X, Y)
    Note "down:" & Button
End Sub
Sub Grid_MouseMove(Button, Shift, X, Y)
    moves = moves + 1
    Grid.ToolTipText = "cell " & Grid.MouseRow & "," & Grid.MouseCol
End Sub
Sub Grid_MouseUp(Button, Shift, X, Y)
    Note "up:" & Button
End Sub
Sub Grid_Click
    Note "click"
End Sub
Sub Grid_DblClick
    Note "double"
End Sub
Sub Grid_AfterUserResize(Row, Col)
    Note "resized:" & Row & "," & Col
End Sub
Sub Grid_AfterUserFreeze
    Note "frozen"
End Sub
Sub Grid_BeforeMoveColumn(Col, Position)
    Note "moving:" & Col & "," & Position
End Sub
Sub Grid_AfterMoveColumn(Col, Position)
    Note "moved:" & Col & "," & Position
End Sub
Sub Grid_AfterMoveRow(Row, Position)
    Note "movedrow:" & Row & "," & Position
End Sub
Sub Grid_BeforeSort(Col, Order)
    Note "sorting:" & Col & "," & Order
End Sub
Sub Grid_AfterSort(Col, Order)
    Note "sorted:" & Col & "," & Order
End Sub
Sub Grid_BeforeScrollTip(Row)
    Note "tip:" & Row
End Sub
