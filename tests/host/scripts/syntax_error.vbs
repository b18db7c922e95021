Host.Echo "not reached"
If Then
