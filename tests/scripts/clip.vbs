' Clip strings and FormatString from VBScript: texts through variables, rows and columns read back.
Option Explicit

Dim failures, grid, text
failures = 0

Sub Check(what, actual, expected)
    If actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

Function Cells(row)
    Dim col
    For col = 1 To 3
        Cells = Cells & grid.TextMatrix(row, col) & "/"
    Next
End Function

Const cpText = 0
Set grid = CreateObject("LorvGrid8.LorvGridL")

' The longer forms of FormatString.
text = "|<Name|>Amount|^Date;|1|2|3|4|5|6" & vbLf & vbLf & vbLf & _
       "1440" & vbTab & "7" & vbTab & "4" & vbTab & "#,##0.00" & vbTab & vbTab & vbTab & "5" & vbTab & "0" & vbTab
grid.Rows = 3
grid.FormatString = text
Check "FormatString", grid.FormatString, text
Check "rows", grid.Rows, 7
Check "row title", grid.TextMatrix(6, 0), "6"
Check "alignments", grid.ColAlignment(1) & grid.ColAlignment(2) & grid.ColAlignment(3), "174"
Check "fixed alignment", grid.FixedAlignment(2), 4
Check "width", grid.ColWidth(2), 1440
Check "format", grid.ColFormat(2), "#,##0.00"
Check "type", grid.ColDataType(2), 5
grid.FormatString = "=a|b|a far wider title than the others"
Check "equal widths", grid.ColWidth(1), grid.ColWidth(2)
Check "kept title", grid.TextMatrix(0, 3), "Date"
grid.FormatString = "(Format)" & Chr(11) & "2" & Chr(11) & vbTab & Chr(11) & "900" & vbTab & "1" & vbTab & Chr(11) & _
                    "(Text)" & Chr(11) & "corner" & vbTab & "two" & vbLf & "lines" & Chr(11)
Check "record form, width", grid.ColWidth(1), 900
Check "record form, text", grid.TextMatrix(0, 0), "corner"
Check "record form, height", grid.RowHeight(0) > grid.RowHeight(1), True

' Clip strings.
grid.Select 1, 1, 3, 3
text = "a" & vbTab & "b" & vbTab & "c" & vbCrLf & "d" & vbTab & vbTab & "f" & vbCrLf & "g"
grid.Clip = text
Check "first row", Cells(1), "a/b/c/"
Check "second row", Cells(2), "d//f/"
Check "third row", Cells(3), "g///"
Check "Clip", grid.Clip, "a" & vbTab & "b" & vbTab & "c" & vbCr & "d" & vbTab & vbTab & "f" & vbCr & "g" & vbTab & vbTab
grid.Clip = 12
Check "a number", Cells(1), "12/b/c/"

text = ",;"
grid.ClipSeparators = text
Check "ClipSeparators", grid.ClipSeparators, ",;"
grid.Clip = "1,2,3,4;5"
Check "surplus parts", Cells(1), "1/2/3/"
Check "fewer parts", Cells(2), "5//f/"
grid.Select 1, 1, 2, 2
Check "Clip of the range", grid.Clip, "1,2;5,"
Check "Cell", grid.Cell(cpText, 1, 1, 2, 2), "1,2;5,"
grid.Clip = Empty
Check "an empty value clears the current cell alone", Cells(1) & Cells(2), "/2/3/5//f/"
grid.Cell(cpText, 1, 1, 2, 3) = ""
Check "Cell clears them all", Cells(1) & Cells(2), "//////"

On Error Resume Next
grid.ClipSeparators = ";"
Check "one separator", Err.Number And &HFFFF&, 380
Err.Clear
grid.ClipSeparators = ",,"
Check "equal separators", Err.Number And &HFFFF&, 380
On Error Goto 0

Set grid = Nothing
If failures > 0 Then WScript.Quit 1
