Host.Quit 7
Host.Echo "not reached"
