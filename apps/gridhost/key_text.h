// The little language of Host.Type: what keys a text means.
#pragma once

#include <string_view>
#include <vector>

struct KeyStroke {
    unsigned short virtualKey; // 0 when `character` is typed without a key of its own
    wchar_t character;
    unsigned shift; // 1 Shift, 2 Ctrl, 4 Alt
};

// "+", "^" and "%" put Shift, Ctrl and Alt on the next key or on a group in parentheses; "~" is
// Enter; "{DOWN 3}" names a key and how often; "{+}" is the character itself.
// False for an unknown name or an unfinished brace.
bool ParseKeyText(std::wstring_view text, std::vector<KeyStroke>& keys);
