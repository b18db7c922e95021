#include "core/property_frame.h"

#include "core/font_pool.h"
#include "core/row_col.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "support/fakes.h"
#include "support/fonts.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace
{

TEST(Defaults, OfExtentsAndPositions)
{
    Grid grid;
    EXPECT_EQ(grid.Rows, 50);
    EXPECT_EQ(grid.Cols, 10);
    for (int32_t one :
         {grid.FixedRows, grid.FixedCols, grid.TopRow, grid.LeftCol, grid.Row, grid.Col, grid.RowSel,
          grid.ColSel, grid.LastRow, grid.LastCol, grid.LastRowSel, grid.LastColSel})
        EXPECT_EQ(one, 1);
    EXPECT_EQ(grid.RowCapacity, 100);
    EXPECT_EQ(grid.Extent.cx, 5080);
    EXPECT_EQ(grid.Extent.cy, 5080);
    EXPECT_EQ(grid.DesignModeCache, -1);
    EXPECT_FALSE(grid.RequiresSave);
    EXPECT_EQ(grid.SortIndicatorCol, -1);
}

TEST(Defaults, OfColours)
{
    Grid grid;
    const std::pair<OLE_COLOR, OLE_COLOR> colours[] = {
        {grid.BackColor, 0x80000005},    {grid.BackColorAlternate, 0},      {grid.BackColorFixed, 0x8000000F},
        {grid.ForeColor, 0x80000008},    {grid.ForeColorFixed, 0x80000012}, {grid.BackColorSel, 0x8000000D},
        {grid.ForeColorSel, 0x8000000E}, {grid.BackColorBkg, 0x8000000C},   {grid.TreeColor, 0x80000010},
        {grid.SheetBorder, 0x80000006},  {grid.GridColor, 0x8000000F},      {grid.GridColorFixed, 0x80000010},
        {grid.FloodColor, 0x000000C0},   {grid.BackColorFrozen, 0},         {grid.ForeColorFrozen, 0}};
    for (auto& [colour, expected] : colours)
        EXPECT_EQ(colour, expected);
}

TEST(Defaults, OfSwitches)
{
    Grid grid;
    for (Option on : {OptionScrollTrack, OptionAutoResize, OptionMultiTotals, OptionAllowBigSelection,
                      OptionAllowSelection})
        EXPECT_TRUE(HasOption(grid, on)) << on;
    for (Option off : {OptionExtendLastCol, OptionWordWrap, OptionRightToLeft, OptionPicturesOver})
        EXPECT_FALSE(HasOption(grid, off)) << off;
    EXPECT_EQ(grid.DataOptions, 1u);
    EXPECT_EQ(grid.MouseOptions, 1u);
    EXPECT_EQ(grid.TipOptions, 0u);
    EXPECT_TRUE(grid.Enabled);
}

TEST(Defaults, OfWords)
{
    Grid grid;
    const std::pair<int, int> words[] = {{grid.GridLines, 1},          {grid.GridLinesFixed, 2},
                                         {grid.FocusRect, 1},          {grid.HighLight, 1},
                                         {grid.ScrollBars, 3},         {grid.SubtotalPosition, 1},
                                         {grid.GridLineWidth, 1},      {grid.Redraw, 1},
                                         {grid.ShowComboButton, 1},    {grid.ComboSearch, 3},
                                         {grid.WallPaperAlignment, 9}, {grid.Appearance, 3},
                                         {grid.BorderStyle, 1},        {grid.TextStyle, 0},
                                         {grid.TextStyleFixed, 0},     {grid.FillStyle, 0},
                                         {grid.SelectionMode, 0},      {grid.MergeCells, 0},
                                         {grid.MergeCellsFixed, 0},    {grid.AllowUserResizing, 0},
                                         {grid.AutoSizeMode, 0},       {grid.OutlineBar, 0},
                                         {grid.PictureType, 0},        {grid.OwnerDraw, 0},
                                         {grid.TabBehavior, 0},        {grid.DataMode, 0},
                                         {grid.OLEDragMode, 0},        {grid.OLEDropMode, 0},
                                         {grid.Editable, 0},           {grid.FrozenRows, 0},
                                         {grid.FrozenCols, 0},         {grid.AllowUserFreezing, 0},
                                         {grid.OutlineCol, 0},         {grid.Ellipsis, 0},
                                         {grid.AutoSearch, 0},         {grid.ExplorerBar, 0},
                                         {grid.MergeCompare, 0},       {grid.GroupCompare, 0},
                                         {grid.MousePointer, 0}};
    int number = 0;
    for (auto& [word, expected] : words)
        EXPECT_EQ(word, expected) << "line " << number++;
    EXPECT_EQ(grid.Flags, 0u);
    EXPECT_EQ(grid.FontWidth, 0.0f);
    EXPECT_EQ(grid.AutoSearchDelay, 2.0f);
    EXPECT_EQ(grid.Font, nullptr) << "the font is made at first need";
}

TEST(Defaults, WithoutMemoryForTheTablesEveryPositionStaysInside)
{
    WithEachAllocationFailing([] {
        Grid grid;
        EXPECT_LE(grid.FixedRows, grid.Rows);
        EXPECT_LE(grid.FixedCols, grid.Cols);
        EXPECT_LT(grid.Row, std::max(grid.Rows, 1));
        EXPECT_LT(grid.ColSel, std::max(grid.Cols, 1));
    });
}

TEST(MarkDirtyAndNotify, TellsEachSinkInTheOrderOfConnection)
{
    PropertySink first, second;
    Grid grid;
    Connection one(grid.PropertySinks, &first), two(grid.PropertySinks, &second);
    first.On = [&](DISPID) {
        EXPECT_TRUE(grid.RequiresSave);
        EXPECT_TRUE(second.Changed.empty());
    };
    MarkDirtyAndNotify(grid, 96);
    EXPECT_EQ(first.Changed, (std::vector<DISPID>{96}));
    EXPECT_EQ(second.Changed, (std::vector<DISPID>{96}));
}

TEST(RequiresSave, IsNotRaisedByCells)
{
    Grid grid;
    ResizeRows(grid, 60);
    EXPECT_FALSE(grid.RequiresSave);
}

TEST(IsDesignMode, AsksTheHostOnceAndKeepsTheAnswer)
{
    for (bool userMode : {false, true}) {
        AmbientHost host;
        Grid grid;
        host.UserMode = userMode;
        host.Attach(grid);
        EXPECT_EQ(IsDesignMode(grid), !userMode);
        EXPECT_EQ(IsDesignMode(grid), !userMode);
        EXPECT_EQ(host.Asked, 1);
        EXPECT_EQ(grid.DesignModeCache, userMode ? 0 : 1);
    }
}

TEST(IsDesignMode, AHostThatDoesNotAnswerIsAskedAgain)
{
    AmbientHost host;
    Grid grid;
    EXPECT_FALSE(IsDesignMode(grid)) << "no host at all";
    EXPECT_EQ(grid.DesignModeCache, -1);
    host.Answers = false;
    host.UserMode = false;
    host.Attach(grid);
    EXPECT_FALSE(IsDesignMode(grid));
    EXPECT_EQ(grid.DesignModeCache, -1);
    host.Answers = true;
    EXPECT_TRUE(IsDesignMode(grid));
    EXPECT_EQ(host.Asked, 2);
}

TEST(Guards, OfBoundGrids)
{
    struct {
        bool Bound, Custom, Design;
        bool Rows, Cols, Contents; // what passes
    } rows[] = {
        {false, false, false, true, true, true},   {false, false, true, true, true, true},
        {true, false, false, false, false, false}, {true, false, true, true, false, true},
        {false, true, false, true, true, false},   {false, true, true, true, true, true},
        {true, true, false, true, false, false},   {true, true, true, true, false, true},
    };
    FakeSource source;
    for (auto& row : rows) {
        Grid grid;
        grid.DesignModeCache = row.Design;
        for (uint16_t kind : {uint16_t(VT_ARRAY | VT_VARIANT), uint16_t(BoundToGrid)}) {
            grid.BoundKind = row.Bound ? kind : uint16_t(BoundNone);
            grid.LorvDataSource = row.Custom ? &source : nullptr;
            SCOPED_TRACE(testing::Message() << row.Bound << row.Custom << row.Design);
            EXPECT_EQ(GuardRows(grid), row.Rows ? S_OK : LORV_E_BOUND);
            EXPECT_EQ(GuardCols(grid), row.Cols ? S_OK : LORV_E_BOUND);
            EXPECT_EQ(GuardRowContents(grid), row.Contents ? S_OK : LORV_E_BOUND);
        }
        grid.LorvDataSource = nullptr;
        grid.BoundKind = BoundNone;
    }
}

std::wstring PublishedDescription()
{
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.Put()) != S_OK)
        return L"(none)";
    GUID iid = {};
    info->GetGUID(&iid);
    EXPECT_EQ(iid, IID_ILorvGrid);
    Bstr description;
    info->GetDescription(description.Put());
    return description.Text();
}

TEST(ReportError, HandsOtherCodesBackInSilence)
{
    EventSink events;
    Grid grid;
    Connection connection(grid.EventSinks, &events);
    SetErrorInfo(0, nullptr);
    const HRESULT codes[] = {S_OK, LORV_E_VALUE, LORV_E_MEMORY, LORV_E_BOUND - 1, LORV_E_SAFETY + 1};
    for (HRESULT code : codes)
        EXPECT_EQ(ReportError(grid, code), code);
    EXPECT_EQ(PublishedDescription(), L"(none)");
    EXPECT_TRUE(events.Events.empty());
}

TEST(ReportError, PublishesTheTextOfEachReportedCode)
{
    EventSink events;
    Grid grid;
    Connection connection(grid.EventSinks, &events);
    events.On = [](DISPID, DISPPARAMS& parameters) {
        *EventSink::Argument(parameters, 1).pboolVal = VARIANT_FALSE; // no message box
    };
    const std::pair<HRESULT, const wchar_t*> texts[] = {
        {LORV_E_BOUND, L"Invalid action when bound"},
        {LORV_E_CANNOTREMOVE, L"Can't remove from recordset"},
        {LORV_E_CANNOTADD, L"Can't add to recordset"},
        {LORV_E_CANNOTUPDATE, L"Recordset can't be updated"},
        {LORV_E_FIELDVALUE, L"Recordset field can't take this value"},
        {LORV_E_SAFETY, L"Disabled by browser safety settings"}};
    for (auto& [code, text] : texts) {
        EXPECT_EQ(ReportError(grid, code), code);
        EXPECT_EQ(PublishedDescription(), text);
    }
    // The two that the host may handle itself name the text, not the code.
    ASSERT_EQ(events.Events.size(), 2u);
    for (int number : {0, 1}) {
        EXPECT_EQ(events.Events[number].Id, 33);
        EXPECT_EQ(events.Events[number].Values, (std::vector<long>{129 + number, -1}));
    }
}

TEST(ReportError, ATextThatIsNotThereIsUnknown)
{
    wchar_t text[ErrorTextCapacity];
    EXPECT_STREQ(LoadErrorText(LORV_E_SAFETY + 100, text), L"Unknown Error");
}

TEST(GridFont, IsMadeFromTheDefaultDescription)
{
    Grid grid;
    IFont* font = GridFont(grid);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(GridFont(grid), font);
    EXPECT_EQ(LookOf(font), LookOf(SystemFont(L"MS Sans Serif", 8).Get()));
}

TEST(GridFont, ItsHandleIsCachedUntilTheFontChanges)
{
    Grid grid;
    HFONT handle = GridFontHandle(grid);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(grid.FontHandle, handle);
    GridFont(grid)->put_Bold(TRUE);
    EXPECT_EQ(GridFontHandle(grid), handle);
    FontChanged(grid);
    HFONT now = nullptr;
    GridFont(grid)->get_hFont(&now);
    EXPECT_EQ(GridFontHandle(grid), now);
}

LOGFONTW FontOfHeight(int height, const wchar_t* face = L"Tahoma")
{
    LOGFONTW description = {};
    description.lfHeight = height;
    wcscpy(description.lfFaceName, face);
    return description;
}

// The pool is the process's: each test gives back what it takes and leaves it empty.
class FontPool : public testing::Test
{
protected:
    void TearDown() override
    {
        PurgeFontPool();
        EXPECT_EQ(TheAllocationProbe().Live, live_);
    }

private:
    long live_ = TheAllocationProbe().Live;
};

TEST_F(FontPool, SharesAFontByItsDescriptionWithoutCaseOfTheFace)
{
    HFONT font = AcquirePooledFont(FontOfHeight(-20));
    EXPECT_EQ(AcquirePooledFont(FontOfHeight(-20, L"TAHOMA")), font);
    EXPECT_EQ(PooledFontUses(font), 2);
    HFONT other = AcquirePooledFont(FontOfHeight(-21));
    EXPECT_NE(other, font);
    LOGFONTW bold = FontOfHeight(-20);
    bold.lfWeight = 700;
    HFONT heavy = AcquirePooledFont(bold);
    EXPECT_NE(heavy, font);
    for (HFONT each : {font, font, other, heavy})
        ReleasePooledFont(each);
    EXPECT_EQ(PooledFontUses(font), 0);
}

TEST_F(FontPool, AFontThatNobodyUsesStaysUntilItsSlotIsNeeded)
{
    HFONT font = AcquirePooledFont(FontOfHeight(-20));
    ReleasePooledFont(font);
    EXPECT_EQ(PooledFontUses(font), 0);
    EXPECT_EQ(AcquirePooledFont(FontOfHeight(-20)), font);
    ReleasePooledFont(font);
    ReleasePooledFont(font);
    EXPECT_EQ(PooledFontUses(font), 0) << "a release too many is nothing";
    ReleasePooledFont(nullptr);
}

TEST_F(FontPool, TakesOverTheOldestUnusedSlotWhenAllAreTaken)
{
    HFONT fonts[FontPoolSize];
    for (int i = 0; i < FontPoolSize; ++i)
        fonts[i] = AcquirePooledFont(FontOfHeight(-10 - i));
    for (int i : {30, 7, 12})
        ReleasePooledFont(fonts[i]);
    HFONT next = AcquirePooledFont(FontOfHeight(-100));
    EXPECT_EQ(PooledFontUses(next), 1);
    EXPECT_EQ(PooledFontUses(fonts[12]), 0);
    EXPECT_EQ(PooledFontUses(fonts[30]), 0);
    HFONT again = AcquirePooledFont(FontOfHeight(-17));
    EXPECT_EQ(PooledFontUses(fonts[12]), again == fonts[12] ? 1 : -1)
        << "number 7 was the first to go, 12 is next";
    ReleasePooledFont(next);
    ReleasePooledFont(again);
    for (int i = 0; i < FontPoolSize; ++i)
        if (i != 30 && i != 7 && i != 12)
            ReleasePooledFont(fonts[i]);
}

TEST_F(FontPool, MakesAFontOfItsOwnWhenEverySlotIsInUse)
{
    HFONT fonts[FontPoolSize];
    for (int i = 0; i < FontPoolSize; ++i)
        fonts[i] = AcquirePooledFont(FontOfHeight(-10 - i));
    HFONT alone = AcquirePooledFont(FontOfHeight(-100));
    ASSERT_NE(alone, nullptr);
    EXPECT_EQ(PooledFontUses(alone), -1);
    EXPECT_EQ(GetObjectType(alone), static_cast<DWORD>(OBJ_FONT));
    ReleasePooledFont(alone);
    EXPECT_EQ(GetObjectType(alone), 0u) << "one outside the pool goes at once";
    for (HFONT font : fonts)
        ReleasePooledFont(font);
}

TEST_F(FontPool, ADyingGridDeletesWhatNobodyUses)
{
    HFONT used = AcquirePooledFont(FontOfHeight(-20));
    HFONT unused = AcquirePooledFont(FontOfHeight(-21));
    ReleasePooledFont(unused);
    {
        Grid grid;
    }
    EXPECT_EQ(PooledFontUses(unused), -1);
    EXPECT_EQ(PooledFontUses(used), 1);
    ReleasePooledFont(used);
}

TEST_F(FontPool, WithoutMemoryFontsAreUnpooled)
{
    FailingAllocation failing;
    HFONT font = AcquirePooledFont(FontOfHeight(-20));
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(PooledFontUses(font), -1);
    ReleasePooledFont(font);
}

} // namespace
