#include "themes.h"

#include <windows.h>

void UseThemes()
{
    ACTCTXW context = {};
    context.cbSize = sizeof(context);
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = GetModuleHandleW(nullptr);
    context.lpResourceName = MAKEINTRESOURCEW(THEMES_MANIFEST);
    HANDLE themes = CreateActCtxW(&context);
    ULONG_PTR cookie = 0;
    if (themes != INVALID_HANDLE_VALUE)
        ActivateActCtx(themes, &cookie);
}
