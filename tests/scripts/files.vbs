' Saving and loading as a script host does it: the grid's own file, text with its options, and what goes wrong.
Option Explicit

Const fileAll = 0, fileData = 1, fileFormat = 2, fileComma = 3, fileTab = 4, fileCustom = 5, fileExcel = 6
Const cpChecked = 5, cpBackColor = 6, cpFontBold = 13

Dim failures, files, folder, grid, other
failures = 0
Set files = CreateObject("Scripting.FileSystemObject")
' Some systems hand out the terminator as well.
folder = Replace(CreateObject("WScript.Shell").ExpandEnvironmentStrings("%TEMP%"), Chr(0), "") & "\lorv_files_script"
If Not files.FolderExists(folder) Then files.CreateFolder folder

Sub Check(what, actual, expected)
    If actual <> expected Then
        WScript.Echo "FAIL " & what & ": " & actual & " instead of " & expected
        failures = failures + 1
    End If
End Sub

' Hosts see the low word of a failure code as the number of the error.
Sub CheckFails(what, expected)
    Check what, Err.Number And &HFFFF&, expected
    Err.Clear
End Sub

Function ReadFile(name)
    Dim stream
    Set stream = files.OpenTextFile(folder & "\" & name, 1)
    ReadFile = stream.ReadAll
    stream.Close
End Function

Function NewGrid(rows, cols)
    Set NewGrid = CreateObject("LorvGrid8.LorvGridL")
    NewGrid.Rows = rows
    NewGrid.Cols = cols
End Function

Set grid = NewGrid(4, 3)
grid.TextMatrix(0, 1) = "Name"
grid.TextMatrix(1, 1) = "one"
grid.TextMatrix(2, 2) = "a,""b"""
grid.Cell(cpChecked, 3, 1) = 4
grid.Cell(cpBackColor, 1, 2) = 255
grid.Cell(cpFontBold, 1, 2) = True
grid.RowData(2) = 2.5
grid.ColKey(2) = "second"
grid.ColFormat(2) = "0.00"
grid.ColHidden(2) = True
grid.MergeCells = 2
grid.MergeCellsFixed = 1

' The grid's own file
grid.SaveGrid folder & "\all.lv", fileAll
grid.SaveGrid folder & "\format.lv", fileFormat
Check "size of a format", files.GetFile(folder & "\format.lv").Size, 196
Set other = NewGrid(9, 9)
other.LoadGrid folder & "\all.lv", fileAll
Check "Rows", other.Rows, 4
Check "Cols", other.Cols, 3
Check "TextMatrix", other.TextMatrix(2, 2), "a,""b"""
Check "CellChecked", other.Cell(cpChecked, 3, 1), 4
Check "CellBackColor", other.Cell(cpBackColor, 1, 2), 255
Check "CellFontBold", other.Cell(cpFontBold, 1, 2), True
Check "RowData", other.RowData(2), 2.5
Check "ColIndex", other.ColIndex("second"), 2
Check "ColFormat", other.ColFormat(2), "0.00"
Check "ColHidden", other.ColHidden(2), True
Check "MergeCells", other.MergeCells, 2
Check "MergeCellsFixed", other.MergeCellsFixed, 1
Check "Row", other.Row, 1
Check "RowStatus", other.RowStatus(3), 1
Set other = NewGrid(9, 9)
other.LoadGrid folder & "\all.lv", fileFormat
Check "Rows after a format", other.Rows, 9
Check "MergeCells after a format", other.MergeCells, 2

' Text
grid.SaveGrid folder & "\comma.txt", fileComma
Check "comma text", ReadFile("comma.txt"), "one," & vbCrLf & ",""a,""""b""""""" & vbCrLf & ","
grid.SaveGrid folder & "\visible.txt", fileTab, "fv"
Check "visible text", ReadFile("visible.txt"), vbTab & "Name" & vbTab & vbCrLf & vbTab & "one" & vbTab & vbCrLf & _
    vbTab & vbTab & vbCrLf & vbTab & vbTab
grid.ClipSeparators = ";|"
grid.SaveGrid folder & "\custom.txt", fileCustom, True
Check "custom text", ReadFile("custom.txt"), ";Name;|;one;|;;""a,""""b""""""|;;"
Set other = NewGrid(1, 1)
other.ClipSeparators = ";|"
other.LoadGrid folder & "\custom.txt", fileCustom, True
Check "Rows of custom text", other.Rows, 4
Check "custom text read back", other.TextMatrix(2, 2), "a,""b"""

' A kind without a name: UTF-16 with the grid's separators, read back only as custom text
grid.TextMatrix(1, 1) = Chr(128)
grid.SaveGrid folder & "\wide.txt", 7, 1
other.LoadGrid folder & "\wide.txt", 7, 1
Check "read as tabs", InStr(other.TextMatrix(0, 0), "|") > 0, True
other.LoadGrid folder & "\wide.txt", fileCustom, 1
Check "read as it was saved", other.TextMatrix(1, 1), Chr(128)

' What goes wrong
On Error Resume Next
grid.SaveGrid folder & "\x", 8
CheckFails "an unknown kind", 380
grid.LoadGrid folder & "\x", -1
CheckFails "an unknown kind", 380
grid.LoadGrid folder & "\missing", fileAll
CheckFails "a file that is not there", 53
grid.SaveGrid folder, fileAll
CheckFails "a folder", 70
grid.LoadGrid folder & "\comma.txt", fileAll
CheckFails "a text as a grid file", 321
grid.SaveGrid folder & "\x", fileExcel
Check "a workbook", Err.Number <> 0, True
Err.Clear
Check "and nothing is written", files.FileExists(folder & "\x"), False
On Error GoTo 0

files.DeleteFolder folder
If failures > 0 Then WScript.Quit 1
