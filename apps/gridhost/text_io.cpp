#include "text_io.h"

#include <string.h>
#include <windows.h>

static void Write(DWORD stream, std::wstring_view text)
{
    std::wstring line(text);
    line += L"\r\n";
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, line.data(), int(line.size()), nullptr, 0, nullptr, nullptr);
    std::string bytes(size_t(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, line.data(), int(line.size()), bytes.data(), size, nullptr, nullptr);
    DWORD written;
    WriteFile(GetStdHandle(stream), bytes.data(), DWORD(bytes.size()), &written, nullptr);
}

void PrintLine(std::wstring_view text)
{
    Write(STD_OUTPUT_HANDLE, text);
}

void PrintError(std::wstring_view text)
{
    Write(STD_ERROR_HANDLE, text);
}

static bool ReadBytes(const std::wstring& path, std::string& bytes)
{
    HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    bytes.resize(GetFileSize(file, nullptr));
    DWORD read = 0;
    const bool ok = ReadFile(file, bytes.data(), DWORD(bytes.size()), &read, nullptr) && read == bytes.size();
    CloseHandle(file);
    return ok;
}

static bool Decode(UINT codePage, DWORD flags, std::string_view bytes, std::wstring& text)
{
    text.clear();
    if (bytes.empty())
        return true;
    const int size = MultiByteToWideChar(codePage, flags, bytes.data(), int(bytes.size()), nullptr, 0);
    if (size <= 0)
        return false;
    text.resize(size_t(size));
    MultiByteToWideChar(codePage, flags, bytes.data(), int(bytes.size()), text.data(), size);
    return true;
}

bool ReadTextFile(const std::wstring& path, std::wstring& text)
{
    std::string bytes;
    if (!ReadBytes(path, bytes))
        return false;
    const std::string_view all(bytes);
    if (all.starts_with("\xFF\xFE")) {
        text.resize((all.size() - 2) / sizeof(wchar_t));
        memcpy(text.data(), all.data() + 2, text.size() * sizeof(wchar_t));
        return true;
    }
    const std::string_view body = all.starts_with("\xEF\xBB\xBF") ? all.substr(3) : all;
    return Decode(CP_UTF8, MB_ERR_INVALID_CHARS, body, text) || Decode(CP_ACP, 0, body, text);
}

std::wstring FullPath(const std::wstring& path)
{
    wchar_t full[1024];
    const DWORD length = GetFullPathNameW(path.c_str(), 1024, full, nullptr);
    return length > 0 && length < 1024 ? std::wstring(full, length) : path;
}

std::wstring FolderOf(const std::wstring& path)
{
    const size_t separator = path.find_last_of(L"\\/");
    return separator == std::wstring::npos ? L"." : path.substr(0, separator);
}

bool EndsWithNoCase(std::wstring_view text, std::wstring_view ending)
{
    return text.size() >= ending.size() &&
           _wcsnicmp(text.data() + text.size() - ending.size(), ending.data(), ending.size()) == 0;
}

std::wstring DescribeCode(long code)
{
    wchar_t number[16];
    wsprintfW(number, L"0x%08X", unsigned(code));
    wchar_t words[256];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  DWORD(code), 0, words, 256, nullptr);
    while (length > 0 && (words[length - 1] < L' ' || words[length - 1] == L'.'))
        --length;
    std::wstring result = number;
    if (length > 0)
        result += L" " + std::wstring(words, length);
    return result;
}
