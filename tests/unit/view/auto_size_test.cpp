#include "view/auto_size.h"

#include "core/cell_property.h"
#include "core/font_pool.h"
#include "platform/dpi.h"
#include "platform/gdi.h"
#include "support/grid_window.h"
#include "support/pixels.h"
#include "view/cell_text.h"

#include <algorithm>

namespace
{
class Sizing : public GridInWindow
{
protected:
    Sizing() { RecalcDefaultRowHeight(grid); }
    SIZE Measure(const wchar_t* text)
    {
        ScreenDC screen;
        SelectedObject font(screen.Get(), GridFontHandle(grid));
        SIZE size = {};
        GetTextExtentPoint32W(screen.Get(), text, static_cast<int>(wcslen(text)), &size);
        return size;
    }
    int TextWidth(const wchar_t* text) { return Measure(text).cx + 8 + Digit(); }
    int Digit() { return Measure(L"0").cx; }
    int LineHeight() { return Measure(L"Hj").cy; }
    void SizeColumns(int first, int last, bool equal = false, int extra = 0)
    {
        AutoSizeRange(grid, first, last, equal, extra, lorvAutoSizeColWidth);
    }
    void SizeAllRows(bool equal = false, int extra = 0)
    {
        AutoSizeRange(grid, 1, 4, equal, extra, lorvAutoSizeRowHeight);
    }
    // Gives a cell links that nothing makes anew.
    void LinkCell(int row, int col, int links)
    {
        grid.RowTable[row].Cells[col].State |= static_cast<uint8_t>(links);
        SetOption(grid, OptionMergeStale, false);
    }
    static HFONT FontOf(int height, int width = 0)
    {
        LOGFONTW description = {};
        description.lfHeight = height, description.lfWidth = width;
        wcscpy(description.lfFaceName, L"Arial");
        return AcquirePooledFont(description);
    }
    int WidthIn(HFONT handle, const wchar_t* text)
    {
        ScreenDC screen;
        SelectedObject font(screen.Get(), handle);
        SIZE size = {};
        GetTextExtentPoint32W(screen.Get(), text, static_cast<int>(wcslen(text)), &size);
        return size.cx;
    }
    int ColWidthOf(int col) const { return grid.ColTable[col].Width; }
    int HeightOf(int row) const { return grid.RowTable[row].Height; }
};

TEST_F(Sizing, ColumnTakesItsWidestText)
{
    SetCellText(grid, 3, 2, L"a rather long text");
    SetCellText(grid, 4, 2, L"short");
    SizeColumns(1, 2);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"a rather long text"));
    EXPECT_EQ(ColWidthOf(1), 8 + Digit()) << "room for a digit at least";
    EXPECT_EQ(ColWidthOf(3), 50);
}

TEST_F(Sizing, ExtraSpaceAndIndentAreAdded)
{
    SetCellText(grid, 3, 2, L"text");
    grid.ColTable[2].Indent = 9;
    SizeColumns(2, 2, false, 30);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"text") + 9 + 30);
}

TEST_F(Sizing, EqualColumnsGetTheWidestOfAll)
{
    SetCellText(grid, 3, 2, L"a rather long text");
    grid.ColTable[3].Width = 0;
    SizeColumns(1, 4, true);
    EXPECT_EQ(ColWidthOf(1), TextWidth(L"a rather long text"));
    EXPECT_EQ(ColWidthOf(4), ColWidthOf(1));
    EXPECT_EQ(ColWidthOf(3), 0) << "a column without width stays so";
}

TEST_F(Sizing, HiddenColumnsAreSizedAsWell)
{
    HideCol(2);
    SizeColumns(2, 2, false, 5);
    EXPECT_EQ(ColWidthOf(2), 5 + 8 + Digit());
}

TEST_F(Sizing, HiddenRowsCountOnlyInAnOutline)
{
    SetCellText(grid, 3, 2, L"a rather long text");
    HideRow(3);
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), 8 + Digit());
    grid.OutlineBar = lorvOutlineBarSimple;
    grid.OutlineLevelCount = 1;
    AutoSizeRange(grid, 2, 2, false, 0, lorvAutoSizeColWidth);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"a rather long text"));
}

TEST_F(Sizing, BooleanColumnHasRoomForItsBox)
{
    grid.ColTable[2].ColDataType = lorvDTBoolean;
    SizeColumns(2, 2);
    EXPECT_GE(ColWidthOf(2), 2 * DpiScale(10));
}

TEST_F(Sizing, WordWrapDoesNotMatterForWidths)
{
    SetCellText(grid, 3, 2, L"one two three");
    SetOption(grid, OptionWordWrap, true);
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"one two three"));
}

// Only what may be the widest is measured.
TEST_F(Sizing, EveryTextCanBeTheWidest)
{
    const wchar_t* texts[] = {L"iiiiiiii",         L"WWW", L"a b c",  L"\x416\x416\x416", L"(~ !.,;|`'",
                              L"\xE4\xF6\xFC\xDF", L"0",   L"MMMMMMM"};
    auto sized = [this](const wchar_t* first, const wchar_t* second) {
        SetCellText(grid, 2, 2, first);
        SetCellText(grid, 3, 2, second);
        SizeColumns(2, 2);
        return ColWidthOf(2);
    };
    for (bool bold : {false, true}) {
        if (bold) // the cell gets a font of its own
            SetCellProperty(grid, 3, 2, CellSelector::FontBold, 1);
        for (const wchar_t* second : texts) {
            int alone = sized(L"", second);
            for (const wchar_t* first : texts)
                EXPECT_EQ(sized(first, second), std::max(TextWidth(first), alone)) << first << second;
        }
    }
    SetCellProperty(grid, 3, 2, CellSelector::Font, nullptr);
    EXPECT_GT(sized(L"MM", L"i\ti"), TextWidth(L"MM")) << "a tab is wider than any character";
    SetCellProperty(grid, 3, 2, CellSelector::CheckState, static_cast<int>(lorvChecked));
    EXPECT_EQ(sized(L"MMM", L"MMM"), sized(L"", L"MMM")) << "the narrower text has a box beside it";
    EXPECT_GT(sized(L"MMM", L"MMM"), sized(L"MMM", L""));
}

TEST_F(Sizing, WidthsEndAtTheScreen)
{
    SetCellText(grid, 3, 2, std::wstring(4000, L'W').c_str());
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), GetSystemMetrics(SM_CXSCREEN));
}

TEST_F(Sizing, LimitsApplyAtUseOnly)
{
    grid.ColWidthMaxPixels = 3;
    SetCellText(grid, 3, 2, L"text");
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"text"));
    EXPECT_EQ(EffectiveColWidth(grid, 2), 3);
}

TEST_F(Sizing, BackwardRangeSizesNothing)
{
    grid.MaxTopRow = -7;
    SizeColumns(-1, 2);
    SizeColumns(2, 5);
    EXPECT_EQ(grid.MaxTopRow, -7) << "nor is anything laid out";
    SizeColumns(3, 1);
    EXPECT_EQ(grid.MaxTopRow, 22) << "a backward range is laid out all the same";
    for (int col = 0; col < grid.Cols; ++col)
        EXPECT_EQ(ColWidthOf(col), 50);
}

TEST_F(Sizing, PropertyDecidesWhatIsSized)
{
    SetCellText(grid, 3, 2, L"text");
    grid.AutoSizeMode = lorvAutoSizeRowHeight;
    AutoSizeRange(grid, 2, 2, false, 0, AutoSizeByProperty);
    EXPECT_EQ(ColWidthOf(2), 50);
    EXPECT_EQ(HeightOf(3), LineHeight() + 4);
}

TEST_F(Sizing, RowTakesItsTallestCell)
{
    SetCellText(grid, 3, 2, L"one");
    SetCellText(grid, 3, 3, L"one\ntwo");
    SetOption(grid, OptionWordWrap, true); // a single line ignores line ends
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), 2 * LineHeight() + 4);
    EXPECT_EQ(HeightOf(4), RowHeight) << "nothing in it";
}

TEST_F(Sizing, RowsGetTheExtraSpaceToo)
{
    SetCellText(grid, 3, 2, L"one");
    SizeAllRows(false, 11);
    EXPECT_EQ(HeightOf(3), LineHeight() + 4 + 11);
}

TEST_F(Sizing, EqualRowsGetTheTallestOfAll)
{
    SetCellText(grid, 3, 2, L"one");
    grid.RowTable[5].Height = 0;
    SizeAllRows(true);
    EXPECT_EQ(HeightOf(1), LineHeight() + 4);
    EXPECT_EQ(HeightOf(30), LineHeight() + 4);
    EXPECT_EQ(HeightOf(5), 0);
}

TEST_F(Sizing, HiddenColumnsSayNothingAboutHeights)
{
    SetCellText(grid, 3, 2, L"one");
    HideCol(2);
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), RowHeight);
}

TEST_F(Sizing, PictureCountsWithoutMargin)
{
    auto picture = MakePicture(10, 57, RGB(1, 2, 3));
    CellFormat* format = EnsureCellFormat(grid, 3, 2);
    format->Picture = picture.Get();
    picture->AddRef();
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), 57);
}

TEST_F(Sizing, MergedCellCountsAsABlankLine)
{
    SetOption(grid, OptionWordWrap, true);
    SetCellText(grid, 3, 2, L"one\ntwo\nthree");
    grid.MergeCells = lorvMergeFree;
    SetOption(grid, OptionMergeStale, false);
    grid.RowTable[3].Cells[2].State |= LinkRight;
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), LineHeight() + 4);
}

TEST_F(Sizing, ColumnWithoutRowsHasRoomForADigit)
{
    for (int row = 0; row < grid.Rows; ++row)
        HideRow(row);
    SizeColumns(2, 2, false, 5);
    EXPECT_EQ(ColWidthOf(2), 5 + Digit());
}

TEST_F(Sizing, HiddenRowsOfAnOutlineGetHeightsToo)
{
    SetCellText(grid, 3, 2, L"one");
    HideRow(3);
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), RowHeight);
    grid.OutlineBar = lorvOutlineBarSimple;
    grid.OutlineLevelCount = 1;
    AutoSizeRange(grid, 1, 4, false, 0, lorvAutoSizeRowHeight);
    EXPECT_EQ(HeightOf(3), LineHeight() + 4);
}

TEST_F(Sizing, WrappedTextTakesAsManyLinesAsItsColumnNeeds)
{
    grid.ColTable[2].Width = TextWidth(L"one") + 4;
    SetCellText(grid, 3, 2, L"one two one");
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), LineHeight() + 4);
    SetOption(grid, OptionWordWrap, true);
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), 3 * LineHeight() + 4);
}

TEST_F(Sizing, CellWithoutRoomForTextSaysNothing)
{
    SetCellText(grid, 3, 2, L"one");
    grid.ColTable[2].Width = 8; // the margins alone
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), RowHeight);
    grid.ColTable[2].Width = 9;
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), LineHeight() + 4);
}

TEST_F(Sizing, HeightsEndAtTheScreen)
{
    std::wstring lines;
    for (int line = 0; line < 1000; ++line)
        lines += L"x\n";
    SetCellText(grid, 3, 2, lines.c_str());
    SetOption(grid, OptionWordWrap, true);
    SizeAllRows();
    EXPECT_EQ(HeightOf(3), GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(Sizing, ExtraSpaceEndsAtTheCeilingAndAtTheDefault)
{
    SetCellText(grid, 3, 2, L"one");
    SizeColumns(2, 2, false, 1 << 27);
    EXPECT_EQ(ColWidthOf(2), MaxPixels);
    SizeAllRows(false, 1 << 27);
    EXPECT_EQ(HeightOf(3), MaxPixels);
    SizeAllRows(true, 1 << 27);
    EXPECT_EQ(HeightOf(4), MaxPixels);
    SizeColumns(1, 2, true, -(1 << 27));
    EXPECT_EQ(ColWidthOf(2), UnsetLength) << "less than nothing is the default width";
    SizeColumns(2, 2, false, -TextWidth(L"one"));
    EXPECT_EQ(ColWidthOf(2), 0);
}

TEST_F(Sizing, MergedCellsSayNothingAboutWidths)
{
    struct {
        int Scrollable, Fixed;
        bool Row, Subtotal, Linked;
        bool Counts;
    } const cases[] = {
        {lorvMergeFree, 0, true, false, true, false},
        {lorvMergeFree, 0, true, false, false, true},
        {lorvMergeFree, 0, false, false, true, true},
        {lorvMergeFree, 0, false, true, true, true},
        {0, lorvMergeFree, true, false, true, false},
        {0, 0, true, false, true, true},
        {lorvMergeSpill, 0, true, false, true, true},
        {0, lorvMergeSpill, true, false, true, true},
        {lorvMergeSpill, lorvMergeFree, true, false, true, false},
        {lorvMergeOutline, 0, false, true, true, false},
        {lorvMergeOutline, 0, false, false, true, true},
        {lorvMergeOutline, 0, true, false, true, false},
        {lorvMergeOutline, 0, false, true, false, true},
    };
    SetCellText(grid, 3, 2, L"a rather long text");
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        grid.MergeCells = static_cast<int16_t>(c.Scrollable);
        grid.MergeCellsFixed = static_cast<int16_t>(c.Fixed);
        grid.RowTable[3].MergeRow = c.Row;
        grid.RowTable[3].Flags = c.Subtotal ? RowFlagSubtotal : 0;
        grid.RowTable[3].Cells[2].State = 0;
        LinkCell(3, 2, c.Linked ? LinkRight : 0);
        SizeColumns(2, 2);
        EXPECT_EQ(ColWidthOf(2), c.Counts ? TextWidth(L"a rather long text") : 8 + Digit());
    }
}

TEST_F(Sizing, StaleMergeLinksAreMadeAnewFirst)
{
    for (int col : {2, 3})
        SetCellText(grid, 3, col, L"a rather long text");
    grid.RowTable[3].MergeRow = 1;
    grid.MergeCells = lorvMergeFree;
    grid.Redraw = lorvRDNone; // which leaves links as they are otherwise
    MarkMergeStale(grid);
    SizeColumns(2, 2);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    EXPECT_EQ(grid.Redraw, lorvRDNone);
    EXPECT_EQ(ColWidthOf(2), 8 + Digit());
}

TEST_F(Sizing, WhatSpillsIsWorkedOutAnewAfterwards)
{
    for (int16_t Grid::*mode : {&Grid::MergeCells, &Grid::MergeCellsFixed}) {
        grid.*mode = lorvMergeSpill;
        SetOption(grid, OptionMergeStale, false);
        SizeColumns(2, 2);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale));
        grid.*mode = lorvMergeFree;
        SetOption(grid, OptionMergeStale, false);
        SizeColumns(2, 2);
        EXPECT_FALSE(HasOption(grid, OptionMergeStale));
        grid.*mode = lorvMergeNever;
    }
}

TEST_F(Sizing, CellsAreMeasuredInTheirOwnFonts)
{
    HFONT large = FontOf(-60);
    SetCellText(grid, 3, 2, L"text");
    SetCellText(grid, 4, 2, L"much longer text");
    EnsureCellFormat(grid, 3, 2)->Font = large;
    SizeColumns(2, 2);
    int digit = Digit();
    EXPECT_EQ(ColWidthOf(2), std::max(WidthIn(large, L"text") + 8 + digit, TextWidth(L"much longer text")));
    EXPECT_GT(ColWidthOf(2), TextWidth(L"text"));
    SizeAllRows();
    EXPECT_GE(HeightOf(3), 60 + 4);
    EXPECT_EQ(HeightOf(4), LineHeight() + 4) << "the font of one cell is not that of the next";
}

TEST_F(Sizing, FontWidthWidensWhatIsMeasured)
{
    SetCellText(grid, 3, 2, L"a rather long text");
    SizeColumns(2, 2);
    int plain = ColWidthOf(2);
    grid.FontWidth = 20.5f;
    LOGFONTW description = {};
    GetObjectW(GridFontHandle(grid), sizeof(description), &description);
    description.lfWidth = -MulDiv(LogPixelsY(), 410, 1440);
    HFONT wide = AcquirePooledFont(description);
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), WidthIn(wide, L"a rather long text") + 8 + WidthIn(wide, L"0"));
    EXPECT_GT(ColWidthOf(2), 2 * plain);
    ReleasePooledFont(wide);
}

TEST_F(Sizing, FontThatWasChangedByOthersIsMeasuredAnew)
{
    int before = grid.DefaultRowHeight;
    EXPECT_EQ(GridFont(grid)->put_Size(CY{.int64 = 400000}), S_OK);
    SizeColumns(2, 2);
    EXPECT_GT(grid.DefaultRowHeight, before);
    EXPECT_EQ(grid.DefaultRowHeight, LineHeight() + 4);
    EXPECT_EQ(ColWidthOf(2), 8 + Digit());
}

TEST_F(Sizing, PictureWidensItsColumn)
{
    SetCellText(grid, 3, 2, L"text");
    auto picture = MakePicture(33, 10, RGB(1, 2, 3));
    CellFormat* format = EnsureCellFormat(grid, 3, 2);
    format->Picture = picture.Get();
    picture->AddRef();
    format->PictureAlignment = lorvPicAlignLeftCenter;
    RECT room = {0, 0, 200, RowHeight};
    TextAreaAdjust(grid, 3, 2, format, room, false);
    int taken = 200 - static_cast<int>(room.right - room.left);
    EXPECT_GE(taken, 33);
    SizeColumns(2, 2);
    EXPECT_EQ(ColWidthOf(2), TextWidth(L"text") + taken);
}
} // namespace
