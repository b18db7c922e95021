#pragma once
// The edit box over a cell, for cells without a list.

#include "core/grid_object.h"

// Opens the box on the cell being edited. `key` as for StartCellEdit; `hasButton`: the button at the cell's
// end stays free.
bool OpenTextEditor(Grid& grid, int key, bool hasButton);

// The window of the box, for the length of a message: what it does differently from the system's edit box.
class CMyEdit
{
public:
    CMyEdit(Grid& grid, HWND window) noexcept : grid_(grid), window_(window) {}
    CMyEdit(const CMyEdit&) = delete;
    CMyEdit& operator=(const CMyEdit&) = delete;
    virtual ~CMyEdit() = default;

    // Makes the window, hidden and empty, in the place of the last one; null when it cannot be made.
    static HWND Create(Grid& grid, DWORD style, DWORD styleEx) noexcept;

    // Handles a message. False leaves it to the system's procedure.
    virtual bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

private:
    bool OnKeyDown(WPARAM key, LPARAM lParam);
    bool OnReturn();
    bool OnSysKeyDown(WPARAM key, LPARAM lParam);
    bool OnKeyUp(UINT message, WPARAM key, LPARAM lParam);
    bool OnChar(WPARAM key, LPARAM lParam);
    bool OnKillFocus(HWND receiver);
    void PassOn(UINT message, WPARAM wParam, LPARAM lParam);
    bool LeavesBy(int key) const;

    Grid& grid_;
    HWND window_;
};
