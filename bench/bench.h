#pragma once
// What the benchmarks share: the clock, the texts, the two controls, and how a figure is printed.

#include "lorv8l.h"

#include <windows.h>

#include <commctrl.h>
#include <oleauto.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <functional>
#include <string>
#include <vector>

inline constexpr int Cols = 10;

inline double Milliseconds()
{
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

using Step = std::function<void()>;

// `prepare` brings back the state before `work`, untimed.
inline double MedianTime(const Step& prepare, const Step& work)
{
    double times[3];
    for (double& time : times) {
        prepare();
        double start = Milliseconds();
        work();
        time = Milliseconds() - start;
    }
    std::sort(std::begin(times), std::end(times));
    return times[1];
}

inline void Nothing() {}

// A fixed sequence, so that every run does the same work.
class Random
{
public:
    unsigned Next() { return state_ = state_ * 1664525u + 1013904223u; }
    unsigned Below(unsigned limit) { return (Next() >> 16) % limit; }

private:
    unsigned state_ = 20240607;
};

inline std::vector<BSTR> RandomTexts(int count)
{
    std::vector<BSTR> texts;
    Random random;
    for (int i = 0; i < count; ++i) {
        wchar_t text[24];
        int length = 4 + static_cast<int>(random.Below(12));
        for (int at = 0; at < length; ++at)
            text[at] = static_cast<wchar_t>((random.Below(7) == 0 ? L'A' : L'a') + random.Below(26));
        texts.push_back(SysAllocStringLen(text, length));
    }
    return texts;
}

inline std::vector<BSTR> RandomNumbers(int count)
{
    std::vector<BSTR> texts;
    Random random;
    for (int i = 0; i < count; ++i)
        texts.push_back(SysAllocString(std::to_wstring(random.Next() >> 4).c_str()));
    return texts;
}

class ListView
{
public:
    ListView()
        : window_(CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP | LVS_REPORT, 0, 0, 640, 480, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
        for (int col = 0; col < Cols; ++col) {
            LVCOLUMNW column = {};
            column.mask = LVCF_WIDTH;
            column.cx = 60;
            SendMessageW(window_, LVM_INSERTCOLUMNW, col, reinterpret_cast<LPARAM>(&column));
        }
    }
    ~ListView() { DestroyWindow(window_); }

    void Clear() { SendMessageW(window_, LVM_DELETEALLITEMS, 0, 0); }
    void Insert(int row, const wchar_t* text, LPARAM data = 0)
    {
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = const_cast<wchar_t*>(text);
        item.lParam = data;
        SendMessageW(window_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    void SetText(int row, int col, const wchar_t* text)
    {
        LVITEMW item = {};
        item.iSubItem = col;
        item.pszText = const_cast<wchar_t*>(text);
        SendMessageW(window_, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    }
    int ReadText(int row, int col)
    {
        wchar_t buffer[64];
        LVITEMW item = {};
        item.iSubItem = col;
        item.pszText = buffer;
        item.cchTextMax = 64;
        return static_cast<int>(
            SendMessageW(window_, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item)));
    }
    void Sort(PFNLVCOMPARE compare)
    {
        SendMessageW(window_, LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(compare));
    }

private:
    HWND window_;
};

class GridUnderTest
{
public:
    GridUnderTest()
    {
        if (FAILED(CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER, IID_ILorvGrid,
                                    reinterpret_cast<void**>(&grid_)))) {
            std::fprintf(stderr, "bench: the control is not registered\n");
            std::exit(1);
        }
        grid_->put_Redraw(lorvRDNone);
        grid_->put_FixedRows(0);
        grid_->put_FixedCols(0);
        grid_->put_Cols(Cols);
    }
    ~GridUnderTest() { grid_->Release(); }
    GridUnderTest(const GridUnderTest&) = delete;
    GridUnderTest& operator=(const GridUnderTest&) = delete;
    ILorvGrid* operator->() const { return grid_; }

    void Shape(int rows)
    {
        grid_->put_Rows(0);
        grid_->put_Rows(rows);
    }
    void FillColumn(const std::vector<BSTR>& texts)
    {
        Shape(static_cast<int>(texts.size()));
        for (size_t row = 0; row < texts.size(); ++row)
            grid_->put_TextMatrix(static_cast<LONG>(row), 0, texts[row]);
    }
    void SortColumn(SortSettings order)
    {
        grid_->Select(0, 0, Missing(), Missing());
        if (FAILED(grid_->put_Sort(order)))
            std::printf("the grid did not sort\n");
    }
    static VARIANT Missing()
    {
        VARIANT missing = {};
        missing.vt = VT_ERROR;
        missing.scode = DISP_E_PARAMNOTFOUND;
        return missing;
    }

private:
    ILorvGrid* grid_ = nullptr;
};

inline void PrintRatio(const char* what, double list, double grid)
{
    std::printf("%-34s list view %10.1f ms   grid %10.1f ms   %8.1f times as fast\n", what, list, grid,
                grid > 0 ? list / grid : 0.0);
    std::fflush(stdout);
}

inline void PrintTime(const char* what, double time, int calls)
{
    std::printf("%-34s %10.1f ms for %d calls\n", what, time, calls);
    std::fflush(stdout);
}
