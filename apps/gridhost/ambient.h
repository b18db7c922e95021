// The ambient properties: what the host tells a control about the surface that it stands on.
#pragma once

#include "com_owners.h"
#include <map>
#include <string_view>

class AmbientProperties
{
public:
    explicit AmbientProperties(bool designMode);

    // Null for a property that this host does not have.
    const VARIANT* Find(DISPID id) const;
    void Set(DISPID id, const VARIANT& value);
    void Remove(DISPID id); // the control is told that there is no such property

    // DISPID of "UserMode" and its like, without regard to case; DISPID_UNKNOWN when there is none.
    static DISPID IdOf(std::wstring_view name);

private:
    std::map<DISPID, Variant> values_;
};
