// Grids to files and back: megabytes a second of comma text and of the grid's own file. Figures are medians
// of three runs. tools/bench-files runs it beside SQLite's .import of the same text.
//   files_bench [--smoke] [--text FILE]   --smoke does a hundredth of the work; --text keeps the text there
#include "lorv8l.h"

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>

namespace
{
constexpr double Megabyte = 1e6;

double Seconds()
{
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Seconds of the processor, which other programs on the machine change less.
double ProcessorSeconds()
{
    FILETIME created, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    auto ticks = [](const FILETIME& time) { return time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime; };
    return (ticks(kernel) + ticks(user)) / 1e7;
}

struct Times {
    double Wall, Processor;
    bool operator<(const Times& other) const { return Wall < other.Wall; }
};

using Step = std::function<void()>;

Times MedianTime(const Step& prepare, const Step& work)
{
    Times times[3];
    for (Times& time : times) {
        prepare();
        double wall = Seconds(), processor = ProcessorSeconds();
        work();
        time = {Seconds() - wall, ProcessorSeconds() - processor};
    }
    std::sort(std::begin(times), std::end(times));
    return times[1];
}

// A fixed sequence, so that every run does the same work.
class Random
{
public:
    unsigned Below(unsigned limit)
    {
        state_ = state_ * 1664525u + 1013904223u;
        return (state_ >> 16) % limit;
    }

private:
    unsigned state_ = 20240607;
};

std::wstring RandomText(Random& random)
{
    std::wstring text(4 + random.Below(12), L' ');
    for (wchar_t& unit : text)
        unit = static_cast<wchar_t>((random.Below(7) == 0 ? L'A' : L'a') + random.Below(26));
    return text;
}

// Rows as other programs write them: a number, words, an amount, and now and then a field in quotes.
void WriteComma(const wchar_t* name, double size)
{
    FILE* file = _wfopen(name, L"wb");
    if (!file)
        std::exit(2);
    Random random;
    double written = 0;
    for (int row = 1; written < size; ++row) {
        std::string line = std::to_string(row);
        for (int col = 0; col < 8; ++col) {
            std::wstring text = RandomText(random);
            bool quoted = random.Below(20) == 0;
            line += quoted ? ",\"" : ",";
            line.append(text.begin(), text.end());
            line += quoted ? ", Inc.\"" : "";
        }
        line +=
            "," + std::to_string(random.Below(100000)) + "." + std::to_string(10 + random.Below(90)) + "\r\n";
        written += static_cast<double>(std::fwrite(line.data(), 1, line.size(), file));
    }
    std::fclose(file);
}

double FileSize(const wchar_t* name)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExW(name, GetFileExInfoStandard, &data);
    return static_cast<double>(data.nFileSizeHigh) * 4294967296.0 + data.nFileSizeLow;
}

void Check(const char* what, HRESULT result)
{
    if (SUCCEEDED(result))
        return;
    std::printf("%s failed with %08lX\n", what, static_cast<unsigned long>(result));
    std::exit(1);
}

class GridUnderTest
{
public:
    GridUnderTest()
    {
        Check("CoCreateInstance", CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER,
                                                   IID_ILorvGrid, reinterpret_cast<void**>(&grid_)));
        none_.vt = VT_ERROR;
        none_.scode = DISP_E_PARAMNOTFOUND;
        grid_->put_AutoResize(VARIANT_FALSE);
        grid_->put_Redraw(lorvRDNone);
    }
    ~GridUnderTest() { grid_->Release(); }
    ILorvGrid* operator->() const { return grid_; }

    void Shape(int rows, int cols)
    {
        grid_->put_Rows(0);
        grid_->put_Cols(cols);
        grid_->put_Rows(rows);
    }
    void Save(const wchar_t* name, SaveLoadSettings kind)
    {
        BSTR file = SysAllocString(name);
        Check("SaveGrid", grid_->SaveGrid(file, kind, none_));
        SysFreeString(file);
    }
    void Load(const wchar_t* name, SaveLoadSettings kind)
    {
        BSTR file = SysAllocString(name);
        Check("LoadGrid", grid_->LoadGrid(file, kind, none_));
        SysFreeString(file);
    }

private:
    ILorvGrid* grid_ = nullptr;
    VARIANT none_ = {};
};

void Print(const char* what, const wchar_t* file, Times times)
{
    double size = FileSize(file) / Megabyte;
    std::printf("%-34s %8.1f MB %8.3f s %8.1f MB/s  (processor %.3f s, %.1f MB/s)\n", what, size, times.Wall,
                size / times.Wall, times.Processor, size / times.Processor);
    std::fflush(stdout);
}

void BenchText(const wchar_t* name, double size)
{
    WriteComma(name, size);
    GridUnderTest grid;
    auto empty = [&] { grid.Shape(1, 2); };
    Print("load comma text", name, MedianTime(empty, [&] { grid.Load(name, lorvFileCommaText); }));
    std::wstring saved = std::wstring(name) + L".saved";
    Times save = MedianTime([] {}, [&] { grid.Save(saved.c_str(), lorvFileCommaText); });
    Print("save comma text", saved.c_str(), save);
    DeleteFileW(saved.c_str());
    if (size <= 2 * Megabyte)
        return;
    WriteComma(saved.c_str(), size / 20);
    grid->put_AutoResize(VARIANT_TRUE);
    Times sized = MedianTime(empty, [&] { grid.Load(saved.c_str(), lorvFileCommaText); });
    Print("load comma text, columns sized", saved.c_str(), sized);
    DeleteFileW(saved.c_str());
}

void BenchBinary(const wchar_t* name, int rows, int cols)
{
    GridUnderTest grid, other;
    grid.Shape(rows, cols);
    Random random;
    for (int row = 0; row < rows; ++row)
        for (int col = 0; col < cols; ++col) {
            BSTR text = SysAllocString(RandomText(random).c_str());
            grid->put_TextMatrix(row, col, text);
            SysFreeString(text);
        }
    Times save = MedianTime([] {}, [&] { grid.Save(name, lorvFileAll); });
    Print("save the grid's file", name, save);
    auto empty = [&] { other.Shape(0, 2); };
    Print("load the grid's file", name, MedianTime(empty, [&] { other.Load(name, lorvFileAll); }));
    DeleteFileW(name);
}
} // namespace

int main(int argc, char** argv)
{
    bool smoke = false;
    std::string given;
    for (int i = 1; i < argc; ++i) {
        smoke |= std::strcmp(argv[i], "--smoke") == 0;
        if (std::strcmp(argv[i], "--text") == 0 && i + 1 < argc)
            given = argv[++i];
    }
    std::wstring text(given.begin(), given.end());
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    std::wstring ours = std::wstring(folder) + L"lorv_bench";
    OleInitialize(nullptr);
    BenchBinary((ours + L".lv").c_str(), smoke ? 1000 : 100000, 20);
    std::wstring comma = text.empty() ? ours + L".csv" : text;
    BenchText(comma.c_str(), smoke ? Megabyte : 100 * Megabyte);
    if (text.empty())
        DeleteFileW(comma.c_str());
    OleUninitialize();
    return 0;
}
