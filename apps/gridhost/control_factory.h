// Makes the control, from its registration or straight from a module.
#pragma once

#include "com_owners.h"
#include "options.h"

// With `options.dll` the module's first creatable control is made through its class object, and
// nothing has to be registered; otherwise the class comes from `options.progId`.
HRESULT CreateControl(const Options& options, ComPtr<IUnknown>& control);
