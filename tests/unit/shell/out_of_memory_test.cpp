// What programs do, with each allocation failing in its turn: the code says that memory is short, the grid
// stays in order and works again, and nothing is lost.

#include "core/value_format.h"
#include "support/fakes.h"
#include "support/grid_order.h"
#include "support/member_grid.h"

#include "platform/bstr.h"

namespace
{
// Takes the code of each step.
class Steps
{
public:
    explicit Steps(bool mayFail) : mayFail_(mayFail) {}
    void operator()(HRESULT code)
    {
        ++count_;
        bool short_ = code == LORV_E_MEMORY || code == E_OUTOFMEMORY;
        EXPECT_TRUE(code == S_OK || code == E_NOTIMPL || (mayFail_ && short_))
            << "step " << count_ << " " << std::hex << code;
    }

private:
    bool mayFail_;
    int count_ = 0;
};

using Use = void (*)(MemberGrid& grid, Steps& step);

// The number of allocations that the use makes.
long WithEachAllocationOfAUseFailing(Use use)
{
    for (long number = 1; number < 5000; ++number) {
        HeapBalance balance;
        MemberGrid grid;
        {
            FailingAllocation failing(number);
            Steps step(true);
            use(grid, step);
        }
        long asked = TheAllocationProbe().Count;
        ExpectInOrder(grid);
        Steps again(false);
        use(grid, again);
        ExpectInOrder(grid);
        if (asked < number || testing::Test::HasFailure())
            return asked;
    }
    ADD_FAILURE() << "the use allocates without end";
    return -1;
}

void FillTexts(MemberGrid& grid, Steps& step)
{
    for (int row = 1; row < 6; ++row)
        for (int col = 1; col < 4; ++col)
            step(grid.put_TextMatrix(row, col, Bstr(std::to_wstring((row * 7 + col) % 5).c_str()).Get()));
}

TEST(OutOfMemory, WhileTextsAreWritten)
{
    EXPECT_GT(WithEachAllocationOfAUseFailing(FillTexts), 15);
}

TEST(OutOfMemory, WhileRowsComeAndGo)
{
    auto use = [](MemberGrid& grid, Steps& step) {
        FillTexts(grid, step);
        step(grid.AddItem(Bstr(L"a\tb\tc").Get(), Value(2)));
        step(grid.put_Rows(260));
        step(grid.put_RowPosition(3, 8));
        step(grid.put_Cols(14));
        step(grid.put_ColPosition(2, 5));
        step(grid.put_FixedRows(2));
        step(grid.put_FrozenRows(1));
        step(grid.RemoveItem(Value(2)));
        step(grid.put_Rows(50));
        step(grid.put_Cols(10));
        step(grid.Clear(missing, missing));
    };
    EXPECT_GT(WithEachAllocationOfAUseFailing(use), 20);
}

TEST(OutOfMemory, WhileCellsAreFormatted)
{
    auto use = [](MemberGrid& grid, Steps& step) {
        auto set = [&](CellPropertySettings setting, VARIANT value) {
            step(grid.put_Cell(setting, Value(2), Value(2), Value(4), Value(3), value));
        };
        set(lorvcpBackColor, Value(255));
        set(lorvcpFontBold, Value(true));
        set(lorvcpFontName, Value(L"Tahoma"));
        set(lorvcpFontSize, Value(14));
        set(lorvcpData, Value(L"data"));
        set(lorvcpChecked, Value(1));
        set(lorvcpText, Value(L"one\ttwo"));
        step(grid.CellBorderRange(1, 1, 3, 3, 0, 1, 1, 1, 1, 1, 1));
        step(grid.Clear(Value(lorvClearEverywhere), Value(lorvClearFormatting)));
    };
    EXPECT_GT(WithEachAllocationOfAUseFailing(use), 15);
}

TEST(OutOfMemory, WhileColumnsAreDescribed)
{
    auto use = [](MemberGrid& grid, Steps& step) {
        step(grid.put_ColFormat(-1, Bstr(L"#,##0.00").Get()));
        step(grid.put_ColKey(-1, Bstr(L"key").Get()));
        step(grid.put_ColData(-1, Value(7)));
        step(grid.put_RowData(4, Value(L"row")));
        step(grid.put_ColComboList(2, Bstr(L"#1;One|#2;Two").Get()));
        step(grid.put_ColEditMask(2, Bstr(L"99/99").Get()));
        step(grid.put_FormatString(Bstr(L"^Name|>Price;A|B").Get()));
        step(grid.put_ToolTipText(Bstr(L"tip").Get()));
        step(grid.put_ScrollTipText(Bstr(L"tip").Get()));
        grid.ColTable[1].ColDataType = lorvDTCurrency;
        grid.put_TextMatrix(2, 1, Bstr(L"12.5").Get());
        for (int row = 1; row < 4; ++row)
            GetDisplayText(grid, row, 1);
        grid.put_Cols(10);
    };
    EXPECT_GT(WithEachAllocationOfAUseFailing(use), 25);
}

TEST(OutOfMemory, WhileTextsAreSortedMergedAndClipped)
{
    auto use = [](MemberGrid& grid, Steps& step) {
        FillTexts(grid, step);
        LONG row1 = 0, col1 = 0, row2 = 0, col2 = 0;
        step(grid.put_MergeCells(lorvMergeFree));
        step(grid.put_MergeCol(-1, VARIANT_TRUE));
        step(grid.GetMergedRange(2, 2, &row1, &col1, &row2, &col2));
        grid.Row = 1, grid.Col = 1, grid.RowSel = 5, grid.ColSel = 3;
        for (SortSettings order : {lorvSortGenericAscending, lorvSortStringNoCaseDescending})
            step(grid.put_Sort(order));
        Bstr clip;
        step(grid.get_Clip(clip.Put()));
        step(grid.put_Clip(Bstr(L"a\tb\rc\td").Get()));
        step(grid.put_ClipSeparators(Bstr(L";|").Get()));
        step(grid.put_ClipSeparators(nullptr));
    };
    EXPECT_GT(WithEachAllocationOfAUseFailing(use), 15);
}

} // namespace
