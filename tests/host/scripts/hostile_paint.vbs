' Paints with a handler that does its worst inside them. Arguments: the action, OwnerDraw, Redraw.
Option Explicit

Dim action, happened, painting
action = Host.Argument(0)
happened = 0
painting = False

Dim row
Grid.Redraw = lorvRDNone
Grid.Cols = 6
Grid.Rows = 60
For row = 0 To 59
    Grid.TextMatrix(row, 1) = "Row " & row
Next
Grid.Editable = lorvEDKbd
Grid.ComboList = "one|two"
Grid.OwnerDraw = CInt(Host.Argument(1))
Grid.Redraw = CInt(Host.Argument(2))
Host.Focus = "grid"
Host.Pump 20
painting = True
Grid.Refresh
Host.Pump 50
Host.Check happened > 0, "nothing was painted"
painting = False

Sub Act
    If Not painting Then Exit Sub
    happened = happened + 1
    Select Case action
    Case "close"
        painting = False
        Host.CloseGrid
    Case "pump"
        If happened < 3 Then Host.Pump 10
    Case "refresh"
        If happened < 3 Then Grid.Refresh
    Case "change"
        If happened < 20 Then Change happened
    End Select
End Sub

' Something else each time.
Sub Change(step)
    Select Case step Mod 10
    Case 0
        Grid.Rows = Grid.Rows \ 2
    Case 1
        Grid.FixedRows = 2
    Case 2
        Grid.GridColor = RGB(step, 0, 0)
    Case 3
        Grid.FontSize = 8 + step
    Case 4
        Grid.MergeCells = lorvMergeSpill
    Case 5
        Grid.TopRow = 5
    Case 6
        Grid.Cols = 3 + step
    Case 7
        Grid.RightToLeft = Not Grid.RightToLeft
    Case 8
        Grid.AutoSize 0, Grid.Cols - 1
    Case 9
        Grid.Clear
    End Select
End Sub

Sub Grid_DrawCell(hDC, Row, Col, Left, Top, Right, Bottom, Done)
    If Grid.OwnerDraw <> 0 Then Act
End Sub

' A cell button asks for its list in the middle of a paint.
Sub Grid_BeforeEdit(Row, Col, Cancel)
    If Grid.OwnerDraw = 0 Then Act
End Sub
