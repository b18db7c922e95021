#include "files/archive_name.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>

namespace
{
bool IsSameText(const wchar_t* x, int xLength, const wchar_t* y, int yLength) noexcept
{
    return CompareStringOrdinal(x, xLength, y, yLength, TRUE) == CSTR_EQUAL;
}

int ToText(std::string_view name, wchar_t (&text)[ArchiveHeader::LongestName]) noexcept
{
    if (name.empty())
        return 0;
    return MultiByteToWideChar(CP_THREAD_ACP, 0, name.data(), static_cast<int>(name.size()), text,
                               ArchiveHeader::LongestName);
}
} // namespace

OwnedText JoinText(const wchar_t* first, size_t length, const wchar_t* second) noexcept
{
    size_t rest = std::wcslen(second);
    OwnedText text(static_cast<wchar_t*>(AllocateZeroed(length + rest + 1, sizeof(wchar_t))));
    if (text) {
        std::wmemcpy(text.get(), first, length);
        std::wmemcpy(text.get() + length, second, rest);
    }
    return text;
}

const wchar_t* NameOfPath(const wchar_t* path) noexcept
{
    const wchar_t* last = std::wcsrchr(path, L'\\');
    return last ? last + 1 : path;
}

bool IsSamePath(const wchar_t* x, const wchar_t* y) noexcept
{
    return IsSameText(x, -1, y, -1);
}

EntryName::EntryName(const wchar_t* path) noexcept
{
    const wchar_t* name = NameOfPath(path);
    known_ = !*name || Convert(name);
}

// Converts there and back: a character that the code page lacks comes back as another one.
bool EntryName::Convert(const wchar_t* name) noexcept
{
    length_ = WideCharToMultiByte(CP_THREAD_ACP, 0, name, -1, nullptr, 0, nullptr, nullptr) - 1;
    tooLong_ = length_ > ArchiveHeader::LongestName;
    if (length_ <= 0 || tooLong_) {
        length_ = 0;
        return false;
    }
    auto units = static_cast<int>(std::wcslen(name));
    WideCharToMultiByte(CP_THREAD_ACP, 0, name, units, text_, ArchiveHeader::LongestName, nullptr, nullptr);
    wchar_t back[ArchiveHeader::LongestName];
    return ToText(Text(), back) == units && std::equal(back, back + units, name);
}

bool EntryName::Names(const ArchiveHeader& header) const noexcept
{
    if (!known_)
        return false;
    wchar_t own[ArchiveHeader::LongestName], other[ArchiveHeader::LongestName];
    int ownLength = ToText(Text(), own), otherLength = ToText(header.Name(), other);
    return IsSameText(own, ownLength, other, otherLength);
}

int EntryNameText(const ArchiveHeader& header, wchar_t (&text)[ArchiveHeader::LongestName]) noexcept
{
    return ToText(header.Name(), text);
}
