// sources: edit/mask_text.cpp
// A mask and a session of typing under it. Whatever is typed, the text keeps the shape of the mask: its
// length, and its literals in their places.
#include "edit/mask_text.h"

#include "fuzz_text.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace
{
void Require(bool holds)
{
    if (!holds)
        std::abort();
}

bool IsLetter(wchar_t c)
{
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || (c >= 0xC0 && c < 0x250);
}
bool IsLead(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
bool IsNoLead(unsigned char)
{
    return false;
}
wchar_t Upper(wchar_t c)
{
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c;
}
wchar_t Lower(wchar_t c)
{
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
}

int Length(const wchar_t* text)
{
    int length = 0;
    while (text[length])
        ++length;
    return length;
}

bool IsSpecial(wchar_t c)
{
    return (c & 0xFF) <= 8;
}

// The text that the user sees: what an edit box does, which knows nothing of the mask.
class EditBox
{
public:
    explicit EditBox(MaskState& state) : text_(state.MaskText) {}

    void Insert(wchar_t c, int& caret)
    {
        int length = Length(text_);
        caret = std::clamp(caret, 0, length);
        if (length + 1 >= MaskCapacity)
            return;
        std::copy_backward(text_ + caret, text_ + length + 1, text_ + length + 2);
        text_[caret++] = c;
    }
    void Delete(int& caret)
    {
        int length = Length(text_);
        caret = std::clamp(caret, 0, length);
        if (caret == 0)
            return;
        std::copy(text_ + caret, text_ + length + 1, text_ + caret - 1);
        --caret;
    }

private:
    wchar_t* text_;
};

// What a number moved to its point leaves in the literals on its way, the next pass mends.
void CheckShape(MaskState state, const MaskPlatform& platform, int positions, const MaskPass& pass)
{
    Require(pass.Caret >= 0 && pass.Caret < MaskCapacity);
    if (positions == 0)
        return;
    int length = Length(state.MaskText);
    Require(length == positions);
    MaskPass again = {MaskCapacity - 1, true, false};
    ApplyMask(state, platform, again);
    Require(Length(state.MaskText) == positions);
    for (int i = 0; i < length; ++i) {
        Require(!IsSpecial(state.MaskText[i]) || IsSpecial(state.MaskPlaceholder));
        bool literal = state.CompiledMask[i] > 8 && !IsSpecial(state.CompiledMask[i]);
        Require(!literal || state.MaskText[i] == state.CompiledMask[i]);
    }
}

// The first line of the input is the mask, the rest are keys: BS, and codes from 14 to 31 that set the caret.
struct Session {
    std::vector<wchar_t> Mask;
    std::vector<wchar_t> Keys;
};

Session ReadSession(const uint8_t* data, size_t size)
{
    size_t end = static_cast<size_t>(std::find(data, data + size, '\n') - data);
    return {TextOfBytes(data, end),
            TextOfBytes(data + std::min(end + 1, size), size - std::min(end + 1, size))};
}

void Run(const Session& session, bool (*isLead)(unsigned char))
{
    const MaskPlatform platform = {isLead, IsLetter, Upper, Lower, L',', L'.', L'/', L':'};
    auto state = std::make_unique<MaskState>();
    std::vector<wchar_t> mask = session.Mask;
    int positions = CompileMask(*state, platform, mask.data());
    Require(positions >= 0 && positions < MaskCapacity && Length(state->CompiledMask) == positions);
    Require(MaskFirstInput(*state) <= positions);

    EditBox box(*state);
    MaskPass pass = {0, false, false};
    state->MaskText[0] = 0;
    ApplyMask(*state, platform, pass);
    // Where double bytes are, the second half of one may be anything.
    const bool checks = !isLead(0x81);
    if (checks)
        CheckShape(*state, platform, positions, pass);
    for (wchar_t key : session.Keys) {
        if (key == 0)
            break;
        if (key >= 14 && key < 32) {
            pass.Caret = key - 14;
            continue;
        }
        pass.Backspace = key == 8;
        pass.DeleteMode = true;
        if (pass.Backspace)
            box.Delete(pass.Caret);
        else
            box.Insert(key, pass.Caret);
        ApplyMask(*state, platform, pass);
        if (checks)
            CheckShape(*state, platform, positions, pass);
    }
    bool full = FillMaskGaps(*state, platform) != MaskGaps::Incomplete;
    Require(!full || FillMaskGaps(*state, platform) != MaskGaps::Incomplete);

    // The keys as a text that is set as a whole.
    size_t count = std::min<size_t>(session.Keys.size() - 1, MaskCapacity - 1);
    std::copy_n(session.Keys.begin(), count, state->MaskText);
    state->MaskText[count] = 0;
    pass = {0, false, false};
    ApplyMask(*state, platform, pass);
    if (checks)
        CheckShape(*state, platform, positions, pass);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Session session = ReadSession(data, size);
    Run(session, IsNoLead);
    Run(session, IsLead);
    return 0;
}
