// A monkey at the keyboard: random keys, clicks and calls while cells are edited, the same ones every time.

#include "support/edit_grid.h"

#include "core/check_state.h"
#include "view/scroll.h"

#include <iterator>

namespace
{
class Monkey
{
public:
    explicit Monkey(uint32_t seed) noexcept : state_(seed) {}
    int Below(int bound) noexcept
    {
        state_ = state_ * 1664525u + 1013904223u;
        return static_cast<int>((state_ >> 8) % static_cast<uint32_t>(bound));
    }

private:
    uint32_t state_;
};

constexpr int keys[] = {VK_TAB, VK_RETURN, VK_ESCAPE, VK_LEFT, VK_RIGHT,  VK_UP, VK_DOWN,  VK_HOME,
                        VK_END, VK_PRIOR,  VK_NEXT,   VK_BACK, VK_DELETE, VK_F2, VK_SPACE, 'A'};
constexpr const wchar_t* texts[] = {
    L"", L"a", L"12", L"1.5", L"two\r\nlines", L"a longer text than its cell"};
constexpr const wchar_t* lists[] = {L"", L"", L"", L"...", L"|...", L"One|Two|Three", L"|One|Two"};
constexpr const wchar_t* masks[] = {L"", L"", L"", L"99/99", L"(LL)", L"&&&;*Q", L">CCC"};

class EditMonkey : public EditTest
{
protected:
    template<class T, size_t Count> T Any(T const (&list)[Count]) { return list[monkey.Below(Count)]; }

    void Click()
    {
        LPARAM at = MAKELPARAM(monkey.Below(300), monkey.Below(200));
        SendMessageW(grid.Window, WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(grid.Window, WM_LBUTTONUP, 0, at);
        if (monkey.Below(3) == 0)
            SendMessageW(grid.Window, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
        SendMessageW(grid.Window, WM_LBUTTONUP, 0, at);
    }
    void Call()
    {
        switch (monkey.Below(14)) {
        case 0:
        case 1:
            grid.EditCell();
            break;
        case 2:
            grid.FinishEditing(VARIANT_FALSE);
            break;
        case 3:
            grid.FinishEditing(VARIANT_TRUE);
            break;
        case 4:
            grid.put_EditText(Bstr(Any(texts)).Get());
            break;
        case 5:
            grid.put_EditSelStart(monkey.Below(9) - 2);
            grid.put_EditSelLength(monkey.Below(9) - 2);
            break;
        case 6:
            grid.put_EditSelText(Bstr(Any(texts)).Get());
            break;
        case 7:
            grid.put_Row(monkey.Below(25) - 2);
            grid.put_Col(monkey.Below(8) - 2);
            break;
        case 8:
            grid.put_Rows(1 + monkey.Below(30));
            break;
        case 9:
            ReplaceText(grid.ComboList, Any(lists));
            break;
        case 10:
            ReplaceText(grid.EditMask, Any(masks));
            break;
        case 11:
            ScrollVertical(grid, ScrollDirect, monkey.Below(20), true);
            break;
        case 12:
            SetCheckState(grid, monkey.Below(20), monkey.Below(5), monkey.Below(8));
            break;
        case 13:
            grid.put_GridLines(static_cast<GridStyleSettings>(monkey.Below(15)));
            break;
        }
    }
    void Step()
    {
        switch (monkey.Below(6)) {
        case 0:
        case 1: {
            int key = Any(keys);
            SendMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
            SendMessageW(GetFocus(), WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
            break;
        }
        case 2: {
            const wchar_t typed[] = {static_cast<wchar_t>(8 + monkey.Below(120)), 0};
            SendMessageW(GetFocus(), WM_CHAR, typed[0], 1);
            break;
        }
        case 3:
            Click();
            break;
        case 4:
            Call();
            break;
        case 5:
            if (monkey.Below(8) == 0)
                SetFocus(other_);
            else
                SetFocus(grid.Window);
            live.Pump();
            break;
        }
    }
    void ExpectSound(int step) const
    {
        bool shown = IsShown(grid.EditBoxWindow) || IsShown(grid.ComboWindow);
        ASSERT_TRUE(!shown || grid.ActiveEditor != EditorNone) << step;
        ASSERT_TRUE(!IsShown(grid.EditBoxWindow) || !IsShown(grid.ComboWindow)) << step;
        ASSERT_EQ(grid.InEvent, 0u) << step;
        ASSERT_FALSE(grid.PaintMode & PaintTogglingCheck) << step;
    }

    Monkey monkey{20240229};
};
} // namespace

TEST_F(EditMonkey, LeavesTheEditorSound)
{
    int nested = 0;
    live.act = [&](DISPID, DISPPARAMS& parameters) {
        if (nested > 2 || monkey.Below(12) != 0)
            return;
        ++nested;
        VARIANTARG& last = parameters.rgvarg[0];
        if (parameters.cArgs && last.vt == (VT_BYREF | VT_BOOL))
            *last.pboolVal = VARIANT_TRUE;
        else
            Call();
        --nested;
    };
    for (int step = 0; step < 3000 && !HasFatalFailure(); ++step) {
        Step();
        live.Fired();
        ExpectSound(step);
    }
    live.act = nullptr;
    live.Pump();
    CommitEdit(grid, true);
    ExpectSound(-1);
    // Afterwards an edit is an edit.
    ReplaceText(grid.ComboList, nullptr);
    ReplaceText(grid.EditMask, nullptr);
    ResizeBoth(grid, 20, 5);
    live.GoTo(5, 2);
    SetCheckState(grid, 5, 2, lorvNoCheckbox);
    live.Open();
    grid.put_EditText(Bstr(L"end").Get());
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Text(5, 2), L"end");
}
