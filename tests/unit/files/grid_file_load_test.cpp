// What loading a grid file takes from it, leaves alone, and makes of files that are short, old or hostile.
#include "core/cell_property.h"
#include "core/check_state.h"
#include "core/grid_font.h"
#include "core/value_format.h"
#include "file_samples.h"
#include "support/fakes.h"
#include "support/member_grid.h"

namespace
{
size_t CellsAt(const Grid& grid)
{
    return 196 + 44u * static_cast<size_t>(grid.Cols);
}

// A grid with something in every section.
void FillSample(SmallGrid& grid)
{
    grid.BackColorFixed = 0x123456;
    grid.MergeCells = 2;
    grid.GridLines = 4;
    grid.RowHeightMin = 300;
    grid.FrozenRows = 1;
    grid.FrozenCols = 1;
    grid.BackColorFrozen = 0x223344;
    SetOption(grid, OptionWordWrap, true);
    SetFontSize(grid, 14);
    ColRecord& col = grid.ColTable[2];
    col.Width = 99;
    col.Alignment = lorvAlignCenterCenter;
    col.FixedAlignment = lorvAlignRightTop;
    col.MergeCol = 1;
    col.ColSort = lorvSortGenericDescending;
    col.ColDataType = lorvDTDate;
    col.Indent = 6;
    col.ColFlags = ColFlagHidden;
    SetColFormat(grid, 2, L"($0.00)");
    ReplaceText(grid.ColTable[2].ColEditMask, L"99");
    ReplaceText(grid.ColTable[2].ColKey, L"key");
    StoreHeapVariant(grid.ColTable[2].ColData, Value(L"column"));
    for (int row = 0; row < grid.Rows; ++row)
        for (int cell = 0; cell < grid.Cols; ++cell)
            grid.Set(row, cell, (std::to_wstring(row) + L":" + std::to_wstring(cell)).c_str());
    SetCheckState(grid, 1, 1, lorvTSChecked);
    grid.RowTable[2].Height = 40;
    grid.RowTable[2].MergeRow = 1;
    grid.RowTable[2].Flags = RowFlagHidden | 0x02;
    StoreHeapVariant(grid.RowTable[2].RowData, Value(2.5));
    grid.RowTable[3].Flags = RowFlagSubtotal | RowFlagCollapsed;
    grid.RowTable[3].OutlineLevel = -1;
    SetCellProperty(grid, 1, 2, CellSelector::BackColor, 0x778899);
    SetCellProperty(grid, 1, 2, CellSelector::FontBold, 1);
    Value data(L"cell");
    SetCellProperty(grid, 1, 2, CellSelector::Data, &data.Get());
}

struct SampleGrid : SmallGrid {
    SampleGrid() : SmallGrid(4, 4) { FillSample(*this); }
};

TEST(LoadBinaryGrid, BringsBackWhatWasSaved)
{
    SampleGrid grid;
    SmallGrid other(9, 2);
    ASSERT_EQ(S_OK, Load(other, Saved(grid)));
    EXPECT_EQ(FirstDifference(Saved(other), Saved(grid)), -1);
    EXPECT_EQ(other.Rows, 4);
    EXPECT_EQ(other.Cols, 4);
    EXPECT_EQ(other.BackColorFixed, 0x123456u);
    EXPECT_TRUE(HasOption(other, OptionWordWrap));
    EXPECT_EQ(other.RowHeightMin, 300);
    EXPECT_EQ(other.RowHeightMinPixels, 0) << "the limit in pixels is not set anew";
    EXPECT_EQ(other.FrozenRows, 1);
    EXPECT_EQ(FontSizeOf(other), FontSizeOf(grid));
    EXPECT_EQ(other.Text(3, 2), L"3:2");
    EXPECT_EQ(CheckStateOf(other, 1, 1), lorvTSChecked);
    EXPECT_EQ(other.RowTable[2].Flags, RowFlagHidden | 0x02) << "a flag without a name is carried through";
    EXPECT_EQ(other.RowTable[3].OutlineLevel, -1);
    EXPECT_EQ(Describe(*other.RowTable[2].RowData), L"R8 250");
    EXPECT_EQ(Describe(*other.ColTable[2].ColData), L"BSTR column");
    EXPECT_STREQ(other.ColTable[2].ColFormat, L"($0.00)");
    EXPECT_EQ(other.ColTable[2].ColFlags, ColFlagHidden | ColFlagParenFormat);
    const CellFormat* format = CellFormatOf(other, 1, 2);
    ASSERT_TRUE(format);
    EXPECT_TRUE(format->Font);
    EXPECT_EQ(Describe(*format->Data), L"BSTR cell");
}

TEST(LoadBinaryGrid, SetsTheListsOfColumnsSoThatKeysShowAsTexts)
{
    SmallGrid grid(2, 2), other(2, 2);
    ReplaceText(grid.ColTable[1].ColComboList, L"#1;One|#2;Two");
    grid.Set(1, 1, L"2");
    ASSERT_EQ(S_OK, Load(other, Saved(grid)));
    EXPECT_STREQ(other.ColTable[1].ColComboList, L"#1;One|#2;Two");
    EXPECT_STREQ(GetDisplayText(other, 1, 1), L"Two");
}

// A cell that had no back colour of its own comes back with one of 0.
TEST(LoadBinaryGrid, WritesEveryPropertyOfAFormatWhetherItWasSetOrNot)
{
    SmallGrid grid(2, 2), other(2, 2);
    SetCellProperty(grid, 1, 1, CellSelector::ForeColor, 0xFF);
    ASSERT_EQ(CellFormatOf(grid, 1, 1)->BackColorSet, 0);
    ASSERT_EQ(S_OK, Load(other, Saved(grid)));
    const CellFormat* format = CellFormatOf(other, 1, 1);
    ASSERT_TRUE(format);
    EXPECT_EQ(format->ForeColor, 0xFFu);
    EXPECT_EQ(format->BackColor, 0u);
    EXPECT_EQ(format->BackColorSet, 1);
    EXPECT_EQ(format->Alignment, Unset);
}

TEST(LoadBinaryGrid, OfDataLeavesTheLookAlone)
{
    SampleGrid grid;
    SmallGrid other(5, 4);
    other.BackColorFixed = 0x42;
    other.FrozenRows = 2;
    other.ColTable[2].Width = 7;
    SetColFormat(other, 2, L"mine");
    float size = FontSizeOf(other);
    ASSERT_EQ(S_OK, Load(other, Saved(grid), GridFileData));
    EXPECT_EQ(other.Rows, 4);
    EXPECT_EQ(other.Text(2, 3), L"2:3");
    EXPECT_EQ(CheckStateOf(other, 1, 1), lorvTSChecked);
    EXPECT_EQ(other.BackColorFixed, 0x42u);
    EXPECT_FALSE(HasOption(other, OptionWordWrap));
    EXPECT_EQ(FontSizeOf(other), size);
    EXPECT_EQ(other.FrozenRows, 0);
    EXPECT_EQ(other.ColTable[2].Width, 7);
    EXPECT_STREQ(other.ColTable[2].ColFormat, L"mine");
    EXPECT_EQ(other.ColTable[2].ColEditMask, nullptr);
    EXPECT_STREQ(other.ColTable[2].ColKey, L"key") << "keys belong to the data";
    EXPECT_EQ(other.ColTable[2].ColData, nullptr);
    EXPECT_EQ(other.RowTable[2].Height, UnsetLength);
    EXPECT_EQ(other.RowTable[2].RowData, nullptr);
    EXPECT_EQ(CellFormatOf(other, 1, 2), nullptr);
}

TEST(LoadBinaryGrid, OfAFileOfDataStopsBehindTheCells)
{
    SampleGrid grid;
    SmallGrid other(5, 4);
    ASSERT_EQ(S_OK, Load(other, Saved(grid, GridFileData)));
    EXPECT_EQ(other.BackColorFixed, 0x123456u) << "header and columns are there and count";
    EXPECT_EQ(other.ColTable[2].Width, 99);
    EXPECT_EQ(other.Text(2, 3), L"2:3");
    EXPECT_EQ(other.RowTable[2].Height, UnsetLength);
    EXPECT_EQ(other.RowTable[2].RowData, nullptr);
}

TEST(LoadBinaryGrid, OfFormatKeepsSizesAndCells)
{
    SampleGrid grid;
    SmallGrid other(9, 3);
    other.Set(8, 2, L"mine");
    other.ColTable[2].Width = 7;
    for (GridFileKind saved : {GridFileAll, GridFileFormat}) {
        ASSERT_EQ(S_OK, Load(other, Saved(grid, saved), GridFileFormat));
        EXPECT_EQ(other.Rows, 9);
        EXPECT_EQ(other.Cols, 3);
        EXPECT_EQ(other.FixedRows, 1);
        EXPECT_EQ(other.Text(8, 2), L"mine");
        EXPECT_EQ(other.ColTable[2].Width, 7);
        EXPECT_EQ(other.BackColorFixed, 0x123456u);
        EXPECT_EQ(other.BackColorFrozen, 0x223344u);
        EXPECT_EQ(other.FrozenRows, 1);
    }
}

TEST(LoadBinaryGrid, OfFormatTakesNoMoreFrozenRowsThanFit)
{
    SmallGrid grid(9, 9), other(2, 2);
    grid.FrozenRows = 7;
    ASSERT_EQ(S_OK, Load(other, Saved(grid), GridFileFormat));
    EXPECT_EQ(other.FrozenRows, 0);
}

TEST(LoadBinaryGrid, RefusesWhatIsNoGridFile)
{
    SampleGrid sample;
    const Bytes good = Saved(sample);
    struct {
        size_t Offset;
        uint16_t Value;
        HRESULT Expected;
    } cases[] = {
        {0, 'L' | 'W' << 8, LORV_E_BADFORMAT},
        {0, 'l' | 'V' << 8, LORV_E_BADFORMAT},
        {2, 0xFFFF, S_OK}, // neither the size nor the byte behind it is tested
        {4, 8, LORV_E_BADFORMAT},
        {4, 0xFFFF, LORV_E_BADFORMAT},
        {6, 1, S_OK},
        {6, 2, LORV_E_BADFORMAT},
        {8, 9, S_OK},
        {10, 0xFFFF, S_OK},
    };
    for (auto& c : cases) {
        Bytes file = good;
        Patch<uint16_t>(file, c.Offset, c.Value);
        SmallGrid grid(3, 3);
        EXPECT_EQ(c.Expected, Load(grid, file)) << c.Offset << " " << c.Value;
        EXPECT_EQ(grid.Rows, c.Expected == S_OK ? 4 : 3);
    }
    SmallGrid grid(3, 3);
    EXPECT_EQ(LORV_E_BADFORMAT, Load(grid, {}));
    EXPECT_EQ(LORV_E_BADFORMAT, Load(grid, Bytes(179)));
}

// Files that end early are no failure: what is there is read.
TEST(LoadBinaryGrid, TakesAFileThatEndsAnywhere)
{
    SampleGrid sample;
    const Bytes whole = Saved(sample);
    HeapBalance balance;
    for (size_t size = 0; size < whole.size(); ++size) {
        Bytes file(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
        SmallGrid grid(3, 3);
        HRESULT expected = size < 180 ? LORV_E_BADFORMAT : S_OK;
        ASSERT_EQ(expected, Load(grid, file)) << size;
        ASSERT_EQ(grid.Rows, size < 180 ? 3 : 4) << size;
        ASSERT_EQ(S_OK, size < 180 ? S_OK : Load(grid, file, GridFileFormat)) << size;
    }
}

TEST(LoadBinaryGrid, RepeatsTheLastColumnPastTheEnd)
{
    SampleGrid sample;
    Bytes file = Saved(sample);
    file.resize(196 + 3 * 40); // the third column is the last one there
    SmallGrid grid(3, 3);
    ASSERT_EQ(S_OK, Load(grid, file));
    EXPECT_EQ(grid.ColTable[1].Width, UnsetLength);
    EXPECT_EQ(grid.ColTable[2].Width, 99);
    EXPECT_EQ(grid.ColTable[3].Width, 99);
    EXPECT_EQ(grid.ColTable[3].Indent, 6);
    EXPECT_EQ(grid.Text(1, 1), L"");
}

TEST(LoadBinaryGrid, RepeatsTheLastRowPastTheEndButForItsHeight)
{
    SmallGrid sample(3, 1);
    sample.RowTable[0].Height = 55;
    sample.RowTable[0].MergeRow = 1;
    sample.RowTable[0].Flags = RowFlagHidden;
    Bytes file = Saved(sample);
    file.resize(CellsAt(sample) + 3 + 12);
    SmallGrid grid(2, 2);
    ASSERT_EQ(S_OK, Load(grid, file));
    EXPECT_EQ(grid.RowTable[0].Height, 55);
    EXPECT_EQ(grid.RowTable[2].Height, UnsetLength);
    EXPECT_EQ(grid.RowTable[2].MergeRow, 1);
    EXPECT_EQ(grid.RowTable[2].Flags, RowFlagHidden);
}

TEST(LoadBinaryGrid, TakesAFirstUnitOfOneToSixForTheCheckState)
{
    struct {
        int State;
        const wchar_t *Text, *Loaded;
        int LoadedState;
    } cases[] = {
        {0, L"\x3rest", L"rest", 3},  {0, L"\x6", L"", 6},
        {0, L"\x7x", L"\x7x", 0},     {lorvDisabledUnchecked, L"x", L"\x7x", 0},
        {lorvChecked, L"x", L"x", 1}, {lorvChecked, L"\x2x", L"\x2x", 1},
    };
    for (auto& c : cases) {
        SmallGrid grid(2, 1), other(2, 1);
        grid.Set(1, 0, c.Text);
        SetCheckState(grid, 1, 0, c.State);
        ASSERT_EQ(S_OK, Load(other, Saved(grid)));
        EXPECT_EQ(other.Text(1, 0), c.Loaded);
        EXPECT_EQ(CheckStateOf(other, 1, 0), c.LoadedState);
    }
}

// A file as an older version wrote it: without extension, extras and the texts but the formats.
Bytes OldFile(int version, const Bytes& cells)
{
    SmallGrid grid(2, 2);
    grid.FrozenRows = 1;
    Bytes file = Saved(grid);
    file.resize(180);
    Patch<uint16_t>(file, 4, static_cast<uint16_t>(version));
    for (int col = 0; col < 2; ++col) {
        Bytes column(32);
        StoreNumber<int32_t>(column.data(), 50 + col);
        column[5] = 100;
        StoreNumber<uint16_t>(column.data() + 18, static_cast<uint16_t>(col == 1 ? 0x2000 + lorvDTDate : 0));
        file.insert(file.end(), column.begin(), column.end());
    }
    const char formats[] = "0.0\0"; // two texts, the second empty
    file.insert(file.end(), formats, formats + sizeof formats);
    file.insert(file.end(), cells.begin(), cells.end());
    return file;
}

TEST(LoadBinaryGrid, ReadsOlderFiles)
{
    for (int version : {0, 1, 6}) {
        SmallGrid grid(9, 9);
        grid.FrozenRows = 3;
        ReplaceText(grid.ColTable[1].ColKey, L"kept");
        grid.ColTable[0].Indent = 5;
        ASSERT_EQ(S_OK, Load(grid, OldFile(version, {'a', 0, 'b', 0, 0, 'd', 0})));
        EXPECT_EQ(grid.Rows, 2);
        EXPECT_EQ(grid.FrozenRows, 0);
        EXPECT_EQ(grid.ColTable[0].Width, 50);
        EXPECT_EQ(grid.ColTable[0].Indent, 5) << "an older file says nothing about it";
        EXPECT_EQ(grid.ColTable[0].ColFlags & ColFlagHidden, 0);
        EXPECT_EQ(grid.ColTable[1].ColFlags & ColFlagHidden, 1) << "hidden is a bit of the type";
        EXPECT_EQ(grid.ColTable[1].ColDataType, lorvDTDate);
        EXPECT_STREQ(grid.ColTable[0].ColFormat, L"0.0");
        EXPECT_STREQ(grid.ColTable[1].ColKey, L"kept");
        EXPECT_EQ(grid.Text(0, 0), L"a");
        EXPECT_EQ(grid.Text(0, 1), L"b");
        EXPECT_EQ(grid.Text(1, 1), L"d");
    }
}

TEST(LoadBinaryGrid, TakesTheStateOfOlderFilesForThreeBits)
{
    struct {
        uint8_t Byte;
        int State;
        uint8_t MergeRow;
    } cases[] = {{1, lorvChecked, 0}, {2, lorvUnchecked, 0}, {3, lorvUnchecked, 0},
                 {4, 0, 1},           {5, lorvChecked, 1},   {6, lorvUnchecked, 1}};
    for (auto& c : cases) {
        SmallGrid grid(3, 3);
        ASSERT_EQ(S_OK, Load(grid, OldFile(6, {0, 0, 0, c.Byte, 'x', 0}), GridFileData));
        EXPECT_EQ(CheckStateOf(grid, 1, 1), c.State) << int{c.Byte};
        EXPECT_EQ(grid.RowTable[1].MergeRow, c.MergeRow) << int{c.Byte};
        EXPECT_EQ(grid.Text(1, 1), L"x");
    }
}

TEST(LoadBinaryGrid, OfFormatStopsBehindTheHeaderOfAnOlderFile)
{
    SmallGrid grid(5, 5);
    grid.FrozenRows = 2;
    ASSERT_EQ(S_OK, Load(grid, OldFile(6, {}), GridFileFormat));
    EXPECT_EQ(grid.Rows, 5);
    EXPECT_EQ(grid.FrozenRows, 2);
}

// In the newest version the extra alone says whether a column is hidden.
TEST(LoadBinaryGrid, PrefersTheExtraToTheHiddenBitOfTheType)
{
    SmallGrid sample(2, 2);
    Bytes file = Saved(sample);
    Patch<uint16_t>(file, 196 + 18, 0x2000 + lorvDTLong);
    SmallGrid grid(2, 2);
    grid.ColTable[0].ColFlags = ColFlagHidden | ColFlagParenFormat;
    ASSERT_EQ(S_OK, Load(grid, file));
    EXPECT_EQ(grid.ColTable[0].ColFlags, 0);
    EXPECT_EQ(grid.ColTable[0].ColDataType, lorvDTLong);
}

TEST(LoadBinaryGrid, EndsAtARecordPastTheGrid)
{
    SmallGrid sample(5, 2);
    sample.Set(4, 1, L"last");
    SetCellProperty(sample, 1, 1, CellSelector::BackColor, 7);
    SetCellProperty(sample, 2, 1, CellSelector::BackColor, 8);
    const Bytes good = Saved(sample);
    const size_t second = CellsAt(sample) + 10 + 4 + 5 * 12 + 96;
    struct {
        size_t Offset;
        int Value;
    } cases[] = {{0, 5}, {0, INT_MAX}, {4, 2}, {4, INT_MAX}};
    for (auto& c : cases) {
        Bytes file = good;
        Patch<int32_t>(file, second + c.Offset, c.Value);
        SmallGrid grid(2, 2);
        EXPECT_EQ(LORV_E_BADFORMAT, Load(grid, file));
        EXPECT_EQ(grid.Text(4, 1), L"last") << "what was read stays";
        EXPECT_EQ(CellFormatOf(grid, 1, 1)->BackColor, 7u);
        EXPECT_EQ(CellFormatOf(grid, 2, 1), nullptr);
    }
}

TEST(LoadBinaryGrid, PassesOverRecordsThatNameNothing)
{
    SmallGrid sample(3, 2);
    SetCellProperty(sample, 1, 1, CellSelector::BackColor, 7);
    SetCellProperty(sample, 2, 1, CellSelector::BackColor, 8);
    const Bytes good = Saved(sample);
    const size_t first = CellsAt(sample) + 6 + 3 * 12;
    for (size_t offset : {0, 4}) { // a row, or a column, without the flag of a value
        Bytes file = good;
        Patch<int32_t>(file, first + offset, -1);
        SmallGrid grid(2, 2);
        ASSERT_EQ(S_OK, Load(grid, file));
        EXPECT_EQ(CellFormatOf(grid, 1, 1), nullptr);
        EXPECT_EQ(CellFormatOf(grid, 2, 1)->BackColor, 8u);
    }
    Bytes file = good;
    Patch<int64_t>(file, first, -1); // an end in the middle
    SmallGrid grid(2, 2);
    ASSERT_EQ(S_OK, Load(grid, file));
    EXPECT_EQ(CellFormatOf(grid, 2, 1), nullptr);
}

TEST(LoadBinaryGrid, PassesOverAValueThatCannotBeStored)
{
    SmallGrid sample(2, 2);
    ASSERT_EQ(S_OK, StoreHeapVariant(sample.ColTable[0].ColData, Value(5)));
    ASSERT_EQ(S_OK, StoreHeapVariant(sample.ColTable[1].ColData, Value(6)));
    Bytes file = Saved(sample);
    Patch<uint16_t>(file, CellsAt(sample) + 4 + 2 * 12 + 96, VT_DISPATCH);
    SmallGrid grid(2, 2);
    ASSERT_EQ(S_OK, Load(grid, file));
    EXPECT_EQ(Describe(*grid.ColTable[0].ColData), L"I4 5") << "the column's own number";
    EXPECT_EQ(Describe(*grid.ColTable[1].ColData), L"I4 6");
}

// Nothing is done for a header that promises more cells than the file has bytes.
TEST(LoadBinaryGrid, RefusesCountsThatCannotBeThere)
{
    struct {
        int Rows, Cols;
    } cases[] = {{2000000000, 2}, {2, 2000000000}, {INT_MAX, INT_MAX}, {2000000000, 0},
                 {0, 2000000000}, {-1, 2},         {2, INT_MIN},       {100000, 100000}};
    SampleGrid sample;
    const Bytes good = Saved(sample);
    for (auto& c : cases) {
        Bytes file = good;
        Patch<int32_t>(file, 132, c.Rows);
        Patch<int32_t>(file, 136, c.Cols);
        for (GridFileKind kind : {GridFileAll, GridFileData}) {
            SmallGrid grid(3, 3);
            grid.Set(2, 2, L"mine");
            long allocated = TheAllocationProbe().Count;
            EXPECT_EQ(LORV_E_BADFORMAT, Load(grid, file, kind));
            EXPECT_EQ(TheAllocationProbe().Count, allocated);
            EXPECT_EQ(grid.Text(2, 2), L"mine");
            EXPECT_NE(grid.BackColorFixed, 0x123456u);
        }
        SmallGrid grid(3, 3);
        EXPECT_EQ(S_OK, Load(grid, file, GridFileFormat)) << "a format says nothing about counts";
    }
}

TEST(LoadBinaryGrid, LeavesWordsOutsideTheirValuesAsTheyWere)
{
    for (size_t offset : {160, 162, 164, 166, 168, 170, 172, 176, 178}) {
        for (int16_t value : {-1, 15, 99, 32767, -32768}) {
            SmallGrid sample(2, 2), grid(2, 2);
            Bytes file = Saved(sample);
            Patch<int16_t>(file, offset, value);
            ASSERT_EQ(S_OK, Load(grid, file));
            EXPECT_EQ(FirstDifference(Saved(grid), Saved(sample)), -1) << offset << " " << value;
        }
    }
}

TEST(LoadBinaryGrid, BearsNumbersThatAreNone)
{
    SampleGrid sample;
    const Bytes good = Saved(sample);
    for (uint32_t pattern : {0xFFFFFFFFu, 0x7FFFFFFFu, 0x80000000u, 0x7FC00000u, 0x7F800000u}) {
        for (size_t offset = 12; offset + 4 <= good.size(); offset += 4) {
            if (offset == 132 || offset == 136)
                continue;
            Bytes file = good;
            Patch<uint32_t>(file, offset, pattern);
            SmallGrid grid(2, 2);
            HRESULT result = Load(grid, file);
            ASSERT_TRUE(result == S_OK || result == LORV_E_BADFORMAT) << offset;
            ASSERT_EQ(grid.Rows, 4) << offset;
            ASSERT_LE(grid.FixedRows, 4) << offset;
            for (int col = 0; col < 4; ++col) {
                ASSERT_LE(grid.ColTable[col].Width, MaxPixels) << offset;
                ASSERT_GE(grid.ColTable[col].SourceCol, -1) << offset;
                ASSERT_LE(grid.ColTable[col].Indent, MaxPixels) << offset;
            }
        }
    }
}

TEST(LoadBinaryGrid, EndsWhenTheMemoryDoes)
{
    SampleGrid sample;
    const Bytes file = Saved(sample);
    long allocations = WithEachAllocationFailing([&] {
        SmallGrid grid(2, 2);
        HRESULT result = Load(grid, file);
        EXPECT_TRUE(result == S_OK || result == LORV_E_MEMORY || result == E_OUTOFMEMORY) << result;
    });
    EXPECT_GT(allocations, 20);
}

TEST(LoadBinaryGrid, SaysSoWhenThereIsNoRoomForItsRows)
{
    SmallGrid sample(250, 1);
    const Bytes file = Saved(sample);
    SmallGrid grid(2, 2);
    FailingAllocation failing(2); // the name of the font is the model's first block
    HRESULT result = S_OK;
    for (long number = 1; number < 20 && result != LORV_E_MEMORY; ++number) {
        TheAllocationProbe().Count = 0;
        TheAllocationProbe().FailAt = number;
        result = Load(grid, file);
    }
    EXPECT_EQ(LORV_E_MEMORY, result);
}

TEST(LoadBinaryGrid, ShowsTheFirstScreenAt500Rows)
{
    SmallGrid sample(600, 1);
    sample.Set(0, 0, L"at 0");
    sample.Set(499, 0, L"at 499");
    sample.Set(500, 0, L"at 500");
    const Bytes file = Saved(sample);
    SmallGrid grid(2, 2);
    EventSink sink;
    Connection connection(grid.EventSinks, &sink);
    std::vector<int> tops;
    sink.On = [&](DISPID id, DISPPARAMS&) {
        if (id != CellChangedId)
            return;
        tops.push_back(grid.TopRow);
        grid.TopRow = 77;
    };
    ASSERT_EQ(S_OK, Load(grid, file));
    EXPECT_EQ(tops, (std::vector<int>{grid.FixedRows, 77, grid.FixedRows}));
}

int paints;
LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM w, LPARAM l)
{
    if (message != WM_PAINT)
        return DefWindowProcW(window, message, w, l);
    ++paints;
    ValidateRect(window, nullptr);
    return 0;
}

TEST(LoadBinaryGrid, PaintsOnceAndOnlyIfThereAreThatManyRows)
{
    for (int rows : {500, 501, 1200}) {
        SmallGrid sample(rows, 1), grid(2, 2);
        const Bytes file = Saved(sample);
        grid.Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                      nullptr, nullptr, nullptr);
        SetWindowLongPtrW(grid.Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountPaints));
        paints = 0;
        EXPECT_EQ(S_OK, Load(grid, file));
        EXPECT_EQ(paints, rows > 500) << rows;
        DestroyWindow(std::exchange(grid.Window, nullptr));
    }
}

// Handlers can do anything while the cells come in.
TEST(LoadBinaryGrid, SurvivesAHandlerThatTakesTheGridAway)
{
    SampleGrid sample;
    const Bytes file = Saved(sample);
    for (int moment = 1; moment < 18; ++moment) {
        SmallGrid grid(2, 2);
        EventSink sink;
        Connection connection(grid.EventSinks, &sink);
        int events = 0;
        sink.On = [&](DISPID, DISPPARAMS&) {
            if (++events != moment)
                return;
            ResizeRows(grid, moment % 2);
            ResizeCols(grid, moment % 3);
        };
        Load(grid, file);
        EXPECT_LE(grid.Rows, 4);
    }
}

TEST(LoadBinaryGrid, ReadsInsideItself)
{
    SampleGrid sample;
    const Bytes file = Saved(sample);
    SmallGrid grid(2, 2), inner(2, 2);
    EventSink sink;
    Connection connection(grid.EventSinks, &sink);
    sink.On = [&](DISPID id, DISPPARAMS&) {
        if (id == CellChangedId)
            EXPECT_EQ(S_OK, Load(inner, file));
    };
    ASSERT_EQ(S_OK, Load(grid, file));
    EXPECT_EQ(FirstDifference(Saved(grid), file), -1);
    EXPECT_EQ(FirstDifference(Saved(inner), file), -1);
}

TEST(LoadBinaryGrid, BearsFlippedBits)
{
    SampleGrid sample;
    const Bytes good = Saved(sample);
    for (size_t offset = 0; offset < good.size(); ++offset) {
        Bytes file = good;
        file[offset] ^= static_cast<uint8_t>(1u << offset % 8);
        SmallGrid grid(2, 2);
        HRESULT result = Load(grid, file);
        ASSERT_TRUE(result == S_OK || result == LORV_E_BADFORMAT) << offset;
        Saved(grid);
    }
}
} // namespace
