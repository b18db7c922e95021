// The process by itself has classic windows; themed ones come with a manifest of their own, which is
// activated unless the command line asks for the classic look.
#define THEMES_MANIFEST 2

#ifndef RC_INVOKED
// For the calling thread and the length of the process.
void UseThemes();
#endif
