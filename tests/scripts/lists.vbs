' Lists, masks and what programs ask of them; a list made from the system's recordset.
Option Explicit

Dim Grid, failures
Set Grid = CreateObject("LorvGrid8.LorvGridL")
failures = 0

Sub Check(what, actual, expected)
    If actual = expected Then Exit Sub
    failures = failures + 1
    WScript.Echo what & ": " & actual & " instead of " & expected
End Sub

Function CodeOf
    CodeOf = Hex(Err.Number) ' a script sees the low half of the code
    Err.Clear
End Function

Grid.ColComboList(1) = "#1;One|#2;Two"
Grid.TextMatrix(1, 1) = "2"
Check "stored key", Grid.TextMatrix(1, 1), "2"
Check "shown text", Grid.Cell(19, 1, 1), "Two"

On Error Resume Next
Grid.ComboList = "#1*5;a"
Check "code of a bad list", CodeOf, "17C"
Grid.ColComboList(99) = "a"
Check "code of a bad column", CodeOf, "17D"
Grid.ColComboList(1) = "#1*5;a"
Check "code of a bad list of a column", CodeOf, "17C"
Check "text of the members", Grid.BuildComboList(Nothing, "name"), ""
CodeOf
Check "list that was kept", Grid.ColComboList(1), "#1;One|#2;Two"
Check "no window", Grid.ComboCount, -1
Check "no item", Grid.ComboItem(0), ""
Check "no index", Grid.ComboIndex, -1

Grid.EditMask = "(###) ###"
Check "mask", Grid.EditMask, "(###) ###"
Grid.ColEditMask(-1) = "00"
Check "mask of a column", Grid.ColEditMask(2), "00"
CodeOf

' The system's recordset, where there is one that can be filled.
Dim ado
Set ado = CreateObject("ADODB.Recordset")
If Err.Number = 0 Then
    ado.Fields.Append "id", 3
    ado.Fields.Append "name", 200, 40
    ado.Open
    ado.AddNew
    ado.Fields.Item("id").Value = 1
    ado.Fields.Item("name").Value = "One"
    ado.Update
    ado.MoveFirst
    If Err.Number = 0 Then
        Check "list of the system's records", Grid.BuildComboList(ado, "name", "id"), "#1;One"
    Else
        WScript.Echo "the system's recordset cannot be filled: " & CodeOf
    End If
Else
    WScript.Echo "the system has no recordset: " & CodeOf
End If

If failures > 0 Then WScript.Quit 1
