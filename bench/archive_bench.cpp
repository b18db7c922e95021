// How fast the control packs a file into an archive and extracts it again, file to file. tools/bench-archive
// runs it beside other archivers. Figures are medians of three runs.
//   archive_bench FILE        packs FILE into FILE.lzh, which stays
//   archive_bench --smoke     packs 500 KB of its own, to show that everything runs
#include "lorv8l.h"

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>

namespace
{
double Seconds()
{
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

class Grid
{
public:
    Grid()
    {
        if (FAILED(CoCreateInstance(CLSID_LorvGridL, nullptr, CLSCTX_INPROC_SERVER, IID_ILorvGrid,
                                    reinterpret_cast<void**>(&grid_))))
            Fail("the control is not registered", 0);
    }
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;
    ~Grid() { grid_->Release(); }

    [[noreturn]] static void Fail(const char* what, HRESULT code)
    {
        std::fprintf(stderr, "archive_bench: %s (0x%08lX)\n", what, static_cast<unsigned long>(code));
        std::exit(1);
    }

    // The time of the median run.
    double Time(const std::wstring& archive, const std::wstring& file, ArchiveSettings action)
    {
        double times[3];
        BSTR archiveName = SysAllocString(archive.c_str()), fileName = SysAllocString(file.c_str());
        for (double& time : times) {
            double start = Seconds();
            if (HRESULT code = grid_->Archive(archiveName, fileName, action); FAILED(code))
                Fail("Archive failed", code);
            time = Seconds() - start;
        }
        SysFreeString(archiveName);
        SysFreeString(fileName);
        std::sort(std::begin(times), std::end(times));
        return times[1];
    }
    double Size(const std::wstring& archive, ArchiveInfoSettings detail)
    {
        VARIANT index = {}, size = {};
        index.vt = VT_I4;
        BSTR name = SysAllocString(archive.c_str());
        if (HRESULT code = grid_->get_ArchiveInfo(name, detail, index, &size); FAILED(code))
            Fail("ArchiveInfo failed", code);
        SysFreeString(name);
        return size.lVal;
    }

private:
    ILorvGrid* grid_ = nullptr;
};

std::wstring OwnFile()
{
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    std::wstring path = std::wstring(folder) + L"archive_bench.txt";
    FILE* file = _wfopen(path.c_str(), L"wb");
    if (!file)
        Grid::Fail("no room for a file", 0);
    for (int row = 0; row < 20000; ++row)
        std::fprintf(file, "row %d, total %d\r\n", row, row * 37);
    std::fclose(file);
    return path;
}

// Extracts by the name of the entry, into a folder of the path given.
void Run(Grid& grid, const std::wstring& file)
{
    std::wstring archive = file + L".lzh", folder = file + L".out";
    size_t slash = file.rfind(L'\\');
    std::wstring out = folder + L"\\" + file.substr(slash == std::wstring::npos ? 0 : slash + 1);
    CreateDirectoryW(folder.c_str(), nullptr);
    DeleteFileW(archive.c_str());
    double pack = grid.Time(archive, file, arcAdd), unpack = grid.Time(archive, out, arcExtract);
    double size = grid.Size(archive, arcFileSize), packed = grid.Size(archive, arcFileCompressedSize);
    std::printf("control  pack   %7.1f MB/s, %.0f of %.0f bytes, %.1f%%\n", size / 1e6 / pack, packed, size,
                100 * packed / size);
    std::printf("control  unpack %7.1f MB/s\n", size / 1e6 / unpack);
    DeleteFileW(out.c_str());
    RemoveDirectoryW(folder.c_str());
}
} // namespace

int main(int argc, char** argv)
{
    OleInitialize(nullptr);
    bool smoke = argc < 2 || std::string(argv[1]) == "--smoke";
    std::wstring file = smoke ? OwnFile() : std::wstring(argv[1], argv[1] + std::strlen(argv[1]));
    {
        Grid grid;
        Run(grid, file);
    }
    if (smoke) {
        DeleteFileW(file.c_str());
        DeleteFileW((file + L".lzh").c_str());
    }
    OleUninitialize();
    return 0;
}
