// Delimited text: how fields are cut and quoted, what is written, and how a grid grows.
#include "core/value_format.h"
#include "file_samples.h"
#include "files/delimited_reader.h"
#include "platform/bstr.h"
#include "support/fakes.h"

#include <memory>

namespace
{
struct Fields {
    bool Utf16 = false;
    DelimitedFormat Format = {',', '\r'};
    std::string LeadBytes = {};

    // "[a|b]" per row; a cut field is followed by "+".
    std::wstring Read(const std::string& text) const
    {
        bool leadBytes[256] = {};
        for (char byte : LeadBytes)
            leadBytes[static_cast<uint8_t>(byte)] = true;
        MemoryReader source(text.data(), text.size());
        auto reader = std::make_unique<DelimitedReader>(source, Utf16, Format, leadBytes);
        std::wstring seen = L"[";
        for (;;) {
            FieldEnd end = reader->Next();
            if (end == FieldEnd::Empty)
                return seen.substr(0, seen.size() - 1);
            seen += reader->Text();
            switch (end) {
            case FieldEnd::Col:
                seen += L'|';
                break;
            case FieldEnd::Row:
                seen += L"][";
                break;
            case FieldEnd::Cut:
                seen += L'+';
                break;
            default:
                return seen + L"]";
            }
        }
    }
};

TEST(DelimitedReader, CutsFieldsAtSeparators)
{
    struct {
        const char* Text;
        const wchar_t* Expected;
    } cases[] = {
        {"", L""},
        {"a", L"[a]"},
        {"a,b", L"[a|b]"},
        {"a,b\r\n", L"[a|b]"},
        {"a,b\n", L"[a|b]"},
        {"a,b\r", L"[a|b]"},
        {"a\r\nb\nc\rd", L"[a][b][c][d]"},
        {"\r\n\n\r", L"[][][]"},
        {"a,", L"[a|]"},
        {"a,\r\n", L"[a|]"},
        {",", L"[|]"},
        {"a,b,\r\n,,\r\n", L"[a|b|][||]"},
        {"a\r\r\nb", L"[a][][b]"},
        {"a\tb", L"[a\tb]"},
        {"a\x1A,b", L"[a]"},
        {"\xE9,\xFF", L"[\xE9|\xFF]"},
    };
    for (auto& c : cases)
        EXPECT_EQ(Fields{}.Read(c.Text), c.Expected) << c.Text;
}

TEST(DelimitedReader, ReadsQuotes)
{
    struct {
        const char* Text;
        const wchar_t* Expected;
    } cases[] = {
        {"\"a,b\",c", L"[a,b|c]"},
        {"\"a\"\"b\"", L"[a\"b]"},
        {"\"\"\"\"", L"[\"]"},
        {"\"\"\"\",x", L"[\"|x]"},
        {"\"\"", L"[]"},
        {"\"\",x", L"[|x]"},
        {"\"\"\"a\"\"\"", L"[\"a\"]"},
        {"a\"b,c", L"[a\"b|c]"},
        {"a\"\"b,c", L"[a\"b|c]"},
        {"a\",c", L"[a\"|c]"},
        {"a\"", L"[a\"]"},
        {"\"ab\"cd,e", L"[abcd|e]"},
        {"\"ab\"c\"d,e", L"[abc\"d|e]"},
        {"\"a\r\nb\"", L"[a\nb]"},
        {"\"a\rb\nc\",d", L"[a\rb\nc|d]"},
        {"\"open,\r\nend", L"[open,\nend]"},
        {"\"", L"[]"},
        {"x,\"", L"[x|]"},
        {"\"\"\"", L"[]"},
        {"\"a\"\r\n\"b\"", L"[a][b]"},
    };
    for (auto& c : cases)
        EXPECT_EQ(Fields{}.Read(c.Text), c.Expected) << c.Text;
}

TEST(DelimitedReader, ReadsUtf16WithoutTouchingLineEndsInQuotes)
{
    struct {
        const wchar_t* Text;
        const wchar_t* Expected;
    } cases[] = {
        {L"a,\x20AC\r\nb", L"[a|\x20AC][b]"},
        {L"a\rb\nc\r\n", L"[a][b][c]"},
        {L"a\r", L"[a]"},
        {L"a\r\r\nb", L"[a][][b]"},
        {L"\"a\r\nb\"", L"[a\r\nb]"},
        {L"a\x1A"
         L"b",
         L"[a\x1A"
         L"b]"},
        {L"\xFFFE", L"[\xFFFE]"},
    };
    for (auto& c : cases)
        EXPECT_EQ((Fields{true}.Read(Utf16(c.Text))), c.Expected);
    EXPECT_EQ((Fields{true}.Read(Utf16(L"ab") + "c")), L"[ab]") << "half a unit is none";
}

TEST(DelimitedReader, CutsAtOtherSeparatorsToo)
{
    EXPECT_EQ((Fields{false, {';', '|'}}.Read("a;b|c\nd\re")), L"[a|b][c][d\re]");
    EXPECT_EQ((Fields{false, {';', 0}}.Read(std::string("a;b\0c;\nd", 8))), L"[a|b][c|][d]");
    EXPECT_EQ((Fields{true, {';', '|'}}.Read(Utf16(L"a\r\nb|c"))), L"[a\r][b][c]");
    EXPECT_EQ((Fields{false, {'\r', ';'}}.Read("a\rb;c")), L"[a][b][c]")
        << "CR ends a row whatever it separates";
}

// The second byte of a character is never a separator or a quote.
TEST(DelimitedReader, KeepsTheBytesOfADoubleByteCharacterTogether)
{
    Fields fields;
    fields.LeadBytes = "\x83";
    EXPECT_EQ(fields.Read("\x83,\x83\",x\x83\n,y"), L"[\x83,\x83\"|x\x83\n|y]");
    EXPECT_EQ(fields.Read("a\x83"), L"[a\x83]");
    EXPECT_EQ(Fields{}.Read("\x83,y"), L"[\x83|y]");
}

TEST(DelimitedReader, HandsOutLongFieldsInPieces)
{
    const std::string full(65536, 'x');
    const std::wstring wide(65536, L'x');
    EXPECT_TRUE(Fields{}.Read(full + ",b") == L"[" + wide + L"|b]");
    EXPECT_TRUE(Fields{}.Read(full) == L"[" + wide + L"]");
    EXPECT_TRUE(Fields{}.Read(full + "yz,b") == L"[" + wide + L"+yz|b]");
    EXPECT_TRUE(Fields{}.Read("\"" + full + "\",b") == L"[" + wide + L"|b]");
    EXPECT_TRUE(Fields{}.Read("\"" + full + "\"\"\",b") == L"[" + wide + L"+\",b]")
        << "the rest begins with a quote";
    EXPECT_TRUE(Fields{}.Read("\"" + full + full + "\"") == L"[" + wide + L"+" + wide + L"+]");
    EXPECT_TRUE((Fields{true}.Read(Utf16(wide + L"y\r\nb"))) == L"[" + wide + L"+y][b]");
}

// Line ends fall on every place of the blocks that a file is read in.
TEST(DelimitedReader, JoinsLineEndsAcrossBlocks)
{
    for (size_t length : {65534, 65535, 65536}) {
        std::string text(length, ' ');
        text[0] = ',';
        std::wstring expected = L"[|" + std::wstring(length - 1, L' ') + L"][b]";
        EXPECT_EQ(Fields{}.Read(text + "\r\nb"), expected) << length;
    }
}

TEST(LoadDelimitedText, FillsFromTheFirstScrollableCellAndGrows)
{
    SmallGrid grid(2, 2);
    grid.Set(0, 0, L"fixed");
    ASSERT_EQ(S_OK, LoadText(grid, "a,b,c\r\nd\r\n\r\ne", lorvFileCommaText));
    EXPECT_EQ(grid.Rows, 5);
    EXPECT_EQ(grid.Cols, 4);
    EXPECT_EQ(grid.Text(0, 0), L"fixed");
    EXPECT_EQ(grid.Text(1, 3), L"c");
    EXPECT_EQ(grid.Text(2, 1), L"d");
    EXPECT_EQ(grid.Text(4, 1), L"e");
    EXPECT_EQ(grid.RowCapacity, 100);
}

TEST(LoadDelimitedText, StartsAtTheCornerWithTheFixedCells)
{
    SmallGrid grid(2, 2);
    ASSERT_EQ(S_OK, LoadText(grid, "a\tb\r\nc\td", lorvFileTabText, DelimitedIncludeFixed));
    EXPECT_EQ(grid.Text(0, 0), L"a");
    EXPECT_EQ(grid.Text(1, 1), L"d");
    EXPECT_EQ(grid.Rows, 2);
}

TEST(LoadDelimitedText, KeepsCellsThatTheTextHasNothingFor)
{
    SmallGrid grid(4, 4);
    grid.Set(1, 3, L"kept");
    grid.Set(3, 1, L"kept");
    grid.Set(1, 1, L"cleared");
    ASSERT_EQ(S_OK, LoadText(grid, ",b", lorvFileCommaText));
    EXPECT_EQ(grid.Text(1, 1), L"");
    EXPECT_EQ(grid.Text(1, 2), L"b");
    EXPECT_EQ(grid.Text(1, 3), L"kept");
    EXPECT_EQ(grid.Text(3, 1), L"kept");
    EXPECT_EQ(grid.Rows, 4);
}

TEST(LoadDelimitedText, ReadsTheKindWithoutANameAsTabs)
{
    SmallGrid grid(2, 2);
    grid.ClipSeparators = SysAllocString(L";|");
    ASSERT_EQ(S_OK, LoadText(grid, "a;b|c\td", 7));
    EXPECT_EQ(grid.Text(1, 1), L"a;b|c");
    EXPECT_EQ(grid.Text(1, 2), L"d");
    ASSERT_EQ(S_OK, LoadText(grid, "a;b|c", lorvFileCustomText));
    EXPECT_EQ(grid.Text(1, 1), L"a");
    EXPECT_EQ(grid.Text(2, 1), L"c");
}

TEST(LoadDelimitedText, OverwritesTheSameCellWithTheRestOfALongField)
{
    SmallGrid grid(2, 3);
    std::string text(65536, 'x');
    text += "rest,b";
    ASSERT_EQ(S_OK, LoadText(grid, text, lorvFileCommaText));
    EXPECT_EQ(grid.Text(1, 1), L"rest");
    EXPECT_EQ(grid.Text(1, 2), L"b");
}

TEST(LoadDelimitedText, HoldsRedrawBackAndGivesItBack)
{
    SmallGrid grid(2, 2);
    grid.Redraw = lorvRDBuffered;
    EventSink sink;
    Connection connection(grid.EventSinks, &sink);
    int seen = -1;
    sink.On = [&](DISPID, DISPPARAMS&) { seen = grid.Redraw; };
    ASSERT_EQ(S_OK, LoadText(grid, "a", lorvFileCommaText));
    EXPECT_EQ(seen, lorvRDNone);
    EXPECT_EQ(grid.Redraw, lorvRDBuffered);
}

TEST(LoadDelimitedText, GrowsToTheCellThatIsStored)
{
    SmallGrid grid(1, 1);
    EventSink sink;
    Connection connection(grid.EventSinks, &sink);
    std::vector<std::pair<int, int>> sizes;
    sink.On = [&](DISPID, DISPPARAMS&) { sizes.emplace_back(grid.Rows, grid.Cols); };
    ASSERT_EQ(S_OK, LoadText(grid, "a,b\nc,d,e", lorvFileCommaText, DelimitedIncludeFixed));
    EXPECT_EQ(sizes, (std::vector<std::pair<int, int>>{{1, 1}, {1, 2}, {2, 2}, {2, 2}, {2, 3}}));
}

TEST(LoadDelimitedText, SizesTheColumnsThatItReached)
{
    SmallGrid grid(2, 4);
    SetOption(grid, OptionAutoResize, true);
    ASSERT_EQ(S_OK, LoadText(grid, "a,a much longer text", lorvFileCommaText));
    EXPECT_EQ(grid.ColTable[0].Width, UnsetLength);
    EXPECT_GT(grid.ColTable[1].Width, 0);
    EXPECT_GT(grid.ColTable[2].Width, grid.ColTable[1].Width);
    EXPECT_EQ(grid.ColTable[3].Width, UnsetLength);
    SetOption(grid, OptionAutoResize, false);
    grid.ColTable[1].Width = 5;
    ASSERT_EQ(S_OK, LoadText(grid, "a,b", lorvFileCommaText));
    EXPECT_EQ(grid.ColTable[1].Width, 5);
}

TEST(LoadDelimitedText, ShowsTheFirstScreenOnceWhenThereAre500Rows)
{
    std::string text;
    for (int row = 0; row < 510; ++row)
        text += "x\n";
    SmallGrid grid(1, 1);
    EventSink sink;
    Connection connection(grid.EventSinks, &sink);
    int changes = 0;
    sink.On = [&](DISPID id, DISPPARAMS&) {
        if (id != CellChangedId)
            return;
        ++changes;
        if (changes == 500 || changes == 502)
            grid.TopRow = 77;
        if (changes == 501)
            EXPECT_EQ(grid.TopRow, grid.FixedRows);
        if (changes == 503)
            EXPECT_EQ(grid.TopRow, 77);
    };
    ASSERT_EQ(S_OK, LoadText(grid, text, lorvFileCommaText, DelimitedIncludeFixed));
    EXPECT_EQ(changes, 510);
    EXPECT_EQ(grid.RowCapacity, 600) << "no room that was made ahead is kept";
}

// A line of very many separators costs no more than its columns do.
TEST(LoadDelimitedText, BearsVeryWideTexts)
{
    SmallGrid grid(2, 2);
    std::string text(20000, ',');
    text += 'x';
    ASSERT_EQ(S_OK, LoadText(grid, text, lorvFileCommaText));
    EXPECT_EQ(grid.Cols, 20002);
    EXPECT_EQ(grid.Text(1, 20001), L"x");
}

TEST(LoadDelimitedText, EndsWhenTheMemoryDoes)
{
    long allocations = WithEachAllocationFailing([] {
        SmallGrid grid(2, 2);
        HRESULT result = LoadText(grid, "a,b,c\nd,e,f,g\nh", lorvFileCommaText);
        EXPECT_TRUE(result == S_OK || result == LORV_E_MEMORY);
    });
    EXPECT_GT(allocations, 10);
}

TEST(LoadDelimitedText, SurvivesAHandlerThatTakesTheGridAway)
{
    for (int moment = 1; moment < 8; ++moment) {
        SmallGrid grid(2, 2);
        EventSink sink;
        Connection connection(grid.EventSinks, &sink);
        int events = 0;
        sink.On = [&](DISPID, DISPPARAMS&) {
            if (++events == moment) {
                ResizeRows(grid, 0);
                ResizeCols(grid, moment % 3);
            }
        };
        EXPECT_EQ(S_OK, LoadText(grid, "a,b,c\nd,e,f,g\nh\ni", lorvFileCommaText));
        EXPECT_EQ(grid.Text(4, 1), L"i");
    }
}

// The grid of the tests of saving: r0c0 r0c1 / r1c0 r1c1
struct FourCells : SmallGrid {
    FourCells() : SmallGrid(2, 2)
    {
        Set(0, 0, L"a");
        Set(0, 1, L"b");
        Set(1, 0, L"c");
        Set(1, 1, L"d");
    }
};

TEST(SaveDelimitedText, SeparatesByKind)
{
    FourCells grid;
    struct {
        int Kind;
        const wchar_t* Separators;
        std::string Expected;
    } cases[] = {
        {lorvFileCommaText, L";|", "a,b\r\nc,d"},
        {lorvFileTabText, L";|", "a\tb\r\nc\td"},
        {lorvFileCustomText, nullptr, "a\tb\r\nc\td"},
        {lorvFileCustomText, L";|", "a;b|c;d"},
        {lorvFileCustomText, L";\r", "a;b\r\nc;d"},
        {lorvFileCustomText, L";\n", "a;b\r\nc;d"},
        {lorvFileCustomText, L";;", "a\tb\r\nc\td"},
        {lorvFileCustomText, L"", "a\tb\r\nc\td"},
        {lorvFileCustomText, L";", std::string("a;b\0c;d", 7)},
    };
    for (auto& c : cases) {
        SysFreeString(grid.ClipSeparators);
        grid.ClipSeparators = c.Separators ? SysAllocString(c.Separators) : nullptr;
        EXPECT_EQ(SavedText(grid, c.Kind, DelimitedIncludeFixed), c.Expected);
    }
}

TEST(SaveDelimitedText, QuotesWhatHasToBe)
{
    struct {
        const wchar_t* Text;
        const char* Expected;
    } cases[] = {
        {L"plain text", "plain text"},
        {L"a,b", "\"a,b\""},
        {L"a\tb", "\"a\tb\""},
        {L"a\"b", "\"a\"\"b\""},
        {L"\"", "\"\"\"\""},
        {L"a\nb", "\"a\r\nb\""},
        {L"a\r\nb", "\"a\r\nb\""},
        {L"a\rb", "\"ab\""},
        {L"a;b", "a;b"},
        {L"'x'", "'x'"},
        {L" x ", " x "},
    };
    for (auto& c : cases) {
        SmallGrid grid(1, 1), other(1, 1);
        grid.Set(0, 0, c.Text);
        EXPECT_EQ(SavedText(grid, lorvFileCommaText, DelimitedIncludeFixed), c.Expected);
    }
    SmallGrid grid(1, 2);
    grid.ClipSeparators = SysAllocString(L";|");
    grid.Set(0, 0, L"a;b");
    grid.Set(0, 1, L"a|b\rc");
    EXPECT_EQ(SavedText(grid, lorvFileCustomText, DelimitedIncludeFixed), "\"a;b\";\"a|bc\"");
    grid.Set(0, 0, L"a\rb");
    EXPECT_EQ(SavedText(grid, lorvFileCustomText, DelimitedIncludeFixed), "ab;\"a|bc\"")
        << "a CR is dropped without quotes too";
}

TEST(SaveDelimitedText, LeavesOutFixedCellsUnlessAsked)
{
    FourCells grid;
    EXPECT_EQ(SavedText(grid, lorvFileCommaText), "d");
    grid.FixedCols = 2;
    grid.FixedRows = 0;
    EXPECT_EQ(SavedText(grid, lorvFileCommaText), "\r\n") << "rows without columns are empty lines";
    grid.FixedRows = 2;
    EXPECT_EQ(SavedText(grid, lorvFileCommaText), "");
}

TEST(SaveDelimitedText, LeavesOutHiddenRowsAndColumnsWhenAsked)
{
    struct {
        int HiddenRow, HiddenCol;
        const char* Expected;
    } cases[] = {
        {-1, -1, "a,b\r\nc,d"}, {0, -1, "c,d"}, {1, -1, "a,b\r\n"}, {-1, 0, "b\r\nd"}, {-1, 1, "a,\r\nc,"},
    };
    for (auto& c : cases) {
        FourCells grid;
        if (c.HiddenRow >= 0)
            grid.RowTable[c.HiddenRow].Flags |= RowFlagHidden;
        if (c.HiddenCol >= 0)
            grid.ColTable[c.HiddenCol].ColFlags |= ColFlagHidden;
        EXPECT_EQ(SavedText(grid, lorvFileCommaText, DelimitedIncludeFixed | DelimitedVisibleOnly),
                  c.Expected);
        EXPECT_EQ(SavedText(grid, lorvFileCommaText, DelimitedIncludeFixed), "a,b\r\nc,d");
    }
}

TEST(SaveDelimitedText, WritesUtf16WithItsMarkAndWholeLineEnds)
{
    FourCells grid;
    grid.Set(0, 1, L"\x20AC\ny");
    EXPECT_EQ(SavedText(grid, lorvFileTabText, DelimitedIncludeFixed | DelimitedUtf16),
              Utf16(L"\xFEFF"
                    L"a\t\"\x20AC\ny\"\r\nc\td"));
    grid.ClipSeparators = SysAllocString(L";|");
    EXPECT_EQ(SavedText(grid, lorvFileCustomText, DelimitedIncludeFixed | DelimitedUtf16),
              Utf16(L"\xFEFF"
                    L"a;\"\x20AC\ny\"|c;d"));
}

TEST(SaveDelimitedText, LeavesOutWhatIsNoByte)
{
    SmallGrid grid(1, 1);
    grid.Set(0, 0, L"\xE9\x20AC\xFF\x12C!");
    EXPECT_EQ(SavedText(grid, lorvFileCommaText, DelimitedIncludeFixed), "\xE9\xFF!");
}

TEST(SaveDelimitedText, WritesWhatTheCellsShow)
{
    SmallGrid grid(1, 2);
    SetColFormat(grid, 0, L"0.00");
    grid.Set(0, 0, L"1.5");
    ASSERT_STREQ(GetDisplayText(grid, 0, 0), L"1.50");
    EXPECT_EQ(SavedText(grid, lorvFileCommaText, DelimitedIncludeFixed), "1.50,");
}

// What is saved comes back, whatever is in the cells; only a CR does not.
TEST(SaveDelimitedText, IsReadBack)
{
    const wchar_t* texts[] = {L"",   L"\"",    L"\"\"",  L"a\"b",   L"\"a",   L"a\"",  L",",
                              L",,", L"a,b",   L"a\nb",  L"\n",     L"\t",    L" ",    L";",
                              L"|",  L"\";\"", L"x;y|z", L"a\"\"b", L"\",\"", L"\xE9", L"\"\n\""};
    constexpr int count = static_cast<int>(std::size(texts));
    for (int kind : {lorvFileCommaText, lorvFileTabText, lorvFileCustomText}) {
        for (unsigned flags : {0u, unsigned{DelimitedUtf16}}) {
            SmallGrid grid(count + 1, 4), other(2, 2);
            grid.ClipSeparators = SysAllocString(L";|");
            other.ClipSeparators = SysAllocString(L";|");
            for (int row = 0; row < count; ++row)
                for (int col = 0; col < 3; ++col)
                    grid.Set(row + 1, col + 1, texts[(row + col * 5) % count]);
            std::string text = SavedText(grid, kind, flags);
            ASSERT_EQ(S_OK, LoadText(other, flags ? text.substr(2) : text, kind, flags));
            ASSERT_EQ(other.Rows, grid.Rows);
            for (int row = 1; row <= count; ++row)
                for (int col = 1; col <= 3; ++col)
                    EXPECT_EQ(other.Text(row, col), grid.Text(row, col)) << row << " " << col << " " << kind;
        }
    }
}
} // namespace
