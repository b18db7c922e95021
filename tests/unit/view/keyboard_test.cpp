#include "view/keyboard.h"

#include "core/upcalls.h"
#include "platform/memory.h"
#include "support/event_text.h"
#include "support/grid_window.h"
#include "support/held_keys.h"
#include "view/messages.h"

#include <vector>

namespace
{
class Keyboard : public GridInWindow
{
protected:
    Keyboard()
    {
        grid.Row = grid.RowSel = grid.LastRow = grid.LastRowSel = 5;
        grid.Col = grid.ColSel = grid.LastCol = grid.LastColSel = 2;
        events.On = [this](DISPID id, DISPPARAMS& parameters) {
            text_ += (text_.empty() ? "" : " ") + EventText(id, parameters);
            if (on)
                on(id, parameters);
        };
    }

    bool Send(UINT message, WPARAM wParam, LPARAM lParam = 0)
    {
        text_.clear();
        LRESULT result = 0;
        return ProcessWindowMessage(grid, message, wParam, lParam, result);
    }
    const std::string& Events() const { return text_; }

    // Answers the key of an event with another one.
    void Answer(DISPID event, short key)
    {
        on = [=](DISPID id, DISPPARAMS& parameters) {
            if (id == event)
                *EventSink::Argument(parameters, 0).piVal = key;
        };
    }
    bool HasTypedCharacter()
    {
        MSG message = {};
        return PeekMessageW(&message, grid.Window, WM_CHAR, WM_CHAR, PM_REMOVE);
    }

    std::function<void(DISPID, DISPPARAMS&)> on;

private:
    std::string text_;
};
constexpr DISPID KeyDownId = -602, KeyUpId = -604;
} // namespace

TEST_F(Keyboard, EventsCarryTheModifiers)
{
    const struct {
        std::initializer_list<int> Held;
        const char* Events;
    } rows[] = {
        {{}, "(65,0)"},
        {{VK_SHIFT}, "(65,1)"},
        {{VK_CONTROL}, "(65,2)"},
        {{VK_MENU}, "(65,4)"},
        {{VK_SHIFT, VK_CONTROL, VK_MENU}, "(65,7)"},
    };
    for (const auto& row : rows) {
        HeldKeys held(row.Held);
        for (UINT message : {WM_KEYDOWN, WM_SYSKEYDOWN}) {
            EXPECT_FALSE(Send(message, 'A'));
            EXPECT_EQ(Events(), std::string("KeyDown") + row.Events);
        }
        for (UINT message : {WM_KEYUP, WM_SYSKEYUP}) {
            EXPECT_FALSE(Send(message, 'A'));
            EXPECT_EQ(Events(), std::string("KeyUp") + row.Events);
        }
    }
}

TEST_F(Keyboard, ANavigationKeyIsReportedFirst)
{
    EXPECT_FALSE(Send(WM_KEYDOWN, VK_DOWN));
    EXPECT_EQ(Events(),
              "KeyDown(40,0) LeaveCell BeforeRowColChange(5,2,6,2) BeforeSelChange(5,2,6,2) EnterCell "
              "RowColChange AfterRowColChange(5,2,6,2) SelChange AfterSelChange(5,2,6,2)");
}

TEST_F(Keyboard, AKeyAnsweredByAnotherIsTheOther)
{
    Answer(KeyDownId, VK_RIGHT);
    Send(WM_KEYDOWN, VK_DOWN);
    EXPECT_EQ(grid.Row, 5);
    EXPECT_EQ(grid.Col, 3);
}

TEST_F(Keyboard, AZeroedKeyMovesNothingAndTypesNothing)
{
    Answer(KeyDownId, 0);
    PostMessageW(grid.Window, WM_CHAR, 'a', 0);
    PostMessageW(grid.Window, WM_CHAR, 'b', 0);
    EXPECT_TRUE(Send(WM_KEYDOWN, VK_DOWN));
    EXPECT_EQ(grid.Row, 5);
    EXPECT_TRUE(HasTypedCharacter()); // the second one: a key types one
    EXPECT_FALSE(HasTypedCharacter());
}

TEST_F(Keyboard, AKeyThatIsLeftTypesItsCharacter)
{
    PostMessageW(grid.Window, WM_CHAR, 'a', 0);
    Send(WM_KEYDOWN, 'A');
    EXPECT_TRUE(HasTypedCharacter());
}

TEST_F(Keyboard, AZeroedKeyUpIsHandled)
{
    EXPECT_FALSE(Send(WM_KEYUP, VK_DOWN));
    Answer(KeyUpId, 0);
    EXPECT_TRUE(Send(WM_KEYUP, VK_DOWN));
    EXPECT_FALSE(Send(WM_SYSKEYUP, VK_DOWN)); // the menu keys stay the system's
}

TEST_F(Keyboard, AKeyUnlocksTheSelection)
{
    grid.EditFlags |= EditFlagSelectionLocked;
    Send(WM_KEYDOWN, VK_DOWN);
    EXPECT_EQ(grid.Row, 6);
    EXPECT_FALSE(grid.EditFlags & EditFlagSelectionLocked);
}

TEST_F(Keyboard, ACharacterIsReported)
{
    EXPECT_TRUE(Send(WM_CHAR, 'x'));
    EXPECT_EQ(Events(), "KeyPress(120)");
    Send(WM_CHAR, 0xAC00); // as the 16 bits that it is
    EXPECT_EQ(Events(), "KeyPress(-21504)");
}

TEST_F(Keyboard, AHandlerMayTakeTheRowsAway)
{
    on = [this](DISPID id, DISPPARAMS&) {
        if (id == KeyDownId)
            ResizeRows(grid, 0);
    };
    for (int key : {VK_DOWN, VK_NEXT, VK_TAB, VK_F2})
        Send(WM_KEYDOWN, key);
    grid.Editable = lorvEDKbd;
    Send(WM_SYSKEYDOWN, VK_DOWN);
    Send(WM_CHAR, 'x');
    EXPECT_EQ(grid.Rows, 0);
}

// Clipboard keys

TEST(ClipboardKeys, LeadToTheMethods)
{
    using enum ClipboardCommand;
    const struct {
        int Key;
        short Modifiers;
        std::optional<ClipboardCommand> Editable, ReadOnly;
    } rows[] = {
        {'C', 2, Copy, Copy},       {VK_INSERT, 2, Copy, Copy}, {'X', 2, Cut, Copy},
        {VK_DELETE, 1, Cut, Copy},  {'V', 2, Paste, {}},        {VK_INSERT, 1, Paste, {}},
        {VK_DELETE, 0, Delete, {}}, {VK_DELETE, 2, {}, {}},     {VK_DELETE, 3, {}, {}},
        {'C', 0, {}, {}},           {'X', 0, {}, {}},           {'V', 1, {}, {}},
        {VK_INSERT, 0, {}, {}},     {'C', 6, {}, {}},           {'A', 2, {}, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ClipboardCommandOf(row.Key, row.Modifiers, true), row.Editable)
            << row.Key << " " << row.Modifiers;
        EXPECT_EQ(ClipboardCommandOf(row.Key, row.Modifiers, false), row.ReadOnly)
            << row.Key << " " << row.Modifiers;
    }
}
