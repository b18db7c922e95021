' Two drags with a picture before the button goes up; the second one rests for nothing.
Option Explicit

Host.Include "included.vbs"
Host.Check Doubled(21) = 42, "what was included is there"

Host.RestDrag 30, Host.Argument(0)
Host.Drag 100, 50, 140, 90
Host.Drag 100, 50, 160, 90
