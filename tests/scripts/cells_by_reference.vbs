' Arguments as programs hold them: in variables, in arrays, in parameters, in the properties of objects, and as
' Empty, Null or Nothing. A variable reaches the grid as a reference to it.
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

Class Place
    Public Row
    Public Col
End Class

Sub Write(ByRef row, ByRef col, ByRef text)
    grid.Cell(0, row, col) = text
End Sub

Function Read(row, col)
    Read = grid.Cell(0, row, col)
End Function

Set grid = CreateObject("LorvGrid8.LorvGridL")

Const cpText = 0, cpPicture = 3, cpChecked = 5, cpFont = 10, cpFontSize = 12, cpData = 20, cpCustomFormat = 21

' Whatever holds the number names the cell.
Dim setting, row, col, last, cells(1), at, text, number
setting = cpText : row = CLng(2) : col = "3" : last = 4.0 : text = "value"
grid.Cell(setting, row, col, last, last) = text
Check "first corner", grid.TextMatrix(2, 3), "value"
Check "last corner", grid.TextMatrix(4, 4), "value"
cells(0) = 5 : cells(1) = 6
grid.Cell(cpText, cells(0), cells(1)) = "array"
Check "elements of an array", Read(cells(0), cells(1)), "array"
Set at = New Place
at.Row = 7 : at.Col = 8
Write at.Row, at.Col, "object"
Check "properties of an object", Read(at.Row, at.Col), "object"
row = 3 : col = 4
Write row, col, text
Check "parameters", Read(row, col), "value"
Check "the variables stay", row + col, CInt(7)
number = 12.5
grid.Cell(cpText, row, col) = number
Check "a number as text", grid.TextMatrix(row, col), CStr(12.5)

' Values
number = "12"
grid.Cell(cpFontSize, row, col) = number
Check "size from a text", grid.Cell(cpFontSize, row, col), CSng(12)
number = True
grid.Cell(cpChecked, row, col) = number
Check "True checks", grid.Cell(cpChecked, row, col), CInt(1)
Set at = Nothing
Set grid.Cell(cpPicture, row, col) = at
Check "no picture", grid.Cell(cpPicture, row, col) Is Nothing, True
Dim font
Set font = grid.Cell(cpFont, row, col)
font.Italic = True
Set grid.Cell(cpFont, 1, 1) = font
Check "a font by Set", grid.Cell(14, 1, 1), True
grid.Cell(cpFont, 2, 1) = font
Check "a font without Set", grid.Cell(14, 2, 1), True
text = "1,1"
grid.Cell(cpCustomFormat, 9, 9) = text
Check "a format by name", grid.Cell(14, 9, 9), True
Dim list, kept
list = Array(1, "two", 3.0)
grid.Cell(cpData, row, col) = list
grid.RowData(row) = list
list(1) = "changed"
kept = grid.Cell(cpData, row, col)
Check "an array as data", kept(1), "two"
kept = grid.RowData(row)
Check "an array as row data", kept(1), "two"
grid.ColData(col) = Null
Check "Null as column data", IsNull(grid.ColData(col)), True

' Optional arguments: what was left out is not the same as Empty, which is the number 0.
Dim rows, nothingGiven
rows = grid.Rows
grid.AddItem "at the start", nothingGiven
Check "Empty is row 0", grid.TextMatrix(0, 0), "at the start"
last = rows
grid.AddItem "by variable", last
Check "row by variable", grid.TextMatrix(rows, 0), "by variable"
grid.AddItem "at the end", Null
Check "Null is no row", grid.TextMatrix(rows + 2, 0), "at the end"
last = 0
grid.RemoveItem last
Check "removed by variable", grid.TextMatrix(rows - 1, 0), "by variable"
Check "fixed row gone with it", grid.FixedRows, CLng(0)
grid.Row = 6
grid.TextMatrix(6, 0) = "current"
grid.RemoveItem "none"
Check "no number is the current row", grid.TextMatrix(6, 0), ""
row = 2 : col = 1
grid.TextMatrix(row, col) = "x"
grid.RowData(row) = 5
Dim where, what
where = "0" : what = 1.0
grid.Clear where, what
Check "text cleared", grid.TextMatrix(row, col), ""
Check "data kept", grid.RowData(row), CInt(5)
grid.Clear , what
Check "place left out", grid.RowData(row), CInt(5)
grid.Clear where
Check "everything cleared", IsEmpty(grid.RowData(row)), True

On Error Resume Next
where = 3
grid.Clear where
CheckFails "unknown place", &H17C&
row = -1
text = grid.Cell(cpText, row, 1)
CheckFails "row by variable outside", &H17D&
grid.Cell(cpText, 1, 1) = Null
Check "Null is no text", Err.Number <> 0, True
Err.Clear
On Error Goto 0

WScript.Quit failures
