' The failing handler is reported with its line, and the script goes on.
Grid.Rows = 10
Grid.Cols = 3
Grid.TextMatrix(1, 1) = "x"
Host.Echo "after the event"

Sub Grid_CellChanged(Row, Col)
    Row.NoSuchMember
End Sub
