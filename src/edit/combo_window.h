#pragma once
// The combo box over a cell, and the edit box in it when the list takes free text: what their messages do.

#include "core/grid_object.h"

// The windows of the drop-down, for the length of a message: what they do differently from the system's.
class CMyCombo
{
public:
    // The combo box and its inner edit box each have a map of messages.
    enum Map : UINT_PTR { ComboBoxMap = 0, EditBoxMap = 1 };

    CMyCombo(Grid& grid, HWND window, Map map) noexcept : grid_(grid), window_(window), map_(map) {}
    CMyCombo(const CMyCombo&) = delete;
    CMyCombo& operator=(const CMyCombo&) = delete;
    virtual ~CMyCombo() = default;

    // Makes the windows, hidden and empty, in the place of the last ones; null when they cannot be made.
    static HWND Create(Grid& grid, DWORD style, DWORD styleEx) noexcept;
    static void Destroy(Grid& grid) noexcept;

    // Handles a message. False leaves it to the system's procedure.
    virtual bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

private:
    bool OnKeyDown(WPARAM key, LPARAM lParam);
    bool OnSysKeyDown(WPARAM key, LPARAM lParam);
    bool OnKeyUp(UINT message, WPARAM key, LPARAM lParam);
    bool OnChar(WPARAM key, LPARAM lParam);
    bool OnKillFocus(HWND receiver);
    void PassOn(UINT message, WPARAM wParam, LPARAM lParam);
    bool LeavesBy(int key) const;
    bool IsLive() const noexcept;

    Grid& grid_;
    HWND window_;
    Map map_;
};

// Fires ChangeEdit if a change of the drop-down is still to be told of.
void TellPendingChange(Grid& grid);
