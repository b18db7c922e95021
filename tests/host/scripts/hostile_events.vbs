' Real gestures with a handler that takes the grid down, or its rows and columns away, inside an event. The arguments
' say what it does and in which event; without the second one, all events in turn. The run must end by itself.
' The action "names" prints the events.
Option Explicit

Const twipsPerPixel = 15
Const colWidth = 80, rowHeight = 20 ' pixels

' The gestures that fire the events, and the events.
Dim gestures
gestures = Array( _
    "pointer:BeforeMouseDown MouseDown MouseMove MouseUp Click DblClick BeforeScroll AfterScroll " & _
        "LeaveCell BeforeRowColChange AfterRowColChange BeforeSelChange AfterSelChange " & _
        "EnterCell RowColChange SelChange", _
    "edges:BeforeUserResize AfterUserResize AfterUserFreeze", _
    "headers:BeforeMoveRow AfterMoveRow BeforeMoveColumn AfterMoveColumn BeforeSort Compare " & _
        "AfterSort", _
    "thumb:BeforeScrollTip", _
    "keys:KeyDown KeyPress KeyUp StartAutoSearch EndAutoSearch SetFocus KillFocus")

Dim action, target, happened, playing, i, k, names
action = Host.Argument(0)
playing = False
For i = 0 To UBound(gestures)
    names = Split(Replace(gestures(i), ":", " "), " ")
    For k = 1 To UBound(names)
        If action = "names" Then
            Host.Echo names(k)
        ElseIf Host.Argument(1) = "" Or Host.Argument(1) = names(k) Then
            Try names(0) & "", names(k) & ""
        End If
    Next
Next

Sub Try(gesture, name)
    playing = False
    Shape
    target = name
    happened = 0
    playing = True
    Play gesture
    playing = False
    Host.Check happened > 0, name & " has not fired"
End Sub

Sub Shape
    Dim row, col
    Grid.Redraw = lorvRDNone
    Grid.Cols = 6
    Grid.Rows = 100
    Grid.FixedRows = 1
    Grid.FixedCols = 1
    Grid.FrozenCols = 0
    For col = 0 To 5
        Grid.ColWidth(col) = colWidth * twipsPerPixel
        Grid.ColSort(col) = 0
    Next
    For row = 0 To 99
        Grid.RowHeight(row) = rowHeight * twipsPerPixel
        Grid.TextMatrix(row, 1) = "Row " & (1000 - row)
        Grid.TextMatrix(row, 2) = "b"
    Next
    Grid.ExplorerBar = 15
    Grid.AllowUserResizing = lorvResizeBoth
    Grid.AllowUserFreezing = lorvFreezeBoth
    Grid.AutoSearch = lorvSearchFromTop
    Grid.ScrollTips = True
    Grid.ToolTips = True
    Grid.Redraw = lorvRDBuffered
    Grid.TopRow = 1
    Grid.Select 1, 1
    Host.Focus = "grid"
    Host.Pump 10
End Sub

Sub Play(gesture)
    Select Case gesture
    Case "pointer"
        Host.Click X(3), Y(5)
        ' Long enough for the timer of a drag that is past the edge.
        If InStr(target, "Scroll") > 0 Then Host.RestDrag 600 Else Host.RestDrag 120
        Host.Drag X(2), Y(4), X(4), Host.Height + 20
        Host.DoubleClick X(2), Y(3)
        Host.Click X(3), Y(3), 2
    Case "edges"
        Host.Drag X(2) + 37, Y(0), X(3), Y(0)
        Host.Drag X(0) + 38, Y(5), X(2) + 10, Y(5)
    Case "headers"
        Host.Drag X(0), Y(3), X(0), Y(7) + 5
        Host.Drag X(2), Y(0), X(4) + 10, Y(0)
        Host.Click X(1), Y(0)
    Case "thumb"
        Host.Drag Host.Width - 8, 24, Host.Width - 8, 120
    Case "keys"
        Host.Type "ro{ENTER}ro{DOWN}+{DOWN}^{END}{PGUP}"
        Host.Focus = "field"
        If happened = 0 Then Host.Focus = "grid"
    End Select
End Sub

Function X(col)
    X = col * colWidth + colWidth / 2
End Function

Function Y(row)
    Y = row * rowHeight + rowHeight / 2
End Function

Sub Act(name)
    If Not playing Or name <> target Then Exit Sub
    happened = happened + 1
    Select Case action
    Case "close"
        Host.CloseGrid
    Case "empty"
        Grid.Rows = 0
        Grid.Cols = 0
    Case "pump"
        If happened < 3 Then Host.Pump 20
    End Select
End Sub

Sub Grid_BeforeMouseDown(Button, Shift, X, Y, Cancel)
    Act "BeforeMouseDown"
End Sub

Sub Grid_MouseDown(Button, Shift, X, Y)
    Act "MouseDown"
End Sub

Sub Grid_MouseMove(Button, Shift, X, Y)
    Act "MouseMove"
End Sub

Sub Grid_MouseUp(Button, Shift, X, Y)
    Act "MouseUp"
End Sub

Sub Grid_Click
    Act "Click"
End Sub

Sub Grid_DblClick
    Act "DblClick"
End Sub

Sub Grid_BeforeScroll(OldTopRow, OldLeftCol, NewTopRow, NewLeftCol, Cancel)
    Act "BeforeScroll"
End Sub

Sub Grid_AfterScroll(OldTopRow, OldLeftCol, NewTopRow, NewLeftCol)
    Act "AfterScroll"
End Sub

Sub Grid_LeaveCell
    Act "LeaveCell"
End Sub

Sub Grid_BeforeRowColChange(OldRow, OldCol, NewRow, NewCol, Cancel)
    Act "BeforeRowColChange"
End Sub

Sub Grid_AfterRowColChange(OldRow, OldCol, NewRow, NewCol)
    Act "AfterRowColChange"
End Sub

Sub Grid_BeforeSelChange(OldRowSel, OldColSel, NewRowSel, NewColSel, Cancel)
    Act "BeforeSelChange"
End Sub

Sub Grid_AfterSelChange(OldRowSel, OldColSel, NewRowSel, NewColSel)
    Act "AfterSelChange"
End Sub

Sub Grid_EnterCell
    Act "EnterCell"
End Sub

Sub Grid_RowColChange
    Act "RowColChange"
End Sub

Sub Grid_SelChange
    Act "SelChange"
End Sub

Sub Grid_BeforeUserResize(Row, Col, Cancel)
    Act "BeforeUserResize"
End Sub

Sub Grid_AfterUserResize(Row, Col)
    Act "AfterUserResize"
End Sub

Sub Grid_AfterUserFreeze
    Act "AfterUserFreeze"
End Sub

Sub Grid_BeforeMoveRow(Row, Position)
    Act "BeforeMoveRow"
End Sub

Sub Grid_AfterMoveRow(Row, Position)
    Act "AfterMoveRow"
End Sub

Sub Grid_BeforeMoveColumn(Col, Position)
    Act "BeforeMoveColumn"
End Sub

Sub Grid_AfterMoveColumn(Col, Position)
    Act "AfterMoveColumn"
End Sub

Sub Grid_BeforeSort(Col, Order)
    If target = "Compare" Then Order = lorvSortCustom
    Act "BeforeSort"
End Sub

Sub Grid_Compare(Row1, Row2, Cmp)
    Act "Compare"
End Sub

Sub Grid_AfterSort(Col, Order)
    Act "AfterSort"
End Sub

Sub Grid_BeforeScrollTip(Row)
    Act "BeforeScrollTip"
End Sub

Sub Grid_KeyDown(KeyCode, Shift)
    Act "KeyDown"
End Sub

Sub Grid_KeyPress(KeyAscii)
    Act "KeyPress"
End Sub

Sub Grid_KeyUp(KeyCode, Shift)
    Act "KeyUp"
End Sub

Sub Grid_StartAutoSearch
    Act "StartAutoSearch"
End Sub

Sub Grid_EndAutoSearch
    Act "EndAutoSearch"
End Sub

Sub Grid_SetFocus
    Act "SetFocus"
End Sub

Sub Grid_KillFocus
    Act "KillFocus"
End Sub
