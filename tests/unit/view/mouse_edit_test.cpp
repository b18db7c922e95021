// Presses that edit: check boxes, the buttons of cells, double clicks.

#include "core/check_state.h"
#include "support/mouse_grid.h"
#include "view/check_box.h"

namespace
{
constexpr DISPID BeforeEditId = 21, ValidateEditId = 23, DblClickId = -601;
} // namespace

class EditingByMouse : public GridUnderMouse
{
protected:
    EditingByMouse() { grid.Editable = lorvEDKbdMouse; }
    ~EditingByMouse() override
    {
        act = nullptr, refuse = nullptr;
        CommitEdit(grid, true);
    }

    POINT BoxOf(int row, int col)
    {
        RECT box = CheckBoxRect(grid, row, col);
        return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    }
    // A cell with a button that runs a program, which is the current one.
    void GiveButton()
    {
        grid.ShowComboButton = lorvSBAlways;
        ReplaceList(L"...");
        MoveCursor(grid, 3, 2, 0);
        Settle();
    }
    void ReplaceList(const wchar_t* list)
    {
        std::free(grid.ColTable[2].ColComboList);
        grid.ColTable[2].ColComboList = _wcsdup(list);
    }
};

TEST_F(EditingByMouse, CheckBoxesTakeThePressBeforeTheHostIsAsked)
{
    SetCheckState(grid, 2, 3, lorvTSChecked);
    Settle();
    POINT box = BoxOf(2, 3);
    for (int next : {lorvTSGrayed, lorvTSUnchecked, lorvTSChecked}) {
        Press(box.x, box.y);
        EXPECT_EQ(Told(), "BeforeEdit(2,3) StartEdit(2,3) ValidateEdit(2,3) AfterEdit(2,3)");
        EXPECT_EQ(CheckStateOf(grid, 2, 3), next);
        EXPECT_EQ(GetCapture(), nullptr);
        Release(box.x, box.y);
        EXPECT_NE(Told().find("Click"), std::string::npos);
    }
    EXPECT_EQ(Selection(), "1,1:1,1") << "the cursor stays";
}

TEST_F(EditingByMouse, DisabledCheckBoxesTakeThePressAndDoNothing)
{
    SetCheckState(grid, 2, 3, lorvDisabled);
    Settle();
    POINT box = BoxOf(2, 3);
    Press(box.x, box.y);
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(CheckStateOf(grid, 2, 3), lorvDisabled);
}

TEST_F(EditingByMouse, RefusedCheckBoxesLeaveThePressToTheCell)
{
    SetCheckState(grid, 2, 3, lorvChecked);
    Settle();
    refuse = [](DISPID id) { return id == BeforeEditId; };
    POINT box = BoxOf(2, 3);
    Press(box.x, box.y);
    EXPECT_EQ(CheckStateOf(grid, 2, 3), lorvChecked);
    EXPECT_EQ(Selection(), "2,3:2,3");
    EXPECT_EQ(Told().find("BeforeEdit(2,3) BeforeMouseDown"), 0u);
    Release(box.x, box.y);
}

TEST_F(EditingByMouse, ButtonOfTheCurrentCellIsClicked)
{
    GiveButton();
    Gesture(146, 70, {ReleaseAt(146, 70)});
    EXPECT_EQ(Told("MouseMove"),
              "BeforeMouseDown(1,0,146,70) BeforeEdit(3,2) StartEdit(3,2) CellButtonClick(3,2)");
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Selection(), "3,2:3,2");
}

TEST_F(EditingByMouse, ButtonReleasedOutsideDoesNothing)
{
    GiveButton();
    Gesture(146, 70, {MoveTo(120, 150), ReleaseAt(120, 150)});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,146,70)");
    Gesture(146, 70, {Escape()});
    EXPECT_EQ(Told(), "BeforeMouseDown(1,0,146,70)");
}

TEST_F(EditingByMouse, OnlyTheCellThatWasCurrentHasAButton)
{
    GiveButton();
    Click(146, 90);
    EXPECT_EQ(Told().find("CellButtonClick"), std::string::npos);
    EXPECT_EQ(Selection(), "4,2:4,2") << "this press made it the current one";
    Press(105, 90);
    EXPECT_EQ(GetCapture(), grid.Window) << "beside the button it is a press on the cell";
    Release(105, 90);
    grid.ShowComboButton = lorvSBEditing;
    Click(146, 90);
    EXPECT_EQ(Told().find("CellButtonClick"), std::string::npos);
    grid.ShowComboButton = lorvSBAlways;
    grid.Editable = lorvEDNone;
    Click(146, 90);
    EXPECT_EQ(Told().find("CellButtonClick"), std::string::npos);
}

TEST_F(EditingByMouse, WithoutAListOfItsOwnTheHandlerIsAskedForOne)
{
    GiveButton();
    ReplaceList(L"");
    Click(146, 70);
    EXPECT_EQ(Told().find("BeforeMouseDown(1,0,146,70) BeforeEdit(3,2)"), 0u);
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
    act = [this](DISPID id, DISPPARAMS&) {
        if (id == BeforeEditId && !grid.ComboList)
            grid.ComboList = _wcsdup(L"...");
    };
    Gesture(146, 70, {ReleaseAt(146, 70)});
    EXPECT_NE(Told().find("CellButtonClick(3,2)"), std::string::npos);
    refuse = [](DISPID id) { return id == BeforeEditId; };
    Click(146, 70);
    EXPECT_EQ(Told().find("CellButtonClick"), std::string::npos);
}

TEST_F(EditingByMouse, MirroredButtonsStandOnTheRight)
{
    GiveButton();
    SetOption(grid, OptionRightToLeft, true);
    RECT cell = CellRect(grid, 3, 2);
    Gesture(cell.right - 5, 70, {ReleaseAt(cell.right - 5, 70)});
    EXPECT_NE(Told().find("CellButtonClick(3,2)"), std::string::npos);
}

TEST_F(EditingByMouse, DoubleClickEditsTheCurrentCell)
{
    Click(120, 70);
    Told();
    Send(WM_LBUTTONDBLCLK, 120, 70);
    EXPECT_EQ(Told().find("DblClick BeforeEdit(3,2) StartEdit(3,2)"), 0u);
    EXPECT_EQ(grid.ActiveEditor, EditorText);
}

TEST_F(EditingByMouse, DoubleClickEditsNothingElse)
{
    Click(120, 70);
    Told();
    Send(WM_LBUTTONDBLCLK, 170, 70);
    EXPECT_EQ(Told(), "DblClick") << "another cell";
    Send(WM_RBUTTONDBLCLK, 120, 70);
    EXPECT_EQ(Told(), "DblClick");
    grid.Editable = lorvEDKbd;
    Send(WM_LBUTTONDBLCLK, 120, 70);
    EXPECT_EQ(Told(), "DblClick") << "the keyboard alone edits";
    grid.Editable = lorvEDKbdMouse;
    MoveCursor(grid, 0, 2, 0);
    Settle();
    Send(WM_LBUTTONDBLCLK, 120, 10);
    EXPECT_EQ(Told(), "DblClick") << "a fixed cell";
}

TEST_F(EditingByMouse, PressOnAnotherCellEndsTheEdit)
{
    Click(120, 70);
    ASSERT_TRUE(StartCellEdit(grid, EditPlain));
    Told();
    Click(170, 110);
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
    EXPECT_EQ(Selection(), "5,3:5,3");
}

TEST_F(EditingByMouse, PressThatBeginsAnEditIsNotToldAsOne)
{
    act = [this](DISPID id, DISPPARAMS&) {
        if (id == 2) // RowColChange
            StartCellEdit(grid, EditPlain);
    };
    Press(120, 70);
    EXPECT_EQ(Told().find(" MouseDown"), std::string::npos);
    act = nullptr;
    Release(120, 70);
}

TEST_F(EditingByMouse, DoubleClickOnAResizeLineFitsTheColumnThoughAnEditRuns)
{
    grid.AllowUserResizing = lorvResizeColumns;
    Click(120, 70);
    Hover(148, 10);
    ASSERT_TRUE(StartCellEdit(grid, EditPlain));
    Told();
    Send(WM_LBUTTONDBLCLK, 148, 10);
    EXPECT_NE(Told().find("AfterUserResize(-1,2)"), std::string::npos);
}

TEST_F(EditingByMouse, DoubleClickWhoseHandlerBeginsAnEditDoesNothingElse)
{
    grid.AllowUserResizing = lorvResizeColumns;
    Click(120, 70);
    Hover(148, 10);
    act = [this](DISPID id, DISPPARAMS&) {
        if (id == DblClickId)
            StartCellEdit(grid, EditPlain);
    };
    Told();
    Send(WM_LBUTTONDBLCLK, 148, 10);
    EXPECT_EQ(Told().find("AfterUserResize"), std::string::npos);
    EXPECT_EQ(grid.ActiveEditor, EditorText);
}

TEST_F(EditingByMouse, EditThatDoesNotEndFreezesNothing)
{
    ASSERT_EQ(SetFrozenCols(grid, 1), S_OK);
    grid.AllowUserFreezing = lorvFreezeColumns;
    Click(120, 70);
    Hover(102, 50);
    ASSERT_EQ(ZoneOf(grid), MouseZone::FreezeCols);
    ASSERT_TRUE(StartCellEdit(grid, EditPlain));
    SetWindowTextW(grid.EditBoxWindow, L"refused");
    Told();
    refuse = [](DISPID id) { return id == ValidateEditId; };
    Queue({MoveTo(160, 50), Escape()}); // for the gesture that must not come
    Press(102, 50);
    std::string told = Told();
    EXPECT_NE(told.find("ValidateEdit(3,2)"), std::string::npos) << told;
    EXPECT_NE(told.find("BeforeMouseDown(1,0,102,50)"), std::string::npos) << "it is a press like any other";
    EXPECT_EQ(told.find("AfterUserFreeze"), std::string::npos);
    EXPECT_EQ(grid.FrozenCols, 1);
    DropMouseMessages();
    Release(102, 50);
    EXPECT_EQ(Selection(), "3,2:3,2");
}
