// Text in and out of the host: its console streams and the script files.
#pragma once

#include <string>
#include <string_view>

void PrintLine(std::wstring_view text);  // standard output, UTF-8
void PrintError(std::wstring_view text); // standard error, UTF-8

// Reads a text file: UTF-16 or UTF-8 with a byte order mark, else UTF-8, else the system's code page.
bool ReadTextFile(const std::wstring& path, std::wstring& text);

std::wstring FullPath(const std::wstring& path);
std::wstring FolderOf(const std::wstring& path); // without the last separator
bool EndsWithNoCase(std::wstring_view text, std::wstring_view ending);

// "0x80070057 Invalid argument": the code and the system's words for it.
std::wstring DescribeCode(long code);
