' Editing with real keys and clicks: what is typed, picked and clicked arrives in the cells.
Option Explicit

Const twipsPerPixel = 15
Const colWidth = 100, rowHeight = 20 ' pixels

Dim log, refuse, row, col
log = ""
refuse = False

Grid.Cols = 5
Grid.Rows = 30
Grid.FixedRows = 1
Grid.FixedCols = 1
For col = 0 To 4
    Grid.ColWidth(col) = colWidth * twipsPerPixel
Next
For row = 0 To 29
    Grid.RowHeight(row) = rowHeight * twipsPerPixel
    Grid.TextMatrix(row, 1) = "Row " & row
Next
Grid.TextMatrix(9, 1) = "Nine"
Grid.Editable = lorvEDKbdMouse
Host.Pump 50

TypeIntoCells
OpenByMouse
MoveOn
RefuseTexts
CheckBoxes
PickFromList
SearchAndEdit

Function X(col)
    X = col * colWidth + colWidth / 2
End Function

Function Y(row)
    Y = row * rowHeight + rowHeight / 2
End Function

Sub Expect(text, condition)
    Host.Check condition, text & "; log: " & log & "; cell " & Grid.Row & "," & Grid.Col
    log = ""
End Sub

Sub TypeIntoCells
    Grid.Select 2, 2
    log = ""
    Host.Type "abc"
    Expect "typing opens the editor", Grid.EditWindow <> 0 And Grid.EditText = "abc"
    Host.Type "{ENTER}"
    Expect "Enter stores it", Grid.TextMatrix(2, 2) = "abc" And InStr(log, "validate after:2,2") > 0
    Grid.Select 2, 2
    Host.Type "{F2}"
    Expect "F2 takes the old text", Grid.EditText = "abc"
    Host.Type "{END}d{ENTER}"
    Expect "and goes on with it", Grid.TextMatrix(2, 2) = "abcd"
    Grid.Select 2, 2
    Host.Type "zzz{ESC}"
    Expect "Escape leaves the cell as it was", Grid.TextMatrix(2, 2) = "abcd" And Grid.EditWindow = 0
    Grid.Select 3, 2
    Host.Type "Größe Ж +b{ENTER}"
    Expect "letters beyond the keyboard: " & Grid.TextMatrix(3, 2), Grid.TextMatrix(3, 2) = "Größe Ж B"
End Sub

Sub OpenByMouse
    Grid.Select 5, 2
    Grid.TextMatrix(5, 2) = "click"
    Host.DoubleClick X(2), Y(5)
    Expect "a double click opens the editor", Grid.EditWindow <> 0 And Grid.EditText = "click"
    Host.Type "{ESC}"
    Grid.Editable = lorvEDKbd
    Host.DoubleClick X(2), Y(5)
    Expect "not where the keyboard alone edits", Grid.EditWindow = 0
    Grid.Editable = lorvEDKbdMouse
End Sub

' Whatever moves the cursor stores the text first.
Sub MoveOn
    Grid.Select 6, 2
    Host.Type "one"
    Host.Click X(3), Y(7)
    Expect "a click elsewhere", Grid.TextMatrix(6, 2) = "one" And Grid.Row = 7 And Grid.Col = 3
    Host.Type "two"
    Host.Focus = "field"
    Expect "the focus gone", Grid.TextMatrix(7, 3) = "two"
    Host.Focus = "grid"
    Grid.TabBehavior = lorvTabCells
    Grid.Select 8, 2
    Host.Type "three{TAB}"
    Expect "Tab", Grid.TextMatrix(8, 2) = "three" And Grid.Col = 3
    Host.Type "four{DOWN}"
    Expect "an arrow", Grid.TextMatrix(8, 3) = "four" And Grid.Row = 9
End Sub

Sub RefuseTexts
    Grid.Select 6, 3
    refuse = True
    Host.Type "bad{ENTER}"
    Expect "a text that is refused stays in the editor", Grid.EditWindow <> 0 And Grid.TextMatrix(6, 3) = ""
    refuse = False
    Host.Type "{ESC}"
End Sub

Sub CheckBoxes
    Grid.Cell(lorvcpChecked, 4, 4) = lorvUnchecked
    Grid.Cell(lorvcpPictureAlignment, 4, 4) = lorvPicAlignCenterCenter
    Grid.Select 1, 1
    Host.Click X(4), Y(4)
    Expect "a click checks", Grid.Cell(lorvcpChecked, 4, 4) = lorvChecked And InStr(log, "after:4,4") > 0
    Host.Click X(4), Y(4)
    Expect "another one clears", Grid.Cell(lorvcpChecked, 4, 4) = lorvUnchecked
    refuse = True
    Host.Click X(4), Y(4)
    Expect "a refused one leaves it", Grid.Cell(lorvcpChecked, 4, 4) = lorvUnchecked
    refuse = False
End Sub

Sub PickFromList
    Grid.ColComboList(3) = "Red|Green|Blue"
    Grid.TextMatrix(12, 3) = "Red"
    Grid.Select 12, 3
    Host.Type "%{DOWN}"
    Host.Pump 50
    Expect "Alt+Down opens the list", Grid.EditWindow <> 0
    Host.Type "{DOWN}{DOWN}{ENTER}"
    Host.Pump 50
    Expect "Enter takes the item: " & Grid.TextMatrix(12, 3), Grid.TextMatrix(12, 3) = "Blue"
    Grid.Select 12, 3
    Host.Type "%{DOWN}{UP}{ESC}"
    Host.Pump 50
    Expect "Escape takes none: " & Grid.TextMatrix(12, 3), Grid.TextMatrix(12, 3) = "Blue"
    Grid.ColComboList(3) = ""
End Sub

Sub SearchAndEdit
    Grid.AutoSearch = lorvSearchFromTop
    Grid.Select 3, 1
    Host.Type "ni"
    Expect "typing searches where it is on", Grid.Row = 9 And Grid.EditWindow = 0
    Host.Type "{ENTER}"
    Expect "the Enter that ends it opens no editor", Not Grid.IsSearching And Grid.EditWindow = 0
    Host.Type "{F2}"
    Expect "F2 edits", Grid.EditWindow <> 0
    Host.Type "{ESC}"
    Host.Type " "
    Expect "a blank edits, too", Grid.EditWindow <> 0 And Not Grid.IsSearching
    Host.Type "{ESC}"
    Expect "and nothing is left open", Grid.EditWindow = 0 And Grid.TextMatrix(9, 1) = "Nine"
End Sub

Sub Grid_ValidateEdit(Row, Col, Cancel)
    log = log & "validate "
    Cancel = refuse
End Sub

Sub Grid_AfterEdit(Row, Col)
    log = log & "after:" & Row & "," & Col & " "
End Sub
