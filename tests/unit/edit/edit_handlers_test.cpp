// Handlers that do their worst inside every event of an edit. Whatever they do, the state of the edit stays
// one that the next edit can start from.

#include "support/edit_grid.h"

#include <algorithm>
#include <iterator>

namespace
{
using EditHandlers = EditTest;

constexpr DISPID editEvents[] = {BeforeEditId,      StartEditId,      ValidateEditId, AfterEditId,
                                 KeyPressEditId,    KeyDownEditId,    KeyUpEditId,    ChangeEditId,
                                 SetupEditWindowId, SetupEditStyleId, CellChangedId,  EndAutoSearchId};

struct Deed {
    const char* Name;
    void (*Do)(LiveGrid& live, HWND other, DISPPARAMS& parameters);
};
const Deed deeds[] = {
    {"cancels",
     [](LiveGrid&, HWND, DISPPARAMS& parameters) {
         for (UINT slot = 0; slot < parameters.cArgs; ++slot)
             if (parameters.rgvarg[slot].vt == (VT_BYREF | VT_BOOL))
                 *parameters.rgvarg[slot].pboolVal = VARIANT_TRUE;
     }},
    {"takes keys",
     [](LiveGrid&, HWND, DISPPARAMS& parameters) {
         for (UINT slot = 0; slot < parameters.cArgs; ++slot)
             if (parameters.rgvarg[slot].vt == (VT_BYREF | VT_I2))
                 *parameters.rgvarg[slot].piVal = 0;
     }},
    {"commits", [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.FinishEditing(VARIANT_FALSE); }},
    {"gives up", [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.FinishEditing(VARIANT_TRUE); }},
    {"edits", [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.EditCell(); }},
    {"moves", [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.put_Row(live.grid.Row == 3 ? 4 : 3); }},
    {"selects nothing", [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.put_Row(-1); }},
    {"sets the text",
     [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.put_EditText(Bstr(L"given").Get()); }},
    {"sets the selection",
     [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.put_EditSelText(Bstr(L"part").Get()); }},
    {"shrinks", [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.put_Rows(1), live.grid.put_Cols(1); }},
    {"empties", [](LiveGrid& live, HWND, DISPPARAMS&) { live.grid.put_Rows(0), live.grid.put_Cols(0); }},
    {"takes the focus", [](LiveGrid&, HWND other, DISPPARAMS&) { SetFocus(other); }},
    {"gives the grid the focus", [](LiveGrid& live, HWND, DISPPARAMS&) { SetFocus(live.grid.Window); }},
    {"hides the editor",
     [](LiveGrid& live, HWND, DISPPARAMS&) {
         if (live.Box())
             ShowWindow(live.Box(), SW_HIDE);
     }},
    {"destroys the editor",
     [](LiveGrid& live, HWND, DISPPARAMS&) {
         if (live.Box())
             DestroyWindow(live.Box());
     }},
    {"destroys the window",
     [](LiveGrid& live, HWND, DISPPARAMS&) {
         if (live.grid.Window)
             DestroyWindow(live.grid.Window);
     }},
    {"changes the list", [](LiveGrid& live, HWND, DISPPARAMS&) { ReplaceText(live.grid.ComboList, L"..."); }},
    {"changes the mask", [](LiveGrid& live, HWND, DISPPARAMS&) { ReplaceText(live.grid.EditMask, L"(00)"); }},
    {"handles messages", [](LiveGrid& live, HWND, DISPPARAMS&) { live.Pump(); }},
    {"leaves", [](LiveGrid& live, HWND, DISPPARAMS&) { live.Disconnect(); }},
};

// No editor shows that is not the open one, and the one that is open belongs to a cell.
void ExpectSound(const LiveGrid& live, const std::string& where)
{
    const Grid& grid = live.grid;
    if (grid.ActiveEditor == EditorNone)
        EXPECT_FALSE(IsShown(grid.EditBoxWindow)) << where;
    if (grid.EditBoxWindow)
        EXPECT_TRUE(IsWindow(grid.EditBoxWindow)) << where;
    EXPECT_FALSE(grid.PaintMode & PaintTogglingCheck) << where;
    EXPECT_EQ(grid.InEvent, 0u) << where;
}
} // namespace

TEST_F(EditHandlers, DoTheirWorstInEveryEvent)
{
    for (DISPID id : editEvents)
        for (const Deed& deed : deeds) {
            std::string where = EventName(id) + " " + deed.Name;
            LiveGrid victim(frame_);
            int times = 0;
            victim.On(id, [&](DISPPARAMS& parameters) {
                if (++times <= 20) // what goes on for ever is the handler's own doing
                    deed.Do(victim, other_, parameters);
            });
            victim.grid.IsSearching = 1;
            StartCellEdit(victim.grid, 'a');
            victim.Pump();
            for (int key : {static_cast<int>('B'), static_cast<int>(VK_TAB), static_cast<int>(VK_F2),
                            static_cast<int>(VK_RETURN), static_cast<int>(VK_ESCAPE)}) {
                victim.Press(key);
                victim.Release(key);
            }
            CommitEdit(victim.grid);
            victim.Pump();
            EXPECT_GT(times, 0) << where;
            victim.act = nullptr;
            CommitEdit(victim.grid);
            victim.Pump();
            CommitEdit(victim.grid, true);
            ExpectSound(victim, where);
            if (!victim.grid.Window)
                continue;
            // And now an edit as if nothing had been.
            ReplaceText(victim.grid.ComboList, nullptr);
            ReplaceText(victim.grid.EditMask, nullptr);
            ResizeBoth(victim.grid, 20, 5);
            victim.GoTo(1, 1);
            EXPECT_TRUE(StartCellEdit(victim.grid, EditSelectAll)) << where;
            victim.grid.put_EditText(Bstr(L"sound").Get());
            EXPECT_TRUE(CommitEdit(victim.grid)) << where;
            EXPECT_EQ(victim.Text(1, 1), L"sound") << where;
            ExpectSound(victim, where);
        }
}

TEST_F(EditHandlers, AnEditInsideBeforeEditComesToAnEnd)
{
    int asked = 0;
    live.On(BeforeEditId, [&](DISPPARAMS&) {
        ++asked;
        grid.EditCell();
    });
    grid.EditCell();
    EXPECT_EQ(asked, 8);
    live.act = nullptr;
    live.Pump();
    EXPECT_TRUE(live.IsOpen());
}

TEST_F(EditHandlers, AnEditInsideAfterEditComesByMessage)
{
    live.On(AfterEditId, [this](DISPPARAMS&) {
        live.act = nullptr;
        grid.EditCell();
    });
    live.Open();
    live.Fired();
    CommitEdit(grid);
    EXPECT_FALSE(live.IsOpen());
    live.Pump();
    EXPECT_TRUE(live.IsOpen());
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1) AfterEdit(1,1) BeforeEdit(1,1) StartEdit(1,1) SetupEditStyle "
                            "SetupEditWindow");
}

TEST_F(EditHandlers, ACommitInsideValidateEditIsNone)
{
    live.On(ValidateEditId, [this](DISPPARAMS&) {
        EXPECT_TRUE(CommitEdit(grid));
        EXPECT_EQ(grid.ActiveEditor, EditorText);
    });
    live.Open();
    live.Type(L"x");
    live.Fired();
    CommitEdit(grid);
    EXPECT_EQ(live.Fired(), "ValidateEdit(1,1) CellChanged(1,1) AfterEdit(1,1)");
}
