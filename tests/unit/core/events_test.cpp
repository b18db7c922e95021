#include "core/events.h"

#include "support/fakes.h"

#include <stdexcept>

namespace
{

constexpr VARTYPE I2 = VT_I2, I4 = VT_I4, R4 = VT_R4, BOOL_ = VT_BOOL;
constexpr VARTYPE I2Ref = VT_BYREF | VT_I2, I4Ref = VT_BYREF | VT_I4, BoolRef = VT_BYREF | VT_BOOL;
constexpr VARTYPE DispatchRef = VT_BYREF | VT_DISPATCH, VariantRef = VT_BYREF | VT_VARIANT;

// Places for by-reference arguments, with values that a test can tell apart.
struct Places {
    short Short = 21;
    LONG Long = 22, Long2 = 23;
    VARIANT_BOOL Flag = VARIANT_FALSE, Flag2 = VARIANT_TRUE;
    IDispatch* Data = nullptr;
    VARIANT Variant = {};
};

struct EventRow {
    const char* Name;
    DISPID Id;
    void (*Raise)(Grid&, Places&);
    std::vector<VARTYPE> Types;
    std::vector<long> Values; // as the sink sees them; 0 for R4, dispatch and variant
};

const HDC Dc = reinterpret_cast<HDC>(static_cast<intptr_t>(77));
const RECT Area = {1, 2, 3, 4};

#define RAISE(call) [](Grid& g, [[maybe_unused]] Places& p) { event::call; }
const EventRow EventRows[] = {
    {"Click", -600, RAISE(Click(g)), {}, {}},
    {"DblClick", -601, RAISE(DblClick(g)), {}, {}},
    {"KeyDown", -602, RAISE(KeyDown(g, p.Short, 3)), {I2Ref, I2}, {21, 3}},
    {"KeyPress", -603, RAISE(KeyPress(g, p.Short)), {I2Ref}, {21}},
    {"KeyUp", -604, RAISE(KeyUp(g, p.Short, 3)), {I2Ref, I2}, {21, 3}},
    {"MouseDown", -605, RAISE(MouseDown(g, 1, 2, 3, 4)), {I2, I2, R4, R4}, {1, 2, 3, 4}},
    {"MouseMove", -606, RAISE(MouseMove(g, 1, 2, 3, 4)), {I2, I2, R4, R4}, {1, 2, 3, 4}},
    {"MouseUp", -607, RAISE(MouseUp(g, 1, 2, 3, 4)), {I2, I2, R4, R4}, {1, 2, 3, 4}},
    {"SelChange", 1, RAISE(SelChange(g)), {}, {}},
    {"RowColChange", 2, RAISE(RowColChange(g)), {}, {}},
    {"EnterCell", 3, RAISE(EnterCell(g)), {}, {}},
    {"LeaveCell", 4, RAISE(LeaveCell(g)), {}, {}},
    {"BeforeMouseDown", 5, RAISE(BeforeMouseDown(g, 1, 2, 3, 4)), {I2, I2, R4, R4, BoolRef}, {1, 2, 3, 4, 0}},
    {"BeforeRowColChange",
     6,
     RAISE(BeforeRowColChange(g, 1, 2, 3, 4)),
     {I4, I4, I4, I4, BoolRef},
     {1, 2, 3, 4, 0}},
    {"AfterRowColChange", 7, RAISE(AfterRowColChange(g, 1, 2, 3, 4)), {I4, I4, I4, I4}, {1, 2, 3, 4}},
    {"BeforeSelChange", 8, RAISE(BeforeSelChange(g, 1, 2, 3, 4)), {I4, I4, I4, I4, BoolRef}, {1, 2, 3, 4, 0}},
    {"AfterSelChange", 9, RAISE(AfterSelChange(g, 1, 2, 3, 4)), {I4, I4, I4, I4}, {1, 2, 3, 4}},
    {"BeforeScroll", 10, RAISE(BeforeScroll(g, 1, 2, 3, 4)), {I4, I4, I4, I4, BoolRef}, {1, 2, 3, 4, 0}},
    {"AfterScroll", 11, RAISE(AfterScroll(g, 1, 2, 3, 4)), {I4, I4, I4, I4}, {1, 2, 3, 4}},
    {"Compare", 12, RAISE(Compare(g, 1, 2)), {I4, I4, I2Ref}, {1, 2, 0}},
    {"BeforeSort", 13, RAISE(BeforeSort(g, 1, p.Short)), {I4, I2Ref}, {1, 21}},
    {"AfterSort", 14, RAISE(AfterSort(g, 1, p.Short)), {I4, I2Ref}, {1, 21}},
    {"BeforeMoveColumn", 15, RAISE(BeforeMoveColumn(g, 1, p.Long)), {I4, I4Ref}, {1, 22}},
    {"AfterMoveColumn", 16, RAISE(AfterMoveColumn(g, 1, p.Long)), {I4, I4Ref}, {1, 22}},
    {"BeforeUserResize", 17, RAISE(BeforeUserResize(g, 1, 2)), {I4, I4, BoolRef}, {1, 2, 0}},
    {"AfterUserResize", 18, RAISE(AfterUserResize(g, 1, 2)), {I4, I4}, {1, 2}},
    {"BeforeCollapse", 19, RAISE(BeforeCollapse(g, 1, 2)), {I4, I2, BoolRef}, {1, 2, 0}},
    {"AfterCollapse", 20, RAISE(AfterCollapse(g, 1, 2)), {I4, I2}, {1, 2}},
    {"BeforeEdit", 21, RAISE(BeforeEdit(g, 1, 2, p.Flag)), {I4, I4, BoolRef}, {1, 2, 0}},
    {"StartEdit", 22, RAISE(StartEdit(g, 1, 2, p.Flag2)), {I4, I4, BoolRef}, {1, 2, -1}},
    {"ValidateEdit", 23, RAISE(ValidateEdit(g, 1, 2, p.Flag)), {I4, I4, BoolRef}, {1, 2, 0}},
    {"AfterEdit", 24, RAISE(AfterEdit(g, 1, 2)), {I4, I4}, {1, 2}},
    {"KeyPressEdit", 25, RAISE(KeyPressEdit(g, 1, 2, p.Short)), {I4, I4, I2Ref}, {1, 2, 21}},
    {"KeyDownEdit", 26, RAISE(KeyDownEdit(g, 1, 2, p.Short, 4)), {I4, I4, I2Ref, I2}, {1, 2, 21, 4}},
    {"KeyUpEdit", 27, RAISE(KeyUpEdit(g, 1, 2, p.Short, 4)), {I4, I4, I2Ref, I2}, {1, 2, 21, 4}},
    {"ChangeEdit", 28, RAISE(ChangeEdit(g)), {}, {}},
    {"BeforePageBreak", 29, RAISE(BeforePageBreak(g, 1)), {I4, BoolRef}, {1, -1}},
    {"GetHeaderRow", 30, RAISE(GetHeaderRow(g, 1, p.Long)), {I4, I4Ref}, {1, 22}},
    {"StartPage", 31, RAISE(StartPage(g, 1, 2, p.Flag)), {I4, I4, BoolRef}, {1, 2, 0}},
    {"DrawCell",
     32,
     RAISE(DrawCell(g, Dc, 8, 9, Area)),
     {I4, I4, I4, I4, I4, I4, I4, BoolRef},
     {77, 8, 9, 1, 2, 3, 4, 0}},
    {"Error", 33, RAISE(Error(g, 129)), {I4, BoolRef}, {129, -1}},
    {"CellButtonClick", 34, RAISE(CellButtonClick(g, 1, 2)), {I4, I4}, {1, 2}},
    {"BeforeScrollTip", 35, RAISE(BeforeScrollTip(g, 1)), {I4}, {1}},
    {"AfterUserFreeze", 36, RAISE(AfterUserFreeze(g)), {}, {}},
    {"OLEStartDrag", 37, RAISE(OLEStartDrag(g, p.Data, p.Long)), {DispatchRef, I4Ref}, {0, 22}},
    {"OLEGiveFeedback", 38, RAISE(OLEGiveFeedback(g, p.Long, p.Flag2)), {I4Ref, BoolRef}, {22, -1}},
    {"OLESetData", 39, RAISE(OLESetData(g, p.Data, p.Short)), {DispatchRef, I2Ref}, {0, 21}},
    {"OLECompleteDrag", 40, RAISE(OLECompleteDrag(g, p.Long)), {I4Ref}, {22}},
    {"OLEDragOver",
     41,
     RAISE(OLEDragOver(g, p.Data, p.Long, 1, 2, 3, 4, p.Short)),
     {DispatchRef, I4Ref, I2, I2, R4, R4, I2Ref},
     {0, 22, 1, 2, 3, 4, 21}},
    {"OLEDragDrop",
     42,
     RAISE(OLEDragDrop(g, p.Data, p.Long, 1, 2, 3, 4)),
     {DispatchRef, I4Ref, I2, I2, R4, R4},
     {0, 22, 1, 2, 3, 4}},
    {"OLESetCustomDataObject", 47, RAISE(OLESetCustomDataObject(g, p.Variant)), {VariantRef}, {0}},
    {"CellChanged", 43, RAISE(CellChanged(g, 1, 2)), {I4, I4}, {1, 2}},
    {"BeforeMoveRow", 44, RAISE(BeforeMoveRow(g, 1, p.Long)), {I4, I4Ref}, {1, 22}},
    {"AfterMoveRow", 45, RAISE(AfterMoveRow(g, 1, p.Long)), {I4, I4Ref}, {1, 22}},
    {"SetupEditWindow",
     46,
     RAISE(SetupEditWindow(g, 1, 2, nullptr, true)),
     {I4, I4, I4, BOOL_},
     {1, 2, 0, -1}},
    {"SetupEditStyle",
     48,
     RAISE(SetupEditStyle(g, 1, 2, true, p.Long, p.Long2)),
     {I4, I4, BOOL_, I4Ref, I4Ref},
     {1, 2, -1, 22, 23}},
    {"ComboDropDown", 49, RAISE(ComboDropDown(g, 1, 2)), {I4, I4}, {1, 2}},
    {"ComboCloseUp", 50, RAISE(ComboCloseUp(g, 1, 2, p.Flag2)), {I4, I4, BoolRef}, {1, 2, -1}},
    {"StartAutoSearch", 51, RAISE(StartAutoSearch(g)), {}, {}},
    {"EndAutoSearch", 52, RAISE(EndAutoSearch(g)), {}, {}},
    {"SetFocus", 83, RAISE(SetFocus(g)), {}, {}},
    {"KillFocus", 84, RAISE(KillFocus(g)), {}, {}},
    {"Resize", 85, RAISE(Resize(g)), {}, {}},
    {"ComboDrawItem",
     86,
     RAISE(ComboDrawItem(g, {10, 11, 12, 13, 14}, Dc, Area)),
     {I4, I4, I4, I4, I4, I4, I4, I4, I4, I4, BoolRef},
     {10, 11, 12, 13, 14, 77, 1, 3, 2, 4, 0}},
};
#undef RAISE

TEST(Events, CarryTheirArguments)
{
    EventSink sink;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    for (const EventRow& row : EventRows) {
        SCOPED_TRACE(row.Name);
        sink.Events.clear();
        Places places;
        row.Raise(grid, places);
        ASSERT_EQ(sink.Events.size(), 1u);
        EXPECT_EQ(sink.Events[0].Id, row.Id);
        EXPECT_EQ(sink.Events[0].Types, row.Types);
        EXPECT_EQ(sink.Events[0].Values, row.Values);
    }
    EXPECT_EQ(std::size(EventRows), 64u);
}

TEST(Events, TheLastArgumentComesFirstInTheArray)
{
    EventSink sink;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    sink.On = [](DISPID, DISPPARAMS& parameters) {
        ASSERT_EQ(parameters.cArgs, 2u);
        EXPECT_EQ(parameters.rgvarg[0].lVal, 8);
        EXPECT_EQ(parameters.rgvarg[1].lVal, 7);
    };
    event::CellChanged(grid, 7, 8);
}

TEST(Events, MousePositionsAreSingles)
{
    EventSink sink;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    sink.On = [](DISPID, DISPPARAMS& parameters) {
        EXPECT_EQ(EventSink::Argument(parameters, 2).fltVal, 1.5f);
        EXPECT_EQ(EventSink::Argument(parameters, 3).fltVal, -2.25f);
    };
    event::MouseMove(grid, 0, 0, 1.5f, -2.25f);
}

TEST(Events, WhatAHandlerWritesComesBack)
{
    EventSink sink;
    FakeDispatch object;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    sink.On = [&](DISPID, DISPPARAMS& parameters) {
        for (UINT slot = 0; slot < parameters.cArgs; ++slot) {
            VARIANTARG& argument = parameters.rgvarg[slot];
            if (argument.vt == I2Ref)
                *argument.piVal = 5;
            else if (argument.vt == I4Ref)
                *argument.plVal = 6;
            else if (argument.vt == BoolRef)
                *argument.pboolVal = *argument.pboolVal ? VARIANT_FALSE : VARIANT_TRUE;
            else if (argument.vt == DispatchRef)
                *argument.ppdispVal = &object;
            else if (argument.vt == VariantRef)
                argument.pvarVal->vt = VT_I4, argument.pvarVal->lVal = 9;
        }
    };
    Places places;
    event::KeyDown(grid, places.Short, 0);
    EXPECT_EQ(places.Short, 5);
    event::OLEStartDrag(grid, places.Data, places.Long);
    EXPECT_EQ(places.Data, &object);
    EXPECT_EQ(places.Long, 6);
    event::SetupEditStyle(grid, 1, 1, false, places.Long, places.Long2);
    EXPECT_EQ(places.Long2, 6);
    event::BeforeEdit(grid, 1, 1, places.Flag);
    EXPECT_EQ(places.Flag, VARIANT_TRUE);
    event::OLESetCustomDataObject(grid, places.Variant);
    EXPECT_EQ(places.Variant.lVal, 9);
    EXPECT_EQ(event::Compare(grid, 1, 2), 5);
    EXPECT_TRUE(event::BeforeMouseDown(grid, 1, 0, 0, 0));
    EXPECT_TRUE(event::BeforeRowColChange(grid, 1, 1, 2, 2));
    EXPECT_FALSE(event::BeforePageBreak(grid, 1));
    EXPECT_FALSE(event::Error(grid, 129));
}

TEST(Events, WithoutASinkArgumentsKeepTheirValues)
{
    Grid grid;
    Places places;
    event::KeyDown(grid, places.Short, 0);
    EXPECT_EQ(places.Short, 21);
    EXPECT_FALSE(event::BeforeScroll(grid, 1, 1, 2, 2));
    EXPECT_TRUE(event::BeforePageBreak(grid, 1));
    EXPECT_TRUE(event::Error(grid, 129));
    EXPECT_EQ(event::Compare(grid, 1, 2), 0);
    EXPECT_EQ(grid.InEvent, 0u);
}

TEST(Fire, CountsNestedEvents)
{
    EventSink sink;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    std::vector<unsigned> depths;
    sink.On = [&](DISPID id, DISPPARAMS&) {
        depths.push_back(grid.InEvent);
        if (id == -600)
            event::DblClick(grid);
    };
    event::Click(grid);
    EXPECT_EQ(depths, (std::vector<unsigned>{1, 2}));
    EXPECT_EQ(grid.InEvent, 0u);
}

TEST(Fire, IsSilentWhileClosing)
{
    EventSink sink;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    sink.On = [](DISPID, DISPPARAMS& parameters) { *parameters.rgvarg[0].piVal = 99; };
    grid.Closing = 1;
    Places places;
    event::KeyPress(grid, places.Short);
    Fire(grid, -600, 0, nullptr);
    EXPECT_TRUE(sink.Events.empty());
    EXPECT_EQ(places.Short, 21);
    grid.Closing = 0;
    event::KeyPress(grid, places.Short);
    EXPECT_EQ(places.Short, 99);
}

TEST(Fire, AsksEverySinkInTheOrderOfConnection)
{
    EventSink first, second;
    Grid grid;
    Connection one(grid.EventSinks, &first), two(grid.EventSinks, &second);
    first.On = [&](DISPID, DISPPARAMS&) { EXPECT_TRUE(second.Events.empty()); };
    event::Click(grid);
    EXPECT_EQ(first.Events.size(), 1u);
    EXPECT_EQ(second.Events.size(), 1u);
}

TEST(Fire, AFailingOrThrowingSinkStopsNobody)
{
    EventSink fails, throws, last;
    Grid grid;
    Connection one(grid.EventSinks, &fails), two(grid.EventSinks, &throws), three(grid.EventSinks, &last);
    fails.Result = E_FAIL;
    throws.On = [](DISPID, DISPPARAMS&) { throw std::runtime_error("a handler's bug"); };
    event::Click(grid);
    EXPECT_EQ(last.Events.size(), 1u);
    EXPECT_EQ(grid.InEvent, 0u);
    EXPECT_EQ(throws.References, 1) << "the reference that was held for the call";
}

TEST(Fire, ASinkThatLeavesMakesAHole)
{
    EventSink first, second, third;
    Grid grid;
    Connection one(grid.EventSinks, &first), two(grid.EventSinks, &second), three(grid.EventSinks, &third);
    first.On = [&](DISPID, DISPPARAMS&) {
        grid.EventSinks.Remove(one.Cookie);
        grid.EventSinks.Remove(two.Cookie);
    };
    event::Click(grid);
    EXPECT_EQ(first.Events.size(), 1u);
    EXPECT_TRUE(second.Events.empty());
    EXPECT_EQ(third.Events.size(), 1u);
    EXPECT_EQ(grid.EventSinks.Size(), 3);
    EXPECT_EQ(grid.EventSinks.At(1), nullptr);
}

TEST(Fire, AHoleIsTakenAsItStandsAndALateComerIsNotAsked)
{
    EventSink first, second, filler, late;
    Grid grid;
    Connection one(grid.EventSinks, &first), two(grid.EventSinks, &second);
    uint32_t fillerCookie = 0, lateCookie = 0;
    bool done = false;
    first.On = [&](DISPID, DISPPARAMS&) {
        if (std::exchange(done, true))
            return;
        grid.EventSinks.Remove(two.Cookie);
        EXPECT_TRUE(grid.EventSinks.Add(&filler, fillerCookie));
        EXPECT_TRUE(grid.EventSinks.Add(&late, lateCookie));
    };
    event::Click(grid);
    EXPECT_TRUE(second.Events.empty());
    EXPECT_EQ(filler.Events.size(), 1u) << "it has taken the hole";
    EXPECT_TRUE(late.Events.empty());
    event::Click(grid);
    EXPECT_EQ(late.Events.size(), 1u);
    grid.EventSinks.Remove(fillerCookie);
    grid.EventSinks.Remove(lateCookie);
}

// The identity of a control that goes when its last reference goes.
class MortalControl : public Fake<IUnknown>
{
public:
    MortalControl() : Fake(IID_IUnknown) {}
};

TEST(Fire, HoldsTheControlThroughTheEvent)
{
    EventSink sink;
    MortalControl control;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    control.AddRef();
    grid.Outer = &control;
    int during = 0;
    sink.On = [&](DISPID, DISPPARAMS&) {
        control.Release(); // the host lets go
        during = control.References;
    };
    event::Click(grid);
    EXPECT_EQ(during, 1);
    EXPECT_EQ(control.References, 0);
    grid.Outer = nullptr;
}

TEST(KeepAlive, CannotHoldAControlOnItsWayOut)
{
    MortalControl control;
    Grid grid;
    grid.Outer = &control;
    grid.Closing = 1;
    {
        KeepAlive alive(grid);
        EXPECT_EQ(control.References, 0);
    }
    grid.Outer = nullptr;
}

TEST(SelectionEvents, AreHiddenOnDemandWhenAPositionIsOutsideTheGrid)
{
    struct {
        int Row1, Col1, Row2, Col2;
        bool Inside;
    } positions[] = {{1, 1, 49, 9, true},  {-1, 1, 2, 2, false}, {1, -1, 2, 2, false},
                     {1, 1, -1, 2, false}, {1, 1, 2, -1, false}, {50, 1, 2, 2, false},
                     {1, 10, 2, 2, false}, {1, 1, 50, 2, false}, {1, 1, 2, 10, false}};
    EventSink sink;
    Grid grid;
    Connection connection(grid.EventSinks, &sink);
    for (uint32_t flags : {0u, 1u, 8u, 9u}) {
        grid.Flags = flags;
        for (auto& p : positions) {
            sink.Events.clear();
            event::BeforeRowColChange(grid, p.Row1, p.Col1, p.Row2, p.Col2);
            event::AfterRowColChange(grid, p.Row1, p.Col1, p.Row2, p.Col2);
            event::BeforeSelChange(grid, p.Row1, p.Col1, p.Row2, p.Col2);
            event::AfterSelChange(grid, p.Row1, p.Col1, p.Row2, p.Col2);
            bool hidden = !p.Inside && (flags & lorvCFV7SelectionEvents) != 0;
            EXPECT_EQ(sink.Events.size(), hidden ? 0u : 4u) << p.Row1 << p.Col1 << p.Row2 << p.Col2;
        }
    }
    sink.Events.clear();
    grid.Flags = lorvCFV7SelectionEvents;
    event::BeforeScroll(grid, -1, -1, -1, -1);
    EXPECT_EQ(sink.Events.size(), 1u) << "other events with four positions always fire";
}

TEST(SinkList, GivesCookiesThatAreNeverZeroAndNeverShared)
{
    HeapBalance balance;
    EventSink sink;
    SinkList list;
    uint32_t first = 0, second = 0, third = 0;
    ASSERT_TRUE(list.Add(&sink, first));
    ASSERT_TRUE(list.Add(&sink, second));
    EXPECT_TRUE(list.Remove(first));
    ASSERT_TRUE(list.Add(&sink, third));
    EXPECT_NE(first, 0u);
    EXPECT_NE(first, second);
    EXPECT_NE(third, first);
    EXPECT_NE(third, second);
    EXPECT_EQ(list.Size(), 2) << "the hole is taken again";
    EXPECT_EQ(list.CookieAt(0), third);
    EXPECT_FALSE(list.Remove(first));
    EXPECT_FALSE(list.Remove(0));
    EXPECT_EQ(list.At(7), nullptr);
    EXPECT_EQ(sink.References, 2);
}

TEST(SinkList, WithoutMemoryTakesNothing)
{
    EventSink sink;
    SinkList list;
    uint32_t cookie = 0;
    FailingAllocation failing;
    EXPECT_FALSE(list.Add(&sink, cookie));
    EXPECT_EQ(sink.References, 0);
    EXPECT_EQ(list.Size(), 0);
}

} // namespace
