' A tour of what mouse and keyboard do, played on the orders with real input. Each stop leaves a picture, those in
' the middle of a gesture with the button still down.
Option Explicit

Host.Include "orders.vbs"

Const twipsPerPixel = 15

Dim stops
stops = 0

SelectByDragging
ResizeColumn
FitColumn
FreezeByDragging
MoveColumn
SortByHeader
SearchByTyping
TurnWheel
GoByTab
EditCells
ShowTips
Host.Title = "The tour: " & stops & " stops"

' The middle of a cell and the right edge of a column, in pixels of the window.
Function MiddleX(col)
    MiddleX = (Grid.ColPos(col) + Grid.ColWidth(col) / 2) / twipsPerPixel
End Function

Function MiddleY(row)
    MiddleY = (Grid.RowPos(row) + Grid.RowHeight(row) / 2) / twipsPerPixel
End Function

Function RightX(col)
    RightX = (Grid.ColPos(col) + Grid.ColWidth(col)) / twipsPerPixel
End Function

Function PictureOf(name)
    stops = stops + 1
    PictureOf = "tour-" & Right("0" & stops, 2) & "-" & name & ".png"
End Function

' A drag from one point to the other, with a picture before the button goes up.
Sub DragFor(name, x1, y1, x2, y2, milliseconds)
    Host.RestDrag milliseconds, PictureOf(name)
    Host.Drag x1, y1, x2, y2
End Sub

Sub ShowStop(name)
    Host.Pump 100
    Host.Screenshot PictureOf(name)
End Sub

' Held below the window, the selection goes on by itself.
Sub SelectByDragging
    DragFor "select", MiddleX(colProduct), MiddleY(rowFirst + 4), MiddleX(colPrice), Host.Height + 30, 1200
    Host.Echo "selected rows", Grid.Row, "to", Grid.RowSel
End Sub

Sub ResizeColumn
    Grid.TopRow = rowFirst
    Grid.Select rowFirst, colCustomer
    DragFor "resize", RightX(colProduct) - 2, MiddleY(rowHeader), RightX(colProduct) + 80, MiddleY(rowHeader), 200
    ShowStop "resized"
End Sub

Sub FitColumn
    Host.DoubleClick RightX(colProduct) - 2, MiddleY(rowHeader)
    ShowStop "fitted"
End Sub

Sub FreezeByDragging
    DragFor "freeze", RightX(colCustomer) - 2, MiddleY(rowFirst + 8), MiddleX(colProduct) + 8, MiddleY(rowFirst + 8), 200
    Host.Echo "frozen columns", Grid.FrozenCols
    ShowStop "frozen"
    Grid.FrozenCols = 3
End Sub

Sub MoveColumn
    DragFor "move", MiddleX(colTotal), MiddleY(rowHeader), MiddleX(colCity) - 8, MiddleY(rowHeader), 200
    ShowStop "moved"
End Sub

' By the column that the move has put there.
Sub SortByHeader
    Host.Click MiddleX(colCity), MiddleY(rowHeader)
    ShowStop "sorted"
    Host.Click MiddleX(colCity), MiddleY(rowHeader)
    ShowStop "sorted-down"
End Sub

Sub SearchByTyping
    Host.Click MiddleX(colCustomer), MiddleY(rowFirst + 2)
    Host.Type "rosa n"
    ShowStop "search"
    Host.Type "{ESC}"
End Sub

Sub TurnWheel
    Host.MoveMouse MiddleX(colProduct), MiddleY(Grid.TopRow + 5)
    Host.Wheel -4
    ShowStop "wheel"
End Sub

Sub GoByTab
    Host.Type "{TAB 3}"
    ShowStop "tab"
End Sub

' A text, an item of a list, a check box.
Sub EditCells
    Dim row
    row = Grid.TopRow + 3
    Host.Click MiddleX(colCustomer), MiddleY(row)
    Host.Type "{F2}{END}, Brno"
    ShowStop "edit"
    Host.Type "{ENTER}"
    Host.Click MiddleX(colRegion), MiddleY(row)
    Host.Type "%{DOWN}{DOWN}"
    ShowStop "list"
    Host.Type "{ENTER}"
    Host.Click MiddleX(colPaid), MiddleY(row)
    ShowStop "checked"
End Sub

Sub ShowTips
    Host.MoveMouse MiddleX(colCustomer), MiddleY(Grid.TopRow + 5)
    Host.MoveMouse MiddleX(colCustomer) + 4, MiddleY(Grid.TopRow + 5)
    ShowStop "tip"
    ' The thumb of the scroll bar, at the right of the cells.
    Grid.TopRow = rowFirst
    DragFor "scroll-tip", Host.Width - 12, 22, Host.Width - 12, Host.Height / 2, 300
End Sub
