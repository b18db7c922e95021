#include "core/format_string.h"

#include "core/cell_store.h"
#include "core/check_state.h"
#include "core/format_text.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "platform/gdi.h"
#include "shell/members/members.h"
#include "support/fakes.h"

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace
{
constexpr DISPID FormatStringId = 10, CellChangedId = 43;

// A control around a grid that writes down which of its column members are set, and stores nothing.
class ColumnMembers final : public GridMembers
{
public:
    ColumnMembers() { Outer = static_cast<ILorvGrid*>(this); }
    ~ColumnMembers() { Outer = nullptr; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        bool known = iid == IID_IUnknown || iid == IID_ILorvGrid;
        *out = known ? static_cast<ILorvGrid*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE put_ColWidth(LONG col, LONG value) override
    {
        return Note(L"Width", col, std::to_wstring(value));
    }
    HRESULT STDMETHODCALLTYPE put_ColAlignment(LONG col, AlignmentSettings value) override
    {
        Note(L"Alignment", col, std::to_wstring(value));
        return GridMembers::put_ColAlignment(col, value);
    }
    HRESULT STDMETHODCALLTYPE put_FixedAlignment(LONG col, AlignmentSettings value) override
    {
        Note(L"FixedAlignment", col, std::to_wstring(value));
        return GridMembers::put_FixedAlignment(col, value);
    }
    HRESULT STDMETHODCALLTYPE put_ColFormat(LONG col, BSTR value) override
    {
        return Note(L"Format", col, value);
    }
    HRESULT STDMETHODCALLTYPE put_ColEditMask(LONG col, BSTR value) override
    {
        return Note(L"Mask", col, value);
    }
    HRESULT STDMETHODCALLTYPE put_ColComboList(LONG col, BSTR value) override
    {
        return Note(L"List", col, value);
    }
    HRESULT STDMETHODCALLTYPE put_ColDataType(LONG col, DataTypeSettings value) override
    {
        return Note(L"Type", col, std::to_wstring(value));
    }
    HRESULT STDMETHODCALLTYPE put_ColHidden(LONG col, VARIANT_BOOL value) override
    {
        return Note(L"Hidden", col, std::to_wstring(value));
    }
    HRESULT STDMETHODCALLTYPE put_ColKey(LONG col, BSTR value) override { return Note(L"Key", col, value); }
    HRESULT STDMETHODCALLTYPE put_ColIndent(LONG col, LONG value) override
    {
        return Note(L"Indent", col, std::to_wstring(value));
    }

    // The calls so far, apart by blanks: "Width0=100".
    std::wstring Calls;
    std::wstring Refused; // the call that fails
    HRESULT Refusal = LORV_E_VALUE;

private:
    HRESULT Note(const wchar_t* member, LONG col, const std::wstring& value)
    {
        std::wstring call = member + std::to_wstring(col) + L"=" + value;
        Calls += (Calls.empty() ? L"" : L" ") + call;
        return call == Refused ? Refusal : S_OK;
    }
};

// 5 rows by 4 columns, of which the first are fixed.
class Formats : public testing::Test
{
protected:
    AmbientHost host;
    EventSink events;
    PropertySink properties;
    ColumnMembers grid;
    Connection eventConnection{grid.EventSinks, &events};
    Connection propertyConnection{grid.PropertySinks, &properties};

    Formats() { Reset(5, 4); }
    void Reset(int rows, int cols)
    {
        ResizeBoth(grid, 0, 0);
        ResizeBoth(grid, rows, cols);
        SetFixedCounts(grid, rows ? 1 : 0, cols ? 1 : 0, 0, 0);
        grid.Calls.clear();
        properties.Taken();
    }
    void Apply(const wchar_t* text) { EXPECT_EQ(SetFormatString(grid, text), S_OK); }

    int Measured(const std::wstring& text) { return Extent(text).cx; }
    SIZE Extent(const std::wstring& text)
    {
        ScreenDC screen;
        SelectedObject font(screen.Get(), GridFontHandle(grid));
        SIZE size = {};
        GetTextExtentPoint32W(screen.Get(), text.c_str(), static_cast<int>(text.size()), &size);
        return size;
    }
    int Width(int col) const { return grid.ColTable[col].Width; }
    int Alignment(int col) const { return grid.ColTable[col].Alignment; }
    std::wstring Text(int row, int col)
    {
        const wchar_t* text = GetCellText(grid, row, col);
        return text ? text : L"";
    }
    std::wstring TextsOfRow(int row)
    {
        std::wstring texts;
        for (int col = 0; col < grid.Cols; ++col)
            texts += (col ? L"," : L"") + Text(row, col);
        return texts;
    }
    std::wstring TextsOfCol(int col)
    {
        std::wstring texts;
        for (int row = 0; row < grid.Rows; ++row)
            texts += (row ? L"," : L"") + Text(row, col);
        return texts;
    }
    void BecomeDesigner()
    {
        host.UserMode = false;
        host.Attach(grid);
    }
};

// --- columns

TEST_F(Formats, ItemsGiveAlignmentTitleAndWidth)
{
    Apply(L"<Name|>Amount|^Date|Other");
    EXPECT_EQ(TextsOfRow(0), L"Name,Amount,Date,Other");
    const struct {
        int Alignment;
        const wchar_t* Title;
    } columns[] = {{lorvAlignLeftCenter, L"Name"},
                   {lorvAlignRightCenter, L"Amount"},
                   {lorvAlignCenterCenter, L"Date"},
                   {lorvAlignGeneral, L"Other"}};
    for (int col = 0; col < 4; ++col) {
        EXPECT_EQ(Alignment(col), columns[col].Alignment) << col;
        EXPECT_EQ(Width(col), Measured(columns[col].Title) + 8) << col;
    }
    EXPECT_EQ(lorvAlignLeftCenter, 1);
    EXPECT_EQ(lorvAlignRightCenter, 7);
    EXPECT_EQ(lorvAlignCenterCenter, 4);
    EXPECT_EQ(lorvAlignGeneral, 9);
}

TEST_F(Formats, FewerItemsLeaveTheOtherColumnsAlone)
{
    SetCellText(grid, 0, 3, L"kept");
    grid.ColTable[3].Width = 77;
    grid.ColTable[3].Alignment = lorvAlignRightTop;
    Apply(L"A|B");
    EXPECT_EQ(TextsOfRow(0), L"A,B,,kept");
    EXPECT_EQ(grid.Cols, 4);
    EXPECT_EQ(Width(2), -1);
    EXPECT_EQ(Width(3), 77);
    EXPECT_EQ(Alignment(3), lorvAlignRightTop);
}

TEST_F(Formats, MoreItemsAddColumns)
{
    Apply(L"A|B\tC|D|E\tF");
    EXPECT_EQ(grid.Cols, 6);
    EXPECT_EQ(TextsOfRow(0), L"A,B,C,D,E,F");
    Apply(L"A|");
    EXPECT_EQ(grid.Cols, 6) << "there are never fewer";
    Apply(L"||||||");
    EXPECT_EQ(grid.Cols, 7);
    EXPECT_EQ(TextsOfRow(0), L",,,,,,") << "empty items are items";
}

TEST_F(Formats, OnlyAFirstCharacterAligns)
{
    Apply(L"a<b|<>c| ^d|>");
    EXPECT_EQ(TextsOfRow(0), L"a<b,>c,^d,");
    EXPECT_EQ(Alignment(0), lorvAlignGeneral);
    EXPECT_EQ(Alignment(1), lorvAlignLeftCenter);
    EXPECT_EQ(Alignment(2), lorvAlignGeneral);
    EXPECT_EQ(Alignment(3), lorvAlignRightCenter);
}

TEST_F(Formats, WidthsCountTheBlanksThatTitlesLose)
{
    Apply(L"<  Name   |\x01 x \x1F");
    EXPECT_EQ(Text(0, 0), L"Name");
    EXPECT_EQ(Width(0), Measured(L"  Name   ") + 8);
    EXPECT_EQ(Text(0, 1), L"x");
}

TEST_F(Formats, AnItemOfBlanksIsAnEmptyTitleThatIsWide)
{
    SetCellText(grid, 0, 0, L"old");
    SetCellText(grid, 0, 1, L"old");
    Apply(L"     |");
    EXPECT_EQ(grid.RowTable[0].Cells[0].Text, nullptr);
    EXPECT_EQ(Width(0), Measured(L"     ") + 8);
    EXPECT_EQ(grid.RowTable[0].Cells[1].Text, nullptr);
    EXPECT_EQ(Width(1), 8) << "an empty item has no width but the margins";
    EXPECT_EQ(Alignment(1), lorvAlignGeneral);
}

TEST_F(Formats, TheFirstLineOfAnItemIsMeasured)
{
    Apply(L"ab\rmuch longer|c");
    EXPECT_EQ(Width(0), Measured(L"ab") + 8);
    EXPECT_EQ(Text(0, 0), L"ab\rmuch longer");
    EXPECT_EQ(Text(0, 1), L"c");
}

TEST_F(Formats, AnEqualSignMakesScrollableColumnsEquallyWide)
{
    Apply(L"=<a title that is the widest|b|a wider one|c");
    EXPECT_EQ(TextsOfRow(0), L"a title that is the widest,b,a wider one,c");
    EXPECT_EQ(Alignment(0), lorvAlignLeftCenter);
    EXPECT_EQ(Width(0), Measured(L"a title that is the widest") + 8) << "fixed columns do not take part";
    for (int col = 1; col < 4; ++col)
        EXPECT_EQ(Width(col), Measured(L"a wider one") + 8) << col;
    Apply(L" =x");
    EXPECT_EQ(Text(0, 0), L"=x") << "elsewhere it is text";
}

// --- row titles

TEST_F(Formats, ASemicolonStartsRowTitles)
{
    Apply(L"|A|B;|North|>South|  West ");
    EXPECT_EQ(TextsOfCol(0), L",North,>South,West,") << "an alignment mark is text here";
    EXPECT_EQ(TextsOfRow(0), L",A,B,");
    EXPECT_EQ(Width(0), std::max(Measured(L">South"), Measured(L"  West ")) + 8);
    EXPECT_EQ(grid.Rows, 5);
}

TEST_F(Formats, RowTitlesOnlyWidenTheFirstColumn)
{
    Apply(L"a rather wide corner;|b\rc");
    EXPECT_EQ(Width(0), Measured(L"a rather wide corner") + 8);
    EXPECT_EQ(Text(0, 0), L"") << "an empty row item clears its cell, the corner too";
    EXPECT_EQ(Text(1, 0), L"b\rc");
    Apply(L"x;y|a much wider title\rwith a second line that is wider still");
    EXPECT_EQ(Width(0), Measured(L"a much wider title") + 8);
    EXPECT_EQ(Text(0, 0), L"y");
}

TEST_F(Formats, MoreRowTitlesAddRows)
{
    Apply(L";a|b|c\td|e|f|g");
    EXPECT_EQ(grid.Rows, 7);
    EXPECT_EQ(TextsOfCol(0), L"a,b,c,d,e,f,g");
    Apply(L"A;");
    EXPECT_EQ(grid.Rows, 7);
    EXPECT_EQ(TextsOfCol(0), L",b,c,d,e,f,g");
}

TEST_F(Formats, ASecondSemicolonIsText)
{
    Apply(L"A;x;y|z");
    EXPECT_EQ(TextsOfCol(0), L"x;y,z,,,");
}

// --- what an assignment keeps, and says

TEST_F(Formats, AtRunTimeNothingIsWiped)
{
    SetCellText(grid, 2, 2, L"kept");
    SetCheckState(grid, 2, 2, lorvChecked);
    grid.RowTable[2].Height = 33;
    grid.ColTable[2].Width = 44;
    Apply(L"A");
    Apply(L"");
    EXPECT_EQ(Text(0, 0), L"A");
    EXPECT_EQ(Text(2, 2), L"kept");
    EXPECT_EQ(CheckStateOf(grid, 2, 2), lorvChecked);
    EXPECT_EQ(grid.RowTable[2].Height, 33);
    EXPECT_EQ(Width(2), 44);
}

TEST_F(Formats, ADesignerStartsFromAnEmptyGrid)
{
    for (const wchar_t* text : {L"A", L""}) {
        Reset(5, 4);
        SetCellText(grid, 2, 2, L"gone");
        SetCheckState(grid, 2, 2, lorvChecked);
        EnsureCellFormat(grid, 2, 2)->ForeColor = 5;
        grid.RowTable[2].Height = 33;
        grid.ColTable[2].Width = 44;
        grid.DesignModeCache = -1;
        if (!grid.AmbientProperties)
            BecomeDesigner();
        Apply(text);
        EXPECT_EQ(Text(2, 2), L"");
        EXPECT_EQ(CheckStateOf(grid, 2, 2), lorvNoCheckbox);
        EXPECT_EQ(CellFormatOf(grid, 2, 2), nullptr);
        EXPECT_EQ(grid.RowTable[2].Height, -1);
        EXPECT_EQ(Width(2), -1);
        EXPECT_EQ(Text(0, 0), text);
        EXPECT_EQ(grid.Rows, 5);
        EXPECT_EQ(grid.Cols, 4);
    }
}

TEST_F(Formats, ADesignersEmptyGridKeepsNoMergeLinks)
{
    BecomeDesigner();
    SetOption(grid, OptionMergeStale, false);
    Apply(L"");
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST_F(Formats, RowsAreMeasuredEvenForAnEmptyText)
{
    int expected = Extent(L"Hj").cy + 4;
    for (const wchar_t* text : {L"", L"A", L"(Format)\v0\v"}) {
        grid.DefaultRowHeight = 1;
        Apply(text);
        EXPECT_EQ(grid.DefaultRowHeight, expected) << text;
    }
}

TEST_F(Formats, TheTextIsKeptAndNotifiedEachTime)
{
    for (int time = 0; time < 2; ++time) {
        grid.RequiresSave = false;
        Apply(L"<A|B");
        EXPECT_STREQ(grid.FormatString, L"<A|B");
        EXPECT_EQ(properties.Taken(), std::vector<DISPID>{FormatStringId});
        EXPECT_TRUE(grid.RequiresSave);
    }
    Apply(nullptr);
    EXPECT_EQ(grid.FormatString, nullptr);
    EXPECT_EQ(properties.Taken(), std::vector<DISPID>{FormatStringId});
}

TEST_F(Formats, NewWidthsMakeASpillStale)
{
    SetOption(grid, OptionMergeStale, false);
    Apply(L"");
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    grid.MergeCells = lorvMergeSpill;
    Apply(L"");
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST_F(Formats, AHandlerMayShrinkTheGridMeanwhile)
{
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == CellChangedId)
            ResizeBoth(grid, 1, 1);
    };
    Apply(L"=A|B|C;x|y|z\n1\t2\t\n3\t");
    EXPECT_EQ(grid.Cols, 1);
    events.On = nullptr;
    Reset(3, 3);
    events.On = [&](DISPID id, DISPPARAMS&) {
        if (id == CellChangedId)
            SetFormatString(grid, nullptr);
    };
    Apply(L"A|B|C");
    EXPECT_EQ(grid.FormatString, nullptr);
    EXPECT_EQ(TextsOfRow(0), L"A,B,C");
}

TEST_F(Formats, WantOfMemoryIsReported)
{
    long steps = WithEachAllocationFailing([] {
        Grid grid;
        HRESULT result = SetFormatString(grid, L"A|B|C|D|E|F|G|H|I|J|K|L;x|y\n1\t");
        EXPECT_TRUE(result == S_OK || result == LORV_E_MEMORY) << result;
    });
    EXPECT_GT(steps, 10);
}

TEST_F(Formats, AGridThatCannotGrowKeepsTheTextAndTakesNoTitles)
{
    // The text and its private copy come first.
    for (const wchar_t* text : {L"A|B|C|D|E", L"A;1|2|3|4|5|6"}) {
        std::wstring wide = std::wstring(text) + std::wstring(200, L'|');
        FailingAllocation failing(3);
        EXPECT_EQ(SetFormatString(grid, wide.c_str()), LORV_E_MEMORY);
        EXPECT_STREQ(grid.FormatString, wide.c_str());
        EXPECT_EQ(grid.Cols, 4);
        EXPECT_EQ(grid.Rows, 5);
        EXPECT_EQ(TextsOfRow(0), L",,,");
        EXPECT_EQ(properties.Taken(), std::vector<DISPID>{});
    }
}

// --- a record per column behind the titles

TEST_F(Formats, LinesBehindTheTitlesSetTheColumnsThroughTheirMembers)
{
    Apply(L"A|B;x|y\n"
          L"1440\t1\t4\t0.00\t##\tx|y;z\t5\t1\t\n"
          L"\n"
          L"900\t7\t\n");
    EXPECT_EQ(grid.Calls, L"Width0=1440 Alignment0=1 FixedAlignment0=4 Format0=0.00 Mask0=## List0=x|y;z "
                          L"Type0=5 Hidden0=1 Width2=900 Alignment2=7");
    EXPECT_EQ(TextsOfRow(0), L"x,B,,");
}

TEST_F(Formats, TitlesMayBeMissingBeforeTheRecords)
{
    Apply(L"\n1440\t");
    EXPECT_EQ(grid.Calls, L"Width0=1440");
}

TEST_F(Formats, NumbersAreReadAsFarAsTheyGo)
{
    Apply(L"A\n 12x\t\t-0\t\t\t\t99999999999\t-1\t");
    EXPECT_EQ(grid.Calls, L"Width0=12 Alignment0=0 FixedAlignment0=0 Format0= Mask0= List0= "
                          L"Type0=2147483647 Hidden0=-1");
}

TEST_F(Formats, RecordsEndAtTheLastColumnAndTheEighthField)
{
    Reset(2, 2);
    Apply(L"A\n1\t1\t1\t\t\t\t1\t1\tkey\t60\t\n2\t\n3\t\n");
    EXPECT_EQ(grid.Calls, L"Width0=1 Alignment0=1 FixedAlignment0=1 Format0= Mask0= List0= Type0=1 Hidden0=1 "
                          L"Width1=2");
}

TEST_F(Formats, ARefusedFieldLeavesThatSettingAlone)
{
    Apply(L"A|B\n1\t99\t4\t\n2\t1\t");
    EXPECT_EQ(grid.Calls, L"Width0=1 Alignment0=99 FixedAlignment0=4 Width1=2 Alignment1=1");
    EXPECT_EQ(Alignment(0), lorvAlignGeneral);
    EXPECT_EQ(grid.ColTable[0].FixedAlignment, 4);
}

TEST_F(Formats, WantOfMemoryInARecordEndsTheReading)
{
    grid.Refused = L"Format0=0.00";
    for (HRESULT code : {LORV_E_MEMORY, E_OUTOFMEMORY}) {
        grid.Refusal = code;
        for (const wchar_t* text :
             {L"A|B\n1\t1\t1\t0.00\t##\t\n2\t", L"(Format)\v2\v1\t1\t1\t0.00\t##\t\v2\t"}) {
            grid.Calls.clear();
            EXPECT_EQ(SetFormatString(grid, text), code);
            EXPECT_EQ(grid.Calls, L"Width0=1 Alignment0=1 FixedAlignment0=1 Format0=0.00");
            EXPECT_EQ(properties.Taken(), std::vector<DISPID>{});
        }
    }
}

// --- the record form

TEST_F(Formats, TheRecordFormSetsTenFieldsPerColumn)
{
    Apply(L"(Format)\v2\v1440\t1\t4\t0.00\t##\ta|b\t5\t1\tkey\t60\tmore\t\v900\t7\t\v");
    EXPECT_EQ(grid.Calls,
              L"Width0=1440 Alignment0=1 FixedAlignment0=4 Format0=0.00 Mask0=## List0=a|b Type0=5 "
              L"Hidden0=1 Key0=key Indent0=60 Width1=900 Alignment1=7");
    EXPECT_EQ(TextsOfRow(0), L",,,");
}

TEST_F(Formats, RecordsEndAtTheirCountAndAtTheLastColumn)
{
    struct {
        const wchar_t* Text;
        const wchar_t* Calls;
    } const cases[] = {
        {L"(Format)\v1\v1\t\v2\t\v3\t\v", L"Width0=1"},
        {L"(Format)\v9\v1\t\v2\t\v3\t\v4\t\v5\t\v", L"Width0=1 Width1=2 Width2=3 Width3=4"},
        {L"(Format)\v9\v1\t\v\v3\t", L"Width0=1 Width2=3"},
        {L"(Format)\v0\v1\t\v", L""},
        {L"(Format)\v-1\v1\t\v", L""},
        {L"(Format)\vx\v1\t\v", L""},
        {L"(Format)\v2", L""},
        {L"(Format)\v", L""},
    };
    for (const auto& c : cases) {
        grid.Calls.clear();
        Apply(c.Text);
        EXPECT_EQ(grid.Calls, c.Calls);
        EXPECT_EQ(grid.Cols, 4);
    }
}

TEST_F(Formats, TheHeadStandsInItsOwnCase)
{
    Apply(L"(format)\v1\v1\t");
    EXPECT_EQ(Text(0, 0), L"(format)\v1\v1");
    Apply(L"(Format)");
    EXPECT_EQ(Text(0, 0), L"(Format)");
    EXPECT_EQ(grid.Calls, L"");
}

// The grid's own records write general for both where the fixed cells follow their column.
TEST_F(Formats, FixedCellsFollowTheirColumnInTheRecordForm)
{
    Apply(L"(Format)\v3\v1\t9\t9\t\v1\t7\t9\t\v1\t7\t7\t\v");
    EXPECT_EQ(grid.ColTable[0].FixedAlignment, Unset);
    EXPECT_EQ(grid.ColTable[1].FixedAlignment, lorvAlignGeneral);
    EXPECT_EQ(grid.ColTable[2].FixedAlignment, lorvAlignRightCenter);
    EXPECT_EQ(grid.Calls.find(L"FixedAlignment0"), std::wstring::npos);
    Apply(L"A\n1\t9\t9\t");
    EXPECT_EQ(grid.ColTable[0].FixedAlignment, lorvAlignGeneral) << "lines behind titles say what they say";
}

TEST_F(Formats, ATextSectionFillsTheCells)
{
    SetCellText(grid, 0, 1, L"kept");
    Apply(L"(Format)\v1\v1\t\v(Text)\vA\t\tC\v\vx\ty\tz\tw\tbeyond\v");
    EXPECT_EQ(grid.Calls, L"Width0=1");
    EXPECT_EQ(TextsOfRow(0), L"A,kept,C,") << "an empty cell of the text leaves the cell alone";
    EXPECT_EQ(TextsOfRow(1), L",,,");
    EXPECT_EQ(TextsOfRow(2), L"x,y,z,w");
    EXPECT_EQ(grid.Cols, 4);
}

TEST_F(Formats, TheTextSectionIsFoundInAnyCase)
{
    for (const wchar_t* text :
         {L"(Format)\v0\v(TEXT)\vA", L"(Format)\v9\v(text)\vA", L"(Format)\v0\vx(Text)\vA"}) {
        Reset(2, 2);
        Apply(text);
        EXPECT_EQ(Text(0, 0), L"A") << text;
        EXPECT_EQ(grid.Calls, L"") << text;
    }
    Reset(2, 2);
    Apply(L"(Format)\v0\v(Text)A");
    EXPECT_EQ(Text(0, 0), L"");
}

TEST_F(Formats, TextsEndAtTheLastRow)
{
    Reset(2, 2);
    Apply(L"(Format)\v0\v(Text)\va\vb\vc\vd");
    EXPECT_EQ(TextsOfCol(0), L"a,b");
    EXPECT_EQ(grid.Rows, 2);
}

TEST_F(Formats, RowsGrowWithTheLinesOfTheirCells)
{
    grid.RowTable[0].Height = 33;
    Apply(L"(Format)\v0\v(Text)\va\tb\va\nb\tc\nd\ne\v\t\t\t\tf\ng\va\rb");
    int line = grid.DefaultRowHeight - 4;
    EXPECT_EQ(grid.RowTable[0].Height, 33) << "a row of one line keeps its height";
    EXPECT_EQ(grid.RowTable[1].Height, 3 * line + 4);
    EXPECT_EQ(grid.RowTable[2].Height, 2 * line + 4) << "a cell past the last column counts";
    EXPECT_EQ(grid.RowTable[3].Height, -1) << "line feeds are lines";
    EXPECT_EQ(Text(1, 1), L"c\nd\ne");
}

TEST_F(Formats, ARowIsNeverHigherThanTheCeiling)
{
    std::wstring text = L"(Format)\v0\v(Text)\v" + std::wstring(5000, L'\n');
    Apply(text.c_str());
    EXPECT_EQ(grid.RowTable[0].Height, MaxPixels);
}

TEST_F(Formats, WithoutAControlThereAreNoRecords)
{
    Grid plain;
    EXPECT_EQ(SetFormatString(plain, L"A|B\n1\t1\t"), S_OK);
    EXPECT_STREQ(GetCellText(plain, 0, 1), L"B");
    EXPECT_EQ(SetFormatString(plain, L"(Format)\v1\v1\t\v(Text)\v\tC"), S_OK);
    EXPECT_STREQ(GetCellText(plain, 0, 1), L"C");
}

// --- the grammar

TEST(FormatText, NumbersAreReadAsTheRuntimeReadsThem)
{
    struct {
        const wchar_t* Text;
        int Number;
    } const cases[] = {
        {L"", 0},
        {L"7", 7},
        {L"-7", -7},
        {L"+7", 7},
        {L" \t\n7", 7},
        {L"7.9", 7},
        {L"x7", 0},
        {L"- 7", 0},
        {L"--7", 0},
        {L"0x10", 0},
        {L"007", 7},
        {L"2147483647", INT_MAX},
        {L"2147483648", INT_MAX},
        {L"-2147483648", INT_MIN},
        {L"-99999999999999999999", INT_MIN},
    };
    for (const auto& c : cases) {
        std::wstring text = c.Text;
        EXPECT_EQ(NumberOf({text.data(), text.data() + text.size()}), c.Number) << c.Text;
    }
}

TEST(FormatText, PartsAndTheirCountAgree)
{
    for (std::wstring text : {L"", L"a", L"a|", L"|", L"|a\tb||", L"\t\t"}) {
        TextSpan whole = {text.data(), text.data() + text.size()};
        TextParts parts(whole, L"|\t");
        TextSpan part;
        int count = 0;
        while (parts.Next(part))
            ++count;
        EXPECT_EQ(count, CountParts(whole, L"|\t")) << text;
        EXPECT_TRUE(parts.Ended());
    }
}

} // namespace
