#include "view/focus.h"

#include "core/upcalls.h"
#include "support/event_text.h"
#include "support/grid_window.h"
#include "view/messages.h"
#include "view/selection.h"

namespace
{
class Focus : public GridInWindow
{
protected:
    Focus()
    {
        grid.Row = grid.LastRow = 3;
        grid.Col = grid.LastCol = 2;
        grid.RowSel = grid.LastRowSel = 5;
        grid.ColSel = grid.LastColSel = 3;
        Settle();
    }
    // The area that has to be painted after the message.
    RECT RepaintedBy(UINT message)
    {
        Settle();
        LRESULT result = 0;
        EXPECT_FALSE(ProcessWindowMessage(grid, message, 0, 0, result)); // the default follows
        return Invalid();
    }
    RECT Client() const
    {
        RECT client = {};
        GetClientRect(grid.Window, &client);
        return client;
    }
};

void ExpectSame(const RECT& a, const RECT& b, const char* what)
{
    EXPECT_TRUE(EqualRect(&a, &b)) << what << ": " << a.left << "," << a.top << "," << a.right << ","
                                   << a.bottom << " is not " << b.left << "," << b.top << "," << b.right
                                   << "," << b.bottom;
}
} // namespace

TEST_F(Focus, RepaintsWhatLooksDifferent)
{
    for (UINT message : {WM_SETFOCUS, WM_KILLFOCUS}) {
        grid.SelectionMode = lorvSelectionFree;
        for (int highlight : {lorvHighlightAlways, lorvHighlightNever}) {
            grid.HighLight = static_cast<int16_t>(highlight);
            ExpectSame(RepaintedBy(message), CellRect(grid, 3, 2), "current cell");
        }
        grid.HighLight = lorvHighlightWithFocus;
        ExpectSame(RepaintedBy(message), SelectionPixelRect(grid, true), "selection");
        grid.SelectionMode = lorvSelectionListBox;
        ExpectSame(RepaintedBy(message), Client(), "list box");
    }
}

TEST_F(Focus, RepaintsHeadersThatShowTheSelection)
{
    grid.GridLinesFixed = 13;
    ExpectSame(RepaintedBy(WM_SETFOCUS), Client(), "headers along both edges");
    RECT cell = {4 * ColWidth + 5, 7 * RowHeight, 4 * ColWidth + 10, 8 * RowHeight};
    HRGN update = CreateRectRgn(0, 0, 0, 0);
    RepaintedBy(WM_SETFOCUS);
    GetUpdateRgn(grid.Window, update, FALSE);
    EXPECT_FALSE(RectInRegion(update, &cell)); // but not the cells
    DeleteObject(update);
}

TEST_F(Focus, ComesAndGoesWithEvents)
{
    RepaintedBy(WM_SETFOCUS);
    EXPECT_EQ(events.Ids(), std::vector<DISPID>{83});
    RepaintedBy(WM_KILLFOCUS);
    EXPECT_EQ(events.Ids(), std::vector<DISPID>{84});
}

TEST_F(Focus, LeavesRedrawAsItWas)
{
    for (int redraw : {lorvRDNone, lorvRDDirect, lorvRDBuffered}) {
        grid.Redraw = redraw;
        RepaintedBy(WM_SETFOCUS);
        EXPECT_EQ(grid.Redraw, redraw);
    }
}

TEST_F(Focus, EndsAPress)
{
    SetCapture(grid.Window);
    SetTimer(grid.Window, DragTimer, 50, nullptr);
    grid.PaintMode |= PaintMouseHeld;
    ExpectSame(RepaintedBy(WM_KILLFOCUS), Client(), "all");
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(grid.PaintMode & PaintMouseHeld);
}

TEST_F(Focus, ADragOverAListBoxTakesEffect)
{
    grid.SelectionMode = lorvSelectionListBox;
    SetRowSelected(grid, 20, true);
    grid.PaintMode |= PaintListDragAdds;
    RepaintedBy(WM_KILLFOCUS);
    EXPECT_FALSE(grid.PaintMode & PaintListDragAdds);
    for (int row = 0; row < grid.Rows; ++row)
        EXPECT_EQ((grid.RowTable[row].Flags & RowFlagSelected) != 0, (row >= 3 && row <= 5) || row == 20)
            << row;
}

// The search itself goes on.
TEST_F(Focus, TypedTextOfASearchIsForgotten)
{
    grid.IsSearching = 1;
    grid.SearchLength = 4;
    RepaintedBy(WM_KILLFOCUS);
    EXPECT_EQ(grid.SearchLength, 0);
    EXPECT_EQ(grid.IsSearching, 1);
    grid.IsSearching = 0;
    grid.SearchLength = 4;
    RepaintedBy(WM_KILLFOCUS);
    EXPECT_EQ(grid.SearchLength, 4);
}
