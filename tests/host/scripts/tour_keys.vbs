' Real keys and the wheel: what a person types reaches the cursor, the search and the focus.
Option Explicit

Dim log
log = ""

Grid.Cols = 5
Grid.Rows = 200
Grid.FixedRows = 1
Grid.FixedCols = 1
Dim row
For row = 1 To 199
    Grid.TextMatrix(row, 1) = "Row " & row
Next
Grid.TextMatrix(20, 1) = "Anton"
Grid.TextMatrix(60, 1) = "Berta"
Grid.TextMatrix(90, 1) = "Bernd"

' Typing seeks; a key that leads nowhere is dropped; Enter ends it.
Grid.AutoSearch = lorvSearchFromTop
Grid.Select 5, 1
log = ""
Host.Type "be"
Host.Check Grid.Row = 60, "typing be finds Berta, not row " & Grid.Row
Host.Check Grid.IsSearching, "the search runs"
Host.Check Grid.TopRow > 1, "the row found is in view"
Host.Type "x"
Host.Check Grid.Row = 60, "a key that leads nowhere leaves the row"
Host.Type "rn"
Host.Check Grid.Row = 90, "the next keys go on from what was found: row " & Grid.Row
Host.Check log = "start ", "the search has started once: " & log
Host.Type "{ENTER}"
Host.Check Not Grid.IsSearching, "Enter ends the search"
Host.Check log = "start end ", "and reports it: " & log
Host.Type "a"
Host.Check Grid.Row = 20, "typing a finds Anton: row " & Grid.Row
Host.Type "{DOWN}"
Host.Check Grid.Row = 21 And Not Grid.IsSearching, "an arrow ends the search"

' So do the other keys that move the cursor, and a press of any mouse button.
Dim keys, i
keys = Array("{UP}", "{LEFT}", "{RIGHT}", "{HOME}", "{END}", "{PGUP}", "{PGDN}", "{ESC}")
For i = 0 To UBound(keys)
    Grid.Select 5, 1
    log = ""
    Host.Type "be" & keys(i)
    Host.Check log = "start end ", keys(i) & " ends the search: " & log
Next
For i = 0 To 2
    Grid.Select 5, 1
    log = ""
    Host.Type "be"
    Host.Click 100, 100 + 20 * i, 2 ^ i
    Host.Check log = "start end " And Not Grid.IsSearching, "button " & 2 ^ i & " ends the search: " & log
Next

' The cursor, with and without Shift and Ctrl.
Grid.AutoSearch = lorvSearchNone
Grid.Select 5, 2
Host.Type "{DOWN 3}{RIGHT}"
Host.Check Grid.Row = 8 And Grid.Col = 3, "arrows: " & Grid.Row & "," & Grid.Col
Host.Type "+{DOWN 2}"
Host.Check Grid.Row = 8 And Grid.RowSel = 10, "Shift extends: " & Grid.Row & ".." & Grid.RowSel
Host.Type "^{END}"
Host.Check Grid.Row = 199 And Grid.Col = 4, "Ctrl+End: " & Grid.Row & "," & Grid.Col
Host.Type "^{HOME}"
Host.Check Grid.Row = 1 And Grid.Col = 1, "Ctrl+Home: " & Grid.Row & "," & Grid.Col
Host.Check Grid.TopRow = 1, "the start is in view"

' The wheel scrolls by lines; with Shift it does nothing.
Host.MoveMouse 100, 100
Host.Wheel -2
Host.Check Grid.TopRow > 1, "the wheel scrolls"
row = Grid.TopRow
Host.Wheel -1, 1
Host.Check Grid.TopRow = row, "not with Shift"
Host.Wheel 5
Host.Check Grid.TopRow = 1, "and back"
Host.Check Grid.Row = 1, "the cursor stays"

' Tab leaves the grid, or goes through its cells.
Grid.TabBehavior = lorvTabControls
Host.Focus = "grid"
Grid.Select 5, 2
Host.Type "{TAB}"
Host.Check Host.Focus = "field", "Tab leaves the grid"
Host.Check Grid.Row = 5 And Grid.Col = 2, "and moves nothing in it"
Host.Type "x"
Host.Check Grid.Row = 5, "keys go to the field now"
log = ""
Host.Type "{TAB}"
Host.Check Host.Focus = "grid", "Tab comes back"
Host.Check log = "got ", "the grid tells: " & log
Grid.TabBehavior = lorvTabCells
Grid.Select 5, 3
Host.Type "{TAB}"
Host.Check Host.Focus = "grid" And Grid.Row = 5 And Grid.Col = 4, "Tab goes to the next cell"
Host.Type "{TAB}"
Host.Check Grid.Row = 6 And Grid.Col = 1, "and to the next row: " & Grid.Row & "," & Grid.Col
Host.Type "+{TAB}"
Host.Check Grid.Row = 5 And Grid.Col = 4, "Shift+Tab goes back: " & Grid.Row & "," & Grid.Col
Host.Check Grid.RowSel = 5 And Grid.ColSel = 4, "and extends nothing"

' Losing the focus forgets what was typed, and the search stays on.
Grid.AutoSearch = lorvSearchFromTop
Grid.Select 5, 1
Host.Type "be"
log = ""
Host.Focus = "field"
Host.Check log = "lost ", "the grid tells: " & log
Host.Check Grid.IsSearching, "the search stays"
Host.Focus = "grid"
Host.Type "a"
Host.Check Grid.Row = 20, "the text has started over: row " & Grid.Row

Sub Grid_StartAutoSearch
    log = log & "start "
End Sub

Sub Grid_EndAutoSearch
    log = log & "end "
End Sub

Sub Grid_SetFocus
    log = log & "got "
End Sub

Sub Grid_KillFocus
    log = log & "lost "
End Sub
