// A selection that grows through a whole sheet, page by page, each page painted: in the grid by dragging
// below the window, in the list view by Shift and Page Down, which scrolls and selects as much. The time of
// the list view grows with the square of the rows, so the two are compared over a tenth of them.
//   drag_bench [--smoke]
#include "hosted.h"

namespace
{
constexpr int Width = 640, Height = 480;

void HoldKey(int key, bool down)
{
    BYTE state[256] = {};
    GetKeyboardState(state);
    state[key] = down ? 0x80 : 0;
    SetKeyboardState(state);
}

// Returns the number of rows that are selected.
int SelectByPages(HWND list)
{
    HoldKey(VK_SHIFT, true);
    int last = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) - 1;
    for (int focus = 0, before = -1; focus < last && focus != before;) {
        before = focus;
        SendMessageW(list, WM_KEYDOWN, VK_NEXT, 0);
        UpdateWindow(list);
        focus = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    }
    HoldKey(VK_SHIFT, false);
    return static_cast<int>(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0));
}

int DragByPages(HostedGrid& grid, int rows)
{
    HWND window = grid.Window();
    LPARAM below = MAKELPARAM(100, 2 * Height - 1); // one page below the window
    HoldKey(VK_LBUTTON, true);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 30));
    LONG corner = 0;
    for (LONG before = -1; corner < rows && corner != before;) {
        before = corner;
        SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, below);
        UpdateWindow(window);
        grid->get_RowSel(&corner);
    }
    HoldKey(VK_LBUTTON, false);
    SendMessageW(window, WM_LBUTTONUP, 0, below);
    return static_cast<int>(corner); // under one fixed row
}

void ExpectAll(const char* what, int selected, int rows)
{
    if (selected != rows)
        std::printf("%s: %d rows selected, of %d\n", what, selected, rows);
}

double TimeList(const std::vector<BSTR>& texts, int rows)
{
    HostedList list(Width, Height);
    list.Fill(texts, rows);
    SetFocus(list.Window());
    int selected = 0;
    auto home = [&] {
        SendMessageW(list.Window(), WM_KEYDOWN, VK_HOME, 0);
        UpdateWindow(list.Window());
    };
    double time = MedianTime(home, [&] { selected = SelectByPages(list.Window()); });
    ExpectAll("the list view", selected, rows);
    return time;
}

double TimeGrid(const std::vector<BSTR>& texts, int rows)
{
    HostedGrid grid(Width, Height);
    grid.Fill(texts, rows);
    grid->put_SelectionMode(lorvSelectionByRow);
    int selected = 0;
    auto home = [&] {
        grid->Select(1, 0, GridUnderTest::Missing(), GridUnderTest::Missing());
        grid->put_TopRow(1);
        UpdateWindow(grid.Window());
    };
    double time = MedianTime(home, [&] { selected = DragByPages(grid, rows); });
    ExpectAll("the grid", selected, rows);
    return time;
}
} // namespace

int main(int argc, char** argv)
{
    bool smoke = argc > 1 && std::strcmp(argv[1], "--smoke") == 0;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    int rows = smoke ? 200 : 10000, all = 10 * rows;
    std::vector<BSTR> texts = RandomTexts(all * Cols);
    PrintRatio("drag selection, a tenth of the rows", TimeList(texts, rows), TimeGrid(texts, rows));
    PrintTime("drag selection in the grid, by rows", TimeGrid(texts, all), all);
    OleUninitialize();
    return 0;
}
