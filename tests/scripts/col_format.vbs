' The formats of columns: set one by one or all at once, read back as they were set.
Option Explicit

Dim failures, grid
failures = 0

Sub Check(what, actual, expected)
    If actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

Sub CheckRefused(what, col, reading)
    Dim text
    On Error Resume Next
    Err.Clear
    If reading Then
        text = grid.ColFormat(col)
    Else
        grid.ColFormat(col) = "0"
    End If
    Check what, Err.Number And &HFFFF&, &H17D&
    On Error Goto 0
End Sub

Set grid = CreateObject("LorvGrid8.LorvGridL")

Check "no format", grid.ColFormat(0), ""
grid.ColFormat(1) = "#,##0.00"
Check "one column", grid.ColFormat(1), "#,##0.00"
Check "its neighbour", grid.ColFormat(2), ""
grid.ColFormat("2") = "Currency"
Check "a column by text", grid.ColFormat(2.0), "Currency"

grid.ColFormat(-1) = "Yes;No"
Check "all columns, the first", grid.ColFormat(0), "Yes;No"
Check "all columns, the last", grid.ColFormat(grid.Cols - 1), "Yes;No"
grid.ColFormat(1) = ""
Check "cleared", grid.ColFormat(1), ""

CheckRefused "reading all", -1, True
CheckRefused "reading past the end", grid.Cols, True
CheckRefused "writing past the end", grid.Cols, False

' A format is not looked at when it is set.
grid.ColFormat(3) = "'[%%\"
Check "nonsense", grid.ColFormat(3), "'[%%\"

WScript.Quit failures
