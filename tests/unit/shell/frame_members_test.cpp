#include "core/cell_store.h"
#include "core/property_frame.h"
#include "core/row_col.h"
#include "core/upcalls.h"
#include "platform/bstr.h"
#include "platform/com_ptr.h"
#include "shell/members/members.h"
#include "support/fakes.h"
#include "support/fonts.h"

#include <algorithm>
#include <climits>
#include <cwchar>
#include <functional>
#include <limits>
#include <string>

namespace
{

// The members over a grid on the stack, without a control around them.
class TestControl : public GridMembers
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override
    {
        *out = nullptr;
        return E_NOINTERFACE;
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
};

using Ids = std::vector<DISPID>;

class Members : public testing::Test
{
protected:
    PropertySink sink;
    TestControl grid;
    Connection connection{grid.PropertySinks, &sink};

    // The members as a host sees them.
    ILorvGrid& host = grid;
};

// A window on the screen for the grid, of which a test sees whether it was asked to repaint.
class MembersWithWindow : public Members
{
protected:
    void SetUp() override
    {
        grid.Window = window_ = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 400, 300,
                                                nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(window_, nullptr);
        FontChanged(grid); // measures the rows
        Settle();
    }
    void TearDown() override
    {
        grid.Window = nullptr;
        DestroyWindow(window_);
    }

    void Settle()
    {
        ValidateRect(window_, nullptr);
        sink.Changed.clear();
    }
    bool RepaintAsked() const { return GetUpdateRect(window_, nullptr, FALSE) != FALSE; }

    HWND window_ = nullptr;
};

template<class Value> using Getter = HRESULT (STDMETHODCALLTYPE ILorvGrid::*)(Value*);
template<class Value> using Setter = HRESULT (STDMETHODCALLTYPE ILorvGrid::*)(Value);

// Colours

struct ColourRow {
    const char* Name;
    DISPID Id;
    Getter<OLE_COLOR> Get;
    Setter<OLE_COLOR> Put;
    OLE_COLOR Grid::*Field;
    HGDIOBJ (*Drawing)(const DrawingObjects&); // what is made of it, if anything
};

#define DRAWING(field) [](const DrawingObjects& drawing) -> HGDIOBJ { return drawing.field; }
#define COLOUR_ROW(name, id, drawing)                                                                        \
    {                                                                                                        \
#name, id, &ILorvGrid::get_##name, &ILorvGrid::put_##name, &Grid::name, drawing                      \
    }
const ColourRow Colours[] = {
    COLOUR_ROW(BackColorAlternate, 96, DRAWING(Alternate)),
    COLOUR_ROW(BackColorFixed, 20, DRAWING(Fixed)),
    COLOUR_ROW(ForeColor, -513, nullptr),
    COLOUR_ROW(ForeColorFixed, 21, nullptr),
    COLOUR_ROW(BackColorSel, 22, DRAWING(Selection)),
    COLOUR_ROW(ForeColorSel, 23, nullptr),
    COLOUR_ROW(BackColorBkg, 24, DRAWING(Background)),
    COLOUR_ROW(GridColor, 43, DRAWING(GridPen)),
    COLOUR_ROW(GridColorFixed, 44, DRAWING(GridPenFixed)),
    COLOUR_ROW(FloodColor, 74, nullptr),
    COLOUR_ROW(TreeColor, 83, nullptr),
    COLOUR_ROW(SheetBorder, 102, DRAWING(SheetPen)),
    COLOUR_ROW(BackColorFrozen, 191, DRAWING(Frozen)),
    COLOUR_ROW(ForeColorFrozen, 192, nullptr),
};

TEST_F(Members, ColoursAreStoredAndNotifiedOnceWhenTheyChange)
{
    for (const ColourRow& row : Colours) {
        SCOPED_TRACE(row.Name);
        grid.RequiresSave = false;
        EXPECT_EQ((host.*row.Put)(0x123456), S_OK);
        EXPECT_EQ(grid.*row.Field, 0x123456u);
        EXPECT_EQ(sink.Taken(), Ids{row.Id});
        EXPECT_TRUE(grid.RequiresSave);

        grid.RequiresSave = false;
        EXPECT_EQ((host.*row.Put)(0x123456), S_OK);
        EXPECT_EQ(sink.Taken(), Ids{}) << "the present colour is no change";
        EXPECT_FALSE(grid.RequiresSave);

        OLE_COLOR read = 0;
        EXPECT_EQ((host.*row.Get)(&read), S_OK);
        EXPECT_EQ(read, 0x123456u);
        EXPECT_EQ((host.*row.Get)(nullptr), E_POINTER);
    }
}

TEST_F(Members, ColoursTakeAnyValue)
{
    for (const ColourRow& row : Colours)
        for (OLE_COLOR colour : {0xFFFFFFFFul, 0x80000080ul, 0x03000000ul, 0ul}) {
            EXPECT_EQ((host.*row.Put)(colour), S_OK) << row.Name;
            EXPECT_EQ(grid.*row.Field, colour) << row.Name;
        }
}

TEST(Colours, RebuildTheirOwnDrawingObjectAlone)
{
    for (const ColourRow& row : Colours) {
        SCOPED_TRACE(row.Name);
        TestControl grid;
        (static_cast<ILorvGrid&>(grid).*row.Put)(0x123456);
        for (const ColourRow& other : Colours)
            if (other.Drawing) {
                EXPECT_EQ(other.Drawing(grid.Drawing) != nullptr, &other == &row) << other.Name;
            }
    }
}

TEST_F(MembersWithWindow, ColoursRepaint)
{
    for (const ColourRow& row : Colours) {
        Settle();
        (host.*row.Put)(0x123456);
        EXPECT_TRUE(RepaintAsked()) << row.Name;
        Settle();
        (host.*row.Put)(0x123456);
        EXPECT_FALSE(RepaintAsked()) << row.Name << " again";
    }
}

TEST_F(Members, ABackColorClearsTheAlternateColourAndTellsOfBoth)
{
    host.put_BackColorAlternate(0x00FF00);
    sink.Changed.clear();
    sink.On = [&](DISPID) { EXPECT_EQ(grid.BackColorAlternate, 0u) << "both are set before the first word"; };
    EXPECT_EQ(host.put_BackColor(0x0000FF), S_OK);
    EXPECT_EQ(sink.Taken(), (Ids{-501, 96}));
    EXPECT_EQ(grid.BackColor, 0x0000FFu);
    EXPECT_NE(grid.Drawing.Back, nullptr);
    EXPECT_EQ(grid.Drawing.Alternate, nullptr);
}

TEST_F(Members, ThePresentBackColorClearsNothing)
{
    host.put_BackColorAlternate(0x00FF00);
    sink.Changed.clear();
    EXPECT_EQ(host.put_BackColor(0x80000005), S_OK);
    EXPECT_EQ(grid.BackColorAlternate, 0x00FF00u);
    EXPECT_EQ(sink.Taken(), Ids{});
}

TEST_F(Members, WithoutAnAlternateColourItReadsAsTheBackColor)
{
    OLE_COLOR read = 0;
    host.get_BackColorAlternate(&read);
    EXPECT_EQ(read, 0x80000005u);
    host.put_BackColorAlternate(0x00FF00);
    host.get_BackColorAlternate(&read);
    EXPECT_EQ(read, 0x00FF00u);
    host.get_BackColor(&read);
    EXPECT_EQ(read, 0x80000005u);
}

// Switches

struct SwitchRow {
    const char* Name;
    DISPID Id;
    Getter<VARIANT_BOOL> Get;
    Setter<VARIANT_BOOL> Put;
    bool Repaints;
};

#define SWITCH_ROW(name, id, repaints)                                                                       \
    {                                                                                                        \
#name, id, &ILorvGrid::get_##name, &ILorvGrid::put_##name, repaints                                  \
    }
const SwitchRow Switches[] = {
    SWITCH_ROW(ScrollTrack, 28, false),     SWITCH_ROW(AllowBigSelection, 65, false),
    SWITCH_ROW(AllowSelection, 103, false), SWITCH_ROW(AutoResize, 85, false),
    SWITCH_ROW(MultiTotals, 95, false),     SWITCH_ROW(VirtualData, 70, false),
    SWITCH_ROW(AutoSizeMouse, 180, false),  SWITCH_ROW(WordWrap, 25, true),
    SWITCH_ROW(ExtendLastCol, 88, true),    SWITCH_ROW(PicturesOver, 104, true),
    SWITCH_ROW(RightToLeft, 94, true),
};

TEST_F(Members, SwitchesTakeBitZeroOfTheValue)
{
    const VARIANT_BOOL values[][2] = {{-1, -1}, {0, 0},  {1, -1},  {2, 0},
                                      {3, -1},  {-2, 0}, {-1, -1}, {-1, -1}};
    for (const SwitchRow& row : Switches)
        for (auto& value : values) {
            SCOPED_TRACE(testing::Message() << row.Name << " = " << value[0]);
            VARIANT_BOOL read = 5;
            EXPECT_EQ((host.*row.Put)(value[0]), S_OK);
            EXPECT_EQ((host.*row.Get)(&read), S_OK);
            EXPECT_EQ(read, value[1]);
            EXPECT_EQ(sink.Taken(), Ids{row.Id}) << "its present value is news as well";
            EXPECT_EQ((host.*row.Get)(nullptr), E_POINTER);
        }
}

TEST_F(Members, ASwitchLeavesItsNeighboursAlone)
{
    auto all = [&] {
        std::vector<VARIANT_BOOL> values;
        for (const SwitchRow& row : Switches) {
            values.push_back(0);
            (host.*row.Get)(&values.back());
        }
        return values;
    };
    for (size_t each = 0; each < std::size(Switches); ++each) {
        std::vector<VARIANT_BOOL> expected = all();
        expected[each] = static_cast<VARIANT_BOOL>(~expected[each]);
        (host.*Switches[each].Put)(expected[each]);
        EXPECT_EQ(all(), expected) << Switches[each].Name;
    }
}

TEST_F(MembersWithWindow, SwitchesRepaintWhereTheyChangeThePicture)
{
    for (const SwitchRow& row : Switches) {
        Settle();
        (host.*row.Put)(VARIANT_TRUE);
        EXPECT_EQ(RepaintAsked(), row.Repaints) << row.Name;
    }
}

// Enumerated words

struct EnumRow {
    const char* Name;
    DISPID Id;
    int Largest;
    bool TrueIsOne;
    bool Repaints;
    std::function<HRESULT(ILorvGrid&, int)> Put;
    std::function<int(ILorvGrid&)> Get;
    std::function<HRESULT(ILorvGrid&)> GetNothing;
};

template<class Value>
EnumRow MakeEnumRow(const char* name, DISPID id, int largest, bool trueIsOne, bool repaints,
                    Getter<Value> get, Setter<Value> put)
{
    return {name,
            id,
            largest,
            trueIsOne,
            repaints,
            [=](ILorvGrid& grid, int value) { return (grid.*put)(static_cast<Value>(value)); },
            [=](ILorvGrid& grid) {
                Value value = static_cast<Value>(99);
                EXPECT_EQ((grid.*get)(&value), S_OK);
                return static_cast<int>(value);
            },
            [=](ILorvGrid& grid) { return (grid.*get)(nullptr); }};
}

#define ENUM_ROW(name, id, largest, trueIsOne, repaints)                                                     \
    MakeEnumRow(#name, id, largest, trueIsOne, repaints, &ILorvGrid::get_##name, &ILorvGrid::put_##name)
const EnumRow Enums[] = {
    ENUM_ROW(TextStyle, 26, 4, false, true),
    ENUM_ROW(TextStyleFixed, 27, 4, false, true),
    ENUM_ROW(FocusRect, 29, 5, false, true),
    ENUM_ROW(HighLight, 30, 2, true, true),
    ENUM_ROW(FillStyle, 40, 1, false, false),
    ENUM_ROW(GridLines, 41, 14, true, true),
    ENUM_ROW(GridLinesFixed, 42, 14, false, true),
    ENUM_ROW(PictureType, 64, 2, false, false),
    ENUM_ROW(AllowUserResizing, 66, 4, false, false),
    ENUM_ROW(AutoSizeMode, 93, 1, false, false),
    ENUM_ROW(OwnerDraw, 97, 6, false, true),
    ENUM_ROW(DataMode, 98, 4, false, true),
    ENUM_ROW(OLEDragMode, 99, 1, false, false),
    ENUM_ROW(TabBehavior, 101, 1, false, false),
    ENUM_ROW(Ellipsis, 107, 2, false, true),
    ENUM_ROW(ShowComboButton, 176, 2, true, true),
    ENUM_ROW(ComboSearch, 178, 3, false, false),
    ENUM_ROW(AllowUserFreezing, 190, 3, false, true),
    ENUM_ROW(WallPaperAlignment, 202, 10, false, true),
    ENUM_ROW(BorderStyle, -504, 1, false, true),
    ENUM_ROW(Appearance, -520, 3, false, true),
};

TEST_F(Members, WordsTakeTheirValuesAndNotifyEveryTime)
{
    for (const EnumRow& row : Enums)
        for (int value = 0; value <= row.Largest; ++value)
            for (int twice = 0; twice < 2; ++twice) {
                SCOPED_TRACE(testing::Message() << row.Name << " = " << value);
                grid.RequiresSave = false;
                EXPECT_EQ(row.Put(host, value), S_OK);
                EXPECT_EQ(row.Get(host), value);
                EXPECT_EQ(sink.Taken(), Ids{row.Id});
                EXPECT_TRUE(grid.RequiresSave);
            }
    for (const EnumRow& row : Enums)
        EXPECT_EQ(row.GetNothing(host), E_POINTER) << row.Name;
}

TEST_F(Members, WordsRefuseWhatIsPastTheirLastValue)
{
    for (const EnumRow& row : Enums) {
        row.Put(host, 1);
        sink.Changed.clear();
        grid.RequiresSave = false;
        for (int value : {row.Largest + 1, 255, 32767, 65536, 65537, -2, -32768, INT_MAX, INT_MIN}) {
            SCOPED_TRACE(testing::Message() << row.Name << " = " << value);
            EXPECT_EQ(row.Put(host, value), LORV_E_VALUE);
            EXPECT_EQ(row.Get(host), 1);
        }
        EXPECT_EQ(sink.Taken(), Ids{}) << row.Name;
        EXPECT_FALSE(grid.RequiresSave) << row.Name;
    }
}

TEST_F(Members, SomeWordsTakeAnAutomationTrueForOneAndTheOthersRefuseIt)
{
    for (const EnumRow& row : Enums) {
        row.Put(host, 0);
        sink.Changed.clear();
        EXPECT_EQ(row.Put(host, -1), row.TrueIsOne ? S_OK : LORV_E_VALUE) << row.Name;
        EXPECT_EQ(row.Get(host), row.TrueIsOne ? 1 : 0) << row.Name;
        EXPECT_EQ(sink.Taken(), row.TrueIsOne ? Ids{row.Id} : Ids{}) << row.Name;
    }
}

TEST_F(MembersWithWindow, WordsRepaintWhereTheyChangeThePicture)
{
    for (const EnumRow& row : Enums) {
        Settle();
        row.Put(host, 1);
        EXPECT_EQ(RepaintAsked(), row.Repaints) << row.Name;
    }
}

TEST_F(MembersWithWindow, AFocusRectRepaintsTheCurrentCellAlone)
{
    Settle();
    host.put_FocusRect(lorvFocusHeavy);
    RECT update = {}, cell = CellRect(grid, 1, 1);
    GetUpdateRect(window_, &update, FALSE);
    EXPECT_TRUE(EqualRect(&update, &cell));
}

TEST_F(MembersWithWindow, TheRepaintIsAskedForBeforeTheNotification)
{
    bool asked = false;
    sink.On = [&](DISPID) { asked = RepaintAsked(); };
    host.put_WordWrap(VARIANT_TRUE);
    EXPECT_TRUE(asked);
}

TEST_F(Members, MousePointersHaveGaps)
{
    for (int value = -3; value <= 110; ++value) {
        bool known = (value >= 0 && value <= 15) || (value >= 50 && value <= 54) || value == 99;
        grid.MousePointer = 7;
        EXPECT_EQ(host.put_MousePointer(static_cast<MousePointerSettings>(value)),
                  known ? S_OK : LORV_E_VALUE);
        EXPECT_EQ(grid.MousePointer, known ? value : 7);
        EXPECT_EQ(sink.Taken(), known ? Ids{-521} : Ids{}) << value;
    }
    MousePointerSettings read = lorvDefault;
    EXPECT_EQ(host.get_MousePointer(&read), S_OK);
    EXPECT_EQ(host.get_MousePointer(nullptr), E_POINTER);
}

struct CursorMessages {
    LPARAM TestedAt = 0;
    WPARAM Window = 0;
    LPARAM SetFor = 0;
    int Count = 0;
};
CursorMessages cursorMessages;

LRESULT CALLBACK CursorProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCHITTEST) {
        cursorMessages.TestedAt = lParam;
        return HTBORDER;
    }
    if (message == WM_SETCURSOR) {
        cursorMessages.Window = wParam;
        cursorMessages.SetFor = lParam;
        ++cursorMessages.Count;
        return TRUE;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(MembersWithWindow, ANewMousePointerShowsWhileTheMouseRests)
{
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CursorProcedure));
    POINT at = {};
    GetCursorPos(&at);
    cursorMessages = {};
    bool shown = false;
    sink.On = [&](DISPID) { shown = cursorMessages.Count == 1; };
    EXPECT_EQ(host.put_MousePointer(lorvHand), S_OK);
    EXPECT_EQ(cursorMessages.TestedAt, MAKELPARAM(at.x, at.y));
    EXPECT_EQ(cursorMessages.Window, reinterpret_cast<WPARAM>(window_));
    EXPECT_EQ(LOWORD(cursorMessages.SetFor), HTBORDER);
    EXPECT_EQ(cursorMessages.Count, 1);
    EXPECT_TRUE(shown) << "before the sink hears of it";
    EXPECT_EQ(host.put_MousePointer(static_cast<MousePointerSettings>(20)), LORV_E_VALUE);
    EXPECT_EQ(cursorMessages.Count, 1);
}

TEST_F(Members, EditableNeverRefuses)
{
    const int values[][2] = {{0, 0}, {1, 1}, {2, 2}, {3, 1}, {5, 1}, {-1, 1}, {INT_MIN, 1}, {INT_MAX, 1}};
    for (auto& value : values) {
        EditableSettings read = lorvEDNone;
        EXPECT_EQ(host.put_Editable(static_cast<EditableSettings>(value[0])), S_OK);
        EXPECT_EQ(host.get_Editable(&read), S_OK);
        EXPECT_EQ(static_cast<int>(read), value[1]) << value[0];
        EXPECT_EQ(sink.Taken(), Ids{71});
    }
    EXPECT_EQ(host.get_Editable(nullptr), E_POINTER);
}

TEST_F(MembersWithWindow, GridLineWidthRebuildsBothPens)
{
    HPEN pen = grid.Drawing.GridPen, fixedPen = grid.Drawing.GridPenFixed;
    for (SHORT width : {0, 1, 5, 32767}) {
        Settle();
        EXPECT_EQ(host.put_GridLineWidth(width), S_OK);
        SHORT read = -1;
        EXPECT_EQ(host.get_GridLineWidth(&read), S_OK);
        EXPECT_EQ(read, width);
        EXPECT_TRUE(RepaintAsked());
        EXPECT_EQ(sink.Taken(), Ids{84});
    }
    EXPECT_NE(grid.Drawing.GridPen, pen);
    EXPECT_NE(grid.Drawing.GridPenFixed, fixedPen);
    LOGPEN description = {};
    host.put_GridLineWidth(5);
    GetObjectW(grid.Drawing.GridPen, sizeof description, &description);
    EXPECT_EQ(description.lopnWidth.x, 5);
    GetObjectW(grid.Drawing.GridPenFixed, sizeof description, &description);
    EXPECT_EQ(description.lopnWidth.x, 5);

    sink.Changed.clear();
    EXPECT_EQ(host.put_GridLineWidth(-1), LORV_E_VALUE);
    EXPECT_EQ(grid.GridLineWidth, 5);
    EXPECT_EQ(sink.Taken(), Ids{});
}

TEST_F(MembersWithWindow, RedrawStoresWildValuesAsDirect)
{
    const int values[][2] = {{0, 0}, {1, 1}, {2, 2}, {7, 1}, {3, 1}, {-1, 1}, {INT_MIN, 1}};
    for (auto& value : values) {
        Settle();
        RedrawSettings read = lorvRDNone;
        EXPECT_EQ(host.put_Redraw(static_cast<RedrawSettings>(value[0])), S_OK);
        EXPECT_EQ(host.get_Redraw(&read), S_OK);
        EXPECT_EQ(static_cast<int>(read), value[1]) << value[0];
        EXPECT_EQ(sink.Taken(), Ids{31});
        EXPECT_EQ(RepaintAsked(), value[1] != 0) << value[0];
    }
}

TEST_F(MembersWithWindow, WithRedrawOffACellIsNotRepainted)
{
    host.put_Redraw(lorvRDNone);
    Settle();
    EXPECT_EQ(host.put_TextMatrix(1, 1, Bstr(L"x").Get()), S_OK);
    EXPECT_FALSE(RepaintAsked());
}

TEST_F(Members, VersionCanOnlyBeWhatItIs)
{
    LONG version = 0;
    EXPECT_EQ(host.get_Version(&version), S_OK);
    EXPECT_EQ(version, 802);
    EXPECT_EQ(host.get_Version(nullptr), E_POINTER);
    EXPECT_EQ(host.put_Version(802), S_OK);
    for (LONG other : {801, 803, 0, -1})
        EXPECT_EQ(host.put_Version(other), LORV_E_CANNOTSET);
    EXPECT_EQ(sink.Taken(), Ids{});
}

TEST_F(Members, FlagsAndDataModeAskTheHostWhetherItIsADesigner)
{
    AmbientHost ambient;
    ambient.UserMode = false;
    for (bool flags : {true, false}) {
        TestControl other;
        ambient.Attach(other);
        if (flags) {
            EXPECT_EQ(other.put_Flags(lorvCFAutoClipboard), S_OK);
        } else {
            EXPECT_EQ(other.put_DataMode(static_cast<DataModeSettings>(1)), S_OK);
        }
        EXPECT_EQ(other.DesignModeCache, 1);
    }
    EXPECT_EQ(ambient.Asked, 2);
}

TEST_F(Members, FlagsAreStoredAsTheyAre)
{
    ControlFlagsSettings read = lorvCFNone;
    EXPECT_EQ(host.put_Flags(static_cast<ControlFlagsSettings>(13)), S_OK);
    EXPECT_EQ(host.get_Flags(&read), S_OK);
    EXPECT_EQ(static_cast<int>(read), 13);
    EXPECT_EQ(sink.Taken(), Ids{217});
    EXPECT_EQ(host.get_Flags(nullptr), E_POINTER);
}

TEST_F(MembersWithWindow, EnabledIsTheWindowsToo)
{
    for (VARIANT_BOOL on : {VARIANT_FALSE, VARIANT_TRUE}) {
        Settle();
        EXPECT_EQ(host.put_Enabled(on), S_OK);
        VARIANT_BOOL read = 5;
        EXPECT_EQ(host.get_Enabled(&read), S_OK);
        EXPECT_EQ(read, on);
        EXPECT_EQ(IsWindowEnabled(window_), on != VARIANT_FALSE);
        EXPECT_EQ(sink.Taken(), Ids{-514});
    }
    EXPECT_EQ(host.get_Enabled(nullptr), E_POINTER);
}

TEST_F(MembersWithWindow, RefreshRepaintsAndTheHandleIsTheWindows)
{
    LONG handle = 0;
    EXPECT_EQ(host.get_hWnd(&handle), S_OK);
    EXPECT_EQ(handle, HandleToLong(window_));
    EXPECT_EQ(host.get_hWnd(nullptr), E_POINTER);
    EXPECT_EQ(host.Refresh(), S_OK);
    EXPECT_TRUE(RepaintAsked());
    EXPECT_EQ(sink.Taken(), Ids{});
}

// Pictures

struct PictureRow {
    const char* Name;
    DISPID Notified;
    Getter<IPictureDisp*> Get;
    Setter<IPictureDisp*> Put, PutRef;
    bool Repaints, RunTimeOnly;
};

#define PICTURE_ROW(name, id, repaints, runTimeOnly)                                                         \
    {                                                                                                        \
#name, id, &ILorvGrid::get_##name, &ILorvGrid::put_##name, &ILorvGrid::putref_##name, repaints,      \
            runTimeOnly                                                                                      \
    }
const PictureRow Pictures[] = {
    PICTURE_ROW(WallPaper, 201, true, false),
    PICTURE_ROW(CellButtonPicture, 177, true, false),
    // The sort pictures are announced under the number of WallPaper on purpose.
    PICTURE_ROW(SortAscendingPicture, 201, true, true),
    PICTURE_ROW(SortDescendingPicture, 201, true, true),
    PICTURE_ROW(NodeOpenPicture, 196, true, false),
    PICTURE_ROW(NodeClosedPicture, 197, true, false),
    PICTURE_ROW(MouseIcon, -522, false, false),
};

TEST_F(MembersWithWindow, PicturesAreSharedWithTheHost)
{
    for (const PictureRow& row : Pictures) {
        SCOPED_TRACE(row.Name);
        FakePicture first, second;
        for (Setter<IPictureDisp*> put : {row.Put, row.PutRef}) {
            Settle();
            EXPECT_EQ((host.*put)(first.Get()), S_OK);
            EXPECT_EQ(first.References, 1);
            EXPECT_EQ(RepaintAsked(), row.Repaints);
            EXPECT_EQ(sink.Taken(), Ids{row.Notified});

            IPictureDisp* read = nullptr;
            EXPECT_EQ((host.*row.Get)(&read), S_OK);
            EXPECT_EQ(read, first.Get());
            EXPECT_EQ(first.References, 2);
            read->Release();

            EXPECT_EQ((host.*put)(first.Get()), S_OK);
            EXPECT_EQ(first.References, 1) << "itself again";
            EXPECT_EQ((host.*put)(second.Get()), S_OK);
            EXPECT_EQ(first.References, 0);
            EXPECT_EQ((host.*put)(nullptr), S_OK);
            EXPECT_EQ(second.References, 0);
            EXPECT_EQ((host.*row.Get)(&read), S_OK);
            EXPECT_EQ(read, nullptr);
        }
        EXPECT_EQ((host.*row.Get)(nullptr), E_POINTER);
        grid.DesignModeCache = 1;
        IPictureDisp* read = nullptr;
        EXPECT_EQ((host.*row.Get)(&read), row.RunTimeOnly ? LORV_E_DESIGNMODE : S_OK);
        grid.DesignModeCache = -1;
    }
}

// The stock font

IFont& FontOf(Grid& grid)
{
    return *GridFont(grid);
}

TEST_F(Members, FontMembersReadAndWriteTheOneFontAndAnnounceIt)
{
    struct {
        const char* Name;
        std::function<HRESULT()> Put;
        std::function<bool()> Stored;
    } rows[] = {
        {"FontName", [&] { return host.put_FontName(Bstr(L"Tahoma").Get()); },
         [&] {
             Bstr read;
             EXPECT_EQ(host.get_FontName(read.Put()), S_OK);
             std::wstring face = LookOf(SystemFont(L"Tahoma", 8).Get()).Face;
             return LookOf(&FontOf(grid)).Face == face && read.Text() == face;
         }},
        {"FontSize", [&] { return host.put_FontSize(24); },
         [&] {
             CY size = {};
             FLOAT read = 0;
             FontOf(grid).get_Size(&size);
             EXPECT_EQ(host.get_FontSize(&read), S_OK);
             return size.int64 > 230000 && size.int64 < 250000 && read > 23 && read < 25;
         }},
    };
    for (auto& row : rows) {
        SCOPED_TRACE(row.Name);
        grid.RequiresSave = false;
        GridFontHandle(grid);
        sink.On = [&](DISPID) { EXPECT_EQ(grid.FontHandle, nullptr) << "the handle is stale by then"; };
        EXPECT_EQ(row.Put(), S_OK);
        EXPECT_EQ(sink.Taken(), Ids{DISPID_FONT});
        EXPECT_TRUE(row.Stored());
        EXPECT_TRUE(grid.RequiresSave);
    }
}

struct FontFlagRow {
    const char* Name;
    Getter<VARIANT_BOOL> Get;
    Setter<VARIANT_BOOL> Put;
    HRESULT (STDMETHODCALLTYPE IFont::*Read)(BOOL*);
};
const FontFlagRow FontFlags[] = {
    {"FontBold", &ILorvGrid::get_FontBold, &ILorvGrid::put_FontBold, &IFont::get_Bold},
    {"FontItalic", &ILorvGrid::get_FontItalic, &ILorvGrid::put_FontItalic, &IFont::get_Italic},
    {"FontStrikethru", &ILorvGrid::get_FontStrikethru, &ILorvGrid::put_FontStrikethru,
     &IFont::get_Strikethrough},
    {"FontUnderline", &ILorvGrid::get_FontUnderline, &ILorvGrid::put_FontUnderline, &IFont::get_Underline},
};

TEST_F(Members, FontFlagsAreThoseOfTheFont)
{
    for (const FontFlagRow& row : FontFlags)
        for (VARIANT_BOOL on : {VARIANT_TRUE, VARIANT_TRUE, VARIANT_FALSE}) {
            SCOPED_TRACE(row.Name);
            BOOL stored = 5;
            VARIANT_BOOL read = 5;
            EXPECT_EQ((host.*row.Put)(on), S_OK);
            (FontOf(grid).*row.Read)(&stored);
            EXPECT_EQ(stored != FALSE, on != VARIANT_FALSE);
            EXPECT_EQ((host.*row.Get)(&read), S_OK);
            EXPECT_EQ(read, on);
            EXPECT_EQ(sink.Taken(), Ids{DISPID_FONT});
            EXPECT_EQ((host.*row.Get)(nullptr), E_POINTER);
        }
}

TEST_F(Members, AFormDesignerReadsTheFontAsAWholeAlone)
{
    grid.DesignModeCache = 1;
    BSTR name = nullptr;
    FLOAT number = 0;
    VARIANT_BOOL flag = 0;
    RedrawSettings redraw = lorvRDNone;
    EXPECT_EQ(host.get_FontName(&name), LORV_E_DESIGNMODE);
    EXPECT_EQ(host.get_FontSize(&number), LORV_E_DESIGNMODE);
    EXPECT_EQ(host.get_FontWidth(&number), LORV_E_DESIGNMODE);
    for (const FontFlagRow& row : FontFlags)
        EXPECT_EQ((host.*row.Get)(&flag), LORV_E_DESIGNMODE) << row.Name;
    EXPECT_EQ(host.get_Redraw(&redraw), LORV_E_DESIGNMODE);
    IFontDisp* font = nullptr;
    EXPECT_EQ(host.get_Font(&font), S_OK);
    font->Release();
}

TEST_F(Members, AFormDesignerMayWriteAllOfTheFontButItsName)
{
    grid.DesignModeCache = 1;
    EXPECT_EQ(host.put_FontName(Bstr(L"Tahoma").Get()), LORV_E_DESIGNMODE);
    EXPECT_EQ(sink.Taken(), Ids{});
    EXPECT_EQ(host.put_FontSize(12), S_OK);
    EXPECT_EQ(host.put_FontWidth(3), S_OK);
    for (const FontFlagRow& row : FontFlags)
        EXPECT_EQ((host.*row.Put)(VARIANT_TRUE), S_OK) << row.Name;
}

TEST_F(Members, SinksHearOfAFontBeforeTheRowsAreMeasured)
{
    FontChanged(grid);
    int before = grid.DefaultRowHeight, during = 0;
    sink.On = [&](DISPID) { during = grid.DefaultRowHeight; };
    EXPECT_EQ(host.put_FontSize(40), S_OK);
    EXPECT_EQ(during, before);
    EXPECT_GT(grid.DefaultRowHeight, before);
}

TEST_F(Members, AFontOfAnotherHeightMakesSpilledTextsMergeAnew)
{
    FontChanged(grid);
    grid.MergeCells = lorvMergeSpill;
    grid.OptionWord &= ~OptionMergeStale;
    host.put_FontUnderline(VARIANT_FALSE);
    EXPECT_FALSE(HasOption(grid, OptionMergeStale)) << "the height is the same";
    host.put_FontSize(40);
    EXPECT_TRUE(HasOption(grid, OptionMergeStale));
}

TEST_F(Members, AFontIsSharedWithTheHost)
{
    TestControl other;
    IFontDisp* font = nullptr;
    ASSERT_EQ(other.get_Font(&font), S_OK);
    EXPECT_EQ(host.putref_Font(font), S_OK);
    EXPECT_EQ(sink.Taken(), Ids{DISPID_FONT});
    EXPECT_EQ(grid.Font, other.Font);
    EXPECT_EQ(host.put_Font(nullptr), S_OK);
    EXPECT_NE(&FontOf(grid), other.Font) << "no font means the default one";
    EXPECT_EQ(host.put_Font(font), S_OK);
    EXPECT_EQ(grid.Font, other.Font);
    font->Release();
    EXPECT_EQ(host.get_Font(nullptr), E_POINTER);
}

TEST_F(Members, WhatIsNoFontIsRefused)
{
    FakeDispatch object;
    EXPECT_EQ(host.put_Font(reinterpret_cast<IFontDisp*>(static_cast<IDispatch*>(&object))), LORV_E_VALUE);
    EXPECT_EQ(host.put_FontName(nullptr), LORV_E_VALUE);
    for (FLOAT size : {std::numeric_limits<float>::quiet_NaN(), 1e30f, -1e30f})
        EXPECT_EQ(host.put_FontSize(size), LORV_E_VALUE);
    EXPECT_EQ(sink.Taken(), Ids{});
}

TEST_F(MembersWithWindow, FontWidthIsStoredUncheckedAndUnannounced)
{
    for (FLOAT width : {0.0f, 7.5f, -3.0f, 1e30f}) {
        Settle();
        grid.RequiresSave = false;
        EXPECT_EQ(host.put_FontWidth(width), S_OK);
        FLOAT read = 1;
        EXPECT_EQ(host.get_FontWidth(&read), S_OK);
        EXPECT_EQ(read, width);
        EXPECT_TRUE(RepaintAsked());
        EXPECT_EQ(sink.Taken(), Ids{});
        EXPECT_FALSE(grid.RequiresSave);
    }
    EXPECT_EQ(host.get_FontWidth(nullptr), E_POINTER);
}

// Extents

struct CountRow {
    const char* Name;
    DISPID Id;
    Getter<LONG> Get;
    Setter<LONG> Put;
    int32_t Grid::*Field;
    LONG Good;
    std::vector<LONG> Refused;
};

#define COUNT_ROW(name, id, good, ...)                                                                       \
    {                                                                                                        \
#name, id, &ILorvGrid::get_##name, &ILorvGrid::put_##name, &Grid::name, good, __VA_ARGS__            \
    }
const CountRow CountRows[] = {
    COUNT_ROW(Rows, 7, 60, {-1, INT_MIN}),
    COUNT_ROW(Cols, 8, 12, {-1, INT_MIN}),
    COUNT_ROW(FixedRows, 11, 3, {-1, 51, INT_MAX}),
    COUNT_ROW(FixedCols, 12, 2, {-1, 11, INT_MAX}),
    COUNT_ROW(FrozenRows, 188, 2, {-1, 50, INT_MAX}),
    COUNT_ROW(FrozenCols, 189, 2, {-1, 10, INT_MAX}),
};

TEST(Counts, AreStoredRepaintedAndNotified)
{
    for (const CountRow& row : CountRows) {
        SCOPED_TRACE(row.Name);
        PropertySink sink;
        TestControl grid;
        Connection connection(grid.PropertySinks, &sink);
        ILorvGrid& host = grid;
        grid.OptionWord &= ~OptionMergeStale;
        EXPECT_EQ((host.*row.Put)(row.Good), S_OK);
        EXPECT_EQ(sink.Taken(), Ids{row.Id});
        EXPECT_EQ(grid.*row.Field, row.Good);
        EXPECT_TRUE(HasOption(grid, OptionMergeStale));
        EXPECT_TRUE(grid.RequiresSave);
        LONG read = -1;
        EXPECT_EQ((host.*row.Get)(&read), S_OK);
        EXPECT_EQ(read, row.Good);
        EXPECT_EQ((host.*row.Get)(nullptr), E_POINTER);
    }
}

TEST(Counts, OutOfRangeAreRefused)
{
    for (const CountRow& row : CountRows) {
        PropertySink sink;
        TestControl grid;
        Connection connection(grid.PropertySinks, &sink);
        int32_t before = grid.*row.Field;
        for (LONG value : row.Refused) {
            EXPECT_EQ((static_cast<ILorvGrid&>(grid).*row.Put)(value), LORV_E_VALUE) << row.Name << value;
            EXPECT_EQ(grid.*row.Field, before) << row.Name << value;
        }
        EXPECT_EQ(sink.Taken(), Ids{}) << row.Name;
    }
}

TEST(Counts, OfFrozenRowsAndColumnsAreSilentWhenTheyDoNotChange)
{
    for (const CountRow& row : CountRows) {
        PropertySink sink;
        TestControl grid;
        Connection connection(grid.PropertySinks, &sink);
        int32_t present = grid.*row.Field;
        EXPECT_EQ((static_cast<ILorvGrid&>(grid).*row.Put)(present), S_OK);
        bool frozen = row.Id == 188 || row.Id == 189;
        EXPECT_EQ(sink.Taken(), frozen ? Ids{} : Ids{row.Id}) << row.Name;
    }
}

TEST_F(Members, EveryRowMayBeFixed)
{
    EXPECT_EQ(host.put_FixedRows(50), S_OK);
    EXPECT_EQ(grid.FixedRows, 50);
    EXPECT_EQ(host.put_FixedRows(51), LORV_E_VALUE);
    EXPECT_EQ(grid.FixedRows, 50);
    EXPECT_EQ(host.put_FixedCols(10), S_OK);
}

TEST_F(Members, NoRowsTakeTheFixedOnesWithThem)
{
    EXPECT_EQ(host.put_Rows(0), S_OK);
    EXPECT_EQ(grid.FixedRows, 0);
    EXPECT_EQ(grid.RowTable, nullptr);
    EXPECT_EQ(host.put_Rows(5), S_OK);
    EXPECT_EQ(grid.FixedRows, 0);
}

TEST_F(Members, RowsReportThatMemoryIsShort)
{
    {
        FailingAllocation failing;
        EXPECT_EQ(host.put_Rows(1000), LORV_E_MEMORY);
    }
    EXPECT_EQ(host.put_Cols(INT_MAX), LORV_E_MEMORY);
    EXPECT_EQ(grid.Rows, 50);
    EXPECT_EQ(grid.Cols, 10);
    EXPECT_EQ(sink.Taken(), Ids{});
}

TEST_F(Members, FreezingScrollsBackToTheFirstRowsAndColumns)
{
    grid.TopRow = 20, grid.LeftCol = 8;
    sink.On = [&](DISPID id) {
        if (id == 188) {
            EXPECT_EQ(grid.TopRow, 4) << "the sink sees where the grid is now";
        }
    };
    EXPECT_EQ(host.put_FrozenRows(3), S_OK);
    sink.On = nullptr;
    EXPECT_EQ(host.put_FrozenCols(2), S_OK);
    EXPECT_EQ(grid.TopRow, 4);
    EXPECT_EQ(grid.LeftCol, 3);
    EXPECT_EQ(host.put_FrozenRows(49), S_OK) << "all that are not fixed";
    EXPECT_EQ(host.put_FrozenRows(0), S_OK);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST_F(Members, ASinkSeesTheScrollPositionOfTheNewFixedRows)
{
    int seen = -1;
    sink.On = [&](DISPID) { seen = grid.TopRow; };
    host.put_FixedRows(4);
    EXPECT_EQ(seen, 4);
}

std::wstring TakeErrorText()
{
    ComPtr<IErrorInfo> info;
    Bstr description;
    if (GetErrorInfo(0, info.Put()) == S_OK)
        info->GetDescription(description.Put());
    return description.Text();
}

TEST_F(Members, ABoundGridKeepsItsRowsAndColumns)
{
    grid.BoundKind = VT_ARRAY | VT_VARIANT;
    for (auto put :
         {&ILorvGrid::put_Rows, &ILorvGrid::put_Cols, &ILorvGrid::put_FixedRows, &ILorvGrid::put_FixedCols}) {
        SetErrorInfo(0, nullptr);
        EXPECT_EQ((host.*put)(5), LORV_E_BOUND);
        EXPECT_EQ(TakeErrorText(), L"Invalid action when bound");
    }
    EXPECT_EQ(grid.Rows, 50);
    EXPECT_EQ(grid.Cols, 10);
    EXPECT_EQ(grid.FixedRows, 1);
    EXPECT_EQ(host.put_FixedRows(51), LORV_E_VALUE) << "the value is looked at first";
    EXPECT_EQ(sink.Taken(), Ids{});
    grid.BoundKind = BoundNone;
}

TEST_F(Members, AFormDesignerMayChangeTheRowsOfABoundGridButNotItsColumns)
{
    grid.BoundKind = VT_ARRAY | VT_VARIANT;
    grid.DesignModeCache = 1;
    EXPECT_EQ(host.put_Rows(5), S_OK);
    EXPECT_EQ(host.put_FixedRows(2), S_OK);
    EXPECT_EQ(host.put_FixedCols(2), S_OK);
    EXPECT_EQ(host.put_Cols(5), LORV_E_BOUND);
    EXPECT_EQ(grid.Rows, 5);
    EXPECT_EQ(grid.Cols, 10);
    grid.BoundKind = BoundNone;
}

TEST_F(Members, WithACustomSourceFixedRowsAreAnnouncedByTheSourceAlone)
{
    FakeSource source;
    TestControl bound;
    Connection own(bound.PropertySinks, &sink);
    source.AddRef();
    bound.LorvDataSource = &source;
    bound.put_FixedRows(2);
    EXPECT_EQ(bound.FixedRows, 2);
    Ids changed = sink.Taken();
    EXPECT_EQ(std::count(changed.begin(), changed.end(), 11), 0);
    EXPECT_EQ(bound.put_FixedCols(2), S_OK);
    changed = sink.Taken();
    EXPECT_EQ(std::count(changed.begin(), changed.end(), 12), 1) << "columns have no such path";
}

// Cells and positions

TEST_F(Members, TextMatrixNamesACellByIndex)
{
    Bstr read;
    EXPECT_EQ(host.put_TextMatrix(2, 3, Bstr(L"abc").Get()), S_OK);
    EXPECT_EQ(host.get_TextMatrix(2, 3, read.Put()), S_OK);
    EXPECT_STREQ(read.Text(), L"abc");
    const LONG outside[][2] = {{-1, 0}, {0, -1}, {50, 0}, {0, 10}};
    for (auto& cell : outside) {
        EXPECT_EQ(host.get_TextMatrix(cell[0], cell[1], read.Put()), LORV_E_INDEX);
        EXPECT_EQ(host.put_TextMatrix(cell[0], cell[1], nullptr), LORV_E_INDEX);
    }
    EXPECT_EQ(host.get_TextMatrix(2, 3, nullptr), E_POINTER);
    EXPECT_EQ(sink.Taken(), Ids{}) << "cells are not properties";
    EXPECT_FALSE(grid.RequiresSave);
}

TEST_F(Members, AFormDesignerDoesNotReadPositions)
{
    grid.DesignModeCache = 1;
    LONG read = 0;
    for (auto get :
         {&ILorvGrid::get_Row, &ILorvGrid::get_Col, &ILorvGrid::get_RowSel, &ILorvGrid::get_ColSel}) {
        EXPECT_EQ((host.*get)(&read), LORV_E_DESIGNMODE);
        EXPECT_EQ((host.*get)(nullptr), E_POINTER);
    }
}

} // namespace
