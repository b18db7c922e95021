#include "view/cell_marks.h"

#include "platform/memory.h"
#include "support/fake_theme.h"
#include "view/cell_button.h"

#include <ostream>
#include <string>

namespace
{
constexpr DISPID BeforeEditId = 21;

// --- sort marks

class SortMarks : public Cells
{
protected:
    SortMarks()
    {
        grid.GridLinesFixed = lorvGridNone;
        grid.RowTable[0].Height = 30;
        grid.SortIndicatorCol = 1;
        grid.ExplorerBar = lorvExSortShow;
        grid.ColTable[1].ColSort = 1;
    }
    // Where the header cell differs from its colour.
    RECT MarkAt()
    {
        Paint();
        return canvas.Extent(Area(0, 1), GetSysColor(COLOR_3DDKSHADOW));
    }
    bool Shows()
    {
        RECT mark = MarkAt();
        return !IsRectEmpty(&mark);
    }
};

TEST_F(SortMarks, NeedTheBarTheColumnAndAnOrder)
{
    EXPECT_TRUE(Shows());
    grid.ExplorerBar = lorvExSortShowAndMove;
    EXPECT_TRUE(Shows());
    grid.ExplorerBar = lorvExSortAndMove;
    EXPECT_FALSE(Shows());
    grid.ExplorerBar = lorvExSortShow;
    for (int sort : {0, 9}) {
        grid.ColTable[1].ColSort = static_cast<int16_t>(sort);
        EXPECT_FALSE(Shows()) << sort;
    }
    grid.ColTable[1].ColSort = 8;
    EXPECT_TRUE(Shows());
    grid.SortIndicatorCol = 2;
    EXPECT_FALSE(Shows());
    grid.SortIndicatorCol = 1;
    grid.ColTable[1].Width = 15;
    EXPECT_FALSE(Shows()) << "16 pixels are needed";
}

TEST_F(SortMarks, PointUpForOddOrdersAndDownForEvenOnes)
{
    for (int sort = 1; sort <= 8; ++sort) {
        grid.ColTable[1].ColSort = static_cast<int16_t>(sort);
        RECT mark = MarkAt();
        RECT top = {mark.left, mark.top, mark.right, mark.top + 1};
        RECT bottom = {mark.left, mark.bottom - 1, mark.right, mark.bottom};
        COLORREF ink = GetSysColor(COLOR_3DDKSHADOW);
        EXPECT_EQ(canvas.Count(bottom, ink) > canvas.Count(top, ink), sort % 2 == 1) << sort;
    }
}

TEST_F(SortMarks, StandBesideTheText)
{
    SetText(0, 1, L"HH");
    RECT cell = Area(0, 1);
    grid.ColTable[1].Alignment = lorvAlignLeftCenter;
    RECT mark = MarkAt(), ink = canvas.Extent(cell, InkFixed);
    EXPECT_GT(mark.left, ink.right);
    EXPECT_LT(mark.left, ink.right + 16);
    grid.ColTable[1].Alignment = lorvAlignRightCenter;
    mark = MarkAt(), ink = canvas.Extent(cell, InkFixed);
    EXPECT_LT(mark.right, ink.left);
    grid.ColTable[1].Alignment = lorvAlignCenterCenter;
    mark = MarkAt();
    EXPECT_GE(mark.left, cell.right - 4 - 16);
}

TEST_F(SortMarks, CanBePictures)
{
    auto picture = MakePicture(6, 6, RGB(0, 90, 250));
    ReplaceReference<IPictureDisp>(grid.SortAscendingPicture, picture.Get());
    EXPECT_FALSE(Shows());
    EXPECT_EQ(canvas.Count(Area(0, 1), RGB(0, 90, 250)), 35);
    grid.ColTable[1].ColSort = 2;
    EXPECT_TRUE(Shows()) << "the descending mark has no picture";
}

TEST_F(SortMarks, StandInTheFirstOfTheFixedRowsOnly)
{
    SetFixedCounts(grid, 0, 1, 0, 0);
    EXPECT_FALSE(Shows());
    SetFixedCounts(grid, 2, 1, 0, 0);
    EXPECT_TRUE(Shows());
    EXPECT_EQ(canvas.Count(Area(1, 1), GetSysColor(COLOR_3DDKSHADOW)), 0);
}

class ThemedSortMarks : public Themes
{
protected:
    ThemedSortMarks()
    {
        grid.SortIndicatorCol = 1;
        grid.ExplorerBar = lorvExSortShow;
        grid.ColTable[1].Indent = 6;
        SetText(0, 1, L"HH");
    }
    int TextWidth()
    {
        HGDIOBJ previous = SelectObject(canvas.Get(), grid.FontHandle);
        SIZE size = {};
        GetTextExtentPoint32W(canvas.Get(), L"HH", 2, &size);
        SelectObject(canvas.Get(), previous);
        return size.cx;
    }
};

TEST_F(ThemedSortMarks, AreTrianglesAtTheirPlace)
{
    const COLORREF ink = GetSysColor(COLOR_3DDKSHADOW);
    const RECT cell = Area(0, 1);
    const int centre = (cell.top + cell.bottom) / 2, indent = 6 + 4;
    struct {
        int Alignment, X;
    } const cases[] = {
        {lorvAlignLeftCenter, static_cast<int>(cell.left) + 6 + TextWidth() + indent},
        {lorvAlignCenterCenter, static_cast<int>(cell.right) - indent - 16},
        {lorvAlignRightCenter, static_cast<int>(cell.right) - TextWidth() - indent - 16},
    };
    for (const auto& c : cases)
        for (bool ascending : {true, false}) {
            SCOPED_TRACE(testing::Message() << c.Alignment << (ascending ? " up" : " down"));
            grid.ColTable[1].Alignment = static_cast<int8_t>(c.Alignment);
            grid.ColTable[1].ColSort = ascending ? 1 : 2;
            canvas.Fill(Untouched);
            Paint();
            RECT mark = canvas.Extent(cell, ink);
            Canvas expected(300, 200);
            const int x = c.X;
            const POINT up[] = {{x, centre + 2}, {x + 5, centre - 4}, {x + 10, centre + 2}};
            const POINT down[] = {{x, centre - 3}, {x + 5, centre + 2}, {x + 10, centre - 3}};
            SelectObject(expected.Get(), GetStockObject(NULL_PEN));
            HGDIOBJ brush = SelectObject(expected.Get(), GetSysColorBrush(COLOR_3DDKSHADOW));
            Polygon(expected.Get(), ascending ? up : down, 3);
            SelectObject(expected.Get(), brush);
            RECT wanted = expected.Extent(expected.Area(), ink);
            EXPECT_TRUE(EqualRect(&mark, &wanted)) << mark.left << " for " << wanted.left;
            EXPECT_EQ(canvas.Count(cell, ink), expected.Count(expected.Area(), ink));
        }
}

TEST_F(ThemedSortMarks, OfPicturesStandAtTheSamePlace)
{
    constexpr COLORREF ink = RGB(0, 90, 250);
    auto picture = MakePicture(6, 6, ink);
    ReplaceReference<IPictureDisp>(grid.SortAscendingPicture, picture.Get());
    grid.ColTable[1].Alignment = lorvAlignLeftCenter;
    grid.ColTable[1].ColSort = 3;
    Paint();
    RECT cell = Area(0, 1), mark = canvas.Extent(cell, ink);
    EXPECT_EQ(mark.left, cell.left + 6 + TextWidth() + 10);
    EXPECT_EQ(mark.top, cell.top + (20 - 6) / 2);
    EXPECT_EQ(canvas.Count(cell, GetSysColor(COLOR_3DDKSHADOW)), 0);
}

// --- buttons

class Buttons : public Cells
{
protected:
    Buttons()
    {
        grid.Editable = 1;
        grid.ComboList = DuplicateText(L"a|b");
        Focus(2, 2);
        grid.FocusRect = lorvFocusNone;
    }
    PaintedCell CellOf(int row, int col) { return {row, col, {row, col, row, col}, Area(row, col)}; }
    ButtonSource Find(int row, int col, bool focus)
    {
        return FindButton(grid, CellOf(row, col), focus, focus);
    }
};

TEST_F(Buttons, ShowByTheSettingFocusAndEditor)
{
    struct {
        int Setting;
        bool Current;
        int Editor;
        bool Shown;
    } const cases[] = {
        {lorvSBAlways, false, 0, true},     {lorvSBFocus, false, 0, false},
        {lorvSBFocus, true, 0, true},       {lorvSBEditing, true, 0, false},
        {lorvSBEditing, true, 666, true},   {lorvSBEditing, true, 667, false},
        {lorvSBEditing, false, 666, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        grid.ShowComboButton = c.Setting;
        grid.ActiveEditor = c.Editor;
        EXPECT_EQ(Find(2, 2, c.Current) != ButtonSource::None, c.Shown);
        EXPECT_EQ(Find(0, 2, c.Current), ButtonSource::None) << "fixed cells have none";
    }
    grid.ActiveEditor = 0;
    grid.ShowComboButton = lorvSBAlways;
    grid.Editable = 0;
    EXPECT_EQ(Find(2, 2, true), ButtonSource::None);
}

TEST_F(Buttons, AreAskedForWithRedrawOff)
{
    int seen = -1;
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == BeforeEditId)
            seen = grid.Redraw;
    };
    EXPECT_EQ(Find(2, 2, true), ButtonSource::WholeGrid);
    EXPECT_EQ(seen, lorvRDNone);
    EXPECT_EQ(grid.Redraw, lorvRDDirect);
    events.On = [](DISPID, DISPPARAMS& parameters) {
        *EventSink::Argument(parameters, 2).pboolVal = VARIANT_TRUE;
    };
    EXPECT_EQ(Find(2, 2, true), ButtonSource::None) << "a refused edit has no button";
    events.Events.clear();
    grid.ShowComboButton = lorvSBAlways;
    EXPECT_EQ(Find(2, 2, true), ButtonSource::WholeGrid);
    EXPECT_EQ(events.Count(BeforeEditId), 0) << "buttons that always show ask nobody";
}

TEST_F(Buttons, UseTheColumnsListFirst)
{
    grid.ColTable[2].ColComboList = DuplicateText(L"...");
    EXPECT_EQ(Find(2, 2, true), ButtonSource::Column);
    EXPECT_STREQ(ButtonTextOf(grid, 2, ButtonSource::Column), L"...");
    EXPECT_STREQ(ButtonTextOf(grid, 2, ButtonSource::WholeGrid), L"a|b");
    EXPECT_STREQ(ButtonTextOf(grid, 2, ButtonSource::None), L"");
    EXPECT_STREQ(ButtonTextOf(grid, 99, ButtonSource::Column), L"");
}

TEST_F(Buttons, WithDotsAreThoseOfTwoTexts)
{
    EXPECT_TRUE(IsEllipsisButton(L"..."));
    EXPECT_TRUE(IsEllipsisButton(L"|..."));
    EXPECT_FALSE(IsEllipsisButton(L"...."));
    EXPECT_FALSE(IsEllipsisButton(L"a|b"));
}

TEST_F(Buttons, StandAtTheEndOfTheCell)
{
    Paint();
    RECT cell = Area(2, 2);
    int width = GetSystemMetrics(SM_CXHSCROLL), y = (cell.top + cell.bottom) / 2;
    EXPECT_NE(canvas.At(cell.right - 1, y), Back);
    EXPECT_NE(canvas.At(cell.right - width, y), Back);
    EXPECT_EQ(canvas.At(cell.right - width - 1, y), Back);
    EXPECT_EQ(canvas.At(cell.left, y), Back);
}

TEST_F(Buttons, TakeTheTextsRoomAndAreCutAtTheCellsLeft)
{
    int width = GetSystemMetrics(SM_CXHSCROLL);
    grid.ColTable[2].Width = width + 1;
    SetText(2, 2, L"HHHH");
    Paint();
    RECT cell = Area(2, 2);
    RECT text = {cell.left, cell.top, cell.right - width, cell.bottom};
    EXPECT_EQ(canvas.Count(text, Ink), 0);
    grid.ColTable[2].Width = width - 6;
    Paint();
    cell = Area(2, 2);
    int y = (cell.top + cell.bottom) / 2;
    EXPECT_NE(canvas.At(cell.left, y), Back);
    EXPECT_NE(canvas.At(cell.left - 1, y), GetSysColor(COLOR_3DDKSHADOW));
}

TEST_F(Buttons, CanShowAPicture)
{
    grid.ColTable[2].ColComboList = DuplicateText(L"...");
    auto picture = MakePicture(6, 6, RGB(0, 90, 250));
    ReplaceReference<IPictureDisp>(grid.CellButtonPicture, picture.Get());
    Paint();
    EXPECT_EQ(canvas.Count(Area(2, 2), RGB(0, 90, 250)), 35);
}

TEST_F(Buttons, StayWhileTheEditorOfTheirCellHasTheFocus)
{
    grid.ShowComboButton = lorvSBFocus;
    grid.ActiveEditor = 666;
    EXPECT_EQ(FindButton(grid, CellOf(2, 2), true, false), ButtonSource::WholeGrid);
    grid.ActiveEditor = 667;
    EXPECT_EQ(FindButton(grid, CellOf(2, 2), true, false), ButtonSource::None);
    EXPECT_EQ(FindButton(grid, CellOf(2, 2), true, true), ButtonSource::WholeGrid);
    EXPECT_EQ(events.Count(BeforeEditId), 0) << "an edit that runs has been asked for";
    grid.ActiveEditor = 0;
}

TEST_F(Buttons, ShowNowhereWhileTheCurrentCellIsFixed)
{
    grid.ShowComboButton = lorvSBAlways;
    EXPECT_EQ(Find(3, 3, false), ButtonSource::WholeGrid);
    Select(0, 2, 0, 2);
    EXPECT_EQ(Find(3, 3, false), ButtonSource::None);
}

TEST_F(Buttons, AreAskedForWithTheCellThatIsPainted)
{
    Paint();
    ASSERT_EQ(events.Count(BeforeEditId), 1);
    for (const FiredEvent& event : events.Events)
        if (event.Id == BeforeEditId) {
            EXPECT_EQ(event.Values[0], 2);
            EXPECT_EQ(event.Values[1], 2);
        }
}

TEST_F(Buttons, MayBeGivenTheirListInTheEvent)
{
    FreeAndClear(grid.ComboList);
    EXPECT_STREQ(ButtonTextOf(grid, 2, Find(2, 2, true)), L"");
    events.On = [this](DISPID id, DISPPARAMS&) {
        if (id == BeforeEditId)
            ReplaceText(grid.ComboList, L"late");
    };
    EXPECT_STREQ(ButtonTextOf(grid, 2, Find(2, 2, true)), L"late");
}

TEST_F(Buttons, TakeTheirWidthFromTheFocusMark)
{
    grid.FocusRect = lorvFocusSolid;
    Paint();
    RECT cell = Area(2, 2), mark = canvas.Extent(cell, Selection);
    EXPECT_EQ(mark.left, cell.left);
    EXPECT_EQ(mark.right, cell.right - GetSystemMetrics(SM_CXHSCROLL));
}

TEST_F(Buttons, FromRightToLeftStandBehindTheText)
{
    grid.Extent = {7938, 5292}; // 300 by 200 pixels at 96 dpi
    SetOption(grid, OptionRightToLeft, true);
    constexpr COLORREF ink = RGB(0, 90, 250);
    auto picture = MakePicture(12, 8, ink);
    ReplaceReference<IPictureDisp>(Format(2, 2).Picture, picture.Get());
    Format(2, 2).PictureAlignment = lorvPicAlignRightTop;
    Paint();
    RECT cell = Area(2, 2);
    int width = GetSystemMetrics(SM_CXHSCROLL), y = cell.bottom - 4;
    EXPECT_EQ(canvas.At(cell.right - 1, y), Back) << "the picture's room";
    EXPECT_NE(canvas.At(cell.right - 13, y), Back);
    EXPECT_NE(canvas.At(cell.right - 12 - width, y), Back);
    EXPECT_EQ(canvas.At(cell.right - 12 - width - 1, y), Back);
    EXPECT_EQ(canvas.Count(cell, ink), 11 * 8) << "the picture stands one pixel in";
}

// --- focus marks

TEST_F(Cells, FocusMarksAreLitFromTheirSide)
{
    grid.GridLines = lorvGridFlat;
    Focus(2, 2);
    RECT cell = Area(2, 2);
    int x = (cell.left + cell.right) / 2;
    struct {
        int Mark, Top, Bottom;
    } const cases[] = {{lorvFocusRaised, COLOR_3DLIGHT, COLOR_3DDKSHADOW},
                       {lorvFocusInset, COLOR_3DSHADOW, COLOR_3DHILIGHT}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Mark);
        grid.FocusRect = static_cast<int16_t>(c.Mark);
        Paint();
        EXPECT_EQ(canvas.At(x, cell.top), GetSysColor(c.Top));
        EXPECT_EQ(canvas.At(x, cell.bottom - 1), GetSysColor(c.Bottom)) << "over the line";
    }
}

TEST_F(Cells, HeavyAndSolidMarksAreDoubled)
{
    Focus(2, 2);
    RECT cell = Area(2, 2);
    int inner = cell.right - cell.left - 2;
    grid.FocusRect = lorvFocusSolid;
    Paint();
    EXPECT_EQ(canvas.Count(cell, Selection), 90 * 40 - (90 - 4) * (40 - 4));
    grid.FocusRect = lorvFocusHeavy;
    Paint();
    RECT second = {cell.left + 1, cell.top + 1, cell.right - 1, cell.top + 2};
    int dots = inner - canvas.Count(second, Back);
    EXPECT_NEAR(dots, inner / 2, 2) << "every other pixel";
}

// --- the highlight of a search

TEST_F(Cells, InvertTheSearchedPartOfTheCurrentText)
{
    SetText(2, 2, L"HHHHHH");
    Format(2, 2).Alignment = lorvAlignLeftTop;
    Select(2, 2, 2, 2);
    Paint();
    int plain = canvas.Count(Area(2, 2), Back);
    grid.IsSearching = 1;
    grid.SearchLength = 2;
    Paint();
    EXPECT_LT(canvas.Count(Area(2, 2), Back), plain);
    COLORREF inverted = ~Back & 0xFFFFFF;
    RECT marked = InkIn(2, 2, inverted);
    EXPECT_EQ(marked.left, Area(2, 2).left + 4);
    Select(2, 1, 2, 1);
    Paint();
    EXPECT_EQ(canvas.Count(Area(2, 2), inverted), 0);
    grid.IsSearching = 0;
}

class Searched : public Cells
{
protected:
    Searched()
    {
        Select(2, 2, 2, 2);
        grid.IsSearching = 1;
    }
    ~Searched() override { grid.IsSearching = 0; }
    int WidthOf(const std::wstring& text)
    {
        HGDIOBJ previous = SelectObject(canvas.Get(), grid.FontHandle);
        SIZE size = {};
        GetTextExtentPoint32W(canvas.Get(), text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(canvas.Get(), previous);
        return size.cx;
    }
    // The highlighted part of the cell's room for text: left and right, from the room's left.
    struct Span {
        int Left, Right;
        bool operator==(const Span&) const = default;
        friend void PrintTo(const Span& span, std::ostream* out) { *out << span.Left << ".." << span.Right; }
    };
    Span Highlight(const wchar_t* text, int typed, int alignment)
    {
        SetText(2, 2, text);
        Format(2, 2).Alignment = static_cast<uint8_t>(alignment);
        grid.SearchLength = typed;
        Paint();
        RECT cell = Area(2, 2), marked = canvas.Extent(cell, ~Back & 0xFFFFFF);
        return {static_cast<int>(marked.left - cell.left) - 4,
                static_cast<int>(marked.right - cell.left) - 4};
    }
    int Room() { return static_cast<int>(Area(2, 2).right - Area(2, 2).left) - 8; }
};
TEST_F(Searched, PartFollowsTheAlignment)
{
    int full = WidthOf(L"HHHH"), prefix = WidthOf(L"HH");
    EXPECT_EQ(Highlight(L"HHHH", 2, lorvAlignLeftCenter), (Span{0, prefix}));
    int left = (Room() - full) / 2;
    EXPECT_EQ(Highlight(L"HHHH", 2, lorvAlignCenterTop), (Span{left, left + prefix}));
    EXPECT_EQ(Highlight(L"HHHH", 2, lorvAlignRightBottom), (Span{Room() - full, Room() - full + prefix}));
    EXPECT_EQ(Highlight(L"HHHH", 9, lorvAlignLeftCenter), (Span{0, full})) << "no more than there is";
}

TEST_F(Searched, PartEndsWithTheFirstLine)
{
    int line = WidthOf(L"HH");
    EXPECT_EQ(Highlight(L"HH\nHHHHH", 5, lorvAlignLeftTop), (Span{0, line}));
    EXPECT_EQ(Highlight(L"HH\r\nHHHHH", 5, lorvAlignRightTop), (Span{Room() - line, Room()}));
}

TEST_F(Searched, PartOfAWrappedTextIsMeasuredToTheLastBreakThatFits)
{
    SetOption(grid, OptionWordWrap, true);
    int line = WidthOf(L"HHHH"), prefix = WidthOf(L"HH");
    const Span atBreak = {Room() - line, Room() - line + prefix};
    EXPECT_EQ(Highlight(L"HHHH HHHHHHHHHHHHHH", 2, lorvAlignRightTop), atBreak);
    EXPECT_EQ(Highlight(L"HHHHrHHHHHHHHHHHHHH", 2, lorvAlignRightTop), atBreak)
        << "the letter r counts as a break";
    EXPECT_NE(Highlight(L"HHHHsHHHHHHHHHHHHHH", 2, lorvAlignRightTop), atBreak);
    EXPECT_NE(Highlight(L"HHHHRHHHHHHHHHHHHHH", 2, lorvAlignRightTop), atBreak);
    SetOption(grid, OptionWordWrap, false);
    EXPECT_NE(Highlight(L"HHHH HHHHHHHHHHHHHH", 2, lorvAlignRightTop), atBreak);
}

TEST_F(Searched, PartNeedsSomethingTyped)
{
    Highlight(L"HHHH", 0, lorvAlignLeftCenter);
    EXPECT_EQ(canvas.Count(Area(2, 2), ~Back & 0xFFFFFF), 0);
}
} // namespace
