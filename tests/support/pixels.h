#pragma once
// A grid painted into memory, and what its pixels say.

#include "core/cell_store.h"
#include "core/grid_object.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "platform/com_ptr.h"
#include "support/fakes.h"
#include "view/paint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

constexpr COLORREF Untouched = RGB(255, 0, 255);

// A 32-bit picture in memory.
class Canvas
{
public:
    Canvas(int width, int height) : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<const DWORD*>(bits);
        previous_ = SelectObject(dc_, bitmap_);
        Fill(Untouched);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas()
    {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }

    HDC Get() const { return dc_; }
    RECT Area() const { return {0, 0, width_, height_}; }

    COLORREF At(int x, int y) const
    {
        GdiFlush();
        DWORD pixel = bits_[y * width_ + x];
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }
    bool SameAs(const Canvas& other) const
    {
        GdiFlush();
        return width_ == other.width_ && height_ == other.height_ &&
               std::equal(bits_, bits_ + width_ * height_, other.bits_);
    }
    void Fill(COLORREF colour) { Fill(Area(), colour); }
    void Fill(RECT area, COLORREF colour)
    {
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(dc_, &area, brush);
        DeleteObject(brush);
    }
    int Count(const RECT& area, COLORREF colour) const
    {
        int count = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                count += At(x, y) == colour;
        return count;
    }
    // The smallest rectangle around the pixels of a colour; empty when there are none.
    RECT Extent(const RECT& area, COLORREF colour) const
    {
        return ExtentWhere(area, [colour](COLORREF pixel) { return pixel == colour; });
    }
    // The same for the pixels of all other colours.
    RECT ExtentBeside(const RECT& area, COLORREF colour) const
    {
        return ExtentWhere(area, [colour](COLORREF pixel) { return pixel != colour; });
    }
    template<class Wanted> RECT ExtentWhere(const RECT& area, Wanted wanted) const
    {
        RECT extent = {area.right, area.bottom, area.left, area.top};
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x)
                if (wanted(At(x, y))) {
                    extent.left = std::min<LONG>(extent.left, x);
                    extent.top = std::min<LONG>(extent.top, y);
                    extent.right = std::max<LONG>(extent.right, x + 1);
                    extent.bottom = std::max<LONG>(extent.bottom, y + 1);
                }
        return IsRectEmpty(&extent) ? RECT{} : extent;
    }

    void Save(const std::string& name) const
    {
        GdiFlush();
        BITMAPFILEHEADER file = {};
        file.bfType = 0x4D42;
        file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
        BITMAPINFOHEADER info = {sizeof(BITMAPINFOHEADER), width_, -height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        file.bfSize = file.bfOffBits + static_cast<DWORD>(width_ * height_ * 4);
        if (FILE* out = std::fopen(name.c_str(), "wb")) {
            std::fwrite(&file, sizeof(file), 1, out);
            std::fwrite(&info, sizeof(info), 1, out);
            std::fwrite(bits_, 4, static_cast<size_t>(width_) * height_, out);
            std::fclose(out);
        }
    }

private:
    int width_, height_;
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    const DWORD* bits_ = nullptr;
};

// 6 rows of 20 pixels by 4 columns of 50, the first of each fixed, in colours that tell everything apart.
class PaintTest : public testing::Test
{
protected:
    static constexpr int RowHeight = 20, ColWidth = 50;
    static constexpr COLORREF Back = RGB(250, 240, 230), Fixed = RGB(120, 200, 120), Bkg = RGB(40, 80, 160),
                              Line = RGB(10, 200, 210), LineFixed = RGB(200, 10, 100),
                              Border = RGB(255, 128, 0), Selection = RGB(90, 60, 30), Ink = RGB(0, 0, 0),
                              InkFixed = RGB(60, 0, 0), InkSel = RGB(255, 255, 0);

    Canvas canvas{300, 200};
    EventSink events;
    Grid grid;

    PaintTest()
    {
        ResizeBoth(grid, 6, 4);
        for (int row = 0; row < grid.Rows; ++row)
            grid.RowTable[row].Height = RowHeight;
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].Width = ColWidth;
        grid.BackColor = Back, grid.BackColorFixed = Fixed, grid.BackColorBkg = Bkg;
        grid.GridColor = Line, grid.GridColorFixed = LineFixed, grid.SheetBorder = Border;
        grid.BackColorSel = Selection;
        grid.ForeColor = Ink, grid.ForeColorFixed = InkFixed, grid.ForeColorSel = InkSel;
        grid.HighLight = lorvHighlightNever;
        grid.FontHandle = GridFontHandle(grid);
        uint32_t cookie = 0;
        EXPECT_TRUE(grid.EventSinks.Add(&events, cookie));
    }
    ~PaintTest() override
    {
        if (HasFailure())
            canvas.Save(std::string("build/failed-") +
                        testing::UnitTest::GetInstance()->current_test_info()->name() + ".bmp");
    }

    // A paint leaves its clipping in the context, which a window's context would not keep.
    void Paint(const RECT* clip = nullptr)
    {
        int saved = SaveDC(canvas.Get());
        PaintGrid(grid, canvas.Get(), canvas.Area(), clip);
        RestoreDC(canvas.Get(), saved);
    }
    void Draw() { Draw(canvas.Area()); }
    void Draw(const RECT& bounds)
    {
        int saved = SaveDC(canvas.Get());
        OnDraw(grid, {canvas.Get(), canvas.Get(), bounds});
        RestoreDC(canvas.Get(), saved);
    }

    static RECT CellAt(int row, int col)
    {
        return {col * ColWidth, row * RowHeight, (col + 1) * ColWidth, (row + 1) * RowHeight};
    }
    COLORREF Middle(int row, int col) const
    {
        return canvas.At(col * ColWidth + ColWidth / 2, row * RowHeight + RowHeight / 2);
    }
    CellFormat& Format(int row, int col) { return *EnsureCellFormat(grid, row, col); }
    void SetText(int row, int col, const wchar_t* text) { SetCellText(grid, row, col, text); }
    void Select(int row, int col, int rowSel, int colSel)
    {
        grid.Row = row, grid.Col = col, grid.RowSel = rowSel, grid.ColSel = colSel;
    }
};

// A picture of one colour with a white pixel in its corner.
inline ComPtr<IPictureDisp> MakePicture(int width, int height, COLORREF colour)
{
    HDC screen = GetDC(nullptr);
    HDC dc = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    ReleaseDC(nullptr, screen);
    HGDIOBJ previous = SelectObject(dc, bitmap);
    RECT area = {0, 0, width, height};
    HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &area, brush);
    DeleteObject(brush);
    SetPixelV(dc, 0, 0, RGB(255, 255, 255));
    SelectObject(dc, previous);
    DeleteDC(dc);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap;
    ComPtr<IPictureDisp> picture;
    OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.PutVoid());
    return picture;
}
