' Included by drag_picture.vbs.
Option Explicit

Function Doubled(number)
    Doubled = 2 * number
End Function
