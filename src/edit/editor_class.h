#pragma once
// The window classes of the editors, each made of a class of the system, which is the whole process's and
// stays as it is.

#include <windows.h>

class EditorClass
{
public:
    // `pointers`: how many pointers of ours each window keeps. `without`: class styles of the system's that
    // ours has not.
    EditorClass(const wchar_t* name, const wchar_t* systemClass, WNDPROC procedure, int pointers,
                UINT without = 0) noexcept
        : name_(name), systemClass_(systemClass), procedure_(procedure), pointers_(pointers),
          without_(without)
    {
    }

    // Registers the class once; false when that fails.
    bool Register() noexcept;

    const wchar_t* Name() const noexcept { return name_; }
    // What the system's windows do; null before the registration.
    WNDPROC SystemProcedure() const noexcept { return systemProcedure_; }
    // Where a window keeps our pointer of that number, behind the system's own bytes.
    int PointerAt(int number) const noexcept
    {
        return systemBytes_ + number * static_cast<int>(sizeof(void*));
    }

private:
    const wchar_t* name_;
    const wchar_t* systemClass_;
    WNDPROC procedure_;
    int pointers_;
    UINT without_;
    WNDPROC systemProcedure_ = nullptr;
    int systemBytes_ = 0;
};
