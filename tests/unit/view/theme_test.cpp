#include "view/theme.h"

#include "support/fake_theme.h"
#include "view/check_box.h"
#include "view/messages.h"

#include <algorithm>
#include <utility>

namespace
{
TEST_F(Themes, DrawFixedCellsAsHeadersWithoutLines)
{
    ResizeBoth(grid, 2, 2);
    grid.HoverRow = 0, grid.HoverCol = 1;
    Paint();
    ASSERT_EQ(fakeTheme.Calls.size(), 3u);
    EXPECT_EQ(fakeTheme.Calls[0].Part, 1);
    EXPECT_EQ(fakeTheme.Calls[0].State, 1);
    EXPECT_GE(fakeTheme.Calls[1].State, 2) << "the cell under the mouse is hot";
    EXPECT_EQ(canvas.Count(Area(0, 0), Fixed), 0);
    EXPECT_EQ(canvas.Count(Area(0, 0), Untouched), 50 * 20) << "neither colour nor lines";
}

TEST_F(Themes, DrawTheBoxStates)
{
    const int states[] = {5, 1, 5, 1, 9, 8, 4};
    for (int check = lorvChecked; check <= lorvDisabledUnchecked; ++check) {
        SetCheck(2, 1, check);
        fakeTheme.Calls.clear();
        Paint();
        auto box = std::find_if(fakeTheme.Calls.begin(), fakeTheme.Calls.end(),
                                [](const ThemeCall& call) { return call.Part == 3; });
        ASSERT_NE(box, fakeTheme.Calls.end());
        EXPECT_EQ(box->State, states[check - 1]) << check;
    }
}

TEST_F(Themes, CloseEveryClassAfterAFailure)
{
    fakeTheme.Result = E_FAIL;
    DrawThemePart(grid, ThemeOf(grid, ThemeClass::Header), canvas.Get(), 1, 1, {0, 0, 9, 9});
    EXPECT_EQ(fakeTheme.Open, 0);
    EXPECT_EQ(grid.Theme.HeaderTheme, nullptr);
    DrawThemeButton(grid, canvas.Get(), {0, 0, 20, 20});
    EXPECT_EQ(canvas.Count(canvas.Area(), Untouched), 300 * 200) << "no classic button beside a theme";
}

TEST_F(Themes, GoWithTheirWindow)
{
    ThemeOf(grid, ThemeClass::Button);
    ThemeOf(grid, ThemeClass::TreeView);
    EXPECT_EQ(fakeTheme.Open, 2);
    CloseThemes(grid);
    EXPECT_EQ(fakeTheme.Open, 0);
    EXPECT_FALSE(IsThemed(grid));
    EXPECT_EQ(ThemeOf(grid, ThemeClass::Button), nullptr);
    DrawThemeButton(grid, canvas.Get(), {0, 0, 20, 20});
    EXPECT_LT(canvas.Count(canvas.Area(), Untouched), 300 * 200) << "a classic button without a theme";
}

TEST_F(Themes, NeedAWindow)
{
    ThemeReopen(grid, nullptr);
    EXPECT_FALSE(IsThemed(grid));
    EXPECT_EQ(grid.Theme.ThemeWindow, nullptr);
}

TEST_F(Themes, DrawTheSameSizesAsTheClassicWay)
{
    grid.Editable = 1;
    grid.ShowComboButton = lorvSBAlways;
    grid.ColTable[1].ColComboList = DuplicateText(L"a|b");
    grid.ColTable[2].ColComboList = DuplicateText(L"|...");
    SetCheck(2, 3, lorvChecked);
    Select(1, 1, 1, 1);
    Paint();
    const RECT listed = Area(1, 1), dotted = Area(1, 2);
    const LONG width = GetSystemMetrics(SM_CXHSCROLL);
    RECT box = CheckBoxRect(grid, 2, 3, nullptr);
    InflateRect(&box, 1, 1);
    const ThemeCall expected[] = {
        {L'H', 1, 1, Area(0, 0)},
        {L'C', 1, 1, {listed.right - width, listed.top, listed.right, listed.bottom}},
        {L'B', 1, 1, {dotted.right - width, dotted.top, dotted.right, dotted.bottom}},
        {L'B', 3, 5, box},
    };
    for (const ThemeCall& call : expected) {
        SCOPED_TRACE(&call - expected);
        EXPECT_TRUE(std::any_of(fakeTheme.Calls.begin(), fakeTheme.Calls.end(), [&](const ThemeCall& made) {
            return made.Class == call.Class && made.Part == call.Part && made.State == call.State &&
                   EqualRect(&made.Area, &call.Area);
        }));
    }
    EXPECT_EQ(canvas.Count({dotted.right - width, dotted.top, dotted.right, dotted.bottom},
                           GetSysColor(COLOR_BTNFACE)),
              0);
}

TEST_F(Themes, WithoutAClassLeaveThatPartToTheClassicWay)
{
    fakeTheme.Known = false;
    grid.Editable = 1;
    grid.ShowComboButton = lorvSBAlways;
    grid.ColTable[1].ColComboList = DuplicateText(L"a|b");
    SetCheck(2, 3, lorvChecked);
    Select(1, 1, 1, 1);
    Paint();
    EXPECT_LT(canvas.Count(Area(0, 1), Untouched), 90 * 20) << "a button for a header";
    RECT cell = Area(1, 1);
    cell.left = cell.right - GetSystemMetrics(SM_CXHSCROLL);
    EXPECT_EQ(canvas.Count(cell, Back), 0) << "a drop arrow";
    RECT box = CheckBoxRect(grid, 2, 3, nullptr);
    EXPECT_GT(canvas.ExtentBeside(box, Back).right, box.left) << "a box";
    EXPECT_TRUE(fakeTheme.Calls.empty());
}

TEST_F(Themes, LeaveTheFrozenLinesOnTheHeaders)
{
    grid.AllowUserFreezing = lorvFreezeBoth;
    Paint();
    RECT header = Area(0, 1), first = Area(1, 0);
    EXPECT_EQ(canvas.At(header.left + 5, header.bottom - 1), Border);
    EXPECT_EQ(canvas.At(first.right - 1, first.top + 5), Border);
}

TEST_F(Themes, MakeTheWholeMergedHeaderHot)
{
    grid.MergeCells = grid.MergeCellsFixed = lorvMergeFree;
    grid.RowTable[0].MergeRow = 1;
    SetText(0, 1, L"wide"), SetText(0, 2, L"wide");
    SetOption(grid, OptionMergeStale, true);
    grid.HoverRow = 0, grid.HoverCol = 2;
    Paint();
    int hot = 0;
    for (const ThemeCall& call : fakeTheme.Calls)
        if (call.Class == L'H' && call.State != 1) {
            EXPECT_EQ(call.Area.left, Area(0, 0).right);
            ++hot;
        }
    EXPECT_EQ(hot, 2) << "once for each member";
}

TEST_F(Themes, AreAskedForAgainWhenTheSystemChangesThem)
{
    grid.Window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    LRESULT result = 0;
    for (bool themed : {true, false, true}) {
        grid.Theme.ThemeActive = 1;
        ThemeOf(grid, ThemeClass::Button), ThemeOf(grid, ThemeClass::Header);
        ThemeOf(grid, ThemeClass::ComboBox), ThemeOf(grid, ThemeClass::TreeView);
        EXPECT_EQ(fakeTheme.Open, 4);
        fakeTheme.Windows = themed;
        ProcessWindowMessage(grid, WM_THEMECHANGED, 0, 0, result);
        EXPECT_EQ(fakeTheme.Open, 0);
        EXPECT_EQ(IsThemed(grid), themed);
        EXPECT_EQ(grid.Theme.ThemeWindow, grid.Window);
    }
    DestroyWindow(std::exchange(grid.Window, nullptr));
}

TEST_F(Themes, OpenAgainAfterAFailure)
{
    ResizeBoth(grid, 1, 1);
    fakeTheme.Result = E_FAIL;
    Paint();
    EXPECT_EQ(fakeTheme.Calls.size(), 1u);
    EXPECT_EQ(canvas.Count(Area(0, 0), Untouched), 50 * 20) << "that mark is missing";
    EXPECT_EQ(fakeTheme.Open, 0);
    fakeTheme.Result = S_OK;
    Paint();
    EXPECT_EQ(fakeTheme.Calls.size(), 2u);
    EXPECT_EQ(fakeTheme.Open, 1);
}

TEST(ThemeOfAGridWithoutAWindow, IsNotThere)
{
    Grid grid;
    EXPECT_EQ(grid.Theme.ThemeWindow, nullptr);
    EXPECT_FALSE(IsThemed(grid));
    EXPECT_NE(grid.Theme.ThemeLibrary, nullptr) << "each grid loads the library at once";
    EXPECT_NE(grid.Theme.DrawThemeParentBackground, nullptr);
    EXPECT_NE(grid.Theme.IsThemeBackgroundPartiallyTransparent, nullptr);
}
} // namespace
