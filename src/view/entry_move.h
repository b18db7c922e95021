#pragma once
// A column or row that is being dragged to another place.

#include "platform/gdi.h"
#include "view/sheet_axis.h"

// A copy of the header follows the pointer, and a mark stands where the column or row would go.
class EntryMove
{
public:
    // `header`: what is copied from the screen; `start`: where in it the pointer was.
    EntryMove(Grid& grid, const SheetAxis& axis, const RECT& header, POINT start);
    ~EntryMove();
    EntryMove(const EntryMove&) = delete;
    EntryMove& operator=(const EntryMove&) = delete;

    void MoveTo(POINT point);
    // Scrolls by a line, if the pointer is past the end of the scrolled area. Fires the events of scrolling.
    void ScrollOn();
    // The gap at the pointer.
    int Gap() const;
    // Takes everything off the screen.
    void Erase();

private:
    int ScrollCode() const;
    void DrawCopy();

    Grid& grid_;
    const SheetAxis& axis_;
    HWND window_;
    RECT header_, shown_ = {};
    POINT start_, point_;
    HDC copy_ = nullptr;
    Bitmap bitmap_;
    HGDIOBJ previous_ = nullptr;
};

// What dropping does: asks, moves, tells. The row gives its final position.
void DropColumn(Grid& grid, int col, int gap);
int DropRow(Grid& grid, int row, int gap);
