// Members of the grid: files, archives and loading from a URL.
#include "core/events.h"
#include "core/property_frame.h"
#include "files/archive_calls.h"
#include "files/load_save.h"
#include "shell/members/members.h"
#include "shell/safety.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::SaveGrid(BSTR fileName, SaveLoadSettings saveWhat, VARIANT options)
{
    KeepAlive alive(*this);
    if (static_cast<unsigned>(saveWhat) > LastFileKind)
        return LORV_E_VALUE;
    if (IsSafetyLocked(*this))
        return ReportError(*this, LORV_E_SAFETY);
    return SaveGridFile(*this, fileName, saveWhat, options);
}

HRESULT STDMETHODCALLTYPE GridMembers::LoadGrid(BSTR fileName, SaveLoadSettings loadWhat, VARIANT options)
{
    KeepAlive alive(*this);
    if (HRESULT guard = GuardLoad(*this, loadWhat); FAILED(guard))
        return guard;
    if (IsSafetyLocked(*this))
        return ReportError(*this, LORV_E_SAFETY);
    return LoadGridFile(*this, fileName, loadWhat, options);
}

HRESULT STDMETHODCALLTYPE GridMembers::Archive(BSTR arcFileName, BSTR fileName, ArchiveSettings action)
{
    if (IsSafetyLocked(*this))
        return ReportError(*this, LORV_E_SAFETY);
    return RunArchive(arcFileName ? arcFileName : L"", fileName ? fileName : L"", action);
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ArchiveInfo(BSTR arcFileName, ArchiveInfoSettings infoType,
                                                       VARIANT index, VARIANT* result)
{
    if (!result)
        return E_POINTER;
    VariantInit(result);
    if (IsSafetyLocked(*this))
        return ReportError(*this, LORV_E_SAFETY);
    return ReadArchiveInfo(arcFileName ? arcFileName : L"", infoType, index, *result);
}

HRESULT STDMETHODCALLTYPE GridMembers::LoadGridURL(BSTR, SaveLoadSettings, VARIANT)
{
    return NotBuilt();
}
