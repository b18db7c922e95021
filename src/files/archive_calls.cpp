#include "files/archive_calls.h"

#include "core/errors.h"
#include "files/archive.h"
#include "files/archive_name.h"
#include "platform/variant.h"

#include <ctime>
#include <cwchar>

namespace
{
HRESULT CodeOf(ArchiveResult result) noexcept
{
    switch (result) {
    case ArchiveResult::Ok:
        return S_OK;
    case ArchiveResult::NotFound:
        return LORV_E_NOTFOUND;
    case ArchiveResult::OutOfMemory:
        return LORV_E_MEMORY;
    default:
        return LORV_E_BADFORMAT;
    }
}

HRESULT Run(const wchar_t* archivePath, const wchar_t* filePath, ArchiveCommand command,
            bool compress = false) noexcept
{
    return CodeOf(RunArchiveCommand(DiskFiles(), archivePath, filePath, command, compress));
}

// A bare name comes out beside the archive.
HRESULT Extract(const wchar_t* archivePath, const wchar_t* fileName) noexcept
{
    const wchar_t* archiveName = NameOfPath(archivePath);
    if (NameOfPath(fileName) != fileName || archiveName == archivePath)
        return Run(archivePath, fileName, ArchiveCommand::Extract);
    OwnedText path = JoinText(archivePath, static_cast<size_t>(archiveName - archivePath), fileName);
    return path ? Run(archivePath, path.get(), ArchiveCommand::Extract) : LORV_E_MEMORY;
}

HRESULT ReturnLong(uint32_t number, VARIANT& result) noexcept
{
    result.vt = VT_I4;
    result.lVal = static_cast<LONG>(number);
    return S_OK;
}

HRESULT ReturnName(const ArchiveHeader& header, VARIANT& result) noexcept
{
    wchar_t text[ArchiveHeader::LongestName];
    int length = EntryNameText(header, text);
    result.bstrVal = SysAllocStringLen(text, static_cast<UINT>(length));
    result.vt = result.bstrVal ? VT_BSTR : VT_EMPTY;
    return result.bstrVal ? S_OK : LORV_E_MEMORY;
}

// In local time.
HRESULT ReturnDate(uint32_t seconds, VARIANT& result) noexcept
{
    auto time = static_cast<__time64_t>(seconds);
    std::tm local = {};
    if (_localtime64_s(&local, &time) != 0)
        return LORV_E_BADFORMAT;
    SYSTEMTIME parts = {};
    parts.wYear = static_cast<WORD>(local.tm_year + 1900);
    parts.wMonth = static_cast<WORD>(local.tm_mon + 1);
    parts.wDay = static_cast<WORD>(local.tm_mday);
    parts.wHour = static_cast<WORD>(local.tm_hour);
    parts.wMinute = static_cast<WORD>(local.tm_min);
    parts.wSecond = static_cast<WORD>(local.tm_sec);
    if (!SystemTimeToVariantTime(&parts, &result.date))
        return LORV_E_BADFORMAT;
    result.vt = VT_DATE;
    return S_OK;
}

bool ReadIndex(const VARIANT& index, int count, LONG& number) noexcept
{
    number = VariantToLong(index, -1);
    return number >= 0 && number < count;
}
} // namespace

HRESULT RunArchive(const wchar_t* archivePath, const wchar_t* fileName, ArchiveSettings action) noexcept
{
    if (IsSamePath(archivePath, fileName))
        return LORV_E_BADFORMAT;
    switch (action) {
    case arcAdd:
        return Run(archivePath, fileName, ArchiveCommand::Add, true);
    case arcStore:
        return Run(archivePath, fileName, ArchiveCommand::Add, false);
    case arcExtract:
        return Extract(archivePath, fileName);
    case arcDelete:
        return Run(archivePath, fileName, ArchiveCommand::Delete);
    default:
        return LORV_E_VALUE;
    }
}

HRESULT ReadArchiveInfo(const wchar_t* archivePath, ArchiveInfoSettings detail, const VARIANT& index,
                        VARIANT& result) noexcept
{
    int count = 0;
    if (CountEntries(DiskFiles(), archivePath, count) != ArchiveResult::Ok)
        return LORV_E_BADFORMAT;
    if (detail == arcFileCount)
        return ReturnLong(static_cast<uint32_t>(count), result);
    LONG number = 0;
    if (!ReadIndex(index, count, number))
        return LORV_E_INDEX;
    ArchiveHeader header;
    uint32_t packedSize = 0;
    if (ReadEntry(DiskFiles(), archivePath, number, header, packedSize) != ArchiveResult::Ok)
        return LORV_E_BADFORMAT;
    switch (detail) {
    case ArcFileName:
        return ReturnName(header, result);
    case arcFileSize:
        return ReturnLong(header.OriginalSize(), result);
    case arcFileCompressedSize:
        return ReturnLong(packedSize, result);
    case arcFileDate:
        return ReturnDate(header.Time(), result);
    default:
        return LORV_E_VALUE;
    }
}
