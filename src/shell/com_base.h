#pragma once
// The small base that the control's COM surface stands on. The control is one object with many interfaces:
// each group of interfaces is a part, a member of the control that hands IUnknown to the controlling
// object; which part answers for which interface is a table that QueryInterface walks.

#include "core/grid_object.h"
#include "shell/module.h"

#include <iterator>

// One row of an interface table.
template<class Object> struct InterfaceEntry {
    const IID* Id;
    IUnknown* (*Pointer)(Object& object);
};

// Walks a table; the pointer found is counted.
template<class Object, size_t Count>
HRESULT FindInterface(Object& object, const InterfaceEntry<Object> (&table)[Count], REFIID iid, void** out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    for (const InterfaceEntry<Object>& entry : table)
        if (IsEqualIID(*entry.Id, iid)) {
            IUnknown* found = entry.Pointer(object);
            found->AddRef();
            *out = found;
            return S_OK;
        }
    return E_NOINTERFACE;
}

// A part of the control. It has no life of its own: references to it are references to the control, or to
// the object that aggregates it.
template<class... Interfaces> class ControlPart : public Interfaces...
{
public:
    explicit ControlPart(Grid& grid) noexcept : grid_(grid) {}
    ControlPart(const ControlPart&) = delete;
    ControlPart& operator=(const ControlPart&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        return grid_.Outer->QueryInterface(iid, out);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return grid_.Outer->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return grid_.Outer->Release(); }

protected:
    ~ControlPart() = default;

    Grid& grid_;
};

// A small object on the heap with interfaces of its own: enumerators and the like. `Main` is the interface
// it is known by.
template<class Main> class HeapObject : public Main
{
public:
    HeapObject() noexcept = default;
    HeapObject(const HeapObject&) = delete;
    HeapObject& operator=(const HeapObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        if (!out)
            return E_POINTER;
        bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, __uuidof(Main));
        *out = known ? static_cast<Main*>(this) : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~HeapObject() = default;

private:
    ModuleLock moduleLock_;
    ULONG references_ = 1;
};
