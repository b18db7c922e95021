#include "key_text.h"

#include <string>
#include <windows.h>

namespace
{
struct NameRow {
    const wchar_t* name;
    unsigned short key;
};

constexpr NameRow nameRows[] = {
    {L"ENTER", VK_RETURN}, {L"TAB", VK_TAB},       {L"ESC", VK_ESCAPE},  {L"BACKSPACE", VK_BACK},
    {L"BS", VK_BACK},      {L"DELETE", VK_DELETE}, {L"DEL", VK_DELETE},  {L"INSERT", VK_INSERT},
    {L"INS", VK_INSERT},   {L"HOME", VK_HOME},     {L"END", VK_END},     {L"PGUP", VK_PRIOR},
    {L"PGDN", VK_NEXT},    {L"UP", VK_UP},         {L"DOWN", VK_DOWN},   {L"LEFT", VK_LEFT},
    {L"RIGHT", VK_RIGHT},  {L"SPACE", VK_SPACE},   {L"F1", VK_F1},       {L"F2", VK_F2},
    {L"F3", VK_F3},        {L"F4", VK_F4},         {L"F5", VK_F5},       {L"F6", VK_F6},
    {L"F7", VK_F7},        {L"F8", VK_F8},         {L"F9", VK_F9},       {L"F10", VK_F10},
    {L"F11", VK_F11},      {L"F12", VK_F12},       {L"SHIFT", VK_SHIFT}, {L"CTRL", VK_CONTROL},
};

constexpr unsigned maxRepeat = 10000;
} // namespace

static KeyStroke StrokeFor(wchar_t character, unsigned shift)
{
    if (character == L'\r' || character == L'\n')
        return {VK_RETURN, 0, shift};
    const SHORT found = VkKeyScanW(character);
    if (found == -1)
        return {0, character, shift};
    // The high byte has Shift, Ctrl, Alt in the same bits.
    return {static_cast<unsigned short>(found & 0xFF), character, shift | unsigned(found >> 8 & 7)};
}

static unsigned ShiftFor(wchar_t prefix)
{
    switch (prefix) {
    case L'+':
        return 1;
    case L'^':
        return 2;
    case L'%':
        return 4;
    }
    return 0;
}

// `inside` is what stands between the braces.
static bool AddNamed(std::wstring_view inside, unsigned shift, std::vector<KeyStroke>& keys)
{
    const size_t space = inside.size() > 1 ? inside.find(L' ', 1) : std::wstring_view::npos;
    const std::wstring name(inside.substr(0, space));
    unsigned count = 1;
    if (space != std::wstring_view::npos)
        count = unsigned(wcstoul(std::wstring(inside.substr(space + 1)).c_str(), nullptr, 10));
    if (count > maxRepeat)
        return false;
    if (name.size() == 1) {
        keys.insert(keys.end(), count, StrokeFor(name[0], shift));
        return true;
    }
    for (const NameRow& row : nameRows)
        if (!_wcsicmp(row.name, name.c_str())) {
            keys.insert(keys.end(), count, {row.key, 0, shift});
            return true;
        }
    return false;
}

bool ParseKeyText(std::wstring_view text, std::vector<KeyStroke>& keys)
{
    unsigned next = 0, group = 0; // modifiers of the next key, and of the group that is open
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t character = text[i];
        if (const unsigned shift = ShiftFor(character)) {
            next |= shift;
            continue;
        }
        if (character == L'(' && next) {
            group = std::exchange(next, 0);
            continue;
        }
        if (character == L')' && group) {
            group = 0;
            continue;
        }
        if (character == L'{') {
            const size_t close = text.find(L'}', i + 2); // "{}}" is a closing brace
            if (close == std::wstring_view::npos ||
                !AddNamed(text.substr(i + 1, close - i - 1), next | group, keys))
                return false;
            i = close;
        } else {
            keys.push_back(StrokeFor(character == L'~' ? L'\r' : character, next | group));
        }
        next = 0;
    }
    return true;
}
