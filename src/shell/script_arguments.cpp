#include "shell/script_arguments.h"

#include "platform/com_ptr.h"
#include "platform/variant.h"

#include <algorithm>

namespace
{
// The description of a member, given back with its scope.
class MemberDescription
{
public:
    MemberDescription(ITypeInfo* info, DISPID dispid, WORD flags) noexcept : info_(info)
    {
        for (UINT index = 0; SUCCEEDED(info->GetFuncDesc(index, &description_)); ++index) {
            if (description_->memid == dispid && (description_->invkind & flags))
                return;
            info->ReleaseFuncDesc(description_);
            description_ = nullptr;
        }
        description_ = nullptr;
    }
    MemberDescription(const MemberDescription&) = delete;
    MemberDescription& operator=(const MemberDescription&) = delete;
    ~MemberDescription()
    {
        if (description_)
            info_->ReleaseFuncDesc(description_);
    }
    const FUNCDESC* Get() const noexcept { return description_; }

private:
    ITypeInfo* info_;
    FUNCDESC* description_ = nullptr;
};

bool IsUnsignedLong(ITypeInfo* info, const TYPEDESC& type) noexcept
{
    if (type.vt != VT_USERDEFINED)
        return type.vt == VT_UI4;
    ComPtr<ITypeInfo> alias;
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetRefTypeInfo(type.hreftype, alias.Put())) || FAILED(alias->GetTypeAttr(&attributes)))
        return false;
    bool isUnsigned = attributes->typekind == TKIND_ALIAS && attributes->tdescAlias.vt == VT_UI4;
    alias->ReleaseTypeAttr(attributes);
    return isUnsigned;
}

// Which parameter the argument at `index` of the reversed list is for.
UINT ParameterOf(const DISPPARAMS& given, UINT index, UINT parameterCount) noexcept
{
    if (index >= given.cNamedArgs)
        return given.cArgs - 1 - index;
    DISPID name = given.rgdispidNamedArgs[index];
    return name == DISPID_PROPERTYPUT ? parameterCount - 1 : static_cast<UINT>(name);
}
} // namespace

ScriptArguments::ScriptArguments(ITypeInfo* info, DISPID dispid, WORD flags, const DISPPARAMS& given) noexcept
    : parameters_(given)
{
    MemberDescription member(info, dispid, flags);
    if (!member.Get() || given.cArgs > Capacity || !given.rgvarg)
        return;
    std::copy_n(given.rgvarg, given.cArgs, values_);
    parameters_.rgvarg = values_;
    UINT count = static_cast<UINT>(member.Get()->cParams);
    for (UINT index = 0; index < given.cArgs; ++index)
        if (UINT parameter = ParameterOf(given, index, count); parameter < count)
            Adapt(info, member.Get()->lprgelemdescParam[parameter].tdesc, index);
}

void ScriptArguments::Adapt(ITypeInfo* info, const TYPEDESC& type, UINT index) noexcept
{
    VARIANTARG& value = values_[index];
    bool isWhole = value.vt == VT_I4 || value.vt == VT_I2;
    if (isWhole && IsUnsignedLong(info, type)) {
        value.lVal = value.vt == VT_I2 ? value.iVal : value.lVal;
        value.vt = VT_UI4;
    } else if (value.vt == (VT_BYREF | VT_VARIANT) && type.vt == VT_PTR && type.lptdesc->vt == VT_I4) {
        targets_[index] = value.pvarVal;
        OwnedVariant number;
        if (SUCCEEDED(VariantChangeType(number.Put(), value.pvarVal, 0, VT_I4)))
            longs_[index] = number.Get().lVal;
        value.vt = VT_BYREF | VT_I4;
        value.plVal = &longs_[index];
    } else {
        return;
    }
    changed_ = true;
}

void ScriptArguments::WriteBack() noexcept
{
    for (UINT index = 0; index < Capacity; ++index) {
        if (!targets_[index])
            continue;
        VariantClear(targets_[index]);
        targets_[index]->vt = VT_I4;
        targets_[index]->lVal = longs_[index];
    }
}
