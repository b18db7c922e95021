#include "automation/type_library.h"

#include <iterator>

#include <oleauto.h>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

// Members that IUnknown and IDispatch bring along have identifiers from here on.
static constexpr MEMBERID kFirstInheritedMember = 0x60000000;

static std::wstring TakeText(BSTR text)
{
    std::wstring taken(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return taken;
}

static std::wstring NameOf(ITypeInfo* info, MEMBERID id)
{
    BSTR name = nullptr;
    info->GetDocumentation(id, &name, nullptr, nullptr, nullptr);
    return TakeText(name);
}

static std::wstring HelpOf(ITypeInfo* info, MEMBERID id)
{
    BSTR help = nullptr;
    info->GetDocumentation(id, nullptr, &help, nullptr, nullptr);
    return TakeText(help);
}

static std::wstring TypeName(ITypeInfo* info, const TYPEDESC& type)
{
    static const std::map<VARTYPE, const wchar_t*> simple = {
        {VT_I2, L"I2"},           {VT_I4, L"I4"},           {VT_R4, L"R4"},          {VT_R8, L"R8"},
        {VT_BOOL, L"BOOL"},       {VT_BSTR, L"BSTR"},       {VT_UI4, L"UI4"},        {VT_I8, L"I8"},
        {VT_VARIANT, L"VARIANT"}, {VT_DISPATCH, L"Object"}, {VT_HRESULT, L"void"},   {VT_VOID, L"void"},
        {VT_UINT, L"UINT"},       {VT_INT, L"INT"},         {VT_UNKNOWN, L"Unknown"}};
    if (type.vt == VT_PTR)
        return TypeName(info, *type.lptdesc) + L"*";
    if (type.vt == VT_USERDEFINED) {
        ComPtr<ITypeInfo> named;
        if (FAILED(info->GetRefTypeInfo(type.hreftype, &named)))
            return L"?";
        return NameOf(named.Get(), MEMBERID_NIL);
    }
    const auto found = simple.find(type.vt);
    return found == simple.end() ? L"?" : found->second;
}

static wchar_t KindOf(INVOKEKIND kind)
{
    switch (kind) {
    case INVOKE_PROPERTYGET:
        return L'r';
    case INVOKE_PROPERTYPUT:
        return L'w';
    case INVOKE_PROPERTYPUTREF:
        return L's';
    default:
        return L'm';
    }
}

static void ReadArguments(ITypeInfo* info, const FUNCDESC& function, TypeLibraryEntry& entry)
{
    BSTR names[32] = {};
    UINT nameCount = 0;
    info->GetNames(function.memid, names, static_cast<UINT>(std::size(names)), &nameCount);
    for (int i = 0; i < function.cParams; ++i) {
        const ELEMDESC& argument = function.lprgelemdescParam[i];
        const std::wstring type = TypeName(info, argument.tdesc);
        const UINT nameIndex = static_cast<UINT>(i) + 1;
        const std::wstring name = nameIndex < nameCount && names[nameIndex] ? names[nameIndex] : L"";
        entry.arguments.push_back(type + L" " + name);
        const USHORT flags = argument.paramdesc.wParamFlags;
        const bool inOut = (flags & PARAMFLAG_FIN) && (flags & PARAMFLAG_FOUT);
        if (argument.tdesc.vt == VT_PTR && !inOut)
            entry.byReferenceIsInOut = false;
        if (flags & PARAMFLAG_FOPT)
            ++entry.optionalCount;
    }
    for (BSTR name : names)
        SysFreeString(name);
}

static std::vector<TypeLibraryEntry> ReadInterface(ITypeInfo* info, int count)
{
    std::vector<TypeLibraryEntry> entries;
    for (int i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(info->GetFuncDesc(static_cast<UINT>(i), &function)))
            continue;
        if (function->memid < kFirstInheritedMember || function->funckind == FUNC_PUREVIRTUAL) {
            TypeLibraryEntry entry;
            entry.name = NameOf(info, function->memid);
            entry.id = function->memid;
            entry.kind = KindOf(function->invkind);
            entry.result = TypeName(info, function->elemdescFunc.tdesc);
            entry.flags = function->wFuncFlags;
            entry.help = HelpOf(info, function->memid);
            ReadArguments(info, *function, entry);
            entries.push_back(entry);
        }
        info->ReleaseFuncDesc(function);
    }
    return entries;
}

static TypeLibraryValues ReadEnumeration(ITypeInfo* info, int count)
{
    TypeLibraryValues values;
    for (int i = 0; i < count; ++i) {
        VARDESC* value = nullptr;
        if (FAILED(info->GetVarDesc(static_cast<UINT>(i), &value)))
            continue;
        VARIANT number;
        VariantInit(&number);
        if (value->varkind == VAR_CONST && SUCCEEDED(VariantChangeType(&number, value->lpvarValue, 0, VT_I4)))
            values[NameOf(info, value->memid)] = V_I4(&number);
        info->ReleaseVarDesc(value);
    }
    return values;
}

static TypeLibraryClass ReadClass(ITypeInfo* info, int count)
{
    TypeLibraryClass read;
    for (int i = 0; i < count; ++i) {
        INT flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> implemented;
        if (FAILED(info->GetImplTypeFlags(static_cast<UINT>(i), &flags)) ||
            FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(i), &reference)) ||
            FAILED(info->GetRefTypeInfo(reference, &implemented)) || !(flags & IMPLTYPEFLAG_FDEFAULT))
            continue;
        (flags & IMPLTYPEFLAG_FSOURCE ? read.defaultSource : read.defaultInterface) =
            NameOf(implemented.Get(), MEMBERID_NIL);
    }
    return read;
}

static void ReadType(TypeLibrary& library, ITypeInfo* info)
{
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes)))
        return;
    const std::wstring name = NameOf(info, MEMBERID_NIL);
    if (attributes->typekind == TKIND_ENUM)
        library.enumerations[name] = ReadEnumeration(info, attributes->cVars);
    else if (attributes->typekind == TKIND_COCLASS)
        library.classes[name] = ReadClass(info, attributes->cImplTypes);
    else if (attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_INTERFACE)
        library.interfaces[name] = ReadInterface(info, attributes->cFuncs);
    info->ReleaseTypeAttr(attributes);
}

TypeLibrary ReadTypeLibrary(const std::wstring& module)
{
    TypeLibrary library;
    ComPtr<ITypeLib> loaded;
    if (FAILED(LoadTypeLibEx(module.c_str(), REGKIND_NONE, &loaded)))
        return library;
    BSTR name = nullptr;
    loaded->GetDocumentation(-1, &name, nullptr, nullptr, nullptr);
    library.name = TakeText(name);
    TLIBATTR* attributes = nullptr;
    if (SUCCEEDED(loaded->GetLibAttr(&attributes))) {
        library.majorVersion = attributes->wMajorVerNum;
        library.minorVersion = attributes->wMinorVerNum;
        loaded->ReleaseTLibAttr(attributes);
    }
    for (UINT i = 0; i < loaded->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> info;
        if (SUCCEEDED(loaded->GetTypeInfo(i, &info)))
            ReadType(library, info.Get());
    }
    return library;
}

std::wstring ModuleUnderTest()
{
    wchar_t path[1024] = {};
    const DWORD length = GetEnvironmentVariableW(L"LORV_DLL", path, static_cast<DWORD>(std::size(path)));
    if (length > 0 && length < std::size(path))
        return path;
    GetModuleFileNameW(nullptr, path, static_cast<DWORD>(std::size(path)));
    const std::wstring program = path;
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"lorv8l.dll";
}
