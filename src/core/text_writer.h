#pragma once

// Appends to a caller's buffer and keeps it terminated. What does not fit is not written, and Overflowed()
// says so from then on. The buffer holds at least one character.
class TextWriter
{
public:
    TextWriter(wchar_t* buffer, int capacity) : text(buffer), size(capacity) { text[0] = 0; }

    void Put(wchar_t c)
    {
        if (length + 1 >= size) {
            overflowed = true;
            return;
        }
        text[length++] = c;
        text[length] = 0;
    }

    void Put(const wchar_t* part)
    {
        for (; *part; ++part)
            Put(*part);
    }

    void Put(const wchar_t* part, int count)
    {
        for (int i = 0; i < count; ++i)
            Put(part[i]);
    }

    [[nodiscard]] bool Overflowed() const { return overflowed; }
    [[nodiscard]] int Length() const { return length; }

private:
    wchar_t* text;
    int size;
    int length = 0;
    bool overflowed = false;
};
