// The grid beside the system's list view: the same work in both, in one process, and the ratio of the times.
// The list view is in report mode with text items and does not redraw while it is filled; the grid is called
// through its vtable interface, without a window. Figures are medians of three runs.
//   bench [--smoke]     --smoke does a hundredth of the work, to show that everything runs
#include "lorv8l.h"

#include <windows.h>

#include <commctrl.h>
#include <oleauto.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <functional>
#include <string>
#include <vector>

namespace
{
constexpr int Cols = 10;

struct Sizes {
    int Rows = 100000;
    int Inserted = 1000;
    int Added = 100000;
    int Empty = 1000000;
    int Writes = 10000;
};

double Milliseconds()
{
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

using Step = std::function<void()>;

// `prepare` brings back the state before `work`, untimed.
double MedianTime(const Step& prepare, const Step& work)
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

void Nothing() {}

// A fixed sequence, so that every run does the same work.
class Random
{
public:
    unsigned Next() { return state_ = state_ * 1664525u + 1013904223u; }
    unsigned Below(unsigned limit) { return (Next() >> 16) % limit; }

private:
    unsigned state_ = 20240607;
};

std::vector<BSTR> RandomTexts(int count)
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

std::vector<BSTR> RandomNumbers(int count)
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

// The comparison gets the texts themselves: nothing is copied out of the list view.
int CALLBACK CompareAsText(LPARAM x, LPARAM y, LPARAM)
{
    return CompareStringW(LOCALE_USER_DEFAULT, 0, reinterpret_cast<const wchar_t*>(x), -1,
                          reinterpret_cast<const wchar_t*>(y), -1) -
           CSTR_EQUAL;
}

int CALLBACK CompareAsNumber(LPARAM x, LPARAM y, LPARAM)
{
    double a = std::wcstod(reinterpret_cast<const wchar_t*>(x), nullptr);
    double b = std::wcstod(reinterpret_cast<const wchar_t*>(y), nullptr);
    return a < b ? -1 : a > b ? 1 : 0;
}

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

void PrintRatio(const char* what, double list, double grid)
{
    std::printf("%-34s list view %10.1f ms   grid %10.1f ms   %8.1f times as fast\n", what, list, grid,
                grid > 0 ? list / grid : 0.0);
    std::fflush(stdout);
}

void PrintTime(const char* what, double time, int calls)
{
    std::printf("%-34s %10.1f ms for %d calls\n", what, time, calls);
    std::fflush(stdout);
}

void FillList(ListView& list, const std::vector<BSTR>& texts, int rows)
{
    for (int row = 0; row < rows; ++row) {
        list.Insert(row, texts[row * Cols]);
        for (int col = 1; col < Cols; ++col)
            list.SetText(row, col, texts[row * Cols + col]);
    }
}

void FillGrid(GridUnderTest& grid, const std::vector<BSTR>& texts, int rows)
{
    grid->put_Rows(rows);
    for (int row = 0; row < rows; ++row)
        for (int col = 0; col < Cols; ++col)
            grid->put_TextMatrix(row, col, texts[row * Cols + col]);
}

void ReadGrid(GridUnderTest& grid, int rows)
{
    for (int row = 0; row < rows; ++row)
        for (int col = 0; col < Cols; ++col) {
            BSTR text = nullptr;
            grid->get_TextMatrix(row, col, &text);
            SysFreeString(text);
        }
}

void BenchFilling(const Sizes& sizes)
{
    std::vector<BSTR> texts = RandomTexts(sizes.Rows * Cols);
    ListView list;
    GridUnderTest grid;
    double fillList = MedianTime([&] { list.Clear(); }, [&] { FillList(list, texts, sizes.Rows); });
    double fillGrid = MedianTime([&] { grid.Shape(0); }, [&] { FillGrid(grid, texts, sizes.Rows); });
    PrintRatio("fill, 10 texts a row", fillList, fillGrid);
    double readList = MedianTime(Nothing, [&] {
        for (int row = 0; row < sizes.Rows; ++row)
            for (int col = 0; col < Cols; ++col)
                list.ReadText(row, col);
    });
    PrintRatio("read them all", readList, MedianTime(Nothing, [&] { ReadGrid(grid, sizes.Rows); }));
    double insertList = MedianTime(Nothing, [&] {
        for (int i = 0; i < sizes.Inserted; ++i)
            list.Insert(0, texts[i]);
    });
    VARIANT top = {};
    top.vt = VT_I4;
    double insertGrid = MedianTime(Nothing, [&] {
        for (int i = 0; i < sizes.Inserted; ++i)
            grid->AddItem(texts[i], top);
    });
    PrintRatio("insert rows at the top", insertList, insertGrid);
    size_t characters = 0;
    for (BSTR text : texts)
        characters += SysStringLen(text) + 1;
    // A cell's record is three words, and its text a block of its own.
    std::printf("%-34s %.1f (record %zu, text %.1f on average, without the heap's own overhead)\n",
                "bytes a cell", 3.0 * sizeof(void*) + 2.0 * characters / texts.size(), 3 * sizeof(void*),
                2.0 * characters / texts.size());
    for (BSTR text : texts)
        SysFreeString(text);
}

void BenchSort(const char* what, const std::vector<BSTR>& texts, PFNLVCOMPARE compare, SortSettings order)
{
    ListView list;
    double listTime = MedianTime(
        [&] {
            list.Clear();
            for (size_t row = 0; row < texts.size(); ++row)
                list.Insert(static_cast<int>(row), texts[row], reinterpret_cast<LPARAM>(texts[row]));
        },
        [&] { list.Sort(compare); });
    GridUnderTest grid;
    double gridTime = MedianTime([&] { grid.FillColumn(texts); }, [&] { grid.SortColumn(order); });
    PrintRatio(what, listTime, gridTime);
    double sorted = MedianTime(Nothing, [&] { grid.SortColumn(order); });
    PrintTime("  again, when it is sorted", sorted, 1);
}

void BenchSorting(const Sizes& sizes)
{
    BenchSort("sort a column as text", RandomTexts(sizes.Rows), CompareAsText, lorvSortStringAscending);
    BenchSort("sort a column as numbers", RandomNumbers(sizes.Rows), CompareAsNumber,
              lorvSortNumericAscending);
}

void BenchRows(const Sizes& sizes)
{
    GridUnderTest grid;
    VARIANT end = GridUnderTest::Missing(), first = {};
    first.vt = VT_I4;
    first.lVal = 1;
    auto add = [&](const VARIANT& where) {
        return [&grid, &sizes, where] {
            for (int i = 0; i < sizes.Added; ++i)
                grid->AddItem(nullptr, where);
        };
    };
    PrintTime("AddItem at the end", MedianTime([&] { grid.Shape(2); }, add(end)), sizes.Added);
    PrintTime("AddItem at row 1", MedianTime([&] { grid.Shape(2); }, add(first)), sizes.Added);
    auto full = [&] { grid.Shape(sizes.Added + 2); };
    PrintTime("RemoveItem of row 1",
              MedianTime(full,
                         [&] {
                             for (int i = 0; i < sizes.Added; ++i)
                                 grid->RemoveItem(first);
                         }),
              sizes.Added);
    grid.Shape(sizes.Empty);
    VARIANT item = {}, row = {}, col = {};
    item.vt = VT_BSTR;
    item.bstrVal = SysAllocString(L"nowhere");
    row.vt = col.vt = VT_I4;
    LONG found = 0;
    double find = MedianTime(Nothing, [&] { grid->get_FindRow(item, row, col, end, end, &found); });
    std::printf("%-34s %10.3f ms for %d rows\n", "FindRow over rows without cells", find, sizes.Empty);
    SysFreeString(item.bstrVal);
}

void BenchMergeWrites(const Sizes& sizes)
{
    GridUnderTest grid;
    grid.Shape(sizes.Writes);
    BSTR texts[] = {SysAllocString(L"one"), SysAllocString(L"two")};
    int round = 0;
    auto write = [&] {
        ++round;
        for (int row = 0; row < sizes.Writes; ++row)
            grid->put_TextMatrix(row, 0, texts[round & 1]);
    };
    double without = MedianTime(Nothing, write);
    grid->put_MergeCells(lorvMergeFree);
    grid->put_MergeCol(-1, VARIANT_TRUE);
    PrintTime("TextMatrix without merging", without, sizes.Writes);
    PrintTime("TextMatrix with merging on", MedianTime(Nothing, write), sizes.Writes);
    SysFreeString(texts[0]);
    SysFreeString(texts[1]);
}
} // namespace

int main(int argc, char** argv)
{
    Sizes sizes;
    if (argc > 1 && std::strcmp(argv[1], "--smoke") == 0)
        sizes = {1000, 10, 1000, 10000, 100};
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    BenchFilling(sizes);
    BenchSorting(sizes);
    BenchRows(sizes);
    BenchMergeWrites(sizes);
    OleUninitialize();
    return 0;
}
