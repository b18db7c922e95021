// Check boxes, toggled by keys and by the mouse.

#include "core/check_state.h"
#include "support/edit_grid.h"
#include "view/check_box.h"
#include "view/selection.h"

namespace
{
class CheckToggle : public EditTest
{
protected:
    void Box(int row, int col, int state)
    {
        SetCheckState(grid, row, col, state);
        live.Fired();
    }
    bool Click(int row, int col)
    {
        RECT box = CheckBoxRect(grid, row, col);
        return ClickCheckBox(grid, row, col, {(box.left + box.right) / 2, (box.top + box.bottom) / 2});
    }
    // The boxes of column 1, rows 1 to 7, as digits.
    std::string Column()
    {
        std::string states;
        for (int row = 1; row <= 7; ++row)
            states += static_cast<char>('0' + CheckStateOf(grid, row, 1));
        return states;
    }
    void BoxesDown(int state)
    {
        for (int row = 1; row <= 7; ++row)
            Box(row, 1, state);
    }
};

constexpr struct {
    int State, Next;
} nextStates[] = {{1, 2}, {2, 1}, {3, 5}, {4, 3}, {5, 4}, {6, 6}, {7, 7}};
const std::string toggled = "BeforeEdit(1,1) StartEdit(1,1) ValidateEdit(1,1) AfterEdit(1,1)";
} // namespace

TEST_F(CheckToggle, AKeyToggles)
{
    for (int key : {EditPlain, EditSelectAll})
        for (const auto& c : nextStates) {
            Box(1, 1, c.State);
            EXPECT_TRUE(StartCellEdit(grid, key));
            EXPECT_EQ(live.Fired(), toggled) << "for a disabled box, too";
            EXPECT_EQ(CheckStateOf(grid, 1, 1), c.Next) << c.State;
            EXPECT_FALSE(live.IsOpen());
        }
}

TEST_F(CheckToggle, OtherKeysDoNothing)
{
    Box(1, 1, lorvChecked);
    EXPECT_FALSE(StartCellEdit(grid, 'A'));
    EXPECT_FALSE(StartCellEdit(grid, EditByMouse));
    EXPECT_EQ(live.Fired(), "");
    EXPECT_EQ(CheckStateOf(grid, 1, 1), lorvChecked);
}

TEST_F(CheckToggle, EachQuestionCanRefuse)
{
    const struct {
        DISPID Id;
        const char* Fired;
    } cases[] = {{BeforeEditId, "BeforeEdit(1,1)"},
                 {StartEditId, "BeforeEdit(1,1) StartEdit(1,1)"},
                 {ValidateEditId, "BeforeEdit(1,1) StartEdit(1,1) ValidateEdit(1,1)"}};
    Box(1, 1, lorvChecked);
    for (const auto& c : cases) {
        live.Refuse(c.Id);
        StartCellEdit(grid, EditPlain);
        EXPECT_EQ(live.Fired(), c.Fired);
        EXPECT_FALSE(Click(1, 1));
        EXPECT_EQ(live.Fired(), c.Fired);
        EXPECT_EQ(CheckStateOf(grid, 1, 1), lorvChecked);
        EXPECT_EQ(grid.RowTable[1].Status, lorvrsNew);
    }
}

TEST_F(CheckToggle, EditTextIsTheNewStateWhileItIsValidated)
{
    Box(1, 1, lorvTSChecked);
    std::wstring text;
    live.act = [&](DISPID, DISPPARAMS&) {
        BSTR value = nullptr;
        grid.get_EditText(&value);
        text += value ? value : L"-";
        SysFreeString(value);
    };
    StartCellEdit(grid, EditPlain);
    EXPECT_EQ(text, L"--5-");
    text.clear();
    Click(1, 1);
    EXPECT_EQ(text, L"--4-");
}

TEST_F(CheckToggle, MarksTheRow)
{
    Box(1, 1, lorvChecked);
    StartCellEdit(grid, EditPlain);
    EXPECT_EQ(grid.RowTable[1].Status, lorvrsModified);
    grid.RowTable[1].Status = 9;
    Click(1, 1);
    EXPECT_EQ(grid.RowTable[1].Status, 9);
}

TEST_F(CheckToggle, ABooleanColumnTogglesItsText)
{
    grid.ColTable[1].ColDataType = lorvDTBoolean;
    StartCellEdit(grid, EditPlain);
    EXPECT_EQ(live.Text(1, 1), L"-1");
    EXPECT_EQ(live.Fired(),
              "BeforeEdit(1,1) StartEdit(1,1) ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1)");
    StartCellEdit(grid, EditPlain);
    EXPECT_EQ(live.Text(1, 1), L"0");
}

TEST_F(CheckToggle, AKeyTogglesTheSelectionWhenThatIsFilled)
{
    BoxesDown(lorvChecked);
    grid.FillStyle = lorvFillRepeat;
    grid.RowSel = 3;
    StartCellEdit(grid, EditPlain);
    EXPECT_EQ(Column(), "2221111");
}

TEST_F(CheckToggle, AClickToggles)
{
    for (const auto& c : nextStates) {
        Box(1, 1, c.State);
        EXPECT_TRUE(Click(1, 1));
        EXPECT_EQ(CheckStateOf(grid, 1, 1), c.Next);
        EXPECT_EQ(live.Fired(), c.Next == c.State ? "" : toggled) << "a disabled box is silent";
    }
}

TEST_F(CheckToggle, AClickNeedsABoxUnderIt)
{
    Box(1, 1, lorvChecked);
    RECT box = CheckBoxRect(grid, 1, 1);
    EXPECT_FALSE(ClickCheckBox(grid, 1, 1, {box.right, box.top}));
    EXPECT_FALSE(ClickCheckBox(grid, 1, 2, {box.left, box.top}));
    EXPECT_FALSE(ClickCheckBox(grid, -1, 1, {box.left, box.top}));
    EXPECT_FALSE(ClickCheckBox(grid, 99, 1, {box.left, box.top}));
    grid.Editable = lorvEDNone;
    EXPECT_FALSE(Click(1, 1));
    grid.Editable = lorvEDKbd;
    ReplaceText(grid.ColTable[1].ColFormat, L"Yes/No");
    EXPECT_FALSE(Click(1, 1));
    ReplaceText(grid.ColTable[1].ColFormat, nullptr);
    EXPECT_TRUE(Click(1, 1));
}

TEST_F(CheckToggle, AClickEndsTheEditFirst)
{
    Box(2, 1, lorvChecked);
    live.Open();
    live.Type(L"x");
    live.Refuse(ValidateEditId);
    EXPECT_FALSE(Click(2, 1));
    EXPECT_EQ(CheckStateOf(grid, 2, 1), lorvChecked);
}

TEST_F(CheckToggle, AClickLeavesOutTheLastSelectedRow)
{
    struct Case {
        int Clicked;
        const char* Column;
    };
    // Rows 2 to 5 are selected.
    const Case cases[] = {{3, "1222111"}, {2, "1222111"}, {5, "1111211"}, {1, "2111111"}, {6, "1111121"}};
    grid.SelectionMode = lorvSelectionByRow;
    for (const Case& c : cases) {
        BoxesDown(lorvChecked);
        grid.Row = 2;
        grid.RowSel = 5;
        EXPECT_TRUE(Click(c.Clicked, 1));
        EXPECT_EQ(Column(), c.Column) << c.Clicked;
    }
}

TEST_F(CheckToggle, ARefusalEndsTheSpreading)
{
    grid.SelectionMode = lorvSelectionByRow;
    BoxesDown(lorvChecked);
    grid.Row = 2;
    grid.RowSel = 7;
    live.On(ValidateEditId, [](DISPPARAMS& parameters) {
        *parameters.rgvarg[0].pboolVal =
            EventSink::Argument(parameters, 0).lVal == 4 ? VARIANT_TRUE : VARIANT_FALSE;
    });
    EXPECT_TRUE(Click(6, 1));
    EXPECT_EQ(Column(), "1221121");
}

TEST_F(CheckToggle, AClickInAListBoxTogglesAllSelectedRows)
{
    grid.SelectionMode = lorvSelectionListBox;
    BoxesDown(lorvChecked);
    for (int row : {2, 4, 7})
        grid.RowTable[row].Flags |= RowFlagSelected;
    EXPECT_TRUE(Click(4, 1));
    EXPECT_EQ(Column(), "1212112");
    EXPECT_TRUE(Click(3, 1));
    EXPECT_EQ(Column(), "1222112");
}

TEST_F(CheckToggle, AMergedRangeIsToggledAsOne)
{
    grid.MergeCells = lorvMergeFree;
    grid.ColTable[1].MergeCol = 1;
    BoxesDown(lorvChecked);
    for (int row : {1, 2, 3})
        live.Put(row, 1, L"same");
    MarkMergeStale(grid);
    EXPECT_TRUE(Click(1, 1));
    EXPECT_EQ(Column().substr(0, 3), "222");
}

TEST_F(CheckToggle, TheButtonListIsThatOfTheColumnOrAnswersBeforeEdit)
{
    EXPECT_FALSE(HasButtonList(grid));
    EXPECT_EQ(live.Fired(), "BeforeEdit(1,1)");
    ReplaceText(grid.ComboList, L"...");
    EXPECT_TRUE(HasButtonList(grid));
    live.Refuse(BeforeEditId);
    EXPECT_FALSE(HasButtonList(grid));
    live.Fired();
    ReplaceText(grid.ColTable[1].ColComboList, L"...");
    EXPECT_TRUE(HasButtonList(grid));
    EXPECT_EQ(live.Fired(), "");
}
