Option Explicit
Host.Echo "before"
Host.NoSuchMember
Host.Echo "not reached"
