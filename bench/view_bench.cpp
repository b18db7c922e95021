// What the user sees, beside the system's list view: windows of the same size, the same texts, the same font.
// Prints also what a layout of many rows costs beside a plain loop over as many bytes, what fitting a column
// costs, and how the count of GDI objects stands after many paints and many grids.
//   view_bench [--smoke]
#include "hosted.h"
#include "support/gdi_objects.h"

namespace
{
constexpr int Width = 640, Height = 480;

struct Sizes {
    int Rows = 2000;
    int Paints = 300;
    int GdiPaints = 10000;
    int Rounds = 1000;
    int LayoutRows = 1000000;
    int FittedRows = 100000;
};

void PaintAll(HWND window, int times)
{
    for (int i = 0; i < times; ++i)
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    GdiFlush();
}

void ScrollBy(HWND window, int command, int times, int rowsPerTop)
{
    for (int i = 0; i < times; ++i) {
        bool back = i / rowsPerTop % 2;
        SendMessageW(window, WM_VSCROLL, back ? command - 1 : command, 0);
        UpdateWindow(window);
    }
    GdiFlush();
}

void BenchPainting(const Sizes& sizes)
{
    std::vector<BSTR> texts = RandomTexts(sizes.Rows * Cols);
    HostedList list(Width, Height);
    HostedGrid grid(Width, Height);
    list.Fill(texts, sizes.Rows);
    grid.Fill(texts, sizes.Rows);
    // The list view takes the system's own font of dialogs; the grid's is handed to it.
    if (IFontDisp* font = nullptr; SUCCEEDED(grid->get_Font(&font)) && font) {
        IFont* handle = nullptr;
        HFONT hFont = nullptr;
        if (SUCCEEDED(font->QueryInterface(IID_IFont, reinterpret_cast<void**>(&handle)))) {
            handle->get_hFont(&hFont);
            SendMessageW(list.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(hFont), TRUE);
            handle->Release();
        }
        font->Release();
    }
    HandleMessages();
    PrintRatio("repaint the whole window",
               MedianTime(Nothing, [&] { PaintAll(list.Window(), sizes.Paints); }),
               MedianTime(Nothing, [&] { PaintAll(grid.Window(), sizes.Paints); }));
    PrintRatio("scroll by a page",
               MedianTime(Nothing, [&] { ScrollBy(list.Window(), SB_PAGEDOWN, sizes.Paints, 50); }),
               MedianTime(Nothing, [&] { ScrollBy(grid.Window(), SB_PAGEDOWN, sizes.Paints, 50); }));
    PrintRatio("scroll by a line",
               MedianTime(Nothing, [&] { ScrollBy(list.Window(), SB_LINEDOWN, sizes.Paints, 100); }),
               MedianTime(Nothing, [&] { ScrollBy(grid.Window(), SB_LINEDOWN, sizes.Paints, 100); }));
    int before = GdiObjectCount();
    PaintAll(grid.Window(), sizes.GdiPaints);
    int after = GdiObjectCount();
    std::printf("%-34s %d before, %d after %d paints\n", "GDI objects", before, after, sizes.GdiPaints);
    for (BSTR text : texts)
        SysFreeString(text);
}

void BenchRounds(const Sizes& sizes)
{
    auto round = [] { HostedGrid grid(Width, Height); };
    round();
    int before = GdiObjectCount();
    double start = Milliseconds();
    for (int i = 0; i < sizes.Rounds; ++i)
        round();
    PrintTime("create, show and destroy", Milliseconds() - start, sizes.Rounds);
    std::printf("%-34s %d before, %d after %d rounds\n", "GDI objects", before, GdiObjectCount(),
                sizes.Rounds);
}

// The setter of a column's width lays the grid out anew; the loop reads what the row table takes.
void BenchLayout(const Sizes& sizes)
{
    HostedGrid grid(Width, Height);
    grid->put_ScrollBars(lorvScrollBarNone); // drawing them would be most of the time
    grid->put_Rows(sizes.LayoutRows);
    constexpr size_t BytesPerRow = 24;
    std::vector<int> plain(sizes.LayoutRows * BytesPerRow / sizeof(int), 1);
    volatile int sum = 0;
    double loop = MedianTime(Nothing, [&] {
        int total = 0;
        for (size_t i = 0; i < plain.size(); i += BytesPerRow / sizeof(int))
            total += plain[i];
        sum = total;
    });
    long width = 900;
    double layout = MedianTime(Nothing, [&] { grid->put_ColWidth(0, width += 15); });
    std::printf("%-34s %10.3f ms, a plain loop over the same bytes %.3f ms, for %d rows\n", "layout", layout,
                loop, sizes.LayoutRows);
}

void BenchFitting(const Sizes& sizes)
{
    std::vector<BSTR> texts = RandomTexts(sizes.FittedRows);
    HostedGrid grid(Width, Height);
    grid->put_Rows(sizes.FittedRows + 1);
    for (int row = 0; row < sizes.FittedRows; ++row)
        grid->put_TextMatrix(row + 1, 1, texts[row]);
    VARIANT missing = GridUnderTest::Missing();
    double time = MedianTime(Nothing, [&] { grid->AutoSize(1, missing, missing, missing); });
    PrintTime("AutoSize of one column", time, sizes.FittedRows);
    for (BSTR text : texts)
        SysFreeString(text);
}
} // namespace

int main(int argc, char** argv)
{
    Sizes sizes;
    if (argc > 1 && std::strcmp(argv[1], "--smoke") == 0)
        sizes = {100, 5, 20, 5, 10000, 1000};
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    BenchPainting(sizes);
    BenchLayout(sizes);
    BenchFitting(sizes);
    BenchRounds(sizes);
    OleUninitialize();
    return 0;
}
