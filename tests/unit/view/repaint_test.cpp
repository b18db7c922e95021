#include "view/drawing_objects.h"
#include "view/resources.h"
#include "view/scroll.h"
#include "view/theme.h"

#include "platform/dpi.h"
#include "support/pixels.h"

namespace
{
// A grid on a visible window of its own.
class Windowed : public PaintTest
{
protected:
    Windowed()
    {
        grid.Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                      nullptr, nullptr, nullptr);
        Validate();
    }
    ~Windowed() override { DestroyWindow(std::exchange(grid.Window, nullptr)); }

    void Validate() { ValidateRect(grid.Window, nullptr); }
    RECT Invalid()
    {
        RECT update = {};
        GetUpdateRect(grid.Window, &update, FALSE);
        Validate();
        return update;
    }
    bool IsInvalid(const RECT& expected)
    {
        RECT update = Invalid();
        return EqualRect(&update, &expected);
    }
};

TEST_F(Windowed, RepaintOfACellIsThatOfItsRectangle)
{
    RepaintCell(grid, 2, 1);
    EXPECT_TRUE(IsInvalid(CellAt(2, 1)));
}

TEST_F(Windowed, RepaintOfACellOutOfSightIsNothing)
{
    grid.TopRow = 4;
    RepaintCell(grid, 2, 1);
    EXPECT_TRUE(IsInvalid({}));
    grid.TopRow = 1;
    grid.Redraw = lorvRDNone;
    RepaintCell(grid, 2, 1);
    EXPECT_TRUE(IsInvalid({}));
}

TEST_F(Windowed, RepaintOfACellIsThatOfAllWhileTheMergeLinksAreStale)
{
    grid.MergeCells = lorvMergeFree;
    SetOption(grid, OptionMergeStale, true);
    RepaintCell(grid, 2, 1);
    RECT client = {};
    GetClientRect(grid.Window, &client);
    EXPECT_TRUE(IsInvalid(client));
    SetOption(grid, OptionMergeStale, false);
    RepaintCell(grid, 2, 1);
    EXPECT_TRUE(IsInvalid(CellAt(2, 1)));
}

TEST_F(Windowed, VisibleCellsAreThoseWhoseCornerIsInTheClientArea)
{
    ResizeRows(grid, 40);
    for (int row = 0; row < grid.Rows; ++row)
        grid.RowTable[row].Height = RowHeight;
    grid.FrozenRows = 1;
    grid.TopRow = 5;
    struct {
        int Row;
        bool Visible;
    } const cases[] = {{0, true}, {1, true},  {2, false}, {4, false},
                       {5, true}, {12, true}, {13, true}, {14, false}};
    for (const auto& c : cases)
        EXPECT_EQ(IsCellVisible(grid, c.Row, -1), c.Visible) << c.Row;
    EXPECT_TRUE(IsCellVisible(grid, -1, 3));
    EXPECT_FALSE(IsCellVisible(grid, 2, 3));
}

TEST_F(Windowed, BorderFollowsAppearance)
{
    constexpr DWORD edges = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;
    struct {
        int Border, Appearance;
        bool Line;
        DWORD Edge;
    } const cases[] = {{lorvBorderNone, lorvFlat, false, 0},
                       {lorvBorderNone, lorv3D, false, 0},
                       {lorvBorderFlat, lorvFlat, true, 0},
                       {lorvBorderFlat, lorv3D, false, WS_EX_CLIENTEDGE},
                       {lorvBorderFlat, lorv3DLight, false, WS_EX_STATICEDGE},
                       {lorvBorderFlat, lorvXPThemes, false, WS_EX_STATICEDGE}};
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        grid.BorderStyle = static_cast<int16_t>(c.Border);
        grid.Appearance = static_cast<int16_t>(c.Appearance);
        ApplyBorderStyle(grid);
        EXPECT_EQ((GetWindowLongPtrW(grid.Window, GWL_STYLE) & WS_BORDER) != 0, c.Line);
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongPtrW(grid.Window, GWL_EXSTYLE)) & edges, c.Edge);
    }
}

TEST_F(Windowed, ScrollBarIsAtTheLeftExactlyFromRightToLeft)
{
    for (bool rightToLeft : {true, false}) {
        SetOption(grid, OptionRightToLeft, rightToLeft);
        ApplyBorderStyle(grid);
        EXPECT_EQ((GetWindowLongPtrW(grid.Window, GWL_EXSTYLE) & WS_EX_LEFTSCROLLBAR) != 0, rightToLeft);
    }
}

TEST_F(Windowed, ThemeIsAskedOfAWindowOfAThemedClass)
{
    ThemeReopen(grid, grid.Window);
    EXPECT_EQ(grid.Theme.ThemeWindow, grid.Window);
    HWND combo = CreateWindowExW(0, L"COMBOBOX", nullptr, WS_CHILD, 0, 0, 0, 0, grid.Window, nullptr, nullptr,
                                 nullptr);
    EXPECT_EQ(IsThemed(grid), grid.Theme.GetWindowTheme(combo) != nullptr);
    DestroyWindow(combo);
    EXPECT_EQ(GetWindow(grid.Window, GW_CHILD), nullptr) << "the probe is gone";
    CloseThemes(grid);
    EXPECT_EQ(grid.Theme.ThemeWindow, nullptr);
}

TEST_F(PaintTest, DrawingObjectsFollowTheirColourByNumber)
{
    RebuildGdi(grid, -1);
    LOGBRUSH brush = {};
    grid.BackColorFixed = RGB(1, 2, 3);
    RebuildGdi(grid, 1);
    GetObjectW(grid.Drawing.Fixed, sizeof(brush), &brush);
    EXPECT_EQ(brush.lbColor, Fixed);
    RebuildGdi(grid, 2);
    GetObjectW(grid.Drawing.Fixed, sizeof(brush), &brush);
    EXPECT_EQ(brush.lbColor, RGB(1, 2, 3));
    EXPECT_EQ(grid.Drawing.Alternate, nullptr);
    EXPECT_EQ(grid.Drawing.Frozen, nullptr);
    grid.BackColorFrozen = RGB(4, 5, 6);
    RebuildGdi(grid, 8);
    EXPECT_NE(grid.Drawing.Frozen, nullptr);
    for (int unknown : {-2, 9, 1000})
        RebuildGdi(grid, unknown);
    LOGPEN pen = {};
    grid.GridLineWidth = 3;
    RebuildGdi(grid, 5);
    GetObjectW(grid.Drawing.GridPen, sizeof(pen), &pen);
    EXPECT_EQ(pen.lopnWidth.x, 3);
    EXPECT_EQ(pen.lopnColor, Line);
}

TEST(ModuleResources, AreMadeOnceAndComeAgainAfterTheirRelease)
{
    HICON mark = SortMarkIcon(true);
    EXPECT_NE(mark, nullptr);
    EXPECT_EQ(SortMarkIcon(true), mark);
    EXPECT_NE(SortMarkIcon(false), mark);
    EXPECT_NE(RowIndicatorIcon(true), RowIndicatorIcon(false));
    EXPECT_NE(ControlIcon(), nullptr);
    EXPECT_NE(PatternBrush(), nullptr);
    for (int cursor = 0; cursor <= static_cast<int>(GridCursor::Hand); ++cursor)
        EXPECT_NE(GridCursorOf(static_cast<GridCursor>(cursor)), nullptr) << cursor;
    ReleaseModuleResources();
    EXPECT_NE(SortMarkIcon(true), nullptr);
}

TEST(ModuleResources, CheckBoxesFitTheirPlaceWithoutScaling)
{
    for (int image = 0; image <= static_cast<int>(CheckImage::DisabledUnchecked); ++image) {
        BITMAP info = {};
        GetObjectW(CheckBoxBitmap(static_cast<CheckImage>(image)), sizeof(info), &info);
        EXPECT_EQ(info.bmWidth, CheckBoxSide());
        EXPECT_EQ(info.bmHeight, CheckBoxSide());
    }
    EXPECT_EQ(CheckBoxSide(), DpiScale(10) / 2 * 2 + 1);
}
} // namespace
