' Sorting and searching as a script uses them.
Option Explicit

Dim failures, grid
failures = 0

Sub Check(what, actual, expected)
    If actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

Sub CheckFails(what, code)
    Check what, Err.Number And &HFFFF&, code
    Err.Clear
End Sub

Sub Fill(texts)
    Dim i, parts
    parts = Split(texts, " ")
    grid.Rows = UBound(parts) + 2
    For i = 0 To UBound(parts)
        grid.TextMatrix(i + 1, 1) = parts(i)
    Next
    grid.Select 1, 1
End Sub

Function Order()
    Dim row, texts
    For row = 1 To grid.Rows - 1
        texts = texts & " " & grid.TextMatrix(row, 1)
    Next
    Order = Mid(texts, 2)
End Function

Const NumericAscending = 3, NumericDescending = 4, StringNoCaseAscending = 5, StringDescending = 8
Const UseColSort = 10, cpSort = 28

Set grid = CreateObject("LorvGrid8.LorvGridL")

Fill "10 9 100 1"
grid.Sort = NumericAscending
Check "every row", Order(), "1 9 10 100"
grid.Sort = 0
Check "no order", Order(), "1 9 10 100"
grid.Sort = "4"
Check "an order as text", Order(), "100 10 9 1"
grid.Select 2, 1, 4, 1
grid.Sort = NumericAscending
Check "selected rows", Order(), "100 1 9 10"
grid.Select 1, 1
grid.Cell(cpSort, 1, 1, 2, 1) = NumericAscending
Check "rows of Cell", Order(), "1 100 9 10"

Fill "pear Apple fig apple"
grid.Sort = StringNoCaseAscending
Check "without case", Order(), "Apple apple fig pear"
grid.ColSort(1) = StringDescending
grid.Sort = UseColSort
Check "the column's order", Order(), "pear fig Apple apple"
Check "ColSort", grid.ColSort(1), StringDescending

Fill "5 4 3 2 1"
grid.IsSubtotal(3) = True
grid.Sort = NumericAscending
Check "around a subtotal", Order(), "4 5 3 1 2"
grid.IsSubtotal(3) = False

Fill "pear Apple fig apple"
Check "FindRow", grid.FindRow("fig", 0, 1), 3
Check "FindRow, case", grid.FindRow("APPLE", , 1), -1
Check "FindRow, no case", grid.FindRow("APPLE", , 1, False), 2
Check "FindRow, beginning", grid.FindRow("app", 1, 1, True, False), 4
Check "FindRow, empty", grid.FindRow("", 0, 1), -1
grid.RowData(2) = "key"
Check "FindRow, data", grid.FindRow("key"), 2
Check "FindRow, data of another type", grid.FindRow(5), -1
Check "FindRowRegex", grid.FindRowRegex("^[a-f]", -1, 1), 3

On Error Resume Next
grid.Sort = 11
CheckFails "Sort = 11", 380
grid.ColSort(1) = 11
CheckFails "ColSort = 11", 380
grid.ColSort(99) = 1
CheckFails "ColSort(99)", 381
grid.Cell(cpSort, 1, 1, 99, 1) = 1
CheckFails "Cell outside", 381
Dim found
found = grid.FindRow("fig", 0, 99)
CheckFails "FindRow in a column outside", 381
found = grid.FindRowRegex("fig", 0, 99)
CheckFails "FindRowRegex in a column outside", 381

If failures > 0 Then WScript.Quit 1
