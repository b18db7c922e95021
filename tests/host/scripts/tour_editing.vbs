' Real typing in cells: text, keys that leave, refusals, boxes and buttons, as a person meets them.
' With the argument "shots" it leaves pictures of open editors behind.
Option Explicit

Dim log, refuse, clicks
log = ""
refuse = ""
clicks = 0

Grid.Cols = 6
Grid.Rows = 12
Grid.FixedRows = 1
Grid.FixedCols = 1
Grid.ColWidth(-1) = 1500
Grid.Editable = lorvEDKbdMouse
Grid.ShowComboButton = lorvSBEditing
Dim col
For col = 1 To 5
    Grid.TextMatrix(0, col) = "Column " & col
Next

' Typing replaces the text, Enter stores it, and the cursor stays.
Grid.TextMatrix(1, 1) = "old"
Grid.Select 1, 1
Host.Type "New{ENTER}"
Host.Check Grid.TextMatrix(1, 1) = "New", "typing replaces: " & Grid.TextMatrix(1, 1)
Host.Check Grid.Row = 1 And Grid.Col = 1, "Enter stays in the cell"
Host.Check Grid.EditWindow = 0, "and closes the editor"

' Tab and the arrows leave, with the text.
Host.Type "one{TAB}two{DOWN}three{UP}"
Host.Check Grid.TextMatrix(1, 1) = "one", "Tab stores: " & Grid.TextMatrix(1, 1)
Host.Check Grid.TextMatrix(1, 2) = "two", "Down stores: " & Grid.TextMatrix(1, 2)
Host.Check Grid.TextMatrix(2, 2) = "three", "Up stores: " & Grid.TextMatrix(2, 2)
Host.Check Grid.Row = 1 And Grid.Col = 2, "the arrows lead on: " & Grid.Row & "," & Grid.Col

' F2 selects all; Left moves in the text before it leaves.
Host.Type "{F2}"
Host.Check Grid.EditSelLength = 3, "F2 selects all: " & Grid.EditSelLength
Host.Type "{HOME}{RIGHT}"
Host.Check Grid.EditSelStart = 1, "the caret moves: " & Grid.EditSelStart
Host.Type "{LEFT}"
Host.Check Grid.EditWindow <> 0, "at 1 Left moves the caret"
Host.Type "{LEFT}"
Host.Check Grid.EditWindow = 0 And Grid.Col = 1, "at 0 Left leaves: " & Grid.Col

' Escape keeps the old text.
Host.Type "gone{ESC}"
Host.Check Grid.TextMatrix(1, 1) = "one", "Escape keeps: " & Grid.TextMatrix(1, 1)

' Shift+Enter breaks the line, in a row that is high enough to see it.
Grid.RowHeight(3) = 700
Grid.Select 3, 1
Host.Type "first+{ENTER}second"
Shot "editing_lines.png"
Host.Type "{ENTER}"
Host.Check Grid.TextMatrix(3, 1) = "first" & vbCrLf & "second", "Shift+Enter breaks the line"
Grid.Select 4, 1
Host.Type "first^{ENTER}second{ENTER}"
Host.Check Grid.TextMatrix(4, 1) = "first" & vbCrLf & "second", "and so does Ctrl+Enter, once"

' A refusal opens the editor again with the stored text.
Grid.TextMatrix(5, 1) = "12"
Grid.Select 5, 1
refuse = "99"
Host.Type "99{TAB}"
Host.Check Grid.EditWindow <> 0, "the editor is open again"
Host.Check Grid.EditText = "12", "with the stored text: " & Grid.EditText
Host.Check Grid.Row = 5 And Grid.Col = 1, "in its cell"
refuse = ""
Host.Type "34{TAB}"
Host.Check Grid.TextMatrix(5, 1) = "34" And Grid.Col = 2, "and lets a good text pass"

' A click elsewhere stores; a double click opens.
Grid.Select 6, 1
Host.Type "clicked"
Host.Click 350, 8 + 20 * 7
Host.Check Grid.TextMatrix(6, 1) = "clicked", "a click elsewhere stores: " & Grid.TextMatrix(6, 1)
Host.Check Grid.EditWindow = 0, "and closes the editor"
Dim x, y
Grid.Select 7, 2
x = (Grid.CellLeft + Grid.CellWidth / 2) / 15
y = (Grid.CellTop + Grid.CellHeight / 2) / 15
Host.DoubleClick x, y
Host.Check Grid.EditWindow <> 0, "a double click opens"
Host.Type "twice"
Shot "editing_text.png"
Host.Type "{ENTER}"
Host.Check Grid.TextMatrix(7, 2) = "twice", "what was typed is stored: " & Grid.TextMatrix(7, 2)

' The focus goes to another field and comes back.
Grid.Select 8, 1
Host.Type "field"
Host.Focus = "field"
Host.Check Grid.TextMatrix(8, 1) = "field", "the focus of the field ends the edit"
Host.Focus = "grid"
Host.Check Grid.EditWindow = 0, "and does not open it again"

' Boxes by Space and by the mouse, a button by Space.
Grid.Cell(lorvcpChecked, 9, 1) = lorvUnchecked
Grid.Select 9, 1
Host.Type " "
Host.Check Grid.Cell(lorvcpChecked, 9, 1) = lorvChecked, "Space checks"
x = Grid.CellLeft / 15 + 9
y = (Grid.CellTop + Grid.CellHeight / 2) / 15
Host.Click x, y
Host.Check Grid.Cell(lorvcpChecked, 9, 1) = lorvUnchecked, "a click unchecks"
Grid.ColComboList(3) = "..."
Grid.Select 9, 3
Host.Type " "
Host.Check clicks = 1, "Space clicks the button: " & clicks
Host.Type "x"
Host.Check clicks = 1 And Grid.TextMatrix(9, 3) = "", "its cell cannot be typed in"

' A mask.
Grid.ColEditMask(4) = "(###) 000-0000"
Grid.Select 10, 4
Host.Type "5551234"
Shot "editing_mask.png"
Host.Type "567{ENTER}"
Host.Check Grid.TextMatrix(10, 4) = "(555) 123-4567", "the mask shapes: " & Grid.TextMatrix(10, 4)

' Everything in order, once more; the character of Enter comes to the box when it is hidden already.
log = ""
Grid.Select 11, 1
log = ""
Host.Type "z{ENTER}"
Host.Check log = "before start style window press change press validate after press ", "events: " & log

Sub Shot(file)
    If Host.Argument(0) = "shots" Then Host.Screenshot file
End Sub

Sub Grid_BeforeEdit(Row, Col, Cancel)
    log = log & "before "
End Sub

Sub Grid_StartEdit(Row, Col, Cancel)
    log = log & "start "
End Sub

Sub Grid_SetupEditStyle(Row, Col, IsCombo, Style, StyleEx)
    log = log & "style "
End Sub

Sub Grid_SetupEditWindow(Row, Col, EditWindow, IsCombo)
    log = log & "window "
End Sub

Sub Grid_KeyPressEdit(Row, Col, KeyAscii)
    log = log & "press "
End Sub

Sub Grid_ChangeEdit
    log = log & "change "
End Sub

Sub Grid_ValidateEdit(Row, Col, Cancel)
    log = log & "validate "
    If refuse <> "" And Grid.EditText = refuse Then Cancel = True
End Sub

Sub Grid_AfterEdit(Row, Col)
    log = log & "after "
End Sub

Sub Grid_CellButtonClick(Row, Col)
    clicks = clicks + 1
End Sub
