#pragma once
// A session of typing under a mask, as text: "(^___)|(5^__)|(5^__)!" is what was shown when the edit opened
// and after each key, with the caret as "^" and a "!" where something was refused.

#include "edit/mask_text.h"

#include <algorithm>
#include <string>

// Keys that are no characters.
constexpr char Backspace = '\b', Left = '\x11', Right = '\x12', Home = '\x13', End = '\x14';

// What an edit box does with a key, and what the mask then makes of it. Texts are narrow here: what is told
// of wide characters stands in tests of its own.
class MaskSession
{
public:
    MaskSession(const MaskPlatform& platform, const std::string& mask) : platform_(platform)
    {
        std::wstring source(mask.begin(), mask.end());
        Positions = CompileMask(state_, platform_, source.data());
        Source = std::string(source.begin(), source.end());
    }

    // Opens the editor on a text.
    std::string Open(const std::string& text)
    {
        SetText(text);
        return Apply(0, false, false);
    }

    std::string Type(char key)
    {
        std::string text = Text();
        if (key == Left || key == Right || key == Home || key == End) {
            Move(key, static_cast<int>(text.size()));
            return Show(true);
        }
        if (key == Backspace && caret_ > 0)
            text.erase(static_cast<size_t>(--caret_), 1);
        else if (key != Backspace)
            text.insert(static_cast<size_t>(caret_++), 1, key);
        SetText(text);
        return Apply(caret_, key == Backspace, true);
    }

    // The text that is stored; "refused" while a required position is unfilled.
    std::string Commit()
    {
        Apply(caret_, false, false);
        return FillMaskGaps(state_, platform_) == MaskGaps::Incomplete ? "refused" : Text();
    }

    std::string Text() const
    {
        std::string text;
        for (const wchar_t* at = state_.MaskText; *at; ++at)
            text += static_cast<char>(*at);
        return text;
    }

    const MaskState& State() const { return state_; }

    int Positions;
    std::string Source; // as compiling left it

private:
    void SetText(const std::string& text)
    {
        std::copy(text.begin(), text.end(), state_.MaskText);
        state_.MaskText[text.size()] = 0;
    }
    void Move(char key, int length)
    {
        int to = key == Left ? caret_ - 1 : key == Right ? caret_ + 1 : key == Home ? 0 : length;
        caret_ = std::clamp(to, 0, length);
    }
    std::string Apply(int caret, bool backspace, bool deleteMode)
    {
        MaskPass pass = {caret, backspace, deleteMode};
        bool accepted = ApplyMask(state_, platform_, pass);
        caret_ = std::min(pass.Caret, static_cast<int>(Text().size()));
        return Show(accepted);
    }
    std::string Show(bool accepted) const
    {
        std::string text = Text();
        text.insert(static_cast<size_t>(caret_), 1, '^');
        return accepted ? text : text + '!';
    }

    MaskState state_ = {};
    MaskPlatform platform_;
    int caret_ = 0;
};

inline std::string ShownWhileTyping(const MaskPlatform& platform, const std::string& mask,
                                    const std::string& start, const std::string& keys, std::string& stored)
{
    MaskSession session(platform, mask);
    std::string shown = session.Open(start);
    for (char key : keys)
        shown += "|" + session.Type(key);
    stored = session.Commit();
    return shown;
}
