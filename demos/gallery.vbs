' The gallery: a picture of every look that the grid has, with a page that shows them by family.
' gridhost demos\gallery.vbs --out build\gallery -- build\gallery [FAMILY]
' gridhost demos\gallery.vbs --classic --out build\gallery\classic -- build\gallery\classic [FAMILY]
' The first has the headers, boxes and buttons of the system's theme, the second those of a host without one.
Option Explicit

Dim page, family, shots, missing, stamp
Set stamp = Nothing
shots = 0
missing = 0

OpenPage
MakeStamp

' What a build of the control does not have yet leaves its picture plain.
On Error Resume Next

Begin "grid-lines", "Grid lines, scrollable and fixed cells"
Dim style
For style = 0 To 14
    Base
    Grid.GridLines = style
    Grid.GridLinesFixed = style
    Shot NameAt("none flat inset raised flat-horz inset-horz raised-horz skip-horz flat-vert inset-vert raised-vert skip-vert explorer excel data-grid", style)
Next
Base
Grid.GridLineWidth = 4
Grid.GridColor = RGB(0, 120, 200)
Shot "wide"

Begin "text", "Text styles, alignments, wrapping"
Base
For style = 0 To 4
    Grid.TextMatrix(style + 1, 1) = "Style " & style
    Grid.Cell(lorvcpTextStyle, style + 1, 1) = style
    Grid.Cell(lorvcpFontSize, style + 1, 1) = 12
Next
Grid.BackColor = RGB(192, 192, 192)
TallRows 420
Shot "styles"
Base
TallRows 720
For style = 0 To 8
    Grid.TextMatrix(1 + style Mod 3, 1 + style \ 3) = "Text " & style
    Grid.Cell(lorvcpAlignment, 1 + style Mod 3, 1 + style \ 3) = style
Next
Shot "alignments"
Base
TallRows 720
Grid.WordWrap = True
Grid.TextMatrix(1, 1) = "A sentence that needs more than one line of its cell"
Shot "word-wrap"
Base
Grid.TextMatrix(1, 1) = "A text that is far too long for its cell"
Grid.TextMatrix(2, 1) = "C:\folder\another folder\file of some name.txt"
Grid.Ellipsis = lorvEllipsisEnd
Shot "ellipsis-end"
Grid.Ellipsis = lorvEllipsisPath
Shot "ellipsis-path"
Base
Grid.ColIndent(1) = 300
Grid.ColFormat(2) = "($#,###.00)"
Grid.TextMatrix(1, 2) = "1234.5"
Grid.TextMatrix(2, 2) = "-1234.5"
Shot "indent-parentheses"

Begin "colours", "Colours, floods, borders"
Base
Grid.BackColorAlternate = RGB(225, 235, 250)
Shot "alternate"
Base
For style = 1 To 6
    Grid.Cell(lorvcpFloodPercent, style, 1) = style * 15
    Grid.Cell(lorvcpFloodPercent, style, 2) = -style * 15
    Grid.Cell(lorvcpFloodColor, style, 2) = RGB(90, 160, 90)
Next
Shot "floods"
Base
Grid.Cell(lorvcpBackColor, 2, 2, 3, 3) = RGB(255, 240, 190)
Grid.Cell(lorvcpForeColor, 4, 1, 4, 4) = RGB(200, 0, 0)
Grid.Cell(lorvcpFontBold, 4, 1, 4, 4) = True
Shot "cells"
Base
Grid.Select 2, 1, 2, 1
Grid.CellBorder RGB(200, 0, 0), 1, 1, 1, 1, 0, 0
Grid.Select 2, 3, 2, 3
Grid.CellBorder RGB(0, 0, 200), 3, 3, 3, 3, 0, 0
Grid.Select 5, 1, 5, 3
Grid.CellBorder RGB(0, 120, 0), 0, 100, 0, 100, 0, 0
Grid.Select 7, 4, 7, 4
Shot "borders"

Begin "selection", "Selection and focus"
For style = 0 To 3
    Base
    Grid.SelectionMode = style
    Grid.Select 2, 2, 4, 3
    Shot NameAt("free by-row by-column list-box", style)
Next
For style = 0 To 5
    Base
    Grid.FocusRect = style
    Grid.Select 3, 2
    Host.Pump 50
    Shot "focus-" & NameAt("none light heavy solid raised inset", style)
Next

Begin "boxes", "Check boxes, pictures, buttons"
Base
For style = 1 To 7
    Grid.Cell(lorvcpChecked, style, 1) = style
    Grid.TextMatrix(style, 1) = "State " & style
Next
Grid.ColDataType(2) = lorvDTBoolean
Shot "check-boxes"
Base
TallRows 720
For style = 0 To 10
    Set Grid.Cell(lorvcpPicture, 1 + style Mod 4, 1 + style \ 4) = stamp
    Grid.Cell(lorvcpPictureAlignment, 1 + style Mod 4, 1 + style \ 4) = style
Next
Shot "pictures"

Begin "buttons", "Cell buttons, sort marks"
For style = 0 To 2
    ButtonSheet
    Grid.ShowComboButton = style
    Grid.Select 2, 1
    Host.Pump 50
    Shot NameAt("editing focus always", style)
Next
Grid.Select 2, 1
Grid.EditCell
Host.Pump 50
Shot "edited"
Host.Type "{ESC}"
ButtonSheet
Set Grid.CellButtonPicture = stamp
Grid.RightToLeft = True
Shot "right-to-left"
Grid.RightToLeft = False
Base
For style = 1 To 4
    Grid.ColAlignment(style) = NameAt("1 1 4 7 1", style)
Next
Grid.ExplorerBar = lorvExSortShow
Host.Pump 50
Host.Click 60, 8
Host.Pump 50
Shot "ascending"
Host.Click 140, 8
Host.Pump 50
Host.Click 141, 8
Host.Pump 50
Shot "descending-centred"
Host.Click 225, 8
Host.Pump 50
Shot "ascending-right"
Set Grid.SortAscendingPicture = stamp
Shot "picture"
Set Grid.SortAscendingPicture = Nothing
Host.MoveMouse 140, 8
Host.Pump 50
Shot "hot-header"
Host.MoveMouse 140, 210

Begin "frame", "Appearance, headers, frozen cells, wallpaper"
For style = 0 To 3
    Base
    Grid.Appearance = style
    Shot "appearance-" & NameAt("flat 3d 3d-light themes", style)
Next
Base
Grid.BorderStyle = lorvBorderNone
Shot "no-border"
Base
Grid.FrozenRows = 2
Grid.FrozenCols = 1
Grid.BackColorFrozen = RGB(235, 250, 235)
Shot "frozen"
Base
Grid.AllowUserFreezing = lorvFreezeBoth
Shot "may-freeze"
Base
Grid.RightToLeft = True
Shot "right-to-left"
Base
Grid.ExtendLastCol = True
Shot "extended"
Base
Set Grid.WallPaper = stamp
Grid.WallPaperAlignment = lorvPicAlignTile
Shot "wallpaper"
Base
Grid.MergeCells = lorvMergeFree
Grid.MergeCol(1) = True
Grid.MergeRow(0) = True
For style = 1 To 4
    Grid.TextMatrix(style, 1) = "Merged"
Next
Grid.TextMatrix(0, 2) = "Wide header"
Grid.TextMatrix(0, 3) = "Wide header"
Shot "merged"

ClosePage
Host.Echo "pictures:", shots, "steps that failed:", missing
Host.Quit

' A small picture for the cells that show pictures: what the grid itself looks like with four tiny cells.
Sub MakeStamp
    On Error Resume Next
    Grid.Rows = 2
    Grid.Cols = 2
    Grid.FixedRows = 0
    Grid.FixedCols = 0
    Grid.RowHeight(-1) = 120
    Grid.ColWidth(-1) = 120
    Grid.BackColor = RGB(90, 150, 220)
    Grid.GridColor = RGB(20, 60, 120)
    Set stamp = Grid.Picture
    If Err.Number <> 0 Then missing = missing + 1
    Err.Clear
End Sub

' The sheet that every picture starts from.
Sub Base
    Dim row, col
    On Error Resume Next
    Grid.Redraw = lorvRDNone
    ResetLook
    Grid.Rows = 0
    Grid.Cols = 0
    Grid.Cols = 5
    Grid.Rows = 9
    Grid.FixedRows = 1
    Grid.FixedCols = 1
    For col = 1 To 4
        Grid.TextMatrix(0, col) = NameAt("- Name Amount City Note", col)
        Grid.ColWidth(col) = 1300
    Next
    Grid.ColWidth(0) = 500
    For row = 1 To 8
        Grid.TextMatrix(row, 0) = row
        Grid.TextMatrix(row, 1) = NameAt("- Ann Bob Cleo Dan Eve Finn Gus Hal", row)
        Grid.TextMatrix(row, 2) = row * 375.25
        Grid.TextMatrix(row, 3) = NameAt("- Oslo Rome Lima Kyiv Bern Riga Doha Male", row)
    Next
    Grid.Select 1, 1
    Grid.Redraw = lorvRDDirect
    Err.Clear
End Sub

' Lists in three columns: values to choose from, and the two kinds of buttons with dots.
Sub ButtonSheet
    Base
    Grid.Editable = 1
    Grid.ShowComboButton = lorvSBAlways
    Grid.ColComboList(1) = "Ann|Bob|Cleo"
    Grid.ColComboList(2) = "..."
    Grid.ColComboList(3) = "|..."
End Sub

' Every property that a picture may have changed.
Sub ResetLook
    On Error Resume Next
    Grid.FrozenRows = 0
    Grid.FrozenCols = 0
    Grid.Appearance = lorvXPThemes
    Grid.BorderStyle = lorvBorderFlat
    Grid.RightToLeft = False
    Grid.ExtendLastCol = False
    Grid.WordWrap = False
    Grid.Ellipsis = 0
    Grid.GridLines = lorvGridFlat
    Grid.GridLinesFixed = lorvGridInset
    Grid.GridLineWidth = 1
    Grid.GridColor = RGB(192, 192, 192)
    Grid.BackColor = RGB(255, 255, 254)
    Grid.BackColorAlternate = 0
    Grid.BackColorFrozen = 0
    Grid.SelectionMode = 0
    Grid.FocusRect = lorvFocusLight
    Grid.Editable = 0
    Grid.ShowComboButton = lorvSBFocus
    Grid.ExplorerBar = 0
    Grid.MergeCells = 0
    Grid.AllowUserFreezing = 0
    Set Grid.CellButtonPicture = Nothing
    Set Grid.WallPaper = Nothing
End Sub

Sub TallRows(height)
    On Error Resume Next
    Dim row
    For row = 1 To Grid.Rows - 1
        Grid.RowHeight(row) = height
    Next
End Sub

Sub Begin(name, title)
    family = name
    page.WriteLine "<h2>" & title & "</h2>"
End Sub

Sub Shot(name)
    Dim file
    If Host.Argument(1) <> "" And Host.Argument(1) <> family Then Exit Sub
    If Err.Number <> 0 Then
        missing = missing + 1
        Host.Echo family, name, Err.Description
        Err.Clear
    End If
    file = family & "-" & name & ".png"
    Host.Pump 20
    Host.Screenshot file, "client"
    page.WriteLine "<figure><img src=""" & file & """><figcaption>" & name & "</figcaption></figure>"
    shots = shots + 1
End Sub

Function NameAt(names, index)
    Dim list
    list = Split(names)
    NameAt = list(index)
End Function

Sub OpenPage
    Dim files, folder
    Set files = CreateObject("Scripting.FileSystemObject")
    folder = Host.Argument(0)
    If folder = "" Then folder = "."
    If Not files.FolderExists(folder) Then files.CreateFolder folder
    Set page = files.CreateTextFile(folder & "\index.html", True)
    page.WriteLine "<!DOCTYPE html><title>Grid gallery</title>"
    page.WriteLine "<style>body{font-family:sans-serif}figure{display:inline-block;margin:8px}</style>"
    Host.Resize 420, 220
End Sub

Sub ClosePage
    page.Close
End Sub
