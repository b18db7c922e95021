' The formats of columns: set one by one or all at once, read back as they were set, and what cells show under
' them.
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

' What a cell shows, where numbers are written the English way.
Sub CheckShown(format, text, expected)
    grid.ColFormat(1) = format
    grid.TextMatrix(1, 1) = text
    Check format & " of " & text, grid.Cell(19, 1, 1), expected
    Check format & " leaves the text", grid.TextMatrix(1, 1), text
End Sub

If CStr(1.5) = "1.5" Then
    CheckShown "#,##0", "1234.5", "1,235"
    CheckShown "#,##0", "no number", "no number"
    CheckShown "currency", "1234.5", "$1,234.50"
    CheckShown "0.00%", "0.5", "50.00%"
    CheckShown "#,##0,.0", "1234567", "1,234.6"
    CheckShown "000", "7", "007"
    CheckShown "($#,##0.00)", "-1234.5", "($1,234.50)"
    CheckShown "yyyy-mm-dd", "36526", "2000-01-01"
    CheckShown "h:mm", "12:00:00", "12:00"
    CheckShown "h:nn am/pm", "0.75", "6:00 PM"
    CheckShown "yyyy", "-657435", "-657435"
End If

grid.ColDataType(2) = 11
grid.ColFormat(2) = "Yes;No"
grid.TextMatrix(1, 2) = "-1"
grid.TextMatrix(2, 2) = "0"
Check "a true cell", grid.Cell(19, 1, 2), "Yes"
Check "a false cell", grid.Cell(19, 2, 2), "No"
Check "an empty cell", grid.Cell(19, 3, 2), "No"

WScript.Quit failures
