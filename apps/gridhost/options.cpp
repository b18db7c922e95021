#include "options.h"

#include <stdlib.h>
#include <wchar.h>

const wchar_t usageText[] =
    L"usage: gridhost FILE.vbs|FILE.js [--shot OUT.png] [--keep] [--run-for MS] [--size WxH]\n"
    L"                [--out FOLDER] [--dll MODULE] [--progid NAME] [--design] [--timeout MS]\n"
    L"                [--check-leaks] [--field] [--classic] [-- ARGUMENT...]";

namespace
{
enum class Kind { Flag, Text, Number, Size };

struct OptionRow {
    const wchar_t* name;
    Kind kind;
    bool Options::*flag;
    std::wstring Options::*text;
    unsigned Options::*number;
};

constexpr OptionRow optionRows[] = {
    {L"--keep", Kind::Flag, &Options::keep, nullptr, nullptr},
    {L"--design", Kind::Flag, &Options::design, nullptr, nullptr},
    {L"--classic", Kind::Flag, &Options::classic, nullptr, nullptr},
    {L"--field", Kind::Flag, &Options::field, nullptr, nullptr},
    {L"--check-leaks", Kind::Flag, &Options::checkLeaks, nullptr, nullptr},
    {L"--shot", Kind::Text, nullptr, &Options::shot, nullptr},
    {L"--dll", Kind::Text, nullptr, &Options::dll, nullptr},
    {L"--progid", Kind::Text, nullptr, &Options::progId, nullptr},
    {L"--out", Kind::Text, nullptr, &Options::outFolder, nullptr},
    {L"--run-for", Kind::Number, nullptr, nullptr, &Options::runFor},
    {L"--timeout", Kind::Number, nullptr, nullptr, &Options::timeout},
    {L"--size", Kind::Size, nullptr, nullptr, nullptr},
};
} // namespace

static bool ReadNumber(const wchar_t* text, unsigned& number)
{
    wchar_t* end;
    number = unsigned(wcstoul(text, &end, 10));
    return *text >= L'0' && *text <= L'9' && !*end;
}

static bool ReadSize(const wchar_t* text, Options& options)
{
    wchar_t* end;
    options.width = int(wcstol(text, &end, 10));
    if (*end != L'x')
        return false;
    options.height = int(wcstol(end + 1, &end, 10));
    return !*end && options.width > 0 && options.height > 0;
}

static bool ReadValue(const OptionRow& row, const wchar_t* value, Options& options)
{
    switch (row.kind) {
    case Kind::Text:
        options.*row.text = value;
        return true;
    case Kind::Number:
        return ReadNumber(value, options.*row.number);
    default:
        return ReadSize(value, options);
    }
}

static const OptionRow* FindOption(const wchar_t* word)
{
    for (const OptionRow& row : optionRows)
        if (!wcscmp(row.name, word))
            return &row;
    return nullptr;
}

bool ParseOptions(int count, wchar_t** words, Options& options, std::wstring& problem)
{
    int i = 1;
    for (; i < count && wcscmp(words[i], L"--"); ++i) {
        const OptionRow* row = FindOption(words[i]);
        if (!row) {
            if (words[i][0] == L'-' || !options.script.empty()) {
                problem = L"not understood: " + std::wstring(words[i]);
                return false;
            }
            options.script = words[i];
        } else if (row->kind == Kind::Flag) {
            options.*row->flag = true;
        } else if (++i == count || !ReadValue(*row, words[i], options)) {
            problem = std::wstring(row->name) + L" needs a value";
            return false;
        }
    }
    for (++i; i < count; ++i)
        options.arguments.push_back(words[i]);
    if (options.script.empty())
        problem = L"no script given";
    return problem.empty();
}
