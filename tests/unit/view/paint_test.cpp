#include "view/paint.h"

#include "support/gdi_objects.h"
#include "support/pixels.h"
#include "view/cell_background.h"
#include "view/grid_picture.h"
#include "view/picture.h"

#include <ostream>

namespace
{
constexpr DISPID DrawCellId = 32;

class Sheet : public PaintTest
{
protected:
    void SetWidths(int width)
    {
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].Width = width;
    }
    int PaintedCells() const { return events.Count(DrawCellId); }
};

TEST_F(Sheet, IsFixedCellsScrollableCellsAndBackground)
{
    Paint();
    EXPECT_EQ(Middle(0, 0), Fixed);
    EXPECT_EQ(Middle(0, 2), Fixed);
    EXPECT_EQ(Middle(3, 0), Fixed);
    EXPECT_EQ(Middle(3, 2), Back);
    EXPECT_EQ(canvas.At(299, 199), Bkg);
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 0);
}

TEST_F(Sheet, RowsWithoutHeightAreNotThere)
{
    grid.RowTable[2].Height = 0;
    Format(3, 1).BackColor = RGB(1, 1, 200), Format(3, 1).BackColorSet = 1;
    Paint();
    EXPECT_EQ(Middle(2, 1), RGB(1, 1, 200));
    EXPECT_EQ(Middle(5, 1), Bkg);
}

TEST_F(Sheet, HiddenColumnsAreNotThere)
{
    grid.ColTable[2].ColFlags |= ColFlagHidden;
    Format(3, 3).BackColor = RGB(1, 1, 200), Format(3, 3).BackColorSet = 1;
    Paint();
    EXPECT_EQ(Middle(3, 2), RGB(1, 1, 200));
    EXPECT_EQ(Middle(3, 3), Bkg);
}

TEST_F(Sheet, ScrolledRowsFollowTheFrozenOnes)
{
    grid.FrozenRows = 1;
    grid.TopRow = 4;
    Format(1, 1).BackColor = RGB(1, 1, 200), Format(1, 1).BackColorSet = 1;
    Format(4, 1).BackColor = RGB(1, 200, 1), Format(4, 1).BackColorSet = 1;
    Paint();
    EXPECT_EQ(Middle(1, 1), RGB(1, 1, 200));
    EXPECT_EQ(Middle(2, 1), RGB(1, 200, 1));
    EXPECT_EQ(Middle(4, 1), Bkg);
}

TEST_F(Sheet, ScrolledColumnsFollowTheFixedOnes)
{
    grid.LeftCol = 3;
    Format(2, 3).BackColor = RGB(1, 200, 1), Format(2, 3).BackColorSet = 1;
    Paint();
    EXPECT_EQ(Middle(2, 0), Fixed);
    EXPECT_EQ(Middle(2, 1), RGB(1, 200, 1));
    EXPECT_EQ(Middle(2, 2), Bkg);
}

TEST_F(Sheet, RunsFromTheRightWhenItReadsSo)
{
    SetOption(grid, OptionRightToLeft, true);
    Format(2, 1).BackColor = RGB(1, 200, 1), Format(2, 1).BackColorSet = 1;
    Paint();
    EXPECT_EQ(canvas.At(275, 50), Fixed);
    EXPECT_EQ(canvas.At(225, 50), RGB(1, 200, 1));
    EXPECT_EQ(canvas.At(50, 50), Bkg);
}

TEST_F(Sheet, LastColumnIsExtendedToTheEdge)
{
    SetOption(grid, OptionExtendLastCol, true);
    Paint();
    EXPECT_EQ(canvas.At(290, 50), Back);
    EXPECT_EQ(canvas.At(299, 50), Line);
    EXPECT_EQ(canvas.At(290, 150), Bkg);
}

TEST_F(Sheet, ColumnBeforeHiddenOnesIsTheLast)
{
    SetOption(grid, OptionExtendLastCol, true);
    grid.ColTable[3].Width = 0;
    Paint();
    EXPECT_EQ(canvas.At(290, 50), Back);
}

TEST_F(Sheet, AlternateRowsCountFromTheFixedOnesAndHiddenRowsCountToo)
{
    constexpr COLORREF stripe = RGB(220, 220, 255);
    grid.BackColorAlternate = stripe;
    Paint();
    EXPECT_EQ(Middle(1, 1), Back);
    EXPECT_EQ(Middle(2, 1), stripe);
    EXPECT_EQ(Middle(3, 1), Back);
    grid.RowTable[2].Flags |= RowFlagHidden;
    Paint();
    EXPECT_EQ(Middle(1, 1), Back);
    EXPECT_EQ(Middle(2, 1), Back);
    EXPECT_EQ(Middle(3, 1), stripe);
}

TEST_F(Sheet, FrozenCellsHaveTheirColourBeforeTheAlternateOne)
{
    constexpr COLORREF frozen = RGB(200, 255, 200), stripe = RGB(220, 220, 255);
    grid.FrozenCols = 1;
    grid.BackColorFrozen = frozen, grid.BackColorAlternate = stripe;
    Paint();
    EXPECT_EQ(Middle(1, 1), frozen);
    EXPECT_EQ(Middle(2, 1), frozen);
    EXPECT_EQ(Middle(2, 2), stripe);
    EXPECT_EQ(Middle(2, 0), Fixed);
}

TEST_F(Sheet, WallPaperShowsThroughPlainCellsOnly)
{
    auto picture = MakePicture(300, 200, RGB(5, 5, 5));
    ReplaceReference<IPictureDisp>(grid.WallPaper, picture.Get());
    Format(2, 2).BackColor = RGB(1, 1, 200), Format(2, 2).BackColorSet = 1;
    grid.HighLight = lorvHighlightAlways;
    Select(3, 3, 3, 3);
    Paint();
    EXPECT_EQ(Middle(1, 1), RGB(5, 5, 5));
    EXPECT_EQ(Middle(2, 2), RGB(1, 1, 200));
    EXPECT_EQ(Middle(3, 3), Selection);
    EXPECT_EQ(Middle(0, 1), Fixed);
    EXPECT_EQ(canvas.At(290, 190), RGB(5, 5, 5)) << "no background is laid over the wallpaper";
    EXPECT_EQ(canvas.At(0, 199), RGB(5, 5, 5));
}

TEST_F(Sheet, OnlyCellsInTheClipAreAskedToPaint)
{
    grid.OwnerDraw = lorvODComplete;
    RECT clip = {60, 45, 90, 55};
    Paint(&clip);
    EXPECT_EQ(PaintedCells(), 1);
    EXPECT_EQ(events.Events[0].Values[1], 2);
    EXPECT_EQ(events.Events[0].Values[2], 1);
}

TEST_F(Sheet, CoordinatesStopAtTheCeilingOfGdi)
{
    grid.OwnerDraw = lorvODComplete;
    grid.RowTable[1].Height = grid.RowTable[2].Height = 30000;
    grid.ColTable[1].Width = grid.ColTable[2].Width = 30000;
    HDC metafile = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    PaintGrid(grid, metafile, {0, 0, 100000, 100000}, nullptr);
    DeleteEnhMetaFile(CloseEnhMetaFile(metafile));
    long right = 0, bottom = 0;
    for (const FiredEvent& event : events.Events) {
        right = std::max(right, event.Values[5]);
        bottom = std::max(bottom, event.Values[6]);
    }
    EXPECT_EQ(right, MaxPixels);
    EXPECT_EQ(bottom, MaxPixels);
}

TEST_F(Sheet, OfNoSizeOrWithoutRowsIsPaintedInPeace)
{
    PaintGrid(grid, canvas.Get(), {0, 0, 0, 0}, nullptr);
    ResizeRows(grid, 0);
    canvas.Fill(Untouched);
    Paint();
    EXPECT_EQ(canvas.At(150, 100), Bkg);
}

TEST_F(Sheet, HandlerThatTakesTheRowsAwayEndsThePaint)
{
    grid.OwnerDraw = lorvODContent;
    events.On = [this](DISPID id, DISPPARAMS&) {
        if (id == DrawCellId)
            ResizeBoth(grid, 1, 1);
    };
    SetText(0, 0, L"x");
    Paint();
    EXPECT_EQ(PaintedCells(), 1);
    EXPECT_EQ(canvas.At(150, 100), Bkg);
}

TEST_F(Sheet, HandlerThatClosesTheGridEndsThePaint)
{
    grid.OwnerDraw = lorvODOver;
    events.On = [this](DISPID, DISPPARAMS&) { grid.Closing = 1; };
    Paint();
    EXPECT_EQ(PaintedCells(), 1);
    grid.Closing = 0;
}

TEST_F(Sheet, DrawingObjectsAreMadeAnewWhenStale)
{
    Paint();
    grid.BackColor = RGB(9, 9, 9);
    Paint();
    EXPECT_EQ(Middle(2, 2), Back);
    SetOption(grid, OptionGdiStale, true);
    Paint();
    EXPECT_EQ(Middle(2, 2), RGB(9, 9, 9));
    EXPECT_FALSE(HasOption(grid, OptionGdiStale));
}

TEST_F(Sheet, LeavesTheContextAsItWas)
{
    HDC dc = canvas.Get();
    HGDIOBJ font = GetCurrentObject(dc, OBJ_FONT), pen = GetCurrentObject(dc, OBJ_PEN);
    SetTextColor(dc, RGB(1, 2, 3));
    SetBkColor(dc, RGB(3, 2, 1));
    SetText(2, 2, L"text");
    Format(2, 2).FloodPercent = 30;
    Format(2, 2).TextStyle = lorvTextRaisedLight;
    Format(2, 2).BorderLeft = 2;
    Paint();
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), font);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), pen);
    EXPECT_EQ(GetTextColor(dc), RGB(1, 2, 3));
    EXPECT_EQ(GetBkColor(dc), RGB(3, 2, 1));
}

class Merged : public PaintTest
{
protected:
    Merged()
    {
        grid.MergeCells = grid.MergeCellsFixed = lorvMergeFree;
        grid.ColTable[1].MergeCol = 1;
        for (int row = 2; row <= 4; ++row)
            SetText(row, 1, L"HHH");
        SetOption(grid, OptionMergeStale, true);
    }
    static constexpr RECT Range = {50, 40, 100, 100};
};

TEST_F(Merged, CellsShowAsOne)
{
    Paint();
    EXPECT_EQ(canvas.At(55, 39), Line);
    EXPECT_EQ(canvas.At(55, 59), Back) << "no line between the members";
    EXPECT_EQ(canvas.At(55, 79), Back);
    EXPECT_EQ(canvas.At(55, 99), Line);
    RECT ink = canvas.Extent(Range, Ink);
    EXPECT_GT(ink.top, 55) << "the text is in the middle, once";
    EXPECT_LT(ink.bottom, 85);
}

TEST_F(Merged, MembersAreAskedForTheWholeRange)
{
    grid.OwnerDraw = lorvODContent;
    Paint();
    int members = 0;
    for (const FiredEvent& event : events.Events)
        if (event.Values[2] == 1 && event.Values[1] >= 2 && event.Values[1] <= 4) {
            ++members;
            EXPECT_EQ(event.Values[4], Range.top);
            EXPECT_EQ(event.Values[6], Range.bottom);
        }
    EXPECT_EQ(members, 3);
}

TEST_F(Merged, MembersPaintInTheirOwnFormat)
{
    Format(4, 1).BackColor = RGB(1, 200, 1), Format(4, 1).BackColorSet = 1;
    Paint();
    EXPECT_EQ(canvas.At(55, 45), RGB(1, 200, 1)) << "the last member is painted last";
}

TEST_F(Merged, RightAndBottomBordersComeFromTheLastCell)
{
    for (int row = 2; row <= 4; ++row)
        Format(row, 1).BorderColor = RGB(0, 0, 200), Format(row, 1).BorderLeft = 1;
    Format(4, 1).BorderColor = RGB(200, 0, 0);
    Format(4, 1).BorderBottom = 2;
    Paint();
    EXPECT_EQ(canvas.At(75, 98), RGB(200, 0, 0));
    EXPECT_EQ(canvas.At(75, 58), Back);
}

TEST_F(Merged, TextSpillsOverEmptyCells)
{
    ResizeRows(grid, 2);
    grid.RowTable[1].Height = RowHeight;
    grid.MergeCells = grid.MergeCellsFixed = lorvMergeSpill;
    SetText(1, 1, L"HHHHHHHHHHHH");
    SetOption(grid, OptionMergeStale, true);
    Paint();
    EXPECT_GT(canvas.Count(CellAt(1, 2), Ink), 0);
    EXPECT_EQ(canvas.At(99, 38), Back) << "no line through the text";
}

TEST_F(Merged, RangesEndJustPastTheBounds)
{
    PaintGrid(grid, canvas.Get(), {0, 0, 300, 70}, nullptr);
    EXPECT_EQ(canvas.At(55, 70), Line) << "the range's bottom line is one pixel past the bounds";
    EXPECT_EQ(canvas.At(55, 75), Untouched);
}

TEST_F(Merged, RangesAreAsHighAsTheirFirstRowAtLeast)
{
    PaintGrid(grid, canvas.Get(), {0, 0, 300, 45}, nullptr);
    EXPECT_EQ(canvas.At(55, 59), Line);
    EXPECT_EQ(canvas.At(55, 61), Untouched);
}

TEST_F(Merged, RangesEndBeforeTheEndOfAPage)
{
    grid.PaintMode |= PaintPrinting;
    PaintGrid(grid, canvas.Get(), {0, 0, 300, 70}, nullptr);
    EXPECT_EQ(canvas.At(55, 68), Line);
    EXPECT_EQ(canvas.At(55, 69), Untouched);
}

TEST_F(Merged, RangesStandAtTheCornerOfTheBounds)
{
    int saved = SaveDC(canvas.Get());
    PaintGrid(grid, canvas.Get(), {40, 30, 300, 200}, nullptr);
    RestoreDC(canvas.Get(), saved);
    EXPECT_EQ(canvas.At(95, 69), Line);
    EXPECT_EQ(canvas.At(95, 89), Back);
    EXPECT_EQ(canvas.At(95, 129), Line);
    EXPECT_EQ(canvas.At(139, 100), Line);
    EXPECT_EQ(canvas.At(138, 100), Back);
}

TEST_F(Merged, RangesRunFromTheRightToo)
{
    SetOption(grid, OptionRightToLeft, true);
    Paint();
    EXPECT_EQ(canvas.At(205, 39), Line);
    EXPECT_EQ(canvas.At(205, 59), Back);
    EXPECT_EQ(canvas.At(205, 99), Line);
    SetOption(grid, OptionExtendLastCol, true);
    Paint();
    EXPECT_EQ(canvas.At(5, 50), Back) << "the last column reaches the left edge";
    EXPECT_EQ(canvas.At(99, 50), Back);
}

TEST_F(Merged, LinksAreBroughtUpToDateByThePaint)
{
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    Paint();
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    SetText(3, 1, L"other");
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    Paint();
    EXPECT_EQ(canvas.At(55, 59), Line);
}

class Draws : public PaintTest
{
protected:
    bool Painted() const { return canvas.Count(canvas.Area(), Untouched) == 0; }
};

TEST_F(Draws, NothingAtRunTimeWhileRedrawIsOff)
{
    grid.Redraw = lorvRDNone;
    Draw();
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 300 * 200);
    grid.DesignModeCache = 1;
    Draw();
    EXPECT_TRUE(Painted()) << "a form designer sees its grid";
}

TEST_F(Draws, NothingIntoAnEmptyRegion)
{
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    SelectClipRgn(canvas.Get(), region);
    DeleteObject(region);
    Draw();
    EXPECT_EQ(events.Count(DrawCellId), 0);
    EXPECT_EQ(grid.Drawing.Back, nullptr);
}

TEST_F(Draws, OnlyIntoTheClipRegion)
{
    for (int redraw : {lorvRDDirect, lorvRDBuffered}) {
        SCOPED_TRACE(redraw);
        grid.Redraw = redraw;
        canvas.Fill(Untouched);
        int saved = SaveDC(canvas.Get());
        IntersectClipRect(canvas.Get(), 60, 30, 130, 80);
        Draw();
        RestoreDC(canvas.Get(), saved);
        EXPECT_EQ(canvas.At(75, 50), Back);
        EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 300 * 200 - 70 * 50);
    }
}

struct BufferCase {
    const char* Name;
    void (*Arrange)(Grid& grid);
    bool Buffered;
};
void PrintTo(const BufferCase& c, std::ostream* out)
{
    *out << c.Name;
}
const BufferCase bufferCases[] = {
    {"direct", [](Grid&) {}, false},
    {"buffered", [](Grid& grid) { grid.Redraw = lorvRDBuffered; }, true},
    {"merging", [](Grid& grid) { grid.MergeCells = lorvMergeFree; }, true},
    {"merging fixed cells", [](Grid& grid) { grid.MergeCellsFixed = lorvMergeFree; }, true},
    {"wallpaper",
     [](Grid& grid) { ReplaceReference<IPictureDisp>(grid.WallPaper, MakePicture(4, 4, 0).Get()); }, true},
    {"buffered at design time", [](Grid& grid) { grid.Redraw = lorvRDBuffered, grid.DesignModeCache = 1; },
     false},
    {"buffered for a host", [](Grid& grid) { grid.Redraw = lorvRDBuffered, grid.DrawingForView = true; },
     false},
};
class Buffering : public PaintTest, public testing::WithParamInterface<BufferCase>
{
};
TEST_P(Buffering, IsUsedWhereItIsAskedForOrNeeded)
{
    GetParam().Arrange(grid);
    Draw();
    EXPECT_EQ(grid.PaintBuffer.Bitmap != nullptr, GetParam().Buffered);
    EXPECT_EQ(grid.PaintBuffer.Memory, nullptr);
    EXPECT_EQ(Middle(0, 2), Fixed);
}
INSTANTIATE_TEST_SUITE_P(Reasons, Buffering, testing::ValuesIn(bufferCases));

TEST_F(Draws, BufferGrowsAndNeverShrinks)
{
    grid.Redraw = lorvRDBuffered;
    Draw({0, 0, 100, 80});
    HBITMAP first = grid.PaintBuffer.Bitmap;
    EXPECT_EQ(grid.PaintBuffer.BufferWidth, 100);
    EXPECT_EQ(grid.PaintBuffer.BufferHeight, 80);
    Draw({0, 0, 90, 70});
    EXPECT_EQ(grid.PaintBuffer.Bitmap, first);
    Draw({0, 0, 90, 120});
    EXPECT_NE(grid.PaintBuffer.Bitmap, nullptr);
    EXPECT_EQ(grid.PaintBuffer.BufferWidth, 100);
    EXPECT_EQ(grid.PaintBuffer.BufferHeight, 120);
}

TEST_F(Draws, AtTheCornerOfTheBoundsThroughTheBufferToo)
{
    for (int redraw : {lorvRDDirect, lorvRDBuffered}) {
        SCOPED_TRACE(redraw);
        grid.Redraw = redraw;
        canvas.Fill(Untouched);
        Draw({40, 30, 300, 200});
        EXPECT_EQ(canvas.At(39, 50), Untouched);
        EXPECT_EQ(canvas.At(65, 40), Fixed);
        EXPECT_EQ(canvas.At(40 + 75, 30 + 50), Back);
    }
}

TEST_F(Draws, WithinADrawGoToTheTargetItself)
{
    grid.Redraw = lorvRDBuffered;
    grid.OwnerDraw = lorvODOver;
    int depth = 0;
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == DrawCellId && depth++ == 0)
            Draw();
    };
    Draw();
    EXPECT_TRUE(Painted());
    EXPECT_EQ(grid.PaintBuffer.Memory, nullptr);
}

TEST_F(Draws, GetTheirBufferBackAfterOneThatWasTooLarge)
{
    grid.Redraw = lorvRDBuffered;
    OnDraw(grid, {canvas.Get(), canvas.Get(), {0, 0, 1 << 28, 1 << 28}});
    EXPECT_EQ(grid.PaintBuffer.Bitmap, nullptr);
    Draw();
    EXPECT_NE(grid.PaintBuffer.Bitmap, nullptr);
    EXPECT_EQ(grid.PaintBuffer.BufferWidth, 300);
}

TEST_F(Draws, KeepTheNumberOfGdiObjects)
{
    grid.Redraw = lorvRDBuffered;
    SetText(1, 1, L"text");
    Format(2, 2).BackColor = RGB(1, 2, 3), Format(2, 2).BackColorSet = 1;
    EnsureRowCells(grid, 3);
    grid.RowTable[3].Cells[1].State = lorvChecked << CheckStateShift;
    Draw();
    int before = GdiObjectCount();
    ASSERT_GT(before, 0);
    for (int i = 0; i < 10000; ++i)
        Draw();
    EXPECT_EQ(GdiObjectCount(), before);
}

TEST_F(Draws, ForAnotherDeviceAreAPictureOfTheClientArea)
{
    grid.Extent = {7938, 5292}; // 300 by 200 pixels at 96 dpi
    grid.BorderStyle = lorvBorderFlat;
    HDC target = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateBitmap(1, 1, 1, 32, nullptr);
    HGDIOBJ previous = SelectObject(target, bitmap);
    OnDraw(grid, {canvas.Get(), target, canvas.Area()});
    SelectObject(target, previous);
    DeleteObject(bitmap);
    DeleteDC(target);
    EXPECT_TRUE(Painted());
    EXPECT_EQ(canvas.At(175, 50), Back);
    EXPECT_EQ(canvas.At(0, 150), GetSysColor(COLOR_BTNSHADOW)) << "the border is drawn as a sunken edge";
    EXPECT_EQ(canvas.At(299, 100), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_NE(canvas.At(0, 90), GetSysColor(COLOR_BTNSHADOW)) << "the sheet is still excluded";
}

TEST_F(Draws, IntoAMetafilePlayBack)
{
    grid.Extent = {7938, 5292};
    grid.BorderStyle = lorvBorderNone;
    RECT frame = {0, 0, 7938, 5292};
    HDC dc = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    OnDraw(grid, {dc, dc, canvas.Area()});
    HENHMETAFILE metafile = CloseEnhMetaFile(dc);
    RECT area = canvas.Area();
    PlayEnhMetaFile(canvas.Get(), metafile, &area);
    DeleteEnhMetaFile(metafile);
    EXPECT_EQ(canvas.At(175, 50), Back);
    EXPECT_EQ(canvas.At(280, 180), Bkg);
}

TEST_F(Draws, CountThemselves)
{
    long before = DrawCount();
    Draw();
    EXPECT_EQ(DrawCount(), before + 1);
}

class GridPicture : public PaintTest
{
protected:
    SIZE SizeOf(const ComPtr<IPictureDisp>& picture) { return PictureSize(picture.Get()); }
    SHORT TypeOf(const ComPtr<IPictureDisp>& picture)
    {
        SHORT type = PICTYPE_NONE;
        if (auto known = QueryFor<IPicture>(picture.Get(), IID_IPicture))
            known->get_Type(&type);
        return type;
    }
};

TEST_F(GridPicture, IsTheSheetFromTheScrollPositionOn)
{
    grid.TopRow = 3;
    ComPtr<IPictureDisp> picture;
    ASSERT_EQ(MakeGridPicture(grid, picture.Put()), S_OK);
    EXPECT_EQ(TypeOf(picture), PICTYPE_BITMAP);
    EXPECT_NEAR(SizeOf(picture).cx, 200, 1);
    EXPECT_NEAR(SizeOf(picture).cy, 80, 1);
    canvas.Fill(Untouched);
    ASSERT_TRUE(DrawPicture(grid, canvas.Get(), picture.Get(), lorvPicAlignLeftTop, canvas.Area()));
    EXPECT_EQ(Middle(0, 1), Fixed);
    EXPECT_EQ(Middle(2, 1), Back);
    EXPECT_EQ(Middle(5, 1), Untouched);
}

TEST_F(GridPicture, OfOneBitHasTwoColours)
{
    grid.PictureType = lorvPictureMonochrome;
    ComPtr<IPictureDisp> picture;
    ASSERT_EQ(MakeGridPicture(grid, picture.Put()), S_OK);
    auto known = QueryFor<IPicture>(picture.Get(), IID_IPicture);
    OLE_HANDLE handle = 0;
    ASSERT_EQ(known->get_Handle(&handle), S_OK);
    BITMAP info = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(static_cast<intptr_t>(static_cast<int>(handle))), sizeof(info),
               &info);
    EXPECT_EQ(info.bmBitsPixel, 1);
    EXPECT_EQ(info.bmWidth, 200);
    EXPECT_EQ(info.bmHeight, 120);
}

TEST_F(GridPicture, CanBeAMetafile)
{
    grid.PictureType = lorvPictureEnhMetafile;
    ComPtr<IPictureDisp> picture;
    ASSERT_EQ(MakeGridPicture(grid, picture.Put()), S_OK);
    EXPECT_EQ(TypeOf(picture), PICTYPE_ENHMETAFILE);
}

TEST_F(GridPicture, TooLargeForTheSystemIsNone)
{
    ResizeRows(grid, 100000);
    for (int row = 0; row < grid.Rows; ++row)
        grid.RowTable[row].Height = MaxPixels;
    ComPtr<IPictureDisp> picture;
    EXPECT_EQ(MakeGridPicture(grid, picture.Put()), S_OK);
    EXPECT_FALSE(picture);
}

class Pages : public PaintTest
{
protected:
    Pages()
    {
        grid.PaintMode |= PaintPrinting;
        grid.HighLight = lorvHighlightAlways;
    }
    // Prints into the top left part of the canvas.
    void PrintPage(int width, int height)
    {
        int saved = SaveDC(canvas.Get());
        PaintGrid(grid, canvas.Get(), {0, 0, width, height}, nullptr);
        GetCurrentPositionEx(canvas.Get(), &end_);
        RestoreDC(canvas.Get(), saved);
    }
    POINT end_ = {};
};

TEST_F(Pages, HaveWholeRowsAndColumnsAndRememberTheNext)
{
    PrintPage(170, 90);
    EXPECT_EQ(grid.PrintNextCol, 3);
    EXPECT_EQ(grid.PrintNextRow, 4);
    EXPECT_EQ(canvas.At(155, 50), Untouched);
    EXPECT_EQ(canvas.At(75, 85), Untouched);
    EXPECT_EQ(end_.y, 80);
    EXPECT_EQ(canvas.Count(canvas.Area(), Bkg), 0);
}

TEST_F(Pages, CutARowThatIsHigherThanThePage)
{
    grid.TopRow = 2;
    grid.RowTable[2].Height = 500;
    PrintPage(300, 100);
    EXPECT_EQ(grid.PrintNextRow, 3);
    EXPECT_EQ(end_.y, 100);
}

TEST_F(Pages, HaveABorderInTheDarkPen)
{
    COLORREF dark = GetSysColor(COLOR_3DDKSHADOW);
    PrintPage(300, 200);
    EXPECT_EQ(canvas.At(0, 60), dark);
    EXPECT_EQ(canvas.At(100, 0), dark);
    EXPECT_EQ(canvas.At(199, 60), dark);
    EXPECT_EQ(canvas.At(100, 119), dark);
    canvas.Fill(Untouched);
    grid.GridLines = lorvGridNone;
    PrintPage(300, 200);
    EXPECT_EQ(canvas.At(0, 60), dark);
    EXPECT_NE(canvas.At(199, 60), dark);
}

TEST_F(Pages, ShowNoSelectionAndSaveInkOnWhite)
{
    Select(2, 2, 2, 2);
    grid.BackColor = RGB(255, 255, 255);
    PrintPage(300, 200);
    EXPECT_EQ(Middle(2, 2), Untouched);
    EXPECT_EQ(grid.HighLight, lorvHighlightAlways);
    grid.BackColor = RGB(255, 255, 254);
    SetOption(grid, OptionGdiStale, true);
    PrintPage(300, 200);
    EXPECT_EQ(Middle(2, 2), RGB(255, 255, 254));
}
} // namespace
