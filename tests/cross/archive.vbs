' Packs the files that list.txt names into archives: all of them into all.lzh, and each into one of its own.
Option Explicit

Dim fso, shell, grid, folder, list, line, number
Set fso = CreateObject("Scripting.FileSystemObject")
Set shell = CreateObject("WScript.Shell")
Set grid = CreateObject("LorvGrid8.LorvGridL")
' Some systems hand out the terminator as well.
folder = Replace(shell.ExpandEnvironmentStrings("%LORV_CROSS_FOLDER%"), Chr(0), "")

Const arcAdd = 0, arcStore = 1

Set list = fso.OpenTextFile(folder & "\list.txt")
number = 0
Do While Not list.AtEndOfStream
    line = list.ReadLine
    grid.Archive folder & "\all.lzh", folder & "\in\" & line, arcAdd
    grid.Archive folder & "\single" & number & ".lzh", folder & "\in\" & line, arcAdd
    grid.Archive folder & "\stored.lzh", folder & "\in\" & line, arcStore
    number = number + 1
Loop
list.Close
WScript.Echo number & " files packed"
