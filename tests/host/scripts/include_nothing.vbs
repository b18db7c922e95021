' Stops at the next line.
Host.Include "no-such-file.vbs"
