#include "core/upcalls.h"

void RecalculateLayout(Grid&) {}
