// Paints that meet the worst: handlers that change everything, contexts that fail, pictures of nothing.

#include "support/cells.h"
#include "view/paint_buffer.h"
#include "view/picture.h"

#include <string>
#include <utility>

namespace
{
constexpr DISPID DrawCellId = 32;

class HostilePaint : public Cells
{
protected:
    bool Painted() const { return canvas.Count(canvas.Area(), Untouched) == 0; }
};

TEST_F(HostilePaint, HandlersMayChangeEverythingAtEveryPlace)
{
    auto picture = MakePicture(12, 8, RGB(1, 2, 3));
    const std::pair<const char*, void (*)(Grid&)> deeds[] = {
        {"no cells", [](Grid& grid) { ResizeBoth(grid, 0, 0); }},
        {"one cell", [](Grid& grid) { ResizeBoth(grid, 1, 1); }},
        {"many rows", [](Grid& grid) { ResizeRows(grid, grid.Rows + 1000); }},
        {"no fixed cells", [](Grid& grid) { SetFixedCounts(grid, 0, 0, 0, 0); }},
        {"new pens and brushes", [](Grid& grid) { RebuildGdi(grid, -1); }},
        {"no formats",
         [](Grid& grid) {
             for (int row = 0; row < grid.Rows; ++row)
                 for (int col = 0; col < grid.Cols; ++col)
                     FreeCellContents(grid, row, col, lorvClearEverything);
         }},
        {"no wallpaper", [](Grid& grid) { ReplaceReference<IPictureDisp>(grid.WallPaper, nullptr); }},
        {"merging",
         [](Grid& grid) { grid.MergeCells = lorvMergeSpill, SetOption(grid, OptionMergeStale, true); }},
        {"no redraw", [](Grid& grid) { grid.Redraw = lorvRDNone; }},
    };
    for (const auto& [name, deed] : deeds)
        for (int place : {lorvODComplete, lorvODContent, lorvODOver})
            for (int redraw : {lorvRDDirect, lorvRDBuffered}) {
                SCOPED_TRACE(testing::Message() << name << " " << place << " " << redraw);
                events.On = nullptr;
                SetFixedCounts(grid, 0, 0, 0, 0);
                ResizeBoth(grid, 6, 4);
                SetFixedCounts(grid, 1, 1, 0, 0);
                grid.MergeCells = lorvMergeNever;
                for (int row = 0; row < grid.Rows; ++row)
                    grid.RowTable[row].Height = RowHeight;
                for (int col = 0; col < grid.Cols; ++col)
                    grid.ColTable[col].Width = ColWidth;
                SetText(2, 2, L"text");
                Format(2, 2).ForeColor = RGB(1, 2, 3);
                ReplaceReference<IPictureDisp>(Format(2, 2).Picture, picture.Get());
                ReplaceReference<IPictureDisp>(grid.WallPaper, picture.Get());
                grid.OwnerDraw = static_cast<int16_t>(place);
                grid.Redraw = redraw;
                Select(2, 2, 2, 2);
                int called = 0;
                events.On = [&, act = deed](DISPID id, DISPPARAMS& parameters) {
                    if (id == DrawCellId && EventSink::Argument(parameters, 1).lVal == 2 && called++ == 0)
                        act(grid);
                };
                Draw();
                EXPECT_GT(called, 0);
                EXPECT_EQ(grid.PaintBuffer.Memory, nullptr);
            }
}

TEST_F(HostilePaint, HandlersThatThrowLeaveTheCellToTheGrid)
{
    grid.OwnerDraw = lorvODComplete;
    events.Result = DISP_E_EXCEPTION;
    SetText(1, 1, L"HHH");
    Draw();
    EXPECT_TRUE(Painted());
    EXPECT_GT(canvas.Count(Area(1, 1), Ink), 0);
}

TEST_F(HostilePaint, ContextsThatAreNoneAreLeftAlone)
{
    const HDC none = reinterpret_cast<HDC>(intptr_t{0x1234});
    grid.Extent = {7938, 5292};
    SetText(1, 1, L"HHH");
    for (int redraw : {lorvRDDirect, lorvRDBuffered})
        for (HDC context : {HDC{nullptr}, none})
            for (HDC target : {HDC{nullptr}, none, canvas.Get()}) {
                grid.Redraw = redraw;
                OnDraw(grid, {context, target, canvas.Area()});
                EXPECT_EQ(grid.PaintBuffer.Memory, nullptr);
            }
    OnDraw(grid, {canvas.Get(), none, canvas.Area()});
    EXPECT_FALSE(Painted()) << "no device to be compatible with";
    Draw();
    EXPECT_TRUE(Painted()) << "and the next paint is a good one";
}

TEST_F(HostilePaint, BuffersTooLargeToBeMadeAreNotUsed)
{
    grid.Redraw = lorvRDBuffered;
    Draw({0, 0, 1 << 20, 1 << 20});
    EXPECT_EQ(grid.PaintBuffer.Bitmap, nullptr);
    EXPECT_TRUE(Painted());
}

TEST_F(HostilePaint, PicturesOfNothingDrawNothing)
{
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_NONE;
    ComPtr<IPictureDisp> nothing;
    ASSERT_EQ(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, nothing.PutVoid()), S_OK);
    FakePicture noPicture;
    for (IPictureDisp* picture : {nothing.Get(), noPicture.Get()})
        for (int alignment = lorvPicAlignLeftTop; alignment <= lorvPicAlignTile; ++alignment)
            EXPECT_FALSE(DrawPicture(grid, canvas.Get(), picture, alignment, canvas.Area()));
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 300 * 200);
    ReplaceReference<IPictureDisp>(grid.WallPaper, nothing.Get());
    ReplaceReference<IPictureDisp>(Format(1, 1).Picture, nothing.Get());
    grid.WallPaperAlignment = lorvPicAlignTile;
    Draw();
    EXPECT_TRUE(Painted());
}

TEST_F(HostilePaint, PicturesThatAreNoBitmapsDrawNothingOnScreen)
{
    HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    Rectangle(dc, 0, 0, 20, 20);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_ENHMETAFILE;
    description.emf.hemf = CloseEnhMetaFile(dc);
    ComPtr<IPictureDisp> picture;
    ASSERT_EQ(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.PutVoid()), S_OK);
    for (int alignment : {lorvPicAlignLeftTop, lorvPicAlignStretch, lorvPicAlignTile})
        EXPECT_FALSE(DrawPicture(grid, canvas.Get(), picture.Get(), alignment, canvas.Area()));
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 300 * 200);
}

TEST_F(HostilePaint, TinyPicturesTileALargeAreaInTime)
{
    auto picture = MakePicture(2, 1, RGB(1, 2, 3));
    canvas.Fill(Back);
    EXPECT_TRUE(DrawPicture(grid, canvas.Get(), picture.Get(), lorvPicAlignTile, {0, 0, 30000, 30000}));
    EXPECT_EQ(canvas.At(0, 0), Back) << "white is transparent";
    EXPECT_EQ(canvas.At(1, 0), RGB(1, 2, 3));
    EXPECT_EQ(canvas.Count(canvas.Area(), RGB(1, 2, 3)), 150 * 200);
}

TEST_F(HostilePaint, SheetsOfAnySizeArePainted)
{
    for (LONG side : {0L, 1L, 30000L}) {
        Draw({0, 0, side, side});
        EXPECT_EQ(grid.PaintBuffer.Memory, nullptr);
    }
    grid.RowTable[1].Height = MaxPixels, grid.ColTable[1].Width = MaxPixels;
    canvas.Fill(Untouched);
    Draw();
    EXPECT_TRUE(Painted());
}

TEST_F(HostilePaint, BitsReachContextsThatTakeNoCopies)
{
    Canvas source(10, 10);
    source.Fill(RGB(1, 2, 3));
    HDC dc = CreateMetaFileW(nullptr);
    StretchBits(dc, {20, 20, 60, 50}, source.Get(), {10, 10});
    HMETAFILE metafile = CloseMetaFile(dc);
    PlayMetaFile(canvas.Get(), metafile);
    DeleteMetaFile(metafile);
    EXPECT_EQ(canvas.Count(canvas.Area(), RGB(1, 2, 3)), 40 * 30);
    StretchBits(canvas.Get(), {0, 0, 10, 10}, source.Get(), {10, 10});
    EXPECT_EQ(canvas.At(5, 5), RGB(1, 2, 3)) << "the bitmap is back in its context";
}

TEST_F(HostilePaint, TheFocusIsAskedForByEachPaint)
{
    grid.PaintMode |= PaintHasFocus;
    Draw();
    EXPECT_EQ(grid.PaintMode & PaintHasFocus, 0u);
}
} // namespace
