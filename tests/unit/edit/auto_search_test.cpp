#include "edit/auto_search.h"

#include "core/search.h"
#include "core/value_format.h"
#include "platform/memory.h"
#include "support/grid_window.h"

#include <iterator>
#include <utility>

namespace
{
constexpr DISPID StartAutoSearchId = 51, EndAutoSearchId = 52;

// A grid of 31 rows whose column 1 holds a name in some rows, with the current cell in row 3.
class AutoSearch : public GridInWindow
{
protected:
    AutoSearch()
    {
        constexpr std::pair<int, const wchar_t*> names[] = {
            {2, L"Anton"}, {4, L"abraham"}, {6, L"Berta"}, {8, L"Abel"}, {10, L"Caesar"}, {25, L"Zeppelin"}};
        for (const auto& [row, name] : names)
            SetCellText(grid, row, 1, name);
        grid.AutoSearch = lorvSearchFromTop;
        MoveCursor(grid, 3, 1, 1);
        TheTypedText() = {};
        Settle();
    }
    // Whether the search took every key.
    bool Type(const wchar_t* keys, Grid& into)
    {
        bool all = true;
        for (; *keys; ++keys)
            all = AutoSearchKey(into, *keys) && all;
        return all;
    }
    bool Type(const wchar_t* keys) { return Type(keys, grid); }
    static void Wait(int milliseconds) { TheTypedText().SearchTime -= milliseconds; }
    std::wstring Typed() const { return {TheTypedText().SearchText, static_cast<size_t>(grid.SearchLength)}; }
    int Count(DISPID id) const { return events.Count(id); }
};

TEST_F(AutoSearch, IsOffByDefault)
{
    EXPECT_EQ(Grid().AutoSearch, lorvSearchNone);
    EXPECT_EQ(Grid().AutoSearchDelay, 2.0f);
    grid.AutoSearch = lorvSearchNone;
    EXPECT_FALSE(AutoSearchKey(grid, 'b'));
    EXPECT_EQ(Fired(), "");
    EXPECT_EQ(grid.Row, 3);
    EXPECT_FALSE(grid.IsSearching);
}

TEST_F(AutoSearch, SeeksWhatWasTypedFromTheTop)
{
    EXPECT_TRUE(Type(L"a"));
    EXPECT_EQ(grid.Row, 2) << "above the current row";
    EXPECT_TRUE(Type(L"b"));
    EXPECT_EQ(grid.Row, 4);
    EXPECT_TRUE(Type(L"e"));
    EXPECT_EQ(grid.Row, 8);
    EXPECT_EQ(Typed(), L"abe");
    EXPECT_TRUE(grid.IsSearching);
}

TEST_F(AutoSearch, SeeksFromTheCurrentRowWhichIsIncluded)
{
    grid.AutoSearch = lorvSearchFromCursor;
    Type(L"a");
    EXPECT_EQ(grid.Row, 4);
    Type(L"b");
    EXPECT_EQ(grid.Row, 4);
    Type(L"e");
    EXPECT_EQ(grid.Row, 8);
}

TEST_F(AutoSearch, NeverWraps)
{
    grid.AutoSearch = lorvSearchFromCursor;
    Type(L"Z");
    EXPECT_EQ(grid.Row, 25);
    Wait(2100);
    Type(L"c");
    EXPECT_EQ(grid.Row, 25);
    EXPECT_EQ(Typed(), L"");
}

TEST_F(AutoSearch, MovesAsTheKeyboardDoes)
{
    Type(L"Z");
    EXPECT_EQ(Fired(), "51 LeaveCell BeforeRowColChange(3,1,25,1) BeforeSelChange(3,1,25,1) "
                       "BeforeScroll(1,1,18,1) AfterScroll(1,1,18,1) EnterCell RowColChange "
                       "AfterRowColChange(3,1,25,1) SelChange AfterSelChange(3,1,25,1)");
    EXPECT_EQ(grid.RowSel, 25);
}

TEST_F(AutoSearch, ReportsItsStartOnce)
{
    Type(L"abe");
    EXPECT_EQ(Count(StartAutoSearchId), 1);
    EXPECT_EQ(Count(EndAutoSearchId), 0);
    EXPECT_EQ(events.Events.front().Id, StartAutoSearchId) << "before anything moves";
}

TEST_F(AutoSearch, StartsOverAfterTheDelayAndStaysOn)
{
    Type(L"ab");
    Wait(1500);
    Type(L"e");
    EXPECT_EQ(Typed(), L"abe");
    Wait(2100);
    Type(L"c");
    EXPECT_EQ(Typed(), L"c");
    EXPECT_EQ(grid.Row, 10);
    EXPECT_EQ(Count(StartAutoSearchId), 1);
    EXPECT_EQ(Count(EndAutoSearchId), 0);
}

TEST_F(AutoSearch, DelayIsTheGridsOwn)
{
    grid.AutoSearchDelay = 60;
    Type(L"a");
    Wait(50000);
    Type(L"b");
    EXPECT_EQ(Typed(), L"ab");
    grid.AutoSearchDelay = 0.5f;
    Wait(600);
    Type(L"c");
    EXPECT_EQ(Typed(), L"c");
}

TEST_F(AutoSearch, KeyThatLeadsNowhereIsTakenBack)
{
    Type(L"ab");
    EXPECT_EQ(grid.Row, 4);
    Settle();
    EXPECT_TRUE(Type(L"x"));
    EXPECT_EQ(Fired(), "");
    EXPECT_EQ(grid.Row, 4);
    EXPECT_EQ(Typed(), L"ab");
    Type(L"e");
    EXPECT_EQ(grid.Row, 8) << "the next key goes on from the shorter text";
}

TEST_F(AutoSearch, FirstKeyThatLeadsNowhereLeavesAnEmptySearch)
{
    EXPECT_TRUE(Type(L"q"));
    EXPECT_EQ(Typed(), L"");
    EXPECT_TRUE(grid.IsSearching);
    EXPECT_EQ(grid.Row, 3);
}

TEST_F(AutoSearch, KeysBelowBlankEndItAndAreNotTaken)
{
    for (int key : {1, 8, 9, 13, 27, 31}) {
        Type(L"a");
        Settle();
        EXPECT_FALSE(AutoSearchKey(grid, key)) << key;
        EXPECT_EQ(Fired(), "52") << key;
        EXPECT_FALSE(grid.IsSearching);
        EXPECT_FALSE(AutoSearchKey(grid, key));
        EXPECT_EQ(Fired(), "") << "nothing runs any more: " << key;
    }
}

TEST_F(AutoSearch, EndRepaintsTheCurrentCell)
{
    Type(L"abe");
    Settle();
    EndAutoSearch(grid);
    RECT cell = CellRect(grid, 8, 1), invalid = Invalid();
    EXPECT_TRUE(EqualRect(&cell, &invalid));
}

TEST_F(AutoSearch, TurnedOffItEndsAtTheNextKey)
{
    Type(L"a");
    grid.AutoSearch = lorvSearchNone;
    Settle();
    EXPECT_FALSE(AutoSearchKey(grid, 'b'));
    EXPECT_EQ(Fired(), "52");
}

TEST_F(AutoSearch, BlankStartsItOnlyWhereNothingCanBeEdited)
{
    SetCellText(grid, 12, 1, L" indented");
    SetCellText(grid, 14, 1, L"a b");
    Settle();
    grid.Editable = lorvEDKbdMouse;
    EXPECT_FALSE(AutoSearchKey(grid, ' '));
    EXPECT_EQ(Fired(), "");
    EXPECT_FALSE(grid.IsSearching);
    EXPECT_TRUE(Type(L"a b")) << "a search that runs takes it";
    EXPECT_EQ(grid.Row, 14);

    EndAutoSearch(grid);
    grid.Editable = lorvEDNone;
    EXPECT_TRUE(Type(L" "));
    EXPECT_EQ(grid.Row, 12);
}

TEST_F(AutoSearch, PassesOverHiddenRows)
{
    HideRow(4);
    grid.RowTable[8].Height = 0;
    Type(L"ab");
    EXPECT_EQ(grid.Row, 2) << "the b was taken back";
    EXPECT_EQ(Typed(), L"a");
    EXPECT_EQ(FindPrefix(grid, 0, 1), 2);
}

TEST_F(AutoSearch, SeesTheShownText)
{
    SetColFormat(grid, 1, L"#,##0.00");
    SetCellText(grid, 12, 1, L"1234.5");
    Type(L"1,234.50");
    EXPECT_EQ(grid.Row, 12);
    Wait(5000);
    grid.Row = grid.RowSel = 3;
    Type(L"1234");
    EXPECT_EQ(Typed(), L"1");
}

TEST_F(AutoSearch, SeesTheTranslatedTextAndNotTheKey)
{
    ComboListState& list = grid.ColTable[1].ComboState;
    list.ComboCount = 1;
    list.ComboKeys = static_cast<wchar_t**>(AllocateZeroed(1, sizeof(wchar_t*)));
    list.ComboTexts = static_cast<wchar_t**>(AllocateZeroed(1, sizeof(wchar_t*)));
    list.ComboKeys[0] = DuplicateText(L"k1");
    list.ComboTexts[0] = DuplicateText(L"Otto");
    SetCellText(grid, 12, 1, L"k1");
    Type(L"k");
    EXPECT_EQ(grid.Row, 3);
    Type(L"ot");
    EXPECT_EQ(grid.Row, 12);
}

TEST_F(AutoSearch, TextMustBeAsLongAsWhatWasTyped)
{
    SetCellText(grid, 12, 1, L"q");
    SetCellText(grid, 14, 1, L"Qu");
    Type(L"q");
    EXPECT_EQ(grid.Row, 12);
    Type(L"u");
    EXPECT_EQ(grid.Row, 14);
}

TEST_F(AutoSearch, NothingTypedMatchesTheFirstTextThereIs)
{
    grid.SearchLength = 0;
    EXPECT_EQ(FindPrefix(grid, 5, 1), 6) << "cells without a text are passed over";
    EXPECT_EQ(FindPrefix(grid, 26, 1), -1);
}

TEST_F(AutoSearch, LooksInTheCurrentColumnOnly)
{
    SetCellText(grid, 12, 2, L"quince");
    Type(L"q");
    EXPECT_EQ(grid.Row, 3);
    grid.Col = grid.ColSel = 2;
    Type(L"q");
    EXPECT_EQ(grid.Row, 12);
    EXPECT_EQ(grid.Col, 2);
}

TEST_F(AutoSearch, WithoutACurrentCellItFindsNothing)
{
    grid.AutoSearch = lorvSearchFromCursor;
    grid.Row = grid.RowSel = grid.Col = grid.ColSel = -1;
    EXPECT_TRUE(Type(L"a"));
    EXPECT_EQ(grid.Row, -1);
    EXPECT_EQ(Typed(), L"");
}

TEST_F(AutoSearch, FixedRowsAreNeverFoundFromTheTop)
{
    SetCellText(grid, 0, 1, L"Heading");
    Type(L"h");
    EXPECT_EQ(grid.Row, 3);
}

TEST_F(AutoSearch, KeepsNinetyNineCharacters)
{
    std::wstring text(120, L'm');
    SetCellText(grid, 12, 1, text.c_str());
    SetCellText(grid, 14, 1, (std::wstring(99, L'm') + L"n").c_str());
    EXPECT_TRUE(Type(std::wstring(99, L'm').c_str()));
    EXPECT_EQ(grid.Row, 12);
    EXPECT_TRUE(Type(L"n")) << "the hundredth searches for the same 99";
    EXPECT_EQ(grid.Row, 12);
    EXPECT_EQ(Typed(), std::wstring(99, L'm'));
    EXPECT_TRUE(Type(L"xyz"));
    EXPECT_EQ(grid.Row, 12);
    EXPECT_EQ(TheTypedText().SearchText[99], 0);
}

TEST_F(AutoSearch, TwoGridsShareTheBuffer)
{
    Grid other;
    other.AutoSearch = lorvSearchFromTop;
    other.DefaultRowHeight = 17;
    SetCellText(other, 3, 1, L"xyz");
    SetCellText(grid, 12, 1, L"xbc");
    Type(L"ab");
    Type(L"x", other);
    EXPECT_EQ(other.Row, 3);
    EXPECT_EQ(Typed(), std::wstring(L"x\0", 2)) << "what was typed elsewhere took its place";
    TheTypedText().SearchText[1] = L'b';
    Type(L"c");
    EXPECT_EQ(Typed(), L"xbc");
    EXPECT_EQ(grid.Row, 12);
    EXPECT_TRUE(other.IsSearching);
}

TEST_F(AutoSearch, TheFirstHalfOfACharacterWaitsForTheOther)
{
    constexpr wchar_t clef[] = L"\xD834\xDD1E";
    SetCellText(grid, 12, 1, (std::wstring(L"a") + clef + L"x").c_str());
    Type(L"a");
    Settle();
    EXPECT_TRUE(AutoSearchKey(grid, clef[0]));
    EXPECT_EQ(Fired(), "");
    EXPECT_TRUE(TheTypedText().SearchLeadByte);
    EXPECT_TRUE(AutoSearchKey(grid, clef[1]));
    EXPECT_EQ(grid.Row, 12);
    EXPECT_EQ(grid.SearchLength, 3);
    EXPECT_FALSE(TheTypedText().SearchLeadByte);

    constexpr wchar_t other[] = L"\xD834\xDD22";
    Type(other);
    EXPECT_EQ(grid.SearchLength, 3) << "a pair that leads nowhere is taken back whole";
}

TEST_F(AutoSearch, SizeOfTheTablesEndsItEvenUnchanged)
{
    Type(L"a");
    Settle();
    ResizeRows(grid, grid.Rows);
    EXPECT_EQ(Fired(), "52");
    Type(L"a");
    Settle();
    ResizeCols(grid, grid.Cols);
    EXPECT_EQ(Fired(), "52");
    ResizeRows(grid, grid.Rows);
    EXPECT_EQ(Fired(), "");
}

TEST_F(AutoSearch, HandlerOfTheStartMayEndItAgain)
{
    events.On = [this](DISPID id, DISPPARAMS&) {
        if (id == StartAutoSearchId)
            ResizeRows(grid, 4);
    };
    EXPECT_FALSE(AutoSearchKey(grid, 'a')) << "the key is left to others";
    EXPECT_EQ(Fired(), "51 52");
    EXPECT_FALSE(grid.IsSearching);
}

TEST_F(AutoSearch, HandlerMayTakeEverythingAway)
{
    constexpr DISPID ids[] = {StartAutoSearchId,
                              2,
                              3,
                              4,
                              BeforeRowColChangeId,
                              7,
                              BeforeSelChangeId,
                              9,
                              BeforeScrollId,
                              AfterScrollId,
                              EndAutoSearchId};
    for (DISPID at : ids) {
        Resize(31, 5);
        SetCellText(grid, 25, 1, L"Zeppelin");
        MoveCursor(grid, 3, 1, 1);
        events.On = [&](DISPID id, DISPPARAMS&) {
            if (id == at)
                ResizeBoth(grid, 0, 0);
        };
        Type(L"ze");
        EndAutoSearch(grid);
        EXPECT_FALSE(grid.IsSearching) << at;
        EXPECT_EQ(grid.Rows, 0) << at;
        events.On = nullptr;
    }
}

TEST_F(AutoSearch, RefusedMoveLeavesTheTextTyped)
{
    refuse = [](DISPID id) { return id == BeforeRowColChangeId; };
    EXPECT_TRUE(Type(L"be"));
    EXPECT_EQ(grid.Row, 3);
    EXPECT_EQ(Typed(), L"be");
}
} // namespace
