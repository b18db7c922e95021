#pragma once

#include <string>

// The full path, as Windows programs see it, of a file under tests/data.
std::wstring TestDataPath(const wchar_t* name);

// The same for any file of the source tree, by its path from the root.
std::wstring SourcePath(const wchar_t* name);
