// What the members of cells, rows and columns repaint, and that none of them notifies.

#include "support/grid_window.h"
#include "support/member_grid.h"

#include "platform/bstr.h"

namespace
{
enum class Area { Nothing, Cell, Selection, All };

// What a call brings about beside its own work.
struct Effects {
    Area Painted = Area::Nothing;
    bool Layout = false;
    bool MergeStale = false;
};

struct Case {
    const char* Name;
    HRESULT (*Call)(MemberGrid&);
    Effects Expected;
};

HRESULT Write(MemberGrid& grid, CellPropertySettings setting, const Value& value)
{
    return grid.put_Cell(setting, Value(2), Value(1), missing, missing, value);
}

constexpr Effects nothing = {};
constexpr Effects theCell = {Area::Cell};
constexpr Effects theCellAndMerges = {Area::Cell, false, true};
constexpr Effects theSelection = {Area::Selection};
constexpr Effects all = {Area::All};
constexpr Effects allAndMerges = {Area::All, false, true};
constexpr Effects allAndLayout = {Area::All, true};
constexpr Effects everything = {Area::All, true, true};

#define CALL(call) [](MemberGrid& g) -> HRESULT { return call; }
const Case cases[] = {
    {"TextMatrix", CALL(g.put_TextMatrix(2, 1, Bstr(L"x").Get())), theCellAndMerges},
    {"TextMatrix, unchanged", CALL(g.put_TextMatrix(2, 1, nullptr)), theCell},
    {"TextArray", CALL(g.put_TextArray(11, Bstr(L"x").Get())), theCellAndMerges},
    {"Text", CALL(g.put_Text(Bstr(L"x").Get())), theCellAndMerges},
    {"CellBackColor", CALL(g.put_CellBackColor(1)), theCell},
    {"CellFontBold", CALL(g.put_CellFontBold(VARIANT_TRUE)), theCell},
    {"CellFontName, empty", CALL(g.put_CellFontName(nullptr)), theCell},
    {"CellPicture", CALL(g.put_CellPicture(nullptr)), theCell},
    {"CellChecked", CALL(g.put_CellChecked(lorvChecked)), theCellAndMerges},
    {"CellBackColor, filling", CALL((g.FillStyle = lorvFillRepeat, g.put_CellBackColor(1))), theSelection},
    {"CellChecked, merged",
     CALL((g.MergeCells = lorvMergeSpill, g.put_CellChecked(lorvChecked))),
     {Area::All, false, true}},
    {"Cell(lorvcpText)", CALL(Write(g, lorvcpText, L"x")), theCellAndMerges},
    {"Cell(lorvcpAlignment)", CALL(Write(g, lorvcpAlignment, 1)), theCell},
    {"Cell(lorvcpData)", CALL(Write(g, lorvcpData, 1)), theCell},
    {"Cell(lorvcpCustomFormat)", CALL(Write(g, lorvcpCustomFormat, false)), theCell},
    {"Cell(lorvcpRefresh)", CALL(Write(g, lorvcpRefresh, 0)), theCell},
    {"Cell(lorvcpSort)", CALL(Write(g, lorvcpSort, lorvSortGenericAscending)), allAndLayout},
    {"CellBorder, no side", CALL(g.CellBorder(1, -1, -1, -1, -1, -1, -1)), theSelection},
    {"CellBorderRange, no side", CALL(g.CellBorderRange(4, 3, 4, 3, 1, -1, -1, -1, -1, -1, -1)),
     theSelection},
    {"RowData", CALL(g.put_RowData(-1, Value(1))), nothing},
    {"ColData", CALL(g.put_ColData(-1, Value(1))), nothing},
    {"RowStatus", CALL(g.put_RowStatus(-1, lorvrsModified)), nothing},
    {"ColKey", CALL(g.put_ColKey(-1, Bstr(L"x").Get())), nothing},
    {"ColImageList", CALL(g.put_ColImageList(1, 0)), all},
    {"ColFormat", CALL(g.put_ColFormat(1, Bstr(L"$0").Get())), all},
    {"ColAlignment", CALL(g.put_ColAlignment(1, lorvAlignLeftTop)), all},
    {"FixedAlignment", CALL(g.put_FixedAlignment(1, lorvAlignLeftTop)), all},
    {"ColDataType", CALL(g.put_ColDataType(1, lorvDTBoolean)), allAndMerges},
    {"ColIndent", CALL(g.put_ColIndent(1, 300)), allAndLayout},
    {"ColHidden", CALL(g.put_ColHidden(1, VARIANT_TRUE)), allAndLayout},
    {"RowHidden", CALL(g.put_RowHidden(1, VARIANT_TRUE)), allAndLayout},
    {"RowPosition", CALL(g.put_RowPosition(2, 4)), allAndMerges},
    {"RowPosition, the same", CALL(g.put_RowPosition(2, 2)), nothing},
    {"ColPosition", CALL(g.put_ColPosition(2, 4)), allAndMerges},
    {"ColPosition, the same", CALL(g.put_ColPosition(2, 2)), nothing},
    {"AddItem", CALL(g.AddItem(nullptr, missing)), everything},
    {"RemoveItem", CALL(g.RemoveItem(Value(4))), everything},
    {"Clear", CALL(g.Clear(missing, missing)), everything},
    {"Clear, selection", CALL(g.Clear(Value(lorvClearSelection), Value(lorvClearText))), everything},
    {"Sort", CALL(g.put_Sort(lorvSortGenericAscending)), everything},
    {"Sort, none", CALL(g.put_Sort(lorvSortNone)), nothing},
    {"Sort, one row by name", CALL(g.put_Cell(lorvcpSort, Value(2), Value(1), Value(2), Value(1), Value(1))),
     allAndLayout},
    {"ColSort", CALL(g.put_ColSort(-1, lorvSortStringAscending)), nothing},
    {"MergeRow", CALL(g.put_MergeRow(2, VARIANT_TRUE)), allAndMerges},
    {"MergeCol", CALL(g.put_MergeCol(1, VARIANT_TRUE)), allAndMerges},
    {"Clip, empty", CALL((SetCellText(g, 2, 1, L"x"), ValidateRect(g.Window, nullptr), g.put_Clip(nullptr))),
     theCellAndMerges},
    {"Clip", CALL(g.put_Clip(Bstr(L"a\tb\rc\td").Get())), {Area::Selection, false, true}},
    {"Clear, nowhere", CALL((g.Clear(Value(3), missing), S_OK)), nothing},
};
#undef CALL

// 31 rows of 20 pixels by 5 columns of 50 in a window; cells (2,1) to (3,2) are selected.
class MemberRepaints : public testing::Test
{
protected:
    MemberRepaints()
    {
        ResizeBoth(grid, 31, 5);
        for (int row = 0; row < grid.Rows; ++row)
            grid.RowTable[row].Height = 20;
        for (int col = 0; col < grid.Cols; ++col)
            grid.ColTable[col].Width = 50;
        grid.Row = 2, grid.Col = 1, grid.RowSel = 3, grid.ColSel = 2;
        grid.Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                      nullptr, nullptr, nullptr);
        RecalculateLayout(grid);
        SetOption(grid, OptionMergeStale, false);
        grid.RequiresSave = false;
        grid.MaxTopRow = NoLayoutYet;
        ValidateRect(grid.Window, nullptr);
    }
    ~MemberRepaints() override { DestroyWindow(std::exchange(grid.Window, nullptr)); }

    RECT Invalid()
    {
        RECT update = {};
        GetUpdateRect(grid.Window, &update, FALSE);
        ValidateRect(grid.Window, nullptr);
        return update;
    }
    RECT Expected(Area area)
    {
        RECT expected = {};
        if (area == Area::Cell)
            expected = CellRect(grid, 2, 1);
        else if (area == Area::All)
            GetClientRect(grid.Window, &expected);
        else if (area == Area::Selection)
            RepaintSelection(grid), expected = Invalid();
        return expected;
    }

    static constexpr int NoLayoutYet = -77; // a layout replaces it
    MemberGrid grid;
    PropertySink sink;
    Connection connection{grid.PropertySinks, &sink};
};

class MemberRepaintsOf : public MemberRepaints, public testing::WithParamInterface<Case>
{
};

TEST_P(MemberRepaintsOf, AreTheseAndNoMore)
{
    const Case& member = GetParam();
    ASSERT_EQ(member.Call(grid), S_OK);
    RECT painted = Invalid(), expected = Expected(member.Expected.Painted);
    EXPECT_TRUE(EqualRect(&painted, &expected) || (IsRectEmpty(&painted) && IsRectEmpty(&expected)))
        << painted.left << "," << painted.top << " to " << painted.right << "," << painted.bottom;
    EXPECT_EQ(grid.MaxTopRow != NoLayoutYet, member.Expected.Layout);
    EXPECT_EQ(HasOption(grid, OptionMergeStale), member.Expected.MergeStale);
    EXPECT_EQ(sink.Changed.size(), 0u);
    EXPECT_FALSE(grid.RequiresSave);
}

INSTANTIATE_TEST_SUITE_P(Members, MemberRepaintsOf, testing::ValuesIn(cases),
                         [](const testing::TestParamInfo<Case>& info) {
                             std::string name;
                             for (const char* at = info.param.Name; *at; ++at)
                                 if (isalnum(static_cast<unsigned char>(*at)))
                                     name += *at;
                             return name;
                         });

// The rows that end the sheet are others once the new row has gone to its place.
TEST_F(MemberRepaints, ALayoutFollowsTheRowsThatMoved)
{
    grid.RowTable[30].Height = 120;
    ASSERT_EQ(grid.AddItem(nullptr, Value(1)), S_OK);
    int most = grid.MaxTopRow;
    RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, most);
    ASSERT_EQ(grid.RemoveItem(Value(31)), S_OK);
    most = grid.MaxTopRow;
    RecalculateLayout(grid);
    EXPECT_EQ(grid.MaxTopRow, most);
}

TEST_F(MemberRepaints, ACellIsNotPaintedWhileRedrawIsOff)
{
    grid.Redraw = lorvRDNone;
    EXPECT_EQ(grid.put_TextMatrix(2, 1, Bstr(L"x").Get()), S_OK);
    RECT painted = Invalid();
    EXPECT_TRUE(IsRectEmpty(&painted));
}
} // namespace
