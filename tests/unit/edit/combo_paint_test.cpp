// The items of a drop-down, drawn into memory.

#include "support/combo_grid.h"
#include "support/pixels.h"

#include "platform/gdi.h"

namespace
{
class ComboPaint : public ComboTest
{
protected:
    static constexpr COLORREF Back = RGB(250, 240, 230), Ink = RGB(1, 2, 3), Selection = RGB(90, 60, 30),
                              InkSel = RGB(255, 255, 0), Line = RGB(10, 200, 210);

    Canvas canvas{200, 20};

    ComboPaint()
    {
        grid.BackColor = Back, grid.ForeColor = Ink, grid.GridColor = Line;
        grid.BackColorSel = Selection, grid.ForeColorSel = InkSel;
        RebuildGdi(grid, -1);
    }

    // Draws an item into the canvas; `left` above 0 is the box beside the list.
    bool Draw(int item, UINT state = 0, int left = 0, UINT action = ODA_DRAWENTIRE)
    {
        DRAWITEMSTRUCT draw = {};
        draw.CtlType = ODT_COMBOBOX;
        draw.CtlID = 667;
        draw.itemID = static_cast<UINT>(item);
        draw.itemAction = action;
        draw.itemState = state;
        draw.hwndItem = grid.ComboWindow;
        draw.hDC = canvas.Get();
        draw.rcItem = {left, 0, 200, 20};
        SelectedObject font(canvas.Get(), GridFontHandle(grid));
        LRESULT result = 0;
        return ProcessWindowMessage(grid, WM_DRAWITEM, 667, reinterpret_cast<LPARAM>(&draw), result);
    }
    RECT InkIn(const RECT& area, COLORREF back) const { return canvas.ExtentBeside(area, back); }
    int Width(int column) const { return grid.EditorList.ColumnWidth[column]; }
};
} // namespace

TEST_F(ComboPaint, DrawsOneColumnInTheColoursOfTheCell)
{
    Open(L"One|Two");
    EXPECT_TRUE(Draw(0));
    EXPECT_EQ(canvas.At(150, 10), Back);
    RECT ink = InkIn(canvas.Area(), Back);
    EXPECT_GE(ink.left, 4);
    EXPECT_LT(ink.left, 9);
    EXPECT_GT(canvas.Count(canvas.Area(), Ink), 0);
}

TEST_F(ComboPaint, DrawsTheSelectedItemInTheColoursOfTheSelection)
{
    Open(L"One|Two");
    EXPECT_TRUE(Draw(0, ODS_SELECTED));
    EXPECT_EQ(canvas.At(150, 10), Selection);
    EXPECT_GT(canvas.Count(canvas.Area(), InkSel), 0);
    EXPECT_EQ(canvas.Count(canvas.Area(), Ink), 0);
}

TEST_F(ComboPaint, DrawsTheColoursOfTheCellsFormat)
{
    EnsureCellFormat(grid, 1, 1)->BackColor = RGB(0, 99, 0);
    EnsureCellFormat(grid, 1, 1)->BackColorSet = 1;
    EnsureCellFormat(grid, 1, 1)->ForeColor = RGB(99, 0, 0);
    Open(L"One|Two");
    Draw(0);
    EXPECT_EQ(canvas.At(150, 10), RGB(0, 99, 0));
    EXPECT_GT(canvas.Count(canvas.Area(), RGB(99, 0, 0)), 0);
}

TEST_F(ComboPaint, DrawsNoItemAsItsBackground)
{
    Open(L"One|Two");
    EXPECT_TRUE(Draw(-1));
    EXPECT_EQ(canvas.Count(canvas.Area(), Back), 200 * 20);
}

TEST_F(ComboPaint, DrawsItsColumnsSideBySideWithLinesBetween)
{
    Open(L"#1*1;one\ttwo\tthree|#2;a\tb\tc");
    EXPECT_TRUE(Draw(0));
    int first = Width(0), second = first + Width(1), third = second + Width(2);
    EXPECT_EQ(canvas.At(first - 1, 0), Line);
    EXPECT_EQ(canvas.At(first - 1, 19), Line);
    EXPECT_EQ(canvas.At(second - 1, 10), Line);
    EXPECT_NE(canvas.At(third - 1, 10), Line);
    for (RECT column :
         {RECT{0, 0, first - 1, 20}, RECT{first, 0, second - 1, 20}, RECT{second, 0, third, 20}}) {
        RECT ink = InkIn(column, Back);
        EXPECT_FALSE(IsRectEmpty(&ink)) << column.left;
        EXPECT_GE(ink.left, column.left + 4);
    }
}

TEST_F(ComboPaint, DrawsTheKeyColumnBold)
{
    // The same text in both columns: the one of the key column is drawn again, one pixel to the right.
    Open(L"#1*1;ill\till");
    Draw(0);
    int width = Width(0);
    EXPECT_EQ(Width(1), width);
    RECT plain = InkIn({0, 0, width - 1, 20}, Back), bold = InkIn({width, 0, 2 * width, 20}, Back);
    EXPECT_EQ(bold.left - width, plain.left);
    EXPECT_EQ(bold.right - width, plain.right + 1);
    int plainInk = canvas.Count({0, 0, width - 1, 20}, Ink),
        boldInk = canvas.Count({width, 0, 2 * width, 20}, Ink);
    EXPECT_GT(boldInk, plainInk);
}

TEST_F(ComboPaint, DrawsTheFirstColumnBoldUnlessTheHeadNamesIt)
{
    Open(L"ill\till");
    Draw(0);
    int width = Width(0);
    int plain = canvas.Count({width, 0, 2 * width, 20}, Ink);
    EXPECT_GT(canvas.Count({0, 0, width - 1, 20}, Ink), plain);
    CommitEdit(grid, true);
    Open(L"#1*0;ill\till");
    canvas.Fill(Untouched);
    Draw(0);
    EXPECT_EQ(canvas.Count({0, 0, width - 1, 20}, Ink), plain);
}

TEST_F(ComboPaint, DrawsTheColourOfTheKeyColumn)
{
    constexpr COLORREF red = RGB(255, 0, 0);
    Open(L"#1*0&255;one\ttwo");
    Draw(0);
    int first = Width(0);
    EXPECT_EQ(canvas.At(1, 1), red);
    EXPECT_EQ(canvas.At(first - 2, 18), red);
    EXPECT_EQ(canvas.At(first + 1, 1), Back);
    EXPECT_GT(canvas.Count({0, 0, first - 1, 20}, Ink), 0);
    Draw(0, ODS_SELECTED);
    EXPECT_EQ(canvas.Count(canvas.Area(), red), 0);
}

TEST_F(ComboPaint, TheColourOfALastKeyColumnReachesTheEnd)
{
    constexpr COLORREF red = RGB(255, 0, 0);
    Open(L"#1*1&255;one\ttwo");
    Draw(0);
    EXPECT_EQ(canvas.At(Width(0) + 1, 1), red);
    EXPECT_EQ(canvas.At(199, 10), red);
}

TEST_F(ComboPaint, DrawsTheTextOfTheItemAloneInTheBox)
{
    Open(L"#1*1;first column\tx|#2;b\tc");
    Draw(0, 0, 3);
    RECT ink = InkIn({3, 0, 200, 20}, Back);
    EXPECT_LT(ink.right, 3 + 4 + 12);
    EXPECT_GE(ink.left, 3 + 4);
    EXPECT_EQ(canvas.Count(canvas.Area(), Line), 0);
    EXPECT_EQ(canvas.At(1, 10), Untouched);
}

TEST_F(ComboPaint, DrawsWhatEntriesLeaveOut)
{
    // Both first columns are as wide as "mmmmmmmm", so that what is drawn in them can be compared.
    Open(L"xx;a\tb|mmmmmmmm\tb");
    Draw(0);
    RECT with = InkIn({0, 0, Width(0) - 1, 20}, Back);
    CommitEdit(grid, true);
    Open(L"a\tb|mmmmmmmm\tb");
    Draw(0);
    RECT without = InkIn({0, 0, Width(0) - 1, 20}, Back);
    EXPECT_GT(with.right, without.right);
}

TEST_F(ComboPaint, DrawsFromRightToLeftAtTheRight)
{
    SetOption(grid, OptionRightToLeft, true);
    Open(L"One|Two");
    Draw(0);
    RECT ink = InkIn(canvas.Area(), Back);
    EXPECT_GE(ink.right, 190);
    EXPECT_LE(ink.right, 196);
}

TEST_F(ComboPaint, AsksTheHandlerFirst)
{
    Open(L"One|Two");
    std::vector<long> arguments;
    bool done = true;
    live.On(ComboDrawItemId, [&](DISPPARAMS& parameters) {
        for (UINT i = 0; i < 10; ++i)
            arguments.push_back(EventSink::Argument(parameters, i).lVal);
        *parameters.rgvarg[0].pboolVal = done ? VARIANT_TRUE : VARIANT_FALSE;
    });
    live.GoTo(1, 1);
    grid.EditRow = 2, grid.EditCol = 1;
    EXPECT_TRUE(Draw(1, ODS_SELECTED | ODS_FOCUS, 7, ODA_SELECT));
    // The column comes before the row, the right before the top.
    std::vector<long> expected = {1,
                                  2,
                                  1,
                                  ODA_SELECT,
                                  ODS_SELECTED | ODS_FOCUS,
                                  static_cast<long>(reinterpret_cast<INT_PTR>(canvas.Get())),
                                  7,
                                  200,
                                  0,
                                  20};
    EXPECT_EQ(arguments, expected);
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 200 * 20);
    done = false;
    Draw(1);
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 0);
}

TEST_F(ComboPaint, DrawsOnlyItsOwnItemsWhileItIsShown)
{
    Open(L"One|Two");
    DRAWITEMSTRUCT draw = {};
    draw.CtlID = 666;
    draw.itemAction = ODA_DRAWENTIRE;
    draw.hDC = canvas.Get();
    draw.rcItem = canvas.Area();
    EXPECT_FALSE(OnEditorDrawItem(grid, draw));
    draw.CtlID = 667;
    EXPECT_TRUE(OnEditorDrawItem(grid, draw));
    draw.itemAction = 0;
    EXPECT_FALSE(OnEditorDrawItem(grid, draw));
    CommitEdit(grid, true);
    draw.itemAction = ODA_DRAWENTIRE;
    EXPECT_FALSE(OnEditorDrawItem(grid, draw));
}

TEST_F(ComboPaint, MovesAListBackOntoTheScreen)
{
    if (GetSystemMetrics(SM_CMONITORS) >= 2)
        GTEST_SKIP() << "only on a single screen";
    Open(L"One|Two");
    int width = GetSystemMetrics(SM_CXSCREEN);
    HWND list = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, width - 60, 40, 100, 50, nullptr, nullptr,
                                nullptr, nullptr);
    DRAWITEMSTRUCT draw = {};
    draw.CtlID = 667;
    draw.itemAction = ODA_DRAWENTIRE;
    draw.hDC = GetDC(list);
    draw.rcItem = {0, 0, 100, 20};
    EXPECT_EQ(WindowFromDC(draw.hDC), list);
    EXPECT_TRUE(OnEditorDrawItem(grid, draw));
    ReleaseDC(list, draw.hDC);
    RECT area = {};
    GetWindowRect(list, &area);
    EXPECT_EQ(area.right, width);
    EXPECT_EQ(area.left, width - 100);
    EXPECT_EQ(area.top, 40);
    DestroyWindow(list);
}
