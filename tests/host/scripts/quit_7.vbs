On Error Resume Next
Host.Quit 7
Host.Echo "not reached"
