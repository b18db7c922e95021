' Merging as a script host uses it: modes as numbers, permissions as booleans, ranges through variables.
Option Explicit

Dim failures, grid, r1, c1, r2, c2
failures = 0

Sub Check(what, actual, expected)
    If actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

Function RangeAt(row, col)
    grid.GetMergedRange row, col, r1, c1, r2, c2
    RangeAt = r1 & "," & c1 & "-" & r2 & "," & c2
End Function

Set grid = CreateObject("LorvGrid8.LorvGridL")
grid.Rows = 8
grid.Cols = 5
Dim row
For row = 1 To 7
    grid.TextMatrix(row, 1) = "Region " & (row - 1) \ 3
    grid.TextMatrix(row, 2) = "Town"
Next

Check "no mode", RangeAt(2, 1), "2,1-2,1"
grid.MergeCells = 1
Check "no permission", RangeAt(2, 1), "2,1-2,1"
grid.MergeCol(1) = True
Check "MergeCol", grid.MergeCol(1), True
Check "three rows", RangeAt(2, 1), "1,1-3,1"
Check "two rows of the next region", RangeAt(4, 1), "4,1-6,1"
grid.MergeCol(-1) = True
Check "a column that is all alike", RangeAt(7, 2), "1,2-7,2"

grid.MergeCells = 2 ' restrict rows
Check "second column follows the first", RangeAt(2, 2), "1,2-3,2"

grid.MergeCells = 123.0
Check "MergeCells", grid.MergeCells, 3
Check "MergeCellsFixed", grid.MergeCellsFixed, 2
grid.MergeCompare = "1" ' without case
grid.TextMatrix(2, 1) = "REGION 0"
grid.MergeCells = 1
Check "without case", RangeAt(1, 1), "1,1-3,1"
grid.MergeCompare = 0
Check "exactly", RangeAt(1, 1), "1,1-1,1"

grid.MergeCells = 6 ' spill
grid.MergeCol(-1) = False
grid.TextMatrix(1, 3) = "A text that is far wider than the default width of its column"
Check "a long text spills", RangeAt(1, 3), "1,3-1,4"

On Error Resume Next
grid.MergeCells = 8
Check "MergeCells = 8", Err.Number And &HFFFF&, 380
Err.Clear
grid.GetMergedRange 99, 0, r1, c1, r2, c2
Check "GetMergedRange 99", Err.Number And &HFFFF&, 381
On Error Goto 0

Set grid = Nothing
If failures > 0 Then WScript.Quit 1
WScript.Quit 0
