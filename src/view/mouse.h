#pragma once
// The mouse: one routine per message of the grid's window, and the end of a drag for whoever takes the mouse
// away. Events fire from all of them, so the caller holds the control.

#include "core/grid_object.h"

// Handlers of the message map, by message. False leaves the message to the default procedure.
bool OnLeftButtonDown(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);   // WM_LBUTTONDOWN
bool OnRightButtonDown(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);  // WM_RBUTTONDOWN
bool OnMiddleButtonDown(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result); // WM_MBUTTONDOWN
bool OnLeftButtonUp(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);     // WM_LBUTTONUP
bool OnRightButtonUp(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);    // WM_RBUTTONUP
bool OnMiddleButtonUp(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);   // WM_MBUTTONUP
bool OnLeftDoubleClick(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);  // WM_LBUTTONDBLCLK
bool OnRightDoubleClick(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result); // WM_RBUTTONDBLCLK
bool OnMouseMove(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);        // WM_MOUSEMOVE
bool OnMouseLeave(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);       // WM_MOUSELEAVE
bool OnDragTimer(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);        // WM_TIMER
bool OnSetCursor(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result);        // WM_SETCURSOR
// Another window takes the mouse: the drag is over.
bool OnCaptureChanged(Grid& grid, WPARAM wParam, LPARAM lParam, LRESULT& result); // WM_CAPTURECHANGED

// What a move of the mouse comes to, or a tick of the timer while a drag rests: looks for the zone that the
// pointer is in, asking BeforeUserResize, and moves on a drag over cells.
void UpdateMouseZone(Grid& grid, POINT point);

// Stops the timer of a drag over cells, if it is this grid's.
void StopDragTimer(Grid& grid);
// Ends a press that holds the mouse, its timer too; true when one did. For WM_CANCELMODE, WM_KILLFOCUS and
// WM_DESTROY.
bool DropMouseDrag(Grid& grid);
