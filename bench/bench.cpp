// The grid beside the system's list view: the same work in both, in one process, and the ratio of the times.
// The list view is in report mode with text items and does not redraw while it is filled; the grid is called
// through its vtable interface, without a window. Figures are medians of three runs.
//   bench [--smoke] [filling|sorting|rows|merging]     --smoke does a hundredth of the work, to show that it
//   runs
#include "bench.h"

namespace
{
struct Sizes {
    int Rows = 100000;
    int Inserted = 1000;
    int Added = 100000;
    int Empty = 1000000;
    int Writes = 10000;
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
    const char* only = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--smoke") == 0)
            sizes = {1000, 10, 1000, 10000, 100};
        else
            only = argv[i];
    }
    struct {
        const char* Name;
        void (*Run)(const Sizes&);
    } const sections[] = {{"filling", BenchFilling},
                          {"sorting", BenchSorting},
                          {"rows", BenchRows},
                          {"merging", BenchMergeWrites}};
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    for (const auto& section : sections)
        if (!only || std::strcmp(only, section.Name) == 0)
            section.Run(sizes);
    OleUninitialize();
    return 0;
}
