#pragma once

#include <oleauto.h>

// Owner of a VARIANT.
class OwnedVariant
{
public:
    OwnedVariant() noexcept { VariantInit(&value_); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { VariantClear(&value_); }

    VARIANT& Get() noexcept { return value_; }
    const VARIANT& Get() const noexcept { return value_; }
    VARTYPE Type() const noexcept { return value_.vt; }
    [[nodiscard]] VARIANT* Put() noexcept
    {
        VariantClear(&value_);
        return &value_;
    }

private:
    VARIANT value_;
};

// The variant that a chain of VT_BYREF | VT_VARIANT ends in. The chain is cut after 16 links, since a
// hostile one can lead back to itself.
inline const VARIANT& FollowVariant(const VARIANT& value) noexcept
{
    const VARIANT* at = &value;
    for (int links = 0; links < 16 && at->vt == (VT_BYREF | VT_VARIANT) && at->pvarVal; ++links)
        at = at->pvarVal;
    return *at;
}

// A reference that leads nowhere: the platform's conversions would follow it.
inline bool IsNullReference(const VARIANT& value) noexcept
{
    return (value.vt & VT_BYREF) && !value.byref;
}

// Whether an optional argument was left out: Empty is a value that was given, a missing one is an Error.
inline bool IsMissing(const VARIANT& value) noexcept
{
    const VARIANT& end = FollowVariant(value);
    return end.vt == VT_ERROR;
}

// The argument as a Long; `fallback` when it is missing or does not convert.
inline long VariantToLong(const VARIANT& value, long fallback) noexcept
{
    const VARIANT& end = FollowVariant(value);
    OwnedVariant converted;
    if (IsNullReference(end) ||
        FAILED(VariantChangeType(&converted.Get(), const_cast<VARIANT*>(&end), 0, VT_I4)))
        return fallback;
    return converted.Get().lVal;
}
