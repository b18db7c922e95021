#include "core/upcalls.h"

void ApplyBorderStyle(Grid&) {}
void RefreshMouseCursor(Grid&) {}
