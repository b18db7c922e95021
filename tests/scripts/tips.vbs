' Members of auto-search, tips and the explorer bar, as a script sees them.
Option Explicit

Dim grid, failures
failures = 0
Set grid = CreateObject("LorvGrid8.LorvGridL")

Expect "AutoSearch", grid.AutoSearch, 0
grid.AutoSearch = 2
Expect "AutoSearch set", grid.AutoSearch, 2
RefuseSearch 3
Expect "AutoSearch after a refusal", grid.AutoSearch, 2

Expect "AutoSearchDelay", grid.AutoSearchDelay, 2
grid.AutoSearchDelay = 0.5
Expect "AutoSearchDelay set", grid.AutoSearchDelay, 0.5
RefuseDelay -1

Expect "IsSearching", grid.IsSearching, False

Expect "ScrollTips", grid.ScrollTips, False
grid.ScrollTips = True
Expect "ScrollTips set", grid.ScrollTips, True
grid.ToolTips = True
Expect "ToolTips set", grid.ToolTips, True
grid.ScrollTips = False
Expect "ToolTips stays", grid.ToolTips, True

Expect "ToolTipText", grid.ToolTipText, ""
grid.ToolTipText = "a tip"
Expect "ToolTipText set", grid.ToolTipText, "a tip"
grid.ScrollTipText = "row 5"
Expect "ScrollTipText set", grid.ScrollTipText, "row 5"
Expect "ToolTipText alone", grid.ToolTipText, "a tip"

grid.ExplorerBar = &H1007
Expect "ExplorerBar keeps its upper bits", grid.ExplorerBar, &H1007
grid.ExplorerBar = 32771
Expect "all four", grid.ExplorerBar, 32771
RefuseExplorerBar 16
RefuseExplorerBar -1
RefuseExplorerBar 65536
Expect "ExplorerBar after refusals", grid.ExplorerBar, 32771

WScript.Quit failures

Sub Expect(what, value, wanted)
    If value = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo what & ": " & value & ", not " & wanted
End Sub

Sub RefuseExplorerBar(value)
    On Error Resume Next
    grid.ExplorerBar = value
    CheckRefused "ExplorerBar " & value
End Sub

Sub RefuseDelay(value)
    On Error Resume Next
    grid.AutoSearchDelay = value
    CheckRefused "AutoSearchDelay " & value
End Sub

Sub RefuseSearch(value)
    On Error Resume Next
    grid.AutoSearch = value
    CheckRefused "AutoSearch " & value
End Sub

' 0x800A017C
Sub CheckRefused(what)
    If Err.Number <> 380 Then
        failures = failures + 1
        WScript.Echo what & " gives " & Err.Number
    End If
    Err.Clear
End Sub
