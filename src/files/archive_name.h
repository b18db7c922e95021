#pragma once

#include "files/archive_header.h"
#include "platform/memory.h"

#include <memory>
#include <string_view>

// The name of an entry in the thread's code page, as archives hold it.
class EntryName
{
public:
    // The part of a path behind its last backslash.
    explicit EntryName(const wchar_t* path) noexcept;

    // Whether the code page has all its characters. A name that it lacks names no entry.
    bool IsKnown() const noexcept { return known_; }
    bool IsTooLong() const noexcept { return tooLong_; }
    std::string_view Text() const noexcept { return {text_, static_cast<size_t>(length_)}; }
    // Without regard to case.
    bool Names(const ArchiveHeader& header) const noexcept;

private:
    bool Convert(const wchar_t* name) noexcept;

    bool known_ = false;
    bool tooLong_ = false;
    int length_ = 0;
    char text_[ArchiveHeader::LongestName];
};

// An entry's name as text; the length, at most LongestName.
int EntryNameText(const ArchiveHeader& header, wchar_t (&text)[ArchiveHeader::LongestName]) noexcept;

struct FreeText {
    void operator()(wchar_t* text) const noexcept { FreeBlock(text); }
};
using OwnedText = std::unique_ptr<wchar_t, FreeText>;
// The first `length` characters of a text with another text behind them; null without memory.
OwnedText JoinText(const wchar_t* first, size_t length, const wchar_t* second) noexcept;

const wchar_t* NameOfPath(const wchar_t* path) noexcept;
// Whether two paths are the same text but for case.
bool IsSamePath(const wchar_t* x, const wchar_t* y) noexcept;
