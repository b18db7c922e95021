// The end of an edit: what is asked, what is written, and what a refusal does.

#include "edit/cell_editor.h"
#include "support/edit_grid.h"

namespace
{
class EditCommit : public EditTest
{
protected:
    void OpenAndType(const wchar_t* text)
    {
        live.Open();
        live.Type(text);
        live.Fired();
    }
};
const std::string reopening = "BeforeEdit(1,1) StartEdit(1,1) SetupEditStyle SetupEditWindow";
} // namespace

TEST_F(EditCommit, WithoutAnEditThereIsNothingToEnd)
{
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Fired(), "");
}

TEST_F(EditCommit, AProgramCancelsWithoutAnyEvent)
{
    live.Put(1, 1, L"old");
    OpenAndType(L"new");
    EXPECT_EQ(grid.FinishEditing(VARIANT_TRUE), S_OK);
    EXPECT_EQ(live.Fired(), "");
    EXPECT_EQ(live.Text(1, 1), L"old");
    EXPECT_FALSE(live.IsOpen());
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
}

TEST_F(EditCommit, AProgramEndsTheEdit)
{
    OpenAndType(L"new");
    EXPECT_EQ(grid.FinishEditing(VARIANT_FALSE), S_OK);
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1)");
    EXPECT_EQ(live.Text(1, 1), L"new");
}

TEST_F(EditCommit, FinishEditingSucceedsEvenWhenRefused)
{
    live.Refuse(ValidateEditId);
    OpenAndType(L"new");
    EXPECT_EQ(grid.FinishEditing(VARIANT_FALSE), S_OK);
    EXPECT_EQ(live.Text(1, 1), L"");
}

TEST_F(EditCommit, TheTextIsThereWhileItIsValidated)
{
    std::wstring text;
    bool shown = true;
    live.On(ValidateEditId, [&](DISPPARAMS&) {
        BSTR value = nullptr;
        grid.get_EditText(&value);
        text = value ? value : L"";
        SysFreeString(value);
        shown = live.IsOpen();
        grid.put_EditText(Bstr(L"mended").Get());
    });
    OpenAndType(L"new");
    CommitEdit(grid);
    EXPECT_EQ(text, L"new");
    EXPECT_FALSE(shown);
    EXPECT_EQ(live.Text(1, 1), L"mended");
}

TEST_F(EditCommit, ARefusalOpensTheEditorAgainByMessage)
{
    live.Put(1, 1, L"old");
    grid.RowSel = 3;
    live.Refuse(ValidateEditId);
    OpenAndType(L"new");
    EXPECT_FALSE(CommitEdit(grid));
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1)");
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
    EXPECT_FALSE(live.IsOpen());
    EXPECT_TRUE(grid.EditFlags & EditFlagSelectionLocked);
    live.act = nullptr;
    live.Pump();
    EXPECT_EQ(live.Fired(), reopening);
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(live.Shown(), L"old") << "what was refused is lost";
    EXPECT_EQ(live.Selected(), "0-3");
    EXPECT_FALSE(grid.EditFlags & EditFlagSelectionLocked);
    EXPECT_EQ(grid.RowSel, 3);
}

TEST_F(EditCommit, NothingMovesTheCursorWhileARefusalIsPending)
{
    live.Refuse(ValidateEditId);
    OpenAndType(L"new");
    EXPECT_EQ(MoveCursor(grid, 4, 3, 3), S_OK);
    EXPECT_EQ(live.Cursor(), "1,1");
    EXPECT_EQ(MoveCursor(grid, 4, 3, 3), S_OK) << "no editor is open, and still";
    EXPECT_EQ(live.Cursor(), "1,1");
    live.act = nullptr;
    live.Pump();
    EXPECT_TRUE(live.IsOpen());
}

TEST_F(EditCommit, AKeyThatLeavesIsHeldByARefusal)
{
    live.Refuse(ValidateEditId);
    OpenAndType(L"new");
    SendMessageW(live.Box(), WM_KEYDOWN, VK_TAB, 1);
    EXPECT_EQ(live.Cursor(), "1,1");
    live.act = nullptr;
    live.Pump();
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(grid.EditCol, 1);
}

TEST_F(EditCommit, AClickElsewhereAfterARefusalIsTakenBack)
{
    live.Refuse(ValidateEditId);
    OpenAndType(L"new");
    EXPECT_FALSE(CommitEdit(grid));
    live.act = nullptr;
    constexpr LPARAM inFourThree = MAKELPARAM(175, 90);
    SendMessageW(grid.Window, WM_LBUTTONDOWN, MK_LBUTTON, inFourThree);
    EXPECT_EQ(live.Cursor(), "4,3") << "the press clears the lock";
    live.Pump();
    EXPECT_EQ(live.Cursor(), "1,1");
    EXPECT_TRUE(live.IsOpen());
    SendMessageW(grid.Window, WM_LBUTTONUP, 0, inFourThree);
}

TEST_F(EditCommit, ARefusedCellThatHasGoneIsNotReopened)
{
    live.GoTo(18, 1);
    live.Refuse(ValidateEditId);
    OpenAndType(L"new");
    EXPECT_FALSE(CommitEdit(grid));
    live.act = nullptr;
    ResizeRows(grid, 5);
    live.Pump();
    EXPECT_FALSE(live.IsOpen());
    EXPECT_FALSE(grid.EditFlags & EditFlagSelectionLocked);
}

TEST_F(EditCommit, BeepsUnlessTheMaskBeginsQuietly)
{
    const struct {
        const wchar_t* Mask;
        bool Beeps;
    } cases[] = {
        {nullptr, true}, {L"", true},      {L"00", true}, {L"00;Q", true}, {L";Q", false},
        {L";*q", false}, {L";00Q", false}, {L";*", true}, {L"Q;", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(BeepsWhenRefused(c.Mask), c.Beeps) << (c.Mask ? c.Mask : L"(null)");
}

TEST_F(EditCommit, AnIncompleteMaskArrivesRefused)
{
    ReplaceText(grid.EditMask, L"00");
    live.Open();
    live.Type(L"1");
    live.Fired();
    live.On(ValidateEditId, [](DISPPARAMS& parameters) { *parameters.rgvarg[0].pboolVal = VARIANT_FALSE; });
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Fired(), "ChangeEdit ValidateEdit(1,1)! CellChanged(1,1) AfterEdit(1,1)");
    EXPECT_EQ(live.Text(1, 1), L"1_");
    live.act = nullptr;
    live.Put(1, 1, L"");
    live.Open();
    live.Type(L"1");
    EXPECT_FALSE(CommitEdit(grid));
    EXPECT_EQ(live.Text(1, 1), L"");
}

TEST_F(EditCommit, AMaskFiresOneChangeWhenItOpensAndOneWhenItEnds)
{
    ReplaceText(grid.ColTable[1].ColEditMask, L"99");
    live.Open();
    EXPECT_EQ(live.Fired(), "BeforeEdit(1,1) StartEdit(1,1) SetupEditStyle ChangeEdit SetupEditWindow");
    EXPECT_EQ(live.Shown(), L"__");
    live.Type(L"1");
    live.Fired();
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Fired(), "ChangeEdit ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1)");
    EXPECT_EQ(live.Text(1, 1), L"1 ");
}

TEST_F(EditCommit, TheMaskOfTheGridComesFirst)
{
    ReplaceText(grid.ColTable[1].ColEditMask, L"99");
    ReplaceText(grid.EditMask, L"(99)");
    live.Open();
    EXPECT_EQ(live.Shown(), L"(__)");
}

TEST_F(EditCommit, AMaskTakesThePlaceOfTheLimit)
{
    ReplaceText(grid.EditMask, L"9999");
    grid.EditMaxLength = 2;
    live.Open();
    live.Type(L"1234");
    EXPECT_EQ(live.Shown(), L"1234");
}

TEST_F(EditCommit, ACharacterTypedIntoAMaskStartsBehindItsLiterals)
{
    ReplaceText(grid.EditMask, L"(99)");
    EXPECT_TRUE(StartCellEdit(grid, '7'));
    EXPECT_EQ(live.Selected(), "1-4");
    live.Pump();
    EXPECT_EQ(live.Shown(), L"(7_)");
}

TEST_F(EditCommit, ACellThatHasGoneIsGivenUpSilently)
{
    live.GoTo(10, 1);
    OpenAndType(L"new");
    grid.Rows = 5; // as a text source may do it
    EXPECT_TRUE(CommitEdit(grid));
    grid.Rows = 20;
    EXPECT_EQ(live.Fired(), "");
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
    EXPECT_EQ(live.Text(10, 1), L"");
}

TEST_F(EditCommit, AfterEditFiresEvenWhenTheTextCannotBeStored)
{
    live.GoTo(10, 1);
    OpenAndType(L"new");
    live.On(ValidateEditId, [this](DISPPARAMS&) { ResizeRows(grid, 5); });
    EXPECT_TRUE(CommitEdit(grid));
    EXPECT_EQ(live.Fired(), "ValidateEdit(10,1) AfterEdit(10,1)");
    EXPECT_EQ(grid.ActiveEditor, EditorNone);
}

TEST_F(EditCommit, EndsASearchBeforeAnythingElse)
{
    OpenAndType(L"new");
    grid.IsSearching = 1;
    CommitEdit(grid);
    EXPECT_EQ(live.Fired(), "EndAutoSearch ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1)");
    EXPECT_EQ(grid.IsSearching, 0);
}

TEST_F(EditCommit, TheRowCountsAsModifiedUnlessTheHostHasItsOwnStatus)
{
    const struct {
        uint8_t Before, After;
    } cases[] = {{lorvrsNew, lorvrsModified},
                 {lorvrsUpdated, lorvrsModified},
                 {lorvrsModified, lorvrsModified},
                 {lorvrsDeleted, lorvrsModified},
                 {4, 4},
                 {200, 200}};
    for (const auto& c : cases) {
        grid.RowTable[1].Status = c.Before;
        live.Open();
        CommitEdit(grid);
        EXPECT_EQ(grid.RowTable[1].Status, c.After) << int(c.Before);
    }
    grid.RowTable[1].Status = 0;
    live.Open();
    live.Press(VK_ESCAPE);
    EXPECT_EQ(grid.RowTable[1].Status, 0);
}

TEST_F(EditCommit, FillsTheSelectionThatTheEditStartedWith)
{
    grid.FillStyle = lorvFillRepeat;
    grid.RowSel = 2;
    grid.ColSel = 2;
    OpenAndType(L"x");
    CommitEdit(grid);
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1) CellChanged(1,1) CellChanged(1,2) CellChanged(2,1) "
                            "CellChanged(2,2) AfterEdit(1,1)");
    grid.FillStyle = lorvFillSingle;
    OpenAndType(L"y");
    CommitEdit(grid);
    EXPECT_EQ(live.Text(2, 2), L"x");
}

TEST_F(EditCommit, WritesAMergedRangeAsAWhole)
{
    grid.MergeCells = lorvMergeFree;
    grid.ColTable[1].MergeCol = 1;
    for (int row : {1, 2, 3})
        live.Put(row, 1, L"same");
    MarkMergeStale(grid);
    OpenAndType(L"x");
    CommitEdit(grid);
    EXPECT_EQ(live.Text(1, 1), L"x");
    EXPECT_EQ(live.Text(3, 1), L"x");
    EXPECT_EQ(live.Text(4, 1), L"");
}

TEST_F(EditCommit, SpilledAndOutlineMergesAreNoRanges)
{
    for (int mode : {lorvMergeSpill, lorvMergeOutline}) {
        grid.MergeCells = static_cast<int16_t>(mode);
        grid.ColTable[1].MergeCol = 1;
        live.Put(1, 1, L"same");
        live.Put(2, 1, L"same");
        OpenAndType(L"x");
        CommitEdit(grid);
        EXPECT_EQ(live.Text(1, 1), L"x");
        EXPECT_EQ(live.Text(2, 1), L"same") << mode;
    }
}

TEST_F(EditCommit, MovingTheCursorEndsTheEdit)
{
    OpenAndType(L"new");
    EXPECT_EQ(grid.put_Row(4), S_OK);
    EXPECT_FALSE(live.IsOpen());
    EXPECT_EQ(live.Text(1, 1), L"new");
    EXPECT_EQ(live.Cursor(), "4,1");
}
