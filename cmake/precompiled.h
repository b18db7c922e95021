// Headers that are expensive and never change. The sources still include what they use.
#define WIN32_LEAN_AND_MEAN

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <utility>

#include <windows.h>
#include <windowsx.h>

#include <commctrl.h>
#include <ocidl.h>
#include <ole2.h>
#include <oleacc.h>
#include <oleauto.h>
#include <olectl.h>
#include <uxtheme.h>

#include "lorv8l.h"
