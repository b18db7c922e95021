#include "shell/class_info.h"

#include "shell/module.h"

HRESULT ClassInfo::GetClassInfo(ITypeInfo** info)
{
    return GetOwnTypeInfo(CLSID_LorvGridL, info);
}

HRESULT ClassInfo::GetGUID(DWORD kind, GUID* id)
{
    if (!id)
        return E_POINTER;
    bool known = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID;
    *id = known ? DIID__ILorvGridEvents : GUID_NULL;
    return known ? S_OK : E_INVALIDARG;
}

HRESULT ErrorSupport::InterfaceSupportsErrorInfo(REFIID iid)
{
    return IsEqualIID(iid, IID_ILorvGrid) ? S_OK : S_FALSE;
}
