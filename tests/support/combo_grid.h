#pragma once
// A grid whose cell 1,1 is edited in a drop-down.

#include "edit/combo_list.h"
#include "platform/bstr.h"
#include "support/edit_grid.h"

class ComboTest : public EditTest
{
protected:
    void SetList(const wchar_t* list) { EXPECT_EQ(grid.put_ComboList(Bstr(list).Get()), S_OK); }
    void SetColList(const wchar_t* list) { EXPECT_EQ(grid.put_ColComboList(1, Bstr(list).Get()), S_OK); }
    void SetMask(const wchar_t* mask) { EXPECT_EQ(grid.put_EditMask(Bstr(mask).Get()), S_OK); }

    // Opens the list of the cell; what was fired on the way is forgotten.
    void Open(const wchar_t* list, int key = EditSelectAll)
    {
        SetList(list);
        live.Open(key);
        live.Fired();
    }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageW(grid.ComboWindow, message, wParam, lParam);
    }
    int Current() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    int Count() const { return static_cast<int>(Send(CB_GETCOUNT)); }
    bool IsDropped() const { return Send(CB_GETDROPPEDSTATE) != 0; }
    std::string EditSelection() const
    {
        auto bounds = static_cast<DWORD>(Send(CB_GETEDITSEL));
        return std::to_string(LOWORD(bounds)) + "-" + std::to_string(HIWORD(bounds));
    }
    void SelectText(int start, int end) const { Send(CB_SETEDITSEL, 0, MAKELPARAM(start, end)); }
    bool IsChangePending() const { return (grid.EditorList.ComboBits & ComboChangePending) != 0; }

    // The user chooses an item: the box moves to it and tells its parent.
    void Choose(int item) const
    {
        Send(CB_SETCURSEL, static_cast<WPARAM>(item));
        Notify(CBN_SELENDOK);
        Notify(CBN_SELCHANGE);
    }
    void Notify(int notification) const
    {
        SendMessageW(grid.Window, WM_COMMAND, static_cast<WPARAM>(MAKELONG(EditorCombo, notification)),
                     reinterpret_cast<LPARAM>(grid.ComboWindow));
    }

    // What a member answers; `call` fills a BSTR.
    template<class Call> static std::wstring Read(Call call)
    {
        BSTR text = nullptr;
        EXPECT_EQ(call(&text), S_OK);
        std::wstring copy = text ? text : L"";
        SysFreeString(text);
        return copy;
    }
    long ComboIndex()
    {
        LONG index = 99;
        EXPECT_EQ(grid.get_ComboIndex(&index), S_OK);
        return index;
    }
};
