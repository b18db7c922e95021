// sources: core/format_text.cpp
// Format strings of every shape, taken apart as the grid does it: every part lies in the text, parts and
// separators together are the text again, and the count of parts is the number handed out.
#include "core/format_text.h"

#include "fuzz_text.h"

#include <cstdlib>

namespace
{
void Require(bool holds)
{
    if (!holds)
        std::abort();
}

void RequireWithin(TextSpan part, TextSpan whole)
{
    Require(part.Begin >= whole.Begin && part.Begin <= part.End && part.End <= whole.End);
}

void CheckPart(TextSpan part)
{
    RequireWithin(Trimmed(part), part);
    RequireWithin(FirstLine(part), part);
    RequireWithin(ReadBarItem(part).Text, part);
    NumberOf(part);
}

void CheckParts(TextSpan whole, const wchar_t* separators, const wchar_t* inner)
{
    int count = 0, units = 0;
    TextParts parts(whole, separators);
    for (TextSpan part; parts.Next(part); ++count) {
        RequireWithin(part, whole);
        units += part.Length();
        if (inner)
            CheckParts(part, inner, nullptr);
        else
            CheckPart(part);
    }
    Require(parts.Ended());
    Require(count == CountParts(whole, separators));
    Require(units + count - 1 == whole.Length());
}

void CheckBar(const wchar_t* text, TextSpan whole)
{
    BarSections bar = SplitBar(text);
    RequireWithin(bar.Columns, whole);
    CheckParts(bar.Columns, L"|\t", nullptr);
    if (bar.RowTitles.Begin) {
        RequireWithin(bar.RowTitles, whole);
        CheckParts(bar.RowTitles, L"|\t", nullptr);
    }
    if (bar.Records.Begin) {
        RequireWithin(bar.Records, whole);
        Require(bar.Records.End == whole.End);
        CheckParts(bar.Records, L"\n", L"\t");
    }
}

void CheckRecords(const wchar_t* text, TextSpan whole)
{
    RecordSections sections = SplitRecords(text);
    RequireWithin(sections.Records, whole);
    CheckParts(sections.Records, L"\v", L"\t");
    if (sections.Texts.Begin) {
        RequireWithin(sections.Texts, whole);
        Require(sections.Records.End <= sections.Texts.Begin);
        CheckParts(sections.Texts, L"\v", L"\t");
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::vector<wchar_t> text = TextOfBytes(data, size);
    TextSpan whole = {text.data(), text.data()};
    while (*whole.End)
        ++whole.End;
    CheckBar(text.data(), whole);
    if (HasRecordHead(text.data()))
        CheckRecords(text.data(), whole);
    return 0;
}
