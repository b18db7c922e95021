#include "view/navigate_key.h"

void NavigateKey(Grid&, int) {}
