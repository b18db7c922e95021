#include "view/wheel.h"

#include "support/grid_window.h"
#include "support/held_keys.h"
#include "view/messages.h"

namespace
{
class Wheel : public GridInWindow
{
protected:
    Wheel()
    {
        SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &linesBefore_, 0);
        SetLines(3);
        grid.TopRow = 10;
        RecalculateLayout(grid);
        Settle();
    }
    ~Wheel() override { SetLines(linesBefore_); }

    static void SetLines(UINT lines) { SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, lines, nullptr, 0); }
    // The first scrolled row after a turn of `delta`, 120 a notch.
    int Turn(int delta, UINT message = WM_MOUSEWHEEL)
    {
        LRESULT result = 0;
        bool handled = ProcessWindowMessage(grid, message, MAKEWPARAM(0, delta), 0, result);
        EXPECT_TRUE(handled);
        return grid.TopRow;
    }

private:
    UINT linesBefore_ = 3;
};
} // namespace

TEST_F(Wheel, ScrollsByLinesPerNotch)
{
    EXPECT_EQ(Turn(-120), 13);
    EXPECT_EQ(Turn(120), 10);
    EXPECT_EQ(Turn(-240), 16);
    EXPECT_EQ(Turn(360), 7);
    EXPECT_EQ(Fired().substr(0, 42), "BeforeScroll(10,1,11,1) AfterScroll(10,1,1");
}

TEST_F(Wheel, EachLineIsAScrollOfItsOwn)
{
    Turn(-120);
    EXPECT_EQ(events.Count(BeforeScrollId), 3);
    EXPECT_EQ(events.Count(AfterScrollId), 3);
}

// What is less than a notch is dropped and not kept for the next message.
TEST_F(Wheel, OnlyWholeNotchesCount)
{
    EXPECT_EQ(Turn(-119), 10);
    EXPECT_EQ(Turn(-119), 10);
    EXPECT_EQ(Turn(119), 10);
    EXPECT_EQ(Turn(-239), 13);
    EXPECT_EQ(Turn(0), 13);
}

TEST_F(Wheel, TheUserSaysHowManyLines)
{
    SetLines(1);
    EXPECT_EQ(Turn(-120), 11);
    SetLines(0);
    EXPECT_EQ(Turn(-120), 11);
}

TEST_F(Wheel, APagePerNotchGoesToTheEnd)
{
    SetLines(WHEEL_PAGESCROLL);
    EXPECT_EQ(Turn(-120), 22);
    EXPECT_EQ(Turn(120), 1);
}

TEST_F(Wheel, ShiftAndCtrlHoldIt)
{
    for (int key : {VK_SHIFT, VK_CONTROL}) {
        HeldKeys held{key};
        EXPECT_EQ(Turn(-120), 10) << key;
    }
    HeldKeys alt{VK_MENU};
    EXPECT_EQ(Turn(-120), 13);
}

TEST_F(Wheel, ABarThatIsNotOfferedHoldsIt)
{
    for (int bars : {lorvScrollBarNone, lorvScrollBarHorizontal}) {
        grid.ScrollBars = static_cast<int16_t>(bars);
        EXPECT_EQ(Turn(-120), 10) << bars;
    }
    grid.ScrollBars = lorvScrollBarVertical;
    EXPECT_EQ(Turn(-120), 13);
}

TEST_F(Wheel, ABarWithoutARangeHoldsIt)
{
    Resize(5, 5);
    EXPECT_EQ(Turn(-120), 1);
    EXPECT_EQ(Fired(), "");
}

TEST_F(Wheel, TheFirstMicesMessageIsTheSame)
{
    EXPECT_EQ(WheelMessage(), RegisterWindowMessageW(L"MSWHEEL_ROLLMSG"));
    EXPECT_EQ(Turn(-120, WheelMessage()), 13);
}

TEST_F(Wheel, AHandlerMayEndTheWindow)
{
    events.On = [this](DISPID id, DISPPARAMS&) {
        if (id == AfterScrollId)
            if (HWND window = std::exchange(grid.Window, nullptr))
                DestroyWindow(window);
    };
    EXPECT_EQ(Turn(-120), 11);
}
