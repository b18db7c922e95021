#include "core/search.h"

#include "core/cell_store.h"
#include "core/row_col.h"
#include "platform/bstr.h"
#include "platform/variant.h"
#include "support/fakes.h"

#include <climits>
#include <limits>
#include <utility>
#include <vector>

namespace
{
// A variant of a test, owned.
struct Item : OwnedVariant {
    Item() = default;
    explicit Item(const wchar_t* text) { Type() = VT_BSTR, Get().bstrVal = SysAllocString(text); }
    explicit Item(int number) { Type() = VT_I4, Get().lVal = number; }
    explicit Item(double number) { Type() = VT_R8, Get().dblVal = number; }
    Item(Item&& other) noexcept { std::swap(Get(), other.Get()); }

    VARTYPE& Type() { return Get().vt; }
};

Item Typed(VARTYPE type)
{
    Item item;
    item.Type() = type;
    return item;
}
Item Short(VARTYPE type, short number)
{
    Item item = Typed(type);
    item.Get().iVal = number;
    return item;
}
Item Long(VARTYPE type, long number)
{
    Item item = Typed(type);
    item.Get().lVal = number;
    return item;
}
Item Single(float number)
{
    Item item = Typed(VT_R4);
    item.Get().fltVal = number;
    return item;
}
Item Double(VARTYPE type, double number)
{
    Item item = Typed(type);
    item.Get().dblVal = number;
    return item;
}
Item Money(long long units)
{
    Item item = Typed(VT_CY);
    item.Get().cyVal.int64 = units;
    return item;
}
Item Byte(unsigned char number)
{
    Item item = Typed(VT_UI1);
    item.Get().bVal = number;
    return item;
}
Item Decimal(BYTE scale, BYTE sign, ULONG high, ULONGLONG low)
{
    Item item;
    item.Get().decVal.scale = scale;
    item.Get().decVal.sign = sign;
    item.Get().decVal.Hi32 = high;
    item.Get().decVal.Lo64 = low;
    item.Type() = VT_DECIMAL;
    return item;
}
Item Object(VARTYPE type, IUnknown* object)
{
    Item item = Typed(type);
    item.Get().punkVal = object;
    if (object)
        object->AddRef();
    return item;
}
Item Bytes(const char* bytes, UINT length)
{
    Item item = Typed(VT_BSTR);
    item.Get().bstrVal = SysAllocStringByteLen(bytes, length);
    return item;
}

FindOptions In(int col, int row = 0, bool caseSensitive = true, bool fullMatch = true)
{
    return {row, col, caseSensitive, fullMatch};
}

// The row found, or a failure as its code.
long Find(Grid& grid, const VARIANT& item, const FindOptions& options)
{
    int found = 77;
    HRESULT result = FindRow(grid, item, options, found);
    if (FAILED(result)) {
        EXPECT_EQ(found, -1);
        return result;
    }
    return found;
}

// Texts in column 1; RowData is what a test stores.
class Search : public testing::Test
{
protected:
    void SetUp() override
    {
        ResizeRows(grid, 8);
        const wchar_t* texts[] = {L"Name",  L"Apple", L"apple pie", nullptr,
                                  L"APPLE", L"app",   L"10",        L"\x00E9t\x00E9"};
        for (int row = 0; row < 8; ++row)
            SetCellText(grid, row, 1, texts[row]);
        SetCellText(grid, 5, 2, L"Apple");
    }
    void Store(int row, const VARIANT& value)
    {
        ASSERT_EQ(StoreHeapVariant(grid.RowTable[row].RowData, value), S_OK);
    }

    Grid grid;
};

constexpr bool Case = true, NoCase = false, Full = true, Start = false;

TEST_F(Search, OfATextIsByDefaultForTheWholeCellInItsCaseFromTheFirstRow)
{
    EXPECT_EQ(Find(grid, Item(L"Apple").Get(), In(1)), 1);
    EXPECT_EQ(Find(grid, Item(L"APPLE").Get(), In(1)), 4);
    EXPECT_EQ(Find(grid, Item(L"apple").Get(), In(1)), -1);
    EXPECT_EQ(Find(grid, Item(L"Name").Get(), In(1)), 0) << "fixed rows are rows";
    EXPECT_EQ(Find(grid, Item(L"Apple").Get(), In(2)), 5);
    EXPECT_EQ(Find(grid, Item(L"Apple").Get(), In(3)), -1);
    FindOptions defaults;
    EXPECT_EQ(Find(grid, Item(L"Apple").Get(), defaults), -1)
        << "without a column the rows' data is searched";
}

TEST_F(Search, OfATextTakesStartingRowCaseAndLength)
{
    const struct {
        const wchar_t* Text;
        int Row;
        bool CaseSensitive, FullMatch;
        int Found;
    } rows[] = {
        {L"apple", 0, NoCase, Full, 1},
        {L"apple", 1, NoCase, Full, 1},
        {L"apple", 2, NoCase, Full, 4},
        {L"apple", 4, NoCase, Full, 4},
        {L"apple", 5, NoCase, Full, -1},
        {L"apple", 0, Case, Start, 2},
        {L"app", 0, Case, Start, 2},
        {L"app", 3, Case, Start, 5},
        {L"APP", 0, Case, Start, 4},
        {L"APP", 0, NoCase, Start, 1},
        {L"APP", 2, NoCase, Start, 2},
        {L"APP", 5, NoCase, Start, 5},
        {L"apple pie and", 0, NoCase, Start, -1}, // no cell is that long
        {L"apples", 0, NoCase, Start, -1},
        {L"ple", 0, NoCase, Start, -1},
        {L"\x00C9T\x00C9", 0, NoCase, Full, 7},
        {L"\x00C9T\x00C9", 0, Case, Full, -1},
        {L"Name", 1, Case, Full, -1},
        {L"Apple", -1, Case, Full, 1},
        {L"Apple", INT_MIN, Case, Full, 1},
        {L"Name", -5, Case, Full, 0},
        {L"Apple", 8, Case, Full, -1},
        {L"Apple", INT_MAX, Case, Full, -1},
        {L"", 0, Case, Full, -1},
        {L"", 0, NoCase, Start, -1},
        {L"10", 0, Case, Full, 6},
    };
    for (auto& row : rows)
        EXPECT_EQ(Find(grid, Item(row.Text).Get(), In(1, row.Row, row.CaseSensitive, row.FullMatch)),
                  row.Found)
            << row.Text << " from " << row.Row << (row.CaseSensitive ? " case" : "")
            << (row.FullMatch ? " full" : "");
}

TEST_F(Search, InAColumnTurnsTheItemIntoAText)
{
    EXPECT_EQ(Find(grid, Item(10).Get(), In(1)), 6);
    EXPECT_EQ(Find(grid, Item(10.0).Get(), In(1)), 6);
    EXPECT_EQ(Find(grid, Item(11).Get(), In(1)), -1);
    Item target(10);
    Item reference = Typed(VT_BYREF | VT_VARIANT);
    reference.Get().pvarVal = &target.Get();
    EXPECT_EQ(Find(grid, reference.Get(), In(1)), 6);
}

TEST_F(Search, OfWhatIsNoTextFindsNothing)
{
    FakeDispatch object;
    Item circle = Typed(VT_BYREF | VT_VARIANT);
    circle.Get().pvarVal = &circle.Get();
    std::vector<Item> items;
    for (int type : {int(VT_EMPTY), int(VT_NULL), int(VT_BSTR), VT_BYREF | VT_I4, VT_BYREF | VT_BSTR, 0x0FFF})
        items.push_back(Typed(static_cast<VARTYPE>(type)));
    items.emplace_back(L"");
    for (Item& item : items) {
        EXPECT_EQ(Find(grid, item.Get(), In(1)), -1) << item.Type();
        EXPECT_EQ(Find(grid, item.Get(), In(-1)), -1) << item.Type();
    }
    EXPECT_EQ(Find(grid, circle.Get(), In(1)), -1);
    EXPECT_EQ(Find(grid, circle.Get(), In(-1)), -1);
    Item held = Object(VT_DISPATCH, &object);
    EXPECT_EQ(Find(grid, held.Get(), In(1)), -1);
}

TEST_F(Search, ChecksTheColumnWhateverTheRow)
{
    for (int row : {0, -1, 8, INT_MAX, INT_MIN})
        for (int col : {grid.Cols, grid.Cols + 1, INT_MAX})
            EXPECT_EQ(Find(grid, Item(L"Apple").Get(), In(col, row)), LORV_E_INDEX) << row << " " << col;
    EXPECT_EQ(Find(grid, Item(L"").Get(), In(grid.Cols)), LORV_E_INDEX) << "before the item is looked at";
}

TEST_F(Search, ReadsTheStoredTextThroughItsSource)
{
    Grid source;
    SetCellText(source, 3, 1, L"bound");
    grid.BoundKind = BoundToGrid;
    grid.BoundGrid = &source;
    EXPECT_EQ(Find(grid, Item(L"bound").Get(), In(1)), 3);
    EXPECT_EQ(Find(grid, Item(L"Apple").Get(), In(1)), -1);
    grid.BoundKind = BoundNone;
}

TEST_F(Search, OfRowDataComparesValues)
{
    Store(2, Item(5).Get());
    Store(4, Item(L"Five").Get());
    Store(5, Item(5).Get());
    EXPECT_EQ(Find(grid, Item(5).Get(), In(-1)), 2);
    EXPECT_EQ(Find(grid, Item(5).Get(), In(-7, 3)), 5) << "any negative column";
    EXPECT_EQ(Find(grid, Item(5).Get(), In(INT_MIN, -10)), 2);
    EXPECT_EQ(Find(grid, Item(5).Get(), In(-1, 6)), -1);
    EXPECT_EQ(Find(grid, Item(5).Get(), In(-1, 8)), -1);
    EXPECT_EQ(Find(grid, Item(5.0).Get(), In(-1)), -1) << "a Double is no Long";
    EXPECT_EQ(Find(grid, Short(VT_I2, 5).Get(), In(-1)), -1);
    EXPECT_EQ(Find(grid, Item(L"5").Get(), In(-1)), -1);
    EXPECT_EQ(Find(grid, Item(L"Five").Get(), In(-1)), 4);
    EXPECT_EQ(Find(grid, Item(L"FIVE").Get(), In(-1)), -1);
    EXPECT_EQ(Find(grid, Item(L"FIVE").Get(), In(-1, 0, NoCase)), 4);
    EXPECT_EQ(Find(grid, Item(L"Fi").Get(), In(-1, 0, Case, Start)), 4);
    EXPECT_EQ(Find(grid, Typed(VT_EMPTY).Get(), In(-1)), -1) << "rows without data match nothing";
}

TEST_F(Search, ChangesNothing)
{
    grid.OptionWord &= ~OptionMergeStale;
    Find(grid, Item(L"Apple").Get(), In(1));
    Find(grid, Item(5).Get(), In(-1));
    EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    EXPECT_FALSE(grid.RequiresSave);
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.RowTable[3].Cells, nullptr);
}

// Values

struct Pair {
    const char* Name;
    Item First, Second;
    bool Same;
};

std::vector<Pair> Pairs(IUnknown* one, IUnknown* other)
{
    const float floatNan = std::numeric_limits<float>::quiet_NaN();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<Pair> pairs;
    auto add = [&](const char* name, Item first, Item second, bool same) {
        pairs.push_back({name, std::move(first), std::move(second), same});
    };
    add("I2", Short(VT_I2, -7), Short(VT_I2, -7), true);
    add("other I2", Short(VT_I2, 7), Short(VT_I2, 8), false);
    add("BOOL", Short(VT_BOOL, -1), Short(VT_BOOL, -1), true);
    add("two kinds of True", Short(VT_BOOL, -1), Short(VT_BOOL, 1), false);
    add("I2 and BOOL", Short(VT_I2, -1), Short(VT_BOOL, -1), false);
    add("I4", Long(VT_I4, 70000), Long(VT_I4, 70000), true);
    add("other I4", Long(VT_I4, 0x10007), Long(VT_I4, 0x20007), false);
    add("ERROR", Long(VT_ERROR, 5), Long(VT_ERROR, 5), true);
    add("other ERROR", Long(VT_ERROR, 0x10005), Long(VT_ERROR, 5), false);
    add("I4 and ERROR", Long(VT_I4, 5), Long(VT_ERROR, 5), false);
    add("R4", Single(1.5f), Single(1.5f), true);
    add("other R4", Single(1.5f), Single(1.25f), false);
    add("zeros of R4", Single(0.0f), Single(-0.0f), true);
    add("R4 not a number", Single(floatNan), Single(floatNan), false);
    add("R4 half a number", Single(floatNan), Single(1), false);
    add("R8", Double(VT_R8, 1e300), Double(VT_R8, 1e300), true);
    add("other R8", Double(VT_R8, 1), Double(VT_R8, 1.0000000001), false);
    add("zeros of R8", Double(VT_R8, 0.0), Double(VT_R8, -0.0), true);
    add("R8 not a number", Double(VT_R8, nan), Double(VT_R8, nan), false);
    add("DATE", Double(VT_DATE, 36526.5), Double(VT_DATE, 36526.5), true);
    add("other DATE", Double(VT_DATE, 36526.5), Double(VT_DATE, 36526.25), false);
    add("DATE not a number", Double(VT_DATE, nan), Double(VT_DATE, nan), false);
    add("R8 and DATE", Double(VT_R8, 2), Double(VT_DATE, 2), false);
    add("R4 and R8", Single(2), Double(VT_R8, 2), false);
    add("CY", Money(0x100000001), Money(0x100000001), true);
    add("other CY", Money(0x100000001), Money(0x200000001), false);
    add("DISPATCH", Object(VT_DISPATCH, one), Object(VT_DISPATCH, one), true);
    add("other DISPATCH", Object(VT_DISPATCH, one), Object(VT_DISPATCH, other), false);
    add("no DISPATCH", Object(VT_DISPATCH, nullptr), Object(VT_DISPATCH, nullptr), true);
    add("UNKNOWN", Object(VT_UNKNOWN, one), Object(VT_UNKNOWN, one), true);
    add("other UNKNOWN", Object(VT_UNKNOWN, one), Object(VT_UNKNOWN, other), false);
    add("DISPATCH and UNKNOWN", Object(VT_DISPATCH, one), Object(VT_UNKNOWN, one), false);
    add("DECIMAL", Decimal(2, 0x80, 0, 12345), Decimal(2, 0x80, 0, 12345), true);
    add("scale of DECIMAL", Decimal(2, 0, 0, 1000), Decimal(1, 0, 0, 1000), false);
    add("1.0 and 1.00", Decimal(1, 0, 0, 10), Decimal(2, 0, 0, 100), false);
    add("sign of DECIMAL", Decimal(2, 0, 0, 1), Decimal(2, 0x80, 0, 1), false);
    add("high part of DECIMAL", Decimal(2, 0, 1, 7), Decimal(2, 0, 2, 7), false);
    add("low half of DECIMAL", Decimal(2, 0, 0, 1), Decimal(2, 0, 0, 0x100000001), false);
    add("UI1", Byte(200), Byte(200), true);
    add("other UI1", Byte(200), Byte(201), false);
    add("EMPTY", Typed(VT_EMPTY), Typed(VT_EMPTY), false);
    add("NULL", Typed(VT_NULL), Typed(VT_NULL), false);
    add("I1", Long(VT_I1, 1), Long(VT_I1, 1), false);
    add("UI4", Long(VT_UI4, 1), Long(VT_UI4, 1), false);
    add("I8", Long(VT_I8, 1), Long(VT_I8, 1), false);
    add("INT", Long(VT_INT, 1), Long(VT_INT, 1), false);
    return pairs;
}

TEST(CompareVariants, ByType)
{
    FakeDispatch one, other;
    for (auto& [name, first, second, same] : Pairs(&one, &other))
        for (bool caseSensitive : {true, false})
            for (bool fullMatch : {true, false}) {
                EXPECT_EQ(CompareVariants(first.Get(), second.Get(), caseSensitive, fullMatch), same) << name;
                EXPECT_EQ(CompareVariants(second.Get(), first.Get(), caseSensitive, fullMatch), same) << name;
            }
}

TEST(CompareVariants, TextsByCaseAndLength)
{
    const struct {
        const wchar_t *First, *Second;
        bool CaseSensitive, FullMatch, Same;
    } rows[] = {
        {L"abc", L"abc", Case, Full, true},
        {L"abc", L"ABC", Case, Full, false},
        {L"abc", L"abcd", Case, Full, false},
        {L"abcd", L"abc", Case, Full, false},
        {L"", L"", Case, Full, true},
        {nullptr, L"", Case, Full, true},
        {L"", L"a", Case, Full, false},
        {L"a", nullptr, Case, Full, false},
        {L"abc", L"ABC", NoCase, Full, true},
        {L"abc", L"ABCD", NoCase, Full, false},
        {L"ABCD", L"abc", NoCase, Full, false},
        {nullptr, nullptr, NoCase, Full, true},
        {L"", L"a", NoCase, Full, false},
        {L"a", nullptr, NoCase, Full, false},
        {L"abc", L"abcd", Case, Start, true},
        {L"abc", L"ABCD", Case, Start, false},
        {L"abcd", L"abc", Case, Start, false},
        {L"abc", L"abc", Case, Start, true},
        {L"", L"", Case, Start, true},
        {L"a", L"", Case, Start, false},
        {L"", L"a", Case, Start, true}, // every text begins with nothing
        {L"", L"a", NoCase, Start, true},
        {nullptr, L"a", Case, Start, true},
        {L"abc", L"ABCD", NoCase, Start, true},
        {L"ABCD", L"abc", NoCase, Start, false},
        {nullptr, nullptr, NoCase, Start, true},
    };
    for (auto& row : rows) {
        Item first = Typed(VT_BSTR), second = Typed(VT_BSTR);
        first.Get().bstrVal = row.First ? SysAllocString(row.First) : nullptr;
        second.Get().bstrVal = row.Second ? SysAllocString(row.Second) : nullptr;
        EXPECT_EQ(CompareVariants(first.Get(), second.Get(), row.CaseSensitive, row.FullMatch), row.Same)
            << (row.First ? row.First : L"(null)") << " " << (row.Second ? row.Second : L"(null)");
    }
}

// With both conditions the bytes are compared, the odd one at the end and zeros between them included.
TEST(CompareVariants, WholeTextsInTheirCaseByteByByte)
{
    EXPECT_TRUE(CompareVariants(Bytes("abc", 3).Get(), Bytes("abc", 3).Get(), true, true));
    EXPECT_FALSE(CompareVariants(Bytes("abc", 3).Get(), Bytes("abd", 3).Get(), true, true));
    EXPECT_FALSE(CompareVariants(Bytes("abc", 3).Get(), Bytes("ab", 2).Get(), true, true));
    EXPECT_FALSE(CompareVariants(Bytes("a\0\0\0b\0", 6).Get(), Bytes("a\0\0\0c\0", 6).Get(), true, true));
    EXPECT_TRUE(CompareVariants(Bytes("a\0\0\0b\0", 6).Get(), Bytes("a\0\0\0b\0", 6).Get(), true, true));
    // the same accent in one unit and in two: equal to collation, not as bytes
    EXPECT_FALSE(CompareVariants(Item(L"\x00E9").Get(), Item(L"e\x0301").Get(), true, true));
}

TEST(CompareVariants, FollowsReferences)
{
    long number = 5, other = 6;
    Item direct(5), reference = Typed(VT_BYREF | VT_I4), unlike = Typed(VT_BYREF | VT_I4);
    reference.Get().plVal = &number;
    unlike.Get().plVal = &other;
    EXPECT_TRUE(CompareVariants(direct.Get(), reference.Get(), true, true));
    EXPECT_TRUE(CompareVariants(reference.Get(), direct.Get(), true, true));
    EXPECT_FALSE(CompareVariants(direct.Get(), unlike.Get(), true, true));
    Item outer = Typed(VT_BYREF | VT_VARIANT);
    outer.Get().pvarVal = &direct.Get();
    EXPECT_TRUE(CompareVariants(outer.Get(), reference.Get(), true, true));
    Item nowhere = Typed(VT_BYREF | VT_I4);
    EXPECT_FALSE(CompareVariants(direct.Get(), nowhere.Get(), true, true));
    EXPECT_FALSE(CompareVariants(nowhere.Get(), nowhere.Get(), true, true));
}

// Regular expressions

class RegexSearch : public Search
{
protected:
    long FindRegex(const wchar_t* pattern, int row, int col)
    {
        int found = 77;
        Bstr text(pattern);
        HRESULT result = FindRowRegex(grid, text.Get(), row, col, found);
        return FAILED(result) ? result : found;
    }
};

TEST_F(RegexSearch, FindsTheFirstRowThatMatches)
{
    const struct {
        const wchar_t* Pattern;
        int Row, Found;
    } rows[] = {
        {L"^app", 0, 2},      {L"^app", 3, 5},   {L"PL", 0, 4},    {L"[A-Z]ame", 0, 0},
        {L"[A-Z]ame", 1, -1}, {L"^\\d+$", 0, 6}, {L"p{2}l", 1, 1}, {L"nothing", 0, -1},
        {L"e$", 1, 1},        {L"e$", 2, 2},     {L"", 3, 4}, // matches every text, but a cell without one is
                                                              // passed over
    };
    for (auto& row : rows)
        EXPECT_EQ(FindRegex(row.Pattern, row.Row, 1), row.Found) << row.Pattern << " from " << row.Row;
}

TEST_F(RegexSearch, StartsAtTheFirstScrollableRowWhenTheRowIsNone)
{
    for (int row : {-1, INT_MIN, 8, INT_MAX}) {
        EXPECT_EQ(FindRegex(L"e", row, 1), 1) << row;
        EXPECT_EQ(FindRegex(L"Name", row, 1), -1) << row;
    }
    EXPECT_EQ(FindRegex(L"Name", 0, 1), 0);
}

TEST_F(RegexSearch, ChecksTheColumnFirst)
{
    for (int col : {-1, INT_MIN, grid.Cols, INT_MAX})
        EXPECT_EQ(FindRegex(L"[", 0, col), LORV_E_INDEX) << col;
}

TEST_F(RegexSearch, ReportsAPatternThatTheEngineRefuses)
{
    long result = FindRegex(L"(", 0, 1);
    EXPECT_TRUE(result < -1) << result << ": the code of the first test";
    EXPECT_EQ(FindRegex(L"(", 0, 3), -1) << "no text, no test";
}

TEST_F(RegexSearch, BearsNoPatternAndNoRows)
{
    int found = 77;
    EXPECT_EQ(FindRowRegex(grid, nullptr, 3, 1, found), S_OK);
    EXPECT_EQ(found, 4);
    ResizeRows(grid, 0);
    EXPECT_EQ(FindRegex(L"a", 0, 1), -1);
    EXPECT_EQ(Find(grid, Item(L"a").Get(), In(1)), -1);
}
} // namespace
