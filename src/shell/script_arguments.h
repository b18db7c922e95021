#pragma once
// Arguments as scripts hand them, made into what the members of the interface take.

#include <oaidl.h>

// A copy of a call's arguments, in which
// - a negative number given for a colour is the same bits without a sign: scripts know no unsigned Long, and
//   write &H8000000F for a system colour;
// - a Variant given by reference for a Long by reference is a Long of its own, written back after the call.
class ScriptArguments
{
public:
    // `dispid` and `flags` say which member of `info` is called.
    ScriptArguments(ITypeInfo* info, DISPID dispid, WORD flags, const DISPPARAMS& given) noexcept;
    ScriptArguments(const ScriptArguments&) = delete;
    ScriptArguments& operator=(const ScriptArguments&) = delete;

    // Whether the copy differs from what was given.
    bool Changed() const noexcept { return changed_; }
    DISPPARAMS* Get() noexcept { return &parameters_; }
    void WriteBack() noexcept;

private:
    static constexpr UINT Capacity = 16; // more than any member has

    void Adapt(ITypeInfo* info, const TYPEDESC& type, UINT index) noexcept;

    VARIANTARG values_[Capacity] = {};
    VARIANT* targets_[Capacity] = {}; // the caller's Variant that a Long goes back to
    LONG longs_[Capacity] = {};
    DISPPARAMS parameters_ = {};
    bool changed_ = false;
};
