#include "edit/editor_class.h"

#include "platform/module.h"

bool EditorClass::Register() noexcept
{
    if (systemProcedure_)
        return true;
    WNDCLASSEXW info = {};
    info.cbSize = sizeof(info);
    if (!GetClassInfoExW(nullptr, systemClass_, &info))
        return false;
    WNDPROC systemProcedure = info.lpfnWndProc;
    systemBytes_ = info.cbWndExtra;
    info.style &= ~(without_ | CS_GLOBALCLASS);
    info.cbWndExtra = PointerAt(pointers_);
    info.lpfnWndProc = procedure_;
    info.hInstance = ModuleInstance();
    info.lpszClassName = name_;
    UnregisterClassW(name_, ModuleInstance()); // of a module that was at this address before
    if (!RegisterClassExW(&info))
        return false;
    systemProcedure_ = systemProcedure;
    return true;
}
