// From the key to the painted screen, beside the system's list view: Down and Page Down held through many
// rows, each row on the screen before the next key.
//   input_bench [--smoke]
#include "hosted.h"

namespace
{
constexpr int Width = 640, Height = 480;

void Press(HWND window, int key)
{
    SendMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    UpdateWindow(window);
}

void Hold(HWND window, int key, int times)
{
    for (int i = 0; i < times; ++i)
        Press(window, key);
    GdiFlush();
}

// The first row, without the time that it takes to get there.
void GoHome(HWND window)
{
    BYTE before[256], state[256] = {};
    GetKeyboardState(before);
    state[VK_CONTROL] = 0x80;
    SetKeyboardState(state);
    Press(window, VK_HOME);
    SetKeyboardState(before);
}

double TimeOf(HWND window, int key, int times)
{
    GoHome(window);
    double start = Milliseconds();
    Hold(window, key, times);
    return Milliseconds() - start;
}

void BenchKey(const char* what, HWND list, HWND grid, int key, int times)
{
    double listTime = TimeOf(list, key, times), gridTime = TimeOf(grid, key, times);
    PrintRatio(what, listTime, gridTime);
    std::printf("%-34s list view %10.3f ms   grid %10.3f ms\n", "  one key", listTime / times,
                gridTime / times);
}
} // namespace

int main(int argc, char** argv)
{
    int rows = 10000;
    if (argc > 1)
        rows = std::strcmp(argv[1], "--smoke") == 0 ? 100 : std::max(std::atoi(argv[1]), 100);
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    {
        std::vector<BSTR> texts = RandomTexts(rows * Cols);
        HostedList list(Width, Height);
        HostedGrid grid(Width, Height);
        list.Fill(texts, rows);
        grid.Fill(texts, rows);
        grid->put_SelectionMode(lorvSelectionByRow);
        HandleMessages();
        BenchKey("Down through all rows", list.Window(), grid.Window(), VK_DOWN, rows - 1);
        BenchKey("Page Down", list.Window(), grid.Window(), VK_NEXT, rows / 50);
        for (BSTR text : texts)
            SysFreeString(text);
    }
    OleUninitialize();
    return 0;
}
