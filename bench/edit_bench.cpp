// What an edit costs beside the system's own windows: typing under a mask beside a bare edit box, opening a
// long list beside filling a bare combo box, and setting the same list again.
//   edit_bench [--smoke]
#include "hosted.h"

namespace
{
constexpr int Width = 640, Height = 480;
constexpr wchar_t Phone[] = L"5551234567";

struct Sizes {
    int Edits = 200;
    int Items = 10000;
    int Sets = 2000;
};

class Text
{
public:
    explicit Text(const std::wstring& text) : text_(SysAllocString(text.c_str())) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }
    operator BSTR() const { return text_; }

private:
    BSTR text_;
};

HWND BareWindow(const wchar_t* className, DWORD style)
{
    return CreateWindowExW(0, className, L"", WS_POPUP | WS_VISIBLE | style, 0, 500, 200, 200, nullptr,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
}

void TypePhone(HWND editor)
{
    for (const wchar_t* key = Phone; *key; ++key) {
        SendMessageW(editor, WM_CHAR, *key, 1);
        HandleMessages();
    }
}

void BenchTyping(const Sizes& sizes)
{
    HWND bare = BareWindow(L"EDIT", ES_MULTILINE | ES_AUTOHSCROLL);
    double plain = MedianTime(Nothing, [&] {
        for (int edit = 0; edit < sizes.Edits; ++edit) {
            SetWindowTextW(bare, L"");
            TypePhone(bare);
        }
    });
    DestroyWindow(bare);
    HostedGrid grid(Width, Height);
    double edits[2] = {};
    for (const wchar_t* mask : {L"", L"(###) ###-####"}) {
        grid->put_EditMask(Text(mask));
        edits[*mask != 0] = MedianTime(Nothing, [&] {
            for (int edit = 0; edit < sizes.Edits; ++edit) {
                grid->put_TextMatrix(1, 1, Text(L""));
                grid->EditCell();
                LONG window = 0;
                grid->get_EditWindow(&window);
                TypePhone(reinterpret_cast<HWND>(static_cast<INT_PTR>(window)));
                grid->FinishEditing(VARIANT_FALSE);
            }
        });
    }
    int keys = sizes.Edits * static_cast<int>(std::wcslen(Phone));
    PrintTime("keys into a bare edit box", plain, keys);
    PrintTime("keys into a cell, with its edits", edits[0], keys);
    PrintTime("the same under a mask", edits[1], keys);
}

std::wstring LongList(int items)
{
    std::wstring list;
    for (int item = 0; item < items; ++item) {
        std::wstring number = std::to_wstring(item);
        list += (item ? L"|#" : L"#") + number + L";Item " + number;
    }
    return list;
}

void BenchOpening(const Sizes& sizes)
{
    double plain = MedianTime(Nothing, [&] {
        HWND bare =
            BareWindow(L"COMBOBOX", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL);
        for (int item = 0; item < sizes.Items; ++item)
            SendMessageW(bare, CB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>((L"Item " + std::to_wstring(item)).c_str()));
        DestroyWindow(bare);
    });
    HostedGrid grid(Width, Height);
    Text list(LongList(sizes.Items)), other(LongList(sizes.Items - 1));
    double set =
        MedianTime([&] { grid->put_ColComboList(1, other); }, [&] { grid->put_ColComboList(1, list); });
    double again = MedianTime(Nothing, [&] {
        for (int time = 0; time < sizes.Sets; ++time)
            grid->put_ColComboList(1, list);
    });
    // A new list takes the window of the last edit away.
    Text short1(L"A"), short2(L"B");
    bool odd = false;
    auto close = [&] {
        grid->FinishEditing(VARIANT_TRUE);
        grid->put_ComboList((odd = !odd) ? short1 : short2);
    };
    double open = MedianTime(close, [&] { grid->EditCell(); });
    double away = MedianTime([&] { grid->EditCell(); }, close);
    PrintTime("items into a bare combo box", plain, sizes.Items);
    PrintTime("a column's list is set, items", set, sizes.Items);
    PrintTime("a list is opened, items", open, sizes.Items);
    PrintTime("its window is taken away, items", away, sizes.Items);
    PrintTime("the same list is set again", again, sizes.Sets);
}
} // namespace

int main(int argc, char** argv)
{
    Sizes sizes;
    if (argc > 1 && std::strcmp(argv[1], "--smoke") == 0)
        sizes = {2, 50, 2};
    OleInitialize(nullptr);
    BenchTyping(sizes);
    BenchOpening(sizes);
    OleUninitialize();
    return 0;
}
