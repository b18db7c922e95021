#include "edit/mask_text.h"

#include <algorithm>
#include <cstring>

namespace
{
// The place of a mask character in here plus 1 is its code.
constexpr wchar_t Placeholders[] = L"09#L?Aa&";
constexpr int LastCode = 8;
constexpr int AnyCharacter = 8;

enum Accepted : unsigned char { Digits = 1, Letters = 2, Blanks = 4, SignInFront = 8, Everything = 16 };

constexpr struct {
    unsigned char Accepts;
    bool Required;
    wchar_t Pad; // fills the positions in front when a number is moved to its decimal point
} placeholderTable[] = {
    {Digits, true, L'0'},                        // 0
    {Digits | Blanks, false, L' '},              // 9
    {Digits | Blanks | SignInFront, false, '0'}, // #
    {Letters, true, L'_'},                       // L
    {Letters | Blanks, false, L' '},             // ?
    {Letters | Digits, true, L'0'},              // A
    {Letters | Digits | Blanks, false, L' '},    // a
    {Everything, false, L' '},                   // &
};
static_assert(sizeof placeholderTable / sizeof *placeholderTable == LastCode);

constexpr unsigned char LowByte(wchar_t c)
{
    return static_cast<unsigned char>(c & 0xFF);
}

constexpr bool IsPlaceholder(wchar_t entry)
{
    return entry >= 1 && entry <= LastCode;
}
constexpr bool IsLiteral(wchar_t entry)
{
    return entry > LastCode;
}

int LengthOf(const wchar_t* text)
{
    int length = 0;
    while (length < MaskCapacity && text[length])
        ++length;
    return length;
}

wchar_t CodeOf(wchar_t c)
{
    for (int code = 1; code <= LastCode; ++code)
        if (c == Placeholders[code - 1])
            return static_cast<wchar_t>(code);
    return 0;
}

wchar_t SeparatorOf(const MaskPlatform& platform, wchar_t c)
{
    switch (c) {
    case L',':
        return platform.ThousandChar;
    case L'.':
        return platform.DecimalChar;
    case L'/':
        return platform.DateChar;
    case L':':
        return platform.TimeChar;
    default:
        return 0;
    }
}

class Compiler
{
public:
    Compiler(MaskState& state, const MaskPlatform& platform, wchar_t* mask)
        : state_(state), platform_(platform), at_(mask)
    {
    }
    int Run()
    {
        while (*at_ && count_ < MaskCapacity - 1)
            Step();
        state_.CompiledMask[count_] = 0;
        return count_;
    }

private:
    void Put(wchar_t entry)
    {
        if (entry && count_ < MaskCapacity - 1)
            state_.CompiledMask[count_++] = entry;
    }
    // The next character of the mask; stays on the end.
    wchar_t Take() { return *at_ ? *at_++ : L'\0'; }

    void Step()
    {
        if (platform_.IsLeadByte(LowByte(*at_))) {
            Put(Take());
            return Put(Take());
        }
        if (*at_ == L'C')
            *at_ = L'&';
        wchar_t c = Take();
        if (c == L';')
            return ReadTail();
        if (c == L'<' || c == L'>') {
            state_.MaskCaseMode = c;
            return;
        }
        if (c == L'\\')
            return Put(Take());
        if (wchar_t code = CodeOf(c))
            return Put(code);
        wchar_t separator = SeparatorOf(platform_, c);
        Put(separator ? separator : c);
    }

    // Each character behind the semicolon becomes the placeholder in turn, the Q that asks for quiet as well:
    // masks rely on the last one staying.
    void ReadTail()
    {
        while (wchar_t c = Take()) {
            state_.MaskPlaceholder = c;
            if (c == L'q' || c == L'Q')
                state_.MaskBeep = false;
        }
    }

    MaskState& state_;
    const MaskPlatform& platform_;
    wchar_t* at_;
    int count_ = 0;
};

// One pass over a text. The text is zero behind its end, so that what is moved from there ends it as well.
class Pass
{
public:
    Pass(MaskState& state, const MaskPlatform& platform, MaskPass& pass)
        : text_(state.MaskText), mask_(state.CompiledMask), state_(state), platform_(platform), pass_(pass),
          maskLength_(LengthOf(mask_)), start_(pass.Caret)
    {
    }

    bool Run()
    {
        ClearBehindText();
        if (pass_.DeleteMode && LengthOf(text_) > maskLength_)
            DeleteAt(pass_.Caret);
        if (maskLength_) {
            Walk();
            CutBehindMask();
        }
        ShowPlaceholders();
        if (!pass_.Backspace)
            SkipLiterals();
        return ok_;
    }

private:
    bool IsLead(wchar_t c) const { return platform_.IsLeadByte(LowByte(c)); }

    void ClearBehindText()
    {
        text_[MaskCapacity - 1] = 0;
        std::fill(text_ + LengthOf(text_), text_ + MaskCapacity, L'\0');
    }

    void DeleteAt(int position)
    {
        int length = LengthOf(text_);
        if (position < length)
            std::copy(text_ + position + 1, text_ + length + 1, text_ + position);
    }

    void Walk()
    {
        for (int i = 0; i < maskLength_;) {
            if (!text_[i]) {
                std::copy(mask_ + i, mask_ + maskLength_ + 1, text_ + i);
                return;
            }
            i = Position(i);
        }
    }

    // Handles a position; the next one.
    int Position(int i)
    {
        wchar_t c = InCase(text_[i]);
        if (!IsPlaceholder(mask_[i])) {
            text_[i] = mask_[i];
            return i + 1;
        }
        bool accepted = Accepts(i, c);
        if (!accepted && c != state_.MaskPlaceholder)
            accepted = AlignToDecimal(i, c) || JumpToLiteral(i, c);
        bool lead = IsLead(c);
        if (lead && i + 1 < maskLength_ && mask_[i + 1] != AnyCharacter)
            accepted = false;
        if (!accepted)
            return Refuse(i, c, lead);
        text_[i] = c;
        return lead && text_[i + 1] ? i + 2 : i + 1;
    }

    wchar_t InCase(wchar_t c) const
    {
        if (!state_.MaskCaseMode || IsLead(c) || !platform_.IsLetter(c))
            return c;
        return state_.MaskCaseMode == L'>' ? platform_.ToUpper(c) : platform_.ToLower(c);
    }

    bool Accepts(int i, wchar_t c) const
    {
        unsigned accepts = placeholderTable[mask_[i] - 1].Accepts;
        if (accepts & Everything)
            return true;
        if (c == L' ')
            return accepts & Blanks;
        if (i == 0 && (accepts & SignInFront) && (c == L'+' || c == L'-'))
            return true;
        if (IsLead(c))
            return false;
        // Digits are told by their low byte.
        bool digit = LowByte(c) >= '0' && LowByte(c) <= '9';
        return (digit && (accepts & Digits)) || ((accepts & Letters) && platform_.IsLetter(c));
    }

    // A decimal point typed behind the digits of a number moves them in front of the mask's own. The count of
    // what is moved is one of bytes: the first half of the digits arrives, and hosts have masks that live
    // with it.
    bool AlignToDecimal(int& i, wchar_t c)
    {
        if (pass_.Caret != i + 1 || !std::all_of(mask_, mask_ + i, IsPlaceholder))
            return false;
        int j = i;
        while (j < maskLength_ && LowByte(mask_[j]) != LowByte(platform_.DecimalChar))
            ++j;
        if (j == maskLength_ || c != mask_[j])
            return false;
        int length = LengthOf(text_);
        if (length < j) // the mask stands where the text has nothing yet
            std::copy(mask_ + length, mask_ + j, text_ + length);
        std::memmove(text_ + (j - i), text_, static_cast<size_t>(i));
        for (int k = 0; k < j - i; ++k)
            text_[k] = IsPlaceholder(mask_[k]) ? placeholderTable[mask_[k] - 1].Pad : mask_[k];
        i = pass_.Caret = j;
        return true;
    }

    // In a text that was set as a whole a literal ends the field in front of it. Here, too, the count of what
    // is moved, the whole text's length with its terminator, is one of bytes.
    bool JumpToLiteral(int& i, wchar_t c)
    {
        if (start_ != 0)
            return false;
        int j = i;
        while (IsPlaceholder(mask_[j]))
            ++j;
        if (c != mask_[j])
            return false;
        size_t bytes = static_cast<size_t>(LengthOf(text_) + 1);
        size_t room = static_cast<size_t>(MaskCapacity - 1 - j) * sizeof(wchar_t);
        std::memmove(text_ + j, text_ + i, std::min(bytes, room));
        text_[MaskCapacity - 1] = 0;
        std::fill(text_ + i, text_ + j, state_.MaskPlaceholder);
        i = j;
        return true;
    }

    int Refuse(int i, wchar_t c, bool lead)
    {
        if (c != state_.MaskPlaceholder)
            ok_ = false;
        text_[i] = mask_[i];
        if (lead && i + 1 < maskLength_)
            text_[i + 1] = mask_[i + 1];
        if (i == pass_.Caret - 1)
            pass_.Caret = i;
        return i + 1;
    }

    void CutBehindMask()
    {
        if (!text_[maskLength_])
            return;
        text_[maskLength_] = 0;
        ok_ = false;
    }

    // A character whose low byte looks like a code counts as one.
    void ShowPlaceholders()
    {
        for (int i = 0; i < MaskCapacity - 1 && text_[i]; ++i) {
            if (LowByte(text_[i]) <= LastCode)
                text_[i] = state_.MaskPlaceholder;
            else if (IsLead(text_[i]) && i < maskLength_ && mask_[i] == AnyCharacter &&
                     mask_[i + 1] != AnyCharacter)
                text_[i] = state_.MaskPlaceholder;
            else if (IsLead(text_[i]) && text_[i + 1])
                ++i;
        }
    }

    void SkipLiterals()
    {
        int last = LengthOf(text_) - 1;
        while (pass_.Caret < last && IsLiteral(mask_[pass_.Caret]))
            ++pass_.Caret;
    }

    wchar_t* const text_;
    const wchar_t* const mask_;
    const MaskState& state_;
    const MaskPlatform& platform_;
    MaskPass& pass_;
    const int maskLength_;
    const int start_; // where the selection began; the caret may have moved since
    bool ok_ = true;
};
} // namespace

int CompileMask(MaskState& state, const MaskPlatform& platform, wchar_t* mask)
{
    std::fill(state.CompiledMask, state.CompiledMask + MaskCapacity, L'\0');
    state.MaskCaseMode = 0;
    state.MaskBeep = true;
    state.MaskPlaceholder = L'_';
    return mask ? Compiler(state, platform, mask).Run() : 0;
}

bool ApplyMask(MaskState& state, const MaskPlatform& platform, MaskPass& pass)
{
    pass.Caret = std::clamp(pass.Caret, 0, MaskCapacity - 1);
    return Pass(state, platform, pass).Run();
}

MaskGaps FillMaskGaps(MaskState& state, const MaskPlatform& platform)
{
    MaskGaps gaps = MaskGaps::None;
    for (int i = 0; i < MaskCapacity && state.CompiledMask[i] && state.MaskText[i]; ++i) {
        wchar_t entry = state.CompiledMask[i];
        if (platform.IsLeadByte(LowByte(state.MaskText[i]))) {
            if (i + 1 < MaskCapacity && state.MaskText[i + 1])
                ++i;
        } else if (state.MaskText[i] == state.MaskPlaceholder) {
            if (IsLiteral(entry) ? entry != state.MaskText[i] : placeholderTable[entry - 1].Required)
                return MaskGaps::Incomplete;
            if (IsPlaceholder(entry)) {
                state.MaskText[i] = L' ';
                gaps = MaskGaps::Filled;
            }
        }
    }
    return gaps;
}

int MaskFirstInput(const MaskState& state)
{
    int first = 0;
    while (IsLiteral(state.CompiledMask[first]))
        ++first;
    return first;
}
