#include "core/cell_store.h"

#include "core/cell_pos.h"
#include "core/font_pool.h"
#include "core/row_col.h"
#include "platform/variant.h"
#include "support/fakes.h"

#include <climits>
#include <string>

namespace
{

std::wstring TextOf(Grid& grid, int row, int col)
{
    const wchar_t* text = GetCellText(grid, row, col);
    return text ? text : L"(none)";
}

CellRecord& CellOf(Grid& grid, int row, int col)
{
    return grid.RowTable[row].Cells[col];
}

void SetBox(Grid& grid, int row, int col, int state)
{
    ASSERT_EQ(EnsureRowCells(grid, row), S_OK);
    CellOf(grid, row, col).State = static_cast<uint8_t>(state << CheckStateShift | LinkLeft);
}

int BoxOf(Grid& grid, int row, int col)
{
    EXPECT_EQ(CellOf(grid, row, col).State & MergeLinkMask, LinkLeft) << "merge links are no part of the box";
    return CellOf(grid, row, col).State >> CheckStateShift;
}

// A grid with a sink, and every block of it back in the end.
struct WatchedGrid {
    EventSink Events;
    struct Grid Grid;
    Connection Connected{Grid.EventSinks, &Events};
};

constexpr DISPID CellChangedId = 43;

TEST(SetCellText, RefusesACellOutsideTheGrid)
{
    Grid grid;
    const CellPos outside[] = {{-1, 0}, {0, -1}, {50, 0}, {0, 10}, {INT_MAX, 0}, {0, INT_MIN}};
    for (CellPos cell : outside)
        EXPECT_EQ(SetCellText(grid, cell.Row, cell.Col, L"x"), LORV_E_INDEX) << cell.Row << "," << cell.Col;
}

TEST(SetCellText, StoresACopyMarksTheRowAndTheMergeLinksAndFires)
{
    HeapBalance balance;
    WatchedGrid watched;
    Grid& grid = watched.Grid;
    grid.OptionWord &= ~OptionMergeStale;
    wchar_t text[] = L"abc";
    EXPECT_EQ(SetCellText(grid, 3, 2, text), S_OK);
    text[0] = L'z';
    EXPECT_EQ(TextOf(grid, 3, 2), L"abc");
    EXPECT_EQ(grid.RowTable[3].Status, lorvrsUpdated);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    ASSERT_EQ(watched.Events.Events.size(), 1u);
    EXPECT_EQ(watched.Events.Events[0].Id, CellChangedId);
    EXPECT_EQ(watched.Events.Events[0].Values, (std::vector<long>{3, 2}));
}

TEST(SetCellText, LeavesAStatusThatSaysMoreAlone)
{
    Grid grid;
    const int statuses[] = {lorvrsUpdated, lorvrsModified, lorvrsDeleted, 200};
    for (int status : statuses) {
        grid.RowTable[2].Status = static_cast<uint8_t>(status);
        SetCellText(grid, 2, 2, std::to_wstring(status).c_str());
        EXPECT_EQ(grid.RowTable[2].Status, status);
    }
}

TEST(SetCellText, AnEmptyTextOnAnEmptyCellDoesNothing)
{
    HeapBalance balance;
    WatchedGrid watched;
    Grid& grid = watched.Grid;
    grid.OptionWord &= ~OptionMergeStale;
    long allocations = TheAllocationProbe().Count;
    EXPECT_EQ(SetCellText(grid, 3, 2, L""), S_OK);
    EXPECT_EQ(SetCellText(grid, 3, 2, nullptr), S_OK);
    EXPECT_EQ(SetCellText(grid, 3, 2, L"abc", 0), S_OK);
    EXPECT_EQ(TheAllocationProbe().Count, allocations);
    EXPECT_EQ(grid.RowTable[3].Cells, nullptr);
    EXPECT_EQ(grid.RowTable[3].Status, lorvrsNew);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    EXPECT_TRUE(watched.Events.Events.empty());
}

TEST(SetCellText, TheSameTextAgainDoesNothing)
{
    HeapBalance balance;
    WatchedGrid watched;
    Grid& grid = watched.Grid;
    SetCellText(grid, 3, 2, L"abc");
    watched.Events.Events.clear();
    grid.RowTable[3].Status = lorvrsNew;
    grid.OptionWord &= ~OptionMergeStale;
    EXPECT_EQ(SetCellText(grid, 3, 2, L"abc"), S_OK);
    EXPECT_EQ(SetCellText(grid, 3, 2, L"abcdef", 3), S_OK);
    EXPECT_EQ(grid.RowTable[3].Status, lorvrsNew);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    EXPECT_TRUE(watched.Events.Events.empty());
}

TEST(SetCellText, TheCellsOwnTextIsNoChangeWhateverTheLength)
{
    HeapBalance balance;
    WatchedGrid watched;
    SetCellText(watched.Grid, 3, 2, L"abc");
    watched.Events.Events.clear();
    EXPECT_EQ(SetCellText(watched.Grid, 3, 2, GetCellText(watched.Grid, 3, 2), 1), S_OK);
    EXPECT_EQ(TextOf(watched.Grid, 3, 2), L"abc");
    EXPECT_TRUE(watched.Events.Events.empty());
}

TEST(SetCellText, SameIsWhatTheUsersSortingRulesCallEqual)
{
    const wchar_t* pairs[][2] = {
        {L"coop", L"co\xADop"}, {L"abc", L"ABC"}, {L"e\x301", L"\xE9"}, {L"a", L"a\x200D"}};
    for (auto& pair : pairs) {
        HeapBalance balance;
        WatchedGrid watched;
        SetCellText(watched.Grid, 1, 1, pair[0]);
        SetCellText(watched.Grid, 1, 1, pair[1]);
        EXPECT_EQ(watched.Events.Count(CellChangedId), lstrcmpW(pair[0], pair[1]) == 0 ? 1 : 2);
    }
}

TEST(SetCellText, TakesTheFirstCharactersWhenALengthIsGiven)
{
    Grid grid;
    struct {
        int Length;
        const wchar_t* Stored;
    } rows[] = {{-1, L"abcdef"}, {-7, L"abcdef"}, {1, L"a"}, {3, L"abc"}, {6, L"abcdef"}, {100, L"abcdef"}};
    for (auto& row : rows) {
        SetCellText(grid, 3, 2, nullptr);
        EXPECT_EQ(SetCellText(grid, 3, 2, L"abcdef", row.Length), S_OK);
        EXPECT_EQ(TextOf(grid, 3, 2), row.Stored);
    }
}

TEST(SetCellText, AnEmptyTextLeavesNoString)
{
    HeapBalance balance;
    WatchedGrid watched;
    for (const wchar_t* empty : {L"", static_cast<const wchar_t*>(nullptr)}) {
        SetCellText(watched.Grid, 3, 2, L"abc");
        watched.Events.Events.clear();
        EXPECT_EQ(SetCellText(watched.Grid, 3, 2, empty), S_OK);
        EXPECT_EQ(CellOf(watched.Grid, 3, 2).Text, nullptr);
        EXPECT_EQ(watched.Events.Count(CellChangedId), 1);
    }
}

TEST(SetCellText, TheTextMayBePartOfTheOldOne)
{
    Grid grid;
    SetCellText(grid, 3, 2, L"abcdef");
    EXPECT_EQ(SetCellText(grid, 3, 2, GetCellText(grid, 3, 2) + 3), S_OK);
    EXPECT_EQ(TextOf(grid, 3, 2), L"def");
}

TEST(SetCellText, InABooleanColumnTheTextTakesTheBoxesPlace)
{
    Grid grid;
    struct {
        int Type, Row, BoxLeft;
    } rows[] = {{lorvDTBoolean, 2, 0}, {lorvDTBoolean, 0, 1}, {lorvDTLong, 2, 1}, {lorvDTEmpty, 2, 1}};
    for (auto& row : rows) {
        grid.ColTable[4].ColDataType = static_cast<int16_t>(row.Type);
        SetCellText(grid, row.Row, 4, nullptr);
        SetBox(grid, row.Row, 4, lorvChecked);
        SetCellText(grid, row.Row, 4, L"True");
        EXPECT_EQ(BoxOf(grid, row.Row, 4), row.BoxLeft) << row.Type << " row " << row.Row;
    }
}

TEST(SetCellText, ClearingATextInABooleanColumnClearsTheBoxToo)
{
    Grid grid;
    grid.ColTable[4].ColDataType = lorvDTBoolean;
    SetCellText(grid, 2, 4, L"True");
    SetBox(grid, 2, 4, lorvUnchecked);
    SetCellText(grid, 2, 4, nullptr);
    EXPECT_EQ(BoxOf(grid, 2, 4), 0);
}

TEST(CellChanged, IsSilentInsideItsOwnHandlerInEveryGrid)
{
    HeapBalance balance;
    WatchedGrid first;
    WatchedGrid second;
    first.Events.On = [&](DISPID, DISPPARAMS&) {
        SetCellText(first.Grid, 4, 4, L"inner");
        SetCellText(second.Grid, 4, 4, L"other");
    };
    SetCellText(first.Grid, 3, 3, L"outer");
    EXPECT_EQ(first.Events.Count(CellChangedId), 1);
    EXPECT_EQ(second.Events.Count(CellChangedId), 0);
    EXPECT_EQ(TextOf(first.Grid, 4, 4), L"inner");
    EXPECT_EQ(TextOf(second.Grid, 4, 4), L"other");

    first.Events.On = nullptr;
    SetCellText(second.Grid, 3, 3, L"later");
    EXPECT_EQ(second.Events.Count(CellChangedId), 1);
}

TEST(CellChanged, AHandlerMayTakeTheCellAway)
{
    HeapBalance balance;
    WatchedGrid watched;
    watched.Events.On = [&](DISPID, DISPPARAMS&) { ResizeRows(watched.Grid, 0); };
    EXPECT_EQ(SetCellText(watched.Grid, 3, 3, L"x"), S_OK);
    EXPECT_EQ(watched.Grid.Rows, 0);
}

TEST(SetCellText, WithoutMemoryForTheTextTheOldOneIsGone)
{
    HeapBalance balance;
    WatchedGrid watched;
    Grid& grid = watched.Grid;
    SetCellText(grid, 3, 2, L"old");
    watched.Events.Events.clear();
    {
        FailingAllocation failing;
        EXPECT_EQ(SetCellText(grid, 3, 2, L"new"), LORV_E_MEMORY);
    }
    EXPECT_EQ(TextOf(grid, 3, 2), L"(none)");
    EXPECT_TRUE(watched.Events.Events.empty());
    EXPECT_EQ(SetCellText(grid, 3, 2, L"new"), S_OK);
}

TEST(SetCellText, WithoutMemoryForTheRowTheRowStaysEmpty)
{
    Grid grid;
    FailingAllocation failing;
    EXPECT_EQ(SetCellText(grid, 3, 2, L"new"), LORV_E_MEMORY);
    EXPECT_EQ(grid.RowTable[3].Cells, nullptr);
}

TEST(TextSource, IsChosenByCell)
{
    constexpr uint16_t array = VT_ARRAY | VT_BSTR;
    FakeSource source;
    Grid grid;
    struct {
        bool Custom;
        uint16_t Bound;
        int Row, Col;
        TextSource Expected;
    } rows[] = {
        {false, BoundNone, 2, 2, TextSource::OwnStore},    {true, BoundNone, 0, 2, TextSource::OwnStore},
        {true, BoundNone, 1, 0, TextSource::Custom},       {true, BoundNone, 1, 1, TextSource::Custom},
        {true, BoundToGrid, 1, 1, TextSource::Custom},     {true, BoundToGrid, 0, 1, TextSource::OtherGrid},
        {false, BoundToGrid, 0, 0, TextSource::OtherGrid}, {false, BoundToGrid, 5, 5, TextSource::OtherGrid},
        {false, array, 0, 1, TextSource::OwnStore},        {false, array, 1, 0, TextSource::OwnStore},
        {false, array, 1, 1, TextSource::Array},           {true, array, 1, 0, TextSource::Custom},
    };
    for (auto& row : rows) {
        grid.LorvDataSource = row.Custom ? &source : nullptr;
        grid.BoundKind = row.Bound;
        EXPECT_EQ(TextSourceOf(grid, row.Row, row.Col), row.Expected)
            << "custom " << row.Custom << " bound " << row.Bound << " cell " << row.Row << "," << row.Col;
    }
    grid.LorvDataSource = nullptr;
    grid.BoundKind = BoundNone;
}

TEST(TextSource, ADyingControlAsksItsCustomSourceNothing)
{
    FakeSource source;
    Grid grid;
    grid.LorvDataSource = &source;
    grid.Closing = 1;
    EXPECT_EQ(GetCellText(grid, 2, 2), nullptr);
    EXPECT_EQ(source.Calls, 0);
    grid.LorvDataSource = nullptr;
}

TEST(TextSource, AnotherGridHoldsTheTextsOfEveryCell)
{
    HeapBalance balance;
    Grid other, grid;
    ResizeRows(other, 5);
    SetCellText(grid, 0, 0, L"own");
    grid.BoundKind = BoundToGrid;
    grid.BoundGrid = &other;
    SetCellText(other, 0, 0, L"theirs");
    EXPECT_EQ(TextOf(grid, 0, 0), L"theirs");
    EXPECT_EQ(SetCellText(grid, 4, 4, L"through"), S_OK);
    EXPECT_EQ(TextOf(other, 4, 4), L"through");
    EXPECT_EQ(grid.RowTable[4].Cells, nullptr);
    EXPECT_EQ(grid.RowTable[4].Status, lorvrsUpdated);
    EXPECT_EQ(TextOf(grid, 5, 4), L"(none)") << "a row that the other grid does not have";
    grid.BoundKind = BoundNone;
    EXPECT_EQ(TextOf(grid, 0, 0), L"own");
}

TEST(TextSource, AFailedWriteGivesItsCodeAndNoEvent)
{
    Grid other;
    HeapBalance balance;
    WatchedGrid watched;
    ResizeRows(other, 5);
    watched.Grid.BoundKind = BoundToGrid;
    for (Grid* bound : {&other, static_cast<Grid*>(nullptr)}) {
        watched.Grid.BoundGrid = bound;
        EXPECT_EQ(SetCellText(watched.Grid, 7, 4, L"x"), LORV_E_INDEX);
    }
    EXPECT_EQ(watched.Events.Count(CellChangedId), 0);
}

TEST(TextSource, FixedCellsOfAnArrayBoundGridKeepTheirOwnTexts)
{
    Grid grid;
    grid.BoundKind = VT_ARRAY | VT_BSTR;
    EXPECT_EQ(SetCellText(grid, 0, 3, L"title"), S_OK);
    EXPECT_EQ(SetCellText(grid, 3, 0, L"label"), S_OK);
    EXPECT_STREQ(CellOf(grid, 0, 3).Text, L"title");
    EXPECT_EQ(TextOf(grid, 3, 0), L"label");
    EXPECT_EQ(grid.BoundKind, VT_ARRAY | VT_BSTR) << "the array was not even looked at";
    grid.BoundKind = BoundNone;
}

TEST(CellFormat, StartsWithNothingSet)
{
    Grid grid;
    CellFormat* format = EnsureCellFormat(grid, 2, 3);
    ASSERT_NE(format, nullptr);
    EXPECT_EQ(EnsureCellFormat(grid, 2, 3), format);
    EXPECT_EQ(CellFormatOf(grid, 2, 3), format);
    EXPECT_EQ(CellFormatOf(grid, 2, 4), nullptr);
    EXPECT_EQ(CellFormatOf(grid, 3, 3), nullptr);
    EXPECT_EQ(format->Alignment, 100);
    EXPECT_EQ(format->TextStyle, 100);
    EXPECT_EQ(format->PictureAlignment, 100);
    EXPECT_EQ(format->BackColorSet, 0);
    EXPECT_EQ(format->Font, nullptr);
}

// A cell with one of everything.
struct FullCell {
    FullCell()
    {
        SetCellText(Grid, 2, 3, L"text");
        SetBox(Grid, 2, 3, lorvChecked);
        CellFormat& format = *EnsureCellFormat(Grid, 2, 3);
        LOGFONTW description = {};
        description.lfHeight = -11;
        format.Font = Font = AcquirePooledFont(description);
        format.Picture = Picture.Get();
        Picture.AddRef();
        format.ForeColor = 255;
        VARIANT data = {};
        data.vt = VT_I4, data.lVal = 7;
        StoreHeapVariant(format.Data, data);
    }
    void Free(int what) { FreeCellContents(Grid, 2, 3, what); }
    CellRecord& Cell() { return CellOf(Grid, 2, 3); }

    HeapBalance Balance;
    FakePicture Picture;
    struct Grid Grid;
    HFONT Font = nullptr;
};

TEST(FreeCellContents, EverythingLeavesAnUnusedCell)
{
    FullCell full;
    full.Free(lorvClearEverything);
    EXPECT_EQ(full.Cell().Text, nullptr);
    EXPECT_EQ(full.Cell().Format, nullptr);
    EXPECT_EQ(BoxOf(full.Grid, 2, 3), 0);
    EXPECT_EQ(full.Picture.References, 0);
    EXPECT_EQ(PooledFontUses(full.Font), 0);
}

TEST(FreeCellContents, TextAlone)
{
    FullCell full;
    full.Free(lorvClearText);
    EXPECT_EQ(full.Cell().Text, nullptr);
    EXPECT_EQ(BoxOf(full.Grid, 2, 3), lorvChecked);
    ASSERT_NE(full.Cell().Format, nullptr);
    EXPECT_EQ(full.Cell().Format->Data->lVal, 7);
    EXPECT_EQ(full.Cell().Format->ForeColor, 255u);
    EXPECT_EQ(full.Picture.References, 1);
    EXPECT_EQ(PooledFontUses(full.Font), 1);
}

// Hosts see a cell with data come out of this with a back colour of 0 that counts as set.
TEST(FreeCellContents, FormattingKeepsDataUnderABackColorOfZero)
{
    FullCell full;
    full.Free(lorvClearFormatting);
    EXPECT_STREQ(full.Cell().Text, L"text");
    EXPECT_EQ(BoxOf(full.Grid, 2, 3), lorvChecked);
    CellFormat* format = full.Cell().Format;
    ASSERT_NE(format, nullptr);
    EXPECT_EQ(format->Data->lVal, 7);
    EXPECT_EQ(format->BackColorSet, 1);
    EXPECT_EQ(format->BackColor, 0u);
    EXPECT_EQ(format->ForeColor, 0u);
    EXPECT_EQ(format->Alignment, 100);
    EXPECT_EQ(format->Picture, nullptr);
    EXPECT_EQ(format->Font, nullptr);
    EXPECT_EQ(full.Picture.References, 0);
    EXPECT_EQ(PooledFontUses(full.Font), 0);
}

TEST(FreeCellContents, FormattingWithoutDataLeavesNoFormat)
{
    FullCell full;
    FreeHeapVariant(full.Cell().Format->Data);
    full.Free(lorvClearFormatting);
    EXPECT_EQ(full.Cell().Format, nullptr);
    EXPECT_STREQ(full.Cell().Text, L"text");
}

TEST(FreeCellContents, DataUnchecksTheBoxAndKeepsTheLook)
{
    FullCell full;
    full.Free(lorvClearData);
    EXPECT_STREQ(full.Cell().Text, L"text");
    EXPECT_EQ(BoxOf(full.Grid, 2, 3), lorvUnchecked);
    ASSERT_NE(full.Cell().Format, nullptr);
    EXPECT_EQ(full.Cell().Format->Data, nullptr);
    EXPECT_EQ(full.Cell().Format->ForeColor, 255u);
    EXPECT_EQ(full.Cell().Format->Picture, full.Picture.Get());
}

TEST(FreeCellContents, DataTurnsCheckedFormsIntoUncheckedOnes)
{
    Grid grid;
    const int states[][2] = {
        {lorvNoCheckbox, lorvNoCheckbox},   {lorvChecked, lorvUnchecked},
        {lorvUnchecked, lorvUnchecked},     {lorvTSChecked, lorvTSUnchecked},
        {lorvTSUnchecked, lorvTSUnchecked}, {lorvTSGrayed, lorvTSUnchecked},
        {lorvDisabled, lorvDisabled},       {lorvDisabledUnchecked, lorvDisabledUnchecked}};
    for (auto& state : states) {
        SetBox(grid, 2, 3, state[0]);
        FreeCellContents(grid, 2, 3, lorvClearData);
        EXPECT_EQ(BoxOf(grid, 2, 3), state[1]) << state[0];
    }
}

TEST(FreeCellContents, OfARowWithoutCellsIsNothing)
{
    Grid grid;
    long allocations = TheAllocationProbe().Count;
    for (int what = lorvClearEverything; what <= lorvClearData; ++what)
        FreeCellContents(grid, 2, 3, what);
    EXPECT_EQ(grid.RowTable[2].Cells, nullptr);
    EXPECT_EQ(TheAllocationProbe().Count, allocations);
}

TEST(FreeCellContents, APictureMayTakeTheRowWithItWhenItGoes)
{
    FullCell full;
    full.Picture.OnLastRelease = [&] { ResizeRows(full.Grid, 0); };
    full.Free(lorvClearFormatting);
    EXPECT_EQ(full.Grid.Rows, 0);
}

TEST(Scratch, HoldsTextsOf65536CharactersAndCutsLongerOnes)
{
    std::wstring text(65536, L'x');
    EXPECT_EQ(CopyToScratch(text.c_str()), text);
    EXPECT_EQ(CopyToScratch((text + L"yz").c_str()), text);
    EXPECT_EQ(CopyToSecondScratch((text + L"yz").c_str()), text);
    EXPECT_STREQ(CopyToScratch(nullptr), L"");
}

TEST(Scratch, CopiesATextOfItsOwn)
{
    CopyToScratch(L"abcdef");
    EXPECT_STREQ(CopyToScratch(ScratchText() + 2), L"cdef");
    CopyToSecondScratch(ScratchText());
    CopyToScratch(L"other");
    EXPECT_STREQ(SecondScratchText(), L"cdef");
}

TEST(HeapVariant, HoldsACopyOfWhatAReferenceLeadsTo)
{
    HeapBalance balance;
    VARIANT* slot = nullptr;
    VARIANT inner = {}, outer = {};
    inner.vt = VT_I4, inner.lVal = 12;
    outer.vt = VT_BYREF | VT_VARIANT, outer.pvarVal = &inner;
    EXPECT_EQ(StoreHeapVariant(slot, outer), S_OK);
    EXPECT_EQ(slot->vt, VT_I4);
    EXPECT_EQ(slot->lVal, 12);
    FreeHeapVariant(slot);
    EXPECT_EQ(slot, nullptr);
    FreeHeapVariant(slot);
}

TEST(HeapVariant, KeepsItsValueWhenTheNewOneIsRefused)
{
    HeapBalance balance;
    VARIANT* slot = nullptr;
    VARIANT value = {};
    value.vt = VT_I4, value.lVal = 12;
    {
        FailingAllocation failing;
        EXPECT_EQ(StoreHeapVariant(slot, value), LORV_E_MEMORY);
        EXPECT_EQ(slot, nullptr);
    }
    StoreHeapVariant(slot, value);
    VARIANT bad = {};
    bad.vt = VT_BYREF | VT_I4;
    EXPECT_TRUE(FAILED(StoreHeapVariant(slot, bad))) << "a reference to nothing";
    bad.vt = 77;
    EXPECT_TRUE(FAILED(StoreHeapVariant(slot, bad))) << "no type at all";
    EXPECT_EQ(slot->lVal, 12);
    FreeHeapVariant(slot);
}

TEST(ReplaceText, KeepsNoEmptyString)
{
    HeapBalance balance;
    wchar_t* slot = nullptr;
    EXPECT_EQ(ReplaceText(slot, L"one"), S_OK);
    EXPECT_STREQ(slot, L"one");
    EXPECT_EQ(ReplaceText(slot, slot + 1), S_OK);
    EXPECT_STREQ(slot, L"ne");
    EXPECT_EQ(ReplaceText(slot, L""), S_OK);
    EXPECT_EQ(slot, nullptr);
    FailingAllocation failing;
    EXPECT_EQ(ReplaceText(slot, L"two"), LORV_E_MEMORY);
    EXPECT_EQ(slot, nullptr);
}

// Every result is either good or says that memory is short; what a failed call leaves is a grid that works.
TEST(OutOfMemory, AtAnyAllocationLeavesAWorkingGridAndNoLeak)
{
    auto fine = [](HRESULT result) {
        return result == S_OK || result == LORV_E_MEMORY || result == LORV_E_INDEX;
    };
    long allocations = WithEachAllocationFailing([&] {
        Grid grid;
        EXPECT_TRUE(fine(ResizeRows(grid, 250)));
        for (int row = 0; row < 6; ++row)
            EXPECT_TRUE(fine(SetCellText(grid, row, row, L"text")));
        EXPECT_TRUE(fine(ResizeCols(grid, 20)));
        if (IsCell(grid, 7, 3))
            if (CellFormat* format = EnsureCellFormat(grid, 7, 3)) {
                VARIANT data = {};
                data.vt = VT_I4;
                EXPECT_TRUE(fine(StoreHeapVariant(format->Data, data)));
                FreeCellContents(grid, 7, 3, lorvClearFormatting);
            }
        for (int added = 0; added < 120; ++added)
            EXPECT_TRUE(fine(ResizeRows(grid, grid.Rows + 1)));
        EXPECT_TRUE(fine(ResizeCols(grid, 4)));
        EXPECT_TRUE(fine(ResizeRows(grid, 90)));
        if (IsCell(grid, 3, 3) && GetCellText(grid, 3, 3)) {
            EXPECT_EQ(TextOf(grid, 3, 3), L"text");
        }
        EXPECT_LE(grid.FixedRows + grid.FrozenRows, grid.Rows);
        EXPECT_LE(grid.FixedCols + grid.FrozenCols, grid.Cols);
    });
    EXPECT_GT(allocations, 25);
}

} // namespace
