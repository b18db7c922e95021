' Cells, rows and columns as a script uses them: arguments left out, numbers as doubles, strings for numbers,
' variables by reference.
Option Explicit

Dim failures, grid
failures = 0

Sub Check(what, actual, expected)
    If VarType(actual) <> VarType(expected) Then
        WScript.Echo "FAIL " & what & ": type " & VarType(actual) & " instead of " & VarType(expected)
        failures = failures + 1
    ElseIf actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

Sub CheckFails(what, code)
    Check what, CLng(Err.Number And &HFFFF&), CLng(code)
    Err.Clear
End Sub

Set grid = CreateObject("LorvGrid8.LorvGridL")

Const cpText = 0, cpAlignment = 2, cpChecked = 5, cpBackColor = 6, cpFontName = 11, cpFontBold = 13
Const cpValue = 18, cpData = 20, cpCustomFormat = 21, cpVariantValue = 26, cpRefresh = 27

' The range of Cell
Dim row, col
row = 2 : col = 3
grid.Cell(cpText, row, col) = "by reference"
Check "variables", grid.TextMatrix(2, 3), "by reference"
grid.Cell(cpText, "2", 3.0) = "converted"
Check "text and double", grid.TextMatrix(row, col), "converted"
grid.Row = 4 : grid.Col = 5
grid.Cell(cpText) = "current"
Check "nothing given", grid.TextMatrix(4, 5), "current"
grid.Cell(cpText, , 6) = "current row"
Check "row left out", grid.TextMatrix(4, 6), "current row"
Check "reading, row left out", grid.Cell(cpText, , 6), "current row"
grid.Cell(cpBackColor, 1, 1, 2, 2) = vbRed
Check "range", grid.Cell(cpBackColor, 2, 2), CLng(vbRed)
Check "never set", grid.Cell(cpBackColor, 3, 3), CLng(0)

' Values
grid.Cell(cpText, 1, 1, 2, 2) = "a" & vbTab & "b" & vbCr & "c" & vbTab & "d"
Check "spread", grid.TextMatrix(2, 1), "c"
Check "collected", grid.Cell(cpText, 1, 1, 2, 2), "a" & vbTab & "b" & vbCr & "c" & vbTab & "d"
grid.Cell(cpText, 1, 1) = "a" & vbTab & "b"
Check "whole", grid.TextMatrix(1, 1), "a" & vbTab & "b"
grid.Cell(cpChecked, 1, 1) = True
Check "checked", grid.Cell(cpChecked, 1, 1), CInt(1)
grid.Cell(cpAlignment, 1, 1) = "7"
Check "alignment", grid.Cell(cpAlignment, 1, 1), CInt(7)
grid.Cell(cpFontName, 1, 1) = "Courier New"
grid.Cell(cpFontBold, 1, 1) = True
Check "bold", grid.Cell(cpFontBold, 1, 1), True
Check "name", grid.Cell(cpFontName, 1, 1) <> "", True
grid.Cell(cpData, 1, 1, 1, 2) = row
Check "data", grid.Cell(cpData, 1, 2), CInt(2)
grid.Cell(cpCustomFormat, 3, 3) = "1,1"
Check "format copied", grid.Cell(cpAlignment, 3, 3), CInt(7)
grid.Cell(cpCustomFormat, 3, 3) = False
Check "format cleared", grid.Cell(cpCustomFormat, 3, 3), False
grid.TextMatrix(3, 3) = 12.5
Check "value", grid.Cell(cpValue, 3, 3), CDbl(12.5)
Check "number", grid.Cell(cpVariantValue, 3, 3), CDbl(12.5)
grid.TextMatrix(3, 3) = "word"
Check "word", grid.Cell(cpVariantValue, 3, 3), "word"
Check "value of a word", grid.ValueMatrix(3, 3), CDbl(0)
grid.Cell(cpRefresh, 1, 1) = Empty

Dim text
On Error Resume Next
grid.Cell(29, 1, 1) = 1
CheckFails "unknown setting", &H17C&
grid.Cell(cpText, 99, 1) = "x"
CheckFails "row outside", &H17D&
grid.Cell(cpAlignment, 1, 1) = 13
CheckFails "alignment outside", &H17C&
grid.Cell(cpValue, 1, 1) = 1
CheckFails "read-only setting", &H17C&
text = grid.Cell(cpRefresh, 1, 1)
CheckFails "write-only setting", &H17C&
text = grid.TextMatrix(-1, 1)
CheckFails "text outside", &H17D&
grid.CellAlignment = 13
CheckFails "current alignment outside", &H17C&
On Error Goto 0

' The current cell
grid.CellBackColor = vbBlue
Check "CellBackColor", CLng(grid.CellBackColor), CLng(vbBlue)
grid.CellFontSize = "12"
Check "CellFontSize", grid.CellFontSize, CSng(12)
grid.CellFloodPercent = 500
Check "CellFloodPercent", grid.CellFloodPercent, CInt(100)
grid.Text = 42
Check "Text", grid.Text, "42"
Check "Value", grid.Value, CDbl(42)
Check "default property", CStr(grid), "42"
grid.TextArray(4 * grid.Cols + 5) = "array"
Check "TextArray", grid.TextMatrix(4, 5), "array"
Set grid.CellPicture = Nothing

' Rows and columns
Dim rows
rows = grid.Rows
grid.AddItem "last" & vbTab & "row"
Check "added", grid.TextMatrix(rows, 1), "row"
grid.AddItem "second", 1
Check "inserted", grid.TextMatrix(1, 0), "second"
Check "moved down", grid.TextMatrix(3, 1), "c"
grid.RowPosition(1) = 5
Check "row moved", grid.TextMatrix(5, 0), "second"
grid.ColPosition(0) = 2
Check "column moved", grid.TextMatrix(5, 2), "second"
grid.RemoveItem 5
Check "removed", grid.Rows, CLng(rows + 1)
grid.RemoveItem
Check "removed the current one", grid.Rows, CLng(rows)
grid.RowData(-1) = "all"
Check "RowData", grid.RowData(rows - 1), "all"
grid.ColData(2) = 7
Check "ColData", grid.ColData(2), CInt(7)
Check "RowStatus outside", grid.RowStatus(-1), CLng(3)
grid.ColKey(2) = "Name"
Check "ColIndex", grid.ColIndex("NAME"), CLng(2)
Check "no such key", grid.ColIndex("none"), CLng(-1)
grid.ColHidden(3) = True
Check "ColHidden", grid.ColHidden(3), True
grid.RowHidden(2) = True
Check "RowHidden", grid.RowHidden(2), True
grid.ColAlignment(-1) = 4
Check "ColAlignment", grid.ColAlignment(9), CLng(4)
Check "FixedAlignment", grid.FixedAlignment(9), CLng(4)
grid.ColDataType(4) = 11
grid.Cell(cpChecked, 1, 4) = 0
Check "box of a boolean", grid.TextMatrix(1, 4), "0"
grid.TextMatrix(1, 4) = True
Check "value of a boolean", grid.ValueMatrix(1, 4), CDbl(-1)
grid.IsSubtotal(3) = True
grid.RowOutlineLevel(3) = -1
Check "RowOutlineLevel", grid.RowOutlineLevel(3), CInt(-1)
grid.Clear 1, 1
Check "text cleared", grid.TextMatrix(1, 4), ""
Check "data kept", grid.RowData(1), "all"
Check "subtotal kept", grid.IsSubtotal(3), True
grid.Clear
Check "data cleared", IsEmpty(grid.RowData(1)), True
Check "subtotal cleared", grid.IsSubtotal(3), False
Check "rows kept", grid.Rows, CLng(rows)

WScript.Quit failures
