' Arguments by value arrive in the order in which the event declares them.
Dim seen
Grid.Rows = 10
Grid.Cols = 5
seen = ""
Grid.TextMatrix(2, 3) = "x"
Host.Check InStr(seen, "(2,3)") > 0, "CellChanged(2,3) not seen, but " & seen
Host.Unadvise
seen = ""
Grid.TextMatrix(2, 3) = "y"
Host.Check seen = "", "events arrive after Host.Unadvise"

Sub Grid_CellChanged(Row, Col)
    seen = seen & "(" & Row & "," & Col & ")"
End Sub
