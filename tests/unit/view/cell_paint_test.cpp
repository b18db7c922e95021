#include "view/cell_paint.h"

#include "core/check_state.h"
#include "platform/dpi.h"
#include "platform/memory.h"
#include "support/cells.h"
#include "view/cell_background.h"
#include "view/cell_button.h"
#include "view/cell_text.h"
#include "view/check_box.h"
#include "view/picture.h"
#include "view/theme.h"

#include <commctrl.h>

#include <map>
#include <ostream>
#include <set>
#include <vector>

namespace
{
constexpr DISPID DrawCellId = 32, BeforeEditId = 21;

// --- colours

TEST_F(Cells, AreSelectedByTheModeOfTheSelection)
{
    grid.HighLight = lorvHighlightAlways;
    Select(2, 1, 3, 2);
    grid.RowTable[5].Flags |= RowFlagSelected;
    struct {
        int Mode;
        bool Inside, SameRow, SameCol, Flagged;
    } const cases[] = {
        {lorvSelectionFree, true, false, false, true},
        {lorvSelectionByRow, true, true, false, true},
        {lorvSelectionByColumn, true, false, true, true},
        {lorvSelectionListBox, false, false, false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Mode);
        grid.SelectionMode = static_cast<int16_t>(c.Mode);
        EXPECT_EQ(IsSelectedForPaint(grid, 3, 2, false), c.Inside);
        EXPECT_EQ(IsSelectedForPaint(grid, 3, 3, false), c.SameRow);
        EXPECT_EQ(IsSelectedForPaint(grid, 4, 2, false), c.SameCol);
        EXPECT_EQ(IsSelectedForPaint(grid, 5, 3, false), c.Flagged);
        EXPECT_FALSE(IsSelectedForPaint(grid, 0, 2, false));
        EXPECT_FALSE(IsSelectedForPaint(grid, 3, 0, false));
    }
}

TEST_F(Cells, AreSelectedOnlyWhileTheHighlightShows)
{
    Select(2, 2, 2, 2);
    struct {
        int HighLight;
        bool Focus, Selected;
    } const cases[] = {{lorvHighlightNever, true, false},
                       {lorvHighlightAlways, false, true},
                       {lorvHighlightWithFocus, false, false},
                       {lorvHighlightWithFocus, true, true}};
    for (const auto& c : cases) {
        grid.HighLight = static_cast<int16_t>(c.HighLight);
        grid.PaintMode = c.Focus ? uint32_t{PaintHasFocus} : 0;
        EXPECT_EQ(IsSelectedForPaint(grid, 2, 2, false), c.Selected) << c.HighLight << c.Focus;
    }
}

TEST_F(Cells, WithTheFocusMarkAreLeftOutOfAFreeSelection)
{
    grid.HighLight = lorvHighlightAlways;
    Select(2, 2, 2, 2);
    EXPECT_FALSE(IsSelectedForPaint(grid, 2, 2, true));
    grid.FocusRect = lorvFocusNone;
    EXPECT_TRUE(IsSelectedForPaint(grid, 2, 2, true));
    grid.ActiveEditor = 666;
    EXPECT_FALSE(IsSelectedForPaint(grid, 2, 2, true)) << "the editor stands there";
    grid.ActiveEditor = 0;
}

TEST_F(Cells, InAListBoxFollowTheDrag)
{
    grid.SelectionMode = lorvSelectionListBox;
    grid.HighLight = lorvHighlightAlways;
    Select(2, 1, 3, 1);
    grid.RowTable[3].Flags |= RowFlagSelected;
    grid.PaintMode = PaintMouseHeld;
    EXPECT_FALSE(IsSelectedForPaint(grid, 3, 1, false)) << "the drag takes rows away";
    grid.PaintMode |= PaintListDragAdds;
    EXPECT_TRUE(IsSelectedForPaint(grid, 2, 1, false));
    EXPECT_FALSE(IsSelectedForPaint(grid, 4, 1, false));
}

TEST_F(Cells, HaveTheTextColourOfTheirKind)
{
    SetText(1, 1, L"HHHH");
    SetText(2, 2, L"HHHH");
    SetText(0, 1, L"HHHH");
    Format(2, 2).ForeColor = RGB(0, 0, 200);
    Paint();
    EXPECT_GT(canvas.Count(Area(1, 1), Ink), 0);
    EXPECT_GT(canvas.Count(Area(2, 2), RGB(0, 0, 200)), 0);
    EXPECT_GT(canvas.Count(Area(0, 1), InkFixed), 0);
    grid.FrozenRows = 1;
    grid.ForeColorFrozen = RGB(0, 120, 0);
    grid.TopRow = 2;
    Paint();
    EXPECT_GT(canvas.Count(Area(1, 1), RGB(0, 120, 0)), 0);
    grid.HighLight = lorvHighlightAlways;
    Select(1, 1, 2, 2);
    Paint();
    EXPECT_GT(canvas.Count(Area(1, 1), InkSel), 0);
    EXPECT_GT(canvas.Count(Area(2, 2), InkSel), 0) << "the selection goes before the cell's own colour";
}

// --- text

TEST_F(Cells, PutTheirTextWhereTheAlignmentSays)
{
    SetText(1, 1, L"Hj");
    for (int alignment = 0; alignment <= 8; ++alignment) {
        SCOPED_TRACE(alignment);
        Format(1, 1).Alignment = static_cast<uint8_t>(alignment);
        Paint();
        RECT ink = InkIn(1, 1), cell = Area(1, 1);
        ASSERT_FALSE(IsRectEmpty(&ink));
        LONG left = ink.left - cell.left, right = cell.right - ink.right;
        LONG top = ink.top - cell.top, bottom = cell.bottom - ink.bottom;
        constexpr int Slack = 8; // bearings of the font's characters and room above and below them
        LONG acrossGap[] = {left, std::labs(right - left), right};
        LONG downGap[] = {top, std::labs(bottom - top), bottom};
        EXPECT_LE(acrossGap[alignment / 3], Slack);
        EXPECT_LE(downGap[alignment % 3], Slack);
        EXPECT_GE(left, alignment / 3 == 0 ? 4 : 20);
        EXPECT_GE(right, alignment / 3 == 2 ? 3 : 20);
    }
}

TEST_F(Cells, IndentTheirText)
{
    SetText(1, 1, L"H");
    Format(1, 1).Alignment = lorvAlignLeftTop;
    Paint();
    LONG left = InkIn(1, 1).left;
    grid.ColTable[1].Indent = 15;
    Paint();
    EXPECT_EQ(InkIn(1, 1).left, left + 15);
    Format(1, 1).Alignment = lorvAlignRightTop;
    Paint();
    LONG right = InkIn(1, 1).right;
    grid.ColTable[1].Indent = 0;
    Paint();
    EXPECT_EQ(InkIn(1, 1).right, right + 15);
}

struct EffectiveCase {
    int Type;
    int ColAlignment;
    const wchar_t* Text;
    int Expected;
};
TEST_F(Cells, ResolveGeneralAlignmentByTypeAndText)
{
    const EffectiveCase cases[] = {
        {lorvDTEmpty, lorvAlignGeneral, L"12", lorvAlignRightCenter},
        {lorvDTEmpty, lorvAlignGeneral, L"ab", lorvAlignLeftCenter},
        {lorvDTEmpty, lorvAlignGeneralTop, L"12", lorvAlignRightTop},
        {lorvDTEmpty, lorvAlignGeneralTop, L"ab", lorvAlignLeftTop},
        {lorvDTEmpty, lorvAlignGeneralCenter, L"12", lorvAlignRightCenter},
        {lorvDTEmpty, lorvAlignGeneralBottom, L"12", lorvAlignRightBottom},
        {lorvDTEmpty, lorvAlignGeneralBottom, L"ab", lorvAlignLeftBottom},
        {lorvDTLong, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTShort, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTSingle, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTDouble, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTCurrency, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTDate, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTDecimal, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTLong8, lorvAlignGeneral, L"ab", lorvAlignRightCenter},
        {lorvDTString, lorvAlignGeneral, L"12", lorvAlignLeftCenter},
        {lorvDTBoolean, lorvAlignGeneral, L"12", lorvAlignLeftCenter},
        {lorvDTStringC, lorvAlignGeneralTop, L"12", lorvAlignLeftTop},
        {lorvDTStringW, lorvAlignGeneralBottom, L"12", lorvAlignLeftBottom},
        {lorvDTVariant, lorvAlignGeneral, L"12", lorvAlignRightCenter},
        {lorvDTLong, lorvAlignCenterBottom, L"12", lorvAlignCenterBottom},
        {lorvDTLong, lorvAlignGeneral, L"", lorvAlignLeftTop},
        {lorvDTLong, lorvAlignGeneral, nullptr, lorvAlignLeftTop},
    };
    for (const EffectiveCase& c : cases) {
        grid.ColTable[1].ColDataType = static_cast<int16_t>(c.Type);
        grid.ColTable[1].Alignment = static_cast<int8_t>(c.ColAlignment);
        EXPECT_EQ(EffectiveAlignment(grid, c.Text, 2, 1, nullptr), c.Expected)
            << c.Type << " " << c.ColAlignment;
    }
}

TEST_F(Cells, AlignByFormatThenFixedAlignmentThenColumn)
{
    grid.ColTable[1].Alignment = lorvAlignCenterTop;
    grid.ColTable[1].FixedAlignment = lorvAlignRightBottom;
    CellFormat format = {};
    format.Alignment = Unset;
    EXPECT_EQ(EffectiveAlignment(grid, L"x", 0, 1, &format), lorvAlignRightBottom);
    EXPECT_EQ(EffectiveAlignment(grid, L"x", 1, 1, &format), lorvAlignCenterTop);
    grid.ColTable[1].FixedAlignment = Unset;
    EXPECT_EQ(EffectiveAlignment(grid, L"x", 0, 1, &format), lorvAlignCenterTop);
    format.Alignment = lorvAlignLeftBottom;
    EXPECT_EQ(EffectiveAlignment(grid, L"x", 0, 1, &format), lorvAlignLeftBottom);
}

TEST_F(Cells, OfNumericColumnsWithAListLetTheTextDecideTheSide)
{
    wchar_t list[] = L"one|two", noList[] = L"";
    grid.ColTable[1].ColComboList = list;
    grid.ColTable[1].ColDataType = lorvDTLong;
    EXPECT_EQ(EffectiveAlignment(grid, L"ab", 2, 1, nullptr), lorvAlignLeftCenter);
    EXPECT_EQ(EffectiveAlignment(grid, L"12", 2, 1, nullptr), lorvAlignRightCenter);
    for (int type : {lorvDTString, lorvDTBoolean, lorvDTStringC, lorvDTStringW}) {
        grid.ColTable[1].ColDataType = static_cast<int16_t>(type);
        EXPECT_EQ(EffectiveAlignment(grid, L"12", 2, 1, nullptr), lorvAlignLeftCenter) << type;
    }
    grid.ColTable[1].ColComboList = noList;
    grid.ColTable[1].ColDataType = lorvDTLong;
    EXPECT_EQ(EffectiveAlignment(grid, L"ab", 2, 1, nullptr), lorvAlignRightCenter);
    grid.ColTable[1].ColComboList = nullptr;
}

TEST_F(Cells, TextStylesAddLightAndShadowCopies)
{
    struct {
        int Style;
        bool Light, Shadow;
    } const cases[] = {{lorvTextFlat, false, false},
                       {lorvTextRaised, true, true},
                       {lorvTextInset, true, true},
                       {lorvTextRaisedLight, true, false},
                       {lorvTextInsetLight, true, false}};
    SetText(1, 1, L"HHHH");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Style);
        grid.TextStyle = static_cast<int16_t>(c.Style);
        Paint();
        EXPECT_EQ(canvas.Count(Area(1, 1), GetSysColor(COLOR_BTNHIGHLIGHT)) > 0, c.Light);
        EXPECT_EQ(canvas.Count(Area(1, 1), GetSysColor(COLOR_BTNSHADOW)) > 0, c.Shadow);
        EXPECT_GT(canvas.Count(Area(1, 1), Ink), 0);
    }
}

TEST_F(Cells, CopiesOfTextStandOnePixelOff)
{
    struct {
        int Style;
        int Before, Behind; // how many pixels the drawing grows to the left and top, to the right and bottom
    } const cases[] = {{lorvTextRaised, 1, 1},
                       {lorvTextInset, 1, 1},
                       {lorvTextRaisedLight, 1, 0},
                       {lorvTextInsetLight, 0, 1}};
    SetText(1, 1, L"HHHH");
    RECT inner = Area(1, 1);
    InflateRect(&inner, -2, -2); // without the lines of the grid
    Paint();
    RECT flat = canvas.ExtentBeside(inner, Back);
    ASSERT_FALSE(IsRectEmpty(&flat));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Style);
        Format(1, 1).TextStyle = static_cast<uint8_t>(c.Style);
        Paint();
        RECT drawn = canvas.ExtentBeside(inner, Back);
        EXPECT_EQ(flat.left - drawn.left, c.Before);
        EXPECT_EQ(flat.top - drawn.top, c.Before);
        EXPECT_EQ(drawn.right - flat.right, c.Behind);
        EXPECT_EQ(drawn.bottom - flat.bottom, c.Behind);
    }
}

TEST_F(Cells, RaisedTextIsLitFromAboveAndInsetTextFromBelow)
{
    SetText(1, 1, L"HHHH");
    RECT inner = Area(1, 1);
    InflateRect(&inner, -2, -2);
    auto darkInTheFirstLine = [&] {
        RECT line = canvas.ExtentBeside(inner, Back);
        line.bottom = line.top + 1;
        int dark = 0;
        for (int x = line.left; x < line.right; ++x)
            dark += GetRValue(canvas.At(x, line.top)) < GetRValue(Back);
        return dark;
    };
    for (int style : {lorvTextRaised, lorvTextRaisedLight}) {
        Format(1, 1).TextStyle = static_cast<uint8_t>(style);
        Paint();
        EXPECT_EQ(darkInTheFirstLine(), 0) << style;
    }
    for (int style : {lorvTextInset, lorvTextInsetLight}) {
        Format(1, 1).TextStyle = static_cast<uint8_t>(style);
        Paint();
        EXPECT_GT(darkInTheFirstLine(), 0) << style;
    }
}

class Texts : public Cells
{
protected:
    static constexpr RECT Room = {20, 20, 120, 60};
    int DrawText_(const wchar_t* text, int alignment, int style = lorvTextFlat, bool paren = false)
    {
        canvas.Fill(Back);
        SetBkMode(canvas.Get(), TRANSPARENT);
        HGDIOBJ previous = SelectObject(canvas.Get(), grid.FontHandle);
        SetTextColor(canvas.Get(), Ink);
        int width = DrawCellText(grid, canvas.Get(), text, Room, alignment, style, paren);
        SelectObject(canvas.Get(), previous);
        return width;
    }
    RECT Drawn() const { return canvas.Extent(canvas.Area(), Ink); }
    int WidthOf(const wchar_t* text)
    {
        HGDIOBJ previous = SelectObject(canvas.Get(), grid.FontHandle);
        SIZE size = {};
        GetTextExtentPoint32W(canvas.Get(), text, static_cast<int>(wcslen(text)), &size);
        SelectObject(canvas.Get(), previous);
        return size.cx;
    }
};

TEST_F(Texts, OfNothingHaveNoWidth)
{
    EXPECT_EQ(DrawText_(L"", 0), 0);
    EXPECT_EQ(DrawText_(nullptr, 0), 0);
    RECT none = {10, 10, 10, 30};
    EXPECT_EQ(DrawCellText(grid, canvas.Get(), L"x", none, 0, 0, false), 0);
}

TEST_F(Texts, AreMeasuredAsTheyAreDrawn)
{
    EXPECT_EQ(DrawText_(L"Hello", lorvAlignLeftTop), WidthOf(L"Hello"));
    EXPECT_EQ(DrawText_(L"Hello\nWorld of words", lorvAlignLeftTop), WidthOf(L"World of words"));
}

TEST_F(Texts, TooLongForTheirRoomAreCutThere)
{
    const wchar_t* text = L"MMMMMMMMMMMMMMMMMMMMMMMM";
    for (int alignment : {lorvAlignLeftTop, lorvAlignCenterCenter, lorvAlignRightBottom}) {
        EXPECT_GT(DrawText_(text, alignment), 100);
        RECT drawn = Drawn();
        EXPECT_GE(drawn.left, Room.left);
        EXPECT_LE(drawn.right, Room.right);
        EXPECT_GT(drawn.right - drawn.left, 90);
    }
}

TEST_F(Texts, CanEndInAnEllipsis)
{
    const wchar_t* text = L"HHHHHHHHHHHHHHHHHHHHHHHH";
    grid.Ellipsis = lorvEllipsisEnd;
    DrawText_(text, lorvAlignLeftTop);
    RECT drawn = Drawn();
    // The dots stand low: at their end the upper half of the line is empty.
    RECT upper = {drawn.right - 4, drawn.top, drawn.right, (drawn.top + drawn.bottom) / 2};
    EXPECT_EQ(canvas.Count(upper, Ink), 0);
    DrawText_(L"HH\nHHHHHHHHHHHHHHHHHHHHHHHH", lorvAlignLeftTop);
    drawn = Drawn();
    EXPECT_GE(drawn.right, Room.right - 4) << "no dots in a text of several lines";
}

TEST_F(Texts, WrapAtWordsWhenAskedTo)
{
    const wchar_t* text = L"words and words and words and words";
    DrawText_(text, lorvAlignLeftTop);
    LONG oneLine = Drawn().bottom - Drawn().top;
    SetOption(grid, OptionWordWrap, true);
    EXPECT_LE(DrawText_(text, lorvAlignLeftTop), 100);
    EXPECT_GT(Drawn().bottom - Drawn().top, oneLine + 5);
}

TEST_F(Texts, OfPositiveNumbersStandClearOfTheParenthesis)
{
    DrawText_(L"12", lorvAlignRightTop);
    LONG plain = Drawn().right;
    DrawText_(L"12", lorvAlignRightTop, lorvTextFlat, true);
    EXPECT_EQ(Drawn().right, plain - WidthOf(L")"));
    DrawText_(L"12x", lorvAlignRightTop);
    plain = Drawn().right;
    DrawText_(L"12x", lorvAlignRightTop, lorvTextFlat, true);
    EXPECT_EQ(Drawn().right, plain);
    DrawText_(L"12", lorvAlignLeftTop);
    LONG left = Drawn().left;
    DrawText_(L"12", lorvAlignLeftTop, lorvTextFlat, true);
    EXPECT_EQ(Drawn().left, left);
}

TEST_F(Texts, OfLightStylesLeaveTheShadowColour)
{
    DrawText_(L"x", 0, lorvTextRaisedLight);
    EXPECT_EQ(GetTextColor(canvas.Get()), GetSysColor(COLOR_BTNSHADOW));
    DrawText_(L"x", 0, lorvTextRaised);
    EXPECT_EQ(GetTextColor(canvas.Get()), Ink);
}

TEST_F(Texts, OfEnormousLengthAreDrawnUpToTheCeiling)
{
    std::wstring text(100000, L'i');
    int width = DrawText_(text.c_str(), lorvAlignLeftTop);
    text.resize(MaxDrawnText);
    EXPECT_EQ(width, WidthOf(text.c_str()));
}

// --- room for the text

TEST_F(Cells, GiveTheirTextTheRoomBesideBoxAndPicture)
{
    const int box = DpiScale(10) + 4;
    auto picture = MakePicture(12, 8, RGB(1, 2, 3));
    struct {
        int Alignment;
        bool Box, Picture, Over, Absent;
        int Left, Right;
    } const cases[] = {
        {Unset, false, false, false, false, 0, 0},
        {Unset, true, false, false, false, box, 0},
        {lorvPicAlignRightTop, true, false, false, false, 0, box},
        {lorvPicAlignCenterCenter, true, false, false, false, 0, 0},
        {Unset, false, true, false, false, 12, 0},
        {lorvPicAlignRightBottom, false, true, false, false, 0, 12},
        {lorvPicAlignCenterCenter, false, true, false, false, 0, 0},
        {lorvPicAlignCenterCenter, false, true, false, true, 0, 12},
        {lorvPicAlignStretch, false, true, false, true, 0, 12},
        {Unset, false, true, true, false, 0, 0},
        {Unset, true, true, false, false, box, 0},
        {lorvPicAlignCenterCenter, true, true, false, true, 0, 12},
        {lorvPicAlignRightTop, true, true, false, false, 0, box},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        CellFormat& format = Format(1, 1);
        format.PictureAlignment = static_cast<uint8_t>(c.Alignment);
        ReplaceReference<IPictureDisp>(format.Picture, c.Picture ? picture.Get() : nullptr);
        SetCheck(1, 1, c.Box ? lorvChecked : lorvNoCheckbox);
        SetOption(grid, OptionPicturesOver, c.Over);
        RECT area = {0, 0, 100, 20};
        TextAreaAdjust(grid, 1, 1, &format, area, c.Absent);
        EXPECT_EQ(area.left, c.Left);
        EXPECT_EQ(area.right, 100 - c.Right);
    }
    wchar_t format[] = L"yes;no";
    grid.ColTable[1].ColFormat = format;
    RECT area = {0, 0, 100, 20};
    TextAreaAdjust(grid, 1, 1, nullptr, area, false);
    EXPECT_EQ(area.left, 0) << "a column with a format has no boxes";
    grid.ColTable[1].ColFormat = nullptr;
}

TEST_F(Cells, OfTheOutlineColumnKeepRoomForTheTree)
{
    const int step = DpiScale(13);
    grid.OutlineCol = 1;
    grid.OutlineLevelCount = 2;
    grid.OutlineLevels[0] = 1, grid.OutlineLevels[1] = 3;
    grid.RowTable[1].OutlineLevel = 1;
    grid.RowTable[2].OutlineLevel = 3;
    grid.RowTable[3].OutlineLevel = 7;
    EXPECT_EQ(TreeIndent(grid, 1, 1), 0) << "without a bar";
    grid.OutlineBar = lorvOutlineBarSimple;
    EXPECT_EQ(TreeIndent(grid, 1, 1), step);
    EXPECT_EQ(TreeIndent(grid, 2, 1), 2 * step);
    EXPECT_EQ(TreeIndent(grid, 3, 1), 0);
    EXPECT_EQ(TreeIndent(grid, 2, 2), 0);
    grid.RowTable[0].OutlineLevel = 7;
    EXPECT_EQ(TreeIndent(grid, 0, 1), 0);
    for (int bar : {lorvOutlineBarComplete, lorvOutlineBarCompleteLeaf}) {
        grid.OutlineBar = static_cast<int16_t>(bar);
        EXPECT_EQ(TreeIndent(grid, 0, 1), 2 * step) << "the level buttons stand in the header";
    }
    RECT area = {0, 0, 100, 20};
    TextAreaAdjust(grid, 2, 1, nullptr, area, false);
    EXPECT_EQ(area.left, 2 * step);
    SetOption(grid, OptionRightToLeft, true);
    area = {0, 0, 100, 20};
    TextAreaAdjust(grid, 2, 1, nullptr, area, false);
    EXPECT_EQ(area.right, 100 - 2 * step);
}

// --- check boxes

TEST_F(Cells, PlaceTheirCheckBox)
{
    const int box = DpiScale(10), half = box / 2;
    const RECT cell = {100, 50, 200, 90};
    const int down = (40 - (2 * half + 1)) / 2 - 4; // from the middle to the top or bottom place
    for (int alignment = 0; alignment <= 8; ++alignment) {
        SCOPED_TRACE(alignment);
        Format(1, 1).PictureAlignment = static_cast<uint8_t>(alignment);
        RECT at = CheckBoxRect(grid, 1, 1, &cell);
        const LONG lefts[] = {104, 150 - half - 1, 200 - 4 - box - 1};
        const int shifts[] = {-down, 0, down};
        EXPECT_EQ(at.left, lefts[alignment / 3]);
        EXPECT_EQ(at.top, 70 - half - 1 + shifts[alignment % 3]);
        EXPECT_EQ(at.bottom, 70 + half + shifts[alignment % 3]);
    }
    Format(1, 1).PictureAlignment = Unset;
    EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).left, 104);
    grid.ColTable[1].Indent = 7;
    EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).left, 111);
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).left, 150 - half - 1);
    EXPECT_EQ(CheckBoxRect(grid, 0, 1, &cell).left, 111) << "a fixed row has no values";
}

TEST_F(Cells, PlaceTheirCheckBoxBesideTheTreeAndWithinLowCells)
{
    const int box = DpiScale(10), half = box / 2, tree = DpiScale(13) - 4;
    const RECT cell = {100, 50, 200, 90}, low = {100, 50, 200, 70};
    for (int alignment : {lorvPicAlignStretch, lorvPicAlignTile}) {
        Format(1, 1).PictureAlignment = static_cast<uint8_t>(alignment);
        EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).left, 150 - half - 1);
        EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).top, 70 - half - 1);
    }
    for (int alignment : {lorvPicAlignLeftTop, lorvPicAlignLeftBottom}) {
        Format(1, 1).PictureAlignment = static_cast<uint8_t>(alignment);
        EXPECT_EQ(CheckBoxRect(grid, 1, 1, &low).top, 60 - half - 1) << "too low for a margin";
    }
    Format(1, 1).PictureAlignment = Unset;
    grid.OutlineCol = 1;
    grid.OutlineBar = lorvOutlineBarSimple;
    grid.OutlineLevelCount = 1;
    grid.OutlineLevels[0] = grid.RowTable[1].OutlineLevel = 1;
    EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).left, 104 + tree);
    SetOption(grid, OptionRightToLeft, true);
    EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).left, 104);
    Format(1, 1).PictureAlignment = lorvPicAlignRightCenter;
    EXPECT_EQ(CheckBoxRect(grid, 1, 1, &cell).right, 196 - tree);
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    Format(1, 1).PictureAlignment = Unset;
    Format(1, 0).PictureAlignment = Unset;
    grid.ColTable[0].ColDataType = lorvDTBoolean;
    EXPECT_EQ(CheckBoxRect(grid, 1, 0, &cell).left, 104) << "a fixed column's box is not centred";
}

TEST_F(Cells, HaveFivePicturesForSevenStates)
{
    if (IsThemed(grid))
        GTEST_SKIP() << "drawn by the theme";
    const RECT box = CheckBoxRect(grid, 2, 1, nullptr);
    std::map<int, std::vector<COLORREF>> pictures;
    for (int state = lorvChecked; state <= lorvDisabledUnchecked; ++state) {
        SetCheck(2, 1, state);
        Paint();
        for (int y = box.top; y < box.bottom; ++y)
            for (int x = box.left; x < box.right; ++x)
                pictures[state].push_back(canvas.At(x, y));
    }
    EXPECT_EQ(pictures[lorvTSChecked], pictures[lorvChecked]);
    EXPECT_EQ(pictures[lorvTSUnchecked], pictures[lorvUnchecked]);
    std::set<std::vector<COLORREF>> different;
    for (const auto& [state, picture] : pictures)
        different.insert(picture);
    EXPECT_EQ(different.size(), 5u);
}

TEST_F(Cells, DrawACheckBoxForEveryState)
{
    const RECT box = CheckBoxRect(grid, 2, 1, nullptr);
    int dark[8] = {};
    for (int state = lorvNoCheckbox; state <= lorvDisabledUnchecked; ++state) {
        SetCheck(2, 1, state);
        Paint();
        int changed = 0;
        RECT cell = Area(2, 1);
        for (int y = cell.top; y < cell.bottom; ++y)
            for (int x = cell.left; x < cell.right; ++x) {
                POINT at = {x, y};
                bool drawn = canvas.At(x, y) != Back;
                EXPECT_TRUE(!drawn || PtInRect(&box, at)) << state << ": " << x << ", " << y;
                changed += drawn;
            }
        EXPECT_EQ(changed > 0, state != lorvNoCheckbox);
        dark[state] = canvas.Count(box, GetSysColor(COLOR_WINDOWTEXT));
    }
    EXPECT_GT(dark[lorvChecked], dark[lorvUnchecked]);
    EXPECT_EQ(dark[lorvChecked], dark[lorvTSChecked]);
    EXPECT_EQ(dark[lorvUnchecked], dark[lorvTSUnchecked]);
}

TEST_F(Cells, OfBooleanColumnsDrawABoxAndNoText)
{
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    SetText(2, 1, L"-1");
    Paint();
    RECT box = CheckBoxRect(grid, 2, 1, nullptr), cell = Area(2, 1);
    EXPECT_NE(canvas.Count(box, Back), (box.right - box.left) * (box.bottom - box.top));
    RECT beside = {cell.left, cell.top, box.left, cell.bottom};
    EXPECT_EQ(canvas.Count(beside, Back), (beside.right - beside.left) * (beside.bottom - beside.top));
}

TEST_F(Cells, WithAFormatDrawWordsAndNoBox)
{
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    wchar_t format[] = L"HHH;no";
    grid.ColTable[1].ColFormat = format;
    SetText(2, 1, L"-1");
    Paint();
    EXPECT_GT(canvas.Count(Area(2, 1), Ink), 10);
    EXPECT_EQ(canvas.Count(Area(2, 1), GetSysColor(COLOR_3DDKSHADOW)), 0);
    grid.ColTable[1].ColFormat = nullptr;
}

// --- floods and borders

TEST_F(Cells, FloodTheirShareFromTheLeftOrTheRight)
{
    constexpr COLORREF flood = RGB(200, 0, 0);
    grid.FloodColor = flood;
    RECT cell = Area(1, 1);
    int width = cell.right - cell.left - 4;
    for (int percent : {1, 30, 100, -1, -30, -100}) {
        SCOPED_TRACE(percent);
        Format(1, 1).FloodPercent = static_cast<int8_t>(percent);
        Paint();
        int part = MulDiv(width, std::abs(percent), 100);
        RECT expected = {cell.left + 2, cell.top + 2, cell.left + 2 + part, cell.bottom - 2};
        if (percent < 0)
            expected.left = cell.right - 2 - part, expected.right = cell.right - 2;
        RECT drawn = canvas.Extent(cell, flood);
        EXPECT_TRUE(EqualRect(&drawn, &expected)) << drawn.left << ", " << drawn.right;
    }
    Format(1, 1).FloodColor = RGB(0, 200, 0);
    Paint();
    EXPECT_EQ(canvas.Count(cell, flood), 0);
    EXPECT_GT(canvas.Count(cell, RGB(0, 200, 0)), 0);
}

TEST_F(Cells, HaveBordersOfTheirWidths)
{
    CellFormat& format = Format(1, 1);
    constexpr COLORREF edge = RGB(0, 0, 200);
    format.BorderColor = edge;
    format.BorderLeft = 1, format.BorderTop = 2, format.BorderRight = 3, format.BorderBottom = 4;
    Paint();
    RECT cell = Area(1, 1);
    RECT inside = {cell.left + 1, cell.top + 2, cell.right - 3, cell.bottom - 4};
    EXPECT_EQ(canvas.Count(inside, edge), 0);
    int area = (cell.right - cell.left) * (cell.bottom - cell.top);
    int inner = (inside.right - inside.left) * (inside.bottom - inside.top);
    EXPECT_EQ(canvas.Count(cell, edge), area - inner);
    EXPECT_EQ(canvas.Count(canvas.Area(), edge), area - inner);
}

TEST_F(Cells, HaveDoubleBordersFromAHundredOn)
{
    CellFormat& format = Format(1, 1);
    constexpr COLORREF edge = RGB(0, 0, 200);
    format.BorderColor = edge;
    format.BorderLeft = 100;
    format.BorderBottom = 101;
    Paint();
    RECT cell = Area(1, 1);
    int y = cell.top + 5, x = cell.left + 30;
    EXPECT_EQ(canvas.At(cell.left, y), edge);
    EXPECT_EQ(canvas.At(cell.left + 1, y), Back);
    EXPECT_EQ(canvas.At(cell.left + 2, y), edge);
    EXPECT_EQ(canvas.At(cell.left + 3, y), Back);
    EXPECT_EQ(canvas.At(x, cell.bottom - 1), edge);
    EXPECT_EQ(canvas.At(x, cell.bottom - 2), Back);
    EXPECT_EQ(canvas.At(x, cell.bottom - 3), edge);
    EXPECT_EQ(canvas.At(x, cell.bottom - 4), Back);
}

TEST_F(Cells, BordersWiderThanTheCellStayInIt)
{
    Format(1, 1).BorderColor = RGB(0, 0, 200);
    Format(1, 1).BorderTop = 99;
    Paint();
    RECT cell = Area(1, 1);
    EXPECT_EQ(canvas.Count(canvas.Area(), RGB(0, 0, 200)),
              (cell.right - cell.left) * (cell.bottom - cell.top));
}

// --- the owner's drawing

struct OwnerCase {
    int Setting;
    bool Scrollable, FixedToo;
};
TEST_F(Cells, AskTheOwnerInTheCellsThatTheSettingNames)
{
    const OwnerCase cases[] = {{lorvODNone, false, false},        {lorvODOver, true, true},
                               {lorvODContent, true, true},       {lorvODComplete, true, true},
                               {lorvODOverFixed, false, true},    {lorvODContentFixed, false, true},
                               {lorvODCompleteFixed, false, true}};
    for (const OwnerCase& c : cases) {
        SCOPED_TRACE(c.Setting);
        grid.OwnerDraw = static_cast<int16_t>(c.Setting);
        events.Events.clear();
        Paint();
        int fixed = 0, scrollable = 0;
        for (const FiredEvent& event : events.Events)
            (IsFixedCell(grid, event.Values[1], event.Values[2]) ? fixed : scrollable)++;
        EXPECT_EQ(scrollable > 0, c.Scrollable);
        EXPECT_EQ(fixed > 0, c.FixedToo);
    }
}

TEST_F(Cells, GiveTheOwnerTheirRectangle)
{
    grid.OwnerDraw = lorvODComplete;
    Paint();
    for (const FiredEvent& event : events.Events) {
        RECT cell = Area(event.Values[1], event.Values[2]);
        EXPECT_EQ(event.Values[3], cell.left);
        EXPECT_EQ(event.Values[4], cell.top);
        EXPECT_EQ(event.Values[5], cell.right);
        EXPECT_EQ(event.Values[6], cell.bottom);
        EXPECT_EQ(event.Values[7], 0) << "Done starts as false";
    }
}

class OwnerDrawn : public Cells
{
protected:
    OwnerDrawn()
    {
        grid.GridLines = lorvGridFlat;
        SetText(1, 1, L"HHHH");
        Focus(1, 1);
        grid.FocusRect = lorvFocusSolid;
        events.On = [this](DISPID id, DISPPARAMS& parameters) {
            if (id != DrawCellId || EventSink::Argument(parameters, 1).lVal != 1 ||
                EventSink::Argument(parameters, 2).lVal != 1)
                return;
            RECT area = {At(parameters, 3), At(parameters, 4), At(parameters, 5), At(parameters, 6)};
            seenBack_ = canvas.Count(area, Back);
            seenLines_ = canvas.Count(area, Line);
            seenInk_ = canvas.Count(area, Ink);
            seenFocus_ = canvas.Count(area, Selection);
            *EventSink::Argument(parameters, 7).pboolVal = done_ ? VARIANT_TRUE : VARIANT_FALSE;
        };
    }
    static LONG At(DISPPARAMS& parameters, UINT number)
    {
        return EventSink::Argument(parameters, number).lVal;
    }
    void PaintWith(int setting, bool done)
    {
        grid.OwnerDraw = static_cast<int16_t>(setting);
        done_ = done;
        canvas.Fill(Untouched);
        Paint();
    }
    int Now(COLORREF colour) { return canvas.Count(Area(1, 1), colour); }
    bool done_ = false;
    int seenBack_ = -1, seenLines_ = -1, seenInk_ = -1, seenFocus_ = -1;
};

TEST_F(OwnerDrawn, CompleteLeavesTheCellAsTheHandlerDidIt)
{
    PaintWith(lorvODComplete, true);
    EXPECT_EQ(seenBack_, 0);
    RECT cell = Area(1, 1);
    EXPECT_EQ(Now(Untouched), (cell.right - cell.left) * (cell.bottom - cell.top));
    PaintWith(lorvODComplete, false);
    EXPECT_GT(Now(Ink), 0);
    EXPECT_GT(Now(Selection), 0);
}

TEST_F(OwnerDrawn, ContentComesAfterTheLinesAndInPlaceOfTheText)
{
    PaintWith(lorvODContent, true);
    EXPECT_GT(seenBack_, 0);
    EXPECT_GT(seenLines_, 0);
    EXPECT_EQ(seenInk_, 0);
    EXPECT_EQ(Now(Ink), 0);
    EXPECT_GT(Now(Selection), 0) << "the focus mark is still drawn";
    PaintWith(lorvODContent, false);
    EXPECT_GT(Now(Ink), 0);
}

TEST_F(OwnerDrawn, OverComesAfterTheTextAndBeforeTheFocusMark)
{
    PaintWith(lorvODOver, true);
    EXPECT_GT(seenInk_, 0);
    EXPECT_EQ(seenFocus_, 0);
    EXPECT_GT(Now(Selection), 0) << "Done has no effect here";
}

// --- focus

struct FocusCase {
    int Mark;
    int Depth; // pixels from the edge that the mark covers
};
TEST_F(Cells, FocusMarksStandAtTheEdge)
{
    const FocusCase cases[] = {{lorvFocusNone, 0},  {lorvFocusLight, 1},  {lorvFocusHeavy, 2},
                               {lorvFocusSolid, 2}, {lorvFocusRaised, 2}, {lorvFocusInset, 2}};
    Focus(2, 2);
    RECT cell = Area(2, 2);
    for (const FocusCase& c : cases) {
        SCOPED_TRACE(c.Mark);
        grid.FocusRect = static_cast<int16_t>(c.Mark);
        Paint();
        for (int depth = 0; depth < 4; ++depth) {
            RECT line = {cell.left + 4, cell.top + depth, cell.right - 4, cell.top + depth + 1};
            EXPECT_EQ(canvas.Count(line, Back) < line.right - line.left, depth < c.Depth) << depth;
        }
    }
}

TEST_F(Cells, FocusMarkStaysInsideTheGridLines)
{
    grid.FocusRect = lorvFocusSolid;
    grid.GridLines = lorvGridFlat;
    Focus(2, 2);
    Paint();
    RECT cell = Area(2, 2);
    int y = (cell.top + cell.bottom) / 2;
    EXPECT_EQ(canvas.At(cell.right - 1, y), Line);
    EXPECT_EQ(canvas.At(cell.right - 2, y), Selection);
    EXPECT_EQ(canvas.At(cell.left, y), Selection);
}

TEST_F(Cells, FocusMarkNeedsTheFocusAndAScrollableCell)
{
    grid.FocusRect = lorvFocusSolid;
    Select(2, 2, 2, 2);
    Paint();
    EXPECT_EQ(canvas.Count(canvas.Area(), Selection), 0);
    Focus(0, 2);
    Paint();
    EXPECT_EQ(canvas.Count(canvas.Area(), Selection), 0);
}

TEST_F(Cells, FocusMarkGoesAroundTheTextInTheOutlineColumn)
{
    grid.FocusRect = lorvFocusSolid;
    grid.OutlineBar = lorvOutlineBarSymbols;
    grid.OutlineLevelCount = 1;
    grid.OutlineLevels[0] = 5; // no row has it, so there is no tree
    grid.OutlineCol = 2;
    SetText(2, 2, L"ii");
    Focus(2, 2);
    Format(2, 2).Alignment = lorvAlignLeftCenter;
    Paint();
    RECT cell = Area(2, 2), mark = canvas.Extent(cell, Selection);
    EXPECT_EQ(mark.left, cell.left);
    EXPECT_LT(mark.right, cell.right - 30);
    Format(2, 2).Alignment = lorvAlignRightCenter;
    Paint();
    mark = canvas.Extent(cell, Selection);
    EXPECT_EQ(mark.right, cell.right);
    EXPECT_GT(mark.left, cell.left + 30);
    Format(2, 2).Alignment = lorvAlignCenterCenter;
    Paint();
    mark = canvas.Extent(cell, Selection);
    EXPECT_EQ(mark.left, cell.left);
    EXPECT_EQ(mark.right, cell.right);
}

// --- pictures

TEST_F(Cells, PicturesStandByTheirAlignmentAndAreTransparentWhereWhite)
{
    constexpr COLORREF ink = RGB(0, 90, 250);
    auto picture = MakePicture(12, 8, ink);
    RECT room = {100, 50, 160, 90};
    const LONG lefts[] = {100, 124, 148}, tops[] = {50, 66, 82};
    for (int alignment = 0; alignment <= 8; ++alignment) {
        SCOPED_TRACE(alignment);
        canvas.Fill(Back);
        EXPECT_TRUE(DrawPicture(grid, canvas.Get(), picture.Get(), alignment, room));
        RECT drawn = canvas.Extent(canvas.Area(), ink);
        RECT expected = {lefts[alignment / 3], tops[alignment % 3], lefts[alignment / 3] + 12,
                         tops[alignment % 3] + 8};
        EXPECT_TRUE(EqualRect(&drawn, &expected)) << drawn.left << ", " << drawn.top;
        EXPECT_EQ(canvas.At(expected.left, expected.top), Back) << "white is transparent";
        EXPECT_EQ(canvas.Count(canvas.Area(), ink), 12 * 8 - 1);
    }
}

TEST_F(Cells, PicturesAreNotScaledOnScreen)
{
    constexpr COLORREF ink = RGB(0, 90, 250);
    auto picture = MakePicture(12, 8, ink);
    canvas.Fill(Back);
    RECT room = {100, 50, 160, 90};
    EXPECT_TRUE(DrawPicture(grid, canvas.Get(), picture.Get(), lorvPicAlignStretch, room));
    EXPECT_EQ(canvas.Count(canvas.Area(), ink), 12 * 8 - 1);
    RECT small = {10, 10, 15, 13};
    canvas.Fill(Back);
    EXPECT_TRUE(DrawPicture(grid, canvas.Get(), picture.Get(), lorvPicAlignLeftTop, small));
    RECT drawn = canvas.Extent(canvas.Area(), ink), expected = {10, 10, 16, 14};
    EXPECT_TRUE(EqualRect(&drawn, &expected)) << "too large a picture is cut one pixel past its room";
}

TEST_F(Cells, PicturesTileTheirRoom)
{
    constexpr COLORREF ink = RGB(0, 90, 250);
    auto picture = MakePicture(12, 8, ink);
    canvas.Fill(Back);
    RECT room = {100, 50, 130, 70};
    EXPECT_TRUE(DrawPicture(grid, canvas.Get(), picture.Get(), lorvPicAlignTile, room));
    RECT drawn = canvas.Extent(canvas.Area(), ink);
    EXPECT_TRUE(EqualRect(&drawn, &room));
    EXPECT_EQ(canvas.Count(room, Back), 9) << "three by three corners";
}

TEST_F(Cells, NoPictureAndNoRoomDrawNothing)
{
    auto picture = MakePicture(12, 8, 0);
    EXPECT_FALSE(DrawPicture(grid, canvas.Get(), nullptr, 0, canvas.Area()));
    EXPECT_FALSE(DrawPicture(grid, canvas.Get(), picture.Get(), 0, {5, 5, 5, 9}));
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 300 * 200);
}

TEST_F(Cells, ShowThePictureOfTheirFormatAtTheLeft)
{
    constexpr COLORREF ink = RGB(0, 90, 250);
    auto picture = MakePicture(12, 8, ink);
    ReplaceReference<IPictureDisp>(Format(1, 1).Picture, picture.Get());
    Paint();
    RECT cell = Area(1, 1), drawn = canvas.Extent(cell, ink);
    EXPECT_EQ(drawn.left, cell.left);
    EXPECT_EQ(drawn.top, cell.top + (40 - 1 - 8) / 2);
}

TEST_F(Cells, ShowThePictureOfTheirFormatBesideTheTree)
{
    constexpr COLORREF ink = RGB(0, 90, 250);
    auto picture = MakePicture(12, 8, ink);
    ReplaceReference<IPictureDisp>(Format(1, 1).Picture, picture.Get());
    Format(1, 1).PictureAlignment = lorvPicAlignRightBottom;
    grid.OutlineCol = 1;
    grid.OutlineBar = lorvOutlineBarSymbolsLeaf; // draws nothing for a row without children
    grid.OutlineLevelCount = 1;
    grid.OutlineLevels[0] = grid.RowTable[1].OutlineLevel = 1;
    Paint();
    RECT cell = Area(1, 1), drawn = canvas.Extent(cell, ink);
    EXPECT_EQ(drawn.right, cell.right - 1);
    EXPECT_EQ(drawn.bottom, cell.bottom - 1);
    grid.Extent = {7938, 5292}; // 300 by 200 pixels at 96 dpi
    SetOption(grid, OptionRightToLeft, true);
    Paint();
    cell = Area(1, 1), drawn = canvas.Extent(cell, ink);
    EXPECT_EQ(drawn.right, cell.right - 1 - DpiScale(13));
    SetOption(grid, OptionRightToLeft, false);
    Format(1, 1).PictureAlignment = lorvPicAlignLeftTop;
    Paint();
    cell = Area(1, 1), drawn = canvas.Extent(cell, ink);
    EXPECT_EQ(drawn.left, cell.left + DpiScale(13));
    EXPECT_EQ(drawn.top, cell.top);
}

TEST_F(Cells, StretchBitsScalesOnTheScreen)
{
    Canvas source(10, 10);
    source.Fill(RGB(1, 2, 3));
    StretchBits(canvas.Get(), {20, 20, 60, 50}, source.Get(), {10, 10});
    EXPECT_EQ(canvas.Count(canvas.Area(), RGB(1, 2, 3)), 40 * 30);
}

TEST_F(Cells, OfAnImageColumnShowTheImageInPlaceOfTheNumber)
{
    HIMAGELIST list = ImageList_Create(8, 8, ILC_COLOR24, 2, 1);
    Canvas image(16, 8);
    image.Fill({0, 0, 8, 8}, RGB(0, 200, 0));
    image.Fill({8, 0, 16, 8}, RGB(0, 0, 200));
    HBITMAP bitmap = static_cast<HBITMAP>(GetCurrentObject(image.Get(), OBJ_BITMAP));
    HBITMAP copy = static_cast<HBITMAP>(CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0));
    ASSERT_EQ(ImageList_Add(list, copy, nullptr), 0);
    DeleteObject(copy);
    grid.ColTable[1].ColImageList = list;
    SetText(1, 1, L"1");
    SetText(2, 1, L"7");
    Paint();
    EXPECT_EQ(canvas.Count(Area(1, 1), RGB(0, 0, 200)), 64);
    EXPECT_EQ(canvas.Count(Area(1, 1), Ink), 0);
    EXPECT_EQ(InkIn(1, 1, RGB(0, 0, 200)).right, Area(1, 1).right) << "numbers stand at the right";
    EXPECT_GT(canvas.Count(Area(2, 1), Ink), 0) << "a number without an image is text";
    SetText(2, 1, L"-1");
    Paint();
    EXPECT_GT(canvas.Count(Area(2, 1), Ink), 0);
    const LONG acrossShift[] = {0, (90 - 8) / 2, 90 - 8}, downShift[] = {0, (40 - 8) / 2, 40 - 8};
    for (int alignment = 0; alignment <= 8; ++alignment) {
        SCOPED_TRACE(alignment);
        Format(1, 1).Alignment = static_cast<uint8_t>(alignment);
        Paint();
        RECT drawn = InkIn(1, 1, RGB(0, 0, 200));
        EXPECT_EQ(drawn.left - Area(1, 1).left, acrossShift[alignment / 3]);
        EXPECT_EQ(drawn.top - Area(1, 1).top, downShift[alignment % 3]);
    }
    grid.RowTable[1].Height = 6, grid.ColTable[1].Width = 6;
    Paint();
    EXPECT_EQ(canvas.At(Area(1, 1).left, Area(1, 1).top), RGB(0, 0, 200))
        << "a large image starts at the corner";
    EXPECT_NE(canvas.At(Area(1, 1).left - 1, Area(1, 1).top), RGB(0, 0, 200));
    grid.ColTable[1].ColImageList = nullptr;
    ImageList_Destroy(list);
}

// --- headers

TEST_F(Cells, FixedArePlainWithThemesWantedAndNotToBeHad)
{
    grid.Appearance = lorvXPThemes;
    Paint();
    EXPECT_EQ(Middle(0, 1), Fixed);
    EXPECT_EQ(canvas.At(49, 10), GetSysColor(COLOR_BTNSHADOW)) << "with their lines";
}

TEST_F(Cells, FixedAreFlatButtonsInEveryOtherAppearance)
{
    for (int appearance : {lorvFlat, lorv3D, lorv3DLight}) {
        SCOPED_TRACE(appearance);
        grid.Appearance = static_cast<int16_t>(appearance);
        Paint();
        EXPECT_EQ(canvas.Count(Area(0, 1), Fixed), 0) << "buttons ignore BackColorFixed";
    }
}

TEST_F(Cells, RowIndicatorStandsInTheLastFixedColumnOfTheCurrentRow)
{
    grid.GridLinesFixed = lorvGridDataGrid;
    Select(2, 1, 2, 1);
    Paint();
    RECT header = Area(2, 0);
    EXPECT_GT(canvas.Count(header, GetSysColor(COLOR_BTNTEXT)), 10);
    EXPECT_EQ(canvas.Count(Area(1, 0), GetSysColor(COLOR_BTNTEXT)), 0);
    grid.ColTable[0].Width = 10;
    Paint();
    EXPECT_EQ(canvas.Count(Area(2, 0), GetSysColor(COLOR_BTNTEXT)), 0) << "a narrow header has none";
}

TEST_F(Cells, RowIndicatorPointsIntoTheSheet)
{
    grid.GridLinesFixed = lorvGridDataGrid;
    grid.Extent = {7938, 5292}; // 300 by 200 pixels at 96 dpi
    Select(2, 1, 2, 1);
    for (bool rightToLeft : {false, true}) {
        SCOPED_TRACE(rightToLeft);
        SetOption(grid, OptionRightToLeft, rightToLeft);
        Paint();
        const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
        RECT mark = canvas.Extent(Area(2, 0), ink);
        int first = canvas.Count({mark.left, mark.top, mark.left + 1, mark.bottom}, ink);
        int last = canvas.Count({mark.right - 1, mark.top, mark.right, mark.bottom}, ink);
        EXPECT_EQ(last > first, rightToLeft);
    }
}

TEST_F(Cells, RowIndicatorNeedsTheDataGridStyleAndElevenPixels)
{
    const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
    Select(2, 1, 2, 1);
    grid.GridLinesFixed = lorvGridInset;
    Paint();
    EXPECT_EQ(canvas.Count(Area(2, 0), ink), 0);
    grid.GridLinesFixed = lorvGridDataGrid;
    grid.RowTable[2].Height = 10;
    Paint();
    EXPECT_EQ(canvas.Count(Area(2, 0), ink), 0);
    grid.RowTable[2].Height = 11, grid.ColTable[0].Width = 11;
    Paint();
    EXPECT_GT(canvas.Count(Area(2, 0), ink), 0);
    SetFixedCounts(grid, 1, 2, 0, 0);
    Paint();
    EXPECT_EQ(canvas.Count(Area(2, 0), ink), 0) << "it stands in the last fixed column";
}
} // namespace
