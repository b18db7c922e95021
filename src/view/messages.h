#pragma once
// The control's window procedure as a table: each message leads to the routine that handles it.

#include "core/grid_object.h"

// Private messages of the control's window.
enum PrivateMessage : UINT {
    MessagePrint = 0x47D,           // with wParam 0 prints; otherwise answers PrintMessageSign
    MessageStartEdit = 0x47F,       // deferred start of an edit
    MessageReserved = 0x480,        // kept free: old senders still post it
    MessageIdentify = 0x481,        // with wParam IdentifyVersion answers the address of the grid object
    MessageEditChanged = 0x482,     // deferred notice of a change in the editor
    MessageReportSelection = 0x483, // deferred selection events
    MessageReserved2 = 0x48C,       // kept free like the other one
};
constexpr LRESULT PrintMessageSign = 456654;
constexpr WPARAM IdentifyVersion = 802;

constexpr UINT_PTR DragTimer = 100;

// Handles a message of the grid's window. False leaves it to the default procedure. Events fire from here:
// the caller holds the control.
bool ProcessWindowMessage(Grid& grid, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
