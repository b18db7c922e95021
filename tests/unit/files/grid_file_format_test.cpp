// Where every field of a grid file stands, byte by byte.
#include "core/cell_property.h"
#include "core/check_state.h"
#include "core/grid_font.h"
#include "core/property_frame.h"
#include "core/value_format.h"
#include "file_samples.h"
#include "support/fakes.h"
#include "support/member_grid.h"

namespace
{
TEST(GridFileHeader, HasEveryFieldAtItsOffset)
{
    SmallGrid grid(7, 4);
    struct {
        size_t Offset;
        OLE_COLOR Grid::*Property;
    } colours[] = {
        {80, &Grid::BackColor},      {84, &Grid::BackColorAlternate}, {88, &Grid::ForeColor},
        {92, &Grid::BackColorFixed}, {96, &Grid::ForeColorFixed},     {100, &Grid::BackColorSel},
        {104, &Grid::ForeColorSel},  {108, &Grid::BackColorBkg},      {112, &Grid::TreeColor},
        {116, &Grid::SheetBorder},   {120, &Grid::GridColor},         {124, &Grid::GridColorFixed}};
    struct {
        size_t Offset;
        int16_t Grid::*Property;
        int16_t Value;
    } words[] = {{160, &Grid::TextStyle, 1},        {162, &Grid::TextStyleFixed, 2},
                 {164, &Grid::ScrollBars, 1},       {166, &Grid::GridLines, 5},
                 {168, &Grid::GridLinesFixed, 6},   {170, &Grid::SelectionMode, 3},
                 {176, &Grid::SubtotalPosition, 0}, {178, &Grid::OutlineBar, 4}};
    OLE_COLOR next = 0x00102030;
    for (auto& colour : colours)
        grid.*colour.Property = next++;
    for (auto& word : words)
        grid.*word.Property = word.Value;
    grid.FixedRows = 2;
    grid.FixedCols = 3;
    grid.RowHeightMin = 345;
    grid.GridLineWidth = 9;
    grid.FontWidth = 2.5f;
    SetOption(grid, OptionWordWrap, true);

    Bytes file = Saved(grid, GridFileFormat);
    ASSERT_EQ(file.size(), 196u);
    EXPECT_EQ(file[0], 'L');
    EXPECT_EQ(file[1], 'V');
    EXPECT_EQ(file[2], 0xB4);
    EXPECT_EQ(file[3], 0);
    EXPECT_EQ(At<uint16_t>(file, 4), 7);
    EXPECT_EQ(At<uint16_t>(file, 6), 0);
    EXPECT_EQ(At<uint16_t>(file, 8), 2);
    EXPECT_EQ(At<float>(file, 72), FontSizeOf(grid));
    EXPECT_EQ(At<float>(file, 76), 2.5f);
    for (auto& colour : colours)
        EXPECT_EQ(At<uint32_t>(file, colour.Offset), grid.*colour.Property) << colour.Offset;
    EXPECT_EQ(At<int32_t>(file, 132), 7);
    EXPECT_EQ(At<int32_t>(file, 136), 4);
    EXPECT_EQ(At<int32_t>(file, 140), 2);
    EXPECT_EQ(At<int32_t>(file, 144), 3);
    EXPECT_EQ(At<uint32_t>(file, 148), 1u);
    EXPECT_EQ(At<int32_t>(file, 156), 345);
    for (auto& word : words)
        EXPECT_EQ(At<int16_t>(file, word.Offset), word.Value) << word.Offset;
    EXPECT_EQ(At<int16_t>(file, 172), 0);
    EXPECT_EQ(At<uint16_t>(file, 174), 9);
    for (size_t reserved : {10, 11, 128, 129, 130, 131, 152, 153, 154, 155})
        EXPECT_EQ(file[reserved], 0) << reserved;
}

TEST(GridFileHeader, SaysWhatWasSaved)
{
    SmallGrid grid(2, 2);
    for (GridFileKind kind : {GridFileAll, GridFileData, GridFileFormat})
        EXPECT_EQ(At<uint16_t>(Saved(grid, kind), 8), kind);
}

TEST(GridFileHeader, HoldsTheFontWithANarrowName)
{
    SmallGrid grid(2, 2);
    SetFontSize(grid, 12);
    SetFontFlag(grid, FontBold, true);
    SetFontFlag(grid, FontItalic, true);
    SetFontFlag(grid, FontUnderline, true);
    SetFontFlag(grid, FontStrikethru, true);
    LOGFONTW font = {};
    ASSERT_NE(GetObjectW(GridFontHandle(grid), sizeof font, &font), 0);
    Bstr name;
    ASSERT_EQ(S_OK, GridFont(grid)->get_Name(name.Put()));

    Bytes file = Saved(grid, GridFileFormat);
    EXPECT_EQ(At<int32_t>(file, 12), font.lfHeight);
    EXPECT_EQ(At<int32_t>(file, 16), font.lfWidth);
    EXPECT_EQ(At<int32_t>(file, 20), font.lfEscapement);
    EXPECT_EQ(At<int32_t>(file, 24), font.lfOrientation);
    EXPECT_EQ(At<int32_t>(file, 28), 700);
    EXPECT_NE(file[32], 0);
    EXPECT_NE(file[33], 0);
    EXPECT_NE(file[34], 0);
    EXPECT_EQ(file[35], font.lfCharSet);
    EXPECT_EQ(file[39], font.lfPitchAndFamily);
    EXPECT_EQ(At<float>(file, 72), FontSizeOf(grid));
    for (size_t i = 0; i < 32; ++i)
        EXPECT_EQ(file[40 + i], i < name.Length() ? name.Text()[i] : 0) << i;
}

TEST(GridFileHeader, PacksTwoMergeModesIntoOneWord)
{
    struct {
        int Cells, Fixed, Stored, Coding;
    } cases[] = {{0, 0, 0, 0}, {2, 2, 2, 0}, {2, 1, 112, 1}, {0, 7, 170, 1}, {7, 0, 107, 1}};
    for (auto& c : cases) {
        SmallGrid grid(2, 2), other(2, 2);
        grid.MergeCells = static_cast<int16_t>(c.Cells);
        grid.MergeCellsFixed = static_cast<int16_t>(c.Fixed);
        Bytes file = Saved(grid, GridFileFormat);
        EXPECT_EQ(At<int16_t>(file, 172), c.Stored);
        EXPECT_EQ(At<uint16_t>(file, 6), c.Coding);
        EXPECT_EQ(S_OK, Load(other, file, GridFileFormat));
        EXPECT_EQ(other.MergeCells, c.Cells);
        EXPECT_EQ(other.MergeCellsFixed, c.Fixed);
    }
}

// Whatever the coding says: the value alone decides.
TEST(GridFileHeader, UnpacksMergeModesByTheirValue)
{
    SmallGrid grid(2, 2);
    Bytes file = Saved(grid, GridFileFormat);
    Patch<int16_t>(file, 172, 112);
    Patch<uint16_t>(file, 6, 0);
    EXPECT_EQ(S_OK, Load(grid, file, GridFileFormat));
    EXPECT_EQ(grid.MergeCells, 2);
    EXPECT_EQ(grid.MergeCellsFixed, 1);
    Patch<int16_t>(file, 172, 3);
    Patch<uint16_t>(file, 6, 1);
    EXPECT_EQ(S_OK, Load(grid, file, GridFileFormat));
    EXPECT_EQ(grid.MergeCells, 3);
    EXPECT_EQ(grid.MergeCellsFixed, 3);
}

TEST(GridFileExtension, FollowsTheHeader)
{
    SmallGrid grid(9, 9);
    grid.FrozenRows = 2;
    grid.FrozenCols = 3;
    grid.BackColorFrozen = 0x112233;
    grid.ForeColorFrozen = 0x445566;
    Bytes file = Saved(grid, GridFileFormat);
    EXPECT_EQ(At<int32_t>(file, 180), 2);
    EXPECT_EQ(At<int32_t>(file, 184), 3);
    EXPECT_EQ(At<uint32_t>(file, 188), 0x112233u);
    EXPECT_EQ(At<uint32_t>(file, 192), 0x445566u);
}

TEST(GridFileColumn, HasItsFieldsAndItsExtraDirectlyBehindIt)
{
    SmallGrid grid(1, 2);
    ColRecord& col = grid.ColTable[1];
    col.Width = 123;
    col.Alignment = 4;
    col.FixedAlignment = 7;
    col.MergeCol = 1;
    col.SourceCol = 11;
    col.ColSort = 2;
    col.ColDataType = lorvDTCurrency;
    col.Indent = 17;
    col.ColFlags = ColFlagHidden | ColFlagParenFormat;
    ASSERT_EQ(S_OK, StoreHeapVariant(col.ColData, Value(L"77")));

    Bytes file = Saved(grid);
    EXPECT_EQ(At<int32_t>(file, 196), -1) << "the first column has the default width";
    EXPECT_EQ(file[201], 100) << "and fixed cells aligned like the others";
    EXPECT_EQ(At<int32_t>(file, 208), -1);
    const size_t at = 196 + 40;
    EXPECT_EQ(At<int32_t>(file, at), 123);
    EXPECT_EQ(file[at + 4], 4);
    EXPECT_EQ(file[at + 5], 7);
    EXPECT_EQ(file[at + 6], 1);
    EXPECT_EQ(file[at + 7], 0);
    EXPECT_EQ(At<int32_t>(file, at + 8), 77) << "a text is stored as far as it is a number";
    EXPECT_EQ(At<int32_t>(file, at + 12), 11);
    EXPECT_EQ(At<int16_t>(file, at + 16), 2);
    EXPECT_EQ(At<uint16_t>(file, at + 18), 6) << "hidden stands in the extra alone";
    for (size_t i = 20; i < 32; ++i)
        EXPECT_EQ(file[at + i], 0) << i;
    EXPECT_EQ(At<int32_t>(file, at + 32), 17);
    EXPECT_EQ(At<uint32_t>(file, at + 36), 1u);
}

TEST(GridFileColumnTexts, AreFourListsOneAfterTheOther)
{
    SmallGrid grid(0, 2);
    SetColFormat(grid, 0, L"F0");
    SetColFormat(grid, 1, L"F1");
    ReplaceText(grid.ColTable[1].ColComboList, L"a|b");
    ReplaceText(grid.ColTable[0].ColEditMask, L"##");
    ReplaceText(grid.ColTable[1].ColKey, L"K");
    Bytes file = Saved(grid);
    const char expected[] = "F0\0F1\0"
                            "\0a|b\0"
                            "##\0\0"
                            "\0K";
    const size_t at = 196 + 2 * 40;
    ASSERT_GE(file.size(), at + sizeof expected);
    EXPECT_EQ(std::string(file.begin() + at, file.begin() + at + sizeof expected),
              std::string(expected, sizeof expected));
}

// Where the cells begin in a grid whose columns have no texts.
size_t CellsAt(const Grid& grid)
{
    return 196 + 44u * static_cast<size_t>(grid.Cols);
}

TEST(GridFileCells, AreTextsRowByRow)
{
    SmallGrid grid(2, 2);
    grid.Set(0, 0, L"a");
    grid.Set(0, 1, L"b");
    grid.Set(1, 1, L"\xE9t\xE9");
    Bytes file = Saved(grid);
    const uint8_t expected[] = {'a', 0, 'b', 0, 0, 0xE9, 't', 0xE9, 0};
    ASSERT_GE(file.size(), CellsAt(grid) + sizeof expected);
    EXPECT_EQ(std::memcmp(file.data() + CellsAt(grid), expected, sizeof expected), 0);
}

TEST(GridFileCells, BeginWithTheCheckStateWhereThereIsOne)
{
    for (int state = 1; state <= 7; ++state) {
        SmallGrid grid(2, 1);
        grid.Set(1, 0, L"x");
        ASSERT_EQ(S_OK, SetCheckState(grid, 1, 0, state));
        Bytes file = Saved(grid);
        EXPECT_EQ(file[CellsAt(grid)], 0);
        EXPECT_EQ(file[CellsAt(grid) + 1], state);
        EXPECT_EQ(file[CellsAt(grid) + 2], 'x');
    }
}

TEST(GridFileCells, OfBooleanColumnsHaveNoStateByteButInFixedRows)
{
    SmallGrid grid(2, 1);
    grid.ColTable[0].ColDataType = lorvDTBoolean;
    ASSERT_EQ(S_OK, SetCheckState(grid, 0, 0, lorvTSGrayed));
    ASSERT_EQ(S_OK, SetCheckState(grid, 1, 0, lorvChecked));
    Bytes file = Saved(grid);
    const uint8_t expected[] = {lorvTSGrayed, 0, '-', '1', 0};
    EXPECT_EQ(std::memcmp(file.data() + CellsAt(grid), expected, sizeof expected), 0);
}

TEST(GridFileRows, HoldHeightLevelOrDataMergingAndFlags)
{
    SmallGrid grid(3, 1);
    grid.RowTable[0].Height = 31;
    ASSERT_EQ(S_OK, StoreHeapVariant(grid.RowTable[0].RowData, Value(4711)));
    grid.RowTable[0].OutlineLevel = 5;
    grid.RowTable[1].Flags = RowFlagSubtotal | RowFlagHidden;
    grid.RowTable[1].OutlineLevel = -1;
    ASSERT_EQ(S_OK, StoreHeapVariant(grid.RowTable[1].RowData, Value(12)));
    grid.RowTable[2].MergeRow = 1;
    grid.RowTable[2].Flags = 0xFF;
    grid.RowTable[2].OutlineLevel = 3;
    Bytes file = Saved(grid);
    const size_t at = CellsAt(grid) + 3;
    EXPECT_EQ(At<int32_t>(file, at), 31);
    EXPECT_EQ(At<int32_t>(file, at + 4), 4711);
    EXPECT_EQ(At<uint32_t>(file, at + 8), 0u);
    EXPECT_EQ(At<int32_t>(file, at + 12), -1);
    EXPECT_EQ(At<int32_t>(file, at + 16), -1) << "a level keeps its sign";
    EXPECT_EQ(At<uint16_t>(file, at + 20), 0x0C00);
    EXPECT_EQ(At<int32_t>(file, at + 28), 3);
    EXPECT_EQ(file[at + 32], 1);
    EXPECT_EQ(file[at + 33], 0x3F);
    EXPECT_EQ(At<uint16_t>(file, at + 34), 0);
}

TEST(GridFileRecords, HoldTheFormatOfACell)
{
    SmallGrid grid(2, 2);
    CellFormat& format = *EnsureCellFormat(grid, 1, 0);
    format.BackColor = 0x0A0B0C;
    format.BackColorSet = 1;
    format.ForeColor = 0x1A1B1C;
    format.FloodColor = 0x2A2B2C;
    format.FloodPercent = -40;
    format.Alignment = 3;
    format.BorderColor = 0x3A3B3C;
    format.BorderLeft = 1;
    format.BorderTop = 2;
    format.BorderRight = 3;
    format.BorderBottom = 4;
    Bytes file = Saved(grid);
    const size_t at = CellsAt(grid) + 4 + 2 * 12;
    ASSERT_EQ(file.size(), at + 2 * 96);
    EXPECT_EQ(At<int32_t>(file, at), 1);
    EXPECT_EQ(At<int32_t>(file, at + 4), 0);
    EXPECT_EQ(At<uint32_t>(file, at + 8), 0x0A0B0Cu);
    EXPECT_EQ(At<uint32_t>(file, at + 12), 0x1A1B1Cu);
    EXPECT_EQ(At<uint32_t>(file, at + 16), 0x2A2B2Cu);
    EXPECT_EQ(At<int8_t>(file, at + 20), -40);
    EXPECT_EQ(file[at + 21], 3);
    EXPECT_EQ(file[at + 22], 100) << "what is unset is stored so";
    EXPECT_EQ(file[at + 23], 0);
    EXPECT_EQ(At<uint32_t>(file, at + 24), 0x3A3B3Cu);
    for (int side = 0; side < 4; ++side)
        EXPECT_EQ(file[at + 28 + side], side + 1);
    EXPECT_EQ(At<uint32_t>(file, at + 32), 0u);
    for (size_t i = 36; i < 96; ++i)
        EXPECT_EQ(file[at + i], 0) << i;
}

TEST(GridFileRecords, HoldTheFontOfACellWithTheBeginningOfItsWideName)
{
    SmallGrid grid(1, 1);
    LOGFONTW font = {};
    font.lfHeight = -20;
    font.lfWeight = 700;
    font.lfItalic = 1;
    wcscpy(font.lfFaceName, L"A font name of more than sixteen");
    font.lfFaceName[31] = 0;
    ASSERT_EQ(S_OK, SetCellProperty(grid, 0, 0, CellSelector::Font, &font));
    Bytes file = Saved(grid);
    const size_t at = CellsAt(grid) + 1 + 12;
    EXPECT_EQ(file[at + 32], 1);
    EXPECT_EQ(At<int32_t>(file, at + 36), -20);
    EXPECT_EQ(At<int32_t>(file, at + 52), 700);
    EXPECT_EQ(file[at + 56], 1);
    EXPECT_EQ(std::memcmp(file.data() + at + 64, font.lfFaceName, 32), 0);
}

TEST(GridFileRecords, HoldTheDataOfColumnsThenOfRowsAndThenTheEnd)
{
    SmallGrid grid(2, 2);
    ASSERT_EQ(S_OK, StoreHeapVariant(grid.RowTable[1].RowData, Value(2.5)));
    ASSERT_EQ(S_OK, StoreHeapVariant(grid.ColTable[0].ColData, Value(L"hey")));
    Bytes file = Saved(grid, GridFileData);
    size_t at = CellsAt(grid) + 4 + 2 * 12;
    EXPECT_EQ(At<int32_t>(file, at), -1);
    EXPECT_EQ(At<int32_t>(file, at + 4), 0);
    for (size_t i = 8; i < 96; ++i)
        EXPECT_EQ(file[at + i], i == 32 ? 2 : 0) << i;
    at += 96;
    EXPECT_EQ(At<uint16_t>(file, at), VT_BSTR);
    for (size_t i = 2; i < 24; ++i)
        EXPECT_EQ(file[at + i], 0) << "no pointer goes to the disk";
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(file.data() + at + 24)), "hey");
    at += 24 + 4;
    EXPECT_EQ(At<int32_t>(file, at), 1);
    EXPECT_EQ(At<int32_t>(file, at + 4), -1);
    EXPECT_EQ(file[at + 32], 2);
    at += 96;
    EXPECT_EQ(At<uint16_t>(file, at), VT_R8);
    EXPECT_EQ(At<double>(file, at + 8), 2.5);
    EXPECT_EQ(At<uint64_t>(file, at + 16), 0u);
    at += 24;
    EXPECT_EQ(At<int64_t>(file, at), -1) << "row and column of the end";
    for (size_t i = 8; i < 96; ++i)
        EXPECT_EQ(file[at + i], 0) << i;
    EXPECT_EQ(file.size(), at + 96);
}

TEST(GridFile, OfAGridWithoutRowsHasHeaderColumnsAndEnd)
{
    SmallGrid grid(0, 3);
    EXPECT_EQ(Saved(grid).size(), 196u + 3 * 44 + 96);
    SmallGrid empty(0, 0);
    EXPECT_EQ(Saved(empty).size(), 196u + 96);
}

TEST(GridFile, OfDataLeavesOutTheFormatsOfCellsAndNothingElse)
{
    SmallGrid grid(2, 2);
    EnsureCellFormat(grid, 1, 1);
    grid.RowTable[1].Height = 44;
    size_t all = Saved(grid).size();
    Bytes data = Saved(grid, GridFileData);
    EXPECT_EQ(data.size(), all - 96);
    EXPECT_EQ(At<int32_t>(data, CellsAt(grid) + 4 + 12), 44);
}

TEST(VariantImage, KnowsWhatCanBeStored)
{
    struct {
        VARTYPE Type;
        size_t Size; // of the value, 0: refused
    } cases[] = {{VT_I2, 2},
                 {VT_I4, 4},
                 {VT_R4, 4},
                 {VT_R8, 8},
                 {VT_CY, 8},
                 {VT_DATE, 8},
                 {VT_ERROR, 4},
                 {VT_BOOL, 2},
                 {VT_I1, 1},
                 {VT_UI1, 1},
                 {VT_UI2, 2},
                 {VT_UI4, 4},
                 {VT_INT, 4},
                 {VT_UINT, 4},
                 {VT_EMPTY, 0},
                 {VT_NULL, 0},
                 {VT_DISPATCH, 0},
                 {VT_VARIANT, 0},
                 {VT_UNKNOWN, 0},
                 {VT_DECIMAL, 0},
                 {15, 0},
                 {VT_I8, 0},
                 {VT_UI8, 0},
                 {24, 0},
                 {VT_ARRAY | VT_I4, 0},
                 {VT_BYREF | VT_I4, 0}};
    for (auto& c : cases) {
        EXPECT_EQ(VariantImageValueSize(c.Type), c.Size) << c.Type;
        EXPECT_EQ(IsStorableType(c.Type), c.Size != 0) << c.Type;
        if (!c.Size)
            continue;
        SmallGrid grid(1, 1), other(1, 1);
        Value value = Value::OfType(c.Type);
        value.Get().llVal = 0x0102030405060708;
        ASSERT_EQ(S_OK, StoreHeapVariant(grid.RowTable[0].RowData, value));
        Bytes file = Saved(grid);
        EXPECT_EQ(At<uint16_t>(file, file.size() - 120), c.Type);
        for (size_t i = 0; i < 8; ++i)
            EXPECT_EQ(file[file.size() - 112 + i], i < c.Size ? 8 - i : 0) << c.Type;
        ASSERT_EQ(S_OK, Load(other, file));
        ASSERT_TRUE(other.RowTable[0].RowData);
        EXPECT_EQ(other.RowTable[0].RowData->vt, c.Type);
    }
    EXPECT_TRUE(IsStorableType(VT_BSTR));
}

TEST(VariantImage, OfACellLeavesOutWhatCannotBeStoredAndKeepsTheRecord)
{
    SmallGrid grid(1, 1);
    Value value = Value::OfType(VT_NULL);
    ASSERT_EQ(S_OK, SetCellProperty(grid, 0, 0, CellSelector::Data, &value.Get()));
    ASSERT_EQ(S_OK, StoreHeapVariant(grid.ColTable[0].ColData, value));
    ASSERT_EQ(S_OK, StoreHeapVariant(grid.RowTable[0].RowData, value));
    Bytes file = Saved(grid);
    const size_t at = CellsAt(grid) + 1 + 12;
    EXPECT_EQ(file.size(), at + 2 * 96);
    EXPECT_EQ(file[at + 32], 0);
}

TEST(NarrowTexts, GoThroughTheCodePageAndComeBackByteByByte)
{
    const wchar_t text[] = L"\x20AC\x42F";
    char narrow[16] = {};
    ASSERT_GT(WideCharToMultiByte(CP_THREAD_ACP, 0, text, -1, narrow, sizeof narrow, nullptr, nullptr), 0);
    std::wstring expected;
    for (const char* at = narrow; *at; ++at)
        expected += static_cast<wchar_t>(static_cast<uint8_t>(*at));
    SmallGrid grid(1, 1), other(1, 1);
    grid.Set(0, 0, text);
    ASSERT_EQ(S_OK, Load(other, Saved(grid)));
    EXPECT_EQ(other.Text(0, 0), expected);
    EXPECT_NE(other.Text(0, 0), text);
}

TEST(NarrowTexts, OfEveryLengthAreWritten)
{
    for (int length : {1, 254, 255, 256, 257, 65535, 65536}) {
        for (wchar_t unit : {L'a', L'\xE9'}) {
            SmallGrid grid(1, 2), other(1, 2);
            std::wstring text(static_cast<size_t>(length), unit);
            grid.Set(0, 0, text.c_str());
            grid.Set(0, 1, L"behind");
            ASSERT_EQ(S_OK, Load(other, Saved(grid)));
            EXPECT_EQ(other.Text(0, 0), text) << length;
            EXPECT_EQ(other.Text(0, 1), L"behind") << length;
        }
    }
}

TEST(NarrowTexts, ThatAreTooLongAreCutAndGoOnInTheNextCell)
{
    SmallGrid grid(1, 2), other(1, 2);
    grid.Set(0, 0, (std::wstring(65536, L'x') + L"rest").c_str());
    grid.Set(0, 1, L"lost");
    ASSERT_EQ(S_OK, Load(other, Saved(grid)));
    EXPECT_EQ(other.Text(0, 0), std::wstring(65536, L'x'));
    EXPECT_EQ(other.Text(0, 1), L"rest");
}

TEST(GridFile, ThatDoesNotFitTheDiskIsReported)
{
    struct FullDisk : ByteWriter {
        bool Write(const void*, size_t) noexcept override { return false; }
    } disk;
    SmallGrid grid(2, 2);
    grid.Set(1, 1, L"x");
    EXPECT_EQ(LORV_E_CANNOTWRITE, SaveBinaryGrid(grid, disk, GridFileAll));
    EXPECT_EQ(LORV_E_CANNOTWRITE, SaveDelimitedText(grid, disk, lorvFileTabText, 0));
}

TEST(GridFile, SavesWithoutMemoryWithACode)
{
    SmallGrid grid(1, 1);
    grid.Set(0, 0, std::wstring(300, L'\xE9').c_str());
    FailingAllocation failing;
    MemoryWriter target;
    EXPECT_EQ(E_OUTOFMEMORY, SaveBinaryGrid(grid, target, GridFileAll));
}
} // namespace
