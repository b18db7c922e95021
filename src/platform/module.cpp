#include "platform/module.h"

// The linker places this symbol at the base of the image that the code became part of.
extern "C" IMAGE_DOS_HEADER __ImageBase;

HINSTANCE ModuleInstance() noexcept
{
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}
