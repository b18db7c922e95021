#include "core/format_text.h"

#include "core/text_scan.h"

#include <climits>

namespace
{
constexpr wchar_t RecordHead[] = L"(Format)\v";
constexpr wchar_t TextHead[] = L"(Text)\v";

bool IsOneOf(wchar_t character, const wchar_t* set) noexcept
{
    for (; *set; ++set)
        if (*set == character)
            return true;
    return false;
}

const wchar_t* Find(TextSpan text, const wchar_t* set) noexcept
{
    while (text.Begin < text.End && !IsOneOf(*text.Begin, set))
        ++text.Begin;
    return text.Begin;
}

wchar_t LowerLetter(wchar_t character) noexcept
{
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + 32) : character;
}

// The end of `head` in `text` when it stands there, in any case; null otherwise.
const wchar_t* Behind(const wchar_t* text, const wchar_t* head, bool anyCase) noexcept
{
    for (; *head; ++head, ++text)
        if (*text != *head && !(anyCase && LowerLetter(*text) == LowerLetter(*head)))
            return nullptr;
    return text;
}
} // namespace

TextSpan WholeText(const wchar_t* text) noexcept
{
    return {text, text + TextLength(text)};
}

bool TextParts::Next(TextSpan& part) noexcept
{
    if (ended_)
        return false;
    const wchar_t* end = Find(rest_, separators_);
    part = {rest_.Begin, end};
    ended_ = end == rest_.End;
    rest_.Begin = ended_ ? end : end + 1;
    return true;
}

int CountParts(TextSpan text, const wchar_t* separators) noexcept
{
    int count = 1;
    for (; text.Begin < text.End; ++text.Begin)
        count += IsOneOf(*text.Begin, separators);
    return count;
}

TextSpan Trimmed(TextSpan text) noexcept
{
    while (text.Begin < text.End && *text.Begin < 33)
        ++text.Begin;
    while (text.Begin < text.End && text.End[-1] < 33)
        --text.End;
    return text;
}

TextSpan FirstLine(TextSpan text) noexcept
{
    return {text.Begin, Find(text, L"\r\n")};
}

int NumberOf(TextSpan text) noexcept
{
    while (text.Begin < text.End && (*text.Begin == L' ' || (*text.Begin >= 9 && *text.Begin <= 13)))
        ++text.Begin;
    bool negative = text.Begin < text.End && *text.Begin == L'-';
    if (text.Begin < text.End && (*text.Begin == L'-' || *text.Begin == L'+'))
        ++text.Begin;
    long long value = 0;
    for (; text.Begin < text.End && *text.Begin >= L'0' && *text.Begin <= L'9'; ++text.Begin)
        if (value <= INT_MAX)
            value = value * 10 + (*text.Begin - L'0');
    if (value > INT_MAX)
        return negative ? INT_MIN : INT_MAX;
    return static_cast<int>(negative ? -value : value);
}

BarSections SplitBar(const wchar_t* text) noexcept
{
    BarSections sections;
    TextSpan rest = WholeText(text);
    sections.Columns = {rest.Begin, Find(rest, L";\n")};
    rest.Begin = sections.Columns.End;
    if (!rest.Empty() && *rest.Begin == L';') {
        ++rest.Begin;
        sections.RowTitles = {rest.Begin, Find(rest, L"\n")};
        rest.Begin = sections.RowTitles.End;
    }
    if (!rest.Empty())
        sections.Records = {rest.Begin + 1, rest.End};
    return sections;
}

BarItem ReadBarItem(TextSpan part) noexcept
{
    bool aligned = !part.Empty() && IsOneOf(*part.Begin, L"<>^");
    return {aligned ? *part.Begin : L'\0', {part.Begin + aligned, part.End}};
}

bool HasRecordHead(const wchar_t* text) noexcept
{
    return Behind(text, RecordHead, false) != nullptr;
}

RecordSections SplitRecords(const wchar_t* text) noexcept
{
    RecordSections sections = {};
    const wchar_t* begin = Behind(text, RecordHead, false);
    if (!begin)
        return sections;
    TextSpan rest = WholeText(begin);
    const wchar_t* countEnd = Find(rest, L"\v");
    sections.Count = NumberOf({rest.Begin, countEnd});
    sections.Records = {countEnd == rest.End ? countEnd : countEnd + 1, rest.End};
    for (const wchar_t* at = sections.Records.Begin; at < rest.End; ++at)
        if (const wchar_t* texts = Behind(at, TextHead, true)) {
            sections.Texts = {texts, rest.End};
            sections.Records.End = at;
            break;
        }
    return sections;
}
