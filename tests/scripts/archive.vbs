' Files kept in an archive, as a script uses them.
Option Explicit

Dim failures, grid, fso, shell, folder
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

Sub WriteText(name, text)
    Dim file
    Set file = fso.CreateTextFile(name, True)
    file.Write text
    file.Close
End Sub

Function ReadText(name)
    Dim file
    Set file = fso.OpenTextFile(name)
    ReadText = ""
    If Not file.AtEndOfStream Then ReadText = file.ReadAll
    file.Close
End Function

' Some systems hand out the terminator as well.
Function EnvironmentText(name)
    EnvironmentText = Replace(shell.ExpandEnvironmentStrings("%" & name & "%"), Chr(0), "")
End Function

Const arcAdd = 0, arcStore = 1, arcExtract = 2, arcDelete = 3
Const arcFileCount = 0, ArcFileName = 1, arcFileSize = 2, arcFileCompressedSize = 3, arcFileDate = 4

Set fso = CreateObject("Scripting.FileSystemObject")
Set shell = CreateObject("WScript.Shell")
Set grid = CreateObject("LorvGrid8.LorvGridL")
folder = EnvironmentText("TEMP") & "\lorv archive.test"
If fso.FolderExists(folder) Then fso.DeleteFolder folder, True
fso.CreateFolder folder
fso.CreateFolder folder & "\in"
fso.CreateFolder folder & "\out"
fso.CreateFolder folder & "\arc"

Dim arc, text, i, moment
arc = folder & "\arc\my.lzh"
text = ""
For i = 1 To 500
    text = text & "row " & i & vbTab & i * i & vbCrLf
Next
WriteText folder & "\in\text.txt", text
WriteText folder & "\in\empty.txt", ""
WriteText folder & "\in\one.txt", "1"

grid.Archive arc, folder & "\in\text.txt", arcAdd
grid.Archive arc, folder & "\in\empty.txt", arcAdd
grid.Archive arc, folder & "\in\one.txt", arcStore
Check "the temporary file has gone", fso.FileExists(folder & "\arc\my.@#$"), False
Check "nothing beside the folder whose name has a dot", fso.FileExists(fso.GetParentFolderName(folder) & "\lorv archive.@#$"), False
Check "count", grid.ArchiveInfo(arc, arcFileCount), 3
Check "type of count", VarType(grid.ArchiveInfo(arc, arcFileCount)), vbLong
Check "the last one leads", grid.ArchiveInfo(arc, ArcFileName, 0), "one.txt"
Check "then the one before", grid.ArchiveInfo(arc, ArcFileName, 1), "empty.txt"
Check "then the first", grid.ArchiveInfo(arc, ArcFileName, 2), "text.txt"
Check "type of name", VarType(grid.ArchiveInfo(arc, ArcFileName, 2)), vbString
Check "an index as text", grid.ArchiveInfo(arc, ArcFileName, "2"), "text.txt"
Check "size", grid.ArchiveInfo(arc, arcFileSize, 2), Len(text)
Check "packed", grid.ArchiveInfo(arc, arcFileCompressedSize, 2) < Len(text) / 2, True
Check "size of an empty file", grid.ArchiveInfo(arc, arcFileSize, 1), 0
Check "packed size of an empty file", grid.ArchiveInfo(arc, arcFileCompressedSize, 1), 0
Check "stored", grid.ArchiveInfo(arc, arcFileCompressedSize, 0), 1
moment = grid.ArchiveInfo(arc, arcFileDate, 2)
Check "type of date", VarType(moment), vbDate
Check "date", Abs(moment - fso.GetFile(folder & "\in\text.txt").DateLastModified) < 1.5 / 86400, True

grid.Archive arc, "TEXT.TXT", arcExtract
Check "a bare name comes out beside the archive", ReadText(folder & "\arc\TEXT.TXT"), text
grid.Archive arc, folder & "\out\text.txt", arcExtract
Check "a path comes out there", ReadText(folder & "\out\text.txt"), text
grid.Archive arc, folder & "\out\empty.txt", arcExtract
Check "an empty file", ReadText(folder & "\out\empty.txt"), ""
grid.Archive arc, folder & "\out\nothing.txt", arcExtract
Check "what is not there is no error", fso.FileExists(folder & "\out\nothing.txt"), False

WriteText folder & "\in\ONE.TXT", "eleven"
grid.Archive arc, folder & "\in\ONE.TXT", arcAdd
Check "added again", grid.ArchiveInfo(arc, arcFileCount), 3
grid.Archive arc, folder & "\out\one.txt", arcExtract
Check "the new one", ReadText(folder & "\out\one.txt"), "eleven"
grid.Archive arc, "Empty.txt", arcDelete
Check "deleted", grid.ArchiveInfo(arc, arcFileCount), 2
grid.Archive arc, "nothing", arcDelete
Check "nothing deleted", grid.ArchiveInfo(arc, arcFileCount), 2

Dim umlaut
umlaut = folder & "\in\" & Chr(228) & Chr(246) & " long name with spaces.txt"
WriteText umlaut, "umlaut"
grid.Archive arc, umlaut, arcAdd
Check "name with umlauts", grid.ArchiveInfo(arc, ArcFileName, 0), Chr(228) & Chr(246) & " long name with spaces.txt"
grid.Archive arc, folder & "\out\" & Chr(196) & Chr(214) & " LONG NAME WITH SPACES.TXT", arcExtract
Check "out again", ReadText(folder & "\out\" & Chr(196) & Chr(214) & " LONG NAME WITH SPACES.TXT"), "umlaut"

On Error Resume Next
grid.Archive arc, UCase(arc), arcAdd
CheckFails "the archive into itself", &H141
grid.Archive arc, folder & "\in\text.txt", 4
CheckFails "an unknown action", 380
grid.Archive arc, folder & "\in\text.txt", -1
CheckFails "a negative action", 380
grid.Archive arc, folder & "\in\missing.txt", arcAdd
CheckFails "no source", &H35
grid.Archive arc, folder & "\in", arcAdd
CheckFails "a folder as source", &H35
grid.Archive folder & "\arc\none.lzh", "a", arcExtract
CheckFails "no archive to extract from", &H35
grid.Archive folder & "\arc\none.lzh", "a", arcDelete
CheckFails "no archive to delete from", &H35
grid.Archive folder & "\arc", folder & "\in\text.txt", arcAdd
CheckFails "a folder as archive", &H35
grid.Archive folder & "\no such\a.lzh", folder & "\in\text.txt", arcAdd
CheckFails "no folder for the archive", &H35
grid.Archive arc, folder & "\no such\text.txt", arcExtract
CheckFails "no folder to extract to", &H141
grid.Archive arc, folder & "\out", arcExtract
Check "a folder that no entry is named as", Err.Number, 0
grid.Archive folder & "\in\text.txt", folder & "\in\one.txt", arcAdd
Check "what is no archive", (Err.Number And &HFFFF&) = &H141 Or (Err.Number And &HFFFF&) = &H35, True
Err.Clear
Check "and stays as it was", ReadText(folder & "\in\text.txt"), text
grid.Archive folder & "\arc\" & String(300, "n") & ".lzh", folder & "\in\text.txt", arcAdd
Check "a path that is too long", (Err.Number And &HFFFF&) = &H141 Or (Err.Number And &HFFFF&) = &H35, True
Err.Clear
grid.Archive "", "", arcAdd
CheckFails "no names: they are the same", &H141

i = grid.ArchiveInfo(folder & "\arc\none.lzh", arcFileCount)
CheckFails "no archive to count", &H141
i = grid.ArchiveInfo(folder & "\in\text.txt", arcFileCount)
CheckFails "no archive at all", &H141
i = grid.ArchiveInfo(arc, ArcFileName, 3)
CheckFails "an index that is too large", 381
i = grid.ArchiveInfo(arc, ArcFileName, -1)
CheckFails "a negative index", 381
i = grid.ArchiveInfo(arc, ArcFileName, "x")
CheckFails "an index that is no number", 381
i = grid.ArchiveInfo(arc, ArcFileName)
CheckFails "no index", 381
i = grid.ArchiveInfo(arc, 5, 0)
CheckFails "an unknown detail", 380
i = grid.ArchiveInfo(arc, 5, 99)
CheckFails "the index is looked at first", 381
On Error GoTo 0

grid.Archive folder & "\top.lzh", folder & "\in\text.txt", arcAdd
Check "in a folder whose name has a dot", grid.ArchiveInfo(folder & "\top.lzh", arcFileCount), 1

fso.DeleteFolder folder, True
If failures > 0 Then WScript.Quit 1
