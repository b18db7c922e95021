// Headers that are expensive and never change. The sources still include what they use.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
