#include "view/header_press.h"

#include "core/events.h"
#include "core/upcalls.h"
#include "platform/key_state.h"
#include "view/entry_move.h"
#include "view/gesture.h"
#include "view/metrics.h"

#include <cstdlib>
#include <optional>

namespace
{
constexpr int MoveDistance = 13; // pixels that make a press on a header a move

// What of the client area counts as inside the headers of the axis while a move begins.
RECT HeaderBand(const Grid& grid, const SheetAxis& axis)
{
    RECT band = ClientRectOf(grid);
    if (axis.Bar == SB_HORZ) {
        band.bottom = SumLengths(grid, RowAxis, 0, grid.FixedRows);
    } else if (grid.FixedCols != 0) {
        int width = SumLengths(grid, ColAxis, 0, grid.FixedCols);
        if (HasOption(grid, OptionRightToLeft))
            band.left = band.right - width;
        else
            band.right = width;
    }
    return band;
}

class PressGesture final : public Gesture
{
public:
    // `moves`: the axis along which a drag moves what is pressed, null for a press alone.
    PressGesture(Grid& grid, POINT start, const RECT& rectangle, const SheetAxis* moves)
        : grid_(grid), rectangle_(rectangle), moves_(moves), start_(start)
    {
        // A header that is held looks different, all of it.
        InvalidateRect(grid.Window, &rectangle_, FALSE);
        UpdateWindow(grid.Window);
        ShowPressed(true);
    }

    void MoveTo(POINT point) override
    {
        if (!move_ && BeginsMove(point))
            move_.emplace(grid_, *moves_, rectangle_, start_);
        if (move_) {
            move_->MoveTo(point);
            move_->ScrollOn();
        } else if (bool inside = PtInRect(&rectangle_, point) != FALSE; inside != pressed_) {
            ShowPressed(inside);
        }
    }

    void Rest() override
    {
        if (move_)
            move_->ScrollOn();
    }

    bool IsPressed() const noexcept { return pressed_ && !move_; }
    EntryMove* Move() noexcept { return move_ ? &*move_ : nullptr; }

    void Finish()
    {
        if (move_)
            move_->Erase();
        if (grid_.Window)
            InvalidateRect(grid_.Window, &rectangle_, FALSE);
    }

private:
    bool BeginsMove(POINT point) const
    {
        if (!moves_)
            return false;
        bool rows = moves_->Bar == SB_VERT;
        if (std::abs(rows ? point.y - start_.y : point.x - start_.x) <= MoveDistance)
            return false;
        RECT band = HeaderBand(grid_, *moves_);
        return rows ? point.x >= band.left && point.x < band.right
                    : point.y >= band.top && point.y < band.bottom;
    }

    void ShowPressed(bool pressed)
    {
        pressed_ = pressed;
        if (!grid_.Window)
            return;
        ClientDC dc(grid_.Window);
        RECT edge = rectangle_;
        DrawEdge(dc.Get(), &edge, pressed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_SOFT);
    }

    Grid& grid_;
    RECT rectangle_;
    const SheetAxis* moves_;
    POINT start_;
    bool pressed_ = false;
    std::optional<EntryMove> move_;
};

struct PressResult {
    bool Clicked;
    bool Moved;
    int Gap;
};

PressResult TrackPress(Grid& grid, POINT point, const RECT& rectangle, const SheetAxis* moves)
{
    if (!grid.Window || !IsKeyHeld(VK_LBUTTON))
        return {};
    KeepAlive alive(grid);
    PressGesture gesture(grid, point, rectangle, moves);
    bool released = RunGesture(grid, gesture) == GestureEnd::Released;
    EntryMove* move = gesture.Move();
    PressResult result = {released && gesture.IsPressed(), released && move, move ? move->Gap() : 0};
    gesture.Finish();
    return result;
}
} // namespace

bool TrackButtonPress(Grid& grid, POINT point, const RECT& rectangle)
{
    return TrackPress(grid, point, rectangle, nullptr).Clicked;
}

bool TrackHeaderPress(Grid& grid, POINT point, int col, const RECT& header, bool mayMove)
{
    PressResult press = TrackPress(grid, point, header, mayMove ? &ColAxis : nullptr);
    if (press.Moved)
        DropColumn(grid, col, press.Gap);
    return press.Clicked;
}

int TrackRowMove(Grid& grid, POINT point, int row)
{
    if (row < grid.FixedRows)
        return row;
    RECT header = HeaderBand(grid, RowAxis);
    header.top = RowY(grid, row);
    header.bottom = header.top + EffectiveRowHeight(grid, row);
    PressResult press = TrackPress(grid, point, header, &RowAxis);
    return press.Moved ? DropRow(grid, row, press.Gap) : row;
}
