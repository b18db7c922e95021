' The look, the switches, the extents and the texts of a grid, used as a script host uses them.
Option Explicit

Dim failures, grid, picture
failures = 0

Sub Check(what, actual, expected)
    If actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

' Hosts see the low word of a failure code as the number of the error.
Sub CheckCode(what, number, expected)
    Check what, number And &HFFFF&, expected
End Sub

Set grid = CreateObject("LorvGrid8.LorvGridL")

Check "Version", grid.Version, 802
Check "Rows", grid.Rows, 50
Check "Cols", grid.Cols, 10
Check "FixedRows", grid.FixedRows, 1
Check "GridLinesFixed", grid.GridLinesFixed, 2
Check "ScrollTrack", grid.ScrollTrack, True
Check "WordWrap", grid.WordWrap, False

' Colours: a new back colour clears the alternate one
grid.BackColorFixed = &H8000000F
Check "BackColorFixed", grid.BackColorFixed, &H8000000F
grid.BackColorFixed = -2147483633.0
Check "BackColorFixed", grid.BackColorFixed, &H8000000F
grid.BackColorAlternate = &HFF00 ' an Integer, and negative
Check "BackColorAlternate", grid.BackColorAlternate, &HFFFFFF00
grid.BackColorAlternate = &H00FF00&
Check "BackColorAlternate", grid.BackColorAlternate, &H00FF00&
grid.BackColor = &HC0FFFF
Check "BackColor", grid.BackColor, &HC0FFFF
Check "BackColorAlternate after BackColor", grid.BackColorAlternate, &HC0FFFF

' Switches and words
grid.WordWrap = True
Check "WordWrap", grid.WordWrap, True
grid.WordWrap = False
Check "WordWrap", grid.WordWrap, False
grid.GridLines = True
Check "GridLines = True", grid.GridLines, 1
grid.Editable = True
Check "Editable = True", grid.Editable, 1
grid.Editable = 5
Check "Editable = 5", grid.Editable, 1
grid.Redraw = 7
Check "Redraw = 7", grid.Redraw, 1
grid.Redraw = False
Check "Redraw = False", grid.Redraw, 0
grid.Redraw = True
Check "Redraw = True", grid.Redraw, 1

' The font
grid.FontName = "Tahoma"
grid.FontSize = 12
grid.FontBold = True
Check "Font.Name", grid.Font.Name, grid.FontName
Check "Font.Bold", grid.Font.Bold, True
grid.Font.Italic = True
Check "FontItalic", grid.FontItalic, True

' Extents and texts
grid.Rows = 200
grid.Cols = 5.0
grid.FixedRows = 2
grid.FixedCols = 0
grid.FrozenCols = 1
Check "Rows", grid.Rows, 200
Check "Cols", grid.Cols, 5
Check "FixedRows", grid.FixedRows, 2
Check "FixedCols", grid.FixedCols, 0
Check "FrozenCols", grid.FrozenCols, 1
Dim row, col, wrong
For row = 0 To 19
    For col = 0 To 4
        grid.TextMatrix(row, col) = row & "," & col
    Next
Next
wrong = 0
For row = 0 To 19
    For col = 0 To 4
        If grid.TextMatrix(row, col) <> row & "," & col Then wrong = wrong + 1
    Next
Next
Check "texts that differ", wrong, 0
Check "an empty cell", grid.TextMatrix(30, 2), ""
grid.Rows = 10
grid.Rows = 20
Check "a lost row", grid.TextMatrix(15, 2), ""
Check "a kept row", grid.TextMatrix(5, 2), "5,2"
grid.Row = 4
grid.Col = 3
Check "Row", grid.Row, 4
Check "Col", grid.Col, 3
grid.Select 7, 2, 5, 4
Dim row1, col1, row2, col2
row2 = "text"
grid.GetSelection row1, col1, row2, col2
Check "GetSelection", row1 & " " & col1 & " " & row2 & " " & col2, "5 2 7 4"
grid.CellBorder &H80000012, 1, 1, 1, 1, 0, 0

' Pictures
Set picture = Nothing
Set grid.WallPaper = picture
Check "WallPaper", grid.WallPaper Is Nothing, True

' Failures
On Error Resume Next
grid.FixedRows = 99
CheckCode "FixedRows = 99", Err.Number, 380
Err.Clear
grid.Rows = -1
CheckCode "Rows = -1", Err.Number, 380
Err.Clear
grid.GridLinesFixed = -1
CheckCode "GridLinesFixed = -1", Err.Number, 380
Err.Clear
grid.FocusRect = 6
CheckCode "FocusRect = 6", Err.Number, 380
Err.Clear
grid.Version = 801
CheckCode "Version = 801", Err.Number, 383
Err.Clear
grid.TextMatrix(20, 0) = "x"
CheckCode "TextMatrix(20, 0)", Err.Number, 381
Err.Clear
grid.Version = 802
CheckCode "Version = 802", Err.Number, 0
On Error Goto 0
Check "FixedRows", grid.FixedRows, 2
Check "Rows", grid.Rows, 20

grid.Rows = 0
Check "FixedRows of no rows", grid.FixedRows, 0
grid.Rows = 5
Check "FixedRows afterwards", grid.FixedRows, 0

Set grid = Nothing
If failures > 0 Then WScript.Quit 1
WScript.Quit 0
