// Members of the grid: files, archives and loading from a URL.
#include "shell/members/members.h"

static HRESULT NotBuilt()
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE GridMembers::SaveGrid(BSTR, SaveLoadSettings, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::LoadGrid(BSTR, SaveLoadSettings, VARIANT)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::Archive(BSTR, BSTR, ArchiveSettings)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::get_ArchiveInfo(BSTR, ArchiveInfoSettings, VARIANT, VARIANT*)
{
    return NotBuilt();
}

HRESULT STDMETHODCALLTYPE GridMembers::LoadGridURL(BSTR, SaveLoadSettings, VARIANT)
{
    return NotBuilt();
}
