#include "core/property_frame.h"
#include "core/row_col.h"
#include "platform/bstr.h"
#include "platform/dpi.h"
#include "support/fakes.h"
#include "support/member_grid.h"

#include <commctrl.h>

#include <climits>
#include <functional>
#include <string>

namespace
{
std::wstring TextAt(Grid& grid, int row, int col)
{
    const wchar_t* text = GetCellText(grid, row, col);
    return text ? text : L"(none)";
}

// Data, status and image lists

TEST(RowDataMember, KeepsAnyValueAndTakesANegativeRowForAll)
{
    MemberGrid grid;
    Value read, number(5);
    ASSERT_EQ(grid.get_RowData(1, &read.Get()), S_OK);
    EXPECT_EQ(Describe(read), L"EMPTY");
    ASSERT_EQ(grid.put_RowData(-7, Value::To(number.Get())), S_OK);
    for (int row : {0, 1, 49}) {
        OwnedVariant data;
        ASSERT_EQ(grid.get_RowData(row, data.Put()), S_OK);
        EXPECT_EQ(Describe(data.Get()), L"I4 5");
    }
    ASSERT_EQ(grid.put_RowData(1, Value(L"one")), S_OK);
    OwnedVariant data;
    ASSERT_EQ(grid.get_RowData(1, data.Put()), S_OK);
    EXPECT_EQ(Describe(data.Get()), L"BSTR one");
    for (int bad : {-1, 50})
        EXPECT_EQ(grid.get_RowData(bad, data.Put()), LORV_E_INDEX);
    EXPECT_EQ(grid.put_RowData(50, number), LORV_E_INDEX);
    EXPECT_EQ(grid.get_RowData(1, nullptr), E_POINTER);
    EXPECT_FALSE(grid.RequiresSave);
}

TEST(ColDataMember, KeepsAnyValueAndTakesANegativeColumnForAll)
{
    MemberGrid grid;
    OwnedVariant data;
    ASSERT_EQ(grid.get_ColData(1, data.Put()), S_OK);
    EXPECT_EQ(Describe(data.Get()), L"EMPTY");
    ASSERT_EQ(grid.put_ColData(-1, Value(5)), S_OK);
    ASSERT_EQ(grid.get_ColData(9, data.Put()), S_OK);
    EXPECT_EQ(Describe(data.Get()), L"I4 5");
    for (int bad : {-1, 10})
        EXPECT_EQ(grid.get_ColData(bad, data.Put()), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColData(10, Value(5)), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColData(1, nullptr), E_POINTER);
}

TEST(RowDataMember, SurvivesDataThatShrinksTheGridWhenItGoes)
{
    FakeDispatch object;
    MemberGrid grid;
    ASSERT_EQ(grid.put_RowData(3, Value(&object)), S_OK);
    object.OnLastRelease = [&] { ResizeRows(grid, 2); };
    EXPECT_EQ(grid.put_RowData(-1, Value(1)), S_OK);
    EXPECT_EQ(grid.Rows, 2);
}

// A walk past the end finds deleted rows, not an error.
TEST(RowStatusMember, OfARowOutsideIsDeleted)
{
    MemberGrid grid;
    RowStatusSettings status = lorvrsNew;
    for (int row : {-1, 50, INT_MIN, INT_MAX}) {
        EXPECT_EQ(grid.get_RowStatus(row, &status), S_OK);
        EXPECT_EQ(status, lorvrsDeleted);
    }
    EXPECT_EQ(grid.get_RowStatus(1, &status), S_OK);
    EXPECT_EQ(status, lorvrsNew);
    EXPECT_EQ(grid.put_RowStatus(50, lorvrsUpdated), LORV_E_INDEX);
    EXPECT_EQ(grid.put_RowStatus(1, static_cast<RowStatusSettings>(0x1FE)), S_OK);
    EXPECT_EQ(grid.RowTable[1].Status, 0xFE) << "a byte, unchecked";
    EXPECT_EQ(grid.put_RowStatus(-2, lorvrsModified), S_OK);
    EXPECT_EQ(grid.RowTable[0].Status, lorvrsModified);
    EXPECT_EQ(grid.RowTable[49].Status, lorvrsModified);
    EXPECT_EQ(grid.get_RowStatus(1, nullptr), E_POINTER);
}

TEST(ColImageListMember, TakesImageListsAndNothingElse)
{
    MemberGrid grid;
    HIMAGELIST list = ImageList_Create(16, 16, ILC_COLOR, 1, 1);
    ASSERT_NE(list, nullptr);
    auto handle = reinterpret_cast<LONG_PTR>(list);
    LONG read = -1;
    EXPECT_EQ(grid.put_ColImageList(-1, handle), S_OK);
    EXPECT_EQ(grid.get_ColImageList(9, &read), S_OK);
    EXPECT_EQ(read, static_cast<LONG>(handle));
    EXPECT_EQ(grid.ColTable[9].ColImageList, list);
    LONG_PTR noList[8] = {};
    EXPECT_EQ(grid.put_ColImageList(1, reinterpret_cast<LONG_PTR>(noList)), LORV_E_VALUE);
    EXPECT_EQ(grid.put_ColImageList(99, reinterpret_cast<LONG_PTR>(noList)), LORV_E_VALUE)
        << "before the index";
    EXPECT_EQ(grid.put_ColImageList(10, handle), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColImageList(1, 0), S_OK);
    EXPECT_EQ(grid.get_ColImageList(1, &read), S_OK);
    EXPECT_EQ(read, 0);
    EXPECT_EQ(grid.get_ColImageList(-1, &read), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColImageList(1, nullptr), E_POINTER);
    grid.put_ColImageList(-1, 0);
    ImageList_Destroy(list);
}

TEST(CellBorderMember, GoesAroundTheSelection)
{
    MemberGrid grid;
    grid.Row = 4, grid.RowSel = 2, grid.Col = 3, grid.ColSel = 5;
    ASSERT_EQ(grid.CellBorder(7, 1, 1, 1, 1, -1, -1), S_OK);
    EXPECT_EQ(CellFormatOf(grid, 2, 3)->BorderTop, 1);
    EXPECT_EQ(CellFormatOf(grid, 4, 5)->BorderRight, 1);
    EXPECT_EQ(CellFormatOf(grid, 3, 4), nullptr);
    grid.SelectionMode = lorvSelectionByRow;
    ASSERT_EQ(grid.CellBorder(7, 2, -1, 2, -1, -1, -1), S_OK);
    EXPECT_EQ(CellFormatOf(grid, 3, 1)->BorderLeft, 2);
    EXPECT_EQ(CellFormatOf(grid, 3, 9)->BorderRight, 2);
    grid.Row = -1;
    EXPECT_EQ(grid.CellBorder(7, 1, 1, 1, 1, 1, 1), LORV_E_INDEX);
    EXPECT_EQ(grid.CellBorderRange(0, 0, 50, 0, 7, 1, 1, 1, 1, 1, 1), LORV_E_INDEX);
}

// Rows and columns

TEST(AlignmentMembers, CheckTheIndexAndThenTheValue)
{
    MemberGrid grid;
    AlignmentSettings read = lorvAlignLeftTop;
    EXPECT_EQ(grid.put_ColAlignment(10, lorvAlignLeftCenter), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColAlignment(10, static_cast<AlignmentSettings>(13)), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColAlignment(0, static_cast<AlignmentSettings>(13)), LORV_E_VALUE);
    EXPECT_EQ(grid.put_ColAlignment(-1, static_cast<AlignmentSettings>(-1)), LORV_E_VALUE);
    EXPECT_EQ(grid.put_FixedAlignment(0, static_cast<AlignmentSettings>(100)), LORV_E_VALUE);
    EXPECT_EQ(grid.put_FixedAlignment(10, lorvAlignLeftTop), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColAlignment(0, &read), S_OK);
    EXPECT_EQ(read, lorvAlignGeneral);
    EXPECT_EQ(grid.put_ColAlignment(-1, lorvAlignRightBottom), S_OK);
    EXPECT_EQ(grid.get_ColAlignment(9, &read), S_OK);
    EXPECT_EQ(read, lorvAlignRightBottom);
    for (int bad : {-1, 10}) {
        EXPECT_EQ(grid.get_ColAlignment(bad, &read), LORV_E_INDEX);
        EXPECT_EQ(grid.get_FixedAlignment(bad, &read), LORV_E_INDEX);
    }
    EXPECT_EQ(grid.get_FixedAlignment(3, &read), S_OK);
    EXPECT_EQ(read, lorvAlignRightBottom) << "as the column until it has its own";
    EXPECT_EQ(grid.put_FixedAlignment(3, lorvAlignLeftTop), S_OK);
    EXPECT_EQ(grid.get_FixedAlignment(3, &read), S_OK);
    EXPECT_EQ(read, lorvAlignLeftTop);
    EXPECT_EQ(grid.get_ColAlignment(3, &read), S_OK);
    EXPECT_EQ(read, lorvAlignRightBottom);
    EXPECT_FALSE(grid.RequiresSave);
}

TEST(ColDataTypeMember, TakesAnyWordUnlessBound)
{
    MemberGrid grid;
    grid.OptionWord &= ~OptionMergeStale;
    DataTypeSettings read = lorvDTEmpty;
    EXPECT_EQ(grid.put_ColDataType(2, static_cast<DataTypeSettings>(1234)), S_OK);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    EXPECT_EQ(grid.get_ColDataType(2, &read), S_OK);
    EXPECT_EQ(static_cast<int>(read), 1234);
    EXPECT_EQ(grid.put_ColDataType(-1, lorvDTBoolean), S_OK);
    EXPECT_EQ(grid.ColTable[9].ColDataType, lorvDTBoolean);
    EXPECT_EQ(grid.put_ColDataType(10, lorvDTBoolean), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColDataType(-1, &read), LORV_E_INDEX);
    grid.DesignModeCache = 0;
    grid.BoundKind = VT_VARIANT;
    EXPECT_EQ(grid.put_ColDataType(10, lorvDTBoolean), LORV_E_BOUND) << "the guard comes first";
    grid.BoundKind = BoundNone;
}

TEST(ColIndentMember, IsStoredInPixels)
{
    MemberGrid grid;
    LONG read = 0;
    for (bool spill : {false, true}) {
        grid.MergeCells = spill ? lorvMergeSpill : lorvMergeFree;
        grid.OptionWord &= ~OptionMergeStale;
        EXPECT_EQ(grid.put_ColIndent(-1, 300), S_OK);
        EXPECT_EQ(HasOption(grid, OptionMergeStale), spill);
    }
    EXPECT_EQ(grid.ColTable[4].Indent, MulDiv(LogPixelsX(), 300, 1440));
    EXPECT_EQ(grid.get_ColIndent(4, &read), S_OK);
    EXPECT_EQ(read, PixelsToTwipsX(grid.ColTable[4].Indent));
    EXPECT_EQ(grid.put_ColIndent(4, -1), LORV_E_VALUE);
    EXPECT_EQ(grid.put_ColIndent(10, 300), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColIndent(-1, &read), LORV_E_INDEX);
}

TEST(HiddenMembers, TakeBit0)
{
    MemberGrid grid;
    VARIANT_BOOL read = VARIANT_FALSE;
    EXPECT_EQ(grid.put_RowHidden(3, VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.get_RowHidden(3, &read), S_OK);
    EXPECT_EQ(read, VARIANT_TRUE);
    EXPECT_EQ(grid.put_RowHidden(-1, 2), S_OK);
    EXPECT_EQ(grid.get_RowHidden(3, &read), S_OK);
    EXPECT_EQ(read, VARIANT_FALSE);
    EXPECT_EQ(grid.put_RowHidden(50, VARIANT_TRUE), LORV_E_INDEX);
    EXPECT_EQ(grid.get_RowHidden(-1, &read), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColHidden(-1, 1), S_OK);
    EXPECT_EQ(grid.get_ColHidden(9, &read), S_OK);
    EXPECT_EQ(read, VARIANT_TRUE);
    EXPECT_EQ(grid.put_ColHidden(10, VARIANT_TRUE), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColHidden(10, &read), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColHidden(1, nullptr), E_POINTER);
}

TEST(HiddenMembers, AColumnTouchesMergesThatDependOnIt)
{
    struct Case {
        int16_t Cells, Fixed;
        bool Stale;
    };
    const Case cases[] = {{lorvMergeFree, lorvMergeFree, false},
                          {lorvMergeSpill, 0, true},
                          {0, lorvMergeSpill, true},
                          {lorvMergeOutline, 0, true},
                          {0, lorvMergeOutline, true}};
    for (const Case& each : cases) {
        MemberGrid grid;
        grid.MergeCells = each.Cells, grid.MergeCellsFixed = each.Fixed;
        grid.OptionWord &= ~OptionMergeStale;
        grid.put_ColHidden(3, VARIANT_TRUE);
        EXPECT_EQ(HasOption(grid, OptionMergeStale), each.Stale) << each.Cells << each.Fixed;
        grid.OptionWord &= ~OptionMergeStale;
        grid.put_RowHidden(3, VARIANT_TRUE);
        EXPECT_FALSE(HasOption(grid, OptionMergeStale));
    }
}

TEST(ColKeyMember, KeepsANameThatColIndexFinds)
{
    MemberGrid grid;
    Bstr key;
    LONG col = 0;
    EXPECT_EQ(grid.put_ColKey(4, Bstr(L"Name").Get()), S_OK);
    EXPECT_EQ(grid.put_ColKey(5, Bstr(L"Name").Get()), S_OK) << "keys need not differ";
    EXPECT_EQ(grid.get_ColKey(5, key.Put()), S_OK);
    EXPECT_STREQ(key.Text(), L"Name");
    EXPECT_EQ(grid.get_ColIndex(Bstr(L"NAME").Get(), &col), S_OK);
    EXPECT_EQ(col, 4);
    EXPECT_EQ(grid.get_ColIndex(Bstr(L"other").Get(), &col), S_OK);
    EXPECT_EQ(col, -1);
    EXPECT_EQ(grid.get_ColIndex(nullptr, &col), S_OK);
    EXPECT_EQ(col, 0);
    EXPECT_EQ(grid.put_ColKey(4, nullptr), S_OK);
    EXPECT_EQ(grid.get_ColKey(4, key.Put()), S_OK);
    EXPECT_EQ(key.Get(), nullptr);
    EXPECT_EQ(grid.put_ColKey(10, nullptr), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColKey(-1, key.Put()), LORV_E_INDEX);
    EXPECT_EQ(grid.get_ColIndex(nullptr, nullptr), E_POINTER);
    ResizeCols(grid, 0);
    EXPECT_EQ(grid.get_ColIndex(Bstr(L"Name").Get(), &col), S_OK);
    EXPECT_EQ(col, -1);
}

TEST(AddItemMember, AddsAtTheEndUnlessARowIsGiven)
{
    MemberGrid grid;
    ResizeBoth(grid, 4, 3);
    Bstr item(L"x");
    EXPECT_EQ(grid.AddItem(item.Get(), missing), S_OK);
    EXPECT_EQ(TextAt(grid, 4, 0), L"x");
    EXPECT_EQ(grid.AddItem(item.Get(), Value(5)), S_OK);
    EXPECT_EQ(grid.Rows, 6);
    EXPECT_EQ(grid.AddItem(item.Get(), Value(7)), LORV_E_INDEX);
    EXPECT_EQ(grid.AddItem(item.Get(), Value(L"end")), S_OK) << "no number: at the end";
    EXPECT_EQ(TextAt(grid, 6, 0), L"x");
    EXPECT_EQ(grid.AddItem(nullptr, Value(L"1")), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 0), L"(none)");
    EXPECT_EQ(grid.Rows, 8);
}

// An object that is a row number; it counts how often it is asked.
class RowObject : public FakeDispatch
{
public:
    explicit RowObject(LONG row) : row_(row) {}
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override
    {
        if (id != DISPID_VALUE || !result)
            return DISP_E_MEMBERNOTFOUND;
        ++Asked;
        if (OnAsked)
            OnAsked();
        result->vt = VT_I4, result->lVal = row_;
        return S_OK;
    }

    int Asked = 0;
    std::function<void()> OnAsked;

private:
    LONG row_;
};

TEST(AddItemMember, ReadsItsRowBeforeAnythingElse)
{
    RowObject row(2);
    MemberGrid grid;
    Bstr item(L"x");
    grid.DesignModeCache = 0;
    grid.BoundKind = VT_VARIANT;
    EXPECT_EQ(grid.AddItem(item.Get(), Value(&row)), LORV_E_BOUND);
    EXPECT_EQ(row.Asked, 1) << "even when nothing is added";
    grid.BoundKind = BoundNone;
    row.OnAsked = [&] { ResizeRows(grid, 1); };
    EXPECT_EQ(grid.AddItem(item.Get(), Value(&row)), LORV_E_INDEX) << "the rows are counted after it";
    row.OnAsked = nullptr;
    ResizeRows(grid, 4);
    EXPECT_EQ(grid.AddItem(item.Get(), Value(&row)), S_OK);
    EXPECT_EQ(TextAt(grid, 2, 0), L"x");
}

TEST(RemoveItemMember, RemovesTheCurrentRowUnlessOneIsGiven)
{
    MemberGrid grid;
    ResizeBoth(grid, 4, 3);
    SetCellText(grid, 2, 0, L"two");
    SetCellText(grid, 3, 0, L"three");
    grid.Row = grid.RowSel = 2;
    EXPECT_EQ(grid.RemoveItem(missing), S_OK);
    EXPECT_EQ(TextAt(grid, 2, 0), L"three");
    EXPECT_EQ(grid.RemoveItem(Value(2.0)), S_OK);
    EXPECT_EQ(grid.Rows, 2);
    EXPECT_EQ(grid.RemoveItem(Value(2)), LORV_E_INDEX);
    grid.Row = -1;
    EXPECT_EQ(grid.RemoveItem(missing), LORV_E_INDEX);
}

TEST(ClearMember, ClearsEverythingEverywhereUnlessTold)
{
    for (const Value& left : {Value::Missing(), Value(), Value(L"all"), Value::OfType(VT_NULL)}) {
        MemberGrid grid;
        grid.put_TextMatrix(0, 0, Bstr(L"x").Get());
        grid.put_RowData(1, Value(1));
        EXPECT_EQ(grid.Clear(left, left), S_OK);
        EXPECT_EQ(TextAt(grid, 0, 0), L"(none)");
        EXPECT_EQ(grid.RowTable[1].RowData, nullptr);
        EXPECT_EQ(grid.Rows, 50);
    }
    MemberGrid grid;
    grid.put_TextMatrix(0, 0, Bstr(L"x").Get());
    grid.put_TextMatrix(1, 1, Bstr(L"x").Get());
    EXPECT_EQ(grid.Clear(Value(lorvClearScrollable), missing), S_OK);
    EXPECT_EQ(TextAt(grid, 0, 0), L"x");
    EXPECT_EQ(TextAt(grid, 1, 1), L"(none)");
}

TEST(ClearMember, RefusesAnUnknownPlace)
{
    MemberGrid grid;
    grid.put_TextMatrix(1, 1, Bstr(L"x").Get());
    for (int where : {3, -1})
        EXPECT_EQ(grid.Clear(Value(where), missing), LORV_E_VALUE);
    EXPECT_EQ(TextAt(grid, 1, 1), L"x");
}

// A custom source keeps its own rows: they may move and have a type, but none is added or removed.
TEST(PositionMembers, PassBesideACustomSource)
{
    FakeSource source;
    MemberGrid grid;
    grid.DesignModeCache = 0;
    grid.LorvDataSource = &source;
    EXPECT_EQ(grid.put_RowPosition(1, 2), S_OK);
    EXPECT_EQ(grid.put_ColPosition(1, 2), S_OK);
    EXPECT_EQ(grid.put_ColDataType(1, lorvDTLong), S_OK);
    EXPECT_EQ(grid.AddItem(nullptr, missing), LORV_E_BOUND);
    EXPECT_EQ(grid.RemoveItem(Value(1)), LORV_E_BOUND);
    grid.LorvDataSource = nullptr;
    grid.BoundKind = VT_VARIANT;
    EXPECT_EQ(grid.put_RowPosition(1, 2), LORV_E_BOUND);
    EXPECT_EQ(grid.put_ColPosition(1, 2), S_OK);
    EXPECT_EQ(grid.put_ColDataType(1, lorvDTLong), LORV_E_BOUND);
    grid.BoundKind = BoundNone;
}

TEST(PositionMembers, MoveRowsAndColumns)
{
    MemberGrid grid;
    SetCellText(grid, 3, 4, L"x");
    EXPECT_EQ(grid.put_RowPosition(3, 1), S_OK);
    EXPECT_EQ(grid.put_ColPosition(4, 2), S_OK);
    EXPECT_EQ(TextAt(grid, 1, 2), L"x");
    EXPECT_EQ(grid.put_RowPosition(3, 3), S_OK);
    EXPECT_EQ(grid.put_RowPosition(3, 50), LORV_E_INDEX);
    EXPECT_EQ(grid.put_ColPosition(4, -1), LORV_E_INDEX);
}

TEST(DragRowMember, RefusesRowsOutsideAndABoundGrid)
{
    MemberGrid grid;
    LONG position = 0;
    for (int bad : {-1, 50})
        EXPECT_EQ(grid.DragRow(bad, &position), LORV_E_INDEX);
    EXPECT_EQ(grid.DragRow(1, nullptr), E_POINTER);
    grid.DesignModeCache = 0;
    grid.BoundKind = VT_VARIANT;
    EXPECT_EQ(grid.DragRow(-1, &position), LORV_E_BOUND);
    grid.BoundKind = BoundNone;
}

TEST(OutlineMarks, AreStoredByRow)
{
    MemberGrid grid;
    VARIANT_BOOL total = VARIANT_FALSE;
    SHORT level = 0;
    grid.OptionWord &= ~OptionMergeStale;
    EXPECT_EQ(grid.put_RowOutlineLevel(3, 0x1FF), S_OK);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale)) << "a data row's level shows nowhere";
    EXPECT_EQ(grid.get_RowOutlineLevel(3, &level), S_OK);
    EXPECT_EQ(level, -1) << "the low byte, signed";
    EXPECT_EQ(grid.put_IsSubtotal(3, VARIANT_TRUE), S_OK);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    EXPECT_EQ(grid.get_IsSubtotal(3, &total), S_OK);
    EXPECT_EQ(total, VARIANT_TRUE);
    EXPECT_EQ(grid.get_IsSubtotal(2, &total), S_OK);
    EXPECT_EQ(total, VARIANT_FALSE);
    grid.OptionWord &= ~OptionMergeStale;
    EXPECT_EQ(grid.put_RowOutlineLevel(-1, 2), S_OK);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    EXPECT_EQ(grid.RowTable[49].OutlineLevel, 2);
    EXPECT_EQ(grid.put_IsSubtotal(-1, 2), S_OK) << "bit 0 counts";
    EXPECT_EQ(grid.get_IsSubtotal(3, &total), S_OK);
    EXPECT_EQ(total, VARIANT_FALSE);
    for (int bad : {-1, 50}) {
        EXPECT_EQ(grid.get_IsSubtotal(bad, &total), LORV_E_INDEX);
        EXPECT_EQ(grid.get_RowOutlineLevel(bad, &level), LORV_E_INDEX);
    }
    EXPECT_EQ(grid.put_IsSubtotal(50, VARIANT_TRUE), LORV_E_INDEX);
    EXPECT_EQ(grid.put_RowOutlineLevel(50, 1), LORV_E_INDEX);
}
} // namespace
