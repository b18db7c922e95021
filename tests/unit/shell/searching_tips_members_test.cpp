#include "core/errors.h"
#include "core/upcalls.h"
#include "edit/tips.h"
#include "platform/bstr.h"
#include "platform/memory.h"
#include "support/fakes.h"
#include "support/member_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace
{
using Ids = std::vector<DISPID>;

class SearchingMembers : public testing::Test
{
protected:
    PropertySink sink;
    MemberGrid grid;
    Connection connection{grid.PropertySinks, &sink};
    ILorvGrid& host = grid;

    SearchingMembers() { grid.DesignModeCache = 0; }
    ~SearchingMembers() override
    {
        ReleaseTips(grid);
        if (HWND window = std::exchange(grid.Window, nullptr))
            DestroyWindow(window);
    }
    void OpenWindow()
    {
        grid.Window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                      nullptr, nullptr, nullptr);
        ASSERT_NE(grid.Window, nullptr);
    }
    bool Flag(HRESULT (STDMETHODCALLTYPE ILorvGrid::*getter)(VARIANT_BOOL*))
    {
        VARIANT_BOOL on = 17;
        EXPECT_EQ((host.*getter)(&on), S_OK);
        EXPECT_TRUE(on == VARIANT_TRUE || on == VARIANT_FALSE);
        return on != VARIANT_FALSE;
    }
    bool HasTipWindow() const { return grid.TipWindow && IsWindow(grid.TipWindow); }
};
using TipMembers = SearchingMembers;
using ExplorerBarMember = SearchingMembers;

TEST_F(SearchingMembers, AutoSearchTakesItsThreeValues)
{
    for (int value : {1, 2, 0}) {
        EXPECT_EQ(host.put_AutoSearch(static_cast<AutoSearchSettings>(value)), S_OK);
        AutoSearchSettings read = {};
        EXPECT_EQ(host.get_AutoSearch(&read), S_OK);
        EXPECT_EQ(read, value);
        EXPECT_EQ(sink.Taken(), Ids{110});
    }
    for (int value : {3, -1, 1000}) {
        EXPECT_EQ(host.put_AutoSearch(static_cast<AutoSearchSettings>(value)), LORV_E_VALUE) << value;
        EXPECT_EQ(sink.Taken(), Ids{});
    }
    EXPECT_EQ(host.get_AutoSearch(nullptr), E_POINTER);
}

TEST_F(SearchingMembers, DelayIsNeverNegative)
{
    for (float value : {0.0f, 0.25f, 3600.0f}) {
        EXPECT_EQ(host.put_AutoSearchDelay(value), S_OK);
        float read = -1;
        EXPECT_EQ(host.get_AutoSearchDelay(&read), S_OK);
        EXPECT_EQ(read, value);
        EXPECT_EQ(sink.Taken(), Ids{199});
    }
    for (float value : {-0.5f, -1e30f, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(host.put_AutoSearchDelay(value), LORV_E_VALUE) << value;
        EXPECT_EQ(grid.AutoSearchDelay, 3600.0f);
        EXPECT_EQ(sink.Taken(), Ids{});
    }
}

TEST_F(SearchingMembers, IsSearchingFollowsTheSearch)
{
    EXPECT_FALSE(Flag(&ILorvGrid::get_IsSearching));
    grid.AutoSearch = lorvSearchFromTop;
    AutoSearchKey(grid, 'a');
    EXPECT_TRUE(Flag(&ILorvGrid::get_IsSearching));
    EXPECT_EQ(host.put_Rows(grid.Rows), S_OK);
    EXPECT_FALSE(Flag(&ILorvGrid::get_IsSearching)) << "Rows ends it, even with its present value";
    AutoSearchKey(grid, 'a');
    EXPECT_EQ(host.put_Cols(grid.Cols), S_OK);
    EXPECT_FALSE(Flag(&ILorvGrid::get_IsSearching));
}

// Tips

TEST_F(TipMembers, OnlyScrollTipsNotifies)
{
    EXPECT_EQ(host.put_ScrollTips(VARIANT_TRUE), S_OK);
    EXPECT_EQ(sink.Taken(), Ids{169});
    EXPECT_TRUE(grid.RequiresSave);
    grid.RequiresSave = false;
    EXPECT_EQ(host.put_ToolTips(VARIANT_TRUE), S_OK);
    EXPECT_EQ(sink.Taken(), Ids{});
    EXPECT_FALSE(grid.RequiresSave);
    EXPECT_TRUE(Flag(&ILorvGrid::get_ScrollTips));
    EXPECT_TRUE(Flag(&ILorvGrid::get_ToolTips));
    host.put_ScrollTips(VARIANT_FALSE);
    EXPECT_FALSE(Flag(&ILorvGrid::get_ScrollTips));
    EXPECT_TRUE(Flag(&ILorvGrid::get_ToolTips)) << "its bit stays, whatever became of the window";
}

TEST_F(TipMembers, EitherMakesTheWindowAndEitherDestroysIt)
{
    OpenWindow();
    const struct {
        HRESULT (STDMETHODCALLTYPE ILorvGrid::*Put)(VARIANT_BOOL);
        bool On, HasWindow;
    } steps[] = {
        {&ILorvGrid::put_ScrollTips, true, true},   {&ILorvGrid::put_ScrollTips, false, false},
        {&ILorvGrid::put_ToolTips, true, true},     {&ILorvGrid::put_ScrollTips, true, true},
        {&ILorvGrid::put_ToolTips, false, false}, // the scroll tips go with it, though they are on
        {&ILorvGrid::put_ScrollTips, true, true},   {&ILorvGrid::put_ToolTips, true, true},
        {&ILorvGrid::put_ScrollTips, false, false}, {&ILorvGrid::put_ToolTips, true, true},
        {&ILorvGrid::put_ToolTips, false, false},
    };
    for (size_t i = 0; i < std::size(steps); ++i) {
        EXPECT_EQ((host.*steps[i].Put)(steps[i].On ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
        EXPECT_EQ(HasTipWindow(), steps[i].HasWindow) << "step " << i;
    }
}

TEST_F(TipMembers, AWindowThatIsThereIsKept)
{
    OpenWindow();
    host.put_ScrollTips(VARIANT_TRUE);
    HWND tip = grid.TipWindow;
    host.put_ToolTips(VARIANT_TRUE);
    host.put_ScrollTips(VARIANT_TRUE);
    EXPECT_EQ(grid.TipWindow, tip);
}

TEST_F(TipMembers, DesignersChangeTheBitsOnly)
{
    OpenWindow();
    grid.DesignModeCache = 1;
    host.put_ScrollTips(VARIANT_TRUE);
    host.put_ToolTips(VARIANT_TRUE);
    EXPECT_EQ(grid.TipWindow, nullptr);
    EXPECT_TRUE(Flag(&ILorvGrid::get_ScrollTips));
    EXPECT_TRUE(Flag(&ILorvGrid::get_ToolTips));
    CreateTipWindow(grid);
    host.put_ToolTips(VARIANT_FALSE);
    EXPECT_TRUE(HasTipWindow());
}

TEST_F(TipMembers, TextsAreForRunTime)
{
    struct {
        HRESULT (STDMETHODCALLTYPE ILorvGrid::*Get)(BSTR*);
        HRESULT (STDMETHODCALLTYPE ILorvGrid::*Put)(BSTR);
    } texts[] = {{&ILorvGrid::get_ScrollTipText, &ILorvGrid::put_ScrollTipText},
                 {&ILorvGrid::get_ToolTipText, &ILorvGrid::put_ToolTipText}};
    for (const auto& text : texts) {
        Bstr value(L"a tip"), read;
        EXPECT_EQ((host.*text.Put)(value.Get()), S_OK);
        EXPECT_EQ((host.*text.Get)(read.Put()), S_OK);
        EXPECT_STREQ(read.Text(), L"a tip");
        EXPECT_EQ(sink.Taken(), Ids{});
        EXPECT_EQ((host.*text.Put)(nullptr), S_OK);
        EXPECT_EQ((host.*text.Get)(read.Put()), S_OK);
        EXPECT_TRUE(read.Empty());
        EXPECT_EQ((host.*text.Get)(nullptr), E_POINTER);
        grid.DesignModeCache = 1;
        EXPECT_EQ((host.*text.Get)(read.Put()), LORV_E_DESIGNMODE);
        EXPECT_EQ((host.*text.Put)(value.Get()), S_OK);
        grid.DesignModeCache = 0;
    }
    EXPECT_STREQ(grid.ScrollTipText, L"a tip");
    EXPECT_STREQ(grid.ToolTipText, L"a tip");
}

TEST_F(TipMembers, NullIsStoredAsNull)
{
    Bstr value(L"a tip");
    host.put_ToolTipText(value.Get());
    host.put_ToolTipText(nullptr);
    EXPECT_EQ(grid.ToolTipText, nullptr);
}

TEST_F(TipMembers, WithoutMemoryTheOldTextStays)
{
    Bstr value(L"old"), other(L"new");
    host.put_ToolTipText(value.Get());
    FailingAllocation failing;
    EXPECT_EQ(host.put_ToolTipText(other.Get()), LORV_E_MEMORY);
    EXPECT_STREQ(grid.ToolTipText, L"old");
}

// The explorer bar

TEST_F(ExplorerBarMember, TakesFourBitsAndKeepsFourMore)
{
    const struct {
        int Value;
        bool Taken;
    } cases[] = {{0, true},       {1, true},        {7, true},      {8, true},       {15, true},
                 {16, false},     {0x1000, true},   {0x8003, true}, {0xF00F, true},  {0xF010, false},
                 {0x0800, false}, {0x10000, false}, {-1, false},    {-32765, false}, {0xFFFF, false}};
    for (const auto& c : cases) {
        grid.ExplorerBar = 5;
        HRESULT code = host.put_ExplorerBar(static_cast<ExplorerBarSettings>(c.Value));
        EXPECT_EQ(code, c.Taken ? S_OK : LORV_E_VALUE) << c.Value;
        ExplorerBarSettings read = {};
        EXPECT_EQ(host.get_ExplorerBar(&read), S_OK);
        EXPECT_EQ(static_cast<int>(read), c.Taken ? c.Value : 5);
        EXPECT_EQ(sink.Taken(), c.Taken ? Ids{111} : Ids{});
    }
}

TEST_F(ExplorerBarMember, ForgetsTheSortMarkAndTheMergeLinks)
{
    grid.SortIndicatorCol = 3;
    SetOption(grid, OptionMergeStale, false);
    EXPECT_EQ(host.put_ExplorerBar(lorvExSortShow), S_OK);
    EXPECT_EQ(grid.SortIndicatorCol, -1);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
    grid.SortIndicatorCol = 3;
    host.put_ExplorerBar(static_cast<ExplorerBarSettings>(16));
    EXPECT_EQ(grid.SortIndicatorCol, 3) << "a refused value changes nothing";
}

// A visible outline gets its column fitted, and no other one.
TEST_F(ExplorerBarMember, FitsTheColumnOfAnOutline)
{
    const struct {
        int16_t OutlineBar;
        int DesignMode;
        bool HasLevels, Fits;
    } cases[] = {{1, 0, true, true}, {0, 0, true, false}, {1, 1, true, false}, {1, 0, false, false}};
    for (const auto& c : cases) {
        grid.OutlineBar = c.OutlineBar;
        grid.DesignModeCache = c.DesignMode;
        grid.OutlineCol = 2;
        grid.RowTable[3].Flags = c.HasLevels ? RowFlagSubtotal : 0;
        grid.RowTable[3].OutlineLevel = 1;
        grid.OutlineLevelCount = c.HasLevels ? 1 : 0;
        SetCellText(grid, 3, 2, L"a rather long text for a column");
        SetCellText(grid, 3, 4, L"a rather long text for a column");
        grid.ColTable[2].Width = grid.ColTable[4].Width = 30;
        host.put_ExplorerBar(lorvExSort);
        EXPECT_EQ(grid.ColTable[2].Width != 30, c.Fits) << &c - cases;
        EXPECT_EQ(grid.ColTable[4].Width, 30);
    }
}

TEST_F(ExplorerBarMember, Repaints)
{
    OpenWindow();
    ValidateRect(grid.Window, nullptr);
    host.put_ExplorerBar(lorvExSort);
    EXPECT_TRUE(GetUpdateRect(grid.Window, nullptr, FALSE));
}
} // namespace
