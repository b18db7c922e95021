// How an edit starts, what it fires, and where the editor stands.

#include "support/edit_grid.h"

#include "view/scroll.h"

namespace
{
using CellEditor = EditTest;

const std::string opening = "BeforeEdit(1,1) StartEdit(1,1) SetupEditStyle SetupEditWindow";

std::string RectOf(HWND window, HWND parent)
{
    RECT area = {};
    GetWindowRect(window, &area);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&area), 2);
    return std::to_string(area.left) + "," + std::to_string(area.top) + "," + std::to_string(area.right) +
           "," + std::to_string(area.bottom);
}

// The margins and fonts that this thread sends, as text.
class SentMessages
{
public:
    SentMessages() : hook_(SetWindowsHookExW(WH_CALLWNDPROC, See, nullptr, GetCurrentThreadId()))
    {
        text_.clear();
    }
    SentMessages(const SentMessages&) = delete;
    SentMessages& operator=(const SentMessages&) = delete;
    ~SentMessages() { UnhookWindowsHookEx(hook_); }
    const std::string& Text() const { return text_; }

private:
    static LRESULT CALLBACK See(int code, WPARAM wParam, LPARAM lParam)
    {
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (sent.message == EM_SETMARGINS)
            text_ += "margins(" + std::to_string(LOWORD(sent.lParam)) + "," +
                     std::to_string(HIWORD(sent.lParam)) + ") ";
        if (sent.message == WM_SETFONT)
            text_ += "font ";
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline std::string text_;
    HHOOK hook_;
};
} // namespace

TEST_F(CellEditor, FiresItsEventsInOrder)
{
    live.Put(1, 1, L"old");
    live.Open();
    EXPECT_EQ(live.Fired(), opening);
    live.Press('X');
    live.Type(L"x");
    live.Release('X');
    EXPECT_EQ(live.Fired(), "KeyDownEdit(88) KeyPressEdit(120) ChangeEdit KeyUpEdit(88)");
    live.Press(VK_RETURN);
    EXPECT_EQ(live.Fired(),
              "KeyDownEdit(13) KeyPressEdit(13) ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1)");
    EXPECT_EQ(live.Text(1, 1), L"x");
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
}

TEST_F(CellEditor, AnUnchangedTextIsStoredWithoutCellChanged)
{
    live.Put(1, 1, L"old");
    live.Open();
    live.Fired();
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1) AfterEdit(1,1)");
}

TEST_F(CellEditor, OpensForAProgramWithoutEditable)
{
    grid.Editable = lorvEDNone;
    EXPECT_EQ(grid.EditCell(), S_OK);
    EXPECT_EQ(grid.ActiveEditor, EditorText);
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(GetFocus(), live.Box());
    EXPECT_EQ(GetDlgCtrlID(live.Box()), 666);
    EXPECT_EQ(GetParent(live.Box()), grid.Window);
}

TEST_F(CellEditor, OpensForAProgramOnAFixedCell)
{
    live.GoTo(0, 1);
    grid.EditCell();
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(live.Fired(), "BeforeEdit(0,1) StartEdit(0,1) SetupEditStyle SetupEditWindow");
}

TEST_F(CellEditor, EditCellDuringAnEditEndsItAndOpensAFreshOne)
{
    live.Open();
    live.Type(L"x");
    live.Fired();
    HWND first = live.Box();
    grid.EditCell();
    grid.EditCell(); // one message is enough
    EXPECT_EQ(live.Fired(), "");
    live.Pump();
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1) " + opening);
    EXPECT_TRUE(live.IsOpen());
    EXPECT_FALSE(IsWindow(first) && IsShown(first));
    EXPECT_EQ(live.Shown(), L"x");
}

TEST_F(CellEditor, TheKeySaysWhereTheCaretStands)
{
    live.Put(1, 1, L"text");
    const struct {
        int Key;
        const char* Selected;
    } cases[] = {{EditSelectAll, "0-4"}, {EditPlain, "4-4"}};
    for (const auto& c : cases) {
        EXPECT_TRUE(StartCellEdit(grid, c.Key));
        EXPECT_EQ(live.Selected(), c.Selected) << c.Key;
        CommitEdit(grid, true);
    }
}

TEST_F(CellEditor, ATypedCharacterTakesThePlaceOfTheText)
{
    live.Put(1, 1, L"text");
    EXPECT_TRUE(StartCellEdit(grid, 'A'));
    EXPECT_EQ(live.Shown(), L"text");
    EXPECT_EQ(live.Selected(), "0-4");
    live.Pump();
    EXPECT_EQ(live.Shown(), L"A");
    EXPECT_EQ(live.Fired(), opening + " KeyPressEdit(65) ChangeEdit");
}

TEST_F(CellEditor, TheMousePutsTheCaretUnderItOrSelectsAll)
{
    live.Put(1, 1, L"iiii");
    POINT away = {290, 190};
    ClientToScreen(grid.Window, &away);
    SetCursorPos(away.x, away.y);
    EXPECT_TRUE(StartCellEdit(grid, EditByMouse));
    EXPECT_EQ(live.Selected(), "0-4");
    CommitEdit(grid, true);
    POINT onCell = {96, 30};
    ClientToScreen(grid.Window, &onCell);
    SetCursorPos(onCell.x, onCell.y);
    EXPECT_TRUE(StartCellEdit(grid, EditByMouse));
    EXPECT_EQ(live.Selected(), "4-4");
}

TEST_F(CellEditor, EscapeOpensNoEditor)
{
    EXPECT_FALSE(StartCellEdit(grid, 27));
    EXPECT_FALSE(live.IsOpen());
}

TEST_F(CellEditor, NeedsACurrentCell)
{
    for (int32_t Grid::*position : {&Grid::Row, &Grid::Col, &Grid::RowSel, &Grid::ColSel}) {
        live.GoTo(1, 1);
        grid.*position = -1;
        EXPECT_FALSE(StartCellEdit(grid, EditSelectAll));
    }
    EXPECT_EQ(live.Fired(), "");
}

TEST_F(CellEditor, EachQuestionCanRefuse)
{
    const struct {
        DISPID Id;
        const char* Fired;
    } cases[] = {{BeforeEditId, "BeforeEdit(1,1)"}, {StartEditId, "BeforeEdit(1,1) StartEdit(1,1)"}};
    for (const auto& c : cases) {
        live.Refuse(c.Id);
        EXPECT_FALSE(StartCellEdit(grid, EditSelectAll));
        EXPECT_EQ(live.Fired(), c.Fired);
        EXPECT_FALSE(live.IsOpen());
        EXPECT_EQ(grid.ActiveEditor, EditorNone);
    }
}

TEST_F(CellEditor, RemembersTheSelectionItStartedWith)
{
    grid.RowSel = 3;
    grid.ColSel = 2;
    live.Open();
    EXPECT_EQ(grid.EditRow, 1);
    EXPECT_EQ(grid.EditCol, 1);
    EXPECT_EQ(grid.EditRowSel, 3);
    EXPECT_EQ(grid.EditColSel, 2);
}

TEST_F(CellEditor, ScrollsDownBeforeItScrollsSideways)
{
    for (int col = 0; col < grid.Cols; ++col)
        grid.ColTable[col].Width = 120;
    RecalculateLayout(grid);
    live.GoTo(19, 4);
    live.Open();
    EXPECT_GT(grid.TopRow, 1);
    EXPECT_EQ(grid.LeftCol, 1) << "one direction at a time";
    CommitEdit(grid, true);
    live.Open();
    EXPECT_GT(grid.LeftCol, 1);
}

TEST_F(CellEditor, EditsTheCellThatAHandlerMovesTo)
{
    live.On(BeforeEditId, [this](DISPPARAMS&) { live.GoTo(4, 3); });
    live.Open();
    EXPECT_EQ(live.Fired(), "BeforeEdit(1,1) StartEdit(4,3) SetupEditStyle SetupEditWindow");
    EXPECT_EQ(grid.EditRow, 4);
    EXPECT_EQ(grid.EditCol, 3);
}

TEST_F(CellEditor, AppliesTheMousePointerAgain)
{
    grid.RequiresSave = false;
    live.Open();
    EXPECT_TRUE(grid.RequiresSave);
}

TEST_F(CellEditor, ANumberIsEditedRawAndADateAsShown)
{
    grid.put_ColFormat(1, Bstr(L"#,##0.00").Get());
    live.Put(1, 1, L"1234.5");
    live.Open();
    EXPECT_EQ(live.Shown(), L"1234.5");
    CommitEdit(grid, true);
    live.Put(1, 1, L"abc");
    live.Open();
    EXPECT_EQ(live.Shown(), L"abc");
    CommitEdit(grid, true);
    grid.put_ColFormat(1, Bstr(L"yyyy-mm-dd").Get());
    live.Put(1, 1, L"3/4/2005");
    live.Open();
    EXPECT_EQ(live.Shown(), L"2005-03-04");
}

TEST_F(CellEditor, TheLimitTakesEffectAtTheNextEdit)
{
    live.Open();
    EXPECT_EQ(grid.put_EditMaxLength(3), S_OK);
    live.Type(L"abcdef");
    EXPECT_EQ(live.Shown(), L"abcdef");
    CommitEdit(grid);
    live.Put(1, 1, L"");
    live.Open();
    live.Type(L"abcdef");
    EXPECT_EQ(live.Shown(), L"abc");
}

TEST_F(CellEditor, LeavesTheGridLinesVisible)
{
    const struct {
        int Lines;
        const char* Rect;
    } cases[] = {
        {0, "50,20,100,40"}, {1, "50,20,99,39"},  {2, "51,21,98,38"},  {3, "51,21,98,38"},
        {4, "50,20,100,39"}, {5, "50,21,100,38"}, {6, "50,21,100,38"}, {7, "50,21,100,39"},
        {8, "50,20,99,40"},  {9, "51,20,98,40"},  {10, "51,20,98,40"}, {11, "51,20,99,40"},
        {12, "50,20,99,39"}, {13, "50,20,99,39"}, {14, "50,20,99,39"},
    };
    for (const auto& c : cases) {
        grid.GridLines = static_cast<int16_t>(c.Lines);
        live.Open();
        EXPECT_EQ(RectOf(live.Box(), grid.Window), c.Rect) << c.Lines;
        CommitEdit(grid, true);
    }
}

TEST_F(CellEditor, ALowRowGetsAnEditorAsHighAsItsText)
{
    grid.GridLines = lorvGridNone;
    grid.RowTable[1].Height = 5;
    live.Open();
    int bottom = 20 + grid.DefaultRowHeight - 4 - 1;
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,20,100," + std::to_string(bottom));
}

TEST_F(CellEditor, TheTreeKeepsItsRoom)
{
    grid.GridLines = lorvGridNone;
    grid.OutlineBar = lorvOutlineBarComplete;
    grid.OutlineCol = 1;
    grid.OutlineLevelCount = 2;
    grid.OutlineLevels[0] = 1;
    grid.OutlineLevels[1] = 2;
    grid.RowTable[1].OutlineLevel = 2;
    live.Open();
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "76,20,100,40");
    CommitEdit(grid, true);
    SetOption(grid, OptionRightToLeft, true);
    RECT cell = CellRect(grid, 1, 1);
    live.Open();
    EXPECT_EQ(grid.EditRect.left, cell.left);
    EXPECT_EQ(grid.EditRect.right, cell.right - 26);
    CommitEdit(grid, true);
    SetOption(grid, OptionRightToLeft, false);
    grid.OutlineBar = 0;
    live.Open();
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,20,100,40");
}

TEST_F(CellEditor, AScrollMovesItAndParksItOutOfSight)
{
    grid.GridLines = lorvGridNone;
    live.GoTo(3, 1);
    live.Open();
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,60,100,80");
    ScrollVertical(grid, ScrollDirect, 2, true);
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,40,100,60");
    ScrollVertical(grid, ScrollDirect, 8, true);
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "-50,-50,-10,-10");
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(GetFocus(), live.Box());
    live.Press('X'); // any key brings it back
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,20,100,40");
}

TEST_F(CellEditor, AScrollLeavesTheGridLinesVisibleToo)
{
    grid.GridLines = lorvGridInset;
    live.GoTo(3, 1);
    live.Open();
    ScrollVertical(grid, ScrollDirect, 2, true);
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "51,41,98,58");
}

TEST_F(CellEditor, IsMovedOnlyWhenItsPlaceChanges)
{
    grid.GridLines = lorvGridNone;
    live.GoTo(3, 1);
    live.Open();
    MoveWindow(live.Box(), 7, 7, 30, 10, FALSE);
    RecalculateLayout(grid);
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "7,7,37,17") << "the cell is where it was";
    ScrollVertical(grid, ScrollDirect, 2, true);
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,40,100,60");
}

TEST_F(CellEditor, AfterAScrollItCoversTheButtonAsWell)
{
    grid.GridLines = lorvGridNone;
    grid.ColTable[1].Width = 80;
    ReplaceText(grid.ComboList, L"|...");
    live.GoTo(3, 1);
    live.Open();
    int left = 130 - GetSystemMetrics(SM_CXHSCROLL);
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,60," + std::to_string(left) + ",80");
    ScrollVertical(grid, ScrollDirect, 2, true);
    EXPECT_EQ(RectOf(live.Box(), grid.Window), "50,40,130,60");
}

TEST_F(CellEditor, ANarrowCellKeepsNoRoomForItsButton)
{
    grid.GridLines = lorvGridNone;
    ReplaceText(grid.ComboList, L"|...");
    grid.ColTable[1].Width = GetSystemMetrics(SM_CXHSCROLL) + 3;
    live.Open();
    EXPECT_EQ(grid.EditRect.right - grid.EditRect.left, grid.ColTable[1].Width);
    CommitEdit(grid, true);
    ++grid.ColTable[1].Width;
    live.Open();
    EXPECT_EQ(grid.EditRect.right - grid.EditRect.left, 4);
}

TEST_F(CellEditor, TheStyleFollowsWrappingAndAlignment)
{
    struct Case {
        bool Wraps;
        int Alignment;
        uint32_t Flags;
        bool RightToLeft;
        LONG Style;
    };
    const Case cases[] = {
        {false, lorvAlignLeftCenter, 0, false, 0x400001C4},
        {true, lorvAlignLeftCenter, 0, false, 0x40000144},
        {false, lorvAlignCenterCenter, 0, false, 0x400001C5},
        {false, lorvAlignRightCenter, 0, false, 0x400001C6},
        {false, lorvAlignRightCenter, 0, true, 0x400001C4},
        {false, lorvAlignRightCenter, lorvCFNoEditIndent, false, 0x400001C4},
    };
    live.Put(1, 1, L"text");
    for (const Case& c : cases) {
        SetOption(grid, OptionWordWrap, c.Wraps);
        SetOption(grid, OptionRightToLeft, c.RightToLeft);
        grid.ColTable[1].Alignment = static_cast<int8_t>(c.Alignment);
        grid.Flags = c.Flags;
        LONG style = 0, styleEx = -1;
        live.On(SetupEditStyleId, [&](DISPPARAMS& parameters) {
            style = *EventSink::Argument(parameters, 3).plVal;
            styleEx = *EventSink::Argument(parameters, 4).plVal;
        });
        live.Open();
        EXPECT_EQ(style, c.Style) << c.Alignment << c.Wraps << c.RightToLeft;
        EXPECT_EQ(styleEx, 0);
        CommitEdit(grid, true);
    }
}

// What the platform makes of the margins when it gets the font stays: the messages and their order count.
TEST_F(CellEditor, GetsMarginsAndThenItsFont)
{
    const struct {
        int Alignment;
        uint32_t Flags;
        const char* Messages;
    } cases[] = {
        {lorvAlignLeftCenter, 0, "margins(0,0) margins(14,4) font "},
        {lorvAlignRightCenter, 0, "margins(0,0) margins(4,14) font "},
        {lorvAlignCenterCenter, 0, "margins(0,0) font "},
        {lorvAlignLeftCenter, lorvCFNoEditIndent, "margins(0,0) font "},
    };
    live.Put(1, 1, L"text");
    grid.ColTable[1].Indent = 10;
    for (const auto& c : cases) {
        grid.ColTable[1].Alignment = static_cast<int8_t>(c.Alignment);
        grid.Flags = c.Flags;
        SentMessages sent;
        live.Open();
        EXPECT_EQ(sent.Text(), c.Messages) << c.Alignment;
        CommitEdit(grid, true);
    }
}

TEST_F(CellEditor, AlignsTheTextEvenWithoutIndent)
{
    live.Put(1, 1, L"text");
    grid.Flags = lorvCFNoEditIndent;
    grid.ColTable[1].Alignment = lorvAlignRightCenter;
    live.Open();
    EXPECT_EQ(GetWindowLongW(live.Box(), GWL_STYLE) & 3, ES_RIGHT);
}

// What is typed into an empty cell goes where it will stand.
TEST_F(CellEditor, AnEmptyCellStandsAsItsTextWill)
{
    const struct {
        int Alignment;
        int Type;
        LONG Style;
    } cases[] = {
        {lorvAlignRightCenter, 0, ES_RIGHT},
        {lorvAlignCenterTop, 0, ES_CENTER},
        {lorvAlignLeftBottom, lorvDTDouble, 0},
        {lorvAlignGeneral, lorvDTDouble, ES_RIGHT},
        {lorvAlignGeneralTop, lorvDTDate, ES_RIGHT},
        {lorvAlignGeneral, lorvDTString, 0},
        {lorvAlignGeneral, 0, 0},
    };
    for (const auto& c : cases) {
        grid.ColTable[1].Alignment = static_cast<int8_t>(c.Alignment);
        grid.ColTable[1].ColDataType = static_cast<int16_t>(c.Type);
        live.Open();
        EXPECT_EQ(live.Shown(), L"");
        EXPECT_EQ(GetWindowLongW(live.Box(), GWL_STYLE) & 3, c.Style) << c.Alignment << " " << c.Type;
        CommitEdit(grid, true);
    }
}

TEST_F(CellEditor, AHandlerGivesTheStyle)
{
    live.On(SetupEditStyleId, [](DISPPARAMS& parameters) {
        *EventSink::Argument(parameters, 3).plVal |= ES_UPPERCASE;
        *EventSink::Argument(parameters, 4).plVal = WS_EX_CLIENTEDGE;
    });
    live.Open('a');
    EXPECT_EQ(live.Shown(), L"A");
    EXPECT_TRUE(GetWindowLongW(live.Box(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
    CommitEdit(grid, true);
    live.On(SetupEditStyleId, [](DISPPARAMS& parameters) { *EventSink::Argument(parameters, 3).plVal = 0; });
    EXPECT_TRUE(StartCellEdit(grid, EditSelectAll));
    EXPECT_EQ(GetWindowLongW(live.Box(), GWL_STYLE) & ~(WS_VISIBLE), 0x56000000 & ~WS_VISIBLE);
}

TEST_F(CellEditor, TheHostSeesTheWindowBeforeItIsVisible)
{
    HWND seen = nullptr;
    bool shown = true;
    live.On(SetupEditWindowId, [&](DISPPARAMS& parameters) {
        seen = reinterpret_cast<HWND>(static_cast<INT_PTR>(EventSink::Argument(parameters, 2).lVal));
        shown = IsShown(seen);
        EXPECT_EQ(EventSink::Argument(parameters, 3).boolVal, VARIANT_FALSE);
    });
    live.Open();
    EXPECT_EQ(seen, live.Box());
    EXPECT_FALSE(shown);
}

TEST_F(CellEditor, MakesANewWindowForEveryEdit)
{
    live.Open();
    HWND first = live.Box();
    CommitEdit(grid);
    EXPECT_TRUE(IsWindow(first)) << "stays as a hidden shell";
    EXPECT_FALSE(IsShown(first));
    EXPECT_FALSE(IsWindowEnabled(first));
    live.Open();
    EXPECT_FALSE(IsWindow(first));
}

TEST_F(CellEditor, HasTheFontOfItsCell)
{
    live.Open();
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(live.Box(), WM_GETFONT, 0, 0)), GridFontHandle(grid));
    CommitEdit(grid, true);
    grid.put_CellFontSize(24);
    HFONT own = CellFormatOf(grid, 1, 1)->Font;
    live.Open();
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(live.Box(), WM_GETFONT, 0, 0)), own);
    EXPECT_GT(grid.EditRect.bottom - grid.EditRect.top, 20) << "higher than its row";
}

TEST_F(CellEditor, TheListSaysWhatHappens)
{
    struct Case {
        const wchar_t* List;
        int Key;
        bool Result;
        const char* Fired;
    };
    const std::string asked = "BeforeEdit(1,1) StartEdit(1,1)";
    const Case cases[] = {
        {L"...", EditPlain, true, " CellButtonClick(1,1)"},
        {L"...", EditByMouse, true, " CellButtonClick(1,1)"},
        {L"...", EditSelectAll, true, " CellButtonClick(1,1)"},
        {L"...", 'A', false, ""},
        {L"|...", EditPlain, true, " CellButtonClick(1,1)"},
        {L"|...", EditSelectAll, true, " SetupEditStyle SetupEditWindow"},
        {L"|...", EditByMouse, true, " SetupEditStyle SetupEditWindow"},
    };
    for (const Case& c : cases) {
        ReplaceText(grid.ComboList, c.List);
        EXPECT_EQ(StartCellEdit(grid, c.Key), c.Result);
        EXPECT_EQ(live.Fired(), asked + c.Fired) << c.Key;
        CommitEdit(grid, true);
        live.Fired();
    }
}

TEST_F(CellEditor, TheListOfTheColumnComesFirst)
{
    ReplaceText(grid.ComboList, L"...");
    ReplaceText(grid.ColTable[1].ColComboList, L"|...");
    live.Open();
    EXPECT_EQ(grid.ActiveEditor, EditorText);
}

TEST_F(CellEditor, AHandlerCanSetTheList)
{
    live.On(BeforeEditId, [this](DISPPARAMS&) { ReplaceText(grid.ComboList, L"..."); });
    EXPECT_TRUE(StartCellEdit(grid, EditPlain));
    EXPECT_EQ(live.Fired(), "BeforeEdit(1,1) StartEdit(1,1) CellButtonClick(1,1)");
}

// A handler that pumps messages lets another edit in, of the other kind even: then the first is over.
TEST_F(CellEditor, AnEditBegunInsideItsSetupIsTheOneThatStays)
{
    live.On(SetupEditWindowId, [this](DISPPARAMS&) {
        live.act = nullptr;
        ReplaceText(grid.ComboList, L"A|B");
        EXPECT_TRUE(StartCellEdit(grid, EditSelectAll));
    });
    EXPECT_FALSE(StartCellEdit(grid, EditSelectAll));
    EXPECT_EQ(grid.ActiveEditor, EditorCombo);
    EXPECT_TRUE(IsShown(grid.ComboWindow));
    EXPECT_FALSE(IsShown(grid.EditBoxWindow));
    EXPECT_EQ(GetFocus(), grid.ComboWindow);
}

TEST_F(CellEditor, AnEditBegunInsideAQuestionIsTheOneThatStays)
{
    for (DISPID id : {BeforeEditId, StartEditId, SetupEditStyleId}) {
        live.On(id, [this](DISPPARAMS&) {
            live.act = nullptr;
            ReplaceText(grid.ComboList, L"A|B");
            EXPECT_TRUE(StartCellEdit(grid, EditSelectAll));
            ReplaceText(grid.ComboList, nullptr);
        });
        EXPECT_FALSE(StartCellEdit(grid, EditSelectAll));
        EXPECT_EQ(grid.ActiveEditor, EditorCombo) << id;
        EXPECT_TRUE(IsShown(grid.ComboWindow)) << id;
        EXPECT_FALSE(IsShown(grid.EditBoxWindow)) << id;
        CommitEdit(grid, true);
    }
}

TEST_F(CellEditor, AnEditEndedInsideItsSetupDoesNotOpen)
{
    live.On(SetupEditWindowId, [this](DISPPARAMS&) {
        ShowWindow(grid.EditBoxWindow, SW_SHOW);
        CommitEdit(grid);
    });
    EXPECT_FALSE(StartCellEdit(grid, EditSelectAll));
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
    EXPECT_FALSE(IsShown(grid.EditBoxWindow));
}

TEST_F(CellEditor, WithoutAWindowTheEditIsLeftStanding)
{
    DestroyWindow(grid.Window);
    EXPECT_FALSE(StartCellEdit(grid, EditSelectAll));
    EXPECT_EQ(grid.ActiveEditor, EditorText);
    EXPECT_TRUE(CommitEdit(grid)) << "there is nothing to commit";
    EXPECT_EQ(grid.ActiveEditor, EditorText);
}

TEST_F(CellEditor, GoesWithTheWindowOfTheGrid)
{
    live.Open();
    HWND box = live.Box();
    DestroyWindow(grid.Window);
    EXPECT_FALSE(IsWindow(box));
    EXPECT_EQ(grid.EditBoxWindow, nullptr);
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
}

TEST_F(CellEditor, TakesTheColoursOfItsCell)
{
    grid.ForeColor = RGB(1, 1, 1), grid.BackColor = RGB(2, 2, 2);
    grid.ForeColorFixed = RGB(3, 3, 3), grid.BackColorFixed = RGB(4, 4, 4);
    grid.ForeColorFrozen = RGB(5, 5, 5), grid.BackColorFrozen = RGB(6, 6, 6);
    grid.BackColorAlternate = RGB(7, 7, 7);
    grid.FrozenRows = 1;
    RebuildGdi(grid, -1);
    EnsureCellFormat(grid, 4, 1)->BackColor = RGB(8, 8, 8);
    EnsureCellFormat(grid, 4, 1)->BackColorSet = 1;
    EnsureCellFormat(grid, 4, 1)->ForeColor = RGB(9, 9, 9);
    const struct {
        int Row, Text, Back;
    } cases[] = {{0, 3, 4}, {1, 5, 6}, {2, 1, 7}, {3, 1, 2}, {4, 9, 8}, {99, 1, 2}, {-1, 1, 2}};
    live.Open();
    HDC dc = GetDC(live.Box());
    for (const auto& c : cases) {
        grid.EditRow = c.Row;
        auto brush =
            reinterpret_cast<HBRUSH>(SendMessageW(grid.Window, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc),
                                                  reinterpret_cast<LPARAM>(live.Box())));
        LOGBRUSH look = {};
        GetObjectW(brush, sizeof(look), &look);
        EXPECT_EQ(look.lbColor, RGB(c.Back, c.Back, c.Back)) << c.Row;
        EXPECT_EQ(GetTextColor(dc), RGB(c.Text, c.Text, c.Text)) << c.Row;
        EXPECT_EQ(GetBkColor(dc), RGB(c.Back, c.Back, c.Back)) << c.Row;
        EXPECT_EQ(GetBkMode(dc), OPAQUE);
        EXPECT_EQ(grid.EditTextColor, static_cast<OLE_COLOR>(RGB(c.Text, c.Text, c.Text)));
    }
    ReleaseDC(live.Box(), dc);
}

TEST_F(CellEditor, ColoursNoOtherWindow)
{
    live.Open();
    grid.EditTextColor = 77;
    HDC dc = GetDC(other_);
    SendMessageW(grid.Window, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc),
                 reinterpret_cast<LPARAM>(other_));
    ReleaseDC(other_, dc);
    EXPECT_EQ(grid.EditTextColor, 77u);
}
