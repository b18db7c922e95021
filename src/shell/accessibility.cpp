#include "core/upcalls.h"

bool AnswerAccessibilityRequest(Grid&, WPARAM, LPARAM, LRESULT&)
{
    return false;
}
