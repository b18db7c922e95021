#include "core/upcalls.h"

bool CommitEdit(Grid&, bool)
{
    return true;
}
