// The end of an edit.

#include "core/cell_property.h"
#include "core/merge.h"
#include "core/property_frame.h"
#include "core/search.h"
#include "edit/cell_editor.h"
#include "edit/combo_editor.h"
#include "edit/combo_list.h"
#include "edit/mask.h"
#include "platform/window_text.h"
#include "view/messages.h"

#include <cwchar>

namespace
{
// Handlers run in the middle of a commit, and one of them may open another edit: then this one is over.
class Commit
{
public:
    explicit Commit(Grid& grid) noexcept
        : grid_(grid), window_(OpenEditorWindow(grid)), isCombo_(grid.ActiveEditor == EditorCombo)
    {
    }

    bool Run(bool cancel)
    {
        if (isCombo_)
            SettleComboEdit(grid_);
        if (!window_ || OpenEditorWindow(grid_) != window_ || !IsShown(window_))
            return true;
        EndAutoSearch(grid_);
        if (!IsMine())
            return true;
        Hide();
        if (!IsMine())
            return true;
        if (cancel || !IsCell(grid_, grid_.EditRow, grid_.EditCol))
            return Close();
        if (grid_.EditCancel)
            return Abandon();
        return Validate();
    }

private:
    bool IsMine() const noexcept
    {
        return !grid_.Closing && window_ == OpenEditorWindow(grid_) && IsWindow(window_);
    }

    // The window stays as a hidden shell until the next edit.
    void Hide()
    {
        HideCaret(window_);
        ShowWindow(window_, SW_HIDE);
        if (IsWindow(window_))
            EnableWindow(window_, FALSE);
    }

    bool Close() noexcept
    {
        if (OpenEditorWindow(grid_) == window_ && !IsShown(window_))
            grid_.ActiveEditor = EditorNone;
        return true;
    }

    // Escape tells AfterEdit, which a cancel by the program does not.
    bool Abandon()
    {
        event::AfterEdit(grid_, grid_.EditRow, grid_.EditCol);
        return Close();
    }

    bool Validate()
    {
        grid_.EditCancel = FinishMask() ? VARIANT_TRUE : VARIANT_FALSE;
        if (!IsMine())
            return true;
        grid_.EditFlags |= EditFlagSelectionLocked;
        event::ValidateEdit(grid_, grid_.EditRow, grid_.EditCol, grid_.EditCancel);
        if (!IsMine())
            return true;
        return grid_.EditCancel ? Refuse() : Accept();
    }

    // Whether the mask is still incomplete. An incomplete one arrives in ValidateEdit as cancelled.
    bool FinishMask()
    {
        bool editable = !isCombo_ || (grid_.EditorList.ComboBits & ComboEditableList);
        if (!editable || CompileCellMask(grid_) == 0)
            return false;
        if (isCombo_)
            ApplyMaskToCombo(grid_, false);
        else
            ApplyMaskAndNotify(grid_, false);
        HWND box = isCombo_ ? grid_.ComboEditBox : window_;
        return IsMine() && box && MaskIsIncomplete(box);
    }

    // The lock stays on until the posted message opens the editor again, so that nothing moves the current
    // cell in between.
    bool Refuse()
    {
        if (grid_.Window)
            ShowEditedCell(grid_);
        if (BeepsWhenRefused(MaskOfCell(grid_)))
            MessageBeep(MB_ICONHAND);
        PostOnce(grid_, MessageStartEdit, 1);
        Close();
        return false;
    }

    bool Accept()
    {
        grid_.EditFlags &= ~static_cast<uint32_t>(EditFlagSelectionLocked);
        int row = grid_.EditRow, col = grid_.EditCol;
        if (HRESULT result = Store(); result != S_OK)
            ReportError(grid_, result);
        if (!IsMine())
            return true;
        event::AfterEdit(grid_, row, col);
        MarkRowModified(grid_, row);
        return Close();
    }

    HRESULT Store()
    {
        Bstr text;
        if (const wchar_t* key = isCombo_ ? ComboKeyToStore(grid_) : nullptr)
            text = Bstr(key);
        else
            text = WindowText(window_);
        if (!text.Get())
            return LORV_E_MEMORY;
        return SetCellPropertyRange(grid_, TargetRange(), CellSelector::Text, text.Text());
    }

    CellRange TargetRange()
    {
        CellRange cell(grid_.EditRow, grid_.EditCol, grid_.EditRow, grid_.EditCol);
        if (JoinsCells(grid_, grid_.EditRow, grid_.EditCol))
            return CurrentMergedRange(grid_, grid_.EditRow, grid_.EditCol);
        if (grid_.FillStyle != lorvFillSingle)
            return {grid_.EditRow, grid_.EditCol, grid_.EditRowSel, grid_.EditColSel};
        return cell;
    }

    static bool JoinsCells(const Grid& grid, int row, int col) noexcept
    {
        for (int mode : {grid.MergeCells, grid.MergeCellsFixed})
            if (mode == lorvMergeSpill || mode == lorvMergeOutline)
                return false;
        return IsCell(grid, row, col) && MergesAtAll(grid) &&
               (RowMerges(grid, row) || grid.ColTable[col].MergeCol != 0);
    }

    Grid& grid_;
    HWND window_;
    bool isCombo_;
};
} // namespace

bool CommitEdit(Grid& grid, bool cancel)
{
    if (grid.ActiveEditor != EditorText && grid.ActiveEditor != EditorCombo)
        return true;
    KeepAlive alive(grid);
    return Commit(grid).Run(cancel);
}

bool BeepsWhenRefused(const wchar_t* mask) noexcept
{
    return !mask || *mask != L';' || !std::wcspbrk(mask, L"qQ");
}

CellRange CurrentMergedRange(Grid& grid, int row, int col)
{
    if (HasOption(grid, OptionMergeStale))
        RebuildMergeLinks(grid);
    if (!IsCell(grid, row, col)) // a text source may have changed the grid
        return {row, col, row, col};
    return MergedRangeOf(grid, row, col);
}

void MarkRowModified(Grid& grid, int row) noexcept
{
    constexpr uint8_t firstOwnStatus = 4; // from here on the host's own values
    if (IsRow(grid, row) && grid.RowTable[row].Status < firstOwnStatus)
        grid.RowTable[row].Status = lorvrsModified;
}
