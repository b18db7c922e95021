' What a handler assigns to Cancel is obeyed, in whatever type the script has at hand.
Dim answer, asked
Grid.Rows = 10
Grid.Cols = 5
Grid.Row = 2
Grid.Col = 2
asked = 0
answer = True
Grid.Row = 4
Host.Check asked = 1, "BeforeRowColChange came " & asked & " times"
Host.Check Grid.Row = 2, "Cancel = True was not obeyed, Row is " & Grid.Row
answer = 1
Grid.Row = 4
Host.Check Grid.Row = 2, "Cancel = 1 was not obeyed, Row is " & Grid.Row
answer = False
Grid.Row = 4
Host.Check Grid.Row = 4, "Cancel = False was not obeyed, Row is " & Grid.Row

Sub Grid_BeforeRowColChange(OldRow, OldCol, NewRow, NewCol, Cancel)
    asked = asked + 1
    If answer Then Cancel = answer
End Sub
