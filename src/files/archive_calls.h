#pragma once
// What the grid's members `Archive` and `ArchiveInfo` do, with the codes that hosts get.

#include "lorv8l.h"

#include <windows.h>

// LORV_E_VALUE for an unknown action; LORV_E_NOTFOUND, LORV_E_MEMORY, LORV_E_BADFORMAT.
HRESULT RunArchive(const wchar_t* archivePath, const wchar_t* fileName, ArchiveSettings action) noexcept;

// LORV_E_BADFORMAT for what is no archive, LORV_E_INDEX, LORV_E_VALUE for an unknown detail.
HRESULT ReadArchiveInfo(const wchar_t* archivePath, ArchiveInfoSettings detail, const VARIANT& index,
                        VARIANT& result) noexcept;
