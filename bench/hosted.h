#pragma once
// The two controls on windows of the same size with the same texts: the grid in the script host's container,
// the list view as a child window.

#include "bench.h"

#include "gridhost/container.h"

class Frame
{
public:
    Frame(int width, int height)
        : window_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, width,
                                  height, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr))
    {
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame() { DestroyWindow(window_); }
    HWND Get() const { return window_; }

private:
    HWND window_;
};

inline void HandleMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// A grid on a window, `rows` rows of texts under one fixed row.
class HostedGrid
{
public:
    HostedGrid(int width, int height) : frame_(width, height), host_(false)
    {
        if (FAILED(CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER, IID_ILorvGrid,
                                    reinterpret_cast<void**>(&grid_))) ||
            FAILED(host_.Open(frame_.Get(), grid_))) {
            std::fprintf(stderr, "bench: the control cannot be hosted\n");
            std::exit(1);
        }
        HandleMessages();
    }
    HostedGrid(const HostedGrid&) = delete;
    HostedGrid& operator=(const HostedGrid&) = delete;
    ~HostedGrid()
    {
        host_.Close();
        grid_->Release();
    }
    ILorvGrid* operator->() const { return grid_; }
    HWND Window() const { return host_.ControlWindow(); }

    void Fill(const std::vector<BSTR>& texts, int rows)
    {
        grid_->put_Redraw(lorvRDNone);
        grid_->put_Rows(rows + 1);
        grid_->put_FixedRows(1);
        grid_->put_FixedCols(0);
        grid_->put_Cols(Cols);
        for (int row = 0; row < rows; ++row)
            for (int col = 0; col < Cols; ++col)
                grid_->put_TextMatrix(row + 1, col, texts[row * Cols + col]);
        for (int col = 0; col < Cols; ++col)
            grid_->put_ColWidth(col, 900);
        grid_->put_Redraw(lorvRDBuffered);
        UpdateWindow(Window());
    }

private:
    Frame frame_;
    Container host_;
    ILorvGrid* grid_ = nullptr;
};

// The list view with the texts of a grid, on a window of its own, drawn twice-buffered as the grid is.
class HostedList
{
public:
    HostedList(int width, int height)
        : frame_(width, height),
          window_(CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, width,
                                  height, frame_.Get(), nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        SendMessageW(window_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                     LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
        for (int col = 0; col < Cols; ++col) {
            LVCOLUMNW column = {};
            column.mask = LVCF_WIDTH;
            column.cx = 60;
            SendMessageW(window_, LVM_INSERTCOLUMNW, col, reinterpret_cast<LPARAM>(&column));
        }
    }
    HWND Window() const { return window_; }

    void Fill(const std::vector<BSTR>& texts, int rows)
    {
        SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
        for (int row = 0; row < rows; ++row) {
            LVITEMW item = {};
            item.mask = LVIF_TEXT;
            item.iItem = row;
            item.pszText = texts[row * Cols];
            SendMessageW(window_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
            for (int col = 1; col < Cols; ++col) {
                item.iSubItem = col;
                item.pszText = texts[row * Cols + col];
                SendMessageW(window_, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
            }
        }
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        UpdateWindow(window_);
    }

private:
    Frame frame_;
    HWND window_;
};
