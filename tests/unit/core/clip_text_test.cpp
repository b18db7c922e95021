#include "core/clip_text.h"

#include "core/cell_store.h"
#include "core/row_col.h"
#include "core/value_format.h"
#include "platform/memory.h"
#include "support/fakes.h"

#include <climits>
#include <random>
#include <string>

namespace
{
constexpr DISPID CellChangedId = 43;

// 4 by 4 cells without fixed ones.
class Clips : public testing::Test
{
protected:
    EventSink events;
    PropertySink properties;
    Grid other; // for tests that bind
    Grid grid;
    Connection eventConnection{grid.EventSinks, &events};
    Connection propertyConnection{grid.PropertySinks, &properties};

    Clips() { Reset(4, 4); }
    void Reset(int rows, int cols)
    {
        ResizeBoth(grid, 0, 0);
        ResizeBoth(grid, rows, cols);
        SetFixedCounts(grid, 0, 0, 0, 0);
        events.Events.clear();
    }
    // Each cell gets its row and column as two digits.
    void Number()
    {
        for (int row = 0; row < grid.Rows; ++row)
            for (int col = 0; col < grid.Cols; ++col)
                Put(row, col, (std::to_wstring(row) + std::to_wstring(col)).c_str());
    }
    void Put(int row, int col, const wchar_t* text) { SetCellText(grid, row, col, text); }
    void Separate(const wchar_t* separators)
    {
        BSTR text = SysAllocString(separators);
        EXPECT_EQ(SetClipSeparators(grid, text), S_OK);
        SysFreeString(text);
    }
    void Select(int row, int col, int rowSel, int colSel)
    {
        grid.Row = row, grid.Col = col, grid.RowSel = rowSel, grid.ColSel = colSel;
    }

    static std::wstring Taken(wchar_t* clip)
    {
        std::wstring text = clip ? clip : L"(none)";
        FreeBlock(clip);
        return text;
    }
    std::wstring Range(int row1, int col1, int row2, int col2, bool fixedSeparators = false)
    {
        return Taken(ClipOfRange(grid, row1, col1, row2, col2, fixedSeparators));
    }
    std::wstring Selection(bool fixedSeparators = false)
    {
        return Taken(ClipOfSelection(grid, fixedSeparators));
    }
    // Every cell, with commas and slashes, whatever the separators are.
    std::wstring All() const
    {
        std::wstring all;
        for (int row = 0; row < grid.Rows; ++row) {
            all += row ? L"/" : L"";
            for (int col = 0; col < grid.Cols; ++col) {
                const wchar_t* text = OwnText(row, col);
                all += (col ? L"," : L"") + std::wstring(text ? text : L"");
            }
        }
        return all;
    }
    const wchar_t* OwnText(int row, int col) const
    {
        const CellRecord* cells = grid.RowTable[row].Cells;
        return cells ? cells[col].Text : nullptr;
    }
};

// --- separators

TEST_F(Clips, SeparatorsAreTabAndCarriageReturnUnlessTwoWereChosen)
{
    struct {
        const wchar_t* Chosen;
        bool Fixed;
        wchar_t Col, Row;
    } const cases[] = {
        {nullptr, false, L'\t', L'\r'}, {L"", false, L'\t', L'\r'},  {L";;", false, L'\t', L'\r'},
        {L",;", false, L',', L';'},     {L",;", true, L'\t', L'\r'}, {L",", false, L'\t', L'\r'},
    };
    for (const auto& c : cases) {
        SysFreeString(grid.ClipSeparators);
        grid.ClipSeparators = c.Chosen ? SysAllocString(c.Chosen) : nullptr;
        ClipSeparatorPair pair = ClipSeparatorsOf(grid, c.Fixed);
        EXPECT_EQ(pair.Col, c.Col) << c.Chosen;
        EXPECT_EQ(pair.Row, c.Row) << c.Chosen;
    }
}

TEST_F(Clips, SeparatorsAreTwoDifferentCharacters)
{
    struct {
        const wchar_t* Text;
        HRESULT Code;
    } const cases[] = {
        {L",;", S_OK},         {L"\t\n", S_OK},        {L"\x20AC|", S_OK}, {L",", LORV_E_VALUE},
        {L",,", LORV_E_VALUE}, {L",;|", LORV_E_VALUE}, {L"", S_OK},
    };
    for (const auto& c : cases) {
        Separate(L"ab");
        properties.Taken();
        BSTR text = SysAllocString(c.Text);
        EXPECT_EQ(SetClipSeparators(grid, text), c.Code) << c.Text;
        SysFreeString(text);
        bool stored = c.Code == S_OK;
        EXPECT_STREQ(grid.ClipSeparators, stored ? c.Text : L"ab");
        EXPECT_EQ(properties.Taken(), stored ? std::vector<DISPID>{182} : std::vector<DISPID>{}) << c.Text;
    }
    EXPECT_EQ(SetClipSeparators(grid, nullptr), S_OK);
    EXPECT_EQ(SysStringLen(grid.ClipSeparators), 0u);
}

TEST_F(Clips, ATerminatorSeparatesNothing)
{
    const wchar_t pairs[][3] = {{L',', 0, 0}, {0, L',', 0}};
    BSTR text = SysAllocStringLen(pairs[0], 2);
    EXPECT_EQ(SetClipSeparators(grid, text), LORV_E_VALUE);
    SysFreeString(text);
    text = SysAllocStringLen(pairs[1], 2);
    EXPECT_EQ(SetClipSeparators(grid, text), S_OK) << "an empty text";
    SysFreeString(text);
    EXPECT_EQ(ClipSeparatorsOf(grid, false).Col, L'\t');
}

TEST_F(Clips, NoSeparatorIsALeadByte)
{
    for (int code = 1; code <= 0xFF; ++code) {
        const wchar_t pair[] = {static_cast<wchar_t>(code), L'\x100', 0};
        BSTR text = SysAllocString(pair);
        bool lead = IsDBCSLeadByte(static_cast<BYTE>(code)) != FALSE;
        EXPECT_EQ(SetClipSeparators(grid, text), lead ? LORV_E_VALUE : S_OK) << code;
        SysFreeString(text);
    }
}

// --- reading

TEST_F(Clips, ARangeGoesOutRowByRow)
{
    Number();
    EXPECT_EQ(Range(1, 1, 2, 3), L"11\t12\t13\r21\t22\t23");
    EXPECT_EQ(Range(2, 3, 1, 1), L"11\t12\t13\r21\t22\t23") << "corners in any order";
    EXPECT_EQ(Range(1, 3, 2, 1), L"11\t12\t13\r21\t22\t23");
    EXPECT_EQ(Range(3, 3, 3, 3), L"33");
    EXPECT_EQ(Range(1, 1, 2, 2, true), L"11\t12\r\n21\t22");
    Separate(L",;");
    EXPECT_EQ(Range(1, 1, 2, 2), L"11,12;21,22");
    EXPECT_EQ(Range(1, 1, 2, 2, true), L"11\t12\r\n21\t22");
}

TEST_F(Clips, EmptyCellsGiveTheirSeparatorsAlone)
{
    EXPECT_EQ(Range(0, 0, 0, 0), L"");
    EXPECT_EQ(Range(0, 0, 1, 2), L"\t\t\r\t\t");
    Put(0, 0, L"a");
    EXPECT_EQ(Range(0, 0, 0, 1), L"a\t") << "an empty last cell ends the text in a separator";
    EXPECT_EQ(Range(0, 0, 1, 0), L"a\r");
}

TEST_F(Clips, ARangeThatLeavesTheGridGivesNothing)
{
    const int corners[][4] = {
        {-1, 0, 1, 1}, {0, -1, 1, 1},           {0, 0, 4, 1}, {0, 0, 1, 4}, {4, 0, 5, 0},
        {3, 3, -5, 0}, {INT_MIN, 0, INT_MAX, 0}};
    for (const auto& c : corners)
        EXPECT_EQ(ClipOfRange(grid, c[0], c[1], c[2], c[3], false), nullptr) << c[0] << " " << c[2];
}

TEST_F(Clips, HoldTheStoredTexts)
{
    Put(0, 0, L"1");
    SetColFormat(grid, 0, L"0.00");
    EXPECT_EQ(Range(0, 0, 0, 0), L"1");
}

TEST_F(Clips, PassThroughTheTextSource)
{
    ResizeBoth(other, 4, 4);
    SetCellText(other, 1, 1, L"theirs");
    Put(1, 1, L"ours");
    grid.BoundKind = BoundToGrid, grid.BoundGrid = &other;
    EXPECT_EQ(Range(1, 1, 1, 2), L"theirs\t");
    EXPECT_EQ(PutClip(grid, L"new", 1, 2, 1, 2, false), S_OK);
    grid.BoundKind = BoundNone, grid.BoundGrid = nullptr;
    EXPECT_STREQ(GetCellText(other, 1, 2), L"new");
    EXPECT_EQ(OwnText(1, 2), nullptr);
}

TEST_F(Clips, TheSelectionRunsBetweenItsCorners)
{
    Number();
    Select(2, 3, 1, 2);
    for (int mode : {lorvSelectionFree, lorvSelectionByRow, lorvSelectionByColumn}) {
        grid.SelectionMode = static_cast<int16_t>(mode);
        EXPECT_EQ(Selection(), L"12\t13\r22\t23") << mode;
    }
    EXPECT_EQ(Selection(true), L"12\t13\r\n22\t23");
    Select(-1, 0, -1, 0);
    EXPECT_EQ(Selection(), L"(none)");
}

TEST_F(Clips, AListBoxGivesItsSelectedRowsWithoutFixedCells)
{
    Number();
    SetFixedCounts(grid, 1, 2, 0, 0);
    grid.SelectionMode = lorvSelectionListBox;
    Select(2, 2, 2, 2);
    EXPECT_EQ(Selection(), L"(none)") << "the current row is not selected by that alone";
    for (int row : {0, 1, 3})
        grid.RowTable[row].Flags |= RowFlagSelected;
    EXPECT_EQ(Selection(), L"12\t13\r32\t33");
    EXPECT_EQ(Selection(true), L"12\t13\r\n32\t33");
    Put(1, 2, nullptr);
    Put(1, 3, nullptr);
    EXPECT_EQ(Selection(), L"\t\r32\t33");
}

// --- writing

TEST_F(Clips, PartsGoToTheirCells)
{
    struct {
        const char* What;
        const wchar_t* Text;
        bool Fixed;
        const wchar_t* All;
    } const cases[] = {
        {"all", L"a\tb\rc\td", false, L"00,01,02/10,a,b/20,c,d"},
        {"fewer rows", L"a\tb", false, L"00,01,02/10,a,b/20,21,22"},
        {"fewer parts", L"a\rc", false, L"00,01,02/10,a,12/20,c,22"},
        {"surplus rows", L"a\tb\rc\td\re\tf", false, L"00,01,02/10,a,b/20,c,d"},
        {"surplus parts", L"a\tb\tx\ty\rc\td\tz", false, L"00,01,02/10,a,b/20,c,d"},
        {"an empty part", L"\tb\rc\t", false, L"00,01,02/10,,b/20,c,"},
        {"an empty last part of a row", L"a\t\rc", false, L"00,01,02/10,a,/20,c,22"},
        {"an empty row", L"\rc", false, L"00,01,02/10,,12/20,c,22"},
        {"line feeds behind", L"a\tb\r\nc\td", false, L"00,01,02/10,a,b/20,c,d"},
        {"line feeds behind, the last line too", L"a\tb\r\nc\td\r\n", false, L"00,01,02/10,a,b/20,c,d"},
        {"the text ends at a row separator", L"a\tb\r", false, L"00,01,02/10,a,b/20,21,22"},
        {"the text ends at a line end", L"a\tb\r\n", false, L"00,01,02/10,a,b/20,21,22"},
        {"a line feed alone", L"a\nb", false, L"00,01,02/10,a\nb,12/20,21,22"},
        {"a second line feed", L"a\r\n\nc", false, L"00,01,02/10,a,12/20,\nc,22"},
        {"fixed", L"a\tb\r\nc\td", true, L"00,01,02/10,a,b/20,c,d"},
        {"no text", L"", false, L"00,01,02/10,11,12/20,21,22"},
    };
    for (const auto& c : cases) {
        Reset(3, 3);
        Number();
        EXPECT_EQ(PutClip(grid, c.Text, 2, 2, 1, 1, c.Fixed), S_OK) << c.What;
        EXPECT_EQ(All(), c.All) << c.What;
    }
}

TEST_F(Clips, ChosenSeparatorsCutTheTextAndNoOthers)
{
    Separate(L",;");
    EXPECT_EQ(PutClip(grid, L"a\tb,c\r\n;d", 0, 0, 3, 3, false), S_OK);
    EXPECT_EQ(All(), L"a\tb,c\r\n,,/d,,,/,,,/,,,");
    Reset(2, 2);
    EXPECT_EQ(PutClip(grid, L"a;\nb", 0, 0, 1, 1, false), S_OK);
    EXPECT_EQ(All(), L"a,/\nb,") << "a line feed is skipped behind carriage returns only";
    Reset(2, 2);
    EXPECT_EQ(PutClip(grid, L"a,b;c\td\re", 0, 0, 1, 1, true), S_OK);
    EXPECT_EQ(All(), L"a,b;c,d/e,");
    Reset(2, 2);
    Separate(L",\r"); // a row separator that is a carriage return, chosen or not
    EXPECT_EQ(PutClip(grid, L"a,b\r\nc", 0, 0, 1, 1, false), S_OK);
    EXPECT_EQ(All(), L"a,b/c,");
}

TEST_F(Clips, ARangeOutsideTheGridIsRefused)
{
    const int corners[][4] = {{-1, 0, 1, 1}, {0, -1, 1, 1}, {0, 0, 4, 1}, {0, 0, 1, 4}, {5, 5, 9, 9}};
    for (const auto& c : corners)
        EXPECT_EQ(PutClip(grid, L"a", c[0], c[1], c[2], c[3], false), LORV_E_INDEX);
    EXPECT_EQ(PutRowText(grid, L"a", -1, 0, 0, false), LORV_E_INDEX);
    EXPECT_EQ(PutRowText(grid, L"a", 4, 0, 0, false), LORV_E_INDEX);
    EXPECT_EQ(All(), L",,,/,,,/,,,/,,,");
}

TEST_F(Clips, FixedSeparatorsMarkTheRowsAsModified)
{
    for (int row = 0; row < 4; ++row)
        grid.RowTable[row].Status = static_cast<uint8_t>(row + 1);
    PutClip(grid, L"a\rb\rc\rd", 0, 0, 3, 0, false);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(grid.RowTable[row].Status, row + 1) << "other writes change no state but a new one's";
    PutClip(grid, L"e\rf\rg\rh", 0, 0, 3, 0, true);
    EXPECT_EQ(grid.RowTable[0].Status, lorvrsModified);
    EXPECT_EQ(grid.RowTable[1].Status, lorvrsModified);
    EXPECT_EQ(grid.RowTable[2].Status, lorvrsModified);
    EXPECT_EQ(grid.RowTable[3].Status, 4) << "states of the host's own stay";
    Reset(2, 1);
    PutClip(grid, L"a", 0, 0, 1, 0, true);
    EXPECT_EQ(grid.RowTable[0].Status, lorvrsModified);
    EXPECT_EQ(grid.RowTable[1].Status, lorvrsNew) << "the text has no part for it";
}

TEST_F(Clips, ARowTextGoesAcrossOneRow)
{
    EXPECT_EQ(PutRowText(grid, L"a\tb\rc\td\te", 1, 1, 3, false), S_OK);
    EXPECT_EQ(All(), L",,,/,a,b\rc,d/,,,/,,,");
    EXPECT_EQ(PutRowText(grid, L"", 2, 0, 3, false), S_OK);
    EXPECT_NE(grid.RowTable[2].Cells, nullptr) << "the row has its cells now";
    EXPECT_EQ(grid.RowTable[3].Cells, nullptr);
}

TEST_F(Clips, ChangedCellsAreReported)
{
    Put(0, 1, L"b");
    events.Events.clear();
    EXPECT_EQ(PutClip(grid, L"a\tb\rc", 0, 0, 1, 1, false), S_OK);
    ASSERT_EQ(events.Count(CellChangedId), 2) << "b was there before";
    EXPECT_EQ(events.Events[0].Values, (std::vector<long>{0, 0}));
    EXPECT_EQ(events.Events[1].Values, (std::vector<long>{1, 0}));
}

TEST_F(Clips, AHandlerMayShrinkTheGrid)
{
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == CellChangedId)
            ResizeBoth(grid, 1, 1);
    };
    EXPECT_EQ(PutClip(grid, L"a\tb\rc\td", 0, 0, 3, 3, true), LORV_E_INDEX);
    EXPECT_EQ(All(), L"a");
}

// --- the property

TEST_F(Clips, AreSetInTheSelection)
{
    Select(2, 2, 1, 1);
    EXPECT_EQ(SetClip(grid, L"a\tb\rc\td"), S_OK);
    EXPECT_EQ(All(), L",,,/,a,b,/,c,d,/,,,");
    EXPECT_EQ(grid.RowTable[1].Status, lorvrsUpdated);
}

TEST_F(Clips, AnEmptyTextClearsTheCurrentCellAlone)
{
    for (const wchar_t* empty : {static_cast<const wchar_t*>(nullptr), L""}) {
        Reset(2, 2);
        Number();
        Select(1, 1, 0, 0);
        EXPECT_EQ(SetClip(grid, empty), S_OK);
        EXPECT_EQ(All(), L"00,01/10,");
    }
}

TEST_F(Clips, WithoutACurrentCellNothingIsSet)
{
    Select(-1, 0, -1, 0);
    EXPECT_EQ(SetClip(grid, L"a"), LORV_E_INDEX);
    EXPECT_EQ(SetClip(grid, L""), LORV_E_INDEX);
}

// --- memory

TEST_F(Clips, AFailingCopyIsReported)
{
    Select(0, 0, 1, 1);
    FailingAllocation failing;
    EXPECT_EQ(SetClip(grid, L"a"), LORV_E_MEMORY);
    EXPECT_EQ(All(), L",,,/,,,/,,,/,,,");
}

TEST_F(Clips, WantOfMemoryLeavesWhatWasWritten)
{
    long steps = WithEachAllocationFailing([] {
        Grid grid;
        if (FAILED(ResizeBoth(grid, 3, 3)))
            return;
        HRESULT put = PutClip(grid, L"a\tb\rc\td", 0, 0, 1, 1, true);
        EXPECT_TRUE(put == S_OK || put == LORV_E_MEMORY) << put;
        std::wstring text = Taken(ClipOfRange(grid, 0, 0, 1, 1, true));
        if (put == S_OK) {
            EXPECT_TRUE(text == L"a\tb\r\nc\td" || text == L"(none)");
        }
    });
    EXPECT_GT(steps, 8);
}

TEST_F(Clips, WhatWasReadIsWrittenBack)
{
    std::mt19937 random(6);
    const wchar_t* const texts[] = {L"", L"a", L"long text", L";", L"\n", L" "};
    for (int round = 0; round < 100; ++round) {
        Reset(1 + static_cast<int>(random() % 4), 2 + static_cast<int>(random() % 3));
        for (int row = 0; row < grid.Rows; ++row)
            for (int col = 0; col < grid.Cols; ++col)
                Put(row, col, texts[random() % 6]);
        Separate(round % 2 ? L"|~" : L"");
        std::wstring before = All();
        wchar_t* clip = ClipOfRange(grid, 0, 0, grid.Rows - 1, grid.Cols - 1, false);
        ASSERT_NE(clip, nullptr);
        bool startsWithBreak = false; // a line feed behind a carriage return is taken for a line end
        for (int row = 1; row < grid.Rows; ++row)
            startsWithBreak |= OwnText(row, 0) && OwnText(row, 0)[0] == L'\n';
        for (int row = 0; row < grid.Rows; ++row)
            for (int col = 0; col < grid.Cols; ++col)
                Put(row, col, L"stale");
        EXPECT_EQ(PutClip(grid, clip, 0, 0, grid.Rows - 1, grid.Cols - 1, false), S_OK);
        FreeBlock(clip);
        if (round % 2 || !startsWithBreak) {
            EXPECT_EQ(All(), before) << round;
        }
    }
}

} // namespace
