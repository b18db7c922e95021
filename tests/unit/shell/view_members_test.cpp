#include "core/errors.h"
#include "platform/dpi.h"
#include "support/grid_window.h"
#include "support/member_grid.h"
#include "view/metrics.h"

namespace
{
// 31 rows of 20 pixels by 21 columns of 50, the first of each fixed; with a window where a test makes one.
class ViewMembers : public testing::Test
{
protected:
    EventSink events;
    PropertySink sink;
    MemberGrid grid;
    Connection eventConnection{grid.EventSinks, &events};
    Connection sinkConnection{grid.PropertySinks, &sink};
    ILorvGrid& host = grid;

    ViewMembers()
    {
        ResizeBoth(grid, 31, 21);
        for (int row = 0; row < grid.Rows; ++row)
            grid.RowTable[row].Height = 20;
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].Width = 50;
        grid.DesignModeCache = 0;
        grid.DefaultRowHeight = 17;
        events.Events.clear();
    }
    ~ViewMembers() override
    {
        if (HWND window = std::exchange(grid.Window, nullptr))
            DestroyWindow(window);
    }
    void OpenWindow()
    {
        grid.Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                      nullptr, nullptr, nullptr);
        RecalculateLayout(grid);
        events.Events.clear();
    }
    template<class Getter> long Read(Getter getter)
    {
        LONG value = -12345;
        EXPECT_EQ((host.*getter)(&value), S_OK);
        return value;
    }
    template<class Getter> long ReadAt(Getter getter, LONG index)
    {
        LONG value = -12345;
        EXPECT_EQ((host.*getter)(index, &value), S_OK);
        return value;
    }
    bool Selected(LONG row)
    {
        VARIANT_BOOL on = VARIANT_FALSE;
        EXPECT_EQ(host.get_IsSelected(row, &on), S_OK);
        return on != VARIANT_FALSE;
    }
};

// Sizes

TEST_F(ViewMembers, RowHeightIsInTwipsAndIgnoresLimits)
{
    EXPECT_EQ(host.put_RowHeight(3, 600), S_OK);
    EXPECT_EQ(grid.RowTable[3].Height, TwipsToPixelsY(600));
    grid.RowHeightMinPixels = 100;
    grid.RowTable[3].Flags |= RowFlagHidden;
    EXPECT_EQ(ReadAt(&ILorvGrid::get_RowHeight, 3), 600);
    EXPECT_EQ(host.put_RowHeight(3, -1), S_OK);
    EXPECT_EQ(grid.RowTable[3].Height, UnsetLength);
    EXPECT_EQ(ReadAt(&ILorvGrid::get_RowHeight, 3), PixelsToTwipsY(17));
    grid.UniformRowHeight = 40;
    EXPECT_EQ(ReadAt(&ILorvGrid::get_RowHeight, 3), PixelsToTwipsY(40));
}

TEST_F(ViewMembers, LengthsAreCapped)
{
    EXPECT_EQ(host.put_RowHeight(3, 100000000), S_OK);
    EXPECT_EQ(grid.RowTable[3].Height, 32000);
    EXPECT_EQ(host.put_ColWidth(3, 100000000), S_OK);
    EXPECT_EQ(grid.ColTable[3].Width, 32000);
}

TEST_F(ViewMembers, NegativeIndexSetsAllLengths)
{
    EXPECT_EQ(host.put_RowHeight(-1, -100), S_OK);
    EXPECT_EQ(host.put_ColWidth(-7, 600), S_OK);
    EXPECT_EQ(grid.RowTable[0].Height, UnsetLength);
    EXPECT_EQ(grid.RowTable[30].Height, UnsetLength);
    EXPECT_EQ(grid.ColTable[0].Width, TwipsToPixelsX(600));
    EXPECT_EQ(grid.ColTable[20].Width, TwipsToPixelsX(600));
}

TEST_F(ViewMembers, HiddenColumnKeepsItsWidth)
{
    grid.ColTable[3].ColFlags |= ColFlagHidden;
    EXPECT_EQ(ReadAt(&ILorvGrid::get_ColWidth, 3), PixelsToTwipsX(50));
    grid.ColTable[3].Width = UnsetLength;
    EXPECT_EQ(ReadAt(&ILorvGrid::get_ColWidth, 3), PixelsToTwipsX(4 * 17));
}

TEST_F(ViewMembers, WidthOfAColumnChangesWhatSpills)
{
    SetOption(grid, OptionMergeStale, false);
    EXPECT_EQ(host.put_ColWidth(3, 600), S_OK);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    grid.MergeCells = lorvMergeSpill;
    EXPECT_EQ(host.put_ColWidth(3, 600), S_OK);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST_F(ViewMembers, IndicesOutsideAreRefused)
{
    LONG value = 0;
    VARIANT_BOOL flag = VARIANT_FALSE;
    for (LONG row : {-1, 31}) {
        EXPECT_EQ(host.get_RowHeight(row, &value), LORV_E_INDEX);
        EXPECT_EQ(host.get_RowPos(row, &value), LORV_E_INDEX);
        EXPECT_EQ(host.get_RowIsVisible(row, &flag), LORV_E_INDEX);
        EXPECT_EQ(host.get_IsSelected(row, &flag), LORV_E_INDEX);
        EXPECT_EQ(host.ShowCell(row, 1), LORV_E_INDEX);
    }
    for (LONG col : {-1, 21}) {
        EXPECT_EQ(host.get_ColWidth(col, &value), LORV_E_INDEX);
        EXPECT_EQ(host.get_ColPos(col, &value), LORV_E_INDEX);
        EXPECT_EQ(host.get_ColIsVisible(col, &flag), LORV_E_INDEX);
        EXPECT_EQ(host.ShowCell(1, col), LORV_E_INDEX);
        EXPECT_EQ(host.AutoSize(col, missing, missing, missing), LORV_E_INDEX);
    }
    EXPECT_EQ(host.put_RowHeight(31, 5), LORV_E_INDEX);
    EXPECT_EQ(host.put_ColWidth(21, 5), LORV_E_INDEX);
    EXPECT_EQ(host.put_IsSelected(31, VARIANT_TRUE), LORV_E_INDEX);
    EXPECT_EQ(host.AutoSize(1, Value(21), missing, missing), LORV_E_INDEX);
    EXPECT_EQ(host.put_TopRow(-1), LORV_E_INDEX);
    EXPECT_EQ(host.put_LeftCol(-1), LORV_E_INDEX);
    EXPECT_EQ(host.put_RowSel(-1), LORV_E_INDEX);
    EXPECT_EQ(host.put_ColSel(21), LORV_E_INDEX);
}

TEST_F(ViewMembers, LimitsAreKeptInTwipsAndPixels)
{
    const struct {
        DISPID Id;
        HRESULT (STDMETHODCALLTYPE ILorvGrid::*Put)(LONG);
        HRESULT (STDMETHODCALLTYPE ILorvGrid::*Get)(LONG*);
        int32_t Grid::*Pixels;
        int (*ToPixels)(int);
    } limits[] = {
        {39, &ILorvGrid::put_RowHeightMin, &ILorvGrid::get_RowHeightMin, &Grid::RowHeightMinPixels,
         TwipsToPixelsY},
        {109, &ILorvGrid::put_RowHeightMax, &ILorvGrid::get_RowHeightMax, &Grid::RowHeightMaxPixels,
         TwipsToPixelsY},
        {173, &ILorvGrid::put_ColWidthMin, &ILorvGrid::get_ColWidthMin, &Grid::ColWidthMinPixels,
         TwipsToPixelsX},
        {174, &ILorvGrid::put_ColWidthMax, &ILorvGrid::get_ColWidthMax, &Grid::ColWidthMaxPixels,
         TwipsToPixelsX},
    };
    for (const auto& limit : limits) {
        EXPECT_EQ((host.*limit.Put)(601), S_OK);
        EXPECT_EQ(Read(limit.Get), 601);
        EXPECT_EQ(grid.*limit.Pixels, limit.ToPixels(601));
        EXPECT_EQ(sink.Taken(), std::vector<DISPID>{limit.Id});
        EXPECT_EQ((host.*limit.Put)(-1), LORV_E_VALUE);
        EXPECT_EQ(Read(limit.Get), 601);
    }
}

// Positions

TEST_F(ViewMembers, DesignersReadPositionsOfRowsButNotOfTheView)
{
    grid.DesignModeCache = 1;
    EXPECT_EQ(ReadAt(&ILorvGrid::get_RowPos, 2), PixelsToTwipsY(40));
    EXPECT_EQ(ReadAt(&ILorvGrid::get_ColPos, 2), PixelsToTwipsX(100));
    LONG value = 0;
    for (auto get :
         {&ILorvGrid::get_ClientWidth, &ILorvGrid::get_ClientHeight, &ILorvGrid::get_MouseRow,
          &ILorvGrid::get_MouseCol, &ILorvGrid::get_CellLeft, &ILorvGrid::get_CellTop,
          &ILorvGrid::get_CellWidth, &ILorvGrid::get_CellHeight, &ILorvGrid::get_TopRow,
          &ILorvGrid::get_LeftCol, &ILorvGrid::get_BottomRow, &ILorvGrid::get_RightCol, &ILorvGrid::get_Row,
          &ILorvGrid::get_Col, &ILorvGrid::get_RowSel, &ILorvGrid::get_ColSel}) {
        EXPECT_EQ((host.*get)(&value), LORV_E_DESIGNMODE);
        EXPECT_EQ((host.*get)(nullptr), E_POINTER);
    }
}

TEST_F(ViewMembers, MouseIsNowhereWithoutAWindow)
{
    EXPECT_EQ(Read(&ILorvGrid::get_MouseRow), -1);
    EXPECT_EQ(Read(&ILorvGrid::get_MouseCol), -1);
}

TEST_F(ViewMembers, ReadingTheCellsPlaceShowsTheCell)
{
    OpenWindow();
    grid.Row = grid.RowSel = 25;
    LONG top = Read(&ILorvGrid::get_CellTop);
    EXPECT_GT(grid.TopRow, 1);
    EXPECT_EQ(top, PixelsToTwipsY(RowY(grid, 25)));
    EXPECT_EQ(Read(&ILorvGrid::get_CellHeight), PixelsToTwipsY(20));
    EXPECT_EQ(Read(&ILorvGrid::get_CellWidth), PixelsToTwipsX(50));
    EXPECT_EQ(Read(&ILorvGrid::get_CellLeft), PixelsToTwipsX(ColX(grid, grid.Col)));
}

TEST_F(ViewMembers, ReadingTheCellsPlaceDoesNotScrollWithoutABar)
{
    OpenWindow();
    grid.ScrollBars = lorvScrollBarNone;
    grid.Row = grid.RowSel = 25;
    Read(&ILorvGrid::get_CellTop);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST_F(ViewMembers, ReadingTheCellsPlaceScrollsOnlyTheAxesWithABar)
{
    OpenWindow();
    grid.ScrollBars = lorvScrollBarHorizontal;
    grid.Row = grid.RowSel = 25, grid.Col = grid.ColSel = 18;
    Read(&ILorvGrid::get_CellWidth);
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_GT(grid.LeftCol, 1);
    grid.LeftCol = 1;
    grid.ScrollBars = lorvScrollBarVertical;
    Read(&ILorvGrid::get_CellHeight);
    EXPECT_GT(grid.TopRow, 1);
    EXPECT_EQ(grid.LeftCol, 1);
}

TEST_F(ViewMembers, PlaceOfAMergedCellIsItsOwnAndItsSizeThatOfTheRange)
{
    OpenWindow();
    for (int col : {2, 3}) {
        SetCellText(grid, 4, col, L"x");
        grid.RowTable[4].Cells[col].State |= col == 2 ? LinkRight : LinkLeft;
    }
    grid.RowTable[4].MergeRow = 1;
    grid.MergeCells = lorvMergeFree;
    SetOption(grid, OptionMergeStale, false);
    grid.Row = grid.RowSel = 4, grid.Col = grid.ColSel = 3;
    EXPECT_EQ(Read(&ILorvGrid::get_CellLeft), PixelsToTwipsX(150));
    EXPECT_EQ(Read(&ILorvGrid::get_CellTop), PixelsToTwipsY(80));
    EXPECT_EQ(Read(&ILorvGrid::get_CellWidth), PixelsToTwipsX(100));
    EXPECT_EQ(Read(&ILorvGrid::get_CellHeight), PixelsToTwipsY(20));
}

TEST_F(ViewMembers, ColumnsRunFromTheRightWhenTheyAreMirrored)
{
    OpenWindow();
    SetOption(grid, OptionRightToLeft, true);
    int right = ClientRectOf(grid).right;
    EXPECT_EQ(ReadAt(&ILorvGrid::get_ColPos, 0), PixelsToTwipsX(right - 50));
    EXPECT_EQ(ReadAt(&ILorvGrid::get_ColPos, 2), PixelsToTwipsX(right - 150));
    EXPECT_EQ(ReadAt(&ILorvGrid::get_RowPos, 2), PixelsToTwipsY(40));
}

TEST_F(ViewMembers, MouseIsOverACellOrNowhere)
{
    OpenWindow();
    ASSERT_EQ(host.put_Rows(6), S_OK);
    struct {
        int X, Y, Row, Col;
    } const cases[] = {{60, 30, 1, 1}, {10, 10, 0, 0}, {60, 150, -1, 1}, {350, 30, -1, -1}};
    for (const auto& c : cases) {
        POINT point = {c.X, c.Y};
        ClientToScreen(grid.Window, &point);
        SetCursorPos(point.x, point.y);
        EXPECT_EQ(Read(&ILorvGrid::get_MouseRow), c.Row) << c.X << ',' << c.Y;
        EXPECT_EQ(Read(&ILorvGrid::get_MouseCol), c.Col) << c.X << ',' << c.Y;
    }
}

// Scrolling

TEST_F(ViewMembers, FirstRowWaitsForTheWindow)
{
    EXPECT_EQ(host.put_TopRow(29), S_OK);
    EXPECT_EQ(grid.TopRow, 29);
    EXPECT_EQ(events.Count(BeforeScrollId), 0);
    OpenWindow();
    EXPECT_EQ(grid.TopRow, grid.MaxTopRow);
}

TEST_F(ViewMembers, FirstRowIsTheFirstThatShows)
{
    grid.TopRow = 5;
    grid.RowTable[5].Flags |= RowFlagHidden;
    EXPECT_EQ(Read(&ILorvGrid::get_TopRow), 6);
    EXPECT_EQ(grid.TopRow, 5);
    for (int row = 5; row < 31; ++row)
        grid.RowTable[row].Flags |= RowFlagHidden;
    EXPECT_EQ(Read(&ILorvGrid::get_TopRow), 30);
}

TEST_F(ViewMembers, FirstRowAndColumnScrollWithoutBars)
{
    OpenWindow();
    EXPECT_EQ(host.put_ScrollBars(lorvScrollBarNone), S_OK);
    EXPECT_EQ(host.put_TopRow(3), S_OK);
    EXPECT_EQ(host.put_LeftCol(4), S_OK);
    EXPECT_EQ(Read(&ILorvGrid::get_TopRow), 3);
    EXPECT_EQ(Read(&ILorvGrid::get_LeftCol), 4);
    EXPECT_EQ(host.ShowCell(25, 18), S_OK);
    VARIANT_BOOL on = VARIANT_FALSE;
    EXPECT_EQ(host.get_RowIsVisible(25, &on), S_OK);
    EXPECT_NE(on, VARIANT_FALSE);
    EXPECT_EQ(host.get_ColIsVisible(18, &on), S_OK);
    EXPECT_NE(on, VARIANT_FALSE);
    EXPECT_EQ(host.get_ColIsVisible(2, &on), S_OK);
    EXPECT_EQ(on, VARIANT_FALSE);
}

TEST_F(ViewMembers, RedrawIsOnWhileTheFirstRowIsSet)
{
    OpenWindow();
    grid.Redraw = lorvRDNone;
    grid.MaxTopRow = 0;
    sink.Changed.clear();
    EXPECT_EQ(host.put_TopRow(3), S_OK);
    EXPECT_EQ(grid.TopRow, 3);
    EXPECT_EQ(grid.Redraw, lorvRDNone);
    EXPECT_EQ(sink.Taken(), (std::vector<DISPID>{31, 31}));
}

TEST_F(ViewMembers, ScrollBarsAreFour)
{
    EXPECT_EQ(host.put_ScrollBars(static_cast<ScrollBarsSettings>(4)), LORV_E_VALUE);
    EXPECT_EQ(host.put_ScrollBars(lorvScrollBarVertical), S_OK);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>{32});
    ScrollBarsSettings bars = lorvScrollBarNone;
    EXPECT_EQ(host.get_ScrollBars(&bars), S_OK);
    EXPECT_EQ(bars, lorvScrollBarVertical);
}

TEST_F(ViewMembers, FrozenRowsBringTheFirstRowBack)
{
    grid.TopRow = 9;
    EXPECT_EQ(host.put_FrozenRows(2), S_OK);
    EXPECT_EQ(grid.TopRow, 3);
    EXPECT_EQ(host.put_FrozenRows(31), LORV_E_VALUE);
    EXPECT_EQ(grid.FrozenRows, 2);
}

// Selection

TEST_F(ViewMembers, SelectTakesACellOrARange)
{
    EXPECT_EQ(host.Select(4, 3, missing, missing), S_OK);
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{4, 6, 8, 3, 2, 7, 1, 9}));
    events.Events.clear();
    EXPECT_EQ(host.Select(5, 2, Value(8), Value(6)), S_OK);
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{4, 6, 8, 3, 2, 7, 1, 9}))
        << "the cell is moved silently: one announcement, that of the range";
    EXPECT_EQ(grid.RowSel, 8);
    EXPECT_EQ(grid.ColSel, 6);
    EXPECT_EQ(host.Select(5, 2, Value(L"no number"), missing), S_OK);
    EXPECT_EQ(grid.RowSel, 5);
    EXPECT_EQ(host.Select(5, 2, Value(31), missing), LORV_E_INDEX);
    EXPECT_EQ(host.Select(-1, 2, missing, missing), LORV_E_INDEX);
}

TEST_F(ViewMembers, RefusedSelectStopsBeforeTheRange)
{
    host.Select(4, 3, missing, missing);
    events.Events.clear();
    events.On = [](DISPID id, DISPPARAMS& parameters) {
        if (id == BeforeRowColChangeId)
            *parameters.rgvarg[0].pboolVal = VARIANT_TRUE;
    };
    EXPECT_EQ(host.Select(5, 2, Value(8), Value(6)), S_OK);
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{4, 6}));
    EXPECT_EQ(grid.RowSel, 4);
}

TEST_F(ViewMembers, SelectionIsReadAsItStandsInEveryMode)
{
    LONG row1 = 0, col1 = 0, row2 = 0, col2 = 0;
    for (int mode : {0, 1, 2, 3}) {
        grid.SelectionMode = static_cast<int16_t>(mode);
        grid.Row = 8, grid.Col = 2, grid.RowSel = 5, grid.ColSel = 6;
        EXPECT_EQ(host.GetSelection(&row1, &col1, &row2, &col2), S_OK);
        EXPECT_EQ(row1 * 1000000 + col1 * 10000 + row2 * 100 + col2, 5020806);
    }
    EXPECT_EQ(host.GetSelection(nullptr, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(ViewMembers, SelectionModeClearsRowsButNotTheCorner)
{
    grid.RowSel = 7;
    grid.RowTable[3].Flags |= RowFlagSelected;
    EXPECT_EQ(host.put_SelectionMode(static_cast<SelModeSettings>(4)), LORV_E_VALUE);
    EXPECT_TRUE(grid.RowTable[3].Flags & RowFlagSelected);
    EXPECT_EQ(host.put_SelectionMode(lorvSelectionListBox), S_OK);
    EXPECT_FALSE(grid.RowTable[3].Flags & RowFlagSelected);
    EXPECT_EQ(grid.RowSel, 7);
    EXPECT_EQ(sink.Taken(), std::vector<DISPID>{61});
}

TEST_F(ViewMembers, SelectedRowsAreThoseOfAListBox)
{
    grid.RowTable[3].Flags |= RowFlagSelected;
    EXPECT_EQ(Read(&ILorvGrid::get_SelectedRows), 0) << "no list box";
    grid.SelectionMode = lorvSelectionListBox;
    grid.RowTable[7].Flags |= RowFlagSelected;
    EXPECT_EQ(Read(&ILorvGrid::get_SelectedRows), 2);
    EXPECT_EQ(ReadAt(&ILorvGrid::get_SelectedRow, 0), 3);
    EXPECT_EQ(ReadAt(&ILorvGrid::get_SelectedRow, 1), 7);
    EXPECT_EQ(ReadAt(&ILorvGrid::get_SelectedRow, 2), -1);
    LONG row = 0;
    EXPECT_EQ(host.get_SelectedRow(-1, &row), static_cast<HRESULT>(0xFFFFFFFF));
    grid.Row = 10, grid.RowSel = 14;
    grid.PaintMode |= PaintMouseHeld | PaintListDragAdds;
    EXPECT_EQ(Read(&ILorvGrid::get_SelectedRows), 7) << "the running drag counts";
}

TEST_F(ViewMembers, SelectedFlagIsReported)
{
    grid.SelectionMode = lorvSelectionListBox;
    EXPECT_EQ(host.put_IsSelected(5, VARIANT_TRUE), S_OK);
    EXPECT_TRUE(Selected(5));
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{8, 1, 9}));
    events.Events.clear();
    EXPECT_EQ(host.put_IsSelected(5, VARIANT_TRUE), S_OK);
    EXPECT_TRUE(events.Events.empty()) << "no change";
    EXPECT_EQ(host.put_IsSelected(-1, VARIANT_TRUE), S_OK);
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{1, 9})) << "all rows: nothing to announce";
    EXPECT_TRUE(Selected(0) && Selected(30));
}

TEST_F(ViewMembers, SelectedFlagIsAnnouncedWhateverTheAnswer)
{
    grid.SelectionMode = lorvSelectionListBox;
    events.On = [](DISPID id, DISPPARAMS& parameters) {
        if (id == BeforeSelChangeId)
            *parameters.rgvarg[0].pboolVal = VARIANT_TRUE;
    };
    EXPECT_EQ(host.put_IsSelected(5, VARIANT_TRUE), S_OK);
    EXPECT_TRUE(Selected(5));
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{8, 1, 9}));
    EXPECT_EQ(events.Events[0].Values, (std::vector<long>{1, 1, 5, 1, 0})) << "the cell, then the row";
    events.Events.clear();
    grid.Row = grid.RowSel = -1;
    FireSelectionEvents(grid);
    events.Events.clear();
    EXPECT_EQ(host.put_IsSelected(6, VARIANT_TRUE), S_OK);
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{1, 9})) << "no current cell: no announcement";
}

TEST_F(ViewMembers, SelectedFlagIsKeptOutsideAListBoxButNotReported)
{
    EXPECT_EQ(host.put_IsSelected(5, VARIANT_TRUE), S_OK);
    EXPECT_TRUE(Selected(5));
    EXPECT_EQ(events.Ids(), (std::vector<DISPID>{8}));
    EXPECT_EQ(ReadAt(&ILorvGrid::get_SelectedRow, 0), 5) << "counted in every mode";
    EXPECT_EQ(host.put_SelectionMode(lorvSelectionFree), S_OK);
    EXPECT_FALSE(Selected(5)) << "cleared by the present mode too";
}

TEST_F(ViewMembers, SelectTakesTheRowsOfAListBox)
{
    grid.SelectionMode = lorvSelectionListBox;
    EXPECT_EQ(host.put_IsSelected(20, VARIANT_TRUE), S_OK);
    EXPECT_EQ(host.Select(8, 2, Value(6), missing), S_OK);
    EXPECT_TRUE(Selected(6) && Selected(7) && Selected(8));
    EXPECT_FALSE(Selected(20));
    EXPECT_EQ(Read(&ILorvGrid::get_SelectedRows), 3);
}

TEST_F(ViewMembers, SelectionSettersUnlock)
{
    const auto unlocks = [&](auto set) {
        grid.EditFlags |= EditFlagSelectionLocked;
        set();
        EXPECT_FALSE(grid.EditFlags & EditFlagSelectionLocked);
    };
    unlocks([&] { host.put_Row(99); });
    unlocks([&] { host.put_Col(99); });
    unlocks([&] { host.put_RowSel(99); });
    unlocks([&] { host.put_ColSel(99); });
    unlocks([&] { host.Select(99, 0, missing, missing); });
}

TEST_F(ViewMembers, CurrentRowOfAListBoxIsSelectedAlone)
{
    grid.SelectionMode = lorvSelectionListBox;
    EXPECT_EQ(host.put_IsSelected(9, VARIANT_TRUE), S_OK);
    EXPECT_EQ(host.put_Row(5), S_OK);
    EXPECT_TRUE(Selected(5));
    EXPECT_FALSE(Selected(9));
}

TEST_F(ViewMembers, AutoSizeTakesItsArgumentsLoosely)
{
    SetCellText(grid, 3, 2, L"a text that is rather long");
    EXPECT_EQ(host.AutoSize(2, missing, missing, missing), S_OK);
    int plain = grid.ColTable[2].Width;
    EXPECT_GT(plain, 60);
    EXPECT_EQ(grid.ColTable[3].Width, 50);
    EXPECT_EQ(host.AutoSize(2, Value(L"3"), Value(L"what"), Value(300)), S_OK);
    EXPECT_EQ(grid.ColTable[2].Width, plain + TwipsToPixelsX(300));
    EXPECT_LT(grid.ColTable[3].Width, plain);
    EXPECT_EQ(host.AutoSize(2, Value(3), Value(true), missing), S_OK);
    EXPECT_EQ(grid.ColTable[3].Width, plain);
    grid.ColTable[3].Width = 50;
    EXPECT_EQ(host.AutoSize(3, Value(-1), missing, missing), S_OK)
        << "only the first one is checked for that";
    EXPECT_EQ(grid.ColTable[3].Width, 50);
}

TEST_F(ViewMembers, AutoSizeMeasuresTheFontBeforeItChecks)
{
    grid.DefaultRowHeight = 1;
    EXPECT_EQ(host.AutoSize(99, missing, missing, missing), LORV_E_INDEX);
    EXPECT_GT(grid.DefaultRowHeight, 1);
}
} // namespace
