#include "core/cell_property.h"

#include "core/cell_border.h"
#include "core/cell_font.h"
#include "core/check_state.h"
#include "core/font_pool.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "platform/dpi.h"
#include "platform/variant.h"
#include "support/fakes.h"

#include <climits>
#include <cmath>
#include <string>

namespace
{
const CellFormat& FormatAt(Grid& grid, int row, int col)
{
    static const CellFormat none = {};
    const CellFormat* format = CellFormatOf(grid, row, col);
    EXPECT_NE(format, nullptr) << row << "," << col;
    return format ? *format : none;
}

bool HasFormat(Grid& grid, int row, int col)
{
    return CellFormatOf(grid, row, col) != nullptr;
}

std::wstring TextAt(Grid& grid, int row, int col)
{
    const wchar_t* text = GetCellText(grid, row, col);
    return text ? text : L"(none)";
}

void Link(Grid& grid, int row, int col, int links)
{
    ASSERT_EQ(EnsureRowCells(grid, row), S_OK);
    grid.RowTable[row].Cells[col].State |= static_cast<uint8_t>(links);
}

int BoxAt(Grid& grid, int row, int col)
{
    const CellRecord* cells = grid.RowTable[row].Cells;
    return cells ? cells[col].State >> CheckStateShift : 0;
}

LOGFONTW FontAt(Grid& grid, int row, int col)
{
    LOGFONTW description;
    EXPECT_TRUE(DescribeCellFont(grid, row, col, description));
    return description;
}

LOGFONTW FontNamed(const wchar_t* name)
{
    LOGFONTW font = {};
    font.lfHeight = -20;
    font.lfWeight = FW_NORMAL;
    lstrcpynW(font.lfFaceName, name, LF_FACESIZE);
    return font;
}

TEST(SetCellProperty, RefusesACellOutsideTheGrid)
{
    Grid grid;
    const CellPos outside[] = {{-1, 0}, {0, -1}, {50, 0}, {0, 10}, {INT_MAX, 0}, {0, INT_MIN}};
    for (CellPos cell : outside)
        for (int selector = 0; selector <= 25; ++selector)
            EXPECT_EQ(SetCellProperty(grid, cell.Row, cell.Col, static_cast<CellSelector>(selector), nullptr),
                      LORV_E_INDEX)
                << cell.Row << "," << cell.Col << " " << selector;
}

TEST(SetCellProperty, MakesAFormatWithThreeUnsetBytes)
{
    Grid grid;
    ASSERT_EQ(SetCellProperty(grid, 2, 3, CellSelector::ForeColor, 5), S_OK);
    const CellFormat& format = FormatAt(grid, 2, 3);
    EXPECT_EQ(format.Alignment, 100);
    EXPECT_EQ(format.TextStyle, 100);
    EXPECT_EQ(format.PictureAlignment, 100);
    EXPECT_EQ(format.BackColorSet, 0);
    EXPECT_EQ(format.Font, nullptr);
    EXPECT_FALSE(HasFormat(grid, 2, 2));
}

TEST(SetCellProperty, EachNumberGoesToItsOwnField)
{
    struct Case {
        CellSelector Selector;
        uint32_t Value;
        long (*Read)(const CellFormat&);
        long Expected;
    };
    const Case cases[] = {
        {CellSelector::BackColor, 0x80000005, [](const CellFormat& f) { return long(f.BackColor); },
         long(0x80000005)},
        {CellSelector::ForeColor, 0xFFFFFF, [](const CellFormat& f) { return long(f.ForeColor); }, 0xFFFFFF},
        {CellSelector::Alignment, 12, [](const CellFormat& f) { return long(f.Alignment); }, 12},
        {CellSelector::TextStyle, 4, [](const CellFormat& f) { return long(f.TextStyle); }, 4},
        {CellSelector::PictureAlignment, 10, [](const CellFormat& f) { return long(f.PictureAlignment); },
         10},
        {CellSelector::FloodPercent, uint32_t(-100), [](const CellFormat& f) { return long(f.FloodPercent); },
         -100},
        {CellSelector::FloodColor, 7, [](const CellFormat& f) { return long(f.FloodColor); }, 7},
        {CellSelector::BorderColor, 8, [](const CellFormat& f) { return long(f.BorderColor); }, 8},
        {CellSelector::BorderLeft, 255, [](const CellFormat& f) { return long(f.BorderLeft); }, 255},
        {CellSelector::BorderRight, 2, [](const CellFormat& f) { return long(f.BorderRight); }, 2},
        {CellSelector::BorderTop, 3, [](const CellFormat& f) { return long(f.BorderTop); }, 3},
        {CellSelector::BorderBottom, 4, [](const CellFormat& f) { return long(f.BorderBottom); }, 4},
    };
    for (const Case& written : cases) {
        Grid grid;
        ASSERT_EQ(SetCellProperty(grid, 1, 1, written.Selector, written.Value), S_OK);
        for (const Case& read : cases) {
            long unset = read.Selector == CellSelector::Alignment ||
                                 read.Selector == CellSelector::TextStyle ||
                                 read.Selector == CellSelector::PictureAlignment
                             ? 100
                             : 0;
            long expected = read.Selector == written.Selector ? read.Expected : unset;
            EXPECT_EQ(read.Read(FormatAt(grid, 1, 1)), expected)
                << int(written.Selector) << " read as " << int(read.Selector);
        }
    }
}

TEST(SetCellProperty, BlackIsABackColourOnceItWasSet)
{
    Grid grid;
    ASSERT_EQ(SetCellProperty(grid, 1, 1, CellSelector::BackColor, 0), S_OK);
    EXPECT_EQ(FormatAt(grid, 1, 1).BackColorSet, 1);
}

TEST(SetCellProperty, TextAndCheckBoxMakeNoFormat)
{
    Grid grid;
    EXPECT_EQ(SetCellProperty(grid, 1, 1, CellSelector::Text, L"text"), S_OK);
    EXPECT_EQ(SetCellProperty(grid, 1, 2, CellSelector::CheckState, lorvTSGrayed), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 1), L"text");
    EXPECT_EQ(BoxAt(grid, 1, 2), lorvTSGrayed);
    EXPECT_FALSE(HasFormat(grid, 1, 1));
    EXPECT_FALSE(HasFormat(grid, 1, 2));
}

// A refresh goes the way of every format property.
TEST(SetCellProperty, RefreshMakesAFormat)
{
    Grid grid;
    EXPECT_EQ(SetCellProperty(grid, 1, 1, CellSelector::Refresh, nullptr), S_OK);
    EXPECT_TRUE(HasFormat(grid, 1, 1));
}

TEST(SetCellProperty, AnUnknownSelectorIsRefusedOnlyAfterTheFormatWasMade)
{
    Grid grid;
    EXPECT_EQ(SetCellProperty(grid, 1, 1, static_cast<CellSelector>(26), 1), LORV_E_VALUE);
    EXPECT_TRUE(HasFormat(grid, 1, 1));
}

TEST(SetCellProperty, HoldsOneReferenceToAPicture)
{
    FakePicture first, second;
    Grid grid;
    SetCellProperty(grid, 1, 1, CellSelector::Picture, first.Get());
    SetCellProperty(grid, 1, 1, CellSelector::Picture, first.Get());
    EXPECT_EQ(first.References, 1);
    SetCellProperty(grid, 1, 1, CellSelector::Picture, second.Get());
    EXPECT_EQ(first.References, 0);
    EXPECT_EQ(second.References, 1);
    SetCellProperty(grid, 1, 1, CellSelector::Picture, nullptr);
    EXPECT_EQ(second.References, 0);
    EXPECT_EQ(FormatAt(grid, 1, 1).Picture, nullptr);
}

TEST(SetCellProperty, SurvivesAPictureThatTakesTheRowsAwayWhenItGoes)
{
    FakePicture picture;
    Grid grid;
    SetCellProperty(grid, 4, 4, CellSelector::Picture, picture.Get());
    picture.OnLastRelease = [&] { ResizeRows(grid, 0); };
    EXPECT_EQ(SetCellProperty(grid, 4, 4, CellSelector::Picture, nullptr), S_OK);
    EXPECT_EQ(grid.Rows, 0);
}

TEST(SetCellProperty, DataIsACopyOfWhatReferencesLeadTo)
{
    Grid grid;
    VARIANT number, inner, outer;
    number.vt = VT_I4, number.lVal = 42;
    inner.vt = VT_BYREF | VT_VARIANT, inner.pvarVal = &number;
    outer.vt = VT_BYREF | VT_VARIANT, outer.pvarVal = &inner;
    const VARIANT* data = &outer;
    ASSERT_EQ(SetCellProperty(grid, 1, 1, CellSelector::Data, data), S_OK);
    number.lVal = 43;
    ASSERT_NE(FormatAt(grid, 1, 1).Data, nullptr);
    EXPECT_EQ(FormatAt(grid, 1, 1).Data->vt, VT_I4);
    EXPECT_EQ(FormatAt(grid, 1, 1).Data->lVal, 42);
}

TEST(SetCellProperty, SurvivesDataThatTakesTheColumnsAwayWhenItGoes)
{
    FakeDispatch object;
    Grid grid;
    {
        OwnedVariant data;
        data.Get().vt = VT_DISPATCH, data.Get().pdispVal = &object;
        object.AddRef();
        const VARIANT* value = &data.Get();
        ASSERT_EQ(SetCellProperty(grid, 4, 4, CellSelector::Data, value), S_OK);
    }
    object.OnLastRelease = [&] { ResizeCols(grid, 2); };
    VARIANT empty;
    VariantInit(&empty);
    const VARIANT* value = &empty;
    EXPECT_EQ(SetCellProperty(grid, 4, 4, CellSelector::Data, value), S_OK);
    EXPECT_EQ(grid.Cols, 2);
}

CellFormat RichFormat(IPictureDisp* picture)
{
    CellFormat format = {};
    format.BackColor = 1, format.BackColorSet = 1, format.ForeColor = 2, format.FloodColor = 3;
    format.FloodPercent = -4, format.Alignment = 5, format.TextStyle = 3, format.PictureAlignment = 7;
    format.BorderColor = 8, format.BorderLeft = 9, format.BorderTop = 10;
    format.BorderRight = 11, format.BorderBottom = 12;
    format.Picture = picture;
    return format;
}

TEST(CopyFormat, TakesEverythingButTheData)
{
    FakePicture picture;
    Grid grid;
    VARIANT number;
    number.vt = VT_I4, number.lVal = 1;
    const VARIANT* data = &number;
    SetCellProperty(grid, 1, 1, CellSelector::Data, data);
    CellFormat source = RichFormat(picture.Get());
    source.Font = AcquirePooledFont(FontNamed(L"Arial"));
    const CellFormat* pointer = &source;
    ASSERT_EQ(SetCellProperty(grid, 1, 1, CellSelector::CopyFormat, pointer), S_OK);
    const CellFormat& copy = FormatAt(grid, 1, 1);
    EXPECT_EQ(copy.BackColor, 1u);
    EXPECT_EQ(copy.BackColorSet, 1);
    EXPECT_EQ(copy.ForeColor, 2u);
    EXPECT_EQ(copy.FloodColor, 3u);
    EXPECT_EQ(copy.FloodPercent, -4);
    EXPECT_EQ(copy.Alignment, 5);
    EXPECT_EQ(copy.TextStyle, 3);
    EXPECT_EQ(copy.PictureAlignment, 7);
    EXPECT_EQ(copy.BorderColor, 8u);
    EXPECT_EQ(copy.BorderLeft, 9);
    EXPECT_EQ(copy.BorderTop, 10);
    EXPECT_EQ(copy.BorderRight, 11);
    EXPECT_EQ(copy.BorderBottom, 12);
    EXPECT_EQ(copy.Picture, picture.Get());
    EXPECT_EQ(picture.References, 1);
    EXPECT_EQ(copy.Font, source.Font);
    EXPECT_EQ(PooledFontUses(source.Font), 2);
    ASSERT_NE(copy.Data, nullptr) << "the data stays the cell's own";
    EXPECT_EQ(copy.Data->lVal, 1);
    ReleasePooledFont(source.Font);
}

TEST(CopyFormat, OfASourceWithoutAFontDropsTheCellsFont)
{
    Grid grid;
    SetCellProperty(grid, 1, 1, CellSelector::FontBold, 1);
    HFONT bold = FormatAt(grid, 1, 1).Font;
    CellFormat source = RichFormat(nullptr);
    const CellFormat* pointer = &source;
    SetCellProperty(grid, 1, 1, CellSelector::CopyFormat, pointer);
    EXPECT_EQ(FormatAt(grid, 1, 1).Font, nullptr);
    EXPECT_EQ(PooledFontUses(bold), 0);
}

TEST(CopyFormat, OfTheCellItselfDoesNothing)
{
    FakePicture picture;
    Grid grid;
    SetCellProperty(grid, 1, 1, CellSelector::Picture, picture.Get());
    const CellFormat* own = &FormatAt(grid, 1, 1);
    EXPECT_EQ(SetCellProperty(grid, 1, 1, CellSelector::CopyFormat, own), S_OK);
    EXPECT_EQ(picture.References, 1);
}

TEST(CopyFormat, OfNothingClearsTheFormatButNotTheText)
{
    Grid grid;
    SetCellText(grid, 1, 1, L"text");
    SetCellProperty(grid, 1, 1, CellSelector::BackColor, 5);
    EXPECT_EQ(SetCellProperty(grid, 1, 1, CellSelector::CopyFormat, nullptr), S_OK);
    EXPECT_FALSE(HasFormat(grid, 1, 1));
    EXPECT_EQ(TextAt(grid, 1, 1), L"text");
    EXPECT_EQ(SetCellProperty(grid, 9, 1, CellSelector::CopyFormat, nullptr), S_OK);
    EXPECT_EQ(grid.RowTable[9].Cells, nullptr) << "nothing is made to be cleared";
}

TEST(SetCellPropertyRange, WritesBetweenCornersInAnyOrder)
{
    Grid grid;
    ASSERT_EQ(SetCellPropertyRange(grid, {4, 5, 2, 3}, CellSelector::ForeColor, 1), S_OK);
    for (int row = 0; row < 7; ++row)
        for (int col = 0; col < 8; ++col)
            EXPECT_EQ(HasFormat(grid, row, col), row >= 2 && row <= 4 && col >= 3 && col <= 5)
                << row << "," << col;
}

// Cells, then a format for each of two columns: the third row's cells are the seventh allocation.
TEST(SetCellPropertyRange, StopsAtTheFirstFailureAndUndoesNothing)
{
    Grid grid;
    FailingAllocation failing(7);
    EXPECT_EQ(SetCellPropertyRange(grid, {1, 1, 4, 2}, CellSelector::ForeColor, 1), LORV_E_MEMORY);
    EXPECT_TRUE(HasFormat(grid, 1, 1));
    EXPECT_TRUE(HasFormat(grid, 2, 2));
    EXPECT_EQ(grid.RowTable[3].Cells, nullptr);
    EXPECT_EQ(grid.RowTable[4].Cells, nullptr);
}

TEST(SetCellPropertyRange, GivesEachCellItsOwnData)
{
    Grid grid;
    VARIANT text;
    text.vt = VT_BSTR, text.bstrVal = SysAllocString(L"shared");
    const VARIANT* data = &text;
    ASSERT_EQ(SetCellPropertyRange(grid, {1, 1, 1, 2}, CellSelector::Data, data), S_OK);
    VariantClear(&text);
    EXPECT_STREQ(FormatAt(grid, 1, 1).Data->bstrVal, L"shared");
    EXPECT_STREQ(FormatAt(grid, 1, 2).Data->bstrVal, L"shared");
    EXPECT_NE(FormatAt(grid, 1, 1).Data->bstrVal, FormatAt(grid, 1, 2).Data->bstrVal);
}

TEST(SetCellPropertyRange, EndsWhenAHandlerTakesTheRowsAway)
{
    EventSink sink;
    Grid grid;
    Connection connected(grid.EventSinks, &sink);
    sink.On = [&](DISPID, DISPPARAMS&) { ResizeRows(grid, 2); };
    EXPECT_EQ(SetCellPropertyRange(grid, {1, 1, 3, 3}, CellSelector::Text, L"x"), LORV_E_INDEX);
    EXPECT_EQ(TextAt(grid, 1, 3), L"x");
}

void Select(Grid& grid, int row, int col, int rowSel, int colSel)
{
    grid.Row = row, grid.Col = col, grid.RowSel = rowSel, grid.ColSel = colSel;
}

TEST(SetCellPropertySelection, MeansTheCurrentCellUnlessFillStyleRepeats)
{
    for (bool repeat : {false, true}) {
        Grid grid;
        Select(grid, 3, 4, 2, 5);
        grid.FillStyle = repeat ? lorvFillRepeat : lorvFillSingle;
        ASSERT_EQ(SetCellPropertySelection(grid, CellSelector::Text, L"x"), S_OK);
        EXPECT_EQ(TextAt(grid, 3, 4), L"x");
        EXPECT_EQ(TextAt(grid, 2, 5), repeat ? L"x" : L"(none)");
        EXPECT_EQ(TextAt(grid, 3, 5), repeat ? L"x" : L"(none)");
    }
}

TEST(SetCellPropertySelection, HoldsRedrawWhileItFills)
{
    EventSink sink;
    Grid grid;
    Connection connected(grid.EventSinks, &sink);
    int seen = -1;
    sink.On = [&](DISPID, DISPPARAMS&) { seen = grid.Redraw; };
    grid.Redraw = lorvRDBuffered;
    grid.FillStyle = lorvFillRepeat;
    SetCellPropertySelection(grid, CellSelector::Text, L"x");
    EXPECT_EQ(seen, lorvRDNone);
    EXPECT_EQ(grid.Redraw, lorvRDBuffered);
}

TEST(SetCellPropertySelection, NeedsACurrentCell)
{
    for (int fill : {lorvFillSingle, lorvFillRepeat})
        for (int merge : {lorvMergeNever, lorvMergeFree, lorvMergeSpill}) {
            Grid grid;
            Select(grid, -1, -1, -1, -1);
            grid.FillStyle = static_cast<int16_t>(fill);
            grid.MergeCells = static_cast<int16_t>(merge);
            EXPECT_EQ(SetCellPropertySelection(grid, CellSelector::CheckState, 1), LORV_E_INDEX);
        }
}

// Cells (2..4, 3) and (3, 2..4) are linked crosswise; the current one is in the middle.
void LinkCross(Grid& grid)
{
    Link(grid, 2, 3, LinkBelow);
    Link(grid, 3, 3, LinkAbove | LinkBelow | LinkLeft | LinkRight);
    Link(grid, 4, 3, LinkAbove);
    Link(grid, 3, 2, LinkRight);
    Link(grid, 3, 4, LinkLeft);
    Select(grid, 3, 3, 3, 3);
    grid.OptionWord &= ~OptionMergeStale;
}

TEST(MergedCheckBox, IsWrittenToTheWholeRangeWhereTheCurrentCellMayMerge)
{
    struct Case {
        const char* Name;
        void (*SetUp)(Grid&);
        bool Merges;
    };
    const Case cases[] = {
        {"nothing may", [](Grid& g) { g.MergeCells = lorvMergeFree; }, false},
        {"row may, mode off", [](Grid& g) { g.RowTable[3].MergeRow = 1; }, false},
        {"row", [](Grid& g) { g.MergeCells = lorvMergeFree, g.RowTable[3].MergeRow = 1; }, true},
        {"column", [](Grid& g) { g.MergeCells = lorvMergeFree, g.ColTable[3].MergeCol = 1; }, true},
        {"column, fixed mode",
         [](Grid& g) { g.MergeCellsFixed = lorvMergeRestrictAll, g.ColTable[3].MergeCol = 2; }, true},
        {"spill", [](Grid& g) { g.MergeCells = lorvMergeSpill; }, true},
        {"fixed spill", [](Grid& g) { g.MergeCellsFixed = lorvMergeSpill; }, true},
        {"outline, data row", [](Grid& g) { g.MergeCells = lorvMergeOutline; }, false},
        {"outline, total",
         [](Grid& g) { g.MergeCells = lorvMergeOutline, g.RowTable[3].Flags |= RowFlagSubtotal; }, true},
        {"fixed outline, total",
         [](Grid& g) { g.MergeCellsFixed = lorvMergeOutline, g.RowTable[3].Flags |= RowFlagSubtotal; }, true},
        {"another column", [](Grid& g) { g.MergeCells = lorvMergeFree, g.ColTable[2].MergeCol = 1; }, false},
    };
    for (const Case& each : cases) {
        Grid grid;
        each.SetUp(grid);
        LinkCross(grid);
        ASSERT_EQ(SetCellPropertySelection(grid, CellSelector::CheckState, lorvChecked), S_OK);
        EXPECT_EQ(BoxAt(grid, 3, 3), lorvChecked);
        for (int row = 2; row <= 4; ++row)
            for (int col = 2; col <= 4; ++col)
                if (row != 3 || col != 3) {
                    EXPECT_EQ(BoxAt(grid, row, col), each.Merges ? lorvChecked : lorvNoCheckbox)
                        << each.Name << " " << row << "," << col;
                }
    }
}

TEST(MergedCheckBox, StopsAtTheFixedPartAndAtTheTablesEdge)
{
    Grid grid;
    grid.MergeCells = grid.MergeCellsFixed = lorvMergeSpill;
    ResizeBoth(grid, 4, 4);
    for (int row = 0; row < 4; ++row)
        for (int col = 0; col < 4; ++col)
            Link(grid, row, col, LinkAbove | LinkBelow | LinkLeft | LinkRight);
    Select(grid, 2, 2, 2, 2);
    grid.OptionWord &= ~OptionMergeStale;
    ASSERT_EQ(SetCellPropertySelection(grid, CellSelector::CheckState, lorvChecked), S_OK);
    for (int row = 0; row < 4; ++row)
        for (int col = 0; col < 4; ++col)
            EXPECT_EQ(BoxAt(grid, row, col), row >= 1 && col >= 1 ? lorvChecked : lorvNoCheckbox);
}

// Stale links are brought up to date first, unless nothing is drawn.
TEST(MergedCheckBox, FollowsLinksThatAreUpToDate)
{
    for (bool redraw : {true, false}) {
        Grid grid;
        grid.MergeCells = lorvMergeFree;
        grid.ColTable[3].MergeCol = 1;
        for (int row = 2; row <= 4; ++row)
            SetCellText(grid, row, 3, L"same");
        ASSERT_TRUE(HasOption(grid, OptionMergeStale));
        Select(grid, 3, 3, 3, 3);
        grid.Redraw = redraw ? lorvRDDirect : lorvRDNone;
        ASSERT_EQ(SetCellPropertySelection(grid, CellSelector::CheckState, lorvChecked), S_OK);
        EXPECT_EQ(BoxAt(grid, 3, 3), lorvChecked);
        EXPECT_EQ(BoxAt(grid, 2, 3), redraw ? lorvChecked : lorvNoCheckbox);
        EXPECT_EQ(BoxAt(grid, 4, 3), redraw ? lorvChecked : lorvNoCheckbox);
    }
}

TEST(MergedCheckBox, OtherPropertiesGoToTheCurrentCellAlone)
{
    Grid grid;
    grid.MergeCells = lorvMergeSpill;
    LinkCross(grid);
    SetCellPropertySelection(grid, CellSelector::BackColor, 1);
    EXPECT_TRUE(HasFormat(grid, 3, 3));
    EXPECT_FALSE(HasFormat(grid, 3, 4));
}

// Check states

TEST(SetCheckState, StoresTheStateBesideTheLinks)
{
    for (int state = lorvNoCheckbox; state <= lorvDisabledUnchecked; ++state) {
        Grid grid;
        Link(grid, 1, 1, LinkBelow);
        grid.OptionWord &= ~OptionMergeStale;
        EXPECT_EQ(SetCheckState(grid, 1, 1, state), S_OK);
        EXPECT_EQ(grid.RowTable[1].Cells[1].State, state << CheckStateShift | LinkBelow);
        EXPECT_EQ(CheckStateOf(grid, 1, 1), state);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    }
}

TEST(SetCheckState, TakesTrueForChecked)
{
    for (int state : {-1, 0xFFFF}) {
        Grid grid;
        EXPECT_EQ(SetCheckState(grid, 1, 1, state), S_OK);
        EXPECT_EQ(CheckStateOf(grid, 1, 1), lorvChecked);
    }
}

TEST(SetCheckState, RefusesWhatIsNoStateAndNoCell)
{
    Grid grid;
    for (int state : {8, -2, 255, 0x10000, INT_MAX, INT_MIN})
        EXPECT_EQ(SetCheckState(grid, 1, 1, state), LORV_E_VALUE) << state;
    EXPECT_EQ(grid.RowTable[1].Cells, nullptr);
    EXPECT_EQ(SetCheckState(grid, -1, 1, 1), LORV_E_INDEX);
    EXPECT_EQ(SetCheckState(grid, 1, 10, 1), LORV_E_INDEX);
}

// The box of a boolean column cannot be taken away, only unchecked: hosts see "0" in the text.
TEST(SetCheckState, OfABooleanColumnLivesInTheText)
{
    for (int state = lorvNoCheckbox; state <= lorvDisabledUnchecked; ++state)
        for (int col : {0, 2}) { // fixed columns of data rows too
            Grid grid;
            grid.ColTable[col].ColDataType = lorvDTBoolean;
            ASSERT_EQ(SetCheckState(grid, 1, col, state), S_OK);
            EXPECT_EQ(TextAt(grid, 1, col), state == lorvChecked ? L"-1" : L"0") << state;
            EXPECT_EQ(BoxAt(grid, 1, col), 0);
            EXPECT_EQ(CheckStateOf(grid, 1, col), state == lorvChecked ? lorvChecked : lorvUnchecked);
        }
}

TEST(SetCheckState, OfAFixedRowInABooleanColumnIsItsOwn)
{
    Grid grid;
    grid.ColTable[2].ColDataType = lorvDTBoolean;
    EXPECT_EQ(SetCheckState(grid, 0, 2, lorvTSChecked), S_OK);
    EXPECT_EQ(CheckStateOf(grid, 0, 2), lorvTSChecked);
    EXPECT_EQ(TextAt(grid, 0, 2), L"(none)");
}

TEST(CheckStateOf, ReadsTheTextOfABooleanColumn)
{
    struct Case {
        const wchar_t* Text;
        int Expected;
    };
    const Case cases[] = {
        {L"", lorvUnchecked},   {L"0", lorvUnchecked},     {L"-1", lorvChecked},
        {L"1", lorvChecked},    {L"12.5", lorvChecked},    {L"True", lorvChecked},
        {L"true", lorvChecked}, {L"False", lorvUnchecked}, {L"maybe", lorvUnchecked},
    };
    Grid grid;
    grid.ColTable[2].ColDataType = lorvDTBoolean;
    for (const Case& each : cases) {
        SetCellText(grid, 1, 2, each.Text);
        EXPECT_EQ(CheckStateOf(grid, 1, 2), each.Expected) << std::wstring(each.Text).size();
    }
}

TEST(CheckStateOf, OfAnEmptyTotalInABooleanColumnIsTheStoredOne)
{
    Grid grid;
    grid.ColTable[2].ColDataType = lorvDTBoolean;
    grid.RowTable[1].Flags |= RowFlagSubtotal;
    EXPECT_EQ(CheckStateOf(grid, 1, 2), lorvNoCheckbox);
    SetCellText(grid, 1, 2, L"-1");
    EXPECT_EQ(CheckStateOf(grid, 1, 2), lorvChecked);
}

TEST(CheckStateOf, IsNoneInARowWithoutCells)
{
    Grid grid;
    EXPECT_EQ(CheckStateOf(grid, 7, 7), lorvNoCheckbox);
}

// Fonts

TEST(SetCellFont, ChangesOneTraitAndKeepsTheOthers)
{
    Grid grid;
    LOGFONTW base = FontNamed(L"Arial");
    const LOGFONTW* font = &base;
    ASSERT_EQ(SetCellProperty(grid, 1, 1, CellSelector::Font, font), S_OK);
    EXPECT_STREQ(FontAt(grid, 1, 1).lfFaceName, L"Arial");
    EXPECT_EQ(FontAt(grid, 1, 1).lfHeight, -20);
    SetCellProperty(grid, 1, 1, CellSelector::FontBold, 1);
    SetCellProperty(grid, 1, 1, CellSelector::FontItalic, 1);
    SetCellProperty(grid, 1, 1, CellSelector::FontUnderline, 1);
    SetCellProperty(grid, 1, 1, CellSelector::FontStrikethru, 1);
    SetCellProperty(grid, 1, 1, CellSelector::FontWidth, 6.0f);
    SetCellProperty(grid, 1, 1, CellSelector::FontName, L"Courier New");
    LOGFONTW font2 = FontAt(grid, 1, 1);
    EXPECT_EQ(font2.lfHeight, -20);
    EXPECT_EQ(font2.lfWeight, 700);
    EXPECT_EQ(font2.lfItalic, 1);
    EXPECT_EQ(font2.lfUnderline, 1);
    EXPECT_EQ(font2.lfStrikeOut, 1);
    EXPECT_EQ(font2.lfWidth, -MulDiv(LogPixelsY(), 120, 1440));
    EXPECT_EQ(font2.lfCharSet, DEFAULT_CHARSET);
    EXPECT_STREQ(font2.lfFaceName, L"Courier New");
    SetCellProperty(grid, 1, 1, CellSelector::FontBold, 0);
    EXPECT_EQ(FontAt(grid, 1, 1).lfWeight, 400);
}

TEST(SetCellFont, SizesAreRoundedToTwips)
{
    struct Case {
        float Points;
        int Twips;
    };
    const Case cases[] = {{8.25f, 165}, {12.0f, 240}, {9.99f, 200}, {0.02f, 0}, {-8.0f, -160}};
    for (const Case& each : cases) {
        Grid grid;
        SetCellProperty(grid, 1, 1, CellSelector::FontSize, each.Points);
        EXPECT_EQ(FontAt(grid, 1, 1).lfHeight, -MulDiv(LogPixelsY(), each.Twips, 1440)) << each.Points;
    }
}

TEST(SetCellFont, WildSizesDoNoHarm)
{
    Grid grid;
    for (float points : {1e30f, -1e30f, std::nanf(""), INFINITY}) {
        EXPECT_EQ(SetCellProperty(grid, 1, 1, CellSelector::FontSize, points), S_OK);
        EXPECT_EQ(SetCellProperty(grid, 1, 1, CellSelector::FontWidth, points), S_OK);
    }
}

TEST(SetCellFont, NothingGoesBackToTheGridsFont)
{
    const LOGFONTW* noFont = nullptr;
    struct Case {
        CellSelector Selector;
        CellValue Value;
    };
    const Case cases[] = {
        {CellSelector::Font, noFont}, {CellSelector::FontSize, 0.0f}, {CellSelector::FontWidth, 0.0f}};
    for (const Case& each : cases) {
        Grid grid;
        SetCellProperty(grid, 1, 1, CellSelector::FontBold, 1);
        HFONT bold = FormatAt(grid, 1, 1).Font;
        ASSERT_NE(bold, nullptr);
        EXPECT_EQ(PooledFontUses(bold), 1);
        EXPECT_EQ(SetCellProperty(grid, 1, 1, each.Selector, each.Value), S_OK);
        EXPECT_EQ(FormatAt(grid, 1, 1).Font, nullptr);
        EXPECT_EQ(PooledFontUses(bold), 0);
        EXPECT_EQ(CellFontHandle(grid, 1, 1), GridFontHandle(grid));
    }
}

TEST(SetCellFont, EqualFontsShareOneHandle)
{
    Grid grid;
    ASSERT_EQ(SetCellPropertyRange(grid, {1, 1, 2, 2}, CellSelector::FontItalic, 1), S_OK);
    HFONT font = FormatAt(grid, 1, 1).Font;
    EXPECT_EQ(FormatAt(grid, 2, 2).Font, font);
    EXPECT_EQ(PooledFontUses(font), 4);
}

TEST(SetCellFont, CutsALongName)
{
    Grid grid;
    std::wstring name(100, L'n');
    SetCellProperty(grid, 1, 1, CellSelector::FontName, name.c_str());
    EXPECT_EQ(std::wstring(FontAt(grid, 1, 1).lfFaceName), std::wstring(31, L'n'));
}

// Borders

struct Sides {
    int Left, Top, Right, Bottom;
    friend bool operator==(const Sides&, const Sides&) = default;
};
std::ostream& operator<<(std::ostream& out, const Sides& sides)
{
    return out << sides.Left << " " << sides.Top << " " << sides.Right << " " << sides.Bottom;
}
Sides SidesAt(Grid& grid, int row, int col)
{
    const CellFormat* format = CellFormatOf(grid, row, col);
    return format ? Sides{format->BorderLeft, format->BorderTop, format->BorderRight, format->BorderBottom}
                  : Sides{-1, -1, -1, -1};
}

TEST(SetCellBorders, OutlinesTheRange)
{
    Grid grid;
    ASSERT_EQ(SetCellBorders(grid, 1, 1, 3, 3, {0x112233, 1, 2, 3, 4, -1, -1}), S_OK);
    EXPECT_EQ(SidesAt(grid, 1, 1), (Sides{1, 2, 0, 0}));
    EXPECT_EQ(SidesAt(grid, 1, 2), (Sides{0, 2, 0, 0}));
    EXPECT_EQ(SidesAt(grid, 1, 3), (Sides{0, 2, 3, 0}));
    EXPECT_EQ(SidesAt(grid, 2, 1), (Sides{1, 0, 0, 0}));
    EXPECT_EQ(SidesAt(grid, 2, 3), (Sides{0, 0, 3, 0}));
    EXPECT_EQ(SidesAt(grid, 3, 1), (Sides{1, 0, 0, 4}));
    EXPECT_EQ(SidesAt(grid, 3, 3), (Sides{0, 0, 3, 4}));
    EXPECT_FALSE(HasFormat(grid, 2, 2)) << "the inside is left alone";
    EXPECT_EQ(FormatAt(grid, 1, 1).BorderColor, 0x112233u);
}

TEST(SetCellBorders, NegativeWidthsLeaveTheirSideAlone)
{
    Grid grid;
    SetCellBorders(grid, 1, 1, 1, 1, {1, 1, 1, 1, 1, 1, 1});
    SetCellBorders(grid, 1, 1, 1, 1, {2, -1, 5, -1, -1, -1, -1});
    EXPECT_EQ(SidesAt(grid, 1, 1), (Sides{1, 5, 1, 1}));
    EXPECT_EQ(FormatAt(grid, 1, 1).BorderColor, 2u);
    SetCellBorders(grid, 1, 1, 1, 1, {3, -1, -1, -1, -1, -1, -1});
    EXPECT_EQ(FormatAt(grid, 1, 1).BorderColor, 2u) << "the colour comes with a side";
}

// A line between two cells belongs to the one before it; the one after it loses its own.
TEST(SetCellBorders, InnerLinesAreCarriedByTheCellBefore)
{
    Grid grid;
    SetCellPropertyRange(grid, {1, 1, 3, 3}, CellSelector::BorderLeft, 9);
    SetCellPropertyRange(grid, {1, 1, 3, 3}, CellSelector::BorderTop, 9);
    ASSERT_EQ(SetCellBorders(grid, 1, 1, 3, 3, {7, -1, -1, -1, -1, 2, 3}), S_OK);
    EXPECT_EQ(SidesAt(grid, 1, 1), (Sides{9, 9, 2, 3}));
    EXPECT_EQ(SidesAt(grid, 1, 2), (Sides{0, 9, 2, 3}));
    EXPECT_EQ(SidesAt(grid, 1, 3), (Sides{0, 9, 0, 3}));
    EXPECT_EQ(SidesAt(grid, 2, 2), (Sides{0, 0, 2, 3}));
    EXPECT_EQ(SidesAt(grid, 3, 1), (Sides{9, 0, 2, 0}));
    EXPECT_EQ(SidesAt(grid, 3, 3), (Sides{0, 0, 0, 0}));
    EXPECT_EQ(FormatAt(grid, 3, 3).BorderColor, 7u);
}

TEST(SetCellBorders, ZeroVerticalClearsInnerLines)
{
    Grid grid;
    SetCellBorders(grid, 1, 1, 1, 2, {7, -1, -1, -1, -1, 2, -1});
    SetCellBorders(grid, 1, 1, 1, 2, {7, -1, -1, -1, -1, 0, -1});
    EXPECT_EQ(SidesAt(grid, 1, 1), (Sides{0, 0, 0, 0}));
}

TEST(SetCellBorders, WidthsStopAt255)
{
    Grid grid;
    SetCellBorders(grid, 1, 1, 1, 2, {0, 256, INT_MAX, 255, 1000, 300, -1});
    EXPECT_EQ(SidesAt(grid, 1, 1), (Sides{255, 255, 255, 255}));
    EXPECT_EQ(SidesAt(grid, 1, 2), (Sides{0, 255, 255, 255}));
}

TEST(SetCellBorders, RefusesCellsOutside)
{
    Grid grid;
    const CellBorders borders = {0, 1, 1, 1, 1, 1, 1};
    EXPECT_EQ(SetCellBorders(grid, -1, 1, 1, 1, borders), LORV_E_INDEX);
    EXPECT_EQ(SetCellBorders(grid, 1, -1, 1, 1, borders), LORV_E_INDEX);
    EXPECT_EQ(SetCellBorders(grid, 1, 1, 50, 1, borders), LORV_E_INDEX);
    EXPECT_EQ(SetCellBorders(grid, 1, 1, 1, 10, borders), LORV_E_INDEX);
    EXPECT_EQ(grid.RowTable[1].Cells, nullptr);
}

// The corners are not put in order: a range upside down has only the sides that need no walk across it.
TEST(SetCellBorders, TakesTheCornersAsTheyCome)
{
    Grid grid;
    EXPECT_EQ(SetCellBorders(grid, 3, 3, 1, 1, {0, 1, 1, 1, 1, 1, 1}), S_OK);
    for (int row = 1; row <= 3; ++row)
        EXPECT_EQ(grid.RowTable[row].Cells, nullptr);
    EXPECT_EQ(SetCellBorders(grid, 1, 3, 2, 1, {0, 1, 1, 1, 1, -1, -1}), S_OK);
    EXPECT_EQ(SidesAt(grid, 2, 3), (Sides{1, 0, 0, 0}));
    EXPECT_EQ(SidesAt(grid, 2, 1), (Sides{0, 0, 1, 0}));
    EXPECT_FALSE(HasFormat(grid, 1, 2));
}

// Memory

TEST(CellProperties, LoseNothingWhenAnyAllocationFails)
{
    PurgeFontPool();
    VARIANT number;
    number.vt = VT_I4, number.lVal = 1;
    const VARIANT* data = &number;
    CellFormat source = RichFormat(nullptr);
    const CellFormat* format = &source;
    long allocations = WithEachAllocationFailing([&] {
        Grid grid;
        if (grid.Rows != 50 || grid.Cols != 10) // the grid itself found no memory
            return;
        for (HRESULT result : {SetCellProperty(grid, 1, 1, CellSelector::Text, L"text"),
                               SetCellProperty(grid, 2, 1, CellSelector::ForeColor, 1),
                               SetCellProperty(grid, 3, 1, CellSelector::CheckState, 1),
                               SetCellProperty(grid, 4, 1, CellSelector::Data, data),
                               SetCellProperty(grid, 5, 1, CellSelector::CopyFormat, format),
                               SetCellProperty(grid, 6, 1, CellSelector::FontBold, 1)})
            EXPECT_TRUE(result == S_OK || result == LORV_E_MEMORY);
    });
    EXPECT_GT(allocations, 8);
}
} // namespace
