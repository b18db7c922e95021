Host.Resize 320, 240
Host.Title = "picture"
