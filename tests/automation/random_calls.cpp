#include "automation/random_calls.h"

#include <algorithm>
#include <climits>
#include <iterator>

namespace
{
constexpr MEMBERID FirstInheritedMember = 0x60000000;

VARTYPE TypeOf(ITypeInfo* info, const TYPEDESC& type)
{
    if (type.vt == VT_PTR)
        return TypeOf(info, *type.lptdesc);
    if (type.vt != VT_USERDEFINED)
        return type.vt;
    ComPtr<ITypeInfo> named;
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetRefTypeInfo(type.hreftype, named.Put())) || FAILED(named->GetTypeAttr(&attributes)))
        return VT_I4;
    VARTYPE found = VT_DISPATCH;
    if (attributes->typekind == TKIND_ENUM)
        found = VT_I4;
    else if (attributes->typekind == TKIND_ALIAS)
        found = TypeOf(named.Get(), attributes->tdescAlias);
    named->ReleaseTypeAttr(attributes);
    return found;
}

CallableMember ReadMember(ITypeInfo* info, const FUNCDESC& function)
{
    BSTR name = nullptr;
    info->GetDocumentation(function.memid, &name, nullptr, nullptr, nullptr);
    CallableMember member = {name ? name : L"",
                             function.memid,
                             static_cast<WORD>(function.invkind),
                             TypeOf(info, function.elemdescFunc.tdesc),
                             {}};
    SysFreeString(name);
    for (int i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        bool optional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
        member.Parameters.push_back({TypeOf(info, parameter.tdesc), optional});
    }
    return member;
}
} // namespace

std::vector<CallableMember> MembersOf(ITypeInfo* info)
{
    std::vector<CallableMember> members;
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(info->GetFuncDesc(index, &function)); ++index) {
        if (function->memid < FirstInheritedMember)
            members.push_back(ReadMember(info, *function));
        info->ReleaseFuncDesc(function);
    }
    return members;
}

long RandomValues::Number()
{
    static constexpr long wild[] = {LONG_MIN,     LONG_MAX,   -32768,           32767,  32768,   65535,
                                    65536,        -100000000, 1000000000,       666,    0xFFFF,  255,
                                    LONG_MIN + 1, 2147483646, LONG(0x80000005), 100000, 1000000, 0x7F8000};
    if (dice_.OneIn(40))
        return dice_.Any(wild);
    if (dice_.OneIn(8))
        return static_cast<long>(dice_.Below(4000)) - 500; // lengths
    return static_cast<long>(dice_.Below(20)) - 2;
}

long RandomValues::Count()
{
    static constexpr long wild[] = {LONG_MIN, LONG_MAX, -1, -2, 300};
    return dice_.OneIn(30) ? dice_.Any(wild) : static_cast<long>(dice_.Below(24));
}

const wchar_t* RandomValues::Text()
{
    static const wchar_t* const texts[] = {
        L"",
        L"abc",
        L"12.5",
        L"-3",
        L"True",
        L"a\tb\tc\rd\te",
        L"|#1;Yes|#2;No",
        L"#1*1;One\tfirst|#2;Two|...",
        L"^Name|>Price;Row|Other",
        L"(Format)<col|>col",
        L"$#,##0.00;($#,##0.00)",
        L"yyyy-mm-dd",
        L"99/99/9999;_",
        L">LL\\-999",
        L"[a-z]+(",
        L"2,3",
        L"Tahoma",
        L"\xD83D\xDE00\xD83D",
        L"\x5D0\x5D1\x5D2",
        L"a long text that does not fit into its cell and has to be cut, wrapped or spilled somewhere",
        L"C:\\no such file.bmp",
        L"1999-12-31 23:59",
    };
    return dice_.OneIn(15) ? nullptr : dice_.Any(texts);
}

void RandomValues::SetNumber(VARIANT& value, long number)
{
    static constexpr VARTYPE types[] = {VT_I4, VT_I4, VT_I4,  VT_I4,   VT_I2,  VT_R8,   VT_R4,
                                        VT_R8, VT_CY, VT_UI4, VT_BSTR, VT_UI1, VT_BOOL, VT_DECIMAL};
    value.vt = VT_I4;
    value.lVal = number;
    VariantChangeType(&value, &value, 0, dice_.Any(types)); // what does not fit stays a Long
}

void RandomValues::SetObject(VARIANT& value, VARTYPE type, const std::vector<IDispatch*>& objects)
{
    IDispatch* object = nullptr;
    if (!objects.empty() && GivesObjects && !dice_.OneIn(5))
        object = objects[dice_.Below(static_cast<unsigned>(objects.size()))];
    value.vt = type;
    value.pdispVal = object; // a dispatch pointer is one to IUnknown as well
    if (object)
        object->AddRef();
}

void RandomValues::SetArray(VARIANT& value)
{
    static constexpr VARTYPE types[] = {VT_VARIANT, VT_I4, VT_BSTR, VT_R8, VT_UI1};
    VARTYPE type = dice_.Any(types);
    SAFEARRAYBOUND bounds[3] = {};
    unsigned dimensions = 1 + dice_.Below(3);
    for (SAFEARRAYBOUND& bound : bounds)
        bound = {dice_.Below(5), static_cast<LONG>(dice_.Below(3)) - 1};
    value.parray = SafeArrayCreate(type, dimensions, bounds);
    value.vt = value.parray ? static_cast<VARTYPE>(VT_ARRAY | type) : static_cast<VARTYPE>(VT_EMPTY);
}

void RandomValues::SetStrange(VARIANT& value)
{
    switch (dice_.Below(9)) {
    case 0:
        value.vt = VT_NULL;
        break;
    case 1:
    case 2:
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
        break;
    case 3:
        return SetObject(value, VT_DISPATCH, AnyObjects);
    case 4:
        return SetObject(value, VT_UNKNOWN, AnyObjects);
    case 5:
        return SetArray(value);
    case 6:
        value.vt = VT_DATE;
        value.date = Number() / 7.0;
        break;
    case 7:
        value.vt = VT_BSTR;
        value.bstrVal = SysAllocString(Text());
        break;
    default:
        break; // Empty
    }
}

void RandomValues::SetOfType(VARIANT& value, VARTYPE type)
{
    switch (type) {
    case VT_BSTR:
        value.vt = VT_BSTR;
        value.bstrVal = SysAllocString(Text());
        break;
    case VT_BOOL:
        value.vt = VT_BOOL;
        value.boolVal = dice_.OneIn(2) ? VARIANT_TRUE : VARIANT_FALSE;
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        SetObject(value, type, HostObjects);
        break;
    case VT_VARIANT:
        dice_.OneIn(3) ? SetStrange(value) : SetNumber(value, Number());
        break;
    default:
        SetNumber(value, Number());
        break;
    }
}

void RandomValues::Set(VARIANT& value, VARTYPE type)
{
    bool wantsObject = type == VT_DISPATCH || type == VT_UNKNOWN;
    dice_.OneIn(12) && !wantsObject ? SetStrange(value) : SetOfType(value, type);
}

RandomArguments::~RandomArguments()
{
    for (VARIANT& value : values_)
        if (!(value.vt & VT_BYREF))
            VariantClear(&value);
    for (VARIANT& place : places_)
        VariantClear(&place);
}

// Half of the references lead to a variant, the others to its value.
void RandomArguments::MakeReference(unsigned slot, Dice& dice)
{
    VARIANT& place = places_[slot];
    place = values_[slot];
    values_[slot] = {};
    VARTYPE plain = place.vt;
    bool toVariant = dice.OneIn(2) || plain == VT_EMPTY || plain == VT_NULL || plain == VT_DECIMAL;
    values_[slot].vt =
        static_cast<VARTYPE>(VT_BYREF | (toVariant ? static_cast<VARTYPE>(VT_VARIANT) : plain));
    values_[slot].byref = toVariant ? static_cast<void*>(&place) : &place.byref;
}

void RandomArguments::Fill(const CallableMember& member, Dice& dice, RandomValues& values)
{
    constexpr DISPID rows = 7, cols = 8;
    unsigned count = static_cast<unsigned>(member.Parameters.size());
    while (count > 0 && member.Parameters[count - 1].Optional && dice.OneIn(3))
        --count;
    values.GivesObjects = true;
    if (dice.OneIn(60)) {
        count = dice.Below(Capacity);
        values.GivesObjects = false;
    }
    count = std::min(count, Capacity);
    for (unsigned i = 0; i < count; ++i) {
        unsigned slot = count - 1 - i;
        if (member.Id == rows || member.Id == cols)
            values.SetNumber(values_[slot], values.Count());
        else
            values.Set(values_[slot], i < member.Parameters.size() ? member.Parameters[i].Type
                                                                   : static_cast<VARTYPE>(VT_VARIANT));
        bool isObject = values_[slot].vt == VT_DISPATCH || values_[slot].vt == VT_UNKNOWN;
        if (dice.OneIn(10) && (!isObject || count == 1))
            MakeReference(slot, dice);
    }
    parameters_ = {values_, nullptr, count, 0};
    if (count > 0 && (member.Kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) && !dice.OneIn(100)) {
        parameters_.rgdispidNamedArgs = &put_;
        parameters_.cNamedArgs = 1;
    }
}

std::wstring RandomArguments::Describe() const
{
    std::wstring all;
    for (unsigned i = parameters_.cArgs; i-- > 0;) {
        OwnedVariant text;
        VARIANT& value = const_cast<VARIANT&>(values_[i]);
        all += L" " + std::to_wstring(value.vt) + L":";
        bool plain = (value.vt & VT_TYPEMASK) != VT_DISPATCH && (value.vt & VT_TYPEMASK) != VT_UNKNOWN;
        if (plain && SUCCEEDED(VariantChangeType(&text.Get(), &value, VARIANT_NOVALUEPROP, VT_BSTR)) &&
            text.Get().bstrVal)
            all += text.Get().bstrVal;
    }
    return all;
}
