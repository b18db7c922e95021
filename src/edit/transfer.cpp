#include "core/upcalls.h"

void RunClipboardCommand(Grid&, ClipboardCommand) {}
void CreateDropTarget(Grid&) {}
void ReleaseDropTarget(Grid&) {}

bool StartOleDrag(Grid&)
{
    return false;
}
